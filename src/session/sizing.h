#pragma once

#include <cstddef>

/// Sizing of the session's arrays, with less where memory falls short.

/// Allocates every array; where memory falls short it lowers the size exponent, and at its floor halves the
/// budget, until it succeeds. Each step down of the exponent is told. False, and told, when fewer than 35
/// points a set would be left: the program cannot go on.
bool sizearrays();

/// Points a set that the present size exponent gives, where memory allows.
float pointswanted();

/// Raises the size exponent so that `sets` sets of `points` points have room, as far as 10 reaches:
/// k = Int(log2(wanted / present) + 1) steps where what is wanted is at least what is there.
void raisefor(double sets, double points);

/// Room for a column of that many cells: sizes the arrays anew, up to the largest there is, where the present
/// ones are too small. Points and results that the session held are lost; what the user chose of the sets,
/// kinds of fit and curve, thresholds and hide marks, stays. False as sizearrays.
bool roomfor(std::size_t cells);
