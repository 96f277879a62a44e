#include "expression/functionedit.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "expression/functionfile.h"
#include "expression/functionrun.h"
#include "platform/files.h"
#include "session/session.h"
#include "support/freshsession.h"
#include "support/scriptedplatform.h"

namespace {

class FunctionEdit : public testing::Test {
protected:
    FunctionEdit() { session.functionMode = functionY; }

    /// The entry asks with the function so far, and gets the text.
    void enter(const std::string& soFar, std::optional<std::string> typed) {
        platform.expecttext(soFar + "\r\nR:Reset  N:Value", std::move(typed));
    }

    FreshSession fresh{visualSide};
    ScriptedPlatform platform;
};

TEST_F(FunctionEdit, AppendsEachEntryAndFinishesOnAnEmptyOne) {
    enter(" Y = ", "2");
    enter(" Y = 2", "*");
    enter(" Y = 2*", "x+sin(x");
    enter(" Y = 2*x+sin(x", "");
    platform.expectmenu("Function Save To File?", 2);
    EXPECT_TRUE(functionedit());
    EXPECT_EQ(functionline(), " Y = 2*x+sin(x)");
    EXPECT_EQ(session.fcodeSaved, session.fcode);
    EXPECT_EQ(session.flitcount, 1);
}

TEST_F(FunctionEdit, ShowsWhichResultTheFunctionYields) {
    session.functionMode = functionX;
    session.fcode = "01";
    EXPECT_EQ(functionline(), " X = x");
    session.functionMode = functionTwoSets;
    EXPECT_EQ(functionline(), " X = A");
}

TEST_F(FunctionEdit, OffersTheKeypadAndLeavesTheListOfTypedTextsAlone) {
    session.recentTexts = {"before"};
    enter(" Y = ", "f!(");
    enter(" Y = f!(", std::nullopt);
    EXPECT_FALSE(functionedit());
    const auto& keys = platform.shown[0].items;
    ASSERT_EQ(keys.size(), 66u);
    EXPECT_EQ(keys[0], "R:Reset");
    EXPECT_EQ(keys[1], "N:Value");
    EXPECT_EQ(keys[2], "x");
    EXPECT_EQ(keys.back(), "x9");
    EXPECT_EQ(session.recentTexts, std::vector<std::string>{"before"});
}

TEST_F(FunctionEdit, EveryKeyOfTheKeypadIsUnderstood) {
    for (const int16_t mode : {functionCurve, functionY, functionX, functionTwoSets}) {
        session.functionMode = mode;
        enter(" = ", std::nullopt);
        functionedit();
        for (std::size_t i = 2; i < platform.shown.back().items.size(); ++i) {
            const std::string key = platform.shown.back().items[i];
            session.fcode.clear();
            const bool first = functionappend(key);
            session.fcode = "01";
            EXPECT_TRUE(first || functionappend(key) || key == ")") << key;
        }
        session.fcode.clear();
    }
}

TEST_F(FunctionEdit, ACancelLeavesTheFunctionAsItWas) {
    session.flits = {0, 4};
    session.fcode = "00";
    session.flitcount = 1;
    enter(" Y = 4", "*x");
    enter(" Y = 4*x", std::nullopt);
    EXPECT_FALSE(functionedit());
    EXPECT_EQ(functionline(), " Y = 4");
}

TEST_F(FunctionEdit, ResetEmptiesTheFunction) {
    enter(" Y = ", "2*x");
    enter(" Y = 2*x", "R:Reset");
    enter(" Y = ", "3");
    enter(" Y = 3", "");
    platform.expectmenu("Function Save To File?", 2);
    EXPECT_TRUE(functionedit());
    EXPECT_EQ(functionline(), " Y = 3");
}

TEST_F(FunctionEdit, ANumberMayBeAskedFor) {
    enter(" Y = ", "x*");
    enter(" Y = x*", "N:Value");
    platform.expectnumber("Value", "-2.5");
    enter(" Y = x*(-2.5)", "n:");
    platform.expectnumber("Value", "7");
    platform.expectmessage("Bad Function: N:");
    enter(" Y = x*(-2.5)", "+n:");
    platform.expectmessage("Bad Function: +n:");
    enter(" Y = x*(-2.5)", "+");
    enter(" Y = x*(-2.5)+", "N:");
    platform.expectnumber("Value", std::nullopt);
    enter(" Y = x*(-2.5)+", std::nullopt);
    EXPECT_FALSE(functionedit());
}

TEST_F(FunctionEdit, WhatCannotStandThereIsToldAndNotTaken) {
    enter(" Y = ", "2x");
    platform.expectmessage("Bad Function: 2x");
    enter(" Y = ", "x");
    enter(" Y = x", "x");
    platform.expectmessage("Bad Function: x");
    enter(" Y = x", ")");
    platform.expectmessage("Bad Function: )");
    enter(" Y = x", "{\x01}");
    platform.expectmessage("Bad Function: {?}");
    enter(" Y = x", "*");
    enter(" Y = x*", "");
    platform.expectmessage("Function: Not Done");
    enter(" Y = x*", "2");
    enter(" Y = x*2", " ");
    platform.expectmenu("Function Save To File?", 2);
    EXPECT_TRUE(functionedit());
}

TEST_F(FunctionEdit, AnEmptyFunctionIsNotFinished) {
    enter(" Y = ", "");
    platform.expectmessage("No Function");
    enter(" Y = ", std::nullopt);
    EXPECT_FALSE(functionedit());
}

TEST_F(FunctionEdit, ShowsAndReadsTheDecimalSymbolOfTheDisplay) {
    session.decimalSeparator = session.displayDecimal = ",";
    enter(" Y = ", "2,5*x");
    enter(" Y = 2,5*x", std::nullopt);
    EXPECT_FALSE(functionedit());
}

TEST_F(FunctionEdit, OfALongFunctionTheEndIsShown) {
    std::string sum = "x";
    for (int i = 0; i < 5000; ++i) sum += "+x";
    ASSERT_TRUE(functionappend(sum));
    platform.expecttext("... ", std::nullopt);
    EXPECT_FALSE(functionedit());
    EXPECT_LT(platform.shown[0].text.size(), 600u);
}

TEST_F(FunctionEdit, InAScriptEndsAtOnce) {
    session.scriptRequest = "x";
    EXPECT_FALSE(functionedit());
    EXPECT_TRUE(platform.shown.empty());
}

TEST_F(FunctionEdit, TheRangeIsAskedInTwoSteps) {
    platform.expectnumber("Range ... X-Minimum", "2");
    platform.expectnumber("X-Maximum", "8");
    EXPECT_TRUE(functionrange());
    EXPECT_EQ(session.fxlow, 2);
    EXPECT_EQ(session.fxhigh, 8);
    EXPECT_EQ(platform.shown[0].value, "0");
    EXPECT_EQ(platform.shown[1].value, "1");
}

TEST_F(FunctionEdit, ARangeTypedTheWrongWayRoundIsTurned) {
    platform.expectnumber("Range ... X-Minimum", "8");
    platform.expectnumber("X-Maximum", "-2");
    EXPECT_TRUE(functionrange());
    EXPECT_EQ(session.fxlow, -2);
    EXPECT_EQ(session.fxhigh, 8);
}

TEST_F(FunctionEdit, AnEmptyRangeIsToBeConfirmed) {
    platform.expectnumber("Range ... X-Minimum", "3");
    platform.expectnumber("X-Maximum", "3");
    platform.expectmenu("X-Minimum = X-Maximum?", 2);
    platform.expectnumber("Range ... X-Minimum", "4");
    platform.expectnumber("X-Maximum", "4");
    platform.expectmenu("X-Minimum = X-Maximum?", 1);
    EXPECT_TRUE(functionrange());
    EXPECT_EQ(session.fxlow, 4);
    EXPECT_EQ(session.fxhigh, 4);
}

TEST_F(FunctionEdit, ACancelLeavesTheRange) {
    platform.expectnumber("Range ... X-Minimum", "3");
    platform.expectnumber("X-Maximum", std::nullopt);
    EXPECT_FALSE(functionrange());
    EXPECT_EQ(session.fxlow, 0);
}

TEST_F(FunctionEdit, AsksForKWithItsPresentValue) {
    session.fk = 2.5f;
    platform.expectnumber("k = 2.5...New k-Value", "7");
    EXPECT_TRUE(functionk());
    EXPECT_EQ(session.fk, 7);
    platform.expectnumber("k = 7...New k-Value", std::nullopt);
    EXPECT_FALSE(functionk());
    EXPECT_EQ(session.fk, 7);
}

// ---- files

class FunctionFile : public FunctionEdit {
protected:
    FunctionFile() {
        std::string name = (std::filesystem::temp_directory_path() / "function-XXXXXX").string();
        folder = mkdtemp(name.data());
    }
    ~FunctionFile() override { std::filesystem::remove_all(folder); }
    std::string path(const char* name) const { return (folder / name).string(); }

