#include "shell/gridedit.h"

#include <gtest/gtest.h>

#include "support/shellfixture.h"

namespace {

class GridEdit : public ShellTest {
protected:
    /// Types a text into the cell in hand and presses Enter.
    static bool type(const std::string& text) {
        gridedit(text);
        return gridcommit();
    }
};

TEST_F(GridEdit, TypedValuesGoDownTheColumnAndEnterOnAnEmptyCellRunsTheCycle) {
    for (const char* text : {"150", "230", "310"}) EXPECT_TRUE(type(text));
    EXPECT_EQ(session.gridRow, 4);
    EXPECT_EQ(calls("repaintplot"), 0);
    EXPECT_EQ(session.resultsDirty, 1);
    EXPECT_FALSE(gridcommit());
    EXPECT_EQ(calls("repaintplot"), 1);
    EXPECT_TRUE(fit().fitted);
    EXPECT_EQ(session.gridRow, 4);
}

TEST_F(GridEdit, EscapeLeavesTheCellAsItWas) {
    given({"150", "230"});
    gridedit("999");
    gridleave();
    EXPECT_EQ(column()[0], "150");
    EXPECT_EQ(session.gridEditOpen, 0);
}

TEST_F(GridEdit, TheEntryOpensWithTheTextOfTheCell) {
    given({"150_a b", "230", "310"});
    gridedit();
    EXPECT_EQ(session.gridEditText, "150_a b");
    EXPECT_FALSE(gridcommit()) << "nothing changed";
    EXPECT_EQ(session.gridRow, 2);
}

TEST_F(GridEdit, AnArrowTakesTheEntry) {
    gridedit("150");
    gridmove(0, 1);
    EXPECT_EQ(column(), (Cells{"150"}));
    EXPECT_EQ(session.gridCol, 2);
}

TEST_F(GridEdit, ABadCellStaysAsTypedAndIsTold) {
    desk.expectmessage("Bad Data: Set 1, Row 1 = about 12");
    EXPECT_TRUE(type("about 12"));
    EXPECT_EQ(column(), (Cells{"about 12"}));
}

TEST_F(GridEdit, ACellIsEmptiedByAnEmptyEntry) {
    given({"150", "230"});
    EXPECT_TRUE(type("  "));
    EXPECT_EQ(column(), (Cells{"", "230"}));
}

TEST_F(GridEdit, TheCellInHandStaysWithinTheGrid) {
    gridmove(-5, -5);
    EXPECT_EQ(session.gridRow, 1);
    EXPECT_EQ(session.gridCol, 1);
    gridgo(1 << 30, 1 << 30);
    EXPECT_EQ(session.gridRow, gridrows());
    EXPECT_EQ(session.gridCol, gridcolumns());
    EXPECT_LE(gridrows(), session.maxPoints);
}

TEST_F(GridEdit, ASelectionIsTheRangeBetweenItsCorners) {
    gridgo(5, 3);
    gridgo(2, 1, true);
    const CellRange range = gridselection();
    EXPECT_EQ(range.firstRow, 2);
    EXPECT_EQ(range.lastRow, 5);
    EXPECT_EQ(range.firstCol, 1);
    EXPECT_EQ(range.lastCol, 3);
    gridgo(4, 2);
    EXPECT_EQ(session.gridMarked, 0);
}

TEST_F(GridEdit, MarksTellTheKindsOfPoints) {
    session.inputType = intv5;
    session.gridCells = {{"150", "-230", "<90", "10x0x1x20", ">300", "abc", "_label", ""}};
    const CellMark wanted[] = {CellMark::none,     CellMark::suspended, CellMark::discovered,
                               CellMark::interval, CellMark::suspended, CellMark::unreadable,
                               CellMark::none,     CellMark::none};
    for (int row = 1; row <= 8; ++row) EXPECT_EQ(gridmark(1, row), wanted[row - 1]) << row;
    EXPECT_EQ(gridmark(2, 1), CellMark::none);
    EXPECT_EQ(gridmark(0, 0), CellMark::none);
}

TEST_F(GridEdit, TheFormatLineFollowsTheInputMethod) {
    EXPECT_EQ(gridformat(), "Y-Value _ Point Label Or ID");
    session.inputType = km4;
    EXPECT_EQ(gridformat(), "X-Value x Y-Value x Quantity _ Point Label Or ID");
    session.inputType = intv5;
    EXPECT_EQ(gridformat(), "Age x Y-Value (<Age = Unknown Before, >Age = Unknown After) _ Label Or ID");
    chooseside(visualSide);
    EXPECT_EQ(gridformat(), "X-Value x Y-Value _ Point Label Or ID");
}

TEST_F(GridEdit, APressOnAHeadingSelectsTheSetAndAsksForItsTitle) {
    given({"150", "230", "310"});
    desk.expecttext("Title = Set 1", "Bearings");
    gridheadingpress(1);
    EXPECT_EQ(gridheading(1), "Bearings");
    EXPECT_EQ(session.gridMarked, 1);
    EXPECT_EQ(gridselection().lastRow, 3);
    desk.expecttext("Title = Bearings", std::nullopt);
    gridheadingpress(1);
    EXPECT_EQ(gridheading(1), "Bearings");
    desk.expecttext("Title = Bearings", "");
    gridheadingpress(1);
    EXPECT_EQ(gridheading(1), "Set 1");
    EXPECT_EQ(gridheading(2), "Set 2");
}

TEST_F(GridEdit, ASecondaryPressExplainsAndOffersThePointLabels) {
    given({"150", "230", "310"});
    desk.expectmenu("Row 2 = 230", 2);
    desk.expectmenu("Point Quantity = 3", 3);
    gridexplain(2, 1);
    EXPECT_EQ(session.pointLabelsShown, 0);
    EXPECT_EQ(desk.shown[0].items[0], "A...Select With Zoom");
    EXPECT_EQ(desk.shown[1].items[1], "B...Display Point Label On Plot = No (/ Yes)");
}

TEST_F(GridEdit, ACellOfThePointsReadsBackAsTheSamePoint) {
    session.inputType = intv5;
    const Cells texts = {"150", ">230", "<90", ">10<20", "-400_b c", "310x0x3", ">10<20x0x4_z"};
    life(texts);
    gridputall();
    EXPECT_EQ(column(), texts);
}

// ---- cut, copy, delete and paste ----

TEST_F(GridEdit, CutAndUndoGiveTheGridBackExactly) {
    session.undoActive = 1;
    const Cells cells = {"150", "-230_a b", "310x0x3", "_only a label", "420", "500"};
    given(cells);
    gridgo(2, 1);
    gridgo(4, 1, true);
    ASSERT_TRUE(gridcopy(2));
    EXPECT_EQ(column(), (Cells{"150", "", "", "", "420", "500"}));
    editaction(editUndo);
    EXPECT_EQ(column(), cells);
}

TEST_F(GridEdit, DeletingTheLastPointsOfASetAsks) {
    given({"150", "230", "310"});
    gridgo(1, 1);
    gridgo(3, 1, true);
    desk.expectmenu("Delete Data + Results?", 2);
    EXPECT_FALSE(gridcopy(1));
    EXPECT_EQ(column().size(), 3u);
    desk.expectmenu("Delete Data + Results?", 1);
    EXPECT_TRUE(gridcopy(1));
    EXPECT_TRUE(session.gridCells.empty());
}

TEST_F(GridEdit, WhatWasCopiedPastesAsTheSameCells) {
    session.inputType = intv5;
    choosemethod(2);
    given({"150", ">230", "310x0x3", "<90_z"});
    gridgo(4, 1, true);
    ASSERT_TRUE(gridcopy(3));
    gridgo(2, 3);
    ASSERT_TRUE(gridpaste());
    ASSERT_EQ(session.gridCells.size(), 3u);
    EXPECT_EQ(column(2), (Cells{"", "150", ">230", "310x0x3", "<90_z"}));
    EXPECT_EQ(column(0).size(), 4u);
}

TEST_F(GridEdit, WhatIsNoPointIsCopiedAsItsText) {
    session.gridCells = {{"1,5", "later", "_only a label", "7"}};
    EXPECT_EQ(gridmark(1, 1), CellMark::unreadable) << "the comma may have been meant as a decimal one";
    const auto back = gridtextread(gridtext());
    ASSERT_TRUE(back);
    EXPECT_EQ((*back)[0], session.gridCells[0]);
}

TEST_F(GridEdit, CopiedNumbersBearTheDecimalSymbolOfExportedText) {
    session.exportDecimal = ",";
    session.gridCells = {{"1.5", ">2.25_a.b"}};
    EXPECT_NE(gridtext().find("1,5\t0\t1\tOccr"), std::string::npos);
    const auto back = gridtextread(gridtext());
    ASSERT_TRUE(back);
    EXPECT_EQ((*back)[0], session.gridCells[0]);
}

TEST_F(GridEdit, TextOfASpreadsheetPastesFromTheCellInHand) {
    given({"150", "230", "310"});
    desk.clipboardText = "500\n600\n";
    gridgo(2, 1);
    ASSERT_TRUE(gridpaste());
    EXPECT_EQ(column(), (Cells{"150", "500", "600"}));
}

TEST_F(GridEdit, APasteWiderThanTheSetsIsRefused) {
    given({"150", "230", "310"});
    desk.clipboardText = "Note: X(X-Scale) Y(Y-Scale) Q(Quantity) Z(Occr,Susp) L(Label_Point)\r\n\r\n"
                         "Set1 X\tSet1 Y\tSet1 Q\tSet1 Z\tSet1 L\tSet2 X\tSet2 Y\tSet2 Q\tSet2 Z\tSet2 L\r\n"
                         "5\t0\t1\tOccr\t\t6\t0\t1\tOccr\t\r\n";
    gridgo(1, static_cast<int>(session.maxSets));
    desk.expectmessage("Point Quantity Too Big ... View Setup");
    EXPECT_FALSE(gridpaste());
    EXPECT_EQ(session.gridCells.size(), 1u);
    EXPECT_EQ(column(), (Cells{"150", "230", "310"}));
}

TEST_F(GridEdit, APasteOfMorePointsThanThereIsRoomForIsRefused) {
    given({"150", "230", "310"});
    std::string text;
    for (int i = 0; i < static_cast<int>(session.maxPoints); ++i) text += std::to_string(i + 1) + "\n";
    desk.clipboardText = text;
    gridgo(2, 1);
    desk.expectmessage("Point Quantity Too Big ... View Setup");
    EXPECT_FALSE(gridpaste());
    EXPECT_EQ(column().size(), 3u);
}

TEST_F(GridEdit, AClipboardWithoutDataIsToldAndTheGridStays) {
    given({"150", "230", "310"});
    desk.expectmessage("No Data");
    EXPECT_FALSE(gridpaste());
    EXPECT_EQ(column().size(), 3u);
}

// ---- the grid as text ----

TEST_F(GridEdit, TheTextNamesItsColumnsAndWritesARowAPoint) {
    session.inputType = intv5;
    session.gridCells = {{"150", "-230_a", "<90", "10x0x2x20"}, {"7"}};
    EXPECT_EQ(gridtext(),
              "Note: X(X-Scale) Y(Y-Scale) Q(Quantity) Z(Occr,Susp,Disc,Intv) L(Label_Point)\r\n\r\n"
              "Set1 X\tSet1 Y\tSet1 Q\tSet1 Z\tSet1 L\tSet2 X\tSet2 Y\tSet2 Q\tSet2 Z\tSet2 L\r\n"
              "150\t0\t1\tOccr\t\t7\t0\t1\tOccr\t\r\n"
              "230\t0\t1\tSusp\ta\t\t\t\t\t\r\n"
              "90\t0\t1\tDisc\t\t\t\t\t\t\r\n"
              "10\t0\t2\t20 Upper\t\t\t\t\t\t\r\n");
}

TEST_F(GridEdit, TheNoteFollowsTheInputMethod) {
    const std::pair<int16_t, const char*> notes[] = {{standard0, "Z(Occr,Susp) L"},
                                                     {insp1, "Z(Occr,Susp) L"},
                                                     {prbt2, "Z(Occr-Cumulative) L"},
                                                     {prbt3, "Z(Sample Size) L"},
                                                     {km4, "Z(Occr-In-Intv) L"}};
    for (const auto& [input, note] : notes) {
        session.inputType = input;
        EXPECT_NE(gridtext().find(note), std::string::npos) << input;
    }
    chooseside(visualSide);
    EXPECT_NE(gridtext().find("Z(3D) L"), std::string::npos);
}

TEST_F(GridEdit, TheTextReadsBackAsTheSamePoints) {
    session.inputType = intv5;
    session.gridCells = {{"150", ">230_a b", "<90", "10x0x2x20"}, {"7", "", "8x5x2"}};
    const auto back = gridtextread(gridtext());
    ASSERT_TRUE(back);
    ASSERT_EQ(back->size(), 2u);
    EXPECT_EQ((*back)[0], session.gridCells[0]);
    EXPECT_EQ((*back)[1], (Cells{"7", "", "8x5x2", ""}));
}

TEST_F(GridEdit, OtherTextIsNoGridText) {
    EXPECT_FALSE(gridtextread(""));
    EXPECT_FALSE(gridtextread("150\n230\n"));
    const auto empty = gridtextread("Note: X(X-Scale) Y(Y-Scale) Q(Quantity) ");
    ASSERT_TRUE(empty);
}

// ---- statistics ----

TEST_F(GridEdit, StatisticsWeighPointsByQuantity) {
    given({"10", "20x0x3", "-30"});
    desk.expectmenu("Data Grid Summary", 0);
    gridstatistics();
    const auto& items = desk.shown.back().items;
    const auto has = [&](const char* item) {
        return std::find(items.begin(), items.end(), item) != items.end();
    };
    EXPECT_TRUE(has("Q...Total Quantity = 5"));
    EXPECT_TRUE(has("F...Failure Quantity = 4"));
    EXPECT_TRUE(has("A...X Minimum = 10"));
    EXPECT_TRUE(has("B...X Maximum = 30"));
    EXPECT_TRUE(has("C...X Mean = 20"));
    EXPECT_TRUE(has("M...X Median = 20"));
}

TEST_F(GridEdit, StatisticsPassOverCellsThatTheFitPassesOver) {
    desk.expectmessage("Bad Data");
    given({"10", "20", "1,5", "30"});
    desk.expectmenu("Data Grid Summary", 0);
    gridstatistics();
    EXPECT_EQ(desk.shown.back().items[0], "N...Point Quantity = 3");
}

TEST_F(GridEdit, AnExtremePointIsChangedFromTheStatistics) {
    given({"10", "20", "30"});
    desk.expectmenu("Data Grid Summary", 8);
    desk.expecttext("Row 3 = 30", "35");
    desk.expectmenu("Data Grid Summary", 0);
    gridstatistics();
    EXPECT_EQ(desk.shown[0].items[7], "B...X Maximum = 30");
    EXPECT_EQ(column(), (Cells{"10", "20", "35"}));
}

TEST_F(GridEdit, ACellShowsItsPlottingPositionWhereThatIsWanted) {
    given({"100", "-150", "200", "300"});
    EXPECT_EQ(gridordinate(1, 1), "");
    session.ordinatesInGrid = 1;
    EXPECT_EQ(gridordinate(1, 1), "   15.91 %") << "Benard: 100 (1 - 0.3) / 4.4";
    EXPECT_EQ(gridordinate(1, 2), "") << "a suspension has none";
    EXPECT_EQ(gridordinate(1, 5), "");
    EXPECT_EQ(gridordinate(2, 1), "");
    gridset(1, 1, "170");
    EXPECT_EQ(gridordinate(1, 1), "") << "the position was that of another value";
    gridset(1, 5, "400");
    EXPECT_EQ(gridordinate(1, 3), "") << "nor does any hold for more points";
}

} // namespace
