#pragma once

#include <string>
#include <vector>

#include "plot/transforms.h"

/// Marker lines: lines of known parameters on the probability plot that come from no set, a requirement or an
/// earlier design to compare with. They are kept among the lines above the sets, and in the data file. They
/// have no threshold: their parameters stand on the X axis as it is, whichever scale that shows.

struct MarkerLine {
    int line = 0; ///< its number among the lines of the plot
    FamilyLine parameters;
    std::string label;
};

/// The marker lines in use, in order.
std::vector<MarkerLine> markerlines();

/// Keeps a line of the family in force. Its number; 0 when there is no room, or eta and beta are no line.
int markeradd(double eta, double beta, const std::string& label);

void markerdelete(int line);
void markerclear(); ///< deletes all

/// Draws those of the family in force, dashed, each in a colour of its own, with the label at its upper end.
void plotmarkers(double textSize);

/// Scale and slope of the line through (x1, p1) and (x2, p2) on the paper of the family in force, x in the
/// data's unit, p as fractions; beta 0 where there is none: equal x or p, p outside (0, 1), x at or below 0
/// on a logarithmic family, or a line that falls.
FamilyLine linethrough(double x1, double p1, double x2, double p2);

/// The line of a slope through one point; beta 0 as before.
FamilyLine linewithslope(double x, double p, double beta);
