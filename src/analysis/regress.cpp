#include "analysis/regress.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "analysis/notices.h"
#include "analysis/order.h"
#include "analysis/ranks.h"
#include "data/cell.h"
#include "numeric/sngguard.h"
#include "plot/transforms.h"
#include "session/session.h"
#include "shell/prompts.h"

namespace {

constexpr double bigValue = 50000;    ///< from here on a set at rr goes by group
constexpr double bigQuantity = 1e6;   ///< and from this many units
constexpr double unitLimit = 1 << 24; ///< beyond this a single can no longer count units one by one
constexpr int unitsBetweenEvents = 8192;
constexpr float highestShown = 0.999999f;
constexpr float lowestShown = 1e-29f;

/// Ranks are carried in double precision: in single precision the running rank of a large censored sample
/// drifts by up to a percent, because each gain is rounded to the spacing of the rank itself.
struct Walk {
    int k, i, points;
    double N;     ///< units in the sample
    double c = 0; ///< units passed
    double r = 0; ///< running adjusted rank
};

Walk startwalk() {
    const int k = session.currentSet;
    session.sums = {};
    session.sums.rows = pointcount(k);
    return {k, static_cast<int>(rowofset(static_cast<float>(k))), pointcount(k), session.countQuantity(k)};
}

double ploty(double p) { return plotyofp(session.dist, session.gumbeltype, p); }

bool issuspended(int16_t type) { return type == Susp || type == intvComplement; }

constexpr double offAxis = 30; ///< what the probability scale answers for p <= 0 and p >= 1

/// The sums with their origin chosen, ready to take points at plot X x.
RegressionSums sumsat(double x) {
    RegressionSums sums = session.sums;
    if (sums.n == 0) sums.originX = x;
    return sums;
}

/// Adds one point, its x counted from the origin.
void addpoint(RegressionSums& sums, double weight, double x, double y) {
    sums.n += weight;
    sums.Sx += weight * x;
    sums.Sxx += weight * x * x;
    sums.Sy += weight * y;
    sums.Syy += weight * y * y;
    sums.Sxy += weight * x * y;
    sums.prevX = x;
    sums.prevY = y;
    sums.prevWeight = weight;
}

/// Takes new sums into the session, unless a point was too big for them.
void keepsums(const RegressionSums& sums) {
    if (std::isfinite(sums.Sxx) && std::isfinite(sums.Syy) && std::isfinite(sums.Sxy)) session.sums = sums;
}

/// What the plot and the report show of a point: its position, kept on the axis, and its mean rank.
void show(const Walk& walk, int j, double position, double rank) {
    float shown = sngguard(position);
    if (shown >= 1) shown = highestShown;
    if (shown <= 0) shown = lowestShown;
    session.Y(walk.i, j) = shown;
    session.plotRank(walk.i, j) = sngguard(rank);
}

/// A suspension takes no rank and adds nothing to the sums; it is shown at the rank the next failure would
/// have, at the middle of its units.
void passsuspension(Walk& walk, int j, double q) {
    if (session.pointTypes(walk.k, j) == Susp) ++session.sums.suspLines;
    const double first = walk.r + rankincrement(walk.N, walk.c, walk.r);
    const double last = walk.r + rankincrement(walk.N, walk.c + q - 1, walk.r);
    const double rank = (first + last) / 2;
    walk.c += q;
    double position = 0;
    regresscalcwmainplotpos(walk.N, rank, position);
    show(walk, j, position, rank);
}

/// Ranks the units of one failure row one by one. Of an inspection row only the last unit counts.
void rankunits(Walk& walk, int j, double q) {
    const double x = session.pointPlotX(walk.k, j);
    const bool inspection = session.inputType == insp1;
    RegressionSums sums = sumsat(x);
    double rankSum = 0;
    double pSum = 0;
    double p = 0;
    for (double unit = 0; unit < q; ++unit) {
        if (static_cast<int>(walk.c) % unitsBetweenEvents == unitsBetweenEvents - 1 && escaped()) return;
        walk.r += rankincrement(walk.N, walk.c, walk.r);
        walk.c += 1;
        rankSum += walk.r;
        regresscalcwmainplotpos(walk.N, walk.r, p);
        pSum += p;
        if (inspection) continue;
        if (const double y = ploty(p); y != offAxis) addpoint(sums, 1, x - sums.originX, y);
    }
    if (inspection) {
        regressaccum(1, x, ploty(p));
        show(walk, j, p, walk.r);
    } else {
        keepsums(sums);
        show(walk, j, pSum / q, rankSum / q);
    }
}

/// Ranks one failure row as a group of q ties: new rank r0 + q d, sum of ranks q r0 + d q (q + 1) / 2.
void rankgroup(Walk& walk, int j, double q) {
    const double d = rankincrement(walk.N, walk.c, walk.r);
    const double mean = walk.r + d * (q + 1) / 2;
    walk.r += q * d;
    walk.c += q;
    const double rank = session.inputType == insp1 ? walk.r : mean;
    double p = 0;
    regresscalcwmainplotpos(walk.N, rank, p);
    regressaccum(q, session.pointPlotX(walk.k, j), ploty(p));
    show(walk, j, p, rank);
}

/// Probit and Kaplan-Meier rows take no ranks: each stands at its own position with weight 1.
void walkgrouped(const Walk& walk) {
    positiongrouped(walk.k);
    for (int m = 1; m <= walk.points && session.calcError == 0; ++m) {
        const int j = session.pointOrder(walk.k, m);
        const double p = session.Y(walk.i, j);
        const bool suspensionsAlone = session.inputType == km4 && session.v1(walk.k, j) < 1;
        if (issuspended(session.pointTypes(walk.k, j)) || suspensionsAlone) {
            ++session.sums.suspLines;
            show(walk, j, p, 0);
        } else if (p > 0 && p < 1) {
            regressaccum(1, session.pointPlotX(walk.k, j), ploty(p));
        } else {
            tellbadrow(walk.k, j);
            session.calcError = 1;
        }
    }
}

/// One walk over the points in order; `rank` ranks the units of a failure row.
template <class Rank>
void walkranks(Walk& walk, Rank rank) {
    for (int m = 1; m <= walk.points && session.abortCode != escapePressed; ++m) {
        const int j = session.pointOrder(walk.k, m);
        const double q = pointquantity(walk.k, j);
        if (issuspended(session.pointTypes(walk.k, j)))
            passsuspension(walk, j, q);
        else
            rank(walk, j, q);
    }
}

double biggestvalue(int k) {
    double biggest = 0;
    for (int j = pointcount(k); j >= 1; --j) {
        biggest = std::max(biggest, pointvalue(k, j));
        if (session.pointTypes(k, j) == Intv) biggest = std::max(biggest, pointupper(k, j));
    }
    return biggest;
}

} // namespace

