#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "curvefit/models.h"
#include "curvefit/twofold.h"

/// The least squares of a curve: pure kernels.

/// One row of a set as a fit takes it.
struct FitRow {
    double x = 0, y = 0, weight = 1;
};

/// A square system a * unknown = b, row by row.
struct LinearSystem {
    std::vector<std::vector<Twofold>> a;
    std::vector<Twofold> b;
};

/// Solves a system by Gauss-Jordan elimination. Row by row the pivot is the entry of largest magnitude in a
/// column not yet used; its row is divided by it and taken off every other row. Nothing for a singular
/// system: a pivot at most `least` in magnitude.
std::optional<std::vector<Twofold>> gaussjordan(LinearSystem system, double least = 0);

enum class FitState : uint8_t {
    solved,
    noRows,     ///< no row has the coordinates of the model
    singular,   ///< fewer different abscissas than coefficients, or abscissas too close to be told apart
    outOfRange, ///< coefficients, or sums, that no double can hold
};

/// The curve of a set. On the models 10 to 13 it is the straight line in their coordinates: coefficients are
/// ln(a) and ln(b), for the power model ln(a) and b.
struct FitSolution {
    FitState state = FitState::noRows;
    std::vector<double> coefficients; ///< from the constant up; empty unless solved
    std::vector<double> fitted;       ///< fitted y of each row; not-a-number for a row left out
    int used = 0;                     ///< rows fitted
    double low = 0, high = 0;         ///< range of x of the rows fitted
    /// The rounding of the coefficients moves no fitted value by more than a millionth of the largest: false
    /// far from x = 0, where the terms of a polynomial cancel.
    bool precise = true;
};

/// Weighted least squares of a model by its normal equations. A row without coordinates in the model, with a
/// weight that is not above 0 or with a value that is not finite is left out.
///
/// The equations are set up and solved in double doubles about the middle of the abscissas, scaled by a power
/// of two to within -1 and 1; the coefficients are brought back to x before they are rounded. So they are
/// those of the exact solution within a few units in the last place (NIST StRD: Norris, Pontius and Wampler 1
/// to 5 to 13 digits or better), as long as the abscissas can be told apart to that degree. Normal equations:
/// Draper, Smith, Applied Regression Analysis (1998) 4.
FitSolution fitsolve(std::span<const FitRow> rows, const CurveModel& model);
