#include "plot/ticks.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <optional>
#include <span>

#include "plot/numbermask.h"

namespace {

constexpr std::size_t mostTicks = 150;
constexpr double sameplace = 1e-9;  ///< a fraction nearer to an end than this stands on it
constexpr int mostIntervals = 10;   ///< labelled steps along an even axis
constexpr int naturalIntervals = 8; ///< steps that an axis is rounded to
constexpr double evenRatio = 5;     ///< a curved scale with high/low below this is stepped evenly
constexpr int mostDigits = 17;
constexpr double mostCounted = 9e15; ///< whole numbers to here are doubles

// ---- decimal numbers

/// Decimal exponent of a size above 0: the place of its first digit.
int exponentof(double size) {
    char buffer[32];
    const auto end = std::to_chars(buffer, buffer + sizeof buffer, size, std::chars_format::scientific).ptr;
    const char* at = std::find(buffer, end, 'e') + 1;
    int exponent = 0;
    std::from_chars(*at == '+' ? at + 1 : at, end, exponent);
    return exponent;
}

/// The double nearest to whole * 10^power; an infinity when there is none, 0 when it is too small.
double decimal(double whole, int power) {
    static constexpr double powers[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                        1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                        1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
    if (power >= 0 && power <= 22) return whole * powers[power];
    if (power < 0 && power >= -22) return whole / powers[-power];
    char buffer[48];
    char* at = std::to_chars(buffer, buffer + 24, whole, std::chars_format::fixed, 0).ptr;
    *at++ = 'e';
    at = std::to_chars(at, buffer + sizeof buffer, power).ptr;
    double value = 0;
    if (std::from_chars(buffer, at, value).ec != std::errc::result_out_of_range) return value;
    return power > 0 ? std::copysign(std::numeric_limits<double>::infinity(), whole) : 0.0;
}

/// A step that people count in: mantissa * 10^power.
struct Step {
    int mantissa;
    int power;
    double size() const { return decimal(mantissa, power); }
};

/// The least of 1, 2, 2.5, 5 times a power of ten that is not below `least`.
Step niceabove(double least) {
    const int power = exponentof(least);
    for (const Step step : {Step{1, power}, Step{2, power}, Step{25, power - 1}, Step{5, power}})
        if (step.size() >= least * (1 - sameplace)) return step;
    return {1, power + 1};
}

/// The next step whose multiples all stand on ticks of the one before: a 2.5 is left out.
Step coarser(Step step) {
    if (step.mantissa == 1) return {2, step.power};
    if (step.mantissa == 2) return {5, step.power};
    if (step.mantissa == 25) return {5, step.power + 1};
    return {1, step.power + 1};
}

/// The unlabelled step between: fifths, and quarters of a two.
Step finer(Step step) {
    if (step.mantissa == 1) return {2, step.power - 1};
    if (step.mantissa == 2) return {5, step.power - 1};
    if (step.mantissa == 25) return {5, step.power};
    return {1, step.power};
}

// ---- spans

bool usable(const AxisSpan& span) {
    if (!std::isfinite(span.low) || !std::isfinite(span.high) || span.low > span.high) return false;
    if (span.scale == AxisScale::logarithmic) return span.low > 0;
    return span.scale == AxisScale::linear || span.low > 0 || span.high < 0;
}

/// Half the width, which is a double even when the width is not.
double halfwidth(const AxisSpan& span) { return span.high / 2 - span.low / 2; }

/// Where a value stands along the plot scale, without the cancellation of narrow spans and without overflow
/// in wide ones.
double fractionof(const AxisSpan& span, double value) {
    if (value <= span.low) return 0;
    if (value >= span.high) return 1;
    const auto [scale, low, high] = span;
    double fraction = 0;
    if (scale == AxisScale::linear)
        fraction = (value / 2 - low / 2) / halfwidth(span);
    else if (scale == AxisScale::reciprocal)
        fraction = (value - low) / value * (high / (high - low));
    else if (high / low < 2)
        fraction = std::log1p((value - low) / low) / std::log1p((high - low) / low);
    else
        fraction = (std::log(value) - std::log(low)) / (std::log(high) - std::log(low));
    return std::clamp(fraction, 0.0, 1.0);
}

// ---- ticks

/// A place on the axis that may become a tick.
struct Mark {
    double value;
    int mantissa = 0; ///< first digit of a mark of a decade
    int exponent = 0;
};
using Marks = std::vector<Mark>;

/// The label of a value whose last digit stands at 10^power.
std::string labelat(double value, int power) {
    const int digits = value == 0 ? 1 : exponentof(std::fabs(value)) - power + 1;
    return axislabel(value, std::clamp(digits, 1, mostDigits));
}

/// Multiples of a step inside the span; none when doubles cannot count them.
std::vector<double> multiples(const AxisSpan& span, Step step) {
    const double size = step.size();
    std::vector<double> values;
    if (!std::isnormal(size)) return values;
    const double first = std::ceil(span.low / size), last = std::floor(span.high / size);
    if (!(std::max(std::fabs(first), std::fabs(last)) * step.mantissa < mostCounted)) return values;
    for (double k = first; k <= last && values.size() < mostTicks - 2; ++k) {
        const double value = decimal(k * step.mantissa, step.power) + 0.0; // no -0
        if (value > span.low && value < span.high && (values.empty() || value > values.back()))
            values.push_back(value);
    }
    return values;
}

/// The labels of one axis as they find room.
class LabelRow {
public:
    LabelRow(double axisLength, double leastGap, const LabelExtent& labelExtent)
        : length(axisLength > 0 && std::isfinite(axisLength) ? axisLength : 0),
          gap(leastGap > 0 ? leastGap : 0),
          extent(labelExtent) {}

    bool apart(const Tick& a, std::string_view labelA, const Tick& b, std::string_view labelB) const {
        return apart(spot(a, labelA), spot(b, labelB));
    }

    /// Labels the tick where the text is new and there is room.
    void place(Tick& tick, std::string text) {
        const Spot wanted = spot(tick, text);
        for (std::size_t i = 0; i < spots.size(); ++i)
            if (texts[i] == text || !apart(spots[i], wanted)) return;
        spots.push_back(wanted);
        texts.push_back(text);
        tick.label = std::move(text);
    }

private:
    struct Spot {
        double centre, width;
    };
    Spot spot(const Tick& tick, std::string_view text) const {
        const double width = extent(text);
        return {tick.fraction * length, width > 0 ? width : 0};
    }
    bool apart(const Spot& a, const Spot& b) const {
        return std::fabs(a.centre - b.centre) - (a.width + b.width) / 2 >= gap;
    }

    double length, gap;
    const LabelExtent& extent;
    std::vector<Spot> spots;
    std::vector<std::string> texts;
};

/// The labels that some of the ticks would bear, by the number of the tick.
struct LabelSet {
    std::vector<std::size_t> ticks;
    std::vector<std::string> texts;
};

/// Adds a label; false when it comes too near to the one before.
bool joins(LabelSet& set, const LabelRow& row, const std::vector<Tick>& ticks, std::size_t tick,
           std::string text) {
    const bool fits =
        set.ticks.empty() || row.apart(ticks[set.ticks.back()], set.texts.back(), ticks[tick], text);
    set.ticks.push_back(tick);
    set.texts.push_back(std::move(text));
    return fits;
}

bool decade(double value) { return value > 0 && value == decimal(1, exponentof(value)); }

/// The ends and the marks between them that stand clear of the ends.
std::vector<Tick> ticksat(const AxisSpan& span, Marks& marks) {
    std::vector<Tick> ticks;
    ticks.reserve(marks.size() + 2);
    ticks.push_back({span.low, 0, decade(span.low), {}});
    std::erase_if(marks, [&](const Mark& mark) {
        const double fraction = fractionof(span, mark.value);
        const bool clear = fraction > sameplace && fraction < 1 - sameplace;
        if (clear)
            ticks.push_back(
                {mark.value, fraction, mark.mantissa ? mark.mantissa == 1 : decade(mark.value), {}});
        return !clear;
    });
    ticks.push_back({span.high, 1, decade(span.high), {}});
    return ticks;
}

/// Labels the ends, to the place 10^power or as much finer as it takes to tell them apart.
void labelends(LabelRow& row, std::vector<Tick>& ticks, int lowPower, int highPower) {
    Tick& low = ticks.front();
    Tick& high = ticks.back();
    std::string lowText, highText;
    for (int more = 0; more <= mostDigits + 2; ++more) {
        lowText = labelat(low.value, lowPower - more);
        highText = labelat(high.value, highPower - more);
        if (lowText != highText) break;
    }
    row.place(low, std::move(lowText));
    row.place(high, std::move(highText));
}

void placeset(LabelRow& row, std::vector<Tick>& ticks, LabelSet& set) {
    for (std::size_t i = 0; i < set.ticks.size(); ++i)
        row.place(ticks[set.ticks[i]], std::move(set.texts[i]));
}

// ---- axes in even steps

/// Labels at the multiples of a step; nothing when they do not fit.
std::optional<LabelSet> evenlabels(const AxisSpan& span, const LabelRow& row, const std::vector<Tick>& ticks,
                                   Step step) {
    LabelSet set;
    auto tick = ticks.begin() + 1;
    for (const double value : multiples(span, step)) {
        tick = std::find_if(tick, ticks.end() - 1, [value](const Tick& t) { return t.value >= value; });
        if (tick == ticks.end() - 1) break;
        if (tick->value != value) continue;
        const auto number = static_cast<std::size_t>(tick - ticks.begin());
        if (!joins(set, row, ticks, number, labelat(value, step.power))) return {};
    }
    return set;
}

/// Ticks of an axis whose range holds no step that doubles can count: the ends alone.
std::vector<Tick> endsalone(const AxisSpan& span, LabelRow& row) {
    Marks none;
    std::vector<Tick> ticks = ticksat(span, none);
    const int power = exponentof(std::max(std::fabs(span.low), std::fabs(span.high))) - mostDigits + 2;
    labelends(row, ticks, power, power);
    return ticks;
}

std::vector<Tick> evenaxis(const AxisSpan& span, LabelRow& row) {
    const double least = halfwidth(span) / (mostIntervals / 2.0);
    if (!(least > 0)) return endsalone(span, row);
    Step step = niceabove(least);
    std::vector<double> values = multiples(span, finer(step));
    if (values.empty()) values = multiples(span, step);
    if (values.empty()) return endsalone(span, row);
    Marks marks;
    for (const double value : values) marks.push_back({value});
    std::vector<Tick> ticks = ticksat(span, marks);
    std::optional<LabelSet> set;
    while (!(set = evenlabels(span, row, ticks, step))) step = coarser(step);
    constexpr int finerEnds = 2; // an end that is no round number shows where in the step it stands
    labelends(row, ticks, step.power - finerEnds, step.power - finerEnds);
    placeset(row, ticks, *set);
    return ticks;
}

// ---- axes in decades

/// Which marks of the decades are meant: the first digits 1, 1-2-5 or 1 to 9, of every so many decades.
struct DecadeChoice {
    int digits; ///< 1, 3 or 9 marks a decade
    int every;
    bool holds(int mantissa, int exponent) const {
        if (exponent % every != 0) return false;
        if (digits == 9 || mantissa == 1) return true;
        return digits == 3 && (mantissa == 2 || mantissa == 5);
    }
};

/// From the densest to the sparsest.
constexpr DecadeChoice decadeChoices[] = {{9, 1},  {3, 1},  {1, 1},  {1, 2},   {1, 5},
                                          {1, 10}, {1, 20}, {1, 50}, {1, 100}, {1, 200}};

/// The densest choice that an axis of so many decades has room for among its ticks.
const DecadeChoice* drawnchoice(int decades) {
    return std::find_if(std::begin(decadeChoices), std::end(decadeChoices), [decades](const DecadeChoice& c) {
        return (decades / c.every + 1) * c.digits <= static_cast<int>(mostTicks) - 2;
    });
}

Marks decademarks(const AxisSpan& span, const DecadeChoice& choice, int first, int last) {
    const double sign = span.high < 0 ? -1 : 1;
    Marks marks;
    for (int exponent = first; exponent <= last; ++exponent) {
        if (exponent % choice.every != 0) continue;
        for (int mantissa = 1; mantissa <= 9; ++mantissa) {
            if (!choice.holds(mantissa, exponent)) continue;
            const double value = sign * decimal(mantissa, exponent);
            const bool known = !marks.empty() && marks.back().value == value; // the smallest doubles
            if (!known && value > span.low && value < span.high) marks.push_back({value, mantissa, exponent});
        }
    }
    if (sign < 0) std::reverse(marks.begin(), marks.end());
    return marks;
}

/// The labels of a choice; nothing when they do not fit, or are more than anybody reads.
std::optional<LabelSet> fittinglabels(const LabelRow& row, const std::vector<Tick>& ticks, const Marks& marks,
                                      const DecadeChoice& choice) {
    constexpr std::ptrdiff_t mostLabels = 40;
    const auto chosen = [&choice](const Mark& m) { return choice.holds(m.mantissa, m.exponent); };
    if (std::count_if(marks.begin(), marks.end(), chosen) > mostLabels) return {};
    LabelSet set;
    for (std::size_t i = 0; i < marks.size(); ++i)
        if (chosen(marks[i]) && !joins(set, row, ticks, i + 1, labelat(marks[i].value, marks[i].exponent)))
            return {};
    return set;
}

/// Labels as densely as all of a choice fit.
void labeldecades(LabelRow& row, std::vector<Tick>& ticks, const Marks& marks, const DecadeChoice* choice) {
    for (; choice != std::end(decadeChoices); ++choice)
        if (auto set = fittinglabels(row, ticks, marks, *choice)) return placeset(row, ticks, *set);
}

/// The decades of a reciprocal axis crowd at one end: the roundest come first, each where it fits.
void labelcrowded(LabelRow& row, std::vector<Tick>& ticks, const Marks& marks, const DecadeChoice* densest) {
    for (const DecadeChoice* choice = std::max(densest, decadeChoices + 2);; --choice) {
        for (std::size_t i = 0; i < marks.size(); ++i)
            if (ticks[i + 1].label.empty() && choice->holds(marks[i].mantissa, marks[i].exponent))
                row.place(ticks[i + 1], labelat(marks[i].value, marks[i].exponent));
        if (choice <= densest) return;
    }
}

std::vector<Tick> decadeaxis(const AxisSpan& span, LabelRow& row) {
    const int atLow = exponentof(std::fabs(span.low)), atHigh = exponentof(std::fabs(span.high));
    const int first = std::min(atLow, atHigh), last = std::max(atLow, atHigh);
    const DecadeChoice* choice = drawnchoice(last - first);
    Marks marks = decademarks(span, *choice, first, last);
    std::vector<Tick> ticks = ticksat(span, marks);
    constexpr int endDigits = 3;
    labelends(row, ticks, atLow - endDigits + 1, atHigh - endDigits + 1);
    if (span.scale == AxisScale::reciprocal)
        labelcrowded(row, ticks, marks, choice);
    else
        labeldecades(row, ticks, marks, choice);
    return ticks;
}

// ---- rounding

/// First digits that an axis in decades may end at.
constexpr double halfDigits[] = {1, 1.5, 2, 3, 4, 5, 6, 7, 8, 9, 10};
constexpr double roundDigits[] = {1, 2, 5, 10};
constexpr double decadeDigits[] = {1, 10};

std::span<const double> edgedigits(const AxisSpan& span) {
    const double decades = std::log10(std::fabs(span.high)) - std::log10(std::fabs(span.low));
    if (span.scale == AxisScale::reciprocal || decades < 1.2) return halfDigits;
    if (decades < 3) return roundDigits;
    return decadeDigits;
}

/// The size rounded to one of the digits, up or down; as given when it stands there.
double digitedge(double size, std::span<const double> digits, bool up) {
    const int exponent = exponentof(size);
    double below = size, above = size;
    for (const double digit : digits) {
        const double edge = decimal(digit * 10, exponent - 1);
        if (edge <= size) below = edge;
        if (edge >= size) {
            above = edge;
            break;
        }
    }
    return up ? above : below;
}

/// The value rounded to a multiple of the step, up or down; as given when it stands there.
double stepedge(double value, Step step, bool up) {
    const double size = step.size();
    if (!std::isnormal(size)) return value;
    const double count = value / size;
    if (!(std::fabs(count) * step.mantissa < mostCounted)) return value;
    if (std::fabs(count - std::round(count)) < sameplace) return value;
    return decimal((up ? std::ceil(count) : std::floor(count)) * step.mantissa, step.power) + 0.0;
}

AxisSpan evenlyrounded(const AxisSpan& span) {
    double least = halfwidth(span) / (naturalIntervals / 2.0);
    if (span.scale != AxisScale::linear)
        least = std::min(least, std::min(std::fabs(span.low), std::fabs(span.high)) / naturalIntervals);
    if (!(least > 0)) return span;
    const Step step = niceabove(least);
    return {span.scale, stepedge(span.low, step, false), stepedge(span.high, step, true)};
}

AxisSpan digitsrounded(const AxisSpan& span) {
    const auto digits = edgedigits(span);
    if (span.high > 0)
        return {span.scale, digitedge(span.low, digits, false), digitedge(span.high, digits, true)};
    return {span.scale, -digitedge(-span.low, digits, true), -digitedge(-span.high, digits, false)};
}

bool evenlystepped(const AxisSpan& span) {
    if (span.scale == AxisScale::linear) return true;
    return (span.low > 0 ? span.high / span.low : span.low / span.high) < evenRatio;
}

} // namespace

std::vector<Tick> chooseticks(const AxisSpan& span, double length, double gap, const LabelExtent& extent) {
    if (!usable(span)) return {};
    if (span.low == span.high) return {{span.low, 0, true, axislabel(span.low, mostDigits)}};
    LabelRow row(length, gap, extent);
    std::vector<Tick> ticks = evenlystepped(span) ? evenaxis(span, row) : decadeaxis(span, row);
    if (span.scale != AxisScale::logarithmic)
        for (Tick& tick : ticks) tick.heavy = !tick.label.empty();
    return ticks;
}

AxisSpan roundedspan(const AxisSpan& span, bool pinLow, bool pinHigh) {
    if (!usable(span) || span.low == span.high) return span;
    AxisSpan rounded = evenlystepped(span) ? evenlyrounded(span) : digitsrounded(span);
    const bool lowStands = rounded.low <= span.low && usable({span.scale, rounded.low, span.high});
    const bool highStands = rounded.high >= span.high && usable({span.scale, span.low, rounded.high});
    if (pinLow || !lowStands) rounded.low = span.low;
    if (pinHigh || !highStands) rounded.high = span.high;
    return rounded;
}
