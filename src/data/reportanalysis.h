#pragma once

#include <string_view>

/// The analysis report: one block for each line of the plot, after the heading lines of the cycle.
void reportanalysis();

/// The fit block of set k: goodness of the line and the method that made it.
void reportfit(int k);

/// The summary report of a run of many sets.
void reportsummary();

/// The setup line of the cycle: capacities and plotted equations.
void reportsetup();

/// A notice that the user was told, marked "!!", its further lines under its first. Its words have been
/// cleaned when it was told.
void reportnotice(std::string_view notice);
