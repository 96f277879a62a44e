#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <set>
#include <string>
#include <vector>

#include "data/importtable.h"
#include "data/textimport.h"
#include "support/freshsession.h"

namespace {

struct Block {
    std::string mark, text;
};

std::vector<Block> blocksof(const std::filesystem::path& page) {
    std::vector<Block> blocks;
    std::ifstream file(page);
    bool inside = false;
    for (std::string line; std::getline(file, line);) {
        if (line.starts_with("```")) {
            if (!inside) blocks.push_back({line.substr(3), ""});
            inside = !inside;
        } else if (inside) {
            blocks.back().text += line + "\n";
        }
    }
    return blocks;
}

/// The grid as the page shows it.
std::string gridtext() {
    std::string text;
    for (const auto& column : session.gridCells) {
        for (std::size_t i = 0; i < column.size(); ++i) text += (i > 0 ? " | " : "") + column[i];
        text += "\n";
    }
    return text;
}

/// The examples of the page, read as they stand there.
TEST(ImportPage, EveryExampleGivesTheCellsThatItShows) {
    const auto blocks = blocksof(std::filesystem::path(VANEX_TESTS_DIR).parent_path() / "docs" / "import.md");
    std::set<std::string> shown;
    for (std::size_t i = 0; i + 1 < blocks.size(); i += 2) {
        ASSERT_TRUE(blocks[i].mark.starts_with("text ")) << blocks[i].mark;
        ASSERT_EQ(blocks[i + 1].mark, "cells");
        const std::string choice = blocks[i].mark.substr(5);
        FreshSession fresh(choice[0] == 'W' ? lifeSide : visualSide);
        session.noPrompt = 1;
        session.formatWanted = choice.substr(2);
        session.msg = blocks[i].text;
        ASSERT_EQ(textimport(TextFrom::text), TextRead::read) << choice;
        EXPECT_EQ(gridtext(), blocks[i + 1].text) << choice;
        shown.insert(choice);
    }
    for (const Side side : {lifeSide, visualSide})
        for (const ImportLetter& letter : importletters(side))
            for (const ImportForm& form : letter.forms) {
                const std::string choice = (side == lifeSide ? "W " : "V ") + importcode({&letter, &form});
                EXPECT_TRUE(shown.contains(choice)) << choice << " has no example";
            }
}

} // namespace
