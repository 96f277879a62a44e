#include "plot/ticks.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <limits>
#include <random>
#include <set>

namespace {

constexpr double infinite = std::numeric_limits<double>::infinity();
constexpr double NaN = std::numeric_limits<double>::quiet_NaN();
constexpr double most = std::numeric_limits<double>::max();

/// The reader of numbers knows no exponents past 199.
double readback(std::string_view text) {
    double value = NaN;
    std::from_chars(text.data(), text.data() + text.size(), value);
    return value;
}

/// Every character takes the same room.
LabelExtent letters(double width) {
    return [width](std::string_view text) { return width * static_cast<double>(text.size()); };
}

std::vector<Tick> ticksof(AxisScale scale, double low, double high, double length = 600) {
    return chooseticks({scale, low, high}, length, 8, letters(8));
}

std::vector<std::string> labels(const std::vector<Tick>& ticks) {
    std::vector<std::string> texts;
    for (const Tick& tick : ticks)
        if (!tick.label.empty()) texts.push_back(tick.label);
    return texts;
}

std::vector<std::string> labelsof(AxisScale scale, double low, double high, double length = 600) {
    return labels(ticksof(scale, low, high, length));
}

using Texts = std::vector<std::string>;

/// The plot coordinate in extended precision, for spans wide enough for it.
long double coordinate(AxisScale scale, double value) {
    const long double v = value;
    if (scale == AxisScale::logarithmic) return std::log(v);
    return scale == AxisScale::reciprocal ? -1 / v : v;
}

struct Case {
    AxisSpan span;
    double length, gap, letter;
    std::string told() const {
        char text[200];
        std::snprintf(text, sizeof text, "scale %d %.17g to %.17g on %g, gap %g, letter %g",
                      static_cast<int>(span.scale), span.low, span.high, length, gap, letter);
        return text;
    }
};

class Cases {
public:
    Case next() {
        Case c;
        c.span.scale = static_cast<AxisScale>(engine() % 3);
        const double sign = c.span.scale != AxisScale::logarithmic && engine() % 3 == 0 ? -1 : 1;
        const double a = sign * size();
        double b = 0;
        switch (engine() % 4) {
        case 0: b = a * (1 + std::pow(10, -15 * part())); break; // narrow
        case 1: b = a * std::pow(10, 3 * part()); break;         // as data lie
        case 2: b = (c.span.scale == AxisScale::linear ? -1 : 1) * a * std::pow(10, part()); break;
        default: b = sign * size();
        }
        if (engine() % 50 == 0) b = std::nextafter(a, 2 * a);
        if (!std::isfinite(b) || b == 0) b = sign * most;
        c.span.low = std::min(a, b);
        c.span.high = std::max(a, b);
        c.length = engine() % 20 == 0 ? 0 : std::pow(10, 4 * part());
        c.gap = engine() % 5 == 0 ? 1e-12 : 20 * part();
        c.letter = engine() % 10 == 0 ? 500 : engine() % 10 == 0 ? 0 : 12 * part();
        return c;
    }

private:
    double part() { return static_cast<double>(engine()) / 4294967296.0; }
    double size() {
        const double range = engine() % 4 == 0 ? 300 : 8;
        const double value = std::pow(10, range * (2 * part() - 1));
        if (engine() % 3) return value;
        char text[32]; // a round one
        std::snprintf(text, sizeof text, "%.0e", value);
        return readback(text);
    }
    std::mt19937 engine{20240611};
};

void expectends(const Case& c, const std::vector<Tick>& ticks) {
    ASSERT_GE(ticks.size(), 2u);
    EXPECT_EQ(ticks.front().value, c.span.low);
    EXPECT_EQ(ticks.front().fraction, 0);
    EXPECT_EQ(ticks.back().value, c.span.high);
    EXPECT_EQ(ticks.back().fraction, 1);
    EXPECT_FALSE(ticks.front().label.empty());
}

void expectrising(const std::vector<Tick>& ticks) {
    EXPECT_LE(ticks.size(), 150u);
    for (std::size_t i = 1; i < ticks.size(); ++i) {
        EXPECT_LT(ticks[i - 1].value, ticks[i].value);
        EXPECT_LE(ticks[i - 1].fraction, ticks[i].fraction);
    }
}

void expectlabelsapart(const Case& c, const std::vector<Tick>& ticks) {
    std::set<std::string> seen;
    double end = -infinite;
    for (const Tick& tick : ticks) {
        if (tick.label.empty()) continue;
        EXPECT_TRUE(seen.insert(tick.label).second) << "twice " << tick.label;
        const double half = c.letter * static_cast<double>(tick.label.size()) / 2;
        const double centre = tick.fraction * c.length;
        EXPECT_GE(centre - half - end, c.gap - 1e-9 * (c.length + half)) << tick.label;
        end = centre + half;
    }
}

/// An end without a label would have found no room beside the other with the shortest text there is.
void expectbothendswherethereisroom(const Case& c, const std::vector<Tick>& ticks) {
    if (!ticks.back().label.empty()) return;
    const double longest = 24; // "-1.2345678901234567E-308"
    const double room = c.length - c.letter * (static_cast<double>(ticks.front().label.size()) + longest) / 2;
    EXPECT_LT(room, c.gap);
}

void expecttruelabels(const Case& c, const std::vector<Tick>& ticks) {
    const double width = c.span.high / 2 - c.span.low / 2;
    for (const Tick& tick : ticks) {
        if (tick.label.empty() || std::fabs(tick.value) > 1e307) continue;
        const double shown = readback(tick.label);
        const double slack = std::max(width / 50, std::fabs(tick.value) * 1e-15); // or 16 digits
        const bool fromcurve = c.span.scale != AxisScale::linear;
        EXPECT_NEAR(shown, tick.value, fromcurve ? std::max(slack, std::fabs(tick.value) * 5e-3) : slack)
            << tick.label;
    }
}

} // namespace

