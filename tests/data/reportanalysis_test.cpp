#include "data/reportanalysis.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <fstream>
#include <string>
#include <vector>

#include "data/report.h"
#include "shell/calcplot.h"
#include "support/freshsession.h"
#include "support/lifecells.h"
#include "support/scriptedplatform.h"

namespace {

using Lines = std::vector<std::string>;

/// The lines of device 4; the last one ends with its line break.
Lines linesof(std::string_view text) {
    Lines lines;
    for (auto end = text.find(lineBreak); end != text.npos; end = text.find(lineBreak)) {
        lines.emplace_back(text.substr(0, end));
        text.remove_prefix(end + lineBreak.size());
    }
    EXPECT_EQ(text, "") << "a line was left open";
    return lines;
}

class AnalysisReport : public testing::Test {
protected:
    /// The report of a cycle over the grid, from the first block on.
    Lines run() {
        calcplot();
        Lines all = linesof(session.reportBuffer);
        EXPECT_EQ(all.size(), static_cast<std::size_t>(session.reportLine));
        if (all.size() < 2) return {};
        return {all.begin() + 2, all.end()};
    }
    /// Number of the first line that begins with the text, from 0; the number of lines when none does.
    static std::size_t at(const Lines& lines, std::string_view start, std::size_t from = 0) {
        const auto begins = [start](const std::string& line) { return line.starts_with(start); };
        return static_cast<std::size_t>(
            std::find_if(lines.begin() + static_cast<std::ptrdiff_t>(from), lines.end(), begins)
            - lines.begin());
    }
    static bool has(const Lines& lines, std::string_view start) { return at(lines, start) < lines.size(); }
    static std::string line(const Lines& lines, std::string_view start) {
        const std::size_t number = at(lines, start);
        return number < lines.size() ? lines[number] : "no line " + std::string(start);
    }
    /// Each start is found behind the one before it.
    static void expectorder(const Lines& lines, const std::vector<std::string_view>& starts) {
        std::size_t from = 0;
        for (const std::string_view start : starts) {
            const std::size_t found = at(lines, start, from);
            ASSERT_LT(found, lines.size()) << start;
            from = found + 1;
        }
    }
    static void twofailures(int set) { lifecells(set, {"100", "200"}); }

