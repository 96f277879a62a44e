#include "plot/functionplot.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>
#include <optional>

#include "plot/canvas.h"
#include "plot/counted.h"
#include "plot/drawing.h"
#include "plot/plotkind.h"
#include "plot/plotprob.h"
#include "plot/polygon.h"
#include "plot/segment.h"
#include "plot/shown.h"
#include "plot/strokes.h"
#include "plot/transforms.h"
#include "session/session.h"
#include "shell/words.h"

namespace {

constexpr int steps = 240;
constexpr double firstQuantile = 0.001, lastQuantile = 0.999;

FamilyLine lineofset(int k) {
    FamilyLine line = currentline();
    const int row = static_cast<int>(rowofset(static_cast<float>(k)));
    line.eta = session.etaFit(row, 1);
    line.beta = session.betaFit(row, 1);
    return line;
}

bool logarithmic() { return session.dist == weibull || session.dist == lognormal; }

/// The function in hand at x; nothing where it has no value.
std::optional<double> valueat(const FamilyLine& line, double x) {
    const Probability at = probabilityofx(line, x);
    double value = 0;
    switch (session.functionPlot) {
    case cumulativeHazardPlot: value = -std::log(at.q); break;
    case distributionPlot: value = at.p; break;
    case reliabilityPlot: value = at.q; break;
    case hazardPlot: value = densityofx(line, x) / at.q; break;
    default: value = densityofx(line, x);
    }
    if (!std::isfinite(value)) return std::nullopt;
    return value;
}

bool hascurves() { return session.functionPlot != histogramPlot && session.functionPlot != suspensionPlot; }
bool hasbars() { return !hascurves() || session.functionPlot == totalPlot; }

FunctionCurve curveofset(int k) {
    const FamilyLine line = lineofset(k);
    const bool negative = !logarithmic();
    const double low = quantileofp(line, firstQuantile, negative);
    const double high = quantileofp(line, lastQuantile, negative);
    const double shift = scaleshift(k);
    FunctionCurve curve{k, {}, {}};
    for (int i = 0; i <= steps; ++i) {
        const double x = low + (high - low) * i / steps;
        const auto y = valueat(line, x);
        if (!y) continue;
        curve.x.push_back(x + shift);
        curve.y.push_back(*y);
    }
    return curve;
}

bool takespart(const Counted& unit) {
    if (session.functionPlot == suspensionPlot) return unit.suspended;
    return session.functionPlot == histogramPlot || !unit.suspended;
}

struct Intervals {
    double low = 0, width = 0;
    int count = 0;
    int of(double x) const { return std::clamp(static_cast<int>((x - low) / width), 0, count - 1); }
};

Intervals intervalsof(const std::vector<Counted>& units) {
    double low = units.front().low, high = units.front().high;
    for (const Counted& unit : units) {
        low = std::min(low, unit.low);
        high = std::max(high, unit.high);
    }
    Intervals intervals{low, 0, barnumber(static_cast<double>(units.size()))};
    const double range = high > low ? high - low : std::max(std::fabs(low), 1.0);
    intervals.width = range / intervals.count;
    return intervals;
}

/// Adds units to the intervals that they overlap, in proportion to the overlap.
void spread(const Counted& unit, const Intervals& intervals, std::vector<double>& quantities) {
    const double length = unit.high - unit.low;
    const int first = intervals.of(unit.low), last = intervals.of(unit.high);
    double passed = 0;
    for (int i = first; i <= last; ++i) {
        const double end = intervals.low + intervals.width * (i + 1);
        const double part = i == last ? 1 : std::clamp((end - unit.low) / length, passed, 1.0);
        quantities[static_cast<std::size_t>(i)] += unit.quantity * (part - passed);
        passed = part;
    }
}

/// A hazard or density without a bound at its start would press all else to the foot of the plot: a curve
/// counts for the window up to three times its value at a tenth of its way.
double heightof(const FunctionCurve& curve) {
    const double most = *std::max_element(curve.y.begin(), curve.y.end());
    const bool falls = curve.y.front() == most;
    return falls ? std::min(most, 3 * curve.y[curve.y.size() / 10]) : most;
}

/// The manual limits in place of the ends, where they leave a window.
void takewindow(const DrawnRange& drawn, double limitLow, double limitHigh, double& low, double& high) {
    low = limitLow != 0 ? limitLow : drawn.low;
    high = limitHigh != 0 ? limitHigh : drawn.high;
    if (low < high) return;
    low = drawn.low;
    high = drawn.high;
}

void drawbar(const HistogramBar& bar, int place, int places) {
    const double slot = (bar.high - bar.low) / places;
    session.setCounter = rowofset(static_cast<float>(bar.set));
    // Suspensions stand hollow upon the failures, and bars behind a curve let it be seen.
    const bool hollow = bar.suspended || session.functionPlot == totalPlot;
    plotbox(canvasx(bar.low + slot * place), canvasy(bar.to), canvasx(bar.low + slot * (place + 1)),
            canvasy(bar.from), colourofset(bar.set), hollow);
}

void drawcurve(const FunctionCurve& curve) {
    session.setCounter = rowofset(static_cast<float>(curve.set));
    session.plotpen = static_cast<float>(colourofset(curve.set));
    session.linewidth = 2;
    if (curve.x.empty()) return;
    tracestart(canvasx(curve.x[0]), canvasy(curve.y[0]));
    for (std::size_t i = 1; i < curve.x.size() && plotting(); ++i)
        traceto(canvasx(curve.x[i]), canvasy(curve.y[i]));
    traceend();
}

} // namespace

