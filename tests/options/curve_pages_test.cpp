#include <gtest/gtest.h>

#include <cmath>

#include "curvefit/curvesmain.h"
#include "curvefit/models.h"
#include "expression/functionrun.h"
#include "options/pages.h"
#include "platform/files.h"
#include "session/script.h"
#include "shell/commands.h"
#include "support/workfolder.h"
#include "support/xyfixture.h"

namespace {

class CurvePages : public XYTest {
protected:
    CurvePages() {
        session.configPath = session.tempPath = session.dataPath = folder.path("") + "/";
        sets({{"1x3", "2x5", "3x7", "4x9"}, {"1x1", "2x4", "3x9", "4x16"}});
    }
    bool press(OptionPage page, std::string_view letters) {
        for (const char letter : letters) desk.expectkey("", letter);
        const bool changed = optionpage(page);
        desk.verify();
        return changed;
    }
    const std::vector<std::string>& items() const { return desk.shown.back().items; }

    WorkFolder folder;
};

int kind(int k) { return session.FITKIND(k); }

} // namespace

TEST_F(CurvePages, AKindIsTakenByAllSets) {
    EXPECT_TRUE(press(OptionPage::curveFit, "C3X"));
    EXPECT_EQ(kind(1), cubicFit);
    EXPECT_EQ(kind(2), cubicFit);
    EXPECT_EQ(items()[0], "C...Curve Fit For Data = Cubic");
}

TEST_F(CurvePages, EveryKindHasItsLetter) {
    const struct {
        char letter;
        int code;
    } kinds[] = {{'1', 1}, {'2', 2}, {'3', 3}, {'A', 10}, {'B', 11}, {'C', 12}, {'D', 13}, {'N', 0}};
    for (const auto& one : kinds) {
        press(OptionPage::fitKind, std::string(1, one.letter));
        EXPECT_EQ(kind(2), one.code);
    }
    desk.expectkey("", 'O');
    desk.expectnumber("Polynomial Order", "7");
    EXPECT_TRUE(optionpage(OptionPage::fitKind));
    EXPECT_EQ(kind(1), 7);
    desk.expectkey("", 'O');
    desk.expectnumber("Polynomial Order", "10");
    desk.expectnumber("(1 ... 9)", std::nullopt);
    EXPECT_FALSE(optionpage(OptionPage::fitKind));
    EXPECT_EQ(kind(1), 7);
}

TEST_F(CurvePages, OneSetIsChosenFromItsList) {
    desk.expectkey("", 'S');
    desk.expectmenu("", 3); // set 2, behind all and set 1
    EXPECT_TRUE(press(OptionPage::curveFit, "C2X"));
    EXPECT_EQ(kind(1), noFit);
    EXPECT_EQ(kind(2), quadraticFit);
    session.FITIXSAVE[1] = NAN; // from a damaged file
    EXPECT_TRUE(press(OptionPage::curveFit, "DX"));
    EXPECT_EQ(kind(2), noFit);
}

TEST_F(CurvePages, TheCommandFitsWhatItsPageChose) {
    for (const char letter : {'C', '2', 'X'}) desk.expectkey("", letter);
    runcommand(16);
    EXPECT_TRUE(hascurve(1));
    EXPECT_TRUE(hascurve(2));
    EXPECT_NEAR(session.curves(2).coefficients[2], 1, 1e-14);
}

TEST_F(CurvePages, ADeletedFitStaysDeletedThoughTheRunAskedForIt) {
    session.fitKindList[0] = linearFit;
    calcplot();
    ASSERT_TRUE(hascurve(1));
    EXPECT_TRUE(press(OptionPage::curveFit, "DX"));
    calcplot();
    EXPECT_FALSE(hascurve(1));
}

TEST_F(CurvePages, WithoutDataAKindHasNoSet) {
    gridclear();
    calcplot();
    desk.expectkey("", '1');
    desk.expectmessage("No Data");
    EXPECT_FALSE(optionpage(OptionPage::fitKind));
}

