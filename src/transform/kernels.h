#pragma once

#include <optional>
#include <span>
#include <vector>

/// Kernels of the transforms of X-Y data.

struct PlanePoint {
    double x = 0, y = 0;
};

/// Rectangular to polar: x becomes the angle in degrees, above -180 to 180, counter-clockwise from the X
/// axis; y the radius, at least 0. The origin has the angle 0. Finite input up to the range of a single.
PlanePoint topolar(PlanePoint point);

/// Polar to rectangular: x in is the angle in degrees, any finite value, y the radius; a negative radius
/// lies on the other side of the origin. Multiples of 90 degrees give an exact 0.
PlanePoint torectangular(PlanePoint point);

/// Turned about the origin by so many degrees, counter-clockwise when positive.
PlanePoint rotated(PlanePoint point, double degrees);

/// A value with the times that it counts.
struct WeightedValue {
    double value = 0, weight = 1;
};

/// A bar of a histogram: the middle of its interval, and the weights within.
struct HistogramRow {
    double middle = 0, total = 0;
};

/// The weights of finite values over so many intervals of equal width, from the least value to the greatest.
/// A value on an edge belongs to the interval above, the greatest one to the last. Values are in single
/// precision: one that lies on an edge but for its rounding counts as on it. Where all values are the same,
/// their interval stands in the middle of a range of 1, or of their size when that is larger. Nothing without
/// values or intervals.
std::vector<HistogramRow> histogramof(std::span<const WeightedValue> values, int intervals);

/// A value of a set at an X.
struct SetValue {
    float x = 0;
    int set = 0;
    double value = 0;
};

/// Sum of the values at one X, and whether each of the sets has one there.
struct TotalAt {
    float x = 0;
    double total = 0;
    bool ofall = true;
};

/// The totals of several sets at each X, in order of X.
std::vector<TotalAt> totalsbyx(std::vector<SetValue> values);

/// A result as a cell can hold it: in single precision. Nothing for not a number, or a size beyond e^78
/// (7E+33), which no cell reads back; below e^-78 it is 0.
std::optional<float> cellnumber(double value);
