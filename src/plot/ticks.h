#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

/// Choice of ticks on an axis: pure functions, without the session.

enum class AxisScale { linear, logarithmic, reciprocal };

/// Edges of an axis on the data scale, low < high; both above 0 on a logarithmic axis, and not 0 and of one
/// sign on a reciprocal one.
struct AxisSpan {
    AxisScale scale = AxisScale::linear;
    double low = 0, high = 1;
};

struct Tick {
    double value = 0;
    double fraction = 0; ///< 0 at the low edge, 1 at the high edge, along the plot scale
    bool heavy = false;  ///< a decade of a logarithmic axis, a labelled tick of the others
    std::string label;   ///< empty: none
};

/// Space that a label takes along the axis, in the unit of `length`.
using LabelExtent = std::function<double(std::string_view)>;

/// Ticks of the axis in rising order. Post: the first stands at low and the last at high; at most 150; each
/// value inside the edges; no two labels with the same text; no two labels nearer than `gap` to each other
/// when each is centred at its tick on an axis of `length`; both ends labelled when both fit, else the low
/// one. Labels tell neighbouring ticks apart however narrow the range. A span of one point gives one tick;
/// what is no span at all, none. Heckbert, Nice numbers for graph labels, Graphics Gems (1990) 61.
std::vector<Tick> chooseticks(const AxisSpan& span, double length, double gap, const LabelExtent& extent);

/// The span rounded outwards to an even step, the digits of a decade or whole decades, so that the given one
/// fills at least .6 of it along the plot scale; an edge that is pinned, or round already, stays.
AxisSpan roundedspan(const AxisSpan& span, bool pinLow, bool pinHigh);
