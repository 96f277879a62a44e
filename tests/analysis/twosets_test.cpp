// The likelihood ratio of two sets against closed forms.

#include "analysis/twosets.h"

#include <gtest/gtest.h>

#include <cmath>

#include "data/reportgoodness.h"
#include "support/lifefixture.h"

namespace {

class TwoSets : public LifeTest {
protected:
    TwoSets() { session.confMethod = likelihoodBounds; }
    static double pFF() { return session.PVALUEFF(1); }
};

/// Twice the log likelihood ratio of exponential samples: -r ln(sum / r) - r is the maximum of each.
double exponentialratio(double r1, double sum1, double r2, double sum2) {
    const auto maximum = [](double r, double sum) { return -r * std::log(sum / r) - r; };
    return 2 * (maximum(r1, sum1) + maximum(r2, sum2) - maximum(r1 + r2, sum1 + sum2));
}

TEST_F(TwoSets, OfExponentialDataHaveTheClosedForm) {
    session.fixedSlope = 1;
    sets({{"100", "250", "-400"}, {"700", "900", "1500", "-2000x0x2"}});
    const double T = exponentialratio(2, 750, 3, 7100);
    EXPECT_RELATIVE(pFF(), 100 * std::erfc(std::sqrt(T / 2)), 1e-6); // one degree of freedom
}

// The maximum of a normal likelihood is -n ln s - n/2 (1 + ln 2 pi), s with divisor n.
TEST_F(TwoSets, OfNormalDataHaveTheClosedForm) {
    choose(normal);
    sets({{"10", "12", "17"}, {"20", "26", "29", "33"}});
    const double T = -2 * 3 * std::log(std::sqrt(26 / 3.0)) - 2 * 4 * std::log(std::sqrt(90 / 4.0))
                     + 2 * 7 * std::log(std::sqrt(452 / 7.0));
    EXPECT_RELATIVE(pFF(), 100 * std::exp(-T / 2), 1e-6); // two degrees of freedom
    EXPECT_EQ(session.PVALUEFF(2), session.PVALUEFF(1));
}

TEST_F(TwoSets, OfTheSameDataDoNotDiffer) {
    sets({{"100", "200", "350"}, {"100", "200", "350"}});
    EXPECT_NEAR(pFF(), 100, 1e-3);
    EXPECT_NE(session.runTitle.find(" pFF-Difference [%] = >99.9999"), std::string::npos) << session.runTitle;
}

TEST_F(TwoSets, NeedThreeFailures) {
    session.fixedSlope = 1;
    sets({{"100", "-200"}, {"300"}});
    EXPECT_EQ(pFF(), static_cast<float>(noAnswer));
    EXPECT_NE(session.runTitle.find(") No LR Test Results"), std::string::npos) << session.runTitle;
}

TEST_F(TwoSets, WithoutALineOfTheirOwnHaveNoTest) {
    sets({{"100", "100"}, {"300", "500", "600"}});
    EXPECT_EQ(pFF(), static_cast<float>(noAnswer));
}

TEST_F(TwoSets, AreComparedLessTheirThresholds) {
    sets({{"100", "200", "350"}, {"150", "300", "320"}});
    const double plain = pFF();
    session.t0(1) = 40;
    session.t0(2) = 90;
    sets({{"140", "240", "390"}, {"240", "390", "410"}});
    EXPECT_RELATIVE(pFF(), plain, 1e-4);
}

// ---- with thresholds

const std::vector<std::string> early = {"310", "345", "368", "390", "402", "421", "437", "455", "478", "512"};
const std::vector<std::string> later = {"340", "385", "402", "425", "439", "460", "474", "490", "520", "556"};

// Expected: profiles over t0 by a golden section, slopes by bisection, three degrees of freedom; python and
// mpmath. The log likelihoods are -54.74912542867666, -55.24730885945158 and, together, -110.9620673029765.
TEST_F(TwoSets, SearchAThresholdForEachAndForBothTogether) {
    session.findThreshold = 1;
    for (const float method : {maximumLikelihood, rankRegression}) {
        choosemethod(method);
        sets({early, later});
        EXPECT_RELATIVE(pFF(), 58.679452536469455, 1e-6) << method;
    }
    choose(lognormal);
    sets({{"105", "112", "118", "127", "139", "151", "170", "195", "240", "320"},
          {"110", "119", "128", "140", "149", "165", "190", "215", "260", "350"}});
    EXPECT_RELATIVE(pFF(), 85.88568029243828, 1e-6);
}

TEST_F(TwoSets, KeepTheThresholdsOfTheirOwnFits) {
    session.findThreshold = 1;
    session.confMethod = noBounds;
    choosemethod(maximumLikelihood);
    sets({early, later});
    const float first = session.t0(1), second = session.t0(2);
    session.confMethod = likelihoodBounds;
    for (int run = 0; run < 2; ++run) {
        sets({early, later});
        EXPECT_EQ(session.t0(1), first);
        EXPECT_EQ(session.t0(2), second);
        EXPECT_RELATIVE(pFF(), 58.679452536469455, 1e-6);
    }
}

TEST_F(TwoSets, OfAFamilyWithALocationHaveNoThirdParameter) {
    choose(normal);
    sets({early, later});
    const double plain = pFF();
    session.findThreshold = 1;
    sets({early, later});
    EXPECT_EQ(pFF(), plain);
}

TEST_F(TwoSets, HaveNoTestWhereOneHasNoThreshold) {
    session.findThreshold = 1;
    choosemethod(maximumLikelihood);
    sets({early, {"105", "112", "118", "127", "139", "151", "170", "195", "240", "320"}});
    ASSERT_FALSE(fit(2).fitted);
    EXPECT_EQ(pFF(), static_cast<float>(noAnswer));
    EXPECT_NE(session.runTitle.find(") No LR Test Results"), std::string::npos) << session.runTitle;
}

TEST_F(TwoSets, HaveNoTestWhereOneHasNoLineByTheMethodInForce) {
    const std::vector<Cells> one = {{"100", "-200"}, {"300", "500", "600"}};
    choosemethod(maximumLikelihood);
    sets(one);
    EXPECT_GE(pFF(), 0);
    choosemethod(rankRegression);
    sets(one);
    ASSERT_FALSE(fit(1).fitted);
    EXPECT_EQ(pFF(), static_cast<float>(noAnswer));
    EXPECT_NE(session.runTitle.find(") No LR Test Results"), std::string::npos) << session.runTitle;
}

TEST_F(TwoSets, HaveNoTestWhereAValueLiesBelowTheThreshold) {
    session.t0(1) = 150;
    sets({{"100", "200", "350"}, {"150", "300", "320"}});
    EXPECT_EQ(pFF(), static_cast<float>(noAnswer));
}

TEST_F(TwoSets, AreNotComparedWhenOneIsHidden) {
    session.lineHide(2) = 1;
    sets({{"100", "200", "350"}, {"150", "300", "320"}});
    EXPECT_EQ(pFF(), static_cast<float>(noAnswer));
    EXPECT_EQ(session.runTitle.find("LR"), std::string::npos);
}

TEST_F(TwoSets, AreComparedInGroupedInputToo) {
    session.inputType = prbt2;
    sets({{"10x0x2x20", "20x0x8x20", "30x0x15x20"}, {"10x0x2x20", "20x0x8x20", "30x0x15x20"}});
    EXPECT_NEAR(pFF(), 100, 1e-3);
    sets({{"10x0x2x20", "20x0x8x20", "30x0x15x20"}, {"110x0x2x20", "120x0x8x20", "130x0x15x20"}});
    EXPECT_LT(pFF(), 1e-3);
}

TEST_F(TwoSets, AreComparedOnlyWhenContoursAreAsked) {
    session.confMethod = noBounds;
    sets({{"100", "200", "350"}, {"150", "300", "320"}});
    EXPECT_EQ(pFF(), static_cast<float>(noAnswer));
    EXPECT_EQ(session.runTitle.find("pFF"), std::string::npos);
    session.confMethod = -likelihoodBounds;
    sets({{"100", "200", "350"}, {"150", "300", "320"}});
    EXPECT_GE(pFF(), 0);
    sets({{"100", "200", "350"}, {"150", "300", "320"}, {"150", "300", "320"}});
    EXPECT_EQ(pFF(), static_cast<float>(noAnswer));
}

TEST_F(TwoSets, LeaveTheFitsAsTheyAre) {
    session.confMethod = noBounds;
    sets({{"100", "200", "350"}, {"150", "300", "320"}});
    const Fit first = fit(1), second = fit(2);
    session.confMethod = likelihoodBounds;
    sets({{"100", "200", "350"}, {"150", "300", "320"}});
    EXPECT_EQ(fit(1), first);
    EXPECT_EQ(fit(2), second);
}

TEST(LikelihoodRatio, IsCertainWithoutADifference) {
    EXPECT_EQ(likelihoodratiopvalue(0, 2), 100);
    EXPECT_EQ(likelihoodratiopvalue(-1e-12, 2), 100);
    EXPECT_NEAR(likelihoodratiopvalue(5.991464547107979, 2), 5, 1e-10); // the 5 percent point
    EXPECT_NEAR(likelihoodratiopvalue(7.814727903251179, 3), 5, 1e-10);
}

// ---- as text

std::string difference(double pFF) {
    std::string text;
    appenddifference(text, pFF);
    return text;
}

TEST(Difference, IsGradedByTheConfidenceThatTheSetsDiffer) {
    EXPECT_EQ(difference(60), " pFF-Difference [%] = 60");
    EXPECT_EQ(difference(20.01), " pFF-Difference [%] = 20.01");
    EXPECT_EQ(difference(20), " pFF-Difference [%] = 20 (Possible)");
    EXPECT_EQ(difference(10), " pFF-Difference [%] = 10 (Probable)");
    EXPECT_EQ(difference(5), " pFF-Difference [%] = 5 (Strong)");
    EXPECT_EQ(difference(0.3), " pFF-Difference [%] = <1.0 (Strong)");
    EXPECT_EQ(difference(100), " pFF-Difference [%] = >99.9999");
    EXPECT_EQ(difference(noAnswer), "No LR Test Results");
}

} // namespace
