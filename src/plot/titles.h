#pragma once

#include "plot/block.h"

/// Title lines of the plot: main title, second title, family and method. Empty ones are left out.
std::vector<std::string> titlelines();

/// Main title, axis titles, parameters, legend and the foot line with program and date.
void plottitles(const PlotBlock& block, const Layout& layout);
