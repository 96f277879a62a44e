// Bounds by simulation: exact where theory gives exact limits, the same for the same start.

#include "analysis/confidmc.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "analysis/bounds.h"
#include "data/numbertext.h"
#include "plot/transforms.h"
#include "support/families.h"
#include "support/lifefixture.h"
#include "support/scriptedplatform.h"

namespace {

class ConfidmcTest : public LifeTest {
protected:
    const Cells ages = {"31", "12", "58", "44", "90", "23", "71", "65", "18", "39"};
    const Cells withSuspensions = {"31", "-12", "58", "44", "-90", "23", "71", "-65", "18", "39"};

    ConfidmcTest() {
        session.confMethod = pivotalBounds;
        session.confLow = 5;
        session.confHigh = 95;
        session.rndStart = 7;
        session.mcCount = 1000;
    }

    void bounds(const Cells& cells) {
        life(cells);
        session.currentSet = 1;
        confidmc();
    }

    struct Curve {
        std::vector<float> x, p;
        bool operator==(const Curve&) const = default;
    };
    static Curve curve(BoundSide side) {
        const int row = boundrow(1, side);
        Curve read;
        for (int j = 1; j <= static_cast<int>(session.n(row)); ++j) {
            read.x.push_back(session.X(row, j));
            read.p.push_back(session.Y(row, j));
        }
        return read;
    }
    static double at(BoundSide side, double p) {
        const Curve read = curve(side);
        for (std::size_t j = 0; j < read.p.size(); ++j)
            if (read.p[j] == static_cast<float>(p)) return read.x[j];
        return NAN;
    }

    static Cells cellsof(const std::vector<double>& values) {
        Cells cells;
        for (const double value : values) {
            std::string text;
            appendtrimmed(text, value);
            cells.push_back(text);
        }
        return cells;
    }
};

// ---- exact theory ----

// Quantiles of Student's t and chi-square with 9 degrees of freedom and of the noncentral t of the tenth
// percentile, by numerical integration in 20 digits; at 0.05 the k-factor is the tabled 2.355 (Owen, 1963).
// Ten thousand samples place the list value within 0.011 of its probability (five standard deviations): the
// bound lies between the exact ones at 0.035 and 0.065.
TEST_F(ConfidmcTest, PivotsOfCompleteNormalDataAreThoseOfStudentAndChiSquare) {
    choose(normal);
    choosemethod(maximumLikelihood);
    session.mcCount = 10000;
    bounds(ages);
    const double n = 10;
    const double mean = fit().eta;
    const double sd = fit().beta * std::sqrt(n / (n - 1));
    EXPECT_LT(session.paramLow(1, 1), mean - 1.66632486 * sd / std::sqrt(n));
    EXPECT_GT(session.paramLow(1, 1), mean - 2.05539486 * sd / std::sqrt(n));
    EXPECT_GT(session.paramHigh(1, 1), mean + 1.66632486 * sd / std::sqrt(n));
    EXPECT_LT(session.paramHigh(1, 1), mean + 2.05539486 * sd / std::sqrt(n));
    EXPECT_GT(session.paramLow(1, 2), sd * std::sqrt((n - 1) / 18.01499231));
    EXPECT_LT(session.paramLow(1, 2), sd * std::sqrt((n - 1) / 16.09126615));
    EXPECT_GT(session.paramHigh(1, 2), sd * std::sqrt((n - 1) / 3.61284689));
    EXPECT_LT(session.paramHigh(1, 2), sd * std::sqrt((n - 1) / 2.98211048));
    EXPECT_GT(at(BoundSide::low, 0.1), mean - 2.50421266 * sd);
    EXPECT_LT(at(BoundSide::low, 0.1), mean - 2.24527136 * sd);
    EXPECT_GT(at(BoundSide::high, 0.1), mean - 0.75279709 * sd);
    EXPECT_LT(at(BoundSide::high, 0.1), mean - 0.66005448 * sd);
}

TEST_F(ConfidmcTest, PivotsOfCompleteDataDoNotDependOnTheData) {
    const Cells others = {"1.7", "0.4", "9", "2.2", "13", "0.9", "5", "4.1", "0.6", "3"};
    for (const float method : {rankRegression, maximumLikelihood})
        for (const ReferenceFamily& family : families) {
            choose(family.family, family.extreme);
            choosemethod(method);
            const auto pivots = [&](const Cells& cells) {
                bounds(cells);
                const Fit line = fit();
                const bool logarithmic = family.family <= lognormal;
                const auto plot = [&](double x) { return logarithmic ? std::log(x) : x; };
                const double scale = family.family == weibull     ? 1 / line.beta
                                     : family.family == lognormal ? std::log(line.beta)
                                                                  : line.beta;
                std::vector<double> found;
                for (const auto* side : {&session.paramLow, &session.paramHigh}) {
                    found.push_back((plot((*side)(1, 1)) - plot(line.eta)) / scale);
                    const double second = (*side)(1, 2);
                    found.push_back(family.family == lognormal ? std::log(second) / scale
                                                               : second / line.beta);
                }
                return found;
            };
            const std::vector<double> first = pivots(ages);
            const std::vector<double> second = pivots(others);
            for (std::size_t i = 0; i < first.size(); ++i)
                EXPECT_NEAR(first[i], second[i], 1e-9 * (1 + std::fabs(first[i]))) << family.name << ' ' << i;
        }
}

// ---- coverage ----

/// Share of data sets whose bounds lie on the right side of the truth. Each is right with probability 0.05 or
/// 0.95; five standard deviations of the binomial with `runs` trials.
class ConfidmcCoverage : public ConfidmcTest {
protected:
    static constexpr int runs = 600;
    static constexpr double eta = 1000, beta = 1.7;

