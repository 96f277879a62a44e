#pragma once

#include <string>
#include <vector>

/// Reading data into the grid, and writing it as text.

enum class DataRead {
    read,
    unreadable,
    empty,
    refused, ///< it was not settled how to read it; msg tells why, empty when the user gave it up
};

/// Reads a file, standard input ("-") or the clipboard ("CLIPBOARD") into the session: a data file with its
/// options, or text as cells. Further data stand as sets of their own behind those that are there, and leave
/// the options alone. A name without a folder that is not in the current one is looked for in dataPath; one
/// that is not there, with the extension of the side, too. An input that cannot be read, holds nothing, or is
/// refused changes no data. dataFileRead says whether options came with it.
DataRead opendata(const std::string& name, bool further = false);

/// Forgets what the user chose of the sets that other data take the place of: kinds of fit and curve, hide
/// marks.
void forgetchoices();

/// Puts sets behind those of the grid.
void appendsets(const std::vector<std::vector<std::string>>& cells, std::vector<std::string> titles);

/// The grid as text that opendata reads back: one line a row, tabs between the sets.
std::string dataastext();

/// Points of the longest set in the grid.
std::size_t longestcolumn();
