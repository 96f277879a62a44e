#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <string>

#include "support/shellfixture.h"

namespace {

class PreciseReading : public ShellTest {
protected:
    const Cells bearings = {"150", "230", "310", "420", "-500"};

    /// The number behind a name in the result that was told.
    double told(const std::string& name) const {
        for (auto seen = desk.shown.rbegin(); seen != desk.shown.rend(); ++seen) {
            const auto at = seen->text.find(name + " = ");
            if (seen->items.empty() && at != std::string::npos)
                return std::strtod(seen->text.c_str() + at + name.size() + 3, nullptr);
        }
        ADD_FAILURE() << "not told: " << name;
        return 0;
    }
    void readx(const std::string& x) {
        desk.expectkey("Precise Reading", 'A');
        desk.expectnumber("X-Value", x);
        desk.expectmessage("Reliability");
        desk.expectkey("Precise Reading", 'X');
        command(10);
    }
    void readpercent(const std::string& percent) {
        desk.expectkey("Precise Reading", 'B');
        desk.expectnumber("Occurrence %", percent);
        desk.expectmessage("Reliability");
        desk.expectkey("Precise Reading", 'X');
        command(10);
    }
};

TEST_F(PreciseReading, AReliabilityNearZeroKeepsItsDigits) {
    given(bearings);
    const Fit line = fit();
    for (const double z : {0.5, 5.0, 25.0, 33.0}) {
        const std::string x = std::to_string(line.eta * std::pow(z, 1 / line.beta));
        readx(x);
        const double exact = 100 * std::exp(-std::pow(std::stod(x) / line.eta, line.beta));
        EXPECT_RELATIVE(told("Reliability"), exact, 2e-6);
    }
}

TEST_F(PreciseReading, BeyondTheDigitsALimitIsToldInPlaceOfANumber) {
    given(bearings);
    readx("100000");
    EXPECT_NE(desk.shown[desk.shown.size() - 2].text.find("Reliability < 2E-14 %"), std::string::npos);
    readx("0.0000000001");
    EXPECT_NE(desk.shown[desk.shown.size() - 2].text.find("Occurrence < 2E-14 %"), std::string::npos);
}

TEST_F(PreciseReading, AnOccurrenceNearOneHundredKeepsItsComplement) {
    given(bearings);
    readpercent("99.99999");
    EXPECT_RELATIVE(told("Reliability"), 1e-5, 1e-6);
    const Fit line = fit();
    EXPECT_RELATIVE(told("X-Value"), line.eta * std::pow(-std::log(1e-7), 1 / line.beta), 1e-6);
}

TEST_F(PreciseReading, UnderAThresholdXIsThatOfThePlotsAxisAndSaysWhich) {
    session.t0(1) = 100;
    given(bearings);
    const Fit line = fit();
    const double tenth = line.eta * std::pow(-std::log(0.9), 1 / line.beta);
    ASSERT_EQ(session.scaleAsRecorded, 0);
    readpercent("10");
    EXPECT_RELATIVE(told("X-Value - NAR"), tenth, 1e-6);
    readx(std::to_string(tenth));
    EXPECT_NEAR(told("Occurrence"), 10, 1e-4);
    EXPECT_NE(desk.shown[desk.shown.size() - 3].text.find("X-Value - NAR"), std::string::npos);
    session.scaleAsRecorded = 1;
    readpercent("10");
    EXPECT_RELATIVE(told("X-Value - AR"), tenth + 100, 1e-6);
    readx(std::to_string(tenth + 100));
    EXPECT_NEAR(told("Occurrence"), 10, 1e-4);
    readx("100");
    EXPECT_EQ(told("Occurrence"), 0) << "before the threshold nothing fails";
    EXPECT_EQ(told("Reliability"), 100);
}

TEST_F(PreciseReading, WithoutAThresholdNoScaleIsNamed) {
    given(bearings);
    readpercent("10");
    for (const auto& seen : desk.shown) EXPECT_EQ(seen.text.find("AR"), std::string::npos) << seen.text;
}

} // namespace
