#include "plot/window.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "plot/axes.h"
#include "plot/bars.h"
#include "plot/canvas.h"
#include "plot/functionplot.h"
#include "plot/ladder.h"
#include "plot/pie.h"
#include "plot/plotkind.h"
#include "plot/shown.h"
#include "plot/spaceplot.h"
#include "plot/xycurve.h"
#include "session/session.h"
#include "shell/prompts.h"

namespace {

/// Points of a set that have no place on an axis: how many, and the first of them.
struct Refused {
    int count = 0;
    int point = 0;
    void add(int j) {
        if (++count == 1) point = j;
    }
};

struct Extents {
    DrawnRange x, y;
};

struct RefusedOfSet {
    Refused x, y, z;
};

void addpoint(Extents& extents, RefusedOfSet& refused, int k, int j) {
    const ShownPoint point = shownpoint(k, j);
    if (spaceplotted() && !hasz(k, j)) {
        refused.z.add(j);
        return;
    }
    if (!hasplotx(point.x)) {
        refused.x.add(j);
        return;
    }
    if (point.suspended) {
        extents.x.add(point.x);
        return;
    }
    if (!point.placed) return;
    if (!hasploty(point.y)) {
        refused.y.add(j);
        return;
    }
    extents.x.add(point.x);
    extents.y.add(point.y);
    if (const auto interval = showninterval(k, j)) {
        if (hasplotx(interval->low)) extents.x.add(interval->low);
        extents.x.add(interval->high);
    }
}

void tellrefused(int k, const char* axis, const char* fault, const Refused& refused) {
    if (refused.count == 0) return;
    compose(session.msg, Word::Set, " ", k, ": ", axis, Word::Value, fault, " ... ");
    if (refused.count == 1)
        extend(session.msg, Word::Point, " ", refused.point);
    else
        extend(session.msg, refused.count, " ", Word::Point);
    extend(session.msg, " ", Word::Not, " ", Word::On, " ", Word::Plot);
    tellok();
}

/// Lows and highs of the shown points; those without a place are told, once a set and axis.
Extents extentsofpoints() {
    Extents extents;
    for (int k = 1; k <= setcount(); ++k) {
        if (!setshown(k)) continue;
        RefusedOfSet refused;
        for (int j = 1; j <= pointcount(k); ++j) addpoint(extents, refused, k, j);
        tellrefused(k, "X-", " <= 0", refused.x);
        tellrefused(k, "Y-", " <= 0", refused.y);
        tellrefused(k, "Z-", "", refused.z);
    }
    return extents;
}

void marklimits(const AxisLimits& limits) {
    if (limits.low != 0 || limits.high != 0) session.manualScale = 1;
}

/// Window of one plain or logarithmic axis.
AxisLimits plainwindow(const DrawnRange& points, bool positive, const AxisLimits& limits) {
    AxisLimits ends{points.low, points.high};
    if (points.empty()) ends = {positive ? 1.0 : 0.0, 100.0};
    marklimits(limits);
    return limitedwindow(ends, limits);
}

void xwindow(const DrawnRange& points) {
    const AxisLimits limits = usablelimits(session.xLimitLow, session.xLimitHigh, hasplotx);
    const AxisLimits window = plainwindow(points, xaxisscale() != AxisScale::linear, limits);
    session.xlowd = window.low;
    session.xhighd = window.high;
}

/// The ladder's tick for the top of the axis: 90 percent, or the next of 95, 99, 99.9, 99.99, 99.999 above
/// the highest point. Beyond, the point itself.
double topofladder(double p) {
    static constexpr double above[] = {0.900002, 0.950002, 0.990002, 0.999002, 0.999902, 0.99999};
    static constexpr double ticks[] = {0.90, 0.95, 0.99, 0.999, 0.9999, 0.99999};
    for (std::size_t i = 0; i < std::size(ticks); ++i)
        if (p <= above[i]) return ticks[i];
    return p;
}

/// The ladder's tick at or below the lowest point, at most 10 percent; below the ladder the point itself.
double footofladder(double p) {
    constexpr double highestFoot = 10;
    double foot = p;
    for (const LadderTick& tick : ladder())
        if (tick.percent <= std::min(highestFoot, p * 100 * (1 + 1e-9))) foot = tick.percent / 100;
    return foot;
}

void probabilitywindow(const DrawnRange& points) {
    const AxisLimits limits = usablelimits(session.yLimitLow, session.yLimitHigh, hasploty);
    const AxisLimits ends{footofladder(points.empty() ? 0.01 : points.low),
                          topofladder(points.empty() ? 0.99 : points.high)};
    const AxisLimits window = limitedends(ends, limits);
    marklimits(limits);
    session.ylowd = window.low;
    session.yhighd = window.high;
    if (session.yhighd < 1) return;
    session.yhighd = std::nextafter(1.0, 0.0);
}

void plainywindow(const DrawnRange& points) {
    const AxisLimits limits = usablelimits(session.yLimitLow, session.yLimitHigh, hasploty);
    const AxisLimits window = plainwindow(points, yaxisscale() != AxisScale::linear, limits);
    session.ylowd = window.low;
    session.yhighd = window.high;
}

/// Edges of the axes on the data scale, and of the window on the plot scales.
void axisedges() {
    const AxisSpan x = roundedspan({xaxisscale(), session.xlowd, session.xhighd}, session.xLimitLow != 0,
                                   session.xLimitHigh != 0);
    session.xAxisLow = x.low;
    session.xAxisHigh = x.high;
    AxisSpan y{yaxisscale(), session.ylowd, session.yhighd};
    if (session.plotMode != 1) y = roundedspan(y, session.yLimitLow != 0, session.yLimitHigh != 0);
    session.yAxisLow = y.low;
    session.yAxisHigh = y.high;
    session.window.xlow = plotxof(x.low);
    session.window.xhigh = plotxof(x.high);
    session.window.ylow = plotyof(y.low);
    session.window.yhigh = plotyof(y.high);
}

void windowtext() {
    const auto number = [](double value) {
        std::string text;
        append(text, value);
        return text;
    };
    compose(session.windowText, "X-", Word::Range, "=xlowd#=", number(session.xlowd),
            " xhighd#=", number(session.xhighd), " Y-", Word::Range, "=ylowd#=", number(session.ylowd),
            " yhighd#=", number(session.yhighd));
    wordclean(session.windowText);
}

} // namespace

