#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

/// A block of the page: its mark and its text.
struct Block {
    std::string mark, text;
};

std::vector<Block> blocksof(const fs::path& page) {
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

/// The examples of the scripting page, run as they stand there.
TEST(ScriptingPage, EveryExampleRunsAsWritten) {
    std::string name = (fs::temp_directory_path() / "page-XXXXXX").string();
    const fs::path folder = mkdtemp(name.data());
    const auto blocks = blocksof(fs::path(VANEX_TESTS_DIR).parent_path() / "docs" / "scripting.md");
    int examples = 0;
    for (const Block& block : blocks) {
        if (block.text.starts_with("17.88")) std::ofstream(folder / "bearings.txt") << block.text;
        if (block.text.starts_with("WV-SCRIPT")) std::ofstream(folder / "job.txt") << block.text;
        if (!block.mark.starts_with("sh")) continue;
        ++examples;
        const std::string program = fs::path(VANEXC).parent_path().string();
        const std::string command = "cd '" + folder.string() + "' && HOME='" + folder.string() + "' PATH=\""
                                    + program + ":$PATH\" LC_ALL=C sh -c \""
                                    + block.text.substr(0, block.text.size() - 1) + "\" >out 2>err";
        const int status = std::system(command.c_str());
        const int expected = block.mark.find("status=1") != std::string::npos   ? 1
                             : block.mark.find("status=2") != std::string::npos ? 2
                                                                                : 0;
        EXPECT_EQ(WEXITSTATUS(status), expected) << block.text;
    }
    EXPECT_GE(examples, 9);
    EXPECT_GT(fs::file_size(folder / "plot.svg"), 1000u);
    EXPECT_GT(fs::file_size(folder / "blives.txt"), 10u);
    std::string report;
    std::getline(std::ifstream(folder / "report.txt"), report, '\0');
    EXPECT_NE(report.find("Optimum"), std::string::npos) << report;
    fs::remove_all(folder);
}

} // namespace
