#include "analysis/lifeterms.h"

#include <algorithm>
#include <cmath>

#include "analysis/order.h"
#include "data/cell.h"
#include "session/session.h"

LifeTerm termofpoint(int k, int j) {
    static constexpr Known known[] = {Known::exactly, Known::above, Known::below, Known::between,
                                      Known::outside};
    const int type = std::clamp<int>(session.pointTypes(k, j), Occr, intvComplement);
    LifeTerm term{known[type], pointquantity(k, j), pointvalue(k, j) - session.t0(k), 0};
    if (type == Intv || type == intvComplement) term.high = pointupper(k, j) - session.t0(k);
    return term;
}

GroupedRows::GroupedRows(int set) : k(set), points(pointcount(set)), atRisk(session.countQuantity(set)) {}

bool GroupedRows::next(GroupedRow& row) {
    while (m < points) {
        const int j = session.pointOrder(k, ++m);
        row = {};
        row.x = pointvalue(k, j) - session.t0(k);
        const bool tells = session.inputType == km4     ? kaplanmeierrow(j, row)
                           : session.inputType == prbt3 ? percentrow(j, row)
                                                        : quantityrow(j, row);
        if (tells) return true;
    }
    return false;
}

bool GroupedRows::quantityrow(int j, GroupedRow& row) const {
    row.failed = std::max(0.0, std::floor(static_cast<double>(session.v1(k, j))));
    row.survived = std::max(0.0, std::floor(static_cast<double>(session.v2(k, j))) - row.failed);
    return true;
}

bool GroupedRows::percentrow(int j, GroupedRow& row) {
    const double share = session.v1(k, j) / 100.0;
    const double sample = std::max(0.0, std::floor(static_cast<double>(session.v2(k, j))));
    const double failed = std::round(share * sample);
    row.increment = m > 1;
    row.former = formerX;
    row.failed = std::max(0.0, failed - std::round(formerShare * sample));
    if (m == points) row.survived = std::max(0.0, sample - failed);
    formerX = row.x;
    formerShare = share;
    return true;
}

bool GroupedRows::kaplanmeierrow(int j, GroupedRow& row) {
    if (row.x != formerX) {
        atRisk -= leaving;
        leaving = 0;
        formerX = row.x;
    }
    const double q = std::max(0.0, std::floor(static_cast<double>(session.v1(k, j))));
    const double z = session.v2(k, j);
    const bool suspended = session.pointTypes(k, j) == Susp;
    leaving += (suspended ? q : 0) + (z > 0 && z < 1e9 ? std::floor(z) : 0);
    if (suspended || q < 1) return false;
    atRisk -= q;
    failedSoFar += q;
    row.failed = failedSoFar;
    row.survived = std::max(0.0, atRisk);
    return true;
}

double portionatrisk() {
    const double portion = session.popPortion;
    return portion > 0 && portion < 1 ? portion : 1;
}

double StandardLine::plotvalue(double x) const {
    if (!logarithmic) return x;
    return x > 0 ? std::log(x) : -HUGE_VAL;
}

StandardLine standardline(const FamilyLine& line) {
    const Shape extreme = line.extreme > 0 ? Shape::largest : Shape::smallest;
    switch (line.family) {
    case weibull: return {Shape::smallest, true, std::log(line.eta), 1 / line.beta};
    case lognormal: return {Shape::bell, true, std::log(line.eta), std::log(line.beta)};
    case normal: return {Shape::bell, false, line.eta, line.beta};
    default: return {extreme, false, line.eta, line.beta};
    }
}

FamilyLine familyline(int16_t family, int16_t extreme, double location, double scale) {
    switch (family) {
    case weibull: return {family, extreme, std::exp(location), 1 / scale};
    case lognormal: return {family, extreme, std::exp(location), std::exp(scale)};
    default: return {family, extreme, location, scale};
    }
}
