#include "analysis/loglik.h"

#include <cmath>

#include "analysis/biascorrection.h"
#include "analysis/notices.h"
#include "analysis/order.h"
#include "data/cell.h"
#include "session/session.h"

namespace {

bool isline(const StandardLine& line) {
    return line.scale > 0 && std::isfinite(line.scale) && std::isfinite(line.location);
}

/// A probability that a number can hold: that of a row is 0 below.
bool holdsprobability(double logarithm) { return std::exp(logarithm) > 0; }

/// True when a row has a probability at both sides of its value.
bool inside(const StandardLine& line, double x) {
    const bool valued = x > 0 || negativedata();
    const double z = line.z(x);
    return valued && holdsprobability(logbelow(line.shape, z)) && holdsprobability(logabove(line.shape, z));
}

/// ln of the probability or density of x itself. Minus infinity for none at all; far out in a tail it stays
/// what it is long after the probability has become too small for a number.
double logofterm(const StandardLine& line, const LifeTerm& term, double portion) {
    const bool interval = term.known == Known::between || term.known == Known::outside;
    const double a = line.z(term.low);
    const double b = interval ? line.z(term.high) : 0;
    const double logarithm = logterm(line.shape, term.known, a, b, portion);
    if (term.known != Known::exactly) return logarithm;
    return logarithm - std::log(line.scale) - (line.logarithmic ? line.plotvalue(term.low) : 0);
}

void tellloglykerror() {
    if (session.loglykErrorTold == 1) return;
    session.loglykErrorTold = 1;
    tellset(session.currentSet, "Loglyk ", Word::Error);
}

void tellminimum() {
    if (session.minimumTold == 1 || session.lineHide(session.currentSet) != 0) return;
    session.minimumTold = 1;
    tellset(session.currentSet, Word::Minimum, " ", Word::Likelihood);
}

double sumofweibull(const FamilyLine& line, int k) {
    const StandardLine standard = standardline(line);
    const int points = pointcount(k);
    double sum = 0;
    for (int j = 1; j <= points; ++j) {
        const LifeTerm term = termofpoint(k, j);
        if (term.known == Known::above) {
            if (term.low == 0 || line.eta == 0) tellloglykerror();
            sum += term.weight * weibullsuspensionlog(line, term.low);
        } else if (term.known == Known::exactly) {
            sum += term.weight * weibullfailurelog(line, term.low);
        } else {
            sum += term.weight * logcontribution(standard, term, 1);
        }
    }
    return sum;
}

double sumofpoints(const FamilyLine& line, int k, double portion) {
    if (line.family == weibull && portion == 1) return sumofweibull(line, k);
    const StandardLine standard = standardline(line);
    const int points = pointcount(k);
    double sum = 0;
    for (int j = 1; j <= points; ++j) {
        const LifeTerm term = termofpoint(k, j);
        sum += term.weight * logcontribution(standard, term, portion);
    }
    return sum;
}

double sumofrows(const FamilyLine& line, int k, double portion) {
    const StandardLine standard = standardline(line);
    GroupedRows rows(k);
    double sum = 0;
    for (GroupedRow row; rows.next(row);) sum += groupedrowlog(standard, row, portion);
    return sum;
}

/// Slopes in location and in one over the scale, about the location: there the terms keep their digits
/// however far the data lie from zero.
struct LineSlopes {
    double location = 0, rate = 0;

    void add(const StandardLine& line, const LifeTerm& term, double portion) {
        const double a = line.z(term.low);
        const double b = term.known == Known::between || term.known == Known::outside ? line.z(term.high) : 0;
        if (term.weight == 0 || !std::isfinite(b)) return;
        LifeTerm known = term;
        if (std::isinf(a) && term.known == Known::between) { // from below the scale: a discovery
            known.known = Known::below;
            addslopes(line, known, b, 0, portion);
        } else if (std::isfinite(a)) {
            addslopes(line, known, a, b, portion);
        }
    }

private:
    void addslopes(const StandardLine& line, const LifeTerm& term, double a, double b, double portion) {
        const TermSlopes slopes = slopesofterm(line.shape, term.known, a, b, portion);
        if (!std::isfinite(slopes.a) || !std::isfinite(slopes.b)) return;
        const double exact = term.known == Known::exactly ? 1 : 0;
        location -= term.weight * (slopes.a + slopes.b) / line.scale;
        rate += term.weight * (slopes.a * a + slopes.b * b + exact) * line.scale;
    }
};

LineSlopes slopesofset(const StandardLine& line, int k, double portion) {
    LineSlopes slopes;
    if (groupedinput()) {
        GroupedRows rows(k);
        for (GroupedRow row; rows.next(row);) {
            slopes.add(line, row.failures(), portion);
            slopes.add(line, row.survivors(), portion);
        }
        return slopes;
    }
    const int points = pointcount(k);
    for (int j = 1; j <= points; ++j) slopes.add(line, termofpoint(k, j), portion);
    return slopes;
}

/// The line in the registers without the bias correction that it may carry.
FamilyLine uncorrectedline() {
    FamilyLine line = currentline();
    if (session.setCorrected(session.currentSet) == 1) line = uncorrected(line, currentcorrection());
    return line;
}

} // namespace

