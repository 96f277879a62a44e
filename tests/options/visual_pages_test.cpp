#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>

#include "options/page.h"
#include "plot/shown.h"
#include "shell/commands.h"
#include "shell/commandtable.h"
#include "shell/languages.h"
#include "shell/prompts.h"
#include "support/inlanguage.h"
#include "support/scriptedplatform.h"
#include "support/visualfixture.h"
#include "support/workfolder.h"

namespace {

class VisualPages : public VisualTest {
protected:
    VisualPages() {
        session.configPath = folder.path("") + "/";
        session.tempPath = session.configPath;
        sets({{"1x2x1x3", "2x4x1x5"}, {"1x3", "2x5"}});
    }
    /// Presses the items of a page one after the other.
    static bool press(OptionPage page, std::string_view letters) {
        ScriptedPlatform shown;
        for (const char letter : letters) shown.expectkey("", letter);
        return optionpage(page);
    }
    /// Text of the item with a letter.
    static std::string item(OptionPage page, char letter) {
        for (const Item& one : tableof(page)->items)
            if (one.letter == letter) return itemtext(one);
        return {};
    }

    WorkFolder folder;
};

constexpr OptionPage visualPages[] = {OptionPage::curveAndScale, OptionPage::scaleKind, OptionPage::plotKind,
                                      OptionPage::plot3D};

} // namespace

TEST_F(VisualPages, LettersAreThoseOfTheirOwnOnEachPage) {
    for (const OptionPage page : visualPages) {
        const Page* const table = tableof(page);
        ASSERT_NE(table, nullptr);
        std::set<char> letters;
        for (const Item& one : table->items) EXPECT_TRUE(letters.insert(one.letter).second) << one.letter;
    }
}

TEST_F(VisualPages, EachScaleHasItsAxisPair) {
    const struct {
        char letter;
        float pair;
    } cases[] = {{'L', 3}, {'M', 1}, {'N', 2}, {'X', 5}, {'Y', 4}, {'S', 0}};
    for (const auto& one : cases) {
        EXPECT_TRUE(press(OptionPage::scaleKind, std::string(1, one.letter))) << one.letter;
        EXPECT_EQ(session.xyscale, one.pair) << one.letter;
    }
    EXPECT_FALSE(press(OptionPage::scaleKind, "S")) << "it is in force";
}

TEST_F(VisualPages, ALimitWithoutAPlaceOnTheNewAxisIsLeft) {
    session.xLimitLow = -5;
    session.xLimitHigh = 50;
    press(OptionPage::scaleKind, "N");
    EXPECT_EQ(session.xLimitLow, -5) << "X is linear still";
    press(OptionPage::scaleKind, "L");
    EXPECT_EQ(session.xLimitLow, 0);
    EXPECT_EQ(session.xLimitHigh, 0);
    session.xLimitLow = 2;
    press(OptionPage::scaleKind, "X");
    EXPECT_EQ(session.xLimitLow, 2) << "a limit above zero stands on every axis";
}

TEST_F(VisualPages, EachKindOfPlotHasItsLetter) {
    for (const char letter : {'A', 'D', 'E', 'F', 'G'}) {
        EXPECT_TRUE(press(OptionPage::plotKind, std::string(1, letter)));
        EXPECT_EQ(session.plotKind, letter);
    }
    EXPECT_TRUE(press(OptionPage::plotKind, "X"));
    EXPECT_EQ(session.plotKind, xyPlot);
}

TEST_F(VisualPages, SpaceIsOfferedWhereThePointsHaveAZ) {
    const Page* const table = tableof(OptionPage::plotKind);
    const auto space = std::find_if(table->items.begin(), table->items.end(),
                                    [](const Item& one) { return one.letter == 'Z'; });
    ASSERT_NE(space, table->items.end());
    EXPECT_TRUE(space->offered());
    sets({{"1x2", "2x4"}});
    EXPECT_FALSE(space->offered());
}

TEST_F(VisualPages, CurvesAreChosenForOneSetOrAll) {
    EXPECT_EQ(item(OptionPage::curveAndScale, 'C'), "C...Curve Type For XY Plot (Point / Line) = Point");
    EXPECT_TRUE(press(OptionPage::curveAndScale, "CCXX")) << "set 2";
    EXPECT_EQ(curvekindof(1), pointCurve);
    EXPECT_EQ(curvekindof(2), lineCurve);
    EXPECT_EQ(item(OptionPage::curveAndScale, 'C'), "C...Curve Type For XY Plot (Point / Line) = ...");
    press(OptionPage::curveAndScale, "CAXX");
    EXPECT_EQ(curvekindof(1), lineCurve);
    EXPECT_EQ(curvekindof(2), lineCurve);
    press(OptionPage::curveAndScale, "CAAXX");
    EXPECT_EQ(curvekindof(2), pointCurve) << "lines, both, and points again";
}

