#pragma once

/// Result of a tail that could not be formed.
inline constexpr double failedtail = -9e30;

/// Probability of at most C events in N trials, sum of C(N, k) p^k (1-p)^(N-k) over k = 0 .. C.
/// 0 < N <= 1e12; C >= 0 is rounded down; C >= N gives 1; 0 <= p <= 1. Anything else gives -9e30.
/// N need not be whole (up to 1e6, then it is rounded down): factorials are gamma functions, and the sum
/// stays 1 - I_p(C+1, N-C).
/// The first term comes from its saddle-point form, the others by their ratio, away from the mode and on the
/// shorter side, until they no longer matter: about 8 sqrt(N p (1-p)) terms at most. Relative error below
/// 3e-14 up to N = 1000 and 3e-13 up to a million.
/// Loader, Fast and accurate computation of binomial probabilities (2000).
double binotail(double N, double C, double p);

/// Probability of more than C events, 1 - binotail, with its own relative precision (absolute where N is not
/// whole and p above 0.99).
double binotailabove(double N, double C, double p);

enum class BinomialUnknown { N, C, conf, p };

/// Four values of which three determine the fourth by conf = P(more than C events in N trials at p): the
/// confidence with which N trials that show C events say that the event probability is below p.
struct BinomialPlan {
    double N = 0;           ///< trials
    double C = 0;           ///< events allowed
    double conf = 0;        ///< confidence, a fraction
    double p = 0;           ///< probability of the event in one trial
    bool certain = false;   ///< out: C = N, so p = 1 without a search
    bool truncated = false; ///< out: the search for p ran out of passes; p is its last value
};

/// Solves for the unknown member, which is overwritten; its value on entry does not matter.
/// p: 1 when C = N, else the root by false position with a bisection guard in the logarithms of odds and
/// tail, at most 200 passes; relative error 5e-15 against 50-digit ranks,
/// 2e-14 for p of 1e-11. The median rank of failure r of
/// N has conf = 0.5 and C = r - 1; the ranks at other levels likewise. N: the smallest whole number whose
/// confidence is at least conf. conf: the tail above C; below 1e-12 it counts as 0. C: -9e30, there is no
/// search. So is any unknown when the given values are outside their ranges (N as for binotail, 0 <= C <= N,
/// 0 < conf < 1, 0 < p <= 1) or no N up to 1e12 is enough.
void binosolve(BinomialPlan& plan, BinomialUnknown unknown);
