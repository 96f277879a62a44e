#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>

#include "data/report.h"
#include "options/page.h"
#include "options/pages.h"
#include "plot/markerline.h"
#include "session/former.h"
#include "shell/prompts.h"
#include "shell/prompttext.h"
#include "support/lifefixture.h"
#include "support/scriptedplatform.h"
#include "support/workfolder.h"

namespace {

class AnalysisPages : public LifeTest {
protected:
    AnalysisPages() {
        session.configPath = folder.path("") + "/";
        session.tempPath = session.configPath;
    }
    void keys(ScriptedPlatform& shown, std::string_view letters) {
        for (const char letter : letters) shown.expectkey("", letter);
    }
    /// Presses the items of a page one after the other.
    bool press(OptionPage page, std::string_view letters) {
        ScriptedPlatform shown;
        keys(shown, letters);
        return optionpage(page);
    }
    /// Asks for a calculation with values, and gives back what is told.
    std::string told(OptionPage page, char letter, const std::vector<std::string>& values) {
        ScriptedPlatform shown;
        shown.expectkey("", letter);
        for (const std::string& value : values) shown.expectnumber("", value);
        shown.expectmessage("");
        shown.expectkey("", 'X');
        optionpage(page);
        return shown.shown[values.size() + 1].text;
    }
    static double resultof(const std::string& text, const std::string& name) {
        const auto at = text.find(name + " = ");
        EXPECT_NE(at, std::string::npos) << text;
        return at == std::string::npos ? -1 : std::stod("0" + text.substr(at + name.size() + 3));
    }

    WorkFolder folder;
};

} // namespace

TEST_F(AnalysisPages, AMethodTakesAllItsSettings) {
    EXPECT_TRUE(press(OptionPage::fitMethod, "SX"));
    EXPECT_EQ(session.fitMethod, rankRegression);
    EXPECT_EQ(session.rrSwap, 1);
    EXPECT_TRUE(press(OptionPage::fitMethod, "NSAX"));
    EXPECT_EQ(session.fitMethod, maximumLikelihood);
    EXPECT_EQ(session.fitMethodSaved, maximumLikelihood);
    EXPECT_EQ(session.mleVariant, 2) << "the median correction";
    EXPECT_TRUE(press(OptionPage::fitMethod, "RX"));
    EXPECT_EQ(session.fitMethod, rankRegression);
    EXPECT_EQ(session.rrSwap, 0);
    EXPECT_EQ(session.mleVariant, 0);
}

TEST_F(AnalysisPages, AFamilyBringsItsSlopeAndAnotherOneDropsIt) {
    EXPECT_TRUE(press(OptionPage::distribution, "RX"));
    EXPECT_EQ(session.dist, weibull);
    EXPECT_EQ(session.fixedSlope, 2);
    EXPECT_TRUE(press(OptionPage::distribution, "EX"));
    EXPECT_EQ(session.fixedSlope, 1);
    EXPECT_TRUE(press(OptionPage::distribution, "HX"));
    EXPECT_EQ(session.dist, gumbel);
    EXPECT_EQ(session.gumbeltype, 1);
    EXPECT_EQ(session.fixedSlope, 0);
    EXPECT_TRUE(press(OptionPage::distribution, "LX"));
    EXPECT_EQ(session.dist, lognormal);
    EXPECT_EQ(session.gumbeltype, -1) << "no family but Gumbel has an extreme of its own";
    EXPECT_TRUE(press(OptionPage::distribution, "WX"));
    session.fixedSlope = 2.5f;
    EXPECT_FALSE(press(OptionPage::distribution, "WX"));
    EXPECT_EQ(session.fixedSlope, 2.5f) << "a Weibayes line is a Weibull line";
}

