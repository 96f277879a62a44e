#include <algorithm>
#include <cmath>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "analysis/distanalysis.h"
#include "analysis/likelihoodgrid.h"
#include "analysis/mixture.h"
#include "data/methodlabels.h"
#include "options/page.h"
#include "platform/platform.h"
#include "plot/markerline.h"
#include "shell/markerentry.h"
#include "shell/prompts.h"

/// How the life data are read and fitted: input, method, ranks, family, threshold, known slope, and the
/// analyses that go beyond a fit.

namespace {

using S = Session;

// ---- input and method ----

constexpr PlaceOf input = placeof<&S::inputType>;

constexpr Item inputItems[] = {
    pickitem('0', {Word::Point, "-", Word::By, "-", Word::Point}, input, standard0),
    pickitem('1', {Word::Point, "-", Word::By, "-", Word::Point, Word::Inspect, "(1)"}, input, insp1),
    pickitem('2', {Word::Grouped, Word::Probit, "(2)"}, input, prbt2),
    pickitem('3', {Word::Grouped, Word::Probit, "(3)"}, input, prbt3),
    pickitem('4', {Word::Grouped, "Kaplan-Meier (4)"}, input, km4),
    pickitem('5', {Word::Point, "-", Word::By, "-", Word::Point, Word::Interval, "mle (5)"}, input, intv5),
};

constexpr Item cumulativeItems[] = {
    pickitem('2', {Word::Probit, "(2) =", Word::Cumulative}, input, prbt2),
    pickitem('3', {Word::Probit, "(3) =", Word::Cumulative, "%", Word::Affected}, input, prbt3),
    pickitem('4', {"Kaplan-Meier (4) =", Word::Interval}, input, km4),
};

/// A way of fitting: what the method code, the direction and the bias correction are.
struct Fitting {
    float method;
    float swap;
    int16_t variant;
};
constexpr Fitting regression{rankRegression, 0, 0}, reversed{rankRegression, 1, 0},
    likelihood{maximumLikelihood, 0, 0}, reduced{maximumLikelihood, 0, 1}, median{maximumLikelihood, 0, 2},
    mean{maximumLikelihood, 0, 3}, medianPlus{maximumLikelihood, 0, 4}, mindeguia{maximumLikelihood, 0, 5};

template <const Fitting& Way>
bool fitsby() {
    const bool swapped = session.fitMethod == rankRegression && session.rrSwap > 0;
    const int16_t variant = session.fitMethod == maximumLikelihood ? session.mleVariant : int16_t{0};
    return session.fitMethod == Way.method && swapped == (Way.swap > 0) && variant == Way.variant;
}
template <const Fitting& Way>
bool fitby() {
    const bool changed = !fitsby<Way>();
    session.fitMethod = session.fitMethodSaved = Way.method;
    session.rrSwap = Way.swap;
    session.mleVariant = Way.variant;
    return changed;
}
template <const Fitting& Way>
constexpr Item wayitem(char letter, Label label) {
    return pickitem(letter, label, fitsby<Way>, fitby<Way>);
}

constexpr Item methodItems[] = {
    wayitem<likelihood>('M', {"'mle' ...", Word::Big, Word::Bias, Word::For, Word::Small, Word::Sample}),
    pageitem('N', {Word::Modified, "mle 'RBA' ...", Word::Lower, Word::Bias},
             OptionPage::likelihoodModification),
    wayitem<regression>('R', {"'rr' ...", Word::Standard, Word::Start}),
    wayitem<reversed>('S', {Word::Special, "'rrs' ...", "[", Word::Bias, Word::Present, "]"}),
    pickitem('1', {Word::Point, "-", Word::By, "-", Word::Point, Word::Inspect, "(1) 'insp1'"}, input, insp1),
    pageitem('I', {Word::Input, Word::Method}, OptionPage::inputMethod),
    pageitem('K', {Word::Rank, Word::Regression}, OptionPage::regressionKind),
    pageitem('D', {Word::Distribution}, OptionPage::distribution),
    exititem('X', {Word::Exit}),
};

constexpr Item modificationItems[] = {
    acceptitem('A', {Word::OK, "/", Word::Activate}),
    wayitem<mindeguia>('J', {"RBA Mindeguia 'RBAjjm'"}),
    wayitem<likelihood>('M', {Word::Standard, "'mle'"}),
    wayitem<reduced>('N', {"(N / (N - 1)) 'mmleN-1'"}),
    wayitem<mean>('R', {"RBA", Word::Mean, "'RBAmu'"}),
    wayitem<median>('S', {"RBA", Word::Median, "'RBAmd'"}),
    wayitem<medianPlus>('T', {"RBA", Word::Median, "+ 'RBApb'"}),
};
constexpr PlaceOf methodPlaces[] = {placeof<&S::fitMethod>, placeof<&S::fitMethodSaved>, placeof<&S::rrSwap>,
                                    placeof<&S::mleVariant>};

constexpr PlaceOf rank = placeof<&S::rankMethod>;
constexpr Item rankItems[] = {
    pickitem('A', {"Benard (rr)"}, rank, benardRank),
    pickitem('B', {Word::Binomial, "(br)"}, rank, binomialRank),
    pickitem('M', {Word::Mean, "(mr)"}, rank, meanRank),
    pickitem('N', {"Hazen (hr)"}, rank, hazenRank),
    pickitem('P', {"Blom (nr)"}, rank, blomRank),
    pickitem('T', {"Kaplan-Meier (kr)"}, rank, kaplanMeierRank),
};

// ---- family ----

struct Family {
    Dist dist;
    int16_t extreme;
    float slope; ///< known slope that makes the family; 0 free
};
constexpr Family weibullFamily{weibull, -1, 0}, exponentialFamily{weibull, -1, 1},
    rayleighFamily{weibull, -1, 2}, lognormalFamily{lognormal, -1, 0}, normalFamily{normal, -1, 0},
    smallestFamily{gumbel, -1, 0}, largestFamily{gumbel, 1, 0};

/// A known slope of another size than these names keeps its family: a Weibayes line is a Weibull one.
template <const Family& Chosen>
bool familyinforce() {
    if (session.dist != Chosen.dist) return false;
    if (Chosen.dist == gumbel) return session.gumbeltype == Chosen.extreme;
    if (Chosen.dist != weibull) return true;
    const bool named = session.fixedSlope == 1 || session.fixedSlope == 2;
    return Chosen.slope > 0 ? session.fixedSlope == Chosen.slope : !named;
}
template <const Family& Chosen>
bool takefamily() {
    if (familyinforce<Chosen>()) return false;
    const bool another = session.dist != Chosen.dist;
    const bool named = session.dist == weibull && (session.fixedSlope == 1 || session.fixedSlope == 2);
    session.dist = Chosen.dist;
    session.gumbeltype = Chosen.extreme;
    // A known slope belongs to the family that it was known for.
    if (Chosen.slope > 0 || another || named) session.fixedSlope = Chosen.slope;
    return true;
}
template <const Family& Chosen>
constexpr Item familyitem(char letter, Label label) {
    return pickitem(letter, label, familyinforce<Chosen>, takefamily<Chosen>);
}

/// Runs an analysis that writes into the report, for the set in hand or the first with data, and shows it.
template <class Run>
bool withreport(Run run) {
    int k = std::clamp(session.activeSet, 1, std::max(setcount(), 1));
    while (k <= setcount() && pointcount(k) == 0) ++k;
    if (k > setcount()) {
        session.menuTitle = word(Word::Data);
        compose(session.msg, Word::No, " ", Word::Data);
        tellok();
        return false;
    }
    const Keep keep{session.currentSet, session.eta, session.beta};
    const int row = static_cast<int>(rowofset(static_cast<float>(k)));
    session.currentSet = k;
    session.eta = session.etaFit(row, 1);
    session.beta = session.betaFit(row, 1);
    const bool changed = run();
    if (platform && !changed) platform->window().showview(ViewTab::report);
    return changed;
}

bool choosefamily() { return withreport(distributionanalysis); }

constexpr Item familyItems[] = {
    actionitem('A', {Word::Distribution, Word::Analysis}, choosefamily).when(onlifeside).oncalculated(),
    familyitem<exponentialFamily>('E', {Word::Exponential}),
    familyitem<smallestFamily>('G', {"Gumbel-"}),
    familyitem<largestFamily>('H', {"Gumbel+"}),
    familyitem<lognormalFamily>('L', {Word::Log, Word::Normal}),
    familyitem<normalFamily>('N', {Word::Normal}),
    familyitem<rayleighFamily>('R', {"Rayleigh"}),
    familyitem<weibullFamily>('W', {"Weibull"}),
    flipitem('K', {Word::Negative, "X-", Word::Value}, placeof<&S::negativeXAllowed>),
    pageitem('T', {"t0 (3-", Word::Parameter, ")"}, OptionPage::threshold),
    pageitem('U', {"Weibayes"}, OptionPage::weibayes),
    exititem('X', {Word::Exit}),
};

// ---- threshold ----

/// The thresholds of all sets, which a page puts back together.
Held thresholds() {
    Held held;
    for (int k = 1; k <= static_cast<int>(session.maxSets); ++k)
        held.numbers.push_back(static_cast<double>(session.t0(k)));
    return held;
}

void putthresholds(const Held& held) {
    for (std::size_t i = 0; i < held.numbers.size(); ++i)
        session.t0(static_cast<int>(i) + 1) = static_cast<float>(held.numbers[i]);
}

/// One threshold for every set, which is not searched. True when that changed anything.
bool takethreshold(double value) {
    const Held before = thresholds();
    const bool searched = session.findThreshold == 1;
    session.findThreshold = 0;
    putthresholds({std::vector<double>(before.numbers.size(), value), {}});
    return searched || thresholds() != before;
}

bool clearthresholds() { return takethreshold(0); }

bool thresholdsdiffer() {
    const Held held = thresholds();
    return std::adjacent_find(held.numbers.begin(), held.numbers.end(), std::not_equal_to<>())
           != held.numbers.end();
}

/// A threshold that is known holds for every set. The answer that was offered leaves the sets as they are,
/// which may have thresholds of their own, unless they are searched.
bool knownthreshold() {
    const double preset = asshown(static_cast<double>(session.t0(1)), 7);
    double value = preset;
    if (!asknumberwithin({"t0"}, value, noLowLimit, static_cast<double>(noHighLimit))) return false;
    if (value == preset && session.findThreshold == 0) return false;
    return takethreshold(value);
}

void appendthreshold(std::string& text) {
    if (session.findThreshold == 1)
        append(text, Word::Find);
    else if (thresholdsdiffer())
        append(text, Word::Variable);
    else if (session.t0(1) == 0)
        append(text, Word::None);
    else
        appendshown(text, static_cast<double>(session.t0(1)), 7);
}

bool bylikelihood() { return session.fitMethod == maximumLikelihood; }

constexpr Item thresholdItems[] = {
    acceptitem('A', {Word::Activate}),
    flipitem('F', {Word::Find, Word::Optimum, "t0"}, placeof<&S::findThreshold>),
    flipitem('M', {Word::Method}, placeof<&S::thresholdByRegression>, {"mle ...", Word::Slow}, {"rr"})
        .when(bylikelihood),
    flipitem('S', {Word::PlotScale}, placeof<&S::scaleAsRecorded>, "NAR", "AR"),
    actionitem('T', {"t0"}, knownthreshold).shows(appendthreshold),
    actionitem('N', {Word::None, "...", Word::Reset, "+", Word::Clear, Word::All, "t0"}, clearthresholds),
    exititem('X', {Word::Exit}),
};

// ---- known slope ----

void appendfree(std::string& text) {
    if (session.fixedSlope == 0)
        append(text, Word::None);
    else
        appendshown(text, static_cast<double>(session.fixedSlope), 7);
}

bool slopeknown() { return session.fixedSlope != 0; }

/// Added failures and suspensions exclude each other; failures take the confidence to 50.
bool addfailures() {
    double value = session.wbFail;
    if (!asknumberwithin({Word::Additional, Word::Occurrence, Word::Quantity}, value, 0, 32000)) return false;
    session.wbFail = static_cast<float>(value);
    if (value > 0) session.wbSusp = 0;
    if (value > 0) session.wbConf = 50;
    return true;
}
bool addsuspensions() {
    double value = session.wbSusp;
    if (!asknumberwithin({Word::Additional, Word::Suspension, Word::Quantity}, value, 0, 32000)) return false;
    session.wbSusp = static_cast<float>(value);
    if (value > 0) session.wbFail = 0;
    return true;
}

bool shifted() { return session.wbPlan == 3; }

template <auto At>
void appendgiven(std::string& text) {
    if (session.*At == noAnswer)
        append(text, Word::None);
    else
        appendshown(text, session.*At);
}
template <auto At, Word What>
bool askgiven() {
    double value = session.*At == noAnswer ? 0 : session.*At;
    if (!asknumberwithin({What, Word::Value}, value, 0, static_cast<double>(noHighLimit))) return false;
    session.*At = value;
    return true;
}

bool fitted() {
    for (int k = 1; k <= setcount(); ++k)
        if (session.setFitted(k) == 1) return true;
    return false;
}

/// Keeps the line of the set in hand as a marker line: it stays when slope and data change.
bool addmarker() {
    const int k = std::clamp(session.activeSet, 1, std::max(setcount(), 1));
    if (session.setFitted(k) != 1) {
        tell(Word::No, " ", Word::Line, " (", Word::Set, " ", k, ")");
        return false;
    }
    const int row = static_cast<int>(rowofset(static_cast<float>(k)));
    FamilyLine line = currentline();
    line.eta = session.etaFit(row, 1);
    line.beta = session.betaFit(row, 1);
    return markerkeep(line);
}

bool deletemarkers() {
    markerclear();
    return true;
}

bool weibayesreport() {
    if (platform) platform->window().showview(ViewTab::report);
    return false;
}

constexpr Item weibayesItems[] = {
    acceptitem('A', {Word::Activate}),
    numberitem('B', {Word::WeibullSlope, "(0 =", Word::None, ")"}, placeof<&S::fixedSlope>, 0, 1e6)
        .shows(appendfree),
    numberitem('C', {Word::Confidence, "%", Word::For, "0", Word::Occurrence}, placeof<&S::wbConf>, 0,
               99.9999)
        .when(slopeknown),
    actionitem('F', {Word::Additional, Word::Occurrence, Word::Quantity}, addfailures)
        .shows([](std::string& text) { appendshown(text, static_cast<double>(session.wbFail), 7); })
        .when(slopeknown),
    actionitem('S', {Word::Additional, Word::Suspension, Word::Quantity}, addsuspensions)
        .shows([](std::string& text) { appendshown(text, static_cast<double>(session.wbSusp), 7); })
        .when(slopeknown),
    flipitem('D', {"Dauser", Word::Shift}, placeof<&S::wbPlan>, Word::No, Word::Yes, 0, 3).when(slopeknown),
    actionitem('G', {Word::Last, Word::Occurrence, Word::Value}, askgiven<&S::LFAIL, Word::Occurrence>)
        .shows(appendgiven<&S::LFAIL>)
        .when([] { return slopeknown() && shifted(); }),
    actionitem('H', {Word::Maximum, Word::Suspension, Word::Value}, askgiven<&S::RSUSP, Word::Suspension>)
        .shows(appendgiven<&S::RSUSP>)
        .when([] { return slopeknown() && shifted(); }),
    actionitem('K', {Word::Delete, Word::Marker, Word::Line}, deletemarkers).when([] {
        return !markerlines().empty();
    }),
    pageitem('L', {Word::Parameter, Word::Start, Word::Lock}, OptionPage::parameterStart),
    actionitem('W', {Word::Add, "Weibayes", Word::Marker, Word::Line}, addmarker)
        .when([] { return slopeknown() && fitted(); })
        .oncalculated(),
    actionitem('Y', {"Weibayes", Word::Report}, weibayesreport)
        .when([] { return slopeknown() && fitted(); })
        .oncalculated()
        .leaving(),
    pageitem('Z', {Word::Distribution, Word::Change, "? >>>", Word::Select, Word::Equations},
             OptionPage::distribution),
    exititem('X', {Word::Exit}),
};
constexpr PlaceOf weibayesPlaces[] = {placeof<&S::wbFail>, placeof<&S::wbSusp>, placeof<&S::LFAIL>,
                                      placeof<&S::RSUSP>};

bool clearstarts() {
    const bool changed = session.fixedSlope != 0;
    session.fixedSlope = 0;
    return clearthresholds() || changed;
}

constexpr Item startItems[] = {
    numberitem('B', {Word::Slope, Word::Start}, placeof<&S::fixedSlope>, 0, 1e6).shows(appendfree),
    actionitem('T', {"t0", Word::Start}, knownthreshold).shows(appendthreshold),
    actionitem('N', {Word::None, "...", Word::Delete, Word::All}, clearstarts),
    exititem('X', {Word::Exit, "...", Word::OK}),
};

constexpr Item equationsItems[] = {
    acceptitem('1', {Word::OK}),
    textitem('A', {Word::Analysis, Word::Equations}, placeof<&S::equationsName>),
    pageitem('B', {Word::Distribution}, OptionPage::distribution).when(onlifeside).shows(appendfamily),
    pageitem('C', {Word::Method}, OptionPage::fitMethod).when(onlifeside).shows(appendmethod),
};

// ---- beyond a fit ----

template <int Kind>
bool fitmodes() {
    return withreport([] {
        session.mixKind = Kind;
        mixturefit();
        return false;
    });
}

bool clearmixture() {
    const bool changed = session.mixFlag != 0;
    session.mixFlag = 0;
    return changed;
}

void appendmeasure(std::string& text) {
    constexpr const char* names[] = {"r", "r^2", "pve%", "pAD%"};
    text += names[std::clamp<int>(session.fitMeasure, 0, 3)];
}
bool nextmeasure() {
    session.fitMeasure = static_cast<int16_t>((std::clamp<int>(session.fitMeasure, 0, 3) + 1) % 4);
    return true;
}

constexpr Item extendedItems[] = {
    actionitem('D', {Word::Fit, Word::Measurement}, nextmeasure).shows(appendmeasure),
    actionitem('K', {Word::Likelihood, Word::Table},
               [] {
                   return withreport([] {
                       likelihoodgrid();
                       return false;
                   });
               })
        .when(fitted)
        .oncalculated(),
    actionitem('M', {Word::Mixture, "(2", Word::Failure, Word::Mode, ")"}, fitmodes<4>)
        .when([] { return setcount() > 0; })
        .oncalculated(),
    actionitem('O', {Word::Mixture, "(2", Word::Failure, Word::Mode, "+", Word::Proportion, ")"}, fitmodes<5>)
        .when([] { return setcount() > 0; })
        .oncalculated(),
    numberitem('P', {Word::Partial, "%", Word::Affected, "(0 =", Word::All, ")"}, placeof<&S::popPortion>, 0,
               100)
        .times(100),
    flipitem('Q', {Word::Normal, Word::For, Word::Distribution, Word::Analysis},
             placeof<&S::normalCandidate>),
    actionitem('N', {Word::None, "...", Word::Reset, "/", Word::Clear, Word::Mixture}, clearmixture),
    exititem('X', {Word::Exit}),
};

constexpr Page pages[] = {
    {.page = OptionPage::inputMethod,
     .title = {Word::Input, Word::Method},
     .items = inputItems,
     .list = true},
    {.page = OptionPage::cumulativeInput,
     .title = {Word::Cumulative, Word::Input},
     .items = cumulativeItems,
     .list = true},
    {OptionPage::fitMethod, {Word::Fit, Word::Method}, methodItems},
    {.page = OptionPage::likelihoodModification,
     .title = {Word::Likelihood, Word::Modified},
     .items = modificationItems,
     .also = methodPlaces},
    {.page = OptionPage::regressionKind,
     .title = {Word::Rank, Word::Regression},
     .items = rankItems,
     .list = true},
    {OptionPage::distribution, {Word::Distribution}, familyItems},
    {.page = OptionPage::threshold,
     .title = {"t0 (3-", Word::Parameter, ")"},
     .items = thresholdItems,
     .keep = thresholds,
     .restore = putthresholds},
    {.page = OptionPage::weibayes, .title = {"Weibayes"}, .items = weibayesItems, .also = weibayesPlaces},
    {OptionPage::parameterStart, {Word::Parameter, Word::Start}, startItems},
    {OptionPage::analysisEquations, {Word::Analysis, Word::Equations}, equationsItems},
    {OptionPage::extendedOptions, {Word::Extended, Word::Options}, extendedItems},
};

} // namespace

std::span<const Page> lifepages() { return pages; }
