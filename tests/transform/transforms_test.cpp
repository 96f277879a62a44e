#include "transform/transforms.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "curvefit/fitfunction.h"
#include "curvefit/models.h"
#include "data/cell.h"
#include "session/session.h"
#include "session/undo.h"
#include "shell/calcplot.h"
#include "shell/commands.h"
#include "support/freshsession.h"
#include "support/scriptedplatform.h"
#include "support/workfolder.h"

namespace {

using Cells = std::vector<std::string>;
using Sets = std::vector<Cells>;

constexpr char yes = 1, no = 2;

/// The visual side as the main window drives it. After every test an undo must give the grid back as it was
/// before the transform.
class Transform : public testing::Test {
protected:
    Transform() {
        session.configPath = session.tempPath = session.dataPath = folder.path("") + "\\";
        session.undoFile = session.tempPath + "undo.tmp";
        session.undoActive = 1;
    }
    ~Transform() override {
        desk.verify();
        if (transformed) {
            expectbad();
            undo();
            EXPECT_EQ(session.gridCells, before);
            EXPECT_EQ(session.gridTitles, titlesBefore);
        }
    }

    /// `unreadable`: there are cells that every cycle tells of.
    void given(const Sets& sets, bool unreadable = false) {
        session.gridCells = sets;
        bad = unreadable;
        expectbad();
        calcplot();
    }
    void expectbad() {
        if (bad) desk.expectmessage("Bad Data");
    }
    /// Queues the choice of a letter on the page; the answers to what it asks follow.
    void choose(char letter) { desk.expectkey("", letter); }
    /// A set of a list, by its letter.
    void pick(char letter) { desk.expectkey("", letter); }
    /// The entry of a function, its end, and its file declined.
    void type(const std::string& shown, const std::string& typed) {
        desk.expecttext(shown, typed);
        desk.expecttext(shown, "");
        desk.expectmenu("Function Save To File", no);
    }
    /// A row, the only one of its set, has no result.
    void without(int row, int set = 1) {
        desk.expectmessage("Set " + std::to_string(set) + ": No Results (1) ... Row " + std::to_string(row));
    }
    /// Runs what was chosen; a cycle follows where it changes the data.
    void run(bool changes = true) {
        if (changes) expectbad();
        before = session.gridCells;
        titlesBefore = session.gridTitles;
        const auto steps = session.undoSteps.size();
        session.commandNo = 17;
        session.commandButton = primaryPress;
        commanddispatch();
        desk.verify();
        transformed = session.gridCells != before;
        EXPECT_EQ(session.undoSteps.size(), steps + (transformed ? 1 : 0));
    }
    static const Cells& cells(int k = 1) { return session.gridCells.at(static_cast<std::size_t>(k - 1)); }
    static Cell point(int row, int k = 1) {
        return cellsplit(cells(k).at(static_cast<std::size_t>(row - 1)));
    }
    const std::string& lastmessage() const { return desk.shown.back().text; }

    FreshSession fresh{visualSide};
    ScriptedPlatform desk;
    WorkFolder folder;
    Sets before;
    Cells titlesBefore;
    bool transformed = false, bad = false;
};

const Cells mixed = {"1x10",           "",      "_only a label", "2x20x3_a b", "six",
                     "3x30x1x3.3E+33", "1,5x2", "4x40x2x7",      "7"};

} // namespace

// ---- the typed function ----

TEST_F(Transform, NewXIsTheFunctionOfFormerXAndY) {
    given({mixed}, true);
    choose('1');
    type(" X = ", "x*100+y");
    without(9);
    run();
    EXPECT_EQ(cells(), (Cells{"110x10", "", "_only a label", "220x20x3_a b", "six", "330x30x1x3.3E+33",
                              "1,5x2", "440x40x2x7", "7"}));
}

TEST_F(Transform, AFunctionThatReadsNoYKeepsItMissing) {
    given({mixed}, true);
    choose('1');
    type(" X = ", "x*100");
    run();
    EXPECT_EQ(cells().back(), "700");
}

