#pragma once

/// Distribution function of the non-central t, P(T <= t) with T = (Z + delta) / sqrt(chi2 / dof): the
/// integral of the normal distribution function at t u - delta over the density of u = sqrt(chi2 / dof). dof
/// > 0 (whole or not), up to 1e9; any t and delta. Anything else, and not-a-number, gives 0. The integral is
/// taken by Gauss and Legendre over the stretch that holds all but 1e-14 of the density, with a panel for
/// every few widths of the normal step: unlike the series in incomplete beta functions it does not depend on
/// the size of delta, whose exp(-delta^2 / 2) vanishes from 38 on. Absolute error below 2e-11, that of
/// normcdf. Owen, Biometrika 52 (1965) 437; Johnson, Kotz, Balakrishnan, Continuous Univariate Distributions
/// 2 (1995), ch. 31.
double noncentraltcdf(double t, double dof, double delta);

/// Quantile: the t with P(T <= t) = p, by Newton's method on the normal deviate of P within a bracket.
/// 0 < p < 1, else, and where noncentraltcdf has no answer, 0. Error below 1e-11 (1 + |t|) for p within 0.01
/// and 0.99, against 40-digit values.
double noncentraltquantile(double p, double dof, double delta);

/// Factor k of a one-sided tolerance limit of n normal values: mean + k s is with confidence conf above the
/// share p of the population, k = t / sqrt(n) with the quantile at conf for n - 1 degrees of freedom and
/// delta = z_p sqrt(n). n > 1, 0 < p < 1, 0 < conf < 1; else 0.
/// Hahn and Meeker, Statistical Intervals (1991), ch. 4.
double tolerancefactor(double n, double p, double conf);
