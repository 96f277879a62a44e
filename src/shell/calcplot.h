#pragma once

/// The cycle: rereads the grid into the session arrays, runs the analysis, writes the report and redraws the
/// plot. Every change of data or options ends here. It never stops the process; a failed read of the grid
/// leaves the former results as they were.
void calcplot();

/// Runs the cycle where the grid has changed since the last one: what is saved or kept are the points of a
/// cycle.
void calcpending();