void regressaccum(double weight, double x, double y) {
    if (y == offAxis) return;
    RegressionSums sums = sumsat(x);
    x -= sums.originX;
    if (session.inputType == insp1 && sums.n > 0 && x == sums.prevX)
        addpoint(sums, -sums.prevWeight, x, sums.prevY);
    addpoint(sums, weight, x, y);
    keepsums(sums);
}

void regresscalcw0() {
    Walk walk = startwalk();
    if (groupedinput()) {
        walkgrouped(walk);
    } else if (walk.N > unitLimit) {
        tellset(walk.k, Word::Total, " ", Word::Quantity, " ", Word::Too, " ", Word::Big);
        session.calcError = 1;
    } else {
        walkranks(walk, rankunits);
    }
}

void regresscalcwfreq() {
    Walk walk = startwalk();
    walkranks(walk, rankgroup);
}

void regresspositions() {
    if (groupedinput() || session.countQuantity(session.currentSet) < bigQuantity)
        regresscalcw0();
    else
        regresscalcwfreq();
}

void regressselect() {
    const int k = session.currentSet;
    const bool small = biggestvalue(k) < bigValue && session.countQuantity(k) < bigQuantity;
    if (session.fitMethod != rankRegression || small || groupedinput()) {
        regresscalcw0();
        return;
    }
    if (session.inputType == standard0) {
        tellset(k, Word::Big, " ", Word::Data, " ... ", Word::Change, " ", Word::Automatic, " ", Word::Method,
                " ", Word::To, " \"1 ", Word::Inspect, "\"");
        session.inputType = insp1;
    }
    regresscalcwfreq();
}
