#pragma once

#include <vector>

/// The units of the life data as a histogram counts them.

/// Units that ended at `low`, or somewhere from `low` to `high`, on the X scale of the plot.
struct Counted {
    int set = 0;
    bool suspended = false;
    double low = 0, high = 0;
    double quantity = 0; ///< above 0
};

/// The units of the shown sets. An interval, and what an inspection of grouped rows has found since the one
/// before, lies between its ends; a discovery between the start of its life and its age, at its age where
/// data may be negative. Cumulative rows (prbt2, prbt3) count by their increase; what has survived the last
/// of them is not counted. A set that does not tell how many have failed is left out: its rows fall, exceed
/// their sample, or are of samples of different sizes that have not been declared samples of their own.
std::vector<Counted> countedunits();
