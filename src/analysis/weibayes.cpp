#include "analysis/weibayes.h"

#include <algorithm>
#include <cmath>

#include "analysis/notices.h"
#include "analysis/order.h"
#include "data/cell.h"
#include "numeric/chisquare.h"
#include "session/session.h"

namespace {

constexpr double exponentLimit = 700; ///< beyond, exp has no value
constexpr double smallestScale = 80;  ///< of ln(1/r) / beta
constexpr int16_t dauserForm = 3;

bool outsideconfidence(double percent) { return !(percent >= 0 && percent < 100); }

/// Age that a point stands for, on the data scale.
double ageof(int k, int j) {
    const double x = pointvalue(k, j);
    switch (session.pointTypes(k, j)) {
    case Disc: return x / 2;
    case Intv:
    case intvComplement: return (x + pointupper(k, j)) / 2;
    default: return x;
    }
}

/// Point of the last failure in order; 0 when there is none.
int lastfailure(int k) {
    for (int m = pointcount(k); m >= 1; --m)
        if (const int j = session.pointOrder(k, m); session.pointTypes(k, j) != Susp) return j;
    return 0;
}

void addpoints(WeibayesData& data, int k, int moved) {
    const double t0 = session.t0(k);
    for (int j = 1; j <= pointcount(k); ++j) {
        const bool suspended = session.pointTypes(k, j) == Susp;
        const double q = pointquantity(k, j);
        const double t = (j == moved ? session.LFAIL : ageof(k, j)) - t0;
        if (!suspended) data.failures += q;
        if (!suspended || t >= 0) data.sum.add(q, t);
    }
}

} // namespace

void WeibayesSum::add(double q, double t) {
    if (!(q > 0) || !(t > 0) || !(beta > 0)) {
        beta = 0;
        return;
    }
    const double term = beta * std::log(t) + std::log(q);
    if (!(term < exponentLimit)) {
        beta = 0;
        return;
    }
    if (empty) {
        logSum = term;
        empty = false;
        return;
    }
    const double larger = std::max(logSum, term);
    logSum = larger + std::log1p(std::exp(-std::fabs(logSum - term)));
    if (!(logSum < exponentLimit)) beta = 0;
}

double weibayesscale(double logSum, double beta, double r) {
    if (!(r > 0) || !(beta > 0) || -std::log(r) / beta >= smallestScale) return 0;
    const double eta = std::exp((logSum - std::log(r)) / beta);
    return std::isfinite(eta) ? eta : 0;
}

double weibayesfailures(double failures, double confidence) {
    if (failures > 0) return failures;
    if (confidence == 0) return 1;
    if (outsideconfidence(confidence)) confidence = 50;
    return -std::log1p(-confidence / 100);
}

double weibayeslimit(double logSum, double beta, double r, double confidence) {
    if (!(confidence > 0 && confidence < 100) || !std::isfinite(r)) return 0;
    return weibayesscale(logSum, beta, chi2inv(confidence / 100, 2 * std::max(r, 0.0) + 2) / 2);
}

WeibayesData weibayesdata(int k, double beta) {
    WeibayesData data{WeibayesSum(beta)};
    const int points = pointcount(k);
    const bool dauser = session.wbPlan == dauserForm;
    addpoints(data, k, dauser ? lastfailure(k) : 0);
    data.failures += session.wbFail;
    if (points == 0) return data;
    const double last = ageof(k, session.pointOrder(k, points));
    if (session.wbFail > 0) data.sum.add(session.wbFail, last - session.t0(k));
    if (session.wbSusp > 0) data.sum.add(session.wbSusp, (dauser ? session.RSUSP : last) - session.t0(k));
    return data;
}

void weibayescheck() {
    if (!(session.wbFail > 0)) session.wbFail = 0;
    if (!(session.wbSusp > 0) || session.wbFail > 0) session.wbSusp = 0;
    if (session.wbFail > 0 || outsideconfidence(session.wbConf)) session.wbConf = 50;
    if (session.wbPlan < 0 || session.wbPlan > dauserForm) session.wbPlan = 0;
}

bool weibayesadditions() { return session.wbFail > 0 || session.wbSusp > 0 || session.wbPlan == dauserForm; }

bool weibayesready(int k) {
    if (session.wbPlan != dauserForm) return true;
    if (session.LFAIL == noAnswer && lastfailure(k) > 0) {
        tellset(k, Word::No, " LFAIL ", Word::Additional, " (", Word::Occurrence, ") ", Word::Failure,
                " (X- ", Word::Quantity, " ?) ", Word::Value);
        return false;
    }
    if (session.RSUSP == noAnswer) {
        tellset(k, Word::No, " RSUSP ", Word::Additional, " (X- ", Word::Upper, ") ", Word::Value);
        return false;
    }
    return true;
}

void weibayescalc() {
    const int k = session.currentSet;
    session.eta = session.beta = 0;
    const WeibayesData data = weibayesdata(k, session.fixedSlope);
    if (!data.sum.valid()) return;
    const double r = weibayesfailures(data.failures, session.wbConf);
    session.eta = weibayesscale(data.sum.logarithm(), session.fixedSlope, r);
    if (session.eta > 0) session.beta = session.fixedSlope;
}
