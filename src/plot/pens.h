#pragma once

/// Pens and hatches of a plotter, which has no palette.

/// Plotter pen of a palette colour; 0 stays 0, the colours above 25 share pen 1. A plotter with fewer pens
/// (session.penCount) takes them in turn.
int plotterpen(int colour);

/// Hatch of a filled rectangle. Colours that share a pen differ by it.
struct Hatch {
    int type = 0;       ///< 3 parallel lines, 4 crossed
    double spacing = 0; ///< between the lines, canvas units
    int angle = 0;      ///< degrees
};

/// Hatch for a rectangle with sides dx and dy: 150 lines to its diagonal, closer for the higher colours.
Hatch plotterhatch(int colour, double dx, double dy);
