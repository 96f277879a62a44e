#pragma once

#include <string>
#include <string_view>

/// Reads the cells of one row's set into the session: points, labels, title and n. Cells without a value are
/// skipped; one that holds text but no readable number, or more points than the session has room for, is
/// told. False when the session has no arrays to read into: the former results stand.
bool gridget(float row);

/// True when a cell's text becomes a point: a number stands where X is expected, and no comma that is not the
/// decimal symbol.
bool readablecell(std::string_view text);

/// Empties the grid.
void gridclear();

/// Puts a text into a cell, the set and the point counted from 1; the grid grows as needed.
void gridset(int set, int point, std::string_view text);
