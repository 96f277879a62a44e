#pragma once

#include <string>

/// Reading data into the grid, and writing it as text.

enum class DataRead {
    read,
    unreadable,
    empty,
    refused, ///< it was not settled how to read it; msg tells why, empty when the user gave it up
};

/// Reads a file, standard input ("-") or the clipboard ("CLIPBOARD") into the grid; further data stand as
/// sets of their own behind those that are there. A name without a folder that is not in the current one is
/// looked for in dataPath. An input that is not read changes nothing.
DataRead opendata(const std::string& name, bool further = false);

/// The grid as text that opendata reads back: one line a row, tabs between the sets.
std::string dataastext();

/// Points of the longest set in the grid.
std::size_t longestcolumn();
