#include "plot/numbermask.h"

#include <gtest/gtest.h>

#include <charconv>
#include <cmath>
#include <limits>
#include <random>

#include "session/session.h"

namespace {

constexpr double infinite = std::numeric_limits<double>::infinity();
constexpr double NaN = std::numeric_limits<double>::quiet_NaN();

double readback(std::string_view text) {
    double value = NaN;
    const auto end = std::from_chars(text.data(), text.data() + text.size(), value).ptr;
    EXPECT_EQ(end, text.data() + text.size()) << text;
    return value;
}

/// Half a unit of the last of so many digits, and what the rounding of doubles adds.
double halfunit(double value, int digits) {
    const double first = std::pow(10, std::floor(std::log10(std::fabs(value)) + 1e-12));
    return first * std::pow(10, 1 - digits) * .5 + std::fabs(value) * 1e-15;
}

class NumberMask : public testing::Test {
protected:
    static std::string spelled(double value, int digits, int use = generalUse) {
        session.maskDigits[static_cast<std::size_t>(std::max(use, 0))] = static_cast<int16_t>(digits);
        session.ud = value;
        const std::string text = numbermask(use);
        EXPECT_TRUE(std::isnan(value) || session.ud == value);
        return text;
    }
    static std::string atmost(double value, int digits) { return spelled(value, digits, -1); }
    Keep<double, float, std::array<int16_t, 5>> keep{session.ud, session.u, session.maskDigits};
};

std::vector<double> generated() {
    std::mt19937 engine{4711};
    std::vector<double> values;
    const auto part = [&engine] { return static_cast<double>(engine()) / 4294967296.0; };
    for (int i = 0; i < 4000; ++i) {
        const double range = i % 3 == 0 ? 300 : i % 3 == 1 ? 12 : 4;
        const double size = std::pow(10, range * (2 * part() - 1));
        values.push_back(i % 2 ? size : -size);
        values.push_back(1 - std::pow(10, -14 * part()));
    }
    for (int e = -120; e <= 120; ++e)
        for (const double near : {.99999, .999996, .9999994, 1.0, 1.00001})
            values.push_back(near * std::pow(10, e));
    return values;
}

} // namespace

TEST_F(NumberMask, IsPlainBetweenTheLimits) {
    EXPECT_EQ(maskof(123.456, 6), "###.###");
    EXPECT_EQ(maskof(9.5, 4), "#.###");
    EXPECT_EQ(maskof(1234, 4), "####");
    EXPECT_EQ(maskof(1234567, 8), "#######.#");
    EXPECT_EQ(maskof(.00123, 4), "#.######");
    EXPECT_EQ(maskof(0, 6), "#");
}

TEST_F(NumberMask, HasAnExponentPastTheLimits) {
    EXPECT_EQ(maskof(123456789, 1), "#E+###");
    EXPECT_EQ(maskof(123456789, 2), "#.#E+###");
    EXPECT_EQ(maskof(123456789, 15), "#.##############E+###");
    EXPECT_EQ(maskof(1.5e-9, 1), "#E-###");
    EXPECT_EQ(maskof(1.5e-9, 3), "#.##E-###");
    EXPECT_EQ(maskof(12345, 4), "#.###E+###");
    EXPECT_EQ(maskof(12345, 5), "#####");
    EXPECT_EQ(maskof(.00012345, 4), "#.###E-###");
}

TEST_F(NumberMask, KeepsNines) {
    EXPECT_EQ(maskof(.999997, 6), "#.###########"); // 5 nines and 6 places
    EXPECT_EQ(maskof(.95, 6), "#.#######");
    EXPECT_EQ(maskof(.5, 6), "#.######");
    EXPECT_EQ(spelled(.999997, 2), ".9999970");
    EXPECT_EQ(atmost(.999997, 6), ".999997");
    EXPECT_EQ(spelled(.99999999, 1), ".99999999");
    EXPECT_EQ(atmost(1 - 0x1p-53, 6), ".9999999999999999");
}

TEST_F(NumberMask, HasItsDigitsFromTheClass) {
    session.maskDigits = {3, 4, 5, 6};
    session.ud = 2.0 / 3 * 10;
    EXPECT_EQ(numbermask(generalUse), "6.67");
    EXPECT_EQ(numbermask(parameterUse), "6.667");
    EXPECT_EQ(numbermask(slopeUse), "6.6667");
    EXPECT_EQ(numbermask(-1), "6.67");
    EXPECT_EQ(numbermask(useClasses + 5), numbermask(fitUse));
}

TEST_F(NumberMask, DropsTrailingZerosInANegativeClassAlone) {
    EXPECT_EQ(spelled(1.5, 4), "1.500");
    EXPECT_EQ(atmost(1.5, 4), "1.5");
    EXPECT_EQ(atmost(1000, 6), "1000");
    EXPECT_EQ(atmost(1234, 2), "1200");
    EXPECT_EQ(atmost(2e20, 6), "2E+20");
    EXPECT_EQ(spelled(2e20, 3), "2.00E+20");
}

TEST_F(NumberMask, RoundsTheDecimalNumber) {
    EXPECT_EQ(spelled(9.9996, 4), "10.00");
    EXPECT_EQ(spelled(.00499951, 4), ".005000");
    EXPECT_EQ(spelled(99999.6, 5), "1.0000E+05");
    EXPECT_EQ(spelled(-123.456, 4), "-123.5");
}

