#pragma once

/// The one place where a number moves between its four views: the value x on the data scale, the
/// probability p, the plot coordinate of an axis, and the density at x. Register routines: load u or ud,
/// call, read the same register back. Every guard and saturation value is part of the contract.
///
/// A step that a formula cannot take with finite arguments (a logarithm or power of a negative value, a
/// result too big) leaves the register as it was: the place goes to msg, and tellfault gets 5 or 6.

#include <cstdint>

// Quantile of the current line.
void txp2x();     ///< u = p in, x out
void txp2xd();    ///< ud = p in, x out
void txp2xmixd(); ///< ud = p in, x of the mixed model out; without one, txp2xd
// Distribution function of the current line.
void txx2p();     ///< u = x in, p out
void txx2pd();    ///< ud = x in; ud = p and udq = 1 - p out
void txx2pmixd(); ///< the same of the mixed model; leaves eta and beta at the last component read
void txx2pprg();  ///< txx2p without saturation, for the curve fitter
// Density of the current line.
void txx2dp();
void txx2dpd();
void txx2dpmixd(); ///< of the mixed model; Weibull only, 0 for the other families
void txx2dpprg();  ///< txx2dp without saturation, for the curve fitter
void txx2zd();     ///< ud = x in, standardised value out
// Data to plot coordinates and back; the w form takes the probability branch whatever the plot mode.
void txx2txx();
void txx2txxd();
void txx2txxdw();
void txy2txy();
void txy2txyd();
void txy2txydw();
void txtxx2x();
void txtxx2xd();
void txtxy2y();
void txtxy2yd();
// Logarithms.
void txz2logzd();   ///< ud to its decimal logarithm; -9.123e32 at or below 0
void txz2logzprg(); ///< u to its decimal logarithm on a family with a logarithmic axis, else u stays
void txlogz2zd();   ///< 10^ud, held to 9e-300 and 9e300
void txz2lnz();     ///< u to its natural logarithm; -9e30 at or below 0
void txlnz2z();     ///< exp(u); at |u| >= 80 a sentinel of the sign of u: -9e30 or 9e30
// Standard normal density.
void txz2dphi();
void txz2dphid();
// The location of the line with slope beta through (ud, ydd), and that of a wanted mean.
void txYandXandBeta2EtaD();
void txYandXandBeta2EtaDw();
void txmean2etad();

/// True when data values may be zero or negative.
bool negdataok();

/// A line of one family. eta and beta by family: Weibull characteristic value and slope; Lognormal median
/// and geometric spread (exp of the standard deviation of ln x); Normal mean and standard deviation; Gumbel
/// mode and scale. extreme: -1 the smallest-extreme (minimum) Gumbel, 1 the largest-extreme (maximum).
struct FamilyLine {
    int16_t family = 1;  ///< Dist, without sign
    int16_t extreme = 0; ///< -1 or 1; any other value and a Gumbel line changes nothing
    double eta = 0;
    double beta = 0;
};

/// The line in the registers eta, beta, dist and gumbeltype.
FamilyLine currentline();

/// A probability with its complement, each computed on its own path.
struct Probability {
    double p = 0;
    double q = 1;
};

// Kernels of the lines. A trap comes back as not-a-number (a logarithm or power outside its domain) or as
// an infinity (a result too big) although every argument was finite.

/// Quantile x of probability p, in the wide limits (txp2xd).
/// p <= 0 gives 1e-30, or -9e30 when data may be negative; p >= 1 gives p/9e22 + 9e20; beta <= 0 and an
/// unknown family give 0. |x| is held to 1e305; a Weibull p <= 1e-9 takes ln(-ln(1-p)) = ln(p). Relative
/// error for a Weibull p above that: within 2^-52 * (1 + (1 + |ln(-ln(1-p))|)/beta); below it p/beta more.
/// Weibull, J. Appl. Mech. 18 (1951) 293; Gumbel, Statistics of Extremes (1958).
double quantileofp(const FamilyLine& line, double p, bool negative);

