#pragma once

/// The window of a plot: which part of the scales it shows.

/// One end of an axis each; of manual limits 0 automatic.
struct AxisLimits {
    double low = 0;
    double high = 0;
};

/// The manual limits that can be used: numbers that have a place on the axis, the smaller one low.
AxisLimits usablelimits(double low, double high, bool (*hasplace)(double));

/// The limits in place of the points' own ends, low not above high. A limit beyond the points stands, and the
/// free end moves to its other side, a hundredth of it away.
AxisLimits limitedends(AxisLimits ends, const AxisLimits& limits);

/// The same with a width: a hundredth of the value, and one unit about 0.
AxisLimits limitedwindow(const AxisLimits& ends, const AxisLimits& limits);

/// Looks at the shown points and takes the window: xlowd to yhighd by the automatic rules and the manual
/// limits, and the edges of the axes, rounded outwards to ticks where no manual limit pins them. Values that
/// have no place on a logarithmic axis are told and left out.
/// plotStopped = 1 when the plot must not be drawn.
void xyanalyzw();

/// Leaves a zoom: the manual limits go, and the next plot has the automatic window.
void LOCKZOOMOUT();
