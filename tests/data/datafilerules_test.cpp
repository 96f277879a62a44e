// The rules of the fields: what a data file may say, and what becomes of it in a session of either side.

#include <gtest/gtest.h>

#include "data/datafileoptions.h"
#include "platform/headless/headless.h"
#include "support/filefixture.h"
#include "support/scriptedplatform.h"

namespace {

const std::string onePoint = "SET_A\r\n1\r\n5 0 1 0\r\n";

class LifeFile : public testing::Test {
protected:
    ScriptedPlatform desktop;
    FreshSession life{lifeSide};

    /// Reads a life file of one point with these options.
    static void options(const std::vector<std::pair<int, std::string>>& given, int count = 173) {
        ASSERT_EQ(readfiletext(lifehead(1, onePoint) + optionlist(count, given)), FileRead::read);
    }
    /// No check value in these files differs: line 2 says none.
    static std::string lifehead(int sets, const std::string& blocks) { return ::lifehead(sets, blocks, "3"); }
    static std::string visualhead(int sets, const std::string& blocks) {
        return ::visualhead(sets, blocks, "3");
    }
};

TEST_F(LifeFile, ALongerOptionListThanIsKnownIsPassedOverAtItsEnd) {
    ASSERT_EQ(readfiletext(lifehead(1, onePoint) + optionlist(200, {{2, "Normal"}, {187, "SOLCOEF"}})
                           + "ANALYSISCOMMENT\r\n1\r\nseen\r\n"),
              FileRead::read);
    EXPECT_EQ(session.dist, normal);
    EXPECT_EQ(session.analysisComment, "seen");
}

TEST_F(LifeFile, AListOfFewerThan56OptionsResetsTheRest) {
    session.mleVariant = 3;
    session.rrSwap = 1;
    session.replotNeeded = 0;
    options({{2, "Lognormal"}}, 40);
    EXPECT_EQ(session.dist, lognormal);
    EXPECT_EQ(session.mleVariant, 0);
    EXPECT_EQ(session.rrSwap, 0);
    EXPECT_EQ(session.replotNeeded, 1);
}

TEST_F(LifeFile, AListOf56OptionsLeavesTheRestAsItIs) {
    session.mleVariant = 3;
    options({}, 56);
    EXPECT_EQ(session.mleVariant, 3);
}

TEST_F(LifeFile, ABadOptionListKeepsTheDataAndWhatWasReadBeforeIt) {
    gridread({{"7", "8"}});
    session.titleWanted = "mine";
    for (const char* list :
         {"PROGRAM_SPECIFIC\r\n0\r\n1\r\n", "PROGRAM_SPECIFIC\r\nabc\r\n", "PROGRAM_SPECIFIC",
          "PROGRAM_SPECIFIC 2\r\n3\r\n1\r\n", "ETABARR()\r\n1\r\n5\r\nPROGRAM_SPECIFIC\r\n-1\r\n"}) {
        SCOPED_TRACE(list);
        desktop.expectmessage("Bad Input File");
        EXPECT_EQ(readfiletext(lifehead(1, onePoint) + "LABELSWVW\r\n1\r\nfile's\r\n" + list), FileRead::bad);
        EXPECT_EQ(session.u, -9.123e32f);
        EXPECT_EQ(session.lastRow, 3);
        EXPECT_EQ(session.gridCells[0], (std::vector<std::string>{"7", "8"}));
        EXPECT_EQ(session.titleWanted, "file's");
    }
}

TEST_F(LifeFile, ConfidenceLevelsAreFractionsInTheFile) {
    options({{5, ".05"}, {6, ".999"}});
    EXPECT_EQ(session.confLow, 5);
    EXPECT_EQ(session.confHigh, 99.9f);
    options({{5, "-3"}, {6, "2"}});
    EXPECT_EQ(session.confLow, 0);
    EXPECT_FLOAT_EQ(session.confHigh, 99.9999f);
}

TEST_F(LifeFile, TheBoundMethodIsTakenWithinItsCodes) {
    const struct {
        const char* code;
        int16_t method;
        double point;
    } cases[] = {{"1", 1, .1},      {"6", 6, .1},     {"4", 5, .1},     {"7", 2, .1},     {"0", 2, .1},
                 {"-3", -3, .1},    {"-51", -1, .51}, {"-110", -1, .1}, {"-300", -3, .1}, {"-349", -3, .49},
                 {"-549", -5, .49}, {"-50", 2, .1},   {"-550", 2, .1},  {"2.5", 2, .1},   {"51", 2, .1}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.code);
        session.confMethod = fisherBounds;
        session.singleP = .1;
        options({{4, c.code}, {92, "abc"}});
        EXPECT_EQ(session.confMethod, c.method);
        EXPECT_DOUBLE_EQ(session.singleP, c.point);
    }
}