TEST_F(Transform, NewYIsTheFunctionOfFormerXAndY) {
    given({{"1x10"}, mixed}, true);
    choose('2');
    pick('B');
    type(" Y = ", "y-10*x");
    without(9, 2);
    run();
    EXPECT_EQ(cells(1), Cells{"1x10"});
    EXPECT_EQ(cells(2), (Cells{"1x0", "", "_only a label", "2x0x3_a b", "six", "3x0x1x3.3E+33", "1,5x2",
                               "4x0x2x7", "7"}));
}

TEST_F(Transform, ARowWithoutAResultKeepsItsCellAndIsToldOnce) {
    const Faults faults;
    given({{"4x1", "-1x2", "9x3", "-2x4"}});
    choose('2');
    type(" Y = ", "x^.5");
    run();
    EXPECT_EQ(Faults::taken().size(), 1u);
    EXPECT_EQ(cells(), (Cells{"4x2", "-1x2", "9x3", "-2x4"}));
}

TEST_F(Transform, NewXOfTwoSetsTakesTheirX) {
    given({{"1x5", "2x6x1x0_p", "3x7"}, {"10x0", "", "30x0", "40x0"}});
    choose('3');
    pick('A');
    pick('B');
    type(" X = ", "A+B");
    desk.expectmessage("Set 1: No Results (1) ... Row 2");
    run();
    EXPECT_EQ(cells(1), (Cells{"11x5", "2x6x1x0_p", "33x7"}));
    EXPECT_EQ(cells(2), before[1]);
}

TEST_F(Transform, NewYOfTwoSetsTakesTheirYAndKeepsX) {
    given({{"1x5", "2x6x4x9_p", "3x7", "4", "5x9"}, {"10x50", "20x60", "30x70", "40x80", "50"}});
    choose('4');
    pick('A');
    pick('B');
    type(" Y = ", "B/A+j");
    desk.expectmessage("Set 1: No Results (2) ... Row 4");
    run();
    EXPECT_EQ(cells(1), (Cells{"1x11", "2x12x4x9_p", "3x13", "4", "5x9"}));
    EXPECT_EQ(cells(2), before[1]);
}

TEST_F(Transform, ACancelledFunctionChangesNothing) {
    given({mixed}, true);
    session.fcode = "01";
    choose('1');
    desk.expecttext("X = x", "+5");
    desk.expecttext("X = x+5", std::nullopt);
    run(false);
    EXPECT_EQ(cells(), mixed);
    EXPECT_EQ(session.fcode, "01");
    EXPECT_EQ(session.functionMode, functionCurve);
}

// ---- from set to set ----

TEST_F(Transform, NewXOfSetBIsTheYOfSetA) {
    given({{"1x5", "2x6", "_no point", "4x8", "9"}, {"10x50_l", "20x60x2", "30x70", "40", "50x90"}});
    choose('5');
    pick('A');
    pick('B');
    desk.expectmessage("Set 2: No Results (2) ... Row 3");
    run();
    EXPECT_EQ(cells(2), (Cells{"5x50_l", "6x60x2", "30x70", "8", "50x90"}));
    EXPECT_EQ(cells(1), before[0]);
}

TEST_F(Transform, TotalOfOneSetIsTheRunningSumInANewSet) {
    given({{"1x10_a", "bad", "2x-4x3", "3x.5x1x6", "4x_not measured"}}, true);
    choose('6');
    without(5);
    run();
    EXPECT_EQ(cells(1), before[0]);
    EXPECT_EQ(cells(2), (Cells{"1x10_a", "2x-2x3", "3x-1.5x1x6"})); // 10, 10 - 3 * 4, -2 + .5
    EXPECT_EQ(session.gridTitles.at(1), "Total Y ... Set 1");
    EXPECT_EQ(pointcount(2), 3);
}

TEST_F(Transform, TotalOfAllSetsAddsAtEachXAndTellsWhatIsNotInAll) {
    given({{"2x20", "1x10x2", "3x30"}, {"1x1", "2x2", "4x4", "2x5", "7"}});
    choose('6');
    pick('A');
    without(5, 2);
    desk.expectmessage("Not All Sets Have Same X (2)");
    run();
    EXPECT_EQ(cells(3), (Cells{"1x21", "2x27", "3x30", "4x4"}));
}

