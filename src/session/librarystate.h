#pragma once

#include <cstdint>
#include <string>

/// What was chosen from the library lists and the usage tables.
struct LibraryState {
    int16_t usageChoice = 0;     ///< usage table that was opened, 1 to 6; 0 none
    std::string libraryItem;     ///< line chosen from a library list
    std::string analysisComment; ///< comment of the analysis
};
