#include "shell/words.h"

#include <array>
#include <charconv>

#include "data/numbertext.h"
#include "session/session.h"

namespace {

constexpr std::array<std::string_view, wordSlots + 1> english = {
    "",
#define WORD(name, text) text,
#include "shell/wordlist.def"
#undef WORD
};

std::array<std::string, wordSlots + 1> englishwords() {
    std::array<std::string, wordSlots + 1> words;
    for (std::size_t i = 0; i < words.size(); ++i) words[i] = english[i];
    return words;
}

/// The table in force. Filled before the first routine runs: a word asked early is never an empty one.
std::array<std::string, wordSlots + 1> words = englishwords();

void exchange(std::string& text, std::string_view from, std::string_view to) {
    if (from.empty() || to.empty() || from == to) return;
    for (auto at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size()))
        text.replace(at, from.size(), to);
}

} // namespace

const std::string& word(Word slot) {
    const auto number = static_cast<int>(slot);
    return words[number >= 1 && number <= wordSlots ? static_cast<std::size_t>(number) : 0];
}

void wordload() { words = englishwords(); }

void wordclean(std::string& text) {
    for (auto open = text.find('{'); open != std::string::npos; open = text.find('{', open)) {
        const auto close = text.find('}', open);
        if (close == std::string::npos) return;
        text.erase(open, close - open + 1);
    }
}

void wordnumber(std::string& text) { exchange(text, ".", session.displayDecimal); }

void wordnumberback(std::string& text) { exchange(text, session.displayDecimal, "."); }

void append(std::string& text, std::string_view part) { text += part; }
void append(std::string& text, char part) { text += part; }
void append(std::string& text, Word slot) { text += word(slot); }

void append(std::string& text, int number) {
    char digits[12];
    text.append(digits, std::to_chars(digits, digits + sizeof digits, number).ptr);
}

void append(std::string& text, double number) { appendtrimmed(text, number); }
void append(std::string& text, float number) { appendtrimmed(text, number); }
