#include "data/textimport.h"

#include <gtest/gtest.h>

#include "shell/calcplot.h"
#include "support/freshsession.h"
#include "support/scriptedplatform.h"

namespace {

using Column = std::vector<std::string>;
using Columns = std::vector<Column>;

class TextImport : public testing::Test {
protected:
    explicit TextImport(Side side = lifeSide) : fresh(side) {}

    static TextRead import(std::string text, bool further = false) {
        session.msg = std::move(text);
        return textimport(TextFrom::text, further);
    }
    const ScriptedPlatform::Shown& last() const { return platform.shown.back(); }

    FreshSession fresh;
    ScriptedPlatform platform;
};

class TextImportXY : public TextImport {
protected:
    TextImportXY() : TextImport(visualSide) {}
};

constexpr int exitLife = 11, exitXY = 12;

} // namespace

TEST_F(TextImport, AsksForTheFormatWithTheOneThatTheTextShows) {
    platform.expectmenu("Format:", 5);
    EXPECT_EQ(import("150 F\n230 S\n"), TextRead::read);
    EXPECT_EQ(session.gridCells, Columns({{"150", "-230"}}));
    EXPECT_EQ(last().preset, 5);
    EXPECT_EQ(last().items[4], "E...X-Value  F/S");
    EXPECT_EQ(last().items[0], "A...X-Value  Quantity  [New Set ...]");
    EXPECT_EQ(last().items.back(), "X...Exit");
    EXPECT_EQ(session.importFormat, "E");
}

TEST_F(TextImport, AsksTheInnerQuestionOfALetterThatHasOne) {
    platform.expectmenu("Format:", 8);
    platform.expectmenu("Format:", 2);
    EXPECT_EQ(import("10 1 20\n20 2 15\n"), TextRead::read);
    EXPECT_EQ(session.gridCells, Columns({{"10x0x1x20", "20x0x2x15"}}));
    EXPECT_EQ(session.inputType, km4);
    EXPECT_EQ(session.importFormat, "K2");
}

TEST_F(TextImport, OpensWithTheLastChoiceWhereTheTextShowsNoOther) {
    session.importFormat = "C";
    platform.expectmenu("Format:", 3);
    import("10 1 2\n");
    EXPECT_EQ(last().preset, 3);
}

TEST_F(TextImport, ExitAndCancelLeaveTheSessionAsItWas) {
    session.gridCells = {{"1", "2"}};
    session.gridTitles = {"old"};
    for (const int choice : {exitLife, 0}) {
        platform.expectmenu("Format:", choice);
        EXPECT_EQ(import("150 F\n230 S\n"), TextRead::refused);
        platform.expectmenu("Format:", 8);
        platform.expectmenu("Format:", choice == 0 ? 0 : 4);
        EXPECT_EQ(import("150 F\n230 S\n"), TextRead::refused) << "at the inner question";
    }
    EXPECT_EQ(session.gridCells, Columns({{"1", "2"}}));
    EXPECT_EQ(session.gridTitles, Column({"old"}));
    EXPECT_EQ(session.importFormat, "");
}

TEST_F(TextImport, ATextWithoutANumberIsNoDataAndChangesNothing) {
    session.gridCells = {{"1"}};
    session.inputType = insp1;
    for (const char* text : {"", " \n\t\n", "# 5\n", "hello\nworld\n", "-\n+\n"}) {
        platform.expectmessage("No Data");
        EXPECT_EQ(import(text), TextRead::empty) << text;
    }
    EXPECT_EQ(session.gridCells, Columns({{"1"}}));
    EXPECT_EQ(session.inputType, insp1);
}

TEST_F(TextImport, ASettledFormatAsksNothing) {
    session.formatWanted = "C";
    EXPECT_EQ(import("10 2 1\n"), TextRead::read);
    EXPECT_EQ(session.gridCells, Columns({{"10x0x2x0", "-10x0x1x0"}}));
    session.formatWanted = "Q";
    EXPECT_EQ(import("10 2 1\n"), TextRead::refused) << "no format of this side";
    EXPECT_EQ(session.msg, "Unknown Format: Q");
}

