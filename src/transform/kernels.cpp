#include "transform/kernels.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

namespace {

constexpr double degree = std::numbers::pi / 180;

/// Cosine and sine of an angle in degrees. The quarter turns are taken off first, which is exact: multiples
/// of 90 degrees come out without a rest.
struct Direction {
    double cosine, sine;
    explicit Direction(double degrees) {
        int quarters = 0;
        const double rest = std::remquo(degrees, 90, &quarters) * degree;
        const double c = std::cos(rest), s = std::sin(rest);
        switch (quarters & 3) {
        case 0: cosine = c, sine = s; break;
        case 1: cosine = -s, sine = c; break;
        case 2: cosine = -c, sine = -s; break;
        default: cosine = s, sine = -c; break;
        }
    }
};

/// Equal intervals over a range of values.
struct Intervals {
    double low = 0, width = 1, rounding = 0;
    int count = 0;

    Intervals(std::span<const WeightedValue> values, int intervals) : count(intervals) {
        const auto [least, greatest] = std::minmax_element(
            values.begin(), values.end(), [](const auto& a, const auto& b) { return a.value < b.value; });
        const double size = std::max(std::fabs(least->value), std::fabs(greatest->value));
        low = least->value;
        double range = greatest->value - low;
        if (range == 0) {
            range = std::max(size, 1.0);
            low -= range * (0.5 + (count % 2 == 0 ? 0.5 / count : 0));
        }
        width = range / count;
        rounding = std::min(size * static_cast<double>(std::numeric_limits<float>::epsilon()), width / 100);
    }
    int of(double value) const {
        const double place = (value - low) / width;
        const double edge = std::round(place);
        const bool onedge = std::fabs(place - edge) * width <= rounding;
        return static_cast<int>(
            std::clamp(onedge ? edge : std::floor(place), 0.0, static_cast<double>(count - 1)));
    }
};

} // namespace

PlanePoint topolar(PlanePoint point) {
    // A negative zero would turn the angle of a point on the negative X axis to -180.
    return {std::atan2(point.y + 0.0, point.x + 0.0) / degree, std::hypot(point.x, point.y)};
}

PlanePoint torectangular(PlanePoint point) {
    const Direction direction(point.x);
    return {point.y * direction.cosine, point.y * direction.sine};
}

PlanePoint rotated(PlanePoint point, double degrees) {
    const Direction turn(degrees);
    return {point.x * turn.cosine - point.y * turn.sine, point.x * turn.sine + point.y * turn.cosine};
}

std::vector<HistogramRow> histogramof(std::span<const WeightedValue> values, int intervals) {
    if (values.empty() || intervals < 1) return {};
    const Intervals bars(values, intervals);
    std::vector<HistogramRow> rows(static_cast<std::size_t>(intervals));
    for (int i = 0; i < intervals; ++i)
        rows[static_cast<std::size_t>(i)].middle = bars.low + bars.width * (i + 0.5);
    for (const auto& [value, weight] : values) rows[static_cast<std::size_t>(bars.of(value))].total += weight;
    return rows;
}

std::vector<TotalAt> totalsbyx(std::vector<SetValue> values) {
    const auto before = [](const SetValue& a, const SetValue& b) {
        return a.x < b.x || (a.x == b.x && a.set < b.set);
    };
    std::stable_sort(values.begin(), values.end(), before);
    std::vector<int> sets;
    for (const SetValue& value : values) sets.push_back(value.set);
    std::sort(sets.begin(), sets.end());
    const auto setcount = std::unique(sets.begin(), sets.end()) - sets.begin();
    std::vector<TotalAt> totals;
    for (std::size_t at = 0; at < values.size();) {
        TotalAt& total = totals.emplace_back(TotalAt{values[at].x});
        std::ptrdiff_t present = 0;
        for (int last = std::numeric_limits<int>::min(); at < values.size() && values[at].x == total.x;
             ++at) {
            total.total += values[at].value;
            present += values[at].set != last ? 1 : 0;
            last = values[at].set;
        }
        total.ofall = present == setcount;
    }
    return totals;
}

std::optional<float> cellnumber(double value) {
    constexpr double mostLogarithm = 78;
    if (value == 0) return 0.0f;
    const double logarithm = std::log(std::fabs(value));
    if (!(logarithm <= mostLogarithm)) return std::nullopt;
    return logarithm < -mostLogarithm ? 0.0f : static_cast<float>(value);
}