TEST_F(AnalysisPages, AKnownThresholdHoldsForTheRunAndIsTakenAway) {
    life({"150", "230", "310", "420"});
    const Fit free = fit();
    {
        ScriptedPlatform shown;
        shown.expectkey("", 'T');
        shown.expectnumber("t0", "100");
        shown.expectkey("", 'A');
        EXPECT_TRUE(optionpage(OptionPage::threshold));
    }
    calcplot();
    EXPECT_EQ(session.t0(1), 100);
    EXPECT_NE(fit(), free);
    EXPECT_TRUE(press(OptionPage::threshold, "NA"));
    calcplot();
    EXPECT_EQ(fit(), free);
}

TEST_F(AnalysisPages, AddedFailuresAndSuspensionsExcludeEachOther) {
    session.fixedSlope = 2;
    ScriptedPlatform shown;
    shown.expectkey("", 'S');
    shown.expectnumber("Additional Suspension", "3");
    shown.expectkey("", 'F');
    shown.expectnumber("Additional Occurrence", "2");
    shown.expectkey("", 'A');
    EXPECT_TRUE(optionpage(OptionPage::weibayes));
    EXPECT_EQ(session.wbFail, 2);
    EXPECT_EQ(session.wbSusp, 0);
    EXPECT_EQ(session.wbConf, 50);
}

TEST_F(AnalysisPages, ItemsThatDoNotApplyAreLeftOut) {
    ScriptedPlatform shown;
    shown.expectmenu("", 0);
    optionpage(OptionPage::weibayes);
    for (const std::string& item : shown.shown.back().items) EXPECT_NE(item.front(), 'F') << item;
    session.fixedSlope = 2;
    shown.expectkey("", 'F');
    shown.expectnumber("", std::nullopt);
    shown.expectmenu("", 0);
    optionpage(OptionPage::weibayes);
}

TEST_F(AnalysisPages, ALevelIsSplitBetweenTheSides) {
    struct Case {
        char letter;
        const char* level;
        float low, high;
        const char* text;
    };
    for (const Case& one : {Case{'D', "90", 5, 95, "Double 90 %"}, Case{'L', "95", 5, 0, "Lower 95 %"},
                            Case{'U', "95", 0, 95, "Upper 95 %"}, Case{'A', "95", 5, 95, "Double 90 %"}}) {
        ScriptedPlatform shown;
        keys(shown, "C");
        shown.expectkey("", one.letter);
        shown.expectnumber("Confidence %", one.level);
        keys(shown, "A");
        optionpage(OptionPage::confidence);
        EXPECT_FLOAT_EQ(session.confLow, one.low) << one.letter;
        EXPECT_FLOAT_EQ(session.confHigh, one.high) << one.letter;
        std::string item = shown.shown.back().items[1];
        EXPECT_EQ(item, std::string("C...Type / Value [%] = ") + one.text);
    }
}

TEST_F(AnalysisPages, ALevelIsAskedWithWhatIsInForce) {
    const auto preset = [&](OptionPage page, char letter, std::optional<std::string> typed) {
        ScriptedPlatform shown;
        shown.expectkey("", letter);
        shown.expectnumber("Confidence %", std::move(typed));
        if (page == OptionPage::confidence) keys(shown, "A");
        optionpage(page);
        return shown.shown[1].value;
    };
    session.confMethod = fisherBounds;
    session.confLow = 40;
    session.confHigh = 60;
    EXPECT_EQ(preset(OptionPage::limitKind, 'D', std::nullopt), "20");
    session.confLow = 5;
    session.confHigh = 95;
    EXPECT_EQ(preset(OptionPage::limitKind, 'A', std::nullopt), "95");
    EXPECT_EQ(preset(OptionPage::confidence, 'E', "97.5"), "95");
    EXPECT_FLOAT_EQ(session.confLow, 2.5f);
    EXPECT_FLOAT_EQ(session.confHigh, 97.5f);
}