TEST(Ticks, KeepTheirPromisesOnGeneratedAxes) {
    Cases cases;
    for (int i = 0; i < 20000 && !testing::Test::HasFailure(); ++i) {
        const Case c = cases.next();
        if (c.span.low == c.span.high) continue;
        SCOPED_TRACE(c.told());
        const auto ticks = chooseticks(c.span, c.length, c.gap, letters(c.letter));
        expectends(c, ticks);
        expectrising(ticks);
        expectlabelsapart(c, ticks);
        expectbothendswherethereisroom(c, ticks);
        expecttruelabels(c, ticks);
    }
}

TEST(Ticks, StandWhereThePlotScalePutsThem) {
    for (const AxisScale scale : {AxisScale::linear, AxisScale::logarithmic, AxisScale::reciprocal})
        for (const auto& [low, high] : {std::pair{1.0, 3.0}, {.02, 75.0}, {3.0, 4e7}}) {
            const long double at = coordinate(scale, low), span = coordinate(scale, high) - at;
            for (const Tick& tick : ticksof(scale, low, high))
                EXPECT_NEAR(tick.fraction, static_cast<double>((coordinate(scale, tick.value) - at) / span),
                            1e-14);
        }
}

TEST(Ticks, StandWhereThePlotScalePutsThemOnANegativeReciprocalAxis) {
    for (const Tick& tick : ticksof(AxisScale::reciprocal, -8, -2))
        EXPECT_NEAR(tick.fraction, (-1 / tick.value - 1 / 8.0) / (1 / 2.0 - 1 / 8.0), 1e-14);
}

TEST(Ticks, StandEvenlyOnANarrowLogarithmicAxis) {
    const auto ticks = ticksof(AxisScale::logarithmic, 1e6, std::nextafter(1e6, 2e6) + 4e-9);
    for (const Tick& tick : ticks)
        EXPECT_NEAR(tick.fraction, (tick.value - 1e6) / (ticks.back().value - 1e6), 1e-9);
}

