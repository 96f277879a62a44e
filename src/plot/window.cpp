#include "plot/window.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "plot/axes.h"
#include "plot/ladder.h"
#include "plot/shown.h"
#include "session/session.h"
#include "shell/prompts.h"

namespace {

struct Extent {
    double low = std::numeric_limits<double>::infinity();
    double high = -low;
    void add(double v) {
        low = std::min(low, v);
        high = std::max(high, v);
    }
    bool empty() const { return low > high; }
};

/// Points that have no place on an axis: how many, and the first of them.
struct Refused {
    int count = 0;
    int set = 0;
    int point = 0;
    void add(int k, int j) {
        if (++count > 1) return;
        set = k;
        point = j;
    }
};

struct Extents {
    Extent x, y;
    Refused refusedX, refusedY;
};

void addpoint(Extents& extents, int k, int j) {
    const ShownPoint point = shownpoint(k, j);
    if (!hasplotx(point.x)) {
        extents.refusedX.add(k, j);
        return;
    }
    if (point.suspended) {
        extents.x.add(point.x);
        return;
    }
    if (!point.placed) return;
    if (!hasploty(point.y)) {
        extents.refusedY.add(k, j);
        return;
    }
    extents.x.add(point.x);
    extents.y.add(point.y);
}

Extents extentsofpoints() {
    Extents extents;
    for (int k = 1; k <= setcount(); ++k)
        for (int j = 1; setshown(k) && j <= pointcount(k); ++j) addpoint(extents, k, j);
    return extents;
}

void tellrefused(const char* axis, const Refused& refused) {
    if (refused.count == 0) return;
    compose(session.msg, Word::Set, " ", refused.set, ": ", axis, Word::Value);
    if (refused.count > 1) extend(session.msg, " <= 0 (", refused.count, " ", Word::Point, ")");
    extend(session.msg, refused.count == 1 ? " <= 0 ... " : " ... ", Word::Point, " ", refused.point, " ",
           Word::Not, " ", Word::On, " ", Word::Plot);
    tellok();
}

/// A window needs a width: a hundredth of the value, and one unit about 0.
void widen(double& low, double& high) {
    if (high > low) return;
    high = low < 0 ? 0.99 * low : 1.01 * low;
    if (low == 0) high = 1;
}

/// Takes the manual limits in place of the points' own ends.
void takelimits(double& low, double& high, double limitLow, double limitHigh) {
    if (limitLow != 0) low = limitLow;
    if (limitHigh != 0) high = limitHigh;
    if (limitLow != 0 || limitHigh != 0) session.manualScale = 1;
}

void xwindow(const Extent& points) {
    const bool logarithmic = xaxisscale() != AxisScale::linear;
    session.xlowd = points.empty() ? (logarithmic ? 1 : 0) : points.low;
    session.xhighd = points.empty() ? 100 : points.high;
    takelimits(session.xlowd, session.xhighd, session.xLimitLow, session.xLimitHigh);
    if (logarithmic && session.xlowd <= 0) session.xlowd = points.empty() ? 1 : points.low;
    widen(session.xlowd, session.xhighd);
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

bool probability(double p) { return p > 0 && p < 1; }

void probabilitywindow(const Extent& points) {
    session.ylowd = footofladder(points.empty() ? 0.01 : points.low);
    session.yhighd = topofladder(points.empty() ? 0.99 : points.high);
    const double limitLow = probability(session.yLimitLow) ? session.yLimitLow : 0;
    const double limitHigh = probability(session.yLimitHigh) ? session.yLimitHigh : 0;
    const double low = session.ylowd;
    const double high = session.yhighd;
    takelimits(session.ylowd, session.yhighd, limitLow, limitHigh);
    if (session.ylowd < session.yhighd) return;
    session.ylowd = low;
    session.yhighd = high;
}

void plainywindow(const Extent& points) {
    const bool logarithmic = yaxisscale() != AxisScale::linear;
    session.ylowd = points.empty() ? (logarithmic ? 1 : 0) : points.low;
    session.yhighd = points.empty() ? 100 : points.high;
    takelimits(session.ylowd, session.yhighd, session.yLimitLow, session.yLimitHigh);
    if (logarithmic && session.ylowd <= 0) session.ylowd = points.empty() ? 1 : points.low;
    widen(session.ylowd, session.yhighd);
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

void LOCKZOOMOUT() {
    session.xLimitLow = session.xLimitHigh = 0;
    session.yLimitLow = session.yLimitHigh = 0;
    session.manualScale = 0;
}

void xyanalyzw() {
    session.plotStopped = 0;
    if (session.batchActive == 1 && session.manualScale == 1) {
        compose(session.msg, Word::Partial, " % ", Word::Affected, " [BATCH] (", Word::Zoom,
                ") = ", Word::Yes, " ... ", Word::Cannot, " ", Word::Plot);
        tellok();
        session.plotStopped = 1;
        return;
    }
    const Extents extents = extentsofpoints();
    tellrefused("X-", extents.refusedX);
    tellrefused("Y-", extents.refusedY);
    xwindow(extents.x);
    if (session.plotMode == 1)
        probabilitywindow(extents.y);
    else
        plainywindow(extents.y);
    axisedges();
    windowtext();
}
