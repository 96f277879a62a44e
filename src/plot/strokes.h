#pragma once

#include <string_view>

/// Plot marks and stroke digits: short strings of pen moves, interpreted at draw time, so that a mark looks
/// the same on every output and scales with the canvas.
///
/// A string is a run of commands, each a letter and a number of one or two digits, ended by ";": u d l r up,
/// down, left, right by n steps; e f g h up-right, down-right, down-left, up-left; c the pen: 00 up, 99 the
/// colour of the set being drawn, any other the palette colour.

enum MarkCode : int {
    minusMark = 10, ///< 0 to 9 are the digits, drawn from right to left
    raisedMinusMark = 11,
    plusMark = 12,
    exponentMark = 13,
    blankMark = 14,
    firstDataMark = 18,
    lastDataMark = 44,
    barMark = 51
};

/// The string of a mark in a size (marksize); "c00u1;", which draws nothing, for a code without one.
std::string_view strokestring(float code, int size);

/// Draws a mark at (plotx2, ploty2) by marksize, marksteps and markFixed. The line registers stay.
void strokemark(float code);

/// Draws the string of a mark: what strokemark does once it has the string.
void strokedraw(std::string_view strokes);

/// Palette number of set k: its own, or in a group display that of its group.
int colourofset(int k);
