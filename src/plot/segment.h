#pragma once

/// Lines on the plot area, cut to its window.

/// A rectangle of the canvas.
struct ClipWindow {
    double left = 0, top = 0, right = 0, bottom = 0;
};

/// Cuts the segment (x1, y1)-(x2, y2) to the window. False when no part of it lies inside; the ends are then
/// as they were. Liang and Barsky, ACM Trans. Graphics 3 (1984) 1.
bool plotclip(const ClipWindow& window, double& x1, double& y1, double& x2, double& y2);

/// Draws the segment in the line registers (canvas units) on the plot area of session.window. One that stays
/// inside the window, with a margin of a hundredth of its size, is drawn as it stands; any other is cut, and
/// dropped when it lies outside. While a traced line continues (segmentState 2) and the pen stands at the
/// segment's start, only the end is sent.
void plotsegment();

/// Starts a traced line at a point, and goes on to the next one. Canvas units.
void tracestart(double x, double y);
void traceto(double x, double y);
void traceend();
