#include "session/sampleload.h"

#include <gtest/gtest.h>

#include <cmath>

#include "support/freshsession.h"
#include "support/lifefixture.h"
#include "support/reference.h"
#include "support/scriptedplatform.h"

namespace {

using Cells = std::vector<std::string>;

class SampleOnLifeSide : public LifeTest {
protected:
    static void likelihood(int number) {
        ASSERT_TRUE(sampleload(number));
        choosemethod(maximumLikelihood);
        calcplot();
    }
};

TEST_F(SampleOnLifeSide, BallBearingsGiveTheLineOfTheBook) {
    // Lawless 1982: location 4.405 and scale 0.476 of the logarithms.
    likelihood(1);
    EXPECT_NEAR(std::log(fit().eta), 4.405, 5e-4);
    EXPECT_NEAR(1 / fit().beta, 0.476, 5e-4);
}

TEST_F(SampleOnLifeSide, LeukemiaGivesThePublishedLine) {
    likelihood(2);
    EXPECT_NEAR(fit().beta, 1.354, 5e-4);
    EXPECT_NEAR(fit().eta, 33.77, 5e-3);
}

TEST_F(SampleOnLifeSide, FansGiveTheLineOfTheBook) {
    likelihood(3);
    EXPECT_NEAR(fit().beta, 1.058, 1e-3);
    EXPECT_NEAR(fit().eta, 26300, 50);
}

TEST_F(SampleOnLifeSide, BearingCagesGiveThePublishedLine) {
    // Meeker and Escobar 1998, example 8.16.
    likelihood(5);
    EXPECT_NEAR(fit().beta, 2.035, 5e-4);
    EXPECT_NEAR(fit().eta, 11792, 0.5);
}

TEST_F(SampleOnLifeSide, CracksGiveTheLineThroughTheSharesFoundAtEachInspection) {
    const ReferenceTable cracks = reference("data_cracks.csv");
    std::vector<CheckLine::Point> points;
    double cracked = 0;
    for (std::size_t i = 0; i + 1 < cracks.rows.size(); ++i) {
        cracked += cracks.number(i, "quantity");
        points.push_back({std::log(cracks.number(i + 1, "value")), smallestextreme(cracked / 167)});
    }
    const CheckLine line(points, false); // the age is known, the share is what varies
    ASSERT_TRUE(sampleload(4));
    EXPECT_EQ(session.inputType, prbt2);
    calcplot();
    ASSERT_TRUE(fit().fitted);
    EXPECT_RELATIVE(fit().beta, line.slope, 1e-5); // X is held in single precision
    EXPECT_RELATIVE(fit().eta, std::exp(line.crossing), 1e-6);
}

TEST_F(SampleOnLifeSide, EveryLifeSampleButTheEmptyOneIsAnalysed) {
    for (const int number : {1, 2, 3, 4, 5, 8, 10}) {
        ASSERT_TRUE(sampleload(number)) << number;
        calcplot();
        EXPECT_TRUE(fit().fitted) << number;
        EXPECT_TRUE(told().empty()) << told().front();
    }
}

TEST_F(SampleOnLifeSide, TheEmptySampleLeavesAnEmptyGridWithItsLabel) {
    ASSERT_TRUE(sampleload(2));
    ASSERT_TRUE(sampleload(6));
    EXPECT_TRUE(session.gridCells.empty());
    EXPECT_EQ(session.gridTitles, Cells{"6W"});
    EXPECT_EQ(session.fileName, "6W");
}

TEST_F(SampleOnLifeSide, AnotherInputTypeDoesNotOutliveTheNextSample) {
    session.inputType = intv5;
    ASSERT_TRUE(sampleload(1));
    EXPECT_EQ(session.inputType, standard0);
}

TEST_F(SampleOnLifeSide, EachColumnIsASet) {
    ASSERT_TRUE(sampleload(11));
    ASSERT_EQ(session.gridCells.size(), 8u);
    EXPECT_EQ(session.gridCells[0].front(), "10");
    EXPECT_EQ(session.gridCells[7].back(), "6.89");
    EXPECT_EQ(session.gridTitles, (Cells{"1 X", "1 Y", "2 X", "2 Y", "3 X", "3 Y", "4 X", "4 Y"}));
}

class SampleRefused : public testing::Test {
protected:
    ScriptedPlatform desktop;

    void refused(Side side, int number, const std::string& why) {
        const FreshSession fresh(side);
        session.gridCells = {{"1", "2"}};
        session.gridTitles = {"mine"};
        session.fileName = "mine.w";
        session.inputType = intv5;
        session.msg = "kept";
        if (!why.empty()) desktop.expectmessage(why);
        EXPECT_FALSE(sampleload(number));
        EXPECT_EQ(session.gridCells, (std::vector<Cells>{{"1", "2"}}));
        EXPECT_EQ(session.gridTitles, Cells{"mine"});
        EXPECT_EQ(session.fileName, "mine.w");
        EXPECT_EQ(session.inputType, intv5);
        EXPECT_EQ(session.msg, "kept");
        desktop.verify();
    }
};

TEST_F(SampleRefused, OfTheOtherSideIsToldAndNothingIsLost) {
    refused(lifeSide, 7, "Sample 7V - Crow [IEC1164] p. 27 (Duane / Crow-AMSAA)\r\nOnly For X-Y Plot");
    refused(visualSide, 1, "Sample 1W - Lawless [1982] p. 228 Life Test\r\nOnly For Life Analysis");
}

TEST_F(SampleRefused, OfAnUnknownNumberDoesNothing) {
    for (const int number : {-1, 0, 12}) refused(lifeSide, number, "");
}

TEST(SampleOnVisualSide, TwoColumnsAreTheXAndYOfASet) {
    const FreshSession fresh(visualSide);
    ASSERT_TRUE(sampleload(11));
    ASSERT_EQ(session.gridCells.size(), 4u);
    EXPECT_EQ(session.gridCells[0].front(), "10x8.04");
    EXPECT_EQ(session.gridCells[3].back(), "8x6.89");
    EXPECT_EQ(session.gridTitles, (Cells{"1", "2", "3", "4"}));
}

TEST(SampleOnVisualSide, AColumnAloneStandsOverItsRows) {
    const FreshSession fresh(visualSide);
    ASSERT_TRUE(sampleload(8));
    ASSERT_EQ(session.gridCells.size(), 1u);
    EXPECT_EQ(session.gridCells[0].front(), "1x850");
    EXPECT_EQ(session.gridCells[0].back(), "100x870");
    EXPECT_EQ(session.gridTitles, Cells{"8A - Michelson [1882] NIST StRD"});
}

TEST(SampleOnVisualSide, RecurrentEventsKeepTheirLabelsAndSuspensions) {
    const FreshSession fresh(visualSide);
    ASSERT_TRUE(sampleload(9));
    const Cells& cells = session.gridCells.at(0);
    EXPECT_EQ(cells.at(2), "28x1_026");
    EXPECT_EQ(cells.at(3), "13809x0x1x3.3E+33_026");
}

} // namespace