TEST_F(Transform, TotalAgreesWithAnIndependentLoop) {
    Cells a, b;
    std::vector<double> sums(50);
    for (int i = 0; i < 50; ++i) {
        const double y1 = i * i / 8.0, y2 = 100 - i / 4.0;
        a.push_back(std::to_string(i) + "x" + std::to_string(y1));
        b.push_back(std::to_string(49 - i) + "x" + std::to_string(y2));
        sums[static_cast<std::size_t>(i)] += y1;
        sums[static_cast<std::size_t>(49 - i)] += y2;
    }
    given({a, b});
    choose('6');
    pick('A');
    run();
    ASSERT_EQ(cells(3).size(), 50u);
    for (int i = 0; i < 50; ++i) {
        EXPECT_EQ(point(i + 1, 3).x, static_cast<float>(i));
        EXPECT_EQ(point(i + 1, 3).y, static_cast<float>(sums[static_cast<std::size_t>(i)]));
    }
}

// ---- data and curve ----

namespace {

/// The curve of a set as the cycle would leave it, y = 2 + 3 x: the cycle of a test fits none.
void putline(int set) {
    SetCurve& curve = session.curves(set);
    curve.fitmodel = 1;
    curve.coefficients = {2, 3};
    fitfunction(curve);
}

void putlogarithmic(int set, int16_t model, double a, double slope) {
    SetCurve& curve = session.curves(set);
    curve.fitmodel = model;
    curve.coefficients = {a, slope};
    fitfunction(curve);
}

} // namespace

TEST_F(Transform, DataAgainstTheFitOfAnotherSetTakesTheFitAtItsX) {
    given({{"1x4.5_a", "no", "2x9x2", "10x30x1x8", "11"}, {"1x5", "2x8"}}, true);
    putline(2);
    choose('7');
    pick('A');
    pick('B');
    without(5);
    run();
    EXPECT_EQ(cells(3), (Cells{"4.5x5_a", "9x8x2", "30x32x1x8"}));
    EXPECT_EQ(session.gridTitles.at(2), "Set 1 vs. Set 2 Fit");
}

TEST_F(Transform, DifferenceIsTheDataLessTheFit) {
    Cells data;
    for (int i = 1; i <= 40; ++i) data.push_back(std::to_string(i) + "x" + std::to_string(i * i));
    given({data, {"1x5", "2x8"}});
    putline(2);
    choose('8');
    pick('A');
    pick('B');
    run();
    ASSERT_EQ(cells(3).size(), 40u);
    for (int i = 1; i <= 40; ++i) {
        EXPECT_EQ(point(i, 3).x, static_cast<float>(i));
        EXPECT_EQ(point(i, 3).y, static_cast<float>(i * i - (2 + 3 * i)));
    }
}

TEST_F(Transform, ASetAloneIsComparedWithItsOwnFit) {
    given({{"1x4", "2x9"}});
    putline(1);
    choose('8');
    run();
    EXPECT_EQ(cells(2), (Cells{"1x-1", "2x1"}));
}

TEST_F(Transform, APointOutsideTheDomainOfTheCurveHasNoFit) {
    const struct {
        int16_t model;
        const char *outside, *within, *difference;
    } cases[] = {{powerFit, "-2x3", "3x10", "3x1"}, // x^2
                 {powerFit, "0x3", "3x10", "3x1"},
                 {arrheniusXFit, "0x3", "1x8", nullptr}, // e^(2/x)
                 {arrheniusYFit, "-1x3", "2x8", nullptr},
                 {arrheniusYFit, "1x3", "2x8", nullptr}}; // its pole: 2 / ln(x)
    for (const auto& one : cases) {
        for (const char letter : {'7', '8'}) {
            session.gridTitles.clear();
            given({{one.outside, one.within}});
            putlogarithmic(1, one.model, 1, 2);
            choose(letter);
            without(1);
            run();
            ASSERT_EQ(cells(2).size(), 1u) << one.outside;
            if (one.difference && letter == '8') {
                EXPECT_EQ(cells(2), Cells{one.difference});
            }
        }
    }
}

TEST_F(Transform, AFitBeyondTheExponentOfTheFunctionsIsThatOfTheCurve) {
    given({{"75x1"}});
    putlogarithmic(1, exponentialFit, 1, 1);
    choose('7');
    run();
    EXPECT_EQ(point(1, 2).y, static_cast<float>(std::exp(75.0)));
}

