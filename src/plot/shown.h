#pragma once

#include <optional>

/// The points of the session as a plot shows them.

/// True when set k has points and is not hidden.
bool setshown(int k);

/// Point j of set k: x on the data scale (an interval at the middle of its plot values), y the ordinate, or
/// the plotted probability. `placed` false: the point has no plotting position.
struct ShownPoint {
    double x = 0;
    double y = 0;
    bool suspended = false;
    bool placed = true;
};
ShownPoint shownpoint(int k, int j);

/// From one point of a set that is drawn to the next: session.pointInterval, 1 at least.
int pointstep();

/// How an X-Y plot draws set k: pointCurve, lineCurve or mixedCurve.
char curvekindof(int k);

/// An X value that is known to lie between two. An open end is one that nobody has seen.
struct ShownInterval {
    double low = 0, high = 0;
    bool openLow = false, openHigh = false;
};
/// The interval of point j of set k on an X-Y plot of intervals; nothing for a plain point.
std::optional<ShownInterval> showninterval(int k, int j);

/// True when set k has a fitted line whose parameters can be drawn.
bool hasline(int k);

/// What the plot's X scale is ahead of the values of set k less its threshold: the threshold itself while the
/// scale is kept as recorded.
double scaleshift(int k);

/// Name of that scale under a threshold: "AR" as recorded, "NAR" less the threshold.
const char* scalename();

/// Values to plot coordinates and back, by the axes in force; the registers stay.
double plotxof(double x);
double plotyof(double y);

/// True when a value has a place on the axis: a logarithmic or reciprocal axis takes positive values alone.
bool hasplotx(double x);
bool hasploty(double y);
