#include <gtest/gtest.h>

#include <limits>

#include "shell/numberentry.h"
#include "shell/prompts.h"
#include "support/inlanguage.h"
#include "support/scriptedplatform.h"

namespace {

/// An entry about to be asked, the registers at values that can be told from their defaults.
class Entries : public testing::Test {
protected:
    Entries() {
        session = Session{};
        session.msg = "Lead";
        session.menuTitle = "Header";
        session.u = 2.5f;
        session.ud = 7.25;
    }
    ~Entries() override { session = Session{}; }

    const float cancelled = -9.123e+32f;
};

} // namespace

TEST_F(Entries, ANumberComesBackInTheRegisters) {
    ScriptedPlatform desktop;
    desktop.expectnumber("Lead", "-1.5E+03");
    numberprompt();
    EXPECT_EQ(session.u, -1500);
    EXPECT_EQ(session.ud, -1500);
    EXPECT_EQ(session.msg, "-1.5E+03");
    EXPECT_EQ(session.menuTitle, "");
    EXPECT_EQ(session.promptDefault, 2.5f);
}

TEST_F(Entries, ANumberEntryShowsItsTitleItsDefaultAndItsArrows) {
    ScriptedPlatform desktop;
    session.u = .5f;
    desktop.expectnumber("Lead", "1");
    numberprompt();
    const auto& seen = desktop.shown.at(0);
    EXPECT_EQ(seen.header, "Input Value");
    EXPECT_EQ(seen.text, "Lead");
    EXPECT_EQ(seen.value, ".5");
    EXPECT_EQ(seen.more, "Increment By Make More");
    EXPECT_EQ(seen.lower, "Increment By Make Lower");
    EXPECT_FALSE(seen.overPlot);
}

TEST_F(Entries, TheEntryOverThePlotIsTheSameElsewhere) {
    ScriptedPlatform desktop;
    desktop.expectnumber("Lead", "4");
    numberpromptonplot();
    EXPECT_TRUE(desktop.shown.at(0).overPlot);
    EXPECT_EQ(session.u, 4);
}

TEST_F(Entries, ACancelledNumberIsTheReservedOne) {
    ScriptedPlatform desktop;
    desktop.expectnumber("Lead", std::nullopt);
    numberprompt();
    EXPECT_EQ(session.u, cancelled);
    EXPECT_EQ(session.ud, -9.123E+32);
    EXPECT_EQ(session.msg, "");
}

TEST_F(Entries, TheReservedNumberTypedIsACancel) {
    ScriptedPlatform desktop;
    desktop.expectnumber("Lead", "-9.123E+32");
    numberprompt();
    EXPECT_EQ(session.u, cancelled);
    EXPECT_EQ(session.msg, "");
}

TEST_F(Entries, ATextThatIsNoNumberLeavesTheDefault) {
    for (const char* typed : {"", "abc", " "}) {
        ScriptedPlatform desktop;
        session.u = 2.5f;
        session.msg = "Lead";
        desktop.expectnumber("Lead", typed);
        numberprompt();
        EXPECT_EQ(session.u, 2.5f) << typed;
    }
}

TEST_F(Entries, TheDoubleFormTakesAndGivesAllItsDigits) {
    ScriptedPlatform desktop;
    session.promptKind = 1;
    desktop.expectnumber("Lead", "1.23456789012345E+100");
    numberprompt();
    EXPECT_EQ(desktop.shown.at(0).value, "7.25");
    EXPECT_EQ(session.ud, 1.23456789012345E+100);
}

TEST_F(Entries, TheDefaultTakenUnchangedKeepsEveryDigit) {
    ScriptedPlatform desktop;
    session.u = 1.0f / 3;
    desktop.expectnumber("Lead", ".33333334");
    numberprompt();
    EXPECT_EQ(session.u, 1.0f / 3);
}

TEST_F(Entries, TheDecimalSymbolOfTheDisplayIsShownAndRead) {
    ScriptedPlatform desktop;
    session.displayDecimal = ",";
    desktop.expectnumber("Lead", "3,25");
    numberprompt();
    EXPECT_EQ(desktop.shown.at(0).value, "2,5");
    EXPECT_EQ(session.u, 3.25f);
}