TEST_F(Transform, ADifferenceFromTheFitNeedsAY) {
    given({{"1x4", "2", "3x9"}});
    putline(1);
    choose('8');
    without(2);
    run();
    EXPECT_EQ(cells(2), (Cells{"1x-1", "3x-2"}));
}

TEST_F(Transform, WithoutACurveTheDataStay) {
    given({{"1x4", "2x9"}, {"1x5"}});
    for (const char letter : {'7', '8'}) {
        choose(letter);
        pick('A');
        pick('B');
        desk.expectmessage("Set 2: No Curve Fit");
        run();
        EXPECT_EQ(session.gridCells.size(), 2u);
    }
}

// ---- the plane ----

TEST_F(Transform, RectangularToPolarGivesAngleAndRadius) {
    given({{"1x0", "0x2_up", "", "-3x0x2", "0x-4x1x6", "3x4", "-2x-2", "9"}});
    choose('A');
    without(8);
    run();
    EXPECT_EQ(cells()[7], "9");
    EXPECT_EQ(cells()[0], "0x1");
    EXPECT_EQ(cells()[1], "90x2_up");
    EXPECT_EQ(cells()[2], "");
    EXPECT_EQ(cells()[3], "180x3x2");
    EXPECT_EQ(cells()[4], "-90x4x1x6");
    EXPECT_EQ(point(6).x, 53.130102354f);
    EXPECT_EQ(point(6).y, 5);
    EXPECT_EQ(point(7).x, -135);
    EXPECT_EQ(point(7).y, 2.8284271247f);
}

TEST_F(Transform, PolarToRectangularIsTheWayBack) {
    given({{"0x1", "90x2_up", "180x3x2", "-90x4x1x6", "30x8", "x", "9_k"}}, true);
    choose('B');
    without(7);
    run();
    EXPECT_EQ(cells()[6], "9_k");
    EXPECT_EQ(Cells(cells().begin(), cells().begin() + 4), (Cells{"1x0", "0x2_up", "-3x0x2", "0x-4x1x6"}));
    EXPECT_EQ(point(5).x, 6.9282032303f);
    EXPECT_EQ(point(5).y, 4);
    EXPECT_EQ(cells()[5], "x");
}

TEST_F(Transform, RotationTurnsCounterClockwiseByTheAngle) {
    given({{"1x0_r", "3x4x2", "9"}, {"1x1"}});
    choose('P');
    pick('A');
    desk.expectnumber("Angle", "90");
    without(3);
    run();
    EXPECT_EQ(cells(1), (Cells{"0x1_r", "-4x3x2", "9"}));
    EXPECT_EQ(cells(2), Cells{"1x1"});
}

TEST_F(Transform, ARotationCancelledAtItsAngleChangesNothing) {
    given({mixed}, true);
    choose('P');
    desk.expectnumber("Angle", std::nullopt);
    run(false);
    EXPECT_EQ(cells(), mixed);
}

TEST_F(Transform, SwapExchangesTheAxes) {
    given({mixed}, true);
    choose('S');
    without(9);
    run();
    EXPECT_EQ(cells(), (Cells{"10x1", "", "_only a label", "20x2x3_a b", "six", "30x3x1x3.3E+33", "1,5x2",
                              "40x4x2x7", "7"}));
}

TEST_F(Transform, SwapTwiceIsTheIdentity) {
    given({mixed}, true);
    for (int turn = 0; turn < 2; ++turn) {
        choose('S');
        without(9);
        run();
    }
    EXPECT_EQ(cells(), mixed);
    expectbad();
    undo();
    EXPECT_EQ(cells(), before[0]);
    expectbad();
    undo();
    EXPECT_EQ(cells(), mixed);
    transformed = false;
}

TEST_F(Transform, OrderMovesWholeCellsAmongTheRowsOfPoints) {
    given({{"3x1_c", "", "1.50x2x4", "_label", "-2x3", "1.5x9", "six"}}, true);
    choose('R');
    run();
    EXPECT_EQ(cells(), (Cells{"-2x3", "", "1.50x2x4", "_label", "1.5x9", "3x1_c", "six"}));
}

