#include "plot/labelplace.h"

#include <algorithm>
#include <cmath>

namespace {
constexpr int mostCells = 1000; ///< a side: a tiny character size must not ask for all memory
}

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
    const double up = 0.75 * size;   // of the text above its baseline
    const double down = 0.25 * size; // and below it
    const Spot spots[] = {{x + away, y + 0.35 * size},
                          {x - away - width, y + 0.35 * size},
                          {x - width / 2, y - away},
                          {x - width / 2, y + away + up}};
    for (const Spot& spot : spots) {
        const auto box = cells(spot.x, spot.y - up, spot.x + width, spot.y + down);
        if (!box || !free(*box)) continue;
        take(*box);
        return spot;
    }
    return std::nullopt;
}
