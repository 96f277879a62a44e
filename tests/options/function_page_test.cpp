#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>

#include "expression/functionedit.h"
#include "options/page.h"
#include "options/pages.h"
#include "platform/paths.h"
#include "session/session.h"
#include "session/undo.h"
#include "shell/calcplot.h"
#include "shell/commands.h"
#include "support/freshsession.h"
#include "support/inlanguage.h"
#include "support/scriptedplatform.h"
#include "support/workfolder.h"

namespace {

constexpr char no = 2;

/// The pages of the typed function and of the transforms, as the commands of the visual side open them.
class FunctionPage : public testing::Test {
protected:
    FunctionPage() {
        session.configPath = session.programPath = session.tempPath = session.dataPath =
            folder.path("") + "\\";
        session.undoFile = session.tempPath + "undo.tmp";
        session.undoActive = 1;
    }
    static void command(int number) {
        session.commandNo = static_cast<int16_t>(number);
        session.commandButton = primaryPress;
        commanddispatch();
    }
    static void type(std::string_view text) {
        session.fcode.clear();
        session.flits = {0};
        session.flitcount = 0;
        ASSERT_TRUE(functionappend(text)) << text;
    }
    /// Opens the page of the function, with what was queued since and an exit at its end.
    void page() {
        desk.expectkey("", 'X');
        command(8);
        desk.verify();
    }
    /// Text of an item on the page that was shown last; empty when it was not offered.
    std::string item(char letter) const {
        for (const std::string& text : desk.shown.back().items)
            if (text.front() == letter) return text;
        return "";
    }

    FreshSession fresh{visualSide};
    ScriptedPlatform desk;
    WorkFolder folder;
};

} // namespace

TEST_F(FunctionPage, OffersTheFunctionItsRangeAndItsParameter) {
    session.fxlow = -1.5f;
    session.fxhigh = 2;
    session.fk = .1f;
    page();
    EXPECT_EQ(desk.shown[0].header, "Function");
    EXPECT_EQ(item('F'), "F...Function Input = Y = ");
    EXPECT_EQ(item('R'), "R...X-Range = -1.5 ... 2");
    EXPECT_EQ(item('K'), "K...k-Value = .1");
    for (const char letter : std::string("P3SUN")) EXPECT_EQ(item(letter), "") << letter;
}

TEST_F(FunctionPage, TakesAFunctionAndShowsItOnThePlot) {
    desk.expectkey("", 'F');
    desk.expecttext(" Y = ", "k*x^2");
    desk.expecttext(" Y = k*x^2", "");
    desk.expectmenu("Function Save To File", no);
    desk.expectkey("", 'P');
    page();
    EXPECT_EQ(item('F'), "F...Function Input = Y = k*x^2");
    EXPECT_EQ(item('P'), "P...Function On Plot = Yes (/ No)");
    EXPECT_EQ(session.functionShown, 1);
    EXPECT_EQ(std::count(desk.windowCalls.begin(), desk.windowCalls.end(), "repaintplot"), 1);
    desk.expectkey("", 'P');
    page();
    EXPECT_EQ(session.functionShown, 0);
}

TEST_F(FunctionPage, ALongFunctionShowsItsEnd) {
    std::string text = "x";
    for (int i = 0; i < 60; ++i) text += "+x";
    type(text);
    page();
    EXPECT_EQ(item('F').size(), std::string("F...Function Input = ... ").size() + 60);
}

TEST_F(FunctionPage, TakesRangeAndParameter) {
    desk.expectkey("", 'R');
    desk.expectnumber("Minimum", "5");
    desk.expectnumber("Maximum", "-3");
    desk.expectkey("", 'K');
    desk.expectnumber("k-Value", "2.5");
    page();
    EXPECT_EQ(session.fxlow, -3);
    EXPECT_EQ(session.fxhigh, 5);
    EXPECT_EQ(session.fk, 2.5f);
}

TEST_F(FunctionPage, ResetTakesItOffThePlotAndUndoBringsItBack) {
    type("x+1");
    session.fcodeSaved = session.fcode;
    session.flitsSaved = session.flits;
    session.functionShown = 1;
    desk.expectkey("", 'N');
    page();
    EXPECT_EQ(session.fcode, "");
    EXPECT_EQ(session.functionShown, 0);
    desk.expectkey("", 'U');
    page();
    EXPECT_EQ(functionline(), " Y = x+1");
}

TEST_F(FunctionPage, SavesTheFunctionAndOpensItAgain) {
    type("2*x+k");
    session.fk = 7;
    const std::string path = ownpath(folder.path("line.fun"));
    desk.expectkey("", 'S');
    desk.expectmenu("Function Save To File", 1);
    desk.expecttext("File Name", path);
    page();
    ASSERT_TRUE(folder.has("line.fun"));
    type("x");
    session.fk = 0;
    desk.expectkey("", 'G');
    desk.expectfile("Get Function File", folder.path("line.fun"));
    page();
    EXPECT_EQ(functionline(), " Y = 2*x+k");
    EXPECT_EQ(session.fk, 7);
}

TEST_F(FunctionPage, AFileThatIsNoFunctionLeavesTheFunction) {
    type("2*x+k");
    desk.expectkey("", 'G');
    desk.expectfile("Get Function File", folder.write("bad.fun", "FUNCTION 1\r\nCODE zz\r\n"));
    desk.expectmessage("Cannot Open File");
    desk.expectkey("", 'G');
    desk.expectfile("Get Function File", std::nullopt);
    page();
    EXPECT_EQ(functionline(), " Y = 2*x+k");
}

