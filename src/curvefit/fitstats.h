#pragma once

#include <span>

#include "curvefit/fitsolve.h"

/// How well a curve fits.
struct FitStatistics {
    double n = 0;                ///< sum of the weights
    double sse = 0;              ///< weighted sum of the squared residuals
    double standardError = 9e30; ///< 9e30: not defined
    bool hasR = false;           ///< false where x or y does not vary
    double r = 0;                ///< linear correlation of x and y
};

/// What brings values to the scales on which they are compared; null: as they are.
struct FitScales {
    double (*x)(double) = nullptr;
    double (*y)(double) = nullptr;
};

/// Compares the fitted y of each row with its y. A row whose fitted y is not-a-number was left out of the fit
/// and counts for nothing; so does one without a place on the scales. `parameters`: coefficients of the
/// model.
///
/// Standard error sqrt(sse/df) with df = n - parameters; below 1, df is 1/(|df| + 2), so that a saturated fit
/// keeps a value. r is that of the raw coordinates, taken about their means, so that values far from zero
/// keep their digits. Draper, Smith, Applied Regression Analysis (1998) 1.
FitStatistics fitstats(std::span<const FitRow> rows, std::span<const double> fitted, int parameters,
                       const FitScales& scales = {});
