#include "plot/datapoints.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <vector>

#include "data/boundvalues.h"
#include "data/cell.h"
#include "plot/block.h"
#include "plot/canvas.h"
#include "plot/drawing.h"
#include "plot/labelplace.h"
#include "plot/segment.h"
#include "plot/shown.h"
#include "plot/strokes.h"
#include "plot/transforms.h"
#include "plot/xycurve.h"
#include "session/session.h"
#include "shell/prompts.h"

namespace {

/// From here on the marks of a screen take longer than the eye likes to wait.
constexpr int slowPoints = 20000;

constexpr int dashedPen = 100; ///< taken off the number of a pen: its dashed form

struct Place {
    double x = 0;
    double y = 0;
    bool onPlot = false;
};

/// Half the height of a mark on this canvas.
double markreach() {
    constexpr double steps[] = {3, 3, 1, 2, 4};
    const double half = session.marksize >= 0 && session.marksize <= 4 ? steps[session.marksize] : 5;
    return half * std::max<int>(session.marksteps, 1) * static_cast<double>(session.ploth) / 450;
}

/// How far above the foot of the plot a suspension's mark stands: clear of the frame, with room for a label.
double foot() { return std::max(1.5 * markreach(), 0.65 * charactersize()); }

Place placeof(const ShownPoint& point) {
    const PlotWindow& w = session.window;
    if (!point.placed || !hasplotx(point.x) || (!point.suspended && !hasploty(point.y))) return {};
    Place place;
    place.x = canvasx(plotxof(point.x));
    place.y = point.suspended ? w.bottom - foot() : canvasy(plotyof(point.y));
    const double slack = 15; // one pixel: a point on the edge of the window belongs to it
    place.onPlot = place.x >= w.left - slack && place.x <= w.right + slack && place.y >= w.top - slack
                   && place.y <= w.bottom + slack;
    return place;
}

void mark(float code, const Place& place) {
    session.plotx2 = place.x;
    session.ploty2 = place.y;
    strokemark(code);
}

void setstatus(int k) {
    compose(session.msg, Word::Set, " ", k, " ", Word::Plot);
    statusline();
}

void linestatus(int k) {
    compose(session.msg, Word::Line, " ", k, " ", Word::Plot);
    statusline();
}

/// Where an end of an interval stands on the canvas; an end without a place on the axis is beyond its foot.
double endplace(double x) { return hasplotx(x) ? canvasx(plotxof(x)) : session.window.left - markreach(); }

/// The interval of a point: a level bar with ticks at its ends, or an arrow towards an end that nobody has
/// seen.
void intervalbar(int k, const ShownInterval& interval, double y) {
    const Keep keep{session.plotx1, session.ploty1, session.plotx2, session.ploty2, session.plotpen};
    session.plotpen = static_cast<float>(colourofset(k));
    const double reach = markreach();
    const double arrow = 5 * reach;
    const double left = endplace(interval.low) - (interval.openLow ? arrow : 0);
    const double right = endplace(interval.high) + (interval.openHigh ? arrow : 0);
    const auto stroke = [](double x1, double y1, double x2, double y2) {
        tracestart(x1, y1);
        traceto(x2, y2);
        traceend();
    };
    const auto end = [&](double x, bool open, double inwards) {
        if (!open) return stroke(x, y - reach, x, y + reach);
        stroke(x, y, x + inwards * reach, y - 0.7 * reach);
        stroke(x, y, x + inwards * reach, y + 0.7 * reach);
    };
    stroke(left, y, right, y);
    if (!interval.openHigh) end(left, interval.openLow, 1);
    if (!interval.openLow) end(right, interval.openHigh, -1);
}

void marksofset(int k) {
    for (int j = 1; j <= pointcount(k) && plotting(); j += pointstep()) {
        const ShownPoint point = shownpoint(k, j);
        const Place place = placeof(point);
        if (const auto between = showninterval(k, j); between && hasploty(point.y))
            intervalbar(k, *between, canvasy(plotyof(point.y)));
        if (!place.onPlot) continue;
        mark(point.suspended ? suspensionmark() : setmark(k), place);
    }
}

/// The points of a row of lines, joined in the order of entry.
void polylineofset(int k) {
    bool started = false;
    for (int j = 1; j <= pointcount(k) && plotting(); ++j) {
        const ShownPoint point = shownpoint(k, j);
        if (!hasplotx(point.x) || !hasploty(point.y)) continue;
        const double x = canvasx(plotxof(point.x));
        const double y = canvasy(plotyof(point.y));
        if (started)
            traceto(x, y);
        else
            tracestart(x, y);
        started = true;
    }
    traceend();
}

struct LineEnds {
    double low, high; ///< on the plot scale of Y
};

/// A line runs over the whole window, or, truncated, from the lowest plotted point of its set to the highest.
LineEnds lineends(int k) {
    const PlotWindow& w = session.window;
    LineEnds ends{w.yhigh, w.ylow};
    for (int j = 1; session.fitLineTruncated == 1 && j <= pointcount(k); ++j) {
        const ShownPoint point = shownpoint(k, j);
        if (point.suspended || !point.placed || !hasploty(point.y)) continue;
        ends.low = std::min(ends.low, plotyof(point.y));
        ends.high = std::max(ends.high, plotyof(point.y));
    }
    return ends.low < ends.high ? ends : LineEnds{w.ylow, w.yhigh};
}

/// The fitted line, traced along the probability axis: straight on the paper of its family, and a curve where
/// the scale is kept as recorded although a threshold is in force.
void fittedline(int k) {
    const int row = static_cast<int>(rowofset(static_cast<float>(k)));
    const Keep keep{session.eta, session.beta, session.ud};
    session.eta = session.etaFit(row, 1);
    session.beta = session.betaFit(row, 1);
    const double shift = scaleshift(k);
    const int steps = shift == 0 ? 1 : std::max<int>(session.linePoints, 1);
    const auto [low, high] = lineends(k);
    bool started = false;
    for (int i = 0; i <= steps; ++i) {
        const double ploty = low + (high - low) * i / steps;
        session.ud = pofploty(session.dist, session.gumbeltype, ploty);
        txp2xd();
        const double x = session.ud + shift;
        if (!hasplotx(x)) continue;
        if (started)
            traceto(canvasx(plotxof(x)), canvasy(ploty));
        else
            tracestart(canvasx(plotxof(x)), canvasy(ploty));
        started = true;
    }
    traceend();
}

/// A bound curve through its points, dashed and thin beside the line.
void boundcurve(int k, int row) {
    const auto points = static_cast<int>(session.n(row));
    if (points < 2) return;
    const Keep keep{session.plotpen, session.linewidth};
    session.plotpen = static_cast<float>(colourofset(k) - dashedPen);
    session.linewidth = 1;
    const double shift = scaleshift(k) - static_cast<double>(session.t0(k));
    bool started = false;
    for (int m = 1; m <= points && plotting(); ++m) {
        const double x = session.X(row, m) + shift;
        const double y = session.Y(row, m);
        if (!hasplotx(x) || !hasploty(y)) continue;
        if (started)
            traceto(canvasx(plotxof(x)), canvasy(plotyof(y)));
        else
            tracestart(canvasx(plotxof(x)), canvasy(plotyof(y)));
        started = true;
    }
    traceend();
}

bool hasmarks(int k) { return session.plotMode == 1 || curvekindof(k) != lineCurve; }

void lineofset(int k) {
    const Keep keep{session.plotpen, session.linewidth};
    session.plotpen = static_cast<float>(colourofset(k));
    const bool joined = session.plotMode != 1 && curvekindof(k) == mixedCurve; // thin between its marks
    const int width = std::clamp(std::abs(int{session.linewidth}), 1, 100);
    session.linewidth = static_cast<int16_t>(joined ? width : 2 * width);
    if (session.plotMode == 1 && hasline(k)) {
        if (session.fitLinesHidden == 1) return;
        fittedline(k);
        if (!hasbounds(k)) return;
        boundcurve(k, lowboundrow(k));
        boundcurve(k, highboundrow(k));
    } else if (session.plotMode != 1 && curvekindof(k) != pointCurve) {
        polylineofset(k);
    }
}

// ---- labels of the points ----

std::string_view labelof(int k, int j) {
    const auto& labels = session.pointLabels[static_cast<std::size_t>(k)];
    return static_cast<std::size_t>(j) < labels.size() ? std::string_view(labels[static_cast<std::size_t>(j)])
                                                       : std::string_view();
}

/// A thin line from a point to the nearer end of its label.
void pointer(const Place& place, const LabelPlaces::Spot& spot, double width, double size) {
    const Keep keep{session.linewidth};
    session.linewidth = 0;
    plotwidth(session.linewidth);
    session.plotx1 = place.x;
    session.ploty1 = place.y;
    session.plotx2 = place.x < spot.x + width / 2 ? spot.x : spot.x + width;
    session.ploty2 = spot.y - 0.35 * size;
    plotline();
    plotwidth(1);
}

void pointlabels(double size) {
    const PlotWindow& w = session.window;
    LabelPlaces places({w.left, w.top, w.right, w.bottom}, size);
    const int sets = setcount();
    for (int k = 1; k <= sets; ++k)
        for (int j = 1; setshown(k) && j <= pointcount(k); ++j)
            if (const Place place = placeof(shownpoint(k, j)); place.onPlot)
                places.keepfree(place.x, place.y, markreach());
    session.textSize = static_cast<float>(size);
    for (int k = 1; k <= sets; ++k) {
        session.plotpen = static_cast<float>(colourofset(k));
        for (int j = 1; setshown(k) && j <= pointcount(k) && plotting(); ++j) {
            const std::string_view text = labelof(k, j);
            const Place place = placeof(shownpoint(k, j));
            if (text.empty() || !place.onPlot) continue;
            const double width = plottextwidth(text, size);
            auto spot = places.place(place.x, place.y, width);
            if (!spot && session.labelPointers == 1) {
                spot = places.standoff(place.x, place.y, width);
                if (spot) pointer(place, *spot, width, size);
            }
            if (!spot) continue;
            session.plotx2 = spot->x;
            session.ploty2 = spot->y;
            plottext(text);
        }
    }
}

void tellslow() {
    int points = 0;
    for (int k = 1; k <= setcount(); ++k) points += setshown(k) ? pointcount(k) : 0;
    if (points < slowPoints || static_cast<int>(session.outdev) != screenDevice) return;
    compose(session.msg, Word::Slow, " ", Word::Point, " ", Word::Display, " ... ", Word::Select, " '",
            Word::Zoom, " / ", Word::Point, " ", Word::Symbol, " ", Word::Display, "' ", Word::For, " ",
            Word::Change);
    statusline();
}

} // namespace

void plotpoints(const Layout& layout) {
    const Keep keep{session.plotx1,  session.ploty1,   session.plotx2,    session.ploty2,
                    session.plotpen, session.textSize, session.setCounter};
    const int sets = setcount();
    for (int k = 1; k <= sets && plotting(); ++k) {
        if (!setshown(k)) continue;
        linestatus(k);
        session.setCounter = rowofset(static_cast<float>(k));
        lineofset(k);
        if (curveshown(k)) plotcurve(k);
    }
    if (functiontyped()) plottyped();
    for (int k = 1; k <= sets && plotting() && session.pointHide == 0; ++k) {
        if (!setshown(k) || !hasmarks(k)) continue;
        setstatus(k);
        session.setCounter = rowofset(static_cast<float>(k));
        marksofset(k);
    }
    if (session.pointHide == 0) tellslow();
    if (session.pointLabelsShown == 1 && session.pointHide == 0) pointlabels(0.8 * layout.size);
}
