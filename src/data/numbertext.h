#pragma once

#include <string>
#include <string_view>

/// The one place where numbers turn into plain text and back. "." is the decimal symbol inside the program;
/// display and file symbols are put on at the edge.

/// Shortest digits that read back to the same value, in the program's plain form: a leading blank for a
/// non-negative number, no zero before the point (" .5", "-1.25"), an exponent of at least two digits
/// (" 3.3E+33") when the plain form would need more than 7 (single) or 15 (double) digits before the point
/// or more than that many zeros after it. Not a number gives " 0"; an infinity the largest finite value.
/// No allocation when the capacity of the text suffices.
void appendnumber(std::string& text, float value);
void appendnumber(std::string& text, double value);

/// The same without the leading blank.
void appendtrimmed(std::string& text, float value);
void appendtrimmed(std::string& text, double value);

/// A number as the reports print it: rounded to `digits` significant digits (1 to 17), without leading blank
/// and without trailing zeros; plain while that takes at most 7 places, or as many as there are digits.
void appendsignificant(std::string& text, double value, int digits);

/// The number at the start of a text, by the rules of numberread, '.' as decimal symbol. `readable` is false
/// when no digit could be read; the value is then 0. No allocation.
struct NumberText {
    double value = 0;
    bool readable = false;
};
NumberText readnumber(std::string_view text);

/// The same for text from outside: the session's and the file's decimal symbol are read as ".".
NumberText readentry(std::string_view text);

/// Register form, the number parser of the whole program: msg in and unchanged; ud and u out, u through
/// sngguard. Honours the session's and the file's decimal symbol.
void numberread();

/// Cuts the next field of msg at `delimiter`: fieldText, u and ud out, msg keeps what follows. Without a
/// delimiter in msg, or with an empty one, the whole msg is the field.
void fieldcut();
