#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "session/table.h"

/// How an X-Y plot shows the sets.
enum PlotKind : int16_t {
    xyPlot = 'P',
    barsStacked = 'A',
    barsSideBySide = 'D',
    bars3D = 'E',
    pie2D = 'F',
    pie3D = 'G',
    spacePlot = 'Z' ///< X, Y and Z of each point in space
};

/// Kind of curve of a set on an X-Y plot: the first letter of curveType(k). None or any other is drawn as
/// points.
inline constexpr char pointCurve = 'P', lineCurve = 'L', mixedCurve = 'M';

/// The fitted curve of one set. It is computed anew by each cycle, from the model that FITKIND(k) asks for.
struct SetCurve {
    float fitmodel = 0;               ///< code of the model that stands; 0: the set has no curve
    std::vector<double> coefficients; ///< from the constant up
    std::array<float, 11> solcoef{};  ///< the same in single precision
    bool noLogarithm = false;         ///< the first coefficient of a logarithmic model is its logarithm
    double r = 0;                     ///< correlation
    bool hasR = false;                ///< false: it is not defined
    double standardError = 9e30;      ///< 9e30: not defined
    double dataLow = 0, dataHigh = 0; ///< X range of the rows that were fitted
    std::string code;                 ///< the equation as a function of x: two digits a token
    std::vector<double> literals;     ///< and the numbers of its "00" tokens
    std::string text;                 ///< line of the report
};

/// What the visual side shows beside the points.
struct VisualState {
    int16_t plotKind = xyPlot;     ///< PlotKind
    List<SetCurve> curves;         ///< fitted curve of each set
    int16_t curveExtrapolated = 1; ///< 1: a curve is drawn over the whole window, 0: over its data alone
    double curveFrom = 0;          ///< it begins at this X when that is not 0
    int16_t fillMissing = 0;       ///< 1: Y values that are missing are filled from the fitted curve
    int16_t functionShown = 0;     ///< 1: the typed function is drawn on the plot

    float viewTurn = 35, viewTilt = 25;   ///< direction of sight on a plot in space, degrees
    double zLimitLow = 0, zLimitHigh = 0; ///< manual limits of its Z axis; 0 automatic
    double rangeLimit = 0;                ///< widest range (maximum less lower) of its Z axis; 0 none
};
