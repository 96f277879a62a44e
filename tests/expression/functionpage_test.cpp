#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "data/textpieces.h"
#include "expression/functionfile.h"
#include "expression/functionfixture.h"
#include "expression/tokens.h"
#include "support/freshsession.h"

namespace {

/// The lines of the blocks with a mark, as they stand on the page.
std::vector<std::string> linesofblocks(std::string_view mark) {
    std::vector<std::string> lines;
    std::ifstream file(std::filesystem::path(VANEX_TESTS_DIR).parent_path() / "docs" / "functions.md");
    bool inside = false, wanted = false;
    for (std::string line; std::getline(file, line);) {
        if (line.starts_with("```")) {
            inside = !inside;
            wanted = inside && line.substr(3) == mark;
        } else if (wanted) {
            lines.push_back(line);
        }
    }
    return lines;
}

std::vector<double> numbersof(const std::string& text) {
    std::istringstream stream(text);
    std::vector<double> numbers;
    for (std::string word; stream >> word;) numbers.push_back(std::stod(word));
    return numbers;
}

/// The rows of an example; one at x = 0 when it names none.
std::vector<FunctionRow> rowsofexample(std::string& text) {
    const std::size_t at = text.find(" x = ");
    const auto xs = at == std::string::npos ? std::vector<double>{0} : numbersof(text.substr(at + 5));
    if (at != std::string::npos) text.resize(at);
    std::vector<FunctionRow> rows;
    for (const double x : xs) {
        FunctionRow row;
        row.x = x;
        row.lastX = xs.back();
        row.row = static_cast<double>(rows.size() + 1);
        row.rows = static_cast<double>(xs.size());
        rows.push_back(row);
    }
    return rows;
}

TEST(FunctionsPage, EveryExampleGivesWhatStandsBesideIt) {
    int examples = 0;
    for (const std::string& line : linesofblocks("function")) {
        const std::size_t equals = line.rfind('=');
        ASSERT_NE(equals, std::string::npos) << line;
        const auto expected = numbersof(line.substr(equals + 1));
        std::string text = line.substr(0, equals);
        const auto rows = rowsofexample(text);
        const auto got = valuesof(text, rows);
        ASSERT_EQ(got.size(), expected.size()) << line;
        for (std::size_t i = 0; i < got.size(); ++i)
            EXPECT_NEAR(got[i], expected[i], 1e-7 * std::fabs(expected[i])) << line;
        ++examples;
    }
    EXPECT_GE(examples, 35);
}

TEST(FunctionsPage, NamesEveryTokenAndItsPair) {
    std::ifstream file(std::filesystem::path(VANEX_TESTS_DIR).parent_path() / "docs" / "functions.md");
    std::string page;
    std::getline(file, page, '\0');
    for (const Token& token : tokens()) {
        const bool column = token.kind == TokenKind::column;
        if (column && token.code != firstColumn && token.code != 99) continue;
        EXPECT_NE(page.find("`" + std::string(token.spelling) + "`"), std::string::npos) << token.spelling;
        EXPECT_NE(page.find(std::string(token.text)), std::string::npos) << token.text;
    }
}

TEST(FunctionsPage, TheFileOnThePageIsTheFileThatIsWritten) {
    const FreshSession fresh(visualSide);
    std::string text;
    for (const std::string& line : linesofblocks("")) text += line + "\r\n";
    ASSERT_TRUE(functionfiletake(text));
    EXPECT_EQ(session.fcode, "001301114701"
                             "89");
    EXPECT_EQ(session.fxhigh, 10);
    EXPECT_EQ(functionfiletext(), text);
}

} // namespace
