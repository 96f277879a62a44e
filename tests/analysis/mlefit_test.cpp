// The maximum likelihood fit: that it stands at the maximum, what it refuses, and what it leaves behind.

#include "analysis/mlefit.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "analysis/loglik.h"
#include "analysis/newton.h"
#include "support/lifefixture.h"
#include "support/scriptedplatform.h"

namespace {

struct Family {
    Dist family;
    int extreme;
};
constexpr Family families[] = {{weibull, -1}, {lognormal, -1}, {normal, -1}, {gumbel, -1}, {gumbel, 1}};

class MleTest : public LifeTest {
protected:
    using Notices = std::vector<std::string>;
    const Cells censored = {"12", "31x0x2", "-40", "55", "70", "-80x0x3", "95", "-120"};

    MleTest() { choosemethod(maximumLikelihood); }

    /// Expects a line at which the log likelihood is level, and falls to every side.
    static void expectmaximum(const std::string& place) {
        ASSERT_TRUE(fit().fitted) << place;
        session.currentSet = 1;
        const double best = session.LOGLYKMLE(1);
        const auto at = [&](double etaStep, double betaStep) {
            const double scale = standardline({session.dist, session.gumbeltype, 1, fit().beta}).scale;
            session.eta = fit().eta + etaStep * scale * (session.dist >= normal ? 1 : fit().eta);
            session.beta =
                session.dist == lognormal ? std::pow(fit().beta, 1 + betaStep) : fit().beta * (1 + betaStep);
            return trueloglik();
        };
        EXPECT_EQ(at(0, 0), best) << place;
        const double h = 1e-3;
        for (const auto& [eta, beta] : {std::pair{h, 0.0}, {-h, 0.0}, {0.0, h}, {0.0, -h}, {h, h}, {-h, h}})
            if (session.fixedSlope == 0 || beta == 0) {
                EXPECT_LT(at(eta, beta), best) << place;
            }
        const double d = 1e-5;
        const double scale = 1 + std::fabs(best); // of the rounding in the difference
        EXPECT_NEAR((at(d, 0) - at(-d, 0)) / (2 * d), 0, 1e-6 * scale) << place;
        if (session.fixedSlope > 0) return;
        EXPECT_NEAR((at(0, d) - at(0, -d)) / (2 * d), 0, 1e-6 * scale) << place;
    }
    void expectnofit(const Cells& cells) {
        life(cells);
        EXPECT_FALSE(fit().fitted);
        ASSERT_FALSE(told().empty());
        EXPECT_EQ(told().back(), "Set 1: " + session.setLabel(1) + " Fit Not Possible");
    }
};

// ---- the maximum ----

TEST_F(MleTest, StandsAtTheMaximumOfEveryInputAndFamily) {
    struct Input {
        int16_t type;
        Cells cells;
    };
    const Input inputs[] = {{standard0, censored},
                            {standard0, {"12", "31", "55", "70", "95"}},
                            {insp1, censored},
                            {intv5, {"20x0x2x-3.3e33", "20x0x3x50", "50x0x4x90", "70", "-90x0x3"}},
                            {prbt2, {"20x0x2x20", "50x0x8x25", "90x0x17x20"}},
                            {prbt3, {"20x0x10x20", "50x0x40x20", "90x0x85x20"}},
                            {km4, {"20x0x2x3", "50x0x4x1", "90x0x3x2"}}};
    for (const Input& input : inputs)
        for (const Family& family : families) {
            session.inputType = input.type;
            choose(family.family, family.extreme);
            life(input.cells);
            expectmaximum(session.setLabel(1) + ' ' + std::to_string(family.family));
        }
}

TEST_F(MleTest, StandsAtTheMaximumOfAPopulationPortion) {
    session.popPortion = 0.7f;
    for (const Family& family : families) {
        choose(family.family, family.extreme);
        life({"12", "31x0x2", "55", "70", "-130", "95", "-150x0x4"});
        expectmaximum(std::to_string(family.family));
    }
}

TEST_F(MleTest, ACompleteNormalSampleHasItsMeanAndTheDeviationWithDivisorN) {
    choose(normal);
    life({"10", "12", "15", "19"});
    EXPECT_RELATIVE(fit().eta, 14, 1e-14);
    EXPECT_RELATIVE(fit().beta, std::sqrt(46 / 4.0), 1e-14);
    choose(lognormal);
    life({"10", "100", "1000"});
    EXPECT_RELATIVE(fit().eta, 100, 1e-14);
    EXPECT_RELATIVE(fit().beta, std::exp(std::log(10) * std::sqrt(2 / 3.0)), 1e-14);
}

TEST_F(MleTest, TheNewtonAndTheGeneralSearchAgree) {
    life(censored);
    const Fit newton = fit();
    session.inputType = intv5; // the same points as a case of intervals
    life(censored);
    EXPECT_RELATIVE(fit().eta, newton.eta, 1e-12);
    EXPECT_RELATIVE(fit().beta, newton.beta, 1e-12);
}

TEST_F(MleTest, OneFailureBelowFourSuspensionsHasALine) {
    for (const Family& family : families) {
        choose(family.family, family.extreme);
        life({"100", "-120", "-150", "-180", "-200"});
        expectmaximum(std::to_string(family.family));
    }
}

TEST_F(MleTest, FiveFailuresAmongAHundredSuspensionsHaveALine) {
    Cells cells = {"20", "35", "60", "75", "90"};
    for (int i = 1; i <= 100; ++i) cells.push_back("-" + std::to_string(i));
    for (const Family& family : families) {
        choose(family.family, family.extreme);
        life(cells);
        expectmaximum(std::to_string(family.family));
    }
}

TEST_F(MleTest, TiesBelowASuspensionHaveALine) {
    life({"100", "100", "100", "-160"});
    expectmaximum("ties");
}

TEST_F(MleTest, ALineFarSteeperThanTheDataAreWideIsFound) {
    // The failures and the discovery below them are a hair apart, the other discoveries far beyond.
    session.inputType = intv5;
    for (const Family& family : families) {
        choose(family.family, family.extreme);
        life({"22.9956", "22.9956", "22.9946x0x1x-3.3e33", "23.1x0x2x-3.3e33", "40x0x2x-3.3e33"});
        expectmaximum(std::to_string(family.family));
    }
}

// ---- what must not change the answer ----

TEST_F(MleTest, TheOrderOfEntryChangesNothing) {
    std::mt19937 shuffler(7);
    for (const Family& family : families) {
        choose(family.family, family.extreme);
        Cells cells = censored;
        life(cells);
        const Fit first = fit();
        for (int i = 0; i < 5; ++i) {
            std::shuffle(cells.begin(), cells.end(), shuffler);
            life(cells);
            EXPECT_RELATIVE(fit().eta, first.eta, 1e-12);
            EXPECT_RELATIVE(fit().beta, first.beta, 1e-12);
        }
    }
}

TEST_F(MleTest, AQuantityIsSoManyPoints) {
    for (const Family& family : families) {
        choose(family.family, family.extreme);
        life({"12x0x3", "-40x0x2", "70x0x2", "95"});
        const Fit grouped = fit();
        life({"12", "12", "12", "-40", "-40", "70", "70", "95"});
        EXPECT_RELATIVE(fit().eta, grouped.eta, 1e-12);
        EXPECT_RELATIVE(fit().beta, grouped.beta, 1e-12);
    }
}

TEST_F(MleTest, QuantitiesOfTenThousandAreTheSameSampleTenThousandTimes) {
    for (const Family& family : families) {
        choose(family.family, family.extreme);
        life({"12", "31", "-40", "70", "95"});
        const Fit single = fit();
        const double logLik = session.LOGLYKMLE(1);
        life({"12x0x10000", "31x0x10000", "-40x0x10000", "70x0x10000", "95x0x10000"});
        EXPECT_RELATIVE(fit().eta, single.eta, 1e-12);
        EXPECT_RELATIVE(fit().beta, single.beta, 1e-12);
        EXPECT_RELATIVE(session.LOGLYKMLE(1), 10000 * logLik, 1e-13);
    }
}

TEST_F(MleTest, AUnitOfMeasureStretchesTheScaleAlone) {
    const Cells cells = {"8", "24", "-40", "56", "72"};
    const Cells stretched = {"8192", "24576", "-40960", "57344", "73728"}; // times 1024, exact
    for (const Family& family : families) {
        choose(family.family, family.extreme);
        life(cells);
        const Fit plain = fit();
        life(stretched);
        EXPECT_RELATIVE(fit().eta, 1024 * plain.eta, 1e-12);
        EXPECT_RELATIVE(fit().beta, family.family >= normal ? 1024 * plain.beta : plain.beta, 1e-12);
    }
}

TEST_F(MleTest, FitsTimesFarFromOne) {
    for (const char* power : {"e-12", "e12"})
        for (const Family& family : families) {
            choose(family.family, family.extreme);
            life({"1", "2.5", "4", "-5", "7"});
            const Fit plain = fit();
            life({std::string("1") + power, std::string("2.5") + power, std::string("4") + power,
                  std::string("-5") + power, std::string("7") + power});
            const double factor = std::stod(std::string("1") + power);
            EXPECT_RELATIVE(fit().eta, factor * plain.eta, 1e-6) << power << family.family;
            EXPECT_RELATIVE(fit().beta, family.family >= normal ? factor * plain.beta : plain.beta, 1e-6);
        }
}

TEST_F(MleTest, AThresholdShiftsTheValues) {
    life({"150", "230", "-260", "310"});
    const Fit plain = fit();
    session.t0(1) = 1000;
    life({"1150", "1230", "-1260", "1310"});
    EXPECT_EQ(fit(), plain);
    EXPECT_EQ(session.setLabel(1), "mle/t0~m");
}

TEST_F(MleTest, NegativeValuesAreFittedWhereTheyAreAllowed) {
    session.negativeXAllowed = 1;
    for (const Family& family : families) {
        if (family.family < normal) continue;
        choose(family.family, family.extreme);
        life({"-130", "-50", "-10", "30", "80"});
        const Fit low = fit();
        life({"870", "950", "990", "1030", "1080"});
        EXPECT_NEAR(low.eta, fit().eta - 1000, 1e-9);
        EXPECT_RELATIVE(low.beta, fit().beta, 1e-12);
    }
}

// ---- fixed slopes ----

TEST_F(MleTest, AFixedWeibullSlopeHasTheClosedForm) {
    session.fixedSlope = 2.5f;
    life({"100", "200x0x2", "-300x0x3"});
    const double sum = std::pow(100, 2.5) + 2 * std::pow(200, 2.5) + 3 * std::pow(300, 2.5);
    EXPECT_EQ(fit().beta, 2.5);
    EXPECT_RELATIVE(fit().eta, std::pow(sum / 3, 1 / 2.5), 1e-14);
}

TEST_F(MleTest, AFixedSpreadOfTheOtherFamiliesStandsAtTheMaximumInEta) {
    for (const Family& family : families) {
        for (const float slope : {1.5f, 40.0f}) {
            choose(family.family, family.extreme);
            session.fixedSlope = slope;
            life(censored);
            EXPECT_EQ(fit().beta, slope);
            expectmaximum(std::to_string(family.family));
        }
    }
}

TEST_F(MleTest, AFixedSlopeFitsFailuresAtOneAge) {
    session.fixedSlope = 2;
    life({"100", "100"});
    EXPECT_RELATIVE(fit().eta, 100, 1e-14);
    EXPECT_TRUE(told().empty());
}

TEST_F(MleTest, AnRrRunWithAFixedSlopeGoesByTheSavedMethod) {
    session.fitMethod = rankRegression;
    session.fixedSlope = 2;
    life({"100", "-200"});
    EXPECT_RELATIVE(fit().eta, std::sqrt(5e4), 1e-14);
    EXPECT_EQ(session.setLabel(1), "mle");
}

TEST_F(MleTest, AFixedSlopeIsNotCorrected) {
    session.fixedSlope = 2;
    session.mleVariant = 4;
    life(censored);
    EXPECT_EQ(fit().beta, 2);
    EXPECT_EQ(session.setCorrected(1), 0);
}

// ---- likelihoods without a maximum ----

TEST_F(MleTest, ALikelihoodWithoutAMaximumIsToldAndIsNoFit) {
    for (const Family& family : families) {
        choose(family.family, family.extreme);
        expectnofit({"100", "100"});
        expectnofit({"100", "100", "-50"});
    }
}

TEST_F(MleTest, IntervalsThatAllShareAnAgeHaveNoMaximum) {
    session.inputType = intv5;
    for (const Family& family : families) {
        choose(family.family, family.extreme);
        expectnofit({"10x0x1x30", "20x0x1x50", "15x0x2x25"});
        expectnofit({"10x0x1x30", "30x0x1x50"});
        expectnofit({"50x0x3x-3.3e33", "70x0x2x-3.3e33"});
    }
}

TEST_F(MleTest, DiscoveriesBelowSuspensionsHaveNoRisingLine) {
    session.inputType = intv5;
    for (const Family& family : families) {
        choose(family.family, family.extreme);
        expectnofit({"10x0x3x-3.3e33", "-60", "-80"});
    }
}

TEST_F(MleTest, ASetThatFailsKeepsNothingOfItsFormerFit) {
    life(censored);
    ASSERT_TRUE(fit().fitted);
    life({"100", "100"});
    EXPECT_EQ(session.LOGLYKMLE(1), noAnswer);
    EXPECT_EQ(fit().eta, 0);
}

// ---- the Newton search ----

TEST(NewtonSearch, StartsBetweenOneAndThree) {
    EXPECT_EQ(newtonstart(5), 3);
    EXPECT_EQ(newtonstart(0.4), 1);
    EXPECT_EQ(newtonstart(2.2), 2.2);
    EXPECT_EQ(newtonstart(0), 1);
}

TEST_F(MleTest, WithoutFailuresTheNewtonRoutineHasTheClosedFormWithOneFailure) {
    session.lineHide(1) = 1;
    life({"-100", "-200"});
    session.currentSet = 1;
    session.fixedSlope = 2;
    maxlyknewton();
    EXPECT_EQ(session.beta, 2);
    EXPECT_RELATIVE(session.eta, std::sqrt(1e4 + 4e4), 1e-14);
    EXPECT_EQ(session.calcError, 0);
}

TEST_F(MleTest, ASlopeBeyondTenThousandFailsTheNewtonRoutineAlone) {
    const Cells nearlyTied = {"1000", "1000.02", "1000.03"};
    session.lineHide(1) = 1;
    life(nearlyTied);
    session.currentSet = 1;
    session.beta = 3;
    maxlyknewton();
    EXPECT_EQ(session.calcError, 1);
    session.lineHide(1) = 0;
    life(nearlyTied);
    EXPECT_GT(fit().beta, 10000);
    expectmaximum("nearly tied");
    EXPECT_EQ(session.calcError, 0);
}

TEST(NewtonSearch, FindsSteepAndFlatSlopes) {
    // Two failures at ln x = 0 and -d: the root depends on beta * d alone, so beta goes as 1 / d.
    const std::vector<double> weight = {1, 1};
    const auto slopeat = [&](double d) {
        const std::vector<double> y = {0, -d};
        return weibullprofile({y, weight, 0, 2, -d}, 2, [] { return false; });
    };
    const double unit = slopeat(1).beta;
    for (const double d : {1e-3, 0.1, 10.0, 1e3}) {
        EXPECT_EQ(slopeat(d).end, SearchEnd::found) << d;
        EXPECT_RELATIVE(slopeat(d).beta, unit / d, 1e-13) << d;
    }
}

// ---- Escape, and what is left behind ----

class MleEscape : public MleTest {
protected:
    MleEscape() {
        session.sizeExponent = 4; // long enough for a search to look up in every pass
        EXPECT_TRUE(allocatearrays());
    }
    Cells many() const {
        Cells cells;
        for (int i = 1; i <= 10000; ++i)
            cells.push_back((i % 3 == 0 ? "-" : "") + std::to_string(i * 37 % 1009 + 5 + i / 7));
        return cells;
    }
};

TEST_F(MleEscape, WithinASearchEndsTheRunAndLeavesDataAndLineAsTheyWere) {
    ScriptedPlatform scripted;
    for (const Family& family : families) {
        choose(family.family, family.extreme);
        session.lineHide(1) = 1;
        life(many());
        session.lineHide(1) = 0;
        session.currentSet = 1;
        session.abortCode = 0;
        std::vector<float> before(session.X.row(stride).begin(), session.X.row(stride).end());
        session.eta = 400;
        session.beta = 1.5;
        session.etaFit(stride, 1) = 123;
        scripted.escapeat(1);
        EXPECT_EQ(maxlyk(), SearchEnd::escaped) << family.family;
        EXPECT_EQ(session.abortCode, escapePressed);
        EXPECT_EQ(session.eta, 400);
        EXPECT_EQ(session.beta, 1.5);
        EXPECT_EQ(session.etaFit(stride, 1), 123);
        EXPECT_TRUE(std::equal(before.begin(), before.end(), session.X.row(stride).begin()));
    }
}

TEST_F(MleEscape, WithinARunLeavesNoLine) {
    ScriptedPlatform scripted;
    life(many());
    ASSERT_TRUE(fit().fitted);
    bool within = false;
    for (int call = 2; call < 12 && !within; ++call) {
        scripted.escapeat(call);
        life(many());
        within = session.abortCode == escapePressed && session.setPlaced(1) == 1;
        EXPECT_EQ(fit().fitted, session.abortCode != escapePressed);
    }
    EXPECT_TRUE(within) << "no Escape fell into the fit";
}

TEST_F(MleTest, NoEndOfASearchTouchesTheData) {
    for (const Cells& cells : {censored, Cells{"100", "100"}, Cells{"1e12", "2e12"}, Cells{"-5", "100"}})
        for (const Family& family : families) {
            choose(family.family, family.extreme);
            life(cells);
            for (int j = 1; j <= pointcount(1); ++j)
                EXPECT_EQ(session.X(stride, j), session.entryX(stride, j)) << cells[0];
        }
}

// ---- the value of the maximum ----

// One value far from ten thousand others: its density is less than the smallest number, its logarithm is not.
TEST_F(MleTest, AnOutlierCountsInTheLogLikelihoodWithAllItsWeight) {
    choose(normal);
    life({"10x0x10000", "11"});
    EXPECT_RELATIVE(session.LOGLYKMLE(1), 31866.502809485297, 1e-9); // -n ln s - n/2 (1 + ln 2 pi)
    choose(lognormal);
    life({"10x0x3000", "30"});
    EXPECT_RELATIVE(session.LOGLYKMLE(1), 562.9261567186113, 1e-9);
    choose(gumbel, -1);
    life({"10x0x1000", "1"});
    EXPECT_RELATIVE(session.LOGLYKMLE(1), 2715.242232014396820, 1e-12); // golden section, mpmath, 40 digits
}

TEST_F(MleTest, ASuspensionAtZeroChangesNothing) {
    for (const float slope : {0.0f, 2.0f}) {
        session.fixedSlope = slope;
        life({"1", "5", "9", "12"});
        const Fit without = fit();
        const double logLik = session.LOGLYKMLE(1);
        if (slope == 0) {
            EXPECT_NEAR(logLik, -11.25256047976487929, 1e-12); // mpmath, 40 digits
        }
        life({"1", "0", "5", "9", "12"});
        ASSERT_TRUE(fit().fitted);
        EXPECT_EQ(fit().eta, without.eta);
        EXPECT_EQ(fit().beta, without.beta);
        EXPECT_NEAR(session.LOGLYKMLE(1), logLik, 1e-12);
    }
}

// ---- labels ----

TEST_F(MleTest, TheLogLikelihoodIsKeptWithALikelihoodFitAlone) {
    life(censored);
    EXPECT_EQ(session.setLabel(1), "mle");
    EXPECT_LT(session.LOGLYKMLE(1), 0);
    choosemethod(rankRegression);
    life(censored);
    EXPECT_EQ(session.LOGLYKMLE(1), noAnswer);
}

} // namespace
