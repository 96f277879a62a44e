#include "session/former.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "data/datafilesave.h"
#include "session/findfile.h"
#include "session/opendata.h"
#include "session/session.h"
#include "shell/calcplot.h"
#include "shell/grid.h"
#include "support/freshsession.h"
#include "support/scriptedplatform.h"
#include "support/workfolder.h"

namespace {

class Former : public testing::Test {
protected:
    Former() {
        session.noPrompt = 1;
        session.tempPath = folder.path("") + "/";
        newtempbase();
    }
    void data(const std::vector<std::string>& cells, const std::string& title = "") {
        session.gridCells = {cells};
        session.gridTitles = {title};
        session.fileName.clear();
        calcplot();
    }
    /// Puts data on the list and other data in their place.
    void keep(const std::vector<std::string>& cells, const std::string& title = "") {
        data(cells, title);
        EXPECT_TRUE(formerkeep());
    }
    using Cells = std::vector<std::vector<std::string>>;

    FreshSession fresh{lifeSide};
    ScriptedPlatform desktop;
    WorkFolder folder;
};

TEST_F(Former, AnEmptySessionIsNotKept) {
    EXPECT_TRUE(formerkeep());
    EXPECT_EQ(formercount(), 0u);
    EXPECT_EQ(formercaption(), "");
}

TEST_F(Former, CaptionAndHintTellWhatThereIs) {
    keep({"150", "230"});
    EXPECT_EQ(formercaption(), "Former Results (-1)");
    keep({"1", "2"});
    EXPECT_EQ(formercaption(), "Former Results (-1 ... -2)");
    EXPECT_EQ(formerhint(), "Select = Activate Or Merge Or Delete");
    session.formerSelected.clear();
    EXPECT_EQ(formerhint(), "Select = Activate ... Right Select = Delete");
}

TEST_F(Former, AnActivatedResultStaysOnTheListAndTheActiveOneJoinsIt) {
    session.dist = lognormal;
    keep({"150", "230", "-400"}, "pumps");
    session.dist = gumbel;
    data({"20", "30"}, "valves");
    ASSERT_TRUE(formeractivate(1));
    EXPECT_EQ(session.gridCells, (Cells{{"150", "230", "-400"}}));
    EXPECT_EQ(session.gridTitles.front(), "pumps");
    EXPECT_EQ(session.dist, lognormal) << "the options come with the data";
    ASSERT_EQ(formercount(), 2u);
    ASSERT_TRUE(formeractivate(2));
    EXPECT_EQ(session.gridCells, (Cells{{"20", "30"}}));
    EXPECT_EQ(session.dist, gumbel);
    EXPECT_EQ(formercount(), 2u) << "what stands on the list as it is needs no second entry";
}

TEST_F(Former, AnOptionChangedSinceTheSaveIsKept) {
    data({"150", "230"});
    ASSERT_TRUE(datafilesave(folder.path("pumps.w")));
    session.dist = lognormal;
    calcplot();
    ASSERT_TRUE(formerkeep());
    EXPECT_EQ(formerunsaved(), 1u);
    session.dist = weibull;
    data({"20", "30"});
    ASSERT_TRUE(formeractivate(1));
    EXPECT_EQ(session.dist, lognormal);
    EXPECT_EQ(session.fileName, folder.path("pumps.w"));
}

TEST_F(Former, AFailedActivationOfAnEmptySessionCostsNoOtherResult) {
    keep({"150", "230"});
    keep({"20", "30"});
    std::filesystem::remove(session.XFILEFORMER.front());
    data({});
    desktop.expectmessage("No Data");
    EXPECT_FALSE(formeractivate(1));
    EXPECT_EQ(formercount(), 2u);
    EXPECT_TRUE(formeractivate(2));
}

TEST_F(Former, MergedSetsStandBehindTheActiveOnes) {
    session.dist = lognormal;
    keep({"150", "230"}, "pumps");
    session.dist = weibull;
    data({"20", "30"}, "valves");
    ASSERT_TRUE(formermerge(1));
    EXPECT_EQ(session.gridCells, (Cells{{"20", "30"}, {"150", "230"}}));
    EXPECT_EQ(session.gridTitles, (std::vector<std::string>{"valves", "pumps"}));
    EXPECT_EQ(session.dist, weibull) << "the options stay";
    EXPECT_EQ(formercount(), 1u);
}

TEST_F(Former, ALostFileLeavesTheSessionAsItIs) {
    keep({"150", "230"});
    std::filesystem::remove(session.XFILEFORMER.front());
    data({"20", "30"});
    desktop.expectmessage("No Data");
    EXPECT_FALSE(formeractivate(1));
    EXPECT_EQ(session.gridCells, (Cells{{"20", "30"}}));
    desktop.expectmessage("No Data");
    EXPECT_FALSE(formermerge(1));
    EXPECT_EQ(session.gridCells, (Cells{{"20", "30"}}));
}

TEST_F(Former, TheListHoldsNineteenAndAsksWhichToDrop) {
    for (int i = 1; i <= 19; ++i) keep({std::to_string(i), "100"}, "result " + std::to_string(i));
    data({"1", "2", "3"});
    desktop.expectmenu("Delete Former Results", 20); // Exit
    EXPECT_FALSE(formerkeep());
    EXPECT_EQ(formercount(), 19u);
    desktop.expectmenu("Delete Former Results", 2);
    EXPECT_TRUE(formerkeep());
    EXPECT_EQ(formercount(), 19u);
    ASSERT_EQ(desktop.shown.back().items.size(), 20u);
    EXPECT_EQ(desktop.shown.back().items[0], "A...result 1 (Set 1, Point 2)");
    EXPECT_EQ(desktop.shown.back().items[18], "S...result 19 (Set 1, Point 2)");
    EXPECT_EQ(desktop.shown.back().items[19], "X...Exit");
}

TEST_F(Former, ResultsOfASavedFileNeedNoCopy) {
    data({"150", "230"});
    ASSERT_TRUE(datafilesave(folder.path("pumps.w")));
    ASSERT_TRUE(formerkeep());
    EXPECT_EQ(session.XFILEFORMER, (std::vector<std::string>{folder.path("pumps.w")}));
    EXPECT_EQ(formerunsaved(), 0u);
    for (int i = 1; i <= 18; ++i) keep({std::to_string(i), "100"});
    EXPECT_EQ(formercount(), 19u);
    EXPECT_EQ(formerunsaved(), 18u);
    data({"19", "100"});
    desktop.expectmenu("Delete Former Results", 1);
    EXPECT_TRUE(formerkeep());
    EXPECT_EQ(formerunsaved(), 19u);
    EXPECT_TRUE(folder.has("pumps.w")) << "it only left the list";
}

TEST_F(Former, DeletingTakesTemporaryFilesAwayAndNoOthers) {
    keep({"150", "230"});
    const std::string temporary = session.XFILEFORMER.front();
    session.XFILEFORMER.push_back("c:\\data\\pumps.w");
    formerdelete(2);
    EXPECT_TRUE(desktop.machine.removed.empty());
    formerdelete(1);
    EXPECT_EQ(desktop.machine.removed, (std::vector<std::string>{temporary}));
    formerdelete(1);
    EXPECT_EQ(formercount(), 0u);
}

TEST_F(Former, APressListsTheResultsAndWhatToDoWithThem) {
    keep({"150", "230"}, "pumps");
    data({"20", "30"});
    desktop.expectmenu("", 1);
    desktop.expectmenu("pumps", 2);
    formerpress();
    EXPECT_EQ(desktop.shown.back().items,
              (std::vector<std::string>{"A...Activate Results", "B...Merge Results", "C...Delete Results",
                                        "X...Delete All"}));
    EXPECT_EQ(session.gridCells.size(), 2u);
    desktop.expectmenu("", 1);
    desktop.expectmenu("pumps", 4);
    formerpress();
    EXPECT_EQ(formercount(), 0u);
    formerpress(); // nothing to choose from
}

TEST_F(Former, ASecondaryPressAsksBeforeItDeletes) {
    keep({"150", "230"}, "pumps");
    desktop.expectmenu("Delete pumps", 2);
    formerother();
    EXPECT_EQ(formercount(), 1u);
    EXPECT_EQ(desktop.shown.back().header, "Results Not Active");
    desktop.expectmenu("Delete pumps", 1);
    formerother();
    EXPECT_EQ(formercount(), 0u);
}

TEST_F(Former, TheEndOfTheProgramAsksForResultsThatWouldBeLost) {
    EXPECT_TRUE(formerexit());
    keep({"150", "230"});
    desktop.expectmenu("Save Former Results (1)", 3);
    EXPECT_FALSE(formerexit()) << "cancel";
    desktop.expectmenu("Save Former Results (1)", 2);
    EXPECT_TRUE(formerexit()) << "no";
    desktop.expectmenu("Save Former Results (1)", 1);
    desktop.expectmessage("Select + Activate + Save + Delete\nEach Before Exit");
    EXPECT_FALSE(formerexit());
    EXPECT_EQ(formercount(), 1u);
}

} // namespace
