// Any edges, length, gap and letter width as an axis: the ticks keep what the header promises, and the
// rounded span holds the given one.

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <set>

#include "plot/ticks.h"

namespace {

void require(bool holds) {
    if (!holds) std::abort();
}

bool usable(const AxisSpan& span) {
    if (!std::isfinite(span.low) || !std::isfinite(span.high) || span.low > span.high) return false;
    if (span.scale == AxisScale::linear) return true;
    return span.low > 0 || (span.scale == AxisScale::reciprocal && span.high < 0);
}

double within(double value, double most) {
    return std::isfinite(value) ? std::fmod(std::fabs(value), most) : 0;
}

void requireapart(const std::vector<Tick>& ticks, double length, double gap, double letter) {
    std::set<std::string> seen;
    double end = -HUGE_VAL;
    for (const Tick& tick : ticks) {
        if (tick.label.empty()) continue;
        require(seen.insert(tick.label).second);
        const double half = letter * static_cast<double>(tick.label.size()) / 2;
        require(tick.fraction * length - half - end >= gap - 1e-9 * (length + half));
        end = tick.fraction * length + half;
    }
}

void requireticks(const AxisSpan& span, const std::vector<Tick>& ticks) {
    require(ticks.size() >= 2 && ticks.size() <= 150);
    require(ticks.front().value == span.low && ticks.front().fraction == 0);
    require(ticks.back().value == span.high && ticks.back().fraction == 1);
    require(!ticks.front().label.empty());
    for (std::size_t i = 1; i < ticks.size(); ++i)
        require(ticks[i - 1].value < ticks[i].value && ticks[i - 1].fraction <= ticks[i].fraction);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    constexpr std::size_t needed = 5 * sizeof(double) + 1;
    if (size < needed) return 0;
    double numbers[5];
    std::memcpy(numbers, data, sizeof numbers);
    const auto scale = static_cast<AxisScale>(data[sizeof numbers] % 3);
    const AxisSpan span{scale, numbers[0], numbers[1]};
    const double length = within(numbers[2], 1e5), gap = within(numbers[3], 100);
    const double letter = within(numbers[4], 100);
    const auto ticks = chooseticks(span, length, gap, [letter](std::string_view text) {
        return letter * static_cast<double>(text.size());
    });
    if (!usable(span)) {
        require(ticks.empty());
        return 0;
    }
    if (span.low == span.high) {
        require(ticks.size() == 1 && ticks[0].value == span.low);
        return 0;
    }
    requireticks(span, ticks);
    requireapart(ticks, length, gap, letter);
    const AxisSpan rounded = roundedspan(span, false, false);
    require(usable(rounded) && rounded.low <= span.low && rounded.high >= span.high);
    return 0;
}
