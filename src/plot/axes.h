#pragma once

#include "plot/ticks.h"

/// Kind of the two axes in force. A probability plot has a logarithmic X axis for Weibull and Lognormal, else
/// a linear one; its Y axis is the probability ladder. An X-Y plot goes by xyscale.
AxisScale xaxisscale();
AxisScale yaxisscale();

/// Chooses the ticks of the window in force into yTicks or xTicks: the probability ladder between ylowd and
/// yhighd, or the ticks of a linear, logarithmic or reciprocal axis. `size` is the character size, canvas
/// units; window.top to bottom (Y), left to right (X) must stand.
void yticks(double size);
void xticks(double size);
