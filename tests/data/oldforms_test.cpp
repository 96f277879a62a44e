#include "data/oldforms.h"

#include <gtest/gtest.h>

#include "data/datafileopen.h"
#include "session/session.h"
#include "support/freshsession.h"
#include "support/scriptedplatform.h"

namespace {

using Columns = std::vector<std::vector<std::string>>;

class OldForms : public testing::Test {
protected:
    FileRead take(const std::string& text) { return datafiletake(text, ""); }

    FreshSession fresh{lifeSide};
    ScriptedPlatform desktop;
};

TEST_F(OldForms, APlainHistoryHoldsOccurrencesAndSuspensionsOfEachValue) {
    ASSERT_EQ(take("HISTORY OF VALUE, OCCURRENCE, SUSPENSION\r\n"
                   "Pump A\r\n150 1 0\r\n230 3 2 seal worn\r\n400 0 1\r\n\r\nPump B\r\n20 1\r\n30\r\n"),
              FileRead::read);
    EXPECT_EQ(session.gridCells,
              (Columns{{"150", "230x0x3_seal worn", "-230x0x2_seal worn", "-400"}, {"20", "30"}}));
    EXPECT_EQ(session.gridTitles, (std::vector<std::string>{"Pump A", "Pump B"}));
}

TEST_F(OldForms, AnOldHistoryAsksHowItsColumnsAreToBeRead) {
    const std::string history = "History file\n10 2\n20 3\n";
    desktop.expectmenu("Column Format:", 1);
    ASSERT_EQ(take(history), FileRead::read);
    EXPECT_EQ(session.gridCells, (Columns{{"10x0x2", "20x0x3"}}));
    EXPECT_EQ(
        desktop.shown.back().items,
        (std::vector<std::string>{"A...X-Value  Quantity", "B...X-Value  Y-Value",
                                  "S...X-Value  Occurrence-Quantity  Suspension-Quantity", "X...Exit"}));
    desktop.expectmenu("", 2);
    ASSERT_EQ(take(history), FileRead::read);
    EXPECT_EQ(session.gridCells, (Columns{{"10x2", "20x3"}}));
    desktop.expectmenu("", 4);
    EXPECT_EQ(take("HIST\n1 1\n"), FileRead::cancelled);
    EXPECT_EQ(session.gridCells, (Columns{{"10x2", "20x3"}})) << "nothing has changed";
}

TEST_F(OldForms, OnTheVisualSideTheFirstHistoryIsPlain) {
    chooseside(visualSide);
    ASSERT_TRUE(allocatearrays());
    ASSERT_EQ(take("HISTORY\n10 2\n20 3 second\n"), FileRead::read);
    EXPECT_EQ(session.gridCells, (Columns{{"10x2", "20x3_second"}}));
    session.lastRow = 1;
    desktop.expectmenu("Column Format:", 0);
    EXPECT_EQ(take("HISTORY\n10 2\n"), FileRead::cancelled);
}

TEST_F(OldForms, TheParenthesisFormNamesItsColumns) {
    ASSERT_EQ(take("()XQ-L\n10 2 ignored first unit\n-20 1 ignored\n"), FileRead::read);
    EXPECT_EQ(session.gridCells, (Columns{{"10x0x2_first unit", "-20"}}));
    ASSERT_EQ(take("() X, Q, Z\n6.12 5 167\n"), FileRead::read);
    EXPECT_EQ(session.gridCells, (Columns{{"6.12x0x5x167"}}));
}

TEST_F(OldForms, ATableThatOnlyBeginsAlikeGoesToTheTextImport) {
    for (const char* text : {"Hits;Weight\n1;2\n", "Label,Value\na,1\nb,2\nc,3\nd,4\ne,5\nf,6\ng,7\nh,8\n",
                             "U4 count\n1\n", "() of unknown\n1 2\n", "10\n20\n"})
        EXPECT_EQ(take(text), FileRead::text) << text;
}

TEST_F(OldForms, ACommaInANumberIsLeftToTheTextImportWhichAsks) {
    EXPECT_EQ(oldplainread("1,5 2\n", oldplainfields()), std::nullopt);
    EXPECT_EQ(take("HISTORY SUSPENSION\n1,5 2\n"), FileRead::text);
}

TEST_F(OldForms, TheStoreFormatEndsTheLoadWithItsName) {
    session.gridCells = {{"1"}};
    desktop.expectmessage("Bad Input File");
    EXPECT_EQ(take("U4STOR\n1\n2\n"), FileRead::cancelled);
    EXPECT_EQ(session.msg, "U4STORFILE");
    EXPECT_EQ(session.gridCells, (Columns{{"1"}}));
}

TEST_F(OldForms, AHundredThousandRecordsOfNoiseAreReadInOnePass) {
    std::string noise = "HISTORY SUSPENSION\n";
    for (int i = 0; i < 100000; ++i) noise += "-.9 ; ;\t x 1e999 _\n";
    ASSERT_EQ(take(noise), FileRead::read);
    EXPECT_EQ(session.gridCells.front().size(), 100000u);
}

} // namespace
