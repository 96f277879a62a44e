#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <set>
#include <string>
#include <vector>

#include "options/page.h"
#include "options/pages.h"
#include "platform/headless/headless.h"
#include "session/session.h"
#include "session/settings.h"
#include "shell/languages.h"
#include "shell/prompts.h"
#include "support/freshsession.h"
#include "support/inlanguage.h"
#include "support/scriptedplatform.h"
#include "support/workfolder.h"

namespace {

std::vector<OptionPage> allpages() {
    std::vector<OptionPage> pages;
    for (int i = 0; i <= static_cast<int>(lastPage); ++i) pages.push_back(static_cast<OptionPage>(i));
    return pages;
}

bool isoffered(const Item& item) { return !item.offered || item.offered(); }

/// The pages that are tables and have something to choose; one of the other side has its exit alone.
std::vector<const Page*> tables() {
    std::vector<const Page*> all;
    for (const OptionPage page : allpages()) {
        const Page* const table = tableof(page);
        if (table && std::count_if(table->items.begin(), table->items.end(), isoffered) > 1)
            all.push_back(table);
    }
    return all;
}

std::string titleof(const Page& page) {
    std::string title;
    append(title, page.title);
    return title;
}

char letterof(const Page& page, ItemKind kind) {
    for (const Item& item : page.items)
        if (item.kind == kind) return item.letter;
    return 0;
}

/// Everything that an item of these pages can hold: settings that are kept and those of the data at hand.
std::string everything() {
    std::string text = settingstext();
    for (const Page* const page : tables())
        for (const Item& item : page->items)
            if (item.at) text += itemtext(item) + '\n';
    return text;
}

/// The first line in which two texts differ; empty for none.
std::string difference(const std::string& a, const std::string& b) {
    std::size_t line = 0;
    for (std::size_t i = 0; i < a.size() || i < b.size(); ++i) {
        if (i >= a.size() || i >= b.size() || a[i] != b[i])
            return a.substr(line, a.find('\n', i) - line) + " | " + b.substr(line, b.find('\n', i) - line);
        if (a[i] == '\n') line = i + 1;
    }
    return "";
}

/// A level is asked for where a side of the bounds is picked; a curve, or a change of the data, wants data.
bool asksormore(OptionPage page) {
    constexpr OptionPage all[] = {OptionPage::limitKind, OptionPage::fitKind, OptionPage::extrapolation,
                                  OptionPage::intervalTransform, OptionPage::transform};
    return std::find(std::begin(all), std::end(all), page) != std::end(all);
}

class Pages : public testing::Test {
protected:
    Pages() {
        session.configPath = folder.path("") + "/";
        session.programPath = session.tempPath = session.configPath;
        settingswrite(); // the first write marks the file itself
    }

    /// Text of the item with a letter on the page shown at last.
    std::string lastitem(char letter) const {
        for (const std::string& item : desktop.shown.back().items)
            if (item.front() == letter) return item;
        return "";
    }
    bool press(OptionPage page, char letter, char leave) {
        desktop.expectkey("", letter);
        desktop.expectkey("", leave);
        const bool changed = optionpage(page);
        desktop.verify();
        return changed;
    }

    FreshSession fresh{lifeSide};
    ScriptedPlatform desktop;
    WorkFolder folder;
};

} // namespace

TEST_F(Pages, LettersOfAPageDiffer) {
    for (const Page* const page : tables()) {
        std::set<char> letters;
        for (const Item& item : page->items)
            EXPECT_TRUE(letters.insert(item.letter).second) << titleof(*page) << ": " << item.letter;
        EXPECT_LE(page->items.size(), 51u);
    }
}

TEST_F(Pages, IdentitiesDifferAndAreNegative) {
    std::set<int16_t> identities;
    for (const OptionPage page : allpages()) {
        EXPECT_LT(identityof(page), 0);
        EXPECT_TRUE(identities.insert(identityof(page)).second);
    }
    EXPECT_EQ(identityof(OptionPage::language), -40);
}

TEST_F(Pages, CancelLeavesEverySettingAndNoModeBehind) {
    for (const Page* const page : tables()) {
        SCOPED_TRACE(titleof(*page));
        const std::string before = everything();
        desktop.expectmenu("", 0);
        EXPECT_FALSE(optionpage(page->page));
        desktop.verify();
        EXPECT_EQ(difference(everything(), before), "") << titleof(*page);
        EXPECT_EQ(session.activeMode, 0);
    }
}

TEST_F(Pages, EveryPageEndsWhereNobodyAnswers) {
    HeadlessPlatform nobody;
    const Keep keep{platform};
    platform = &nobody;
    for (const OptionPage page : allpages()) {
        optionpage(page); // one that waited for an answer would never come back
        EXPECT_EQ(session.activeMode, 0) << static_cast<int>(page);
    }
}

