#include "shell/dropmenu.h"

#include <gtest/gtest.h>

#include "shell/commandtable.h"
#include "shell/languages.h"
#include "support/shellfixture.h"

namespace {

class DropMenu : public ShellTest {};

struct Expected {
    Side side;
    int menu;
    std::vector<std::string> items;
};

/// The drop-downs as the user reads them.
const Expected expected[] = {
    {lifeSide,
     fileMenu,
     {"N...New ... Clear Data", "O...Open / Get / Import", "P...Print / Firm Copy / Soft Copy / Export",
      "S...Save Active Data + Results", "U...Setup / Dimension / Equations / Language",
      "W...* FORMER FILE LIST * / Weibull Library", "X...Exit"}},
    {lifeSide, editMenu, {"X...Cut", "C...Copy", "V...Paste", "Y...Delete <Del>", "U...Undo"}},
    {lifeSide,
     optionsMenu,
     {"J...Demonstrate / Sample", "I...Calculator / Comparison", "R...Precise Reading", "M...Plot / Report",
      "L...Label / Style Select", "Z...Zoom"}},
    {visualSide, analysisMenu, {"J...Curve Fit", "P...Plot Type", "Q...Function", "T...Transform"}},
    {lifeSide,
     analysisMenu,
     {"M...Method / Input", "I...Distribution", "K...Confidence / Comparison", "L...Marker Line",
      "T...t0 (3-Parameter)", "W...Weibayes"}},
    {visualSide,
     toolsMenu,
     {"K...Crow-AMSAA Reliability Growth", "L...Quantity Expected For Crow-AMSAA", "N...OmniVANEX"}},
    {lifeSide,
     toolsMenu,
     {"R...Abernethy Risk - Quantity Expected", "O...Optimum Replacement", "M...Mixture / Partial % Affected",
      "P...Barringer Process Reliability BPR", "T...Test / Usage Requirement",
      "W...PFEV Accel. Test / Degrad. / CoVariate"}},
    {visualSide, helpMenu, {"I...Start Help <F1>", "J...Additional OmniVANEX", "T...About OmniVANEX <F2>"}},
    {lifeSide,
     helpMenu,
     {"I...Start Help <F1>", "J...Additional OmniVANEX", "T...About OmniVANEX <F2>",
      "V...View Additional Probability Plot Options"}},
};

TEST_F(DropMenu, TheItemsOfEachSideBearTheirLetters) {
    for (const Expected& menu : expected) {
        chooseside(menu.side);
        EXPECT_EQ(dropmenuitems(menu.menu), menu.items);
    }
}

TEST_F(DropMenu, NoLetterStandsTwiceInADropDown) {
    for (const Side side : {lifeSide, visualSide})
        for (int menu = 0; menu < dropMenus; ++menu) {
            chooseside(side);
            std::string letters;
            for (const std::string& item : dropmenuitems(menu)) {
                EXPECT_EQ(letters.find(item.front()), std::string::npos) << item;
                letters += item.front();
            }
        }
}

TEST_F(DropMenu, AnUnknownDropDownIsEmpty) {
    EXPECT_TRUE(dropmenuitems(-1).empty());
    EXPECT_TRUE(dropmenuitems(6).empty());
    EXPECT_EQ(dropmenutitle(6), "");
}

TEST_F(DropMenu, BareLettersOpenTheDropDowns) {
    const std::pair<char, int> openers[] = {{'a', analysisMenu}, {'B', toolsMenu}, {'D', optionsMenu},
                                            {'e', editMenu},     {'F', fileMenu},  {'H', helpMenu}};
    for (const auto& [letter, menu] : openers) {
        EXPECT_TRUE(menuletter(letter));
        EXPECT_EQ(session.dropMenuOpen, dropShown);
        EXPECT_EQ(session.dropMenuIndex, menu);
        key(27);
        EXPECT_EQ(session.dropMenuOpen, dropClosed);
    }
    EXPECT_FALSE(menuletter('Q'));
}

TEST_F(DropMenu, ArrowsGoToTheNeighboursAndAround) {
    dropmenupress(fileMenu);
    key(37);
    EXPECT_EQ(session.dropMenuIndex, helpMenu);
    key(39);
    key(39);
    EXPECT_EQ(session.dropMenuIndex, editMenu);
    EXPECT_EQ(session.dropMenuOpen, dropShown);
}

TEST_F(DropMenu, EnterTakesTheHighlightedItem) {
    given({"150", "230", "310"});
    dropmenupress(editMenu);
    key(40);
    EXPECT_EQ(session.dropMenuItem, 1);
    key(13); // Copy
    EXPECT_EQ(session.dropMenuOpen, dropClosed);
    ASSERT_TRUE(desk.clipboardText);
    EXPECT_NE(desk.clipboardText->find("150"), std::string::npos);
}

TEST_F(DropMenu, TheHighlightGoesAround) {
    dropmenupress(editMenu);
    key(38);
    EXPECT_EQ(session.dropMenuItem, 4);
    key(40);
    EXPECT_EQ(session.dropMenuItem, 0);
}

TEST_F(DropMenu, APressOnTheOpenTitleClosesIt) {
    dropmenupress(toolsMenu);
    dropmenupress(toolsMenu);
    EXPECT_EQ(session.dropMenuOpen, dropClosed);
}

TEST_F(DropMenu, ALetterWithoutAnItemLeavesTheDropDownOpen) {
    dropmenupress(editMenu);
    EXPECT_FALSE(menuletter('Q'));
    EXPECT_EQ(session.dropMenuOpen, dropShown);
}

TEST_F(DropMenu, NewAsksFirst) {
    given({"150", "230", "310"});
    session.resultsDirty = 0;
    desk.expectmenu("New ... Clear Data?", 2);
    menuletter('N');
    EXPECT_EQ(column().size(), 3u);
    desk.expectmenu("New ... Clear Data?", 1);
    dropmenupress(fileMenu);
    menuletter('n');
    EXPECT_TRUE(session.gridCells.empty());
}

TEST_F(DropMenu, CutByABareLetterAsksWhileResultsStand) {
    given({"150", "230", "310"});
    desk.expectmenu("Cut?", 2);
    menuletter('X');
    EXPECT_EQ(column()[0], "150");
    desk.expectmenu("Cut?", 1);
    menuletter('X');
    EXPECT_EQ(column()[0], "");
}

TEST_F(DropMenu, PasteByABareLetterAsksOnlyOverResults) {
    desk.clipboardText = "150\n230\n310\n";
    menuletter('V');
    EXPECT_EQ(column(), (Cells{"150", "230", "310"}));
    desk.expectmenu("Paste?", 2);
    menuletter('V');
}

TEST_F(DropMenu, UndoWithoutASnapshotSaysSo) {
    desk.expectmessage("Present At Undo No");
    dropmenupress(editMenu);
    menuletter('U');
}

TEST_F(DropMenu, WhatIsNotThereIsToldByItsName) {
    desk.expectmessage("Optimum Replacement ... Not Possible");
    dropmenupress(toolsMenu);
    menuletter('O');
}

TEST_F(DropMenu, ExitFromTheFileDropDownAsks) {
    desk.expectmenu("Exit?", 2);
    dropmenupress(fileMenu);
    menuletter('X');
    EXPECT_EQ(session.leaving, 0);
}

TEST_F(DropMenu, EveryLanguageHasWholeItems) {
    for (const Language& language : languages()) {
        session.languageFile = language.file;
        wordload();
        for (int menu = 0; menu < dropMenus; ++menu)
            for (const std::string& item : dropmenuitems(menu)) {
                EXPECT_GT(item.size(), 5u) << item;
                EXPECT_EQ(item.find_first_of("{}"), std::string::npos) << item;
            }
    }
    session.languageFile.clear();
    wordload();
}

} // namespace
