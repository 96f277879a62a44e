#include "data/numbertext.h"

#include <gtest/gtest.h>

#include <bit>
#include <charconv>
#include <clocale>
#include <cmath>
#include <limits>
#include <random>

#include "session/session.h"
#include "support/allocations.h"

namespace {

template <class T>
std::string written(T value) {
    std::string text;
    appendnumber(text, value);
    return text;
}

std::string significant(double value, int digits) {
    std::string text;
    appendsignificant(text, value, digits);
    return text;
}

double readback(std::string_view text) { return readnumber(text).value; }

/// The reader with its registers and decimal symbols put back afterwards.
class NumberRead : public testing::Test {
protected:
    void read(std::string text) {
        session.msg = text;
        session.u = -1;
        session.ud = -1;
        numberread();
        EXPECT_EQ(session.msg, text);
    }
    Keep<std::string, std::string, std::string, std::string, float, double> keep{
        session.msg, session.decimalSeparator, session.fileDecimal, session.delimiter, session.u, session.ud};
};

constexpr float floatMost = std::numeric_limits<float>::max();
constexpr double infinite = std::numeric_limits<double>::infinity();

} // namespace

TEST(NumberText, IsPlainWithALeadingBlankAndNoZeroBeforeThePoint) {
    EXPECT_EQ(written(0.5f), " .5");
    EXPECT_EQ(written(-1.25f), "-1.25");
    EXPECT_EQ(written(-0.5), "-.5");
    EXPECT_EQ(written(0.0f), " 0");
    EXPECT_EQ(written(100.0f), " 100");
    EXPECT_EQ(written(100000.0), " 100000");
    EXPECT_EQ(written(12.5), " 12.5");
    EXPECT_EQ(written(3.3e33f), " 3.3E+33");
    EXPECT_EQ(written(-3.3e33f), "-3.3E+33");
}

TEST(NumberText, HasTheFewestDigitsThatReadBack) {
    EXPECT_EQ(written(0.1f), " .1");
    EXPECT_EQ(written(0.1), " .1");
    EXPECT_EQ(written(static_cast<double>(0.1f)), " .10000000149011612");
    EXPECT_EQ(written(1.0 / 3), " .3333333333333333");
    EXPECT_EQ(written(std::nextafter(1.0, 2.0)), " 1.0000000000000002");
}

TEST(NumberText, OfASingleTakesSevenPlacesBeforeThePoint) {
    EXPECT_EQ(written(9999999.0f), " 9999999");
    EXPECT_EQ(written(1e6f), " 1000000");
    EXPECT_EQ(written(1e7f), " 1E+07");
    EXPECT_EQ(written(12345678.0f), " 1.2345678E+07");
    EXPECT_EQ(written(-1e7f), "-1E+07");
}

TEST(NumberText, OfASingleTakesSevenZerosBehindThePoint) {
    EXPECT_EQ(written(1e-8f), " .00000001");
    EXPECT_EQ(written(1e-9f), " 1E-09");
    EXPECT_EQ(written(-1.5e-8f), "-.000000015");
    EXPECT_EQ(written(1e-12f), " 1E-12");
}

TEST(NumberText, OfADoubleTakesFifteenPlacesBeforeThePoint) {
    EXPECT_EQ(written(999999999999999.0), " 999999999999999");
    EXPECT_EQ(written(1e14), " 100000000000000");
    EXPECT_EQ(written(1e15), " 1E+15");
    EXPECT_EQ(written(1e300), " 1E+300");
}

TEST(NumberText, OfADoubleTakesFifteenZerosBehindThePoint) {
    EXPECT_EQ(written(1e-16), " .0000000000000001");
    EXPECT_EQ(written(1e-17), " 1E-17");
    EXPECT_EQ(written(-2.5e-300), "-2.5E-300");
}

TEST(NumberText, OfNothingFiniteIsStillANumber) {
    EXPECT_EQ(written(std::nan("")), " 0");
    EXPECT_EQ(written(std::nanf("")), " 0");
    EXPECT_EQ(written(-0.0), " 0");
    EXPECT_EQ(written(-0.0f), " 0");
    EXPECT_EQ(written(infinite), written(std::numeric_limits<double>::max()));
    EXPECT_EQ(written(-infinite), "-1.7976931348623157E+308");
    EXPECT_EQ(written(std::numeric_limits<float>::infinity()), written(floatMost));
    EXPECT_EQ(written(floatMost), " 3.4028235E+38");
    EXPECT_EQ(written(std::numeric_limits<float>::denorm_min()), " 1E-45");
    EXPECT_EQ(written(std::numeric_limits<double>::denorm_min()), " 5E-324");
}

