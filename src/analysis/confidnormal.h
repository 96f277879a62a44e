#pragma once

/// Bounds of a complete Normal or Lognormal sample, current set, from its mean m and standard deviation s
/// (divisor n - 1) on the plot scale, whatever fit made the line:
///
///   mean     m -+ z s / sqrt(n)                            z = fmzvalue
///   spread   s sqrt(q / chi2(0.5 + c/2, q)) to s sqrt(q / chi2(0.5 - c/2, q)), q = 2 n - 2, c the confidence
///            between the sides; s itself from q = 30000 on
///   curve    m - t s / sqrt(n), t the quantile at one less the side's percentage of the non-central t with
///            n - 1 degrees of freedom and delta = -z_p sqrt(n): exact, each side at its own percentage
///
/// Negative confMethod: the one probability singleP, no curve. Refused, and told, for other families and
/// for anything but exact failures.
/// Hahn and Meeker, Statistical Intervals (1991), ch. 4; the curve to 1e-11 of the deviation.
void confidnormal();
