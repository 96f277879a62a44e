#include <cmath>

#include "plot/bars.h"
#include "plot/pie.h"
#include "plot/readout.h"
#include "plot/spaceplot.h"
#include "plot/window.h"
#include "plot/zoomwindow.h"
#include "support/visualfixture.h"

// Bars, pies and the view of space.

namespace {

class BarPlot : public VisualTest {
protected:
    const std::vector<Cells> two = {{"1x10", "2x-4", "4x6"}, {"1x5", "2x-3", "4x-2"}};

    static std::vector<PlotBar> barsof(PlotKind kind) {
        session.plotKind = kind;
        return plotbars();
    }
    /// Filled boxes of a colour inside the plot area, in order of drawing.
    static std::vector<LineOperation> boxes(const RecordingDevice& device, int colour) {
        std::vector<LineOperation> found;
        for (const LineOperation& one : device.lines)
            if (one.pen.style == LineStyle::filled && one.pen.colour == colour
                && one.x2 <= session.window.right)
                found.push_back(one);
        return found;
    }
};

TEST_F(BarPlot, StackedBarsGrowFromEachOtherAndNegativeOnesDownwards) {
    sets(two);
    const auto bars = barsof(barsStacked);
    const struct {
        int set;
        double x, from, to;
    } expected[] = {{1, 1, 0, 10},  {2, 1, 10, 15}, {1, 2, 0, -4},
                    {2, 2, -4, -7}, {1, 4, 0, 6},   {2, 4, 0, -2}};
    ASSERT_EQ(bars.size(), std::size(expected));
    for (std::size_t i = 0; i < bars.size(); ++i) {
        EXPECT_EQ(bars[i].set, expected[i].set);
        EXPECT_NEAR((bars[i].low + bars[i].high) / 2, expected[i].x, 1e-12);
        EXPECT_NEAR(bars[i].high - bars[i].low, 0.8, 1e-12) << "four fifths of the least distance";
        EXPECT_EQ(bars[i].from, expected[i].from);
        EXPECT_EQ(bars[i].to, expected[i].to);
    }
}

TEST_F(BarPlot, BarsSideBySideShareTheRoomOfTheirX) {
    sets(two);
    const auto bars = barsof(barsSideBySide);
    ASSERT_EQ(bars.size(), 6u);
    for (std::size_t i = 0; i < bars.size(); i += 2) {
        EXPECT_NEAR(bars[i].high, bars[i + 1].low, 1e-12);
        EXPECT_NEAR(bars[i + 1].high - bars[i].low, 0.8, 1e-12);
        EXPECT_EQ(bars[i].from, 0);
        EXPECT_EQ(bars[i + 1].from, 0);
    }
}

TEST_F(BarPlot, PointsOfASetAtOneXAreOneBarOfTheirSum) {
    sets({{"1x2", "3x5", "1x4"}});
    for (const PlotKind kind : {barsStacked, barsSideBySide, bars3D}) {
        const auto bars = barsof(kind);
        ASSERT_EQ(bars.size(), 2u);
        EXPECT_EQ(bars[0].to, 6);
        EXPECT_EQ(bars[0].point, 1);
        EXPECT_EQ(bars[1].to, 5);
    }
}

TEST_F(BarPlot, APointCountsAsOftenAsItsQuantitySays) {
    sets({{"1x5x3", "2x-2x4", "3x4", "3x1x2"}});
    for (const PlotKind kind : {barsStacked, barsSideBySide, bars3D}) {
        const auto bars = barsof(kind);
        ASSERT_EQ(bars.size(), 3u);
        EXPECT_EQ(bars[0].to, 15) << "three points of 5";
        EXPECT_EQ(bars[0].count, 1);
        EXPECT_EQ(bars[1].to, -8);
        EXPECT_EQ(bars[2].to, 6);
        EXPECT_EQ(bars[2].count, 2);
        drawn();
        EXPECT_GE(session.yAxisHigh, 15);
    }
}

TEST_F(BarPlot, AFarPointLeavesTheOthersApart) {
    sets({{"1x2", "2x3", "3x4", "5x1", "20000000x9"}});
    for (const PlotKind kind : {barsStacked, barsSideBySide, bars3D}) {
        const auto bars = barsof(kind);
        const double heights[] = {2, 3, 4, 1, 9};
        ASSERT_EQ(bars.size(), std::size(heights));
        for (std::size_t i = 0; i < bars.size(); ++i) EXPECT_EQ(bars[i].to, heights[i]);
        EXPECT_NEAR(bars[0].high - bars[0].low, 0.8, 1e-12);
    }
    sets({{"20241118x2", "20241122x3", "20241122x4"}});
    const auto days = barsof(barsStacked);
    ASSERT_EQ(days.size(), 2u) << "days written as numbers differ in their last digits";
    EXPECT_EQ(days[1].to, 7);
}

TEST_F(BarPlot, ZeroIsInTheWindowAndEveryBarHasRoom) {
    sets({{"10x50", "20x60", "30x55"}});
    for (const PlotKind kind : {barsStacked, barsSideBySide, bars3D}) {
        session.plotKind = kind;
        drawn();
        EXPECT_LE(session.yAxisLow, 0);
        EXPECT_GE(session.yAxisHigh, 60);
        EXPECT_LE(session.xAxisLow, 6);
        EXPECT_GE(session.xAxisHigh, 34);
    }
    sets({{"10x-50", "20x-60"}});
    drawn();
    EXPECT_GE(session.yAxisHigh, 0);
    EXPECT_LE(session.yAxisLow, -60);
}

TEST_F(BarPlot, BarsStandOnTheCanvasWhereTheAxesSay) {
    session.xyscale = 3; // has no part in it
    sets(two);
    session.plotKind = barsStacked;
    const RecordingDevice device = drawn();
    const auto drawnBars = boxes(device, 2);
    ASSERT_EQ(drawnBars.size(), 3u);
    const PlotWindow& w = session.window;
    const auto top = plotplace(w, (drawnBars[0].x1 + drawnBars[0].x2) / 2, drawnBars[0].y1);
    const auto bottom = plotplace(w, drawnBars[0].x1, drawnBars[0].y2);
    ASSERT_TRUE(top && bottom);
    EXPECT_NEAR(top->x, 1, 15 / w.xfactor);
    EXPECT_NEAR(top->y, 15, 15 / w.yfactor);
    EXPECT_NEAR(bottom->y, 10, 15 / w.yfactor);
    EXPECT_EQ(session.xyscale, 3) << "the axis pair is kept for the X-Y plot";
}

TEST_F(BarPlot, BarsThatTheWindowCutsAreCounted) {
    sets({{"1x10", "2x30", "3x40"}});
    session.plotKind = barsSideBySide;
    EXPECT_FALSE(shows(drawn(), "Y > "));
    session.yLimitHigh = 20;
    EXPECT_TRUE(shows(drawn(), "Y > 20 = 2"));
    sets({{"1x10", "2x-30", "3x-40"}});
    session.yLimitHigh = 0;
    session.yLimitLow = -20;
    EXPECT_TRUE(shows(drawn(), "Y < -20 = 2"));
}

TEST_F(BarPlot, BarsAreHeldByThePlotArea) {
    sets({{"1x10", "2x30", "3x40"}});
    session.xLimitLow = 1.8;
    session.xLimitHigh = 2.2;
    session.yLimitLow = 5;
    session.yLimitHigh = 20;
    for (const PlotKind kind : {barsStacked, barsSideBySide, bars3D}) {
        session.plotKind = kind;
        const RecordingDevice device = drawn();
        const PlotWindow& w = session.window;
        for (const LineOperation& line : device.lines) {
            if (line.pen.colour != 1 || line.x1 > w.right + 100) continue; // beside the plot: the legend
            for (const double x : {line.x1, line.x2}) EXPECT_TRUE(x >= w.left - 15 && x <= w.right + 15);
            for (const double y : {line.y1, line.y2}) EXPECT_TRUE(y >= w.top - 15 && y <= w.bottom + 15);
        }
    }
}

TEST_F(BarPlot, TheReadOutFindsTheEndOfABar) {
    sets(two);
    session.plotKind = barsStacked;
    drawn();
    const auto points = placedpoints(session.window);
    ASSERT_EQ(points.size(), 6u);
    const auto place = plotplace(session.window, points[3].x, points[3].y);
    ASSERT_TRUE(place);
    EXPECT_NEAR(place->x, 2, 0.01);
    EXPECT_NEAR(place->y, -7, 0.01);
    EXPECT_EQ(points[3].set, 2);
    EXPECT_EQ(points[3].point, 2);
}

TEST_F(BarPlot, TheReadOutTellsTheValueOfABarAndOfHowManyPointsItIs) {
    sets({{"1x2x3_pumps", "4x5", "4x-7"}, {"4x1.5"}});
    for (const PlotKind kind : {barsStacked, barsSideBySide, bars3D}) {
        session.plotKind = kind;
        drawn();
        const auto points = placedpoints(session.window);
        ASSERT_EQ(points.size(), 3u);
        const auto text = [&](std::size_t i) { return readouttext({9, 8}, points[i]); };
        EXPECT_EQ(text(0), "X = 9   Y = 8   Set 1 Point 1: X = 1   Y = 6 _pumps");
        EXPECT_EQ(text(1), "X = 9   Y = 8   Set 1: X = 4   Y = -2 (2 Point)");
        EXPECT_EQ(text(2), "X = 9   Y = 8   Set 2 Point 1: X = 4   Y = 1.5");
    }
}

TEST_F(BarPlot, OneInkTellsBarsApartByTheirHatch) {
    sets({{"1x10"}, {"1x10"}});
    session.plotKind = barsSideBySide;
    session.colormode = 1;
    const RecordingDevice device = drawn();
    std::size_t rows[2] = {};
    const auto bars = plotbars();
    for (const LineOperation& line : device.lines) {
        if (line.pen.style != LineStyle::filled || line.x1 > session.window.right) continue;
        const auto place = plotplace(session.window, (line.x1 + line.x2) / 2, line.y1);
        if (place) ++rows[place->x < bars[0].high ? 0 : 1];
    }
    EXPECT_GT(rows[0], 20u);
    EXPECT_GT(rows[1], 20u);
    EXPECT_NE(rows[0], rows[1]);
}

// ---- pies ----

class PiePlot : public BarPlot {};

TEST_F(PiePlot, SharesOfOneSetAreThoseOfItsPoints) {
    session.plotKind = pie2D;
    sets({{"1x30_pumps", "2x50", "3x20"}});
    const auto slices = pieslices();
    ASSERT_EQ(slices.size(), 3u);
    EXPECT_EQ(slices[0].name, "pumps");
    EXPECT_EQ(slices[1].name, "X = 2");
    EXPECT_NEAR(slices[0].share, 0.3, 1e-12);
    EXPECT_NEAR(slices[1].share, 0.5, 1e-12);
    EXPECT_NEAR(slices[2].share, 0.2, 1e-12);
    const RecordingDevice device = drawn();
    EXPECT_TRUE(shows(device, "pumps 30%"));
    EXPECT_TRUE(shows(device, "X = 2 50%"));
}

TEST_F(PiePlot, SharesOfSeveralSetsAreThoseOfTheirSums) {
    session.plotKind = pie3D;
    sets({{"1x1", "2x2"}, {"1x4", "2x5"}});
    const auto slices = pieslices();
    ASSERT_EQ(slices.size(), 2u);
    EXPECT_EQ(slices[0].name, "Set 1");
    EXPECT_NEAR(slices[0].share, 0.25, 1e-12);
    EXPECT_NEAR(slices[1].share, 0.75, 1e-12);
}

TEST_F(PiePlot, AValueThatIsNotAboveZeroIsToldAndLeftOut) {
    session.plotKind = pie2D;
    sets({{"1x3", "2x0", "3x-5", "4x1"}});
    desktop.messages.clear();
    const RecordingDevice device = drawn();
    ASSERT_EQ(desktop.messages.size(), 1u);
    EXPECT_NE(desktop.messages[0].find("Y-Value <= 0 ... 2 Point"), std::string::npos) << desktop.messages[0];
    ASSERT_EQ(pieslices().size(), 2u);
    EXPECT_NEAR(pieslices()[0].share, 0.75, 1e-12);
}

TEST_F(PiePlot, APointCountsAsOftenAsItsQuantitySays) {
    session.plotKind = pie2D;
    sets({{"1x5x3", "2x5"}});
    ASSERT_EQ(pieslices().size(), 2u);
    EXPECT_EQ(pieslices()[0].value, 15) << "three points of 5";
    EXPECT_NEAR(pieslices()[0].share, 0.75, 1e-12);
    sets({{"1x5x3", "2x1x5"}, {"1x60"}});
    EXPECT_EQ(pieslices()[0].value, 20);
    EXPECT_NEAR(pieslices()[1].share, 0.75, 1e-12);
}

TEST_F(PiePlot, ANegativeValueIsNotTakenOffItsSet) {
    session.plotKind = pie2D;
    sets({{"1x10", "2x-4", "3x0"}, {"1x30"}, {"1x-1", "2x-2"}});
    desktop.messages.clear();
    const RecordingDevice device = drawn();
    ASSERT_EQ(desktop.messages.size(), 1u);
    EXPECT_NE(desktop.messages[0].find("Y-Value <= 0 ... 4 Point, 1 Set Not On Plot"), std::string::npos)
        << desktop.messages[0];
    const auto slices = pieslices();
    ASSERT_EQ(slices.size(), 2u);
    EXPECT_EQ(slices[0].value, 10);
    EXPECT_NEAR(slices[0].share, 0.25, 1e-12);
    EXPECT_NEAR(slices[1].share, 0.75, 1e-12);
}

TEST_F(PiePlot, ThePictureSaysWhatWasLeftOut) {
    session.plotKind = pie2D;
    sets({{"1x10", "2x-4", "3x0"}, {"1x30"}, {"1x-1"}});
    for (const bool legend : {true, false}) {
        session.legendPlace = legend ? 1 : 0;
        const RecordingDevice device = drawn();
        EXPECT_TRUE(shows(device, "Y <= 0 = 3 Point"));
        EXPECT_TRUE(shows(device, "Y <= 0 = 1 Set"));
    }
    session.legendPlace = 1;
    Cells many(40, "1x1");
    many.push_back("2x-1");
    sets({many});
    EXPECT_TRUE(shows(drawn(400, 200), "Y <= 0 = 1 Point")) << "however long the legend";
    sets({{"1x10"}});
    EXPECT_FALSE(shows(drawn(), "Y <="));
}

TEST_F(PiePlot, NoShareIsRoundedToTheWholeOrToNothing) {
    session.plotKind = pie2D;
    const struct {
        const char *small, *rest, *share;
    } cases[] = {{"2x1", "X = 1 99.999%", "X = 2 .001%"},
                 {"2x50", "X = 1 99.95%", "X = 2 .05%"},
                 {"2x.0001", "X = 1 >99.9999%", "X = 2 1E-07%"},
                 {"2x1e-30", "X = 1 >99.9999%", "X = 2 1E-33%"}};
    for (const auto& one : cases) {
        sets({{"1x99999", one.small}});
        const RecordingDevice device = drawn();
        EXPECT_TRUE(shows(device, one.rest)) << one.rest;
        EXPECT_TRUE(shows(device, one.share)) << one.share;
        EXPECT_FALSE(shows(device, "100%"));
    }
    sets({{"1x7"}});
    EXPECT_TRUE(shows(drawn(), "X = 1 100%"));
}

TEST_F(PiePlot, TheSmallestOfManySlicesAreOneTogether) {
    session.plotKind = pie2D;
    Cells cells;
    for (int j = 1; j <= 30; ++j) cells.push_back(std::to_string(j) + "x" + std::to_string(j));
    sets({cells});
    const auto slices = pieslices();
    ASSERT_EQ(slices.size(), 24u);
    EXPECT_EQ(slices[0].name, "X = 8");
    EXPECT_EQ(slices.back().name, "Remaining (7)");
    EXPECT_EQ(slices.back().value, 28) << "1 to 7";
    Cells same(40, "1x1");
    sets({same});
    EXPECT_EQ(pieslices().size(), 24u) << "of equal ones the first stay";
    EXPECT_EQ(pieslices().back().value, 17);
}

TEST_F(PiePlot, SlicesCoverTheDiscInProportion) {
    session.plotKind = pie2D;
    sets({{"1x1", "2x2", "3x5"}});
    const RecordingDevice device = drawn();
    double area[4] = {};
    for (int colour = 1; colour <= 3; ++colour)
        for (const LineOperation& row : boxes(device, colour))
            area[colour] += (row.x2 - row.x1 + 15) * (row.y2 - row.y1 + 15);
    const double whole = area[1] + area[2] + area[3];
    EXPECT_NEAR(area[1] / whole, 0.125, 0.005);
    EXPECT_NEAR(area[2] / whole, 0.25, 0.005);
    EXPECT_NEAR(area[3] / whole, 0.625, 0.005);
}

TEST_F(PiePlot, HasNoPlaceToReadOrZoom) {
    sets({{"1x1", "2x2", "3x5"}});
    for (const PlotKind kind : {pie2D, pie3D, spacePlot}) {
        session.plotKind = kind;
        drawn();
        const PlotWindow& w = session.window;
        EXPECT_TRUE(placedpoints(w).empty());
        EXPECT_FALSE(plotplace(w, (w.left + w.right) / 2, (w.top + w.bottom) / 2));
        EXPECT_FALSE(zoomplot(w, (w.left + w.right) / 2, (w.top + w.bottom) / 2, 2));
        EXPECT_FALSE(moveplot(w, 0.5, 0));
        EXPECT_FALSE(pressbutton(w, 1, 2));
        EXPECT_EQ(session.xLimitLow, 0);
    }
}

// ---- space ----

class SpacePlot : public VisualTest {
protected:
    SpacePlot() { session.plotKind = spacePlot; }
    const Cells corners = {"0x0x1x0", "10x0x1x0", "0x10x1x0", "0x0x1x10", "10x10x1x10"};