TEST(NumberText, IsAppended) {
    std::string text = "x=";
    appendtrimmed(text, 2.5);
    appendtrimmed(text, -3.0f);
    EXPECT_EQ(text, "x=2.5-3");
}

TEST(NumberText, DoesNotAllocateWithinTheCapacity) {
    std::string text;
    text.reserve(400);
    const std::size_t before = allocationcount();
    for (const double value : {0.1, -1e300, 1e-16, 1e14, infinite}) {
        appendnumber(text, value);
        appendnumber(text, static_cast<float>(value));
        appendsignificant(text, value, 5);
    }
    EXPECT_EQ(allocationcount(), before);
}

TEST(NumberText, DoesNotAskTheLocale) {
    const std::string former = std::setlocale(LC_ALL, nullptr);
    const bool comma = std::setlocale(LC_ALL, "de_DE.UTF-8") != nullptr;
    EXPECT_EQ(written(1.5), " 1.5");
    EXPECT_EQ(readback("1.5"), 1.5);
    std::setlocale(LC_ALL, former.c_str());
    if (!comma) GTEST_SKIP() << "no locale with a decimal comma is installed";
}

TEST(Significant, RoundsToTheDigitsAsked) {
    EXPECT_EQ(significant(1234.5678, 6), "1234.57");
    EXPECT_EQ(significant(1234.5678, 2), "1200");
    EXPECT_EQ(significant(-0.00012349, 4), "-.0001235");
    EXPECT_EQ(significant(99.96, 3), "100");
    EXPECT_EQ(significant(0.5, 1), ".5");
}

TEST(Significant, HasNoZerosAtItsEnd) {
    EXPECT_EQ(significant(2, 6), "2");
    EXPECT_EQ(significant(2.5, 6), "2.5");
    EXPECT_EQ(significant(1000, 6), "1000");
}

TEST(Significant, IsPlainInSevenPlacesOrInAsManyAsItHasDigits) {
    EXPECT_EQ(significant(1234567.89, 4), "1235000");
    EXPECT_EQ(significant(12345678.9, 4), "1.235E+07");
    EXPECT_EQ(significant(123456789.25, 12), "123456789.25");
    EXPECT_EQ(significant(1.23456789e-7, 4), ".0000001235");
    EXPECT_EQ(significant(1.23456789e-17, 4), "1.235E-17");
}

TEST(Significant, HoldsTheDigitsToOneToSeventeen) {
    EXPECT_EQ(significant(1234, 0), "1000");
    EXPECT_EQ(significant(1234, -3), "1000");
    EXPECT_EQ(significant(0.1, 40), ".10000000000000001");
}

TEST(Significant, OfNothingFiniteIsStillANumber) {
    EXPECT_EQ(significant(std::nan(""), 3), "0");
    EXPECT_EQ(significant(-0.0, 3), "0");
    EXPECT_EQ(significant(-infinite, 3), "-1.8E+308");
}

TEST(ReadNumber, ReadsTheLeadingNumericText) {
    const std::pair<const char*, double> texts[] = {
        {"6", 6},       {"6.12", 6.12},     {".5", .5},        {"-.5", -.5},   {"+5", 5},    {"5.", 5},
        {"  7", 7},     {"7  ", 7},         {"12abc", 12},     {"1.2.3", 1.2}, {"1e5", 1e5}, {"1E5", 1e5},
        {"1E+05", 1e5}, {"2.5E-03", .0025}, {"1E", 1},         {"1E+", 1},     {"007", 7},   {"-0", 0},
        {"0x10", 0},    {"1E-199", 1e-199}, {"1E+199", 1e199}, {"0E+400", 0},  {"1,5", 1}};
    for (const auto& [text, value] : texts) {
        EXPECT_EQ(readnumber(text).value, value) << text;
        EXPECT_TRUE(readnumber(text).readable) << text;
    }
}

TEST(ReadNumber, FindsNoNumberWhereNoDigitStands) {
    for (const char* text :
         {"",    "   ",      ".",    "-",  "+",   "--5", "+-5", "-+5", "abc", "nan", "inf",      "-inf",
          "NaN", "infinity", "-nan", "E5", ".E5", "%",   "@",   "%@",  "\t5", "\r5", "\xff\xfe", "- 5"}) {
        EXPECT_FALSE(readnumber(text).readable) << text;
        EXPECT_EQ(readnumber(text).value, 0) << text;
    }
}

