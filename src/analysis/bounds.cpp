#include "analysis/bounds.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "numeric/normal.h"
#include "numeric/sngguard.h"
#include "plot/ladder.h"
#include "session/session.h"

bool boundasked(BoundSide side) { return (side == BoundSide::low ? session.confLow : session.confHigh) > 0; }

int boundrow(int k, BoundSide side) {
    return static_cast<int>(rowofset(static_cast<float>(k))) - (side == BoundSide::low ? 2 : 1);
}

void clearbounds(int k) {
    for (const int j : {1, 2}) session.paramLow(k, j) = session.paramHigh(k, j) = noAnswer;
    session.setBoundLabel(k).clear();
    if (session.sg < 3) return;
    for (const BoundSide side : {BoundSide::low, BoundSide::high}) session.n(boundrow(k, side)) = 0;
}

bool boundvalue(double x) {
    const double size = std::fabs(x);
    if (x == 0) return session.negativeXAllowed == 1;
    return size > 9e-30 && size < 9e30; // false for what is not a number
}

void addbound(int k, BoundSide side, double x, double p) {
    const int row = boundrow(k, side);
    const auto m = static_cast<int>(session.n(row)) + 1;
    if (!boundvalue(x) || !std::isfinite(p) || m > static_cast<int>(session.maxPoints)) return;
    session.n(row) = static_cast<float>(m);
    session.X(row, m) = sngguard(x);
    session.Y(row, m) = sngguard(p);
}

std::span<const double> boundprobabilities() {
    static const std::vector<double> all = [] {
        constexpr double characteristic = 0.63212;
        std::vector<double> list{characteristic};
        for (const LadderTick& tick : ladder())
            if (tick.percent >= 1e-4) list.push_back(tick.percent / 100);
        std::sort(list.begin(), list.end());
        return list;
    }();
    return all;
}

std::span<const double> askedprobabilities() {
    if (session.confMethod < 0) return {&session.singleP, 1};
    return boundprobabilities();
}

double confidenceofside() {
    const double low = static_cast<double>(session.confLow) / 100;
    const double high = static_cast<double>(session.confHigh) / 100;
    double q = low > 0 ? high + 1 - low : high;
    if (low > 0 && high > 0) q /= 2;
    return q > 0 && q < 1 ? q : 0;
}

double fmzvalue() {
    const double q = confidenceofside();
    return q > 0 ? std::fabs(normquantile(q)) : 0;
}

void addbounds(int k, double p, const Limits& x) {
    const double t0 = session.t0(k);
    if (boundasked(BoundSide::low)) addbound(k, BoundSide::low, x.low + t0, p);
    if (boundasked(BoundSide::high)) addbound(k, BoundSide::high, x.high + t0, p);
}

void keepparameterbounds(int k, const Limits& eta, const Limits& beta) {
    if (boundasked(BoundSide::low)) {
        session.paramLow(k, 1) = eta.low;
        session.paramLow(k, 2) = beta.low;
    }
    if (!boundasked(BoundSide::high)) return;
    session.paramHigh(k, 1) = eta.high;
    session.paramHigh(k, 2) = beta.high;
}
