#pragma once

#include <cstdint>
#include <span>

/// Confidence bounds of a set: what every bound method shares. A bound curve is a row of points, X the data
/// value and Y the probability as a fraction, in rising order of probability.

enum class BoundSide : uint8_t { low, high };

/// True when the side's confidence is above 0.
bool boundasked(BoundSide side);

/// Row of the curve: the low one is two rows before the set's own, the high one next to it.
int boundrow(int k, BoundSide side);

/// Takes the bound curves and the parameter bounds of set k away.
void clearbounds(int k);

/// Appends a point to a curve. What is not a number, or has no place left in the row, is dropped.
void addbound(int k, BoundSide side, double x, double p);

/// The standard probabilities of a curve, as fractions in rising order: the ticks of the probability axis
/// from 1E-6 to 0.99999, with the characteristic 0.63212.
std::span<const double> boundprobabilities();