TEST_F(AnalysisPages, ASinglePointGivesTheBoundsBackThatItTook) {
    struct Case {
        int16_t method, automatic;
        float low, high;
    };
    for (const Case& one : {Case{noBounds, 0, 0, 0}, Case{noBounds, 1, 10, 90}, Case{fisherBounds, 0, 5, 0},
                            Case{likelihoodBounds, 1, 5, 95}}) {
        session.confMethod = one.method;
        session.confAuto = one.automatic;
        session.confLow = one.low;
        session.confHigh = one.high;
        EXPECT_TRUE(press(OptionPage::bounds, "SA"));
        EXPECT_LT(session.confMethod, 0);
        press(OptionPage::bounds, "SA");
        EXPECT_EQ(session.confMethod, one.method);
        EXPECT_EQ(session.confAuto, one.automatic);
        EXPECT_EQ(session.confLow, one.low);
        EXPECT_EQ(session.confHigh, one.high);
    }
}

TEST_F(AnalysisPages, ABoundMethodIsListedAndMakesBounds) {
    life({"150", "230", "310", "420", "510"});
    ScriptedPlatform shown;
    keys(shown, "MBA"); // the second of the list: Fisher matrix
    EXPECT_TRUE(optionpage(OptionPage::confidence));
    EXPECT_EQ(session.confMethod, fisherBounds);
    EXPECT_FLOAT_EQ(session.confLow, 5);
    EXPECT_FLOAT_EQ(session.confHigh, 95);
    calcplot();
    EXPECT_EQ(session.ifylcnf, 9);
    keys(shown, "NA");
    EXPECT_TRUE(optionpage(OptionPage::confidence));
    calcplot();
    EXPECT_EQ(session.ifylcnf, 0);
}

TEST_F(AnalysisPages, AnExitOfTheConfidencePageTakesTheMethodBack) {
    EXPECT_FALSE(press(OptionPage::confidence, "MBX"));
    EXPECT_EQ(session.confMethod, noBounds);
    EXPECT_EQ(session.confLow, 0);
}

TEST_F(AnalysisPages, ASampleTakesThePlaceOfTheDataWhichJoinTheFormerResults) {
    life({"150", "230", "310"});
    EXPECT_TRUE(press(OptionPage::sample, "A"));
    EXPECT_EQ(formercount(), 1u);
    EXPECT_NE(session.gridCells.front().size(), 3u);
    EXPECT_FALSE(press(OptionPage::sample, "X"));
}

TEST_F(AnalysisPages, ZoomLimitsAreAskedInPercentAndMayNotCross) {
    ScriptedPlatform shown;
    shown.expectkey("", '4');
    shown.expectnumber("Y-Upper", "90");
    shown.expectkey("", '3');
    shown.expectnumber("Y-Lower", "95");
    shown.expectmessage("Lower >= Upper");
    shown.expectkey("", '3');
    shown.expectnumber("Y-Lower", "10");
    shown.expectkey("", 'X');
    EXPECT_TRUE(optionpage(OptionPage::zoomLimit));
    EXPECT_DOUBLE_EQ(session.yLimitLow, 0.1);
    EXPECT_DOUBLE_EQ(session.yLimitHigh, 0.9);
    keys(shown, "A0");
    EXPECT_TRUE(optionpage(OptionPage::zoom));
    EXPECT_EQ(session.yLimitHigh, 0);
}

TEST_F(AnalysisPages, AYLimitIsAskedInTheUnitOfItsAxis) {
    struct Case {
        int16_t kind, function;
        const char* unit;
        const char* typed;
        double held;
    };
    for (const Case& one : {Case{occurrencePercent, 0, "Y-Lower [%]", "5", 0.05},
                            Case{reliabilityPercent, 0, "Y-Lower [%]", "95", 0.05},
                            Case{occurrenceProbability, 0, "Y-Lower [0 - 1]", "0.05", 0.05},
                            Case{reliabilityProbability, 0, "Y-Lower [0 - 1]", "0.95", 0.05},
                            Case{occurrencePerThousand, 0, "Y-Lower [/ 1000]", "50", 0.05},
                            Case{reliabilityPerThousand, 0, "Y-Lower [/ 1000]", "950", 0.05},
                            Case{occurrencePercent, 'H', "Y-Lower (0 =", "250", 250}}) {
        session.yScaleKind = one.kind;
        session.functionPlot = one.function;
        session.yLimitLow = 0;
        session.yLimitHigh = one.function != 0 ? 1000 : 0.9;
        ScriptedPlatform shown;
        shown.expectkey("", '3');
        shown.expectnumber(one.unit, one.typed);
        shown.expectkey("", '3');
        shown.expectnumber(one.unit, one.typed);
        shown.expectkey("", 'X');
        EXPECT_TRUE(optionpage(OptionPage::zoomLimit));
        EXPECT_NEAR(session.yLimitLow, one.held, 1e-12) << one.unit;
        EXPECT_EQ(std::stod(shown.shown[3].value), std::stod(one.typed));
    }
    session.functionPlot = 0;
    session.yScaleKind = reliabilityPercent;
    session.yLimitLow = 0.05;
    ScriptedPlatform shown;
    shown.expectkey("", '4');
    shown.expectnumber("Y-Upper [%]", "97");
    shown.expectmessage("Lower >= Upper");
    shown.expectkey("", 'X');
    optionpage(OptionPage::zoomLimit);
}

