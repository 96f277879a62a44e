#include "curvefit/curvewords.h"

#include <gtest/gtest.h>

#include "curvefit/models.h"
#include "session/optionfile.h"
#include "support/xyfixture.h"

namespace {
class CurveWords : public XYTest {};

int wanted() { return static_cast<int>(session.fitKindList[0]); }
} // namespace

TEST_F(CurveWords, AModelIsNamedByWordNumberOrCode) {
    const struct {
        const char* text;
        int code;
    } cases[] = {{"FITCURVE=cubic", 3}, {"FITCURVE", 1},      {"FIT Exponential", 10}, {"fit 7", 7},
                 {"FITCURVE=11", 11},   {"FITCURVE = 2", 2},  {"FIT arrhenius-y", 13}, {"FITCURVE=0", -1},
                 {"FITPAR-ORDER=5", 5}, {"FITPAR-ORDER 1", 1}};
    for (const auto& one : cases) {
        EXPECT_EQ(curveword(one.text), CurveWord::taken) << one.text;
        EXPECT_EQ(wanted(), one.code) << one.text;
    }
}

TEST_F(CurveWords, OtherSettingsAreTaken) {
    EXPECT_EQ(curveword("FITFILL"), CurveWord::taken);
    EXPECT_EQ(session.fillMissing, 1);
    EXPECT_EQ(curveword("FITFILL=0"), CurveWord::taken);
    EXPECT_EQ(session.fillMissing, 0);
    EXPECT_EQ(curveword("FITPAR-EXTRAPOLATE=0"), CurveWord::taken);
    EXPECT_EQ(session.curveExtrapolated, 0);
    EXPECT_EQ(curveword("FITPAR-FROM=-2.5"), CurveWord::taken);
    EXPECT_EQ(session.curveFrom, -2.5);
    EXPECT_EQ(session.curveExtrapolated, 1);
}

TEST_F(CurveWords, AWrongValueChangesNothing) {
    for (const char* text :
         {"FITCURVE=cubical", "FITCURVE=14", "FITCURVE=-1", "FITCURVE=99999999999", "FIT ", "FIT",
          "FITFILL=2", "FITPAR-ORDER=10", "FITPAR-ORDER=0", "FITPAR-ORDER=2.5", "FITPAR-FROM=abc",
          "FITPAR-FROM=1e999", "FITPAR-FROM=1x", "FITPAR-FROM", "FITPAR-", "FITPAR-B=1"})
        EXPECT_EQ(curveword(text), CurveWord::wrong) << text;
    EXPECT_EQ(wanted(), 0);
    EXPECT_EQ(session.fillMissing, 0);
    EXPECT_EQ(session.curveFrom, 0);
    for (const char* text : {"", "F Title", "FITTING=1", "fixedSlope=1", "=FIT"})
        EXPECT_EQ(curveword(text), CurveWord::none) << text;
}

TEST_F(CurveWords, AnOptionFileAsksForTheCurvesOfItsRun) {
    optionfiletake("OPTREPL\r\nF My plot\r\nFIT quadratic\r\nFITPAR-FROM 2\r\nG Second\r\n");
    EXPECT_EQ(session.titleWanted, "My plot");
    EXPECT_EQ(session.titleSecond, "Second");
    EXPECT_EQ(session.curveFrom, 2);
    sets({{"1x1", "2x4", "3x9", "4x16"}, {"1x3", "2x5", "3x7"}});
    EXPECT_EQ(curve(1).fitmodel, quadraticFit);
    EXPECT_EQ(curve(2).fitmodel, quadraticFit);
}

TEST_F(CurveWords, AWrongSettingOfAnOptionFileIsNoted) {
    optionfiletake("FIT=foo\r\nFITFILL\r\nOPTREPL\r\nFITPAR-ORDER 12\r\nF My plot\r\n");
    EXPECT_EQ(session.cmdNotes, (Cells{"Unknown: FIT=foo", "Unknown: FITPAR-ORDER 12"}));
    EXPECT_EQ(session.fillMissing, 1);
    EXPECT_EQ(session.titleWanted, "My plot");
}

TEST_F(CurveWords, ARunMayAskForNoCurves) {
    sets({{"1x1", "2x4", "3x9"}}, {linearFit});
    ASSERT_EQ(curve().fitmodel, linearFit);
    curveword("FITCURVE=0");
    calcplot();
    EXPECT_EQ(curve().fitmodel, noFit);
    EXPECT_EQ(session.FITKIND(1), noFit);
}

TEST(CurveModels, NamesAndCodesBelongTogether) {
    EXPECT_EQ(modelnames(), "linear quadratic cubic 1-9 exponential power arrhenius-x arrhenius-y");
    for (int code = -5; code <= 20; ++code)
        EXPECT_EQ(modelofcode(code).has_value(), code >= 1 && code <= 13) << code;
    EXPECT_EQ(modelofcode(9)->parameters(), 10);
    EXPECT_EQ(modelofcode(13)->parameters(), 2);
    EXPECT_EQ(scriptname(*modelofcode(6)), "order 6");
    EXPECT_FALSE(modelofname("").has_value());
    EXPECT_FALSE(modelofname("0").has_value());
    EXPECT_FALSE(modelofname("10").has_value()) << "an order that is not offered, and no code";
    EXPECT_FALSE(modelofname("12").has_value());
    EXPECT_FALSE(modelofname("2 ").has_value());
}
