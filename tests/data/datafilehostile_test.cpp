// Whatever stands in a data file, the read ends, and the data of the session are either the file's or those
// from before.

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

#include "platform/headless/headless.h"
#include "support/filefixture.h"

namespace {

class HostileFile : public testing::Test {
protected:
    HeadlessPlatform desktop;
    Platform* former = std::exchange(platform, &desktop);
    FreshSession fresh{lifeSide};
    std::vector<std::string> lines;

    HostileFile() {
        std::ifstream in(std::string(VANEX_TESTS_DIR) + "/golden/pumps.w", std::ios::binary);
        lines = linesof({std::istreambuf_iterator<char>(in), {}});
    }
    ~HostileFile() override { platform = former; }

    /// Reads into a session that holds the one point 7, and checks that the data are whole: the file's sets,
    /// or that point.
    FileRead reads(const std::string& text) {
        session = Session{};
        chooseside(lifeSide);
        allocatearrays();
        gridread({{"7"}});
        const FileRead result = readfiletext(text);
        if (result == FileRead::read) {
            EXPECT_EQ(session.gridCells.size(), static_cast<std::size_t>(setcount()));
        } else {
            EXPECT_EQ(session.lastRow, 3);
            EXPECT_EQ(session.gridCells, (std::vector<std::vector<std::string>>{{"7"}}));
            EXPECT_EQ(session.entryX(3, 1), 7);
            EXPECT_EQ(session.n(3), 1);
        }
        return result;
    }
};

TEST_F(HostileFile, AFileCutOffAtAnyLineGivesItsDataOrLeavesThoseFromBefore) {
    const std::size_t dataEnd = lineoftag(lines, "STYLE1");
    for (std::size_t kept = 1; kept < lines.size(); ++kept) {
        SCOPED_TRACE(kept);
        const FileRead result =
            reads(textof({lines.begin(), lines.begin() + static_cast<std::ptrdiff_t>(kept)}));
        EXPECT_EQ(result == FileRead::read,
                  kept >= dataEnd && kept != lineoftag(lines, "PROGRAM_SPECIFIC") + 1);
        if (result == FileRead::read) {
            EXPECT_EQ(session.gridCells[0][1], "-200_S 1");
        }
    }
}

TEST_F(HostileFile, AWrongCountCostsNoMoreThanItsSection) {
    const std::string tags[] = {"STYLE1", "STYLE2",      "LABELSWVW", "SOLCOEF",         "PARAMETERS_DUANE",
                                "COLORS", "PARAMETERS2", "W2()",      "RISKUSAGERATE()", "NORMXD",
                                "DUANEX", "PVEMARKER",   "FITO1",     "PARAMCONF",       "W2(0)"};
    for (const std::string& tag : tags)
        for (const char* count : {"-1", "0", "1e9", "abc", "1E+300", "1.5", ""}) {
            SCOPED_TRACE(tag + ": " + count);
            auto wrong = lines;
            wrong[lineoftag(lines, tag) + 1] = count;
            ASSERT_EQ(reads(textof(wrong)), FileRead::read);
            EXPECT_EQ(session.gridCells[0].size(), 3u);
            // The option list and what stands behind it are read all the same.
            EXPECT_EQ(session.fitMethodSaved, maximumLikelihood);
            if (tag != "LABELSWVW") {
                EXPECT_EQ(session.axisTitleX, "Hours");
            }
            EXPECT_EQ(session.analysisComment, "first run");
        }
}

TEST_F(HostileFile, AWrongCountOfASetLeavesTheDataFromBefore) {
    const std::size_t count = lineoftag(lines, "SET_Pump_1_2_0_0_0_0_0_0_0_0_0_0") + 1;
    for (const char* wrong : {"-1", "0", "2", "4", "1e9", "abc", "1E+300", "2.5", ""})
        for (const std::size_t at : {count, count + 5}) {
            SCOPED_TRACE(wrong);
            auto broken = lines;
            broken[at] = wrong;
            EXPECT_EQ(reads(textof(broken)), FileRead::bad);
            EXPECT_EQ(session.u, -8e32f);
        }
}

TEST_F(HostileFile, ABadDimensionEndsTheRead) {
    const std::size_t first = lineoftag(lines, "DIMENSIONS") + 1;
    const std::pair<std::size_t, const char*> wrong[] = {
        {0, "7"}, {0, "abc"}, {1, "3"},  {2, "0"},   {2, "-3"},  {2, "2.5"}, {2, "1e9"},
        {3, "1"}, {3, "8"},   {8, "-3"}, {8, "1e9"}, {8, "1.5"}, {8, "9"},   {0, ""},
    };
    for (const auto& [at, text] : wrong) {
        SCOPED_TRACE(std::to_string(at) + ": " + text);
        auto broken = lines;
        broken[first + at] = text;
        desktop.messages.clear();
        EXPECT_EQ(reads(textof(broken)), FileRead::bad);
        ASSERT_FALSE(desktop.messages.empty());
        EXPECT_NE(desktop.messages.back().find("Bad Input File"), std::string::npos);
    }
}

TEST_F(HostileFile, SectionsOutOfOrderAreReadFromTheFirstOnAndEndNothing) {
    const auto comment = static_cast<std::ptrdiff_t>(lineoftag(lines, "ANALYSISCOMMENT"));
    const auto fits = static_cast<std::ptrdiff_t>(lineoftag(lines, "CI()"));
    auto swapped = lines;
    // The comment in front of the levels: these come too late and are passed over.
    std::rotate(swapped.begin() + fits, swapped.begin() + comment, swapped.begin() + comment + 3);
    ASSERT_EQ(reads(textof(swapped)), FileRead::read);
    EXPECT_EQ(session.analysisComment, "first run");
    EXPECT_EQ(session.CI(1), 0);

    auto doubled = lines;
    doubled.insert(doubled.begin() + comment + 3, {"ANALYSISCOMMENT", "1", "second"});
    ASSERT_EQ(reads(textof(doubled)), FileRead::read);
    EXPECT_EQ(session.analysisComment, "first run");
}

TEST_F(HostileFile, ASectionOfALaterVersionIsPassedOver) {
    auto newer = lines;
    const auto at = static_cast<std::ptrdiff_t>(lineoftag(lines, "COLORS"));
    newer.insert(newer.begin() + at, {"NEWTABLE()", "3", "1", "text", "3"});
    ASSERT_EQ(reads(textof(newer)), FileRead::read);
    EXPECT_EQ(session.analysisComment, "first run");
    EXPECT_EQ(session.LOGLYKMLE(1), -21.0625);
}

TEST_F(HostileFile, ATextThatReadsLikeATagIsText) {
    auto tagged = lines;
    const std::size_t labels = lineoftag(lines, "LABELSWVW") + 2;
    tagged[labels] = "COLORS";
    tagged[labels + 2] = "PROGRAM_SPECIFIC";
    ASSERT_EQ(reads(textof(tagged)), FileRead::read);
    EXPECT_EQ(session.titleWanted, "COLORS");
    EXPECT_EQ(session.axisTitleX, "PROGRAM_SPECIFIC");
    EXPECT_EQ(session.fitMethodSaved, maximumLikelihood);
}

TEST_F(HostileFile, LinesOfAnyLengthAndBytesAreRead) {
    const std::string million(1000000, '_');
    for (std::size_t at = 1; at < lines.size(); at += 7) {
        SCOPED_TRACE(lines[at]);
        for (const std::string& noise : {million, std::string(3, '\0') + "\xE4\xFF" + std::string(50, '9')}) {
            auto broken = lines;
            broken[at] = noise;
            session.gridCells = {{"the data before"}};
            const bool read = reads(textof(broken)) == FileRead::read;
            EXPECT_EQ(session.gridCells == decltype(session.gridCells){{"the data before"}}, !read);
        }
    }
}

TEST_F(HostileFile, EveryLineEndServes) {
    for (const char* end : {"\n", "\r", "\r\n"}) {
        std::string text;
        for (const std::string& line : lines) (text += line) += end;
        ASSERT_EQ(reads(text), FileRead::read);
        EXPECT_EQ(session.gridCells[0], (std::vector<std::string>{"150", "-200_S 1", "310.5x0x2"}));
    }
}

TEST_F(HostileFile, WesternBytesAreReadAsLetters) {
    auto western = lines;
    western[lineoftag(lines, "ANALYSISCOMMENT") + 2] = "K\xFC"
                                                       "hler";
    ASSERT_EQ(reads(textof(western)), FileRead::read);
    EXPECT_EQ(session.analysisComment, "K\xC3\xBChler");
}

TEST_F(HostileFile, NumbersBeyondEveryScaleBecomeNoPointOfTheirOwn) {
    for (const char* x : {"1E+300", "nan", "inf", "-inf", "1E-999", "0x10", "--5"}) {
        SCOPED_TRACE(x);
        ASSERT_EQ(reads(lifehead(1, std::string("SET_A\r\n1\r\n") + x + " 0 1 0\r\n")), FileRead::read);
        EXPECT_EQ(session.X(3, 1), 0);
    }
    for (const char* reserved : {"-9.123E+32", "-8E+32"}) {
        SCOPED_TRACE(reserved);
        ASSERT_EQ(reads(lifehead(1, std::string("SET_A\r\n2\r\n5 0 1 0\r\n") + reserved + " 0 1 0\r\n")),
                  FileRead::read);
        EXPECT_EQ(session.n(3), 1);
    }
}

TEST_F(HostileFile, TheLongestSetIsNoLongerThanItsLines) {
    EXPECT_EQ(longestset(textof(lines)), 3u);
    EXPECT_EQ(longestset(lifehead(1, "SET_A\r\n1000000000\r\n1 0 1 0\r\n2 0 1 0\r\n")), 2u);
    EXPECT_EQ(longestset("<P>SET_A</P>\r\n<P>2</P>\r\n<P>1 0 1 0</P>\r\n<P>2 0 1 0</P>\r\n<P>STYLE1</P>\r\n"),
              2u);
    EXPECT_EQ(longestset("SET_A\r-1\rSET_B\r1\r5"), 1u);
    EXPECT_EQ(longestset(""), 0u);
}

} // namespace
