#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

/// The forms in which columns of text can stand. The format menu, the recognition, the reader and the command
/// line walk this one table.

/// What a column holds.
enum class Item : std::uint8_t {
    none,
    cell,        ///< a whole cell, fields and label included
    x,           ///< X; ">X" and "X+" are suspensions
    y,           ///< Y
    quantity,    ///< how many alike
    third,       ///< Z: sample size, third coordinate
    occurrences, ///< how many occurred at X
    suspensions, ///< how many were suspended at X
    mark,        ///< F, or 1: occurred; S, or 0: suspended
    upper,       ///< upper end of the interval that begins at X; empty: suspended at X
    set,         ///< name of the set: another one begins a set
    label,       ///< point label, unit ID
    count,       ///< events at X
    total,       ///< events up to X
    event,       ///< event value; 0 is a suspension
};

/// How rows become points.
enum class Rows : std::uint8_t {
    cells,     ///< each column a set of cells
    points,    ///< each row a point, or one each of occurrences and suspensions
    events,    ///< each row an event: Y counts them
    itemTimes, ///< each row an event: the ages of all items, whose sum is X
    units,     ///< ages of units, by their label or one unit after the other up to its suspension
    unitRows,  ///< each row a unit: its ID and its ages
    nevada,    ///< each row a production period: its quantity and the returns by period
};

enum class NewSet : std::uint8_t { column, blankLine, changedSet };

struct ImportForm {
    std::array<Item, 5> items; ///< columns from the left
    std::uint8_t needed;       ///< so many must be there; the others may be empty
    Rows rows;
    NewSet newSet;               ///< what begins a new set
    std::int16_t inputType;      ///< input form that it sets; keepInput: as it was
    void (*label)(std::string&); ///< line of the inner question; null where there is only one form
};
inline constexpr std::int16_t keepInput = -1;

/// A line of a format menu. More than one form: the choice opens an inner question, keys 1, 2, ...
struct ImportLetter {
    std::int16_t side;
    char letter;
    void (*label)(std::string&);
    std::span<const ImportForm> forms;
};

/// Lines of the menu of one side, in order.
std::span<const ImportLetter> importletters(std::int16_t side);

/// The choice that a text names: a letter, and the digit of a variant, "K2"; 1 where none is given. Nulls
/// when the side has no such form.
struct ImportChoice {
    const ImportLetter* letter = nullptr;
    const ImportForm* form = nullptr;
};
ImportChoice importchoice(std::int16_t side, std::string_view code);

/// Name of a choice: its letter, and the digit where there are several forms.
std::string importcode(const ImportChoice& choice);

/// Number of columns of a form.
std::size_t itemcount(const ImportForm& form);
