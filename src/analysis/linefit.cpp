#include "analysis/linefit.h"

#include <cmath>

#include "plot/transforms.h"
#include "session/session.h"

namespace {

double correlation(const RegressionSums& s) {
    const double xx = s.Sxx - s.Sx * s.Sx / s.n;
    const double yy = s.Syy - s.Sy * s.Sy / s.n;
    const double product = xx * yy;
    return product > 0 ? (s.Sxy - s.Sx * s.Sy / s.n) / std::sqrt(product) : 0;
}

} // namespace

PlotLine fitline(const RegressionSums& s, bool xOnY, double fixed) {
    PlotLine line;
    if (s.n <= 0) return line;
    const double cross = s.n * s.Sxy - s.Sx * s.Sy;
    const double denominator = xOnY ? cross : s.n * s.Sxx - s.Sx * s.Sx;
    const double numerator = xOnY ? s.n * s.Syy - s.Sy * s.Sy : cross;
    line.exists = denominator != 0 || fixed != 0;
    if (!line.exists) return line;
    line.slope = fixed != 0 ? fixed : numerator / denominator;
    if (line.slope > 0) line.crossing = s.originX - (s.Sy - line.slope * s.Sx) / s.n / line.slope;
    line.r = correlation(s);
    return line;
}

bool regressxony() {
    const bool grouped = session.inputType >= prbt2 && session.inputType <= km4;
    return grouped == (session.rrSwap > 0);
}

double fixedplotslope() {
    const double fixed = session.fixedSlope;
    if (fixed <= 0) return 0;
    switch (session.dist) {
    case lognormal: return 1 / plotxofx(lognormal, fixed);
    case normal:
    case gumbel: return 1 / fixed;
    default: return fixed;
    }
}

void parametersofline(const PlotLine& line) {
    session.eta = xofplotx(session.dist, line.crossing);
    switch (session.dist) {
    case lognormal: session.beta = xofplotx(lognormal, 1 / line.slope); break;
    case normal:
    case gumbel: session.beta = 1 / line.slope; break;
    default: session.beta = line.slope; break;
    }
}

double samplesd(const RegressionSums& s) {
    return s.n > 1 ? std::sqrt(std::fmax(0, s.Sxx - s.Sx * s.Sx / s.n) / (s.n - 1)) : 0;
}
