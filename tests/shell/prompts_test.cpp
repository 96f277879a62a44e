#include "shell/prompts.h"

#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

#include "numeric/matherror.h"
#include "platform/headless/headless.h"
#include "session/session.h"
#include "support/inlanguage.h"
#include "support/scriptedplatform.h"

namespace {

/// A page in the making, with every register at a value that can be told from its default.
class PromptsTest : public testing::Test {
protected:
    PromptsTest() {
        session.scriptRequest.clear();
        page({"A...Activate", "B...{hidden}Back", "X...Exit"});
    }
    ~PromptsTest() override {
        session.scriptRequest.clear();
        session.menuTitle.clear();
        session.msg.clear();
        menuclear();
    }

    static void page(std::vector<std::string> items) {
        menuclear();
        for (std::size_t i = 0; i < items.size(); ++i) session.menuItem[i + 1] = items[i];
        session.menuCount = static_cast<float>(items.size());
        session.menuChoice = 0;
        session.msg = "Lead";
        session.menuTitle = "Header";
        session.u = 7;
        session.ud = 8;
    }

    static void expectregisters() {
        EXPECT_EQ(session.msg, "Lead");
        EXPECT_EQ(session.menuTitle, "Header");
        EXPECT_EQ(session.menuCount, 3);
        EXPECT_EQ(session.menuChoice, 2);
        EXPECT_EQ(session.menuItem[1], "A...Activate");
        EXPECT_EQ(session.menuItem[2], "B...{hidden}Back");
        EXPECT_EQ(session.menuItem[3], "X...Exit");
    }
};

} // namespace

TEST_F(PromptsTest, MenuClearEmptiesTheItems) {
    menuclear();
    EXPECT_EQ(session.menuCount, 0);
    for (int i = 1; i <= 3; ++i) EXPECT_EQ(session.menuItem[i], "");
}

TEST_F(PromptsTest, MenuClearTakesACountBeyondTheItems) {
    session.menuItem[51] = "last";
    for (const float count : {1e30f, 52.0f}) {
        session.menuCount = count;
        menuclear();
        EXPECT_EQ(session.menuItem[51], "");
        EXPECT_EQ(session.menuCount, 0);
    }
    session.menuCount = -5;
    menuclear();
    EXPECT_EQ(session.menuCount, 0);
}

TEST_F(PromptsTest, AChoiceComesBackInEveryRegister) {
    ScriptedPlatform desktop;
    desktop.expectmenu("Lead", 3);
    menushow();
    EXPECT_EQ(session.menuChoice, 3);
    EXPECT_EQ(session.u, 3);
    EXPECT_EQ(session.msg, "X...Exit");
    EXPECT_EQ(session.menuCount, 0);
    EXPECT_EQ(session.menuTitle, "");
    EXPECT_EQ(session.menuItem[3], "X...Exit");
}

TEST_F(PromptsTest, ACancelledChoiceIsZeroWithAnEmptyText) {
    ScriptedPlatform desktop;
    desktop.expectmenu("Lead", 0);
    menushow();
    EXPECT_EQ(session.menuChoice, 0);
    EXPECT_EQ(session.u, 0);
    EXPECT_EQ(session.msg, "");
    EXPECT_EQ(session.menuCount, 0);
}

TEST_F(PromptsTest, ThePageIsCleanedBeforeItIsShown) {
    ScriptedPlatform desktop;
    session.msg = "Le{not this}ad";
    session.menuTitle = "Head{nor this}er";
    session.menuChoice = 2;
    desktop.expectmenu("Lead", 1);
    menushow();
    ASSERT_EQ(desktop.shown.size(), 1u);
    EXPECT_EQ(desktop.shown[0].header, "Header");
    EXPECT_EQ(desktop.shown[0].items, (std::vector<std::string>{"A...Activate", "B...Back", "X...Exit"}));
    EXPECT_EQ(desktop.shown[0].preset, 2);
}

TEST_F(PromptsTest, APageWithoutHeaderTakesTheProductName) {
    ScriptedPlatform desktop;
    session.menuTitle.clear();
    desktop.expectmenu("Lead", 1);
    menushow();
    EXPECT_EQ(desktop.shown.at(0).header, session.productName);
}

