#include "shell/wordagree.h"

#include <gtest/gtest.h>

#include "shell/phrases.h"
#include "shell/words.h"
#include "support/allocations.h"
#include "support/inlanguage.h"

namespace {

std::string agreed(std::string_view text, std::string_view no = "") {
    std::string out;
    wordagree(text, no, out);
    return out;
}

std::string clean(std::string text) {
    wordclean(text);
    return text;
}

template <class... Parts>
std::string shown(const Parts&... parts) {
    std::string text;
    extend(text, parts...);
    return clean(text);
}

} // namespace

TEST(WordForms, ANounHasOneFormAndOneMark) {
    const WordForms noun = wordforms("Sprache_nf");
    EXPECT_EQ(noun.count, 1u);
    EXPECT_EQ(noun.forms[0].text, "Sprache");
    EXPECT_EQ(noun.wordClass(), 'N');
    EXPECT_EQ(noun.forms[0].gender, 'F');
}

TEST(WordForms, AnAdjectiveHasAFormAGender) {
    const WordForms adjective = wordforms("Neuer_AM_Neue_af_Neues_An");
    ASSERT_EQ(adjective.count, 3u);
    EXPECT_EQ(adjective.forms[2].text, "Neues");
    EXPECT_EQ(adjective.forms[2].gender, 'N');
    EXPECT_EQ(adjective.wordClass(), 'A');
}

TEST(WordForms, LettersBehindAMarkAreASuffix) {
    const WordForms noun = wordforms("Sprache_nf)=");
    EXPECT_EQ(noun.forms[0].gender, 'F');
    EXPECT_EQ(noun.suffix, ")=");
}

TEST(WordForms, OtherLettersAreNoMark) {
    for (const char* word : {"Wort_x", "Wort_xx", "Wort_nx", "Wort_", "Wort"})
        EXPECT_EQ(wordforms(word).wordClass(), 0) << word;
}

TEST(WordForms, ReadsAtMostSevenParts) {
    const WordForms many = wordforms("a_am_b_af_c_an_d_nm_e_nf");
    EXPECT_EQ(many.count, 4u);
    EXPECT_EQ(many.forms[3].text, "d");
    EXPECT_EQ(many.forms[3].wordClass, 0);
}

TEST(WordAgree, AnAdjectiveTakesTheGenderOfTheNounBefore) {
    EXPECT_EQ(agreed("Linea_nf Nuovo_am_Nuova_af"), "Linea Nuova");
    EXPECT_EQ(agreed("Punto_nm Nuovo_am_Nuova_af"), "Punto Nuovo");
    EXPECT_EQ(agreed("Wort_nn Neuer_am_Neue_af_Neues_an"), "Wort Neues");
}

TEST(WordAgree, AnAdjectiveTakesTheGenderOfTheNounBehind) {
    EXPECT_EQ(agreed("Nuovo_am_Nuova_af Linea_nf"), "Nuova Linea");
    EXPECT_EQ(agreed("Neuer_am_Neue_af_Neues_an Wort_nn ist"), "Neues Wort ist");
}

TEST(WordAgree, BothAdjectivesAroundANounAgree) {
    EXPECT_EQ(agreed("Nouveau_am_Nouvelle_af Langue_nf Inconnu_am_Inconnue_af"), "Nouvelle Langue Inconnue");
}

TEST(WordAgree, AWordBetweenEndsTheAgreement) {
    EXPECT_EQ(agreed("Linea_nf = Nuovo_am_Nuova_af"), "Linea = Nuovo");
}

TEST(WordAgree, AGenderThatIsMissingLeavesTheFirstForm) {
    EXPECT_EQ(agreed("Wort_nn Nuovo_am_Nuova_af"), "Wort Nuovo");
    EXPECT_EQ(agreed("Nuovo_am Linea_nf"), "Nuovo Linea");
}

