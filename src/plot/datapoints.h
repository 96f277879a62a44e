#pragma once

#include "plot/layout.h"

/// Draws each set's marks, then each set's lines, in the set's colour: points at their place, suspensions at
/// the foot of the plot below their value, the labels of points where there is room, the fitted line across
/// the window with its bound curves, a row of lines as a polyline.
void plotpoints(const Layout& layout);