TEST_F(LifeFile, NoBoundsAndThePlainSimulationSurvive) {
    for (const int16_t method : {noBounds, simulationBounds}) {
        session.confMethod = method;
        const std::string text = written();
        session.confMethod = fisherBounds;
        ASSERT_EQ(readfiletext(text), FileRead::read);
        EXPECT_EQ(session.confMethod, method);
    }
}

TEST_F(LifeFile, OnlyKnownMethodsAndInputTypesAreTaken) {
    session.fitMethod = session.fitMethodSaved = maximumLikelihood;
    session.inputType = km4;
    for (const char* bad : {"3", "-1", "1.5", "7"})
        options({{3, bad}, {7, bad == std::string("3") ? "6" : bad}});
    EXPECT_EQ(session.fitMethodSaved, maximumLikelihood);
    EXPECT_EQ(session.inputType, km4);
    options({{3, "1"}, {7, "5"}});
    EXPECT_EQ(session.fitMethod, rankRegression);
    EXPECT_EQ(session.inputType, intv5);
}

TEST_F(LifeFile, NegativeValuesNeedAFamilyOfTheWholeLine) {
    options({{2, "Weibull"}, {16, "1"}});
    EXPECT_EQ(session.negativeXAllowed, 0);
    options({{2, "Gumbel+"}, {16, "1"}, {58, "1"}});
    EXPECT_EQ(session.negativeXAllowed, 1);
    EXPECT_EQ(session.gumbeltype, 1);
    options({{2, "Gumbel-"}, {58, "-1"}});
    EXPECT_EQ(session.gumbeltype, -1);
}

TEST_F(LifeFile, AThresholdIsNotSearchedAmongDiscoveries) {
    const std::string discovery = "SET_A\r\n1\r\n5 0 1 -3.3E+33\r\n";
    ASSERT_EQ(readfiletext(lifehead(1, discovery) + optionlist(173, {{7, "5"}, {129, "1"}})), FileRead::read);
    EXPECT_EQ(session.findThreshold, 0);
    options({{7, "5"}, {129, "1"}});
    EXPECT_EQ(session.findThreshold, 1);
}

TEST_F(LifeFile, APortionThatIsNoneIsTakenBackAndTold) {
    options({{70, ".25"}});
    EXPECT_EQ(session.popPortion, .25f);
    desktop.expectmessage("Partial % [BATCH] 0 ... Difference");
    options({{70, "25"}});
    EXPECT_EQ(session.popPortion, 0);
}

TEST_F(LifeFile, AnotherAvailabilityIsTold) {
    options({{35, ".9"}});
    options({{35, ".9"}});
    desktop.expectmessage("File AU% =.8 (AU%) ... AU% =.9 old.w");
    session.fileName = "old.w";
    options({{35, ".8"}});
}

TEST_F(LifeFile, TheRiskStepOfSeveralSetsIsNeverBelowATenth) {
    options({{11, ".05"}});
    EXPECT_EQ(session.riskStep, .05f);
    ASSERT_EQ(readfiletext(lifehead(2, onePoint + onePoint) + optionlist(173, {{11, ".05"}})),
              FileRead::read);
    EXPECT_FLOAT_EQ(session.riskStep, 1.0f / 6);
}

TEST_F(LifeFile, OptionsWithoutAFieldAreKeptAsTheyStand) {
    options(
        {{76, "aval file.txt"}, {44, "-12.50"}, {100, "1.000"}, {39, "-1"}, {41, "3"}, {131, "some text"}});
    const auto lines = linesof(written());
    const auto line = [&](int position) {
        return lines[lineoftag(lines, "PROGRAM_SPECIFIC") + 1 + static_cast<std::size_t>(position)];
    };
    EXPECT_EQ(line(76), "aval file.txt");
    EXPECT_EQ(line(44), "12.5"); // a magnitude
    EXPECT_EQ(line(100), "1.000");
    EXPECT_EQ(line(39), "0"); // -1 is dropped
    EXPECT_EQ(line(41), "3");
    EXPECT_EQ(line(131), "some text");
    EXPECT_EQ(line(68), "0");
}