bool functionplotted() { return session.progSide == lifeSide && session.functionPlot != probabilityPlot; }

FunctionAxes::FunctionAxes() {
    if (functionplotted()) session.plotMode = functionAxes;
    if (functionplotted() || barsplotted() || pieplotted() || spaceplotted()) session.xyscale = 0;
}

std::vector<FunctionCurve> functioncurves() {
    std::vector<FunctionCurve> curves;
    for (int k = 1; hascurves() && k <= setcount(); ++k)
        if (setshown(k) && hasline(k)) curves.push_back(curveofset(k));
    std::erase_if(curves, [](const FunctionCurve& curve) { return curve.x.empty(); });
    return curves;
}

std::vector<HistogramBar> histogrambars() {
    std::vector<HistogramBar> bars;
    if (!hasbars()) return bars;
    std::vector<Counted> units = countedunits();
    if (units.empty()) return bars;
    const Intervals intervals = intervalsof(units);
    std::erase_if(units, [](const Counted& unit) { return !takespart(unit); });
    const auto count = static_cast<std::size_t>(intervals.count);
    for (int k = 1; k <= setcount(); ++k) {
        std::vector<double> failed(count), suspended(count);
        for (const Counted& unit : units)
            if (unit.set == k) spread(unit, intervals, unit.suspended ? suspended : failed);
        const double total = std::accumulate(failed.begin(), failed.end(), 0.0);
        const double unit = session.functionPlot == totalPlot && total > 0 ? total * intervals.width : 1;
        for (std::size_t i = 0; i < count; ++i) {
            const double low = intervals.low + static_cast<double>(i) * intervals.width;
            const double high = low + intervals.width;
            if (failed[i] > 0) bars.push_back({k, false, low, high, 0, failed[i] / unit});
            if (suspended[i] > 0)
                bars.push_back({k, true, low, high, failed[i] / unit, (failed[i] + suspended[i]) / unit});
        }
    }
    return bars;
}

void functionwindow() {
    DrawnRange x, y;
    y.add(0);
    for (const FunctionCurve& curve : functioncurves()) {
        x.add(curve.x.front());
        x.add(curve.x.back());
        y.add(heightof(curve));
        if (logarithmic() && scaleshift(curve.set) == 0) x.add(0);
    }
    for (const HistogramBar& bar : histogrambars()) {
        x.add(bar.low);
        x.add(bar.high);
        y.add(bar.to);
    }
    if (x.low > x.high) x = {0, 100};
    if (!(y.high > 0)) y.add(1);
    takewindow(x, session.xLimitLow, session.xLimitHigh, session.xlowd, session.xhighd);
    takewindow(y, session.yLimitLow, session.yLimitHigh, session.ylowd, session.yhighd);
}

void plotfunctions() {
    const Keep keep{session.plotx1,  session.ploty1,    session.plotx2,    session.ploty2,
                    session.plotpen, session.linewidth, session.setCounter};
    std::vector<int> sets;
    for (int k = 1; k <= setcount(); ++k)
        if (setshown(k)) sets.push_back(k);
    session.linewidth = 1;
    for (const HistogramBar& bar : histogrambars()) {
        if (!plotting()) return;
        const auto place = std::find(sets.begin(), sets.end(), bar.set) - sets.begin();
        drawbar(bar, static_cast<int>(place), static_cast<int>(sets.size()));
    }
    for (const FunctionCurve& curve : functioncurves()) drawcurve(curve);
}

std::string functionname() {
    std::string text;
    switch (session.functionPlot) {
    case cumulativeHazardPlot:
        return compose(text, Word::Aggregate, " ", Word::Cumulative, " ", Word::Hazard);
    case distributionPlot: return compose(text, Word::Cumulative, " ", Word::Distribution, " F(x)");
    case hazardPlot: return compose(text, Word::Hazard, " h(x)");
    case densityPlot:
    case totalPlot: return compose(text, Word::Probability, " ", Word::Density, " f(x)");
    case reliabilityPlot: return compose(text, Word::Reliability, " 1-F(x)");
    case histogramPlot: return compose(text, Word::Occurrence, " + ", Word::Suspension, " ", Word::Quantity);
    case suspensionPlot: return compose(text, Word::Suspension, " ", Word::Quantity);
    default: return text;
    }
}
