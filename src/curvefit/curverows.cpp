#include "curvefit/curverows.h"

#include <cmath>

#include "data/cell.h"
#include "session/session.h"

namespace {

constexpr float censored = 3e33f; ///< a Z beyond it, to either side, is a sentinel

int datarow(int k) { return static_cast<int>(rowofset(static_cast<float>(k))); }

/// The value of the point is not known: it was suspended before it, or discovered behind it. On a plot with a
/// probability scale a minus sign marks a suspension where it does not make a value.
bool isopenended(int k, int j) {
    if (std::fabs(session.v2(k, j)) > censored) return true;
    return session.plotMode == 1 && !negativedata() && session.X(datarow(k), j) < 0;
}

/// The count of a row; where none was given that is above 0 the row stands for one point.
double countof(int k, int j) {
    const double count = session.v1(k, j);
    return count > 0 ? count : 1;
}

/// A comma that is not the decimal symbol may have been meant as one: such a cell is no point.
bool ispoint(std::string_view text) {
    const bool strangeComma =
        session.decimalSeparator != "," && text.substr(0, text.find('_')).find(',') != std::string_view::npos;
    return cellsplit(text).hasValue && !strangeComma;
}

} // namespace

std::vector<OpenCell> opencells(int k) {
    std::vector<OpenCell> open;
    const auto column = static_cast<std::size_t>(k - 1);
    if (k < 1 || column >= session.gridCells.size()) return open;
    const auto& cells = session.gridCells[column];
    int point = 0;
    for (std::size_t place = 0; place < cells.size() && point < pointcount(k); ++place) {
        if (!ispoint(cells[place])) continue;
        ++point;
        if (!cellhasy(cells[place])) open.push_back({place, point});
    }
    return open;
}

CurveRows curverows(int k) {
    CurveRows set;
    const std::vector<OpenCell> open = opencells(k);
    auto next = open.begin();
    for (int j = 1; j <= pointcount(k); ++j) {
        if (next != open.end() && next->point == j) {
            ++next;
            ++set.withoutY;
            continue;
        }
        if (isopenended(k, j)) continue;
        set.rows.push_back({session.X(datarow(k), j), session.Y(datarow(k), j), countof(k, j)});
    }
    return set;
}