TEST_F(LifeFile, WhatTheFileShowsFirstIsAsked) {
    desktop.expectmenu("Select Plot/Report As File?", 2);
    options({{8, "1"}});
    EXPECT_EQ(session.reportChoice, 0);
    desktop.expectmenu("Select Plot/Report As File?", 1);
    options({{8, "1"}});
    EXPECT_EQ(session.reportChoice, 1);
    options({{8, "1"}});
}

TEST_F(LifeFile, TheScaleStyleIsNotTakenWhileItIsLocked) {
    const std::string style = "STYLE1\r\n10\r\n1\r\n7\r\n3\r\n0\r\n-5\r\n20\r\n.5\r\n.9\r\n0\r\n0\r\n";
    session.keepScale = 1;
    ASSERT_EQ(readfiletext(lifehead(1, onePoint) + style), FileRead::read);
    EXPECT_EQ(session.styleKept[2], "");
    EXPECT_EQ(session.xyscale, 0); // of the X-Y side
    EXPECT_EQ(session.xlowd, -5);  // an axis of style 1 runs below zero
    session.keepScale = 0;
    std::string other = style;
    other.replace(other.find("\r\n1\r\n"), 5, "\r\n0\r\n");
    other.replace(other.find("-5"), 2, "-6");
    ASSERT_EQ(readfiletext(lifehead(1, onePoint) + other), FileRead::read);
    EXPECT_EQ(session.styleKept[2], "7");
    EXPECT_EQ(session.xlowd, -5); // dropped
}

TEST_F(LifeFile, TheRangesThatASetLineGivesAreTakenAndNoMore) {
    const auto ranges = [](const std::string& line) {
        EXPECT_EQ(readfiletext(lifehead(1, line + "\r\n1\r\n5 0 1 0\r\n")), FileRead::read);
        return std::vector<double>(session.setRange(1).begin(), session.setRange(1).begin() + 4);
    };
    EXPECT_EQ(ranges("SET_Pump"), (std::vector<double>{0, 0, 0, 0}));
    EXPECT_EQ(session.gridTitles[0], "Pump");
    EXPECT_EQ(ranges("SET_Pump_1_2"), (std::vector<double>{1, 2, 0, 0}));
    EXPECT_EQ(ranges("SET_Pump_1_2___5_6"), (std::vector<double>{1, 2, 0, 0}));
    EXPECT_EQ(session.gridTitles[0], "Pump");
    EXPECT_EQ(ranges("SET_Pump_A"), (std::vector<double>{0, 0, 0, 0}));
    EXPECT_EQ(session.gridTitles[0], "Pump_A");
    EXPECT_EQ(ranges("SET_Pump_7_1_2_3_4_5_6_7_8_9_10_11_12"), (std::vector<double>{1, 2, 3, 4}));
    EXPECT_EQ(session.gridTitles[0], "Pump_7");
    EXPECT_EQ(ranges("SET"), (std::vector<double>{0, 0, 0, 0}));
    EXPECT_EQ(ranges("SET_3"), (std::vector<double>{0, 0, 0, 0}));
    EXPECT_TRUE(session.gridTitles.empty()); // the number of its row is no name
}

TEST_F(LifeFile, PointLinesAreCutAtBlanks) {
    const std::string points = "SET_A\r\n6\r\n  12   0  3 \r\n7\r\n5%  0 1 0 IX-\r\n1 0 1 0 IX-a  b IX-c \r\n"
                               "9 0 IX-early\r\nabc 0 1 0\r\n";
    ASSERT_EQ(readfiletext(lifehead(1, points)), FileRead::read);
    EXPECT_EQ(session.gridCells[0],
              (std::vector<std::string>{"12x0x3", "7", "5", "1_a  b IX-c ", "9_early", "0"}));
}

TEST_F(LifeFile, MoreSetsThanThereIsRoomForAreDroppedAndTold) {
    std::string blocks;
    for (int k = 0; k < 10; ++k) blocks += onePoint;
    desktop.expectmessage("Set Quantity Total ... 2");
    ASSERT_EQ(readfiletext(lifehead(10, blocks)
                           + "CI()\r\n10\r\n1\r\n2\r\n3\r\n4\r\n5\r\n6\r\n7\r\n8\r\n9\r\n10\r\n"
                           + "ANALYSISCOMMENT\r\n1\r\nseen\r\n"),
              FileRead::read);
    EXPECT_EQ(session.lastRow, 24);
    EXPECT_EQ(session.gridCells.size(), 8u);
    EXPECT_EQ(session.CI(8), 8);
    EXPECT_EQ(session.analysisComment, "seen");
}

