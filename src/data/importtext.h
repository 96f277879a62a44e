#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Pieces of imported text: rows of a normalised text, numbers, dates, and cells made of them.

/// The rows of a normalised text, one after the other.
class TextRows {
public:
    explicit TextRows(std::string_view text) : rest(text) {}
    /// Takes the next row: its items stand in `items`, none for an empty line. False at the end.
    bool next();
    std::vector<std::string_view> items;
    std::size_t number = 0; ///< of the row, from 1

private:
    std::string_view rest;
};

/// The value of a text that is a number in range and nothing else, a percent sign behind it allowed; nothing
/// otherwise.
std::optional<double> wholenumber(std::string_view text);

/// Day number of a date, from an origin of its own: three groups of digits with "-", "/" or "." between them,
/// a time of day behind them passed over, "@" before them too. A first group of four digits is the year, then
/// month and day; else the order is that of `order`, letters Y, M, D. Y, M, D is as nobody has chosen: dates
/// with points are then D.M.Y, and a year of two digits is not guessed at. In a chosen order such a year is
/// one of 1969 to 2068 (IEEE Std 1003.1, strptime). Nothing for any other text or a day that does not exist.
using DateOrder = std::array<std::string, 3>;
std::optional<int> daynumber(std::string_view text, const DateOrder& order);

/// True for a cell of up to four fields, marks and a label, each field a number to its end: the reader of
/// cells takes the number that a field begins with, "12" of "12:30".
bool goodcell(std::string_view cell);

/// True for an item that can be a heading: words, but neither digits with marks ("$100") nor what stands for
/// a missing value (NA, NaN, "-").
bool isheading(std::string_view item);

/// What a mark of suspension says: true for S, 0, "+" and the words of a suspension, false for F, 1 and those
/// of a failure, in either case; nothing for any other text.
std::optional<bool> suspensionmark(std::string_view text);

/// True for three groups of digits as a date has them, a possible date or not: as a number the first group
/// alone would be read.
bool looksdate(std::string_view text);

/// A point on its way into a cell, as texts.
struct ImportPoint {
    std::string x;
    std::string y, quantity, z; ///< empty: not given
    std::string_view label;
    bool suspended = false;
};

/// How a suspension is written: by a minus sign where that is no value, else by the sentinel in Z.
enum class SuspendBy { minus, sentinel };

/// Appends the cell of a point: "X", "XxY" or all four fields, and its label.
void appendpoint(std::string& cell, const ImportPoint& point, SuspendBy by);

/// Takes the mark of a suspension off an X, ">X" or "X+". True when there was one.
bool takesuspension(std::string_view& x);
