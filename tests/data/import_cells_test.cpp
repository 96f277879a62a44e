
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

TEST(ImportCells, ACommaAtTheEndSeparatesAndOneInsideThatNobodyDecidedIsNoNumber) {
    EXPECT_EQ(read("10, 20, 30\n1,5\n"), CellColumns({Column{"10", "? 1,5"}, Column{"20"}, Column{"30"}}));
}

TEST(ImportCells, StopsAtTheMostColumns) {
    EXPECT_EQ(read("1 2 3 4\n5 6\n", 3), CellColumns({Column{"1", "5"}, Column{"2", "6"}, Column{"3"}}));
}

TEST(ImportCells, NothingGivesNoColumns) {
    EXPECT_TRUE(read("").empty());
    EXPECT_TRUE(read(" \t \n;;\n").empty());
}

TEST(ImportCells, ANumberWithSomethingBehindItIsNoNumber) {
    for (const char* cell : {"100S", "12:30", "1/2", "10-20", "10..20",
                             "10\xC2\xB1"
                             "2",
                             "3D3", "100-", "12'30", "5xy", "5x1:2", "1x2x3x4x5", ">10S", "<10:5"})
        EXPECT_EQ(read(cell), CellColumns({Column{std::string("? ") + cell}})) << cell;
    for (const char* cell : {"12%", "3@4", "1E+3", "-5", "+5", ".5", ">10", "<10", ">10<20", "<20>10", "5xx3",
                             "5x0x3x", "100x0x1x3.3E+33_12:30", "5_1/2"})
        EXPECT_EQ(read(cell), CellColumns({Column{cell}})) << cell;
}

TEST(ImportCells, MarksBetweenThousandsGoWhereTheyCanBeNothingElse) {
    for (const char* number : {"1'234'567",
                               "1\xC2\xA0"
                               "234\xC2\xA0"
                               "567",
                               "1\xE2\x80\xAF"
                               "234\xE2\x80\xAF"
                               "567",
                               "1\xE2\x80\x89"
                               "234\xE2\x80\x89"
                               "567"})
        EXPECT_EQ(read(std::string(number) + "\n-2'000.5\n"), CellColumns({Column{"1234567", "-2000.5"}}))
            << number;
    EXPECT_EQ(read("1\xA0"
                   "234\n"),
              CellColumns({Column{"1234"}}))
        << "the no-break space of windows-1252";
    EXPECT_EQ(read("12\xE2\x80\xAF"
                   "34\n0'123\n"),
              CellColumns({Column{"? 12\xE2\x80\xAF"
                                  "34",
                                  "? 0'123"}}));
    EXPECT_EQ(read("150\xC2\xA0"
                   "20\n150\xC2\xA0"
                   "234\n"),
              CellColumns({Column{"150", "? 150\xC2\xA0"
                                         "234"},
                           Column{"20"}}))
        << "where it stands between columns, too, it says nothing certain";
}

TEST(ImportCells, DecimalCommasBehindALabelAreSeen) {
    EXPECT_EQ(textnormalize("pump;1,5\nfan;2,5\n", textlook("pump;1,5\nfan;2,5\n").marks),
              "pump\t1.5\rfan\t2.5\r");
}