TEST(ReadNumber, EndsAtTheFirstBlankTabOrLineEnd) {
    for (const char* text : {"12 34", "12\t34", "12\r34", "12\n34", "12 %34"})
        EXPECT_EQ(readback(text), 12) << text;
}

TEST(ReadNumber, RemovesPercentSignsAndAts) {
    const std::pair<const char*, double> texts[] = {
        {"12%", 12},     {"3@4", 34},      {"%5", 5},     {"-%5", -5},    {"1%.%5", 1.5}, {"1E%+05", 1e5},
        {"1E+@05", 1e5}, {"@@1@@2@@", 12}, {"1%E5", 1e5}, {"12% 34", 12}, {"+@.5", .5}};
    for (const auto& [text, value] : texts) EXPECT_EQ(readback(text), value) << text;
}

TEST(ReadNumber, RefusesASignedExponentOfThreeDigitsFromTwoHundredOn) {
    for (const char* text : {"1E+200", "1E+300", "1E-300", "1E-200", "1E+400", "1E-400", "1e+300", "-1E+300",
                             "1E+0005", "1E-0005", "1E+4%00", "1E+%300", "2.5E+299"})
        EXPECT_EQ(readback(text), 0) << text;
    for (const char* text : {"1E+199", "1E+099", "1E+99", "1E-199"}) EXPECT_NE(readback(text), 0) << text;
    EXPECT_EQ(readback("1E+005"), 1e5);
}

TEST(ReadNumber, LooksOnlyAtExponentsWithASign) {
    EXPECT_EQ(readback("1E300"), 1e300);
    EXPECT_EQ(readback("1E0005"), 1e5);
}

TEST(ReadNumber, GivesZeroForWhatADoubleCannotHold) {
    EXPECT_EQ(readback("1E400"), 0);
    EXPECT_EQ(readback(std::string(400, '9')), 0);
    EXPECT_EQ(readback("-" + std::string(400, '9')), 0);
}

TEST(ReadNumber, TakesTextsOfAnyLength) {
    EXPECT_EQ(readback(std::string(1000000, '9')), 0);
    EXPECT_EQ(readback(std::string(1000000, '0') + "5"), 5);
    EXPECT_EQ(readback("1." + std::string(1000000, '0')), 1);
    EXPECT_EQ(readback(std::string(1000000, ' ') + "5"), 5);
    EXPECT_EQ(readback("5" + std::string(1000000, '%')), 5);
    EXPECT_EQ(readback(std::string(1000000, '%')), 0);
    EXPECT_EQ(readback(std::string(1000000, 'a')), 0);
}

TEST(ReadNumber, ReadsPastAnyNumberOfMarks) {
    EXPECT_EQ(readback(std::string(5000, '%') + "5"), 5);
    EXPECT_EQ(readback("1" + std::string(5000, '@') + "2"), 12);
}

TEST(ReadNumber, StopsAtANul) {
    EXPECT_EQ(readback(std::string_view("12\0"
                                        "34",
                                        5)),
              12);
    EXPECT_FALSE(readnumber(std::string_view("\0"
                                             "12",
                                             3))
                     .readable);
}

TEST(ReadNumber, DoesNotAllocate) {
    const std::string longText(5000, '7');
    const std::size_t before = allocationcount();
    for (const char* text : {"12", "1%2", "nan", "1E+300", " -1.5E+20 rest"}) readnumber(text);
    readnumber(longText);
    EXPECT_EQ(allocationcount(), before);
}

TEST(ReadNumber, RoundsShortDecimalsToTheNearestDouble) {
    std::mt19937_64 bits(20240229);
    for (int i = 0; i < 200000; ++i) {
        std::string text = std::to_string(bits() % 1000000000000000);
        text.resize(1 + bits() % text.size());
        text.insert(bits() % (text.size() + 1), ".");
        double nearest = 0;
        std::from_chars(text.data(), text.data() + text.size(), nearest);
        EXPECT_EQ(readback(text), nearest) << text;
    }
}

TEST(ReadNumber, GivesBackEveryWrittenSingle) {
    std::mt19937 bits(20240229);
    for (int i = 0; i < 200000; ++i) {
        const auto value = std::bit_cast<float>(static_cast<uint32_t>(bits()));
        if (!std::isfinite(value)) continue;
        EXPECT_EQ(static_cast<float>(readback(written(value))), value);
    }
}

