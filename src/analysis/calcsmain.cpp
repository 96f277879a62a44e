#include "analysis/calcsmain.h"

#include <algorithm>
#include <cmath>

#include "analysis/bounds.h"
#include "analysis/boundsofset.h"
#include "analysis/goodness.h"
#include "analysis/lifeterms.h"
#include "analysis/linefit.h"
#include "analysis/loglik.h"
#include "analysis/mlefit.h"
#include "analysis/notices.h"
#include "analysis/order.h"
#include "analysis/regress.h"
#include "analysis/threshold.h"
#include "analysis/twosets.h"
#include "analysis/weibayes.h"
#include "data/cell.h"
#include "data/methodlabels.h"
#include "data/numbertext.h"
#include "data/reportgoodness.h"
#include "numeric/sngguard.h"
#include "plot/transforms.h"
#include "session/session.h"
#include "shell/prompts.h"

namespace {

constexpr float noSlope = 3; ///< slope that stands where the points give none

struct Set {
    int k;
    int row;
    int points;
    bool active;
};

Set setnumber(int k) {
    const int row = static_cast<int>(rowofset(static_cast<float>(k)));
    return {k, row, pointcount(k), session.lineHide(k) == 0};
}

int activesets() {
    int count = 0;
    for (int k = 1; k <= setcount(); ++k) count += setnumber(k).active ? 1 : 0;
    return count;
}

// ---- start of a run ----

/// The comparison of two sets stands in the title before anything that is said of the contours.
void titledifference() {
    if (!twosetsasked()) return;
    if (session.PVALUEFF(1) < 0) session.runTitle += ' ';
    appenddifference(session.runTitle, session.PVALUEFF(1));
}

void runtitle() {
    const int kind = std::abs(session.confMethod);
    session.runTitle = "(";
    appendmethod(session.runTitle);
    append(session.runTitle, " ");
    append(session.runTitle, Word::Fit);
    session.runTitle += ')';
    const auto extend = [](const auto&... parts) { (append(session.runTitle, parts), ...); };
    titledifference();
    if (kind == 3 && session.confMethod < 0) extend(" ", Word::Assurance, " ... 1 vs. 2");
    if (kind == 3 && session.confMethod > 0) extend(" ", Word::Likelihood, " ", Word::Contour, " ");
    if (kind == 4 || kind == 5) extend(" ", Word::Simulation, " ", Word::Results, " ");
}

/// Compares two sets that both have a line, and puts the result into the title.
void comparesets() {
    const bool fitted = setcount() == 2 && session.setFitted(1) == 1 && session.setFitted(2) == 1;
    if (!fitted || !twosetsasked() || session.abortCode == escapePressed) return;
    twosettest();
    runtitle();
}

/// The rule looks at one set. A single set among several can be chosen by hiding the others.
void refuseautomaticbounds() {
    if (session.confAuto == 0 || activesets() <= 1) return;
    session.confAuto = 0;
    if (session.confLow == 0 && session.confHigh == 0) return;
    tellrun(Word::Automatic, " ", Word::Confidence, " ", Word::Method, " ", Word::Only, " ", Word::For, " ",
            Word::Single, " ", Word::Set);
}

void startrun() {
    if (session.fixedSlope != 0) session.fitMethod = session.fitMethodSaved;
    if (session.confMethod < -49 && session.findThreshold == 1) {
        tellrun("t0 = 0 ", Word::For, " BW ", Word::Results);
        session.findThreshold = 0;
    }
    refuseautomaticbounds();
    session.ifylcnf = 0;
    session.calcError = 0;
    session.abortCode = 0;
    session.loglykErrorTold = session.minimumTold = 0;
    session.PVALUEFF.fill(static_cast<float>(noAnswer));
    runtitle();
}

// ---- tests of one set before its fit ----

void clearresults(const Set& set) {
    session.etaFit(set.row, 1) = session.betaFit(set.row, 1) = 0;
    session.etaFit(set.row, 2) = session.betaFit(set.row, 2) = 0;
    for (const int method : {1, 2}) session.paramA(method, set.k) = session.paramB(method, set.k) = 0;
    session.paramThree(set.k) = 0;
    if (session.findThreshold == 1) session.t0(set.k) = 0;
    session.setCorrelation(set.k) = 0;
    session.correlation(set.k) = 0;
    session.correlationLabel(set.k).clear();
    session.lineLabelA(set.k).clear();
    session.sampleSd(set.k) = 0;
    session.setFitted(set.k) = 0;
    session.setPlaced(set.k) = 0;
    session.setCorrected(set.k) = 0;
    session.LOGLYKMLE(set.k) = noAnswer;
    session.setLabel(set.k).clear();
    session.sums = {};
    cleargoodness(set.k);
    clearbounds(set.k);
}

void checknormalbounds(const Set& set) {
    if (session.confAuto == 1) return; // the rule takes another method for such a set
    const bool withoutBounds = session.dist == lognormal && session.confLow == 0 && session.confHigh == 0;
    if (std::abs(session.confMethod) != 6 || session.countSusp(set.k) == 0 || withoutBounds) return;
    session.confLow = session.confHigh = 0;
    session.ifylcnf = 0;
    tellset(set.k, Word::No, " ", Word::Normal, " ", Word::Confidence, " ", Word::With, " ",
            Word::Suspension);
}

/// Value of the m-th point in order.
double valueinorder(const Set& set, int m) { return pointvalue(set.k, session.pointOrder(set.k, m)); }

/// A single failure with no suspension above it has no finite slope by likelihood.
bool suspensionstoosmall(const Set& set) {
    if (session.fitMethod != maximumLikelihood || session.fixedSlope > 0 || negativedata()) return false;
    if (failurecount(set.k) != 1 || session.countQuantity(set.k) <= 1) return false;
    for (int m = 1; m <= set.points; ++m)
        if (session.pointTypes(set.k, session.pointOrder(set.k, m)) != Susp)
            return valueinorder(set, m) == valueinorder(set, set.points);
    return false;
}

/// The family's scale takes the logarithm of a failure's value: it must be positive.
bool failuresnotpositive(const Set& set) {
    if (session.dist == normal || session.dist == gumbel) return false;
    for (int j = 1; j <= set.points; ++j) {
        const int16_t type = session.pointTypes(set.k, j);
        const bool exact = type == Occr || type == Disc;
        if (exact && pointvalue(set.k, j) - session.t0(set.k) <= 0) return true;
    }
    return false;
}

/// An interval must end after it begins.
bool intervalsreversed(const Set& set) {
    for (int j = 1; j <= set.points; ++j)
        if (session.pointTypes(set.k, j) == Intv && !(pointupper(set.k, j) > pointvalue(set.k, j)))
            return true;
    return false;
}

/// Everything that refuses a set before any fit. Each refusal has told why.
bool fitpossible(const Set& set) {
    if (suspensionstoosmall(set)) {
        tellset(set.k, Word::Suspension, " ", Word::Too, " ", Word::Small);
        return false;
    }
    const bool inRows = session.inputType == insp1 || groupedinput();
    if (inRows && set.points <= 1 && session.fixedSlope == 0) {
        telltoosmall(set.k, set.points);
        return false;
    }
    if (intervalsreversed(set)) {
        tellset(set.k, Word::Bad, " ", Word::Interval, " ... ", Word::Upper, " < ", Word::Lower);
        return false;
    }
    if (failuresnotpositive(set)) {
        tellset(set.k, Word::Data, "? ... <= 0?\n", Word::Possible, " ", Word::Analysis, " = Weibayes");
        return false;
    }
    return true;
}

// ---- the fit ----

/// Where the points give no line: the first value, or the middle of the first two, with a slope of 3.
void fallbackline(const Set& set) {
    const double first = valueinorder(set, 1);
    session.etaFit(set.row, 1) = set.points > 1 ? (first + valueinorder(set, 2)) / 2 : first;
    session.betaFit(set.row, 1) = noSlope;
}

void correlationofset(const Set& set, const PlotLine& line) {
    const bool fewRows = session.inputType == insp1 && session.sums.rows - session.sums.suspLines < 3;
    const double r = fewRows && line.r != 0 ? 1 : line.r;
    session.rFit = sngguard(r);
    session.setCorrelation(set.k) = r;
    session.correlation(set.k) = sngguard(r * r);
    if (r * r >= 1) return;
    session.correlationLabel(set.k) = "r^2 ";
    appendsignificant(session.correlationLabel(set.k), r * r, 6);
}

bool parametersinrange() {
    const double size = std::fabs(session.eta);
    const bool etaGood =
        std::isfinite(session.eta) && size < 9e30 && (session.dist >= normal || size > 9e-30);
    const bool betaGood = std::isfinite(session.beta) && session.beta > 9e-30 && session.beta < 9e30;
    return etaGood && betaGood;
}

void storeline(const Set& set) {
    session.etaFit(set.row, 1) = session.eta;
    session.betaFit(set.row, 1) = session.beta;
    const int method = static_cast<int>(session.fitMethod);
    session.paramA(method, set.k) = session.eta;
    session.paramB(method, set.k) = session.beta;
    session.paramThree(set.k) = session.t0(set.k);
    session.setFitted(set.k) = 1;
    appendletter(session.lineLabelA(set.k), set.k);
}

/// What a line that stands is worth.
void judgeline(const Set& set) {
    goodnessofset(set.k);
    boundsofset(set.k);
}

void tellnoline(const Set& set) {
    std::string& label = session.setLabel(set.k);
    tellset(set.k, label, " ", Word::Fit, " ", Word::Not, " ", Word::Possible);
}

/// A single failure above suspensions can be fitted by likelihood.
bool likelihoodpossible(const Set& set) {
    const int last = set.points > 0 ? session.pointOrder(set.k, set.points) : 0;
    return failurecount(set.k) == 1 && last > 0 && session.pointTypes(set.k, last) == Susp;
}

/// Eta and beta of the least-squares line; false, and told, when there is none.
bool regressionline(const Set& set, const PlotLine& line) {
    if (!line.exists) {
        fallbackline(set);
        tellnotenough(set.k, likelihoodpossible(set));
        return false;
    }
    if (line.slope <= 0) {
        tellnoline(set);
        return false;
    }
    parametersofline(line);
    return true;
}

/// Eta and beta of largest likelihood, from the least-squares line where there is one; false, and told, when
/// there is no maximum.
bool likelihoodline(const Set& set, const PlotLine& line) {
    session.eta = session.beta = 0;
    if (line.exists && line.slope > 0) parametersofline(line);
    switch (maxlyk()) {
    case SearchEnd::found: session.LOGLYKMLE(set.k) = session.logLik; return true;
    case SearchEnd::noMaximum: tellnoline(set); return false;
    case SearchEnd::truncated:
        tellset(set.k, session.setLabel(set.k), " ", Word::Calculation, " ", Word::Truncated);
        return false;
    default: return false;
    }
}

void labelset(const Set& set) {
    session.setLabel(set.k).clear();
    appendstatus(session.setLabel(set.k), set.k);
}

void fitset(const Set& set) {
    if (session.findThreshold == 1 && !findthreshold(set.k)) return;
    placepoints(set.k);
    regressselect();
    labelset(set);
    if (session.calcError > 0 || session.abortCode == escapePressed) return;
    const PlotLine line = fitline(session.sums, regressxony(), fixedplotslope());
    if (!(bylikelihood() ? likelihoodline(set, line) : regressionline(set, line))) return;
    if (!parametersinrange()) {
        tellset(set.k, Word::Parameter, " ", Word::Too, " ", Word::Big, " ", Word::Or, " ", Word::Too, " ",
                Word::Small, " ...");
        return;
    }
    const bool spread = session.dist == lognormal || session.dist == normal;
    if (spread && session.countSusp(set.k) == 0) session.sampleSd(set.k) = samplesd(session.sums);
    correlationofset(set, line);
    labelset(set); // by now it is known whether the line is corrected
    storeline(set);
    judgeline(set);
}

/// A Weibull line of known slope that its points alone do not give: no failure, or something added to them.
bool weibayesneeded(const Set& set) {
    if (session.dist != weibull || session.fixedSlope <= 0 || groupedinput()) return false;
    return failurecount(set.k) == 0 || weibayesadditions();
}

/// At rr a line without failures is no regression: the method that stands behind it is told.
void tellweibayes(const Set& set) {
    tellset(set.k, Word::Not, " ", Word::Enough, " ", Word::Occurrence, " ", Word::For, " ", Word::Regression,
            " ", Word::With, " Weibayes [rr]\nWeibayes ", Word::For, " mle = ", Word::Only, " ",
            Word::Maximum, " ", Word::Likelihood);
}

void fitweibayes(const Set& set) {
    if (portionatrisk() < 1) { // the sum knows no units that never fail
        tellnoline(set);
        return;
    }
    placepoints(set.k);
    regresspositions();
    if (session.calcError > 0 || session.abortCode == escapePressed) return;
    if (failurecount(set.k) == 0 && !bylikelihood()) tellweibayes(set);
    if (!weibayesready(set.k)) return;
    weibayescalc();
    if (session.beta <= 0 || !parametersinrange()) {
        tellset(set.k, session.setLabel(set.k), " ", Word::Calculation, " ", Word::Truncated);
        return;
    }
    if (bylikelihood()) {
        loglyk();
        session.LOGLYKMLE(set.k) = trueloglik();
    }
    correlationofset(set, fitline(session.sums, regressxony(), fixedplotslope()));
    storeline(set);
    judgeline(set);
}

// ---- the sets ----

/// Cells that carry an interval or a discovery mark which the input type in force does not read.
void cautionunreadz(const Set& set) {
    if (session.inputType != standard0 && session.inputType != insp1) return;
    for (int j = 1; j <= set.points; ++j) {
        const float z = session.v2(set.k, j);
        const bool meantForStandard = z == 0 || z > 2e29f;
        if (meantForStandard) continue;
        tellset(set.k, Word::Interval, " ", Word::Data, "? ... ", Word::Present, " ", Word::Input, " ",
                Word::Type, " = ", session.inputType == insp1 ? Word::Inspect : Word::Standard);
        return;
    }
}

void analyseset(const Set& set) {
    compose(session.msg, Word::Set, " ", set.k, " ", Word::Order, " + ", Word::Calculation, " ...");
    statusline();
    clearresults(set);
    orderset(set.k);
    if (escaped()) return;
    checknormalbounds(set);
    if (!set.active || set.points == 0) return;
    appendstatus(session.setLabel(set.k), set.k);
    cautionunreadz(set);
    if (!fitpossible(set)) return;
    // By likelihood one failure will do, when other units are known not to have failed by its age.
    const bool oneFailure = session.fixedSlope > 0 || (bylikelihood() && session.countQuantity(set.k) > 1);
    if (weibayesneeded(set)) {
        fitweibayes(set);
        return;
    }
    const double needed = oneFailure ? 1 : 2;
    if (groupedinput() || failurecount(set.k) >= needed) {
        fitset(set);
        return;
    }
    placepoints(set.k);
    regresspositions();
    tellnotenough(set.k, likelihoodpossible(set));
}

bool samplesdiffer(int k) {
    for (int j = 2; j <= pointcount(k); ++j)
        if (session.v2(k, j) != session.v2(k, 1)) return true;
    return false;
}

/// Grouped rows read as one sample inspected again and again cannot have samples of different sizes.
void cautionsamples() {
    if (session.quiet == 1) return; // the run around this one asks
    if (!groupedinput() || session.inputType == km4 || session.groupingOption != 1) return;
    std::string sets;
    for (int k = 1; k <= setcount(); ++k)
        if (samplesdiffer(k)) extend(sets, " ", k);
    if (sets.empty()) return;
    compose(session.msg, Word::Input, " ", Word::Type, " ", Word::Inspect, " ", Word::Sample, " ", Word::To,
            " ", Word::Sample, " = ", Word::No, " ", Word::Difference, "\n", Word::Set, sets, " ",
            Word::Point, " ", Word::To, " ", Word::Point, " ", Word::Sample, " ", Word::Quantity, " = ",
            Word::Difference, "\n", Word::Change, " ", Word::Input, " ", Word::Type, " ", Word::To, " ",
            Word::Difference);
    session.menuTitle = word(Word::Caution);
    askyesno();
    if (session.u == 1) session.groupingOption = 2;
}

void endrun() {
    session.fitMethod = session.fitMethodSaved;
    if (setcount() == 0) return;
    if (session.abortCode != escapePressed) cautionsamples();
    compose(session.msg, Word::Results, " ", Word::Display, " ...");
    statusline();
}

} // namespace

void methodcheck() {
    if (session.dist < weibull || session.dist > gumbel) session.dist = weibull;
    if (session.dist != gumbel || session.gumbeltype != 1) session.gumbeltype = -1;
    if (session.fitMethod != maximumLikelihood) session.fitMethod = rankRegression;
    if (session.fitMethod == rankRegression) session.mleVariant = 0;
    if (session.mleVariant < 0 || session.mleVariant > 5) session.mleVariant = 0;
    if (session.fixedSlope < 0 || !std::isfinite(session.fixedSlope)) session.fixedSlope = 0;
    weibayescheck();
}

void calcsmain() {
    startrun();
    for (int k = 1; k <= setcount(); ++k) {
        session.currentSet = k;
        session.calcError = 0;
        const int16_t chosen = session.inputType;
        analyseset(setnumber(k));
        session.setInputType(k) = session.inputType;
        session.inputType = chosen;
        if (session.abortCode == escapePressed || session.calcError < 0) break;
    }
    comparesets();
    endrun();
}
