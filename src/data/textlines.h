#pragma once

#include <string_view>
#include <vector>

/// The lines of a text from outside, cut into fields.
///
/// A line is cut at its tabs; at its semicolons where it has no tab; at its commas where it has neither; and
/// at its blanks where it has none of them. A comma between digits may be a decimal symbol: it cuts only when
/// that was decided before. A field in quotes stands as it is (RFC 4180). Between tabs, semicolons and commas
/// a field keeps its blanks, unless it is a row of numbers.
struct TextField {
    std::string_view text;
    bool quoted = false; ///< text is what stands between the quotes, doubled quotes still doubled
    bool framed = false; ///< stands between tabs or semicolons, so that a comma in it cannot separate
};

class TextLines {
public:
    static constexpr std::size_t mostFields = 1
                                              << 20; ///< of one line; what stands behind them is passed over

    TextLines(std::string_view text, bool everyComma) : rest(text), commaSeparates(everyComma) {}

    /// Takes the next line: its fields stand in `fields`. False at the end of the text.
    bool next();

    std::vector<TextField> fields;
    std::string_view line; ///< as it stands in the text

private:
    std::string_view rest;
    bool commaSeparates;

    std::string_view takeline(bool& tab, bool& semicolon, bool& comma);
    void cutat(char mark);
    bool cutatcommas();
    void cutatblanks();
    void put(std::string_view text, bool framed);
    void putwords(std::string_view text, bool framed);
};

/// True for a text that begins as a number, or one with a mark, does.
bool beginsnumber(std::string_view text);

/// True for a comma with a digit behind it, and a digit or nothing of its field before it; not for one beside
/// a date.
bool betweendigits(std::string_view text, std::size_t comma);

inline bool decimaldigit(char c) { return c >= '0' && c <= '9'; }
