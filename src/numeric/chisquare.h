#pragma once

/// Chi-square distribution function P(X <= x) with dof degrees of freedom, dof > 0, whole or not.
///
/// Exact form: for 0 < x < 1000 the incomplete gamma function P(dof/2, x/2), with the accuracy told there;
/// x below 2e-12 is taken as 2e-12, as gammap does.
/// Otherwise (x >= 1000, or exact = false) the short form: dof below 1 becomes 1; up to 20 a table of
/// 17 probabilities read by straight lines, absolute error below 0.02 for whole dof and 0.04 for others;
/// above 20 the cube-root normal approximation, absolute error below 7e-4, falling as 1/dof.
/// x <= 0 gives 0. A dof that is infinite or not a number, x not a number, and dof <= 0 in the exact form are
/// reported and give 0.
/// Wilson and Hilferty, Proc. Nat. Acad. Sci. 17 (1931) 684.
double chi2cdf(double x, double dof, bool exact = true);

/// Upper tail P(X > x) by the same routes, computed directly: relative precision in the exact form, absolute
/// in the short one.
/// Bad input is reported and gives 0.
double chi2sf(double x, double dof, bool exact = true);

/// Quantile of the chi-square distribution: the x with P(X <= x) = p.
/// For 0 < p < 1 and 1 <= dof < 318 the root of the incomplete gamma function, relative error 8e-16 against
/// 50-digit values; a quantile below 1e-300 is held there. Other degrees of freedom take the inverse of the
/// short form of chi2cdf: the table for dof below 1, and from 318 on
/// dof (1 - 2/(9 dof) + z sqrt(2/(9 dof)))^3, not below 0, relative error below 1.2e-4 for p in 0.001 ..
/// 0.999. p outside (0, 1), and dof infinite or not a number, are reported and give 0.
double chi2inv(double p, double dof);
