#include "shell/helppages.h"

#include <gtest/gtest.h>

#include <set>

#include "data/cell.h"
#include "support/freshsession.h"
#include "support/inlanguage.h"

namespace {

TEST(HelpPages, EveryPageHasATitleAndParts) {
    const FreshSession fresh(lifeSide);
    std::set<std::string> titles;
    for (const HelpPage& page : helppages()) {
        EXPECT_FALSE(page.parts.empty()) << page.title;
        EXPECT_TRUE(titles.insert(page.title).second) << page.title;
        for (const HelpPart& part : page.parts) {
            EXPECT_FALSE(part.text.empty()) << page.title;
            EXPECT_EQ(part.kind == HelpKind::entry, !part.term.empty()) << part.text;
        }
    }
    EXPECT_EQ(titles.count("Best Practices Guide"), 1u);
}

TEST(HelpPages, TheCellsOfThePageCanBeRead) {
    const FreshSession fresh(lifeSide);
    int read = 0;
    const auto pages = helppages();
    for (const HelpPart& part : pages.at(2).parts) {
        if (part.kind != HelpKind::entry) continue;
        EXPECT_TRUE(cellsplit(part.term).hasValue) << part.term;
        ++read;
    }
    EXPECT_GE(read, 9);
    EXPECT_EQ(cellsplit("-150x0x4").quantity, 4);
}

TEST(HelpPages, TitlesFollowTheLanguage) {
    const FreshSession fresh(lifeSide);
    const std::string english = helppages().at(3).title;
    const InLanguage here("German");
    EXPECT_NE(helppages().at(3).title, english);
}

TEST(FlowChart, EveryWayLeadsFromABoxToALaterOne) {
    const FreshSession fresh(lifeSide);
    const FlowChart chart = flowchart();
    std::set<int> reached = {0};
    for (const FlowWay& way : chart.ways) {
        ASSERT_GE(way.from, 0);
        ASSERT_LT(way.to, static_cast<int>(chart.boxes.size()));
        EXPECT_LT(way.from, way.to);
        EXPECT_TRUE(chart.boxes[static_cast<std::size_t>(way.from)].question);
        reached.insert(way.to);
    }
    EXPECT_EQ(reached.size(), chart.boxes.size());
}

TEST(FlowChart, NoTwoBoxesShareAPlace) {
    const FreshSession fresh(lifeSide);
    const FlowChart chart = flowchart();
    std::set<std::pair<int, int>> places;
    for (const FlowBox& box : chart.boxes) {
        EXPECT_TRUE(places.insert({box.column, box.row}).second);
        EXPECT_LT(box.column, chart.columns);
        EXPECT_LT(box.row, chart.rows);
    }
}

} // namespace
