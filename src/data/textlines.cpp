#include "data/textlines.h"

#include <algorithm>

namespace {

constexpr std::size_t longestQuoted = 4096; ///< a quote that is not closed within it is no more than a mark

bool isblank(char c) { return c == ' ' || c == '\0' || c == '\f' || c == '\v'; }
bool isend(char c) { return c == '\n' || c == '\r'; }

std::string_view withoutblanks(std::string_view text) {
    while (!text.empty() && (isblank(text.front()) || text.front() == '\t')) text.remove_prefix(1);
    return text;
}

std::string_view trimmedfield(std::string_view text) {
    text = withoutblanks(text);
    while (!text.empty() && (isblank(text.back()) || text.back() == '\t')) text.remove_suffix(1);
    return text;
}

/// Place behind the quote that closes the one at `at`; `at` itself when that one is only a mark: not closed,
/// not followed by the end of a field, or around several lines that begin with a number.
std::size_t behindquoted(std::string_view text, std::size_t at) {
    const std::size_t last = std::min(text.size(), at + longestQuoted);
    bool severalLines = false;
    for (std::size_t i = at + 1; i < last; ++i) {
        severalLines = severalLines || isend(text[i]);
        if (text[i] != '"') continue;
        if (i + 1 < last && text[i + 1] == '"') {
            ++i;
            continue;
        }
        std::size_t behind = i + 1;
        while (behind < text.size() && isblank(text[behind])) ++behind;
        const bool ended = behind == text.size() || isend(text[behind])
                           || std::string_view("\t;,").find(text[behind]) != std::string_view::npos;
        if (!ended || (severalLines && beginsnumber(withoutblanks(text.substr(at + 1))))) return at;
        return i + 1;
    }
    return at;
}

/// True when a field may begin at `at`.
bool fieldbegins(std::string_view text, std::size_t at) {
    while (at > 0 && isblank(text[at - 1])) --at;
    return at == 0 || std::string_view("\t;,").find(text[at - 1]) != std::string_view::npos;
}

/// The place to go on at: behind a quoted field that begins here, else here.
std::size_t passquoted(std::string_view text, std::size_t at) {
    return text[at] == '"' && fieldbegins(text, at) ? behindquoted(text, at) : at;
}

/// Length of the first word of a text: up to a blank. A mark of suspension or discovery and the number behind
/// it, "> 100", are one.
std::size_t wordlength(std::string_view text) {
    std::size_t at = 0;
    if (text.starts_with('>') || text.starts_with('<'))
        for (++at; at < text.size() && isblank(text[at]);) ++at;
    while (at < text.size() && !isblank(text[at])) ++at;
    return at;
}

/// A row of numbers and nothing else: dates with a time of day and labels are none.
bool numberrow(std::string_view text) {
    if (text.find(' ') == std::string_view::npos || text.find_first_of("_:") != std::string_view::npos)
        return false;
    while (!text.empty()) {
        if (!beginsnumber(text)) return false;
        text.remove_prefix(wordlength(text));
        text = trimmedfield(text);
    }
    return true;
}

/// True when the digits at `at`, going on by `step`, end at a mark of dates and times: the comma stands
/// beside a date, which no number does.
bool indate(std::string_view text, std::size_t at, std::size_t step) {
    constexpr int mostDigits = 4;
    for (int i = 0; i < mostDigits && at < text.size() && decimaldigit(text[at]); ++i) at += step;
    const std::size_t behind = at + step;
    return at < text.size() && std::string_view("-/:").find(text[at]) != std::string_view::npos
           && behind < text.size() && decimaldigit(text[behind]);
}

} // namespace

bool beginsnumber(std::string_view text) {
    return !text.empty() && std::string_view("0123456789+-.<>").find(text.front()) != std::string_view::npos;
}

bool betweendigits(std::string_view text, std::size_t comma) {
    if (comma + 1 >= text.size() || !decimaldigit(text[comma + 1])) return false;
    constexpr std::size_t back = static_cast<std::size_t>(-1);
    if (indate(text, comma + 1, 1) || (comma > 0 && indate(text, comma - 1, back))) return false;
    return comma == 0 || decimaldigit(text[comma - 1]) || text[comma - 1] == '-' || text[comma - 1] == '+'
           || isblank(text[comma - 1]);
}

