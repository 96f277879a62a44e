// The page about files and the tables of the program tell the same.

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "data/datafileoptions.h"
#include "data/datafilesections.h"

namespace {

/// The first cells of the rows of the page's tables that stand behind a heading.
std::vector<std::vector<std::string>> rowsbehind(const std::string& heading) {
    std::ifstream in(std::string(VANEX_TESTS_DIR) + "/../docs/files.md");
    std::vector<std::vector<std::string>> rows;
    bool within = false;
    for (std::string line; std::getline(in, line);) {
        if (line.starts_with("## ")) within = line == "## " + heading;
        if (!within || !line.starts_with("| ") || line.starts_with("| Tag") || line.starts_with("| #"))
            continue;
        std::vector<std::string> cells;
        for (std::size_t at = 2; at < line.size();) {
            const auto end = std::min(line.find(" |", at), line.size());
            cells.push_back(line.substr(at, end - at));
            at = end + 3;
        }
        rows.push_back(cells);
    }
    return rows;
}

TEST(FilesPage, NamesEverySectionInTheOrderOfTheFile) {
    const auto rows = rowsbehind("Sections");
    const auto sections = filesections();
    ASSERT_EQ(rows.size(), sections.size());
    for (std::size_t i = 0; i < rows.size(); ++i) {
        EXPECT_EQ(rows[i][0], "`" + std::string(sections[i].tag) + "`");
        EXPECT_EQ(rows[i][2].starts_with("read only"), sections[i].readerOnly) << rows[i][0];
        EXPECT_EQ(rows[i][1].ends_with("of groups"), sections[i].countsGroups && !sections[i].items.empty());
    }
}

TEST(FilesPage, NamesEveryOptionWithItsPositionAndKind) {
    constexpr const char* kinds[] = {"num", "r4", "r8", "str"};
    const auto rows = rowsbehind("Option list");
    const auto fields = programfields();
    ASSERT_EQ(rows.size(), fields.size());
    int before = 0;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        EXPECT_EQ(rows[i][0], std::to_string(fields[i].position));
        EXPECT_EQ(rows[i][1], "`" + std::string(fields[i].name) + "`");
        EXPECT_EQ(rows[i][2], kinds[static_cast<int>(fields[i].kind)]) << rows[i][1];
        EXPECT_GT(fields[i].position, before);
        before = fields[i].position;
    }
    EXPECT_LE(before, programCount);
}

} // namespace
