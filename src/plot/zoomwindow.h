#pragma once

#include "session/plotstate.h"

/// Zooming and moving the window of the plot in hand. All steps are taken on the plot scale, so that a step
/// looks the same at every decade of a logarithmic axis; the result goes to the manual limits, which the
/// next plot obeys.

/// Ends of an axis on the plot scale.
struct AxisEnds {
    double low = 0;
    double high = 0;
    bool operator==(const AxisEnds&) const = default;
};

/// The axis drawn `factor` times as large (below 1: smaller) with the place `at` where it is. An axis without
/// a length, and a factor that is no positive number, give the axis itself.
AxisEnds zoomedaxis(const AxisEnds& axis, double at, double factor);

/// The axis moved by a part of its own length, upwards for a positive one.
AxisEnds movedaxis(const AxisEnds& axis, double part);

/// Zooms about a place on the canvas; a place outside the plot area counts as its nearest edge. False, with
/// the limits as they were, when the new window has no place on the scales: too small for the digits of the
/// data, or beyond what an axis can show.
bool zoomplot(const PlotWindow& window, double canvasx, double canvasy, double factor);

/// Moves the window by parts of its width and height. False as before.
bool moveplot(const PlotWindow& window, double right, double up);

/// Number of the scale button at a place on the canvas, from 0; -1 where there is none.
int buttonat(const PlotWindow& window, double canvasx, double canvasy);

/// What scale button `number` does: the Y or the X scale smaller or larger about its middle, a step of
/// `factor`. False as before.
bool pressbutton(const PlotWindow& window, int number, double factor);
