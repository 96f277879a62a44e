#pragma once

#include <string>
#include <string_view>
#include <vector>

/// Plain text as data: one cell a line, or several cells a line, each column a set.
///
/// Cells are cut at tabs when a line holds one, else at blanks and semicolons; a comma at a cell's end also
/// ends it. A label ("_" and what follows) keeps its blanks up to the next cell that begins like a number.
/// Empty lines and lines beginning with "#" give empty cells, so that a cell keeps the number of its line; a
/// byte-order mark is passed over. At most maxColumns
/// columns are kept: a line of noise may hold millions.
using CellColumns = std::vector<std::vector<std::string>>;
CellColumns readplaintext(std::string_view text, std::size_t maxColumns);