TEST_F(NumberMask, ReadsBackWithinHalfAUnitOfTheLastDigit) {
    for (const double value : generated())
        for (const int digits : {1, 2, 4, 6, 9, 15}) {
            for (const int use : {static_cast<int>(generalUse), -1}) {
                const std::string text = spelled(value, digits, use);
                ASSERT_FALSE(text.empty());
                ASSERT_NEAR(readback(text), value, halfunit(value, digits)) << text << " of " << digits;
            }
        }
}

TEST_F(NumberMask, StaysInTheCompactFieldOfAnAxis) {
    for (const double value : generated())
        for (const int digits : {1, 4, 6, 15}) {
            const std::string text = spelled(std::fabs(value), digits, axisUse);
            ASSERT_LE(text.size(), 9u) << text;
            const int exponent = std::abs(static_cast<int>(std::floor(std::log10(std::fabs(value)))));
            const int held = std::min(digits, exponent < 9 ? 4 : exponent < 98 ? 4 : 3);
            ASSERT_NEAR(readback(text), std::fabs(value), halfunit(value, held)) << text;
        }
}

TEST_F(NumberMask, TradesMantissaForExponentInTheCompactField) {
    EXPECT_EQ(spelled(1.23456e6, 6, axisUse), "1.2346E+6");
    EXPECT_EQ(spelled(1.23456e16, 6, axisUse), "1.235E+16");
    EXPECT_EQ(spelled(1.23456e160, 6, axisUse), "1.23E+160");
    EXPECT_EQ(spelled(1.23456e-6, 6, axisUse), "1.2346E-6");
    EXPECT_EQ(spelled(1.23456e-16, 6, axisUse), "1.235E-16");
    EXPECT_EQ(spelled(1.23456e-160, 6, axisUse), "1.23E-160");
    EXPECT_EQ(spelled(9.99996e99, 6, axisUse), "1.00E+100");
    EXPECT_EQ(spelled(1.23456, 6, axisUse), "1.235");
    EXPECT_EQ(spelled(123.456, 6, axisUse), "123.46");
    EXPECT_EQ(spelled(1234.56, 6, axisUse), "1234.6");
    EXPECT_EQ(spelled(123456, 6, axisUse), "123456");
}

TEST_F(NumberMask, SpellsSinglesByTheirOwnDigits) {
    session.maskDigits[generalUse] = 15;
    session.u = .1f;
    EXPECT_EQ(numbermasks(-1), ".1");
    session.u = .999997f;
    EXPECT_EQ(numbermasks(-1), ".999997");
    EXPECT_EQ(session.u, .999997f);
}

TEST_F(NumberMask, WritesTheNearestNumberForWhatIsNone) {
    EXPECT_EQ(spelled(NaN, 4), "0");
    EXPECT_EQ(spelled(0, 4), "0");
    EXPECT_EQ(spelled(-0.0, 4), "0");
    EXPECT_EQ(spelled(infinite, 4), "1.798E+308");
    EXPECT_EQ(spelled(-infinite, 4), "-1.798E+308");
    EXPECT_EQ(spelled(NaN, 4, axisUse), "0");
    EXPECT_EQ(axislabel(NaN, 4), "0");
    EXPECT_EQ(maskof(NaN, 4), "#");
    session.u = std::numeric_limits<float>::infinity();
    EXPECT_FALSE(numbermasks(0).empty());
}

TEST_F(NumberMask, TakesAnyNumberOfDigits) {
    for (const int digits : {-32768, -1, 0, 1, 100, 32767})
        for (const int use : {-1, 0, 3}) EXPECT_FALSE(spelled(12.5, digits, use).empty());
}

TEST(AxisLabel, IsPlainFrom00011To9999) {
    EXPECT_EQ(axislabel(.00011, 4), ".00011");
    EXPECT_EQ(axislabel(9999, 4), "9999");
    EXPECT_EQ(axislabel(-.5, 4), "-.5");
    EXPECT_EQ(axislabel(0, 4), "0");
    EXPECT_EQ(axislabel(-0.0, 4), "0");
    EXPECT_EQ(axislabel(1, 1), "1");
}

TEST(AxisLabel, HasAnExponentOutside) {
    EXPECT_EQ(axislabel(.0001, 4), "1E-04");
    EXPECT_EQ(axislabel(2.5e-6, 4), "2.5E-06");
    EXPECT_EQ(axislabel(1e-5, 4), "1E-05");
    EXPECT_EQ(axislabel(10000, 4), "1E+04");
    EXPECT_EQ(axislabel(-1e5, 4), "-1E+05");
    EXPECT_EQ(axislabel(1e100, 4), "1E+100");
    EXPECT_EQ(axislabel(12500, 3), "1.25E+04");
}

TEST(AxisLabel, MakesAValueAHairUnderARoundNumberThatNumber) {
    EXPECT_EQ(axislabel(.1 + .2, 17 - 1), ".3");
    EXPECT_EQ(axislabel(.29999999999, 4), ".3");
    EXPECT_EQ(axislabel(999.9999999, 4), "1000");
    EXPECT_EQ(axislabel(2.4999999, 2), "2.5");
    EXPECT_EQ(axislabel(2.4999999, 1), "3"); // the half, too
    EXPECT_EQ(axislabel(2.4999, 1), "2");
    EXPECT_EQ(axislabel(99999.99999999, 4), "1E+05");
    EXPECT_EQ(axislabel(9999.00000000001, 4), "9999");
}

TEST(AxisLabel, ReadsBackWithinHalfAUnitOfTheLastDigit) {
    for (const double value : generated())
        for (const int digits : {1, 3, 6, 15})
            ASSERT_NEAR(readback(axislabel(value, digits)), value, halfunit(value, digits) * 1.00003)
                << axislabel(value, digits);
}
