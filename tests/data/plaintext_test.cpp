#include "data/plaintext.h"

#include <gtest/gtest.h>

namespace {

using Column = std::vector<std::string>;

CellColumns read(std::string_view text) { return readplaintext(text, 25); }

} // namespace

TEST(PlainText, TakesOneCellALine) {
    EXPECT_EQ(read("150\n-230\n310\n"), CellColumns({Column{"150", "-230", "310"}}));
}

TEST(PlainText, TakesSeveralCellsALineAsColumns) {
    EXPECT_EQ(read("10 100\n20;200\n30\t300\n"),
              CellColumns({Column{"10", "20", "30"}, Column{"100", "200", "300"}}));
}

TEST(PlainText, KeepsColumnsApartWhereATabbedCellIsEmpty) {
    EXPECT_EQ(read("10\t100\n\t200\n"), CellColumns({Column{"10"}, Column{"100", "200"}}));
}

TEST(PlainText, ReadsEveryLineEndAndTheLastLineWithoutOne) {
    EXPECT_EQ(read("1\r\n2\n3"), CellColumns({Column{"1", "2", "3"}}));
}

TEST(PlainText, NotesAndEmptyLinesAreEmptyCellsSoThatACellKeepsItsLine) {
    EXPECT_EQ(read("\xEF\xBB\xBF# hours\n\n  \n150\n#200\n300\n"),
              CellColumns({Column{"", "", "", "150", "", "300"}}));
}

TEST(PlainText, KeepsTheBlanksOfALabel) {
    EXPECT_EQ(read("150_pump of line 7\n"), CellColumns({Column{"150_pump of line"}, Column{"7"}}));
    EXPECT_EQ(read("150_first pump 230_second pump\n"),
              CellColumns({Column{"150_first pump"}, Column{"230_second pump"}}));
    EXPECT_EQ(read("150_first pump;pump\n"), CellColumns({Column{"150_first pump"}, Column{"pump"}}));
    EXPECT_EQ(read("150_pump of line 7\t230\n"), CellColumns({Column{"150_pump of line 7"}, Column{"230"}}));
}

TEST(PlainText, ACommaAtTheEndSeparatesAndOneInsideStays) {
    EXPECT_EQ(read("10, 20, 30\n1,5\n"), CellColumns({Column{"10", "1,5"}, Column{"20"}, Column{"30"}}));
}

TEST(PlainText, StopsAtTheMostColumns) {
    EXPECT_EQ(readplaintext("1 2 3 4\n5 6\n", 3),
              CellColumns({Column{"1", "5"}, Column{"2", "6"}, Column{"3"}}));
}

TEST(PlainText, NothingGivesNoColumns) {
    EXPECT_TRUE(read("").empty());
    EXPECT_TRUE(read(" \t \n;;\n").empty());
}