TEST_F(AnalysisPages, ASetIsHiddenAndShownAgain) {
    sets({{"150", "230", "310"}, {"20", "30", "45"}});
    EXPECT_TRUE(press(OptionPage::zoom, "SBX0"));
    EXPECT_EQ(session.lineHide(2), 1);
    EXPECT_TRUE(press(OptionPage::zoom, "SBX0"));
    EXPECT_EQ(session.lineHide(2), 0);
}

// R: pbinom, pchisq, pgamma, pnorm, ppois, pt to the digits given.
TEST_F(AnalysisPages, TheCalculatorAgreesWithPublishedTables) {
    const OptionPage page = OptionPage::calculator;
    EXPECT_NEAR(resultof(told(page, 'B', {"10", "3", "50"}), "P (X <= x)"), 0.171875, 1e-9);
    EXPECT_NEAR(resultof(told(page, 'B', {"10", "3", "50"}), "P (X = x)"), 120.0 / 1024, 1e-9);
    EXPECT_NEAR(resultof(told(page, 'C', {"3.841458821", "1"}), "P (X > x)"), 0.05, 1e-8);
    EXPECT_NEAR(resultof(told(page, 'I', {"95", "10"}), "X"), 18.30703805, 1e-7);
    EXPECT_NEAR(resultof(told(page, 'E', {"100", "100"}), "P (X > x)"), std::exp(-1), 1e-9);
    EXPECT_NEAR(resultof(told(page, 'G', {"3", "1", "3"}), "P (X > x)"), std::exp(-1), 1e-9);
    EXPECT_NEAR(resultof(told(page, 'H', {"1.96", "0", "1"}), "P (X > x)"), 0.0249978951, 1e-9);
    EXPECT_NEAR(resultof(told(page, 'P', {"2", "3"}), "P (X <= x)"), 8.5 * std::exp(-3), 1e-9);
    EXPECT_NEAR(resultof(told(page, 'P', {"2", "3"}), "P (X = x)"), 4.5 * std::exp(-3), 1e-9);
    EXPECT_NEAR(resultof(told(page, 'T', {"2.228138852", "10"}), "P (X > x)"), 0.025, 1e-9);
    EXPECT_NEAR(resultof(told(page, 'V', {"50", "5"}), "Cv (%)"), 10, 1e-9);
    // An exponential line, slope 1, has the mean Eta and a variation of 100 percent; a Rayleigh line, slope
    // 2, Eta sqrt(pi) / 2.
    EXPECT_NEAR(resultof(told(page, 'N', {"100", "1"}), "Cv (%)"), 100, 1e-7);
    EXPECT_NEAR(resultof(told(page, 'N', {"100", "2"}), "Mean"), 50 * std::sqrt(3.14159265358979), 1e-6);
    EXPECT_NEAR(resultof(told(page, 'M', {"88.6226925", "2"}), "Eta"), 100, 1e-6);
}

