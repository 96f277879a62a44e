// The regression walk and the line it gives.

#include "analysis/regress.h"

#include <gtest/gtest.h>

#include "analysis/linefit.h"
#include "analysis/order.h"
#include "plot/transforms.h"
#include "shell/grid.h"
#include "support/lifefixture.h"

namespace {

constexpr double digits = 1e-12; ///< of a line through a few points, in double precision
constexpr double single = 6e-8;  ///< of values kept as a single

class RegressTest : public LifeTest {
protected:
    /// Reads one set and ranks it without the driver around it.
    static void walk(const Cells& cells) {
        gridclear();
        for (int j = 1; j <= static_cast<int>(cells.size()); ++j) gridset(1, j, cells[j - 1]);
        ASSERT_TRUE(gridget(stride));
        session.lastRow = stride;
        session.currentSet = 1;
        session.calcError = 0;
        orderset(1);
        placepoints(1);
        regressselect();
    }

    /// Benard's position of rank r of N on the plot axis of the family in force.
    static double benardy(double r, double N) {
        return plotyofp(session.dist, session.gumbeltype, (r - 0.3) / (N + 0.4));
    }

    static void expectline(const CheckLine& line) {
        EXPECT_TRUE(fit().fitted);
        EXPECT_RELATIVE(fit().beta, line.slope, digits);
        EXPECT_RELATIVE(fit().eta, std::exp(line.crossing), digits);
        EXPECT_RELATIVE(fit().r, line.r, single);
    }
};

// ---- direction ----

TEST_F(RegressTest, GoesXOnYForSinglePoints) {
    life({"150", "230", "310"});
    expectline(CheckLine(
        {{std::log(150), benardy(1, 3)}, {std::log(230), benardy(2, 3)}, {std::log(310), benardy(3, 3)}},
        true));
}

TEST_F(RegressTest, GoesYOnXForSinglePointsWhenReversed) {
    session.rrSwap = 1;
    life({"150", "230", "310"});
    expectline(CheckLine(
        {{std::log(150), benardy(1, 3)}, {std::log(230), benardy(2, 3)}, {std::log(310), benardy(3, 3)}},
        false));
}

TEST_F(RegressTest, GoesYOnXForGroupedRowsAndXOnYWhenReversed) {
    for (const bool swapped : {false, true})
        for (const int16_t type : {prbt2, prbt3}) {
            session.inputType = type;
            session.rrSwap = swapped ? 1.0f : 0.0f;
            life(type == prbt2 ? Cells{"10x0x2x20", "20x0x8x20", "30x0x15x20"}
                               : Cells{"10x0x10x20", "20x0x40x20", "30x0x75x20"});
            // Positions of rows are kept as singles.
            const CheckLine line({{std::log(10), smallestextreme(0.1f)},
                                  {std::log(20), smallestextreme(0.4f)},
                                  {std::log(30), smallestextreme(0.75f)}},
                                 swapped);
            expectline(line);
        }
}

TEST_F(RegressTest, GivesKaplanMeierRowsOneWeightEach) {
    session.inputType = km4;
    life({"10x0x3x2", "20x0x1x4", "30x0x2x8"});
    // At risk 20, 15, 10.
    const double s1 = 17 / 20.0, s2 = s1 * 14 / 15, s3 = s2 * 8 / 10;
    const CheckLine line({{std::log(10), smallestextreme(1 - s1)},
                          {std::log(20), smallestextreme(1 - s2)},
                          {std::log(30), smallestextreme(1 - s3)}},
                         false);
    EXPECT_RELATIVE(fit().beta, line.slope, 1e-6); // positions of rows are kept as singles
    EXPECT_RELATIVE(fit().eta, std::exp(line.crossing), 1e-6);
}

// ---- suspensions and quantities ----

/// A suspension counts as a unit of the sample wherever it stands; behind the last failure that is all it
/// does.
TEST_F(RegressTest, SuspensionsAfterTheLastFailureCountAsUnitsAndNothingElse) {
    life({"150", "230", "310", "-311", "-312"});
    const Fit near = fit();
    EXPECT_TRUE(near.fitted);
    life({"150", "230", "310", "-9000x0x2"});
    EXPECT_EQ(fit(), near);
    life({"-400", "150", "-310", "230", "310"});
    EXPECT_EQ(fit(), near);
    expectline(CheckLine(
        {{std::log(150), benardy(1, 5)}, {std::log(230), benardy(2, 5)}, {std::log(310), benardy(3, 5)}},
        true));
}

TEST_F(RegressTest, TakesAQuantityAsSoManyRows) {
    life({"150", "230x0x3", "310", "-350x0x2", "400"});
    const Fit rows = fit();
    EXPECT_TRUE(rows.fitted);
    life({"150", "230", "230", "230", "310", "-350", "-350", "400"});
    EXPECT_EQ(fit(), rows);
}

TEST_F(RegressTest, TakesAQuantityBelowOneAsOne) {
    life({"150", "230", "310"});
    const Fit plain = fit();
    life({"150x0x0", "230x0x-4", "310x0x.5"});
    EXPECT_EQ(fit(), plain);
}

TEST_F(RegressTest, LeavesPositionsBeyondOneHundredPercentOutInEveryFamily) {
    session.popPortion = 0.5f;
    session.rankMethod = meanRank;
    for (const auto& [family, extreme] :
         {std::pair{weibull, -1}, {lognormal, -1}, {normal, -1}, {gumbel, -1}, {gumbel, 1}}) {
        choose(family, extreme);
        life({"10", "20", "30", "40", "50", "60", "70"});
        EXPECT_EQ(session.sums.n, 3) << family;
    }
}

TEST_F(RegressTest, LeavesPositionsBeyondOneHundredPercentOutOfTheLine) {
    session.popPortion = 0.5f;
    session.rankMethod = meanRank;
    life({"10", "20", "30", "40", "50", "60", "70"}); // 2/8, 4/8, 6/8 and four beyond
    expectline(CheckLine({{std::log(10), smallestextreme(0.25)},
                          {std::log(20), smallestextreme(0.5)},
                          {std::log(30), smallestextreme(0.75)}},
                         true));
}

// ---- inspection ----

TEST_F(RegressTest, CountsTwoInspectionRowsAtOneAgeOnceWithTheLaterCount) {
    session.inputType = insp1;
    life({"100x0x3", "200x0x2", "200x0x4", "300x0x1"});
    expectline(CheckLine(
        {{std::log(100), benardy(3, 10)}, {std::log(200), benardy(9, 10)}, {std::log(300), benardy(10, 10)}},
        true));
}

TEST_F(RegressTest, CountsTwoBigInspectionRowsAtOneAgeOnceWithTheLaterCount) {
    session.inputType = insp1;
    life({"100000x0x3", "200000x0x2", "200000x0x4", "300000x0x1"});
    // By group: a row weighs its quantity, the later row at one age that of its own.
    expectline(CheckLine({{std::log(100000), benardy(3, 10), 3},
                          {std::log(200000), benardy(9, 10), 4},
                          {std::log(300000), benardy(10, 10), 1}},
                         true));
}

TEST_F(RegressTest, KeepsFailuresAtOneAgeApartInStandardInput) {
    life({"100", "200", "200", "300"});
    expectline(CheckLine({{std::log(100), benardy(1, 4)},
                          {std::log(200), benardy(2, 4)},
                          {std::log(200), benardy(3, 4)},
                          {std::log(300), benardy(4, 4)}},
                         true));
}

TEST_F(RegressTest, GivesTwoInspectionsAPerfectCorrelation) {
    session.inputType = insp1;
    life({"100x0x3", "200x0x4", "-200x0x5", "-300"});
    EXPECT_TRUE(fit().fitted);
    EXPECT_EQ(fit().r, 1);
}

// ---- intervals ----

TEST_F(RegressTest, PutsAnIntervalAtTheMeanOfThePlotValues) {
    session.inputType = intv5;
    life({">100<200", "300x0x1x500", "700"});
    expectline(CheckLine({{(std::log(100) + std::log(200)) / 2, benardy(1, 3)},
                          {(std::log(300) + std::log(500)) / 2, benardy(2, 3)},
                          {std::log(700), benardy(3, 3)}},
                         true));
}

TEST_F(RegressTest, PutsADiscoveryAtItsAgeAndCountsIt) {
    session.inputType = intv5;
    life({"<100", "300", "700"});
    EXPECT_EQ(session.countDisc(1), 1);
    EXPECT_EQ(session.countOccr(1), 2);
    expectline(CheckLine(
        {{std::log(100), benardy(1, 3)}, {std::log(300), benardy(2, 3)}, {std::log(700), benardy(3, 3)}},
        true));
}

TEST_F(RegressTest, FitsIntervalsAndDiscoveriesWithoutAnyExactFailure) {
    session.inputType = intv5;
    life({"<100", "300x0x1x500"});
    EXPECT_EQ(session.countOccr(1), 0);
    EXPECT_TRUE(fit().fitted);
}

TEST_F(RegressTest, AnIntervalFromZeroStandsWhereADiscoveryDoesOnALogarithmicAxis) {
    session.inputType = intv5;
    life({"<20", "30x0x1x50", "70"});
    const Fit discovery = fit();
    life({"0x0x1x20", "30x0x1x50", "70"});
    EXPECT_EQ(fit(), discovery);
    life({"0x0x1x2000", "3000x0x1x5000", "7000"}); // in another unit the slope stays
    EXPECT_NEAR(fit().beta / discovery.beta, 1, 1e-12);
    EXPECT_NEAR(fit().eta / discovery.eta, 100, 1e-10);
}

TEST_F(RegressTest, PutsAnIntervalOfALinearAxisInTheMiddle) {
    session.inputType = intv5;
    choose(normal);
    life({"100x0x1x200", "300x0x1x500", "700"});
    const Fit intervals = fit();
    EXPECT_TRUE(intervals.fitted);
    life({"150", "400", "700"});
    EXPECT_RELATIVE(fit().eta, intervals.eta, digits);
    EXPECT_RELATIVE(fit().beta, intervals.beta, digits);
}

TEST_F(RegressTest, TakesTheThresholdFromBothEndsOfAnInterval) {
    session.inputType = intv5;
    life({"100x0x1x200", "300x0x1x500", "700"});
    const Fit plain = fit();
    session.t0(1) = 1000;
    life({"1100x0x1x1200", "1300x0x1x1500", "1700"});
    EXPECT_TRUE(plain.fitted);
    EXPECT_RELATIVE(fit().eta, plain.eta, digits);
    EXPECT_RELATIVE(fit().beta, plain.beta, digits);
}

// ---- the choice of the walk ----

const std::string changeNotice = "Set 1: Big Data ... Change Automatic Method To \"1 Inspect\"";

TEST_F(RegressTest, ChangesToInspectionFromFiftyThousandOnAndTellsSo) {
    life({"40000", "45000", "50000"});
    EXPECT_EQ(session.setInputType(1), insp1);
    EXPECT_EQ(session.inputType, standard0);
    ASSERT_EQ(told().size(), 1u);
    EXPECT_EQ(told().front(), changeNotice);
    EXPECT_EQ(desktop.messages, told());
}

TEST_F(RegressTest, StaysByUnitBelowFiftyThousand) {
    life({"40000", "45000", "49999"});
    EXPECT_EQ(session.inputType, standard0);
    EXPECT_TRUE(told().empty());
}

TEST_F(RegressTest, ReadsTheSizeOfASuspensionToo) {
    life({"40000", "45000", "-60000"});
    EXPECT_EQ(session.setInputType(1), insp1);
    EXPECT_EQ(session.inputType, standard0);
}

TEST_F(RegressTest, ReadsTheUpperEndOfAnIntervalToo) {
    session.inputType = intv5;
    life({"10000x0x3x20000", "30000x0x2x60000"});
    EXPECT_EQ(session.inputType, intv5);
    EXPECT_TRUE(told().empty());
    EXPECT_EQ(rank(1), 2); // by group: three failures at their mean rank, and two points in the sums
    EXPECT_EQ(session.sums.n, 5);
    EXPECT_EQ(session.sums.prevWeight, 2);
}

TEST_F(RegressTest, ChangesToInspectionFromAMillionUnitsOn) {
    life({"10x0x500000", "20x0x500000"});
    EXPECT_EQ(session.setInputType(1), insp1);
    EXPECT_EQ(session.inputType, standard0);
    ASSERT_EQ(told().size(), 1u);
    EXPECT_EQ(told().front(), changeNotice);
}

TEST_F(RegressTest, StaysByUnitBelowAMillionUnits) {
    life({"10x0x500000", "20x0x499999"});
    EXPECT_EQ(session.inputType, standard0);
    EXPECT_EQ(session.sums.prevWeight, 1);
    EXPECT_EQ(session.sums.n, 999999);
}

TEST_F(RegressTest, NeverChangesASetAtMleToInspection) {
    choosemethod(maximumLikelihood);
    walk({"60000", "70000", "80000"});
    EXPECT_EQ(session.inputType, standard0);
    EXPECT_TRUE(told().empty());
    EXPECT_EQ(session.sums.n, 3);
}

TEST_F(RegressTest, NeverChangesGroupedRowsToInspection) {
    session.inputType = prbt2;
    life({"60000x0x2x20", "70000x0x8x20", "80000x0x15x20"});
    EXPECT_EQ(session.inputType, prbt2);
    EXPECT_TRUE(fit().fitted);
}

TEST_F(RegressTest, TellsOfMoreUnitsThanTheWalkByUnitCanCount) {
    choosemethod(maximumLikelihood);
    walk({"10x0x10000000", "20x0x10000000"});
    EXPECT_EQ(session.calcError, 1);
    ASSERT_EQ(told().size(), 1u);
    EXPECT_EQ(told().front(), "Set 1: Total Quantity Too Big");
}

TEST_F(RegressTest, FitsMoreUnitsThanThatByGroup) {
    life({"10x0x10000000", "20x0x10000000", "-30x0x10000000"});
    EXPECT_TRUE(fit().fitted);
    const double N = 3e7;
    expectline(CheckLine({{std::log(10), smallestextreme((1e7 - 0.3) / (N + 0.4)), 1e7},
                          {std::log(20), smallestextreme((2e7 - 0.3) / (N + 0.4)), 1e7}},
                         true));
}

// ---- rows that carry their own position ----

constexpr const char* badRowEnd = "\nFor Probit Data\nNote: 0 % Or 100 % Occurrence = Bad";

TEST_F(RegressTest, StopsTheSetAtAProbitRowOfNoOccurrence) {
    session.inputType = prbt2;
    life({"10x0x0x20", "20x0x8x20", "30x0x15x20"});
    EXPECT_FALSE(fit().fitted);
    ASSERT_EQ(told().size(), 1u);
    EXPECT_EQ(told().front(), std::string("Set 1: Outside Input Range ... Affected <= 0") + badRowEnd);
}

TEST_F(RegressTest, StopsTheSetAtAProbitRowOfFullOccurrence) {
    session.inputType = prbt2;
    life({"10x0x2x20", "20x0x8x20", "30x0x20x20"});
    EXPECT_FALSE(fit().fitted);
    ASSERT_EQ(told().size(), 1u);
    EXPECT_EQ(told().front(), std::string("Set 1: Outside Input Range ... Sample Quantity?") + badRowEnd);
}

TEST_F(RegressTest, StopsTheSetAtAProbitRowWithoutASample) {
    session.inputType = prbt2;
    life({"10x0x2", "20x0x8x20", "30x0x15x20"});
    EXPECT_FALSE(fit().fitted);
    ASSERT_EQ(told().size(), 1u);
    EXPECT_EQ(told().front(), std::string("Set 1: Outside Input Range ... Sample Quantity?") + badRowEnd);
}

// ---- the sums ----

TEST_F(RegressTest, KeepsTheDigitsOfDataFarFromZero) {
    choose(normal);
    life({"0.5", "1", "2", "4", "7"});
    const Fit near = fit();
    life({"1000000.5", "1000001", "1000002", "1000004", "1000007"});
    EXPECT_TRUE(fit().fitted);
    EXPECT_RELATIVE(fit().eta, 1e6 + near.eta, 1e-14);
    EXPECT_RELATIVE(fit().beta, near.beta, 1e-12);
    EXPECT_RELATIVE(fit().r, near.r, single);
}

TEST_F(RegressTest, LeavesThePointBeforeInPlaceWhenASumWouldOverflow) {
    session.sums = {};
    regressaccum(1, 1, 2);
    const RegressionSums before = session.sums;
    regressaccum(1, 1e200, 1e200);
    EXPECT_EQ(session.sums.n, before.n);
    EXPECT_EQ(session.sums.Sxx, before.Sxx);
    EXPECT_EQ(session.sums.prevX, before.prevX);
    EXPECT_EQ(session.sums.prevY, before.prevY);
}

TEST_F(RegressTest, GivesNoLineWithoutPoints) {
    EXPECT_FALSE(fitline(RegressionSums{}, true, 0).exists);
    EXPECT_FALSE(fitline(RegressionSums{}, true, 2).exists);
}

} // namespace
