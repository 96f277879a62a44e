#include "data/report.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

#include "support/freshsession.h"
#include "support/inlanguage.h"

namespace {

class ReportLine : public testing::Test {
protected:
    ReportLine() { reportstart(); }

    static void send(std::string_view line) {
        session.msg = line;
        reportline();
    }
    static void sendall(const std::vector<std::string_view>& lines) {
        for (const std::string_view line : lines) send(line);
    }
    /// The text of device 4, a line end shown as "|".
    static std::string written() {
        std::string text = session.reportBuffer;
        for (auto at = text.find(lineBreak); at != std::string::npos; at = text.find(lineBreak))
            text.replace(at, lineBreak.size(), "|");
        return text;
    }

    FreshSession fresh{lifeSide};
};

std::string blanks(std::size_t count) { return std::string(count, ' '); }

// ---- open and closed lines

TEST_F(ReportLine, EndsALine) {
    send("Analysis");
    EXPECT_EQ(written(), "Analysis|");
    EXPECT_EQ(session.reportLine, 1);
    EXPECT_EQ(session.reportColumn, 0);
}

TEST_F(ReportLine, IsBlankForAnEmptyText) {
    send("");
    EXPECT_EQ(written(), "|");
    EXPECT_EQ(session.reportLine, 1);
}

TEST_F(ReportLine, StaysOpenBehindASemicolon) {
    send(";Total");
    EXPECT_EQ(written(), "Total");
    EXPECT_EQ(session.reportLine, 0);
    EXPECT_EQ(session.reportColumn, 5);
    send(" = 3");
    EXPECT_EQ(written(), "Total = 3|");
    EXPECT_EQ(session.reportLine, 1);
    EXPECT_EQ(session.reportColumn, 0);
}

TEST_F(ReportLine, OfASemicolonAloneWritesNothingAndStaysOpen) {
    sendall({";Total", ";"});
    EXPECT_EQ(written(), "Total");
    EXPECT_EQ(session.reportLine, 0);
    EXPECT_EQ(session.reportColumn, 5);
    send("=");
    EXPECT_EQ(written(), "Total=|");
}

TEST_F(ReportLine, LosesOnlyItsFirstSemicolon) {
    sendall({";;a;", "b"});
    EXPECT_EQ(written(), ";a;b|");
}

TEST_F(ReportLine, OfNothingEndsAnOpenLine) {
    sendall({";Total", "", "Next"});
    EXPECT_EQ(written(), "Total|Next|");
    EXPECT_EQ(session.reportLine, 2);
}

TEST_F(ReportLine, CountsPhysicalLinesAlone) {
    sendall({"a", "", ";b", ";[[TAB10c", "[[TAB20d", "e"});
    EXPECT_EQ(session.reportLine, 4);
}

// ---- columns

TEST_F(ReportLine, PutsTwoCellsAtTheirColumnsOfOneLine) {
    sendall({";[[TAB10Total", "[[TAB44Time"});
    EXPECT_EQ(written(), blanks(9) + "Total" + blanks(29) + "Time|");
    EXPECT_EQ(written().find("Total") + 1, 10u);
    EXPECT_EQ(written().find("Time") + 1, 44u);
    EXPECT_EQ(session.reportLine, 1);
}

TEST_F(ReportLine, TakesTheTextRightBehindTheDigits) {
    sendall({";[[TAB04B%", "[[TAB10("});
    EXPECT_EQ(written(), "   B%    (|");
}

TEST_F(ReportLine, CountsTheColumnOfAnOpenLine) {
    send(";[[TAB10Total");
    EXPECT_EQ(session.reportColumn, 14);
}

TEST_F(ReportLine, OfSevenCharactersOrLessIsNoMark) {
    sendall({"[[TAB", "[[TAB1", "[[TAB10"});
    EXPECT_EQ(written(), "[[TAB|[[TAB1|[[TAB10|");
}

TEST_F(ReportLine, CountsTheSevenCharactersWithoutTheSemicolon) {
    sendall({";[[TAB10", "."});
    EXPECT_EQ(written(), "[[TAB10.|");
}

TEST_F(ReportLine, ReadsAMarkAtItsStartAlone) {
    send("a [[TAB10b");
    EXPECT_EQ(written(), "a [[TAB10b|");
}

TEST_F(ReportLine, CountsAnUnreadableColumnAsNone) {
    sendall({";ab", ";[[TABxxcd", "[[TAB  ef"});
    EXPECT_EQ(written(), "abcdef|");
}

TEST_F(ReportLine, GoesOnWhereItStandsAtColumnZeroAndBelow) {
    sendall({";ab", ";[[TAB00cd", "[[TAB-5ef"});
    EXPECT_EQ(written(), "abcdef|");
}

TEST_F(ReportLine, StandsOffByOneBlankWhereTheColumnHasBeenPassed) {
    sendall({";a long first cell", "[[TAB05next"});
    EXPECT_EQ(written(), "a long first cell next|");
}

TEST_F(ReportLine, NeedsNoBlankWhereTheColumnIsReached) {
    sendall({";1234", "[[TAB05next"});
    EXPECT_EQ(written(), "1234next|");
}

TEST_F(ReportLine, SeparatesACellWhoseColumnIsTaken) {
    sendall({";12345", "[[TAB05next"});
    EXPECT_EQ(written(), "12345 next|");
}

TEST_F(ReportLine, BeyondTheWidthOfAPageIsNotWrapped) {
    send("[[TAB99" + std::string(300, 'w'));
    EXPECT_EQ(written(), blanks(98) + std::string(300, 'w') + "|");
    EXPECT_EQ(session.reportLine, 1);
}

TEST_F(ReportLine, GivesEachUtf8CharacterOnePlace) {
    sendall({";[[TAB03π·√é€", "[[TAB10x"});
    EXPECT_EQ(written(), "  π·√é€  x|");
    send(";π·√");
    EXPECT_EQ(session.reportColumn, 3);
}

// ---- asterisk notes

TEST_F(ReportLine, SetsTheNoteTwoBlanksOffItsAsterisk) {
    sendall({"*Note", "a*b*c", "*"});
    EXPECT_EQ(written(), "*  Note|a*  b*  c|*  |");
}

TEST_F(ReportLine, CountsTheBlanksBehindAnAsterisk) {
    for (const int16_t device : {int16_t{0}, int16_t{2}, int16_t{4}, int16_t{1}, int16_t{3}}) {
        session.reportDevice = device;
        reportstart();
        send(";*Note");
        const bool wide = device == 0 || device == 2 || device == 4;
        EXPECT_EQ(session.reportColumn, wide ? 7 : 6) << device;
    }
}

TEST_F(ReportLine, LeavesAnAsteriskAtAColumnAlone) {
    send("[[TAB03*Note");
    EXPECT_EQ(written(), "  *Note|");
}

// ---- language filter

TEST_F(ReportLine, PassesTheLanguageFilter) {
    sendall({"Total{hidden} = 3", "[[TAB03a{b}c", ";12{b}"});
    EXPECT_EQ(written(), "Total = 3|  ac|12");
}

TEST_F(ReportLine, CountsWhatIsLeftAfterTheFilter) {
    send(";a{hidden}b");
    EXPECT_EQ(session.reportColumn, 2);
}

TEST_F(ReportLine, OfAPureNumberStandsAsItIs) {
    sendall({" 3.3E+33", "-9.123E+32", " .5"});
    EXPECT_EQ(written(), " 3.3E+33|-9.123E+32| .5|");
}

TEST_F(ReportLine, OfAnUnclosedBraceKeepsIt) {
    send("a{b");
    EXPECT_EQ(written(), "a{b|");
}

TEST_F(ReportLine, MayBeFilteredBeforeItsMarksAreRead) {
    session.msg = "{mark}[[TAB03a{b}c";
    reportlinew();
    EXPECT_EQ(written(), "  ac|");
}

// ---- devices

TEST_F(ReportLine, IsNeitherWrittenNorCountedWithoutADevice) {
    session.reportDevice = noReport;
    sendall({"text", "", ";open", "[[TAB10cell"});
    EXPECT_EQ(session.reportBuffer, "");
    EXPECT_EQ(session.reportLine, 0);
    EXPECT_EQ(session.reportColumn, 0);
}

TEST_F(ReportLine, StartsAfreshWhenTheDeviceChanges) {
    send(";open");
    session.reportDevice = reportList;
    send(";[[TAB03x");
    EXPECT_EQ(session.reportColumn, 3);
    EXPECT_EQ(written(), "open|");
    session.reportDevice = reportText;
    send("fresh");
    EXPECT_EQ(written(), "open|fresh|");
}

TEST_F(ReportLine, OfAnotherDeviceDoesNotReachTheText) {
    session.reportDevice = reportList;
    sendall({"text", ""});
    EXPECT_EQ(session.reportBuffer, "");
    EXPECT_EQ(session.reportLine, 2);
}

TEST_F(ReportLine, KeepsTheNumberOfItsCaller) {
    session.u = 1234.5f;
    sendall({"text", ";[[TAB10cell", "[[TAB20 7", ""});
    EXPECT_EQ(session.u, 1234.5f);
    session.reportDevice = noReport;
    send("text");
    EXPECT_EQ(session.u, 1234.5f);
}

TEST_F(ReportLine, EndsWithTheLineBreakOfTheSession) {
    send("a");
    EXPECT_EQ(session.reportBuffer, "a\r\n");
}

// ---- the start of a report

TEST_F(ReportLine, OfANewReportStartsAtTheTop) {
    sendall({"text", ";open"});
    reportstart();
    EXPECT_EQ(session.reportBuffer, "");
    EXPECT_EQ(session.reportLine, 0);
    EXPECT_EQ(session.reportColumn, 0);
    EXPECT_EQ(session.reportDevice, reportText);
}

// ---- number columns

TEST_F(ReportLine, TakesANumberColumn) {
    session.u = 3.25f;
    session.msg = "";
    reportnumberpad(8, 10);
    EXPECT_EQ(session.msg, ";[[TAB083.25");
    reportline();
    session.msg = "";
    session.u = -.5f;
    reportnumberpad(20, 10);
    EXPECT_EQ(session.msg, ";[[TAB20-.5");
    reportline();
    send("");
    EXPECT_EQ(written(), blanks(7) + "3.25" + blanks(8) + "-.5|");
}

TEST_F(ReportLine, CutsANumberToItsWidth) {
    session.u = 1.234567f;
    session.msg = "";
    reportnumberpad(10, 5);
    EXPECT_EQ(session.msg, ";[[TAB101.234");
}

TEST_F(ReportLine, AppendsANumberColumnBehindTheText) {
    session.u = 7;
    session.msg = "Set";
    reportnumberpad(9, 4);
    EXPECT_EQ(session.msg, "Set;[[TAB097");
    EXPECT_EQ(session.u, 7);
}

TEST_F(ReportLine, ComposesACellOfARow) {
    reportcell(4, "B%");
    report("[[TAB15", Word::Median, " ", Word::Value);
    EXPECT_EQ(written(), "   B%" + blanks(9) + "Median Value|");
}

std::string printed(double value) {
    std::string text;
    append(text, Reported{value});
    return text;
}

TEST(ReportedValue, HasSixSignificantDigits) {
    EXPECT_EQ(printed(22.79710106035492), "22.7971");
    EXPECT_EQ(printed(.8943155), ".894316");
    EXPECT_EQ(printed(-1.9726558), "-1.97266");
    EXPECT_EQ(printed(1234567), "1234570");
    EXPECT_EQ(printed(0), "0");
}

TEST(ReportedValue, OfNoNumberIsNothing) {
    EXPECT_EQ(printed(std::numeric_limits<double>::quiet_NaN()), "");
    EXPECT_EQ(printed(std::numeric_limits<double>::infinity()), "");
    EXPECT_EQ(printed(noAnswer), "");
}

TEST(ReportedValue, InAColumnKeepsThePlaceOfTheSign) {
    std::string positive, negative;
    append(positive, ReportedColumn{12.5});
    append(negative, ReportedColumn{-12.5});
    EXPECT_EQ(positive, " 12.5");
    EXPECT_EQ(negative, "-12.5");
}

} // namespace

// ---- languages

TEST_F(ReportLine, SpeaksTheLanguageInForceAndKeepsTypedText) {
    const InLanguage german("Deutsch");
    report(Word::Language, ": ", AsTyped{"a_b {c}"});
    EXPECT_EQ(written(), "Sprache: a_b {c}|");
}

TEST_F(ReportLine, FiltersALineOnlyOnce) {
    const InLanguage german("Deutsch");
    compose(session.msg, Word::Language, ": ", AsTyped{"a_b {c}"});
    reportlinew();
    EXPECT_EQ(written(), "Sprache: a_b {c}|");
}