// The terms by their definition, in the wider arithmetic of logarithms summed factor by factor.
TEST_F(AnalysisPages, AProbabilityOfOneCountKeepsItsDigitsFarOut) {
    const auto logfactorial = [](int n) {
        long double sum = 0;
        for (int i = 2; i <= n; ++i) sum += std::log(static_cast<long double>(i));
        return sum;
    };
    const auto close = [](double result, long double logarithm) {
        const auto expected = static_cast<double>(std::exp(logarithm));
        EXPECT_NEAR(result, expected, 1e-8 * expected);
    };
    const OptionPage page = OptionPage::calculator;
    close(resultof(told(page, 'B', {"100", "40", "10"}), "P (X = x)"),
          logfactorial(100) - logfactorial(40) - logfactorial(60) + 40 * std::log(0.1L)
              + 60 * std::log(0.9L));
    close(resultof(told(page, 'P', {"100000", "100500"}), "P (X = x)"),
          100000 * std::log(100500.0L) - 100500 - logfactorial(100000));
    EXPECT_EQ(resultof(told(page, 'B', {"10", "11", "50"}), "P (X = x)"), 0);
}

// Var(ln T) of a Weibull line is (pi / (slope sqrt 6))^2, which the variation of a steep one tends to; the
// next term of the series is -zeta(3) / zeta(2) / slope, 0.7307629695.
TEST_F(AnalysisPages, TheVariationOfASteepLineKeepsItsDigits) {
    const double limit = 100 * 3.14159265358979 / std::sqrt(6.0);
    const double expected = limit / 1e6 * (1 - 0.7307629695e-6);
    EXPECT_NEAR(resultof(told(OptionPage::calculator, 'N', {"1", "1000000"}), "Cv (%)"), expected,
                1e-8 * expected);
    // Either side of the change to the series: ln Gamma differences in the wider arithmetic.
    for (const char* const slope : {"49", "50"}) {
        const long double z = 1 / static_cast<long double>(std::stoi(slope));
        const auto cv =
            static_cast<double>(100 * std::sqrt(std::expm1(std::lgamma(1 + 2 * z) - 2 * std::lgamma(1 + z))));
        EXPECT_NEAR(resultof(told(OptionPage::calculator, 'N', {"1", slope}), "Cv (%)"), cv, 1e-8 * cv);
    }
}

// Abernethy, The New Weibull Handbook, ch. 6: with slope 1 and one item, ln 2 of the scale for a median
// demonstration; the scale that R = 1/e demands at a life is that life.
TEST_F(AnalysisPages, ATestWithoutFailuresIsPlannedInEachDirection) {
    session.planSlope = 2;
    session.planLife = 500;
    session.planReliability = std::exp(-1);
    session.planConfidence = 100 * (1 - std::exp(-1));
    session.planItems = 4;
    const auto found = [&](char letter) {
        ScriptedPlatform shown;
        shown.expectkey("", letter);
        shown.expectmessage("");
        shown.expectkey("", 'X');
        optionpage(OptionPage::findInTestPlan);
        return shown.shown[1].text;
    };
    EXPECT_NEAR(resultof(found('L'), "Test Time"), 250, 1e-3) << "500 / sqrt(4)";
    EXPECT_NEAR(session.planTime, 250, 1e-9);
    EXPECT_EQ(resultof(found('N'), "Test Item Quantity"), 4);
    EXPECT_NEAR(resultof(found('R'), "Demonstrated Reliability %"), 100 * std::exp(-1), 1e-3);
    session.planLife = 0;
    EXPECT_EQ(found('L'), "Life <= 0");
}

TEST_F(AnalysisPages, AProcessIndexIsThatOfTheNormalLine) {
    choose(normal);
    choosemethod(maximumLikelihood);
    life({"8", "9", "10", "11", "12"});
    const Fit line = fit();
    session.processLower = line.eta - 3 * line.beta;
    session.processUpper = line.eta + 4 * line.beta;
    ScriptedPlatform shown;
    shown.expectkey("", 'A');
    shown.expectmessage("");
    optionpage(OptionPage::processLimits);
    // Phi(-3) + Phi(-4) = 1.349898e-3 + 3.167124e-5; the nearer limit is three deviations off.
    EXPECT_NEAR(resultof(shown.shown[1].text, "PPM"), 1349.898 + 31.67124, 0.01);
    EXPECT_NEAR(resultof(shown.shown[1].text, "Ppk"), 1, 1e-5);
}