TEST_F(TextImport, ShowsBothReadingsOfACommaAndTakesTheChosenOne) {
    session.formatWanted = "A1";
    platform.expectmenu("Decimal Symbol \",\"? 1,5", 1);
    EXPECT_EQ(import("1,5\n2,5\n"), TextRead::read);
    EXPECT_EQ(session.gridCells, Columns({{"1.5", "2.5"}}));
    EXPECT_EQ(last().items, Column({"1...1.5", "2...1 | 5", "X...Exit"}));
    platform.expectmenu("Decimal Symbol", 2);
    EXPECT_EQ(import("1,5\n2,5\n"), TextRead::read);
    EXPECT_EQ(session.gridCells, Columns({{"1", "2"}, {"5", "5"}}));
    platform.expectmenu("Decimal Symbol", 3);
    EXPECT_EQ(import("7,5\n8,5\n"), TextRead::refused);
    EXPECT_EQ(session.gridCells, Columns({{"1", "2"}, {"5", "5"}}));
    platform.expectmenu("Decimal Symbol", 2);
    EXPECT_EQ(import("1,500\t2\n"), TextRead::read);
    EXPECT_EQ(last().items[0], "1...1.500 | 2");
    EXPECT_EQ(last().items[1], "2...1500 | 2");
    EXPECT_EQ(session.gridCells, Columns({{"1500"}, {"2"}}));
}

TEST_F(TextImport, ACommaThatMayStandBetweenThousandsIsOneOfThreeReadings) {
    session.formatWanted = "A1";
    platform.expectmenu("Decimal Symbol \",\"? 1,500 2,500", 2);
    EXPECT_EQ(import("1,500 2,500\n3,500 4,500\n"), TextRead::read);
    EXPECT_EQ(last().items,
              Column({"1...1.500 | 2.500", "2...1500 | 2500", "3...1 | 500 | 2 | 500", "X...Exit"}));
    EXPECT_EQ(session.gridCells, Columns({{"1500", "3500"}, {"2500", "4500"}}));
    platform.expectmenu("Decimal Symbol", 2);
    EXPECT_EQ(import("1,234.5\n2,345.6\n"), TextRead::read);
    EXPECT_EQ(last().items, Column({"1...1234.5", "2...1 | 234.5", "X...Exit"}))
        << "no decimal comma beside a point";
    EXPECT_EQ(session.gridCells, Columns({{"1", "2"}, {"234.5", "345.6"}}));
}

TEST_F(TextImport, WithoutPromptsCommasBetweenThousandsAreRefusedAndTheDecimalSymbolSettlesThem) {
    session.noPrompt = 1;
    for (const char* text : {"1,234.5\n2,345.6\n", "1,500 2,500\n", "1,234,567\n", "500.5\n1,500\n2,500\n"}) {
        session.gridCells = {{"1"}};
        platform.expectmessage("Decimal Symbol Unknown: 1,");
        EXPECT_EQ(import(text), TextRead::refused) << text;
        EXPECT_EQ(session.gridCells, Columns({{"1"}}));
    }
    session.decimalWanted = ".";
    import("1,234.5\n2,345.6\n");
    EXPECT_EQ(session.gridCells, Columns({{"1234.5", "2345.6"}}));
    import("1,234,567\n");
    EXPECT_EQ(session.gridCells, Columns({{"1234567"}}));
    session.decimalWanted = ",";
    import("1,500 2,500\n");
    EXPECT_EQ(session.gridCells, Columns({{"1.500"}, {"2.500"}}));
}

TEST_F(TextImport, LinesThatSpeakAgainstEachOtherAreRefusedWithTheOneReadingThereIs) {
    session.noPrompt = 1;
    session.gridCells = {{"1"}};
    for (const char* text : {"1,5 2,5\n1,2,3\n", ".4,2\f4,2\f"}) {
        platform.expectmessage("? ... --decimal comma / --decimal point");
        EXPECT_EQ(import(text), TextRead::refused) << text;
        EXPECT_EQ(last().text.find(" Or "), std::string::npos) << last().text;
        EXPECT_EQ(session.gridCells, Columns({{"1"}})) << text;
    }
}

