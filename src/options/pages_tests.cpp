#include <algorithm>
#include <cmath>
#include <limits>
#include <string>

#include "analysis/sicaluko.h"
#include "analysis/testcalc.h"
#include "numeric/normal.h"
#include "options/page.h"
#include "platform/platform.h"
#include "plot/transforms.h"
#include "shell/prompts.h"

/// Test planning, and the limits of a process.

namespace {

using S = Session;

/// The set that a plan is for: the active one.
int plannedset() { return std::clamp(session.activeSet, 1, std::max(setcount(), 1)); }

/// Runs a plan of the analysis, which asks for what it needs and writes into the report, and shows that.
template <void (*Plan)()>
bool plan() {
    const Keep keep{session.currentSet, session.eta, session.beta};
    session.currentSet = plannedset();
    const auto row = static_cast<int>(rowofset(static_cast<float>(session.currentSet)));
    session.eta = session.etaFit(row, 1);
    session.beta = session.betaFit(row, 1);
    Plan();
    if (platform) platform->window().showview(ViewTab::report);
    return false;
}

constexpr Item planningItems[] = {
    pageitem('B', {Word::Test, Word::Setup}, OptionPage::testSetup),
    actionitem('D', {"Sudden-Death", Word::Test, Word::Time}, plan<suddendeath>).oncalculated(),
    pageitem('F', {Word::Find, Word::In, Word::Test}, OptionPage::findInTestPlan),
    actionitem('S', {"Sica-Luko", Word::Test, Word::Correction}, plan<sicaluko>).oncalculated(),
    actionitem('U', {Word::Additional, Word::Usage, "/", Word::Test, Word::Time}, plan<testcalc>)
        .oncalculated(),
    actionitem('W', {Word::Life, Word::Remaining, "...", Word::After, Word::Former, Word::Usage}, lifeleft)
        .when([] { return session.setFitted(plannedset()) == 1; }),
    exititem('X', {Word::Exit}),
};

// ---- a test without failures ----

/// Slope of the plan: the one given, else that of the set; 0 for none. Only a Weibull line has a slope: the
/// spread of another family says nothing of a plan.
double planslope() {
    if (session.planSlope > 0) return session.planSlope;
    return session.dist == weibull ? knownslope(plannedset()) : 0;
}

void appendslope(std::string& text) {
    if (planslope() > 0)
        appendshown(text, planslope(), 6);
    else
        append(text, Word::None);
}

constexpr double largest = 9e30;

constexpr Item setupItems[] = {
    acceptitem('A', {Word::OK}),
    numberitem('B', {Word::WeibullSlope}, placeof<&S::planSlope>, 0, 1e6).shows(appendslope),
    numberitem('C', {Word::Confidence, "%"}, placeof<&S::planConfidence>, 0.01, 99.99),
    numberitem('L', {Word::Life, Word::Goal}, placeof<&S::planLife>, 0, largest),
    wholeitem('N', {Word::Test, Word::Item, Word::Quantity}, placeof<&S::planItems>, 1, 1e6),
    numberitem('R', {Word::Goal, Word::Reliability, "%"}, placeof<&S::planReliability>, 0.0001, 99.9999)
        .times(100),
    numberitem('T', {Word::Test, Word::Time}, placeof<&S::planTime>, 0, largest),
    exititem('X', {Word::Exit}),
};

bool missing(Word what) {
    tell(what, " <= 0");
    return false;
}

/// The plan has a slope and a life goal. False, and told, when it has not.
bool goalgiven() {
    if (!(planslope() > 0)) {
        tell("Beta <= 0");
        return false;
    }
    return session.planLife > 0 || missing(Word::Life);
}

double planscale() { return goalscale(session.planLife, session.planReliability, planslope()); }

void tellfound(const Label& what, double value) {
    std::string number;
    appendshown(number, value, 6);
    tell(what, " = ", AsTyped{number}, lineBreak, Word::Confidence, " = ", session.planConfidence, " %");
}

bool findtime() {
    if (!goalgiven()) return false;
    session.planTime = zerofailuretime(planscale(), planslope(), session.planItems, session.planConfidence);
    tellfound({Word::Test, Word::Time}, session.planTime);
    return false;
}

bool finditems() {
    if (!goalgiven()) return false;
    if (!(session.planTime > 0)) return missing(Word::Time);
    const double items = zerofailureitems(planscale(), planslope(), session.planTime, session.planConfidence);
    tellfound({Word::Test, Word::Item, Word::Quantity}, items);
    return false;
}

/// Reliability at the life goal that the test shows: its scale is time (n / -ln(1 - C))^(1 / beta), at least.
bool findreliability() {
    if (!goalgiven()) return false;
    if (!(session.planTime > 0)) return missing(Word::Time);
    const double failures = -std::log1p(-session.planConfidence / 100);
    const double eta =
        std::exp(std::log(session.planTime) + std::log(session.planItems / failures) / planslope());
    tellfound({Word::Demonstrated, Word::Reliability, "%"},
              100 * reliabilityat(session.planLife, eta, planslope()));
    return false;
}

constexpr Item findItems[] = {
    actionitem('L', {Word::Find, Word::Test, Word::Time}, findtime),
    actionitem('N', {Word::Find, Word::Test, Word::Item, Word::Quantity}, finditems),
    actionitem('R', {Word::Find, Word::Reliability}, findreliability),
    pageitem('B', {Word::Test, Word::Setup}, OptionPage::testSetup),
    exititem('X', {Word::Exit}),
};

// ---- limits of a process ----

bool given(double limit) { return limit != noAnswer; }

template <bool Lower>
double& limit() {
    return Lower ? session.processLower : session.processUpper;
}

/// The one limit, without the other; a limit that crosses the other one is refused.
template <bool Lower>
bool asklimit() {
    double value = given(limit<Lower>()) ? limit<Lower>() : 0;
    const Word side = Lower ? Word::Lower : Word::Upper;
    if (!asknumberwithin({side, Word::Limit}, value, noLowLimit, static_cast<double>(noHighLimit)))
        return false;
    const double other = limit<!Lower>();
    if (given(other) && (Lower ? value >= other : value <= other)) {
        tell(Word::Lower, " >= ", Word::Upper);
        return false;
    }
    limit<Lower>() = value;
    return true;
}

template <bool Lower>
bool onlylimit() {
    const double other = limit<!Lower>();
    limit<!Lower>() = noAnswer;
    if (asklimit<Lower>()) return true;
    limit<!Lower>() = other;
    return false;
}

/// Both limits: the former pair gives way, or stays whole.
bool bothlimits() {
    const double before[] = {session.processLower, session.processUpper};
    session.processUpper = noAnswer;
    if (asklimit<true>() && asklimit<false>()) return true;
    session.processLower = before[0];
    session.processUpper = before[1];
    return false;
}

template <bool Lower>
void appendlimit(std::string& text) {
    const bool alone = given(limit<Lower>()) && !given(limit<!Lower>());
    if (alone)
        appendshown(text, limit<Lower>());
    else
        append(text, Word::No);
}

void appendboth(std::string& text) {
    if (!given(session.processLower) || !given(session.processUpper)) {
        append(text, Word::No);
        return;
    }
    appendshown(text, session.processLower);
    text += " / ";
    appendshown(text, session.processUpper);
}

/// Share of the population beyond a limit, and the distance of the limit as a normal deviate. ISO 22514-2:
/// indices of any distribution by its shares.
struct Beyond {
    double share = 0, deviate = std::numeric_limits<double>::infinity();
};
Beyond beyond(double at, bool below) {
    if (!given(at)) return {};
    const Keep keep{session.ud, session.udq};
    session.ud = at - static_cast<double>(session.t0(plannedset()));
    txx2pd();
    const double tail = below ? session.ud : session.udq;
    const double smallest = std::numeric_limits<double>::min();
    const double deviate = -normquantile(std::clamp(tail, smallest, 1 - 1e-16));
    return {normsf(deviate), deviate};
}

/// Moves the mean by so many standard deviations towards the nearer limit, and so off the other one.
void shiftmean(Beyond& low, Beyond& high) {
    Beyond& nearer = low.deviate < high.deviate ? low : high;
    Beyond& farther = &nearer == &low ? high : low;
    nearer.deviate -= session.processShift;
    farther.deviate += session.processShift;
    nearer.share = normsf(nearer.deviate);
    farther.share = normsf(farther.deviate);
}

/// Tells shares and index of the set in hand; nothing where there is no limit.
bool capability() {
    const int k = plannedset();
    if (!given(session.processLower) && !given(session.processUpper)) return false;
    if (session.setFitted(k) != 1) {
        tell(Word::No, " ", Word::Data);
        return false;
    }
    const Keep keep{session.eta, session.beta};
    const auto row = static_cast<int>(rowofset(static_cast<float>(k)));
    session.eta = session.etaFit(row, 1);
    session.beta = session.betaFit(row, 1);
    Beyond low = beyond(session.processLower, true);
    Beyond high = beyond(session.processUpper, false);
    if (session.processShift != 0) shiftmean(low, high);
    std::string parts, index;
    appendshown(parts, 1e6 * (low.share + high.share), 6);
    appendshown(index, std::min(low.deviate, high.deviate) / 3, 6);
    std::string text;
    extend(text, Word::Set, " ", k);
    if (session.processParts == 1) extend(text, lineBreak, "PPM = ", AsTyped{parts});
    if (session.processIndex == 1) extend(text, lineBreak, "Ppk = ", AsTyped{index});
    tell(text);
    return false;
}

constexpr Item processItems[] = {
    acceptitem('A', {Word::Activate}, capability),
    actionitem('D', {Word::Double, Word::Limit}, bothlimits).shows(appendboth),
    actionitem('L', {Word::Lower, Word::Limit, Word::Only}, onlylimit<true>).shows(appendlimit<true>),
    actionitem('U', {Word::Upper, Word::Limit, Word::Only}, onlylimit<false>).shows(appendlimit<false>),
    flipitem('P', {"PPM", Word::Type, Word::Of, Word::Results}, placeof<&S::processParts>),
    flipitem('R', {"Ppk", Word::Type, Word::Of, Word::Results}, placeof<&S::processIndex>),
    numberitem('S', {Word::StdDev, Word::Shift}, placeof<&S::processShift>, 0, 10),
    exititem('X', {Word::Cancel, "...", Word::Exit}),
};

Held limits() { return {{session.processLower, session.processUpper}, {}}; }

void putlimits(const Held& held) {
    session.processLower = held.numbers[0];
    session.processUpper = held.numbers[1];
}

constexpr Page pages[] = {
    {OptionPage::testPlanning, {Word::Test, "/", Word::Usage, Word::Requirement}, planningItems},
    {OptionPage::testSetup, {Word::Test, Word::Setup}, setupItems},
    {OptionPage::findInTestPlan, {Word::Find, Word::In, Word::Test}, findItems},
    {.page = OptionPage::processLimits,
     .title = {Word::Process, Word::Limit},
     .items = processItems,
     .keep = limits,
     .restore = putlimits},
};

} // namespace

std::span<const Page> testpages() { return pages; }