TEST_F(CurvePages, ACurveIsDrawnOverItsDataTheWindowOrFromAnX) {
    desk.expectkey("", '0');
    desk.expectmenu("", 1);
    EXPECT_TRUE(press(OptionPage::extrapolation, "X"));
    EXPECT_EQ(session.curveExtrapolated, 0);
    EXPECT_EQ(items()[0], "0...Extrapolate By X-Value = No");
    desk.expectkey("", '0');
    desk.expectmenu("", 3);
    desk.expectnumber("Extrapolate From X-Value", "2.5");
    EXPECT_TRUE(press(OptionPage::extrapolation, "X"));
    EXPECT_EQ(session.curveExtrapolated, 1);
    EXPECT_EQ(session.curveFrom, 2.5);
    EXPECT_EQ(items()[0], "0...Extrapolate By X-Value = Yes From 2.5");
    desk.expectkey("", '0');
    desk.expectmenu("", 2);
    EXPECT_TRUE(press(OptionPage::extrapolation, "BX"));
    EXPECT_EQ(session.curveFrom, 0);
    EXPECT_EQ(kind(1), powerFit);
}

TEST_F(CurvePages, ACurveCannotBeToldToBeginAtZero) {
    session.curveExtrapolated = 0;
    desk.expectkey("", '0');
    desk.expectmenu("", 3);
    desk.expectnumber("Extrapolate From X-Value", "0");
    desk.expectmessage("Extrapolate From X-Value = 0 ... Not Possible");
    EXPECT_FALSE(press(OptionPage::extrapolation, "X"));
    EXPECT_EQ(session.curveExtrapolated, 0);
    EXPECT_EQ(session.curveFrom, 0);
}

TEST_F(CurvePages, PointFillAsksForTheNextCycle) {
    EXPECT_TRUE(press(OptionPage::curveFit, "FX"));
    EXPECT_EQ(session.fillMissing, 1);
}

TEST_F(CurvePages, TheLastFitIsShown) {
    desk.expectkey("", 'L');
    desk.expectmessage("No Curve Fit");
    EXPECT_FALSE(press(OptionPage::curveFit, "X"));
    session.FITKIND(1) = linearFit;
    calcplot();
    desk.expectkey("", 'L');
    desk.expectmessage("Set 1: Linear E [ev] = y=a+b*x a=1 b=2");
    EXPECT_FALSE(press(OptionPage::curveFit, "X"));
}

TEST_F(CurvePages, EquationsAreSavedAndOneIsTakenAsTheFunction) {
    const std::string path = folder.path("fits.eqn");
    session.FITKIND(1) = linearFit;
    session.FITKIND(2) = quadraticFit;
    calcplot();
    desk.expectkey("", 'W');
    desk.expectfile("Save Equations File", path);
    EXPECT_FALSE(press(OptionPage::curveFit, "X"));
    ASSERT_TRUE(readregular(path));
    desk.expectkey("", 'G');
    desk.expectfile("Get Equations File", path);
    desk.expectmenu("", 2);
    EXPECT_TRUE(press(OptionPage::curveFit, "X"));
    EXPECT_EQ(session.fcode, session.curves(2).code);
    EXPECT_EQ(session.flitcount, static_cast<float>(session.curves(2).literals.size()));
    EXPECT_EQ(session.functionShown, 1);
    session.fcode = "0102"; // x y: what cannot run gives way to the function that was taken
    desk.expectmessage("Function: Error");
    EXPECT_FALSE(functionrun(1));
    EXPECT_EQ(session.fcode, session.curves(2).code);
    EXPECT_EQ(functionliterals().size(), session.curves(2).literals.size());
}

TEST_F(CurvePages, AFileThatHoldsNoEquationsLeavesTheFunction) {
    const std::string path = folder.path("bad.eqn");
    ASSERT_TRUE(writefile(path, "{\nEqns1=VA VA\n}\n"));
    session.fcode = "01";
    desk.expectkey("", 'G');
    desk.expectfile("Get Equations File", path);
    desk.expectmessage("Cannot Open File");
    EXPECT_FALSE(press(OptionPage::curveFit, "X"));
    EXPECT_EQ(session.fcode, "01");
}

// ---- scripts ----

TEST_F(CurvePages, AScriptAsksForItsCurves) {
    const std::string data = folder.path("line.txt"), out = folder.path("out.txt");
    ASSERT_TRUE(writefile(data, "1x3\n2x5\n3x7\n"));
    session.scriptRequest = "[VXV {FITCURVE=linear} [" + data + "] E " + out + "]";
    ASSERT_TRUE(scriptrun());
    EXPECT_EQ(*readregular(out), "Set 1: y = 1 + 2 * x\n");
    session.scriptRequest = "[VXV {FITCURVE=linnear} [" + data + "] E " + out + "]";
    desk.expectmessage("FITCURVE=linnear");
    EXPECT_FALSE(scriptrun());
}
