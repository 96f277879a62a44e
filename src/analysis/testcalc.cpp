#include "analysis/testcalc.h"

#include <algorithm>
#include <cmath>

#include "analysis/asknumber.h"
#include "analysis/notices.h"
#include "analysis/sicaluko.h"
#include "analysis/weibayes.h"
#include "data/report.h"
#include "numeric/chisquare.h"

namespace {

constexpr double medianConfidence = 50;
constexpr double mostMonths = 60; ///< of a usage forecast
constexpr Word unitWords[] = {Word::Value, Word::Measurement, Word::Size, Word::Time, Word::Life, Word::Age};

double held(double logarithm) {
    const double value = std::exp(logarithm);
    return value > searchCeiling ? searchCeiling : value;
}

bool share(double p) { return p > 0 && p < 1; }
bool percentage(double p) { return p > 0 && p < 100; }

/// What the user wants to show, and how.
struct TestGoal {
    Word unit = Word::Time;
    double life = 0, reliability = 0.9; ///< the goal
    double confidence = medianConfidence;
    double items = 4; ///< additional
    double usage = 0; ///< of one item in a month; 0 not asked for
};

/// The outputs of a plan.
struct TestResult {
    double life = 0, reliability = 0; ///< demonstrated: at the goal reliability, and at the goal life
    double time = 0;                  ///< of each additional item
};

bool askunit(TestGoal& goal) {
    menuclear();
    compose(session.msg, Word::Test, " ", Word::Unit);
    char key = 'a';
    int item = 0;
    for (const Word unit : unitWords) {
        compose(session.menuItem[static_cast<std::size_t>(++item)], key, "... ", unit);
        ++key;
    }
    session.menuCount = static_cast<float>(item);
    session.menuChoice = 4;
    session.menuPage = 0;
    menushow();
    const int choice = static_cast<int>(session.menuChoice);
    menuclear();
    if (choice < 1 || choice > item) return false;
    goal.unit = unitWords[choice - 1];
    return true;
}

bool askgoal(TestGoal& goal) {
    const auto take = [](std::optional<double> answer, double& value) {
        if (answer) value = *answer;
        return answer.has_value();
    };
    if (!take(asknumber(goal.life, goal.unit, " ", Word::Goal), goal.life)) return false;
    double percent = goal.reliability * 100;
    if (!take(asknumber(percent, Word::Goal, " ", Word::Reliability, " %"), percent)) return false;
    goal.reliability = percent / 100;
    return take(asknumber(goal.confidence, Word::Confidence, " %"), goal.confidence)
           && take(asknumber(goal.items, Word::Additional, " ", Word::Item, " ", Word::Quantity), goal.items)
           && take(asknumber(goal.usage, Word::Usage, " ", Word::By, " ", Word::Month), goal.usage);
}

TestResult planof(const TestGoal& goal, const TestedSoFar& tested, double beta) {
    TestResult result;
    const double wanted = goalscale(goal.life, goal.reliability, beta);
    result.time = additionaltime(tested, wanted, beta, goal.items, goal.confidence);
    if (!tested.any) return result;
    const double eta = weibayeslimit(tested.logSum, beta, tested.failures, goal.confidence);
    result.life = lifeat(goal.reliability, eta, beta);
    result.reliability = reliabilityat(goal.life, eta, beta);
    return result;
}

/// " (Demonstrated 620 > 500)"; nothing without data.
template <class Value>
void reportcheck(const Value& goal, const Value& shown, double goalValue, double shownValue) {
    report(" (", Word::Demonstrated, " ", shown, shownValue < goalValue ? " < " : " > ", goal, ")");
}

void reportmonths(std::string_view letter, double life, double usage) {
    const double months = life / usage;
    if (months > mostMonths)
        report("   ", letter, " *", Word::Month, " >60");
    else
        report("   ", letter, " *", Word::Month, " = ", Reported{months});
}

void reportusage(const TestGoal& goal, const TestResult& result, bool anyData) {
    if (goal.usage <= 0) return;
    report("4) ", Word::Production, " ", Word::Usage, " ", Word::By, " ", Word::Month, " = ",
           Reported{goal.usage});
    reportmonths("R", goal.life, goal.usage);
    if (anyData) reportmonths("D", result.life, goal.usage);
    report("   ", Word::Additional, " ", Word::Usage, " ", Word::To, " ", Word::End, " ", Word::Of, " ",
           Word::Requirement, " = ", Reported{std::max(0.0, result.time) / goal.usage}, " ", Word::Month);
}

void reportplan(const TestGoal& goal, const TestResult& result, bool anyData) {
    report();
    report(Word::Test, " ", Word::Output, " ", Word::Requirement);
    if (goal.confidence == medianConfidence)
        report(Word::Median, " ", Word::Estimate);
    else
        report(Word::Results, " ", Word::At, " ", Word::Confidence, " = ", goal.confidence, " %");
    report("0) ", Word::Start, ": ", Word::Data, " ", Word::Results, " ... ", Word::Set, " ",
           session.currentSet);
    reportcell(0, "1) ", goal.unit, " ", Word::Goal, " = ", Reported{goal.life});
    if (anyData)
        reportcheck(Reported{goal.life}, Reported{result.life}, goal.life, result.life);
    else
        report();
    reportcell(0, "2) ", Word::Goal, " ", Word::Reliability, " ", Word::For, " ", goal.unit, " = ",
               Reported{goal.reliability});
    if (anyData)
        reportcheck(Reported{goal.reliability}, Reported{result.reliability}, goal.reliability,
                    result.reliability);
    else
        report();
    report("3) ", Word::Additional, " ", goal.unit, " ", Word::By, " ", Word::Each, " ", Word::Additional,
           " ", Word::Item, " = ", Reported{std::max(0.0, result.time)}, " (", Word::Allowable, " ",
           Word::Occurrence, " = 0)");
    report("   ", Word::Additional, " ", Word::Item, " ", Word::Quantity, " = ", goal.items);
    reportusage(goal, result, anyData);
}

bool goodgoal(const TestGoal& goal) {
    return goal.life > 0 && share(goal.reliability) && percentage(goal.confidence) && goal.items > 0
           && std::isfinite(goal.life) && std::isfinite(goal.items);
}

TestedSoFar testedsofar(int k, double beta) {
    if (pointcount(k) == 0) return {};
    const WeibayesData data = weibayesdata(k, beta);
    return {data.sum.valid(), data.sum.logarithm(), data.failures};
}

} // namespace