AxisLimits usablelimits(double low, double high, bool (*hasplace)(double)) {
    AxisLimits limits{low, high};
    if (!std::isfinite(low) || !hasplace(low)) limits.low = 0;
    if (!std::isfinite(high) || !hasplace(high)) limits.high = 0;
    if (limits.low != 0 && limits.high != 0 && limits.low > limits.high) std::swap(limits.low, limits.high);
    return limits;
}

AxisLimits limitedends(AxisLimits ends, const AxisLimits& limits) {
    if (limits.low != 0) ends.low = limits.low;
    if (limits.high != 0) ends.high = limits.high;
    const bool touching = ends.low == ends.high && limits.high != 0 && limits.low == 0;
    if (ends.low <= ends.high && !touching) return ends;
    const double step = std::fabs(limits.low != 0 ? ends.low : ends.high) / 100;
    if (limits.low != 0)
        ends.high = ends.low + step;
    else
        ends.low = ends.high - step;
    return ends;
}

AxisLimits limitedwindow(const AxisLimits& ends, const AxisLimits& limits) {
    AxisLimits window = limitedends(ends, limits);
    if (window.high != window.low) return window;
    window.high = window.low < 0 ? 0.99 * window.low : 1.01 * window.low;
    if (window.low == 0) window.high = 1;
    return window;
}

void LOCKZOOMOUT() {
    session.xLimitLow = session.xLimitHigh = 0;
    session.yLimitLow = session.yLimitHigh = 0;
    session.manualScale = 0;
}

void xyanalyzw() {
    session.plotStopped = 0;
    const bool zoomed = session.xLimitLow != 0 || session.xLimitHigh != 0 || session.yLimitLow != 0
                        || session.yLimitHigh != 0;
    if (session.batchActive == 1 && zoomed) {
        compose(session.msg, Word::Partial, " % ", Word::Affected, " [BATCH] (", Word::Zoom,
                ") = ", Word::Yes, " ... ", Word::Cannot, " ", Word::Plot);
        tellok();
        session.plotStopped = 1;
        return;
    }
    session.manualScale = 0;
    if (functionplotted()) {
        functionwindow();
        axisedges();
        windowtext();
        return;
    }
    Extents extents;
    if (barsplotted())
        addbars(extents.x, extents.y);
    else if (pieplotted())
        tellpierefused();
    else
        extents = extentsofpoints();
    if (functiontyped()) addfunction(extents.x, extents.y);
    xwindow(extents.x);
    if (session.plotMode == 1)
        probabilitywindow(extents.y);
    else
        plainywindow(extents.y);
    axisedges();
    windowtext();
}
