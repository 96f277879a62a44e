#pragma once

#include <string>
#include <vector>

/// The data grid: the master copy of the data, as text. Each cycle rereads it.
struct GridState {
    std::vector<std::vector<std::string>> gridCells; ///< cells of each set in order of entry, from index 0
    std::vector<std::string> gridTitles;             ///< heading of each set; empty for none
};