TEST_F(TextImport, WithoutPromptsAnUnclearCommaIsRefusedAndNothingIsLost) {
    session.noPrompt = 1;
    session.gridCells = {{"1"}};
    platform.expectmessage(
        "Decimal Symbol Unknown: 1,5 = 1.5 Or 1 | 5? ... --decimal comma / --decimal point");
    EXPECT_EQ(import("1,5\n2,5\n"), TextRead::refused);
    EXPECT_EQ(session.gridCells, Columns({{"1"}}));
    session.decimalSeparator = ",";
    EXPECT_EQ(import("1,5\n2,5\n"), TextRead::read) << "the session's own symbol";
    EXPECT_EQ(session.gridCells, Columns({{"1.5", "2.5"}}));
}

TEST_F(TextImport, WithoutPromptsTakesTheFormThatNoOtherCanBe) {
    session.noPrompt = 1;
    EXPECT_EQ(import("10 100\n20 200\n"), TextRead::read);
    EXPECT_EQ(session.gridCells, Columns({{"10", "20"}, {"100", "200"}}));
    EXPECT_EQ(import("2024-01-01 2024-01-31\n2024-01-01 2024-03-01+\n"), TextRead::read);
    EXPECT_EQ(session.gridCells, Columns({{"30", "-60"}}));
}

TEST_F(TextImport, ATitleGoesToTheSetAndHeadingsToTheirColumns) {
    session.noPrompt = 1;
    import("Pump A, old\n150\n230\n");
    EXPECT_EQ(session.gridTitles, Column({"Pump A old"}));
    EXPECT_EQ(session.gridCells, Columns({{"", "150", "230"}})) << "a cell keeps the row of its line";
    import("First pump\tSecond pump\n150\t230\n");
    EXPECT_EQ(session.gridTitles, Column({"First pump", "Second pump"}));
    session.formatWanted = "B1";
    import("North\n150\n\nSouth\n230\n");
    EXPECT_EQ(session.gridTitles, Column({"North", "South"}));
    EXPECT_EQ(session.gridCells, Columns({{"150"}, {"230"}}));
}

TEST_F(TextImport, FurtherSetsStandBehindTheOthersWithTheirTitles) {
    session.noPrompt = 1;
    import("150\n230\n");
    import("Second\n310\n", true);
    EXPECT_EQ(session.gridCells, Columns({{"150", "230"}, {"", "310"}}));
    EXPECT_EQ(session.gridTitles, Column({"", "Second"}));
}

TEST_F(TextImport, ARowThatDoesNotFitIsShownWithAQuestionMark) {
    session.noPrompt = 1;
    session.formatWanted = "D";
    import("10 2 F\n20 two F\n30 1 ?\n40 -1 F\n50 1 F 7\n60 1\n70 0 F\n80 3 S\n");
    EXPECT_EQ(session.gridCells, Columns({{"10x0x2x0", "? 20 two F", "? 30 1 ?", "? 40 -1 F", "? 50 1 F 7",
                                           "? 60 1", "-80x0x3x0"}}))
        << "a quantity of nothing is no point";
    session.formatWanted = "F";
    import("20 10\n2024-01-01 5\nnan 7\n");
    EXPECT_EQ(session.gridCells, Columns({{"? 20 10", "? 2024-01-01 5", "? nan 7"}}));
}

TEST_F(TextImport, ADateIsNeverReadAsANumber) {
    session.noPrompt = 1;
    import("1\n2024-01-05\n05.01.2024\n");
    EXPECT_EQ(session.gridCells, Columns({{"1", "? 2024-01-05", "? 05.01.2024"}}));
}

TEST_F(TextImport, AnOrderOfDatesThatNobodyChoseIsNotGuessedAt) {
    session.noPrompt = 1;
    session.formatWanted = "E";
    import("05/01/24 06/01/24 F\n05.01.24 06.01.24 F\n01.02.2024 03.02.2024 F\n01/02/2024 03/02/2024 F\n");
    EXPECT_EQ(session.gridCells,
              Columns({{"? 05/01/24 06/01/24 F", "? 05.01.24 06.01.24 F", "2", "? 01/02/2024 03/02/2024 F"}}))
        << "points stand between day, month and year";
}