/// The same in the limits of the single scale (txp2x): |x| is held to 9e30, and p inside [1e-15, 0.999999]
/// for a Gumbel line. The wide form holds the minimum Gumbel alone, to [1e-15, 0.999999999999999].
double quantileofpsingle(const FamilyLine& line, float p, bool negative);

/// Distribution function and its complement at x, in the wide limits (txx2pd). Any x.
/// p <= 0 becomes (1e-300, 0.999999999999), p >= 1 becomes (0.999999999999, 1e-300). A line that is no line
/// (beta <= 0; eta <= 0 or x <= 0 on a logarithmic family) passes x through the same limits. A Lognormal
/// line with beta <= 1 is a spike at eta. Relative error, with t = -ln q (of the maximum Gumbel -ln p):
/// within 2^-53 * (1 + beta + |ln t|) * (1 + t) for Weibull, (|x| + |eta|)/beta in place of beta for Gumbel;
/// that of the normal distribution function otherwise.
/// Weibull, J. Appl. Mech. 18 (1951) 293; Gumbel, Statistics of Extremes (1958).
Probability probabilityofx(const FamilyLine& line, double x);

/// Distribution function at x by the tests of the single scale (txx2p), before its limits 1e-12 and 1.
double probabilityofxsingle(const FamilyLine& line, float x);

/// The formula of the distribution function alone (txx2pprg). beta > 0; a negative x/eta on a logarithmic
/// family is a trap.
double probabilityformula(const FamilyLine& line, double x);

/// Density at x in the wide limits (txx2dpd), in units of 1/x. 0 for a line that is no line and x outside its
/// domain; a Gumbel line with beta <= 0 gives x itself. Far in the tails of a Gumbel line a small number
/// takes the place of the density. Relative error as the distribution function's; Lognormal and Normal divide
/// by a root of 2*pi that is 1.6e-12 low.
double densityofx(const FamilyLine& line, double x);

/// The same in the limits of the single scale (txx2dp): 0 where the probability rounds to 1.
double densityofxsingle(const FamilyLine& line, float x);

/// The formula of the density alone (txx2dpprg). beta > 0.
double densityformula(const FamilyLine& line, double x);

/// Standardised value at x: beta*ln(x/eta), ln(x/eta)/ln(beta), (x-eta)/beta. x itself for beta <= 0, and on
/// a logarithmic family for eta <= 0 or x <= 0.
double standardofx(const FamilyLine& line, double x);

/// eta of the line with the family and slope of `line` through x at probability p; s is the plot Y of p, used
/// by Lognormal and Normal. eta stays when beta <= 0, when p is not inside (0, 1), and when x <= 0 where
/// data may not be negative.
double etathrough(const FamilyLine& line, double x, double p, double s, bool negative);

/// eta of the line with the family and slope of `line` whose mean is `mean`. Weibull by the gamma function;
/// Lognormal exp(ln(mean) - ln(beta)^2/2), the spread narrowed to a single (some 1e-7); Gumbel by Euler's
/// constant, minus it for the maximum; Normal the mean itself. 0 for a slope that is no slope.
/// Johnson, Kotz, Balakrishnan, Continuous Univariate Distributions (1994).
double etaofmean(const FamilyLine& line, double mean);

/// Standard normal density, exp(-z^2/2) / 2.50662827462709; a z whose square is too big is a trap.
double normaldensity(double z);

/// Kernels of the probability plot, for loops over points; the register routines call the same.
double plotxofx(int16_t family, double x);                  ///< data x to plot X (txx2txxdw)
double plotyofp(int16_t family, int16_t extreme, double p); ///< probability to plot Y (txy2txydw)
double xofplotx(int16_t family, double plotx);              ///< plot X to data x
double pofploty(int16_t family, int16_t extreme, double y); ///< plot Y to probability (txtxy2yd)
