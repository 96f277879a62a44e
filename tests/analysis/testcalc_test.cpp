// Test plans against the closed forms of the textbooks.

#include "analysis/testcalc.h"

#include <gtest/gtest.h>

#include <cmath>

#include "data/report.h"
#include "support/lifefixture.h"
#include "support/scriptedplatform.h"

namespace {

constexpr double digits = 1e-12;

TEST(TestPlan, OfAGoalIsTheLineThroughIt) {
    const double eta = goalscale(500, 0.9, 2);
    EXPECT_RELATIVE(eta, 500 / std::sqrt(-std::log(0.9)), digits);
    EXPECT_RELATIVE(reliabilityat(500, eta, 2), 0.9, digits);
    EXPECT_RELATIVE(lifeat(0.9, eta, 2), 500.0, digits);
}

TEST(TestPlan, WithoutFailuresFollowsTheTextbook) {
    // Abernethy: multipliers of the characteristic life at 90 percent, (2.3026 / n)^(1 / beta).
    EXPECT_NEAR(zerofailuretime(1, 2, 5, 90), 0.679, 5e-4);
    EXPECT_NEAR(zerofailuretime(1, 3, 3, 90), 0.916, 5e-4);
    EXPECT_RELATIVE(zerofailuretime(1000, 1.5, 8, 95), 1000 * std::pow(-std::log(0.05) / 8, 1 / 1.5), digits);
}

// Success run: n = ln(1 - C) / ln R items each tested for the goal life, whatever the slope.
TEST(TestPlan, ForTheGoalLifeItselfIsTheSuccessRun) {
    constexpr struct {
        double reliability, confidence, items;
    } runs[] = {{0.90, 90, 22},  {0.95, 90, 45}, {0.95, 95, 59},
                {0.99, 95, 299}, {0.90, 95, 29}, {0.5, 75, 2}};
    for (const auto& [reliability, confidence, items] : runs)
        for (const double beta : {0.7, 2.0, 5.0})
            EXPECT_EQ(zerofailureitems(goalscale(500, reliability, beta), beta, 500, confidence), items)
                << reliability << ' ' << confidence << ' ' << beta;
}

TEST(TestPlan, TimeAndItemsGoBackToEachOther) {
    const double time = zerofailuretime(1000, 2.2, 7, 80);
    EXPECT_EQ(zerofailureitems(1000, 2.2, time, 80), 7);
}

TEST(TestPlan, TakesWhatHasBeenTestedOffWhatIsWanted) {
    // Wanted: 1000^2 * ln 10. Tested: 10 items of 300 without a failure.
    const TestedSoFar tested{true, std::log(10 * 9e4), 0};
    const double missing = 1e6 * std::log(10.0) - 9e5;
    EXPECT_RELATIVE(additionaltime(tested, 1000, 2, 4, 90), std::sqrt(missing / 4), digits);
}

// Chi-square 0.9 with 4 degrees of freedom is 7.779440340.
TEST(TestPlan, AfterAFailureGoesByTheChiSquareValue) {
    const TestedSoFar tested{true, std::log(1e6), 1};
    EXPECT_RELATIVE(additionaltime(tested, 1000, 2, 1, 90), 1000 * std::sqrt(7.779440340 / 2 - 1), 1e-9);
}

TEST(TestPlan, OfAGoalThatIsReachedIsNegative) {
    const TestedSoFar tested{true, std::log(4e6), 0};
    EXPECT_RELATIVE(additionaltime(tested, 1000, 2, 1, 90), -1000 * std::sqrt(4 - std::log(10.0)), digits);
}

TEST(TestPlan, StaysInsideItsLimits) {
    EXPECT_EQ(zerofailuretime(1e300, 0.01, 1, 99.9), 1e300);
    EXPECT_EQ(zerofailureitems(1e300, 5, 1e-300, 90), 1e300);
    EXPECT_EQ(goalscale(1e10, 1 - 1e-17, 0.001), 0); // such a reliability rounds to 1
    EXPECT_EQ(goalscale(1e10, 0.999, 0.001), 1e300);
}

TEST(TestPlan, OfBadInputIsZero) {
    for (const double bad : {0.0, -1.0, std::nan("")}) {
        EXPECT_EQ(goalscale(bad, 0.9, 2), 0);
        EXPECT_EQ(goalscale(500, bad, 2), 0);
        EXPECT_EQ(goalscale(500, 0.9, bad), 0);
        EXPECT_EQ(reliabilityat(bad, 100, 2), 0);
        EXPECT_EQ(lifeat(0.9, bad, 2), 0);
        EXPECT_EQ(zerofailuretime(bad, 2, 5, 90), 0);
        EXPECT_EQ(zerofailuretime(100, 2, bad, 90), 0);
        EXPECT_EQ(zerofailuretime(100, 2, 5, bad), 0);
        EXPECT_EQ(zerofailureitems(100, 2, bad, 90), 0);
    }
    EXPECT_EQ(goalscale(500, 1, 2), 0);
    EXPECT_EQ(zerofailuretime(100, 2, 5, 100), 0);
}

class TestCalc : public LifeTest {
protected:
    TestCalc() {
        session.fixedSlope = 2;
        choosemethod(maximumLikelihood);
        life({"-300x0x10"});
        session.currentSet = 1;
        reportstart();
    }
    static bool reported(std::string_view line) {
        return session.reportBuffer.find(line) != std::string::npos;
    }
    static void expectgoal(ScriptedPlatform& scripted, const char* life, const char* reliability,
                           const char* confidence, const char* items, const char* usage) {
        scripted.expectnumber("Time Goal", life);
        scripted.expectnumber("Goal Reliability", reliability);
        scripted.expectnumber("Confidence", confidence);
        scripted.expectnumber("Additional Item Quantity", items);
        scripted.expectnumber("Usage By Month", usage);
    }
};

// Tested: 10 * 300^2 = 9e5. At 90 percent eta is sqrt(9e5 / ln 10) = 625.192; reliability at 500
// exp(-500^2 ln 10 / 9e5) = .5275; life at .9 is 625.192 sqrt(-ln .9) = 202.933. Wanted for .9 at 500:
// 500^2 / -ln .9 * ln 10 = 5463586; missing for each of 4 items sqrt((5463586 - 9e5) / 4) = 1068.13.
TEST_F(TestCalc, ReportsItsFiveOutputs) {
    ScriptedPlatform scripted;
    scripted.expectmenu("Test Unit", 4);
    expectgoal(scripted, "500", "90.0", "90", "4.0", "100");
    testcalc();
    EXPECT_EQ(scripted.shown[0].items.size(), 6u);
    EXPECT_EQ(scripted.shown[0].items[0], "a... Value");
    EXPECT_TRUE(reported("Test Output Requirement")) << session.reportBuffer;
    EXPECT_TRUE(reported("Results At Confidence = 90 %"));
    EXPECT_TRUE(reported("0) Start: Data Results ... Set 1"));
    EXPECT_TRUE(reported("1) Time Goal = 500 (Demonstrated 202.933 < 500)")) << session.reportBuffer;
    EXPECT_TRUE(reported("2) Goal Reliability For Time = .9 (Demonstrated .5275 < .9)"));
    EXPECT_TRUE(reported("3) Additional Time By Each Additional Item = 1068.13 (Allowable Occurrence = 0)"));
    EXPECT_TRUE(reported("   Additional Item Quantity = 4"));
    EXPECT_TRUE(reported("4) Production Usage By Month = 100"));
    EXPECT_TRUE(reported("   R *  Month = 5"));
    EXPECT_TRUE(reported("   D *  Month = 2.02933"));
    EXPECT_TRUE(reported("   Additional Usage To End Of Requirement = 10.6813 Month"));
}

TEST_F(TestCalc, SaysMoreThan60MonthsWithoutTheirNumber) {
    ScriptedPlatform scripted;
    scripted.expectmenu("Test Unit", 4);
    expectgoal(scripted, "500", "90.0", "50.0", "4.0", "2");
    testcalc();
    EXPECT_TRUE(reported("   R *  Month >60")) << session.reportBuffer;
    EXPECT_TRUE(reported("Median Estimate"));
}

TEST_F(TestCalc, AsksAgainWhereTheGoalIsReachedAlready) {
    ScriptedPlatform scripted;
    scripted.expectmenu("Test Unit", 4);
    expectgoal(scripted, "100", "90.0", "90", "4.0", "0.0");
    scripted.expectmessage("Not ... Lower Occurrence");
    scripted.expectnumber("Time Goal", std::nullopt);
    testcalc();
    EXPECT_EQ(session.reportBuffer, "");
}

TEST_F(TestCalc, TellsOfABadGoal) {
    ScriptedPlatform scripted;
    scripted.expectmenu("Test Unit", 4);
    expectgoal(scripted, "-500", "90.0", "90", "4.0", "0.0");
    scripted.expectmessage("Calculation Error ... (menutestout ... 3) ud#=");
    testcalc();
}

TEST_F(TestCalc, NeedsASlope) {
    session.fixedSlope = 0;
    session.setFitted(1) = 0;
    ScriptedPlatform scripted;
    scripted.expectmessage("Beta <= 0");
    testcalc();
}

TEST_F(TestCalc, AnswersItselfInAScript) {
    session.scriptRequest = "run";
    testcalc();
    EXPECT_TRUE(reported("3) Additional")) << session.reportBuffer;
}

} // namespace
