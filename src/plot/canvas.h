#pragma once

#include <algorithm>
#include <limits>

#include "session/session.h"

/// From the plot scales to the canvas, by the window of the plot in hand.

inline double canvasx(double plotx) {
    return session.window.left + (plotx - session.window.xlow) * session.window.xfactor;
}
inline double canvasy(double ploty) {
    return session.window.bottom - (ploty - session.window.ylow) * session.window.yfactor;
}

/// Where a value stands on the canvas.
struct CanvasPoint {
    double x = 0, y = 0;
};

/// Lows and highs of what is drawn.
struct DrawnRange {
    double low = std::numeric_limits<double>::infinity(), high = -low;
    void add(double v) {
        low = std::min(low, v);
        high = std::max(high, v);
    }
    bool empty() const { return low > high; }
};
