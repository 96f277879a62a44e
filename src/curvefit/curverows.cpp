#include "curvefit/curverows.h"

#include <cmath>

#include "data/cell.h"
#include "data/gridpoints.h"
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

/// The points of a set, and where they stand in its column of the grid, from 0.
struct PlacedPoint {
    std::size_t place;
    GridPoint point;
};

std::vector<PlacedPoint> placedpoints(int k) {
    std::vector<PlacedPoint> placed;
    const auto cells = gridpoints(k);
    for (std::size_t place = 0; place < cells.size(); ++place)
        if (cells[place]) placed.push_back({place, *cells[place]});
    if (const auto read = static_cast<std::size_t>(pointcount(k)); placed.size() > read) placed.resize(read);
    return placed;
}

} // namespace

std::vector<OpenCell> opencells(int k) {
    std::vector<OpenCell> open;
    const auto points = placedpoints(k);
    for (std::size_t i = 0; i < points.size(); ++i)
        if (!points[i].point.hasY) open.push_back({points[i].place, static_cast<int>(i) + 1});
    return open;
}

CurveRows curverows(int k) {
    CurveRows set;
    const auto points = placedpoints(k);
    for (int j = 1; j <= pointcount(k); ++j) {
        if (const auto i = static_cast<std::size_t>(j - 1); i < points.size()) {
            const auto& [cell, hasY] = points[i].point;
            set.withoutY += hasY ? 0 : 1;
            if (!hasY || isfilled(cell.label)) continue;
        }
        if (isopenended(k, j)) continue;
        set.rows.push_back({session.X(datarow(k), j), session.Y(datarow(k), j), countof(k, j)});
    }
    return set;
}