TEST_F(PromptsTest, APageHoldsFiftyOneItems) {
    ScriptedPlatform desktop;
    page(std::vector<std::string>(51, "1...Item"));
    session.menuCount = 99;
    desktop.expectmenu("Lead", 51);
    menushow();
    EXPECT_EQ(desktop.shown.at(0).items.size(), 51u);
    EXPECT_EQ(session.menuChoice, 51);
}

TEST_F(PromptsTest, APresetThatIsNoItemIsNone) {
    ScriptedPlatform desktop;
    session.menuChoice = 4;
    desktop.expectmenu("Lead", 1);
    menushow();
    EXPECT_EQ(desktop.shown.at(0).preset, 0);
}

TEST_F(PromptsTest, OneItemWithAnEmptyLeadIsAnsweredWithoutAWindow) {
    const ScriptedPlatform desktop;
    page({"A...Activate"});
    session.msg.clear();
    menushow();
    EXPECT_EQ(session.menuChoice, 1);
    EXPECT_EQ(session.msg, "A...Activate");
    EXPECT_EQ(session.u, 1);
    EXPECT_TRUE(desktop.shown.empty());
}

TEST_F(PromptsTest, OneItemWithALeadIsShown) {
    ScriptedPlatform desktop;
    page({"A...Activate"});
    desktop.expectmenu("Lead", 0);
    menushow();
    EXPECT_EQ(session.menuChoice, 0);
}

TEST_F(PromptsTest, AScriptRunTakesTheFirstItem) {
    const ScriptedPlatform desktop;
    session.scriptRequest = "run";
    menushow();
    EXPECT_EQ(session.menuChoice, 1);
    EXPECT_EQ(session.msg, "A...Activate");
    EXPECT_EQ(session.u, 1);
    EXPECT_EQ(session.menuCount, 0);
}

TEST_F(PromptsTest, AScriptRunTakesTheDefaultItem) {
    const ScriptedPlatform desktop;
    session.scriptRequest = "run";
    session.menuChoice = 3;
    menushow();
    EXPECT_EQ(session.menuChoice, 3);
    EXPECT_EQ(session.msg, "X...Exit");
}

TEST_F(PromptsTest, AScriptRunFindsNothingOnAPageWithoutItems) {
    session.scriptRequest = "run";
    page({});
    menushow();
    EXPECT_EQ(session.menuChoice, 0);
    EXPECT_EQ(session.msg, "");
}

TEST_F(PromptsTest, TellOkShowsTheTextAndKeepsTheRegisters) {
    ScriptedPlatform desktop;
    session.menuChoice = 2;
    desktop.expectmessage("Lead");
    tellok();
    EXPECT_EQ(desktop.shown.at(0).header, "Header");
    EXPECT_EQ(desktop.shown.at(0).text, "Lead");
    expectregisters();
    EXPECT_EQ(session.u, 7);
    EXPECT_EQ(session.ud, 8);
}

TEST_F(PromptsTest, TellOkStripsTheMarkOfTheHeader) {
    const std::pair<const char*, const char*> headers[] = {{"!KM!_Kaplan-Meier", "Kaplan-Meier"},
                                                           {"!KM!Grouped", "Grouped"},
                                                           {"_Set", "_Set"},
                                                           {"A !KM!_", "A !KM!_"}};
    for (const auto& [given, shown] : headers) {
        ScriptedPlatform desktop;
        session.menuTitle = given;
        desktop.expectmessage("Lead");
        tellok();
        EXPECT_EQ(desktop.shown.at(0).header, shown);
        EXPECT_EQ(session.menuTitle, given);
    }
}

TEST_F(PromptsTest, ABlankHeaderBecomesTheProductName) {
    for (const char* header : {"", "   ", "!KM!_", "!KM!"}) {
        ScriptedPlatform desktop;
        session.menuTitle = header;
        desktop.expectmessage("Lead");
        tellok();
        EXPECT_EQ(desktop.shown.at(0).header, session.productName);
    }
}

TEST_F(PromptsTest, TellOkReturnsAtOnceInAScriptRun) {
    const ScriptedPlatform desktop;
    session.scriptRequest = "run";
    session.menuChoice = 2;
    tellok();
    tellerror();
    expectregisters();
    EXPECT_TRUE(desktop.shown.empty());
}

