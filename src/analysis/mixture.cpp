#include "analysis/mixture.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

#include "analysis/confidmc.h"
#include "analysis/lifeterms.h"
#include "analysis/newton.h"
#include "analysis/notices.h"
#include "analysis/order.h"
#include "data/report.h"
#include "numeric/random.h"
#include "numeric/sngguard.h"
#include "session/session.h"
#include "shell/prompts.h"

namespace {

constexpr int rounds = 5;
constexpr int trialsBetweenEvents = 256;
constexpr double leastFailures = 4;
constexpr double leastOfMode = 2; ///< failures expected of a mode: a single one gives no slope
constexpr double polishRise = 1e-6;
constexpr double steps[] = {0.7, 0.9, 1.2, 1.4};
constexpr double flattest = 0.001, steepest = 1000; ///< slopes, and etas as parts of the middle of the data
constexpr int mostSteps = 20000;
constexpr double lastRise = 1e-13; ///< of the size of the likelihood
constexpr double leastWeight = 1e-9;

/// The parameters in one row: eta 1, eta 2, beta 1, beta 2, portion.
using Place = std::array<double, 5>;

TwoModes modesat(const Place& p) { return {{p[0], p[1]}, {p[2], p[3]}, p[4]}; }
Place placeof(const TwoModes& m) { return {m.eta[0], m.eta[1], m.beta[0], m.beta[1], m.portion}; }

/// What both modes say at one age.
struct AtAge {
    double hazard[2]; ///< of ln x
    double logSurvival[2];

    AtAge(const TwoModes& modes, const double (&logEta)[2], double logAge) {
        for (const int i : {0, 1}) {
            const double power = std::exp(modes.beta[i] * (logAge - logEta[i]));
            hazard[i] = modes.beta[i] * power;
            logSurvival[i] = -power;
        }
    }
};

/// Portion of the survivors of the first mode and of those that it never strikes, and the first alone.
struct Struck {
    double alive, all;

    Struck(const TwoModes& modes, const AtAge& at)
        : alive(modes.portion * std::exp(at.logSurvival[0])),
          all(alive + 1 - modes.portion) {}
};

/// Probability that a failure came by the first mode.
double causeof(const Struck& struck, const AtAge& at) {
    const double byFirst = struck.alive * at.hazard[0];
    const double byEither = byFirst + struck.all * at.hazard[1];
    return byEither > 0 ? byFirst / byEither : 0;
}

/// Both modes are expected to have failures enough for a line of their own.
bool bothshow(const TwoModes& modes, std::span<const ModeUnit> units) {
    const double logEta[] = {std::log(modes.eta[0]), std::log(modes.eta[1])};
    double first = 0;
    double all = 0;
    for (const ModeUnit& unit : units) {
        if (!unit.failed) continue;
        const AtAge at(modes, logEta, unit.logAge);
        first += unit.weight * causeof(Struck(modes, at), at);
        all += unit.weight;
    }
    return first >= leastOfMode && all - first >= leastOfMode;
}

/// The units as one mode sees them.
struct ModeView {
    std::vector<double> y, weight;
    ProfileData data;
    double total = 0;

