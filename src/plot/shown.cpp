#include "plot/shown.h"

#include <algorithm>
#include <cmath>

#include "data/cell.h"
#include "plot/axes.h"
#include "plot/plotkind.h"
#include "plot/transforms.h"
#include "session/session.h"

namespace {

/// A register routine as a function.
double through(void (*transform)(), double value) {
    const Keep keep{session.ud};
    session.ud = value;
    transform();
    return session.ud;
}

bool standson(AxisScale scale, double v) { return std::isfinite(v) && (scale == AxisScale::linear || v > 0); }

} // namespace

bool setshown(int k) { return session.lineHide(k) == 0 && pointcount(k) > 0; }

bool hasline(int k) {
    const int row = static_cast<int>(rowofset(static_cast<float>(k)));
    return session.setFitted(k) == 1 && std::isfinite(session.etaFit(row, 1))
           && std::isfinite(session.betaFit(row, 1)) && session.betaFit(row, 1) > 0;
}

double scaleshift(int k) { return session.scaleAsRecorded == 1 ? static_cast<double>(session.t0(k)) : 0.0; }

const char* scalename() { return session.scaleAsRecorded == 1 ? "AR" : "NAR"; }

ShownPoint shownpoint(int k, int j) {
    const int row = static_cast<int>(rowofset(static_cast<float>(k)));
    if (session.plotMode != 1)
        return hasordinate(k, j) ? ShownPoint{session.X(row, j), session.Y(row, j)}
                                 : ShownPoint{session.X(row, j), std::nan(""), false, false};
    const int type = session.pointTypes(k, j);
    const double shift = scaleshift(k);
    ShownPoint point;
    point.x = type == Intv || type == intvComplement
                  ? xofplotx(session.dist, session.pointPlotX(k, j)) + shift
                  : pointvalue(k, j) - static_cast<double>(session.t0(k)) + shift;
    point.suspended = type == Susp || type == intvComplement;
    point.y = static_cast<double>(session.Y(row, j));
    point.placed = session.setPlaced(k) == 1 && (point.suspended || (point.y > 0 && point.y < 1));
    return point;
}

int pointstep() { return std::max<int>(session.pointInterval, 1); }

char curvekindof(int k) {
    if (session.rowKind(static_cast<int>(rowofset(static_cast<float>(k)))) != "P") return lineCurve;
    const std::string& kind = session.curveType(k);
    const char letter = kind.empty() ? pointCurve : kind.front();
    return letter == lineCurve || letter == mixedCurve ? letter : pointCurve;
}

std::optional<ShownInterval> showninterval(int k, int j) {
    constexpr double unseen = 3e33; ///< a Z beyond it, to either side, marks an open end
    constexpr double exact = 2e29;  ///< from here to `unseen` the point is exact
    if (session.intervalPlot != 1 || !xyplotted()) return std::nullopt;
    const double x = session.X(static_cast<int>(rowofset(static_cast<float>(k))), j);
    const double z = session.v2(k, j);
    if (z > unseen) return ShownInterval{x, x, false, true};
    if (z < -unseen) return ShownInterval{x, x, true, false};
    if (z == 0 || z == x || !(std::fabs(z) < exact)) return std::nullopt;
    return ShownInterval{std::min(x, z), std::max(x, z)};
}

double plotxof(double x) { return through(txx2txxd, x); }
double plotyof(double y) { return through(txy2txyd, y); }

bool hasplotx(double x) { return standson(xaxisscale(), x); }

bool hasploty(double y) { return session.plotMode == 1 ? y > 0 && y < 1 : standson(yaxisscale(), y); }
