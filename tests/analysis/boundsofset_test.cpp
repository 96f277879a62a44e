// The step of a run behind the line: which method, what is refused, cleaned and left behind.

#include "analysis/boundsofset.h"

#include <gtest/gtest.h>

#include "analysis/bounds.h"
#include "data/boundvalues.h"
#include "data/resultsjson.h"
#include "plot/transforms.h"
#include "support/boundsfixture.h"
#include "support/reference.h"
#include "support/scriptedplatform.h"

namespace {

// ---- the choice ----

TEST_F(BoundsTest, EveryMethodLeavesItsCode) {
    const std::pair<int16_t, const char*> codes[] = {
        {binomialBounds, "bi"}, {fisherBounds, "fm"}, {likelihoodBounds, "lr"}, {noBounds, ""}, {7, ""}};
    for (const auto& [method, code] : codes) {
        session.confMethod = method;
        life(censored);
        EXPECT_EQ(session.setBoundLabel(1), code);
        EXPECT_EQ(session.ifylcnf, *code ? 9 : 0);
        EXPECT_TRUE(told().empty());
    }
}

TEST_F(BoundsTest, WithoutPercentagesThereAreNone) {
    session.confMethod = fisherBounds;
    session.confLow = session.confHigh = 0;
    life(censored);
    EXPECT_EQ(session.ifylcnf, 0);
    EXPECT_EQ(session.setBoundLabel(1), "");
    EXPECT_EQ(session.paramLow(1, 1), noAnswer);
}

TEST_F(BoundsTest, WithOnePercentageOneRowIsFilled) {
    for (const int16_t method : {binomialBounds, fisherBounds, likelihoodBounds, normalTheoryBounds}) {
        choose(normal);
        session.confMethod = method;
        session.confLow = 0;
        session.confHigh = 95;
        life(complete);
        EXPECT_EQ(points(BoundSide::low), 0) << method;
        EXPECT_GT(points(BoundSide::high), 0) << method;
        EXPECT_EQ(session.paramLow(1, 1), noAnswer);
        session.confLow = 5;
        session.confHigh = 0;
        life(complete);
        EXPECT_GT(points(BoundSide::low), 0) << method;
        EXPECT_EQ(points(BoundSide::high), 0) << method;
        EXPECT_EQ(session.paramHigh(1, 1), noAnswer);
    }
}

TEST_F(BoundsTest, TheRuleChoosesByFamilyMethodAndOccurrences) {
    session.confAuto = 1;
    choose(normal);
    life(complete);
    EXPECT_EQ(session.confMethod, normalTheoryBounds);
    choose(lognormal);
    life(complete);
    EXPECT_EQ(session.confMethod, normalTheoryBounds);
    life(censored);
    EXPECT_EQ(session.confMethod, likelihoodBounds);
    choose(weibull);
    life(complete);
    EXPECT_EQ(session.confMethod, likelihoodBounds);
    life({"12x0x20", "31", "40"});
    EXPECT_EQ(session.confMethod, fisherBounds);
    life({"12x0x18", "31", "40"});
    EXPECT_EQ(session.confMethod, likelihoodBounds);
    choosemethod(rankRegression);
    life(complete);
    EXPECT_EQ(session.confMethod, pivotalBounds);
}

TEST_F(BoundsTest, TheRuleIsRefusedForSeveralSets) {
    session.confAuto = 1;
    sets({complete, complete});
    EXPECT_EQ(told(0), Notices{"Automatic Confidence Method Only For Single Set"});
    EXPECT_EQ(session.confAuto, 0);
}

TEST_F(BoundsTest, SimulationAndWeibayesLinesHaveTheirRoutines) {
    session.confMethod = simulationBounds;
    session.rndStart = 7;
    life(censored);
    EXPECT_EQ(session.setBoundLabel(1), "mc");
    EXPECT_EQ(session.ifylcnf, 9);
    session.confMethod = fisherBounds;
    session.fixedSlope = 2;
    life(censored);
    EXPECT_EQ(session.setBoundLabel(1), "wb") << "whatever method is chosen";
    EXPECT_EQ(session.ifylcnf, 9);
}

// ---- a known slope ----

TEST_F(BoundsTest, GroupedRowsOfAKnownSlopeHaveTheirOwn) {
    session.fixedSlope = 2;
    for (const int16_t method : {fisherBounds, likelihoodBounds, pivotalBounds}) {
        session.confMethod = method;
        session.inputType = prbt2;
        life({"20x0x2x20", "50x0x8x25", "90x0x17x20"});
        EXPECT_EQ(session.setBoundLabel(1), "pr") << method;
        EXPECT_GT(points(BoundSide::low), 0);
        session.inputType = km4;
        life({"20x0x2x3", "50x0x4x1", "90x0x3x2"});
        EXPECT_EQ(session.setBoundLabel(1), "gw") << method;
    }
}

TEST_F(BoundsTest, WhereTheSumHasNoBoundsThatIsTold) {
    session.fixedSlope = 2;
    session.confMethod = fisherBounds;
    const auto refused = [this](const Cells& cells, const char* notice) {
        life(cells);
        ASSERT_TRUE(fit().fitted) << notice;
        EXPECT_EQ(told(), Notices{notice});
        EXPECT_EQ(session.setBoundLabel(1), "");
        EXPECT_EQ(points(BoundSide::low) + points(BoundSide::high), 0);
        EXPECT_EQ(session.ifylcnf, 0);
    };
    session.popPortion = .5f;
    refused(censored, "Set 1: No Weibayes Confidence With tP%=50");
    session.popPortion = 0;
    choose(lognormal);
    refused(complete, "Set 1: No Weibayes Confidence With LogNormal");
    choose(gumbel);
    session.fixedSlope = 10;
    refused(complete, "Set 1: No Weibayes Confidence With Gumbel");
}

// With r failures the relative deviation of eta^beta is near to 1 / sqrt(r).
TEST_F(BoundsTest, OfManyFailuresLieAboutTheirLine) {
    session.fixedSlope = 2;
    session.confMethod = fisherBounds;
    for (const char* many : {"100x0x30000", "100x0x40000", "100x0x400000"}) {
        life({many, "200x0x10000", "-250x0x1000"});
        const double off = 1.6448536269514722 / std::sqrt(session.countOccr(1)) / 2;
        EXPECT_RELATIVE(session.paramLow(1, 1), fit().eta * (1 - off), 3e-5) << many;
        EXPECT_RELATIVE(session.paramHigh(1, 1), fit().eta * (1 + off), 3e-5) << many;
        EXPECT_GT(points(BoundSide::low), 15);
        EXPECT_GT(points(BoundSide::high), 15);
    }
}

// Sum of squares 1 + 4 + 1000^2, three failures: the line by the positions lies far below it.
TEST_F(BoundsTest, OfTheSumThatLeaveARegressionLineOutAreNone) {
    choosemethod(rankRegression);
    session.fixedSlope = 2;
    session.confMethod = fisherBounds;
    life({"1", "2", "1000"});
    EXPECT_LT(fit().eta, std::sqrt(1000005 / (15.50731306 / 2))); // chi-square 0.95, 8 degrees of freedom
    EXPECT_EQ(session.paramLow(1, 1), noAnswer);
    EXPECT_EQ(points(BoundSide::low), 0);
    EXPECT_RELATIVE(session.paramHigh(1, 1), std::sqrt(1000005 / (2.732636793 / 2)), 1e-8);
    EXPECT_GT(points(BoundSide::high), 15);
    session.confHigh = 0;
    life({"1", "2", "1000"});
    EXPECT_EQ(session.setBoundLabel(1), "") << "no bound is left";
    EXPECT_EQ(session.ifylcnf, 0);
}

// ---- what is no bound ----

TEST_F(BoundsTest, BeyondAnyDataAreDropped) {
    choose(lognormal);
    for (const int16_t method : {fisherBounds, likelihoodBounds}) {
        session.confMethod = method;
        life({"1", "-10x0x99"});
        ASSERT_TRUE(fit().fitted);
        for (const BoundSide side : {BoundSide::low, BoundSide::high})
            for (int m = 1; m <= points(side); ++m) {
                EXPECT_GT(session.X(boundrow(1, side), m), 9e-30f);
                EXPECT_LT(session.X(boundrow(1, side), m), 9e30f);
            }
        for (const int j : {1, 2})
            for (const double bound : {session.paramLow(1, j), session.paramHigh(1, j)})
                EXPECT_TRUE(bound == noAnswer || (bound > 9e-30 && bound < 9e30)) << bound;
    }
}

TEST_F(BoundsTest, OfAParameterThatLeaveItsEstimateOutAreDropped) {
    choosemethod(rankRegression);
    session.confMethod = likelihoodBounds;
    session.inputType = intv5;
    int dropped = 0;
    for (const Cells& cells :
         {Cells{">10<11", ">10<100", ">90<100", "95"}, Cells{">1<1000", ">2<3", ">2<4", ">3<4", "-4x0x20"},
          Cells{">5<6", ">5<7", ">6<7", ">100<1000"}}) {
        life(cells);
        ASSERT_TRUE(fit().fitted);
        const double estimates[] = {0, fit().eta, fit().beta};
        for (const int j : {1, 2}) {
            dropped += session.paramLow(1, j) == noAnswer || session.paramHigh(1, j) == noAnswer ? 1 : 0;
            if (session.paramHigh(1, j) != noAnswer) {
                EXPECT_GE(session.paramHigh(1, j), estimates[j]);
            }
            EXPECT_LE(session.paramLow(1, j), estimates[j]);
        }
    }
    EXPECT_GT(dropped, 0) << "no data that show it";
}

TEST_F(BoundsTest, OfASinglePointByLikelihoodAreRefused) {
    session.confMethod = -likelihoodBounds;
    life(censored);
    EXPECT_EQ(told(), Notices{"Set 1: No Likelihood Ratio Confidence For Single Point"});
    EXPECT_EQ(session.setBoundLabel(1), "");
}

TEST_F(BoundsTest, ASimulationTellsHowManySamplesItNeeds) {
    session.confMethod = simulationBounds;
    session.rndStart = 5;
    session.mcCount = 100;
    session.confLow = .5f;
    session.confHigh = 99.5f;
    life(complete);
    EXPECT_EQ(told(), Notices{"Set 1: Confidence Calculation Truncated ... MC # = 100 ... Minimum = 199"});
    session.mcCount = 199;
    life(complete);
    EXPECT_TRUE(told().empty());
    EXPECT_EQ(session.setBoundLabel(1), "mc");
}

TEST_F(BoundsTest, ASetOfOnePointHasNone) {
    session.confMethod = fisherBounds;
    session.currentSet = 1;
    life({"100"});
    boundsofset(1);
    ASSERT_FALSE(told().empty());
    EXPECT_EQ(told().back(), "Set 1: Confidence? ... Point Quantity < 2");
    EXPECT_EQ(session.ifylcnf, 0);
}

TEST_F(BoundsTest, NormalTheoryIsRefusedForOtherFamiliesAndData) {
    session.confMethod = normalTheoryBounds;
    life(complete);
    EXPECT_EQ(told(), Notices{"Set 1: No Normal Confidence With Weibull"});
    EXPECT_EQ(session.ifylcnf, 0);
    choose(normal);
    session.inputType = intv5;
    life({"12", "31", "40x0x1x60"});
    EXPECT_EQ(told(), Notices{"Set 1: No Normal Confidence With Interval"});
}

TEST_F(BoundsTest, EveryRunLeavesLineAndRegistersAsTheyWere) {
    for (const int16_t method : {noBounds, binomialBounds, fisherBounds, likelihoodBounds}) {
        session.confMethod = method;
        session.mleVariant = 4;
        life(censored);
        EXPECT_EQ(session.eta, fit().eta);
        EXPECT_EQ(session.beta, fit().beta);
        EXPECT_EQ(session.currentSet, 1);
        EXPECT_EQ(session.mleVariant, 4);
        EXPECT_EQ(session.setLabel(1), "RBApb");
    }
}

// ---- Escape ----

TEST_F(BoundsTest, EscapeTakesTheBoundsAndKeepsTheLine) {
    for (const int16_t method : {binomialBounds, fisherBounds, likelihoodBounds, normalTheoryBounds}) {
        choose(normal);
        session.confMethod = method;
        life(complete);
        session.currentSet = 1;
        const Fit before = fit();
        ASSERT_GT(points(BoundSide::low), 0);
        ScriptedPlatform scripted;
        scripted.expectmessage("Confidence Calculation Truncated");
        scripted.escapeat(3);
        session.eta = before.eta;
        session.beta = before.beta;
        session.abortCode = 0;
        session.calcError = 0;
        boundsofset(1);
        EXPECT_EQ(points(BoundSide::low), 0) << method;
        EXPECT_EQ(points(BoundSide::high), 0) << method;
        EXPECT_EQ(session.calcError, -1);
        EXPECT_EQ(session.setBoundLabel(1), "");
        EXPECT_EQ(session.paramLow(1, 1), noAnswer);
        EXPECT_EQ(fit(), before);
        session.abortCode = 0;
    }
}

// ---- clean-up ----

TEST_F(BoundsTest, ValuesThatNoDataCanHaveAreTakenOff) {
    choose(normal);
    session.confMethod = fisherBounds;
    life({"1", "2", "9", "30"});
    EXPECT_EQ(at(BoundSide::low, 0.001), noAnswer);
    EXPECT_GT(at(BoundSide::low, 0.9), 0);
    session.negativeXAllowed = 1;
    life({"1", "2", "9", "30"});
    EXPECT_LT(at(BoundSide::low, 0.001), 0);
}

TEST_F(BoundsTest, BoundsOnTheWrongSideOfTheLineAreTakenOff) {
    // The line is that of regression, the contour that of the likelihood: far out they part.
    choosemethod(rankRegression);
    session.confMethod = likelihoodBounds;
    session.confLow = 49;
    session.confHigh = 51;
    life({"1", "90", "95", "100", "102", "-103", "-104"});
    const auto all = boundprobabilities().size();
    EXPECT_LT(points(BoundSide::low) + points(BoundSide::high), 2 * static_cast<int>(all));
    for (const BoundSide side : {BoundSide::low, BoundSide::high})
        for (int m = 1; m <= points(side); ++m) {
            const FamilyLine line{weibull, -1, fit().eta, fit().beta};
            const int row = boundrow(1, side);
            const double x = quantileofp(line, session.Y(row, m), false);
            if (side == BoundSide::low)
                EXPECT_LE(session.X(row, m), x * (1 + 1e-6));
            else
                EXPECT_GE(session.X(row, m), x * (1 - 1e-6));
        }
}

// ---- what the user sees ----

TEST_F(BoundsTest, ReportAndResultsCarryThem) {
    session.confMethod = fisherBounds;
    life(censored);
    EXPECT_NE(report().find("Method=mle (fm)"), std::string::npos) << report();
    EXPECT_NE(report().find("c%=90 fm"), std::string::npos);
    EXPECT_NE(report().find("(-)="), std::string::npos);
    EXPECT_NE(report().find("5% Lower"), std::string::npos);
    EXPECT_NE(report().find("95% Upper"), std::string::npos);
    std::string json;
    writeresults(json);
    EXPECT_NE(json.find("\"method\": \"fm\""), std::string::npos) << json;
    const ValueBounds b10 = valuebounds(1, 0.1);
    EXPECT_EQ(b10.low, at(BoundSide::low, 0.1));
    for (const double percent : bLives) EXPECT_GT(valuebounds(1, percent / 100).low, 0) << percent;
    session.confMethod = noBounds;
    life(censored);
    writeresults(json);
    EXPECT_NE(json.find("\"bounds\": null"), std::string::npos);
    EXPECT_EQ(report().find("c%="), std::string::npos);
}

TEST_F(BoundsTest, OfAProbabilityTheHighCurveGivesTheLowerValue) {
    session.confMethod = binomialBounds;
    choosemethod(rankRegression);
    life(complete);
    const ValueBounds b50 = valuebounds(1, 0.5);
    EXPECT_LT(b50.low, b50.high);
    EXPECT_EQ(valuebounds(1, 0.001).low, noAnswer);
    const double p = session.Y(2, 3);
    EXPECT_RELATIVE(valuebounds(1, p).low, session.X(2, 3), 1e-6);
}

} // namespace
