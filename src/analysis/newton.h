#pragma once

#include <span>

#include "analysis/linesearch.h"

/// Failures and suspensions of a Weibull line for the profile equation.
struct ProfileData {
    std::span<const double> y; ///< ln x less the largest of them: no power of x can overflow
    std::span<const double> weight;
    double reference = 0;  ///< the largest ln x
    double failures = 0;   ///< their weight
    double failureSum = 0; ///< sum of weight * y over the failures
};

struct ProfileSearch {
    SearchEnd end = SearchEnd::noMaximum;
    double beta = 0; ///< of the last pass when none was found
    double logEta = 0;
    int passes = 0;
};

/// Where the search for the slope begins: a stored slope is cut to 1 and 3.
double newtonstart(double storedSlope);

/// ln eta = (ln sum(w x^beta) - ln r) / beta, the maximum for a known slope; without failures r is 1.
double closedlogeta(const ProfileData& data, double beta);

/// Largest Weibull likelihood over exact failures and suspensions: the root in beta of
///
///   G = sum(w x^beta ln x) / sum(w x^beta) - sum(w ln x, failures) / r - 1 / beta
///
/// by Newton's method from `start`. Far from the root the steps are damped by 1.5, for G is bent there; near
/// it they are full, and double the digits. A slope that would fall to zero or below is halved instead. No
/// maximum without failures or with a slope beyond 10000; at most 60 passes. To a few 1e-15.
/// Lawless, Statistical Models and Methods for Lifetime Data (2003), 5.2.
ProfileSearch weibullprofile(const ProfileData& data, double start, Interrupted interrupted);

/// Register form, Weibull, input types 0 and 1: beta is the stored slope, or the fixed slope in force; eta,
/// beta and logLik out. calcError 1: no root within the limits; eta and beta are then those of the last pass.
void maxlyknewton();