TEST_F(VisualPages, ThePageTellsWhatIsInForce) {
    session.plotKind = pie3D;
    session.xyscale = 5;
    EXPECT_EQ(item(OptionPage::curveAndScale, 'P'), "P...Plot Type = Pie 3D");
    EXPECT_EQ(item(OptionPage::curveAndScale, 'S'), "S...Scale Type For XY Plot = Arrhenius-X");
    EXPECT_EQ(item(OptionPage::scaleKind, 'X'), "X...Arrhenius-X ... X-Scale -1/X, Y-Scale Log [Active]");
    EXPECT_EQ(item(OptionPage::scaleKind, 'L'), "L...Log-Log ... X-Scale Log, Y-Scale Log");
    EXPECT_EQ(item(OptionPage::scaleKind, 'M'), "M...Log-X ... Y-Scale Linear");
    EXPECT_EQ(item(OptionPage::plotKind, 'A'), "A...Bar Stacked");
    EXPECT_EQ(item(OptionPage::plotKind, 'D'), "D...Bar Side-By-Side");
}

TEST_F(VisualPages, TheViewOfSpaceHasLimitsRangeAndAngles) {
    {
        ScriptedPlatform shown;
        shown.expectkey("", 'J');
        shown.expectnumber("", "-2");
        shown.expectkey("", 'K');
        shown.expectnumber("", "8");
        shown.expectkey("", 'R');
        shown.expectnumber("", "5.5");
        shown.expectkey("", 'T');
        shown.expectnumber("", "60");
        shown.expectkey("", 'V');
        shown.expectnumber("", "10");
        shown.expectkey("", 'A');
        EXPECT_TRUE(optionpage(OptionPage::plot3D));
    }
    EXPECT_EQ(session.zLimitLow, -2);
    EXPECT_EQ(session.zLimitHigh, 8);
    EXPECT_EQ(session.rangeLimit, 5.5);
    EXPECT_EQ(session.viewTurn, 60);
    EXPECT_EQ(session.viewTilt, 10);
    EXPECT_EQ(session.plotKind, spacePlot);
}

TEST_F(VisualPages, LeavingTheViewOfSpacePutsEverythingBack) {
    session.zLimitLow = 1;
    {
        ScriptedPlatform shown;
        shown.expectkey("", 'J');
        shown.expectnumber("", "-2");
        shown.expectkey("", 'X');
        EXPECT_FALSE(optionpage(OptionPage::plot3D));
    }
    EXPECT_EQ(session.zLimitLow, 1);
    EXPECT_EQ(session.plotKind, xyPlot);
}

TEST_F(VisualPages, ALowerLimitAboveTheUpperIsRefused) {
    session.zLimitHigh = 5;
    ScriptedPlatform shown;
    shown.expectkey("", 'J');
    shown.expectnumber("", "6");
    shown.expectmessage("Lower >= Upper");
    shown.expectkey("", 'X');
    EXPECT_FALSE(optionpage(OptionPage::plot3D));
    EXPECT_EQ(session.zLimitLow, 0);
}

TEST_F(VisualPages, EveryItemHasWordsInEveryLanguage) {
    for (const Language& language : languages()) {
        const InLanguage in(language.name);
        for (const OptionPage page : visualPages) {
            ScriptedPlatform shown;
            shown.expectmenu("", 0);
            EXPECT_FALSE(optionpage(page));
            SCOPED_TRACE(language.name);
            EXPECT_FALSE(shown.shown.back().header.empty());
            for (const std::string& text : shown.shown.back().items) {
                EXPECT_TRUE(itempickable(text)) << text;
                EXPECT_NE(text[4], ' ') << text;
                EXPECT_EQ(text.find_first_of("_{}"), std::string::npos) << text;
                EXPECT_EQ(text.find("  "), std::string::npos) << text;
            }
        }
    }
}

TEST_F(VisualPages, PlotTypeOpensThePage) {
    ScriptedPlatform shown;
    shown.expectkey("", 'X');
    session.commandNo = 13;
    session.commandButton = 1;
    commanddispatch();
    ASSERT_FALSE(shown.shown.empty());
    EXPECT_TRUE(shown.shown[0].items[0].starts_with("C...Curve Type")) << shown.shown[0].items[0];
}
