#include "plot/strokes.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "support/allocations.h"
#include "support/freshsession.h"
#include "support/recordingdevice.h"
#include "support/reference.h"

namespace {

/// Extent, in steps from the anchor, of what a mark draws, and where its last step ends.
struct Extent {
    double left = 1e9, right = -1e9, top = 1e9, bottom = -1e9;
    double endX = 0, endY = 0;
};

/// Marks on a canvas of 700 by 450 pixels, where one step is one pixel, 15 canvas units, both ways.
class StrokeMarks : public testing::Test {
protected:
    static constexpr double anchorX = 3000, anchorY = 3000;

    void SetUp() override {
        session.plotspeed = -1;
        session.plotx1 = 11;
        session.ploty1 = 12;
        canvas(10500, 6750);
        session.plotx2 = anchorX;
        session.ploty2 = anchorY;
        session.setCounter = 4 * session.sg;
    }
    void TearDown() override { plotend(); }

    void canvas(double width, double height) {
        if (plotdevice()) plotend();
        device = RecordingDevice(width, height);
        ASSERT_TRUE(plotbegin(device));
    }

    const std::vector<MarkStep>& drawn(std::string_view strokes) {
        device.steps.clear();
        strokedraw(strokes);
        return device.steps;
    }

    /// Where the last step of a string ends, from the anchor.
    std::array<double, 2> way(std::string_view strokes) {
        const auto& steps = drawn(strokes);
        if (steps.empty()) return {NAN, NAN};
        return {steps.back().x - session.plotx2, steps.back().y - session.ploty2};
    }

    int colour(std::string_view strokes) {
        const auto& steps = drawn(strokes);
        return steps.empty() ? -1 : steps.back().colour;
    }

    Extent extent(float code) {
        device.steps.clear();
        strokemark(code);
        Extent found;
        for (const MarkStep& step : device.steps) {
            found.endX = (step.x - anchorX) / 15;
            found.endY = (step.y - anchorY) / 15;
            if (step.colour == 0) continue;
            found.left = std::min({found.left, found.endX, (step.fromX - anchorX) / 15});
            found.right = std::max({found.right, found.endX, (step.fromX - anchorX) / 15});
            found.top = std::min({found.top, found.endY, (step.fromY - anchorY) / 15});
            found.bottom = std::max({found.bottom, found.endY, (step.fromY - anchorY) / 15});
        }
        return found;
    }

