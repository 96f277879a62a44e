#include "analysis/confidweibayes.h"

#include <cmath>

#include "analysis/bounds.h"
#include "analysis/lifeterms.h"
#include "analysis/notices.h"
#include "analysis/weibayes.h"
#include "data/methodlabels.h"
#include "data/numbertext.h"
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

/// The sum is that of a Weibull line; and it knows no units that never fail. Told.
bool refused(int k) {
    const auto refuse = [k](const auto&... cause) {
        tellset(k, Word::No, " Weibayes ", Word::Confidence, " ", Word::With, " ", cause...);
        return true;
    };
    if (session.dist != weibull) return refuse(familyname(session.dist));
    if (portionatrisk() < 1) return refuse("tP%=", std::round(session.popPortion * 1000.0) / 10);
    return false;
}

} // namespace

void confidweibayes() {
    const int k = session.currentSet;
    clearbounds(k);
    if (session.fixedSlope <= 0 || session.setFitted(k) != 1 || refused(k)) return;
    const WeibayesData data = weibayesdata(k, session.fixedSlope);
    if (!data.sum.valid()) {
        session.calcError = 1;
        return;
    }
    const auto fill = [&](BoundSide side, float percent, Table<double>& limit) {
        if (!boundasked(side)) return;
        if (const double eta = fillside(k, side, data, percent); eta > 0) limit(k, 1) = eta;
    };
    fill(BoundSide::low, session.confLow, session.paramLow);
    fill(BoundSide::high, session.confHigh, session.paramHigh);
    session.setBoundLabel(k) = "wb";
}
