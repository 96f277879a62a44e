#include "plot/segment.h"

#include <gtest/gtest.h>

#include <random>

#include "plot/drawing.h"
#include "support/freshsession.h"
#include "support/recordingdevice.h"

namespace {

constexpr ClipWindow window{100, 200, 500, 400};

struct Segment {
    double x1, y1, x2, y2;
};

bool clip(Segment& s) { return plotclip(window, s.x1, s.y1, s.x2, s.y2); }

TEST(PlotClip, ASegmentInsideStaysAsItIs) {
    Segment s{120, 210, 480, 390};
    EXPECT_TRUE(clip(s));
    EXPECT_EQ(s.x1, 120);
    EXPECT_EQ(s.y2, 390);
}

TEST(PlotClip, ASegmentThroughTheWindowIsCutAtBothEdges) {
    Segment s{0, 300, 600, 300};
    EXPECT_TRUE(clip(s));
    EXPECT_DOUBLE_EQ(s.x1, 100);
    EXPECT_DOUBLE_EQ(s.x2, 500);
    EXPECT_EQ(s.y1, 300);
}

TEST(PlotClip, ADiagonalIsCutWhereItCrossesTheEdges) {
    Segment s{0, 0, 600, 600}; // y = x meets the window at (200, 200) and (400, 400)
    EXPECT_TRUE(clip(s));
    EXPECT_DOUBLE_EQ(s.x1, 200);
    EXPECT_DOUBLE_EQ(s.y1, 200);
    EXPECT_DOUBLE_EQ(s.x2, 400);
    EXPECT_DOUBLE_EQ(s.y2, 400);
}

TEST(PlotClip, ASegmentOutsideIsDroppedEvenWhenItsBoxMeetsTheWindow) {
    Segment beside{0, 0, 600, 0};
    EXPECT_FALSE(clip(beside));
    Segment corner{80, 390, 110, 420}; // passes the lower left corner outside
    EXPECT_FALSE(clip(corner));
    EXPECT_EQ(corner.x1, 80);
}

TEST(PlotClip, AnInfiniteEndIsDropped) {
    Segment s{120, 210, 1e308 * 10, 300};
    EXPECT_FALSE(clip(s));
}

TEST(PlotClip, WhatRemainsLiesInTheWindowAndOnTheLine) {
    std::mt19937 random(7);
    std::uniform_real_distribution<double> anywhere(-300, 900);
    for (int i = 0; i < 10000; ++i) {
        const Segment whole{anywhere(random), anywhere(random), anywhere(random), anywhere(random)};
        Segment s = whole;
        if (!clip(s)) continue;
        constexpr double slack = 1e-9;
        for (const auto& [x, y] : {std::pair{s.x1, s.y1}, std::pair{s.x2, s.y2}}) {
            ASSERT_GE(x, window.left - slack);
            ASSERT_LE(x, window.right + slack);
            ASSERT_GE(y, window.top - slack);
            ASSERT_LE(y, window.bottom + slack);
            const double cross =
                (x - whole.x1) * (whole.y2 - whole.y1) - (y - whole.y1) * (whole.x2 - whole.x1);
            ASSERT_NEAR(cross, 0, 1e-6);
        }
    }
}

class PlotSegmentTest : public testing::Test {
protected:
    PlotSegmentTest() {
        session.plotspeed = -1; // no frame
        EXPECT_TRUE(plotbegin(device));
        session.window = {1000, 1000, 2000, 2000};
    }
    ~PlotSegmentTest() override { plotend(); }

    static void segment(double x1, double y1, double x2, double y2) {
        session.plotx1 = x1;
        session.ploty1 = y1;
        session.plotx2 = x2;
        session.ploty2 = y2;
        plotsegment();
    }

    FreshSession fresh{lifeSide};
    RecordingDevice device{12000, 9000};
};

TEST_F(PlotSegmentTest, InsideTheMarginASegmentIsDrawnAsItStands) {
    segment(995, 1500, 2010, 1500); // a hundredth of the window is 10
    ASSERT_EQ(device.lines.size(), 1u);
    EXPECT_EQ(device.lines[0].x1, 995);
    EXPECT_EQ(device.lines[0].x2, 2010);
}

TEST_F(PlotSegmentTest, BeyondTheMarginItIsCutToTheWindow) {
    segment(900, 1500, 2011, 1500);
    ASSERT_EQ(device.lines.size(), 1u);
    EXPECT_DOUBLE_EQ(device.lines[0].x1, 1000);
    EXPECT_DOUBLE_EQ(device.lines[0].x2, 2000);
}

TEST_F(PlotSegmentTest, OutsideItIsDroppedAndTheRegistersStay) {
    segment(0, 0, 500, 500);
    EXPECT_TRUE(device.lines.empty());
    EXPECT_EQ(session.plotx1, 0);
    EXPECT_EQ(session.plotx2, 500);
}

TEST_F(PlotSegmentTest, ATracedLineGoesOnFromThePenUntilItIsCut) {
    tracestart(1100, 1100);
    traceto(1200, 1200); // starts
    traceto(1300, 1100); // goes on
    traceto(2500, 1100); // cut at the edge: the pen stands there
    traceto(2500, 1500); // outside
    traceto(1500, 1500); // comes back in: starts anew
    traceto(1400, 1400); // goes on
    traceend();
    ASSERT_EQ(device.lines.size(), 5u);
    const bool continues[] = {false, true, true, false, true};
    for (std::size_t i = 0; i < 5; ++i) EXPECT_EQ(device.lines[i].continues, continues[i]) << i;
    EXPECT_DOUBLE_EQ(device.lines[2].x2, 2000);
    EXPECT_DOUBLE_EQ(device.lines[3].x1, 2000);
}

} // namespace
