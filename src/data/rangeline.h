#pragma once

#include <string>
#include <string_view>

#include "session/filetables.h"

/// A title with six pairs of range values, on one line of a data file: "_" stands before each piece.

/// Appends title and ranges to a line.
void appendlabel(std::string& line, const std::string& title, const RangePairs& range);

/// Takes the line apart; the title is returned. Ranges that the line does not give, from the first empty
/// pair on, stay as they were. A title may hold "_": it ends where an even number of pieces, twelve at most,
/// are left that are all numbers or empty.
std::string takelabel(std::string_view line, RangePairs& range);
