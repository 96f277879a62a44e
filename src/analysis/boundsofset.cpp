#include "analysis/boundsofset.h"

#include <cmath>
#include <cstdlib>

#include "analysis/bounds.h"
#include "analysis/confidbino.h"
#include "analysis/confidfishermatrix.h"
#include "analysis/confidlr.h"
#include "analysis/confidmc.h"
#include "analysis/confidnormal.h"
#include "analysis/confidprobitkm.h"
#include "analysis/confidweibayes.h"
#include "analysis/lifeterms.h"
#include "analysis/notices.h"
#include "analysis/order.h"
#include "session/session.h"
#include "shell/prompts.h"

namespace {

/// What a point of a curve is a bound of.
enum class Bounded { value, probability };

struct Method {
    int16_t number; ///< size of confMethod
    const char* code;
    void (*routine)();
    Bounded bounded = Bounded::value;
};

constexpr Method methods[] = {{binomialBounds, "bi", confidbino, Bounded::probability},
                              {fisherBounds, "fm", confidfishermatrix},
                              {likelihoodBounds, "lr", confidlr},
                              {simulationBounds, "mc", confidmc},
                              {pivotalBounds, "pv", confidmc},
                              {normalTheoryBounds, "nr", confidnormal}};
constexpr Method probitMethod{0, "pr", confidprobitkm, Bounded::probability};
constexpr Method greenwoodMethod{0, "gw", confidprobitkm, Bounded::probability};
constexpr Method weibayesMethod{0, "wb", confidweibayes};

/// The rule of the automatic choice.
int16_t methodbyrule(int k) {
    constexpr double manyOccurrences = 21;
    const bool bell = session.dist == normal || session.dist == lognormal;
    const double inIntervals = session.countDisc(k) + session.countIntv(k);
    if (bell && !groupedinput() && session.countSusp(k) + inIntervals == 0) return normalTheoryBounds;
    const double occurrences = session.countOccr(k) + (session.inputType == intv5 ? inIntervals : 0);
    if (occurrences >= manyOccurrences) return fisherBounds;
    return session.fitMethod == maximumLikelihood ? likelihoodBounds : pivotalBounds;
}

/// The method for set k; null when no bounds are asked for.
const Method* methodofset(int k) {
    if (!boundasked(BoundSide::low) && !boundasked(BoundSide::high)) return nullptr;
    if (session.confAuto == 1 && session.fixedSlope == 0) session.confMethod = methodbyrule(k);
    const int kind = std::abs(session.confMethod);
    if (kind == noBounds && session.confAuto == 0) return nullptr;
    const bool knownSlope = session.fixedSlope != 0;
    if (groupedinput() && (knownSlope || kind != likelihoodBounds)) // no contour of two parameters, no sum
        return session.inputType == km4 ? &greenwoodMethod : &probitMethod;
    if (knownSlope) return &weibayesMethod;
    for (const Method& method : methods)
        if (method.number == kind) return &method;
    return nullptr;
}

const char* codeof(const Method& method) {
    const bool form = method.number == fisherBounds && session.dist == weibull;
    if (form && session.fisherForm == 1) return "mb";
    return form && session.fisherForm == 2 ? "mc" : method.code;
}

/// What a bound may not be: a value no data can have, or on the far side of the line.
class WrongSide {
public:
    WrongSide(int k, Bounded kind) : line(standardline(currentline())), t0(session.t0(k)), bounded(kind) {}

    bool operator()(BoundSide side, double x, double p) const {
        if (x <= 0 && session.negativeXAllowed != 1) return true;
        if (session.confMethod < 0) return false; // a single point answers what was asked
        const double place = line.z(x - t0);
        const double distance = place - plotyofp(session.dist, session.gumbeltype, p); // right, below: > 0
        const bool right = bounded == Bounded::value ? side == BoundSide::high : side == BoundSide::low;
        const double size = (line.logarithmic ? 1 : std::fabs(x)) / line.scale;
        return (right ? -distance : distance) > rounding * (1 + size);
    }

private:
    static constexpr double rounding = 2e-7; ///< of a bound kept as a single

    StandardLine line;
    double t0;
    Bounded bounded;
};

void cleanrow(int k, BoundSide side, const WrongSide& wrong) {
    const int row = boundrow(k, side);
    const auto points = static_cast<int>(session.n(row));
    int kept = 0;
    for (int m = 1; m <= points; ++m) {
        if (wrong(side, session.X(row, m), session.Y(row, m))) continue;
        ++kept;
        session.X(row, kept) = session.X(row, m);
        session.Y(row, kept) = session.Y(row, m);
    }
    session.n(row) = static_cast<float>(kept);
}

/// A bound of a parameter that no data can have, or that leaves the estimate out, is none.
void cleanparameter(int k, int j, double estimate) {
    constexpr double rounding = 2e-7; // of a percentage kept as a single
    const double least = estimate - rounding * std::fabs(estimate);
    const double most = estimate + rounding * std::fabs(estimate);
    double& low = session.paramLow(k, j);
    double& high = session.paramHigh(k, j);
    if (!boundvalue(low) || low > most) low = noAnswer;
    if (!boundvalue(high) || high < least) high = noAnswer;
}

bool populated(int k) {
    return session.n(boundrow(k, BoundSide::low)) > 0 || session.n(boundrow(k, BoundSide::high)) > 0;
}

/// Runs a method with the line in force; everything it may use for itself is given back.
void runmethod(const Method& method, int k) {
    compose(session.msg, Word::Set, " ", k, " ", Word::Confidence, " ", Word::Calculation, " ...");
    statusline();
    const Keep keep{session.eta,        session.beta,       session.dist,   session.gumbeltype,
                    session.inputType,  session.fitMethod,  session.ud,     session.udq,
                    session.mleVariant, session.currentSet, session.logLik, session.setLabel(k)};
    method.routine();
}

void finish(const Method& method, int k) {
    if (session.abortCode == escapePressed) {
        clearbounds(k);
        session.calcError = -1;
    }
    if (session.calcError != 0) tellset(k, Word::Confidence, " ", Word::Calculation, " ", Word::Truncated);
    const WrongSide wrong(k, method.bounded);
    for (const BoundSide side : {BoundSide::low, BoundSide::high}) cleanrow(k, side, wrong);
    cleanparameter(k, 1, session.eta);
    cleanparameter(k, 2, session.beta);
    if (!populated(k)) {
        clearbounds(k);
        return;
    }
    session.setBoundLabel(k) = codeof(method);
    session.ifylcnf = 9;
}

} // namespace

void boundsofset(int k) {
    clearbounds(k);
    const Method* method = methodofset(k);
    if (!method) return;
    if (pointcount(k) < 2 && method != &weibayesMethod) {
        tellset(k, Word::Confidence, "? ... ", Word::Point, " ", Word::Quantity, " < 2");
        return;
    }
    runmethod(*method, k);
    finish(*method, k);
}
