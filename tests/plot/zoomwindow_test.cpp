#include "plot/zoomwindow.h"

#include <cmath>

#include "plot/plotfile.h"
#include "plot/plotprob.h"
#include "support/lifefixture.h"
#include "support/recordingdevice.h"

namespace {

TEST(AxisZoom, KeepsThePlaceUnderThePointer) {
    const AxisEnds near = zoomedaxis({0, 10}, 2, 2);
    EXPECT_DOUBLE_EQ(near.low, 1);
    EXPECT_DOUBLE_EQ(near.high, 6);
    EXPECT_DOUBLE_EQ((2 - near.low) / (near.high - near.low), 0.2);
}

TEST(AxisZoom, OutUndoesIn) {
    const AxisEnds back = zoomedaxis(zoomedaxis({-3, 4}, 1, 1.25), 1, 1 / 1.25);
    EXPECT_NEAR(back.low, -3, 1e-12);
    EXPECT_NEAR(back.high, 4, 1e-12);
}

TEST(AxisZoom, AFactorThatIsNoneChangesNothing) {
    for (const double factor : {0.0, -1.0, HUGE_VAL, std::nan("")})
        EXPECT_EQ(zoomedaxis({1, 2}, 1.5, factor), (AxisEnds{1, 2})) << factor;
    EXPECT_EQ(zoomedaxis({2, 2}, 2, 2), (AxisEnds{2, 2}));
}

TEST(AxisMove, GoesByPartsOfTheLength) {
    EXPECT_EQ(movedaxis({2, 6}, 0.25), (AxisEnds{3, 7}));
    EXPECT_EQ(movedaxis({2, 6}, -1), (AxisEnds{-2, 2}));
}

/// A plot of one set with the window it was drawn in.
class PlotZoom : public LifeTest {
protected:
    void plot(const Cells& cells) {
        life(cells);
        draw();
    }
    static void draw() {
        std::string picture;
        ASSERT_TRUE(plotsvg(picture, 800, 600));
    }
    static double midx() { return (session.window.left + session.window.right) / 2; }
    static double midy() { return (session.window.top + session.window.bottom) / 2; }
};

TEST_F(PlotZoom, ByTwoHalvesTheLogarithmicSpan) {
    plot({"10", "100", "1000"});
    const double span = std::log(session.xAxisHigh / session.xAxisLow);
    ASSERT_TRUE(zoomplot(session.window, midx(), midy(), 2));
    draw();
    EXPECT_NEAR(std::log(session.xAxisHigh / session.xAxisLow), span / 2, 1e-9);
    EXPECT_EQ(session.manualScale, 1);
}

TEST_F(PlotZoom, KeepsTheProbabilityUnderThePointer) {
    plot({"10", "100", "1000"});
    const PlotWindow before = session.window;
    const double down = before.top + 0.25 * (before.bottom - before.top);
    const double ploty = before.ylow + 0.75 * (before.yhigh - before.ylow);
    ASSERT_TRUE(zoomplot(before, midx(), down, 1.5));
    draw();
    const PlotWindow& after = session.window;
    EXPECT_NEAR(after.ylow + 0.75 * (after.yhigh - after.ylow), ploty, 1e-9);
    EXPECT_GT(session.yLimitLow, 0);
    EXPECT_LT(session.yLimitHigh, 1);
}

TEST_F(PlotZoom, EndsWhereTheDigitsOfTheDataEnd) {
    plot({"10", "100", "1000"});
    int steps = 0;
    while (steps < 200 && zoomplot(session.window, midx(), midy(), 2)) {
        draw();
        ++steps;
    }
    EXPECT_GT(steps, 10);
    EXPECT_LT(steps, 40);
    EXPECT_LT(session.xLimitLow, session.xLimitHigh);
}

TEST_F(PlotZoom, OutwardsEndsAtTheEdgeOfTheScale) {
    plot({"10", "100", "1000"});
    int steps = 0;
    while (steps < 200 && zoomplot(session.window, midx(), midy(), 0.5)) {
        draw();
        ++steps;
    }
    EXPECT_LT(steps, 20);
    EXPECT_GE(session.yLimitLow, 1e-12);
    EXPECT_LE(session.yLimitHigh, 1 - 1e-12);
}

TEST_F(PlotZoom, ARefusedStepLeavesTheLimits) {
    plot({"10", "100", "1000"});
    session.xLimitLow = 7;
    EXPECT_FALSE(moveplot(session.window, 0, 100));
    EXPECT_EQ(session.xLimitLow, 7);
    EXPECT_EQ(session.yLimitHigh, 0);
}

TEST_F(PlotZoom, AMoveKeepsTheLengthOfTheAxes) {
    choose(normal);
    plot({"10", "20", "30"});
    const double span = session.xAxisHigh - session.xAxisLow;
    const double low = session.xAxisLow;
    ASSERT_TRUE(moveplot(session.window, 0.1, 0));
    draw();
    EXPECT_NEAR(session.xAxisLow, low + span / 10, 1e-9 * span);
    EXPECT_NEAR(session.xAxisHigh - session.xAxisLow, span, 1e-9 * span);
}

TEST_F(PlotZoom, ALimitAtZeroStaysALimit) {
    choose(normal);
    plot({"10", "20", "30"});
    PlotWindow window = session.window;
    window.xlow = 10;
    window.xhigh = 20;
    ASSERT_TRUE(moveplot(window, -1, 0));
    EXPECT_NE(session.xLimitLow, 0);
    EXPECT_NEAR(session.xLimitLow, 0, 1e-6);
}

TEST_F(PlotZoom, TheScaleButtonsStretchOneAxisAboutItsMiddle) {
    choose(normal);
    life({"10", "20", "30"});
    session.outdev = screenDevice;
    RecordingDevice screen(12000, 9000);
    ASSERT_TRUE(plotentry(screen));
    const PlotWindow w = session.windowSaved;
    for (int i = 0; i < 4; ++i) {
        const PlotButton& button = w.buttons[static_cast<std::size_t>(i)];
        EXPECT_EQ(buttonat(w, (button.left + button.right) / 2, (button.top + button.bottom) / 2), i);
    }
    EXPECT_EQ(buttonat(w, (w.left + w.right) / 2, (w.top + w.bottom) / 2), -1);
    constexpr int largerX = 3, smallerY = 0;
    const double span = session.xAxisHigh - session.xAxisLow;
    ASSERT_TRUE(pressbutton(w, largerX, 2));
    EXPECT_NEAR(session.xLimitHigh - session.xLimitLow, span / 2, 1e-9 * span);
    ASSERT_TRUE(pressbutton(w, smallerY, 1.25));
    EXPECT_LT(session.yLimitLow, session.yAxisLow);
    EXPECT_FALSE(pressbutton(w, 4, 2));
    EXPECT_FALSE(pressbutton(w, -1, 2));
}

TEST_F(PlotZoom, APlotOnPaperHasNoButtons) {
    plot({"10", "100", "1000"});
    EXPECT_EQ(buttonat(session.window, 1, 1), -1);
}

} // namespace
