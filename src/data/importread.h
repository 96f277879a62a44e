#pragma once

#include <limits>
#include <string>
#include <string_view>
#include <vector>

#include "data/importtable.h"
#include "data/importtext.h"

/// Reading a normalised text by a form of the import table.
struct ImportOptions {
    std::size_t mostSets = 25;
    std::size_t mostRows = std::numeric_limits<std::size_t>::max(); ///< a set; rows beyond are counted
    std::size_t titleRow = 0;                                       ///< row that is a title; 0 none
    SuspendBy suspendBy = SuspendBy::minus;
    DateOrder dateOrder = {"Y", "M", "D"};
};

/// Sets of cells, ready for the grid.
struct ImportedData {
    std::vector<std::vector<std::string>> cells;
    std::vector<std::string> titles; ///< by set; empty for none
    std::size_t beyond = 0;          ///< rows dropped because their set is full
};

/// Reads every row. One that does not fit the form becomes a cell that begins with "?" and shows its items:
/// it is no point, and is told when the grid is read.
ImportedData importread(std::string_view normalised, const ImportForm& form, const ImportOptions& options);
