// The bound curves on a plot.

#include <gtest/gtest.h>

#include <algorithm>

#include "plot/plotprob.h"
#include "plot/strokes.h"
#include "support/lifefixture.h"
#include "support/recordingdevice.h"

namespace {

class BoundCurves : public LifeTest {
protected:
    BoundCurves() {
        session.confLow = 5;
        session.confHigh = 95;
        session.confMethod = fisherBounds;
    }
    static RecordingDevice drawn() {
        RecordingDevice device(18000, 13500);
        EXPECT_TRUE(plotentry(device));
        return device;
    }
    /// Dashed strokes in the colour of set 1.
    static std::vector<LineOperation> dashes(const RecordingDevice& device) {
        std::vector<LineOperation> found;
        for (const LineOperation& line : device.lines)
            if (line.pen.style == LineStyle::dashed && line.pen.colour == colourofset(1))
                found.push_back(line);
        return found;
    }
};

TEST_F(BoundCurves, StandDashedBesideTheLineWithinTheWindow) {
    life({"12", "31", "-40", "55", "70", "-80", "95", "120"});
    const RecordingDevice device = drawn();
    const auto strokes = dashes(device);
    EXPECT_GT(strokes.size(), 10u);
    const PlotWindow& w = session.windowSaved;
    const double margin = (w.right - w.left) / 100 + 15;
    for (const LineOperation& stroke : strokes) {
        EXPECT_GE(stroke.x2, w.left - margin);
        EXPECT_LE(stroke.x2, w.right + margin);
        EXPECT_GE(stroke.y2, w.top - margin);
        EXPECT_LE(stroke.y2, w.bottom + margin);
    }
    const auto says = [&](std::string_view text) {
        return std::any_of(device.texts.begin(), device.texts.end(),
                           [&](const auto& t) { return t.text == text; });
    };
    EXPECT_TRUE(says("c%=90"));
    EXPECT_TRUE(says("fm"));
}

TEST_F(BoundCurves, AreNotDrawnWhereThereAreNone) {
    session.confMethod = noBounds;
    life({"12", "31", "-40", "55", "70", "-80", "95", "120"});
    EXPECT_TRUE(dashes(drawn()).empty());
}

TEST_F(BoundCurves, StandWhereTheValuesLessTheThresholdStand) {
    life({"12", "31", "-40", "55", "70", "-80", "95", "120"});
    const auto plain = dashes(drawn());
    session.t0(1) = 512;
    life({"524", "543", "-552", "567", "582", "-592", "607", "632"});
    const auto shifted = dashes(drawn());
    ASSERT_EQ(plain.size(), shifted.size());
    for (std::size_t i = 0; i < plain.size(); ++i) {
        EXPECT_NEAR(plain[i].x2, shifted[i].x2, 15); // one pixel
        EXPECT_NEAR(plain[i].y2, shifted[i].y2, 15);
    }
}

} // namespace