TEST_F(LifeFile, MorePointsThanThereIsRoomForAreDropped) {
    std::string block = "SET_A\r\n1502\r\n";
    for (int j = 1; j <= 1502; ++j) block += std::to_string(j) + " 0 1 0\r\n";
    ASSERT_EQ(readfiletext(lifehead(2, block + onePoint)), FileRead::read);
    EXPECT_EQ(session.n(3), 1500);
    EXPECT_EQ(session.X(3, 1500), 1500);
    EXPECT_EQ(session.gridCells[1], std::vector<std::string>{"5"});
}

TEST_F(LifeFile, ADifferentCheckValueIsToldAndTheDataStand) {
    // 5 + 0 = 5; a fraction of 5 / 29, times 29, is 5.
    ASSERT_EQ(readfiletext(::lifehead(1, onePoint, "3:5")), FileRead::read);
    desktop.expectmessage("Data Sum Difference (6 / 5)");
    ASSERT_EQ(readfiletext(::lifehead(1, onePoint, "3:6")), FileRead::read);
    EXPECT_EQ(session.gridCells[0], std::vector<std::string>{"5"});
}

TEST_F(LifeFile, ConfidenceRowsAreMappedRowByRow) {
    const std::string text =
        "WINVANEX_DATA2-VXW[.]\r\n3\r\nDIMENSIONS\r\n8\r\n2\r\n3\r\n9\r\n24\r\n1500\r\n20\r\n8\r\n3\r\n"
        "SET_1\r\n2\r\n4 .1 0 0\r\n6 .2 0 0\r\nSET_2\r\n1\r\n9 .3 0 0\r\n"
        + onePoint;
    ASSERT_EQ(readfiletext(text), FileRead::read);
    EXPECT_EQ(session.ifylcnf, 9);
    EXPECT_EQ(session.n(1), 2);
    EXPECT_EQ(session.X(1, 2), 6);
    EXPECT_EQ(session.Y(2, 1), .3f);
    EXPECT_EQ(session.gridCells, (std::vector<std::vector<std::string>>{{"5"}}));

    FreshSession visual(visualSide);
    desktop.verify();
    ASSERT_EQ(readfiletext(text), FileRead::read);
    EXPECT_EQ(session.ifylcnf, 0);
    EXPECT_EQ(session.lastRow, 1);
    EXPECT_EQ(session.X(1, 1), 5);
}

TEST_F(LifeFile, BoundRowsAreWrittenOnlyWhileBoundsAreAskedFor) {
    gridread({{"5", "6"}});
    session.n(1) = 1, session.X(1, 1) = 4;
    session.ifylcnf = 9;
    EXPECT_EQ(linesof(written())[6], "0");
    session.confLow = 5;
    EXPECT_EQ(linesof(written())[6], "9");
    EXPECT_EQ(session.ifylcnf, 9);
}

TEST_F(LifeFile, ASessionWithoutRowsIsNeitherReadNorWritten) {
    session.sg = 0;
    desktop.expectmessage("sg<=0");
    EXPECT_FALSE(datafilewrite());
    desktop.expectmessage("sg<=0");
    EXPECT_EQ(readfiletext(lifehead(1, onePoint)), FileRead::bad);
    session.sg = 3;
}

TEST_F(LifeFile, TheFilesOfALaterVersionNeedASessionOfItsLevel) {
    session.sessionLevel = 2;
    EXPECT_EQ(readfiletext(::lifehead(1, onePoint, "2")), FileRead::read);
    EXPECT_EQ(readfiletext(::lifehead(1, onePoint, "2.5")), FileRead::oldForm);
    EXPECT_FLOAT_EQ(session.fileLevel, 2.5f);
    EXPECT_EQ(readfiletext("WINVANEX_DATA2-VXW[.]\r\n"), FileRead::nodata);
}

