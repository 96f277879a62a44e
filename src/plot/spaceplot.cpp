#include "plot/spaceplot.h"

#include <array>
#include <cmath>
#include <numbers>
#include <string>
#include <vector>

#include "plot/block.h"
#include "plot/canvas.h"
#include "plot/drawing.h"
#include "plot/segment.h"
#include "plot/shown.h"
#include "plot/strokes.h"
#include "plot/textroom.h"
#include "plot/ticks.h"
#include "plot/window.h"
#include "shell/words.h"

namespace {

constexpr std::size_t mostDropLines = 500; ///< more would be a curtain before the points
constexpr double largestZ = 2e29;          ///< a Z beyond it marks a kind of point
constexpr float dashedPen = 100;

struct SpacePoint {
    double x = 0, y = 0, z = 0; ///< 0 to 1 inside the box
};

struct ShownSpacePoint {
    SpacePoint at;
    int set, point;
};

double zof(int k, int j) { return session.v2(k, j); }

template <class Visit>
void eachpoint(Visit visit) {
    for (int k = 1; k <= setcount(); ++k)
        for (int j = 1; setshown(k) && j <= pointcount(k); ++j)
            if (hasz(k, j)) visit(k, j);
}

/// The Z axis: the manual limits hold as those of the other axes do; no wider than the limit of its range.
AxisSpan zspan() {
    DrawnRange range;
    eachpoint([&](int k, int j) { range.add(zof(k, j)); });
    if (range.empty()) range = {0, 1};
    const AxisLimits limits =
        usablelimits(session.zLimitLow, session.zLimitHigh, [](double) { return true; });
    const AxisLimits window = limitedwindow({range.low, range.high}, limits);
    AxisSpan span{AxisScale::linear, window.low, window.high};
    const bool narrowed = session.rangeLimit > 0 && span.high - span.low > session.rangeLimit;
    if (narrowed) span.high = span.low + session.rangeLimit;
    if (!(span.high > span.low)) span.high = span.low + std::max(std::fabs(span.low) / 100, 1e-30);
    return roundedspan(span, limits.low != 0, narrowed || limits.high != 0);
}

/// The view of the box on the canvas.
class View {
public:
    View(const ClipWindow& area, double turn, double tilt) {
        const double t = std::clamp(turn, 0.0, 90.0) * std::numbers::pi / 180;
        const double s = std::clamp(tilt, 0.0, 90.0) * std::numbers::pi / 180;
        cosTurn = std::cos(t);
        sinTurn = std::sin(t);
        cosTilt = std::cos(s);
        sinTilt = std::sin(s);
        const double wide = cosTurn + sinTurn;
        const double tall = cosTilt + wide * sinTilt;
        constexpr double mostStretch = 1.5; ///< a wide plot area does not flatten the box beyond it
        scaleX = (area.right - area.left) / wide;
        scaleY = (area.bottom - area.top) / tall;
        scaleX = std::min(scaleX, mostStretch * scaleY);
        scaleY = std::min(scaleY, mostStretch * scaleX);
        centreX = (area.left + area.right) / 2;
        centreY = (area.top + area.bottom) / 2;
    }
    CanvasPoint place(const SpacePoint& p) const {
        const double x = p.x - 0.5, y = p.y - 0.5, z = p.z - 0.5;
        const double away = x * sinTurn + y * cosTurn;
        return {centreX + scaleX * (x * cosTurn - y * sinTurn),
                centreY - scaleY * (z * cosTilt + away * sinTilt)};
    }
    /// How far a point lies behind the middle of the box.
    double away(const SpacePoint& p) const {
        return (p.x * sinTurn + p.y * cosTurn) * cosTilt - p.z * sinTilt;
    }

private:
    double cosTurn, sinTurn, cosTilt, sinTilt;
    double scaleX, scaleY, centreX, centreY;
};

void stroke(const View& view, const SpacePoint& from, const SpacePoint& to, float pen) {
    session.plotpen = pen;
    const CanvasPoint a = view.place(from), b = view.place(to);
    tracestart(a.x, a.y);
    traceto(b.x, b.y);
    traceend();
}

/// One axis of the box: its edge, where its grid lines run, and what stands beside it.
struct SpaceAxis {
    AxisSpan span;
    SpacePoint from, to; ///< the edge with the labels
    std::string name;
    std::vector<Tick> ticks = {};
};

SpacePoint between(const SpacePoint& a, const SpacePoint& b, double part) {
    return {a.x + (b.x - a.x) * part, a.y + (b.y - a.y) * part, a.z + (b.z - a.z) * part};
}

/// Ticks whose labels have room along the edge as it is seen: a slanting one needs their width or their
/// height, whichever is passed first.
void choose(SpaceAxis& axis, const View& view, double size) {
    const CanvasPoint a = view.place(axis.from), b = view.place(axis.to);
    const double length = std::hypot(b.x - a.x, b.y - a.y);
    if (!(length > 3 * size)) return;
    const double across = std::fabs(b.x - a.x) / length, down = std::fabs(b.y - a.y) / length;
    axis.ticks = chooseticks(axis.span, length, 0.4 * size, [=](std::string_view label) {
        const double wide = plottextwidth(label, size);
        if (down * wide <= across * size) return across > 0 ? wide / across : size;
        return down > 0 ? size / down : wide;
    });
}

/// Direction on the canvas in which the labels of an axis stand off its edge: square to it, away from the
/// box.
CanvasPoint directionof(const SpaceAxis& axis, const View& view) {
    const CanvasPoint a = view.place(axis.from), b = view.place(axis.to),
                      middle = view.place({0.5, 0.5, 0.5});
    const double length = std::hypot(b.x - a.x, b.y - a.y);
    if (!(length > 0)) return {0, 1};
    const CanvasPoint square{(a.y - b.y) / length, (b.x - a.x) / length};
    const double away = ((a.x + b.x) / 2 - middle.x) * square.x + ((a.y + b.y) / 2 - middle.y) * square.y;
    return away < 0 ? CanvasPoint{-square.x, -square.y} : square;
}

/// A text centred off a place in a direction, clear of it by `gap`.
bool beside(TextRoom& room, std::string_view text, const CanvasPoint& at, const CanvasPoint& direction,
            double gap, double size) {
    const double wide = plottextwidth(text, size);
    const double x = at.x + direction.x * (gap + wide / 2) - wide / 2;
    const double y = at.y + direction.y * (gap + size / 2) + 0.35 * size;
    return room.place(text, x, y, size);
}

void drawaxis(const SpaceAxis& axis, const View& view, TextRoom& room, double size) {
    const CanvasPoint direction = directionof(axis, view);
    double widest = 0;
    for (const Tick& tick : axis.ticks) {
        if (tick.label.empty()) continue;
        const CanvasPoint at = view.place(between(axis.from, axis.to, tick.fraction));
        session.plotpen = frameColour;
        tracestart(at.x, at.y);
        traceto(at.x + 0.4 * size * direction.x, at.y + 0.4 * size * direction.y);
        traceend();
        if (beside(room, tick.label, at, direction, 0.6 * size, size))
            widest = std::max(widest, plottextwidth(tick.label, size));
    }
    session.plotpen = frameColour;
    const double gap = 1.3 * size + std::fabs(direction.x) * widest + std::fabs(direction.y) * 1.2 * size;
    for (const double part : {0.5, 0.35, 0.65, 0.2, 0.8})
        if (beside(room, axis.name, view.place(between(axis.from, axis.to, part)), direction, gap, size))
            return;
}

/// Floor and the two walls behind the points, with a grid line at each labelled tick.
void drawwalls(const View& view, const std::array<SpaceAxis, 3>& axes) {
    const Keep keep{session.linewidth};
    session.linewidth = 0;
    plotwidth(0);
    for (const Tick& tick : axes[0].ticks) {
        if (!tick.heavy) continue;
        stroke(view, {tick.fraction, 0, 0}, {tick.fraction, 1, 0}, gridColour);
        stroke(view, {tick.fraction, 1, 0}, {tick.fraction, 1, 1}, gridColour);
    }
    for (const Tick& tick : axes[1].ticks) {
        if (!tick.heavy) continue;
        stroke(view, {0, tick.fraction, 0}, {1, tick.fraction, 0}, gridColour);
        stroke(view, {1, tick.fraction, 0}, {1, tick.fraction, 1}, gridColour);
    }
    for (const Tick& tick : axes[2].ticks) {
        if (!tick.heavy) continue;
        stroke(view, {0, 1, tick.fraction}, {1, 1, tick.fraction}, gridColour);
        stroke(view, {1, 1, tick.fraction}, {1, 0, tick.fraction}, gridColour);
    }
    session.linewidth = 1;
    plotwidth(1);
    static constexpr SpacePoint edges[][2] = {
        {{0, 0, 0}, {1, 0, 0}}, {{0, 0, 0}, {0, 1, 0}}, {{0, 1, 0}, {1, 1, 0}},
        {{1, 0, 0}, {1, 1, 0}}, {{0, 1, 0}, {0, 1, 1}}, {{1, 1, 0}, {1, 1, 1}},
        {{1, 0, 0}, {1, 0, 1}}, {{0, 1, 1}, {1, 1, 1}}, {{1, 1, 1}, {1, 0, 1}}};
    for (const auto& edge : edges) stroke(view, edge[0], edge[1], decadeColour);
    stroke(view, {0, 0, 0}, {1, 0, 0}, frameColour);
    stroke(view, {0, 0, 0}, {0, 1, 0}, frameColour);
    stroke(view, {0, 1, 0}, {0, 1, 1}, frameColour);
}

double partof(double value, const AxisSpan& span) { return (value - span.low) / (span.high - span.low); }

/// The points inside the box, the farthest first.
std::vector<ShownSpacePoint> pointsinbox(const View& view, const std::array<SpaceAxis, 3>& axes) {
    constexpr double slack = 1e-9;
    const auto inside = [](double part) { return part >= -slack && part <= 1 + slack; };
    std::vector<ShownSpacePoint> points;
    eachpoint([&](int k, int j) {
        const ShownPoint point = shownpoint(k, j);
        const SpacePoint at{partof(point.x, axes[0].span), partof(point.y, axes[1].span),
                            partof(zof(k, j), axes[2].span)};
        if (inside(at.x) && inside(at.y) && inside(at.z)) points.push_back({at, k, j});
    });
    std::stable_sort(points.begin(), points.end(),
                     [&view](const auto& a, const auto& b) { return view.away(a.at) > view.away(b.at); });
    return points;
}

/// Sets drawn as lines are joined in the order of entry.
void joinpoints(const View& view, std::vector<ShownSpacePoint> points) {
    std::stable_sort(points.begin(), points.end(), [](const auto& a, const auto& b) {
        return a.set != b.set ? a.set < b.set : a.point < b.point;
    });
    for (std::size_t i = 1; i < points.size() && plotting(); ++i) {
        const ShownSpacePoint &a = points[i - 1], &b = points[i];
        if (a.set != b.set || b.point != a.point + 1 || curvekindof(a.set) == pointCurve) continue;
        stroke(view, a.at, b.at, static_cast<float>(colourofset(a.set)));
    }
}

void drawpoints(const View& view, const std::vector<ShownSpacePoint>& points) {
    const bool dropped = points.size() <= mostDropLines;
    for (const ShownSpacePoint& point : points) {
        if (!plotting()) return;
        if (dropped)
            stroke(view, {point.at.x, point.at.y, 0}, point.at, static_cast<float>(decadeColour) - dashedPen);
        if (session.pointHide != 0 || curvekindof(point.set) == lineCurve) continue;
        const CanvasPoint place = view.place(point.at);
        session.setCounter = rowofset(static_cast<float>(point.set));
        session.plotx2 = place.x;
        session.ploty2 = place.y;
        strokemark(setmark(point.set));
    }
}

/// The user's title of an axis, as far as it has room beside a slanting edge, or its letter.
std::string titleor(const std::string& title, const char* letter) {
    constexpr double room = 12; ///< characters
    return title.empty() ? letter : fittedtext(title, 1, room);
}

/// Width of the widest label that the axes may have.
double labelwidth(const std::array<SpaceAxis, 3>& axes, double size) {
    constexpr double labels = 6; ///< about as many stand on an axis
    double widest = 0;
    for (const SpaceAxis& axis : axes)
        for (const Tick& tick : chooseticks(axis.span, labels, 0, [](std::string_view) { return 1.0; }))
            widest = std::max(widest, plottextwidth(tick.label, size));
    return widest;
}

} // namespace

