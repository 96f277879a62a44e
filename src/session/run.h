#pragma once

#include <cstdint>
#include <string>

/// State of the run in hand.
struct Run {
    float calcError = 0;       ///< 0 clean, 1 stop this set, -1 stop the run after this set
    int16_t abortCode = 0;     ///< 27 when the user pressed Escape
    int16_t startPasses = 0;   ///< passes that start-up has made; the first settles what outlives the rest
    std::string scriptRequest; ///< not empty in script mode: prompts answer themselves
    int16_t noPrompt = 0;      ///< 1: cells are taken as they stand, without the pre-check questions
    int16_t quiet = 0;         ///< 1: a run within a run, without report or notices
    std::string fileName;      ///< data file of the session; empty for typed data
    std::string productName = "OmniVANEX";
    int16_t cycleComplete = 0; ///< 1 when the last cycle ran to its end
    std::string inputNote;     ///< a note left by the analysis, shown when the cycle is complete
};

inline constexpr int16_t escapePressed = 27;
