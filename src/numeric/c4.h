#pragma once

/// Bias factor of the standard deviation of n normal values, E(s) = c4(n) sigma:
/// c4(n) = sqrt(2 / (n - 1)) Gamma(n / 2) / Gamma((n - 1) / 2).
/// n is a count and is first rounded down; n <= 1, and not-a-number, give 0, which marks "no factor".
/// Up to 80 the true value, correctly rounded; above 80 the usual form (4n - 4.5) / (4n - 3.5), whose
/// relative error is 8.4e-8 at 81 and falls as 0.043 / n^3.
/// Montgomery, Introduction to Statistical Quality Control, appendix VI.
double c4(double n);
