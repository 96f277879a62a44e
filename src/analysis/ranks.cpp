#include "analysis/ranks.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "analysis/order.h"
#include "data/cell.h"
#include "numeric/binomial.h"
#include "numeric/sngguard.h"
#include "session/session.h"

namespace {

/// Exact median rank of whole rank r: at most r - 1 events in N with probability one half.
double medianrank(double N, double r) {
    BinomialPlan plan;
    plan.N = N;
    plan.C = r - 1;
    plan.conf = 0.5;
    binosolve(plan, BinomialUnknown::p);
    return plan.p;
}

double binomialposition(double N, double r) {
    const double whole = std::floor(r);
    const double fraction = r - whole;
    const double low = medianrank(N, whole);
    return fraction == 0 ? low : (1 - fraction) * low + fraction * medianrank(N, whole + 1);
}

/// The last unit of a sample of N may not stand at 100 percent.
double lastunit(double N) { return 0.9 + 0.1 * (N - 1) / N; }

double kaplanmeierposition(double N, double r) {
    const double p = r / N;
    return p == 1 && r >= 1 ? 0.9 + 0.1 * (r - 1) / N : p;
}

void positionkaplanmeier(int k, int i, int points) {
    double atRisk = session.countQuantity(k);
    double survival = 1;
    double leaving = 0; // suspended at `age`: at risk for every failure there, whatever row it stands in
    double age = 0;
    for (int m = 1; m <= points; ++m) {
        const int j = session.pointOrder(k, m);
        if (const double x = pointvalue(k, j); x != age) {
            atRisk -= std::exchange(leaving, 0);
            age = x;
        }
        const double q = std::max(0.0, std::floor(static_cast<double>(session.v1(k, j))));
        const double z = session.v2(k, j);
        const bool suspended = session.pointTypes(k, j) == Susp;
        const double failed = suspended ? 0 : q;
        const double left = (suspended ? q : 0) + (z > 0 && z < 1e9 ? std::floor(z) : 0);
        if (failed > 0 && atRisk > 0) survival *= 1 - failed / atRisk;
        atRisk -= failed;
        leaving += left;
        session.Y(i, j) = sngguard(survival > 0 ? 1 - survival : lastunit(session.countQuantity(k)));
    }
}

} // namespace

double plotposition(int method, double N, double r, double portion, double supplied) {
    double p;
    switch (method) {
    case binomialRank: p = binomialposition(N, r); break;
    case meanRank: p = r / (N + 1); break;
    case hazenRank: p = (r - 0.5) / N; break;
    case blomRank: p = (r - 0.375) / (N + 0.25); break;
    case kaplanMeierRank: p = kaplanmeierposition(N, r); break;
    case suppliedRank: p = supplied; break;
    default: p = (r - 0.3) / (N + 0.4); break;
    }
    return portion > 0 && portion < 1 ? p / portion : p;
}

void regresscalcwmainplotpos(double N, double r, double& result) {
    result = plotposition(static_cast<int>(session.rankMethod), N, r, session.popPortion, result);
}

void positiongrouped(int k) {
    const int points = pointcount(k);
    const int i = static_cast<int>(rowofset(static_cast<float>(k)));
    if (session.inputType == km4) {
        positionkaplanmeier(k, i, points);
        return;
    }
    for (int j = 1; j <= points; ++j) {
        const double q = session.v1(k, j);
        const double sample = session.v2(k, j);
        const double p = session.inputType == prbt3 ? q / 100 : q / sample;
        session.Y(i, j) = sngguard(p);
    }
}
