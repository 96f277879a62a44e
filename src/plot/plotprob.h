#pragma once

#include "plot/device.h"

/// Drivers of a plot: each draws the session's plot on a device, from frame to parameters. A plot is a single
/// pass; the session's data stay as they are. False, after telling the user, when nothing whole was drawn.

bool plotprob(Device& device); ///< probability plot
bool plotxy(Device& device);   ///< X-Y plot

/// The plot of the session's side.
bool plotentry(Device& device);

/// Number of bars of a histogram of n values: 1 + 3.3 ln(int(n)) for n above 1, and never below 5.
int barnumber(double n);