    void cover(double censorAge) {
        session.mcCount = 399;
        std::mt19937_64 generator(20240229);
        std::uniform_real_distribution<double> uniform(0, 1);
        const double b10 = eta * std::pow(-std::log(0.9), 1 / beta);
        const double truth[] = {eta, beta, b10};
        int lowAbove[3] = {};
        int highBelow[3] = {};
        for (int run = 0; run < runs; ++run) {
            std::vector<double> values(12);
            for (double& value : values) {
                value = eta * std::pow(-std::log(1 - uniform(generator)), 1 / beta);
                if (value > censorAge) value = -censorAge;
            }
            session.rndStart = static_cast<float>(run + 1);
            bounds(cellsof(values));
            const double low[] = {session.paramLow(1, 1), session.paramLow(1, 2), at(BoundSide::low, 0.1)};
            const double high[] = {session.paramHigh(1, 1), session.paramHigh(1, 2),
                                   at(BoundSide::high, 0.1)};
            for (int i = 0; i < 3; ++i) {
                ASSERT_LT(low[i], high[i]);
                lowAbove[i] += low[i] > truth[i] ? 1 : 0;
                highBelow[i] += high[i] < truth[i] ? 1 : 0;
            }
        }
        const double expected = 0.05 * runs;
        const double limit = 5 * std::sqrt(runs * 0.05 * 0.95);
        for (int i = 0; i < 3; ++i) {
            EXPECT_NEAR(lowAbove[i], expected, limit) << i;
            EXPECT_NEAR(highBelow[i], expected, limit) << i;
        }
    }
};

TEST_F(ConfidmcCoverage, OfPivotsIsAsAskedForCompleteDataByRegression) { cover(1e9); }

TEST_F(ConfidmcCoverage, OfPivotsIsAsAskedForCompleteDataByLikelihood) {
    choosemethod(maximumLikelihood);
    cover(1e9);
}

TEST_F(ConfidmcCoverage, OfPivotsIsNearWhatIsAskedForATestThatEndsAtOneAge) {
    choosemethod(maximumLikelihood);
    cover(1200);
}

// ---- the same start ----

TEST_F(ConfidmcTest, ALockedStartGivesTheSameBoundsEveryTime) {
    for (const int16_t method : {int16_t{simulationBounds}, int16_t{pivotalBounds}}) {
        session.confMethod = method;
        bounds(withSuspensions);
        const Curve low = curve(BoundSide::low);
        const auto correlations = session.mcCorrelations;
        bounds(withSuspensions);
        EXPECT_EQ(curve(BoundSide::low), low);
        EXPECT_EQ(session.mcCorrelations, correlations);
    }
}

TEST_F(ConfidmcTest, AnotherStartGivesOtherBounds) {
    bounds(ages);
    const Curve low = curve(BoundSide::low);
    session.rndStart = 8;
    bounds(ages);
    EXPECT_NE(curve(BoundSide::low), low);
}

TEST_F(ConfidmcTest, AVariableStartGivesOtherBoundsEachTime) {
    session.rndStart = 0;
    bounds(ages);
    const Curve low = curve(BoundSide::low);
    bounds(ages);
    EXPECT_NE(curve(BoundSide::low), low);
}

// ---- what is left behind ----

TEST_F(ConfidmcTest, FillsBothCurvesAtEveryProbabilityWithTheLineBetweenThem) {
    for (const int16_t method : {int16_t{simulationBounds}, int16_t{pivotalBounds}}) {
        session.confMethod = method;
        bounds(ages);
        const Curve low = curve(BoundSide::low);
        const Curve high = curve(BoundSide::high);
        ASSERT_EQ(low.p.size(), boundprobabilities().size());
        ASSERT_EQ(high.p.size(), low.p.size());
        for (std::size_t j = 0; j < low.p.size(); ++j) {
            EXPECT_LT(low.x[j], high.x[j]);
            if (j > 0) {
                EXPECT_GT(low.x[j], low.x[j - 1]);
            }
        }
        EXPECT_EQ(session.setBoundLabel(1), method == pivotalBounds ? "pv" : "mc");
    }
}

TEST_F(ConfidmcTest, AtPercentageZeroTheSideStaysEmpty) {
    session.confLow = 0;
    bounds(ages);
    EXPECT_TRUE(curve(BoundSide::low).x.empty());
    EXPECT_FALSE(curve(BoundSide::high).x.empty());
    EXPECT_EQ(session.paramLow(1, 1), noAnswer);
    EXPECT_NE(session.paramHigh(1, 1), noAnswer);
}

TEST_F(ConfidmcTest, KeepsTheCorrelationsOfTheSamplesInRisingOrder) {
    bounds(ages);
    ASSERT_EQ(session.mcCorrelations.size(), 1000u);
    EXPECT_TRUE(std::is_sorted(session.mcCorrelations.begin(), session.mcCorrelations.end()));
    EXPECT_GT(session.mcCorrelations.front(), 0);
    EXPECT_LE(session.mcCorrelations.back(), 1);
}

// The critical r^2 that a tenth of the samples of ten units fall below is 0.8594 by the published table.
TEST_F(ConfidmcTest, ATenthOfTheCorrelationsFallsBelowTheCriticalValue) {
    session.mcCount = 10000;
    bounds(ages);
    const auto below =
        std::lower_bound(session.mcCorrelations.begin(), session.mcCorrelations.end(), 0.859368f);
    const double share = static_cast<double>(below - session.mcCorrelations.begin()) / 10000;
    EXPECT_NEAR(share, 0.1, 5 * std::sqrt(0.1 * 0.9 / 10000));
}

TEST_F(ConfidmcTest, RestoresTheLineInTheRegisters) {
    life(ages);
    session.currentSet = 1;
    session.eta = 12;
    session.beta = 34;
    confidmc();
    EXPECT_EQ(session.eta, 12);
    EXPECT_EQ(session.beta, 34);
}

TEST_F(ConfidmcTest, BoundsOfASetWithAThresholdStandOnTheDataScale) {
    bounds(ages);
    const double plain = at(BoundSide::low, 0.5);
    session.t0(1) = 1000;
    bounds({"1031", "1012", "1058", "1044", "1090", "1023", "1071", "1065", "1018", "1039"});
    EXPECT_NEAR(at(BoundSide::low, 0.5), plain + 1000, 1e-3);
}

TEST_F(ConfidmcTest, ScalesWithTheDataFromTheSmallestToTheLargest) {
    const Cells base = {"31", "12", "58", "44", "90"};
    bounds(base);
    const double unit = at(BoundSide::low, 0.1) / fit().eta;
    bounds({"31E-12", "12E-12", "58E-12", "44E-12", "90E-12"});
    EXPECT_RELATIVE(at(BoundSide::low, 0.1) / fit().eta, unit, 1e-6);
    session.inputType = standard0;
    choosemethod(maximumLikelihood);
    bounds(base);
    const double byLikelihood = at(BoundSide::low, 0.1) / fit().eta;
    bounds({"31E12", "12E12", "58E12", "44E12", "90E12"});
    EXPECT_RELATIVE(at(BoundSide::low, 0.1) / fit().eta, byLikelihood, 1e-6);
}

TEST_F(ConfidmcTest, ANegativeMethodGivesTheBoundsOfOnePointAlone) {
    bounds(ages);
    const double low = at(BoundSide::low, 0.1);
    const double high = at(BoundSide::high, 0.1);
    session.confMethod = -pivotalBounds;
    life(ages);
    session.currentSet = 1;
    session.singleP = 0.1;
    confidmc();
    ASSERT_EQ(curve(BoundSide::low).x.size(), 1u);
    EXPECT_RELATIVE(at(BoundSide::low, 0.1), low, 1e-6);
    EXPECT_RELATIVE(at(BoundSide::high, 0.1), high, 1e-6);
    session.confHigh = 0;
    confidmc();
    EXPECT_TRUE(curve(BoundSide::high).x.empty());
}

// ---- sets at the edge ----

TEST_F(ConfidmcTest, OneFailureAndFourSuspensionsHaveBoundsByLikelihood) {
    choosemethod(maximumLikelihood);
    bounds({"31", "-44", "-58", "-71", "-90"});
    // The bounds at the smallest probabilities are smaller than any data; from the first that is not, all
    // stand.
    const auto all = boundprobabilities();
    const auto first = std::lower_bound(all.begin(), all.end(), session.Y(1, 1) * (1 - 1e-6));
    EXPECT_LE(first - all.begin(), 2);
    EXPECT_EQ(curve(BoundSide::low).x.size(), static_cast<std::size_t>(all.end() - first));
    EXPECT_GT(session.X(1, 1), 9e-30f);
    EXPECT_GT(session.paramLow(1, 2), 0);
    EXPECT_LT(session.paramLow(1, 2), session.paramHigh(1, 2));
}

TEST_F(ConfidmcTest, FiveFailuresAndAHundredSuspensionsHaveBoundsByBothMethods) {
    const Cells cells = {"310", "120", "580", "440", "900", "-1000x0x100"};
    for (const float method : {rankRegression, maximumLikelihood}) {
        choosemethod(method);
        bounds(cells);
        ASSERT_TRUE(fit().fitted);
        EXPECT_EQ(curve(BoundSide::low).x.size(), boundprobabilities().size());
        EXPECT_LT(at(BoundSide::low, 0.01), at(BoundSide::high, 0.01));
    }
}

TEST_F(ConfidmcTest, EndsWhenNoSampleHasALine) {
    life({"31", "44", "-1x0x50"});
    ASSERT_TRUE(fit().fitted);
    session.etaFit(stride, 1) = 1e9; // nothing fails before the only end of observation
    session.betaFit(stride, 1) = 50;
    session.pointTypes(1, 1) = session.pointTypes(1, 2) = Susp;
    session.currentSet = 1;
    confidmc();
    EXPECT_TRUE(curve(BoundSide::low).x.empty());
    ASSERT_FALSE(told().empty());
    EXPECT_EQ(told().back(), "Set 1: Confidence Calculation Truncated ... MC # = 0");
}

TEST_F(ConfidmcTest, OnePointHasNoBounds) {
    session.fixedSlope = 2;
    bounds({"100"});
    EXPECT_TRUE(curve(BoundSide::low).x.empty());
    EXPECT_EQ(session.setBoundLabel(1), "");
}

TEST_F(ConfidmcTest, SamplesAreCutTo32000) {
    session.mcCount = 1e6f;
    EXPECT_EQ(simulationcount(), 32000);
    session.mcCount = -3;
    EXPECT_EQ(simulationcount(), 1);
    session.mcCount = NAN;
    EXPECT_EQ(simulationcount(), 1);
}

TEST_F(ConfidmcTest, TooFewSamplesForTheConfidenceGiveNone) {
    session.mcCount = 18;
    bounds(ages);
    EXPECT_TRUE(curve(BoundSide::low).x.empty());
    ASSERT_FALSE(told().empty());
    EXPECT_EQ(told()[0], "Set 1: Confidence Calculation Truncated ... MC # = 18 ... Minimum = 19");
    session.mcCount = 19;
    bounds(ages);
    EXPECT_FALSE(curve(BoundSide::low).x.empty());
}

TEST_F(ConfidmcTest, EscapeEndsWithTheSamplesDone) {
    life(ages);
    session.currentSet = 1;
    session.mcCount = 32000;
    ScriptedPlatform scripted;
    scripted.escapeat(3);
    scripted.expectmessage("MC # =");
    confidmc();
    EXPECT_EQ(session.abortCode, 0);
    EXPECT_EQ(curve(BoundSide::low).x.size(), boundprobabilities().size());
    EXPECT_GT(session.mcCorrelations.size(), 500u);
    EXPECT_LT(session.mcCorrelations.size(), 5000u);
}

TEST_F(ConfidmcTest, EscapeBeforeThereAreEnoughSamplesStops) {
    life(ages);
    session.currentSet = 1;
    ScriptedPlatform scripted;
    scripted.escapeat(1);
    confidmc();
    EXPECT_EQ(session.abortCode, escapePressed);
    EXPECT_TRUE(curve(BoundSide::low).x.empty());
}

TEST_F(ConfidmcTest, DiscoveriesAreToldToBeNotPossible) {
    choosemethod(maximumLikelihood);
    session.inputType = intv5;
    bounds({"31", "12", "58", "44", "<90", "23"});
    ASSERT_FALSE(told().empty());
    EXPECT_EQ(told().back(), "Set 1: Monte Carlo Not Possible For Data Type");
    EXPECT_TRUE(curve(BoundSide::low).x.empty());
}

} // namespace
