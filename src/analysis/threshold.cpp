#include "analysis/threshold.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <optional>

#include "analysis/bounds.h"
#include "analysis/linefit.h"
#include "analysis/mlefit.h"
#include "analysis/notices.h"
#include "analysis/order.h"
#include "analysis/regress.h"
#include "data/cell.h"
#include "session/session.h"
#include "shell/prompts.h"

namespace {

constexpr int trialsOfScan = 12;
constexpr int lastPlaces = 11; ///< from this trial on the best lies at the far end of a scan
constexpr int mostScans = 49;
constexpr int leastScans = 14;
constexpr double firstStep = 0.1;   ///< of the range
constexpr double finestStep = 1e-8; ///< of the distance from the first value
constexpr double moveBack = 10000;  ///< parts of the first value
constexpr double farthest = 1e4;    ///< distance from the first value, in ranges
constexpr double leastFailures = 3; ///< two failures lie on a line for every threshold

struct Best {
    double t0 = 0;
    double measure = noMeasure;
    int place = 0; ///< trial of the scan
};

class Scanner {
public:
    Scanner(const ThresholdMeasure& of, double firstValue, double span, bool byLikelihood)
        : measure(of),
          first(firstValue),
          range(span),
          likelihood(byLikelihood) {}

    ThresholdSearch run() {
        double step = range * firstStep;
        double start = first;
        double former = std::numeric_limits<double>::quiet_NaN();
        for (int scan = 1; scan <= mostScans; ++scan) {
            const Best best = scanfrom(start, step);
            if (escaped()) return {ThresholdSearch::End::escaped, 0};
            if (best.place == 0 || first - best.t0 > farthest * range) return {};
            const bool fine = step < finestStep * (first - best.t0);
            if (scan > leastScans && fine && best.t0 == former) return finish(best);
            former = best.t0;
            if (best.place >= lastPlaces) {
                step *= 2;
                start = best.t0;
            } else {
                start = best.t0 + step;
                step = 2 * step / 10;
            }
            if (scan == mostScans) return finish(best);
        }
        return {};
    }

private:
    /// The trial; one at or beyond the first value is moved back, or left out where the next does as well.
    std::optional<double> trial(double t0, double step) const {
        if (t0 < first) return t0;
        const double moved = first - (first == 0 ? range : std::fabs(first)) / moveBack;
        if (t0 - step > moved) return {};
        return moved;
    }

    Best scanfrom(double start, double step) const {
        Best best;
        double former = noMeasure;
        double beforeThat = noMeasure;
        bool fallingFromFirst = true;
        for (int c = 1; c <= trialsOfScan; ++c) {
            const std::optional<double> placed = trial(start - (c - 1) * step, step);
            if (!placed) continue;
            const double t0 = *placed;
            const double value = measure(t0);
            const bool rises = value > former && former > noMeasure;
            if (likelihood && fallingFromFirst && rises) {
                best = {}; // what went before was the way down from the rise at the first value
                fallingFromFirst = false;
            }
            if (value > best.measure) best = {t0, value, c};
            if (likelihood && value < former && former < beforeThat && !fallingFromFirst) break;
            beforeThat = former;
            former = value;
        }
        return best;
    }

    /// A maximum has lower ground nearer to the first value.
    ThresholdSearch finish(const Best& best) const {
        const double distance = first - best.t0;
        const double size = std::max(std::fabs(first), range);
        const bool atFirst = distance <= 4 * std::numeric_limits<float>::epsilon() * size;
        if (atFirst || !(measure(first - distance / 2) < best.measure)) return {};
        return {ThresholdSearch::End::found, best.t0};
    }

    const ThresholdMeasure& measure;
    double first, range;
    bool likelihood;
};

/// Puts a threshold on the sets, as a single below the first value.
void putthreshold(std::span<const int> sets, double t0, double first) {
    auto single = static_cast<float>(t0);
    if (single >= first) single = std::nextafter(static_cast<float>(first), -HUGE_VALF);
    for (const int k : sets) session.t0(k) = single;
}

double measureofregression(int k) {
    placepoints(k);
    regressselect();
    const PlotLine line = fitline(session.sums, regressxony(), 0);
    return line.exists && line.slope > 0 ? line.r * line.r : noMeasure;
}

double measureoflikelihood() {
    session.eta = session.beta = 0;
    return maxlyk() == SearchEnd::found ? session.logLik : noMeasure;
}

/// Smallest and largest value of the sets; of an interval both ends.
void valuerange(std::span<const int> sets, double& first, double& last) {
    first = HUGE_VAL;
    last = -HUGE_VAL;
    for (const int k : sets)
        for (int j = pointcount(k); j >= 1; --j) {
            const double value = pointvalue(k, j);
            first = std::min(first, value);
            last = std::max({last, value, session.pointTypes(k, j) == Intv ? pointupper(k, j) : value});
        }
}

/// The search over the session's own set. What the trials tell stays untold.
ThresholdSearch searchset(int k) {
    const bool likelihood = session.fitMethod == maximumLikelihood && session.thresholdByRegression != 1;
    const Keep keep(session.eta, session.beta, session.logLik, session.quiet, session.minimumTold,
                    session.loglykErrorTold, session.setMessages, session.inputType);
    session.quiet = 1;
    const auto measure = [=] { return likelihood ? measureoflikelihood() : measureofregression(k); };
    return searchsets({&k, 1}, measure, likelihood);
}

} // namespace

ThresholdSearch searchthreshold(const ThresholdMeasure& measure, double first, double range,
                                bool likelihood) {
    return Scanner(measure, first, range, likelihood).run();
}

bool thresholdsearched() {
    return session.findThreshold == 1 && (session.dist == weibull || session.dist == lognormal);
}

ThresholdSearch searchsets(std::span<const int> sets, const std::function<double()>& measure,
                           bool likelihood) {
    double failures = 0;
    for (const int k : sets) failures += failurecount(k);
    double first;
    double last;
    valuerange(sets, first, last);
    if (failures < leastFailures || !(last > first)) return {};
    const auto trial = [&](double t0) {
        putthreshold(sets, t0, first);
        return measure();
    };
    const ThresholdSearch search = searchthreshold(trial, first, last - first, likelihood);
    if (search.end == ThresholdSearch::End::found) putthreshold(sets, search.t0, first);
    return search;
}

bool findthreshold(int k) {
    session.t0(k) = 0;
    const auto tellimpossible = [k](const auto&... why) {
        tellset(k, Word::Find, " t0 ", Word::Not, " ", Word::Possible, why...);
    };
    if (session.dist == normal || session.dist == gumbel) {
        tellimpossible();
        return true;
    }
    compose(session.msg, Word::Set, " ", k, " ", Word::Find, " t0 ...");
    statusline();
    const ThresholdSearch search = searchset(k);
    if (search.end == ThresholdSearch::End::found) return true;
    session.t0(k) = 0;
    if (search.end == ThresholdSearch::End::escaped) {
        for (int set = 1; set <= setcount(); ++set) clearbounds(set);
    } else {
        tellimpossible(" ... ", Word::No, " ", Word::Optimum);
    }
    return false;
}