TEST_F(AnalysisPages, ProcessLimitsStandOnTheirOwnOrAsAPair) {
    ScriptedPlatform shown;
    shown.expectkey("", 'D');
    shown.expectnumber("Lower Limit", "10");
    shown.expectnumber("Upper Limit", "20");
    shown.expectkey("", 'D');
    shown.expectnumber("Lower Limit", "30");
    shown.expectnumber("Upper Limit", std::nullopt);
    shown.expectkey("", 'A');
    shown.expectmessage("No Data");
    optionpage(OptionPage::processLimits);
    EXPECT_EQ(session.processLower, 10);
    EXPECT_EQ(session.processUpper, 20) << "a pair given up leaves the former one";
    shown.expectkey("", 'U');
    shown.expectnumber("Upper Limit", "25");
    shown.expectkey("", 'A');
    shown.expectmessage("No Data");
    EXPECT_TRUE(optionpage(OptionPage::processLimits));
    EXPECT_EQ(session.processLower, noAnswer);
    EXPECT_EQ(session.processUpper, 25);
    shown.expectkey("", 'L');
    shown.expectnumber("Lower Limit", "1");
    shown.expectkey("", 'X');
    EXPECT_FALSE(optionpage(OptionPage::processLimits));
    EXPECT_EQ(session.processLower, noAnswer) << "the exit is a cancel";
    EXPECT_EQ(session.processUpper, 25);
}

// Six deviations to either side and a mean shifted by 1.5: Phi(-4.5) + Phi(-7.5) = 3.3976731e-6 + 3.2e-14.
TEST_F(AnalysisPages, AShiftOfTheMeanBringsOneLimitNearerAndTheOtherFarther) {
    choose(normal);
    choosemethod(maximumLikelihood);
    life({"8", "9", "10", "11", "12"});
    const Fit line = fit();
    session.processLower = line.eta - 6 * line.beta;
    session.processUpper = line.eta + 6 * line.beta;
    session.processShift = 1.5;
    ScriptedPlatform shown;
    shown.expectkey("", 'A');
    shown.expectmessage("");
    optionpage(OptionPage::processLimits);
    EXPECT_NEAR(resultof(shown.shown[1].text, "PPM"), 3.3976731, 1e-4);
    EXPECT_NEAR(resultof(shown.shown[1].text, "Ppk"), 1.5, 1e-5);
}

TEST_F(AnalysisPages, WhatAnotherPageChangedStaysAndIsCalculated) {
    session.fixedSlope = 2;
    EXPECT_TRUE(press(OptionPage::weibayes, "ZLXX"));
    EXPECT_EQ(session.dist, lognormal);
    EXPECT_EQ(session.fixedSlope, 0) << "the slope was that of the Weibull line";
}

TEST_F(AnalysisPages, AnExitOfTheThresholdPageGivesEverySetItsOwnBack) {
    sets({{"150", "230", "310"}, {"20", "30", "45"}});
    session.t0(1) = 5;
    session.t0(2) = 7;
    session.findThreshold = 0;
    ScriptedPlatform shown;
    shown.expectkey("", 'T');
    shown.expectnumber("t0", "3");
    shown.expectkey("", 'X');
    EXPECT_FALSE(optionpage(OptionPage::threshold));
    EXPECT_EQ(session.t0(1), 5);
    EXPECT_EQ(session.t0(2), 7);
    keys(shown, "NX");
    EXPECT_FALSE(optionpage(OptionPage::threshold));
    EXPECT_EQ(session.t0(2), 7);
    session.findThreshold = 1;
    keys(shown, "NX");
    EXPECT_FALSE(optionpage(OptionPage::threshold));
    EXPECT_EQ(session.findThreshold, 1);
    keys(shown, "NA");
    EXPECT_TRUE(optionpage(OptionPage::threshold));
    EXPECT_EQ(session.t0(2), 0);
}