TEST_F(PromptsTest, TellErrorPutsTheHeaderBeforeTheText) {
    ScriptedPlatform desktop;
    session.menuChoice = 2;
    desktop.expectmessage("Header\r\n\r\nLead");
    tellerror();
    EXPECT_EQ(desktop.shown.at(0).text, "Header\r\n\r\nLead");
    EXPECT_EQ(desktop.shown.at(0).header, "Header");
    expectregisters();
}

TEST_F(PromptsTest, YesIsOneAndNoIsTwo) {
    for (const int choice : {1, 2}) {
        ScriptedPlatform desktop;
        session.menuChoice = 2;
        desktop.expectmenu("Lead?", choice);
        askyesno();
        EXPECT_EQ(session.u, choice);
        EXPECT_EQ(desktop.shown.at(0).text, "Lead?");
        EXPECT_EQ(desktop.shown.at(0).header, "Header");
        EXPECT_EQ(desktop.shown.at(0).items, (std::vector<std::string>{"Y...Yes", "N...No"}));
        expectregisters();
    }
}

TEST_F(PromptsTest, ACancelledQuestionIsNotAYes) {
    ScriptedPlatform desktop;
    desktop.expectmenu("Lead?", 0);
    askyesno();
    EXPECT_EQ(session.u, 2);
}

TEST_F(PromptsTest, AScriptRunAnswersYesWhateverThePageHadChosen) {
    const ScriptedPlatform desktop;
    session.scriptRequest = "run";
    session.menuChoice = 2;
    askyesno();
    EXPECT_EQ(session.u, 1);
    expectregisters();
}

TEST_F(PromptsTest, AQuestionWithCancelHasThreeAnswers) {
    for (const int choice : {1, 2, 3, 0}) {
        ScriptedPlatform desktop;
        session.menuChoice = 2;
        desktop.expectmenu("Lead?", choice);
        askyesnocancel();
        EXPECT_EQ(session.u, choice == 0 ? 3 : choice);
        EXPECT_EQ(desktop.shown.at(0).items, (std::vector<std::string>{"Y...Yes", "N...No", "C...Cancel"}));
        expectregisters();
    }
}

TEST_F(PromptsTest, OkOrCancelIsAskedWithoutAQuestionMark) {
    for (const int choice : {1, 2, 0}) {
        ScriptedPlatform desktop;
        session.menuChoice = 2;
        desktop.expectmenu("Lead", choice);
        askokcancel();
        EXPECT_EQ(session.u, choice == 1 ? 1 : 2);
        EXPECT_EQ(desktop.shown.at(0).text, "Lead");
        EXPECT_EQ(desktop.shown.at(0).items, (std::vector<std::string>{"O...OK", "C...Cancel"}));
        expectregisters();
    }
}

TEST_F(PromptsTest, AnswersKeepTheirKeysInEveryLanguage) {
    ScriptedPlatform desktop;
    const InLanguage dutch("Nederlands");
    desktop.expectmenu("Lead?", 2);
    askyesno();
    EXPECT_EQ(desktop.shown.at(0).items, (std::vector<std::string>{"Y...Ja", "N...Nee"}));
}

TEST_F(PromptsTest, APageIsShownInTheLanguageInForce) {
    ScriptedPlatform desktop;
    const InLanguage german("Deutsch");
    compose(session.menuItem[1], "A...", Word::Language, " = ", AsTyped{"my_file_nm"});
    session.msg = "Lead";
    desktop.expectmenu("Lead", 1);
    menushow();
    EXPECT_EQ(desktop.shown.at(0).items.at(0), "A...Sprache = my_file_nm");
    EXPECT_EQ(session.msg, "A...Sprache_nf = my_file_nm");
}

TEST_F(PromptsTest, AMessageInAnotherLanguageKeepsTypedTextAndHeader) {
    ScriptedPlatform desktop;
    const InLanguage german("Deutsch");
    session.menuTitle.clear();
    compose(session.msg, Word::Language, ": ", AsTyped{"a_b * {c}"});
    desktop.expectmessage("Sprache: a_b * {c}");
    tellerror();
    EXPECT_EQ(desktop.shown.at(0).text, session.productName + "\r\n\r\nSprache: a_b * {c}");
}

