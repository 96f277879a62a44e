#pragma once

#include <cstdint>
#include <string>

/// What the command line asked for. The parser only records; the values take effect when the run begins.
struct CommandFields {
    std::string cmdFile;         ///< data file named on the line; "-" standard input
    std::string cmdDistribution; ///< -e
    int16_t cmdMethod = 0;       ///< -m, 1 to 8; 0 not given
    int16_t cmdInput = -1;       ///< -i, 0 to 5; -1 not given
    int16_t cmdSide = 0;         ///< -p; 0 not given
};
