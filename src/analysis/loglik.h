#pragma once

#include "analysis/lifeterms.h"

/// The log likelihood of a trial line on the data of the current set: eta and beta in, logLik out. Natural
/// scale of x with the density of x; a quantity counts as so many units. Always at the uncorrected line: when
/// the line carries the bias correction of the mle variant, that is taken off first and put back afterwards.
/// beta <= 0 gives 0; no usable contribution -9e30. One reading of the data, no allocation.
void loglyk();

/// The log likelihood of the same line as it is, without the limits and stand-ins that loglyk puts on single
/// points: a suspension at 0 adds nothing, for every unit survives age 0, and a grouped row keeps its
/// logarithms in the far tails. What a fit is worth, which the search has compared. noLogLik where a point
/// cannot occur at all, without points, and for a line that is no line.
double trueloglik();

/// Slopes of the log likelihood in eta and beta at the same line: dLdEta, dLdBeta. Analytic for every family
/// and input. 0 and 0 for a line that is no line.
void loglykderivative();

inline constexpr double noLogLik = -9e30;    ///< log likelihood of a trial that has none
inline constexpr double nothingLog = -30;    ///< of a contribution that is not positive
inline constexpr double badRowLogLik = -1e6; ///< of a grouped row with no probability

/// ln of what one unit contributes; nothingLog where the probability or density is not positive. A logarithm
/// far below that of the smallest number is one all the same.
double logcontribution(const StandardLine& line, const LifeTerm& term, double portion);

/// The same for a failure or a suspension of a Weibull line of the whole population:
/// (beta - 1) ln x + ln beta - beta ln eta - (x/eta)^beta, the power left out from exponent 690 on; and
/// -(x/eta)^beta, held to -9e-30 and -9e30 from exponents of -80 and 80 on. With eta or x zero the exponent
/// of a suspension is beta * 700.
double weibullfailurelog(const FamilyLine& line, double x);
double weibullsuspensionlog(const FamilyLine& line, double x);

/// A grouped row: failed * ln F + survived * ln (1 - F), of an increment the probability between the rows.
double groupedrowlog(const StandardLine& line, const GroupedRow& row, double portion);
