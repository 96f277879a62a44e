/// Densities and standardised values.

#include "numeric/constants.h"
#include "plot/transforms_register.h"

#include <limits>

namespace {

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

/// The numbers of a range: where a power is taken for saturated, and what stands for a far tail.
struct Range {
    double test;
    double small;
};
constexpr Range singleRange{80, 9e-30};
constexpr Range wideRange{700, 9e-300};

/// True for a standardised value that is too big although the line and x were finite.
bool toobig(double w, const FamilyLine& line, double x) {
    return std::isinf(w) && allfinite(line) && allfinite(x);
}

/// beta * t * q / x, the density of a Weibull line with t = (x/eta)^beta and the survival q.
double weibullslope(const FamilyLine& line, double x, double t, double survival) {
    if (std::isinf(t)) return toobig(t, line, x) ? t : 0;
    return survival * line.beta * t / x;
}

double lognormaldensity(const FamilyLine& line, double x) {
    if (x <= 0 || line.eta <= 0) return notANumber;
    const double spread = std::log(line.beta);
    const double distance = std::log(x) - std::log(line.eta);
    return std::exp(-distance * distance / 2 / (spread * spread)) / spread / std::sqrt(2 * sessionPi) / x;
}

double normalline(const FamilyLine& line, double x) {
    const double z = (x - line.eta) / line.beta;
    return toobig(z, line, x) ? z : normaldensity(z) / line.beta;
}

/// Exponent of the Gumbel density, w - exp(w) mirrored for the maximum: never above -1.
double gumbelexponent(int16_t extreme, double w) {
    const double v = extreme < 0 ? w : -w;
    return v - std::exp(v);
}

/// Gumbel density. Where it underflows a small number takes its place: by 1/|v| for the minimum, by |v| for
/// the maximum, by 1/|w| where already w is out of range.
double gumbeldensity(const FamilyLine& line, double x, const Range& range) {
    if (line.beta <= 0 || !gumbelchosen(line.extreme)) return x;
    const double w = (x - line.eta) / line.beta;
    if (toobig(w, line, x)) return w;
    if (std::fabs(w) >= range.test) return range.small / std::fabs(w);
    const double v = gumbelexponent(line.extreme, w);
    if (std::fabs(v) >= range.test) return range.small * std::fabs(line.extreme < 0 ? 1 / v : v);
    return std::exp(v) / line.beta;
}

/// What a line and an x outside their domain give before any formula: 0. A Gumbel line and an unknown family
/// have no such answer.
bool nodensity(const FamilyLine& line, double x) {
    switch (line.family) {
    case weibull: return x <= 0 || line.eta <= 0 || line.beta <= 0;
    case lognormal: return x <= 0 || line.eta <= 0 || line.beta <= 1;
    case normal: return line.beta <= 0;
    default: return false;
    }
}

/// The families whose density needs no probability.
double otherdensity(const FamilyLine& line, double x, const Range& range) {
    switch (line.family) {
    case lognormal: return lognormaldensity(line, x);
    case normal: return normalline(line, x);
    case gumbel: return gumbeldensity(line, x, range);
    default: return x;
    }
}

} // namespace

double normaldensity(double z) {
    const double square = z * z;
    if (std::isinf(square) && allfinite(z)) return square;
    return normpdf(z);
}

double densityofx(const FamilyLine& line, double x) {
    if (nodensity(line, x)) return 0;
    if (line.family != weibull) return otherdensity(line, x, wideRange);
    const WeibullStep step = weibullstep(line, x, wideWeibullTest);
    if (!std::isfinite(step.raw.p)) return step.raw.p;
    // The probability that txx2pd leaves is never above 0.999999999999, so the survival never reaches 0.
    const double survival = step.raw.p >= 1 ? 1 - limitedpair(step.raw).p : step.raw.q;
    return weibullslope(line, x, step.t, survival);
}

double densityofxsingle(const FamilyLine& line, float x) {
    if (nodensity(line, x)) return 0;
    if (line.family != weibull) return otherdensity(line, x, singleRange);
    const WeibullStep step = weibullstep(line, x, singleWeibullTest);
    if (!std::isfinite(step.raw.p)) return step.raw.p;
    return sngguard(step.raw.p) >= 1 ? 0 : weibullslope(line, x, step.t, step.raw.q);
}

double densityformula(const FamilyLine& line, double x) {
    switch (line.family) {
    case weibull: {
        const double ratio = x / line.eta;
        const double t = ratio < 0 ? notANumber : std::pow(ratio, line.beta);
        return weibullslope(line, x, t, std::exp(-t));
    }
    case lognormal: return lognormaldensity(line, x);
    case normal: return normalline(line, x);
    case gumbel: {
        if (!gumbelchosen(line.extreme)) return x;
        const double w = (x - line.eta) / line.beta;
        if (toobig(w, line, x)) return w;
        const double v = gumbelexponent(line.extreme, w);
        return toobig(v, line, x) ? v : std::exp(v) / line.beta;
    }
    default: return x;
    }
}

double standardofx(const FamilyLine& line, double x) {
    if (line.beta <= 0) return x;
    const bool logarithmic = line.family == weibull || line.family == lognormal;
    if (!logarithmic) return line.family == normal || line.family == gumbel ? (x - line.eta) / line.beta : x;
    if (line.eta <= 0 || x <= 0) return x;
    const double ratio = x / line.eta;
    if (ratio == 0 && allfinite(line)) return notANumber;
    const double z = std::log(ratio);
    return line.family == weibull ? line.beta * z : z / std::log(line.beta);
}

void txx2dpd() {
    const FamilyLine line = currentline();
    const double x = session.ud;
    const double density = densityofx(line, x);
    const auto place = [&] { return densityplace("txx2dpd", line, x); };
    if (keepable(density, allfinite(line) && allfinite(x), place)) session.ud = density;
}

namespace {

/// Takes the density of the value in u into u, unless it is that value, untouched.
void storesingle(const char* name, const FamilyLine& line, double density) {
    const float x = session.u;
    const auto place = [&] { return densityplace(name, line, x); };
    if (keepable(density, allfinite(line) && allfinite(x), place) && density != x)
        session.u = sngguard(density);
}

} // namespace

void txx2dp() {
    const FamilyLine line = currentline();
    storesingle("txx2dp", line, densityofxsingle(line, session.u));
}

void txx2dpprg() {
    const FamilyLine line = currentline();
    if (line.beta > 0)
        storesingle("txx2dpprg", line, densityformula(line, session.u));
    else if (line.family == weibull || line.family == lognormal || line.family == normal)
        session.u = 0;
}

void txx2zd() {
    const FamilyLine line = currentline();
    const double z = standardofx(line, session.ud);
    if (keepable(z, allfinite(line) && allfinite(session.ud), placenamed("txx2zd"))) session.ud = z;
}

void txz2dphi() {
    const float z = session.u;
    const double density = normaldensity(z);
    if (keepable(density, allfinite(z), placenamed("txz2dphi"))) session.u = sngguard(density);
}

void txz2dphid() {
    const double density = normaldensity(session.ud);
    if (keepable(density, allfinite(session.ud), placenamed("txz2dphid"))) session.ud = density;
}
