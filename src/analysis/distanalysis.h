#pragma once

#include <cstdint>
#include <span>

/// The choice among families for one set of data.

/// A family with its form. A negative code stands for the form with a threshold.
struct Candidate {
    int16_t code = 1; ///< Dist, negative with a threshold
    int16_t gumbeltype = -1;
    bool operator==(const Candidate&) const = default;
};

/// The candidates in force, in order: Weibull and Lognormal with two and three parameters and, by option, the
/// Normal; where data may be negative Normal, Gumbel- and Gumbel+.
std::span<const Candidate> candidatesinforce();

/// Index of the largest measure, the earlier one at a tie; -1 when no candidate has one.
int bestcandidate(std::span<const double> measures);

/// Confidence, as a fraction, that a line of log likelihood `winner` is better than the standard one by more
/// than chance: chi-square with one degree of freedom of twice their difference, times the correction for n
/// occurrences. The corrected ratio is that of Fulton; Abernethy, The New Weibull Handbook, ch. 7.
double confidenceofwinner(double winner, double standard, double n);

/// Fits every candidate to the current set (set 1 when there is none in hand) by a quiet run of the analysis,
/// and reports the one with the largest measure: at rr the goodness of fit of fitMeasure, at mle the log
/// likelihood. At mle a winner that is better than the two-parameter Weibull with a confidence below 50
/// percent gives way to it. A candidate without a line has no measure; the set itself need not have one.
///
/// Afterwards every option and every result of the last run, bounds included, is as it was, with one
/// exception: with more than 20 occurrences, and neither a batch nor a script in force, the user may accept
/// the winner. The family and the search for a threshold are then switched and the known slope is free, but
/// the results are still those of the former family: the function returns true, and the caller runs the
/// cycle. It returns false in every other case.
bool distributionanalysis();
