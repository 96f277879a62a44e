
#include <gtest/gtest.h>

#include "data/importread.h"
#include "data/textnormalize.h"
#include "session/capacities.h"

namespace {

using Column = std::vector<std::string>;
using CellColumns = std::vector<Column>;

CellColumns read(std::string_view text, std::size_t mostSets = 25) {
    ImportOptions options;
    options.mostSets = mostSets;
    return importread(textnormalize(decodetext(std::string(text))), *importchoice(lifeSide, "A1").form,
                      options)
        .cells;
}

} // namespace

TEST(ImportCells, TakesOneCellALine) {
    EXPECT_EQ(read("150\n-230\n310\n"), CellColumns({Column{"150", "-230", "310"}}));
}

TEST(ImportCells, TakesSeveralCellsALineAsColumns) {
    EXPECT_EQ(read("10 100\n20;200\n30\t300\n"),
              CellColumns({Column{"10", "20", "30"}, Column{"100", "200", "300"}}));
}

TEST(ImportCells, KeepsColumnsApartWhereATabbedCellIsEmpty) {
    EXPECT_EQ(read("10\t100\n\t200\n"), CellColumns({Column{"10"}, Column{"100", "200"}}));
}

TEST(ImportCells, ReadsEveryLineEndAndTheLastLineWithoutOne) {
    EXPECT_EQ(read("1\r\n2\n3"), CellColumns({Column{"1", "2", "3"}}));
}

TEST(ImportCells, NotesAndEmptyLinesAreEmptyCellsSoThatACellKeepsItsLine) {
    EXPECT_EQ(read("\xEF\xBB\xBF# hours\n\n  \n150\n#200\n300\n"),
              CellColumns({Column{"", "", "", "150", "", "300"}}));
}

TEST(ImportCells, KeepsTheBlanksOfALabel) {
    EXPECT_EQ(read("150_pump of line 7\n"), CellColumns({Column{"150_pump of line"}, Column{"7"}}));
    EXPECT_EQ(read("150_first pump 230_second pump\n"),
              CellColumns({Column{"150_first pump"}, Column{"230_second pump"}}));
    EXPECT_EQ(read("150_first pump;pump\n"), CellColumns({Column{"150_first pump"}, Column{"pump"}}));
    EXPECT_EQ(read("150_pump of line 7\t230\n"), CellColumns({Column{"150_pump of line 7"}, Column{"230"}}));
}

TEST(ImportCells, ACommaAtTheEndSeparatesAndOneInsideStays) {
    EXPECT_EQ(read("10, 20, 30\n1,5\n"), CellColumns({Column{"10", "1,5"}, Column{"20"}, Column{"30"}}));
}

TEST(ImportCells, StopsAtTheMostColumns) {
    EXPECT_EQ(read("1 2 3 4\n5 6\n", 3), CellColumns({Column{"1", "5"}, Column{"2", "6"}, Column{"3"}}));
}

TEST(ImportCells, NothingGivesNoColumns) {
    EXPECT_TRUE(read("").empty());
    EXPECT_TRUE(read(" \t \n;;\n").empty());
}