    /// Where the drop line of each point ends, in order of drawing.
    static std::vector<LineOperation> drops(const RecordingDevice& device) {
        std::vector<LineOperation> found;
        for (const LineOperation& line : device.lines)
            if (line.pen.style == LineStyle::dashed) found.push_back(line);
        return found;
    }
};

TEST_F(SpacePlot, SeenFromTheFrontXRunsAcrossAndZUp) {
    session.viewTurn = session.viewTilt = 0;
    sets({corners});
    const RecordingDevice device = drawn();
    const auto lines = drops(device);
    double left = 1e300, right = -1e300, top = 1e300, bottom = -1e300;
    for (const LineOperation& line : lines) {
        left = std::min(left, line.x2);
        right = std::max(right, line.x2);
        top = std::min(top, line.y2);
        bottom = std::max(bottom, line.y2);
        EXPECT_NEAR(line.x1, line.x2, 1e-6) << "dropped straight down";
    }
    EXPECT_GT(right - left, 3000);
    EXPECT_GT(bottom - top, 3000);
    for (const LineOperation& line : lines) {
        EXPECT_TRUE(std::fabs(line.x2 - left) < 1 || std::fabs(line.x2 - right) < 1);
        EXPECT_NEAR(line.y1, bottom, 1) << "on the floor";
    }
}

TEST_F(SpacePlot, FarPointsAreDrawnBeforeNearOnes) {
    session.viewTurn = 0;
    sets({{"5x0x1x5"}, {"5x10x1x5"}});
    const RecordingDevice device = drawn();
    std::vector<int> colours;
    for (const MarkStep& step : device.steps)
        if (step.colour == 1 || step.colour == 2)
            if (colours.empty() || colours.back() != step.colour) colours.push_back(step.colour);
    ASSERT_GE(colours.size(), 2u);
    EXPECT_EQ(colours[0], 2) << "a higher Y is farther away";
    EXPECT_EQ(colours[1], 1);
}

TEST_F(SpacePlot, LimitsOfZLeaveOutWhatLiesBeyond) {
    sets({{"1x1x1x1", "2x2x1x20", "3x3x1x300"}});
    const auto marks = [] { return drawn().marksBegun - 1; }; // without the legend's
    EXPECT_EQ(marks(), 3);
    session.zLimitHigh = 50;
    EXPECT_EQ(marks(), 2);
    session.zLimitHigh = 0;
    session.rangeLimit = 100;
    EXPECT_EQ(marks(), 2);
    session.zLimitLow = 10;
    EXPECT_EQ(marks(), 1);
}

TEST_F(SpacePlot, ALimitOfZBeyondTheDataHolds) {
    sets({{"100x100x1x10", "200x200x1x20", "300x300x1x30"}});
    const auto marks = [] { return drawn().marksBegun - 1; };
    session.zLimitHigh = 5;
    EXPECT_EQ(marks(), 0);
    EXPECT_TRUE(shows(drawn(), "4.95")) << "the free end is a hundredth away";
    session.zLimitHigh = 10;
    EXPECT_EQ(marks(), 1);
    EXPECT_TRUE(shows(drawn(), "9.9"));
    session.zLimitHigh = 0;
    session.zLimitLow = 500;
    EXPECT_EQ(marks(), 0);
    EXPECT_TRUE(shows(drawn(), "505"));
    session.zLimitLow = 15;
    session.zLimitHigh = 5;
    EXPECT_EQ(marks(), 1) << "limits the wrong way round";
    sets({{"100x100", "300x300"}});
    session.zLimitLow = 0;
    session.zLimitHigh = .5;
    EXPECT_TRUE(shows(drawn(), ".5")) << "Z of 0 alone";
}

TEST_F(SpacePlot, PointsWithoutAZAreToldOnceASet) {
    sets({{"1x1x1x1", "2x2x1x3.3E+33", "30x30x1x-3.3E+33"}, {"3x3x1x2"}, {"3x3x1x2", "4x4x1x2.9E+29"}});
    desktop.messages.clear();
    const RecordingDevice device = drawn();
    ASSERT_EQ(desktop.messages.size(), 2u);
    EXPECT_NE(desktop.messages[0].find("Set 1: Z-Value ... 2 Point Not On Plot"), std::string::npos)
        << desktop.messages[0];
    EXPECT_NE(desktop.messages[1].find("Set 3: Z-Value ... Point 2 Not On Plot"), std::string::npos)
        << desktop.messages[1];
    EXPECT_EQ(device.marksBegun, 3 + 3) << "three points and the legend";
    EXPECT_LE(session.xhighd, 3) << "they have no part in the window";
    session.plotKind = xyPlot;
    desktop.messages.clear();
    drawn();
    EXPECT_TRUE(desktop.messages.empty()) << "an X-Y plot needs no Z";
}

TEST_F(SpacePlot, AxesCarryTheirNamesAndTicks) {
    sets({corners});
    const RecordingDevice device = drawn();
    for (const char* text : {"X", "Y", "Z", "10", "5"}) EXPECT_TRUE(shows(device, text)) << text;
    EXPECT_TRUE(haszvalues());
    sets({{"1x2", "3x4"}});
    EXPECT_FALSE(haszvalues());
}

} // namespace
