#include "plot/plottertext.h"

#include "data/utf8.h"

namespace {

/// Base letters of U+00C0 to U+00FF.
constexpr std::string_view latinBase[64] = {
    "A", "A", "A", "A", "A", "A", "AE", "C", "E", "E", "E", "E", "I", "I", "I",  "I",
    "D", "N", "O", "O", "O", "O", "O",  "?", "O", "U", "U", "U", "U", "Y", "Th", "ss",
    "a", "a", "a", "a", "a", "a", "ae", "c", "e", "e", "e", "e", "i", "i", "i",  "i",
    "d", "n", "o", "o", "o", "o", "o",  "?", "o", "u", "u", "u", "u", "y", "th", "y"};

/// Plain form of a character above ASCII.
std::string_view plain(char32_t c) {
    if (c >= 0x80 && c <= 0x9F) return "";
    if (c == 0xA0) return " ";
    if (c >= 0xC0 && c <= 0xFF) return latinBase[c - 0xC0];
    if ((c >= 0x2010 && c <= 0x2015) || c == 0x2212) return "-";
    if (c >= 0x2018 && c <= 0x201B) return "'";
    if (c >= 0x201C && c <= 0x201F) return "\"";
    return "?";
}

} // namespace

std::string plottertext(std::string_view text) {
    std::string out;
    while (!text.empty()) {
        const char32_t c = takecharacter(text);
        if (c >= ' ' && c <= '~')
            out += static_cast<char>(c);
        else if (c > 0x7F)
            out += plain(c);
    }
    return out;
}