    ModeView(std::size_t units, double reference) {
        y.reserve(2 * units);
        weight.reserve(2 * units);
        data.reference = reference;
    }
    void add(double logAge, double w, bool failed) {
        if (!(w > 0)) return;
        y.push_back(logAge - data.reference);
        weight.push_back(w);
        total += w;
        if (!failed) return;
        data.failures += w;
        data.failureSum += w * (logAge - data.reference);
    }
    /// The line of largest likelihood; the one at hand where there is none.
    void improve(double& eta, double& beta) {
        data.y = y;
        data.weight = weight;
        if (data.failures < leastWeight) return;
        const ProfileSearch found = weibullprofile(data, beta, [] { return false; });
        if (found.end != SearchEnd::found || found.beta > steepest || found.beta < flattest) return;
        beta = found.beta;
        eta = std::exp(found.logEta);
    }
};

std::vector<ModeUnit> unitsofset(int k) {
    std::vector<ModeUnit> units;
    for (int j = 1; j <= pointcount(k); ++j) {
        const LifeTerm term = termofpoint(k, j);
        if (!(term.low > 0)) continue;
        units.push_back({std::log(term.low), term.weight, term.known == Known::exactly});
    }
    return units;
}

bool fitable(int k) {
    bool exact = session.dist == weibull && !groupedinput() && portionatrisk() == 1;
    for (int j = 1; j <= pointcount(k) && exact; ++j) exact = session.pointTypes(k, j) <= Susp;
    if (!exact)
        tellset(k, Word::Mixture, " ", Word::Fit, " ", Word::Not, " ", Word::Possible, " ", Word::For, " ",
                Word::Data, " ", Word::Type);
    else if (session.countOccr(k) < leastFailures)
        tellset(k, Word::Not, " ", Word::Enough, " ", Word::Data);
    return exact && session.countOccr(k) >= leastFailures;
}

/// The best place and its likelihood.
struct BestPlace {
    Place place{};
    double value = -HUGE_VAL;

    bool take(const Place& trial, std::span<const ModeUnit> units) {
        const double found = modeslikelihood(modesat(trial), units);
        if (!(found > value)) return false;
        place = trial;
        value = found;
        return true;
    }
};

/// Random trials in a box that shrinks about the best of them. False after Escape.
bool searchbox(std::span<const ModeUnit> units, Place low, Place high, BestPlace& best) {
    const int trials = simulationcount();
    for (int round = 0; round < rounds; ++round) {
        for (int trial = 0; trial < trials; ++trial) {
            const double done = (round + static_cast<double>(trial) / trials) / rounds;
            if (trial % trialsBetweenEvents == 0 && escapedat(done)) return false;
            Place place;
            for (std::size_t i = 0; i < place.size(); ++i) place[i] = low[i] + Rnd() * (high[i] - low[i]);
            best.take(place, units);
        }
        for (std::size_t i = 0; i < low.size(); ++i) {
            low[i] = (2 * best.place[i] + low[i]) / 3;
            high[i] = (2 * best.place[i] + high[i]) / 3;
        }
    }
    return true;
}

/// Steps by factors, each parameter in turn, as long as they pay.
void polish(std::span<const ModeUnit> units, double middle, bool portion, BestPlace& best) {
    const Place unit = {middle, middle, 1, 1, 1};
    const std::size_t count = portion ? 5 : 4;
    for (double before = -HUGE_VAL; best.value > before + polishRise;) {
        before = best.value;
        for (std::size_t i = 0; i < count; ++i)
            for (const double step : steps) {
                Place trial = best.place;
                trial[i] *= step;
                const bool inside = trial[i] >= flattest * unit[i] && trial[i] <= steepest * unit[i];
                if (inside && (i < 4 || trial[i] < 1)) best.take(trial, units);
            }
    }
}

/// False after Escape.
bool climb(std::span<const ModeUnit> units, BestPlace& best) {
    for (int step = 0; step < mostSteps; ++step) {
        if (step % trialsBetweenEvents == 0 && escaped()) return false;
        const double before = best.value;
        if (!best.take(placeof(improvedmodes(modesat(best.place), units)), units)) return true;
        if (best.value - before < lastRise * (1 + std::fabs(before))) return true;
    }
    return true;
}

void keepmodes(int k, const BestPlace& best, bool portion) {
    const TwoModes modes = modesat(best.place);
    for (const int i : {0, 1}) {
        session.mixEtas(i + 1) = sngguard(modes.eta[i]);
        session.mixBetas(i + 1) = sngguard(modes.beta[i]);
    }
    session.mixPortions(1) = sngguard(modes.portion);
    session.mixPortions(2) = 1;
    session.mixKind = portion ? 5 : 4;
    session.mixFlag = 1;
    session.logLik = best.value;
    report(Word::Mixture, " ", Word::Analysis, " ", Word::Results);
    report(Word::Optimum, " ", Word::Mixture);
    for (const int i : {0, 1}) {
        reportcell(0, " (", i + 1, ") = ", Reported{i == 0 ? modes.portion : 1.0});
        reportcell(25, parametername(weibull, 1), "=", Reported{modes.eta[i]});
        reportend(50, parametername(weibull, 2), "=", Reported{modes.beta[i]});
    }
    compose(session.msg, Word::Set, " ", k, ": ", Word::Mixture);
    if (session.LOGLYKMLE(k) > -9e30) extend(session.msg, " LL1=", Reported{session.LOGLYKMLE(k)});
    extend(session.msg, " LL2=", Reported{best.value});
    reportline();
}

} // namespace

