// Group tests with a known slope.

#include "analysis/sicaluko.h"

#include <gtest/gtest.h>

#include <cmath>

#include "data/report.h"
#include "support/lifefixture.h"
#include "support/scriptedplatform.h"

namespace {

constexpr double digits = 1e-12;

const FamilyLine slopeTwo{weibull, -1, 0, 2};

TEST(GroupTest, PlacesTheFailureAtItsMedianRank) {
    EXPECT_RELATIVE(groupposition(4, 2), 1.7 / 4.4, digits);
    EXPECT_RELATIVE(groupscale(slopeTwo, 100, 4, 2), 100 / std::sqrt(-std::log1p(-1.7 / 4.4)), digits);
}

// The first of N fails before T with one half when each fails before it with 1 - 2^(-1/N).
TEST(GroupTest, OfTheFirstFailureIsThatOfTheWeakestUnit) {
    for (const double N : {2.0, 3.0, 5.0, 10.0, 40.0}) {
        const double exact = 100 / std::sqrt(std::log(2.0) / N);
        EXPECT_RELATIVE(groupscale(slopeTwo, 100, N, 1), exact, 0.006) << N;
    }
}

TEST(GroupTest, GoesByTheFamilyOfTheLine) {
    EXPECT_NEAR(groupscale({normal, -1, 0, 10}, 100, 5, 3), 100, 1e-10); // the middle one, at the mean
    EXPECT_RELATIVE(groupscale({lognormal, -1, 0, 1.5}, 100, 5, 3), 100.0, 1e-10);
}

TEST(GroupTest, IsNoneOutsideItsRange) {
    EXPECT_EQ(groupscale(slopeTwo, 0, 4, 2), 0);
    EXPECT_EQ(groupscale(slopeTwo, -1, 4, 2), 0);
    EXPECT_EQ(groupscale(slopeTwo, 100, 4, 0), 0);
    EXPECT_EQ(groupscale(slopeTwo, 100, 4, 5), 0);
    EXPECT_EQ(groupscale({weibull, -1, 0, 0}, 100, 4, 2), 0);
    EXPECT_EQ(groupscale(slopeTwo, std::nan(""), 4, 2), 0);
}

class SicaLuko : public LifeTest {
protected:
    SicaLuko() {
        session.fixedSlope = 2;
        life({"80", "100"});
        session.currentSet = 1;
        reportstart();
    }
    static bool reported(std::string_view line) {
        return session.reportBuffer.find(line) != std::string::npos;
    }
};

TEST_F(SicaLuko, AsksAndReportsTheLineAndTheCorrection) {
    ScriptedPlatform scripted;
    scripted.expectnumber("Test Quantity", "6");
    scripted.expectnumber("Last Occurrence Sequence Value", "3");
    scripted.expectnumber("Time Of Last Occurrence", "120");
    sicaluko();
    EXPECT_EQ(scripted.shown[0].value, "4");
    EXPECT_EQ(scripted.shown[1].value, "2");
    EXPECT_EQ(scripted.shown[2].value, "100"); // taken from the data
    EXPECT_RELATIVE(session.eta, 120 / std::sqrt(-std::log1p(-2.7 / 6.4)), digits);
    EXPECT_EQ(session.beta, 2);
    EXPECT_EQ(session.testQty, 6);
    EXPECT_EQ(session.testLast, 3);
    EXPECT_TRUE(reported("Test Quantity Requirement = 6")) << session.reportBuffer;
    EXPECT_TRUE(reported("Last Occurrence Sequence Value = 3"));
    EXPECT_TRUE(reported("Correction Value = 1.3509")) << session.reportBuffer;
}

TEST_F(SicaLuko, KeepsQuantityAndSequenceInTheirRange) {
    ScriptedPlatform scripted;
    scripted.expectnumber("Test Quantity", "1");
    scripted.expectnumber("Last Occurrence Sequence", "9");
    scripted.expectnumber("Time", "100");
    sicaluko();
    EXPECT_EQ(session.testQty, 2);
    EXPECT_EQ(session.testLast, 2);
}

TEST_F(SicaLuko, OfTheFirstFailureIsAWeibullLine) {
    session.dist = lognormal;
    ScriptedPlatform scripted;
    scripted.expectnumber("Test Quantity", "5");
    scripted.expectnumber("Last Occurrence Sequence", "1");
    scripted.expectnumber("Time", "100");
    sicaluko();
    EXPECT_EQ(session.dist, weibull);
    EXPECT_RELATIVE(session.eta, groupscale(slopeTwo, 100, 5, 1), digits);
}

TEST_F(SicaLuko, CancelledChangesNothing) {
    session.eta = 3;
    ScriptedPlatform scripted;
    scripted.expectnumber("Test Quantity", "8");
    scripted.expectnumber("Last Occurrence Sequence", std::nullopt);
    sicaluko();
    EXPECT_EQ(session.testQty, 4);
    EXPECT_EQ(session.eta, 3);
    EXPECT_EQ(session.reportBuffer, "");
}

TEST_F(SicaLuko, SuddenDeathAsksForTheGroupAndItsFirstFailure) {
    ScriptedPlatform scripted;
    scripted.expectnumber("Test Quantity", "5");
    scripted.expectnumber("Time Of Last Occurrence", "100");
    suddendeath();
    EXPECT_RELATIVE(session.eta, groupscale(slopeTwo, 100, 5, 1), digits);
    EXPECT_EQ(session.testLast, 2);
    EXPECT_TRUE(reported("Sudden-Death")) << session.reportBuffer;
}

TEST_F(SicaLuko, NeedsASlope) {
    session.fixedSlope = 0;
    session.setFitted(1) = 0;
    ScriptedPlatform scripted;
    scripted.expectmessage("Beta <= 0");
    sicaluko();
    EXPECT_EQ(session.reportBuffer, "");
}

TEST_F(SicaLuko, TellsOfAnAgeThatGivesNoLine) {
    ScriptedPlatform scripted;
    scripted.expectnumber("Test Quantity", "5");
    scripted.expectnumber("Last Occurrence Sequence", "2");
    scripted.expectnumber("Time", "-7");
    scripted.expectmessage("Calculation Truncated");
    sicaluko();
}

} // namespace