TEST_F(Entries, ANumberIsNotHeldToItsLimits) {
    ScriptedPlatform desktop;
    session.promptMin = 0;
    session.promptMax = 1;
    desktop.expectnumber("Lead", "5");
    numberprompt();
    EXPECT_EQ(session.u, 5);
}

TEST_F(Entries, AScriptRunTakesTheDefaultOfANumber) {
    const ScriptedPlatform desktop;
    session.scriptRequest = "run";
    numberprompt();
    EXPECT_EQ(session.u, 2.5f);
    session.promptKind = 1;
    session.ud = 7.25;
    numberprompt();
    EXPECT_EQ(session.ud, 7.25);
    EXPECT_TRUE(desktop.shown.empty());
}

TEST_F(Entries, WithoutAPlatformEveryEntryIsCancelled) {
    Keep keep{platform};
    platform = nullptr;
    for (void (*const prompt)() : {numberprompt, slidershow, colorpick}) {
        session.u = 2;
        prompt();
        EXPECT_EQ(session.u, cancelled);
    }
    textprompt();
    EXPECT_EQ(session.msg, "-9.123E+32");
}

TEST_F(Entries, AStepIsAPowerOfTen) {
    session.incrementExp = -2;
    EXPECT_EQ(incrementstep(), 0.01);
    EXPECT_EQ(session.increment, 0.01f);
    EXPECT_EQ(incrementline(), "Change Increment = .01");
    incrementchange(3);
    EXPECT_EQ(session.incrementExp, 1);
    EXPECT_EQ(incrementline(), "Change Increment = 10");
}

TEST_F(Entries, AnExponentBeyondItsRangeFallsBackToAStepOfOne) {
    for (const int exponent : {300, -300, 32767, -32768})
        for (const int kind : {0, 1}) {
            session.promptKind = static_cast<int16_t>(kind);
            session.incrementExp = static_cast<int16_t>(exponent);
            EXPECT_EQ(incrementstep(), 1);
            EXPECT_EQ(session.incrementExp, 0);
            EXPECT_EQ(session.increment, 1);
        }
}

TEST_F(Entries, TheRangeOfTheExponentFollowsTheKindOfNumber) {
    session.incrementExp = 29;
    EXPECT_EQ(incrementstep(), 1e29);
    session.incrementExp = 30;
    EXPECT_EQ(incrementstep(), 1);
    session.promptKind = 1;
    session.incrementExp = 30;
    EXPECT_EQ(incrementstep(), 1e30);
    session.incrementExp = -299;
    EXPECT_EQ(incrementstep(), 1e-299);
}

TEST_F(Entries, ANumberEntryRepairsTheStepWhenItOpens) {
    ScriptedPlatform desktop;
    session.incrementExp = 300;
    desktop.expectnumber("Lead", std::nullopt);
    numberprompt();
    EXPECT_EQ(session.incrementExp, 0);
    EXPECT_EQ(session.increment, 1);
}

TEST_F(Entries, AnArrowAddsOrTakesTheStep) {
    session.incrementExp = -1;
    EXPECT_EQ(numberstepped(".2", 1, 0), ".3");
    EXPECT_EQ(numberstepped(".1", -1, 0), "0");
    EXPECT_EQ(numberstepped("abc", 1, 0), ".1");
    session.promptKind = 1;
    EXPECT_EQ(numberstepped(".2", 1, 0), ".3"); // 0.30000000000000004 in double
    session.displayDecimal = ",";
    EXPECT_EQ(numberstepped("1,2", -1, 0), "1,1");
}

TEST_F(Entries, AnArrowHeldForLongGoesByTwiceTheStep) {
    EXPECT_EQ(numberstepped("5", 1, 1), "6");
    EXPECT_EQ(numberstepped("5", 1, 100), "7");
    EXPECT_EQ(numberstepped("5", -1, 100), "3");
}

