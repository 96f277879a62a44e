#pragma once

#include "plot/layout.h"

/// X, Y and Z of the points in space: a box seen along parallel lines of sight, turned about its upright axis
/// by viewTurn and tilted by viewTilt.

/// False for a point without a place in space: its Z marks a kind of point, as a suspension.
bool hasz(int k, int j);

/// True when a shown point has a Z other than 0.
bool haszvalues();

/// Draws box, axes, points with their drop lines and labels into the plot area. The X and Y axes are those of
/// the window in hand; the Z axis goes by the points and the Z limits.
void drawspace(const Layout& layout);
