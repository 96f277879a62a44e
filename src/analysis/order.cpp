#include "analysis/order.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>

#include "data/cell.h"
#include "numeric/sngguard.h"
#include "plot/transforms.h"
#include "session/session.h"

namespace {

bool isinterval(int16_t type) { return type == Intv || type == intvComplement; }

/// Where an interval stands. One that begins at or below 0 has no lower place on a logarithmic axis: like a
/// discovery it is known only to have failed before its upper end, and stands there.
double middle(double lower, double upper) {
    const bool logarithmic = session.dist == weibull || session.dist == lognormal;
    if (logarithmic && lower <= 0) return plotxofx(session.dist, upper);
    return (plotxofx(session.dist, lower) + plotxofx(session.dist, upper)) / 2;
}

/// Value by which a point is ordered: an interval where the regression will place it.
float orderingvalue(int k, int j) {
    if (!isinterval(session.pointTypes(k, j))) return static_cast<float>(pointvalue(k, j));
    return sngguard(xofplotx(session.dist, middle(pointvalue(k, j), pointupper(k, j))));
}

void decodeset(int k, int points) {
    const int i = static_cast<int>(rowofset(static_cast<float>(k)));
    const auto x = session.X.row(i);
    const auto z = session.v2.row(k);
    for (int j = 1; j <= points; ++j) {
        session.xyz = x[j];
        session.xyz2 = z[j];
        session.pointTypes(k, j) = static_cast<int16_t>(pointclassify(false, k));
    }
}

/// Failures and suspensions of a grouped row: what its Q and Z stand for depends on the input type.
void countgrouped(int k, int points, double& occr, double& susp) {
    const bool sameSample = session.inputType != km4 && session.groupingOption != 2;
    for (int j = 1; j <= points; ++j) {
        const double z = session.v2(k, j);
        const double sample = z > 0 && z < 1e9 ? std::floor(z) : 0;
        const double q = std::max(0.0, static_cast<double>(session.v1(k, j)));
        if (session.inputType == km4) {
            (session.pointTypes(k, j) == Susp ? susp : occr) += std::floor(q);
            susp += sample;
            continue;
        }
        const double failed = session.inputType == prbt3 ? std::round(q / 100 * sample) : std::floor(q);
        const double survived = std::max(0.0, sample - failed);
        if (!sameSample) {
            occr += failed;
            susp += survived;
        } else if (failed >= occr) {
            occr = failed;
            susp = survived;
        }
    }
}

void countset(int k, int points) {
    double counts[5] = {};
    if (groupedinput()) {
        countgrouped(k, points, counts[Occr], counts[Susp]);
    } else {
        for (int j = 1; j <= points; ++j) counts[session.pointTypes(k, j)] += pointquantity(k, j);
    }
    session.countOccr(k) = counts[Occr];
    session.countSusp(k) = counts[Susp];
    session.countDisc(k) = counts[Disc];
    session.countIntv(k) = counts[Intv] + counts[intvComplement];
    session.countQuantity(k) =
        counts[Occr] + counts[Susp] + counts[Disc] + counts[Intv] + counts[intvComplement];
}

/// Mean value of the occurrences, an interval at its middle, and the sum of all values. Grouped rows tell
/// how many had failed by a value, not at which: they have neither.
void meanset(int k, int points) {
    session.occurrenceMean(k) = noAnswer;
    session.timeTotal(k) = 0;
    if (groupedinput()) return;
    double occurred = 0;
    double sum = 0;
    double total = 0;
    for (int j = 1; j <= points; ++j) {
        const bool interval = isinterval(session.pointTypes(k, j));
        const double value = interval ? (pointvalue(k, j) + pointupper(k, j)) / 2 : pointvalue(k, j);
        const double q = pointquantity(k, j);
        total += q * value;
        if (session.pointTypes(k, j) == Susp) continue;
        sum += q * value;
        occurred += q;
    }
    if (occurred > 0) session.occurrenceMean(k) = sum / occurred;
    session.timeTotal(k) = total;
}

/// Place of a point in the order as one number: its value, then failures before suspensions, then the order
/// of entry. The bits of a positive float rise with its value; those of a negative one are turned round.
uint64_t orderkey(float value, bool suspended, int j) {
    const auto bits = std::bit_cast<uint32_t>(value + 0.0f); // one zero, not two
    const uint32_t rising = bits & 0x80000000u ? ~bits : bits | 0x80000000u;
    return uint64_t{rising} << 32 | (suspended ? 0x80000000u : 0u) | static_cast<uint32_t>(j);
}

int indexin(uint64_t key) { return static_cast<int>(key & 0x7FFFFFFFu); }

} // namespace

bool groupedinput() {
    return session.inputType < 0 || (session.inputType >= prbt2 && session.inputType <= km4);
}

double pointupper(int k, int j) { return session.v2(k, j); }

void orderset(int k) {
    const int points = pointcount(k);
    decodeset(k, points);
    countset(k, points);
    meanset(k, points);
    auto& keys = session.orderKeys;
    for (int j = 1; j <= points; ++j)
        keys(j) = orderkey(orderingvalue(k, j), session.pointTypes(k, j) == Susp, j);
    const auto first = keys.begin() + 1;
    const auto last = first + points;
    if (!std::is_sorted(first, last)) std::sort(first, last);
    for (int m = 1; m <= points; ++m) session.pointOrder(k, m) = indexin(keys(m));
}

void placepoints(int k) {
    const int points = pointcount(k);
    const double t0 = session.t0(k);
    session.setPlaced(k) = 1;
    for (int j = 1; j <= points; ++j) {
        const double value = pointvalue(k, j) - t0;
        session.pointPlotX(k, j) = isinterval(session.pointTypes(k, j)) ? middle(value, pointupper(k, j) - t0)
                                                                        : plotxofx(session.dist, value);
    }
}
