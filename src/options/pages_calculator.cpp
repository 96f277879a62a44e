#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>
#include <numbers>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "analysis/goodness.h"
#include "analysis/linelife.h"
#include "data/cell.h"
#include "numeric/binomial.h"
#include "numeric/chisquare.h"
#include "numeric/gamma.h"
#include "numeric/noncentralt.h"
#include "numeric/normal.h"
#include "numeric/saddlepoint.h"
#include "options/page.h"
#include "shell/calcplot.h"
#include "shell/commandactions.h"
#include "shell/prompts.h"

/// The calculator: probabilities of the usual distributions, asked for value by value and told.

namespace {

constexpr double most = 1e12;
constexpr double none = std::numeric_limits<double>::quiet_NaN(); ///< a result that does not exist

/// One value that a calculation needs.
struct Asked {
    Label lead;
    double preset, low, high;
    bool whole = false;
};

/// One result.
struct Result {
    Label name;
    double value;
};

/// Asks for all values; nothing on a cancel.
std::optional<std::vector<double>> ask(std::span<const Asked> asked) {
    std::vector<double> values;
    for (const Asked& one : asked) {
        double value = one.preset;
        if (!asknumberwithin(one.lead, value, one.low, one.high, one.whole)) return std::nullopt;
        values.push_back(value);
    }
    return values;
}

/// A calculation: what it asks for, and what it makes of that.
struct Calculation {
    Label title;
    std::vector<Asked> asked;
    std::vector<Result> (*results)(const std::vector<double>& v);
};

void appendresult(std::string& text, double value) {
    if (std::isfinite(value) && value > noLowLimit)
        appendshown(text, value, 9);
    else
        append(text, Word::None);
}

/// Asks, calculates, and tells the values with the results. Nothing in the session changes.
bool calculate(const Calculation& calculation) {
    const auto values = ask(calculation.asked);
    if (!values) return false;
    const Keep keep{session.msg, session.menuTitle, session.u, session.ud};
    std::string text;
    for (std::size_t i = 0; i < values->size(); ++i) {
        extend(text, calculation.asked[i].lead, " = ");
        appendresult(text, (*values)[i]);
        append(text, lineBreak);
    }
    for (const Result& result : calculation.results(*values)) {
        extend(text, lineBreak, result.name, " = ");
        appendresult(text, result.value);
    }
    session.msg = text;
    compose(session.menuTitle, calculation.title);
    tellok();
    return false;
}

const Label upTo{"P (X <= x)"}, above{"P (X > x)"}, equal{"P (X = x)"};

/// The user's own name for the mean time between failures.
const char* mtbfname() { return session.mtbfName.c_str(); }

bool binomial() {
    return calculate(
        {{Word::Binomial},
         {{{Word::Trial, Word::Quantity}, 10, 1, 1e9, true},
          {{Word::Occurrence, Word::Quantity}, 0, 0, 1e9, true},
          {{Word::Probability, "%"}, 50, 0, 100}},
         [](const std::vector<double>& v) -> std::vector<Result> {
             const double p = v[2] / 100;
             const double point = v[1] <= v[0] ? binomialterm(v[0], v[1], p, 1 - p) : 0;
             return {{upTo, binotail(v[0], v[1], p)}, {above, binotailabove(v[0], v[1], p)}, {equal, point}};
         }});
}

bool chisquare() {
    return calculate({{Word::ChiSquare},
                      {{{"X"}, 1, 0, most}, {{Word::Dimension, "(d.o.f.)"}, 1, 1e-3, most}},
                      [](const std::vector<double>& v) -> std::vector<Result> {
                          return {{upTo, chi2cdf(v[0], v[1])}, {above, chi2sf(v[0], v[1])}};
                      }});
}

bool chisquarevalue() {
    return calculate({{Word::ChiSquare, Word::Value},
                      {{{Word::Cumulative, Word::Probability, "(%)"}, 95, 1e-9, 100 - 1e-9},
                       {{Word::Dimension, "(d.o.f.)"}, 1, 1e-3, most}},
                      [](const std::vector<double>& v) -> std::vector<Result> {
                          return {{{"X"}, chi2inv(v[0] / 100, v[1])}};
                      }});
}

bool exponential() {
    return calculate({{Word::Exponential},
                      {{{"X"}, 1, 0, 9e30}, {{mtbfname()}, 1, 1e-30, 9e30}},
                      [](const std::vector<double>& v) -> std::vector<Result> {
                          const double z = v[0] / v[1];
                          return {{upTo, -std::expm1(-z)}, {above, std::exp(-z)}, {{Word::Rate}, 1 / v[1]}};
                      }});
}

bool gammas() {
    return calculate({{Word::Gamma},
                      {{{"X"}, 1, 0, most}, {{"a"}, 1, 1e-6, most}, {{"b"}, 1, 1e-30, 9e30}},
                      [](const std::vector<double>& v) -> std::vector<Result> {
                          const GammaTails tails = gammatails(v[1], v[0] / v[2]);
                          return {{upTo, tails.lower},
                                  {above, tails.upper},
                                  {{"Gamma (a)"}, v[1] < 171.6 ? gammafunction(v[1]) : none}};
                      }});
}

bool normals() {
    return calculate(
        {{Word::Normal},
         {{{"X"}, 0, -9e30, 9e30}, {{Word::Mean}, 0, -9e30, 9e30}, {{Word::StdDev}, 1, 1e-30, 9e30}},
         [](const std::vector<double>& v) -> std::vector<Result> {
             const double z = (v[0] - v[1]) / v[2];
             return {{{"z"}, z}, {upTo, normcdf(z)}, {above, normsf(z)}};
         }});
}

/// Poisson term m^k e^-m / k! in the saddle-point form, which keeps its digits at large counts.
/// Loader, Fast and accurate computation of binomial probabilities (2000), eq. 5.
double poissonterm(double k, double m) {
    if (k == 0) return std::exp(-m);
    return std::exp(-stirlingerror(k) - deviance(k, m)) / std::sqrt(2 * std::numbers::pi * k);
}

/// Poisson and gamma are two views of one process: at most k events where the (k + 1)th comes after m.
bool poisson() {
    return calculate({{"Poisson"},
                      {{{Word::Occurrence, Word::Quantity}, 0, 0, 1e9, true},
                       {{Word::Expected, Word::Quantity}, 1, 1e-12, 1e9}},
                      [](const std::vector<double>& v) -> std::vector<Result> {
                          const GammaTails next = gammatails(v[0] + 1, v[1]);
                          return {{upTo, next.upper}, {above, next.lower}, {equal, poissonterm(v[0], v[1])}};
                      }});
}

bool student() {
    return calculate(
        {{"Student - t"},
         {{{"t", Word::Parameter}, 0, -1e6, 1e6}, {{Word::Dimension, "(d.o.f.)"}, 1, 1e-3, 1e9}},
         [](const std::vector<double>& v) -> std::vector<Result> {
             return {{upTo, noncentraltcdf(v[0], v[1], 0)}, {above, noncentraltcdf(-v[0], v[1], 0)}};
         }});
}

/// ln Gamma(1 + 2z) - 2 ln Gamma(1 + z) = sum of zeta(k) (2^k - 2) (-z)^k / k from k = 2, for 0 <= z <= 0.02:
/// the two logarithms agree there in all digits that count. Relative error below 1e-15.
/// Abramowitz and Stegun, Handbook of Mathematical Functions (1964), 6.1.33 and table 23.3.
double nearlogarithms(double z) {
    constexpr double zeta[] = {1.6449340668482264, 1.2020569031595943, 1.0823232337111382, 1.0369277551433699,
                               1.0173430619844491, 1.0083492773819228, 1.0040773561979443, 1.0020083928260822,
                               1.0009945751278181, 1.0004941886041195, 1.0002460865533080};
    double sum = 0;
    double power = -z;
    double two = 2;
    for (std::size_t i = 0; i < std::size(zeta); ++i) {
        power *= -z;
        two *= 2;
        sum += zeta[i] * (two - 2) * power / static_cast<double>(i + 2);
    }
    return sum;
}

/// Coefficient of variation of a Weibull line, of its slope alone:
/// sqrt(Gamma(1 + 2/b) / Gamma(1 + 1/b)^2 - 1).
double weibullvariation(double beta) {
    constexpr double steep = 50;
    if (beta >= steep) return std::sqrt(std::expm1(nearlogarithms(1 / beta)));
    return std::sqrt(std::expm1(std::lgamma(1 + 2 / beta) - 2 * std::lgamma(1 + 1 / beta)));
}

bool variation() {
    return calculate({{"Cv (%) ... Sig / Mu"},
                      {{{Word::Mean}, 1, 1e-30, 9e30}, {{Word::StdDev}, 1, 0, 9e30}},
                      [](const std::vector<double>& v) -> std::vector<Result> {
                          return {{{"Cv (%)"}, 100 * v[1] / v[0]}};
                      }});
}

bool toeta() {
    return calculate({{Word::Change, Word::Mean, Word::To, "Eta"},
                      {{{Word::Mean}, 1, 1e-30, 9e30}, {{Word::WeibullSlope}, 1, 0.05, 1e6}},
                      [](const std::vector<double>& v) -> std::vector<Result> {
                          return {{{"Eta"}, v[0] / std::exp(std::lgamma(1 + 1 / v[1]))}};
                      }});
}

bool tomean() {
    return calculate({{Word::Change, Word::To, Word::Mean, "+", Word::StdDev},
                      {{{"Eta"}, 1, 1e-30, 9e30}, {{Word::WeibullSlope}, 1, 0.05, 1e6}},
                      [](const std::vector<double>& v) -> std::vector<Result> {
                          const double mean = v[0] * std::exp(std::lgamma(1 + 1 / v[1]));
                          const double cv = weibullvariation(v[1]);
                          return {{{Word::Mean}, mean}, {{Word::StdDev}, mean * cv}, {{"Cv (%)"}, 100 * cv}};
                      }});
}

// ---- of a fitted line ----

/// The line that a calculation is about: that of the set in hand.
int lineset() { return std::clamp(session.activeSet, 1, std::max(setcount(), 1)); }
bool anyline() { return onlifeside() && setcount() > 0 && session.setFitted(lineset()) == 1; }

FamilyLine line() {
    FamilyLine line = currentline();
    const int row = static_cast<int>(rowofset(static_cast<float>(lineset())));
    line.eta = session.etaFit(row, 1);
    line.beta = session.betaFit(row, 1);
    return line;
}
double threshold() { return static_cast<double>(session.t0(lineset())); }

bool renewal() {
    calcpending();
    return calculate({{mtbfname(), Word::With, Word::Planned, Word::Renewal},
                      {{{Word::Planned, Word::Renewal, Word::Time}, 1, 1e-30, 9e30}},
                      [](const std::vector<double>& v) -> std::vector<Result> {
                          return {{{mtbfname()}, renewedmtbf(line(), threshold(), v[0])}};
                      }});
}

/// The values of the set in hand at the two ends of its sample.
struct Ends {
    double low = 0, high = 0, quantity = 0;
};
Ends endsofset() {
    const int k = lineset();
    Ends ends;
    for (int j = 1; j <= pointcount(k); ++j) {
        const double value = pointvalue(k, j);
        ends.low = j == 1 ? value : std::min(ends.low, value);
        ends.high = j == 1 ? value : std::max(ends.high, value);
    }
    ends.quantity = std::max(session.countQuantity(k), 1.0);
    return ends;
}

/// How likely a sample of the line has an end as far out as that of the set: the ends are those of the sample
/// of that size, suspensions and all.
bool outlier() {
    calcpending();
    const Ends ends = endsofset();
    return calculate({{Word::Outlier, "...", Word::Extreme, Word::Point, "P-", Word::Value},
                      {{{Word::Minimum, "X"}, ends.low, -9e30, 9e30},
                       {{Word::Maximum, "X"}, ends.high, -9e30, 9e30},
                       {{Word::Sample, Word::Quantity}, ends.quantity, 1, 1e9, true}},
                      [](const std::vector<double>& v) -> std::vector<Result> {
                          return {{{Word::Minimum, "P-", Word::Value, "%"},
                                   100 * smallestbeyond(line(), threshold(), v[0], v[2])},
                                  {{Word::Maximum, "P-", Word::Value, "%"},
                                   100 * largestbeyond(line(), threshold(), v[1], v[2])}};
                      }});
}

/// A2 of any line, modified for its sample size and turned into a p-value by the family in force.
bool andersondarlings() {
    return calculate({{Word::Modified, "Anderson-Darling"},
                      {{{"A^2"}, 0.5, 1e-6, 1e6}, {{Word::Sample, Word::Quantity}, 10, 3, 1e9, true}},
                      [](const std::vector<double>& v) -> std::vector<Result> {
                          const double modified = modifiedandersondarling(session.dist, v[0], v[1]);
                          const double p = andersondarlingpvalue(session.dist, false, modified);
                          return {{{Word::Modified, "A^2"}, modified}, {{"pAD%"}, 100 * p}};
                      }});
}

bool reading() {
    calcpending();
    precisereading();
    return false;
}

constexpr Item items[] = {
    actionitem('B', {Word::Binomial}, binomial),
    actionitem('C', {Word::ChiSquare}, chisquare),
    actionitem('I', {Word::ChiSquare, Word::Value}, chisquarevalue),
    actionitem('D', {Word::Modified, "Anderson-Darling"}, andersondarlings).when(onlifeside),
    actionitem('E', {Word::Exponential}, exponential),
    actionitem('G', {Word::Gamma}, gammas),
    actionitem('H', {"Gauss (", Word::Normal, ")"}, normals),
    actionitem('L', {Word::Life, Word::Remaining, "...", Word::After, Word::Former, Word::Usage}, lifeleft)
        .when(anyline),
    actionitem('M', {Word::Change, Word::Mean, Word::To, "Eta"}, toeta),
    actionitem('N', {Word::Change, Word::To, Word::Mean, "+", Word::StdDev}, tomean),
    actionitem('O', {Word::Outlier, "...", Word::Extreme, Word::Point, "P-", Word::Value}, outlier)
        .when(anyline),
    actionitem('P', {"Poisson"}, poisson),
    actionitem('Q', {"MTBF", Word::With, Word::Planned, Word::Renewal}, renewal).when(anyline),
    actionitem('R', {Word::Precise, Word::Reading, Word::From, Word::Plot}, reading).when(anyline),
    actionitem('T', {"Student - t"}, student),
    actionitem('V', {"Cv (%) ... Sig / Mu"}, variation),
    exititem('X', {Word::Exit}),
};

constexpr Page pages[] = {{OptionPage::calculator, {Word::Calculator}, items}};

} // namespace

bool lifeleft() {
    calcpending(); // cells may have been typed since the line was fitted
    return calculate(
        {{Word::Life, Word::Remaining, "...", Word::After, Word::Former, Word::Usage},
         {{{Word::Former, Word::Usage}, 0, 0, 9e30},
          {{Word::Occurrence, Word::Probability, "%"}, 10, 1e-7, 99.9999}},
         [](const std::vector<double>& v) -> std::vector<Result> {
             return {{{Word::Life, Word::Remaining}, liferemaining(line(), threshold(), v[0], v[1] / 100)}};
         }});
}

std::span<const Page> calculatorpages() { return pages; }
