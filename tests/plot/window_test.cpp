#include "plot/window.h"

#include "plot/axes.h"
#include "plot/plotprob.h"
#include "support/lifefixture.h"

namespace {

using PlotWindowTest = LifeTest;

/// The same on the visual side.
class XyWindowTest : public LifeTest {
protected:
    XyWindowTest() {
        chooseside(visualSide);
        EXPECT_TRUE(allocatearrays());
    }
};

TEST_F(PlotWindowTest, OneDistinctXIsWidenedByAHundredth) {
    life({"150", "150", "150"});
    xyanalyzw();
    EXPECT_DOUBLE_EQ(session.xlowd, 150);
    EXPECT_DOUBLE_EQ(session.xhighd, 1.01 * 150);
}

TEST_F(XyWindowTest, ANegativeSingleXIsWidenedUpwards) {
    sets({{"-20x5"}});
    xyanalyzw();
    EXPECT_DOUBLE_EQ(session.xlowd, -20);
    EXPECT_DOUBLE_EQ(session.xhighd, 0.99 * -20);
    EXPECT_GT(session.xhighd, session.xlowd);
}

TEST_F(XyWindowTest, ASingleXOfZeroStillHasAWidth) {
    sets({{"0x5"}});
    xyanalyzw();
    EXPECT_EQ(session.xlowd, 0);
    EXPECT_GT(session.xhighd, 0);
}

TEST_F(PlotWindowTest, TheWindowIsThatOfTheShownPoints) {
    sets({{"10", "20", "-90"}, {"1", "500", "700"}});
    xyanalyzw();
    EXPECT_DOUBLE_EQ(session.xlowd, 1);
    EXPECT_DOUBLE_EQ(session.xhighd, 700);
    session.lineHide(2) = 1;
    xyanalyzw();
    EXPECT_DOUBLE_EQ(session.xlowd, 10);
    EXPECT_DOUBLE_EQ(session.xhighd, 90) << "a suspension is shown where it stands";
}

TEST_F(PlotWindowTest, AManualLimitPinsItsEndAlone) {
    life({"10", "20", "90"});
    session.xLimitHigh = 137;
    xyanalyzw();
    EXPECT_DOUBLE_EQ(session.xlowd, 10);
    EXPECT_DOUBLE_EQ(session.xhighd, 137);
    EXPECT_DOUBLE_EQ(session.xAxisHigh, 137);
    EXPECT_EQ(session.manualScale, 1);
    LOCKZOOMOUT();
    xyanalyzw();
    EXPECT_DOUBLE_EQ(session.xhighd, 90);
    EXPECT_EQ(session.manualScale, 0);
}

TEST_F(PlotWindowTest, ALimitBeyondTheDataStandsAndTheFreeEndMoves) {
    life({"10", "20", "90"});
    session.xLimitHigh = 5;
    xyanalyzw();
    EXPECT_DOUBLE_EQ(session.xhighd, 5);
    EXPECT_LT(session.xlowd, 5);
    LOCKZOOMOUT();
    session.xLimitLow = 400;
    xyanalyzw();
    EXPECT_DOUBLE_EQ(session.xlowd, 400);
    EXPECT_GT(session.xhighd, 400);
}

TEST_F(PlotWindowTest, AnUpperLimitAtTheLowestPointHolds) {
    life({"100", "200", "300"});
    session.xLimitHigh = 100;
    xyanalyzw();
    EXPECT_DOUBLE_EQ(session.xhighd, 100);
    EXPECT_DOUBLE_EQ(session.xlowd, 99);
}

TEST_F(PlotWindowTest, ReversedLimitsAreTakenTheOtherWayRound) {
    life({"10", "20", "90"});
    session.xLimitLow = 200;
    session.xLimitHigh = 2;
    xyanalyzw();
    EXPECT_DOUBLE_EQ(session.xlowd, 2);
    EXPECT_DOUBLE_EQ(session.xhighd, 200);
}

TEST_F(PlotWindowTest, LimitsWithoutAPlaceOnTheAxisAreLeftOut) {
    life({"10", "20", "90"});
    for (const double limit : {std::nan(""), HUGE_VAL, -3.0}) {
        session.xLimitLow = session.yLimitLow = limit;
        xyanalyzw();
        EXPECT_DOUBLE_EQ(session.xlowd, 10) << limit;
        EXPECT_DOUBLE_EQ(session.ylowd, 0.10) << limit;
        EXPECT_EQ(session.manualScale, 0) << limit;
    }
}

TEST_F(PlotWindowTest, TheAxisHoldsTheWindow) {
    life({"13", "21", "87"});
    xyanalyzw();
    EXPECT_LE(session.xAxisLow, session.xlowd);
    EXPECT_GE(session.xAxisHigh, session.xhighd);
}

/// Top of the axis of a complete sample of n, whose highest Benard position is (n - 0.3)/(n + 0.4).
double topof(int n) {
    gridclear();
    for (int j = 1; j <= n; ++j) gridset(1, j, std::to_string(100 + j));
    calcplot();
    xyanalyzw();
    return session.yhighd;
}

TEST_F(PlotWindowTest, TheTopTickOfTheProbabilityAxisFollowsTheHighestPoint) {
    EXPECT_DOUBLE_EQ(topof(5), 0.90);      // 0.8704
    EXPECT_DOUBLE_EQ(topof(7), 0.95);      // 0.9054
    EXPECT_DOUBLE_EQ(topof(20), 0.99);     // 0.9657
    EXPECT_DOUBLE_EQ(topof(100), 0.999);   // 0.99303
    EXPECT_DOUBLE_EQ(topof(1000), 0.9999); // 0.999300
    session.Y(3, 1) = 0.99995f;
    xyanalyzw();
    EXPECT_DOUBLE_EQ(session.yhighd, 0.99999);
    session.Y(3, 1) = 0.999995f; // beyond the ladder the highest point is the top
    xyanalyzw();
    EXPECT_DOUBLE_EQ(session.yhighd, static_cast<double>(0.999995f));
}

TEST_F(PlotWindowTest, TheFootOfTheProbabilityAxisIsALadderTickBelowTheLowestPoint) {
    topof(21); // lowest position 0.0327
    EXPECT_DOUBLE_EQ(session.ylowd, 0.02);
    topof(3); // 0.206
    EXPECT_DOUBLE_EQ(session.ylowd, 0.10);
}

TEST_F(PlotWindowTest, AnEmptySessionHasAWindow) {
    sets({});
    xyanalyzw();
    EXPECT_LT(session.xlowd, session.xhighd);
    EXPECT_LT(session.ylowd, session.yhighd);
}

TEST_F(XyWindowTest, ValuesAtOrBelowZeroOnALogarithmicAxisAreToldAndLeftOut) {
    session.xyscale = 3;
    sets({{"-2x5", "10x0", "20x7", "30x9"}});
    desktop.messages.clear();
    xyanalyzw();
    ASSERT_EQ(desktop.messages.size(), 2u);
    EXPECT_EQ(desktop.messages[0], "Set 1: X-Value <= 0 ... Point 1 Not On Plot");
    EXPECT_EQ(desktop.messages[1], "Set 1: Y-Value <= 0 ... Point 2 Not On Plot");
    EXPECT_DOUBLE_EQ(session.xlowd, 20);
    EXPECT_EQ(session.plotStopped, 0);
}

TEST_F(XyWindowTest, ManyValuesAtOrBelowZeroAreToldOnce) {
    session.xyscale = 1;
    sets({{"-2x5", "-1x5", "0x5", "30x9"}});
    desktop.messages.clear();
    xyanalyzw();
    ASSERT_EQ(desktop.messages.size(), 1u);
    EXPECT_EQ(desktop.messages[0], "Set 1: X-Value <= 0 ... 3 Point Not On Plot");
}

TEST_F(PlotWindowTest, AZoomWithThePartialAffectedOptionRefusesThePlot) {
    life({"10", "20", "90"});
    session.batchActive = 1;
    session.xLimitHigh = 50;
    desktop.messages.clear();
    xyanalyzw();
    EXPECT_EQ(session.plotStopped, 1);
    ASSERT_EQ(desktop.messages.size(), 1u);
    EXPECT_EQ(desktop.messages[0], "Partial % Affected [BATCH] (Zoom) = Yes ... Cannot Plot");
}

TEST_F(PlotWindowTest, TheWindowIsKeptInWords) {
    life({"10", "20", "90"});
    session.yLimitLow = 0.01;
    session.yLimitHigh = 0.5;
    xyanalyzw();
    EXPECT_EQ(session.windowText, "X-Range=xlowd#=10 xhighd#=90 Y-Range=ylowd#=.01 yhighd#=.5");
}

TEST(HistogramBars, NumberByTheNaturalLogarithmOfTheCountAndAtLeastFive) {
    EXPECT_EQ(barnumber(0), 5);
    EXPECT_EQ(barnumber(1), 5);
    EXPECT_EQ(barnumber(3), 5);      // 1 + 3.3 ln 3 = 4.63
    EXPECT_EQ(barnumber(4), 5);      // 5.57
    EXPECT_EQ(barnumber(100), 16);   // 16.197
    EXPECT_EQ(barnumber(100.9), 16); // the whole part counts
    EXPECT_EQ(barnumber(1000), 23);  // 23.796
}

} // namespace
