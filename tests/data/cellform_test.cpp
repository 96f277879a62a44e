#include <gtest/gtest.h>

#include "data/cell.h"
#include "session/session.h"
#include "support/scriptedplatform.h"

namespace {

class CellFormCheck : public testing::Test {
protected:
    CellFormCheck() {
        session.progSide = lifeSide;
        session.inputType = standard0;
        session.intervalPlot = 0;
        session.replotNeeded = 0;
        session.noPrompt = 0;
        session.scriptRequest.clear();
        session.fitMethod = session.fitMethodSaved = rankRegression;
        session.mleVariant = 3;
    }
    ~CellFormCheck() override {
        session.progSide = visualSide;
        session.inputType = standard0;
        session.intervalPlot = session.noPrompt = session.replotNeeded = 0;
        session.scriptRequest.clear();
        session.fitMethod = session.fitMethodSaved = rankRegression;
        session.mleVariant = 0;
    }

    bool checked(const std::string& cell) {
        session.msg = cell;
        const bool rebuild = cellformcheck();
        EXPECT_EQ(session.msg, cell);
        return rebuild;
    }

    ScriptedPlatform desktop;
};

constexpr const char* change = "Change To mle Interval Data?";
constexpr const char* choose = "Input Method";

} // namespace

TEST_F(CellFormCheck, AsksNothingOfAPlainCell) {
    for (const char* cell : {"", "6", "-6", "6_label x*<>3.3E+33", "6\tx2", "6\rx2", "garbage", ">100"})
        EXPECT_FALSE(checked(cell)) << cell;
}

TEST_F(CellFormCheck, IsSkippedWhilePromptsAreOff) {
    session.noPrompt = 1;
    EXPECT_FALSE(checked("<100"));
    EXPECT_FALSE(checked("6x2x3"));
    session.progSide = visualSide;
    EXPECT_FALSE(checked("6x2x1x3.3E+33"));
}

TEST_F(CellFormCheck, IsSkippedInAScriptRun) {
    session.scriptRequest = "run";
    EXPECT_FALSE(checked("<100"));
    EXPECT_FALSE(checked("6x2x3"));
    EXPECT_EQ(session.inputType, standard0);
}

TEST_F(CellFormCheck, OffersIntervalDataForALeftMark) {
    desktop.expectmenu(change, 1);
    EXPECT_TRUE(checked("<100"));
    EXPECT_EQ(session.inputType, intv5);
    EXPECT_EQ(session.fitMethod, maximumLikelihood);
    EXPECT_EQ(session.mleVariant, 0);
}

TEST_F(CellFormCheck, OffersIntervalDataForEveryTextThatNeedsIt) {
    for (const char* cell :
         {">10<20", "<20>10", "6x0x1x-3.3E+33", "6*0*1*-3.3E+33_a", "6X0X1X2.9E+29", "6x0x1x-3E+29"}) {
        session.inputType = insp1;
        desktop.expectmenu(change, 1);
        EXPECT_TRUE(checked(cell)) << cell;
        EXPECT_EQ(session.inputType, intv5) << cell;
    }
}

TEST_F(CellFormCheck, LeavesTheSessionOnANo) {
    desktop.expectmenu(change, 2);
    EXPECT_FALSE(checked("<100"));
    EXPECT_EQ(session.inputType, standard0);
    EXPECT_EQ(session.fitMethod, rankRegression);
    EXPECT_EQ(session.mleVariant, 3);
}

TEST_F(CellFormCheck, TakesTheSuspensionSentinelInTheStandardForm) {
    desktop.expectmenu(choose, 5); // the fields are asked about, the sentinel is not
    EXPECT_FALSE(checked("13809x0x1x3.3E+33_026"));
    EXPECT_EQ(session.inputType, standard0);
}

TEST_F(CellFormCheck, AsksNothingInTheGroupedForms) {
    for (const int16_t form : {prbt2, prbt3, km4}) {
        session.inputType = form;
        EXPECT_FALSE(checked("6.12x0x5x167"));
        EXPECT_FALSE(checked("<100"));
        EXPECT_EQ(session.inputType, form);
    }
}

TEST_F(CellFormCheck, AsksNothingInTheIntervalForm) {
    session.inputType = intv5;
    EXPECT_FALSE(checked(">10<20"));
    EXPECT_FALSE(checked("10x0x1x20"));
}

TEST_F(CellFormCheck, LetsTheUserChooseTheFormOfACellWithFields) {
    const int16_t forms[] = {prbt2, prbt3, km4, intv5};
    for (int choice = 1; choice <= 4; ++choice) {
        session.inputType = standard0;
        desktop.expectmenu(choose, choice);
        EXPECT_TRUE(checked("6*2"));
        EXPECT_EQ(session.inputType, forms[choice - 1]);
    }
    EXPECT_EQ(desktop.shown.at(0).items,
              (std::vector<std::string>{"2...Probit-2 (Cumulative Affected Quantity x Sample Size)",
                                        "3...Probit-3 (Cumulative % x Sample Size)",
                                        "4...Kaplan-Meier Grouped", "5...Interval", "X...Exit"}));
}

TEST_F(CellFormCheck, KeepsTheFormOnExitAndOnCancel) {
    for (const int choice : {5, 0}) {
        desktop.expectmenu(choose, choice);
        EXPECT_FALSE(checked("6x0x3x0"));
        EXPECT_EQ(session.inputType, standard0);
    }
}

TEST_F(CellFormCheck, OffersTheIntervalsOfAnXYPlotForEverySentinelAndMark) {
    session.progSide = visualSide;
    for (const char* cell : {"6x2x1x3.3E+33", "6x2x1x2.9E+29", "6x2x1x-3.3E+33", ">6x2", "<6"}) {
        session.intervalPlot = session.replotNeeded = 0;
        desktop.expectmenu("Input Method Present Standard ... Change To Interval?", 1);
        EXPECT_TRUE(checked(cell)) << cell;
        EXPECT_EQ(session.intervalPlot, 1);
        EXPECT_EQ(session.replotNeeded, 1);
    }
}

TEST_F(CellFormCheck, LeavesTheXYPlotOnANo) {
    session.progSide = visualSide;
    desktop.expectmenu("Input Method", 2);
    EXPECT_FALSE(checked("6x2x1x3.3E+33"));
    EXPECT_EQ(session.intervalPlot, 0);
    EXPECT_EQ(session.replotNeeded, 0);
}

TEST_F(CellFormCheck, AsksNothingOfAnXYPlotThatHasIntervals) {
    session.progSide = visualSide;
    session.intervalPlot = 1;
    EXPECT_FALSE(checked("6x2x1x3.3E+33"));
}

TEST_F(CellFormCheck, AsksNothingOfOrdinaryXYCells) {
    session.progSide = visualSide;
    for (const char* cell : {"10x3", "196x20", "1x2x3x4_3.3E+33"}) EXPECT_FALSE(checked(cell)) << cell;
}

TEST_F(CellFormCheck, GetsNoAnswerWithoutAPlatform) {
    const Keep keep{platform};
    platform = nullptr;
    EXPECT_FALSE(checked("<100"));
    EXPECT_FALSE(checked("6x2"));
    EXPECT_EQ(session.inputType, standard0);
}
