#pragma once

/// Pieces of the saddle-point form of a probability term, which keep large counts free of the cancellation
/// of x^a, e^-x and Gamma(a).
/// Loader, Fast and accurate computation of binomial probabilities (2000).

/// Stirling's error, ln n! - ln(sqrt(2 pi n) (n/e)^n). Any n > 0, whole or not; n = 0 gives 0 by convention
/// (a count of 0 has no square root to share). Absolute error below 2e-16 for n >= 8 and for halves of
/// whole numbers, 1e-15 otherwise.
double stirlingerror(double n);

/// Deviance x ln(x/mean) + mean - x, both > 0, without the cancellation near x = mean. Relative error about
/// 1e-15.
double deviance(double x, double mean);

/// Binomial term C(n, x) p^x q^(n-x), q = 1 - p given beside p so that neither loses digits.
/// n > 0 and 0 <= x <= n need not be whole: factorials are gamma functions. 0 <= p <= 1. An underflow is 0.
double binomialterm(double n, double x, double p, double q);
