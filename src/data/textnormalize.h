#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// Text from outside made uniform: UTF-8, one mark between items and one between lines.

inline constexpr char itemSeparator = '\t';
inline constexpr char lineSeparator = '\r';

/// The bytes of a file or of the clipboard as UTF-8, as unicodetext reads them. An apostrophe or a narrow or
/// no-break space between thousands, "1'234", goes where the groups leave no doubt; other no-break spaces
/// become blanks, and the minus sign U+2212 becomes "-".
std::string decodetext(std::string text);

/// What a comma within a number means.
enum class Comma : std::uint8_t {
    none,      ///< there is none
    separator, ///< "1,5" are two items
    decimal,   ///< "1,5" is one and a half
    group,     ///< "1,500" is fifteen hundred
    undecided, ///< two readings are possible
};

/// The meaning of commas, in a text whose items they may separate and in items that something else separates.
struct TextMarks {
    Comma between = Comma::none; ///< of commas in items cut at blanks and commas
    Comma within = Comma::none;  ///< of commas in items between tabs, semicolons or quotes
};

/// What a text tells about its commas. A reading is taken where it is the only one.
struct TextLook {
    TextMarks marks;
    std::size_t numberLines = 0;    ///< lines that begin like a number
    std::size_t undecidedLines = 0; ///< lines with a comma that can be read in two ways
    std::string_view firstLine;     ///< the first of these, a view into the text
    bool thousands = false;         ///< `between` is open, and each comma may be a mark between thousands
    bool decimals = true;           ///< `between` may be decimal symbols

    bool undecided() const { return marks.between == Comma::undecided || marks.within == Comma::undecided; }
};
TextLook textlook(std::string_view text);

/// The text with its separators made uniform: the items of a line stand between tabs, the lines end with a
/// carriage return. Blanks at the ends go, several blanks count as one separator, "*" in a cell becomes "x".
/// A label, a quoted item and an item between tabs, semicolons or commas keep their inner blanks, unless the
/// item is a row of numbers. Empty lines stay, and so do empty items in front of others: they keep the row
/// and the column. A line beginning with "#" is a note, and becomes empty. An undecided comma stays as it is.
/// One pass over the text.
std::string textnormalize(std::string_view text, const TextMarks& marks = {});
