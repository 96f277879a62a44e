#pragma once

#include <string>
#include <vector>

#include "session/session.h"

/// Functions of the fitted lines on plain axes, and histograms of the life data: what session.functionPlot
/// asks for in place of the probability plot.

/// Kinds by the letter of their page; 0 is the probability plot.
enum FunctionPlot : char {
    probabilityPlot = 0,
    cumulativeHazardPlot = 'A', ///< -ln(1 - F)
    distributionPlot = 'C',     ///< F
    hazardPlot = 'H',           ///< f / (1 - F)
    densityPlot = 'P',          ///< f = dF/dx
    reliabilityPlot = 'R',      ///< 1 - F
    totalPlot = 'T',            ///< density over the histogram of the data, as a density
    histogramPlot = 'U',        ///< failures, and suspensions upon them, by interval of X
    suspensionPlot = 'W'        ///< suspensions by interval of X
};

/// True when a function takes the place of the probability plot.
bool functionplotted();

/// While it lives the axes are those of the plot in hand: plain ones where a function, bars, a pie or points
/// in space are plotted.
class FunctionAxes {
public:
    FunctionAxes();

private:
    Keep<int16_t, float> keep{session.plotMode, session.xyscale};
};

/// A curve of a set's line.
struct FunctionCurve {
    int set = 0;
    std::vector<double> x, y;
};
/// The curves of the shown sets, 240 steps between the quantiles .001 and .999 of each line. X as on the
/// probability plot: less the threshold, unless the scale is kept as recorded. Empty for a histogram.
std::vector<FunctionCurve> functioncurves();

/// One bar: from `low` to `high` on X, `from` to `to` on Y.
struct HistogramBar {
    int set = 0;
    bool suspended = false;
    double low = 0, high = 0, from = 0, to = 0;
};
/// The bars of the shown sets, all over the same intervals: barnumber(n) of them over the range of the data,
/// n the points that count (countedunits), X as that of the curves (Sturges, J. Am. Stat. Assoc. 21 (1926)
/// 65, with a natural logarithm, which gives more bars). Sets stand side by side within an interval,
/// suspensions upon failures. Units whose end is known to lie between two ages alone are spread over the bars
/// between in proportion. As a density each bar is divided by the set's failures and its width.
std::vector<HistogramBar> histogrambars();

/// The window of the function in hand: xlowd to yhighd, from the curves and bars and the manual limits.
void functionwindow();

void plotfunctions(); ///< draws bars and curves on the plot area

std::string functionname(); ///< title of the Y axis: "f(x)", "Hazard", …