TEST_F(PromptsTest, APageHasWordsForItsButtons) {
    ScriptedPlatform desktop;
    desktop.expectmenu("Lead", 1);
    menushow();
    EXPECT_EQ(desktop.shown.at(0).accept, "OK");
    EXPECT_EQ(desktop.shown.at(0).cancel, "Back");
    page({"O...OK"});
    desktop.expectmenu("Lead", 1);
    menushow();
    EXPECT_EQ(desktop.shown.at(1).accept, "OK");
    EXPECT_EQ(desktop.shown.at(1).cancel, "");
}

TEST_F(PromptsTest, ASmallAndALargePageTakeThreeAndFourRows) {
    ScriptedPlatform desktop;
    for (void (*const show)() : {menushow, menushowsmall, menushowlarge}) {
        page({"A...Activate", "X...Exit"});
        desktop.expectmenu("Lead", 1);
        show();
    }
    EXPECT_EQ(desktop.shown.at(0).rows, 0);
    EXPECT_EQ(desktop.shown.at(1).rows, 3);
    EXPECT_EQ(desktop.shown.at(2).rows, 4);
    EXPECT_EQ(session.menuStyle, 0);
}

TEST_F(PromptsTest, APageOpensWhereItWasLeft) {
    session.menuScroll.clear();
    ScriptedPlatform desktop;
    desktop.scrollTo = 5;
    for (const int identity : {-40, -41, -40, 0, 0}) {
        page({"A...Activate", "X...Exit"});
        session.menuPage = static_cast<int16_t>(identity);
        desktop.expectmenu("Lead", 1);
        menushowgo();
    }
    EXPECT_EQ(desktop.shown.at(0).scroll, 0);
    EXPECT_EQ(desktop.shown.at(1).scroll, 0);
    EXPECT_EQ(desktop.shown.at(2).scroll, 5);
    EXPECT_EQ(desktop.shown.at(4).scroll, 0);
    session.menuScroll.clear();
}

TEST_F(PromptsTest, ThePageShownIsTheActiveMode) {
    const Keep keep{session.activeMode};
    ScriptedPlatform desktop;
    session.menuPage = -40;
    desktop.expectmenu("Lead", 1);
    menushow();
    EXPECT_EQ(session.activeMode, -40);
    EXPECT_EQ(session.menuPage, 0);
    session.menuPage = -41;
    session.msg = "Lead";
    desktop.expectmenu("Lead?", 1);
    askyesno();
    EXPECT_EQ(session.activeMode, -40);
    EXPECT_EQ(session.menuPage, -41);
    session.menuPage = 0;
}

TEST_F(PromptsTest, ATextWithoutLetterAndDotsIsAHeading) {
    for (const char* item : {"A...Activate", "1...x", "9...", "\u0130...x"})
        EXPECT_TRUE(itempickable(item)) << item;
    for (const char* item : {"", "A", "...", "....", "Heading", "AB...x", "A..x"})
        EXPECT_FALSE(itempickable(item)) << item;
}

TEST_F(PromptsTest, AKeyPicksItsItemInEitherCase) {
    const std::vector<std::string> items = {"Xeading", "a...First", "X...Exit", "X...Second"};
    EXPECT_EQ(itemofkey(items, 'A'), 2);
    EXPECT_EQ(itemofkey(items, 'x'), 3);
    EXPECT_EQ(itemofkey(items, 'z'), 0);
}

TEST_F(PromptsTest, AScriptRunPassesOverHeadings) {
    session.scriptRequest = "run";
    page({"Heading", "...", "B...Back"});
    menushow();
    EXPECT_EQ(session.menuChoice, 3);
}

TEST_F(PromptsTest, TheHeadlessPlatformPassesOverHeadingsAndTakesDefaults) {
    Keep keep{platform};
    HeadlessPlatform console;
    platform = &console;
    page({"Heading", "B...Back", "X...Exit"});
    menushow();
    EXPECT_EQ(session.menuChoice, 2);
    session.u = 2.5f;
    numberprompt();
    EXPECT_EQ(session.u, 2.5f);
    textprompt();
    EXPECT_EQ(session.msg, "-9.123E+32");
}

TEST_F(PromptsTest, TheStatusLineIsTheCleanedCaption) {
    const ScriptedPlatform desktop;
    session.msg = "Calc{x}ulation";
    statusline();
    EXPECT_EQ(desktop.windowCalls, std::vector<std::string>{"caption: Calculation"});
}

