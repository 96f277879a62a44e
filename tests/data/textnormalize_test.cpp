#include "data/textnormalize.h"

#include <gtest/gtest.h>

namespace {

/// The text as it is read, with "|" between items and "/" behind lines.
std::string shown(std::string_view raw) {
    const std::string text = decodetext(std::string(raw));
    std::string normal = textnormalize(text, textlook(text).marks);
    for (char& c : normal) c = c == itemSeparator ? '|' : c == lineSeparator ? '/' : c;
    return normal;
}

TextMarks marksof(std::string_view text) { return textlook(text).marks; }

} // namespace

TEST(TextNormalize, MakesEverySeparatorTheSame) {
    EXPECT_EQ(shown("10 20 30\n"), "10|20|30/");
    EXPECT_EQ(shown("10;20;30\n"), "10|20|30/");
    EXPECT_EQ(shown("10\t20\t30\n"), "10|20|30/");
    EXPECT_EQ(shown("10, 20, 30\n"), "10|20|30/");
    EXPECT_EQ(shown("10,20,30\n"), "10|20|30/");
}

TEST(TextNormalize, ReadsTabsAndBlanksMixedAsIfAllWereTabs) {
    EXPECT_EQ(shown("10 20\t30\n"), "10|20|30/");
    EXPECT_EQ(shown("10 \t 20  \t30  \n"), "10|20|30/");
    EXPECT_EQ(shown("10\t 20\n30 40\n"), "10|20/30|40/");
}

TEST(TextNormalize, EndsLinesAtEveryKindOfEnd) {
    EXPECT_EQ(shown("1\r\n2\n3\r4"), "1/2/3/4/");
    EXPECT_EQ(shown("1\r\r\n2\r\r\n"), "1/2/") << "turned twice on its way";
}

TEST(TextNormalize, KeepsEmptyLinesAndTheColumnsBehindEmptyItems) {
    EXPECT_EQ(shown("1\n\n2\n"), "1//2/");
    EXPECT_EQ(shown("1\r\n\r\n2\r\n"), "1//2/");
    EXPECT_EQ(shown("\t5\n1;;2\n"), "|5/1||2/");
    EXPECT_EQ(shown("1\t2\t\t\n"), "1|2/") << "nothing stands behind the last tabs";
    EXPECT_EQ(shown("# a note, 1\n1\n"), "/1/");
}

TEST(TextNormalize, KeepsTheBlanksWithinLabelsAndWords) {
    EXPECT_EQ(shown("150_first pump 230_second pump\n"), "150_first pump|230_second pump/");
    EXPECT_EQ(shown("150\tPump A\n"), "150|Pump A/");
    EXPECT_EQ(shown("150;Pump A 7\n"), "150|Pump A 7/");
    EXPECT_EQ(shown("150_unit 7\t\n"), "150_unit 7/") << "a label between tabs may hold numbers";
    EXPECT_EQ(shown("150_pump, old\n"), "150_pump, old/");
}

TEST(TextNormalize, TakesAStarInACellForTheSeparatorOfItsFields) {
    EXPECT_EQ(shown("5*2*1*0\n7*2_a*b\nA*B\n"), "5x2x1x0/7x2_a*b/A*B/");
}

TEST(TextNormalize, TakesQuotedItemsWhole) {
    EXPECT_EQ(shown("\"150\",\"Pump, the \"\"old\"\" one\"\n\"230\",\"x\"\n"),
              "150|Pump, the \"old\" one/230|x/");
    EXPECT_EQ(shown("\"Time\nin hours\",Label\n150,a\n"), "Time in hours|Label/150|a/");
    EXPECT_EQ(shown("\"1\t2\"\t3\n"), "1 2|3/");
    EXPECT_EQ(shown("a,\"b\nc\"\t4\n"), "a,\"b c\"|4/") << "quotes within an item hold its lines together";
}

TEST(TextNormalize, ALoneQuoteIsNoMoreThanACharacter) {
    EXPECT_EQ(shown("150\n230\n\""), "150/230/\"/");
    EXPECT_EQ(shown("\"150\n230\n310\"\n"), "\"150/230/310\"/") << "numbers are never swallowed by a quote";
    EXPECT_EQ(shown("5\" pipe\t7\n"), "5\" pipe|7/");
}

