#include "shell/calcplot.h"

#include <gtest/gtest.h>

#include "data/cell.h"

#include <algorithm>

#include "support/freshsession.h"
#include "support/lifecells.h"
#include "support/scriptedplatform.h"

namespace {

using Calls = std::vector<std::string>;

class Cycle : public testing::Test {
protected:
    FreshSession fresh{lifeSide};
    ScriptedPlatform platform;
};

TEST_F(Cycle, RunsItsStepsInOrder) {
    lifecells(1, {"100", "200"});
    calcplot();
    EXPECT_EQ(platform.windowCalls,
              (Calls{"readswitches", "closepopups", "readswitches", "caption: Reset", "repainticons",
                     "caption: Data", "caption: Calculation", "caption: Set 1 Order + Calculation ...",
                     "caption: Results Display ...", "repaintgrid", "repaintplot", "caption: "}));
    EXPECT_EQ(session.cycleComplete, 1);
}

TEST_F(Cycle, CompletesOverAnEmptyGrid) {
    calcplot();
    EXPECT_EQ(session.cycleComplete, 1);
    EXPECT_EQ(session.lastRow, 0);
    EXPECT_EQ(std::count(platform.windowCalls.begin(), platform.windowCalls.end(), "repaintplot"), 1);
    EXPECT_TRUE(platform.shown.empty());
}

TEST_F(Cycle, CompletesOverAnEmptyGridOnEverySide) {
    for (const Side side : {lifeSide, visualSide, simulationSide, fourthSide}) {
        FreshSession other(side);
        calcplot();
        EXPECT_EQ(session.cycleComplete, 1) << side;
        EXPECT_EQ(session.lastRow, 0) << side;
    }
}

TEST_F(Cycle, CompletesWithoutAPlatform) {
    const Keep keep{::platform};
    ::platform = nullptr;
    lifecells(1, {"100", "200"});
    calcplot();
    EXPECT_EQ(session.cycleComplete, 1);
    EXPECT_EQ(session.setFitted(1), 1);
}

TEST_F(Cycle, ClearsTheRequestToRedraw) {
    lifecells(1, {"100", "200"});
    session.replotNeeded = 1;
    calcplot();
    EXPECT_EQ(session.replotNeeded, 0);
}

TEST_F(Cycle, CountsTheRowsUpToTheLastSetWithPoints) {
    lifecells(1, {"100", "200"});
    lifecells(3, {"100", "200"});
    lifecells(4, {"", "_label"});
    calcplot();
    EXPECT_EQ(session.lastRow, 9);
    EXPECT_EQ(session.n(6), 0);
    EXPECT_EQ(session.setFitted(3), 1);
    EXPECT_EQ(session.setFitted(2), 0);
}

TEST_F(Cycle, RereadsTheGridEachTime) {
    lifecells(1, {"100", "200"});
    calcplot();
    const double before = session.etaFit(3, 1);
    gridset(1, 2, "400");
    calcplot();
    EXPECT_GT(session.etaFit(3, 1), before);
    gridset(1, 2, "200");
    calcplot();
    EXPECT_EQ(session.etaFit(3, 1), before);
}

TEST_F(Cycle, ForgetsASetThatLeftTheGrid) {
    lifecells(1, {"100", "200"});
    lifecells(2, {"100", "200"});
    calcplot();
    EXPECT_EQ(setcount(), 2);
    session.gridCells.resize(1);
    calcplot();
    EXPECT_EQ(setcount(), 1);
    gridclear();
    calcplot();
    EXPECT_EQ(setcount(), 0);
}

TEST_F(Cycle, StartsWithoutTheNoticesOfTheLast) {
    lifecells(1, {"100", "-200"});
    platform.expectmessage("Not Enough Data");
    calcplot();
    EXPECT_EQ(session.setMessages[1].size(), 1u);
    gridset(1, 2, "200");
    calcplot();
    EXPECT_TRUE(session.setMessages[1].empty());
}

TEST_F(Cycle, StartsWithoutTheMarksOfTheLast) {
    session.calcError = -1;
    session.abortCode = escapePressed;
    lifecells(1, {"100", "200"});
    calcplot();
    EXPECT_EQ(session.setFitted(1), 1);
    EXPECT_EQ(session.abortCode, 0);
}

TEST_F(Cycle, TellsTheSetsBeyondTheCapacity) {
    for (int k = 1; k <= 10; ++k) lifecells(k, {"100", "200"});
    platform.expectmessage("Set Quantity Too Big (> 8) ... View Setup");
    const Faults faults;
    calcplot();
    EXPECT_EQ(setcount(), 8);
    EXPECT_EQ(session.setFitted(8), 1);
    EXPECT_TRUE(Faults::taken().empty());
    EXPECT_EQ(session.cycleComplete, 1);
}

// ---- a search for a threshold over discoveries

class Discoveries : public Cycle {
protected:
    Discoveries() {
        session.inputType = intv5;
        session.findThreshold = 1;
    }
};

TEST_F(Discoveries, RefuseTheSearchForAThreshold) {
    lifecells(1, {"100", "200", "<50"});
    platform.expectmessage("Discovery In Data Set ... Find t0 Not Possible");
    calcplot();
    EXPECT_EQ(session.findThreshold, 0);
    ASSERT_EQ(platform.shown.size(), 1u);
    EXPECT_EQ(platform.shown[0].text, "Discovery In Data Set ... Find t0 Not Possible");
    EXPECT_EQ(session.setFitted(1), 1) << "the analysis ran without the search";
}

TEST_F(Discoveries, AreFoundInAnySet) {
    lifecells(1, {"100", "200"});
    lifecells(2, {"100", "200", "50x0x1x-3.3E+33"});
    platform.expectmessage("Find t0 Not Possible");
    calcplot();
    EXPECT_EQ(session.findThreshold, 0);
}

TEST_F(Discoveries, RefuseNothingWhereNoSearchIsAskedFor) {
    session.findThreshold = 0;
    lifecells(1, {"100", "200", "<50"});
    calcplot();
    EXPECT_TRUE(platform.shown.empty());
}

TEST_F(Discoveries, RefuseNothingWhereThereAreNone) {
    lifecells(1, {"100", "200", ">300"});
    platform.expectmessage("Set 1: Find t0 Not Possible");
    calcplot();
    EXPECT_EQ(session.findThreshold, 1);
}

// ---- Gumbel type

TEST_F(Cycle, SetsTheGumbelTypeBackForEveryOtherFamily) {
    for (const int16_t family : {weibull, lognormal, normal})
        for (const int16_t type : {int16_t{-1}, int16_t{0}, int16_t{1}}) {
            session.dist = family;
            session.gumbeltype = type;
            calcplot();
            EXPECT_EQ(session.gumbeltype, -1) << family;
        }
}

TEST_F(Cycle, KeepsTheLargestExtremeOfTheGumbelFamily) {
    session.dist = gumbel;
    session.gumbeltype = 1;
    calcplot();
    EXPECT_EQ(session.gumbeltype, 1);
}

// ---- a read that fails

TEST_F(Cycle, LeavesTheFormerResultsWhenTheReadFails) {
    lifecells(1, {"100", "200"});
    calcplot();
    const double eta = session.etaFit(3, 1);
    const std::string report = session.reportBuffer;
    session.maxPoints = 0;
    gridset(1, 2, "400");
    platform.windowCalls.clear();
    calcplot();
    EXPECT_EQ(session.cycleComplete, 0);
    EXPECT_EQ(session.etaFit(3, 1), eta);
    EXPECT_EQ(session.setFitted(1), 1);
    EXPECT_EQ(session.lastRow, 3);
    EXPECT_EQ(session.n(3), 2);
    EXPECT_EQ(session.X(3, 2), 200);
    EXPECT_EQ(session.reportBuffer, report);
    EXPECT_EQ(platform.windowCalls.back(), "caption: Data");
}

TEST_F(Cycle, LeavesTheFormerResultsOfASessionWithoutArrays) {
    session = Session{};
    session.reportBuffer = "former";
    lifecells(1, {"100", "200"});
    const Faults faults;
    calcplot();
    EXPECT_EQ(session.cycleComplete, 0);
    EXPECT_EQ(session.reportBuffer, "former");
    EXPECT_TRUE(Faults::taken().empty());
}

// ---- notes, families, Escape

TEST_F(Cycle, DropsANoteOfTheLastRun) {
    session.inputNote = "stale";
    calcplot();
    EXPECT_TRUE(platform.shown.empty());
}

TEST_F(Cycle, StopsAtAnEscapeAndKeepsTheSetsBefore) {
    lifecells(1, {"100", "200"});
    lifecells(2, {"100", "200"});
    platform.escapeat(3); // one call of the cycle, then one a set
    calcplot();
    EXPECT_EQ(session.abortCode, escapePressed);
    EXPECT_EQ(session.setFitted(1), 1);
    EXPECT_EQ(session.setFitted(2), 0);
    EXPECT_EQ(session.cycleComplete, 1);
}

TEST_F(Cycle, NamesThePlotByItsFileElseByTheProduct) {
    calcplot();
    EXPECT_EQ(session.plotTitle, "OmniVANEX");
    session.fileName = "pumps.vxw";
    calcplot();
    EXPECT_EQ(session.plotTitle, "pumps.vxw");
}

TEST_F(Cycle, BeginsItsReportWithProductAndSize) {
    session.reportBuffer = "former";
    calcplot();
    EXPECT_TRUE(session.reportBuffer.starts_with("OmniVANEX " VANEX_VERSION
                                                 "\r\nSetup: Dimension = 8x1500, Equations = 20\r\n"))
        << session.reportBuffer;
}

TEST_F(Cycle, FitsTheFamilyThatIsChosenNow) {
    lifecells(1, {"100", "200", "300"});
    calcplot();
    const double eta = session.etaFit(3, 1);
    session.dist = normal;
    calcplot();
    EXPECT_NE(session.etaFit(3, 1), eta);
    EXPECT_NEAR(session.etaFit(3, 1), 200, 1e-9) << "positions and values are symmetric about 200";
}

} // namespace

TEST_F(Cycle, DoesNotBringADeletedSetBack) {
    lifecells(1, {"100", "200"});
    lifecells(2, {"10", "20", "30"});
    session.gridTitles = {"Pumps", "Fans"};
    calcplot();
    setdelete(1);
    calcplot();
    EXPECT_EQ(setcount(), 1);
    EXPECT_EQ(pointcount(1), 3);
    EXPECT_EQ(session.rowTitle(3), "Fans");
}