TEST_F(PromptsTest, WithoutAPlatformNothingIsAnswered) {
    Keep keep{platform};
    platform = nullptr;
    tellok();
    tellerror();
    statusline();
    reportfault(6);
    askyesno();
    EXPECT_EQ(session.u, 2);
    menushow();
    EXPECT_EQ(session.menuChoice, 0);
    EXPECT_EQ(session.msg, "");
}

TEST_F(PromptsTest, AFaultIsToldWithItsPlaceNumberAndCause) {
    const std::pair<int, const char*> causes[] = {
        {5, "txx2p(2)!!!...Calculation Error #5 ... Negative Log / Power"},
        {6, "txx2p(2)!!!...Calculation Error #6 ... Results Too Big"},
        {9, "txx2p(2)!!!...Calculation Error #9 ... Array Too Big"},
        {11, "txx2p(2)!!!...Calculation Error #11 ... "}};
    for (const auto& [number, text] : causes) {
        ScriptedPlatform desktop;
        session.msg = "txx2p";
        desktop.expectmessage("Error");
        reportfault(number);
        EXPECT_EQ(desktop.shown.at(0).text, text);
        EXPECT_EQ(session.msg, "txx2p");
    }
}

TEST_F(PromptsTest, AnIndexFaultReachesTheUser) {
    const Keep keep{tellfault};
    installreporters();
    List<float> list;
    ASSERT_TRUE(list.size(3));
    ScriptedPlatform desktop;
    desktop.expectmessage("#9 ... Array Too Big");
    list(4) = 1;
    EXPECT_EQ(desktop.shown.size(), 1u);
}

TEST(ScriptedPlatformTest, FailsOnAnUnexpectedPrompt) {
    const auto ask = [] {
        ScriptedPlatform desktop;
        desktop.prompts().message("", "surprise");
    };
    EXPECT_NONFATAL_FAILURE(ask(), "unexpected message: \"surprise\"");
}

TEST(ScriptedPlatformTest, FailsOnAnAnswerLeftOver) {
    const auto leave = [] {
        ScriptedPlatform desktop;
        desktop.expectmenu("never", 1);
    };
    EXPECT_NONFATAL_FAILURE(leave(), "never asked: menu with \"never\"");
}

TEST(ScriptedPlatformTest, FailsOnAPromptOfAnotherKindOrText) {
    const auto mistake = [] {
        ScriptedPlatform desktop;
        desktop.expectmenu("text", 1);
        desktop.prompts().message("", "text");
    };
    EXPECT_NONFATAL_FAILURE(mistake(), "message \"text\" came where a menu");
    const auto other = [] {
        ScriptedPlatform desktop;
        desktop.expectmessage("this");
        desktop.prompts().message("", "that");
    };
    EXPECT_NONFATAL_FAILURE(other(), "message \"that\" came where a message with \"this\"");
}

TEST(ScriptedPlatformTest, IsInForceWhileItLives) {
    Platform* const former = platform;
    {
        const ScriptedPlatform desktop;
        EXPECT_EQ(platform, &desktop);
    }
    EXPECT_EQ(platform, former);
}

TEST(ScriptedPlatformTest, TellsOfAnEscapeAtTheGivenCall) {
    ScriptedPlatform desktop;
    desktop.escapeat(2);
    EXPECT_FALSE(desktop.window().pendingevents());
    EXPECT_TRUE(desktop.window().pendingevents());
    EXPECT_FALSE(desktop.window().pendingevents());
}

TEST(ScriptedPlatformTest, RecordsTheWindowCallsInOrder) {
    ScriptedPlatform desktop;
    desktop.window().readswitches();
    desktop.window().caption("Data");
    desktop.window().repaintplot();
    EXPECT_EQ(desktop.windowCalls,
              (std::vector<std::string>{"readswitches", "caption: Data", "repaintplot"}));
}

TEST_F(PromptsTest, ATextOfTheNumberRoutinesKeepsTheLetterItQuotes) {
    const Keep keep{tellmatherror};
    installreporters();
    ScriptedPlatform desktop;
    const InLanguage german("Deutsch");
    desktop.expectmessage("character _");
    tellmatherror("Please enter the character _");
    EXPECT_EQ(desktop.shown.at(0).text, "Please enter the character _");
}
