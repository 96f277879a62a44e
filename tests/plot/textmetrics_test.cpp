#include "plot/textmetrics.h"

#include <gtest/gtest.h>

#include "data/utf8.h"
#include "plot/drawing.h"

TEST(TextMetrics, LettersHaveTheWidthsOfTheFace) {
    // DejaVu Sans: W 2025, e 1260, i 569, blank 651 of 2048 units.
    EXPECT_EQ(textadvance("W"), 989);
    EXPECT_EQ(textadvance("e"), 615);
    EXPECT_EQ(textadvance("i"), 278);
    EXPECT_EQ(textadvance(" "), 318);
    EXPECT_EQ(textadvance("~"), 838);
    EXPECT_EQ(textadvance("Wei"), 989 + 615 + 278);
    EXPECT_EQ(textadvance(""), 0);
}

TEST(TextMetrics, AllDigitsAreEquallyWide) {
    for (const char* digit : {"0", "1", "2", "3", "4", "5", "6", "7", "8", "9"})
        EXPECT_EQ(textadvance(digit), 636);
}

TEST(TextMetrics, OtherCharactersHaveOneWidth) {
    EXPECT_EQ(textadvance("ü"), 600);
    EXPECT_EQ(textadvance("η"), 600);
    EXPECT_EQ(textadvance("\xFF"), 600);
}

TEST(TextMetrics, EastAsianCharactersAreWide) {
    for (const char* wide : {"寿", "あ", "カ", "한", "Ａ", "、", "𠀀"})
        EXPECT_EQ(textadvance(wide), 1000) << wide;
    EXPECT_EQ(textadvance("ｶ"), 600); // halfwidth form
}

TEST(TextMetrics, CombiningMarksTakeNoRoom) {
    EXPECT_EQ(textadvance("e\u0301"), textadvance("e"));
    EXPECT_EQ(textadvance("か\u3099"), 1000);
}

TEST(TextMetrics, OutsideAPlotATextIsAsLongAsTheFaceSaysInItsSize) {
    EXPECT_DOUBLE_EQ(plottextwidth("W", 200), 197.8);
    EXPECT_EQ(plottextwidth("W", 0), 0);
}

TEST(TakeCharacter, TakesOneCharacterAtATime) {
    std::string_view text = "aé寿𠀀";
    EXPECT_EQ(takecharacter(text), U'a');
    EXPECT_EQ(takecharacter(text), U'é');
    EXPECT_EQ(takecharacter(text), U'寿');
    EXPECT_EQ(takecharacter(text), U'𠀀');
    EXPECT_TRUE(text.empty());
}

TEST(TakeCharacter, AByteThatBeginsNoCharacterIsReplacedAlone) {
    std::string_view text = "\xE5\xAF"
                            "a";
    EXPECT_EQ(takecharacter(text), char32_t{0xFFFD});
    EXPECT_EQ(takecharacter(text), char32_t{0xFFFD});
    EXPECT_EQ(takecharacter(text), U'a');
}
