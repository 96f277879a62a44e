#pragma once

#include "session/fits.h"

/// A straight line on the plot axes, y = slope * (x - origin) + intercept.
struct PlotLine {
    bool exists = false; ///< false when the points do not determine a line
    double slope = 0;
    double crossing = 0; ///< plot X where the line meets y = 0
    double r = 0;        ///< correlation of the points, 0 when it is not defined
};

/// Least-squares line through the accumulated points.
/// xOnY: the squares are taken along X, slope (n Syy - Sy^2) / (n Sxy - Sx Sy), the field's custom for life
/// data, where the X of a failure is what was observed; otherwise along Y, slope (n Sxy - Sx Sy) / (n Sxx -
/// Sx^2). fixed other than 0 gives the slope, and the line goes through the centre of the points; a negative
/// one is given back as it is, for the caller to refuse.
/// Abernethy, The New Weibull Handbook, ch. 5; Draper and Smith, Applied Regression Analysis.
PlotLine fitline(const RegressionSums& sums, bool xOnY, double fixed);

/// Direction of the regression in force: X on Y for single points and intervals, Y on X for grouped rows,
/// each reversed by rrSwap.
bool regressxony();

/// Slope on the plot axes of the fixed slope in force: the slope itself for Weibull, else one over the
/// plotted spread. 0 when the slope is free; not positive for a Lognormal spread factor below 1, which is
/// none.
double fixedplotslope();

/// Parameters of a line on the plot axes for the family in force, into eta and beta: scale (median, mean,
/// location) where it crosses y = 0, and slope or spread. An Escape of the numeric range leaves non-finite or
/// zero values for the parameter test.
void parametersofline(const PlotLine& line);

/// Sample standard deviation on the plot scale of the points in the sums, divisor n - 1; 0 below two points.
double samplesd(const RegressionSums& sums);
