#pragma once

#include <string_view>

/// Text as data: from a file without tags, the clipboard or a sample, into the grid.

enum class TextRead {
    read,
    empty,   ///< no number in it: told, and the session is as it was
    refused, ///< nobody chose how to read it: msg tells why, and the session is as it was
};

/// Where textimport finds its text.
enum class TextFrom { text, file };

/// Reads the text in msg, or the file whose name stands there ("CLIPBOARD" the clipboard), into the grid;
/// further sets stand behind those that are there. Works out the delimiters, asks how the columns are to be
/// taken, unless formatWanted says it or nobody can be asked, and sets inputType where the form has one. The
/// arrays are the caller's: roomfor(longestcolumn()).
TextRead textimport(TextFrom from, bool further = false);

/// The format menus of the two sides: the choice goes to importFormat. `offered` is what the text looks like.
/// False on cancel or exit.
bool formatmenulife(std::string_view offered);
bool formatmenuxy(std::string_view offered);
