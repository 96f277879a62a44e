#include <gtest/gtest.h>

#include <set>

#include "plot/markerline.h"
#include "shell/commandtable.h"
#include "shell/dropmenu.h"
#include "shell/words.h"
#include "support/shellfixture.h"

namespace {

class Commands : public ShellTest {};

TEST_F(Commands, EachNumberStandsForOneCommandOnASide) {
    for (const Side side : {lifeSide, visualSide}) {
        chooseside(side);
        std::set<int> seen;
        for (const Command& command : commands()) {
            if (!offered(command.where)) continue;
            EXPECT_TRUE(seen.insert(command.number).second) << command.number;
            EXPECT_GE(command.number, 0);
            EXPECT_LT(command.number, commandNumbers);
        }
    }
}

TEST_F(Commands, EachCommandHasANameInEveryWayItIsShown) {
    for (const Side side : {lifeSide, visualSide}) {
        chooseside(side);
        for (const Command& command : commands()) {
            if (!offered(command.where)) continue;
            EXPECT_FALSE(commandname(command.number).empty()) << command.number;
            EXPECT_EQ(commandtip(command.number).find(commandname(command.number)), 0u) << command.number;
        }
    }
}

TEST_F(Commands, EveryIconOfTheStripHasACommandWithAPicture) {
    for (const Side side : {lifeSide, visualSide}) {
        chooseside(side);
        std::set<int> shown;
        for (const int number : iconstrip()) {
            if (number == iconGap) continue;
            const Command* const command = commandof(number);
            ASSERT_NE(command, nullptr) << number;
            EXPECT_NE(std::string(command->icon), "") << number;
            EXPECT_TRUE(shown.insert(number).second) << number;
        }
    }
}

TEST_F(Commands, ASecondaryPressExplainsAndChangesNothing) {
    given({"150", "230", "310"});
    const auto cells = session.gridCells;
    for (int number = 0; number < commandNumbers; ++number) {
        const Fit before = fit();
        command(number, secondaryPress);
        EXPECT_EQ(session.gridCells, cells) << number;
        EXPECT_EQ(fit(), before) << number;
        EXPECT_EQ(desk.windowCalls.back(), "explain " + std::to_string(number) + ": " + commandtip(number));
    }
    EXPECT_EQ(calls("repaintplot"), 0);
}

TEST_F(Commands, TheFirstPressOfAnIconExplainsItAndTheNextDoesNot) {
    given({"150", "230", "310"});
    iconpress(23, primaryPress);
    EXPECT_EQ(calls("explain 23: OK"), 1);
    EXPECT_EQ(calls("repaintplot"), 1);
    iconpress(23, primaryPress);
    EXPECT_EQ(calls("explain 23"), 1);
    EXPECT_EQ(calls("repaintplot"), 2);
}

TEST_F(Commands, APressWithADropDownOpenOnlyClosesIt) {
    given({"150", "230", "310"});
    dropmenupress(fileMenu);
    iconpress(23, primaryPress);
    EXPECT_EQ(session.dropMenuOpen, dropClosed);
    EXPECT_EQ(calls("repaintplot"), 0);
}

TEST_F(Commands, ANumberWithoutACommandDoesNothing) {
    given({"150", "230", "310"});
    for (const int number : {-1, 22, 41, 92, 30000}) {
        iconpress(number, primaryPress);
        command(number);
    }
    EXPECT_EQ(calls("repaintplot"), 0);
}

TEST_F(Commands, WhileACommandRunsEventsReturnAtOnce) {
    given({"150", "230", "310"});
    session.shellBusy = 1;
    iconpress(0, primaryPress);
    key(27);
    EXPECT_FALSE(menuletter('F'));
    EXPECT_EQ(column().size(), 3u);
    EXPECT_TRUE(desk.windowCalls.empty());
}

TEST_F(Commands, PrintWithoutDataTellsNoData) {
    desk.expectmessage("No Data");
    command(6);
    EXPECT_EQ(desk.shown.back().header, "Data");
}

TEST_F(Commands, NewAsksAboutSavingAndEmptiesTheGrid) {
    given({"150", "230", "310"});
    session.resultsDirty = 1;
    desk.expectmenu("Save Active Data / Results", 3);
    command(0);
    EXPECT_EQ(column().size(), 3u) << "cancelled";
    desk.expectmenu("Save Active Data / Results", 2);
    command(0);
    EXPECT_TRUE(session.gridCells.empty());
    EXPECT_EQ(session.lastRow, 0);
    EXPECT_EQ(session.resultsDirty, 0);
}

TEST_F(Commands, NewCanBeUndoneWithItsTitles) {
    session.undoActive = 1;
    given({"150", "230", "310"});
    session.titleWanted = "Bearings";
    session.resultsDirty = 0;
    command(0);
    EXPECT_EQ(session.titleWanted, "");
    editaction(editUndo);
    EXPECT_EQ(column(), (Cells{"150", "230", "310"}));
    EXPECT_EQ(session.titleWanted, "Bearings");
}

TEST_F(Commands, TheMixtureMarkIsClearedByEveryCommandButItsOwn) {
    given({"150", "230", "310"});
    session.mixtureAsked = 4;
    command(23);
    EXPECT_EQ(session.mixtureAsked, 0);
}

TEST_F(Commands, ASingleSetIsShownAndAllAgain) {
    sets({{"150", "230", "310"}, {"90", "120", "180"}});
    session.activeSet = 2;
    desk.expectmessage("Set Hide");
    command(61);
    EXPECT_EQ(session.lineHide(1), 1);
    EXPECT_EQ(session.lineHide(2), 0);
    command(61);
    EXPECT_EQ(session.lineHide(1), 0);
}

TEST_F(Commands, RangeTakesFourLimitsAndRefusesBackwardOnes) {
    given({"150", "230", "310"});
    for (const char* typed : {"10", "1000", "0", "0"}) desk.expectnumber("-", typed);
    command(88);
    EXPECT_EQ(session.xLimitLow, 10);
    EXPECT_EQ(session.xLimitHigh, 1000);
    for (const char* typed : {"500", "20", "0", "0"}) desk.expectnumber("-", typed);
    desk.expectmessage("Minimum >= Maximum");
    command(89);
    EXPECT_EQ(session.xLimitHigh, 1000);
    desk.expectnumber("X-Scale Minimum", std::nullopt);
    command(88);
    EXPECT_EQ(session.xLimitLow, 10);
}

TEST_F(Commands, RangeOfAProbabilityAxisIsThatOfItsTicks) {
    given({"150", "230", "310"});
    for (const char* lead : {"X-Scale Minimum", "X-Scale Maximum"}) desk.expectnumber(lead, "0");
    desk.expectnumber("Y-Scale Minimum [%]", "1");
    desk.expectnumber("Y-Scale Maximum [%]", "99");
    command(88);
    EXPECT_DOUBLE_EQ(session.yLimitLow, 0.01);
    EXPECT_DOUBLE_EQ(session.yLimitHigh, 0.99);
}

TEST_F(Commands, PreciseReadingGivesTheLineBothWays) {
    given({"150", "230", "310", "420"});
    const Fit line = fit();
    desk.expectmenu("Precise Reading", 2);
    desk.expectnumber("Occurrence %", "63.2120558829");
    desk.expectmessage("Reliability = ");
    desk.expectmenu("Precise Reading", 1);
    desk.expectnumber("X-Value", "200");
    desk.expectmessage("Occurrence = ");
    desk.expectmenu("Precise Reading", 3);
    command(10);
    // At 1 - 1/e the X is eta itself.
    std::string eta;
    extend(eta, static_cast<float>(line.eta));
    EXPECT_NE(desk.shown[2].text.find("X-Value = " + eta.substr(0, 5)), std::string::npos)
        << desk.shown[2].text;
    const double at200 = 100 * (1 - std::exp(-std::pow(200 / line.eta, line.beta)));
    std::string percent;
    extend(percent, static_cast<float>(at200));
    EXPECT_NE(desk.shown[5].text.find("Occurrence = " + percent.substr(0, 5)), std::string::npos)
        << desk.shown[5].text;
}

TEST_F(Commands, PreciseReadingWithoutALineSaysSo) {
    desk.expectmessage("No Fit Line");
    command(10);
}

TEST_F(Commands, ACommandTakesAnOpenEntryFirst) {
    given({"150", "230", "310"});
    session.gridRow = 4;
    session.gridEditOpen = 1;
    session.gridEditText = "420";
    command(23);
    EXPECT_EQ(column().size(), 4u);
    EXPECT_EQ(session.gridEditOpen, 0);
    EXPECT_EQ(pointcount(1), 4);
}

// ---- the green check mark ----

TEST_F(Commands, TheCheckMarkRunsTheCycle) {
    given({"150", "230", "310"});
    for (const int mode : {0, 13, 30, 77}) {
        session.activeMode = static_cast<int16_t>(mode);
        const int before = calls("repaintplot");
        command(23);
        EXPECT_EQ(calls("repaintplot"), before + 1) << mode;
    }
}

TEST_F(Commands, TheCheckMarkInMarkerModeAsksForEachLineInUse) {
    given({"150", "230", "310"});
    ASSERT_NE(markeradd(200, 2, "B10"), 0);
    session.activeMode = 50;
    desk.expectmenu("Marker Line Delete B10", 1);
    command(23);
    EXPECT_EQ(desk.shown.back().header, "Weibayes");
    EXPECT_TRUE(markerlines().empty());
}

} // namespace