TEST(TextNormalize, ReadsTheOnlyReadingOfACommaWithoutAsking) {
    EXPECT_EQ(shown("1.5,2.5\n3.5,4\n"), "1.5|2.5/3.5|4/");
    EXPECT_EQ(shown("1,5;2,5\n"), "1.5|2.5/");
    EXPECT_EQ(shown("1,5\t2,5\n"), "1.5|2.5/");
    EXPECT_EQ(shown("1,5 2,5 3,5\n"), "1.5|2.5|3.5/");
    EXPECT_EQ(shown("1,5, 2,5\n"), "1.5|2.5/");
    EXPECT_EQ(shown("1,2,3\n4,5,6\n"), "1|2|3/4|5|6/");
    EXPECT_EQ(shown("150,F\n230,S\n"), "150|F/230|S/");
    EXPECT_EQ(shown("\"1,5\",\"2,75\"\n"), "1.5|2.75/") << "quotes hold decimal commas between commas";
    EXPECT_EQ(shown("Time,Quantity\n150,2\n230,1\n"), "Time|Quantity/150|2/230|1/");
    EXPECT_EQ(shown("10,5x3;20,5x4_a,b\n"), "10.5x3|20.5x4_a,b/");
    EXPECT_EQ(shown("1,5E+3;-2,5\n"), "1.5E+3|-2.5/");
}

TEST(TextNormalize, ReadsMarksBetweenThousandsWhereNothingElseIsPossible) {
    EXPECT_EQ(shown("1,234.5\t2\n"), "1234.5|2/");
    EXPECT_EQ(shown("1.234,5\t2\n"), "1234.5|2/");
    EXPECT_EQ(shown("1,234,567\t2\n"), "1234567|2/");
    EXPECT_EQ(shown("1.234\t2,5\n"), "1234|2.5/") << "the comma is the decimal symbol, so the point is none";
    EXPECT_EQ(shown("0,125\t2\n"), "0.125|2/") << "no group begins with a zero";
}

TEST(TextNormalize, LeavesACommaOpenThatCanBeReadInTwoWays) {
    EXPECT_EQ(marksof("1,5\n2,5\n").between, Comma::undecided);
    EXPECT_EQ(marksof("1.234,5\n2.345,5\n").between, Comma::undecided);
    EXPECT_EQ(marksof("1,500\t2\n").within, Comma::undecided);
    EXPECT_EQ(marksof("1,5 2,5\n1,2,3\n").between, Comma::undecided) << "the lines speak against each other";
    EXPECT_EQ(marksof("Pump, old\n1,5\n2,5\n").between, Comma::undecided) << "a title is no heading";
    EXPECT_EQ(marksof("10\n1.5\n20\n1,5\n30\n").between, Comma::undecided) << "one among many may be a slip";
    EXPECT_EQ(marksof("10 20\n").between, Comma::none);
    const TextLook look = textlook("10\n1,5\n2,5\n");
    EXPECT_EQ(look.firstLine, "1,5");
    EXPECT_EQ(look.undecidedLines, 2u);
    EXPECT_EQ(look.numberLines, 3u);
    EXPECT_EQ(textnormalize("1,5\n", look.marks), "1,5\r") << "and as it stands";
}

TEST(TextNormalize, ConvertsTheEncodingsOfSpreadsheets) {
    using namespace std::string_literals;
    EXPECT_EQ(shown("\xEF\xBB\xBF"
                    "150\n"),
              "150/");
    EXPECT_EQ(shown("\xFF\xFE"
                    "1\0\t\0\xE4\0\r\0\n\0"s),
              "1|\xC3\xA4/");
    EXPECT_EQ(shown("\xFE\xFF"
                    "\0001\0\t\0\xE4\0\n"s),
              "1|\xC3\xA4/");
    EXPECT_EQ(shown("1\0005\0\n\0002\0"s), "15/2/") << "without a mark, too";
    EXPECT_EQ(shown("\xFF\xFE\x3D\xD8\x00\xDE\x00\xD8"s), "\xF0\x9F\x98\x80\xEF\xBF\xBD/");
    EXPECT_EQ(shown("150_M\xFCller\n"), "150_M\xC3\xBCller/");
    EXPECT_EQ(shown("150\xC2\xA0"
                    "20\n"),
              "150|20/")
        << "a no-break space is a blank";
}
