#pragma once

#include <span>
#include <vector>

#include "analysis/lifeterms.h"

/// The likelihood about a line, in (shift, rate): every term stands at z = rate * v - shift, with v its place
/// standardised by the line, which itself is shift 0 and rate 1. In these two the log likelihood of exact,
/// censored and interval data is concave for every shape.
struct PlaceSlopes {
    double value = 0; ///< log likelihood without the constants of the data
    double shift = 0, rate = 0;
    double shiftShift = 0, shiftRate = 0, rateRate = 0;
};

/// Terms of the plot scale in standard units of a line of that scale.
std::vector<LifeTerm> standardised(const StandardLine& line, std::span<const LifeTerm> terms);

/// Value with first and second slopes, and the value alone, of standardised terms. rate > 0.
PlaceSlopes placeslopes(Shape shape, std::span<const LifeTerm> terms, double portion, double shift,
                        double rate);
double placevalue(Shape shape, std::span<const LifeTerm> terms, double portion, double shift, double rate);

/// Observed information of a line, in the step a of the location, in units of the scale, and the step l of
/// the logarithm of the scale: location + a * scale, scale * exp(l). Both are free of units.
struct Information {
    double slopeA = 0, slopeL = 0; ///< slopes of the log likelihood; 0 at its maximum
    double aa = 0, al = 0, ll = 0; ///< its second slopes, with their sign turned
};

/// Of a line of the plot scale over terms on that scale; portion as in logterm. Any mixture of failures,
/// suspensions, discoveries and intervals, from the slopes of every term. For failures and suspensions alone
/// these are the well-known sums: Weibull, with S0, S1, S2 the sums of w e^z z^i and Sz that of w z over the
/// failures, aa = S0, al = S0 + S1 - r, ll = S1 + S2 - Sz, which is S2 + r at the maximum; al has the sign of
/// a scale, which is one over a slope.
/// Lawless, Statistical Models and Methods for Lifetime Data (2003), 5.2.
Information observedinformation(const StandardLine& line, std::span<const LifeTerm> terms, double portion);

/// Variances and covariance of a and l: the inverse of the information. `exists` is false when the
/// determinant is not positive: the likelihood has then no hill there.
struct Covariance {
    bool exists = false;
    double aa = 0, al = 0, ll = 0;

    /// Variance of location + t * scale, in units of the scale squared.
    double at(double t) const { return aa + 2 * t * al + t * t * ll; }
};
Covariance covarianceof(const Information& information);