bool TextLines::next() {
    fields.clear();
    if (rest.empty()) return false;
    bool tab = false, semicolon = false, comma = false;
    line = takeline(tab, semicolon, comma);
    const std::string_view content = trimmedfield(line);
    if (content.empty() || content.front() == '#') return true;
    if (tab)
        cutat('\t');
    else if (semicolon)
        cutat(';');
    else if (!comma || !cutatcommas())
        cutatblanks();
    return true;
}

/// CR LF, LF, CR and the CR CR LF of a text that was turned twice each end one line.
std::string_view TextLines::takeline(bool& tab, bool& semicolon, bool& comma) {
    std::size_t at = 0;
    for (; at < rest.size() && !isend(rest[at]); ++at) {
        if (rest[at] == '"') {
            const std::size_t behind = passquoted(rest, at);
            if (behind > at) at = behind - 1;
        }
        tab = tab || rest[at] == '\t';
        semicolon = semicolon || rest[at] == ';';
        comma = comma || rest[at] == ',';
    }
    const std::string_view taken = rest.substr(0, at);
    rest.remove_prefix(at);
    for (const std::string_view end : {"\r\n", "\r\r\n", "\n", "\r"})
        if (rest.starts_with(end)) {
            rest.remove_prefix(end.size());
            break;
        }
    return taken;
}

void TextLines::put(std::string_view text, bool framed) {
    if (fields.size() < mostFields) fields.push_back({text, false, framed});
}

void TextLines::putwords(std::string_view text, bool framed) {
    text = trimmedfield(text);
    if (text.starts_with('"') && behindquoted(text, 0) == text.size()) {
        if (fields.size() < mostFields) fields.push_back({text.substr(1, text.size() - 2), true, true});
        return;
    }
    if (!numberrow(text)) return put(text, framed);
    while (!text.empty()) {
        const std::size_t end = wordlength(text);
        put(text.substr(0, end), framed);
        text = trimmedfield(text.substr(end));
    }
}

/// An empty field keeps the place of its column.
void TextLines::cutat(char mark) {
    std::size_t start = 0;
    for (std::size_t at = 0; at < line.size(); ++at) {
        at = passquoted(line, at);
        if (at == line.size()) break;
        if (line[at] != mark) continue;
        putwords(line.substr(start, at - start), true);
        start = at + 1;
    }
    putwords(line.substr(start), true);
}

/// False, with no field taken, when every comma of the line may be a decimal symbol or is part of a label. A
/// label ends at a comma with a number behind it.
bool TextLines::cutatcommas() {
    std::size_t start = 0;
    bool label = false;
    for (std::size_t at = 0; at < line.size(); ++at) {
        at = passquoted(line, at);
        if (at == line.size()) break;
        if (line[at] == '_') label = label || beginsnumber(withoutblanks(line.substr(start)));
        if (line[at] != ',') continue;
        if (!commaSeparates && betweendigits(line.substr(start), at - start)) continue;
        if (label && !beginsnumber(withoutblanks(line.substr(at + 1, 8)))) continue;
        putwords(line.substr(start, at - start), false);
        start = at + 1;
        label = false;
    }
    if (start == 0) return false;
    putwords(line.substr(start), false);
    return true;
}

/// A label reaches to the next word that begins like a number.
void TextLines::cutatblanks() {
    std::string_view words = trimmedfield(line);
    const auto wordend = [&](std::size_t from) {
        while (from < words.size() && !isblank(words[from])) ++from;
        return from;
    };
    while (!words.empty()) {
        if (const std::size_t behind = passquoted(words, 0); behind > 0) {
            putwords(words.substr(0, behind), false);
            words = trimmedfield(words.substr(behind));
            continue;
        }
        std::size_t end = wordlength(words);
        if (words.substr(0, end).find('_') != std::string_view::npos) {
            for (std::size_t from = end; from < words.size();) {
                while (from < words.size() && isblank(words[from])) ++from;
                if (beginsnumber(words.substr(from))) break;
                from = end = wordend(from);
            }
        }
        put(trimmedfield(words.substr(0, end)), false);
        words = trimmedfield(words.substr(end));
    }
}
