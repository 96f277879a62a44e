#pragma once

#include "plot/layout.h"

/// Grid lines, frame and axes of the plot area.

void plotframe(const Layout& layout); ///< grid lines, heavier at decades, then the frame
void plotyaxis(const Layout& layout); ///< ticks and labels of the Y axis
void plotxaxis(const Layout& layout); ///< ticks and labels of the X axis
/// The scale buttons of the screen: "Y-Scale vvv", "Y-Scale ^^^" and the same for X. Nothing on other
/// outputs.
void plotbuttons(const Layout& layout);