TEST_F(LifeFile, AnXYFileComesInAsItsDataAlone) {
    session.dist = lognormal;
    session.fitMethod = session.fitMethodSaved = maximumLikelihood;
    session.mleVariant = 2;
    const std::string file = visualhead(1, "SET_A\r\n2\r\n10 .25 1 0\r\n20 .5 1 0\r\n");
    desktop.expectmenu("File Import Data As Probit Format?", 2);
    ASSERT_EQ(readfiletext(file + optionlist(173, {{1, "2"}, {2, "Normal"}})), FileRead::read);
    EXPECT_EQ(session.gridCells[0], (std::vector<std::string>{"10x.25", "20x.5"}));
    EXPECT_EQ(session.dist, weibull);
    EXPECT_EQ(session.fitMethodSaved, rankRegression);
    EXPECT_EQ(session.mleVariant, 0);
    EXPECT_EQ(session.inputType, standard0);
    EXPECT_EQ(session.axisTitleY, "% CDF Occurrence");

    desktop.expectmenu("File Import Data As Probit Format?", 1);
    ASSERT_EQ(readfiletext(file + optionlist(173, {{1, "2"}, {7, "1"}})), FileRead::read);
    EXPECT_EQ(session.inputType, prbt3);
    EXPECT_EQ(session.gridCells[0], (std::vector<std::string>{"10x.25x25x2", "20x.5x50x2"}));
    EXPECT_EQ(session.v1(1, 2), 50);
    EXPECT_EQ(session.v2(1, 2), 2);
}

TEST_F(LifeFile, AnEmptyXYFileAsksNothing) {
    EXPECT_EQ(readfiletext(visualhead(0, "") + optionlist(173, {{1, "2"}})), FileRead::read);
}

TEST(VisualFile, ALifeFileComesInAsItsDataAlone) {
    ScriptedPlatform desktop;
    FreshSession visual(visualSide);
    session.confLow = 7;
    ASSERT_EQ(readfiletext(lifehead(2, onePoint + "SET_B\r\n1\r\n-8 0 2 0\r\n", "3")
                           + optionlist(173, {{1, "1"}, {5, ".05"}, {16, "0"}, {70, "0"}})),
              FileRead::read);
    EXPECT_EQ(session.lastRow, 2);
    EXPECT_EQ(session.gridCells[1], std::vector<std::string>{"-8x0x2"});
    EXPECT_EQ(session.negativeXAllowed, 1);
    EXPECT_EQ(session.confLow, 0);
    EXPECT_EQ(session.plotMode, 2);
    EXPECT_EQ(session.axisTitleY, "% CDF Occurrence");
}

TEST(VisualFile, APortionOfTheLifeSideIsTakenBack) {
    ScriptedPlatform desktop;
    FreshSession visual(visualSide);
    desktop.expectmessage("[BATCH] 0");
    ASSERT_EQ(readfiletext(visualhead(1, onePoint, "3") + optionlist(173, {{70, ".5"}})), FileRead::read);
    EXPECT_EQ(session.popPortion, 0);
}

TEST(VisualFile, TheKindOfPlotAndTheViewOfSpaceSurvive) {
    ScriptedPlatform desktop;
    for (const PlotKind kind : {xyPlot, barsStacked, barsSideBySide, bars3D, pie2D, pie3D, spacePlot}) {
        SCOPED_TRACE(kind);
        std::string text;
        {
            FreshSession saved(visualSide);
            gridread({{"1x2x1x3"}});
            session.plotKind = kind;
            session.zLimitLow = -2.5;
            session.zLimitHigh = 1e7 / 3;
            session.rangeLimit = 40;
            session.viewTurn = 0;
            session.viewTilt = 62.5f;
            text = written();
        }
        FreshSession visual(visualSide);
        ASSERT_EQ(readfiletext(text), FileRead::read);
        EXPECT_EQ(session.plotKind, kind);
        EXPECT_EQ(session.zLimitLow, -2.5);
        EXPECT_EQ(session.zLimitHigh, 1e7 / 3);
        EXPECT_EQ(session.rangeLimit, 40);
        EXPECT_EQ(session.viewTurn, kind == spacePlot ? 0 : 35);
        EXPECT_EQ(session.viewTilt, kind == spacePlot ? 62.5f : 25);
    }
}

