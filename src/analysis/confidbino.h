#pragma once

/// Binomial bounds of the current set, point by point. With the adjusted rank i of a failure in a sample of N
/// units and r = i - 1, the probability p at which more than r events in N trials have the probability of the
/// side's percentage: the exact rank at that percentage, 5 and 95 percent for the band of 90. Between whole
/// ranks p is linear. X is the value of the point (an interval where it stands on the plot), Y the p, divided
/// by the population portion as the point's own position is. Suspensions and discoveries have none.
/// Negative confMethod: the high side alone, at the percentage that is the point's own position.
/// calcError -1 when a rank could not be found to the last digit.
/// Johnson, The Statistical Treatment of Fatigue Experiments (1964); Abernethy, The New Weibull Handbook,
/// ch. 7.
void confidbino();
