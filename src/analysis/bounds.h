#pragma once

#include <cstdint>
#include <span>

/// Confidence bounds of a set: what every bound method shares. A bound curve is a row of points, X the data
/// value and Y the probability as a fraction, in rising order of probability.
///
/// Most methods bound the value at a probability: the points of the low curve lie left of the line. The
/// binomial, probit and Greenwood bounds are bounds of the probability at a value: there the points of the
/// low curve lie below the line.

enum class BoundSide : uint8_t { low, high };

/// True when the side's confidence is above 0.
bool boundasked(BoundSide side);

/// Row of the curve: the low one is two rows before the set's own, the high one next to it.
int boundrow(int k, BoundSide side);

/// Takes the bound curves and the parameter bounds of set k away.
void clearbounds(int k);

/// True for a value that data can have: of a size within (9E-30, 9E30), or 0 where data may be negative.
bool boundvalue(double x);

/// Appends a point to a curve. A value that no data can have is dropped, not clipped, for a clipped one
/// bounds nothing; so is what is not a number or has no place left in the row.
void addbound(int k, BoundSide side, double x, double p);

/// The standard probabilities of a curve, as fractions in rising order: the ticks of the probability axis
/// from 1E-6 to 0.99999, with the characteristic 0.63212.
std::span<const double> boundprobabilities();

/// The probabilities at which a curve is computed: the standard list, or for a negative confMethod the one of
/// the single point, singleP. A single point leaves a row of one point, which is its answer.
std::span<const double> askedprobabilities();

/// Normal deviate of the confidence asked for: with c1 = confLow, c2 = confHigh as fractions the probability
/// q = c2 + 1 - c1 when c1 > 0, else c2; halved when both sides are asked. |z| of q; a q outside (0, 1) gives
/// 0. For 5 and 95 percent q = 0.95: a bound on each side, 90 percent between them.
double fmzvalue();

/// Share of the confidence on each side, q of fmzvalue; 0 when it is not within (0, 1).
double confidenceofside();

/// An estimate with its bounds on some scale.
struct Limits {
    double low, high;
};

/// Adds to both curves the bounds of one probability. Values on the data scale less the threshold of set k.
void addbounds(int k, double p, const Limits& x);

/// Keeps the bounds of the parameters of set k for the sides that are asked.
void keepparameterbounds(int k, const Limits& eta, const Limits& beta);
