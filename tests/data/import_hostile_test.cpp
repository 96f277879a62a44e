// What the world really sends: exports of spreadsheets, and bytes that are no text at all. None may crash,
// hang, or take the session with it.

#include <gtest/gtest.h>

#include <chrono>
#include <random>

#include "data/textimport.h"
#include "shell/calcplot.h"
#include "support/freshsession.h"

namespace {

using Column = std::vector<std::string>;
using Columns = std::vector<Column>;

class ImportHostile : public testing::TestWithParam<Side> {
protected:
    ImportHostile() : fresh(GetParam()) { session.noPrompt = 1; }

    static TextRead import(std::string text) {
        session.msg = std::move(text);
        return textimport(TextFrom::text);
    }
    /// Every form of the side reads the text, or leaves the session as it was; quadratic work would be seen.
    void everyform(const std::string& text) {
        const auto start = std::chrono::steady_clock::now();
        for (const char* form :
             {"", "A2", "B1", "B5", "C", "D", "E", "F", "J1", "K1", "W", "M3", "N", "P", "Q", "C1", "C4"}) {
            session.formatWanted = form;
            session.gridCells = {{"1", "2"}};
            if (import(text) != TextRead::read)
                EXPECT_EQ(session.gridCells, Columns({{"1", "2"}})) << form;
            else
                EXPECT_LE(session.gridCells.size(), 25u) << form;
        }
        const std::chrono::duration<double> seconds = std::chrono::steady_clock::now() - start;
        EXPECT_LT(seconds.count(), 120) << "linear work takes a small part of it, even under a sanitizer";
    }

    FreshSession fresh;
};

std::string repeated(std::string_view part, std::size_t count) {
    std::string text;
    text.reserve(part.size() * count);
    for (std::size_t i = 0; i < count; ++i) text += part;
    return text;
}

} // namespace

TEST_P(ImportHostile, AMillionRandomBytes) {
    std::mt19937 random(20240229);
    std::string text(1000000, '\0');
    for (char& c : text) c = static_cast<char>(random());
    everyform(text);
}

TEST_P(ImportHostile, AMillionBytesOfTheMarksThatMeanSomething) {
    constexpr std::string_view marks = "0159.,;\t \"\"\r\n+-<>x*_@#EF";
    std::mt19937 random(7);
    std::string text(1000000, '\0');
    for (char& c : text) c = marks[random() % marks.size()];
    session.decimalWanted = ".";
    everyform(text);
}

TEST_P(ImportHostile, OneLineOfFiftyMegabytes) {
    import("5_" + repeated(",a", 25 << 20));
    EXPECT_EQ(session.gridCells, Columns({{"5_" + repeated(",a", 25 << 20)}}));
    for (const char* part : {"7", " ", "\t", "\"", ",", ";", "\r", "1,", ". "}) {
        session.decimalWanted = ".";
        session.gridCells.clear();
        import("1" + repeated(part, 5 << 20) + "\n2");
        EXPECT_FALSE(session.gridCells.empty()) << part;
    }
}

TEST_P(ImportHostile, AMillionColumns) {
    everyform(repeated("1\t", 1000000) + "\n" + repeated("2 ", 1000000));
}

TEST_P(ImportHostile, QuotesThatAreNeverClosed) {
    everyform("1\n" + repeated("\t\"a\"\"", 200000));
    everyform(repeated("\" \"\" ", 200000) + "1");
}

TEST_P(ImportHostile, NulsAndALoneQuoteAtTheEnd) {
    using namespace std::string_literals;
    ASSERT_EQ(import("10 20\n30\0 40\n\0\0\n50 60\n\""s), TextRead::read);
    session.formatWanted = "A1";
    everyform("\0\0\0001\0\0"s);
}

TEST_P(ImportHostile, TheCycleTakesWhateverCame) {
    for (const char* text : {"? 1\n2\n", "1x1x1x1x1x1\n>\n<\n+\n", "1e999\n-1e999\n5\n", "@\n@@1\n1@2\n"}) {
        session.formatWanted = GetParam() == lifeSide ? "A1" : "A3";
        import(text);
        calcplot();
    }
}

INSTANTIATE_TEST_SUITE_P(Sides, ImportHostile, testing::Values(lifeSide, visualSide),
                         [](const auto& tested) { return tested.param == lifeSide ? "Life" : "XY"; });

namespace {

class ImportFiles : public testing::Test {
protected:
    ImportFiles() { session.noPrompt = 1; }
    static Columns read(std::string text, const char* form) {
        session.formatWanted = form;
        session.msg = std::move(text);
        EXPECT_EQ(textimport(TextFrom::text), TextRead::read) << session.msg;
        return session.gridCells;
    }
    FreshSession fresh{lifeSide};
};

} // namespace

TEST_F(ImportFiles, CsvWithQuotesAndCommasInThem) {
    EXPECT_EQ(read("\"Hours\",\"Quantity\",\"Status\",\"Unit\"\r\n\"150.5\",\"2\",\"F\",\"Pump, left\"\r\n"
                   "230,1,S,\"the \"\"old\"\" one\"\r\n",
                   "J2"),
              (Columns{{"150.5x0x2x0_Pump, left", "-230x0x1x0_the \"old\" one"}}));
    EXPECT_EQ(session.gridTitles, Column({"Hours Quantity Status Unit"}));
}

TEST_F(ImportFiles, SemicolonsWithDecimalCommas) {
    EXPECT_EQ(read("Stunden;Anzahl\r\n150,5;2\r\n1.230,25;1\r\n", "B1"),
              (Columns{{"150.5x0x2x0", "1230.25x0x1x0"}}));
}

TEST_F(ImportFiles, TabsOfASpreadsheetWithAHeadingAndAMark) {
    EXPECT_EQ(read("\xEF\xBB\xBFTime to failure\tF/S\r\n150 \tF\r\n230\tS \r\n\r\n310\tF\t\t\r\n", "E"),
              (Columns{{"150", "-230"}, {"310"}}));
}

TEST_F(ImportFiles, LabelsInWindows1252) {
    EXPECT_EQ(read("150;M\xFChle\n230;Caf\xE9 \x80\n", "K1"),
              (Columns{{"150_M\xC3\xBChle", "230_Caf\xC3\xA9 \xE2\x82\xAC"}}));
}

TEST_F(ImportFiles, DatesOfShippingAndReturn) {
    EXPECT_EQ(read("Shipped,Returned,Status\n2023-01-15,2023-03-16,F\n2023-02-01,2024-02-01,S\n", "E"),
              (Columns{{"60", "-365"}}));
}
