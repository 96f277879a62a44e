#pragma once

/// The window of a plot: which part of the scales it shows.

/// Looks at the shown points and takes the window: xlowd to yhighd by the automatic rules and the manual
/// limits, and the edges of the axes, rounded outwards to ticks where no manual limit pins them. Values that
/// have no place on a logarithmic axis are told and left out.
/// plotStopped = 1 when the plot must not be drawn.
void xyanalyzw();

/// Leaves a zoom: the manual limits go, and the next plot has the automatic window.
void LOCKZOOMOUT();
