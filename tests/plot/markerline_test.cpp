#include "plot/markerline.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "data/datafileopen.h"
#include "data/datafilesave.h"
#include "plot/plotprob.h"
#include "support/lifefixture.h"
#include "support/recordingdevice.h"

namespace {

class MarkerLines : public LifeTest {};

TEST_F(MarkerLines, ALineThroughTwoPointsPassesThem) {
    for (const Dist family : {weibull, lognormal, normal, gumbel})
        for (const int extreme : {-1, 1}) {
            choose(family, extreme);
            const FamilyLine line = linethrough(120, 0.1, 300, 0.75);
            ASSERT_GT(line.beta, 0) << family;
            EXPECT_NEAR(probabilityofx(line, 120).p, 0.1, 1e-12) << family << ' ' << extreme;
            EXPECT_NEAR(probabilityofx(line, 300).p, 0.75, 1e-12) << family << ' ' << extreme;
        }
}

TEST_F(MarkerLines, ALineOfAKnownSlopePassesItsPoint) {
    const FamilyLine line = linewithslope(100, 0.1, 2);
    EXPECT_EQ(line.beta, 2);
    // 0.1 = 1 - exp(-(100 / eta)^2)
    EXPECT_NEAR(line.eta, 100 / std::sqrt(-std::log(0.9)), 1e-10);
}

TEST_F(MarkerLines, PointsThatGiveNoLineAreRefused) {
    EXPECT_EQ(linethrough(100, 0.1, 100, 0.5).beta, 0);
    EXPECT_EQ(linethrough(100, 0.5, 200, 0.1).beta, 0) << "it falls";
    EXPECT_EQ(linethrough(-5, 0.1, 200, 0.5).beta, 0);
    EXPECT_EQ(linethrough(100, 0, 200, 0.5).beta, 0);
    EXPECT_EQ(linewithslope(100, 1, 2).beta, 0);
    EXPECT_EQ(linewithslope(100, 0.5, -2).beta, 0);
    EXPECT_EQ(markeradd(-1, 2, ""), 0);
    EXPECT_EQ(markeradd(100, NAN, ""), 0);
}

TEST_F(MarkerLines, TheyAreKeptUntilTheRoomIsFull) {
    int kept = 0;
    while (markeradd(100 + kept, 2, "m" + std::to_string(kept)) != 0 && kept < 100) ++kept;
    EXPECT_GE(kept, 5);
    EXPECT_LT(kept, 100);
    ASSERT_EQ(markerlines().size(), static_cast<std::size_t>(kept));
    markerdelete(markerlines()[1].line);
    EXPECT_EQ(markerlines().size(), static_cast<std::size_t>(kept - 1));
    EXPECT_NE(markeradd(7, 3, "again"), 0);
    markerclear();
    EXPECT_TRUE(markerlines().empty());
}

TEST_F(MarkerLines, ARunLeavesThemAndTheyAreDrawnWithTheirLabel) {
    markeradd(300, 1.5, "Requirement");
    life({"150", "230", "310", "420"});
    ASSERT_EQ(markerlines().size(), 1u);
    RecordingDevice device(12000, 9000);
    ASSERT_TRUE(plotentry(device));
    const auto labelled = [](const RecordingDevice& drawn) {
        return std::any_of(drawn.texts.begin(), drawn.texts.end(),
                           [](const auto& text) { return text.text == "Requirement"; });
    };
    EXPECT_TRUE(labelled(device));
    choose(lognormal);
    calcplot();
    RecordingDevice other(12000, 9000);
    ASSERT_TRUE(plotentry(other));
    EXPECT_FALSE(labelled(other)) << "its parameters mean nothing there";
}

TEST_F(MarkerLines, ADataFileKeepsThem) {
    choosemethod(2);
    markeradd(300, 1.5, "Requirement");
    life({"150", "230", "310", "420"});
    const std::string text = datafiletext();
    markerclear();
    ASSERT_EQ(datafiletake(text, "", [](std::size_t) { return true; }), FileRead::read);
    ASSERT_EQ(markerlines().size(), 1u);
    EXPECT_EQ(markerlines()[0].parameters.eta, 300);
    EXPECT_EQ(markerlines()[0].parameters.beta, 1.5);
    EXPECT_EQ(markerlines()[0].label, "Requirement");
}

} // namespace
