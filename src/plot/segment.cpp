#include "plot/segment.h"

#include <cmath>

#include "plot/drawing.h"
#include "session/session.h"

namespace {

enum SegmentState : int16_t { singleSegment = 0, tracedFirst = 1, tracedOn = 2 };

bool inside(const ClipWindow& w, double x, double y) {
    return x >= w.left && x <= w.right && y >= w.top && y <= w.bottom;
}

/// Narrows the part of the segment inside one edge: p its run towards the edge, q the start's distance to it.
bool cutedge(double p, double q, double& from, double& to) {
    if (p == 0) return q >= 0;
    const double t = q / p;
    if (p < 0) {
        if (t > to) return false;
        if (t > from) from = t;
    } else {
        if (t < from) return false;
        if (t < to) to = t;
    }
    return true;
}

} // namespace

bool plotclip(const ClipWindow& w, double& x1, double& y1, double& x2, double& y2) {
    const double dx = x2 - x1;
    const double dy = y2 - y1;
    if (!std::isfinite(dx) || !std::isfinite(dy)) return false;
    double from = 0;
    double to = 1;
    const bool some = cutedge(-dx, x1 - w.left, from, to) && cutedge(dx, w.right - x1, from, to)
                      && cutedge(-dy, y1 - w.top, from, to) && cutedge(dy, w.bottom - y1, from, to);
    if (!some) return false;
    if (to < 1) {
        x2 = x1 + to * dx;
        y2 = y1 + to * dy;
    }
    if (from > 0) {
        x1 += from * dx;
        y1 += from * dy;
    }
    return true;
}

void plotsegment() {
    Session& s = session;
    const Keep keep{s.plotx1, s.ploty1, s.plotx2, s.ploty2};
    const PlotWindow& w = s.window;
    const double marginX = (w.right - w.left) / 100;
    const double marginY = (w.bottom - w.top) / 100;
    const ClipWindow wide{w.left - marginX, w.top - marginY, w.right + marginX, w.bottom + marginY};
    const double x1 = s.plotx1;
    const double y1 = s.ploty1;
    const double x2 = s.plotx2;
    const double y2 = s.ploty2;
    const bool whole = inside(wide, x1, y1) && inside(wide, x2, y2);
    const bool traced = s.segmentState != singleSegment;
    if (!whole && !plotclip({w.left, w.top, w.right, w.bottom}, s.plotx1, s.ploty1, s.plotx2, s.ploty2)) {
        if (traced) s.segmentState = tracedFirst;
        return;
    }
    const bool penAtStart = s.plotx1 == x1 && s.ploty1 == y1;
    const bool penAtEnd = s.plotx2 == x2 && s.ploty2 == y2;
    if (s.segmentState == tracedOn && penAtStart) s.plotx1 = continueLine;
    plotline();
    if (traced) s.segmentState = penAtEnd ? tracedOn : tracedFirst;
}

void tracestart(double x, double y) {
    session.segmentState = tracedFirst;
    session.plotx2 = x;
    session.ploty2 = y;
}

void traceto(double x, double y) {
    session.plotx1 = session.plotx2;
    session.ploty1 = session.ploty2;
    session.plotx2 = x;
    session.ploty2 = y;
    plotsegment();
}

void traceend() { session.segmentState = singleSegment; }