double goalscale(double life, double reliability, double beta) {
    if (!(life > 0) || !share(reliability) || !(beta > 0)) return 0;
    return held(std::log(life) - std::log(-std::log(reliability)) / beta);
}

double reliabilityat(double life, double eta, double beta) {
    if (!(life > 0) || !(eta > 0) || !(beta > 0)) return 0;
    return std::exp(-std::exp(beta * std::log(life / eta)));
}

double lifeat(double reliability, double eta, double beta) {
    if (!share(reliability) || !(eta > 0) || !(beta > 0)) return 0;
    return held(std::log(eta) + std::log(-std::log(reliability)) / beta);
}

double zerofailuretime(double etaGoal, double beta, double items, double confidence) {
    return additionaltime({}, etaGoal, beta, items, confidence);
}

double zerofailureitems(double etaGoal, double beta, double time, double confidence) {
    if (!(etaGoal > 0) || !(beta > 0) || !(time > 0) || !percentage(confidence)) return 0;
    const double exact = held(std::log(-std::log1p(-confidence / 100)) + beta * std::log(etaGoal / time));
    // A whole number that rounding has lifted by a last place is still that number.
    return exact < 1e15 ? std::ceil(exact * (1 - 1e-12)) : exact;
}

double additionaltime(const TestedSoFar& tested, double etaGoal, double beta, double items,
                      double confidence) {
    if (!(etaGoal > 0) || !(beta > 0) || !(items > 0) || !percentage(confidence)) return 0;
    const double failures = tested.any ? tested.failures : 0;
    const double units = chi2inv(confidence / 100, 2 * failures + 2) / 2;
    const double wanted = std::log(units) + beta * std::log(etaGoal);
    if (!tested.any) return held((wanted - std::log(items)) / beta);
    const double larger = std::max(wanted, tested.logSum);
    const double difference = larger + std::log(-std::expm1(-std::fabs(wanted - tested.logSum)));
    const double time = held((difference - std::log(items)) / beta);
    return wanted < tested.logSum ? -time : time;
}

void testcalc() {
    const int k = session.currentSet;
    const double beta = knownslope(k);
    if (beta <= 0) {
        tellset(k, "Beta <= 0");
        return;
    }
    const TestedSoFar tested = testedsofar(k, beta);
    TestGoal goal;
    goal.items = session.testQty;
    if (tested.any) goal.life = weibayeslimit(tested.logSum, beta, tested.failures, medianConfidence);
    if (!askunit(goal)) return;
    while (askgoal(goal)) {
        const TestResult result = goodgoal(goal) ? planof(goal, tested, beta) : TestResult{};
        if (!goodgoal(goal) || !std::isfinite(result.time)) {
            session.ud = result.time;
            tellset(k, Word::Calculation, " ", Word::Error, " ... (menutestout ... 3) ud#=", session.ud);
            return;
        }
        const bool reached = result.time < 0;
        if (reached) tellset(k, Word::Not, " ... ", Word::Lower, " ", Word::Occurrence);
        if (!reached || !session.scriptRequest.empty()) {
            reportplan(goal, result, tested.any);
            return;
        }
    }
}