TEST(WordAgree, PunctuationAroundAWordIsNoPartOfIt) {
    EXPECT_EQ(agreed("(Linea_nf Nuovo_am_Nuova_af):"), "(Linea Nuova):");
    EXPECT_EQ(agreed("[Linea_nf] {Nuovo_am_Nuova_af}"), "[Linea] {Nuova}");
    EXPECT_EQ(agreed("(Nuovo_am_Nuova_af Linea_nf)"), "(Nuova Linea)");
    EXPECT_EQ(agreed("Linea_nf=12"), "Linea=12");
    EXPECT_EQ(agreed("F(Linea_nf) [Punto_nm %]"), "F(Linea) [Punto %]");
}

TEST(WordAgree, AWordOfOneLetterKeepsItsParenthesis) {
    EXPECT_EQ(agreed("x)"), "x)");
    EXPECT_EQ(agreed(")"), ")");
    EXPECT_EQ(agreed("()"), "()");
}

TEST(WordAgree, WordsGluedTogetherLoseTheirMarks) {
    EXPECT_EQ(agreed("Punto_nm/Linea_nf"), "Punto/Linea");
    EXPECT_EQ(agreed("Nuovo_am_Nuova_af/Linea_nf"), "Nuovo/Linea");
    EXPECT_EQ(agreed("LogNormale_am_Normali_an"), "LogNormale");
}

TEST(WordAgree, AWordWithoutAUsableMarkStaysAsItsFirstForm) {
    EXPECT_EQ(agreed("Wort_xx"), "Wort");
    EXPECT_EQ(agreed("Wort_"), "Wort");
    EXPECT_EQ(agreed("_"), "_");
}

TEST(WordAgree, AMenuLetterAndLeadingBlanksComeBack) {
    EXPECT_EQ(agreed("A...Linea_nf Nuovo_am_Nuova_af"), "A...Linea Nuova");
    EXPECT_EQ(agreed("   Linea_nf Nuovo_am_Nuova_af"), "   Linea Nuova");
    EXPECT_EQ(agreed("A...  Linea_nf"), "A...  Linea");
    EXPECT_EQ(agreed("A..."), "A...");
    EXPECT_EQ(agreed(""), "");
}

TEST(WordAgree, ATextWithAnAsteriskPassesUnchanged) {
    EXPECT_EQ(agreed("* Linea_nf  Nuovo_am_Nuova_af"), "* Linea_nf  Nuovo_am_Nuova_af");
}

TEST(WordAgree, SeveralBlanksBecomeOneAndEndTheAgreement) {
    EXPECT_EQ(agreed("a   b "), "a b ");
    EXPECT_EQ(agreed("Linea_nf  Nuovo_am_Nuova_af"), "Linea Nuovo");
}

TEST(WordAgree, EachLineIsOnItsOwn) {
    EXPECT_EQ(agreed("Linea_nf\r\n\r\nNuovo_am_Nuova_af\n  1) Punto_nm\tLinea_nf"),
              "Linea\r\n\r\nNuovo\n  1) Punto\tLinea");
}

TEST(WordAgree, ALongTextIsCleanedToItsEnd) {
    std::string text, expected;
    for (int i = 0; i < 2500; ++i) {
        text += "Linea_nf ";
        expected += "Linea ";
    }
    EXPECT_EQ(agreed(text), expected);
}

TEST(WordAgree, ALoneDutchNoIsNee) {
    EXPECT_EQ(agreed(" Geen ", "Geen"), "Nee");
    EXPECT_EQ(agreed("Geen Fit", "Geen"), "Geen Fit");
    EXPECT_EQ(agreed("Geen"), "Geen");
}

TEST(WordAgree, TheWordNoIsNeeOnlyInDutch) {
    {
        const InLanguage dutch("Nederlands");
        EXPECT_EQ(shown(Word::No), "Nee");
        EXPECT_EQ(shown(" ", Word::No, " "), "Nee");
        EXPECT_NE(shown(Word::No, " ", Word::Data).substr(0, 4), "Nee ");
    }
    const InLanguage german("Deutsch");
    EXPECT_EQ(shown(Word::No), word(Word::No));
}

TEST(WordClean, HalvesAreCleanedSeparately) {
    const InLanguage german("Deutsch");
    EXPECT_EQ(clean("Linea_nf _ Nuovo_am_Nuova_af"), "Linea _ Nuovo");
    EXPECT_EQ(clean("a_nf _ b_nf _ c_nf"), "a _ b _ c");
    EXPECT_EQ(clean(" _ "), " _ ");
    EXPECT_EQ(clean("A...Linea_nf _ Nuovo_am"), "A...Linea _ Nuovo");
}

