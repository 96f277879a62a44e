#include "analysis/confidnormal.h"

#include <cmath>

#include "analysis/bounds.h"
#include "analysis/notices.h"
#include "analysis/order.h"
#include "analysis/plotterms.h"
#include "data/methodlabels.h"
#include "numeric/chisquare.h"
#include "numeric/noncentralt.h"
#include "session/session.h"

namespace {

struct Sample {
    double n = 0, mean = 0, deviation = 0;
};

Sample sampleof(const std::vector<LifeTerm>& terms) {
    Sample sample;
    double squares = 0;
    for (const LifeTerm& term : terms) { // about the running mean: values far from zero keep their digits
        const double distance = term.low - sample.mean;
        sample.n += term.weight;
        sample.mean += distance * term.weight / sample.n;
        squares += term.weight * distance * (term.low - sample.mean);
    }
    sample.deviation = sample.n > 1 ? std::sqrt(squares / (sample.n - 1)) : 0;
    return sample;
}

/// Factors of the spread at its two sides.
Limits spreadfactors(double n) {
    constexpr double mostFreedom = 30000;
    const double freedom = 2 * n - 2;
    const double side = confidenceofside();
    if (freedom >= mostFreedom || side == 0) return {1, 1};
    return {std::sqrt(freedom / chi2inv(side, freedom)), std::sqrt(freedom / chi2inv(1 - side, freedom))};
}

/// The value below which the share p lies, with the confidence `percent` that it is not larger.
double curvebound(const Sample& sample, double p, double percent) {
    const double confidence = percent / 100;
    if (confidence >= 1) return std::nan("");
    return sample.mean + tolerancefactor(sample.n, p, confidence) * sample.deviation;
}

bool refused(int k) {
    const auto refuse = [k](const auto&... cause) {
        tellset(k, Word::No, " ", Word::Normal, " ", Word::Confidence, " ", Word::With, " ", cause...);
        return true;
    };
    if (session.dist != normal && session.dist != lognormal) return refuse(familyname(session.dist));
    if (groupedinput()) return refuse(Word::Grouped, " ", Word::Data);
    if (session.countSusp(k) > 0) return refuse(Word::Suspension);
    if (session.countDisc(k) > 0) return refuse(Word::Discovery);
    if (session.countIntv(k) > 0) return refuse(Word::Interval);
    return false;
}

double valueof(double y) { return session.dist == lognormal ? std::exp(y) : y; }

} // namespace

void confidnormal() {
    const int k = session.currentSet;
    if (refused(k)) return;
    const Sample sample = sampleof(plotterms(k, standardline(currentline())));
    if (!(sample.deviation > 0)) return;
    const double off = fmzvalue() * sample.deviation / std::sqrt(sample.n);
    const Limits factors = spreadfactors(sample.n);
    keepparameterbounds(k, {valueof(sample.mean - off), valueof(sample.mean + off)},
                        {valueof(sample.deviation * factors.low), valueof(sample.deviation * factors.high)});
    for (const double p : askedprobabilities()) {
        if (escaped()) return;
        const double low = boundasked(BoundSide::low) ? curvebound(sample, p, session.confLow) : 0;
        const double high = boundasked(BoundSide::high) ? curvebound(sample, p, session.confHigh) : 0;
        addbounds(k, p, {valueof(low), valueof(high)});
    }
}
