#include "shell/languages.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>
#include <vector>

#include "data/utf8.h"
#include "shell/wordload.h"

namespace {

constexpr std::string_view english[] = {
#define WORD(name, text) text,
#include "shell/wordlist.def"
#undef WORD
};

std::vector<std::string_view> cutat(std::string_view text, char mark) {
    std::vector<std::string_view> parts;
    for (auto end = text.find(mark); end != std::string_view::npos; end = text.find(mark)) {
        parts.push_back(text.substr(0, end));
        text.remove_prefix(end + 1);
    }
    parts.push_back(text);
    return parts;
}

/// A noun with its one mark, an adjective with one form a gender, or a word without marks.
bool wellmarked(std::string_view word) {
    const auto parts = cutat(word, '_');
    if (parts.size() == 1) return !word.empty();
    if (parts.size() % 2 != 0 || parts.size() > 6) return false;
    std::set<std::string_view> marks;
    for (std::size_t i = 0; i < parts.size(); i += 2) {
        static const std::set<std::string_view> legal = {"nm", "nf", "nn", "am", "af", "an"};
        const std::string_view mark = parts[i + 1];
        if (parts[i].empty() || !legal.contains(mark) || mark[0] != parts[1][0]) return false;
        if (!marks.insert(mark).second) return false;
    }
    return parts[1][0] == 'a' || parts.size() == 2;
}

/// Each translated table, by its language.
class Tables : public testing::TestWithParam<const Language*> {
protected:
    std::span<const TableWord> table() const { return GetParam()->table; }
    static std::string_view englishof(const TableWord& entry) {
        return english[static_cast<std::size_t>(entry.slot) - 1];
    }
};

std::vector<const Language*> translated() {
    std::vector<const Language*> found;
    for (const Language& language : languages())
        if (!language.table.empty()) found.push_back(&language);
    return found;
}

} // namespace

TEST(Languages, ThirteenAndTheAdditionalOneAreKnown) {
    EXPECT_EQ(languages().size(), 14u);
    EXPECT_EQ(translated().size(), 12u);
}

TEST(Languages, ThePageOffersNineInItsOrder) {
    std::vector<std::string_view> offered;
    for (const Language& language : languages())
        if (language.offered) offered.push_back(language.name);
    EXPECT_EQ(offered, (std::vector<std::string_view>{"English (American)", "Français", "Deutsch", "Español",
                                                      "Svenska", "Português (Brazilian)", "Nederlands",
                                                      "Italiano", "Additional Language"}));
}

TEST(Languages, NameAndFileLeadToEachOther) {
    const std::pair<const char*, const char*> pairs[] = {{"English (American)", "VXLNGENG.TXT"},
                                                         {"Français", "VXLNGFRN.TXT"},
                                                         {"Deutsch", "VXLNGDEU.TXT"},
                                                         {"Español", "VXLNGESP.TXT"},
                                                         {"Svenska", "VXLNGSVE.TXT"},
                                                         {"Português (Brazilian)", "VXLNGPOR.TXT"},
                                                         {"Nederlands", "VXLNGNED.TXT"},
                                                         {"Italiano", "VXLNGITA.TXT"},
                                                         {"Additional Language", "VXLNGLNG.TXT"},
                                                         {"Magyar", "VXLNGHGR.TXT"},
                                                         {"Polsku", "VXLNGPOL.TXT"},
                                                         {"Türk", "VXLNGTRK.TXT"},
                                                         {"Kiswahili", "VXLNGSWA.TXT"},
                                                         {"Basa Jawa", "VXLNGJAV.TXT"}};
    for (const auto& [name, file] : pairs) {
        EXPECT_EQ(languagename(file), name);
        EXPECT_EQ(languagefile(name), file);
    }
}

TEST(Languages, CaseDoesNotMatterNotEvenInAccentedLetters) {
    EXPECT_EQ(languagefile("FRANÇAIS"), "VXLNGFRN.TXT");
    EXPECT_EQ(languagefile("español"), "VXLNGESP.TXT");
    EXPECT_EQ(languagefile("PORTUGUÊS (BRAZILIAN)"), "VXLNGPOR.TXT");
    EXPECT_EQ(languagefile("TÜRK"), "VXLNGTRK.TXT");
    EXPECT_EQ(languagename("vxlngDeu.txt"), "Deutsch");
}