TEST_F(Entries, TypedTextComesBackAndIsRemembered) {
    ScriptedPlatform desktop;
    for (const char* typed : {"one", "two", "one"}) {
        session.msg = "Lead";
        desktop.expecttext("Lead", typed);
        textprompt();
        EXPECT_EQ(session.msg, typed);
    }
    EXPECT_EQ(desktop.shown.at(2).items, (std::vector<std::string>{"two", "one"}));
    EXPECT_EQ(session.recentTexts, (std::vector<std::string>{"one", "two"}));
    EXPECT_EQ(desktop.shown.at(1).header, session.productName);
}

TEST_F(Entries, ACancelledTextIsTheReservedOne) {
    ScriptedPlatform desktop;
    desktop.expecttext("Lead", std::nullopt);
    textprompt();
    EXPECT_EQ(session.msg, "-9.123E+32");
    EXPECT_TRUE(session.recentTexts.empty());
    EXPECT_EQ(session.menuTitle, "");
}

TEST_F(Entries, AnEmptyTextIsAnAnswer) {
    ScriptedPlatform desktop;
    desktop.expecttext("Lead", "");
    textprompt();
    EXPECT_EQ(session.msg, "");
}

TEST_F(Entries, AScriptRunHasNoTextToGive) {
    const ScriptedPlatform desktop;
    session.scriptRequest = "run";
    textprompt();
    EXPECT_EQ(session.msg, "-9.123E+32");
}

TEST_F(Entries, ASliderStaysBetweenItsEnds) {
    ScriptedPlatform desktop;
    session.promptMin = 1;
    session.promptMax = 10;
    session.u = 20;
    desktop.expectslider("Lead", 12.0);
    slidershow();
    EXPECT_EQ(desktop.shown.at(0).low, 1);
    EXPECT_EQ(desktop.shown.at(0).high, 10);
    EXPECT_EQ(desktop.shown.at(0).at, 10);
    EXPECT_EQ(desktop.shown.at(0).header, "Header");
    EXPECT_EQ(session.u, 10);
}

TEST_F(Entries, ACancelledSliderIsTheReservedNumber) {
    ScriptedPlatform desktop;
    session.promptMax = 10;
    desktop.expectslider("Lead", std::nullopt);
    slidershow();
    EXPECT_EQ(session.u, cancelled);
    EXPECT_EQ(session.msg, "");
}

TEST_F(Entries, AColorIsPickedOutOfTheSessionsPalette) {
    ScriptedPlatform desktop;
    session.u = 3;
    desktop.expectcolor("Lead", 7);
    colorpick();
    EXPECT_EQ(desktop.shown.at(0).preset, 3);
    EXPECT_EQ(desktop.shown.at(0).colors, session.palette.size());
    EXPECT_EQ(session.u, 7);
}

TEST_F(Entries, AColorThatIsNoneIsACancel) {
    for (const auto& picked :
         {std::optional<double>(), std::optional<double>(999), std::optional<double>(-1)}) {
        ScriptedPlatform desktop;
        session.msg = "Lead";
        session.u = std::numeric_limits<float>::quiet_NaN();
        desktop.expectcolor("Lead", picked);
        colorpick();
        EXPECT_EQ(desktop.shown.at(0).preset, 0);
        EXPECT_EQ(session.u, cancelled);
    }
}

TEST_F(Entries, AScriptRunKeepsSliderAndColor) {
    const ScriptedPlatform desktop;
    session.scriptRequest = "run";
    session.promptMax = 10;
    slidershow();
    EXPECT_EQ(session.u, 2.5f);
    session.u = 3;
    colorpick();
    EXPECT_EQ(session.u, 3);
}

TEST_F(Entries, ThePageSpeaksTheLanguageInForce) {
    ScriptedPlatform desktop;
    const InLanguage german("Deutsch");
    desktop.expectnumber("Sprache", "1");
    compose(session.msg, Word::Language, " = ", AsTyped{"a_b"});
    numberprompt();
    EXPECT_EQ(desktop.shown.at(0).text, "Sprache = a_b");
    EXPECT_EQ(desktop.shown.at(0).more.find('_'), std::string::npos);
}