TEST(WordClean, EnglishTextKeepsItsLettersAndBlanks) {
    for (const char* text : {"Linea_nf  Nuovo_am_Nuova_af", "No", " A...b_c ", "my_file_name.txt"})
        EXPECT_EQ(clean(text), text);
    const InLanguage additional("Additional Language");
    EXPECT_EQ(clean("my_file  name"), "my_file  name");
}

TEST(WordClean, DropsBracesBeforeTheWordsAgree) {
    const InLanguage german("Deutsch");
    EXPECT_EQ(clean("Linea_nf {x_nf }Nuovo_am_Nuova_af"), "Linea Nuova");
}

TEST(WordClean, AFrenchSentenceIsFeminineOnBothSidesOfItsNoun) {
    const InLanguage french("Français");
    // New | Line | Additional: nouvelle ligne supplémentaire.
    const std::string noun = shown(Word::Language);
    ASSERT_EQ(word(Word::Language), "Langue_nf");
    EXPECT_EQ(shown(Word::New, " ", Word::Language, " ", Word::Small), "Nouvelle Langue Petite");
}

TEST(WordClean, NoMarkOfAnyWordReachesTheScreen) {
    for (const Language& language : languages()) {
        const InLanguage here(language.name);
        for (int i = 1; i < wordSlots; ++i) {
            const auto slot = static_cast<Word>(i);
            const auto next = static_cast<Word>(i + 1);
            const std::string text = shown("B...", slot, " ", next, " = ", slot, "/", next, ": (", slot, ")[",
                                           next, "]\n", slot, "-", next, ",");
            EXPECT_EQ(text.find('_'), std::string::npos) << text;
        }
        for (int i = 0; i < phraseCount; ++i)
            EXPECT_EQ(shown(static_cast<Phrase>(i)).find('_'), std::string::npos) << i;
    }
}

TEST(AsTyped, TypedTextStaysAsItIsInEveryLanguage) {
    const char* const typed[] = {"my_file_nm.txt", "a * b",  "x {y} z", "two  blanks ", " _ ",
                                 "[a_b]: (c)",     "A...b_", "?_?",     "No",           "f_nfx_am"};
    for (const char* language : {"English", "Deutsch", "Nederlands"}) {
        const InLanguage here(language);
        for (const char* text : typed) {
            EXPECT_EQ(shown("=", AsTyped{text}), std::string("=") + text) << language;
            EXPECT_EQ(shown(Word::File, " = ", AsTyped{text}), shown(Word::File) + " = " + text) << language;
        }
    }
}

TEST(AsTyped, DoesNotKeepTheWordsAroundItFromAgreeing) {
    const InLanguage italian("Italiano");
    EXPECT_EQ(shown("Linea_nf Nuovo_am_Nuova_af = ", AsTyped{"* {x_y}"}, " Nuovo_am_Nuova_af Linea_nf"),
              "Linea Nuova = * {x_y} Nuova Linea");
}

TEST(AsTyped, ControlBytesCannotPoseAsLetters) {
    EXPECT_EQ(shown(AsTyped{"a\x01\x02\x03\x04\x05z"}), "a     z");
}

TEST(AsTyped, IsRestoredWithoutCleaning) {
    std::string text;
    extend(text, "{x} ", AsTyped{"my_{file} * name"});
    wordrestore(text);
    EXPECT_EQ(text, "{x} my_{file} * name");
}

TEST(WordClean, DoesNotAllocateForTypedTextInEnglish) {
    std::string text;
    text.reserve(200);
    const std::size_t before = allocationcount();
    extend(text, Word::File, " = {out} ", AsTyped{"a_long_name_of_a_file_with_marks_in_it.txt"});
    wordclean(text);
    EXPECT_EQ(allocationcount(), before);
    EXPECT_EQ(text, "File =  a_long_name_of_a_file_with_marks_in_it.txt");
}
