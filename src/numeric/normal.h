#pragma once

/// Density of the standard normal, exp(-z^2/2) / 2.50662827462709.
/// Any z; an infinity gives 0, not-a-number itself. The divisor is carried to twelve digits: the result is
/// 1.6e-12 (relative) above the true density, everywhere.
double normpdf(double z);

/// Distribution function of the standard normal, P(Z <= x).
/// Any x; not-a-number gives itself. x above 10 gives 1; x below -37.5, where the result would leave the
/// range of normal doubles, gives 0. The tail beyond |x| is a rational form up to 5.03 and a continued
/// fraction beyond, so the lower tail keeps its relative precision down to 4.6e-308; for the upper tail
/// ask normsf. Relative error of the lower tail against 50-digit values: at most 5.1e-11, at |x| = 5.03 where
/// the two forms meet; 8e-12 rms below that, 9e-12 at most beyond 8.
/// Hart et al., Computer Approximations (1968) 5666; West, Wilmott Magazine (May 2005) 70.
double normcdf(double x);

/// Survival of the standard normal, P(Z > x), with the accuracy of the lower tail at -x.
inline double normsf(double x) { return normcdf(-x); }

/// Quantile of the standard normal: the z with normcdf(z) = p. Silent form.
/// 0 < p < 1; anything else gives 0. For an upper tail q below 1e-10 ask -normquantile(q): 1 - q has then
/// lost the digits. Relative error against 50-digit values: at most 7e-16. The far branch starts at 1e-11,
/// a little beyond the exp(-25) it was fitted for, and loses nothing by it.
/// Wichura, Algorithm AS 241 (PPND16), Appl. Statist. 37 (1988) 477.
double normquantile(double p);

/// normquantile with the check of the domain: p outside (0, 1) is reported and gives 0.
double fd_NormZ(double p);
