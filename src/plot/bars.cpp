#include "plot/bars.h"

#include <cmath>

#include "data/cell.h"
#include "plot/drawing.h"
#include "plot/numbermask.h"
#include "plot/polygon.h"
#include "plot/segment.h"
#include "plot/shown.h"
#include "plot/strokes.h"
#include "shell/words.h"

namespace {

constexpr double usedPart = 0.8;    ///< of the room at one X
constexpr double loneRoom = 0.1;    ///< of a single X value's size
constexpr double depthPart = 0.26;  ///< of a bar's room: its depth to the right
constexpr double mostDepth = 0.035; ///< of the plot's width
constexpr double depthRoom = 0.06;  ///< of the plot's range: kept free above bars with a depth

struct BarPoint {
    double x, y; ///< y: as often as the quantity says
    int set, point;
    int count = 1; ///< points in it
};

std::vector<BarPoint> pointsofbars() {
    std::vector<BarPoint> points;
    for (int k = 1; k <= setcount(); ++k)
        for (int j = 1; setshown(k) && j <= pointcount(k); ++j) {
            const ShownPoint point = shownpoint(k, j);
            if (hasplotx(point.x) && hasploty(point.y))
                points.push_back({point.x, point.y * pointquantity(k, j), k, j});
        }
    std::stable_sort(points.begin(), points.end(),
                     [](const BarPoint& a, const BarPoint& b) { return a.x < b.x; });
    return points;
}

/// Points of one X, each set's points together in order of the sets. An X is the same only when its number
/// is: however wide the plot, two values that were told apart are two bars.
struct Place {
    double x;
    std::vector<BarPoint> parts; ///< one a set: its sum
};

std::vector<Place> placesof(const std::vector<BarPoint>& points) {
    std::vector<Place> places;
    for (const BarPoint& point : points) {
        if (places.empty() || point.x > places.back().x) places.push_back({point.x, {}});
        auto& parts = places.back().parts;
        const auto at = std::lower_bound(parts.begin(), parts.end(), point.set,
                                         [](const BarPoint& part, int set) { return part.set < set; });
        if (at == parts.end() || at->set != point.set) {
            parts.insert(at, point);
            continue;
        }
        at->y += point.y;
        ++at->count;
    }
    return places;
}

double roomof(const std::vector<Place>& places) {
    if (places.size() < 2) {
        const double x = places.empty() ? 0 : std::fabs(places.front().x);
        return x > 0 ? loneRoom * x : 1;
    }
    double least = std::numeric_limits<double>::infinity();
    for (std::size_t i = 1; i < places.size(); ++i) least = std::min(least, places[i].x - places[i - 1].x);
    return least;
}

PlotBar barof(const Place& place, const BarPoint& part) {
    PlotBar bar;
    bar.set = part.set;
    bar.point = part.point;
    bar.count = part.count;
    bar.x = place.x;
    bar.value = part.y;
    return bar;
}

/// The bars of one X on each other.
void stack(std::vector<PlotBar>& bars, const Place& place, double width) {
    double above = 0, below = 0;
    for (const BarPoint& part : place.parts) {
        double& end = part.y < 0 ? below : above;
        PlotBar& bar = bars.emplace_back(barof(place, part));
        bar.low = place.x - width / 2;
        bar.high = place.x + width / 2;
        bar.from = end;
        bar.to = end += part.y;
    }
}

/// The bars of one X beside each other: each shown set has its slot.
void stand(std::vector<PlotBar>& bars, const Place& place, double width, const std::vector<int>& sets) {
    const double slot = width / static_cast<double>(sets.size());
    for (const BarPoint& part : place.parts) {
        const auto at = std::lower_bound(sets.begin(), sets.end(), part.set) - sets.begin();
        PlotBar& bar = bars.emplace_back(barof(place, part));
        bar.low = place.x - width / 2 + slot * static_cast<double>(at);
        bar.high = bar.low + slot;
        bar.to = part.y;
    }
}

bool deep() { return session.plotKind == bars3D; }

/// A bar as a box in space: its front, and top and right side in the shade, drawn so that no box covers
/// another.
void drawdeep(const PlotBar& bar) {
    const int colour = colourofset(bar.set);
    const double room = canvasx(bar.high) - canvasx(bar.low);
    const double depth = std::min(depthPart * room, mostDepth * (session.window.right - session.window.left));
    const double left = canvasx(bar.low), right = canvasx(bar.high) - depth;
    const double top = canvasy(std::max(bar.from, bar.to)), bottom = canvasy(std::min(bar.from, bar.to));
    constexpr double leastDepth = 30; // two pixels
    if (depth >= leastDepth) {
        const CanvasPoint lid[] = {
            {left, top}, {left + depth, top - depth}, {right + depth, top - depth}, {right, top}};
        const CanvasPoint side[] = {
            {right, top}, {right + depth, top - depth}, {right + depth, bottom - depth}, {right, bottom}};
        for (const auto& face : {lid, side}) {
            fillpolygon({face, 4}, colour, Fill::light);
            outlinepolygon({face, 4}, frameColour);
        }
    }
    plotbox(left, top, right, bottom, colour, false);
}

} // namespace