TEST_F(AnalysisPages, TheThresholdOfferedLeavesSetsThatDiffer) {
    sets({{"150", "230", "310"}, {"20", "30", "45"}});
    session.t0(1) = 2.7f;
    session.t0(2) = 7;
    session.findThreshold = 0;
    ScriptedPlatform shown;
    shown.expectkey("", 'T');
    shown.expectnumber("t0", "2.7");
    shown.expectkey("", 'A');
    EXPECT_FALSE(optionpage(OptionPage::threshold));
    EXPECT_EQ(shown.shown[1].value, "2.7");
    EXPECT_EQ(session.t0(2), 7);
    std::string variable;
    compose(variable, "T...t0 = ", Word::Variable);
    const auto& items = shown.shown.back().items;
    EXPECT_NE(std::find(items.begin(), items.end(), cleaned(variable)), items.end());
}

TEST_F(AnalysisPages, OnlyAWeibullLineGivesAPlanItsSlope) {
    choose(lognormal);
    life({"150", "230", "310", "420", "510"});
    session.planLife = 100;
    ScriptedPlatform shown;
    shown.expectkey("", 'L');
    shown.expectmessage("Beta <= 0");
    shown.expectkey("", 'X');
    optionpage(OptionPage::findInTestPlan);
    choose(weibull);
    calcplot();
    shown.expectkey("", 'L');
    shown.expectmessage("Test Time");
    shown.expectkey("", 'X');
    optionpage(OptionPage::findInTestPlan);
}

TEST_F(AnalysisPages, AReportThatAPageWroteOutlivesItsChanges) {
    life({"150", "230", "310", "420", "510"});
    ScriptedPlatform shown;
    keys(shown, "BC");
    shown.expectnumber("Confidence", "80");
    keys(shown, "AD");
    shown.expectnumber("", "5");
    shown.expectnumber("", "100");
    keys(shown, "X");
    if (optionpage(OptionPage::testPlanning)) calcplot();
    EXPECT_EQ(session.planConfidence, 80);
    EXPECT_NE(session.reportBuffer.find("Sudden"), std::string::npos) << session.reportBuffer;
}

TEST_F(AnalysisPages, AnAnalysisBeyondTheFitShowsTheReport) {
    life({"150", "230", "310", "420", "510"});
    ScriptedPlatform shown;
    keys(shown, "KX");
    EXPECT_FALSE(optionpage(OptionPage::extendedOptions));
    EXPECT_NE(session.reportBuffer.find("Likelihood Value Grid"), std::string::npos);
    EXPECT_EQ(shown.windowCalls.back(), "showview 1");
}

TEST_F(AnalysisPages, ATestPlanOfTheSetGoesIntoTheReport) {
    life({"150", "230", "310", "420", "510"});
    ScriptedPlatform shown;
    shown.expectkey("", 'D');
    shown.expectnumber("", "5");
    shown.expectnumber("", "100");
    shown.expectkey("", 'X');
    EXPECT_FALSE(optionpage(OptionPage::testPlanning));
    EXPECT_NE(session.reportBuffer.find("Sudden"), std::string::npos) << session.reportBuffer;
    EXPECT_EQ(shown.windowCalls.back(), "showview 1");
}

TEST_F(AnalysisPages, LabelsGoToAFileOfTheirOwnAndComeBack) {
    life({"150", "230", "310"});
    session.titleSecond = "after the repair";
    const std::string before = session.fileName;
    {
        ScriptedPlatform shown;
        shown.expectkey("", 'S');
        shown.expectfile("Save Label File", folder.path("title"));
        shown.expectkey("", 'A');
        optionpage(OptionPage::style);
    }
    ASSERT_TRUE(folder.has("title.lbl"));
    EXPECT_EQ(session.fileName, before) << "the data are not saved by it";
    session.titleSecond = "another";
    const auto cells = session.gridCells;
    const std::string other = folder.write("data.txt", "1 2 3");
    ScriptedPlatform shown;
    shown.expectkey("", 'R');
    shown.expectfile("Get Label File", other);
    shown.expectmessage("Cannot Get");
    shown.expectkey("", 'R');
    shown.expectfile("Get Label File", folder.path("title.lbl"));
    shown.expectkey("", 'A');
    EXPECT_TRUE(optionpage(OptionPage::style));
    EXPECT_EQ(session.titleSecond, "after the repair");
    EXPECT_EQ(session.gridCells, cells) << "labels alone";
}

