#include "plot/labelplace.h"

#include <algorithm>
#include <cmath>

namespace {
constexpr int mostCells = 1000; ///< a side: a tiny character size must not ask for all memory
constexpr double above = 0.75;  ///< of the character size: a text above its baseline
constexpr double below = 0.25;  ///< and below it
} // namespace

LabelPlaces::LabelPlaces(const ClipWindow& a, double characterSize)
    : area(a),
      size(characterSize),
      cell(std::max({characterSize / 2, (a.right - a.left) / mostCells, (a.bottom - a.top) / mostCells})),
      columns(static_cast<int>((a.right - a.left) / cell) + 1),
      rows(static_cast<int>((a.bottom - a.top) / cell) + 1),
      taken(static_cast<std::size_t>(columns) * static_cast<std::size_t>(rows)) {}

std::optional<LabelPlaces::Cells> LabelPlaces::cells(double left, double top, double right,
                                                     double bottom) const {
    if (left < area.left || right > area.right || top < area.top || bottom > area.bottom) return std::nullopt;
    const auto index = [this](double distance) { return static_cast<int>(distance / cell); };
    return Cells{index(left - area.left), index(top - area.top), index(right - area.left),
                 index(bottom - area.top)};
}

bool LabelPlaces::free(const Cells& box) const {
    for (int row = box.top; row <= box.bottom; ++row)
        for (int column = box.left; column <= box.right; ++column)
            if (taken[static_cast<std::size_t>(row * columns + column)] != 0) return false;
    return true;
}

void LabelPlaces::take(const Cells& box) {
    for (int row = box.top; row <= box.bottom; ++row)
        for (int column = box.left; column <= box.right; ++column)
            taken[static_cast<std::size_t>(row * columns + column)] = 1;
}

void LabelPlaces::keepfree(double x, double y, double reach) {
    const double left = std::clamp(x - reach, area.left, area.right);
    const double right = std::clamp(x + reach, area.left, area.right);
    const double top = std::clamp(y - reach, area.top, area.bottom);
    const double bottom = std::clamp(y + reach, area.top, area.bottom);
    if (const auto box = cells(left, top, right, bottom)) take(*box);
}

std::optional<LabelPlaces::Spot> LabelPlaces::place(double x, double y, double width) {
    const double away = 0.9 * size;
    const Spot spots[] = {{x + away, y + 0.35 * size},
                          {x - away - width, y + 0.35 * size},
                          {x - width / 2, y - away},
                          {x - width / 2, y + away + above * size}};
    return takefirst(spots, width);
}

std::optional<LabelPlaces::Spot> LabelPlaces::standoff(double x, double y, double width) {
    constexpr int rings = 8;
    constexpr double diagonal = 0.7;
    for (int ring = 1; ring <= rings; ++ring) {
        const double away = 2 * ring * size;
        const double slant = diagonal * away;
        const double middle = 0.35 * size;
        const Spot spots[] = {{x + slant, y - slant},    {x - slant - width, y - slant},
                              {x + slant, y + slant},    {x - slant - width, y + slant},
                              {x + away, y + middle},    {x - away - width, y + middle},
                              {x - width / 2, y - away}, {x - width / 2, y + away}};
        if (const auto spot = takefirst(spots, width)) return spot;
    }
    return std::nullopt;
}

std::optional<LabelPlaces::Spot> LabelPlaces::takefirst(std::span<const Spot> spots, double width) {
    for (const Spot& spot : spots) {
        const auto box = cells(spot.x, spot.y - above * size, spot.x + width, spot.y + below * size);
        if (!box || !free(*box)) continue;
        take(*box);
        return spot;
    }
    return std::nullopt;
}
