#include "curvefit/curvesmain.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <nlohmann/json.hpp>

#include "curvefit/curvevalue.h"
#include "curvefit/fitline.h"
#include "data/cell.h"
#include "data/lineequation.h"
#include "data/report.h"
#include "data/resultsjson.h"
#include "session/scriptoutput.h"
#include "session/undo.h"
#include "shell/commands.h"
#include "support/inlanguage.h"
#include "support/workfolder.h"
#include "support/xyfixture.h"

namespace {

class Curves : public XYTest {
protected:
    static std::string report() {
        session.reportDevice = reportText;
        calcplot();
        return reportastext();
    }
    static nlohmann::json json() {
        std::string text;
        writeresults(text);
        return nlohmann::json::parse(text);
    }
};

const std::vector<std::string> line = {"1x3", "2x5", "3x7", "4x9"}; // y = 1 + 2x

} // namespace

TEST_F(Curves, ASetThatAsksForNoCurveHasNone) {
    set(line);
    EXPECT_FALSE(hascurve(1));
    EXPECT_TRUE(curvesstand());
    EXPECT_EQ(curve().code, "");
}

TEST_F(Curves, EachSetHasTheModelItAsksFor) {
    sets({line, {"1x1", "2x4", "3x9", "4x16"}, {"0x1", "1x2", "2x4", "3x8"}},
         {linearFit, quadraticFit, exponentialFit});
    EXPECT_EQ(curve(1).fitmodel, 1);
    EXPECT_NEAR(curve(1).coefficients[0], 1, 1e-14);
    EXPECT_NEAR(curve(1).coefficients[1], 2, 1e-14);
    EXPECT_EQ(curve(2).fitmodel, 2);
    EXPECT_NEAR(curve(2).coefficients[2], 1, 1e-14);
    EXPECT_NEAR(curve(3).coefficients[0], 1, 1e-14);
    EXPECT_NEAR(curve(3).coefficients[1], std::log(2), 1e-14);
    EXPECT_EQ(curve(3).solcoef[1], static_cast<float>(curve(3).coefficients[1]));
    EXPECT_EQ(curve(2).dataLow, 1);
    EXPECT_EQ(curve(2).dataHigh, 4);
    EXPECT_NEAR(curve(1).r, 1, 1e-15);
    EXPECT_TRUE(curvesstand());
}

TEST_F(Curves, AQuantityIsAWeight) {
    // Three rows at (1,1), one at (1,5), one at (2,2): means 2 and 2, the line y = 2.
    set({"1x1x3", "1x5", "2x2"}, linearFit);
    EXPECT_NEAR(fitusex2y(curve(), 1), 2, 1e-14);
    EXPECT_NEAR(fitusex2y(curve(), 2), 2, 1e-14);
    set({"1x1x.5", "1x4x1", "2x2"}, linearFit); // weights need not be whole
    EXPECT_NEAR(fitusex2y(curve(), 1), 3, 1e-14);
}

TEST_F(Curves, SuspensionsAreSkipped) {
    set({"1x3", "2x5", ">3x70", "4x9", "5x80x1x3.3E+33"}, linearFit);
    EXPECT_NEAR(curve().coefficients[1], 2, 1e-14);
    EXPECT_EQ(curve().dataHigh, 4);
    set({"1x3", "-2x-3", "3x7"}, linearFit); // a minus sign is a value here
    EXPECT_NEAR(curve().coefficients[1], 2, 1e-14);
}

TEST_F(Curves, ACellWithoutYIsNoZero) {
    set({"1x3", "2", "3x7", "4xx2", "5x0x0"}, linearFit);
    EXPECT_EQ(curve().dataHigh, 5); // 0 is a Y
    set({"1x3", "2", "3x7", "4xx2"}, linearFit);
    EXPECT_NEAR(curve().coefficients[0], 1, 1e-14);
    ASSERT_EQ(told().size(), 1u);
    EXPECT_EQ(told()[0], "Set 1: Linear Fit: Point Quantity = 2 (2 Not Possible)");
    EXPECT_TRUE(desk.shown.empty()); // a note of the report: it would come up at every plot
}