TEST(Ticks, CountInRoundStepsOnALinearAxis) {
    EXPECT_EQ(labelsof(AxisScale::linear, 0, 1),
              (Texts{"0", ".1", ".2", ".3", ".4", ".5", ".6", ".7", ".8", ".9", "1"}));
    EXPECT_EQ(labelsof(AxisScale::linear, 9000, 12000),
              (Texts{"9000", "9500", "1E+04", "1.05E+04", "1.1E+04", "1.15E+04", "1.2E+04"}));
    EXPECT_EQ(labelsof(AxisScale::linear, -1, 1, 300), (Texts{"-1", "-.5", "0", ".5", "1"}));
}

TEST(Ticks, HaveUnlabelledOnesBetweenTheLabelled) {
    const auto ticks = ticksof(AxisScale::linear, 0, 1);
    EXPECT_EQ(ticks.size(), 51u);
    EXPECT_EQ(ticks[1].value, .02);
    EXPECT_TRUE(ticks[1].label.empty());
    EXPECT_FALSE(ticks[1].heavy);
    EXPECT_TRUE(ticks[5].heavy);
}

TEST(Ticks, AreTheNearestDoublesToTheirNumbers) {
    for (const AxisScale scale : {AxisScale::linear, AxisScale::logarithmic})
        for (const double high : {1e-200, 1e-20, .7, 1.0, 9e5, 3e25, 1e200})
            for (const Tick& tick : ticksof(scale, high / 7, high)) {
                if (tick.label.empty() || tick.fraction == 0) continue;
                EXPECT_EQ(tick.value, readback(tick.label)) << tick.label;
            }
}

TEST(Ticks, ShowTheEndsThatAreNoRoundNumbers) {
    const auto texts = labelsof(AxisScale::linear, -17.3, 123.456);
    EXPECT_EQ(texts.front(), "-17.3");
    EXPECT_EQ(texts.back(), "123.5");
}

TEST(Ticks, GiveUpALabelThatWouldTouchAnEnd) {
    const auto texts = labelsof(AxisScale::linear, 0, 10.1);
    EXPECT_EQ(texts, (Texts{"0", "2", "4", "6", "8", "10.1"}));
}

TEST(Ticks, OfFewDecadesHaveTheirDigits) {
    EXPECT_EQ(labelsof(AxisScale::logarithmic, 1, 1000),
              (Texts{"1", "2", "5", "10", "20", "50", "100", "200", "500", "1000"}));
    EXPECT_EQ(labelsof(AxisScale::logarithmic, 1, 10, 900),
              (Texts{"1", "2", "3", "4", "5", "6", "7", "8", "9", "10"}));
    EXPECT_EQ(ticksof(AxisScale::logarithmic, 1, 1000).size(), 28u);
}

TEST(Ticks, OfADecadeAreHeavy) {
    Texts heavy;
    for (const Tick& tick : ticksof(AxisScale::logarithmic, 3, 1000))
        if (tick.heavy) heavy.push_back(tick.label);
    EXPECT_EQ(heavy, (Texts{"10", "100", "1000"}));
}

TEST(Ticks, OfManyDecadesAreLabelledEverySoManyth) {
    EXPECT_EQ(labelsof(AxisScale::logarithmic, 1e-300, 1e300),
              (Texts{"1E-300", "1E-200", "1E-100", "1", "1E+100", "1E+200", "1E+300"}));
}

TEST(Ticks, OfLessThanADecadeCountInEvenSteps) {
    EXPECT_EQ(labelsof(AxisScale::logarithmic, .012, .019),
              (Texts{".012", ".013", ".014", ".015", ".016", ".017", ".018", ".019"}));
}