TEST_F(TextImport, MarksOfSuspensionNeedNobodyToAsk) {
    session.noPrompt = 1;
    import("100 F\n200 S\n300 F\n");
    EXPECT_EQ(session.gridCells, Columns({{"100", "-200", "300"}}));
    import("Hours,Status\n100,Failed\n200,Suspended\n300,failure\n400,CENSORED\n");
    EXPECT_EQ(session.gridCells, Columns({{"100", "-200", "300", "-400"}}));
    import("100 2 F\n200 3 S\n");
    EXPECT_EQ(session.gridCells, Columns({{"100x0x2x0", "-200x0x3x0"}}));
    session.formatWanted = "E";
    import("100 Fine\n200 still\n300 F2\n400 1\n500 +\n");
    EXPECT_EQ(session.gridCells, Columns({{"? 100 Fine", "? 200 still", "? 300 F2", "400", "-500"}}));
}

TEST_F(TextImport, AnIntervalWithMarksHoldsWhatTheySay) {
    session.noPrompt = 1;
    for (const char* format : {"F", "B5"}) {
        const bool quantity = format[0] == 'B';
        session.formatWanted = format;
        import(quantity ? "<20;1\n>10;1;20\n>10;1\n10;1;20\n" : "<20;\n>10;20\n>10;\n10;20\n");
        EXPECT_EQ(session.gridCells, Columns({{"20x0x1x-3.3E+33", quantity ? "? >10 1 20" : "? >10 20",
                                               "10x0x1x3.3E+33", "10x0x1x20"}}))
            << format;
    }
}

TEST_F(TextImport, AFirstRowWithANumberIsNoTitle) {
    session.noPrompt = 1;
    for (const auto& [first, cell] : {std::pair{"> 100", ">100"},
                                      {"\xE2\x88\x92"
                                       "100",
                                       "-100"},
                                      {"$100", "$100"},
                                      {"NA", "NA"},
                                      {"n/a", "n/a"}}) {
        import(std::string(first) + "\n200\n300\n");
        ASSERT_EQ(session.gridCells.size(), 1u) << first;
        std::string shown = session.gridCells[0][0];
        std::erase(shown, ' ');
        EXPECT_EQ(shown, cell);
    }
    import("NA;100\n200;300\n");
    EXPECT_EQ(session.gridCells, Columns({{"NA", "200"}, {"100", "300"}}));
    import("- 100\n7 200\n");
    EXPECT_EQ(session.gridCells, Columns({{"-", "7"}, {"100", "200"}}));
    import("Pump 7 of the north\n200\n300\n");
    EXPECT_EQ(session.gridTitles, Column({"Pump 7 of the north"})) << "a sentence over a column";
    session.formatWanted = "B1";
    import("$100\n200\n");
    EXPECT_EQ(session.gridCells, Columns({{"? $100", "200"}}));
}

TEST_F(TextImport, ANumberOutOfRangeIsUnreadable) {
    session.noPrompt = 1;
    import("1e400\n5\n5x0x1e400\n");
    EXPECT_EQ(session.gridCells, Columns({{"? 1e400", "5", "? 5x0x1e400"}}));
    session.formatWanted = "B1";
    import("5 1e400\n6 3.3E+33\n7 2\n");
    EXPECT_EQ(session.gridCells, Columns({{"? 5 1e400", "? 6 3.3E+33", "7x0x2x0"}}));
}

TEST_F(TextImport, DatesFollowTheOrderOfTheSettings) {
    session.noPrompt = 1;
    session.formatWanted = "E";
    session.dateFormat = {"D", "M", "Y"};
    import("01.02.2024 03.02.2024 F\n31/12/99 1/1/00 S\n2024-02-28 2024-03-01 F\n31.02.2024 1.3.2024 F\n");
    EXPECT_EQ(session.gridCells, Columns({{"2", "-1", "2", "? 31.02.2024 1.3.2024 F"}}));
}