TEST_F(Pages, AScriptRunSeesNoPage) {
    session.scriptRequest = "WVW [x]";
    for (const OptionPage page : allpages()) EXPECT_FALSE(optionpage(page));
    session.scriptRequest.clear();
}

TEST_F(Pages, AFlipShowsTheOtherWayAndIsTakenBackByAnExitWithoutTheChange) {
    for (const Page* const page : tables()) {
        const char accept = letterof(*page, ItemKind::accept);
        const char exit = letterof(*page, ItemKind::exit);
        for (const Item& item : page->items) {
            if (item.kind != ItemKind::flip || !isoffered(item) || exit == 0) continue;
            SCOPED_TRACE(titleof(*page) + " " + item.letter);
            const std::string before = everything();
            const std::string text = itemtext(item);
            const bool kept = press(page->page, item.letter, exit);
            EXPECT_NE(lastitem(item.letter), text);
            EXPECT_EQ(kept, accept == 0) << "an exit beside an accepting item takes back";
            if (accept == 0) press(page->page, item.letter, exit);
            EXPECT_EQ(difference(everything(), before), "");
            EXPECT_EQ(itemtext(item), text);
        }
    }
}

TEST_F(Pages, AFlipIsKeptByTheAcceptingItem) {
    for (const Page* const page : tables()) {
        const char accept = letterof(*page, ItemKind::accept);
        for (const Item& item : page->items) {
            if (item.kind != ItemKind::flip || !isoffered(item) || accept == 0) continue;
            SCOPED_TRACE(titleof(*page) + " " + item.letter);
            const std::string before = everything();
            EXPECT_TRUE(press(page->page, item.letter, accept));
            EXPECT_NE(difference(everything(), before), "");
            press(page->page, item.letter, accept);
            EXPECT_EQ(difference(everything(), before), "");
        }
    }
}

TEST_F(Pages, ANumberIsAskedAgainUntilItIsWithinItsLimits) {
    for (const Page* const page : tables())
        for (const Item& item : page->items) {
            if (item.kind != ItemKind::number || !isoffered(item)) continue;
            SCOPED_TRACE(titleof(*page) + " " + item.letter);
            const double number = item.low + (item.whole ? 1 : std::min(1.0, (item.high - item.low) / 2));
            std::string typed;
            append(typed, number);
            desktop.expectkey("", item.letter);
            desktop.expectnumber("", "-1000000000000");
            desktop.expectnumber("", "9e37");
            if (item.whole) desktop.expectnumber("", "1.5");
            desktop.expectnumber("", typed);
            desktop.expectmenu("", 0);
            optionpage(page->page);
            desktop.verify();
            const Place place = item.at(session);
            const double held = std::visit(
                [](auto* value) {
                    if constexpr (std::is_same_v<decltype(value), std::string*>)
                        return 0.0;
                    else
                        return static_cast<double>(*value);
                },
                place);
            EXPECT_NEAR(held * item.scale, number, 1e-5 * std::max(1.0, number));
        }
}

TEST_F(Pages, ANumberRefusedIsAskedAgainWithItsLimits) {
    desktop.expectkey("", 'P');
    desktop.expectnumber("", "101");
    desktop.expectnumber("(0 ... 100)", "50");
    desktop.expectkey("", 'X');
    optionpage(OptionPage::extendedOptions);
}

TEST_F(Pages, ANumberInSinglePrecisionIsOfferedAsItIsShown) {
    session.fixedSlope = 2.7f;
    desktop.expectkey("", 'B');
    desktop.expectnumber("", "2.7");
    desktop.expectkey("", 'A');
    EXPECT_FALSE(optionpage(OptionPage::weibayes));
    EXPECT_EQ(desktop.shown[1].value, "2.7");
    EXPECT_EQ(session.fixedSlope, 2.7f);
}

TEST_F(Pages, ATextIsOfferedForACorrection) {
    session.equationsName = "former";
    desktop.expectkey("", 'A');
    desktop.expecttext("", "former one");
    desktop.expectkey("", '1');
    EXPECT_TRUE(optionpage(OptionPage::analysisEquations));
    EXPECT_EQ(desktop.shown[1].value, "former");
    EXPECT_EQ(session.equationsName, "former one");
}

TEST_F(Pages, ALongListGoesOnWithDigits) {
    std::vector<std::string> entries;
    for (int i = 0; i < 40; ++i) entries.push_back("entry " + std::to_string(i));
    desktop.expectkey("", 'W');
    EXPECT_EQ(choosefrom("list", entries), 22);
    desktop.expectkey("", '2');
    EXPECT_EQ(choosefrom("list", entries), 24);
    desktop.expectkey("", 'X');
    EXPECT_EQ(choosefrom("list", entries), -1);
    EXPECT_EQ(desktop.shown.back().items.size(), 33u);
}

