#include "numeric/binomial.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "numeric/normal.h"
#include "numeric/saddlepoint.h"

namespace {

constexpr double mosttrials = 1e12;
constexpr double enough = std::numeric_limits<double>::epsilon() / 8;

/// The probabilities of at most and of more than C events.
struct Tails {
    double below;
    double above;
};

/// P(at most C) / term of C, by the terms down from C; right when C is below the mode.
double sumdown(double N, double C, double p, double q) {
    const double odds = q / p;
    double term = 1;
    double sum = 1;
    for (double k = C; k >= 1 && term > sum * enough; k -= 1) {
        term *= k / (N - k + 1) * odds;
        sum += term;
    }
    return sum;
}

/// P(more than C) / term of C for a whole N, by the terms up from C + 1; right when C is above the mode.
double sumup(double N, double C, double p, double q) {
    const double odds = p / q;
    double term = (N - C) / (C + 1) * odds;
    double sum = term;
    for (double k = C + 1; k < N && term > sum * enough; k += 1) {
        term *= (N - k) / (k + 1) * odds;
        sum += term;
    }
    return sum;
}

/// The same for any N, where the sum of terms would not end: the series of I_p(C+1, N-C) whose terms are
/// all positive, DLMF 8.17.8. Its terms fall as p at last, so p must not be close to 1.
double seriesup(double N, double C, double p) {
    double term = (N - C) / (C + 1) * p;
    double sum = term;
    for (double n = 0; term > sum * enough * (1 - p); n += 1) {
        term *= p * (N + 1 + n) / (C + 2 + n);
        sum += term;
    }
    return sum;
}

/// Whole C with 0 <= C < N, 0 < p < 1, q = 1 - p.
Tails tails(double N, double C, double p, double q) {
    const double term = binomialterm(N, C, p, q);
    const bool whole = N == std::floor(N);
    if (C + 1 <= (N + 1) * p || (!whole && p > 0.99)) { // C lies below the mode
        const double below = std::min(1.0, term * sumdown(N, C, p, q));
        return {below, 1 - below};
    }
    const double above = std::min(1.0, term * (whole ? sumup(N, C, p, q) : seriesup(N, C, p)));
    return {1 - above, above};
}

/// From a million on a part of a trial is not worth the slower series.
double trials(double N) { return N > 1e6 ? std::floor(N) : N; }

bool istrials(double N) { return N > 0 && N <= mosttrials; }

Tails checkedtails(double N, double C, double p) {
    if (!(istrials(N) && C >= 0 && p >= 0 && p <= 1)) return {failedtail, failedtail};
    N = trials(N);
    C = std::floor(C);
    if (C >= N || p == 0) return {1, 0};
    if (p == 1) return {0, 1};
    return tails(N, C, p, 1 - p);
}

/// The function whose root is the logarithm of the odds p / (1 - p): ln(tail / target) for the smaller of
/// the two tails, rising with p. Nearly a straight line, however small the tail.
struct Excess {
    double N;
    double C;
    double conf;

    double operator()(double logodds) const {
        const double p = 1 / (1 + std::exp(-logodds));
        const double q = 1 / (1 + std::exp(logodds));
        const Tails at = tails(N, C, p, q);
        return conf <= 0.5 ? std::log(at.above / conf) : std::log((1 - conf) / at.below);
    }
};

struct Sample {
    double at;
    double value;
};

/// The root by false position, guarded by a bracket that always holds it; `passes` counts down.
double falseposition(const Excess& excess, Sample low, Sample high, int& passes) {
    constexpr double same = 4e-16;
    Sample last = low;
    Sample now = high;
    while (passes-- > 0) {
        double next = now.at - now.value * (now.at - last.at) / (now.value - last.value);
        if (!(next > low.at && next < high.at)) next = low.at + (high.at - low.at) / 2;
        last = now;
        now = {next, excess(next)};
        if (now.value == 0 || std::fabs(now.at - last.at) <= same * (1 + std::fabs(now.at))) return now.at;
        (now.value < 0 ? low : high) = now;
        if (high.at - low.at <= same * (1 + std::fabs(now.at))) return now.at;
        if (now.value == last.value) return now.at;
    }
    return now.at;
}

void solvep(BinomialPlan& plan) {
    constexpr int mostpasses = 200;
    const double C = std::floor(plan.C);
    const double N = trials(plan.N);
    const Excess excess{N, C, plan.conf};
    // Benard's median rank moved by the normal deviate is close, and two points about it usually hold the
    // root.
    const double events = C + 0.7;
    const double others = std::max(N - C - 0.3, 0.1);
    const double spread = std::sqrt(1 / events + 1 / others);
    const double start = std::log(events / others) + normquantile(plan.conf) * spread;
    double reach = 0.05 * spread;
    int passes = mostpasses;
    Sample low{start - reach, excess(start - reach)};
    Sample high{start + reach, excess(start + reach)};
    while (passes-- > 0 && low.value > 0) {
        high = low;
        low.at -= reach *= 2;
        low.value = excess(low.at);
    }
    while (passes-- > 0 && high.value < 0) {
        low = high;
        high.at += reach *= 2;
        high.value = excess(high.at);
    }
    plan.p = 1 / (1 + std::exp(-falseposition(excess, low, high, passes)));
    plan.truncated = passes < 0;
}

/// Doubles N until the confidence is reached, then halves the gap down to one trial.
double smallesttrials(double C, double conf, double p) {
    const auto reached = [&](double N) { return checkedtails(N, C, p).above >= conf; };
    double low = C;
    double high = C + 1;
    while (!reached(high)) {
        low = high;
        high *= 2;
        if (high > mosttrials) return failedtail;
    }
    while (high - low > 1) {
        const double middle = std::floor(low + (high - low) / 2);
        (reached(middle) ? high : low) = middle;
    }
    return high;
}

} // namespace

double binotail(double N, double C, double p) { return checkedtails(N, C, p).below; }

double binotailabove(double N, double C, double p) { return checkedtails(N, C, p).above; }

void binosolve(BinomialPlan& plan, BinomialUnknown unknown) {
    plan.certain = plan.truncated = false;
    const bool isC = plan.C >= 0 && plan.C <= mosttrials;
    const bool isconf = plan.conf > 0 && plan.conf < 1;
    switch (unknown) {
    case BinomialUnknown::C: plan.C = failedtail; return;
    case BinomialUnknown::conf:
        plan.conf = binotailabove(plan.N, plan.C, plan.p);
        if (plan.conf >= 0 && plan.conf < 1e-12) plan.conf = 0;
        return;
    case BinomialUnknown::N:
        if (isC && isconf && plan.p > 0 && plan.p <= 1)
            plan.N = smallesttrials(std::floor(plan.C), plan.conf, plan.p);
        else
            plan.N = failedtail;
        return;
    case BinomialUnknown::p: break;
    }
    plan.certain = std::floor(plan.C) == trials(plan.N);
    if (!(istrials(plan.N) && isC && plan.C <= plan.N && (isconf || plan.certain))) {
        plan.certain = false;
        plan.p = failedtail;
        return;
    }
    if (plan.certain)
        plan.p = 1;
    else
        solvep(plan);
}
