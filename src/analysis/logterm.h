#pragma once

#include <cstdint>

/// Logarithms of probabilities on the standard scale z, and their slopes: what one point adds to a log
/// likelihood. Every logarithm is formed on its own path, never as the logarithm of a difference that has
/// lost its digits, so that it is good to a few units in the last place far into the tails. Any z; an
/// infinity is the end it stands for.

/// Standard distributions of location and scale. Weibull is `smallest` and Lognormal `bell` in ln x.
enum class Shape : uint8_t {
    smallest, ///< F = 1 - exp(-exp(z))
    largest,  ///< F = exp(-exp(-z))
    bell      ///< the normal
};

double logdensity(Shape shape, double z);
double logbelow(Shape shape, double z); ///< ln F
double logabove(Shape shape, double z); ///< ln (1 - F)

/// ln (F(b) - F(a)); minus infinity unless a < b.
double logbetween(Shape shape, double a, double b);

/// What is known of the units of one point.
enum class Known : uint8_t {
    exactly, ///< failed at low
    above,   ///< not failed at low: a suspension
    below,   ///< failed before low: a discovery
    between, ///< failed between low and high
    outside  ///< failed, but not between low and high
};

/// One contribution and its first and second slopes in a = z(low) and b = z(high).
struct TermSlopes {
    double value = 0;
    double a = 0, b = 0;
    double aa = 0, ab = 0, bb = 0;
};

/// Logarithm of what a point contributes when a portion of the population can fail at all (1: the whole):
/// exactly P f, above P (1 - F) + 1 - P, below P F, between and outside P times their probability. Not a
/// number at a z that is none.
double logterm(Shape shape, Known known, double a, double b, double portion);

/// The same with its slopes. Finite z.
TermSlopes slopesofterm(Shape shape, Known known, double a, double b, double portion);