TEST(ReadNumber, GivesBackEveryWrittenDoubleOfAReadableExponent) {
    std::mt19937_64 bits(20240229);
    for (int i = 0; i < 200000; ++i) {
        const auto value = std::bit_cast<double>(static_cast<uint64_t>(bits()));
        if (!(std::fabs(value) >= 1e-199 && std::fabs(value) < 1e200)) continue;
        EXPECT_EQ(readback(written(value)), value);
    }
}

TEST_F(NumberRead, LeavesBothWidthsInTheRegisters) {
    read(" 6.12 x");
    EXPECT_EQ(session.ud, 6.12);
    EXPECT_EQ(session.u, 6.12f);
}

TEST_F(NumberRead, GivesZeroForAnEmptyText) {
    for (const char* text : {"", "    ", "rubbish"}) {
        read(text);
        EXPECT_EQ(session.ud, 0);
        EXPECT_EQ(session.u, 0);
    }
}

TEST_F(NumberRead, NarrowsThroughTheGuard) {
    read("1E+199");
    EXPECT_EQ(session.ud, 1e199);
    EXPECT_EQ(session.u, 9e30f);
    read("1E-50");
    EXPECT_EQ(session.u, 9e-30f);
}

TEST_F(NumberRead, TakesTheSentinelsAsTheyAre) {
    read("3.3E+33");
    EXPECT_EQ(session.u, 3.3e33f);
    read("-9.123E+32");
    EXPECT_EQ(session.u, -9.123e32f);
}

TEST_F(NumberRead, TurnsTheSessionsSymbolIntoAPoint) {
    session.decimalSeparator = ",";
    for (const char* text : {"1,5", "1.5", "1,5,7", "1,5 6"}) {
        read(text);
        EXPECT_EQ(session.ud, 1.5) << text;
    }
    read("-,5%");
    EXPECT_EQ(session.ud, -0.5);
}

TEST_F(NumberRead, TurnsTheFilesSymbolIntoAPoint) {
    session.fileDecimal = ",";
    read("1,25E+02");
    EXPECT_EQ(session.ud, 125);
}

TEST_F(NumberRead, TakesDifferentSymbolsOfSessionAndFile) {
    session.decimalSeparator = ";";
    session.fileDecimal = ",";
    read("1;5");
    EXPECT_EQ(session.ud, 1.5);
    read("2,5");
    EXPECT_EQ(session.ud, 2.5);
}

TEST_F(NumberRead, TakesASymbolOfSeveralBytesAndAnEmptyOne) {
    session.decimalSeparator = "\u00B7";
    session.fileDecimal = "";
    read("1\u00B7"
         "5");
    EXPECT_EQ(session.ud, 1.5);
}

TEST_F(NumberRead, DoesNotTakeACommaWhenNobodyWritesOne) {
    read("1,5");
    EXPECT_EQ(session.ud, 1);
}

TEST_F(NumberRead, FieldCutTakesTheTextBeforeTheDelimiter) {
    session.delimiter = "x";
    session.msg = "6.5x3xrest";
    fieldcut();
    EXPECT_EQ(session.fieldText, "6.5");
    EXPECT_EQ(session.ud, 6.5);
    EXPECT_EQ(session.u, 6.5f);
    EXPECT_EQ(session.msg, "3xrest");
}

TEST_F(NumberRead, FieldCutTakesTheWholeTextWithoutDelimiter) {
    session.delimiter = ",";
    session.msg = "6.5x3";
    fieldcut();
    EXPECT_EQ(session.fieldText, "6.5x3");
    EXPECT_EQ(session.ud, 6.5);
    EXPECT_EQ(session.msg, "");
    fieldcut();
    EXPECT_EQ(session.fieldText, "");
    EXPECT_EQ(session.ud, 0);
}

TEST_F(NumberRead, FieldCutFindsAnEmptyFieldAtTheStart) {
    session.delimiter = "x";
    session.msg = "x5";
    session.ud = 3;
    fieldcut();
    EXPECT_EQ(session.fieldText, "");
    EXPECT_EQ(session.ud, 0);
    EXPECT_EQ(session.u, 0);
    EXPECT_EQ(session.msg, "5");
}

TEST_F(NumberRead, FieldCutWithoutADelimiterToCutAtTakesAll) {
    session.delimiter = "";
    session.msg = "5x6";
    fieldcut();
    EXPECT_EQ(session.fieldText, "5x6");
    EXPECT_EQ(session.msg, "");
}
