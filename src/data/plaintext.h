#pragma once

#include <string>
#include <string_view>
#include <vector>

/// Plain text as data: one cell a line, or several cells a line, each column a set.
///
/// Cells are cut at tabs when a line holds one, else at blanks and semicolons; a comma at a cell's end also
/// ends it. A label ("_" and what follows) keeps its blanks up to the next cell that begins like a number.
/// Empty lines and lines beginning with "#" are passed over, a byte-order mark too. At most maxColumns
/// columns and maxCells cells a column are kept; `cut` counts what was beyond.
struct PlainText {
    std::vector<std::vector<std::string>> columns;
    std::size_t cut = 0;
};
PlainText readplaintext(std::string_view text, std::size_t maxColumns, std::size_t maxCells);
