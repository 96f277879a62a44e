#include "plot/polygon.h"

#include <cmath>
#include <vector>

#include "plot/drawing.h"
#include "plot/segment.h"

namespace {

constexpr float outlinePen = 200, filledPen = 300; ///< taken off a pen: an outlined and a filled rectangle
constexpr double pixel = 15;

bool onplotter() {
    const int device = static_cast<int>(session.outdev);
    return device == plotterDevice || device == laserDevice;
}
/// Colours cannot tell figures apart where there is one ink.
bool hatched() { return onplotter() || session.colormode == 1; }

/// Height of a row, and from one row to the next.
struct Rows {
    double height, pitch;
};
Rows rowsof(int colour, Fill fill) {
    // A large canvas has thick lines, and they cover the steps at the ends of thick rows.
    const double height = std::max(pixel, snapped(session.ploth / 900));
    if (!hatched()) return {height, fill == Fill::full ? height : 3 * height};
    constexpr int patterns = 5;
    const double step = onplotter() ? 4 * pixel : height;
    const double lines = 2 + colour % patterns;
    return {onplotter() ? 0 : height, step * (fill == Fill::full ? lines : lines + patterns)};
}

void row(double left, double right, double y, double height, int colour) {
    const PlotWindow& w = session.window;
    left = std::clamp(left, w.left, w.right);
    right = std::clamp(right, w.left, w.right);
    if (!(right > left)) return;
    plotsnap(left, y, right, y + height - pixel);
    session.plotpen = static_cast<float>(colour);
    if (height > 0) session.plotpen -= filledPen;
    if (height <= 0) session.ploty2 = session.ploty1;
    plotline();
}

/// Where the row at y meets the sides, in rising order.
void crossings(std::span<const CanvasPoint> corners, double y, std::vector<double>& at) {
    at.clear();
    for (std::size_t i = 0; i < corners.size(); ++i) {
        const CanvasPoint &a = corners[i], &b = corners[(i + 1) % corners.size()];
        if ((a.y <= y) == (b.y <= y)) continue;
        at.push_back(a.x + (y - a.y) / (b.y - a.y) * (b.x - a.x));
    }
    std::sort(at.begin(), at.end());
}

} // namespace

void fillpolygon(std::span<const CanvasPoint> corners, int colour, Fill fill) {
    const Keep keep{session.plotx1, session.ploty1,  session.plotx2,
                    session.ploty2, session.plotpen, session.linewidth};
    DrawnRange x, y;
    for (const CanvasPoint& corner : corners) {
        x.add(corner.x);
        y.add(corner.y);
    }
    if (corners.size() < 3 || !std::isfinite(x.high - x.low) || !std::isfinite(y.high - y.low)) return;
    const PlotWindow& w = session.window;
    const Rows rows = rowsof(colour, fill);
    session.linewidth = 1;
    const double last = std::min(y.high, w.bottom);
    std::vector<double> at;
    // Rows stand on the grid of the canvas, so that neighbours that share a side leave no gap between them.
    for (double i = std::ceil(std::max(y.low, w.top) / rows.pitch); i * rows.pitch < last && plotting();
         ++i) {
        crossings(corners, i * rows.pitch + rows.height / 2, at);
        for (std::size_t c = 1; c < at.size(); c += 2)
            row(at[c - 1], at[c], i * rows.pitch, rows.height, colour);
    }
}

void outlinepolygon(std::span<const CanvasPoint> corners, int colour) {
    if (corners.empty()) return;
    const Keep keep{session.plotx1, session.ploty1, session.plotx2, session.ploty2, session.plotpen};
    session.plotpen = static_cast<float>(colour);
    tracestart(corners.front().x, corners.front().y);
    for (std::size_t i = 1; i <= corners.size(); ++i)
        traceto(corners[i % corners.size()].x, corners[i % corners.size()].y);
    traceend();
}

void plotbox(double left, double top, double right, double bottom, int colour, bool hollow) {
    const PlotWindow& w = session.window;
    left = std::clamp(left, w.left, w.right);
    right = std::clamp(right, w.left, w.right);
    top = std::clamp(top, w.top, w.bottom);
    bottom = std::clamp(bottom, w.top, w.bottom);
    if (!(right > left) || !(bottom > top)) return;
    const auto pen = static_cast<float>(colour);
    if (!hollow && session.colormode == 1 && !onplotter()) {
        // The grid in the one ink would be taken for part of the hatch.
        plotsnap(left, top, right, bottom);
        session.plotpen = static_cast<float>(backgroundColour) - filledPen;
        plotline();
        const CanvasPoint corners[] = {{left, top}, {right, top}, {right, bottom}, {left, bottom}};
        fillpolygon(corners, colour, Fill::full);
    } else if (!hollow) {
        plotsnap(left, top, right, bottom);
        session.plotpen = pen - filledPen;
        plotline();
    }
    // A filled box keeps its outline beside a neighbour of its colour, unless that would be all of it.
    constexpr double leastForOutline = 5 * pixel;
    if (!hollow && !hatched() && right - left < leastForOutline) return;
    plotsnap(left, top, right, bottom);
    session.plotpen = (hollow ? pen : static_cast<float>(frameColour)) - outlinePen;
    plotline();
}
