#include "analysis/confidbino.h"

#include <cmath>

#include "analysis/bounds.h"
#include "analysis/lifeterms.h"
#include "analysis/notices.h"
#include "numeric/binomial.h"
#include "plot/transforms.h"
#include "session/session.h"

namespace {

double wholerank(double N, double events, double confidence) {
    BinomialPlan plan;
    plan.N = N;
    plan.C = events;
    plan.conf = confidence;
    binosolve(plan, BinomialUnknown::p);
    if (plan.truncated || plan.p == failedtail) session.calcError = -1;
    return plan.p == failedtail ? std::nan("") : plan.p;
}

double rankat(double N, double r, double confidence) {
    const double whole = std::floor(r);
    const double low = wholerank(N, whole, confidence);
    return r > whole ? (whole + 1 - r) * low + (r - whole) * wholerank(N, whole + 1, confidence) : low;
}

/// Where a point stands on the data scale.
double placeof(int k, int j) {
    return xofplotx(session.dist, session.pointPlotX(k, j)) + static_cast<double>(session.t0(k));
}

void boundpoint(int k, int j, BoundSide side, double confidence) {
    if (!(confidence > 0 && confidence < 1)) return;
    const auto row = static_cast<int>(rowofset(static_cast<float>(k)));
    const double N = session.countQuantity(k);
    const double r = session.plotRank(row, j) - 1;
    if (!(r >= 0 && r < N)) return;
    const double p = rankat(N, r, confidence) / portionatrisk();
    if (p > 0 && p < 1) addbound(k, side, placeof(k, j), p);
}

} // namespace

void confidbino() {
    const int k = session.currentSet;
    const auto row = static_cast<int>(rowofset(static_cast<float>(k)));
    const bool single = session.confMethod < 0;
    for (int m = 1; m <= pointcount(k); ++m) {
        if (escaped()) return;
        const int j = session.pointOrder(k, m);
        const int type = session.pointTypes(k, j);
        if (type == Susp || type == Disc) continue;
        if (single) {
            boundpoint(k, j, BoundSide::high, session.Y(row, j));
            continue;
        }
        if (boundasked(BoundSide::low))
            boundpoint(k, j, BoundSide::low, static_cast<double>(session.confLow) / 100);
        if (boundasked(BoundSide::high))
            boundpoint(k, j, BoundSide::high, static_cast<double>(session.confHigh) / 100);
    }
}
