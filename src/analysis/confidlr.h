#pragma once

/// Likelihood ratio bounds of the current set: of all lines whose log likelihood lies no more than
/// chi2(conf) / 2 below the largest one, the extremes of every parameter and of the value at each
/// probability; chi2 is the quantile with one degree of freedom, and conf = 2 q - 1 where q is the larger of
/// 1 - confLow and confHigh, so that 5 and 95 percent give the contour of 90 percent for both sides.
///
/// The contour is that of the data's own largest likelihood, whatever made the line: a set of rank regression
/// is fitted once more for it. A line with the bias correction of the mle variant has every line of the
/// contour corrected alike, so that the bounds stay about it. 60 directions, 30 with one side alone; extremes
/// between them are sought out, and equal the profile bounds to 1e-9. Negative confMethod asks for the test
/// of two sets: no bounds. calcError 1: the likelihood has no maximum or no closed contour. The status line
/// tells the level as "LR = ". Lawless, Statistical Models and Methods for Lifetime Data (2003), 5.2; Meeker
/// and Escobar, Statistical Methods for Reliability Data (1998), ch. 8.
void confidlr();
