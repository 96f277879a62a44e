// Missing Y values from the fitted curves.

#include <cmath>

#include "analysis/notices.h"
#include "curvefit/curverows.h"
#include "curvefit/curvesmain.h"
#include "curvefit/curvevalue.h"
#include "data/cell.h"
#include "data/numbertext.h"
#include "numeric/sngguard.h"

namespace {

constexpr std::string_view separators = "xX*";

/// The text of a cell with its second field replaced and its label marked, all else as it was typed.
std::string withordinate(std::string_view text, float y) {
    std::string number;
    appendtrimmed(number, y);
    const auto stop = std::min(text.find_first_of("\r\n\t"), text.size());
    const auto end = std::min(text.find('_'), stop);
    const auto first = text.substr(0, end).find_first_of(separators);
    std::string filled(text.substr(0, std::min(first, end)));
    const auto second = first == std::string_view::npos
                            ? end
                            : std::min(text.substr(0, end).find_first_of(separators, first + 1), end);
    filled += 'x';
    filled += number;
    filled += text.substr(second, stop - second);
    if (const std::string_view label = text.substr(end, stop - end); !isfilled(label)) {
        filled += label.empty() ? "_" : label == "_" ? "" : " ";
        filled += fillLabel;
    }
    filled += text.substr(stop);
    return filled;
}

/// The coefficients tell the curve between the points, too.
bool isprecise(int k) {
    const auto model = modelofcode(static_cast<int>(session.curves(k).fitmodel));
    return model && fitsolve(curverows(k).rows, *model).precise;
}

void fillset(int k, std::vector<FilledCell>& fills) {
    const auto& cells = session.gridCells[static_cast<std::size_t>(k - 1)];
    int filled = 0, cannot = 0;
    const auto open = opencells(k);
    const bool precise = !open.empty() && isprecise(k);
    for (const OpenCell& one : open) {
        const Cell cell = cellsplit(cells[one.place]);
        const double value = fitusex2y(session.curves(k), cell.x);
        FilledCell fill{k, one.point, one.place, sngguard(value), {}};
        fill.text = withordinate(cells[one.place], fill.y);
        const Cell again = cellsplit(fill.text);
        const bool holds = precise && std::isfinite(value) && std::fabs(value) < 9e29 && again.hasY
                           && again.x == cell.x && again.y == fill.y && again.quantity == cell.quantity
                           && again.z == cell.z && again.label.starts_with(cell.label)
                           && isfilled(again.label);
        ++(holds ? filled : cannot);
        if (holds) fills.push_back(std::move(fill));
    }
    if (cannot > 0) tellset(k, Word::Cannot, " ", Word::Fill, " (", cannot, ")");
    const Keep keep{session.quiet};
    session.quiet = 1; // it was asked for: the report tells how many
    if (filled > 0) tellset(k, Word::Point, " ", Word::Fill, " = ", filled);
}

} // namespace

std::vector<FilledCell> curvefills() {
    std::vector<FilledCell> fills;
    if (session.fillMissing == 0 || session.progSide != visualSide) return fills;
    session.fillMissing = 0;
    bool any = false;
    for (int k = 1; k <= setcount(); ++k) {
        if (!hascurve(k)) continue;
        any = true;
        fillset(k, fills);
    }
    if (!any) tellrun(Word::Point, " ", Word::Fill, ": ", Word::No, " ", Word::Curve, " ", Word::Fit);
    return fills;
}

void curvefillsput(const std::vector<FilledCell>& fills) {
    for (const FilledCell& fill : fills)
        session.gridCells[static_cast<std::size_t>(fill.set - 1)][fill.place] = fill.text;
}

void curvefillstake(const std::vector<FilledCell>& fills) {
    for (const FilledCell& fill : fills) {
        const int row = static_cast<int>(rowofset(static_cast<float>(fill.set)));
        session.Y(row, fill.point) = session.entryY(row, fill.point) = fill.y;
        session.pointTypes(fill.set, fill.point) = Occr;
        pointlabelput(fill.set, fill.point, cellsplit(fill.text).label);
    }
}