TEST(Languages, TheEndOfAPathNamesTheFile) {
    EXPECT_EQ(languagename("c:\\vanex\\VXLNGITA.TXT"), "Italiano");
    EXPECT_EQ(languagename("/usr/share/vanex/vxlngita.txt"), "Italiano");
    EXPECT_EQ(languagename("VXLNGITA.TXT.old"), "");
}

TEST(Languages, AnEnglishNameFindsALanguageToo) {
    ASSERT_NE(languageofname("german"), nullptr);
    EXPECT_EQ(languageofname("german")->name, "Deutsch");
    EXPECT_EQ(languageofname("English")->file, "VXLNGENG.TXT");
}

TEST(Languages, AnUnknownNameOrFileFindsNothing) {
    for (const char* text : {"", "Latin", "VXLNG", "Françai"}) {
        EXPECT_EQ(languagename(text), "");
        EXPECT_EQ(languagefile(text), "");
    }
}

TEST(Languages, EveryFileNameHasTwelveLettersAndIsItsOwn) {
    std::set<std::string_view> files;
    for (const Language& language : languages()) {
        EXPECT_EQ(language.file.size(), 12u);
        EXPECT_TRUE(files.insert(language.file).second) << language.file;
    }
}

TEST_P(Tables, HasAWordForEverySlotInOrder) {
    ASSERT_EQ(table().size(), static_cast<std::size_t>(wordSlots));
    for (int i = 0; i < wordSlots; ++i) EXPECT_EQ(static_cast<int>(table()[i].slot), i + 1);
}

TEST_P(Tables, HasNoEmptyEntryAndNoForbiddenJoint) {
    for (const TableWord& entry : table()) {
        EXPECT_EQ(wordrepaired(entry.text), entry.text) << englishof(entry);
        EXPECT_FALSE(entry.text.empty()) << englishof(entry);
    }
}

TEST_P(Tables, BeginsWithItsOwnName) {
    const std::string_view own = table()[0].text;
    EXPECT_EQ(GetParam()->name.substr(0, own.size()), own);
    EXPECT_GE(own.size(), GetParam()->name.substr(0, GetParam()->name.find(" (")).size());
}

TEST_P(Tables, MarksEveryWordByTheRules) {
    for (const TableWord& entry : table())
        for (const std::string_view word : cutat(entry.text, ' '))
            EXPECT_TRUE(wellmarked(word)) << englishof(entry) << ": " << entry.text;
}

TEST_P(Tables, HoldsOnlyLettersThatAreSafeInAnItem) {
    for (const TableWord& entry : table()) {
        EXPECT_TRUE(isutf8(entry.text)) << englishof(entry);
        EXPECT_EQ(entry.text.find_first_of("*{}[]\"\\"), std::string_view::npos) << entry.text;
        EXPECT_EQ(entry.text.find("..."), std::string_view::npos) << entry.text;
        for (const char c : entry.text) EXPECT_GE(static_cast<unsigned char>(c), 0x20) << entry.text;
    }
}

TEST_P(Tables, LeavesNamesOfPeopleAndMethodsAsTheyAre) {
    constexpr std::string_view names[] = {"Weibull", "Weibayes", "Crow-AMSAA",   "Abernethy", "Barringer",
                                          "Nelson",  "Fisher",   "Kaplan-Meier", "PFEV",      "CoVariate",
                                          "MTBF",    "MCF",      "r^2",          "t0",        "<Esc>"};
    for (const TableWord& entry : table())
        for (const std::string_view name : names)
            if (englishof(entry).find(name) != std::string_view::npos) {
                EXPECT_NE(entry.text.find(name), std::string_view::npos) << entry.text;
            }
}

TEST_P(Tables, IsNoCopyOfTheEnglishOne) {
    const auto same = std::count_if(table().begin(), table().end(),
                                    [](const TableWord& entry) { return entry.text == englishof(entry); });
    EXPECT_LT(same, wordSlots / 4);
}

INSTANTIATE_TEST_SUITE_P(Each, Tables, testing::ValuesIn(translated()),
                         [](const auto& tested) { return std::string(tested.param->alias); });
