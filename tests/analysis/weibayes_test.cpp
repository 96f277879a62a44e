// A Weibull line of known slope: the sum, the scale, what is added, and its branch of the driver.

#include "analysis/weibayes.h"

#include <gtest/gtest.h>

#include <cmath>

#include "analysis/confidweibayes.h"
#include "support/lifefixture.h"

namespace {

constexpr double digits = 1e-12;

double sumof(std::initializer_list<std::pair<double, double>> units, double beta) {
    WeibayesSum sum(beta);
    for (const auto& [q, t] : units) sum.add(q, t);
    return sum.valid() ? std::exp(sum.logarithm()) : -1;
}

// ---- the sum

TEST(WeibayesSum, AddsThePowersOfTheAges) {
    EXPECT_RELATIVE(sumof({{1, 3}, {2, 4}}, 2), 9.0 + 32, digits);
    EXPECT_RELATIVE(sumof({{1, 4}}, 0.5), 2.0, digits);
}

TEST(WeibayesSum, KeepsItsDigitsWhereOneTermIsFarLarger) {
    WeibayesSum sum(3);
    sum.add(1, 1e-100);
    sum.add(1, 1e90);
    sum.add(1, 1e-100);
    ASSERT_TRUE(sum.valid());
    EXPECT_RELATIVE(sum.logarithm(), 270 * std::log(10), digits);
}

TEST(WeibayesSum, FailsOnAQuantityAnAgeOrASlopeThatIsNone) {
    EXPECT_EQ(sumof({{1, 3}, {0, 4}}, 2), -1);
    EXPECT_EQ(sumof({{1, 0}}, 2), -1);
    EXPECT_EQ(sumof({{1, -5}}, 2), -1);
    EXPECT_EQ(sumof({{1, std::nan("")}}, 2), -1);
    EXPECT_EQ(sumof({{1, 3}}, 0), -1);
    EXPECT_EQ(sumof({}, 2), -1);
}

// e^70 to the power of 10 has an exponent of 700; just below, the sum stands.
TEST(WeibayesSum, HasNoValueFromAnExponentOf700On) {
    EXPECT_EQ(sumof({{1, 10}, {1, std::exp(70.0) * 1.0001}}, 10), -1);
    WeibayesSum below(10);
    below.add(1, std::exp(69.99));
    EXPECT_TRUE(below.valid());
}

// ---- the scale

TEST(WeibayesScale, SharesTheSumAmongTheFailures) {
    EXPECT_RELATIVE(weibayesscale(std::log(41.0), 2, 1), std::sqrt(41.0), digits);
    EXPECT_RELATIVE(weibayesscale(std::log(41.0), 2, 4), std::sqrt(41.0 / 4), digits);
}

TEST(WeibayesScale, IsNoneWhereTheFormEnds) {
    EXPECT_EQ(weibayesscale(1, 2, 0), 0);
    EXPECT_EQ(weibayesscale(1, 0, 1), 0);
    EXPECT_EQ(weibayesscale(1, 0.01, std::exp(-0.81)), 0); // ln(1/r) / beta = 81
    EXPECT_GT(weibayesscale(1, 0.01, std::exp(-0.79)), 0);
    EXPECT_EQ(weibayesscale(690, 0.5, 1), 0); // e^1380
}

TEST(WeibayesFailures, WithoutAnyAreOneOrByTheConfidence) {
    EXPECT_EQ(weibayesfailures(3, 90), 3);
    EXPECT_EQ(weibayesfailures(0, 0), 1);
    EXPECT_RELATIVE(weibayesfailures(0, 50), std::log(2.0), digits);
    EXPECT_RELATIVE(weibayesfailures(0, 90), std::log(10.0), digits);
    EXPECT_NEAR(weibayesfailures(0, 63.2), 1, 4e-4);
    for (const double outside : {-1.0, 100.0, 120.0, std::nan("")})
        EXPECT_RELATIVE(weibayesfailures(0, outside), std::log(2.0), digits);
}

// Chi-square 0.95 with 2 degrees of freedom is -2 ln 0.05; with 12 it is 21.0260698 (any table).
TEST(WeibayesLimit, DividesTheSumByHalfTheChiSquareValue) {
    const double sum = std::log(1000.0);
    EXPECT_RELATIVE(weibayeslimit(sum, 2, 0, 95), std::sqrt(1000 / -std::log(0.05)), digits);
    EXPECT_RELATIVE(weibayeslimit(sum, 1, 5, 95), 1000 / (21.0260698 / 2), 1e-8);
    EXPECT_EQ(weibayeslimit(sum, 2, 1, 0), 0);
    EXPECT_EQ(weibayeslimit(sum, 2, 1, 100), 0);
    EXPECT_EQ(weibayeslimit(sum, 2, INFINITY, 90), 0);
}

// Half the chi-square values with 80002 degrees of freedom, by an incomplete gamma function of 40 digits.
TEST(WeibayesLimit, CountsEveryFailure) {
    const double halves[][3] = {{40000, 5, 39672.59465728031}, {40000, 95, 40330.54237015215}};
    for (const auto& [r, confidence, half] : halves)
        EXPECT_RELATIVE(weibayeslimit(std::log(1000.0), 1, r, confidence), 1000 / half, 1e-7) << r;
}

// ---- the driver

class WeibayesTest : public LifeTest {
protected:
    WeibayesTest() {
        session.fixedSlope = 2;
        choosemethod(maximumLikelihood);
    }
};

TEST_F(WeibayesTest, AnalysesASetWithoutFailures) {
    life({"-300", "-400"});
    EXPECT_TRUE(fit().fitted);
    EXPECT_EQ(fit().beta, 2);
    EXPECT_RELATIVE(fit().eta, 500.0, digits); // one failure is assumed: sqrt(9e4 + 16e4)
    EXPECT_TRUE(told().empty());
}

TEST_F(WeibayesTest, ConfidenceOf63Point2IsTheSameScale) {
    session.wbConf = 63.2f;
    life({"-300", "-400"});
    EXPECT_NEAR(fit().eta, 500, 0.1);
}

TEST_F(WeibayesTest, AZeroFailureTestAtAConfidenceGivesTheLowerLimitOfEta) {
    session.wbConf = 90;
    life({"-300x0x10"});
    EXPECT_RELATIVE(fit().eta, 300 * std::sqrt(10 / std::log(10.0)), digits);
}

TEST_F(WeibayesTest, IsTheMaximumOfTheLikelihoodAtThatSlope) {
    const Cells cells = {"150", "230x0x2", "310", "-400x0x3"};
    life(cells);
    const Fit byLikelihood = fit();
    session.wbSusp = 1e-12f; // the other path, with as good as nothing added
    life(cells);
    EXPECT_RELATIVE(fit().eta, byLikelihood.eta, 1e-9);
    EXPECT_RELATIVE(fit().eta, std::sqrt((150. * 150 + 2 * 230. * 230 + 310. * 310 + 3 * 400. * 400) / 4),
                    1e-9);
}

TEST_F(WeibayesTest, TakesADiscoveryAtHalfItsAgeAndAnIntervalAtItsMiddle) {
    session.inputType = intv5;
    session.wbSusp = 1e-12f;
    life({"<600", ">300<500"});
    EXPECT_TRUE(fit().fitted);
    EXPECT_RELATIVE(fit().eta, std::sqrt((300. * 300 + 400. * 400) / 2), 1e-9);
}

TEST_F(WeibayesTest, AddsFailuresAtTheLastValue) {
    session.wbFail = 2;
    life({"-300", "-400"});
    EXPECT_RELATIVE(fit().eta, std::sqrt((300. * 300 + 3 * 400. * 400) / 2), digits);
    EXPECT_EQ(session.lineLabelA(1), "R + 2 F");
}

TEST_F(WeibayesTest, AddsSuspensionsAtTheLastValue) {
    session.fixedSlope = 2.5f;
    session.wbSusp = 3;
    life({"200", "-400"});
    EXPECT_RELATIVE(fit().eta, std::pow(std::pow(200, 2.5) + 4 * std::pow(400, 2.5), 0.4), digits);
    EXPECT_EQ(session.lineLabelA(1), "WB + 3 S");
}

TEST_F(WeibayesTest, AddsFailuresRatherThanSuspensionsAndGoesTo50Percent) {
    session.wbFail = 1;
    session.wbSusp = 4;
    session.wbConf = 90;
    life({"-300"});
    EXPECT_EQ(session.wbSusp, 0);
    EXPECT_EQ(session.wbConf, 50);
    session.wbFail = -3;
    session.wbConf = 130;
    life({"-300"});
    EXPECT_EQ(session.wbFail, 0);
    EXPECT_EQ(session.wbConf, 50);
}

TEST_F(WeibayesTest, TakesTheThresholdOffEveryAge) {
    session.t0(1) = 100;
    life({"-400", "-500"});
    EXPECT_RELATIVE(fit().eta, 500.0, digits);
}

TEST_F(WeibayesTest, ASuspensionBelowTheThresholdTellsNothing) {
    session.t0(1) = 100;
    life({"-50", "-400", "-500"});
    EXPECT_RELATIVE(fit().eta, 500.0, digits);
}

TEST_F(WeibayesTest, ASumBeyondTheExponentLimitIsTruncatedAndTold) {
    session.fixedSlope = 50;
    life({"-1e20"});
    EXPECT_FALSE(fit().fitted);
    EXPECT_EQ(told(), std::vector<std::string>{"Set 1: mle Calculation Truncated"});
}

TEST_F(WeibayesTest, AtRankRegressionWithoutFailuresIsToldWhatItIs) {
    choosemethod(rankRegression);
    life({"-300", "-400"});
    EXPECT_TRUE(fit().fitted);
    EXPECT_RELATIVE(fit().eta, 500.0, digits);
    EXPECT_EQ(told(),
              std::vector<std::string>{"Set 1: Not Enough Occurrence For Regression With Weibayes [rr]\n"
                                       "Weibayes For mle = Only Maximum Likelihood"});
}

TEST_F(WeibayesTest, NeedsAWeibullLineAndASlope) {
    session.fixedSlope = 0;
    life({"-300", "-400"});
    EXPECT_FALSE(fit().fitted);
    session.fixedSlope = 2;
    choose(lognormal);
    life({"-300", "-400"});
    EXPECT_FALSE(fit().fitted);
}

TEST_F(WeibayesTest, KnowsNoUnitsThatNeverFail) {
    session.popPortion = 0.5f;
    life({"-300", "-400"});
    EXPECT_FALSE(fit().fitted);
    EXPECT_EQ(told(), std::vector<std::string>{"Set 1: mle/tP%=50 Fit Not Possible"});
}

TEST_F(WeibayesTest, AddsNothingToGroupedRows) {
    session.inputType = prbt2;
    session.wbFail = 2;
    life({"10x0x2x20", "20x0x8x20", "30x0x15x20"});
    EXPECT_TRUE(fit().fitted);
    EXPECT_EQ(session.lineLabelA(1), "R");
}

TEST_F(WeibayesTest, StoresItsResultsAsAnyFitDoes) {
    life({"-300", "-400"});
    EXPECT_EQ(session.paramA(2, 1), fit().eta);
    EXPECT_EQ(session.lineLabelA(1), "R");
    EXPECT_EQ(session.setLabel(1), "mle");
    EXPECT_RELATIVE(session.LOGLYKMLE(1), -1.0, digits); // no density, and a sum of one failure
}

// ---- the Dauser form

TEST_F(WeibayesTest, TheDauserFormMovesTheLastFailureAndAddsSuspensionsAtRSUSP) {
    session.wbPlan = 3;
    session.wbSusp = 2;
    session.LFAIL = 350;
    session.RSUSP = 600;
    life({"100", "300", "-200"});
    EXPECT_RELATIVE(fit().eta, std::sqrt((1e4 + 350. * 350 + 4e4 + 2 * 36e4) / 2), digits);
    EXPECT_EQ(session.lineLabelA(1), "DS + 2 S");
}

TEST_F(WeibayesTest, TheDauserFormTellsWhichValueItLacks) {
    session.wbPlan = 3;
    session.wbSusp = 2;
    session.RSUSP = 600;
    life({"100", "300"});
    EXPECT_FALSE(fit().fitted);
    EXPECT_EQ(told(), std::vector<std::string>{
                          "Set 1: No LFAIL Additional (Occurrence) Failure (X- Quantity ?) Value"});
    session.LFAIL = 350;
    session.RSUSP = noAnswer;
    life({"100", "300"});
    EXPECT_FALSE(fit().fitted);
    EXPECT_EQ(told(), std::vector<std::string>{"Set 1: No RSUSP Additional (X- Upper) Value"});
}

// ---- bounds

class WeibayesBounds : public WeibayesTest {
protected:
    void bounds(double low, double high) {
        session.confLow = static_cast<float>(low);
        session.confHigh = static_cast<float>(high);
        session.currentSet = 1;
        confidweibayes();
    }
};

// Sum 9e4 + 16e4 + 25e4 = 5e5 with one failure; chi-square 0.95 and 0.05 with 4 degrees of freedom are
// 9.487729037 and 0.7107230214.
TEST_F(WeibayesBounds, GoThroughTheLimitsOfEta) {
    life({"300", "-400", "-500"});
    bounds(5, 95);
    EXPECT_RELATIVE(session.paramLow(1, 1), std::sqrt(5e5 / (9.487729037 / 2)), 1e-8);
    EXPECT_RELATIVE(session.paramHigh(1, 1), std::sqrt(5e5 / (0.7107230214 / 2)), 1e-8);
    EXPECT_LT(session.paramLow(1, 1), fit().eta);
    EXPECT_GT(session.paramHigh(1, 1), fit().eta);
    EXPECT_EQ(session.setBoundLabel(1), "wb");
}

TEST_F(WeibayesBounds, AreLinesOfTheSameSlope) {
    life({"300", "-400", "-500"});
    bounds(5, 95);
    for (const int row : {1, 2}) {
        const double eta = row == 1 ? session.paramLow(1, 1) : session.paramHigh(1, 1);
        const int points = static_cast<int>(session.n(row));
        ASSERT_GT(points, 20);
        for (int j = 1; j <= points; ++j) {
            const double p = session.Y(row, j);
            EXPECT_RELATIVE(session.X(row, j), eta * std::sqrt(-std::log1p(-p)), 2e-2 * 1e-2);
        }
    }
}

TEST_F(WeibayesBounds, FillTheAskedSideAlone) {
    life({"300", "-400", "-500"});
    bounds(0, 95);
    EXPECT_EQ(session.n(1), 0);
    EXPECT_GT(session.n(2), 0);
    EXPECT_EQ(session.paramLow(1, 1), noAnswer);
}

TEST_F(WeibayesBounds, OfATestWithoutFailuresCountNone) {
    life({"-300", "-400"});
    bounds(10, 0);
    EXPECT_RELATIVE(session.paramLow(1, 1), std::sqrt(25e4 / std::log(10.0)), 1e-6);
}

TEST_F(WeibayesBounds, StandOnTheScaleOfTheData) {
    life({"300", "-400", "-500"});
    bounds(5, 0);
    const double first = session.X(1, 10);
    session.t0(1) = 100;
    life({"400", "-500", "-600"});
    bounds(5, 0);
    EXPECT_RELATIVE(session.X(1, 10), first + 100, 1e-6);
}

TEST_F(WeibayesBounds, AreNoneWithoutAFixedSlope) {
    session.fixedSlope = 0;
    life({"300", "350", "500"});
    bounds(5, 95);
    EXPECT_EQ(session.n(1), 0);
    EXPECT_EQ(session.setBoundLabel(1), "");
}

} // namespace
