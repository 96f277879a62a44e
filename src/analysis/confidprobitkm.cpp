#include "analysis/confidprobitkm.h"

#include <algorithm>
#include <cmath>

#include "analysis/bounds.h"
#include "analysis/lifeterms.h"
#include "analysis/notices.h"
#include "data/cell.h"
#include "numeric/normal.h"
#include "session/session.h"

namespace {

constexpr double leastProbability = 1e-6;

void boundrowof(double x, double p, double s) {
    const int k = session.currentSet;
    for (const BoundSide side : {BoundSide::low, BoundSide::high}) {
        if (!boundasked(side)) continue;
        const double percent = side == BoundSide::low ? session.confLow : session.confHigh;
        if (percent >= 100) continue;
        const double bound = p + normquantile(percent / 100) * s;
        addbound(k, side, x, std::clamp(bound, leastProbability, 1 - leastProbability));
    }
}

void boundprobit(int k) {
    const auto row = static_cast<int>(rowofset(static_cast<float>(k)));
    for (int m = 1; m <= pointcount(k) && !escaped(); ++m) {
        const int j = session.pointOrder(k, m);
        const double sample = session.v2(k, j);
        const double p = session.Y(row, j);
        if (p > 0 && p < 1 && sample > 0) boundrowof(pointvalue(k, j), p, std::sqrt(p * (1 - p) / sample));
    }
}

void boundkaplanmeier(int k) {
    GroupedRows rows(k);
    double survival = 1;
    double sum = 0;
    double former = 0;
    for (GroupedRow row; rows.next(row) && !escaped();) {
        const double failed = row.failed - former; // row.failed counts from the first row
        const double atRisk = row.survived + failed;
        former = row.failed;
        if (!(failed > 0 && atRisk > failed)) continue;
        survival *= 1 - failed / atRisk;
        sum += failed / (atRisk * (atRisk - failed));
        boundrowof(row.x + static_cast<double>(session.t0(k)), 1 - survival, survival * std::sqrt(sum));
    }
}

} // namespace

void confidprobitkm() {
    if (session.inputType == km4)
        boundkaplanmeier(session.currentSet);
    else
        boundprobit(session.currentSet);
}