bool hasz(int k, int j) { return std::fabs(zof(k, j)) < largestZ; }

bool haszvalues() {
    bool any = false;
    eachpoint([&any](int k, int j) { any = any || zof(k, j) != 0; });
    return any;
}

void drawspace(const Layout& layout) {
    const Keep keep{session.plotx1,  session.ploty1,    session.plotx2,    session.ploty2,
                    session.plotpen, session.linewidth, session.setCounter};
    const PlotWindow& w = session.window;
    const double size = layout.size;
    std::array<SpaceAxis, 3> axes = {{
        {{AxisScale::linear, session.xAxisLow, session.xAxisHigh},
         {0, 0, 0},
         {1, 0, 0},
         titleor(session.axisTitleX, "X")},
        {{AxisScale::linear, session.yAxisLow, session.yAxisHigh},
         {0, 0, 0},
         {0, 1, 0},
         titleor(session.axisTitleY, "Y")},
        {zspan(), {0, 1, 0}, {0, 1, 1}, "Z"},
    }};
    const double side = std::min(labelwidth(axes, size) + 3 * size, (w.right - w.left) / 4);
    const View view({w.left + side, w.top + size, w.right - side, w.bottom - 3.2 * size},
                    static_cast<double>(session.viewTurn), static_cast<double>(session.viewTilt));
    for (SpaceAxis& axis : axes) choose(axis, view, size);
    session.linewidth = 1;
    drawwalls(view, axes);
    const std::vector<ShownSpacePoint> points = pointsinbox(view, axes);
    joinpoints(view, points);
    drawpoints(view, points);
    TextRoom room({w.left, w.top, w.right, w.bottom});
    // The upright axis goes first: the end of another one beside its foot would be read as its own.
    for (const std::size_t axis : {2u, 0u, 1u}) drawaxis(axes[axis], view, room, size);
}
