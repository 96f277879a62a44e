#include "shell/words.h"

#include <gtest/gtest.h>

#include <set>

#include "session/session.h"
#include "shell/phrases.h"
#include "shell/wordload.h"
#include "support/allocations.h"
#include "support/inlanguage.h"

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
    Keep<std::string, std::string> keep{session.displayDecimal, session.exportDecimal};
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

TEST(WordLoad, FillsTheSlotsOfALanguage) {
    const InLanguage german("VXLNGDEU.TXT");
    EXPECT_EQ(word(Word::LanguageName), "Deutsch");
    EXPECT_EQ(word(Word::Language), "Sprache_nf");
    EXPECT_EQ(languageinforce()->name, "Deutsch");
}

TEST(WordLoad, TakesAPathInAnyCase) {
    const InLanguage german("c:\\vanex\\vxlngdeu.txt");
    EXPECT_EQ(word(Word::LanguageName), "Deutsch");
    EXPECT_EQ(session.languageFile, "c:\\vanex\\vxlngdeu.txt");
}

TEST(WordLoad, AnUnknownFileIsClearedAndEnglishStays) {
    { const InLanguage german("Deutsch"); }
    const InLanguage nowhere("VXLNGXXX.TXT");
    EXPECT_EQ(session.languageFile, "");
    EXPECT_EQ(word(Word::LanguageName), "English(American)");
    EXPECT_EQ(word(Word::Language), "Language");
    EXPECT_EQ(languageinforce(), nullptr);
}

TEST(WordLoad, TheAdditionalLanguageKeepsTheDefaultWordsAndItsFile) {
    const InLanguage additional("Additional Language");
    EXPECT_EQ(word(Word::Language), "Language");
    EXPECT_EQ(session.languageFile, "VXLNGLNG.TXT");
}

TEST(WordLoad, EnglishComesBackWholeAfterAnyLanguage) {
    const std::string before = word(Word::Tab);
    { const InLanguage french("Français"); }
    EXPECT_EQ(word(Word::Language), "Language");
    EXPECT_EQ(word(Word::Tab), before);
}

TEST(WordWalk, AnEmptyTextEndsIt) {
    WordTable words;
    words.fill("English");
    const TableWord table[] = {{Word::LanguageName, "Eins"},
                               {Word::Language, " Zwei "},
                               {Word::Reading, "   "},
                               {Word::Name, "Vier"}};
    wordwalk(table, words);
    EXPECT_EQ(words[1], "Eins");
    EXPECT_EQ(words[2], "Zwei");
    EXPECT_EQ(words[3], "English");
    EXPECT_EQ(words[4], "English");
}

TEST(WordWalk, TakesNothingAboveTheLastSlot) {
    WordTable words;
    const std::vector<TableWord> table(wordSlots + 5, {Word::Tab, "w"});
    wordwalk(table, words);
    EXPECT_EQ(words[0], "");
    EXPECT_EQ(words[wordSlots], "w");
}

TEST(WordWalk, RepairsTheForbiddenJoint) {
    const std::pair<const char*, const char*> repairs[] = {{"?", "_"},
                                                           {"Wort?", "Wort_"},
                                                           {"Wort?nf", "Wort_nf"},
                                                           {"a?am?b?af", "a_am_b_af"},
                                                           {"  Wort?nf  ", "Wort_nf"},
                                                           {"", ""},
                                                           {"   ", ""},
                                                           {"zwei Worte", "zwei Worte"}};
    for (const auto& [given, repaired] : repairs) EXPECT_EQ(wordrepaired(given), repaired);
}

TEST(Phrases, StandInEnglishFromTheStart) {
    const std::pair<Phrase, const char*> known[] = {
        {Phrase::MeanHeading, "Mean"},
        {Phrase::StdDevHeading, "Std. Dev."},
        {Phrase::LocationHeading, "Location"},
        {Phrase::MCF, "MCF"},
        {Phrase::RSquared, "r^2"},
        {Phrase::MTBF, "MTBF"},
        {Phrase::AcceleratedTest, "Accelerated Test / Degradation / CoVariate"},
        {Phrase::SelectDrag, "Select + Drag = Activate"},
        {Phrase::SelectExit, "Select Exit Or <Esc> If Done"},
        {Phrase::FormerUsageRatio, "Vasan-Tarnbrook Former Usage To Test Ratio ... FUTR"},
        {Phrase::QASet, "Q+A Set"},
        {Phrase::QASets, "Q+A Sets"},
        {Phrase::LnLikelihood, "Ln Likelihood"},
        {Phrase::LogNormal, "LogNormal"},
        {Phrase::MeanCumulativeFunction, "Mean Cumulative Function"},
        {Phrase::PFEV, "PFEV ... Parameter = Function [Engineering Variable]"},
        {Phrase::OccurrenceQuantity, "Occurrence Quantity"},
        {Phrase::PointQuantity, "Point Quantity"},
        {Phrase::SuspensionQuantity, "Suspension Quantity"},
        {Phrase::NelsonRecurrentEventPlot, "Nelson Recurrent Event Plot"}};
    EXPECT_EQ(std::size(known), static_cast<std::size_t>(phraseCount));
    for (const auto& [which, text] : known) EXPECT_EQ(phrase(which), text);
}

TEST(Phrases, FollowTheLanguageAndComeBack) {
    {
        const InLanguage german("Deutsch");
        EXPECT_EQ(phrase(Phrase::MeanHeading), word(Word::Mean));
        EXPECT_NE(phrase(Phrase::PointQuantity), "Point Quantity");
        EXPECT_EQ(phrase(Phrase::MTBF), "MTBF");
        EXPECT_NE(phrase(Phrase::FormerUsageRatio).find("Vasan-Tarnbrook "), std::string::npos);
    }
    EXPECT_EQ(phrase(Phrase::PointQuantity), "Point Quantity");
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

TEST_F(DecimalSymbol, OfExportedTextIsASymbolOfItsOwn) {
    session.displayDecimal = ",";
    session.exportDecimal = ";";
    std::string text = "1.5 2.5";
    wordnumbermenu(text);
    EXPECT_EQ(text, "1;5 2;5");
    wordnumbermenuback(text);
    EXPECT_EQ(text, "1.5 2.5");
    session.exportDecimal = "";
    wordnumbermenu(text);
    EXPECT_EQ(text, "1.5 2.5");
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
