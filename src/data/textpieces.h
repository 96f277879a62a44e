#pragma once

#include <algorithm>
#include <cctype>
#include <string>
#include <string_view>

/// Pieces of text as the readers of names and lines take them. ASCII letters alone have two cases here.

inline std::string uppercase(std::string_view text) {
    std::string upper(text);
    std::transform(upper.begin(), upper.end(), upper.begin(),
                   [](unsigned char c) { return std::toupper(c); });
    return upper;
}

inline std::string lowercase(std::string_view text) {
    std::string lower(text);
    std::transform(lower.begin(), lower.end(), lower.begin(),
                   [](unsigned char c) { return std::tolower(c); });
    return lower;
}

/// Without blanks, tabs and carriage returns at its ends.
inline std::string_view trimmed(std::string_view text) {
    const auto begin = text.find_first_not_of(" \t\r");
    return begin == std::string_view::npos ? std::string_view()
                                           : text.substr(begin, text.find_last_not_of(" \t\r") - begin + 1);
}

/// Takes the first line off a text, without its line end.
inline std::string_view takeline(std::string_view& text) {
    const auto end = std::min(text.find('\n'), text.size());
    std::string_view line = text.substr(0, end);
    if (line.ends_with('\r')) line.remove_suffix(1);
    text.remove_prefix(std::min(end + 1, text.size()));
    return line;
}