TEST_F(FunctionPage, RunsOverXAndYOfASetAndComesBackToThePlot) {
    session.gridCells = {{"1x10", "2x20_a"}};
    calcplot();
    type("2*x+k"); // the second operand of a row is its y
    desk.expectkey("", '1');
    desk.expecttext(" X = 2*x+y", "");
    desk.expectmenu("Function Save To File", no);
    desk.expectkey("", '2');
    desk.expecttext(" Y = 2*x+y", "");
    desk.expectmenu("Function Save To File", no);
    page();
    EXPECT_EQ(session.gridCells[0], (std::vector<std::string>{"12x34", "24x68_a"}));
    EXPECT_EQ(session.X(1, 2), 24); // the cycle has run
    EXPECT_EQ(session.functionMode, functionCurve);
    undo();
    EXPECT_EQ(session.gridCells[0], (std::vector<std::string>{"12x10", "24x20_a"}));
    undo();
    EXPECT_EQ(session.gridCells[0], (std::vector<std::string>{"1x10", "2x20_a"}));
}

TEST_F(FunctionPage, RunsWithItsParameterAsItIsDrawn) {
    session.gridCells = {{"1x10", "2x20x3_a", "_label"}};
    calcplot();
    type("k*x-1");
    session.fk = 5;
    desk.expectkey("", '3');
    page();
    EXPECT_EQ(session.gridCells[0], (std::vector<std::string>{"1x4", "2x9x3_a", "_label"}));
    undo();
    EXPECT_EQ(session.gridCells[0], (std::vector<std::string>{"1x10", "2x20x3_a", "_label"}));
}

TEST_F(FunctionPage, LettersOfThePagesAreThoseOfTheHouse) {
    const std::pair<OptionPage, std::string> letters[] = {{OptionPage::transform, "12345678ABHIJPRSX"},
                                                          {OptionPage::intervalTransform, "ABCDX"},
                                                          {OptionPage::function, "AFRKP123SGUNX"}};
    for (const auto& [page, expected] : letters) {
        std::string found;
        for (const Item& one : tableof(page)->items) found += one.letter;
        EXPECT_EQ(found, expected);
        EXPECT_EQ(std::set<char>(found.begin(), found.end()).size(), found.size());
    }
}

TEST_F(FunctionPage, ItemsOfTheTransformsReadAsTheyShould) {
    desk.expectkey("", 'X');
    command(17);
    EXPECT_EQ(desk.shown.back().header, "Transform");
    EXPECT_EQ(item('1'), "1...New X = F(Former X ... Former Y)");
    EXPECT_EQ(item('2'), "2...New Y = F(Former X ... Former Y)");
    EXPECT_EQ(item('3'), "3...New X = F(Former X ... Former Y) ... Set A, Set B");
    EXPECT_EQ(item('4'), "4...New Y = F(Y From Set A, Y From Set B)");
    EXPECT_EQ(item('5'), "5...New X For Set B = Y From Set A");
    EXPECT_EQ(item('7'), "7...Plot Of Set 1 Data vs. Set 2 Fit Results");
    EXPECT_EQ(item('8'), "8...Difference ... Set 1 Data - Set 2 Fit");
    EXPECT_EQ(item('A'), "A...Rectangular To Polar ... (X vs. Y) To (Angle [°] vs. Radius)");
    EXPECT_EQ(item('B'), "B...Polar To Rectangular ... (Angle [°] vs. Radius) To (X vs. Y)");
    EXPECT_EQ(item('H'), "H...Histogram Of 1-Axis");
    EXPECT_EQ(item('J'), "J...Histogram From 2-Axis");
    EXPECT_EQ(item('P'), "P...Polar Rotation About 0-0");
    EXPECT_EQ(item('R'), "R...Order By X-Value ... Small X < Middle X < Big X");
    EXPECT_EQ(item('S'), "S...Swap Axis ... X <---> Y");
    desk.expectkey("", 'I');
    desk.expectkey("", 'X');
    desk.expectkey("", 'X');
    command(17);
    const auto& intervals = desk.shown[2].items;
    EXPECT_EQ(intervals[0], "A...No Change ... X + Y Already Cumulative");
    EXPECT_EQ(intervals[1], "B...Interval X Only [Y Already Cumulative]");
    EXPECT_EQ(intervals[2], "C...Interval Y Only [X Already Cumulative]");
    EXPECT_EQ(intervals[3], "D...Interval X + Interval Y ... Transform");
}

TEST_F(FunctionPage, SpeaksAnotherLanguage) {
    const InLanguage german("German");
    desk.expectkey("", 'X');
    command(17);
    EXPECT_NE(desk.shown.back().header, "Transform");
    EXPECT_EQ(item('S').find("Swap"), std::string::npos);
    for (const std::string& text : desk.shown.back().items)
        EXPECT_EQ(text.find('{'), std::string::npos) << text;
}

TEST_F(FunctionPage, TheEquationsOfThisSideHaveATitleAlone) {
    desk.expectkey("", 'A');
    desk.expecttext("Analysis Equations", "growth");
    desk.expectkey("", '1');
    command(71);
    EXPECT_EQ(session.equationsName, "growth");
    EXPECT_EQ(item('A'), "A...Analysis Equations = 'growth'");
    EXPECT_EQ(item('B') + item('C'), "");
}

TEST(EquationsPage, ShowsFamilyAndMethodOfTheLifeSide) {
    const FreshSession fresh(lifeSide);
    ScriptedPlatform desk;
    desk.expectkey("", '1');
    optionpage(OptionPage::analysisEquations);
    EXPECT_EQ(desk.shown[0].items[2], "B...Distribution = Weibull");
    EXPECT_EQ(desk.shown[0].items[3], "C...Method = rr");
}