TEST_F(Transform, DataInOrderStayAndMakeNoStep) {
    given({{"1x3", "1x2", "2x1"}});
    choose('R');
    run();
    EXPECT_EQ(cells(), (Cells{"1x3", "1x2", "2x1"}));
}

// ---- histograms ----

TEST_F(Transform, HistogramCountsTheValuesOfOneAxisWithTheirQuantities) {
    // 10 values: 1 + 3.3 ln 10 = 8.6, 8 bars of 9 / 8.
    given({{"1x0", "2x0x2", "3x0x3_l", "bad", "4x0x2", "5x0", "10"}}, true);
    choose('H');
    desk.expectkey("", 'A');
    run();
    EXPECT_EQ(cells(2), (Cells{"1.5625x3", "2.6875x3", "3.8125x2", "4.9375x1", "6.0625x0", "7.1875x0",
                               "8.3125x0", "9.4375x1"}));
    EXPECT_EQ(session.plotKind, barsStacked);
    EXPECT_EQ(session.gridTitles.at(1), "Histogram X ... Set 1");
}

TEST_F(Transform, HistogramOfYLeavesXAlone) {
    given({{"7x1"}, {"500x0", "100x4", "900x10", "300"}});
    choose('H');
    pick('B');
    desk.expectkey("", 'B');
    without(4, 2);
    run();
    EXPECT_EQ(cells(3), (Cells{"1x1", "3x0", "5x1", "7x0", "9x1"})); // 4 lies on an edge: the bar above
}

TEST_F(Transform, AHistogramWithoutAnAxisIsNone) {
    given({{"1x1", "2x2"}});
    choose('H');
    desk.expectkey("", 'X');
    run();
    EXPECT_EQ(session.gridCells.size(), 1u);
    EXPECT_EQ(session.plotKind, xyPlot);
}

TEST_F(Transform, HistogramFromBothAxesAddsYInEachIntervalOfX) {
    given({{"0x2", "1x.5", "5x3x2", "10x-4", "20"}});
    choose('J');
    without(5);
    run();
    // 5 points: 1 + 3.3 ln 5 = 6.3, 6 bars of 10 / 6; 5 lies on the third edge.
    const double totals[] = {2.5, 0, 0, 6, 0, -4};
    ASSERT_EQ(cells(2).size(), 6u);
    for (int i = 0; i < 6; ++i) {
        EXPECT_EQ(point(i + 1, 2).x, static_cast<float>((i + 0.5) * 10 / 6));
        EXPECT_EQ(point(i + 1, 2).y, static_cast<float>(totals[i]));
    }
    EXPECT_EQ(session.plotKind, barsStacked);
}

// ---- intervals ----

TEST_F(Transform, IntervalsOfXBecomeSums) {
    given({{"10x1", "", "5x2_a", "2.5", "20x4x3x6"}});
    choose('I');
    choose('B');
    desk.expectkey("", 'X');
    run();
    EXPECT_EQ(cells(), (Cells{"10x1", "", "15x2_a", "17.5", "37.5x4x3x6"}));
}

TEST_F(Transform, IntervalsOfYBecomeSums) {
    given({{"10x1", "20x2_a", "25", "30x-4"}});
    choose('I');
    choose('C');
    without(3);
    desk.expectkey("", 'X');
    run();
    EXPECT_EQ(cells(), (Cells{"10x1", "20x3_a", "25", "30x-1"}));
}

TEST_F(Transform, IntervalsOfBothBecomeSums) {
    given({{"10x1", "20x2", "5", "30x4"}, {"1x1"}});
    choose('I');
    choose('D');
    pick('A');
    without(3);
    desk.expectkey("", 'X');
    run();
    EXPECT_EQ(cells(), (Cells{"10x1", "30x3", "5", "65x7"})); // the 5 of X lie on the way
}

TEST_F(Transform, NoChangeOfIntervalsIsNone) {
    given({{"10x1", "20x2"}});
    choose('I');
    choose('A');
    desk.expectkey("", 'X');
    run();
    EXPECT_EQ(cells(), (Cells{"10x1", "20x2"}));
}