TEST_F(Pages, ACancelledNumberChangesNothing) {
    for (const Page* const page : tables())
        for (const Item& item : page->items) {
            if (item.kind != ItemKind::number || !isoffered(item)) continue;
            const std::string before = everything();
            desktop.expectkey("", item.letter);
            desktop.expectnumber("", std::nullopt);
            desktop.expectmenu("", 0);
            EXPECT_FALSE(optionpage(page->page));
            EXPECT_EQ(difference(everything(), before), "");
        }
}

TEST_F(Pages, APickIsMarkedAtTheNextShowing) {
    for (const Page* const page : tables())
        for (const Item& item : page->items) {
            if (item.kind != ItemKind::pick || asksormore(page->page)) continue;
            SCOPED_TRACE(titleof(*page) + " " + item.letter);
            desktop.expectkey("", item.letter);
            if (!page->list) desktop.expectmenu("", 0);
            optionpage(page->page);
            desktop.expectmenu("", 0);
            optionpage(page->page);
            desktop.verify();
            EXPECT_TRUE(lastitem(item.letter).ends_with("[Active]")) << lastitem(item.letter);
            int marked = 0;
            for (const std::string& text : desktop.shown.back().items) marked += text.ends_with("[Active]");
            // The pick of an input method on the page of the fit methods is a second choice there.
            EXPECT_LE(marked, page->page == OptionPage::fitMethod ? 2 : 1);
        }
}

TEST_F(Pages, EveryItemHasWordsInEveryLanguage) {
    for (const Language& language : languages()) {
        const InLanguage words(language.file);
        for (const Page* const page : tables()) {
            desktop.expectmenu("", 0);
            optionpage(page->page);
            const ScriptedPlatform::Shown& seen = desktop.shown.back();
            SCOPED_TRACE(std::string(language.name) + ": " + titleof(*page));
            EXPECT_FALSE(seen.header.empty());
            EXPECT_EQ(seen.header.find('_'), std::string::npos) << seen.header;
            for (const std::string& text : seen.items) {
                EXPECT_TRUE(itempickable(text)) << text;
                EXPECT_GT(text.size(), 4u) << text;
                EXPECT_NE(text[4], ' ') << text;
                EXPECT_EQ(text.find_first_of("_{}"), std::string::npos) << text;
                EXPECT_EQ(text.find("  "), std::string::npos) << text;
            }
        }
    }
}

TEST_F(Pages, SettingsOfAPageSurviveTheSettingsFile) {
    EXPECT_TRUE(press(OptionPage::pointSymbols, 'H', 'A'));
    EXPECT_TRUE(press(OptionPage::lines, 'L', 'A'));
    EXPECT_TRUE(press(OptionPage::informationDisplay, 'N', 'X'));
    EXPECT_TRUE(press(OptionPage::style, 'F', 'A'));
    const int16_t speed = session.plotspeed;
    EXPECT_LT(speed, 0);
    session.pointHide = session.fitLinesHidden = session.informationDisplay = session.plotspeed = 0;
    ASSERT_TRUE(settingsread());
    EXPECT_EQ(session.pointHide, 1);
    EXPECT_EQ(session.fitLinesHidden, 1);
    EXPECT_EQ(session.informationDisplay, noInformation);
    EXPECT_EQ(session.plotspeed, speed);
}

TEST_F(Pages, AVisitWithoutAChangeWritesNoSettings) {
    std::filesystem::remove(folder.path("VANEX.INI"));
    desktop.expectmenu("", 0);
    optionpage(OptionPage::mainOptions);
    EXPECT_FALSE(folder.has("VANEX.INI"));
}

TEST_F(Pages, AFunctionTakesThePlaceOfTheProbabilityPlotAndGivesItBack) {
    desktop.expectmenu("", 5);
    EXPECT_TRUE(optionpage(OptionPage::functionPlot));
    EXPECT_EQ(session.functionPlot, 'P');
    desktop.expectmenu("", 1);
    EXPECT_TRUE(optionpage(OptionPage::functionPlot));
    EXPECT_EQ(session.functionPlot, 0);
}

TEST_F(Pages, TheOtherSideHasPagesOfItsOwnChoice) {
    chooseside(visualSide);
    for (const Page* const page : tables()) {
        const std::string before = everything();
        desktop.expectmenu("", 0);
        EXPECT_FALSE(optionpage(page->page)) << titleof(*page);
        EXPECT_EQ(difference(everything(), before), "");
    }
    desktop.expectmenu("", 0);
    optionpage(OptionPage::mainOptions);
    for (const std::string& item : desktop.shown.back().items) EXPECT_NE(item.front(), 'C') << item;
}
