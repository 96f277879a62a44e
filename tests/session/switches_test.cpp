#include "session/switches.h"

#include <gtest/gtest.h>

#include "session/session.h"

namespace {

/// "file|c=folder|..." of a line.
std::string cut(std::string_view line) {
    std::string text;
    for (const SwitchText& one : switchsplit(line)) {
        if (!text.empty()) text += '|';
        if (one.letter) text += std::string(1, one.letter) + "=";
        text += one.none ? "<none>" : one.value;
    }
    return text;
}

TEST(Switchsplit, TakesTheFileAndEachValueUpToTheNextSwitch) {
    EXPECT_EQ(cut("data.w -f My long title -m 3"), "data.w|f=My long title|m=3");
    EXPECT_EQ(cut("-c c:\\my settings -t d:\\temp"), "c=c:\\my settings|t=d:\\temp");
    EXPECT_EQ(cut("-M3 -E WEIBULL"), "m=3|e=WEIBULL");
    EXPECT_EQ(cut(""), "");
}

TEST(Switchsplit, DoubledBlanksCountAsOneAndTheWordNoneAsNoValue) {
    EXPECT_EQ(cut("a.w   -f  two   words  "), "a.w|f=two words");
    EXPECT_EQ(cut("-f NONE -i none"), "f=<none>|i=<none>");
}

TEST(Switchsplit, QuotesAreRemovedWithTheirPartners) {
    EXPECT_EQ(cut("\"my data.w\" -d 'c:\\a - b' -k \"x\""), "my data.w|d=c:\\a - b|k=x");
    EXPECT_EQ(cut("-f \"never closed"), "f=never closed");
}

TEST(Switchsplit, ASemicolonEndsAValue) { EXPECT_EQ(cut("-d c:\\a;-m 2"), "d=c:\\a|m=2"); }

TEST(Switchsplit, ASlashBeginsASwitchOnlyWhereItsLetterStandsAlone) {
    EXPECT_EQ(cut("/c c:\\a /m 2"), "c=c:\\a|m=2");
    EXPECT_EQ(cut("/home/ann/data.txt -m 2"), "/home/ann/data.txt|m=2");
    EXPECT_EQ(cut("-d /tmp/x"), "d=/tmp/x");
}

TEST(Switchsplit, TheRequestInBracketsIsOneValue) {
    EXPECT_EQ(cut("-s [WVW {-m 3} [my file.txt] R a.txt] -h 1"), "s=[WVW {-m 3} [my file.txt] R a.txt]|h=1");
    EXPECT_EQ(cut("-s [never closed -m 3"), "s=[never closed -m 3");
}

TEST(Switchsplit, TheDataFileMayFollowAShortValue) {
    EXPECT_EQ(cut("-p W data.txt"), "p=W|data.txt");
    EXPECT_EQ(cut("-m 3 - -i 5"), "m=3|-|i=5");
}

TEST(Switchsplit, ANegativeValueStandsAgainstItsLetter) {
    EXPECT_EQ(cut("-x-5 -z-1_2_-3_4"), "x=-5|z=-1_2_-3_4");
}

TEST(Switchsplit, ZeroEndsTheSwitches) { EXPECT_EQ(cut("-m 2 -0 -m 3 x"), "m=2"); }

TEST(Switchsplit, AnUnknownSequenceIsToldWithItsPlaceAndPassedOver) {
    EXPECT_EQ(cut("a.w -n 5 -m 3"), "a.w|m=3");
    EXPECT_EQ(session.msg, "-n: Undefined sequence 5");
    EXPECT_EQ(cut("-%x -m 3"), "m=3");
    EXPECT_EQ(session.msg, "-%x: Undefined sequence 1");
    cut("-m 3");
    EXPECT_EQ(session.msg, "");
}

TEST(Linefrom, KeepsTheWordsOfAProgramStartApart) {
    const auto back = [](std::vector<std::string> words) { return cut(linefrom(words)); };
    EXPECT_EQ(back({"my data.w", "-f", "My - title"}), "my data.w|f=My - title");
    EXPECT_EQ(back({"-fMy title", "-m", "3"}), "f=My title|m=3");
    EXPECT_EQ(back({"-s", "[WVW [a b.txt] P]"}), "s=[WVW [a b.txt] P]");
    EXPECT_EQ(back({"it's.txt", "-m2"}), "it's.txt|m=2");
    EXPECT_EQ(back({"-c", "cfg", "b.txt"}), "c=cfg|b.txt") << "a folder is one word";
    EXPECT_EQ(back({"-d", "c:\\my data", "-m", "2"}), "d=c:\\my data|m=2");
    EXPECT_EQ(back({"a.txt", "-f", "My", "long", "title"}), "a.txt|f=My long title");
    EXPECT_EQ(back({}), "");
}

} // namespace