    std::filesystem::path folder;
};

TEST_F(FunctionFile, ASavedFunctionComesBack) {
    ASSERT_TRUE(functionappend("1.5*x^-.25+.5 ichi^2 3"));
    session.fk = .1f;
    session.fxlow = -3;
    session.fxhigh = 1e20f;
    const Expression saved = session;
    ASSERT_TRUE(functionsave(path("a.fun")));
    static_cast<Expression&>(session) = Expression();
    ASSERT_TRUE(functionopen(path("a.fun")));
    EXPECT_EQ(session.fcode, saved.fcode);
    EXPECT_EQ(session.flits, saved.flits);
    EXPECT_EQ(session.flitcount, 4);
    EXPECT_EQ(session.fk, saved.fk);
    EXPECT_EQ(session.fxlow, saved.fxlow);
    EXPECT_EQ(session.fxhigh, saved.fxhigh);
    EXPECT_EQ(session.fcodeSaved, saved.fcode);
}

TEST_F(FunctionFile, TheNameOfferedFirstIsXFun) {
    ASSERT_TRUE(functionappend("x"));
    platform.expectmenu("Function Save To File?", 1);
    platform.expecttext("File Name", path("mine"));
    EXPECT_TRUE(functionsaveoffer());
    EXPECT_EQ(platform.shown[1].items, std::vector<std::string>{"x.fun"});
    EXPECT_EQ(readfile(path("mine.fun")),
              "FUNCTION 1\r\nCODE VA\r\nK 0\r\nXLOW 0\r\nXHIGH 1\r\nLITERALS 0\r\n");
}

TEST_F(FunctionFile, AFileThatStandsThereIsWrittenOverOnlyWhenWanted) {
    ASSERT_TRUE(functionappend("x"));
    platform.machine.present.insert(path("old.fun"));
    std::ofstream(path("old.fun")) << "old";
    platform.expectmenu("Function Save To File?", 1);
    platform.expecttext("File Name", path("old.fun"));
    platform.expectmenu("Already Saved", 2);
    EXPECT_FALSE(functionsaveoffer());
    EXPECT_EQ(readfile(path("old.fun")), "old");
}

TEST_F(FunctionFile, AFileThatCannotBeWrittenOrReadIsTold) {
    ASSERT_TRUE(functionappend("x"));
    platform.expectmessage("Cannot Save File: ");
    EXPECT_FALSE(functionsave(path("none/a.fun")));
    platform.expectmessage("Cannot Open File: ");
    EXPECT_FALSE(functionopen(path("none/a.fun")));
    EXPECT_EQ(functionline(), " Y = x");
}

TEST_F(FunctionFile, ADamagedFileChangesNothing) {
    ASSERT_TRUE(functionappend("2*x"));
    for (const char* text : {
             "",
             "FUNCTION 1\r\n",
             "FUNCTION 2\r\nCODE VA\r\n",
             "CODE VA\r\n",
             "FUNCTION 1\r\nCODE VAVA\r\n",
             "FUNCTION 1\r\nCODE V\r\n",
             "FUNCTION 1\r\nCODE VAO+\r\n",
             "FUNCTION 1\r\nCODE 00\r\n",
             "FUNCTION 1\r\nCODE 00\r\nLITERALS 2\r\n1\r\n2\r\n",
             "FUNCTION 1\r\nCODE 00\r\nLITERALS 1\r\n",
             "FUNCTION 1\r\nCODE 00\r\nLITERALS 1\r\nnan\r\n",
             "FUNCTION 1\r\nCODE 00\r\nLITERALS 1\r\n1x\r\n",
             "FUNCTION 1\r\nCODE 00\r\nLITERALS 99999999999999999999\r\n1\r\n",
             "FUNCTION 1\r\nCODE 00\r\nLITERALS -1\r\n1\r\n",
             "FUNCTION 1\r\nCODE VA\r\nK inf\r\n",
             "FUNCTION 1\r\nCODE VA\r\nXLOW 1e99\r\n",
         }) {
        EXPECT_FALSE(functionfiletake(text)) << text;
        EXPECT_EQ(functionline(), " Y = 2*x");
        EXPECT_EQ(session.fxlow, 0);
    }
}

TEST_F(FunctionFile, LinesOfALaterVersionArePassedOver) {
    EXPECT_TRUE(functionfiletake("FUNCTION 1\nCOLOR 3\nCODE 00\nLITERALS 1\n 2.5 \n\n"));
    EXPECT_EQ(functionline(), " Y = 2.5");
}

} // namespace
