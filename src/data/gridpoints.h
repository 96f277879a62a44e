#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "data/cell.h"

/// The points of a set as the grid has them, for what rewrites cells, and their way back into cells.

/// The cells of set k, from 1; none for a set that the grid does not have.
const std::vector<std::string>& gridcellsof(int k);

/// True when a cell's text is a point: a number stands where X is expected, and no comma that is not the
/// decimal symbol may have been meant as one.
bool ispointtext(std::string_view text, const Cell& cell);

/// A point of the grid. Y is missing where hasY is false, and its 0 is no value.
struct GridPoint {
    Cell cell;
    bool hasY = false;
};

/// The points of set k by row of the grid, from index 0; nothing where the cell is no point. The labels are
/// views into the cells.
std::vector<std::optional<GridPoint>> gridpoints(int k);

/// The text of a point without the fields at its end that say nothing: "10", "10x3", "10x3x2_label". A Y of 0
/// is written where the point has a Y: on an X-Y plot a cell without one is missing it. Nothing when the text
/// would not read back as the same point: a reserved number, written there, would empty its field.
std::optional<std::string> pointtext(const GridPoint& point);
