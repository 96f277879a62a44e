#include "expression/functionrun.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "data/cell.h"
#include "expression/functionedit.h"
#include "expression/rules.h"
#include "expression/tokens.h"
#include "numeric/matherror.h"
#include "shell/prompts.h"
#include "support/freshsession.h"
#include "support/lifecells.h"
#include "support/scriptedplatform.h"

namespace {

using Cells = std::vector<std::string>;

/// Runs over the grid of an X-Y plot.
class FunctionRun : public testing::Test {
protected:
    FunctionRun() {
        session.plotMode = 0;
        session.functionMode = functionY;
    }

    static void type(std::string_view text) {
        session.fcode.clear();
        session.flits = {0};
        session.flitcount = 0;
        ASSERT_TRUE(functionappend(text)) << text;
    }
    static void set(int k, const std::vector<std::string_view>& cells) { lifecells(k, cells); }
    static const Cells& cells(int k) { return session.gridCells[static_cast<std::size_t>(k - 1)]; }
    static bool run(std::string_view text, int target = 1) {
        type(text);
        return functionrun(target);
    }

    FreshSession fresh{visualSide};
    ScriptedPlatform platform;
    Faults faults;
};

TEST_F(FunctionRun, WritesYFromXAndY) {
    set(1, {"1x10", "2x20", "3x30"});
    EXPECT_TRUE(run("y/10+x^2"));
    EXPECT_EQ(cells(1), (Cells{"1x2", "2x6", "3x12"}));
}

TEST_F(FunctionRun, WritesYFromTheYOfTwoSets) {
    session.functionMode = functionTwoSetsY;
    set(1, {"1x10", "2x20", "", "4x40_d"});
    set(2, {"5x3", "6", "7x8", "9x2"});
    platform.expectmessage("Set 1: No Results (1) ... Row 2");
    EXPECT_TRUE(run("A*B+n+yL"));
    // 2 rows whose Y both have, B of the last is 2
    EXPECT_EQ(cells(1), (Cells{"1x34", "2x20", "", "4x84_d"}));
    EXPECT_EQ(functionline(), " Y = A*B+n+yL");
}

TEST_F(FunctionRun, AResultOfNoneStandsInTheCell) {
    set(1, {"1x10", "2x20"});
    EXPECT_TRUE(run("y-10*x"));
    EXPECT_EQ(cells(1), (Cells{"1x0", "2x0"})); // "1" would be a point whose Y is missing
}

TEST_F(FunctionRun, WritesXInItsMode) {
    session.functionMode = functionX;
    set(1, {"1x10", "2x20"});
    EXPECT_TRUE(run("x+y"));
    EXPECT_EQ(cells(1), (Cells{"11x10", "22x20"}));
}

TEST_F(FunctionRun, KeepsQuantityZAndLabel) {
    set(1, {"1x10x3x4_pump 7", "2x20x1x0_ x", "3_ "});
    EXPECT_TRUE(run("2*x+1"));
    EXPECT_EQ(cells(1), (Cells{"1x3x3x4_pump 7", "2x5_ x", "3x7_ "}));
}

TEST_F(FunctionRun, ARowWithoutTheYThatTheFunctionReadsHasNoResult) {
    set(1, {"1x10", "2", "3x30_c", "4xx2"});
    platform.expectmessage("Set 1: No Results (2) ... Row 2");
    EXPECT_TRUE(run("2*y+j+n"));
    EXPECT_EQ(cells(1), (Cells{"1x25", "2", "3x67_c", "4xx2"}));
    session.functionMode = functionX;
    platform.expectmessage("Set 1: No Results (2) ... Row 2");
    EXPECT_TRUE(run("x*100+sum(y)"));
    EXPECT_EQ(cells(1), (Cells{"125x25", "2", "392x67_c", "4xx2"}));
}

TEST_F(FunctionRun, TheLastYIsTheLastThatThereIs) {
    set(1, {"1x10", "2x20", "3"});
    EXPECT_TRUE(run("x+yL"));
    EXPECT_EQ(cells(1), (Cells{"1x21", "2x22", "3x23"}));
    set(1, {"1", "2", ""});
    platform.expectmessage("Set 1: No Results (2) ... Row 1");
    EXPECT_FALSE(run("x+yL"));
    EXPECT_EQ(cells(1), (Cells{"1", "2", ""}));
}

TEST_F(FunctionRun, PassesOverCellsThatAreNoPoints) {
    session.functionMode = functionX;
    set(1, {"5", "", "_note", "six", "1,5", "7"});
    EXPECT_TRUE(run("10*j+n"));
    EXPECT_EQ(cells(1), (Cells{"12", "", "_note", "six", "1,5", "22"}));
}

TEST_F(FunctionRun, ReadsACommaWhereItIsTheDecimalSymbol) {
    session.decimalSeparator = ",";
    session.functionMode = functionX;
    set(1, {"1,5"});
    EXPECT_TRUE(run("x*2,5"));
    EXPECT_EQ(cells(1), (Cells{"3.75"}));
}

TEST_F(FunctionRun, ReadsTheColumnsAtTheRowOfTheGrid) {
    session.functionMode = functionX;
    session.functionSet = 2;
    set(1, {"100", "", "300"});
    set(2, {"1", "2", "3", "4"});
    EXPECT_TRUE(run("x0+x1+x9", 2));
    EXPECT_EQ(cells(2), (Cells{"101", "2", "303", "4"}));
}

TEST_F(FunctionRun, WritesIntoATargetOfItsOwn) {
    session.functionMode = functionX;
    set(1, {"1", "2", "3"});
    set(2, {"7x8"});
    EXPECT_TRUE(run("10*x", 2));
    EXPECT_EQ(cells(1), (Cells{"1", "2", "3"}));
    EXPECT_EQ(cells(2), (Cells{"10x8", "20", "30"}));
    EXPECT_TRUE(run("x", 4));
    EXPECT_EQ(cells(4), (Cells{"1", "2", "3"}));
}

TEST_F(FunctionRun, TakesTheRowsThatBothOfTwoSetsHave) {
    session.functionMode = functionTwoSets;
    set(1, {"1", "2", "3"});
    set(2, {"10", "", "30", "40"});
    platform.expectmessage("Set 1: No Results (1) ... Row 2");
    EXPECT_TRUE(run("A+B", 3));
    EXPECT_EQ(cells(3), (Cells{"11", "", "33"}));
}

TEST_F(FunctionRun, OfACurveTakesTheTargetsOwnXAndK) {
    session.functionMode = functionCurve;
    session.fk = 5;
    set(1, {"1"});
    set(2, {"2x9", "3"});
    EXPECT_TRUE(run("k*x", 2));
    EXPECT_EQ(cells(2), (Cells{"2x10", "3x15"}));
}

TEST_F(FunctionRun, KnowsTheLastPointAndTheNumberOfRows) {
    set(1, {"1x4", "2x5", "4x6"});
    EXPECT_TRUE(run("xL*100+yL*10+n"));
    EXPECT_EQ(cells(1), (Cells{"1x463", "2x463", "4x463"}));
}

TEST_F(FunctionRun, ARowWithoutAResultKeepsItsCellAndTheOthersGoOn) {
    set(1, {"4x1", "-4x2", "9x3", "-9x4", "16x5"});
    EXPECT_TRUE(run("x^.5"));
    EXPECT_EQ(cells(1), (Cells{"4x2", "-4x2", "9x3", "-9x4", "16x4"}));
    EXPECT_EQ(faults.taken(), std::vector<int>{5}); // once for both rows
}

TEST_F(FunctionRun, TellsWhichRowsHadNoResult) {
    installreporters();
    platform.expectmessage(
        "functionrow j=2 ... 4 n=2 (2)!!!...Calculation Error #5 ... Negative Log / Power");
    set(1, {"4x1", "-4x2", "9x3", "-9x4", "16x5"});
    EXPECT_TRUE(run("x^.5"));
    tellfault = nullptr;
    tellmatherror = nullptr;
}

TEST_F(FunctionRun, AResultThatWouldEmptyItsFieldIsNotWritten) {
    set(1, {"1x7", "2x8"});
    platform.expectmessage("Set 1: Outside Input Range ... j=1");
    EXPECT_TRUE(run("(x-2)*9.123/1e-32+1"));
    EXPECT_EQ(cells(1), (Cells{"1x7", "2x1"}));
}

TEST_F(FunctionRun, WithoutAnyResultChangesNothingAndBringsTheSavedFunctionBack) {
    set(1, {"-4x1"});
    type("x+1");
    functionkeep();
    EXPECT_FALSE(run("x^.5"));
    EXPECT_EQ(cells(1), (Cells{"-4x1"}));
    EXPECT_EQ(functionline(), " Y = x+1");
    EXPECT_EQ(faults.taken(), std::vector<int>{5});
}

TEST_F(FunctionRun, AFunctionThatCannotRunIsToldAndChangesNothing) {
    set(1, {"1x2"});
    platform.expectmessage("No Function");
    EXPECT_FALSE(functionrun(1));
    session.fcode = "0113"; // x *
    platform.expectmessage("Function: Not Done");
    EXPECT_FALSE(functionrun(1));
    session.fcode = "0102"; // x y
    platform.expectmessage("Function: Error (2)");
    EXPECT_FALSE(functionrun(1));
    session.fcode = "00"; // a number that is none
    platform.expectmessage("Function: No Value");
    EXPECT_FALSE(functionrun(1));
    session.fcode = std::string(64, '8') + "01"; // 32 brackets
    platform.expectmessage("Function: Too Big (32)");
    EXPECT_FALSE(functionrun(1));
    EXPECT_EQ(cells(1), (Cells{"1x2"}));
}

TEST_F(FunctionRun, ATargetThatIsNoSetIsRefused) {
    type("x");
    EXPECT_FALSE(functionrun(0));
    EXPECT_FALSE(functionrun(25));
    EXPECT_EQ(faults.taken(), (std::vector<int>{9, 9}));
    EXPECT_TRUE(session.gridCells.empty());
}

TEST_F(FunctionRun, AProbabilityPlotHasNoSecondCoordinate) {
    session.plotMode = 1;
    set(1, {"1", "2"});
    platform.expectmessage("Set 1 ... <> 2D!");
    EXPECT_FALSE(run("x"));
    session.functionMode = functionX;
    platform.expectmessage("Set 1 ... <> 2D!");
    EXPECT_FALSE(run("x+y"));
    EXPECT_TRUE(run("x+1"));
    EXPECT_EQ(cells(1), (Cells{"2", "3"}));
}

TEST_F(FunctionRun, KeepsTheMarkOfASuspension) {
    session.plotMode = 1;
    session.functionMode = functionX;
    set(1, {"10", "-20x0x3x0_s", "30"});
    EXPECT_TRUE(run("x+5"));
    EXPECT_EQ(cells(1), (Cells{"15", "-25x0x3_s", "35"}));
}

TEST_F(FunctionRun, KeepsWhatAMarkBeforeXSays) {
    session.plotMode = 1;
    session.functionMode = functionX;
    set(1, {">100", "<7", ">10<20_i"});
    std::vector<Cell> before;
    for (const std::string& text : cells(1)) before.push_back(cellsplit(text));
    EXPECT_TRUE(run("x*2"));
    for (std::size_t i = 0; i < before.size(); ++i) {
        const Cell after = cellsplit(cells(1)[i]);
        EXPECT_EQ(after.x, before[i].x * 2);
        EXPECT_EQ(after.z, before[i].z);
    }
    EXPECT_EQ(cellsplit(cells(1)[2]).label, "i");
}

TEST_F(FunctionRun, NeverTurnsAFailureIntoASuspension) {
    session.plotMode = 1;
    session.functionMode = functionX;
    set(1, {"10", "-20", "30"});
    platform.expectmessage("Set 1: Outside Input Range ... j=1");
    EXPECT_TRUE(run("x-15"));
    EXPECT_EQ(cells(1), (Cells{"10", "-5", "15"}));
}

TEST_F(FunctionRun, DoesNotStartWithinAnother) {
    set(1, {"1x2"});
    type("y+1");
    session.functionRunning = true;
    EXPECT_FALSE(functionrun(1));
    EXPECT_TRUE(functioncurve(5, {}).empty());
    session.functionRunning = false;
    EXPECT_EQ(cells(1), (Cells{"1x2"}));
    EXPECT_EQ(functionline(), " Y = y+1");
    EXPECT_TRUE(functionrun(1));
    EXPECT_FALSE(session.functionRunning);
}

TEST_F(FunctionRun, NarrowsItsResultsWithTheGuard) {
    set(1, {"1x2"});
    EXPECT_TRUE(run("1e33/1e-10"));
    EXPECT_EQ(cells(1), (Cells{"1x9E+30"}));
}

std::vector<std::pair<float, float>> pairsof(const std::vector<FunctionPoint>& points) {
    std::vector<std::pair<float, float>> pairs;
    for (const FunctionPoint& point : points) pairs.emplace_back(point.x, point.y);
    return pairs;
}
using Pairs = std::vector<std::pair<float, float>>;

TEST_F(FunctionRun, DrawsACurveInEqualStepsFromEndToEnd) {
    session.functionMode = functionCurve;
    session.fk = 2;
    session.fxlow = 0;
    session.fxhigh = 4;
    type("k*x+1");
    EXPECT_EQ(pairsof(functioncurve(5, {})), (Pairs{{0, 1}, {1, 3}, {2, 5}, {3, 7}, {4, 9}}));
    EXPECT_EQ(pairsof(functioncurve(1, {})), (Pairs{{0, 1}}));
    EXPECT_TRUE(functioncurve(0, {}).empty());
    session.fxlow = .1f;
    session.fxhigh = .7f;
    EXPECT_EQ(functioncurve(8, {}).back().x, .7f);
}

TEST_F(FunctionRun, LeavesOutWhatIsOutsideTheWindowButRemembersIt) {
    session.functionMode = functionCurve;
    session.fxlow = 0;
    session.fxhigh = 4;
    type("sum(x)");
    EXPECT_EQ(pairsof(functioncurve(5, {1, 4, 0, 7})), (Pairs{{1, 1}, {2, 3}, {3, 6}}));
}

TEST_F(FunctionRun, ACurveOutsideTheWindowIsNoFailure) {
    session.functionMode = functionCurve;
    type("x");
    functionkeep();
    type("x+100");
    EXPECT_TRUE(functioncurve(5, {0, 1, 0, 1}).empty());
    EXPECT_EQ(functionline(), " Y = x+100");
}

TEST_F(FunctionRun, ACurveWithoutAPointBringsTheSavedFunctionBack) {
    session.functionMode = functionCurve;
    type("x");
    functionkeep();
    type("gamma(0*x)");
    EXPECT_TRUE(functioncurve(5, {}).empty());
    EXPECT_EQ(faults.taken(), std::vector<int>{1001});
    EXPECT_EQ(functionline(), " Y = x");
}

TEST_F(FunctionRun, KeepingClosesTheBrackets) {
    type("sin(sqr(x");
    functionkeep();
    EXPECT_EQ(session.fcode, "4748018989");
    EXPECT_EQ(session.fcodeSaved, "4748018989");
    type("x");
    functionundo();
    EXPECT_EQ(functionline(), " Y = sin(sqr(x))");
}

} // namespace
