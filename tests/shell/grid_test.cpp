#include "shell/grid.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "support/freshsession.h"
#include "support/lifecells.h"
#include "support/scriptedplatform.h"

namespace {

/// The grid of the life side; set 1 is read from its row.
class Grid : public testing::Test {
protected:
    static int read(const std::vector<std::string_view>& cells) {
        gridclear();
        lifecells(1, cells);
        return reread();
    }
    static int reread(int set = 1) {
        EXPECT_TRUE(gridget(rowofset(static_cast<float>(set))));
        return pointcount(set);
    }
    /// The one notice told, to be found in set 1's as well.
    std::string notice() const {
        EXPECT_EQ(platform.shown.size(), 1u);
        EXPECT_EQ(session.setMessages[1].size(), 1u);
        return platform.shown.empty() ? "" : platform.shown[0].text;
    }

    FreshSession fresh{lifeSide};
    ScriptedPlatform platform;
};

TEST_F(Grid, PutsTheFieldsOfACellIntoTheArrays) {
    EXPECT_EQ(read({"10x20x3x4_pump", "-30"}), 2);
    EXPECT_EQ(session.X(3, 1), 10);
    EXPECT_EQ(session.Y(3, 1), 20);
    EXPECT_EQ(session.v1(1, 1), 3);
    EXPECT_EQ(session.v2(1, 1), 4);
    EXPECT_EQ(session.X(3, 2), -30);
    EXPECT_EQ(session.v1(1, 2), 1);
}

TEST_F(Grid, ReadsTheSetThatTheRowBelongsTo) {
    lifecells(3, {"7", "8"});
    EXPECT_EQ(reread(3), 2);
    EXPECT_EQ(session.n(9), 2);
    EXPECT_EQ(session.X(9, 2), 8);
    EXPECT_EQ(reread(1), 0);
    EXPECT_EQ(reread(2), 0);
}

TEST_F(Grid, PassesOverBlankCells) {
    EXPECT_EQ(read({"", "10", "  ", "\t", "20", "\r\n"}), 2);
    EXPECT_EQ(session.X(3, 1), 10);
    EXPECT_EQ(session.X(3, 2), 20);
}

TEST_F(Grid, PassesOverACellThatHoldsALabelAlone) {
    EXPECT_EQ(read({"_note", " _note 2", "10"}), 1);
    EXPECT_EQ(session.X(3, 1), 10);
}

TEST_F(Grid, EmptiesTheRowOfASetThatIsGone) {
    read({"10", "20"});
    gridclear();
    EXPECT_EQ(reread(), 0);
}

TEST_F(Grid, TellsTheRowAndTheTextOfAnUnreadableCell) {
    platform.expectmessage("Set 1: Bad Data (1) ... Row 3 = ten");
    EXPECT_EQ(read({"10", "", "ten", "20"}), 2);
    EXPECT_EQ(session.X(3, 2), 20);
    EXPECT_EQ(notice(), "Set 1: Bad Data (1) ... Row 3 = ten");
}

TEST_F(Grid, TellsOnceHowManyCellsAreUnreadableAndWhichIsTheFirst) {
    platform.expectmessage("Bad Data (3) ... Row 2 = abc");
    EXPECT_EQ(read({"10", "  abc ", "def", "20", "?"}), 2);
    notice();
}

TEST_F(Grid, DropsACellWithACommaAndTellsIt) {
    platform.expectmessage("Bad Data (1) ... Row 2 = 12,5");
    EXPECT_EQ(read({"10", "12,5", "20"}), 2);
    EXPECT_EQ(session.X(3, 1), 10);
    EXPECT_EQ(session.X(3, 2), 20);
    notice();
}

TEST_F(Grid, DropsACommaInAnyField) {
    platform.expectmessage("Bad Data (4) ... Row 1 = 1,234");
    EXPECT_EQ(read({"1,234", "10x0x2,5", "10x0x1x3,3E+33", "10,"}), 0);
    notice();
}

TEST_F(Grid, ReadsACommaThatIsTheDecimalSymbol) {
    session.decimalSeparator = ",";
    EXPECT_EQ(read({"12,5"}), 1);
    EXPECT_EQ(session.X(3, 1), 12.5f);
}

TEST_F(Grid, KeepsALabelWholeWithItsBlanksAndCommas) {
    EXPECT_EQ(read({"10_pump 7, east wing"}), 1);
    EXPECT_EQ(session.pointLabels[1][1], "pump 7, east wing");
}

TEST_F(Grid, TakesALabelOffAgainWhenItsCellLosesIt) {
    read({"10_pump", "20_fan"});
    gridset(1, 1, "10");
    reread();
    EXPECT_EQ(session.pointLabels[1][1], "");
    EXPECT_EQ(session.pointLabels[1][2], "fan");
}

TEST_F(Grid, ReadsAnEditedCellAnew) {
    read({"10", "20"});
    gridset(1, 2, "25");
    EXPECT_EQ(reread(), 2);
    EXPECT_EQ(session.X(3, 2), 25);
    gridset(1, 1, "");
    EXPECT_EQ(reread(), 1);
    EXPECT_EQ(session.X(3, 1), 25);
}

TEST_F(Grid, TakesTheHeadingAsTitle) {
    session.gridTitles = {"Pumps"};
    read({"10"});
    EXPECT_EQ(session.rowTitle(3), "3") << "a new grid has no headings";
    session.gridTitles = {"Pumps"};
    reread();
    EXPECT_EQ(session.rowTitle(3), "Pumps");
}

TEST_F(Grid, GivesTheRowItsNumberBackWhenTheHeadingIsEmptied) {
    read({"10"});
    session.gridTitles = {"Pumps"};
    reread();
    session.gridTitles[0].clear();
    reread();
    EXPECT_EQ(session.rowTitle(3), "3");
}

TEST_F(Grid, HoldsAsManyPointsAsTheSessionHasRoomFor) {
    for (int j = 1; j <= 1500; ++j) gridset(1, j, std::to_string(j));
    EXPECT_EQ(reread(), 1500);
    EXPECT_EQ(session.X(3, 1500), 1500);
}

TEST_F(Grid, TellsThePointsBeyondItsRoom) {
    const Faults faults;
    for (int j = 1; j <= 1502; ++j) gridset(1, j, std::to_string(j));
    platform.expectmessage("Set 1: Point Quantity Too Big (+2) ... View Setup");
    EXPECT_EQ(reread(), 1500);
    EXPECT_EQ(session.X(3, 1500), 1500);
    EXPECT_TRUE(Faults::taken().empty());
    notice();
}

TEST_F(Grid, ShowsABadCellInPrintableCharacters) {
    platform.expectmessage("Row 1 = ");
    read({std::string_view("a\x01\xff\x80\0b\x7f", 7)});
    EXPECT_EQ(notice(), "Set 1: Bad Data (1) ... Row 1 = a????b?");
}

TEST_F(Grid, ShowsTheStartOfALongBadCell) {
    platform.expectmessage("Row 1 = ");
    const std::string text(200, 'z');
    read({text});
    EXPECT_EQ(notice(), "Set 1: Bad Data (1) ... Row 1 = " + std::string(24, 'z') + "...");
}

TEST_F(Grid, ShowsTheTextOfABadCellThatLooksLikeAMark) {
    platform.expectmessage("Row 1 = ");
    read({"{12}"});
    EXPECT_EQ(notice(), "Set 1: Bad Data (1) ... Row 1 = ?12?");
}

TEST_F(Grid, CannotBeReadWithoutArrays) {
    lifecells(1, {"10"});
    session.maxPoints = 0;
    session.n(3) = 4;
    EXPECT_FALSE(gridget(3));
    EXPECT_EQ(session.n(3), 4);
}

TEST_F(Grid, GrowsToTheCellThatIsPut) {
    gridset(2, 3, "5");
    ASSERT_EQ(session.gridCells.size(), 2u);
    EXPECT_TRUE(session.gridCells[0].empty());
    EXPECT_EQ(session.gridCells[1], (std::vector<std::string>{"", "", "5"}));
}

TEST_F(Grid, IsEmptyOfCellsAndHeadingsWhenCleared) {
    gridset(1, 1, "5");
    session.gridTitles = {"Pumps"};
    gridclear();
    EXPECT_TRUE(session.gridCells.empty());
    EXPECT_TRUE(session.gridTitles.empty());
}

} // namespace
