// Files written by hand from the format: docs/files.md.

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

#include "support/filefixture.h"
#include "support/scriptedplatform.h"

namespace {

std::string golden(const std::string& name) {
    std::ifstream in(std::string(VANEX_TESTS_DIR) + "/golden/" + name, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

TEST(GoldenFile, ALifeSessionIsReadAndWrittenByteForByte) {
    ScriptedPlatform desktop; // no check value differs, so nothing is told
    FreshSession life(lifeSide);
    const std::string text = golden("pumps.w");
    ASSERT_EQ(readfiletext(text), FileRead::read);
    EXPECT_EQ(session.gridCells[0], (std::vector<std::string>{"150", "-200_S 1", "310.5x0x2"}));
    EXPECT_EQ(session.gridCells[1], std::vector<std::string>{"75"});
    EXPECT_EQ(session.gridTitles, std::vector<std::string>{"Pump"});
    EXPECT_EQ(session.setRange(1)[1], 2);
    EXPECT_EQ(session.lineVisible(2), 0);
    EXPECT_EQ(session.curveType(1), "W");
    EXPECT_EQ(session.titleWanted, "Pump test");
    EXPECT_EQ(session.fitMethod, maximumLikelihood);
    EXPECT_EQ(session.confMethod, fisherBounds);
    EXPECT_EQ(session.confLow, 5);
    EXPECT_EQ(session.confHigh, 95);
    EXPECT_EQ(session.etaFit(3, 1), 250.5);
    EXPECT_EQ(session.paramA(2, 1), 251.25);
    EXPECT_EQ(session.correlationLabel(1), "r^2 .98");
    EXPECT_EQ(session.cccSquared(1), .75f);
    EXPECT_EQ(session.paramHigh(1, 2), 2.5);
    EXPECT_EQ(session.paramLow(2, 1), noAnswer);
    EXPECT_EQ(session.riskUsageRate, (std::vector<float>{1000, 1200.5f}));
    EXPECT_EQ(session.lineHide(2), 1);
    EXPECT_EQ(session.W2n(1), 2);
    EXPECT_EQ(session.W2X(1, 2), 2.5f);
    EXPECT_EQ(session.BARRXA(1, 1), 10);
    EXPECT_EQ(session.DUANEX(2), (std::vector<float>{10, 20}));
    EXPECT_EQ(session.programKept[76], "rates.txt");
    EXPECT_EQ(written(), text);
}

TEST(GoldenFile, AnXYFileOfAnEarlierVersionIsRead) {
    ScriptedPlatform desktop;
    FreshSession visual(visualSide);
    session.palette[3] = 77;
    ASSERT_EQ(readfiletext(golden("flow.v")), FileRead::read);
    EXPECT_EQ(session.gridCells[0], (std::vector<std::string>{"1.5x2.25", "3x-4.5_valve 7", "10x0"}));
    EXPECT_EQ(session.gridCells[1], std::vector<std::string>{".5x1"});
    EXPECT_EQ(session.gridTitles, (std::vector<std::string>{"Flow", "Head loss"}));
    EXPECT_EQ(session.setRange(1)[0], 1.5);
    EXPECT_EQ(session.xyscale, 3);
    EXPECT_EQ(session.xlowd, 1.25);
    EXPECT_EQ(session.ylowd, -5);
    EXPECT_EQ(session.xyLogFit, 1);
    EXPECT_EQ(session.legendPlace, 0);
    EXPECT_EQ(session.negativeXAllowed, 1);
    EXPECT_EQ(session.palette[1], 255);
    EXPECT_EQ(session.palette[2], 65280);
    EXPECT_EQ(session.palette[3], 77);
    EXPECT_EQ(session.BARRXA(2, 1), 8.5f);
    EXPECT_EQ(session.fileLevel, 2.5f);
}

TEST(GoldenFile, AShortFileOfAnEarlierVersionSetsTheOptionsThatItHas) {
    ScriptedPlatform desktop;
    FreshSession life(lifeSide);
    session.rankMethod = hazenRank;
    session.fixedSlope = 2;
    ASSERT_EQ(readfiletext(golden("short.w")), FileRead::read);
    EXPECT_EQ(session.gridCells[0], (std::vector<std::string>{"12.5", "-40x0x3"}));
    EXPECT_EQ(session.gridTitles, std::vector<std::string>{"Bearings"});
    EXPECT_EQ(session.dist, lognormal);
    EXPECT_EQ(session.fitMethodSaved, maximumLikelihood);
    EXPECT_EQ(session.confMethod, fisherBounds);
    EXPECT_EQ(session.rankMethod, benardRank); // so few options stand for all: the rest is as at the start
    EXPECT_EQ(session.fixedSlope, 0);
}

} // namespace
