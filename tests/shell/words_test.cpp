#include "shell/words.h"

#include <gtest/gtest.h>

#include <set>

#include "session/session.h"
#include "support/allocations.h"

namespace {

constexpr const char* slotNames[] = {
    "",
#define WORD(name, text) #name,
#include "shell/wordlist.def"
#undef WORD
};

std::string clean(std::string text) {
    wordclean(text);
    return text;
}

class DecimalSymbol : public testing::Test {
protected:
    Keep<std::string> keep{session.displayDecimal};
};

} // namespace

TEST(Words, ThereAre474Slots) {
    EXPECT_EQ(std::size(slotNames), 475u);
    EXPECT_EQ(static_cast<int>(Word::Tab), wordSlots);
}

TEST(Words, EverySlotHasANameOfItsOwn) {
    const std::set<std::string> names(std::begin(slotNames), std::end(slotNames));
    EXPECT_EQ(names.size(), std::size(slotNames));
}

TEST(Words, NoSlotIsEmpty) {
    wordload();
    for (int i = 1; i <= wordSlots; ++i) EXPECT_FALSE(word(static_cast<Word>(i)).empty()) << slotNames[i];
}

TEST(Words, NoWordHasBlanksAtItsEnds) {
    for (int i = 1; i <= wordSlots; ++i) {
        const std::string& text = word(static_cast<Word>(i));
        EXPECT_NE(text.front(), ' ') << slotNames[i];
        EXPECT_NE(text.back(), ' ') << slotNames[i];
    }
}

TEST(Words, KnownWordsStandInTheirSlots) {
    const std::pair<int, const char*> known[] = {{1, "English(American)"},
                                                 {2, "Language"},
                                                 {5, "Yes I Agree To The Above"},
                                                 {10, "Technical Advisor"},
                                                 {11, "None"},
                                                 {12, "No"},
                                                 {16, "Yes"},
                                                 {472, "Reference"},
                                                 {474, "Tab"}};
    for (const auto& [slot, text] : known) EXPECT_EQ(word(static_cast<Word>(slot)), text);
}

TEST(Words, NamesLeadToTheirWords) {
    EXPECT_EQ(static_cast<int>(Word::LanguageName), 1);
    EXPECT_EQ(static_cast<int>(Word::Language), 2);
    EXPECT_EQ(static_cast<int>(Word::JudgementDisclaimer), 7);
    EXPECT_EQ(static_cast<int>(Word::RightsNotice), 8);
    EXPECT_EQ(static_cast<int>(Word::StrapLine), 9);
    EXPECT_EQ(static_cast<int>(Word::Spare), 473);
    EXPECT_EQ(word(Word::Percent), "%");
    EXPECT_EQ(word(Word::ChiSquare), "Chi^2");
    EXPECT_EQ(word(Word::QA), "Q+A");
    EXPECT_EQ(word(Word::StdDev), "Std. Dev.");
    EXPECT_EQ(word(Word::StdDevFactor), "Std. Dev. Factor");
}

TEST(Words, TheTwoScalesAndTheTwoPowersAreDifferentSlots) {
    EXPECT_EQ(word(Word::Scale), word(Word::PlotScale));
    EXPECT_NE(Word::Scale, Word::PlotScale);
    EXPECT_EQ(word(Word::Power), word(Word::PowerOfTest));
    EXPECT_NE(Word::Power, Word::PowerOfTest);
}

TEST(Words, ANumberThatIsNoSlotHasNoWord) {
    EXPECT_EQ(word(Word::None_), "");
    EXPECT_EQ(word(static_cast<Word>(475)), "");
    EXPECT_EQ(word(static_cast<Word>(-1)), "");
}

TEST(WordClean, LeavesAnOrdinaryTextAsItIs) {
    EXPECT_EQ(clean("B...Risk Analysis Type [1]"), "B...Risk Analysis Type [1]");
    EXPECT_EQ(clean(""), "");
    EXPECT_EQ(clean(" _ "), " _ ");
    EXPECT_EQ(clean("Set _ Label"), "Set _ Label");
    EXPECT_EQ(clean("x)"), "x)");
}

TEST(WordClean, DropsWhatStandsBetweenBraces) {
    EXPECT_EQ(clean("Set {passed over}Label"), "Set Label");
    EXPECT_EQ(clean("{all}"), "");
    EXPECT_EQ(clean("a{}b"), "ab");
    EXPECT_EQ(clean("{one}a{two}b"), "ab");
}

TEST(WordClean, KeepsABraceWithoutPartner) {
    EXPECT_EQ(clean("a { b"), "a { b");
    EXPECT_EQ(clean("a } b"), "a } b");
    EXPECT_EQ(clean("a } b { c"), "a } b { c");
    EXPECT_EQ(clean("} a {b} c"), "} a  c");
}

TEST(WordClean, DoesNotAllocate) {
    std::string text = "A composed text of more than a few letters {with a part to pass over} and an end";
    const std::size_t before = allocationcount();
    wordclean(text);
    EXPECT_EQ(allocationcount(), before);
    EXPECT_EQ(text, "A composed text of more than a few letters  and an end");
}

TEST_F(DecimalSymbol, IsPutInPlaceOfThePoint) {
    session.displayDecimal = ",";
    std::string text = "-1.25E+05";
    wordnumber(text);
    EXPECT_EQ(text, "-1,25E+05");
    wordnumberback(text);
    EXPECT_EQ(text, "-1.25E+05");
}

TEST_F(DecimalSymbol, ReplacesEveryPoint) {
    session.displayDecimal = ",";
    std::string text = "1.2.3.";
    wordnumber(text);
    EXPECT_EQ(text, "1,2,3,");
}

TEST_F(DecimalSymbol, MayBeLongerThanOneByte) {
    session.displayDecimal = "\u00B7";
    std::string text = ".5";
    wordnumber(text);
    EXPECT_EQ(text, "\u00B7"
                    "5");
    wordnumberback(text);
    EXPECT_EQ(text, ".5");
}

TEST_F(DecimalSymbol, OfNothingOrAPointChangesNothing) {
    for (const char* symbol : {"", "."}) {
        session.displayDecimal = symbol;
        std::string text = "1.5,0";
        wordnumber(text);
        wordnumberback(text);
        EXPECT_EQ(text, "1.5,0");
    }
}

TEST(Compose, JoinsWordsLiteralsAndNumbers) {
    std::string text = "old";
    EXPECT_EQ(compose(text, Word::Set, " ", 3, ": ", 0.5, " / ", 1.25f, '%'), "Set 3: .5 / 1.25%");
    EXPECT_EQ(extend(text, " ", -7), "Set 3: .5 / 1.25% -7");
}

TEST(Compose, WritesTheWidestIntegers) {
    std::string text;
    EXPECT_EQ(compose(text, std::numeric_limits<int>::min()), "-2147483648");
    EXPECT_EQ(compose(text, std::numeric_limits<int>::max()), "2147483647");
}

TEST(Compose, DoesNotAllocateWithinTheCapacity) {
    std::string text;
    text.reserve(200);
    const std::size_t before = allocationcount();
    compose(text, Word::JudgementDisclaimer, " ", 12, 0.1, 1e-12f);
    EXPECT_EQ(allocationcount(), before);
}

TEST(Allocations, AreCounted) {
    const std::size_t before = allocationcount();
    const std::string text(1000, 'a');
    EXPECT_EQ(allocationcount(), before + 1);
    EXPECT_EQ(text.size(), 1000u);
}
