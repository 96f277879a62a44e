#pragma once

#include <string>

#include "plot/canvas.h"

/// Curves through an X-Y plot: those fitted to the sets, and the function that the user typed.

/// True when set k has a curve to be drawn.
bool curveshown(int k);

/// True when the typed function is drawn: it is shown, can run, and asks for no data column.
bool functiontyped();

/// Palette number of the typed function: that behind the colour of the last set.
int functioncolour();

/// Text of a curve by its coefficients, "y=1.234+2.5*x", "y=188.7*exp(-.04349*x)", at the digits of a fit;
/// and of the typed function.
std::string curvetext(int k);
std::string typedtext();

/// Adds what the typed function covers. Its few values near a pole would press all else to a line: they do
/// not count when they reach beyond ten times the range of the rest.
void addfunction(DrawnRange& x, DrawnRange& y);

/// Draws the curve of set k in its colour: from curveFrom, over the window or the fitted data alone.
void plotcurve(int k);

/// Draws the typed function over its own range of X.
void plottyped();
