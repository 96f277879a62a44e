#pragma once

#include <cstdint>

#include "session/plotstate.h"

/// Actions that wait for a press on the plot: session.activeMode says which. The check mark and Esc end them.
enum PlotPressMode : int16_t {
    addPointMode = 30,    ///< each press adds a point to the active set
    selectPointMode = 31, ///< a press on a point takes its cell in hand, and offers what can be done with it
    markerLineMode = 36   ///< two presses are the places that a marker line passes
};

/// Starts one, and tells what is awaited. Told and refused where the plot has no such places: a pie, a plot
/// in space, a function in place of the probability plot.
void plotpressbegin(int mode);

/// True while a press on the plot belongs to such an action.
bool plotpressawaited();

/// A press at a place of the canvas, on a plot with this window. A place off the plot area is passed over.
void plotpress(const PlotWindow& window, double canvasx, double canvasy);