    FreshSession fresh{lifeSide};
    RecordingDevice device{10500, 6750};
};

using Way = std::array<double, 2>;

constexpr std::array<std::pair<const char*, int>, 5> sizes = {
    {{"standard", 0}, {"standard", 1}, {"dot", 2}, {"medium", 3}, {"large", 4}}};

TEST(StrokeTable, EveryCodeHasItsStringAtEverySize) {
    const ReferenceTable table = reference("strokes.csv");
    ASSERT_EQ(table.rows.size(), 52u);
    for (std::size_t row = 0; row < table.rows.size(); ++row)
        for (const auto& [column, size] : sizes)
            EXPECT_EQ(strokestring(static_cast<float>(table.number(row, "code")), size),
                      table.text(row, column))
                << "code " << table.text(row, "code") << " size " << size;
}

TEST(StrokeTable, EveryStringIsARunOfCommandsEndedByASemicolon) {
    for (int code = 0; code <= 52; ++code)
        for (const int size : {0, 1, 2, 3, 4, 20}) {
            std::string_view rest = strokestring(static_cast<float>(code), size);
            ASSERT_LE(rest.size(), 240u) << code;
            while (rest != ";") {
                const std::size_t digits = std::min(rest.find_first_not_of("0123456789", 1), rest.size()) - 1;
                ASSERT_NE(std::string_view("cudlrefgh").find(rest[0]), std::string_view::npos)
                    << code << rest;
                ASSERT_TRUE(digits == (rest[0] == 'c' ? 2u : 1u)) << code << ' ' << rest;
                rest.remove_prefix(1 + digits);
                ASSERT_FALSE(rest.empty()) << code << " has no end at size " << size;
            }
        }
}

TEST(StrokeTable, CodeWithoutAMarkIsAStepWithThePenUp) {
    for (const float code : {-1.f, 45.f, 50.f, 52.f, 1000.f, 18.5f, -3e30f, 3e30f,
                             std::numeric_limits<float>::quiet_NaN(), std::numeric_limits<float>::infinity()})
        for (const int size : {0, 2, 3, 4}) EXPECT_EQ(strokestring(code, size), "c00u1;") << code;
}

TEST(StrokeTable, SizeTwentyIsOneFormFromCodeTwentyUp) {
    for (const float code : {20.f, 21.f, 44.f, 45.f, 51.f, 99.f})
        EXPECT_EQ(strokestring(code, 20), "c27e1c00l3d3r3u3e1c27l5d5r5u5;") << code;
    EXPECT_EQ(strokestring(19, 20), "c00l2c99e4r1g4f4l1h4;");
    EXPECT_EQ(strokestring(7, 20), "c00l4c11e4l4;");
}

TEST_F(StrokeMarks, EachLetterMovesItsWay) {
    EXPECT_EQ(way("c01u4;"), (Way{0, -60}));
    EXPECT_EQ(way("c01d4;"), (Way{0, 60}));
    EXPECT_EQ(way("c01l4;"), (Way{-60, 0}));
    EXPECT_EQ(way("c01r4;"), (Way{60, 0}));
    EXPECT_EQ(way("c01e4;"), (Way{60, -60}));
    EXPECT_EQ(way("c01f4;"), (Way{60, 60}));
    EXPECT_EQ(way("c01g4;"), (Way{-60, 60}));
    EXPECT_EQ(way("c01h4;"), (Way{-60, -60}));
}

TEST_F(StrokeMarks, CountHasOneOrTwoDigits) {
    EXPECT_EQ(way("r7;"), (Way{105, 0}));
    EXPECT_EQ(way("r12;"), (Way{180, 0}));
    EXPECT_EQ(way("r123d1;"), (Way{180, 15})) << "a third digit is passed over";
    EXPECT_EQ(way("77r1;"), (Way{15, 0})) << "digits without a letter are passed over";
    EXPECT_EQ(way("rd1;"), (Way{0, 15})) << "no digit is no way";
}

// At 12000 by 9000 a step is 120/7 = 17.14 units across and 20 down: 1.14 and 1.33 pixels before rounding.
TEST_F(StrokeMarks, StepsGrowWithTheCanvasAndAreWholePixels) {
    canvas(12000, 9000);
    EXPECT_EQ(way("r1;"), (Way{15, 0}));
    EXPECT_EQ(way("r2;"), (Way{30, 0}));
    EXPECT_EQ(way("r3;"), (Way{45, 0}));
    EXPECT_EQ(way("r4;"), (Way{75, 0}));
    EXPECT_EQ(way("d1;"), (Way{0, 15}));
    EXPECT_EQ(way("d2;"), (Way{0, 45}));
    EXPECT_EQ(way("d3;"), (Way{0, 60}));
    EXPECT_EQ(way("e4;"), (Way{75, -75}));
    canvas(21000, 6750);
    EXPECT_EQ(way("e3;"), (Way{90, -45})) << "a new canvas counts at once";
}

TEST_F(StrokeMarks, FixedStepsAreTheSameOnEveryCanvas) {
    session.markFixed = 1;
    for (const double width : {10500.0, 42000.0}) {
        canvas(width, 6750);
        EXPECT_EQ(way("r1;"), (Way{15, 0}));
        EXPECT_EQ(way("d2;"), (Way{0, 45}));
        EXPECT_EQ(way("g3;"), (Way{-60, 60}));
        EXPECT_EQ(way("l12;"), (Way{-240, 0}));
    }
}

TEST_F(StrokeMarks, EveryStepStartsOnAPixel) {
    session.plotx2 = 3007; // 200.47 pixels
    session.ploty2 = 3008; // 200.53
    const auto& steps = drawn("c05r1d2;");
    ASSERT_EQ(steps.size(), 2u);
    EXPECT_EQ(steps[0].fromX, 3000);
    EXPECT_EQ(steps[0].fromY, 3015);
    EXPECT_EQ(steps[0].x, 3015);
    EXPECT_EQ(steps[0].y, 3015);
    EXPECT_EQ(steps[1].fromX, 3015);
    EXPECT_EQ(steps[1].fromY, 3015);
    EXPECT_EQ(steps[1].y, 3045);
}

TEST_F(StrokeMarks, SemicolonEndsTheString) {
    EXPECT_EQ(drawn("r1;r1r1").size(), 1u);
    EXPECT_TRUE(drawn(";r1").empty());
    EXPECT_TRUE(drawn("").empty());
    EXPECT_EQ(drawn("r1").size(), 1u);
}

TEST_F(StrokeMarks, StringWithoutAnEndStopsAtTheTwoHundredFortiethCharacter) {
    std::string endless;
    for (int i = 0; i < 100; ++i) endless += "u1d1";
    EXPECT_EQ(drawn(endless).size(), 120u);
    EXPECT_EQ(drawn("7" + endless).size(), 120u) << "the letter at 240 still counts, its number behind it";
    EXPECT_EQ(drawn("c00" + endless).size(), 119u);
}

TEST_F(StrokeMarks, TheLimitCountsTheLargerNumbers) {
    std::string endless;
    for (int i = 0; i < 100; ++i) endless += "u9d9";
    session.marksteps = 2; // each command is three characters, "u18"
    EXPECT_EQ(drawn(endless).size(), 80u);
}

TEST_F(StrokeMarks, MarkstepsMultipliesEveryCountButNoPen) {
    session.marksteps = 3;
    const auto& steps = drawn("c00l2c07e4r12;");
    ASSERT_EQ(steps.size(), 3u);
    EXPECT_EQ(steps[0].x, anchorX - 6 * 15);
    EXPECT_EQ(steps[0].colour, 0);
    EXPECT_EQ(steps[1].x, anchorX + 6 * 15);
    EXPECT_EQ(steps[1].y, anchorY - 12 * 15);
    EXPECT_EQ(steps[1].colour, 7);
    EXPECT_EQ(steps[2].x, anchorX + 42 * 15);
}

TEST_F(StrokeMarks, MarkstepsOfOneOrLessChangesNothing) {
    for (const int steps : {1, 0, -4}) {
        session.marksteps = static_cast<int16_t>(steps);
        EXPECT_EQ(way("r5;"), (Way{75, 0})) << steps;
    }
}

// Four steps are 4.57 pixels across and 5.33 down; four rounded steps would be four pixels each.
TEST_F(StrokeMarks, MarkstepsMultipliesBeforeTheRounding) {
    canvas(12000, 9000);
    session.marksteps = 4;
    EXPECT_EQ(way("r1;"), (Way{75, 0}));
    EXPECT_EQ(way("d1;"), (Way{0, 75}));
}

TEST_F(StrokeMarks, BigMarkStaysCentred) {
    session.marksize = 1;
    for (const float code : {21.f, 23.f, 24.f, 31.f, 40.f, 43.f}) {
        session.marksteps = 1;
        const Extent one = extent(code);
        session.marksteps = 3;
        const Extent three = extent(code);
        EXPECT_EQ(three.left, 3 * one.left) << code;
        EXPECT_EQ(three.right, 3 * one.right) << code;
        EXPECT_EQ(three.top, 3 * one.top) << code;
        EXPECT_EQ(three.bottom, 3 * one.bottom) << code;
        EXPECT_EQ(three.left, -three.right) << code;
        EXPECT_EQ(three.top, -three.bottom) << code;
    }
}

TEST_F(StrokeMarks, StepThatEndsOffTheCanvasDrawsNothingButMoves) {
    session.plotx2 = 30;
    const auto& steps = drawn("c05l1l2r4;");
    ASSERT_EQ(steps.size(), 2u);
    EXPECT_EQ(steps[0].x, 15);
    EXPECT_EQ(steps[1].fromX, -15) << "the next step starts where the lost one ended";
    EXPECT_EQ(steps[1].x, 45);
}

TEST_F(StrokeMarks, EdgesBelongToTheCanvas) {
    session.plotx2 = 15;
    session.ploty2 = 15;
    EXPECT_EQ(drawn("h1;").size(), 1u);
    EXPECT_EQ(drawn("l2;").size(), 0u);
    EXPECT_EQ(drawn("u2;").size(), 0u);
    session.plotx2 = 10500 - 15;
    session.ploty2 = 6750 - 15;
    EXPECT_EQ(drawn("f1;").size(), 1u);
    EXPECT_EQ(drawn("r2;").size(), 0u);
    EXPECT_EQ(drawn("d2;").size(), 0u);
}

TEST_F(StrokeMarks, PenStartsUp) { EXPECT_EQ(colour("r1;"), 0); }

TEST_F(StrokeMarks, PenCommandIsUpSetOrPalette) {
    EXPECT_EQ(colour("c05c00r1;"), 0);
    EXPECT_EQ(colour("c05r1;"), 5);
    EXPECT_EQ(colour("c5r1;"), 5);
    EXPECT_EQ(colour("c28r1;"), 28);
    EXPECT_EQ(colour("c99r1;"), 4) << "row 12 of the life side is set 4";
    EXPECT_EQ(colour("c77r1;"), 28) << "held inside the palette";
}

TEST_F(StrokeMarks, SetColourIsTheSetCounterOverTheRowStride) {
    for (const Side side : {lifeSide, visualSide}) {
        chooseside(side);
        for (int set = 1; set <= 24; ++set) {
            session.setCounter = rowofset(static_cast<float>(set));
            EXPECT_EQ(colour("c99r1;"), set);
        }
    }
    session.setCounter = 0;
    EXPECT_EQ(colour("c99r1;"), 0);
}

TEST_F(StrokeMarks, GroupDisplayGivesTheColourWhenItHasOne) {
    session.groupColour[4] = 9;
    EXPECT_EQ(colour("c99r1;"), 4) << "not without the display";
    session.groupDisplay = 1;
    EXPECT_EQ(colour("c99r1;"), 9);
    EXPECT_EQ(colour("c06r1;"), 6) << "a palette pen is no set's";
    session.groupColour[4] = 0;
    EXPECT_EQ(colour("c99r1;"), 4);
    session.setCounter = 40 * session.sg;
    EXPECT_EQ(colour("c99r1;"), 28) << "no group beyond the last set";
}

TEST_F(StrokeMarks, HardCopyDropsTheSignOfThePen) {
    session.groupDisplay = 1;
    session.groupColour[4] = -9;
    for (const float output : {4.f, 5.f, 6.f}) {
        session.outdev = output;
        EXPECT_EQ(colour("c99r1;"), 9) << output;
    }
    session.outdev = screenDevice;
    EXPECT_EQ(colour("c99r1;"), 0) << "the screen has no such entry";
}

TEST_F(StrokeMarks, MonochromeHasOnePen) {
    session.colormode = 1;
    for (const float output : {1.f, 4.f, 6.f}) {
        session.outdev = output;
        EXPECT_EQ(colour("c99r1;"), 15);
        EXPECT_EQ(colour("c27r1;"), 15);
        EXPECT_EQ(colour("c15c00r1;"), 0);
    }
}

TEST_F(StrokeMarks, WidthClassFollowsTheSize) {
    for (const auto& [size, widthClass] : {std::pair{0, 1}, {1, 1}, {2, 1}, {3, 2}, {4, 3}, {20, 1}}) {
        session.marksize = static_cast<int16_t>(size);
        EXPECT_EQ(drawn("c01r1;").at(0).width, widthClass) << size;
    }
}

TEST_F(StrokeMarks, MarkLeavesTheRegistersAsTheyWere) {
    session.linewidth = 2;
    session.plotpen = -172;
    strokemark(24);
    EXPECT_EQ(session.plotx1, 11);
    EXPECT_EQ(session.ploty1, 12);
    EXPECT_EQ(session.plotx2, anchorX);
    EXPECT_EQ(session.ploty2, anchorY);
    EXPECT_EQ(session.plotpen, -172);
    EXPECT_EQ(session.linewidth, 2);
}

TEST_F(StrokeMarks, EveryMarkBeginsAndEndsOnce) {
    strokemark(24);
    strokemark(45);
    EXPECT_EQ(device.marksBegun, 2);
    EXPECT_EQ(device.marksEnded, 2);
    ASSERT_TRUE(device.lines.empty());
}

TEST_F(StrokeMarks, WithoutAPlotNothingIsDrawn) {
    plotend();
    strokemark(24);
    EXPECT_EQ(device.marksBegun, 0);
    EXPECT_TRUE(device.steps.empty());
}

TEST_F(StrokeMarks, MarkIsTheStringOfItsSize) {
    session.marksize = 3; // "c00l2c99e2f2g2h2;"
    strokemark(24);
    const std::vector<Way> expected = {{-30, 0}, {0, -30}, {30, 0}, {0, 30}, {-30, 0}};
    ASSERT_EQ(device.steps.size(), expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i) {
        EXPECT_EQ(device.steps[i].x, anchorX + expected[i][0]) << i;
        EXPECT_EQ(device.steps[i].y, anchorY + expected[i][1]) << i;
        EXPECT_EQ(device.steps[i].colour, i == 0 ? 0 : 4) << i;
    }
}

TEST_F(StrokeMarks, BlankOfADigitOnlyMovesFiveStepsLeft) {
    strokemark(blankMark);
    ASSERT_EQ(device.steps.size(), 1u);
    EXPECT_EQ(device.steps[0].colour, 0);
    EXPECT_EQ(device.steps[0].x, anchorX - 75);
    EXPECT_EQ(device.steps[0].y, anchorY);
    EXPECT_EQ(session.plotx2, anchorX);
}

TEST_F(StrokeMarks, DigitsStandInFourStepsLeftOfAndAboveTheAnchor) {
    for (int digit = 0; digit <= 9; ++digit) {
        const Extent box = extent(static_cast<float>(digit));
        EXPECT_EQ(box.left, -4) << digit;
        EXPECT_EQ(box.right, 0) << digit;
        EXPECT_EQ(box.top, -4) << digit;
        EXPECT_EQ(box.bottom, 0) << digit;
    }
}

// A few shapes stand a step beside the anchor, where their form has an odd number of steps; the large
// triangle of code 19 is the one that reaches further.
TEST_F(StrokeMarks, DataMarksStandAroundTheirPoint) {
    for (const auto& [size, offCentre] : {std::pair{1, 0.5}, {3, 1.0}, {4, 1.0}})
        for (int code = firstDataMark; code <= lastDataMark; ++code) {
            session.marksize = static_cast<int16_t>(size);
            const Extent box = extent(static_cast<float>(code));
            const double allowed = size == 4 && code == 19 ? 2.5 : offCentre;
            EXPECT_LE(std::abs(box.left + box.right) / 2, allowed) << code << " size " << size;
            EXPECT_LE(std::abs(box.top + box.bottom) / 2, allowed) << code << " size " << size;
            EXPECT_TRUE(box.left <= box.endX && box.endX <= box.right) << code << " size " << size;
            EXPECT_TRUE(box.top <= box.endY && box.endY <= box.bottom) << code << " size " << size;
        }
}

TEST_F(StrokeMarks, DotSizeHasFormsForTheFirstTwoMarksOnly) {
    session.marksize = 2;
    for (int code = firstDataMark; code <= lastDataMark; ++code) {
        device.steps.clear();
        strokemark(static_cast<float>(code));
        const bool any = std::any_of(device.steps.begin(), device.steps.end(),
                                     [](const MarkStep& step) { return step.colour != 0; });
        EXPECT_EQ(any, code <= 19) << code;
    }
}

TEST_F(StrokeMarks, OverlayMarkKeepsItsOwnColour) {
    for (const int size : {0, 3, 4, 20}) {
        session.marksize = static_cast<int16_t>(size);
        device.steps.clear();
        strokemark(20);
        for (const MarkStep& step : device.steps)
            EXPECT_TRUE(step.colour == 0 || step.colour == overlayColour) << size;
    }
}

TEST_F(StrokeMarks, DrawingAllocatesNothing) {
    device.steps.reserve(1000);
    session.marksteps = 3;
    const std::size_t before = allocationcount();
    for (int code = 0; code <= 51; ++code) strokemark(static_cast<float>(code));
    EXPECT_EQ(allocationcount(), before);
    EXPECT_FALSE(device.steps.empty());
}

} // namespace