TEST_F(Curves, ASetOfXAloneIsToldAsOneDimensional) {
    desk.expectmessage("Set 1 ... <> 2D!");
    set({"1", "2", "3"}, linearFit);
    EXPECT_FALSE(hascurve(1));
    EXPECT_FALSE(curvesstand());
}

TEST_F(Curves, ASingularSystemIsToldAndThePlotGoesOn) {
    desk.expectmessage(" = 0,0,0,0...!");
    sets({{"2x1", "2x3", "2x5"}, line}, {linearFit, linearFit});
    EXPECT_TRUE(desk.shown[0].text.ends_with(" = 0,0,0,0...!"));
    EXPECT_FALSE(hascurve(1));
    EXPECT_TRUE(curve(1).coefficients.empty());
    EXPECT_TRUE(hascurve(2));
    EXPECT_FALSE(curvesstand());
    EXPECT_EQ(session.cycleComplete, 1);
}

TEST_F(Curves, ACodeThatIsNoModelIsTold) {
    for (const int code : {14, -3, 32767}) {
        desk.expectmessage("Unknown Curve Model");
        set(line, code);
        EXPECT_FALSE(hascurve(1)) << code;
    }
}

TEST_F(Curves, AHiddenSetIsNotFitted) {
    session.lineHide(1) = 1;
    set(line, linearFit);
    EXPECT_FALSE(hascurve(1));
    EXPECT_TRUE(curvesstand());
}

TEST_F(Curves, EveryCycleFitsAnew) {
    set(line, linearFit);
    gridset(1, 1, "1x30");
    calcplot();
    EXPECT_GT(curve().coefficients[0], 10);
    session.FITKIND(1) = noFit;
    calcplot();
    EXPECT_FALSE(hascurve(1));
    EXPECT_EQ(curve().text, "");
}

TEST_F(Curves, TheListsOfCoefficientsMoveBackWhenTheFirstCurveChanges) {
    set(line, linearFit);
    calcplot();
    EXPECT_NEAR(session.SOLCOEF[1], 1, 1e-14);
    EXPECT_NEAR(session.SOLCOEF[2], 2, 1e-14);
    EXPECT_EQ(session.SOLCOEFA[2], 0);
    set({"1x1", "2x4", "3x9"}, quadraticFit);
    EXPECT_NEAR(session.SOLCOEF[3], 1, 1e-14);
    EXPECT_NEAR(session.SOLCOEFA[2], 2, 1e-14);
    set({"1x1", "2x2"}, linearFit);
    EXPECT_NEAR(session.SOLCOEFB[2], 2, 1e-14);
}

TEST_F(Curves, AConstantOutsideSinglesIsKeptAsItsLogarithm) {
    set({"100x1", "101x2", "102x4"}, exponentialFit); // a = 2^-100
    EXPECT_TRUE(curve().noLogarithm);
    EXPECT_NEAR(curve().coefficients[0], -100 * std::log(2), 1e-9);
    EXPECT_NEAR(fitusex2y(curve(), 101), 2, 1e-12);
    EXPECT_NE(curve().text.find(" a=1/(e^69.3147)"), std::string::npos) << curve().text;
    const double a = json()["sets"][0]["coefficients"][0];
    EXPECT_NEAR(a, std::pow(2.0, -100), 1e-12 * std::pow(2.0, -100));
}

TEST_F(Curves, ACoefficientThatNoDoubleHoldsIsNull) {
    // b = e^-7991.7: an activation energy of 0.69 eV
    set({"300x2.6e-12", "350x1.2e-10", "400x2.1e-9", "450x1.9e-8", "500x1.1e-7"}, arrheniusXFit);
    EXPECT_NEAR(curve().coefficients[1], -7991.7, .1);
    auto coefficients = json()["sets"][0]["coefficients"];
    EXPECT_NEAR(coefficients[0], .9788, 1e-4);
    EXPECT_TRUE(coefficients[1].is_null()) << coefficients;
    session.curves(1).coefficients[1] = -720; // held with four digits only
    EXPECT_TRUE(json()["sets"][0]["coefficients"][1].is_null());
    session.curves(1).coefficients[1] = 800;
    EXPECT_TRUE(json()["sets"][0]["coefficients"][1].is_null());
    session.curves(1).coefficients[1] = -700;
    EXPECT_EQ(json()["sets"][0]["coefficients"][1], std::exp(-700.0));
}

