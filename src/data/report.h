#pragma once

#include "data/numbertext.h"
#include "session/session.h"
#include "shell/words.h"

/// The report's one output routine. A line in msg is read from the left: nothing is a blank line; ";" keeps
/// the line open; "[[TABnn" sends the text to column nn, counted from 1. On the character devices the line is
/// padded with blanks up to the column; a column already passed gets one blank instead. Text that is no pure
/// number passes the language filter. An "*" in a text without a column is followed by two blanks on the
/// devices 0, 2 and 4, else by one. u is kept. With device -1 nothing happens.
void reportline();

/// The same for a line whose marks, too, pass the language filter first, unless the device is 3.
void reportlinew();

/// Appends ";[[TAB" with the column and the number in u, cut to `width` characters, behind msg: the helper of
/// number columns.
void reportnumberpad(int column, int width);

/// The text of device 4 with the line ends of this system: its own are those of data files.
std::string reportastext();

/// Clears line and column count, and the text of device 4.
void reportstart();

/// A value as the reports print it, six significant digits; not a number, or no answer, prints nothing.
struct Reported {
    double value;
};
void append(std::string& text, Reported part);

/// The same with the place of the sign kept, so that the digits of a column line up.
struct ReportedColumn {
    double value;
};
void append(std::string& text, ReportedColumn part);

/// Composes a line and sends it.
template <class... Parts>
void report(const Parts&... parts) {
    compose(session.msg, parts...);
    reportline();
}

/// Sends one cell of a row to a column; the row stays open for the next. Column 0: where the line stands.
template <class... Parts>
void reportcell(int column, const Parts&... parts) {
    compose(session.msg, ";[[TAB", column < 10 ? "0" : "", column, parts...);
    reportline();
}

/// Sends the last cell of a row.
template <class... Parts>
void reportend(int column, const Parts&... parts) {
    compose(session.msg, "[[TAB", column < 10 ? "0" : "", column, parts...);
    reportline();
}
