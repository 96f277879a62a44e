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

/// The slices: the Y of each point, as often as its quantity says, where one set is shown, named by its label
/// or its X; the sums of those of the sets where several are. A point whose Y is not above 0 has no part in
/// it, and a set of such points no slice. Beyond two dozen the smallest are one
/// slice together, the last.
std::vector<PieSlice> pieslices();

/// Tells once how many points have no part in the pie, and how many sets therefore no slice.
void tellpierefused();

/// The same as lines beside the pie: "Y <= 0 = 2 Point".
std::vector<std::string> pieleftout();

/// The lines of the legend: each slice with its share.
void pielegend(std::vector<BlockLine>& lines);

/// Draws the pie in the plot area, clockwise from the top, with the names and shares around it that have
/// room.
void drawpie(const Layout& layout);