TEST_F(Curves, OnAProbabilityScaleTheFitIsComparedAsItIsSeen) {
    session.plotMode = 1;
    session.progSide = visualSide;
    set({"10x.1", "20x.3", "30x.4", "-25x.9"}, linearFit); // the minus sign is a suspension there
    ASSERT_TRUE(hascurve(1));
    // Weibull axes: ln x and ln(-ln(1 - p)).
    const double x[] = {10, 20, 30}, p[] = {.1f, .3f, .4f};
    double mx = 0, my = 0, xx = 0, yy = 0, xy = 0;
    for (int i = 0; i < 3; ++i) mx += std::log(x[i]) / 3, my += std::log(-std::log1p(-p[i])) / 3;
    for (int i = 0; i < 3; ++i) {
        const double dx = std::log(x[i]) - mx, dy = std::log(-std::log1p(-p[i])) - my;
        xx += dx * dx, yy += dy * dy, xy += dx * dy;
    }
    EXPECT_NEAR(curve().r, xy / std::sqrt(xx * yy), 1e-6);
}

// ---- missing values ----

TEST_F(Curves, MissingValuesAreFilledOnceFromTheCurve) {
    session.fillMissing = 1;
    set({"1x3", "2", "3x7", "4xx2", "5_late one", "6*"}, linearFit);
    const Cells& cells = session.gridCells[0];
    EXPECT_EQ(cells[1], "2x5_(fill)");
    EXPECT_EQ(cells[3], "4x9x2_(fill)");
    EXPECT_EQ(cells[4], "5x11_late one (fill)");
    EXPECT_EQ(cells[5], "6x13_(fill)");
    std::string point;
    celltext(point, 1, 5);
    EXPECT_EQ(point, "5x11x1x0_late one (fill)");
    EXPECT_EQ(cells[0], "1x3");
    EXPECT_EQ(session.Y(1, 2), 5);
    EXPECT_EQ(session.fillMissing, 0);
    EXPECT_EQ(curve().dataHigh, 3); // the curve is that of what was measured
}

TEST_F(Curves, FilledValuesAreNoMeasurementsOfTheNextCycle) {
    session.fillMissing = 1;
    set({"1x2", "2x1", "3", "4x5", "5x4", "6_a", "7_", "8_a (fill)"}, linearFit); // se = sqrt(3.6/2)
    const double error = curve().standardError;
    EXPECT_NEAR(error, std::sqrt(1.8), 1e-14);
    EXPECT_EQ(session.gridCells[0][5].substr(session.gridCells[0][5].find('_')), "_a (fill)");
    EXPECT_EQ(session.gridCells[0][6].substr(session.gridCells[0][6].find('_')), "_(fill)");
    EXPECT_EQ(session.gridCells[0][7].substr(session.gridCells[0][7].find('_')), "_a (fill)");
    const auto coefficients = curve().coefficients;
    for (int cycle = 0; cycle < 2; ++cycle) {
        calcplot();
        EXPECT_EQ(curve().standardError, error);
        EXPECT_EQ(curve().coefficients, coefficients);
        EXPECT_EQ(told()[0], "Set 1: Linear Fit: Point Quantity = 4 (4 Not Possible)");
    }
    gridset(1, 3, "3x3_(filled)"); // another label is a measurement's
    calcplot();
    EXPECT_NE(curve().standardError, error);
}

TEST_F(Curves, AnUndoGivesTheOpenCellsBack) {
    WorkFolder folder;
    session.tempPath = folder.path("") + "/";
    session.undoActive = 1;
    set({"1x3", "2", "3x7"}, linearFit);
    session.fillMissing = 1;
    calcplot();
    ASSERT_EQ(session.gridCells[0][1], "2x5_(fill)");
    ASSERT_TRUE(undo());
    EXPECT_EQ(session.gridCells[0][1], "2");
    EXPECT_EQ(session.FITKIND(1), linearFit);
    ASSERT_TRUE(redo());
    EXPECT_EQ(session.gridCells[0][1], "2x5_(fill)");
}

