/// Between data and plot coordinates. On a probability plot the family gives the axes, on an X-Y plot the
/// axis pair does.

#include "plot/transforms_register.h"

namespace {

enum class Axis { linear, logarithmic, reciprocal };

Axis xaxis(float pair) {
    if (pair == 1 || pair == 3 || pair == 4) return Axis::logarithmic;
    return pair == 5 ? Axis::reciprocal : Axis::linear;
}

Axis yaxis(float pair) {
    if (pair == 2 || pair == 3 || pair == 5) return Axis::logarithmic;
    return pair == 4 ? Axis::reciprocal : Axis::linear;
}

/// A value that has no place on the axis stays as it is.
double ontoaxis(Axis axis, double v) {
    if (axis == Axis::logarithmic) return v > 0 ? std::log(v) : v;
    if (axis == Axis::reciprocal) return v != 0 ? -1 / v : v;
    return v;
}

/// exp(v) inside the test; beyond it a number that grows with |v| from exp(80), or its reciprocal.
double heldexp(double v, double test) {
    if (std::fabs(v) < test) return std::exp(v);
    const double s = std::fabs(v) + 5.540622e34;
    return v >= 0 ? s : 1 / s;
}

double offaxis(Axis axis, double v, double test) {
    if (axis == Axis::logarithmic) return heldexp(v, test);
    if (axis == Axis::reciprocal) return v != 0 ? -1 / v : v;
    return v;
}

constexpr double singleTest = 78; ///< of the exponential of a plot X
constexpr double wideTest = 705;
constexpr double ploty = 80; ///< of that of a plot Y, in both ranges

bool logarithmicfamily(int16_t family) { return family == weibull || family == lognormal; }

/// Plot coordinates without a logarithmic family leave x alone.
Axis familyaxis(int16_t family) { return logarithmicfamily(family) ? Axis::logarithmic : Axis::linear; }

Axis currentxaxis() {
    return session.plotMode == 1 ? familyaxis(currentline().family) : xaxis(session.xyscale);
}

/// Probability of a plot Y, by the formula alone.
double pofplotyformula(int16_t family, int16_t extreme, double y) {
    const bool largest = family == gumbel && extreme == 1;
    switch (family) {
    case lognormal:
    case normal: return normcdf(y);
    case gumbel:
        if (!gumbelchosen(extreme)) return y;
        [[fallthrough]];
    case weibull: {
        const double e = std::exp(largest ? -y : y);
        if (std::isinf(e) && allfinite(y)) return e;
        return largest ? std::exp(-e) : -std::expm1(-e);
    }
    default: return y;
    }
}

/// Stores a wide result, or tells of it.
void storewide(const char* name, double result) {
    if (keepable(result, allfinite(session.ud), placenamed(name))) session.ud = result;
}

/// Stores a result of the single scale; one beyond the range of singles is an overflow.
void storesingle(const char* name, double result) {
    const float narrow = tosingle(result);
    if (keepable(narrow, allfinite(session.u), placenamed(name))) session.u = narrow;
}

} // namespace

double plotxofx(int16_t family, double x) { return ontoaxis(familyaxis(family), x); }

double plotyofp(int16_t family, int16_t extreme, double p) {
    constexpr double offscale = 30; // the sentinel of a point without a place on the axis, at both ends
    if (p <= 0 || p >= 1) return offscale;
    switch (family) {
    case weibull: return p <= 1e-8 ? std::log(p) : std::log(cumulatedhazard(p));
    case lognormal:
    case normal: return phiinverse(p);
    case gumbel:
        if (extreme == -1) return p < 1e-15 ? std::log(p) : std::log(cumulatedhazard(p));
        return extreme == 1 ? -std::log(-std::log(p)) : p;
    default: return p;
    }
}

double xofplotx(int16_t family, double plotx) { return offaxis(familyaxis(family), plotx, wideTest); }

double pofploty(int16_t family, int16_t extreme, double y) {
    if (family == weibull) {
        if (std::fabs(y) >= 700) return y > 0 ? 1 : 0;
        if (y <= -40) return std::exp(y);
    }
    if (family == gumbel && gumbelchosen(extreme) && y >= 700) return 1;
    return pofplotyformula(family, extreme, y);
}

void txx2txx() { storesingle("txx2txx", ontoaxis(currentxaxis(), session.u)); }

void txx2txxd() { storewide("txx2txx", ontoaxis(currentxaxis(), session.ud)); }

void txx2txxdw() { storewide("txx2txx", plotxofx(currentline().family, session.ud)); }

void txtxx2x() { storesingle("txtxx2x", offaxis(currentxaxis(), session.u, singleTest)); }

void txtxx2xd() { storewide("txtxx2xd", offaxis(currentxaxis(), session.ud, wideTest)); }

namespace {

/// Plot Y of a value in the current plot mode.
double plotyofvalue(double v) {
    if (session.plotMode != 1) return ontoaxis(yaxis(session.xyscale), v);
    return plotyofp(currentline().family, session.gumbeltype, v);
}

/// Stores the plot Y of ud, or tells of it with the value on entry.
void storeploty(const char* name, double result) {
    const auto place = [&] {
        std::string text = std::string(name) + " ud#(in)=";
        appendtrimmed(text, session.ud);
        return text;
    };
    if (keepable(result, allfinite(session.ud), place)) session.ud = result;
}

} // namespace

void txy2txy() {
    const float result = tosingle(plotyofvalue(session.u));
    const auto place = [] {
        std::string text = "txy2txy u(in)=";
        appendtrimmed(text, session.u);
        return text;
    };
    if (keepable(result, allfinite(session.u), place)) session.u = result;
}

void txy2txyd() { storeploty("txy2txyd", plotyofvalue(session.ud)); }

void txy2txydw() { storeploty("txy2txydw", plotyofp(currentline().family, session.gumbeltype, session.ud)); }

void txtxy2y() {
    if (session.plotMode != 1)
        return storesingle("txtxy2y", offaxis(yaxis(session.xyscale), session.u, ploty));
    storesingle("txtxy2y", pofplotyformula(currentline().family, session.gumbeltype, session.u));
}

void txtxy2yd() {
    if (session.plotMode != 1)
        return storewide("txtxy2yd", offaxis(yaxis(session.xyscale), session.ud, ploty));
    storewide("txtxy2yd", pofploty(currentline().family, session.gumbeltype, session.ud));
}
