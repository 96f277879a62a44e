#include "shell/words.h"

#include <array>
#include <charconv>

#include "data/numbertext.h"
#include "session/session.h"
#include "shell/phrases.h"
#include "shell/wordload.h"

namespace {

constexpr std::array<std::string_view, wordSlots + 1> english = {
    "",
#define WORD(name, text) text,
#include "shell/wordlist.def"
#undef WORD
};

WordTable englishwords() {
    WordTable words;
    for (std::size_t i = 0; i < words.size(); ++i) words[i] = english[i];
    return words;
}

/// The table in force. Filled before the first routine runs: a word asked early is never an empty one.
WordTable words = englishwords();
const Language* inForce = nullptr;

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

std::string wordrepaired(std::string_view text) {
    const auto first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    std::string repaired(text.substr(first, text.find_last_not_of(' ') - first + 1));
    for (char& c : repaired)
        if (c == '?') c = '_';
    return repaired;
}

void wordwalk(std::span<const TableWord> table, WordTable& target) {
    std::size_t slot = 1;
    for (const TableWord& entry : table) {
        if (slot > wordSlots) return;
        std::string text = wordrepaired(entry.text);
        if (text.empty()) return;
        target[slot++] = std::move(text);
    }
}

void wordload() {
    inForce = languageoffile(session.languageFile);
    if (!inForce) session.languageFile.clear();
    for (std::size_t i = 0; i < words.size(); ++i) words[i] = english[i];
    if (inForce) wordwalk(inForce->table, words);
    phraseload();
}

const Language* languageinforce() { return inForce; }

void wordnumber(std::string& text) { exchange(text, ".", session.displayDecimal); }

void wordnumberback(std::string& text) { exchange(text, session.displayDecimal, "."); }

void wordnumbermenu(std::string& text) { exchange(text, ".", session.exportDecimal); }

void wordnumbermenuback(std::string& text) { exchange(text, session.exportDecimal, "."); }

void append(std::string& text, std::string_view part) { text += part; }
void append(std::string& text, char part) { text += part; }
void append(std::string& text, Word slot) { text += word(slot); }

void append(std::string& text, int number) {
    char digits[12];
    text.append(digits, std::to_chars(digits, digits + sizeof digits, number).ptr);
}

void append(std::string& text, double number) { appendtrimmed(text, number); }
void append(std::string& text, float number) { appendtrimmed(text, number); }
