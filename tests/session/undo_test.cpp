#include "session/undo.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "data/cell.h"
#include "data/datafilesave.h"
#include "session/findfile.h"
#include "session/opendata.h"
#include "session/session.h"
#include "session/snapshots.h"
#include "shell/calcplot.h"
#include "shell/grid.h"
#include "support/freshsession.h"
#include "support/scriptedplatform.h"
#include "support/workfolder.h"

namespace {

class Undo : public testing::Test {
protected:
    Undo() {
        session.noPrompt = 1;
        session.tempPath = folder.path("") + "/";
        newtempbase();
        session.gridCells = {{"10", "20"}};
        session.undoActive = 0;
        calcplot();
        session.undoActive = 1;
    }
    void type(int set, int point, const std::string& cell) {
        gridset(set, point, cell);
        calcplot();
    }
    using Cells = std::vector<std::vector<std::string>>;

    FreshSession fresh{lifeSide};
    ScriptedPlatform desktop;
    WorkFolder folder;
};

TEST_F(Undo, WithNothingToUndoSaysSo) {
    desktop.expectmessage("Present At Undo No");
    EXPECT_FALSE(undo());
    desktop.expectmessage("Present At Undo No");
    EXPECT_FALSE(redo());
}

TEST_F(Undo, GivesDataAndOptionsBackStepByStep) {
    type(1, 3, "150");
    type(1, 4, "230");
    session.dist = lognormal;
    calcplot(); // an option alone is no step
    type(1, 5, "310x0x2_seal worn");
    ASSERT_EQ(session.undoSteps.size(), 3u);

    ASSERT_TRUE(undo());
    EXPECT_EQ(session.gridCells, (Cells{{"10", "20", "150", "230"}}));
    EXPECT_EQ(session.dist, lognormal);
    ASSERT_TRUE(undo());
    EXPECT_EQ(session.gridCells, (Cells{{"10", "20", "150"}}));
    EXPECT_EQ(session.dist, weibull) << "the option goes with the data";
    ASSERT_TRUE(undo());
    EXPECT_EQ(session.gridCells, (Cells{{"10", "20"}}));

    ASSERT_TRUE(redo());
    ASSERT_TRUE(redo());
    ASSERT_TRUE(redo());
    EXPECT_EQ(session.gridCells, (Cells{{"10", "20", "150", "230", "310x0x2_seal worn"}}));
    EXPECT_EQ(session.dist, lognormal);
    desktop.expectmessage("Present At Undo No");
    EXPECT_FALSE(redo());
}

TEST_F(Undo, TheFirstDataCanBeUndoneToAnEmptyGrid) {
    session.gridCells.clear();
    calcplot();
    session.gridCells = {{"1", "2"}};
    calcplot();
    ASSERT_TRUE(undo());
    EXPECT_TRUE(session.gridCells.empty());
    EXPECT_EQ(session.lastRow, 0);
}

TEST_F(Undo, CellsThatAreNoPointsComeBackAsTheyWereTyped) {
    type(1, 4, "1.50 ");
    desktop.expectmessage("Bad Data");
    type(1, 5, "later");
    desktop.expectmessage("Bad Data");
    type(1, 6, "99");
    desktop.expectmessage("Bad Data");
    ASSERT_TRUE(undo());
    EXPECT_EQ(session.gridCells, (Cells{{"10", "20", "", "1.50 ", "later"}}));
}

TEST_F(Undo, ANewChangeForgetsWhatWasUndone) {
    type(1, 3, "150");
    type(1, 4, "230");
    ASSERT_TRUE(undo());
    type(1, 4, "999");
    desktop.expectmessage("Present At Undo No");
    EXPECT_FALSE(redo());
    ASSERT_TRUE(undo());
    EXPECT_EQ(session.gridCells, (Cells{{"10", "20", "150"}}));
}

TEST_F(Undo, TheNewestSnapshotIsOnePlainDataFileUnderItsName) {
    session.htmlMode = wrapperAsked;
    type(1, 3, "150");
    type(1, 4, "230");
    EXPECT_EQ(session.undoFile, session.tempPath + session.tempBase + "-1.tmp");
    EXPECT_TRUE(folder.text(session.tempBase + "-1.tmp").starts_with("WINVANEX_DATA2-VXW[.]\r\n"));
    EXPECT_EQ(session.undoSteps.back().path, session.undoFile);
    EXPECT_EQ(folder.names().size(), 2u);
}

TEST_F(Undo, KeepsTwentySteps) {
    for (int j = 3; j <= 27; ++j) type(1, j, std::to_string(10 * j));
    EXPECT_EQ(session.undoSteps.size(), 20u);
    for (int step = 0; step < 20; ++step) ASSERT_TRUE(undo());
    EXPECT_EQ(session.gridCells.front().size(), 7u);
}

TEST_F(Undo, AnOpenedFileCanBeUndone) {
    type(1, 3, "150");
    type(1, 4, "230");
    folder.write("other.txt", "1\n2\n3\n");
    session.formatWanted = "A";
    ASSERT_EQ(opendata(folder.path("other.txt")), DataRead::read);
    calcplot();
    EXPECT_EQ(session.gridCells, (Cells{{"1", "2", "3"}}));
    ASSERT_TRUE(undo());
    EXPECT_EQ(session.gridCells, (Cells{{"10", "20", "150", "230"}}));
    EXPECT_EQ(session.fileName, "");
    ASSERT_TRUE(redo());
    EXPECT_EQ(session.fileName, folder.path("other.txt"));
}

TEST_F(Undo, AFileThatCannotBeReadIsNoStep) {
    type(1, 3, "150");
    const std::size_t steps = session.undoSteps.size();
    EXPECT_EQ(opendata(folder.write("empty.txt", "\n")), DataRead::empty);
    EXPECT_EQ(session.undoSteps.size(), steps);
    EXPECT_EQ(session.gridCells, (Cells{{"10", "20", "150"}}));
}

TEST_F(Undo, ALostSnapshotLeavesTheSessionAsItIs) {
    type(1, 3, "150");
    type(1, 4, "230");
    std::filesystem::remove(session.undoFile);
    desktop.expectmessage("No Data");
    EXPECT_FALSE(undo());
    EXPECT_EQ(session.gridCells, (Cells{{"10", "20", "150", "230"}}));
}

TEST_F(Undo, WithoutAWindowNothingIsKept) {
    session.undoActive = 0;
    type(1, 3, "150");
    type(1, 4, "230");
    EXPECT_TRUE(session.undoSteps.empty());
    EXPECT_TRUE(folder.names().empty());
    EXPECT_EQ(session.resultsDirty, 1);
}

TEST_F(Undo, ATitleAndARemovedSetComeBack) {
    session.gridTitles = {"Pump A"};
    calcplot();
    session.gridCells.push_back({"30", "40"});
    session.gridTitles = {"Pump A", "Pump B"};
    calcplot();
    setdelete(1);
    calcplot();
    EXPECT_EQ(session.gridTitles.front(), "Pump B");
    ASSERT_TRUE(undo());
    EXPECT_EQ(session.gridCells, (Cells{{"10", "20"}, {"30", "40"}}));
    EXPECT_EQ(session.gridTitles, (std::vector<std::string>{"Pump A", "Pump B"}));
    ASSERT_TRUE(undo());
    ASSERT_TRUE(undo());
    EXPECT_TRUE(session.gridTitles.empty() || session.gridTitles.front().empty());
}

TEST_F(Undo, AGridTooLargeToBeKeptAsTypedComesBackFromItsFile) {
    session.sizeExponent = 6;
    ASSERT_TRUE(allocatearrays());
    std::vector<std::string> column;
    for (int j = 1; j <= 30000; ++j) column.push_back(std::to_string(j));
    session.gridCells = {column, column};
    session.gridTitles = {"many", ""};
    calcplot();
    session.gridCells = {{"1", "2"}};
    session.gridTitles.clear();
    calcplot();
    ASSERT_TRUE(undo());
    EXPECT_EQ(session.gridCells, (Cells{column, column}));
    EXPECT_EQ(session.gridTitles.front(), "many");
}

} // namespace
