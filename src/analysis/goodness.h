#pragma once

#include <cstdint>
#include <span>

#include "plot/transforms.h"

/// Goodness of fit: how well the plotted points keep to their line, and how well the line keeps to the data.

/// The four kinds of line with tables of their own: extreme-value paper (Weibull, Gumbel) and normal paper
/// (Lognormal, Normal), with two parameters or with a threshold as the third. A Normal line has none.
enum ParameterCase : int8_t { noCase = -1, extremeOfTwo, extremeOfThree, bellOfTwo, bellOfThree };
ParameterCase parametercase(int family, bool threeParameter);

/// Critical r^2: nine of ten samples of n failures from the family itself have a larger r^2 on their own
/// paper, at the median ranks of Benard. From tables up to 30 failures (10 with a threshold), beyond by a
/// formula. n is rounded to a whole number; below 3 it gives 0, and so does an unknown family.
/// Abernethy, The New Weibull Handbook, ch. 3.
double cccsquare(int family, bool threeParameter, double n);

/// pve: the share, 0 to 1, of samples of n failures from the family that have a smaller r^2 than this one.
/// With rho = (1 - r^2) / (1 - ccc^2) it is exp(-exp(B rho^A + C)), 10 percent at rho = 1. 0 where it is not
/// defined: fewer than 3 failures, r^2 of 1 or more, an unknown family, and more than 4500 failures of a line
/// with a threshold. Below 8 failures an r^2 from 0.999999 on is beyond the form and takes topPve.
/// Against simulated samples the share differs by less than 0.02 with two parameters. With a threshold the
/// true share depends on the shape too; against a Weibull slope of 3.5 and a Lognormal spread of 0.8 it
/// differs by less than 0.02 from 8 failures on. Abernethy, The New Weibull Handbook, ch. 3; the coefficients
/// by scripts/fitpve where no others are known.
double pve(int family, bool threeParameter, double n, double rSquared);

inline constexpr double topPve = 0.9999999;

/// The critical r^2 of the visual side, where no family stands behind a curve: a Weibull function of the
/// count of points, eta 0.45 and beta 0.204; 0.99999 up to 2 points, and at most 1.
double visualcccsquare(double n);

/// Anderson-Darling statistic of a complete sample in rising order against a line,
/// A2 = |-n - (1/n) sum over i of (2i - 1) (ln F(x_i) + ln(1 - F(x_(n+1-i))))|. Values on the data scale,
/// less the threshold. Both logarithms are formed on their own paths. 0 for an empty sample and for a line
/// that is none. Anderson and Darling, J. Am. Statist. Assoc. 49 (1954) 765.
double andersondarling(const FamilyLine& line, std::span<const double> values);

/// A2 modified for the sample size: A2 (1 + 0.2 / sqrt n) for Weibull and Gumbel, A2 (1 + 0.75 / n + 2.25 /
/// n^2) for Lognormal and Normal. Stephens, in D'Agostino and Stephens, Goodness-of-Fit Techniques (1986).
double modifiedandersondarling(int family, double A2, double n);

/// Its p-value as a fraction, 1 / (1 + exp(slope A + 1.24 ln A - 0.1)), from 0.001 for what rounds to 0 to
/// 0.999 for what rounds to 1.
double andersondarlingpvalue(int family, bool threshold, double modified);

/// Correction of twice a log likelihood ratio for the size of a sample of n failures, (n - 1) / (n + 0.618).
/// 0 for n <= 1. Fulton; in Abernethy, The New Weibull Handbook, ch. 7.
double fultonfactor(double n);

/// True when the set's line counts as one of three parameters: its threshold is not 0.
bool hasthreshold(int k);

/// Modified Anderson-Darling test of the current set on its stored parameters, into pADPercent and
/// modifiedA2, which stay without a value when the test is refused (and told: suspensions, more units than
/// maxPoints, an empty set), when the data are no single values, and when A2 is 0.
void adtest();

/// No figures of goodness for set k.
void cleargoodness(int k);

/// The figures of set k, which has just got its line: cccSquared, pvePercent, with measure 3 pADPercent, the
/// p-value of the measure in force, and its value in rSquaredMinusCcc.
void goodnessofset(int k);
