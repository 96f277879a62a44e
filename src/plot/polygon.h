#pragma once

#include <span>

#include "plot/canvas.h"

/// Filled figures. The drawing layer knows lines and rectangles: a polygon is filled row by row.

/// A light fill leaves paper between its rows: a side in the shade, and the hidden colour of a drawing in one
/// ink.
enum class Fill { full, light };

/// Fills a polygon (even-odd rule), held inside the window of the plot. The corners are canvas units, joined
/// in order and closed. A plotter hatches, and so does a drawing in one ink, by the number of the colour.
void fillpolygon(std::span<const CanvasPoint> corners, int colour, Fill fill);

/// Its outline, cut to the window.
void outlinepolygon(std::span<const CanvasPoint> corners, int colour);

/// A filled rectangle with its outline on the plot area, cut to the window; hollow: the outline alone, in the
/// colour. Nothing where it has no height or width inside the window.
void plotbox(double left, double top, double right, double bottom, int colour, bool hollow);
