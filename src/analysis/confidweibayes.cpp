#include "analysis/confidweibayes.h"

#include "analysis/bounds.h"
#include "analysis/weibayes.h"
#include "plot/transforms.h"
#include "session/session.h"

namespace {

/// Fills one curve; its eta, 0 for none.
double fillside(int k, BoundSide side, const WeibayesData& data, double percent) {
    const double beta = session.fixedSlope;
    const double eta = weibayeslimit(data.sum.logarithm(), beta, data.failures, 100 - percent);
    if (eta <= 0) return 0;
    const FamilyLine line{weibull, session.gumbeltype, eta, beta};
    for (const double p : askedprobabilities())
        addbound(k, side, quantileofp(line, p, false) + session.t0(k), p);
    return eta;
}

} // namespace

void confidweibayes() {
    const int k = session.currentSet;
    clearbounds(k);
    if (session.dist != weibull || session.fixedSlope <= 0 || session.setFitted(k) != 1) return;
    const WeibayesData data = weibayesdata(k, session.fixedSlope);
    if (!data.sum.valid()) return;
    const auto fill = [&](BoundSide side, float percent, Table<double>& limit) {
        if (!boundasked(side)) return;
        if (const double eta = fillside(k, side, data, percent); eta > 0) limit(k, 1) = eta;
    };
    fill(BoundSide::low, session.confLow, session.paramLow);
    fill(BoundSide::high, session.confHigh, session.paramHigh);
    session.setBoundLabel(k) = "wb";
}