TEST_F(Curves, ACellOutsideTheDomainOfTheCurveStaysOpen) {
    session.fillMissing = 1;
    desk.expectmessage("Cannot Fill (1)");
    set({"1x3", "2x6", "-4", "4x12", "8"}, powerFit);
    EXPECT_EQ(session.gridCells[0][2], "-4");
    EXPECT_EQ(session.gridCells[0][4], "8x24_(fill)");
}

/// An order 5 over years: its coefficients lose the digits that a filled value must have.
TEST_F(Curves, ACurveThatItsCoefficientsDoNotTellFillsNothing) {
    Cells cells;
    for (int year = 2000; year <= 2020; ++year)
        cells.push_back(std::to_string(year)
                        + (year == 2010 ? "" : "x" + std::to_string(std::sin(year * 0.4))));
    session.fillMissing = 1;
    desk.expectmessage("Cannot Fill (1)");
    set(cells, 5);
    EXPECT_EQ(session.gridCells[0][10], "2010");
    EXPECT_EQ(told()[1], "Set 1: Order = 5 Fit: Not Precise");
}

TEST_F(Curves, WithoutACurveNothingIsFilled) {
    session.fillMissing = 1;
    desk.expectmessage("Point Fill: No Curve Fit");
    set({"1x3", "2", "3x7"});
    desk.verify();
    EXPECT_EQ(session.gridCells[0][1], "2");
    EXPECT_EQ(session.fillMissing, 0);
}

// ---- what is told ----

TEST_F(Curves, TheReportLineHoldsModelEquationAndFigures) {
    set({"1x2", "2x1", "4x5", "5x4"}, linearFit); // r = .8, slope .8, se = sqrt(3.6/2)
    EXPECT_EQ(curve().text, "Set 1: Linear E [ev] = y=a+b*x a=.6 b=.8; Linear Correlation (r) = .8; "
                            "r ^ 2 = .64; Standard Error = 1.34164");
    set({"1x4", "2x5", "4x1", "5x2"}, linearFit);
    EXPECT_NE(curve().text.find("(r) = -.8; r ^ 2 = .64"), std::string::npos) << curve().text;
    set({"1x7", "2x7", "3x7"}, 2);
    EXPECT_EQ(curve().text, "Set 1: Quadratic E [ev] = y=a+b*x+c*x^2 a=7 b=0 c=0; Standard Error = 0");
}

TEST_F(Curves, EveryModelHasItsName) {
    const Cells cells = {"1x2", "2x3", "3x5", "4x4", "5x9", "6x7", "7x9", "8x12", "9x11", "10x15", "11x14"};
    const char* const names[] = {"Linear",    "Quadratic",   "Cubic",      "Order = 4", "Order = 5",
                                 "Order = 6", "Order = 7",   "Order = 8",  "Order = 9", "Exponential",
                                 "Power",     "Arrhenius-X", "Arrhenius-Y"};
    for (int code = 1; code <= 13; ++code) {
        set(cells, code);
        EXPECT_TRUE(curve().text.starts_with("Set 1: " + std::string(names[code - 1]) + " E [ev] = "))
            << curve().text;
    }
}

TEST_F(Curves, CoefficientsThatCannotBeShownPlainlyAreShownByTheirExponent) {
    SetCurve one;
    one.fitmodel = arrheniusXFit;
    one.coefficients = {2, 8000};
    EXPECT_NE(fitline(one, 1).find(" a=2 b=e^8000"), std::string::npos);
    one.coefficients = {2, -8000};
    EXPECT_NE(fitline(one, 1).find(" b=1/(e^8000)"), std::string::npos);
    one.coefficients = {2, std::numeric_limits<double>::infinity()};
    EXPECT_NE(fitline(one, 1).find(" b= Display Calculation No"), std::string::npos);
}

