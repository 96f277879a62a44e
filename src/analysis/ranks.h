#pragma once

#include <cstdint>

/// Plotting position of the (adjusted) rank r in a sample of N units.
///
/// method is a RankMethod. Position by method: binomial, the exact median rank, the p of P(X < r) = 0.5
/// with X binomial (N, p), interpolated linearly between whole ranks; mean r/(N+1); Hazen (r-1/2)/N; Blom
/// (r-3/8)/(N+1/4); Kaplan-Meier r/N, where the last unit of a sample stands at 0.9 + 0.1 (r-1)/N so that it
/// stays below 100 percent; supplied keeps the value passed in; any other code Benard (r-0.3)/(N+0.4).
/// A population portion P with 0 < P < 1 divides the position: the sample speaks for that part alone.
/// Benard and Bos-Levenbach, Statistica Neerlandica 7 (1953) 163; Hazen, Trans. ASCE 77 (1914) 1539; Blom,
/// Statistical Estimates and Transformed Beta-Variables (1958); Kaplan and Meier, JASA 53 (1958) 457.
double plotposition(int method, double N, double r, double portion, double supplied = 0);

/// The same by the session's rankMethod and popPortion; result in and out.
void regresscalcwmainplotpos(double N, double r, double& result);

/// Rank gain of the next failure in a sample of N units after c units, failed or suspended, with running
/// adjusted rank r: (N + 1 - r) / (N + 1 - c). In a complete sample it is 1 and the ranks are 1 to N.
/// Johnson, The Statistical Treatment of Fatigue Experiments (1964).
inline double rankincrement(double N, double c, double r) { return (N + 1 - r) / (N + 1 - c); }

/// Position of every row of a set of grouped input (probit 2 and 3, Kaplan-Meier 4), into Y of the set.
///
/// Probit rows carry their own proportion: prbt2 the cumulative number affected over the sample size, prbt3
/// the cumulative percentage itself. Kaplan-Meier rows give the failures (Q) and the suspensions (Z) at one
/// X, in order of X: the position is 1 - S with S the product of (1 - d/m) over the rows so far, d failures
/// among m units still at risk; suspensions leave after all failures at their X. The row that brings S to 0
/// takes the last-unit rule of plotposition. A row of suspensions alone repeats the position before it.
void positiongrouped(int k);
