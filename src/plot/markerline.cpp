#include "plot/markerline.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "plot/drawing.h"
#include "plot/segment.h"
#include "plot/shown.h"
#include "session/session.h"

namespace {

constexpr int roomForMixture = 2; ///< lines above the sets that belong to the parts of a mixture
constexpr int methods = 2;
constexpr float dashedPen = 100;

int firstline() { return static_cast<int>(session.maxSets) + roomForMixture + 1; }
int lastline() { return static_cast<int>(session.maxLines); }

bool logarithmic(int16_t family) { return family == weibull || family == lognormal; }

/// The family is kept as its code, negative for the largest-extreme Gumbel.
double codeof(const FamilyLine& line) {
    return line.family == gumbel && line.extreme == 1 ? -line.family : line.family;
}

/// A file brings the parameters of the method that it was saved with alone.
int methodof(int line) { return session.paramB(1, line) > 0 ? 1 : methods; }

bool inuse(int line) {
    return session.lineVisible(line) != 0 && session.paramB(methodof(line), line) > 0
           && session.paramExtra(1, line) != 0;
}

bool isline(const FamilyLine& line) {
    const bool located = std::isfinite(line.eta) && (!logarithmic(line.family) || line.eta > 0);
    const double least = line.family == lognormal ? 1 : 0; // a geometric spread of 1 is none
    return located && std::isfinite(line.beta) && line.beta > least;
}

/// Data on the scale on which the family is one of location and scale.
double scaled(int16_t family, double x) { return logarithmic(family) ? std::log(x) : x; }

/// Quantile of the standard line of the family in force, on that scale.
double standard(const FamilyLine& family, double p) {
    FamilyLine unit = family;
    unit.eta = logarithmic(family.family) ? 1 : 0;
    unit.beta = family.family == lognormal ? std::numbers::e : 1;
    return scaled(family.family, quantileofp(unit, p, true));
}

FamilyLine linefrom(FamilyLine line, double location, double scale) {
    const bool power = logarithmic(line.family);
    line.eta = power ? std::exp(location) : location;
    line.beta = line.family == weibull ? 1 / scale : line.family == lognormal ? std::exp(scale) : scale;
    if (!(scale > 0) || !isline(line)) line.beta = 0;
    return line;
}

bool placed(int16_t family, double x, double p) { return p > 0 && p < 1 && (x > 0 || !logarithmic(family)); }

double canvasx(double plotx) {
    return session.window.left + (plotx - session.window.xlow) * session.window.xfactor;
}
double canvasy(double ploty) {
    return session.window.bottom - (ploty - session.window.ylow) * session.window.yfactor;
}

/// The line's place on the canvas at a height of the plot; false where its X has none.
bool placeat(const MarkerLine& marker, double ploty, double& x, double& y) {
    const FamilyLine& line = marker.parameters;
    const double value = quantileofp(line, pofploty(line.family, line.extreme, ploty), true);
    if (!hasplotx(value)) return false;
    x = canvasx(plotxof(value));
    y = canvasy(ploty);
    return true;
}

/// The label stands where the line leaves the plot at the top or the right, inside the frame.
void drawlabel(const std::string& label, double x, double y, double size) {
    const PlotWindow& w = session.window;
    const double length = plottextwidth(label, size);
    session.plotx2 = std::clamp(x - length - size / 2, w.left + size / 2, w.right - length - size / 2);
    session.ploty2 = std::clamp(y + 1.4 * size, w.top + 1.4 * size, w.bottom - size / 2);
    session.textSize = static_cast<float>(size);
    session.textRotation = 0;
    plottext(label);
}

void drawmarker(const MarkerLine& marker, double size) {
    const PlotWindow& w = session.window;
    double x1 = 0, y1 = 0, x2 = 0, y2 = 0;
    if (!placeat(marker, w.ylow, x1, y1) || !placeat(marker, w.yhigh, x2, y2)) return;
    if (!plotclip({w.left, w.top, w.right, w.bottom}, x1, y1, x2, y2)) return;
    const int colour = 1 + (marker.line - 1) % 24;
    session.plotpen = static_cast<float>(colour) - dashedPen;
    session.linewidth = 1;
    tracestart(x1, y1);
    traceto(x2, y2);
    traceend();
    session.plotpen = static_cast<float>(colour);
    if (!marker.label.empty()) drawlabel(marker.label, x2, y2, size);
}

} // namespace

std::vector<MarkerLine> markerlines() {
    std::vector<MarkerLine> markers;
    for (int line = firstline(); line <= lastline(); ++line) {
        if (!inuse(line)) continue;
        const double code = session.paramExtra(1, line);
        FamilyLine parameters{static_cast<int16_t>(std::fabs(code)), static_cast<int16_t>(code < 0 ? 1 : -1),
                              session.paramA(methodof(line), line), session.paramB(methodof(line), line)};
        if (isline(parameters)) markers.push_back({line, parameters, session.lineLabelA(line)});
    }
    return markers;
}

int markeradd(double eta, double beta, const std::string& label) {
    FamilyLine line = currentline();
    line.eta = eta;
    line.beta = beta;
    if (!isline(line)) return 0;
    for (int free = firstline(); free <= lastline(); ++free) {
        if (inuse(free)) continue;
        for (int method = 1; method <= methods; ++method) {
            session.paramA(method, free) = eta;
            session.paramB(method, free) = beta;
        }
        session.paramExtra(1, free) = codeof(line);
        session.lineVisible(free) = 1;
        session.lineLabelA(free) = label;
        session.resultsDirty = 1;
        return free;
    }
    return 0;
}

void markerdelete(int line) {
    if (line < firstline() || line > lastline()) return;
    for (int method = 1; method <= methods; ++method)
        session.paramA(method, line) = session.paramB(method, line) = 0;
    session.paramExtra(1, line) = 0;
    session.lineLabelA(line).clear();
    session.lineLabelB(line).clear();
    session.resultsDirty = 1;
}

void markerclear() {
    for (const MarkerLine& marker : markerlines()) markerdelete(marker.line);
}

void plotmarkers(double textSize) {
    const Keep keep{session.plotx1,  session.ploty1,    session.plotx2,   session.ploty2,
                    session.plotpen, session.linewidth, session.textSize, session.textRotation};
    const FamilyLine family = currentline();
    for (const MarkerLine& marker : markerlines())
        if (codeof(marker.parameters) == codeof(family) && plotting()) drawmarker(marker, textSize);
}

FamilyLine linethrough(double x1, double p1, double x2, double p2) {
    const FamilyLine family = currentline();
    if (!placed(family.family, x1, p1) || !placed(family.family, x2, p2)) return linefrom(family, 0, 0);
    const double z1 = standard(family, p1);
    const double scale =
        (scaled(family.family, x2) - scaled(family.family, x1)) / (standard(family, p2) - z1);
    return linefrom(family, scaled(family.family, x1) - z1 * scale, scale);
}

FamilyLine linewithslope(double x, double p, double beta) {
    FamilyLine family = currentline();
    if (!placed(family.family, x, p)) return linefrom(family, 0, 0);
    const double scale = family.family == weibull     ? 1 / beta
                         : family.family == lognormal ? std::log(beta)
                                                      : beta;
    return linefrom(family, scaled(family.family, x) - standard(family, p) * scale, scale);
}
