#pragma once

#include <string>
#include <vector>

#include "plot/layout.h"

/// Pies, flat or with a depth.

struct PieSlice {
    std::string name;
    double value = 0; ///< above 0
    double share = 0; ///< of the pie, 0 to 1
    int colour = 0;
    int set = 0, point = 0; ///< what it stands for; point 0: the whole set, set 0: the smallest together
};

/// The slices: the Y of each point where one set is shown, named by its label or its X; the sums of Y of the
/// sets where several are. A value that is not above 0 has no slice. Beyond two dozen the smallest are one
/// slice together, the last.
std::vector<PieSlice> pieslices();

/// Tells once which values have no slice.
void tellpierefused();

/// The lines of the legend: each slice with its share.
void pielegend(std::vector<BlockLine>& lines);

/// Draws the pie in the plot area, clockwise from the top, with the names and shares around it that have
/// room.
void drawpie(const Layout& layout);
