#pragma once

#include <span>
#include <string_view>

#include "shell/words.h"

/// One slot of a translated table. Its text may hold forms and gender marks: "Nuovo_am_Nuova_af".
struct TableWord {
    Word slot;
    std::string_view text;
};

/// A language that the words can be shown in.
struct Language {
    std::string_view name;            ///< as the language page shows it
    std::string_view alias;           ///< its English name
    std::string_view file;            ///< mark that it is installed
    bool offered;                     ///< stands on the language page
    std::span<const TableWord> table; ///< empty: the default words stay
};

/// All languages, those of the page in its order.
std::span<const Language> languages();

/// The language of a file, by the right-most 12 letters of its path; null when there is none.
const Language* languageoffile(std::string_view path);

/// The language of that name or English alias; null when there is none. Case does not matter, neither in
/// accented letters.
const Language* languageofname(std::string_view name);

std::string_view languagename(std::string_view file); ///< name by file; empty for an unknown file
std::string_view languagefile(std::string_view name); ///< file by name; empty for an unknown name