TEST(VisualFile, ANumberThatIsNoKindOfPlotIsTheXYPlot) {
    ScriptedPlatform desktop;
    FreshSession visual(visualSide);
    for (const char* number : {"0", "1", "-65", "65.5", "91", "1E+30", "pie", ""}) {
        SCOPED_TRACE(number);
        session.plotKind = pie2D;
        ASSERT_EQ(readfiletext(visualhead(1, onePoint, "3")
                               + optionlist(173, {{98, "2"}, {130, number}, {133, "-1"}, {134, "0"}})),
                  FileRead::read);
        EXPECT_EQ(session.plotKind, xyPlot);
        EXPECT_EQ(session.rangeLimit, 0);
        EXPECT_EQ(session.viewTurn, 35) << "the view of the session stays";
    }
    ASSERT_EQ(readfiletext(visualhead(1, onePoint, "3") + optionlist(173, {{130, "90"}, {134, "91"}})),
              FileRead::read);
    EXPECT_EQ(session.plotKind, spacePlot);
    EXPECT_EQ(session.viewTurn, 35) << "no angle";
}

TEST_F(LifeFile, KnowsNoKindOfPlotAndKeepsWhatStandsThere) {
    options({{130, "65"}, {131, "3"}, {134, "text"}});
    EXPECT_EQ(session.plotKind, xyPlot);
    EXPECT_EQ(session.zLimitLow, 0);
    const auto lines = linesof(written());
    const auto line = [&](int position) {
        return lines[lineoftag(lines, "PROGRAM_SPECIFIC") + 1 + static_cast<std::size_t>(position)];
    };
    EXPECT_EQ(line(130), "65");
    EXPECT_EQ(line(131), "3");
    EXPECT_EQ(line(134), "text");
    EXPECT_EQ(line(135), "0");
}

TEST(VisualFile, ALifeFileIsShownAsAnXYPlot) {
    ScriptedPlatform desktop;
    FreshSession visual(visualSide);
    session.plotKind = bars3D;
    ASSERT_EQ(readfiletext(lifehead(1, onePoint, "3") + optionlist(173, {{1, "1"}, {130, "65"}})),
              FileRead::read);
    EXPECT_EQ(session.plotKind, xyPlot);
}

TEST_F(LifeFile, TitlesWithPathsOfAnotherSystemAreTurned) {
    ASSERT_EQ(readfiletext(lifehead(2, "SET_disk/data:a/b\r\n1\r\n5 0 1 0\r\nSET_a:b/c\r\n0\r\n")),
              FileRead::read);
    EXPECT_EQ(session.gridTitles, (std::vector<std::string>{"disk\\data:a\\b", "a:b/c"}));
}

TEST_F(LifeFile, ReadingReplacesTheResultsOfTheDataBefore) {
    gridread({{"7"}});
    session.setFitted(1) = 1;
    session.DUANEGROWTHS(1) = "old";
    session.analysisComment = "old";
    ASSERT_EQ(readfiletext(lifehead(1, onePoint)), FileRead::read);
    EXPECT_EQ(session.setFitted(1), 0);
    EXPECT_EQ(session.DUANEGROWTHS(1), "");
    EXPECT_EQ(session.analysisComment, "");
}

TEST_F(LifeFile, TheOlderFormsOfTheProcessTablesFillTheSamePlaces) {
    ASSERT_EQ(
        readfiletext(lifehead(1, onePoint)
                     + "BARRX()\r\n1\r\n2\r\n10\r\n20\r\nBARRY()\r\n1\r\n2\r\n.1\r\n.2\r\nETABARR()\r\n1\r\n"
                       "15\r\nBETABARR()\r\n1\r\n3\r\n"),
        FileRead::read);
    EXPECT_EQ(session.BARRN(1), 2);
    EXPECT_EQ(session.BARRXA(2, 1), 20);
    EXPECT_EQ(session.BARRYA(1, 1), .1f);
    EXPECT_EQ(session.ETABARR1(1), 15);
    EXPECT_EQ(session.BETABARR1(1), 3);
}

TEST_F(LifeFile, TheTableOfTermsHasWholeGroups) {
    ASSERT_EQ(readfiletext(lifehead(1, onePoint) + optionlist(173, {{50, "2"}})
                           + "W2(0)\r\n7\r\n1\r\n2\r\n3\r\n4\r\n5\r\n6\r\nBARREFF()\r\n1\r\nbest\r\n"),
              FileRead::read);
    EXPECT_EQ(session.W2n(0), 7); // two groups of three
    EXPECT_EQ(session.W2X(0, 6), 6);
    EXPECT_EQ(session.BARREFF(1), "best");
    const auto lines = linesof(written());
    const std::size_t at = lineoftag(lines, "W2(0)");
    EXPECT_EQ(lines[at + 1], "7");
    EXPECT_EQ(lines[at + 7], "6");
    EXPECT_EQ(lines[at + 8], "RISKUSAGERATE1()");
}

} // namespace
