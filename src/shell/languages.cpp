#include "shell/languages.h"

#include <algorithm>
#include <string>

namespace {

#define WORD(name, text) {Word::name, text},
constexpr TableWord german[] = {
#include "shell/languages/german.def"
};
constexpr TableWord spanish[] = {
#include "shell/languages/spanish.def"
};
constexpr TableWord french[] = {
#include "shell/languages/french.def"
};
constexpr TableWord italian[] = {
#include "shell/languages/italian.def"
};
constexpr TableWord hungarian[] = {
#include "shell/languages/hungarian.def"
};
constexpr TableWord dutch[] = {
#include "shell/languages/dutch.def"
};
constexpr TableWord polish[] = {
#include "shell/languages/polish.def"
};
constexpr TableWord portuguese[] = {
#include "shell/languages/portuguese.def"
};
constexpr TableWord swedish[] = {
#include "shell/languages/swedish.def"
};
constexpr TableWord turkish[] = {
#include "shell/languages/turkish.def"
};
constexpr TableWord swahili[] = {
#include "shell/languages/swahili.def"
};
constexpr TableWord javanese[] = {
#include "shell/languages/javanese.def"
};
#undef WORD

/// A word moved by one line would speak in the place of its neighbour.
constexpr bool inslotorder(std::span<const TableWord> table) {
    for (std::size_t i = 0; i < table.size(); ++i)
        if (static_cast<std::size_t>(table[i].slot) != i + 1) return false;
    return table.size() == wordSlots;
}
static_assert(inslotorder(german));
static_assert(inslotorder(spanish));
static_assert(inslotorder(french));
static_assert(inslotorder(italian));
static_assert(inslotorder(hungarian));
static_assert(inslotorder(dutch));
static_assert(inslotorder(polish));
static_assert(inslotorder(portuguese));
static_assert(inslotorder(swedish));
static_assert(inslotorder(turkish));
static_assert(inslotorder(swahili));
static_assert(inslotorder(javanese));

constexpr Language all[] = {
    {"English (American)", "English", "VXLNGENG.TXT", true, {}},
    {"Français", "French", "VXLNGFRN.TXT", true, french},
    {"Deutsch", "German", "VXLNGDEU.TXT", true, german},
    {"Español", "Spanish", "VXLNGESP.TXT", true, spanish},
    {"Svenska", "Swedish", "VXLNGSVE.TXT", true, swedish},
    {"Português (Brazilian)", "Portuguese", "VXLNGPOR.TXT", true, portuguese},
    {"Nederlands", "Dutch", "VXLNGNED.TXT", true, dutch},
    {"Italiano", "Italian", "VXLNGITA.TXT", true, italian},
    {"Additional Language", "Additional", "VXLNGLNG.TXT", true, {}},
    {"Magyar", "Hungarian", "VXLNGHGR.TXT", false, hungarian},
    {"Polsku", "Polish", "VXLNGPOL.TXT", false, polish},
    {"Türk", "Turkish", "VXLNGTRK.TXT", false, turkish},
    {"Kiswahili", "Swahili", "VXLNGSWA.TXT", false, swahili},
    {"Basa Jawa", "Javanese", "VXLNGJAV.TXT", false, javanese},
};

/// Upper case for the letters of the names above: ASCII, and the accented ones of Latin-1 in UTF-8.
std::string uppercased(std::string_view text) {
    constexpr char latin = '\xC3';
    constexpr char division = '\xB7';
    std::string upper(text);
    char before = 0;
    for (char& c : upper) {
        const char read = c;
        const bool accented = before == latin && c >= '\xA0' && c <= '\xBE' && c != division;
        if ((c >= 'a' && c <= 'z') || accented) c = static_cast<char>(c - ('a' - 'A'));
        before = read;
    }
    return upper;
}

template <class Matches>
const Language* find(Matches matches) {
    const auto* const found = std::find_if(std::begin(all), std::end(all), matches);
    return found == std::end(all) ? nullptr : found;
}

} // namespace

std::span<const Language> languages() { return all; }

const Language* languageoffile(std::string_view path) {
    constexpr std::size_t fileLength = 12;
    if (path.size() > fileLength) path.remove_prefix(path.size() - fileLength);
    const std::string file = uppercased(path);
    return find([&](const Language& language) { return language.file == file; });
}

const Language* languageofname(std::string_view name) {
    const std::string wanted = uppercased(name);
    return find([&](const Language& language) {
        return uppercased(language.name) == wanted || uppercased(language.alias) == wanted;
    });
}

std::string_view languagename(std::string_view file) {
    const Language* const language = languageoffile(file);
    return language ? language->name : std::string_view();
}

std::string_view languagefile(std::string_view name) {
    const Language* const language = languageofname(name);
    return language ? language->file : std::string_view();
}
