#include "data/utf8.h"

#include <algorithm>
#include <charconv>
#include <cstdint>

namespace {

/// Code points of the windows-1252 bytes 0x80 to 0x9F; an undefined byte stays its own control code.
constexpr char16_t windowsUpper[32] = {0x20AC, 0x81,   0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                       0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x8D,   0x017D, 0x8F,
                                       0x90,   0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                       0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x9D,   0x017E, 0x0178};

void appendpoint(std::string& out, char32_t point) {
    if (point < 0x80) {
        out += static_cast<char>(point);
    } else if (point < 0x800) {
        out += static_cast<char>(0xC0 | (point >> 6));
        out += static_cast<char>(0x80 | (point & 0x3F));
    } else if (point < 0x10000) {
        out += static_cast<char>(0xE0 | (point >> 12));
        out += static_cast<char>(0x80 | ((point >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (point & 0x3F));
    } else {
        out += static_cast<char>(0xF0 | (point >> 18));
        out += static_cast<char>(0x80 | ((point >> 12) & 0x3F));
        out += static_cast<char>(0x80 | ((point >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (point & 0x3F));
    }
}

/// Length of the well-formed sequence at the start of text; 0 when there is none.
std::size_t sequencelength(std::string_view text) {
    const auto byte = [&](std::size_t i) { return static_cast<uint8_t>(text[i]); };
    const uint8_t lead = byte(0);
    if (lead < 0x80) return 1;
    const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    if (lead < 0xC2 || lead > 0xF4 || text.size() < length) return 0;
    // The second byte carries the limits against overlong forms, surrogates and the end of the code space.
    const uint8_t low = lead == 0xE0 ? 0xA0 : lead == 0xF0 ? 0x90 : 0x80;
    const uint8_t high = lead == 0xED ? 0x9F : lead == 0xF4 ? 0x8F : 0xBF;
    if (byte(1) < low || byte(1) > high) return 0;
    for (std::size_t i = 2; i < length; ++i)
        if ((byte(i) & 0xC0) != 0x80) return 0;
    return length;
}

/// UTF-16 in either byte order; half a pair becomes the replacement character (RFC 2781).
std::string fromutf16(std::string_view bytes, bool bigEndian) {
    const auto unit = [&](std::size_t at) {
        const auto first = static_cast<unsigned char>(bytes[at]);
        const auto second = static_cast<unsigned char>(bytes[at + 1]);
        return static_cast<char32_t>(bigEndian ? first << 8 | second : second << 8 | first);
    };
    std::string out;
    out.reserve(bytes.size() / 2);
    for (std::size_t at = 0; at + 1 < bytes.size(); at += 2) {
        const char32_t c = unit(at);
        const char32_t next = at + 3 < bytes.size() ? unit(at + 2) : 0;
        if (c >= 0xD800 && c < 0xDC00 && next >= 0xDC00 && next < 0xE000) {
            appendpoint(out, 0x10000 + ((c - 0xD800) << 10) + (next - 0xDC00));
            at += 2;
        } else {
            appendpoint(out, c >= 0xD800 && c < 0xE000 ? 0xFFFD : c);
        }
    }
    return out;
}

/// UTF-16 without a mark: digits and signs have a zero beside them.
bool looksutf16(std::string_view text, bool bigEndian) {
    if (text.size() < 4 || text.size() % 2 != 0) return false;
    const std::size_t zero = bigEndian ? 0 : 1;
    return text[zero] == 0 && text[zero + 2] == 0 && text[1 - zero] != 0 && text[3 - zero] != 0;
}

} // namespace

bool isutf8(std::string_view text) {
    while (!text.empty()) {
        const std::size_t length = sequencelength(text);
        if (length == 0) return false;
        text.remove_prefix(length);
    }
    return true;
}

std::string asutf8(std::string_view text) {
    if (isutf8(text)) return std::string(text);
    std::string out;
    for (const char c : text) {
        const auto byte = static_cast<uint8_t>(c);
        appendpoint(out, byte >= 0x80 && byte < 0xA0 ? windowsUpper[byte - 0x80] : char16_t{byte});
    }
    return out;
}

std::string unicodetext(std::string text) {
    constexpr std::string_view utf8Mark = "\xEF\xBB\xBF", littleMark = "\xFF\xFE", bigMark = "\xFE\xFF";
    const std::string_view view = text;
    if (view.starts_with(littleMark)) return fromutf16(view.substr(2), false);
    if (view.starts_with(bigMark)) return fromutf16(view.substr(2), true);
    if (looksutf16(view, false) || looksutf16(view, true)) return fromutf16(view, looksutf16(view, true));
    if (view.starts_with(utf8Mark)) text.erase(0, utf8Mark.size());
    return isutf8(text) ? text : asutf8(text);
}

char32_t takecharacter(std::string_view& text) {
    const std::size_t length = sequencelength(text);
    const auto lead = static_cast<uint8_t>(text[0]);
    char32_t point = length == 0 ? 0xFFFD : length == 1 ? lead : lead & (0x7F >> length);
    for (std::size_t i = 1; i < length; ++i) point = (point << 6) | (static_cast<uint8_t>(text[i]) & 0x3F);
    text.remove_prefix(length == 0 ? 1 : length);
    return point;
}

std::string aswestern(std::string_view text) {
    std::string western;
    western.reserve(text.size());
    while (!text.empty()) {
        const char32_t c = takecharacter(text);
        if (c == '&' && text.starts_with('#')) {
            western += "&#38;";
            continue;
        }
        const auto* const upper = std::find(std::begin(windowsUpper), std::end(windowsUpper), c);
        if (c < 0x80 || (c >= 0xA0 && c < 0x100))
            western += static_cast<char>(c);
        else if (upper != std::end(windowsUpper))
            western += static_cast<char>(0x80 + (upper - std::begin(windowsUpper)));
        else
            western += "&#" + std::to_string(static_cast<uint32_t>(c)) + ";";
    }
    return western;
}

std::string withoutnumbers(std::string_view text) {
    std::string plain;
    plain.reserve(text.size());
    while (!text.empty()) {
        const auto mark = std::min(text.find("&#"), text.size());
        plain += text.substr(0, mark);
        text.remove_prefix(mark);
        if (text.empty()) break;
        uint32_t number = 0;
        const char* const end = text.data() + text.size();
        const auto read = std::from_chars(text.data() + 2, end, number);
        const bool named = read.ec == std::errc() && read.ptr != end && *read.ptr == ';' && number < 0x110000
                           && (number < 0xD800 || number > 0xDFFF) && number > 0;
        if (named) appendpoint(plain, number);
        const auto taken = named ? static_cast<std::size_t>(read.ptr + 1 - text.data()) : 2;
        if (!named) plain += text.substr(0, taken);
        text.remove_prefix(taken);
    }
    return plain;
}
