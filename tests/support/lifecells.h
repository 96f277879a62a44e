#pragma once

#include <string_view>
#include <vector>

#include "shell/grid.h"

/// Puts the cells of one set into the grid, from point 1.
inline void lifecells(int set, const std::vector<std::string_view>& cells) {
    int point = 0;
    for (const std::string_view cell : cells) gridset(set, ++point, cell);
}

/// Remission times in weeks, 21 patients of the 6-MP group: 9 failures and 12 suspensions.
inline const std::vector<std::string_view> leukemiaCells = {
    "6x0x3x0", "-6x0x1x0", "7",   "-9", "10", "-10", "-11",       "13",  "16",
    "-17",     "-19",      "-20", "22", "23", "-25", "-32x0x2x0", "-34", "-35"};