TEST_F(Transform, ASumBeyondACellIsToldAndTheOthersStand) {
    given({{"5E+33x1", "5E+33x1", "-6E+33x1"}});
    choose('I');
    choose('B');
    desk.expectmessage("Set 1: No Results (1) ... Row 2");
    desk.expectkey("", 'X');
    run();
    EXPECT_EQ(cells()[1], "5E+33x1");
    EXPECT_FLOAT_EQ(point(3).x, 4e33f);
}

// ---- nothing to work on, and no room ----

TEST_F(Transform, EveryTransformWithoutDataSaysSoAndChangesNothing) {
    given({{"", "_label", "six", "1,5"}, {}}, true);
    for (const char letter : std::string("123456AHJPRSB")) {
        choose(letter);
        desk.expectmessage("No Data");
        run(false);
    }
    for (const char letter : {'7', '8'}) {
        choose(letter);
        desk.expectmessage("No Data");
        run(false);
    }
    EXPECT_FALSE(transformed);
}

TEST_F(Transform, ACancelAtTheSetChangesNothing) {
    const Sets sets = {{"1x2", "3x4"}, {"5x6"}};
    given(sets);
    for (const char letter : std::string("1234568ABHJPRS7")) {
        choose(letter);
        desk.expectmenu("", 0);
        run();
        EXPECT_EQ(session.gridCells, sets) << letter;
    }
}

TEST_F(Transform, AFullSessionHasNoRoomForANewSet) {
    given(Sets(24, Cells{"1x2", "3x4"}));
    choose('J');
    pick('A');
    desk.expectmessage("Set Quantity Too Big (> 24) ... View Setup");
    run();
    EXPECT_EQ(session.gridCells.size(), 24u);
    EXPECT_EQ(session.plotKind, xyPlot);
}

TEST_F(Transform, AHeadingWithoutDataKeepsItsColumn) {
    session.gridTitles = {"", "", "for later"};
    given({{"1x2", "3x4"}, {}});
    choose('6');
    run();
    EXPECT_EQ(session.gridTitles.at(2), "for later");
    EXPECT_EQ(cells(4), (Cells{"1x2", "3x6"}));
}

TEST_F(Transform, MorePointsThanASetHoldsAreNotMade) {
    Cells a, b;
    const int points = static_cast<int>(session.maxPoints);
    for (int i = 0; i < points; ++i) {
        a.push_back(std::to_string(i) + "x1");
        b.push_back(std::to_string(i) + ".5x1");
    }
    given({a, b});
    choose('6');
    pick('A');
    desk.expectmessage("Point Quantity Too Big");
    run();
    EXPECT_EQ(session.gridCells.size(), 2u);
}

TEST_F(Transform, CellsTypedSinceTheLastCycleAreAStepOfTheirOwn) {
    given({{"1x2", "3x4"}});
    session.gridCells[0].push_back("5x6");
    choose('S');
    before = session.gridCells;
    session.commandNo = 17;
    session.commandButton = primaryPress;
    commanddispatch();
    EXPECT_EQ(cells(), (Cells{"2x1", "4x3", "6x5"}));
    undo();
    EXPECT_EQ(cells(), (Cells{"1x2", "3x4", "5x6"}));
    undo();
    EXPECT_EQ(cells(), (Cells{"1x2", "3x4"}));
}

TEST_F(Transform, ALargeSetIsTransformedAndComesBack) {
    session.sizeExponent = 9;
    ASSERT_TRUE(allocatearrays());
    constexpr int points = 60000; // more cells than an undo keeps as they were typed
    Cells data;
    for (int i = 0; i < points; ++i) data.push_back(std::to_string(i) + "x" + std::to_string(i % 7) + ".5");
    given({data});
    choose('S');
    run();
    EXPECT_EQ(cells().back(), std::to_string((points - 1) % 7) + ".5x59999");
    undo();
    ASSERT_EQ(pointcount(1), points);
    for (int i = 0; i < points; ++i) {
        ASSERT_EQ(session.X(1, i + 1), static_cast<float>(i));
        ASSERT_EQ(session.Y(1, i + 1), static_cast<float>(i % 7 + .5));
    }
    transformed = false; // the cells themselves come back in the long form
}
