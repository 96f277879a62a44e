#pragma once

#include <string>
#include <vector>

#include "plot/canvas.h"

/// Bars of the sets' points: stacked, side by side, or side by side with a depth.

/// One bar, on the data scales. It grows from `from` to `to`, downwards for a negative value.
struct PlotBar {
    int set = 0;
    int point = 0;            ///< the first of the points that it stands for
    int count = 0;            ///< how many they are
    double x = 0, value = 0;  ///< their X, and the sum of their Y, each as often as its quantity says
    double low = 0, high = 0; ///< on the X axis
    double from = 0, to = 0;
};

/// The bars of the shown sets, in order of X and set. They stand at their X; a point counts as often as its
/// quantity says, and points of a set with the same X, to the last digit, are one bar, of their sum. The
/// least distance of two X values, of any set, is the room of the bars at one X, of which four fifths are
/// used. Stacked ones stand on each other at one X, negative ones hang on each other below zero.
std::vector<PlotBar> plotbars();

/// What the bars cover, and zero; room for their depth above the bars with one.
void addbars(DrawnRange& x, DrawnRange& y);

void drawbars();

/// What the second pass adds on top of the bars: the line they grow from.
void drawbarline();

/// Lines of the block beside the plot that tell how many bars the window cuts off: "Y > 10 = 3", and below
/// it.
std::vector<std::string> cutbars();
