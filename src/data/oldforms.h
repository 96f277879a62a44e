#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// The forms in which data were kept before the sections: a heading, then a record a line.

/// What a field of a record means.
enum class OldField : char {
    value = 'X',       ///< life value or abscissa
    ordinate = 'Y',    ///< ordinate
    quantity = 'Q',    ///< identical points
    suspensions = 'S', ///< suspensions at the value, beside the occurrences
    upper = 'Z',       ///< sample size, or upper end of an interval
    label = 'L',       ///< the rest of the line
    passed = '-'       ///< of no use here
};
using OldFields = std::vector<OldField>;

/// Sets read from an old form: cells as the grid takes them, and a title a set.
struct OldData {
    std::vector<std::vector<std::string>> columns;
    std::vector<std::string> titles;
};

/// Reads records, the text up to its end. Fields are cut at blanks, tabs and semicolons; a line that begins
/// with no number is the title of the set that follows, an empty line ends a set. Nothing when a comma stands
/// in a number: whether it is a decimal symbol or ends the field cannot be known here.
std::optional<OldData> oldplainread(std::string_view text, const OldFields& fields);

/// The fields that a heading names behind "()", letters of OldField: "()XQSL". Empty when it names none, or
/// another letter stands there.
OldFields fieldsofheading(std::string_view heading);

/// Fields of the old plain format: value, occurrences, suspensions, label; of X-Y data value, ordinate,
/// label.
OldFields oldplainfields();

/// Asks how the columns of an old history are to be read. Empty on a cancel.
OldFields askhistoryfields();