TEST(Ticks, OfAReciprocalAxisFavourTheRoundest) {
    const auto texts = labelsof(AxisScale::reciprocal, 1, 100);
    EXPECT_TRUE(std::find(texts.begin(), texts.end(), "10") != texts.end());
    EXPECT_TRUE(std::find(texts.begin(), texts.end(), "2") != texts.end());
    EXPECT_EQ(labelsof(AxisScale::reciprocal, 250, 600),
              (Texts{"250", "300", "350", "400", "450", "500", "550", "600"}));
}

TEST(Ticks, AreToldApartHoweverNarrowTheRange) {
    EXPECT_EQ(labelsof(AxisScale::linear, 999999, 1000001),
              (Texts{"9.99999E+05", "9.999995E+05", "1E+06", "1.0000005E+06", "1.000001E+06"}));
    for (const AxisScale scale : {AxisScale::linear, AxisScale::logarithmic, AxisScale::reciprocal})
        for (const double low : {1e-9, 1.0, 123456.789, 1e300}) {
            const auto texts = labelsof(scale, low, std::nextafter(low, infinite), 6000);
            ASSERT_EQ(texts.size(), 2u) << low;
            EXPECT_NE(texts[0], texts[1]);
        }
}

TEST(Ticks, KeepTheLowLabelWhereBothEndsDoNotFit) {
    const auto ticks = ticksof(AxisScale::linear, 1000, 2000, 20);
    EXPECT_EQ(labels(ticks), Texts{"1000"});
    EXPECT_EQ(labels(ticksof(AxisScale::linear, 1000, 2000, 0)), Texts{"1000"});
    EXPECT_EQ(labels(chooseticks({AxisScale::linear, 1000, 2000}, NaN, NaN, letters(8))), Texts{"1000"});
    EXPECT_EQ(labels(chooseticks({AxisScale::linear, 1000, 2000}, 99, 1, letters(infinite))), Texts{"1000"});
}

TEST(Ticks, TakeAnUnknownLabelSizeForNone) {
    const auto ticks = chooseticks({AxisScale::linear, 0, 1}, 100, 0, letters(NaN));
    EXPECT_EQ(labels(ticks).size(), 11u);
}

TEST(Ticks, OfAPointAreThatPoint) {
    const auto ticks = ticksof(AxisScale::linear, 5, 5);
    ASSERT_EQ(ticks.size(), 1u);
    EXPECT_EQ(ticks[0].label, "5");
}

TEST(Ticks, OfNoAxisAreNone) {
    EXPECT_TRUE(ticksof(AxisScale::linear, 2, 1).empty());
    EXPECT_TRUE(ticksof(AxisScale::linear, NaN, 1).empty());
    EXPECT_TRUE(ticksof(AxisScale::linear, 0, infinite).empty());
    EXPECT_TRUE(ticksof(AxisScale::logarithmic, 0, 1).empty());
    EXPECT_TRUE(ticksof(AxisScale::logarithmic, -1, 1).empty());
    EXPECT_TRUE(ticksof(AxisScale::reciprocal, -1, 1).empty());
    EXPECT_TRUE(ticksof(AxisScale::reciprocal, 0, 1).empty());
}

TEST(Ticks, ReachFromTheSmallestToTheGreatestDouble) {
    const double least = std::numeric_limits<double>::denorm_min();
    for (const AxisSpan& span : {AxisSpan{AxisScale::linear, -most, most},
                                 {AxisScale::linear, 0, least},
                                 {AxisScale::logarithmic, least, most},
                                 {AxisScale::logarithmic, least, 3 * least},
                                 {AxisScale::reciprocal, least, most},
                                 {AxisScale::reciprocal, -most, -least}}) {
        const Case c{span, 6000, 8, 8};
        SCOPED_TRACE(c.told());
        const auto ticks = chooseticks(span, 6000, 8, letters(8));
        expectends(c, ticks);
        expectrising(ticks);
        expectlabelsapart(c, ticks);
        EXPECT_FALSE(ticks.back().label.empty());
    }
}

