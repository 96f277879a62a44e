#pragma once

#include <cstdint>

/// The operators and functions of the typed function, as pure rules. The sentinels -9e14, 9e14 and 9e30 stand
/// for what is not defined. A rule that has no sentinel for its input gives not-a-number, and an infinity
/// where its result is too big: the row then has no result.

/// w * s. Both 0 or neither: where |ln|w| + ln|s|| is above 69 the result is 9e30 with the sign of the
/// product, for a product too small as for one too big.
double productrule(double w, double s);
double quotientrule(double w, double s); ///< w / s; a divisor of exactly 0 counts as 1e-6
double sumrule(double w, double s);
double differencerule(double w, double s);
double powerrule(double w, double s);   ///< w ^ s; not-a-number for 0 to a negative and a root of a negative
double anglerule(double w, double s);   ///< angle of the point (s, w), radians
double greaterrule(double w, double s); ///< the greater of the two
double lesserrule(double w, double s);  ///< the lesser of the two
/// Remainder of the two, each rounded to the nearest whole number, halves to the even one; it has the sign of
/// w. Not-a-number when s rounds to 0.
double remainderrule(double w, double s);
/// Quantile of the chi-square distribution at probability w, s rounded to whole degrees of freedom, in single
/// precision. Not-a-number outside the domain.
double chisquarerule(double w, double s);

double absrule(double w);
double atanrule(double w); ///< radians, as every angle here
double cosrule(double w);
double exprule(double w); ///< 0 when |w| is above 70, on both sides
double intrule(double w); ///< largest whole number not above w
double lnrule(double w);  ///< -9e14 at or below 0
double sinrule(double w);
double sqrrule(double w); ///< sign(w) sqrt(|w|)
double tanrule(double w);
double cshrule(double w); ///< cosh; 9e14 when |w| is above 69
/// Product of the whole numbers from 1 to w; 0 below 0; 8.84e30 when |w| is above 29. The sign of the result
/// is turned when w is not whole.
double factorialrule(double w);
double logrule(double w);   ///< decimal logarithm; -9e14 at or below 0
double snhrule(double w);   ///< sinh; 9e14 with the sign of w when |w| is above 69
double tnhrule(double w);   ///< tanh; the sign of w when |w| is above 69
double acosrule(double w);  ///< 1.570796 - asin(w), with these digits; |w| >= 1 counts as 0.999999
double asinrule(double w);  ///< |w| >= 1 counts as 0.999999
double acshrule(double w);  ///< inverse of cosh; w at or below 1 counts as 1.000001
double asnhrule(double w);  ///< inverse of sinh
double atnhrule(double w);  ///< inverse of tanh; |w| >= 1 counts as 0.999999
double sgnrule(double w);   ///< -1, 0 or 1
double pdfnrule(double w);  ///< density of the standard normal
double cdfnrule(double w);  ///< its distribution function
double pdfwrule(double w);  ///< density of the standard smallest (minimum) extreme; 0 when |w| >= 84
double cdfwrule(double w);  ///< its distribution function; 0 or 1 when |w| >= 84
double pdfxrule(double w);  ///< density of the standard largest (maximum) extreme; 0 when |w| >= 84
double cdfxrule(double w);  ///< its distribution function; 0 or 1 when |w| >= 84
double gammarule(double w); ///< gamma function; not-a-number where it has no value
double c4rule(double w);    ///< c4 of a sample of w, rounded down; 0 at or below 1
double pdflrule(double w);  ///< standard normal density at ln(w), not divided by w; 0 at or below 0
double cdflrule(double w);  ///< standard normal distribution function at ln(w); 0 at or below 0

/// What the remainder operator becomes by ModSetting. The first gives the place of the probability w on the
/// probability axis of the family with number s, 1 to 4. The second the plotting position of rank w in a
/// sample of s, by the routine in rankPosition. Not-a-number for a family that is none, and for a count
/// below 1.
double plotplacerule(double w, double s);
double rankpositionrule(double w, double s);

/// Plotting position of rank r in a sample of N, in result. The analysis, a floor higher, lends it; without
/// one the remainder operator stays the remainder.
using RankPosition = void (*)(double N, double r, double& result);
extern RankPosition rankPosition;

/// The rule of the remainder operator for a ModSetting.
using BinaryRule = double (*)(double, double);
BinaryRule modrule(int16_t setting);