TEST_F(TextImport, SuspensionsAreSentinelsWhereAMinusIsAValue) {
    session.noPrompt = 1;
    session.negativeXAllowed = 1;
    session.formatWanted = "E";
    import("-5 S\n7 F\n");
    EXPECT_EQ(session.gridCells, Columns({{"-5x0x1x3.3E+33", "7"}}));
}

TEST_F(TextImport, AsksOnceForEachKindOfCellAndNotForEachCell) {
    session.formatWanted = "A1";
    platform.expectmenu("Input Method", 5);
    EXPECT_EQ(import("10x0x2\n20x0x3\n30x0x4\n"), TextRead::read);
    platform.expectmenu("Change To mle Interval Data", 1);
    EXPECT_EQ(import("<10\n<20\n30x0x1x40\n"), TextRead::read);
    EXPECT_EQ(session.inputType, intv5);
}

TEST_F(TextImport, IntervalsAreAMatterOfLikelihood) {
    session.noPrompt = 1;
    session.formatWanted = "F";
    import("10 20\n");
    EXPECT_EQ(session.inputType, intv5);
    EXPECT_EQ(session.fitMethod, maximumLikelihood);
}

TEST_F(TextImport, RowsThatTheArraysCannotHoldAreToldWithTheirCount) {
    session.noPrompt = 1;
    std::string text;
    const int rows = static_cast<int>(session.maxPoints) + 3;
    for (int row = 1; row <= rows; ++row) text += std::to_string(row) + "\n";
    ASSERT_EQ(import(text), TextRead::read);
    EXPECT_EQ(session.gridCells[0].size(), static_cast<std::size_t>(rows)) << "larger arrays may come";
    platform.expectmessage("Set 1: Point Quantity Too Big (+3)");
    calcplot();
    EXPECT_EQ(session.n(3), session.maxPoints);
}

TEST_F(TextImport, ReadsAFileAndTheClipboardByName) {
    session.noPrompt = 1;
    platform.clipboardText = "5\n6\n";
    session.msg = "CLIPBOARD";
    EXPECT_EQ(textimport(TextFrom::file), TextRead::read);
    EXPECT_EQ(session.gridCells, Columns({{"5", "6"}}));
    session.msg = "/nowhere/at.all";
    EXPECT_EQ(textimport(TextFrom::file), TextRead::refused);
    EXPECT_EQ(session.msg, "Cannot Open File: /nowhere/at.all");
    EXPECT_EQ(session.gridCells, Columns({{"5", "6"}}));
}

TEST_F(TextImportXY, OffersItsOwnMenu) {
    platform.expectmenu("Format:", exitXY);
    EXPECT_EQ(import("28 026\n100+ 026\n"), TextRead::refused);
    EXPECT_EQ(last().preset, 8);
    EXPECT_EQ(last().items[7], "N...Age  ('+' = Suspension) ID-Label");
    EXPECT_EQ(last().items.back(), "X...Exit");
}

TEST_F(TextImportXY, TakesColumnsInPairsAndCellsAsTheyStand) {
    session.noPrompt = 1;
    import("1 10\n2 20\n");
    EXPECT_EQ(session.gridCells, Columns({{"1x10", "2x20"}}));
    import("1x2\n2x5\n3x4\n");
    EXPECT_EQ(session.gridCells, Columns({{"1x2", "2x5", "3x4"}}));
    import("1x2\t5\n2x5\t6\n");
    EXPECT_EQ(session.gridCells, Columns({{"1x2", "2x5"}, {"5", "6"}}));
}

TEST_F(TextImportXY, APairWithoutItsSecondNumberIsNoPoint) {
    session.noPrompt = 1;
    import("1 10\n2 20\n3\n4 40\n");
    EXPECT_EQ(session.gridCells, Columns({{"1x10", "2x20", "? 3", "4x40"}}));
}

TEST_F(TextImportXY, NumbersTheUnitsOfAgesWithoutAnId) {
    session.noPrompt = 1;
    import("28\n100+\n50\n70+\n");
    EXPECT_EQ(session.gridCells, Columns({{"28x1_1", "100x0x1x3.3E+33_1", "50x1_2", "70x0x1x3.3E+33_2"}}));
}
