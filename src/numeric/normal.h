#pragma once

/// Distribution function of the standard normal, P(Z <= x).
/// Any x; above 10 the result is 1, below -37.5 it is 0. Relative error of the lower tail below 1e-9.
/// Hart et al., Computer Approximations (1968) 5666, with a continued fraction beyond 5.03.
double normcdf(double x);

/// Density of the standard normal, exp(-z^2/2) / 2.50662827462709.
double normpdf(double z);

/// Quantile of the standard normal. 0 < p < 1; anything else gives 0. Relative error below 1e-15 or so.
/// Wichura, Algorithm AS 241 (PPND16), Appl. Statist. 37 (1988) 477.
double normquantile(double p);