TEST(RoundedSpan, EndsOnTicks) {
    const auto expect = [](AxisSpan span, double low, double high) {
        const AxisSpan rounded = roundedspan(span, false, false);
        EXPECT_EQ(rounded.low, low);
        EXPECT_EQ(rounded.high, high);
    };
    expect({AxisScale::linear, 3, 97}, 0, 100);
    expect({AxisScale::linear, -17.3, 123.456}, -20, 140);
    expect({AxisScale::linear, .123456, .98765}, 0, 1);
    expect({AxisScale::logarithmic, 3, 4500}, 1, 10000);
    expect({AxisScale::logarithmic, 3, 180}, 2, 200);
    expect({AxisScale::logarithmic, 3, 45}, 3, 50);
}

TEST(RoundedSpan, LeavesEdgesOnTicksAlone) {
    const auto expectsame = [](AxisSpan span) {
        const AxisSpan rounded = roundedspan(span, false, false);
        EXPECT_EQ(rounded.low, span.low) << span.high;
        EXPECT_EQ(rounded.high, span.high) << span.low;
    };
    for (const auto& [low, high] : {std::pair{0.0, 10.0}, {-20.0, 60.0}, {1.0, 1.5}, {.3, .7}, {-.9, -.2}})
        expectsame({AxisScale::linear, low, high});
    for (const AxisScale scale : {AxisScale::logarithmic, AxisScale::reciprocal})
        for (const auto& [low, high] :
             {std::pair{1.0, 10.0}, {.01, 100.0}, {1.0, 1.5}, {.3, .7}, {10.0, 1000.0}, {1e-5, 1e5}})
            expectsame({scale, low, high});
}

TEST(RoundedSpan, LeavesAPinnedEdgeAlone) {
    EXPECT_EQ(roundedspan({AxisScale::linear, 3, 97}, true, false).low, 3);
    EXPECT_EQ(roundedspan({AxisScale::linear, 3, 97}, true, false).high, 100);
    EXPECT_EQ(roundedspan({AxisScale::logarithmic, 3, 4500}, false, true).high, 4500);
    EXPECT_EQ(roundedspan({AxisScale::logarithmic, 3, 4500}, false, true).low, 1);
}

TEST(RoundedSpan, HoldsTheDataAndLeavesThemMostOfTheAxis) {
    Cases cases;
    double worst = 1;
    for (int i = 0; i < 20000; ++i) {
        const Case c = cases.next();
        if (c.span.low == c.span.high) continue;
        const AxisSpan rounded = roundedspan(c.span, false, false);
        ASSERT_LE(rounded.low, c.span.low) << c.told();
        ASSERT_GE(rounded.high, c.span.high) << c.told();
        ASSERT_TRUE(std::isfinite(rounded.low) && std::isfinite(rounded.high)) << c.told();
        if (c.span.scale == AxisScale::logarithmic) {
            ASSERT_GT(rounded.low, 0) << c.told();
        }
        if (c.span.scale == AxisScale::reciprocal) {
            ASSERT_EQ(std::signbit(rounded.low), std::signbit(rounded.high)) << c.told();
        }
        const long double drawn =
            coordinate(c.span.scale, rounded.high) - coordinate(c.span.scale, rounded.low);
        const long double data = coordinate(c.span.scale, c.span.high) - coordinate(c.span.scale, c.span.low);
        const double fill = static_cast<double>(data / drawn);
        ASSERT_GT(fill, .54) << c.told();
        worst = std::min(worst, fill);
    }
    std::printf("least part of an axis that the data fill: %.3f\n", worst);
}

TEST(RoundedSpan, LeavesWhatIsNoSpanAlone) {
    EXPECT_EQ(roundedspan({AxisScale::linear, 5, 5}, false, false).high, 5);
    EXPECT_EQ(roundedspan({AxisScale::logarithmic, -5, 5}, false, false).low, -5);
    EXPECT_EQ(roundedspan({AxisScale::linear, 0, infinite}, false, false).high, infinite);
    EXPECT_EQ(roundedspan({AxisScale::linear, -most, most}, false, false).high, most);
}
