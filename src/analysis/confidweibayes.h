#pragma once

/// Confidence bounds of the current set's Weibayes line: the slope is known, so that each bound is the line
/// of the same slope through the limit of eta at the side's confidence (weibayeslimit). A percentage is that
/// of the bound itself: with 5 and 95 the true life is below the low curve with 5 percent confidence and
/// below the high one with 95. Fills the bound rows of the asked sides, paramLow and paramHigh of eta, and
/// the label "wb". Nothing is filled when the set has no Weibull line with a fixed slope or its sum has no
/// value.
void confidweibayes();
