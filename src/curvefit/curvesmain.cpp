#include "curvefit/curvesmain.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "analysis/notices.h"
#include "curvefit/curverows.h"
#include "curvefit/curvevalue.h"
#include "curvefit/fitfunction.h"
#include "curvefit/fitline.h"
#include "curvefit/fitstats.h"
#include "numeric/sngguard.h"
#include "plot/shown.h"

namespace {

/// A set without a second coordinate.
void tellflat(int k) {
    compose(session.msg, Word::Set, " ", k, " ... <> 2D!");
    keepnotice(k);
}

void tellunsolved(int k, const CurveModel& model, const FitSolution& solution) {
    switch (solution.state) {
    case FitState::noRows: tellset(k, Word::Not, " ", Word::Enough, " ", Word::Data, " (", model, ")"); break;
    case FitState::singular: tellset(k, model, " ", Word::Fit, ": ", Word::Matrix, " = 0,0,0,0...!"); break;
    default: tellset(k, model, " ", Word::Fit, ": ", Word::Outside, " ", Word::Range); break;
    }
}

/// What the reader of the results must know, and no reason to stop the user at every plot.
void notefit(int k, const CurveModel& model, const FitSolution& solution) {
    const Keep keep{session.quiet};
    session.quiet = 1;
    if (const auto left = pointcount(k) - solution.used; left > 0)
        tellset(k, model, " ", Word::Fit, ": ", Word::Point, " ", Word::Quantity, " = ", solution.used, " (",
                left, " ", Word::Not, " ", Word::Possible, ")");
    if (!solution.precise) tellset(k, model, " ", Word::Fit, ": ", Word::Not, " ", Word::Precise);
}

/// The kind that the run asks of every set.
void takewanted() {
    const float wanted = session.fitKindList[0];
    if (wanted == 0) return;
    const int16_t kind = wanted == noCurveWanted ? int16_t{noFit} : static_cast<int16_t>(wanted);
    for (int k = 1; k <= setcount(); ++k) session.FITKIND(k) = kind;
}

/// On a probability scale the curve is compared as it is seen.
FitScales scales() {
    if (session.plotMode != 1) return {};
    return {plotxof, plotyof};
}

/// Keeps a itself, beside ln(b), where it lies within what the function machine takes as an exponent.
void takecoefficients(SetCurve& curve, const CurveModel& model, const std::vector<double>& coefficients) {
    constexpr double mostExponent = 69;
    curve.coefficients = coefficients;
    if (!model.ispolynomial()) {
        curve.noLogarithm = std::fabs(coefficients[0]) > mostExponent;
        if (!curve.noLogarithm) curve.coefficients[0] = std::exp(coefficients[0]);
    }
    for (std::size_t i = 0; i < curve.coefficients.size() && i < curve.solcoef.size(); ++i)
        curve.solcoef[i] = sngguard(curve.coefficients[i]);
}

void fitset(int k) {
    const int kind = session.FITKIND(k);
    const auto model = modelofcode(kind);
    if (!model) return tellset(k, Word::Unknown, " ", Word::Curve, " ", Word::Model, ": ", kind);
    const CurveRows set = curverows(k);
    if (set.rows.empty() && set.withoutY > 0) return tellflat(k);
    const FitSolution solution = fitsolve(set.rows, *model);
    if (solution.state != FitState::solved) return tellunsolved(k, *model, solution);
    const FitStatistics statistics = fitstats(set.rows, solution.fitted, model->parameters(), scales());

    SetCurve& curve = session.curves(k);
    curve.fitmodel = model->code;
    takecoefficients(curve, *model, solution.coefficients);
    curve.r = statistics.r;
    curve.hasR = statistics.hasR;
    curve.standardError = statistics.standardError;
    curve.dataLow = solution.low;
    curve.dataHigh = solution.high;
    fitfunction(curve);
    wordclean(curve.text = fitline(curve, k));
    notefit(k, *model, solution);
}

/// The list in force is that of the first curve.
void keeplist() {
    for (int k = 1; k <= setcount(); ++k) {
        if (!hascurve(k)) continue;
        std::array<double, 11> list{};
        const auto& coefficients = session.curves(k).coefficients;
        std::copy_n(coefficients.begin(), std::min(coefficients.size(), list.size() - 1), list.begin() + 1);
        if (list == session.SOLCOEF) return;
        session.SOLCOEFB = session.SOLCOEFA;
        session.SOLCOEFA = session.SOLCOEF;
        session.SOLCOEF = list;
        return;
    }
}

/// A set that is shown and asks for a curve.
bool wantscurve(int k) { return session.FITKIND(k) != noFit && setshown(k); }

} // namespace

void curvesmain() {
    session.curves.fill({});
    if (session.progSide != visualSide) return;
    takewanted();
    for (int k = 1; k <= setcount(); ++k)
        if (wantscurve(k)) fitset(k);
    keeplist();
}

bool hascurve(int k) { return session.curves(k).fitmodel != 0; }

bool curvesstand() {
    if (session.progSide != visualSide) return true;
    for (int k = 1; k <= setcount(); ++k)
        if (wantscurve(k) && !hascurve(k)) return false;
    return true;
}
