#include "analysis/sicaluko.h"

#include <algorithm>
#include <cmath>

#include "analysis/asknumber.h"
#include "analysis/notices.h"
#include "data/cell.h"
#include "data/report.h"

namespace {

constexpr double fewestUnits = 2, mostUnits = 32767;

/// Age of the last failure of the set, the default of the prompt; 0 when there is none.
double lastoccurrence(int k) {
    for (int m = pointcount(k); m >= 1; --m)
        if (const int j = session.pointOrder(k, m); session.pointTypes(k, j) == Occr) return pointvalue(k, j);
    return 0;
}

struct GroupTest {
    double quantity = 0, sequence = 0, age = 0;
};

std::optional<GroupTest> askgroup(bool firstFailure) {
    GroupTest test;
    const auto quantity = asknumber(session.testQty, Word::Test, " ", Word::Quantity, " (>= 2)");
    if (!quantity) return std::nullopt;
    test.quantity = std::clamp(std::floor(*quantity), fewestUnits, mostUnits);
    test.sequence = 1;
    if (!firstFailure) {
        const double preset = std::min<double>(session.testLast, test.quantity);
        const auto sequence =
            asknumber(preset, Word::Last, " ", Word::Occurrence, " ", Word::Sequence, " ", Word::Value);
        if (!sequence) return std::nullopt;
        test.sequence = std::clamp(std::floor(*sequence), 1.0, test.quantity);
    }
    const auto age = asknumber(lastoccurrence(session.currentSet), Word::Time, " ", Word::Of, " ", Word::Last,
                               " ", Word::Occurrence);
    if (!age) return std::nullopt;
    test.age = *age;
    return test;
}

void reportgroup(std::string_view name, const GroupTest& test) {
    report();
    report(name, " ... ", Word::Set, " ", session.currentSet);
    report(Word::Test, " ", Word::Quantity, " ", Word::Requirement, " = ", test.quantity);
    report(Word::Last, " ", Word::Occurrence, " ", Word::Sequence, " ", Word::Value, " = ", test.sequence);
    report(Word::Time, " ", Word::Of, " ", Word::Last, " ", Word::Occurrence, " = ", Reported{test.age});
    report(parametername(session.dist, 1), "=", Reported{session.eta}, "  ", parametername(session.dist, 2),
           "=", Reported{session.beta});
    report(Word::Correction, " ", Word::Value, " = ", Reported{session.eta / test.age});
}

void grouptest(std::string_view name, bool firstFailure) {
    const int k = session.currentSet;
    const double beta = knownslope(k);
    if (beta <= 0) {
        tellset(k, "Beta <= 0");
        return;
    }
    const std::optional<GroupTest> test = askgroup(firstFailure);
    if (!test) return;
    if (test->sequence == 1) session.dist = weibull;
    const FamilyLine line{session.dist, session.gumbeltype, 0, beta};
    const double eta = groupscale(line, test->age, test->quantity, test->sequence);
    if (eta == 0) {
        tellset(k, Word::Calculation, " ", Word::Truncated);
        return;
    }
    session.testQty = static_cast<int16_t>(test->quantity);
    if (!firstFailure) session.testLast = static_cast<int16_t>(test->sequence);
    session.eta = eta;
    session.beta = beta;
    reportgroup(name, *test);
}

} // namespace

double groupposition(double quantity, double sequence) { return (sequence - 0.3) / (quantity + 0.4); }

double groupscale(const FamilyLine& line, double age, double quantity, double sequence) {
    if (!(line.beta > 0) || !(age > 0) || !(sequence >= 1) || !(sequence <= quantity)) return 0;
    const double p = groupposition(quantity, sequence);
    const double eta = etathrough(line, age, p, plotyofp(line.family, line.extreme, p), false);
    return std::isfinite(eta) ? eta : 0;
}

double knownslope(int k) {
    if (session.fixedSlope > 0) return session.fixedSlope;
    const int row = static_cast<int>(rowofset(static_cast<float>(k)));
    return session.setFitted(k) == 1 ? session.betaFit(row, 1) : 0;
}

void sicaluko() { grouptest("Sica-Luko", false); }

void suddendeath() { grouptest("Sudden-Death", true); }