std::vector<PlotBar> plotbars() {
    const std::vector<Place> places = placesof(pointsofbars());
    const double width = usedPart * roomof(places);
    std::vector<int> sets;
    for (int k = 1; k <= setcount(); ++k)
        if (setshown(k)) sets.push_back(k);
    std::vector<PlotBar> bars;
    for (const Place& place : places) {
        if (session.plotKind == barsStacked)
            stack(bars, place, width);
        else
            stand(bars, place, width, sets);
    }
    return bars;
}

void addbars(DrawnRange& x, DrawnRange& y) {
    y.add(0);
    for (const PlotBar& bar : plotbars()) {
        const double margin = (1 / usedPart - 1) / 2 * (bar.high - bar.low);
        x.add(bar.low - margin);
        x.add(bar.high + margin);
        y.add(bar.to);
    }
    if (deep()) y.add(y.high + depthRoom * (y.high - y.low));
}

void drawbars() {
    const Keep keep{session.plotx1,  session.ploty1,    session.plotx2,    session.ploty2,
                    session.plotpen, session.linewidth, session.setCounter};
    session.linewidth = 1;
    for (const PlotBar& bar : plotbars()) {
        if (!plotting()) return;
        session.setCounter = rowofset(static_cast<float>(bar.set));
        if (deep())
            drawdeep(bar);
        else
            plotbox(canvasx(bar.low), canvasy(std::max(bar.from, bar.to)), canvasx(bar.high),
                    canvasy(std::min(bar.from, bar.to)), colourofset(bar.set), false);
    }
}

void drawbarline() {
    const Keep keep{session.plotx1, session.ploty1, session.plotx2, session.ploty2, session.plotpen};
    const PlotWindow& w = session.window;
    session.plotpen = frameColour;
    tracestart(w.left, canvasy(0));
    traceto(w.right, canvasy(0));
    traceend();
}

std::vector<std::string> cutbars() {
    int above = 0, below = 0;
    for (const PlotBar& bar : plotbars()) {
        above += bar.to > session.yAxisHigh ? 1 : 0;
        below += bar.to < session.yAxisLow ? 1 : 0;
    }
    std::vector<std::string> lines;
    const auto tellcut = [&lines](const char* sign, double edge, int count) {
        if (count == 0) return;
        std::string number = axislabel(edge, session.maskDigits[axisUse]);
        wordnumber(number);
        std::string& line = lines.emplace_back();
        wordclean(compose(line, "Y", sign, AsTyped{number}, " = ", count));
    };
    tellcut(" > ", session.yAxisHigh, above);
    tellcut(" < ", session.yAxisLow, below);
    return lines;
}
