#include <algorithm>

#include "plot/numbermask.h"
#include "plot/pens.h"
#include "plot/plotprob.h"
#include "support/lifefixture.h"
#include "support/recordingdevice.h"

/// What the user chooses of the axes, the lines and the labels of a plot.

namespace {

class AxisChoices : public LifeTest {
protected:
    static RecordingDevice drawn(int across = 1200, int down = 900) {
        RecordingDevice device(15.0 * across, 15.0 * down);
        EXPECT_TRUE(plotentry(device));
        return device;
    }
    static bool shows(const RecordingDevice& device, std::string_view text) {
        return std::any_of(device.texts.begin(), device.texts.end(),
                           [&](const auto& t) { return t.text == text; });
    }
    void trend(const Cells& cells) {
        chooseside(visualSide);
        ASSERT_TRUE(allocatearrays());
        life(cells);
    }
};

TEST_F(AxisChoices, LabelsWithAPowerOfTenWhereTheUserWantsThem) {
    EXPECT_EQ(axislabel(250, 4), "250");
    session.scientificScale = 1;
    EXPECT_EQ(axislabel(250, 4), "2.5E+02");
    EXPECT_EQ(axislabel(0, 4), "0");
}

TEST_F(AxisChoices, ValuesOfEitherAxisCanBeHidden) {
    trend({"0x10", "100x40"});
    EXPECT_TRUE(shows(drawn(), "20"));
    session.xValuesShown = session.yValuesShown = 0;
    const RecordingDevice bare = drawn();
    for (const char* label : {"0", "20", "40", "100"}) EXPECT_FALSE(shows(bare, label)) << label;
    life({"150", "230", "310"});
    session.xValuesShown = session.yValuesShown = 1;
}

TEST_F(AxisChoices, EqualScalesGiveAUnitTheSameLengthBothWays) {
    session.equalScales = 1;
    trend({"0x0", "100x10", "50x30"});
    for (const auto& [across, down] : {std::pair{1200, 900}, {500, 900}}) {
        drawn(across, down);
        EXPECT_DOUBLE_EQ(session.window.xfactor, session.window.yfactor);
        EXPECT_GT(session.window.right, session.window.left);
        EXPECT_GT(session.window.bottom, session.window.top);
    }
    session.xyscale = 3;
    drawn();
    EXPECT_NE(session.window.xfactor, session.window.yfactor) << "a logarithm has no unit";
}

TEST_F(AxisChoices, ATruncatedLineEndsWithThePointsOfItsSet) {
    const auto lowestofline = [](const RecordingDevice& device) {
        double lowest = 0;
        for (const auto& line : device.lines)
            if (line.pen.colour == 1 && line.width == 2) lowest = std::max({lowest, line.y1, line.y2});
        return lowest;
    };
    session.linewidth = 1;
    life({"150", "230", "310", "420"});
    const double whole = lowestofline(drawn());
    session.fitLineTruncated = 1;
    const double ended = lowestofline(drawn());
    EXPECT_LT(ended, whole) << "the canvas counts downwards";
    EXPECT_GT(ended, 0);
}

TEST_F(AxisChoices, ALabelWithoutRoomStandsOffWithALineToItsPoint) {
    Cells cells;
    for (int i = 0; i < 12; ++i)
        cells.push_back(std::to_string(1000 + i % 2) + "x" + std::to_string(50) + "_p" + std::to_string(i));
    cells.push_back("0x0");
    cells.push_back("2000x100");
    trend(cells);
    const auto labels = [](const RecordingDevice& device) {
        return std::count_if(device.texts.begin(), device.texts.end(),
                             [](const auto& t) { return t.text[0] == 'p' && t.text.size() <= 3; });
    };
    const RecordingDevice close = drawn();
    EXPECT_LT(labels(close), 12);
    session.labelPointers = 1;
    const RecordingDevice pointed = drawn();
    EXPECT_EQ(labels(pointed), 12);
    EXPECT_GE(pointed.lines.size(), close.lines.size() + static_cast<std::size_t>(12 - labels(close)));
}

TEST_F(AxisChoices, APlotterWithFewPensTakesThemInTurn) {
    session.penCount = 2;
    for (int colour = 1; colour <= 25; ++colour) {
        EXPECT_GE(plotterpen(colour), 1);
        EXPECT_LE(plotterpen(colour), 2);
    }
    session.penCount = 8;
    EXPECT_EQ(plotterpen(2), 5);
}

} // namespace
