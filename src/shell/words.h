#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// Word slots, numbered from 1 to 474 and named by their English word: Word::Risk, Word::Set.
enum class Word : int16_t {
    None_ = 0,
#define WORD(name, text) name,
#include "shell/wordlist.def"
#undef WORD
};

inline constexpr int wordSlots = 474;

/// The strings between the parts of a longer text.
inline constexpr std::string_view tabMark = "\t";
inline constexpr std::string_view lineBreak = "\r\n";
inline constexpr std::string_view doubleLineBreak = "\r\n\r\n";

/// The word of a slot in the language in force; the empty text for a number that is no slot. The slots hold
/// the English words from the start of the process.
const std::string& word(Word slot);

/// Fills all slots for session.languageFile and rebuilds the derived phrases. English stands where the table
/// of a language has no text, and for an unknown file, whose name is then cleared.
void wordload();

/// The language whose words stand in the slots; null before the first load, when English stands.
struct Language;
const Language* languageinforce();

/// Takes a composed text and gives the text to show, in place: what stands between braces is dropped, with
/// the braces; in a translated language the words agree and lose their marks; typed text comes out as it was
/// typed. A brace without its partner stays. No allocation in English. A text is cleaned once: what was
/// typed is ordinary text afterwards.
void wordclean(std::string& text);

/// Text of the user within a composed one: a file name, a label, a cell. Letters that mean something to
/// wordclean are put in other bytes until it has passed.
struct AsTyped {
    std::string_view text;
};

/// Puts the letters of typed text back where the composed text is not to be cleaned.
void wordrestore(std::string& text);

/// Exchanges "." with the decimal symbol of the display, in place. Nothing happens when the symbol is empty
/// or ".".
void wordnumber(std::string& text);
void wordnumberback(std::string& text);

/// The same with the decimal symbol of exported and imported text.
void wordnumbermenu(std::string& text);
void wordnumbermenuback(std::string& text);

/// Composing: appends words, literals and numbers to a text. Numbers are written by the number-to-text
/// routine without a leading blank, so a sentence reads compose(msg, Word::Set, " ", k, ": ", …). Nothing is
/// allocated when the capacity of the text suffices. A part must not be a view into the text itself.
void append(std::string& text, std::string_view part);
void append(std::string& text, char part);
void append(std::string& text, Word slot);
void append(std::string& text, AsTyped part);
void append(std::string& text, int number);
void append(std::string& text, double number);
void append(std::string& text, float number);

template <class... Parts>
std::string& extend(std::string& text, const Parts&... parts) {
    (append(text, parts), ...);
    return text;
}

/// The same, from an empty text.
template <class... Parts>
std::string& compose(std::string& text, const Parts&... parts) {
    text.clear();
    return extend(text, parts...);
}
