#pragma once

#include <cstdint>
#include <string>

/// What the plot shows, as far as the analysis must know it.
struct PlotState {
    int16_t plotMode = 1;     ///< 1 probability plot; any other value an X-Y plot
    float xyscale = 0;        ///< axis pair of an X-Y plot: 1 log-lin, 2 lin-log, 3 log-log, 4, 5 reciprocal
    int16_t replotNeeded = 0; ///< 1: the plot must be redrawn at the end of the cycle
    int16_t familyDrawn = 0;  ///< family of the last cycle: a change clears the fit marks
    int16_t gumbeltypeDrawn = 0;
    std::string plotTitle; ///< main title
    std::string runTitle;  ///< method and fit of the run
};