TEST_F(Curves, TheReportHoldsTheEquationWithItsAsterisks) {
    sets({line, {"1x1", "1x2"}}, {linearFit, noFit});
    const std::string text = report();
    EXPECT_NE(text.find("Curve Fit:\n"), std::string::npos) << text;
    EXPECT_NE(text.find("E [ev] = y=a+b*x a=1 b=2;"), std::string::npos) << text;
    EXPECT_NE(text.find("y = 1 + 2 * x\n"), std::string::npos) << text;
    session.FITKIND(1) = 0;
    EXPECT_EQ(report().find("Curve Fit:"), std::string::npos);
}

TEST_F(Curves, ANoteOnASetWithoutAFitHasNoHeadingOfFits) {
    desk.expectmessage("Bad Data (1)");
    set({"1x2", "none", "3x4"});
    session.reportDevice = reportText;
    desk.expectmessage("Bad Data (1)");
    calcplot();
    EXPECT_NE(reportastext().find("!! Set 1: Bad Data (1)"), std::string::npos);
    EXPECT_EQ(reportastext().find("Curve Fit:"), std::string::npos);
}

TEST_F(Curves, OffTheVisualSideNoCurveIsMissing) {
    chooseside(lifeSide);
    ASSERT_TRUE(allocatearrays());
    sets({{"150", "230", "310"}}, {linearFit});
    EXPECT_TRUE(curvesstand());
    EXPECT_FALSE(hascurve(1));
}

TEST_F(Curves, ALanguageTranslatesTheLine) {
    const InLanguage german("GERMAN");
    session.reportDevice = reportText;
    set(line, linearFit);
    EXPECT_EQ(reportastext().find("Correlation"), std::string::npos) << reportastext();
    EXPECT_NE(reportastext().find("y=a+b*x"), std::string::npos) << reportastext();
}

TEST_F(Curves, EquationsAreWrittenToBeCalculatedWith) {
    set({"1x1", "2x4", "3x9"}, quadraticFit);
    session.curves(1).coefficients = {-1.5, 0.25, -3};
    EXPECT_EQ(lineequation(1), "y = -1.5 + .25 * x - 3 * x ^ 2");
    session.curves(1).fitmodel = powerFit;
    session.curves(1).coefficients = {1, -2};
    EXPECT_EQ(lineequation(1), "y = exp(0 + -2 * ln(x))");
    session.curves(1).fitmodel = arrheniusYFit;
    EXPECT_EQ(lineequation(1), "y = -2 / (ln(x) - 0)");
    EXPECT_EQ(*outputtext("E"), "Set 1: y = -2 / (ln(x) - 0)\n");
}

TEST_F(Curves, TheJsonHoldsTheCurve) {
    sets({{"1x2", "2x1", "4x5x2.5", "5x4"}, line}, {linearFit, noFit});
    session.curves(1).coefficients = {.5, .75};
    session.curves(1).r = .5;
    const auto sets = json()["sets"];
    EXPECT_EQ(sets[0]["model"], "linear");
    EXPECT_EQ(sets[0]["coefficients"], nlohmann::json({.5, .75}));
    EXPECT_EQ(sets[0]["r"], .5);
    EXPECT_EQ(sets[0]["r2"], .25);
    EXPECT_EQ(sets[0]["standardError"], session.curves(1).standardError);
    EXPECT_EQ(sets[0]["equation"], "y = .5 + .75 * x");
    EXPECT_EQ(sets[0]["points"][2]["y"], 5);
    EXPECT_EQ(sets[0]["points"][2]["quantity"], 2.5);
    for (const char* field : {"model", "coefficients", "r", "r2", "standardError", "equation"})
        EXPECT_TRUE(sets[1][field].is_null()) << field;
}

// ---- the check mark ----

TEST_F(Curves, TheCheckMarkCommitsTheFitsThatWereAskedFor) {
    set(line);
    session.FITKIND(1) = linearFit;
    session.activeMode = 18;
    checkmark();
    EXPECT_TRUE(hascurve(1));
    EXPECT_EQ(session.activeMode, 0);
    EXPECT_NEAR(session.SOLCOEF[2], 2, 1e-14);
    session.FITKIND(1) = noFit;
    session.activeMode = 18;
    desk.expectmessage("No Curve Fit");
    checkmark();
}