TEST_F(AnalysisPages, TheCalculatorReadsTheLineOfTheSetInHand) {
    session.fixedSlope = 1;
    life({"100", "200", "300", "400", "500"});
    const double eta = fit().eta;
    EXPECT_NEAR(resultof(told(OptionPage::calculator, 'L', {"50", "10"}), "Life Remaining"),
                -eta * std::log(0.9), 1e-6 * eta)
        << "an exponential item has no memory";
    EXPECT_NEAR(resultof(told(OptionPage::calculator, 'Q', {"70"}), "MTBF"), eta, 1e-6 * eta);
    const std::string ends = told(OptionPage::calculator, 'O', {"100", "500", "5"});
    EXPECT_NEAR(resultof(ends, "Maximum P-Value %"), 100 * (1 - std::pow(1 - std::exp(-500 / eta), 5)), 1e-4);
    EXPECT_NEAR(resultof(ends, "Minimum P-Value %"), 100 * (1 - std::exp(-5 * 100 / eta)), 1e-4);
    EXPECT_NEAR(resultof(told(OptionPage::testPlanning, 'W', {"50", "10"}), "Life Remaining"),
                -eta * std::log(0.9), 1e-6 * eta);
}

TEST_F(AnalysisPages, TheOutliersOfAPageAreThoseOfItsSet) {
    life({"100", "200", "300", "400", "500"});
    ScriptedPlatform shown;
    shown.expectkey("", 'O');
    shown.expectnumber("Minimum", std::nullopt);
    shown.expectkey("", 'X');
    optionpage(OptionPage::calculator);
    EXPECT_EQ(shown.shown[1].value, "100");
}

TEST_F(AnalysisPages, AWeibayesLineCanBeKeptAsAMarkerLine) {
    session.fixedSlope = 2;
    life({"100", "200", "300"});
    ScriptedPlatform shown;
    shown.expectkey("", 'W');
    shown.expecttext("Marker Line Label", "design 1");
    shown.expectkey("", 'A');
    EXPECT_TRUE(optionpage(OptionPage::weibayes));
    ASSERT_EQ(markerlines().size(), 1u);
    EXPECT_DOUBLE_EQ(markerlines()[0].parameters.eta, fit().eta);
    EXPECT_EQ(markerlines()[0].parameters.beta, 2);
    keys(shown, "KA");
    EXPECT_TRUE(optionpage(OptionPage::weibayes));
    EXPECT_TRUE(markerlines().empty());
}

TEST_F(AnalysisPages, TheReportCanBeTheTableOfRanksAlone) {
    life({"100", "-150", "200", "300"});
    ScriptedPlatform shown;
    shown.expectkey("", 'T');
    optionpage(OptionPage::reportContent);
    const std::string table = reportastext();
    EXPECT_EQ(table.find("Eta"), std::string::npos) << table;
    EXPECT_NE(table.find("Suspension"), std::string::npos);
    // Ranks of Johnson: 1, then 1 + (5 - 1) / 3, then the same step again; positions of Benard.
    EXPECT_NE(table.find("2.33333"), std::string::npos) << table;
    EXPECT_NE(table.find("3.66667"), std::string::npos) << table;
    EXPECT_NE(table.find("15.9091"), std::string::npos) << "100 (1 - 0.3) / 4.4" << table;
    shown.expectkey("", 'R');
    optionpage(OptionPage::reportContent);
    EXPECT_NE(reportastext().find("Eta"), std::string::npos);
}