double logcontribution(const StandardLine& line, const LifeTerm& term, double portion) {
    if (!isline(line)) return nothingLog;
    const double logarithm = logofterm(line, term, portion);
    return std::isfinite(logarithm) ? logarithm : nothingLog;
}

double weibullfailurelog(const FamilyLine& line, double x) {
    if (x <= 0 || line.eta <= 0) return nothingLog;
    const double distance = std::log(x) - std::log(line.eta);
    const double exponent = line.beta * distance;
    const double power = exponent < 690 ? std::exp(exponent) : 0;
    return exponent - std::log(x) + std::log(line.beta) - power;
}

double weibullsuspensionlog(const FamilyLine& line, double x) {
    if (x < 0) return 0; // suspended below the threshold: nothing could fail yet
    const bool zero = x == 0 || line.eta == 0;
    const double exponent = line.beta * (zero ? 700 : std::log(x / std::fabs(line.eta)));
    if (exponent >= 80) return -9e30;
    return exponent <= -80 ? -9e-30 : -std::exp(exponent);
}

double groupedrowlog(const StandardLine& line, const GroupedRow& row, double portion) {
    if (!isline(line) || !inside(line, row.x)) return badRowLogLik;
    double sum = 0;
    for (const LifeTerm& term : {row.failures(), row.survivors()}) {
        if (term.weight == 0) continue;
        const double logarithm =
            logterm(line.shape, term.known, line.z(term.low), line.z(term.high), portion);
        if (!holdsprobability(logarithm)) return badRowLogLik;
        sum += term.weight * logarithm;
    }
    return sum;
}

void loglyk() {
    session.logLik = 0;
    const FamilyLine line = uncorrectedline();
    if (!(line.beta > 0)) return;
    const int k = session.currentSet;
    const double portion = portionatrisk();
    const double sum = groupedinput() ? sumofrows(line, k, portion) : sumofpoints(line, k, portion);
    if (pointcount(k) > 0 && std::isfinite(sum)) {
        session.logLik = sum;
        return;
    }
    session.logLik = noLogLik;
    tellminimum();
}

double trueloglik() {
    const StandardLine line = standardline(uncorrectedline());
    const int k = session.currentSet;
    if (!isline(line) || pointcount(k) == 0) return noLogLik;
    const double portion = portionatrisk();
    double sum = 0;
    const auto add = [&](const LifeTerm& term) {
        if (term.weight > 0) sum += term.weight * logofterm(line, term, portion);
    };
    if (groupedinput()) {
        GroupedRows rows(k);
        for (GroupedRow row; rows.next(row);) {
            add(row.failures());
            add(row.survivors());
        }
    } else {
        const int points = pointcount(k);
        for (int j = 1; j <= points; ++j) add(termofpoint(k, j));
    }
    return std::isfinite(sum) ? sum : noLogLik;
}

void loglykderivative() {
    session.dLdEta = session.dLdBeta = 0;
    const FamilyLine family = uncorrectedline();
    const StandardLine line = standardline(family);
    if (!isline(line)) return;
    const LineSlopes slopes = slopesofset(line, session.currentSet, portionatrisk());
    const double rateSquared = 1 / (line.scale * line.scale);
    session.dLdEta = line.logarithmic ? slopes.location / family.eta : slopes.location;
    switch (family.family) {
    case weibull: session.dLdBeta = slopes.rate; break;
    case lognormal: session.dLdBeta = -slopes.rate * rateSquared / family.beta; break;
    default: session.dLdBeta = -slopes.rate * rateSquared; break;
    }
}
