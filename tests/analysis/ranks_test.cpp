// Ranks and plotting positions against hand arithmetic.

#include "analysis/ranks.h"

#include <gtest/gtest.h>

#include "support/lifefixture.h"

namespace {

constexpr double single = 6e-8; ///< relative rounding of a position or rank kept as a single

TEST(PlotPosition, IsTheFormulaOfTheMethod) {
    EXPECT_DOUBLE_EQ(plotposition(meanRank, 9, 4, 0), 4 / 10.0);
    EXPECT_DOUBLE_EQ(plotposition(hazenRank, 8, 3, 0), 2.5 / 8);
    EXPECT_DOUBLE_EQ(plotposition(blomRank, 10, 3, 0), 2.625 / 10.25);
    EXPECT_DOUBLE_EQ(plotposition(kaplanMeierRank, 8, 3, 0), 3 / 8.0);
    EXPECT_DOUBLE_EQ(plotposition(benardRank, 10, 3, 0), 2.7 / 10.4);
}

TEST(PlotPosition, IsBenardsForACodeThatIsNone) {
    for (const int code : {-1, 0, 7, 8, 99})
        EXPECT_DOUBLE_EQ(plotposition(code, 10, 3, 0), 2.7 / 10.4) << code;
}

TEST(PlotPosition, StaysWhatWasSuppliedWithTheSuppliedCode) {
    EXPECT_EQ(plotposition(suppliedRank, 10, 3, 0, 0.4321), 0.4321);
}

TEST(PlotPosition, OfTheBinomialIsTheExactMedianRank) {
    // One unit: p = 1/2. First of N: 1 - 2^(-1/N). Last of N: 2^(-1/N). Middle of an odd sample: 1/2.
    EXPECT_DOUBLE_EQ(plotposition(binomialRank, 1, 1, 0), 0.5);
    EXPECT_NEAR(plotposition(binomialRank, 10, 1, 0), -std::expm1(-std::log(2) / 10), 1e-15);
    EXPECT_NEAR(plotposition(binomialRank, 10, 10, 0), std::exp2(-0.1), 1e-14);
    EXPECT_NEAR(plotposition(binomialRank, 7, 4, 0), 0.5, 1e-14);
}

TEST(PlotPosition, OfTheBinomialIsLinearBetweenWholeRanks) {
    const double first = -std::expm1(-std::log(2) / 3); // of 3 units
    EXPECT_NEAR(plotposition(binomialRank, 3, 1.25, 0), 0.75 * first + 0.25 * 0.5, 1e-14);
}

TEST(PlotPosition, OfTheLastKaplanMeierUnitStaysBelowOneHundredPercent) {
    EXPECT_DOUBLE_EQ(plotposition(kaplanMeierRank, 4, 4, 0), 0.975);
    EXPECT_DOUBLE_EQ(plotposition(kaplanMeierRank, 10, 10, 0), 0.99);
    EXPECT_DOUBLE_EQ(plotposition(kaplanMeierRank, 1, 1, 0), 0.9);
}

TEST(PlotPosition, IsDividedByAPopulationPortionBetweenNoneAndAll) {
    EXPECT_DOUBLE_EQ(plotposition(meanRank, 9, 4, 0.5), 0.8);
    EXPECT_DOUBLE_EQ(plotposition(kaplanMeierRank, 4, 4, 0.5), 1.95); // after the last-unit rule
    EXPECT_DOUBLE_EQ(plotposition(meanRank, 9, 4, 1), 0.4);
    EXPECT_DOUBLE_EQ(plotposition(meanRank, 9, 4, 0), 0.4);
    EXPECT_DOUBLE_EQ(plotposition(meanRank, 9, 4, -0.5), 0.4);
    EXPECT_DOUBLE_EQ(plotposition(meanRank, 9, 4, 2), 0.4);
}

TEST(RankIncrement, IsTheGainOfJohnsonsRule) {
    EXPECT_EQ(rankincrement(7, 0, 0), 1);
    EXPECT_DOUBLE_EQ(rankincrement(7, 5, 3), 5 / 3.0);
}

class RanksTest : public LifeTest {};

TEST_F(RanksTest, OfACompleteSampleAreOneToN) {
    life({"310", "150", "230", "420"});
    EXPECT_EQ(rank(1), 3);
    EXPECT_EQ(rank(2), 1);
    EXPECT_EQ(rank(3), 2);
    EXPECT_EQ(rank(4), 4);
}

TEST_F(RanksTest, GainMoreBehindASuspension) {
    // 10 F, 20 S, 30 F, 40 S, 50 F of 5: 1; 1 + 5/4 = 9/4; 9/4 + (15/4)/2 = 33/8.
    life({"10", "-20", "30", "-40", "50"});
    EXPECT_EQ(rank(1), 1);
    EXPECT_EQ(rank(3), 2.25);
    EXPECT_EQ(rank(5), 4.125);
}

TEST_F(RanksTest, ShowASuspensionWhereTheNextFailureWouldStand) {
    life({"10", "-20", "30", "-40", "50"});
    EXPECT_EQ(rank(2), 2);   // 1 + (6-1)/(6-1)
    EXPECT_EQ(rank(4), 3.5); // 9/4 + (6-9/4)/(6-3)
    EXPECT_RELATIVE(position(4), 3.2 / 5.4, single);
}

TEST_F(RanksTest, ShowAGroupOfSuspensionsAtTheMiddleOfItsUnits) {
    // 10 F, three S at 20, 30 F of 5: r = 1; 1 + 5/5 = 2 for the first unit, 1 + 5/3 for the third.
    life({"10", "-20x0x3", "30"});
    EXPECT_RELATIVE(rank(2), (2 + 8 / 3.0) / 2, single);
}

TEST_F(RanksTest, PutAFailureBeforeASuspensionAtATieWhateverTheOrderOfEntry) {
    life({"100", "-100", "200"});
    const Fit failureFirst = fit();
    EXPECT_EQ(rank(1), 1);
    life({"-100", "100", "200"});
    EXPECT_EQ(rank(2), 1);
    EXPECT_TRUE(failureFirst.fitted);
    EXPECT_EQ(fit(), failureFirst);
}

TEST_F(RanksTest, PlotTheLastKaplanMeierPointBelowOneHundredPercent) {
    session.rankMethod = kaplanMeierRank;
    life({"10", "20", "30", "40"});
    EXPECT_EQ(position(1), 0.25);
    EXPECT_EQ(position(3), 0.75);
    EXPECT_RELATIVE(position(4), 0.975, single);
}

TEST_F(RanksTest, AreMeansOverTheUnitsOfARow) {
    life({"10", "20x0x3", "30"});
    EXPECT_EQ(rank(2), 3); // of 2, 3 and 4
    EXPECT_RELATIVE(position(2), 2.7 / 5.4, single);
}

TEST_F(RanksTest, OfAnInspectionAreTheCumulativeCount) {
    session.inputType = insp1;
    life({"10x0x2", "20x0x3", "30x0x1", "-30x0x4"});
    EXPECT_EQ(rank(1), 2);
    EXPECT_EQ(rank(2), 5);
    EXPECT_EQ(rank(3), 6);
    EXPECT_RELATIVE(position(2), 4.7 / 10.4, single);
}

TEST_F(RanksTest, DividePositionsByThePopulationPortion) {
    session.popPortion = 0.5f;
    session.rankMethod = meanRank;
    life({"10", "20", "-30", "-40", "-50", "-60", "-70"});
    EXPECT_RELATIVE(position(1), 2 / 8.0, single);
    EXPECT_RELATIVE(position(2), 4 / 8.0, single);
}

TEST_F(RanksTest, ShowAPositionAtOneHundredPercentOrMoreJustBelowIt) {
    session.popPortion = 0.5f;
    session.rankMethod = meanRank;
    life({"10", "20", "30"});
    EXPECT_EQ(position(1), 0.5);
    EXPECT_EQ(session.Y(stride, 2), 0.999999f); // 2/4 doubled
    EXPECT_EQ(session.Y(stride, 3), 0.999999f); // 3/4 doubled
}

// ---- walk by group ----

/// N = 7: three failures at 60000, two suspensions at 65000, two failures at 70000.
/// d = 8/8 = 1, mean 0 + 1*4/2 = 2, r = 3, c = 3. The suspensions: 3 + 5/5 = 4 and 3 + 5/4 = 4.25,
/// mean 4.125, c = 5. d = 5/3: mean 3 + 5/3*3/2 = 5.5, r = 3 + 10/3.
const std::vector<std::string> bigGroups = {"60000x0x3", "-65000x0x2", "70000x0x2"};

TEST_F(RanksTest, OfAGroupOutsideInspectionAreItsMeanRank) {
    session.inputType = intv5;
    life(bigGroups);
    EXPECT_EQ(session.inputType, intv5);
    EXPECT_EQ(rank(1), 2);
    EXPECT_EQ(rank(2), 4.125);
    EXPECT_EQ(rank(3), 5.5);
    EXPECT_RELATIVE(position(3), 5.2 / 7.4, single);
}

TEST_F(RanksTest, OfAGroupAtInspectionAreItsLastRank) {
    session.inputType = insp1;
    life(bigGroups);
    EXPECT_EQ(rank(1), 3);
    EXPECT_RELATIVE(rank(3), 19 / 3.0, single);
    EXPECT_RELATIVE(position(3), (19 / 3.0 - 0.3) / 7.4, single);
}

TEST_F(RanksTest, OfAGroupCarryItsQuantityAsWeight) {
    session.inputType = intv5;
    life({"60000x0x3", "-65000x0x2", "70000x0x2", "80000"});
    // N = 8: mean rank 2, r = 3; d = 6/4: mean 3 + 1.5*1.5 = 5.25, r = 6, c = 7; d = 3/2: 7.5.
    const auto y = [](double r) { return smallestextreme((r - 0.3) / 8.4); };
    const CheckLine line(
        {{std::log(60000), y(2), 3}, {std::log(70000), y(5.25), 2}, {std::log(80000), y(7.5), 1}}, true);
    EXPECT_RELATIVE(fit().beta, line.slope, 1e-12);
    EXPECT_RELATIVE(fit().eta, std::exp(line.crossing), 1e-12);
    EXPECT_RELATIVE(fit().r, line.r, 1e-7);
}

// ---- grouped rows ----

/// Remission times of 21 patients: Freireich et al., Blood 21 (1963) 699. Failures x0xQ, suspensions the Z.
const std::vector<std::string> remissions = {
    "6x0x3x1",  "7x0x1",    "9x0x0x1", "10x0x1x1", "11x0x0x1", "13x0x1",   "16x0x1",   "17x0x0x1",
    "19x0x0x1", "20x0x0x1", "22x0x1",  "23x0x1",   "25x0x0x1", "32x0x0x2", "34x0x0x1", "35x0x0x1"};

TEST_F(RanksTest, OfKaplanMeierRowsFollowTheProductLimit) {
    session.inputType = km4;
    life(remissions);
    // At risk 21, 17, 15, 12, 11, 7, 6.
    const double s6 = 18 / 21.0, s7 = s6 * 16 / 17, s10 = s7 * 14 / 15, s13 = s10 * 11 / 12,
                 s16 = s13 * 10 / 11, s22 = s16 * 6 / 7, s23 = s22 * 5 / 6;
    const std::pair<int, double> survival[] = {{1, s6},  {2, s7},   {4, s10}, {6, s13},
                                               {7, s16}, {11, s22}, {12, s23}};
    for (const auto& [row, s] : survival) EXPECT_RELATIVE(position(row), 1 - s, single) << "row " << row;
}

TEST_F(RanksTest, OfKaplanMeierRowsAgreeWithThePublishedEstimates) {
    session.inputType = km4;
    life(remissions);
    const std::pair<int, double> survival[] = {{1, .857}, {2, .807},  {4, .753}, {6, .690},
                                               {7, .627}, {11, .538}, {12, .448}};
    for (const auto& [row, s] : survival) EXPECT_NEAR(1 - position(row), s, 0.0005) << "row " << row;
}

TEST_F(RanksTest, OfAKaplanMeierRowOfSuspensionsAloneRepeatTheRowBefore) {
    session.inputType = km4;
    life(remissions);
    EXPECT_EQ(position(3), position(2));
    EXPECT_EQ(session.sums.n, 7); // failure rows alone are points
}

TEST_F(RanksTest, OfKaplanMeierRowsCountASuspensionAfterEveryFailureAtItsAge) {
    session.inputType = km4;
    // 5 at risk at 10, then 4: S = 4/5 * 3/4; 2 at risk at 20: S = 3/5 * 1/2.
    for (const Cells& cells :
         {Cells{"10x0x1x1", "10x0x1", "20x0x1x1"}, Cells{"10x0x1", "10x0x1x1", "20x0x1x1"},
          Cells{"-10x0x1", "10x0x1", "10x0x1", "20x0x1x1"}}) {
        life(cells);
        const int last = static_cast<int>(cells.size());
        EXPECT_RELATIVE(position(last - 1), 0.4, single);
        EXPECT_RELATIVE(position(last), 0.7, single);
    }
}

TEST_F(RanksTest, OfTheKaplanMeierRowThatLeavesNobodyTakeTheLastUnitRule) {
    session.inputType = km4;
    life({"10x0x1", "20x0x2", "30x0x1"});
    EXPECT_EQ(position(1), 0.25);
    EXPECT_EQ(position(2), 0.75);
    EXPECT_RELATIVE(position(3), 0.975, single);
}

TEST_F(RanksTest, OfProbitRowsAreAffectedOverSample) {
    session.inputType = prbt2;
    life({"10x0x2x20", "20x0x8x20", "30x0x15x20"});
    EXPECT_RELATIVE(position(1), 0.1, single);
    EXPECT_RELATIVE(position(2), 0.4, single);
    EXPECT_RELATIVE(position(3), 0.75, single);
}

TEST_F(RanksTest, OfPercentageRowsAreThePercentage) {
    session.inputType = prbt3;
    life({"10x0x10x20", "20x0x40x20", "30x0x75x20"});
    EXPECT_RELATIVE(position(1), 0.1, single);
    EXPECT_RELATIVE(position(2), 0.4, single);
    EXPECT_RELATIVE(position(3), 0.75, single);
}

} // namespace
