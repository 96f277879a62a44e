#include "plot/zoomwindow.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "plot/axes.h"
#include "plot/functionplot.h"
#include "plot/shown.h"
#include "plot/transforms.h"
#include "session/session.h"

namespace {

constexpr double largestValue = 1e30; ///< and its reciprocal the smallest on an axis without a zero
constexpr double finestPart = 1e-6;   ///< data are singles: a window below their digits shows nothing
constexpr double outermostP = 1e-12;  ///< probabilities nearer to 0 or 1 have no tick to read them by

/// A place on the plot scale as a value on the data scale.
double valueof(void (*back)(), double place) {
    const Keep keep{session.ud};
    session.ud = place;
    back();
    return session.ud;
}

/// A manual limit of 0 means the automatic one: a limit that falls there stands a hair beside it.
double limitof(double value, double length) { return value != 0 ? value : length * 1e-9; }

bool holdsvalue(double value, AxisScale scale) {
    if (!std::isfinite(value) || std::fabs(value) > largestValue) return false;
    return scale == AxisScale::linear || value >= 1 / largestValue;
}

/// The ends on the data scale; nothing when they cannot be told apart or have no place on the axis.
std::optional<AxisEnds> onscale(const AxisEnds& ends, AxisScale scale, void (*back)()) {
    const double low = valueof(back, ends.low);
    const double high = valueof(back, ends.high);
    if (!holdsvalue(low, scale) || !holdsvalue(high, scale)) return std::nullopt;
    if (!(high - low > finestPart * std::max(std::fabs(low), std::fabs(high)))) return std::nullopt;
    return AxisEnds{limitof(low, high - low), limitof(high, high - low)};
}

/// The same on a probability axis.
std::optional<AxisEnds> onladder(const AxisEnds& ends) {
    const AxisEnds p{valueof(txtxy2yd, ends.low), valueof(txtxy2yd, ends.high)};
    if (!(p.low >= outermostP) || !(p.high <= 1 - outermostP)) return std::nullopt;
    if (!(ends.high - ends.low > finestPart)) return std::nullopt;
    return p;
}

bool take(const AxisEnds& xends, const AxisEnds& yends) {
    const FunctionAxes axes;
    const auto x = onscale(xends, xaxisscale(), txtxx2xd);
    const auto y = session.plotMode == 1 ? onladder(yends) : onscale(yends, yaxisscale(), txtxy2yd);
    if (!x || !y) return false;
    session.xLimitLow = x->low;
    session.xLimitHigh = x->high;
    session.yLimitLow = y->low;
    session.yLimitHigh = y->high;
    return true;
}

/// A pie and a view of space have no window to be moved.
bool hasaxes(const PlotWindow& window) { return window.xfactor != 0 && window.yfactor != 0; }

/// Part of the way from one edge of the plot area to the other.
double partof(double place, double from, double to) {
    return from == to ? 0.5 : std::clamp((place - from) / (to - from), 0.0, 1.0);
}

} // namespace

AxisEnds zoomedaxis(const AxisEnds& axis, double at, double factor) {
    if (!(factor > 0) || !std::isfinite(factor) || !(axis.high > axis.low)) return axis;
    return {at - (at - axis.low) / factor, at + (axis.high - at) / factor};
}

AxisEnds movedaxis(const AxisEnds& axis, double part) {
    const double step = part * (axis.high - axis.low);
    return {axis.low + step, axis.high + step};
}

bool zoomplot(const PlotWindow& window, double canvasx, double canvasy, double factor) {
    if (!hasaxes(window)) return false;
    const AxisEnds x{window.xlow, window.xhigh};
    const AxisEnds y{window.ylow, window.yhigh};
    const double atx = x.low + partof(canvasx, window.left, window.right) * (x.high - x.low);
    const double aty = y.low + partof(canvasy, window.bottom, window.top) * (y.high - y.low);
    return take(zoomedaxis(x, atx, factor), zoomedaxis(y, aty, factor));
}

bool moveplot(const PlotWindow& window, double right, double up) {
    return hasaxes(window)
           && take(movedaxis({window.xlow, window.xhigh}, right), movedaxis({window.ylow, window.yhigh}, up));
}

int buttonat(const PlotWindow& window, double canvasx, double canvasy) {
    for (std::size_t i = 0; i < window.buttons.size(); ++i) {
        const PlotButton& button = window.buttons[i];
        if (canvasx >= button.left && canvasx <= button.right && canvasy >= button.top
            && canvasy <= button.bottom && button.right > button.left)
            return static_cast<int>(i);
    }
    return -1;
}

bool pressbutton(const PlotWindow& window, int number, double factor) {
    if (!hasaxes(window) || number < 0 || number >= static_cast<int>(window.buttons.size())) return false;
    const double step = number % 2 == 0 ? 1 / factor : factor;
    AxisEnds x{window.xlow, window.xhigh}, y{window.ylow, window.yhigh};
    AxisEnds& axis = number < 2 ? y : x;
    axis = zoomedaxis(axis, (axis.low + axis.high) / 2, step);
    return take(x, y);
}
