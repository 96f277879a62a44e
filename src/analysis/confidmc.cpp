#include "analysis/confidmc.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <vector>

#include "analysis/bounds.h"
#include "analysis/linefit.h"
#include "analysis/mlefit.h"
#include "analysis/notices.h"
#include "analysis/order.h"
#include "analysis/samplefit.h"
#include "data/cell.h"
#include "session/session.h"
#include "shell/prompts.h"

namespace {

constexpr float mostSamples = 32000;
constexpr int mostRedraws = 2000; ///< samples without a line in a row, after which there are none
constexpr double unitsBetweenEvents = 8192;
constexpr double mostUnits = 1e6; ///< of one sample
constexpr int passedOver = 16;    ///< first random values of a start
constexpr double unlimited = std::numeric_limits<double>::infinity();

/// Inspection rows that are single units at ages of their own rank like exact ages.
bool tiedrows(int k) {
    const int points = pointcount(k);
    for (int m = 1; m <= points; ++m) {
        const int j = session.pointOrder(k, m);
        if (pointquantity(k, j) > 1) return true;
        if (m > 1 && pointvalue(k, j) == pointvalue(k, session.pointOrder(k, m - 1))) return true;
    }
    return false;
}

/// True when the samples of the set can be drawn; told when not.
bool simulable(int k) {
    const int points = pointcount(k);
    if (points < 2) {
        tellset(k, Word::Point, " ", Word::Quantity, " < 2");
        return false;
    }
    bool exact = !groupedinput() && portionatrisk() == 1 && session.countQuantity(k) <= mostUnits;
    for (int j = 1; j <= points && exact; ++j) exact = session.pointTypes(k, j) <= Susp;
    if (exact && session.inputType == insp1) exact = !tiedrows(k);
    if (!exact)
        tellset(k, Word::MonteCarlo, " ", Word::Not, " ", Word::Possible, " ", Word::For, " ", Word::Data,
                " ", Word::Type);
    return exact;
}

/// Until when each unit of the set is seen, on the standard scale of the line.
std::vector<double> limitsofset(int k, const StandardLine& line) {
    const int points = pointcount(k);
    const auto z = [&](int j) { return line.z(pointvalue(k, j) - session.t0(k)); };
    const int last = session.pointOrder(k, points);
    const double end = session.pointTypes(k, last) == Susp ? z(last) : unlimited;
    std::vector<double> limits;
    limits.reserve(static_cast<std::size_t>(session.countQuantity(k)));
    for (int j = 1; j <= points; ++j) {
        const double limit = session.pointTypes(k, j) == Susp ? z(j) : end;
        limits.insert(limits.end(), static_cast<std::size_t>(pointquantity(k, j)), limit);
    }
    return limits;
}

SamplePlan planofset(int k, const StandardLine& line) {
    SamplePlan plan;
    plan.shape = line.shape;
    plan.likelihood = bylikelihood();
    plan.xOnY = regressxony();
    plan.rankMethod = static_cast<int>(session.rankMethod);
    plan.fixedScale = session.fixedSlope > 0;
    plan.parent = currentline();
    plan.mleVariant = session.setCorrected(k) == 1 ? session.mleVariant : 0;
    plan.leaves = limitsofset(k, line);
    return plan;
}

enum class Ending { complete, escaped, hopeless };

void showprogress(int k, int done, int count) {
    compose(session.msg, Word::Set, " ", k, " ", Word::Simulation, " MC # = ", done, " / ", count, " ...");
    statusline();
}

/// Draws and fits `count` samples, or as many as there is time for.
Ending simulate(int k, const SamplePlan& plan, int count, std::vector<SampleLine>& lines) {
    SampleFitter fitter(plan);
    const auto units = static_cast<double>(plan.leaves.size());
    double walked = unitsBetweenEvents;
    int redrawn = 0;
    while (lines.size() < static_cast<std::size_t>(count)) {
        walked += units;
        if (walked > unitsBetweenEvents) {
            walked = 0;
            showprogress(k, static_cast<int>(lines.size()), count);
            if (escapedat(static_cast<double>(lines.size()) / count)) return Ending::escaped;
        }
        SampleLine line;
        if (fitter.fit(fitter.draw(randomsource), line)) {
            lines.push_back(line);
            redrawn = 0;
        } else if (++redrawn > mostRedraws) {
            return Ending::hopeless;
        }
    }
    return Ending::complete;
}

double confidenceof(BoundSide side) {
    return (side == BoundSide::low ? session.confLow : session.confHigh) / 100.0;
}

/// The places of both confidences lie within a list of so many samples.
bool enoughsamples(int n) {
    for (const BoundSide side : {BoundSide::low, BoundSide::high}) {
        const double place = (n + 1.0) * confidenceof(side);
        if (boundasked(side) && !(place >= 1 && place <= n)) return false;
    }
    return true;
}

/// The least count whose list holds the places of both confidences.
double fewestsamples() {
    double most = 2;
    for (const BoundSide side : {BoundSide::low, BoundSide::high})
        if (const double c = confidenceof(side); boundasked(side))
            most = std::max({most, 1 / c, 1 / (1 - c)});
    return std::ceil(most) - 1;
}

/// The simulated lines, and what they say at a confidence.
class Simulated {
public:
    Simulated(const std::vector<SampleLine>& samples, const StandardLine& fitted, bool pivots)
        : lines(samples),
          line(fitted),
          pivotal(pivots),
          list(samples.size()) {}

