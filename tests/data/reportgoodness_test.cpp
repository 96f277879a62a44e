// The printed forms of the figures of goodness, and where they stand in the report.

#include "data/reportgoodness.h"

#include <gtest/gtest.h>

#include <cmath>

#include "data/report.h"
#include "data/resultsjson.h"
#include "support/lifefixture.h"

namespace {

std::string percent(double value, bool fine = false) {
    std::string text;
    appendpercent(text, value, fine);
    return text;
}

std::string grade(double value) {
    std::string text;
    appendadgrade(text, value);
    return text;
}

TEST(Percent, HasTwoDecimalsAtMost) {
    EXPECT_EQ(percent(45.678), "45.68");
    EXPECT_EQ(percent(50), "50");
    EXPECT_EQ(percent(4.5), "4.5");
}

TEST(Percent, IsNeverPrintedAs100) {
    EXPECT_EQ(percent(100), ">99.9999");
    EXPECT_EQ(percent(99.99995), ">99.9999");
    EXPECT_EQ(percent(99.9998), "99.99");
    EXPECT_EQ(percent(99.996), "99.99");
}

TEST(Percent, HasALeastFormForSmallAndLargeSamples) {
    EXPECT_EQ(percent(0.99), "<1");
    EXPECT_EQ(percent(1), "1");
    EXPECT_EQ(percent(0.99, true), ".99");
    EXPECT_EQ(percent(0.099, true), "<.1");
    EXPECT_EQ(percent(0), "<1");
}

TEST(Grade, OfAndersonDarlingFollowsItsCuts) {
    EXPECT_EQ(grade(0.5), "Bad");
    EXPECT_EQ(grade(1), "Very Poor");
    EXPECT_EQ(grade(5), "Poor");
    EXPECT_EQ(grade(10), "Acceptable");
    EXPECT_EQ(grade(50), "Good");
    EXPECT_EQ(grade(80), "Very Good");
}

TEST(TenPercentMark, TellsWhatIsBelow) {
    const auto mark = [](double value, bool urgent) {
        std::string text;
        appendtenpercentmark(text, "pve%", value, urgent);
        return text;
    };
    EXPECT_EQ(mark(9.99, false), " (pve%<10!)");
    EXPECT_EQ(mark(9.99, true), " (pve%<10!!)");
    EXPECT_EQ(mark(10, false), " (OK)");
}

class Goodness : public LifeTest {
protected:
    const Cells bearings = {"17.88", "28.92", "33",     "41.52",  "42.12",  "45.6",   "48.4",  "51.84",
                            "51.96", "54.12", "55.56",  "67.8",   "68.64",  "68.64",  "68.88", "84.12",
                            "93.12", "98.64", "105.12", "105.84", "127.92", "128.04", "173.4"};
    static bool reported(std::string_view line) {
        return session.reportBuffer.find(line) != std::string::npos;
    }
    static std::string json() {
        std::string text;
        writeresults(text);
        return text;
    }
};

// r^2 .970332 is that of the reference table; 23 failures have the critical value .912237.
TEST_F(Goodness, OfAGoodLineIsMarkedOK) {
    life(bearings);
    EXPECT_TRUE(reported("ccc^2=.912237 (OK)")) << session.reportBuffer;
    EXPECT_TRUE(reported("pve%=")) << session.reportBuffer;
    EXPECT_NEAR(session.rSquaredMinusCcc(1), 0.970332155 - 0.912237, 1e-6);
    EXPECT_EQ(session.PVALUE(1), session.pvePercent(1));
}

// The published polynomials for 23 failures.
TEST_F(Goodness, StandsInTheSessionInPercent) {
    life(bearings);
    const double l = std::log(23.0);
    const double rho = (1 - 0.9703321551174739) / (1 - 0.912237);
    const double A = (0.001973 * l - 0.101019) * l - 0.333822;
    const double B = (-0.004794 * l + 0.345408) * l - 2.809149;
    const double C = (0.008406 * l - 0.377782) * l + 3.723982;
    EXPECT_NEAR(session.pvePercent(1), 100 * std::exp(-std::exp(B * std::pow(rho, A) + C)), 1e-3);
}

TEST_F(Goodness, OfAPoorLineIsMarked) {
    life({"10", "11", "12", "13", "14", "200", "210", "220"});
    EXPECT_TRUE(reported(" (r^2<ccc^2!)")) << session.reportBuffer;
    EXPECT_TRUE(reported("(pve%<10!)")) << session.reportBuffer;
    EXPECT_LT(session.rSquaredMinusCcc(1), 0);
}

TEST_F(Goodness, ByPveLeavesTheCriticalValueOut) {
    session.fitMeasure = 2;
    life(bearings);
    EXPECT_FALSE(reported("ccc^2"));
    EXPECT_TRUE(reported("pve%="));
    EXPECT_EQ(session.rSquaredMinusCcc(1), session.pvePercent(1));
}

TEST_F(Goodness, OfAnotherMeasureIsRAlone) {
    session.fitMeasure = 4;
    life(bearings);
    EXPECT_TRUE(reported("Correlation(r)="));
    EXPECT_FALSE(reported("ccc^2"));
    EXPECT_FALSE(reported("pve%"));
    EXPECT_EQ(session.rSquaredMinusCcc(1), -9e30f);
}

TEST_F(Goodness, OfARegressionIsNotThatOfALikelihoodFit) {
    choosemethod(maximumLikelihood);
    life(bearings);
    EXPECT_FALSE(reported("ccc^2"));
    EXPECT_FALSE(reported("pve%"));
    EXPECT_NE(json().find("\"ccc2\": null"), std::string::npos) << json();
    EXPECT_NE(json().find("\"pve\": null"), std::string::npos) << json();
}

TEST_F(Goodness, IsAPlainZeroForTooFewFailures) {
    life({"100", "200"});
    EXPECT_TRUE(reported("ccc^2=0\r\n")) << session.reportBuffer;
    EXPECT_TRUE(reported("pve%=0\r\n"));
    EXPECT_NE(json().find("\"ccc2\": 0,"), std::string::npos) << json();
    EXPECT_NE(json().find("\"pve\": 0,"), std::string::npos) << json();
}

// A2 of the regression line is .365697 in the reference table; modified for 23 values .380948. Then
// y = 4.48 * .380948 + 1.24 ln .380948 - .1 = .409932 and p = 39.8928 percent.
TEST_F(Goodness, ByAndersonDarlingHasItsLines) {
    session.fitMeasure = 3;
    life(bearings);
    EXPECT_NEAR(session.modifiedA2(1), 0.3656972924 * (1 + 0.2 / std::sqrt(23.0)), 1e-7);
    EXPECT_TRUE(reported("[WeibullP] Modified Anderson-Darling For Set 1")) << session.reportBuffer;
    EXPECT_TRUE(reported("Modified Anderson-Darling P-Value pAD% = 39.89 (Acceptable) (OK)"))
        << session.reportBuffer;
    EXPECT_TRUE(reported("From A2 [Modified For Sample Size] = .380948")) << session.reportBuffer;
    EXPECT_EQ(session.rSquaredMinusCcc(1), session.pADPercent(1));
    EXPECT_EQ(json().find("\"pAD\": null"), std::string::npos);
}

TEST_F(Goodness, ByAndersonDarlingTakesTheThresholdOffAndItsOwnFactor) {
    session.fitMeasure = 3;
    life({"110", "150", "230", "260", "310"});
    const double A2 = session.modifiedA2(1);
    const auto p = [A2](double slope) {
        return 100 / (1 + std::exp(slope * A2 + 1.24 * std::log(A2) - 0.1));
    };
    EXPECT_NEAR(session.pADPercent(1), p(4.48), 1e-4);
    session.t0(1) = 1;
    life({"111", "151", "231", "261", "311"});
    EXPECT_NEAR(session.modifiedA2(1), A2, 1e-6);
    EXPECT_NEAR(session.pADPercent(1), p(5.5), 1e-4);
}

TEST_F(Goodness, ByAndersonDarlingCountsAQuantityAsSoManyValues) {
    session.fitMeasure = 3;
    life({"150", "230", "230", "230", "310"});
    const float apart = session.pADPercent(1);
    life({"150", "230x0x3", "310"});
    EXPECT_NEAR(session.pADPercent(1), apart, 1e-3);
}

TEST_F(Goodness, ByAndersonDarlingRefusesSuspensions) {
    session.fitMeasure = 3;
    life({"150", "230", "310", "-400"});
    EXPECT_EQ(told(),
              std::vector<std::string>{"Set 1: Susp > 0 ... Standard Anderson-Darling Not For Suspension"});
    EXPECT_TRUE(reported("No pAD% For Data Type")) << session.reportBuffer;
    EXPECT_TRUE(fit().fitted);
    EXPECT_NE(json().find("\"pAD\": null"), std::string::npos);
}

TEST_F(Goodness, ByAndersonDarlingRefusesMoreUnitsThanThePointsOfASet) {
    session.fitMeasure = 3;
    life({"150", "230x0x5000", "310"});
    ASSERT_EQ(told().size(), 1u);
    EXPECT_EQ(told()[0], "Set 1: Total ... > 1500 ... View Setup");
}

TEST_F(Goodness, ByAndersonDarlingHasNoValueForIntervals) {
    session.fitMeasure = 3;
    session.inputType = intv5;
    life({">100<200", "230", "310"});
    EXPECT_TRUE(told().empty());
    EXPECT_TRUE(reported("No pAD% For Data Type")) << session.reportBuffer;
}

TEST_F(Goodness, OfTwoSetsThatHaveNothingInCommonIsZeroAndNotNone) {
    session.confMethod = likelihoodBounds;
    sets({{"1x0x500", "2x0x500"}, {"1e6x0x500", "2e6x0x500"}});
    EXPECT_EQ(session.PVALUEFF(1), 0);
    EXPECT_NE(json().find("\"pFF\": 0,"), std::string::npos) << json();
    session.confMethod = noBounds;
    sets({{"1x0x500", "2x0x500"}, {"1e6x0x500", "2e6x0x500"}});
    EXPECT_NE(json().find("\"pFF\": null"), std::string::npos) << json();
}

TEST_F(Goodness, OfTwoSetsStandsBehindTheirBlocks) {
    session.confMethod = likelihoodBounds;
    sets({{"100", "200", "350"}, {"100", "200", "350"}});
    EXPECT_TRUE(reported("\r\n pFF-Difference [%] = >99.9999\r\n")) << session.reportBuffer;
    EXPECT_NE(json().find("\"pFF\": 100"), std::string::npos) << json();
}

TEST_F(Goodness, OfAWeibayesLineTellsTheConfidenceAndWhatWasAdded) {
    session.fixedSlope = 3;
    choosemethod(maximumLikelihood);
    session.wbConf = 90;
    life({"-300", "-400"});
    EXPECT_TRUE(reported("WB                      wbcnf = 90")) << session.reportBuffer;
    session.wbSusp = 2;
    life({"300", "-400"});
    EXPECT_TRUE(reported("WB + 2 S\r\n")) << session.reportBuffer;
    EXPECT_FALSE(reported("wbcnf"));
}

} // namespace
