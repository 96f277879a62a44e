#pragma once

/// Confidence bounds of the current set's Weibayes line: the slope is known, so that each bound is the line
/// of the same slope through the limit of eta at the side's confidence (weibayeslimit). A percentage is that
/// of the bound itself: with 5 and 95 the true life is below the low curve with 5 percent confidence and
/// below the high one with 95. Fills the bound rows of the asked sides, paramLow and paramHigh of eta, and
/// the label "wb".
/// Nothing is filled without a line of a fixed slope. Another family, and a portion of the population, are
/// told of; a sum without a value leaves calcError 1. A line by regression need not go through the sum: then
/// the bounds are still those of the sum, and the caller drops one that leaves the line out.
void confidweibayes();
