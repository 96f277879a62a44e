#include "plot/axes.h"

#include <algorithm>
#include <cmath>

#include "plot/drawing.h"
#include "plot/ladder.h"
#include "plot/numbermask.h"
#include "plot/shown.h"
#include "session/session.h"

namespace {

constexpr double weibullScalePercent = 63.212; ///< 100 (1 - 1/e): the line reaches its scale parameter there

struct AxisPlace {
    double low = 0;  ///< canvas position of the low edge
    double sign = 1; ///< -1 where the canvas runs against the axis
    double length = 0;
};

void clearticks(AxisTicks& ticks) { ticks.tickcount = 0; }

void addtick(AxisTicks& ticks, double position, double value, AxisTickKind kind, std::string_view label) {
    if (ticks.tickcount >= AxisTicks::most) return;
    const auto i = static_cast<std::size_t>(++ticks.tickcount);
    ticks.position[i] = static_cast<float>(position);
    ticks.value[i] = static_cast<float>(value);
    ticks.kind[i] = static_cast<float>(kind);
    ticks.label[i].assign(label);
}

void plainticks(AxisTicks& ticks, const AxisSpan& span, const AxisPlace& place, double gap,
                const LabelExtent& extent) {
    for (const Tick& tick : chooseticks(span, place.length, gap, extent))
        addtick(ticks, place.low + place.sign * tick.fraction * place.length, tick.value,
                tick.heavy ? heavyTick : lightTick, tick.label);
}

void clearlabels(AxisTicks& ticks) { ticks.label.fill({}); }

// ---- the probability axis ----

constexpr double slack = 1e-9; ///< by which a limit may miss the tick it means

bool isladdertick(double percent) {
    return std::any_of(ladder().begin(), ladder().end(), [percent](const LadderTick& tick) {
        return std::fabs(percent - tick.percent) <= slack * tick.percent;
    });
}

/// The ladder's own label of a tick, in percent.
std::string ladderlabel(double percent) {
    const Keep keep{session.msg, session.ud, session.tickindex};
    session.ud = percent;
    session.tickindex = showsreliability() ? reliabilityLabels : noTickIndex;
    probticklabel();
    return session.msg;
}

/// Label at a probability in the units of the axis: percent, parts of one or parts of a thousand. A place off
/// the ladder, a manual limit or the scale line, is spelled as the number it is.
std::string probabilitylabel(double percent) {
    constexpr int digits = 5;
    const int kind = session.yScaleKind;
    const double shown = showsreliability() ? 100 - percent : percent;
    if (isladdertick(percent)) {
        const std::string label = ladderlabel(percent);
        if (kind < occurrenceProbability) return label;
    }
    const double unit = kind < occurrenceProbability ? 1 : kind <= reliabilityProbability ? 0.01 : 10;
    return axislabel(shown * unit, digits);
}

double canvasyofpercent(double percent) {
    const PlotWindow& w = session.window;
    return w.bottom - (plotyof(percent / 100) - w.ylow) * w.yfactor;
}

struct LadderLabel {
    double y;
    double percent;
    AxisTickKind kind;
    int rank; ///< the lower, the sooner a label gives way: edges 3, the scale line 2, heavy ticks 1
    std::string text;
};

std::vector<LadderLabel> laddermarks() {
    std::vector<LadderLabel> marks;
    const double low = session.ylowd * 100;
    const double high = session.yhighd * 100;
    const auto add = [&](double percent, AxisTickKind kind, int rank) {
        marks.push_back({canvasyofpercent(percent), percent, kind, rank, probabilitylabel(percent)});
    };
    for (const LadderTick& tick : ladder()) {
        if (tick.percent <= low * (1 + slack) || tick.percent >= high * (1 - slack)) continue;
        add(tick.percent, tick.heavy ? heavyTick : lightTick, tick.heavy ? 1 : 0);
    }
    if (session.dist == weibull && low < weibullScalePercent && weibullScalePercent < high)
        add(weibullScalePercent, scaleTick, 2);
    add(low, heavyTick, 3);
    add(high, heavyTick, 3);
    std::stable_sort(marks.begin(), marks.end(),
                     [](const LadderLabel& a, const LadderLabel& b) { return a.percent < b.percent; });
    return marks;
}

/// Labels nearer than a line's height to one of a higher rank, or to one already kept, give way.
void thinlabels(std::vector<LadderLabel>& marks, double lineHeight) {
    std::vector<double> kept;
    for (int rank = 3; rank >= 0; --rank)
        for (LadderLabel& mark : marks) {
            if (mark.rank != rank) continue;
            const bool crowded = std::any_of(kept.begin(), kept.end(),
                                             [&](double y) { return std::fabs(y - mark.y) < lineHeight; });
            if (crowded)
                mark.text.clear();
            else
                kept.push_back(mark.y);
        }
}

void ladderticks(double size) {
    std::vector<LadderLabel> marks = laddermarks();
    thinlabels(marks, size);
    for (const LadderLabel& mark : marks) addtick(session.yTicks, mark.y, mark.percent, mark.kind, mark.text);
}

AxisScale logarithmicif(bool logarithmic, bool reciprocal) {
    return logarithmic ? AxisScale::logarithmic : reciprocal ? AxisScale::reciprocal : AxisScale::linear;
}

} // namespace

AxisScale xaxisscale() {
    const int pair = static_cast<int>(session.xyscale);
    if (session.plotMode == 1)
        return logarithmicif(session.dist == weibull || session.dist == lognormal, false);
    return logarithmicif(pair == 1 || pair == 3 || pair == 4, pair == 5);
}

AxisScale yaxisscale() {
    const int pair = static_cast<int>(session.xyscale);
    return logarithmicif(pair == 2 || pair == 3 || pair == 5, pair == 4);
}

void yticks(double size) {
    clearticks(session.yTicks);
    if (session.plotMode == 1) {
        ladderticks(size);
        if (session.yValuesShown == 0) clearlabels(session.yTicks);
        return;
    }
    const PlotWindow& w = session.window;
    const AxisSpan span{yaxisscale(), session.yAxisLow, session.yAxisHigh};
    plainticks(session.yTicks, span, {w.bottom, -1, w.bottom - w.top}, size / 2,
               [size](std::string_view) { return size; });
    if (session.yValuesShown == 0) clearlabels(session.yTicks);
}

void xticks(double size) {
    clearticks(session.xTicks);
    const PlotWindow& w = session.window;
    const AxisSpan span{xaxisscale(), session.xAxisLow, session.xAxisHigh};
    plainticks(session.xTicks, span, {w.left, 1, w.right - w.left}, 0.6 * size,
               [size](std::string_view label) { return plottextwidth(label, size); });
    if (session.xValuesShown == 0) clearlabels(session.xTicks);
}
