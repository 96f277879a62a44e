#pragma once

#include <optional>
#include <span>
#include <string>
#include <vector>

#include "session/plotstate.h"

/// Reading values off the plot in hand with a pointer.

/// A shown point on the canvas.
struct PlacedPoint {
    float x = 0, y = 0; ///< canvas units
    int set = 0;
    int point = 0;
    bool suspended = false; ///< it stands at the foot of the plot, whatever its probability
    int barCount = 0;       ///< of a bar: the points that it stands for, `point` the first
    double barX = 0, barValue = 0;
};

/// Every drawn point of the shown sets inside the window, in order of set and entry; of bars the middle of
/// their ends. Empty while points are hidden, and where the plot has no axes.
std::vector<PlacedPoint> placedpoints(const PlotWindow& window);

/// The point nearest to a place, within `reach` canvas units; nothing when none is so near.
std::optional<PlacedPoint> nearestpoint(std::span<const PlacedPoint> points, double canvasx, double canvasy,
                                        double reach);

/// Values of a place on the data scale.
struct PlotPlace {
    double x = 0;
    double y = 0; ///< on a probability plot the probability
};
/// Nothing outside the plot area, without a plot, and on a pie or a view of space.
std::optional<PlotPlace> plotplace(const PlotWindow& window, double canvasx, double canvasy);

/// The read-out as shown: "X = 12.5   Y = 63.2%", and behind it the point with set and label when there is
/// one; of a bar its X and value, and of how many points it is. Y goes by the kind of the probability axis.
std::string readouttext(const PlotPlace& place, const std::optional<PlacedPoint>& nearest);
