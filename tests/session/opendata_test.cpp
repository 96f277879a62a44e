#include "session/opendata.h"

#include <gtest/gtest.h>

#include "data/datafilesave.h"
#include "data/labels.h"
#include "session/findfile.h"
#include "session/session.h"
#include "session/sizing.h"
#include "shell/calcplot.h"
#include "support/freshsession.h"
#include "support/scriptedplatform.h"
#include "support/workfolder.h"

namespace {

/// A life session that has run, and data files of both sides.
class OpenData : public testing::Test {
protected:
    OpenData() {
        session.noPrompt = 1;
        session.tempPath = folder.path("") + "/";
        newtempbase();
        session.gridCells = {{"5", "1", "2"}};
        session.gridTitles = {"Pump A"};
        session.dist = lognormal;
        calcplot();
        EXPECT_TRUE(datafilesave(folder.path("pumps.w")));
    }
    /// A file of the visual side with points 1x10, 2x20.
    std::string visualfile() {
        const std::string life = datafiletext();
        std::string path;
        {
            FreshSession visual(visualSide);
            session.gridCells = {{"1x10", "2x20"}};
            calcplot();
            EXPECT_TRUE(datafilesave(folder.path("flow.v")));
        }
        return folder.path("flow.v");
    }
    using Cells = std::vector<std::vector<std::string>>;

    FreshSession fresh{lifeSide};
    ScriptedPlatform desktop;
    WorkFolder folder;
};

TEST_F(OpenData, ALabelFileLeavesDataFileAndTheWishToSave) {
    session.u = labelsWanted;
    ASSERT_TRUE(datafilesave(folder.path("a.lbl")));
    session.titleWanted = "changed";
    session.resultsDirty = 1;
    ASSERT_EQ(opendata(folder.path("a.lbl")), DataRead::read);
    EXPECT_EQ(session.titleWanted, "");
    EXPECT_EQ(session.fileName, folder.path("pumps.w"));
    EXPECT_EQ(session.resultsDirty, 1);
    EXPECT_EQ(session.gridCells, (Cells{{"5", "1", "2"}}));
}

TEST_F(OpenData, FurtherFilesAddTheirSetsAndNothingElse) {
    session.u = labelsWanted;
    ASSERT_TRUE(datafilesave(folder.path("a.lbl")));
    ASSERT_EQ(opendata(folder.path("a.lbl"), true), DataRead::read);
    EXPECT_EQ(session.gridCells, (Cells{{"5", "1", "2"}})) << "labels are no sets";
    session.dist = weibull;
    session.gridCells = {{"7", "8"}};
    session.gridTitles = {"Valve"};
    calcplot();
    ASSERT_EQ(opendata(folder.path("pumps.w"), true), DataRead::read);
    EXPECT_EQ(session.gridCells, (Cells{{"7", "8"}, {"5", "1", "2"}}));
    EXPECT_EQ(session.gridTitles, (std::vector<std::string>{"Valve", "Pump A"}));
    EXPECT_EQ(session.dist, weibull);
}

TEST_F(OpenData, AFailingFileThatNeedsMoreRoomCostsNothing) {
    std::string big = "WINVANEX_DATA2-VXW[.]\r\n3:"
                      "0\r\nDIMENSIONS\r\n8\r\n2\r\n3\r\n0\r\n24\r\n1500\r\n8\r\n8\r\n6\r\nSET_1\r\n5000\r\n";
    for (int i = 1; i <= 5000; ++i) big += std::to_string(i) + " 0 1 0\r\n";
    big += "SET_2\r\n"; // cut off
    session.analysisComment = "kept";
    desktop.expectmessage("Bad Input File");
    EXPECT_EQ(opendata(folder.write("big.w", big)), DataRead::unreadable);
    EXPECT_EQ(session.gridCells, (Cells{{"5", "1", "2"}}));
    EXPECT_EQ(session.lastRow, 3);
    EXPECT_EQ(session.dist, lognormal);
    EXPECT_EQ(session.analysisComment, "kept");
    EXPECT_EQ(session.entryX(3, 1), 5.0f);
}

TEST_F(OpenData, AFileLargerThanTheArraysRaisesThem) {
    session.gridCells = {{}};
    for (int i = 1; i <= 1400; ++i) session.gridCells[0].push_back(std::to_string(i));
    calcplot();
    ASSERT_TRUE(datafilesave(folder.path("many.w")));
    FreshSession small(lifeSide, 1);
    session.maxPoints = 100; // as if memory had not sufficed for more
    ASSERT_EQ(opendata(folder.path("many.w")), DataRead::read);
    EXPECT_EQ(session.gridCells[0].size(), 1400u);
}

TEST_F(OpenData, ASaveTellsWhatItCannotHold) {
    session.gridCells = {{"5", "later", "2"}};
    desktop.expectmessage("Bad Data");
    calcplot();
    desktop.expectmessage("Not Saved: 1 Point");
    EXPECT_TRUE(datafilesave(folder.path("some.w")));
    EXPECT_EQ(session.resultsDirty, 1) << "a cell is in no file yet";
    EXPECT_EQ(session.fileName, folder.path("some.w"));
}

TEST_F(OpenData, AFileOfTheSessionReadBackAsksAndTellsNothing) {
    const std::string flow = visualfile();
    session.quietRead = 1;
    session.fileName.clear();
    chooseside(lifeSide);
    ASSERT_TRUE(allocatearrays());
    ASSERT_EQ(opendata(flow), DataRead::read);
    EXPECT_EQ(session.inputType, standard0) << "no conversion without a question";
}

} // namespace
