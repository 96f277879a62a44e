#include "numeric/readnum.h"

#include <limits>
#include <random>
#include <string>

#include <gtest/gtest.h>

#include "support/told.h"

TEST(NumberText, ReadsSignDigitsPointAndExponent) {
    EXPECT_EQ(readnum("12"), 12);
    EXPECT_EQ(readnum("-12.5"), -12.5);
    EXPECT_EQ(readnum("+.5"), 0.5);
    EXPECT_EQ(readnum("3."), 3);
    EXPECT_EQ(readnum("1.5E3"), 1500);
    EXPECT_EQ(readnum("1.5e-3"), 1.5e-3);
    EXPECT_EQ(readnum("2E+2"), 200);
}

TEST(NumberText, BlanksAreRemovedWhereverTheyStand) { EXPECT_EQ(readnum("  - 1 2 . 5 E - 1 "), -1.25); }

TEST(NumberText, ScaleLettersMultiply) {
    EXPECT_EQ(readnum("5K"), 5e3);
    EXPECT_EQ(readnum("5M"), 5e6);
    EXPECT_EQ(readnum("5G"), 5e9);
    EXPECT_EQ(readnum("5T"), 5e12);
    EXPECT_EQ(readnum("5P"), 5e15);
    EXPECT_EQ(readnum("5%"), 0.05);
    EXPECT_EQ(readnum("-1.5E2K"), -1.5e5);
    EXPECT_EQ(readnum("95 %"), 0.95);
}

TEST(NumberText, IsRoundedOnceHoweverLong) {
    EXPECT_EQ(readnum("0.1"), 0.1);
    EXPECT_EQ(readnum("2.2250738585072014E-308"), 2.2250738585072014e-308);
    EXPECT_EQ(readnum("1.7976931348623157E308"), 1.7976931348623157e308);
    EXPECT_EQ(readnum("0.1%"), 0.001);
    EXPECT_EQ(readnum("1" + std::string(400, '0') + ".E-400"), 1);
    EXPECT_EQ(readnum("." + std::string(400, '0') + "1E401"), 1);
}

TEST(NumberText, IntegerIsHeldToItsRange) {
    EXPECT_EQ(readnum("2147483639"), 2147483639.0);
    EXPECT_EQ(readnum("2147483647"), 2147483640.0);
    EXPECT_EQ(readnum("-99999999999999999999999"), -2147483640.0);
    EXPECT_EQ(readnum("2147483647."), 2147483647.0);
}

TEST(NumberText, DecimalSymbolIsTheCallers) {
    EXPECT_EQ(readnum("1,5", ','), 1.5);
    const Told told;
    EXPECT_EQ(readnum("1.5", ','), 0);
    EXPECT_EQ(Told::texts(), std::vector<std::string>{"Please enter the character ."});
}

TEST(NumberText, CharacterOutsideTheSetIsAskedForAndGivesZero) {
    const struct {
        const char* text;
        const char* character;
    } cases[] = {{"12x", "x"}, {"1.2.3", "."}, {"--1", "-"},
                 {"1-2", "-"}, {"5k", "k"},    {"5KM", "M"},
                 {"5K1", "1"}, {"1E2E", "E"},  {"1\xE2\x82\xAC", "\xE2\x82\xAC"}};
    for (const auto& one : cases) {
        const Told told;
        EXPECT_EQ(readnum(one.text), 0) << one.text;
        EXPECT_EQ(Told::texts(),
                  std::vector<std::string>{std::string("Please enter the character ") + one.character})
            << one.text;
    }
}

TEST(NumberText, TextWithoutADigitIsZero) {
    const Told told;
    for (const char* text : {"", "   ", "-", "K", ".", "E5", "-.E-"}) EXPECT_EQ(readnum(text), 0) << text;
    EXPECT_TRUE(Told::texts().empty());
}

TEST(NumberText, ExponentBeyondTheRangeSaturates) {
    EXPECT_EQ(readnum("1E309"), std::numeric_limits<double>::max());
    EXPECT_EQ(readnum("-1E99999999999999999999"), -std::numeric_limits<double>::max());
    EXPECT_EQ(readnum("1E-99999999999999999999"), 0);
    EXPECT_EQ(readnum("0E99999999999999999999"), 0);
}

TEST(NumberText, AnyBytesAreAccepted) {
    const Told told;
    std::mt19937 generator(20240607);
    const std::string likely = "0123456789+-.,EeKMGTP% \t";
    for (int i = 0; i < 20000; ++i) {
        std::string text(generator() % 40, '\0');
        for (char& c : text)
            c = generator() % 8 ? likely[generator() % likely.size()] : static_cast<char>(generator());
        const double value = readnum(text);
        EXPECT_TRUE(value >= -std::numeric_limits<double>::max()
                    && value <= std::numeric_limits<double>::max());
    }
}