    FreshSession fresh{lifeSide};
    ScriptedPlatform platform;
};

/// Where a text stands in a line, counted from 1; 0 when it does not.
std::size_t columnof(const std::string& line, std::string_view text) {
    const auto found = line.find(text);
    return found == std::string::npos ? 0 : found + 1;
}

// ---- one set

// r is .89431550 in double precision and .89431548 as the single that the session keeps of it.
TEST_F(AnalysisReport, OfTheRemissionTimesIsTheGoldenPage) {
    lifecells(1, leukemiaCells);
    calcplot();
    std::ifstream file(VANEX_TESTS_DIR "/golden/report_leukemia.txt");
    Lines golden;
    for (std::string text; std::getline(file, text);) {
        if (const auto mark = text.find("@VERSION@"); mark != text.npos) text.replace(mark, 9, VANEX_VERSION);
        golden.push_back(text);
    }
    ASSERT_FALSE(golden.empty());
    EXPECT_EQ(linesof(session.reportBuffer), golden);
}

TEST_F(AnalysisReport, HasItsBlocksInOrder) {
    lifecells(1, leukemiaCells);
    expectorder(run(), {"Analysis Report (Life)", "File = ", "By - Set 1", "Weibull",
                        "Correlation(r)=", "Method=", "Mean (Occurrence Sum)=", "Total =", "   B%"});
}

TEST_F(AnalysisReport, NamesTheFileAndTheLineOfHowMany) {
    session.fileName = "pumps.vxw";
    twofailures(1);
    const std::string text = line(run(), "File = pumps.vxw");
    EXPECT_EQ(columnof(text, "(1 Of 1)"), 57u);
}

TEST_F(AnalysisReport, NamesTheSetByItsTitle) {
    session.gridTitles = {"Pumps"};
    twofailures(1);
    const Lines lines = run();
    EXPECT_EQ(lines[at(lines, "By - Set 1") + 1], "Title: Pumps");
}

TEST_F(AnalysisReport, PutsTheDateAtItsColumn) {
    platform.today = "1999-12-31";
    twofailures(1);
    EXPECT_EQ(columnof(line(run(), "By - Set 1"), ": 1999-12-31"), 57u);
}

TEST_F(AnalysisReport, LinesUpTheTableOfBLives) {
    lifecells(1, leukemiaCells);
    const Lines lines = run();
    const std::size_t header = at(lines, "   B%");
    ASSERT_EQ(lines.size(), header + 13);
    EXPECT_EQ(columnof(lines[header], "Median Value"), 15u);
    for (std::size_t row = header + 1; row < lines.size(); ++row) {
        const std::string& text = lines[row];
        ASSERT_GT(text.size(), 14u) << text;
        EXPECT_EQ(text.substr(0, 3), "   ") << text;
        EXPECT_NE(text[3], ' ') << text;
        EXPECT_EQ(text[13], ' ') << text;
        EXPECT_NE(text[14], ' ') << text;
        EXPECT_EQ(text.find(' ', 14), std::string::npos) << text;
    }
}

TEST_F(AnalysisReport, KeepsThePlaceOfTheSignInTheTableOfBLives) {
    session.dist = normal;
    twofailures(1);
    const Lines lines = run();
    const std::size_t header = at(lines, "   B%");
    ASSERT_EQ(lines.size(), header + 13);
    const std::string& lowest = lines[header + 1];
    EXPECT_EQ(columnof(lowest, "-"), 14u) << lowest;
    EXPECT_NE(lowest[14], ' ');
}

TEST_F(AnalysisReport, NamesTheParametersOfTheFamily) {
    constexpr std::string_view families[][3] = {{"Weibull ", "Eta=", "Beta="},
                                                {"LogNormal ", "Med=", "SigF="},
                                                {"Normal ", "Mu=", "Sig="},
                                                {"Gumbel- ", "Xi=", "Del="}};
    twofailures(1);
    for (int16_t family = weibull; family <= gumbel; ++family) {
        session.dist = family;
        const auto& [name, first, second] = families[family - 1];
        const std::string text = line(run(), name);
        EXPECT_EQ(columnof(text, first), 25u) << text;
        EXPECT_EQ(columnof(text, second), 50u) << text;
    }
}

// ---- a slope that is known

TEST_F(AnalysisReport, NamesTheFixedSlope) {
    constexpr std::pair<float, std::string_view> slopes[] = {
        {1.0f, "Weibull (Exponential) "}, {2.0f, "Weibull (Rayleigh) "}, {3.0f, "Weibull (Weibayes) "}};
    twofailures(1);
    for (const auto& [slope, name] : slopes) {
        session.fixedSlope = slope;
        const std::string text = line(run(), name);
        EXPECT_TRUE(text.ends_with("Beta=" + std::to_string(static_cast<int>(slope)))) << text;
    }
}

// ---- a threshold

TEST_F(AnalysisReport, TellsTheThresholdInForce) {
    twofailures(1);
    session.t0(1) = 50;
    const Lines lines = run();
    expectorder(lines, {"Total =", "  t0=50", "   B%"});
    EXPECT_EQ(line(lines, "  t0="), "  t0=50");
    EXPECT_TRUE(line(lines, "Method=").starts_with("Method=rr/t0 "));
}

TEST_F(AnalysisReport, TellsThatTheScaleStaysAsRecorded) {
    session.scaleAsRecorded = 1;
    twofailures(1);
    session.t0(1) = -50;
    EXPECT_EQ(line(run(), "  t0="), "  t0=-50 (Scale As Recorded)");
}

TEST_F(AnalysisReport, SaysNothingOfAThresholdOfZero) {
    twofailures(1);
    EXPECT_FALSE(has(run(), "  t0="));
}

// Data moved up by 50 with a threshold of 50 have the B lives of the data alone, moved up by 50.
TEST_F(AnalysisReport, AddsTheThresholdToEachBLife) {
    lifecells(1, {"100", "200"});
    const Lines alone = run();
    lifecells(1, {"150", "250"});
    session.t0(1) = 50;
    const Lines moved = run();
    const auto fifty = [](const Lines& lines) { return std::stod(line(lines, "   50 ").substr(13)); };
    EXPECT_NEAR(fifty(moved), fifty(alone) + 50, .001);
}

// ---- hidden sets, and sets without a line

TEST_F(AnalysisReport, OfAHiddenSetEndsWithItsNotice) {
    twofailures(1);
    session.lineHide(1) = 1;
    const Lines lines = run();
    ASSERT_FALSE(lines.empty());
    EXPECT_EQ(lines.back(), "Set Not Active (Zoom / Hide = Yes)");
    EXPECT_TRUE(has(lines, "Analysis Report"));
    EXPECT_FALSE(has(lines, "By - Set"));
    EXPECT_FALSE(has(lines, "Total ="));
}

TEST_F(AnalysisReport, OfASetWithoutALineCarriesItsWarning) {
    lifecells(1, {"100", "-200"});
    platform.expectmessage("Set 1: Not Enough Data");
    const Lines lines = run();
    expectorder(lines, {"By - Set 1 !!", "!! Set 1: Not Enough Data",
                        "Not Fit: Total =2  Occurrence=1 (Susp=1 Disc=0 Intv=0)"});
    EXPECT_FALSE(has(lines, "Weibull"));
    EXPECT_FALSE(has(lines, "Correlation"));
    EXPECT_FALSE(has(lines, "   B%"));
}

TEST_F(AnalysisReport, OfAWarningStandsInItsOwnSetAlone) {
    lifecells(1, {"100", "-200"});
    twofailures(2);
    platform.expectmessage("Set 1: Not Enough Data");
    const Lines lines = run();
    EXPECT_EQ(line(lines, "By - Set 2").find("!!"), std::string::npos);
    EXPECT_NE(line(lines, "By - Set 1").find("!!"), std::string::npos);
}

TEST_F(AnalysisReport, LeavesTheMeanOutWhereNothingOccurred) {
    lifecells(1, {"-100", "-200"});
    platform.expectmessage("Set 1: Not Enough Data");
    EXPECT_FALSE(has(run(), "Mean"));
}

// ---- many sets

TEST_F(AnalysisReport, OfManySetsHasABlockForEachAndThenTheSummary) {
    session.gridTitles = {"Pumps", "", "Fans"};
    twofailures(1);
    lifecells(2, {"100", "200", "-300x0x4"});
    lifecells(3, {"10", "20"});
    const Lines lines = run();
    expectorder(lines, {"Analysis Report",
                        "By - Set 1",
                        "Title: Pumps",
                        "Analysis Report",
                        "By - Set 2",
                        "Analysis Report",
                        "By - Set 3",
                        "Title: Fans",
                        "Summary Report",
                        "File = None",
                        "Set Quantity = 3  Total =10",
                        "       Set: Pumps",
                        "       File = None",
                        "       Label: rr",
                        "       Set: 2",
                        "       Set: Fans",
                        "         Occurrence Total =6",
                        "Results:",
                        "Total Item Quantity = 10",
                        "Total Event Quantity = 6"});
    EXPECT_EQ(columnof(lines[at(lines, "         Occurrence")], "Time Total ="), 44u);
}

TEST_F(AnalysisReport, OfManySetsSumsTheirTimes) {
    twofailures(1);
    lifecells(2, {"100", "200", "-300x0x4"});
    EXPECT_TRUE(line(run(), "         Occurrence").ends_with("Time Total =1800"));
}

TEST_F(AnalysisReport, OfManySetsCountsEachLine) {
    twofailures(1);
    twofailures(2);
    const Lines lines = run();
    const std::size_t first = at(lines, "File = ");
    EXPECT_EQ(columnof(lines[first], "(1 Of 2)"), 57u);
    EXPECT_EQ(columnof(lines[at(lines, "File = ", first + 1)], "(2 Of 2)"), 57u);
    const std::size_t row = at(lines, "       Set");
    ASSERT_LT(row + 3, lines.size());
    EXPECT_EQ(columnof(lines[row], "Set"), 8u);
    EXPECT_EQ(columnof(lines[row], "(1 Of 2)"), 57u);
    EXPECT_EQ(columnof(lines[row + 3], "(2 Of 2)"), 57u);
}

TEST_F(AnalysisReport, OfOneSetHasNoSummary) {
    twofailures(1);
    EXPECT_FALSE(has(run(), "Summary Report"));
}

TEST_F(AnalysisReport, OfASummaryWithoutSetsIsAMessage) {
    platform.expectmessage("iii= Set = 0");
    reportstart();
    reportsummary();
    EXPECT_EQ(session.reportBuffer, "");
}

TEST_F(AnalysisReport, DoesNotChangeTheParametersInTheRegisters) {
    twofailures(1);
    calcplot();
    session.eta = 3;
    session.beta = 4;
    session.ud = 5;
    reportanalysis();
    EXPECT_EQ(session.eta, 3);
    EXPECT_EQ(session.beta, 4);
    EXPECT_EQ(session.ud, 5);
}

} // namespace
