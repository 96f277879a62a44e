#include "transform/transforms.h"

#include <algorithm>
#include <functional>
#include <utility>

#include "data/gridpoints.h"
#include "session/session.h"
#include "transform/kernels.h"
#include "transform/sets.h"

namespace {

constexpr double mostTurn = 3600; ///< degrees; more is a slip of the finger

bool putpoint(Cell& cell, PlanePoint point) {
    const auto x = cellnumber(point.x), y = cellnumber(point.y);
    if (!x || !y) return false;
    cell.x = *x;
    cell.y = *y;
    return true;
}

using Move = std::function<PlanePoint(PlanePoint)>;

bool movepoints(int set, const Move& move) {
    return changegrid([&] {
        return rewriteset(set, [&](std::size_t, GridPoint& point) {
            Cell& cell = point.cell;
            return point.hasY && putpoint(cell, move({cell.x, cell.y}));
        });
    });
}

/// Moves every point of a set that is asked for.
bool movepoints(const Label& title, const Move& move) {
    const int set = askset(title, session.activeSet);
    return set != 0 && movepoints(set, move);
}

/// A sum down the rows. One that no cell can hold does not stop those behind it.
bool sumdown(float& field, double& sum) {
    sum += field;
    return putresult(field, sum);
}

/// A row without the Y that is asked for has no result, but its X is part of the way to those behind it.
bool suminterval(bool ofX, bool ofY) {
    const int set = askset({Word::Interval, Word::Transform}, session.activeSet);
    if (set == 0) return false;
    double sumX = 0, sumY = 0;
    return changegrid([&] {
        return rewriteset(set, [&](std::size_t, GridPoint& point) {
            const bool x = !ofX || sumdown(point.cell.x, sumX);
            const bool y = !ofY || (point.hasY && sumdown(point.cell.y, sumY));
            return x && y;
        });
    });
}

} // namespace

bool axisofset() {
    const int a = askset({Word::Set, "A"}, 1);
    const int b = a == 0 ? 0 : askset({Word::Set, "B"}, 2);
    if (b == 0) return false;
    return changegrid([&] {
        const auto source = gridpoints(a);
        return rewriteset(b, [&](std::size_t row, GridPoint& point) {
            if (row >= source.size() || !source[row] || !source[row]->hasY) return false;
            point.cell.x = source[row]->cell.y;
            return true;
        });
    });
}

bool rectangulartopolar() { return movepoints({Word::Rectangular, Word::To, Word::Polar}, topolar); }

bool polartorectangular() { return movepoints({Word::Polar, Word::To, Word::Rectangular}, torectangular); }

bool swapaxes() {
    return movepoints({Word::Swap, Word::Axis}, [](PlanePoint point) {
        return PlanePoint{point.y, point.x};
    });
}

bool rotation() {
    const int set = askset({Word::Polar, Word::Rotation, Word::About, "0-0"}, session.activeSet);
    double angle = 0;
    if (set == 0 || !asknumberwithin({Word::Angle, "[°]"}, angle, -mostTurn, mostTurn)) return false;
    return movepoints(set, [angle](PlanePoint point) { return rotated(point, angle); });
}

bool orderbyx() {
    const int set = askset({Word::Order, Word::By, "X-", Word::Value}, session.activeSet);
    if (set == 0) return false;
    return changegrid([&] {
        const auto points = gridpoints(set);
        std::vector<std::size_t> rows;
        for (std::size_t row = 0; row < points.size(); ++row)
            if (points[row]) rows.push_back(row);
        std::vector<std::size_t> order = rows;
        std::stable_sort(order.begin(), order.end(),
                         [&](std::size_t a, std::size_t b) { return points[a]->cell.x < points[b]->cell.x; });
        if (order == rows) return false;
        std::vector<std::string> texts;
        for (const std::size_t row : order) texts.push_back(gridcellsof(set)[row]);
        for (std::size_t i = 0; i < rows.size(); ++i)
            session.gridCells[static_cast<std::size_t>(set - 1)][rows[i]] = std::move(texts[i]);
        return true;
    });
}

bool intervalx() { return suminterval(true, false); }
bool intervaly() { return suminterval(false, true); }
bool intervalboth() { return suminterval(true, true); }
