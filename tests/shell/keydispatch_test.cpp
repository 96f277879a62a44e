#include <gtest/gtest.h>

#include "shell/dropmenu.h"
#include "support/shellfixture.h"

namespace {

class Keys : public ShellTest {};

TEST_F(Keys, F1ShowsHelp) {
    key(112);
    EXPECT_EQ(desk.windowCalls.back(), "showview 2");
}

TEST_F(Keys, F2RunsTheCycleAndShowsTheAboutBox) {
    key(113);
    EXPECT_EQ(calls("repaintplot"), 1);
    EXPECT_EQ(desk.windowCalls.back(), "showabout");
}

TEST_F(Keys, F3ShowsTheStatisticsOfTheSet) {
    given({"150", "-230", "310"});
    desk.expectmenu("Data Grid Summary", 0);
    key(114);
    const auto& items = desk.shown.back().items;
    EXPECT_EQ(items[0], "N...Point Quantity = 3");
    EXPECT_NE(std::find(items.begin(), items.end(), "U...Suspension Quantity = 1"), items.end());
}

TEST_F(Keys, EnterIsTheCheckMark) {
    given({"150", "230", "310"});
    key(13);
    EXPECT_EQ(calls("repaintplot"), 1);
}

TEST_F(Keys, DelDeletesTheSelection) {
    given({"150", "230", "310"});
    session.gridRow = 2;
    key(46);
    EXPECT_EQ(column(), (Cells{"150", "", "310"}));
    EXPECT_EQ(pointcount(1), 2);
}

TEST_F(Keys, EscapeClosesTheDropDownThenTheEntryThenTheModeAndThenAsks) {
    dropmenupress(fileMenu);
    session.gridEditOpen = 1;
    session.activeMode = 30;
    key(27);
    EXPECT_EQ(session.dropMenuOpen, dropClosed);
    EXPECT_EQ(session.gridEditOpen, 1);
    key(27);
    EXPECT_EQ(session.gridEditOpen, 0);
    EXPECT_EQ(session.activeMode, 30);
    key(27);
    EXPECT_EQ(session.activeMode, 0);
    desk.expectmenu("Exit?", 1);
    key(27);
    EXPECT_EQ(session.leaving, 1);
    EXPECT_EQ(desk.windowCalls.back(), "leave");
}

TEST_F(Keys, ControlWithALetterIsAnEditAction) {
    session.undoActive = 1;
    given({"150", "230", "310"});
    session.gridRow = 3;
    withcontrol('C');
    EXPECT_NE(desk.clipboardText.value_or("").find("310"), std::string::npos);
    withcontrol('X');
    EXPECT_EQ(column(), (Cells{"150", "230"}));
    withcontrol('Z');
    EXPECT_EQ(column(), (Cells{"150", "230", "310"}));
    withcontrol('Y');
    EXPECT_EQ(column(), (Cells{"150", "230"}));
    withcontrol('V');
    EXPECT_EQ(column(), (Cells{"150", "230", "310"}));
}

TEST_F(Keys, ShiftAloneIsIgnored) {
    given({"150", "230", "310"});
    key(16);
    EXPECT_TRUE(desk.windowCalls.empty());
}

TEST_F(Keys, ALetterTypedWithNoDropDownOpenIsAMenuLetter) {
    key('D');
    EXPECT_EQ(session.dropMenuIndex, optionsMenu);
    EXPECT_EQ(session.dropMenuOpen, dropShown);
}

TEST_F(Keys, AnyCodeIsTaken) {
    for (const float code : {-5.0f, 0.0f, 1e30f, 200.0f}) {
        session.u = code;
        keydispatch();
    }
    EXPECT_EQ(session.dropMenuOpen, dropClosed);
}

// ---- the exit sequence ----

TEST_F(Keys, CancelAtTheSaveQuestionLeavesAllAsItWas) {
    given({"150", "230", "310"});
    session.resultsDirty = 1;
    desk.expectmenu("Exit?", 1);
    desk.expectmenu("Save Active Data / Results?", 3);
    key(27);
    EXPECT_EQ(session.leaving, 0);
    EXPECT_EQ(session.resultsDirty, 1);
    EXPECT_EQ(column().size(), 3u);
}

TEST_F(Keys, NoAtTheSaveQuestionEndsTheProgram) {
    given({"150", "230", "310"});
    session.resultsDirty = 1;
    desk.expectmenu("Save Active Data / Results?", 2);
    EXPECT_TRUE(exitsequence(false));
    EXPECT_EQ(session.leaving, 1);
}

TEST_F(Keys, ASaveThatIsGivenUpKeepsTheProgramRunning) {
    given({"150", "230", "310"});
    session.resultsDirty = 1;
    desk.expectmenu("Save Active Data / Results?", 1);
    desk.expectfile("Save", std::nullopt);
    EXPECT_FALSE(exitsequence(false));
    EXPECT_EQ(session.leaving, 0);
}

TEST_F(Keys, SavedResultsEndWithoutAQuestion) {
    given({"150", "230", "310"});
    session.resultsDirty = 0;
    EXPECT_TRUE(exitsequence(false));
}

} // namespace