    /// Bound on the plot scale of the quantile that stands at z on the standard scale.
    double quantile(double z, double confidence) {
        return line.location + line.scale * value(confidence, [this, z](const SampleLine& sample) {
                                   return pivotal ? (z - sample.location) / sample.scale
                                                  : sample.location + sample.scale * z;
                               });
    }

    /// Bound of the scale; `reciprocal` that of one over it.
    double scale(double confidence, bool reciprocal) {
        const bool inverse = pivotal != reciprocal;
        const double factor = value(confidence, [inverse](const SampleLine& sample) {
            return inverse ? 1 / sample.scale : sample.scale;
        });
        return reciprocal ? factor / line.scale : line.scale * factor;
    }

    double datavalue(double plot) const { return line.logarithmic ? std::exp(plot) : plot; }

private:
    template <class Of>
    double value(double confidence, Of of) {
        std::transform(lines.begin(), lines.end(), list.begin(), of);
        return listvalue(list, confidence);
    }

    const std::vector<SampleLine>& lines;
    StandardLine line;
    bool pivotal;
    std::vector<double> list;
};

/// The plot Y of the family, which is the place of x_p on the standard scale.
double standardplace(double p) { return plotyofp(session.dist, session.gumbeltype, p); }

double answer(double value) { return std::isfinite(value) ? value : noAnswer; }

void parameterbounds(int k, Simulated& simulated, BoundSide side) {
    auto& bounds = side == BoundSide::low ? session.paramLow : session.paramHigh;
    const double confidence = confidenceof(side);
    const bool slope = session.dist == weibull;
    const double second = simulated.scale(confidence, slope);
    bounds(k, 1) = answer(simulated.datavalue(simulated.quantile(0, confidence)));
    bounds(k, 2) = answer(session.dist == lognormal ? std::exp(second) : second);
}

void curve(int k, Simulated& simulated, BoundSide side) {
    for (const double p : askedprobabilities()) {
        const double plot = simulated.quantile(standardplace(p), confidenceof(side));
        addbound(k, side, simulated.datavalue(plot) + session.t0(k), p);
    }
}

void keepcorrelations(const std::vector<SampleLine>& lines) {
    session.mcCorrelations.clear();
    for (const SampleLine& line : lines) session.mcCorrelations.push_back(static_cast<float>(line.rSquared));
    std::sort(session.mcCorrelations.begin(), session.mcCorrelations.end());
}

/// True when the samples suffice. Fewer than were asked for are told.
bool simulationserves(int k, Ending ending, int samples, int count) {
    const bool enough = samples > 1 && enoughsamples(samples);
    if (ending == Ending::escaped && enough) session.abortCode = 0;
    if (session.abortCode == escapePressed) return false;
    const auto tell = [k, samples](const auto&... remedy) {
        tellset(k, Word::Confidence, " ", Word::Calculation, " ", Word::Truncated, " ... MC # = ", samples,
                remedy...);
    };
    if (!enough && ending == Ending::complete && std::isfinite(fewestsamples()))
        tell(" ... ", Word::Minimum, " = ", fewestsamples());
    else if (!enough)
        tell();
    else if (samples < count)
        tellset(k, "MC # = ", samples);
    return enough;
}

} // namespace

void startsimulation() {
    const auto start = static_cast<int32_t>(std::clamp(session.rndStart, -2e9f, 2e9f));
    if (start == 0) {
        seedrnd();
        return;
    }
    seedrnd(start, start, start, start);
    for (int i = 0; i < passedOver; ++i) Rnd();
}

int simulationcount() {
    return static_cast<int>(std::isfinite(session.mcCount) ? std::clamp(session.mcCount, 1.0f, mostSamples)
                                                           : 1);
}

void confidmc() {
    const int k = session.currentSet;
    const int row = static_cast<int>(rowofset(static_cast<float>(k)));
    clearbounds(k);
    if (session.setFitted(k) != 1 || !simulable(k)) return;
    const Keep keep(session.eta, session.beta);
    session.eta = session.etaFit(row, 1);
    session.beta = session.betaFit(row, 1);
    const StandardLine line = standardline(currentline());
    if (!(line.scale > 0)) return;

    startsimulation();
    const int count = simulationcount();
    std::vector<SampleLine> lines;
    lines.reserve(static_cast<std::size_t>(count));
    const Ending ending = simulate(k, planofset(k, line), count, lines);
    if (!simulationserves(k, ending, static_cast<int>(lines.size()), count)) return;
    keepcorrelations(lines);
    Simulated simulated(lines, line, std::abs(session.confMethod) == pivotalBounds);
    for (const BoundSide side : {BoundSide::low, BoundSide::high}) {
        if (!boundasked(side)) continue;
        parameterbounds(k, simulated, side);
        curve(k, simulated, side);
    }
    session.setBoundLabel(k) = std::abs(session.confMethod) == pivotalBounds ? "pv" : "mc";
}