double modeslikelihood(const TwoModes& modes, std::span<const ModeUnit> units) {
    const bool good = modes.eta[0] > 0 && modes.eta[1] > 0 && modes.beta[0] > 0 && modes.beta[1] > 0
                      && modes.portion >= 0 && modes.portion <= 1;
    if (!good) return -HUGE_VAL;
    const double logEta[] = {std::log(modes.eta[0]), std::log(modes.eta[1])};
    double sum = 0;
    for (const ModeUnit& unit : units) {
        const AtAge at(modes, logEta, unit.logAge);
        const Struck struck(modes, at);
        double value = at.logSurvival[1];
        if (unit.failed)
            value += std::log(struck.alive * at.hazard[0] + struck.all * at.hazard[1]) - unit.logAge;
        else
            value += std::log(struck.all);
        sum += unit.weight * value;
    }
    return std::isnan(sum) ? -HUGE_VAL : sum;
}

TwoModes improvedmodes(const TwoModes& modes, std::span<const ModeUnit> units) {
    const double logEta[] = {std::log(modes.eta[0]), std::log(modes.eta[1])};
    double reference = -HUGE_VAL;
    for (const ModeUnit& unit : units) reference = std::max(reference, unit.logAge);
    ModeView first(units.size(), reference);
    ModeView second(units.size(), reference);
    for (const ModeUnit& unit : units) {
        const AtAge at(modes, logEta, unit.logAge);
        const Struck struck(modes, at);
        const double cause = unit.failed ? causeof(struck, at) : 0;
        const double ofPortion = struck.all > 0 ? struck.alive / struck.all : 0;
        first.add(unit.logAge, unit.weight * cause, true);
        first.add(unit.logAge, unit.weight * (1 - cause) * ofPortion, false);
        second.add(unit.logAge, unit.weight * (unit.failed ? 1 - cause : 0), true);
        second.add(unit.logAge, unit.weight * (unit.failed ? cause : 1), false);
    }
    TwoModes better = modes;
    if (modes.portion < 1) better.portion = std::min(first.total / second.total, 1 - 1e-12);
    first.improve(better.eta[0], better.beta[0]);
    second.improve(better.eta[1], better.beta[1]);
    return better;
}

void mixturefit() {
    const int k = session.currentSet;
    if (!fitable(k)) return;
    const bool portion = session.mixKind != 4;
    const std::vector<ModeUnit> units = unitsofset(k);
    const auto [least, most] = std::minmax_element(
        units.begin(), units.end(), [](const ModeUnit& a, const ModeUnit& b) { return a.logAge < b.logAge; });
    const double smallest = std::exp(least->logAge);
    const double largest = std::exp(most->logAge);
    const Place low = {smallest, smallest, 0.3, 0.3, portion ? 0.01 : 1};
    const Place high = {2 * largest, 2 * largest, 10, 10, portion ? 0.99 : 1};
    startsimulation();
    BestPlace best;
    bool done = searchbox(units, low, high, best) && std::isfinite(best.value);
    if (done) {
        polish(units, std::exp((least->logAge + most->logAge) / 2), portion, best);
        done = climb(units, best);
    }
    if (!done)
        tellset(k, Word::Calculation, " ", Word::Truncated);
    else if (!bothshow(modesat(best.place), units))
        tellset(k, Word::Mixture, " ", Word::Fit, " ", Word::Not, " ", Word::Possible, " ... ", Word::No, " ",
                Word::Optimum);
    else
        keepmodes(k, best, portion);
}
