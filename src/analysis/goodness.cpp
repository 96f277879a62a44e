#include "analysis/goodness.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "analysis/lifeterms.h"
#include "analysis/notices.h"
#include "analysis/order.h"
#include "data/cell.h"
#include "numeric/sngguard.h"
#include "session/session.h"

namespace {

constexpr double noMeasure = -9e30; ///< value of a measure that was not taken
constexpr double smallestExtremeThreshold = 1e-16, smallestBellThreshold = 1e-6;

bool extremefamily(int family) { return family == weibull || family == gumbel; }

/// Every point as a value of its own: no intervals, no discoveries, no grouped rows.
bool singlevalues(int k) { return !groupedinput() && session.countIntv(k) == 0 && session.countDisc(k) == 0; }

bool adpossible(int k) {
    const double total = session.countQuantity(k);
    if (total == 0) {
        tellset(k, Word::Set, " ", Word::Quantity, " = 0");
        return false;
    }
    if (session.countSusp(k) > 0) {
        tellset(k, "Susp > 0 ... ", Word::Standard, " Anderson-Darling ", Word::Not, " ", Word::For, " ",
                Word::Suspension);
        return false;
    }
    if (total > session.maxPoints) {
        tellset(k, Word::Total, " ... > ", session.maxPoints, " ... ", Word::View, " ", Word::Setup);
        return false;
    }
    return singlevalues(k);
}

/// The values of the set in order, each as often as its quantity says, less the threshold.
std::vector<double> valuesinorder(int k) {
    std::vector<double> values;
    values.reserve(static_cast<std::size_t>(session.countQuantity(k)));
    for (int m = 1; m <= pointcount(k); ++m) {
        const int j = session.pointOrder(k, m);
        values.insert(values.end(), static_cast<std::size_t>(pointquantity(k, j)),
                      pointvalue(k, j) - session.t0(k));
    }
    return values;
}

/// What the measure in force makes of the set.
double measure(int k, double rSquared) {
    if (session.progSide == visualSide || session.fitMeasure == 1) return rSquared - session.cccSquared(k);
    if (session.fitMeasure == 2) return session.pvePercent(k);
    return session.fitMeasure == 3 ? session.pADPercent(k) : noMeasure;
}

} // namespace

double visualcccsquare(double n) {
    if (!(n > 2)) return 0.99999;
    return std::min(1.0, probabilityofx({weibull, 0, 0.45, 0.204}, n).p);
}

double andersondarling(const FamilyLine& line, std::span<const double> values) {
    const StandardLine standard = standardline(line);
    if (values.empty() || !(standard.scale > 0) || !std::isfinite(standard.location)) return 0;
    const auto n = static_cast<double>(values.size());
    double sum = 0;
    double i = 1;
    for (const double x : values) {
        // The reversed sum, put in order: the i-th value from below is the (n + 1 - i)-th from above.
        const double z = standard.z(x);
        sum += (2 * i - 1) * logbelow(standard.shape, z) + (2 * (n - i) + 1) * logabove(standard.shape, z);
        ++i;
    }
    return std::fabs(-n - sum / n);
}

double modifiedandersondarling(int family, double A2, double n) {
    if (extremefamily(family)) return A2 * (1 + 0.2 / std::sqrt(n));
    return A2 * (1 + 0.75 / n + 2.25 / (n * n));
}

double andersondarlingpvalue(int family, bool threshold, double modified) {
    const double slope = extremefamily(family) ? (threshold ? 5.5 : 4.48) : 4.55;
    const double y = slope * modified + 1.24 * std::log(modified) - 0.1;
    const double p = y < 700 ? 1 / (1 + std::exp(y)) : 0;
    if (!(p > 0)) return 0.001;
    return p >= 1 ? 0.999 : p;
}

double fultonfactor(double n) { return n > 1 ? (n - 1) / (n + 0.618) : 0; }

bool hasthreshold(int k) {
    const double least = session.dist == lognormal ? smallestBellThreshold : smallestExtremeThreshold;
    return session.dist != normal && std::fabs(static_cast<double>(session.t0(k))) >= least;
}

void adtest() {
    const int k = session.currentSet;
    session.pADPercent(k) = static_cast<float>(noAnswer);
    session.modifiedA2(k) = 0;
    if (!adpossible(k)) return;
    const int row = static_cast<int>(rowofset(static_cast<float>(k)));
    const FamilyLine line{session.dist, session.gumbeltype, session.etaFit(row, 1), session.betaFit(row, 1)};
    const std::vector<double> values = valuesinorder(k);
    const double A2 = andersondarling(line, values);
    if (A2 == 0 || !std::isfinite(A2)) return;
    const double modified = modifiedandersondarling(session.dist, A2, static_cast<double>(values.size()));
    session.modifiedA2(k) = modified;
    session.pADPercent(k) =
        static_cast<float>(100 * andersondarlingpvalue(session.dist, hasthreshold(k), modified));
}

void cleargoodness(int k) {
    session.cccSquared(k) = session.pvePercent(k) = session.PVALUE(k) = 0;
    session.rSquaredMinusCcc(k) = static_cast<float>(noMeasure);
    session.pADPercent(k) = static_cast<float>(noAnswer);
    session.modifiedA2(k) = 0;
}

void goodnessofset(int k) {
    const bool visual = session.progSide == visualSide;
    const double n = visual ? pointcount(k) : failurecount(k);
    const double rSquared = session.setCorrelation(k) * session.setCorrelation(k);
    const bool threshold = hasthreshold(k);
    session.cccSquared(k) = sngguard(visual ? visualcccsquare(n) : cccsquare(session.dist, threshold, n));
    session.pvePercent(k) = visual ? 0 : sngguard(100 * pve(session.dist, threshold, n, rSquared));
    if (session.fitMeasure == 3 && !visual) adtest();
    session.PVALUE(k) = session.fitMeasure == 3 ? session.pADPercent(k) : session.pvePercent(k);
    session.rSquaredMinusCcc(k) = static_cast<float>(measure(k, rSquared));
}
