#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// The program's own data file: a session as counted sections of text lines. docs/files.md describes it.

/// What a read came to.
enum class FileRead {
    labels,   ///< a label file: the labels are the file's, data and options as they were
    read,     ///< the session holds what the file holds
    bad,      ///< told; what was read before the fault stays, the data are those from before
    oldForm,  ///< the sections are of an older form: the caller takes the rest of the input as old plain text
    text,     ///< no file of this program
    nodata,   ///< told: cannot be opened, or nothing in it
    cancelled ///< by the user; nothing has changed
};

/// Reads the tagged sections of the input, which stands behind its first line; fileDecimal and fileSuffix
/// hold what that line said. u is 0 after a whole read, else the abort mark.
FileRead datafileread();

/// Writes the session to the output: first lines, sections, in the wrapper when htmlMode asks for it.
/// False, and told, when the session has no rows that could be written (sg, ifylcnf).
bool datafilewrite();

/// Points of the largest set in the text of a tagged file, or of what pretends to be one: no more than lines
/// are really there. For making room before the read.
std::size_t longestset(std::string_view text);
