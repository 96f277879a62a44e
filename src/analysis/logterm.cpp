#include "analysis/logterm.h"

#include <cmath>
#include <limits>
#include <numbers>

namespace {

constexpr double impossible = -std::numeric_limits<double>::infinity();
constexpr double halfLogTwoPi = 0.91893853320467274178;
constexpr double rootHalf = std::numbers::sqrt2 / 2;
constexpr double farTail = 36;      ///< from here on erfc nears the smallest double
constexpr double nearNothing = -37; ///< below, exp(z) is less than half a unit in the last place of 1

/// ln (1 - exp(-t)) for t > 0, by the form that keeps its digits (Maechler, Accurately Computing
/// log(1 - exp(-|a|)), 2012).
double logoneminusexp(double t) {
    return t > std::numbers::ln2 ? std::log1p(-std::exp(-t)) : std::log(-std::expm1(-t));
}

/// ln (exp(a) + exp(b)).
double logofsum(double a, double b) {
    const double high = std::fmax(a, b);
    if (std::isinf(high)) return high;
    return high + std::log1p(std::exp(std::fmin(a, b) - high));
}

double smallestbelow(double z) { return z < nearNothing ? z : logoneminusexp(std::exp(z)); }

/// The difference of the two powers is taken as one, so that it is good for any width of the interval.
double smallestbetween(double a, double b) {
    if (std::isinf(b)) return -std::exp(a);
    return -std::exp(a) + logoneminusexp(std::exp(a) * std::expm1(b - a));
}

/// ln of the normal tail above z. Beyond farTail by the asymptotic series (Abramowitz and Stegun 26.2.12),
/// whose first omitted term is 2e-15 there.
double bellabove(double z) {
    if (z < 0) return std::log1p(-std::erfc(-z * rootHalf) / 2);
    if (z < farTail) return std::log(std::erfc(z * rootHalf) / 2);
    if (std::isinf(z)) return impossible;
    const double v = 1 / (z * z);
    const double series = v * (-1 + v * (3 + v * (-15 + v * (105 - v * 945))));
    return -z * z / 2 - std::log(z) - halfLogTwoPi + std::log1p(series);
}

double bellbetween(double a, double b) {
    if (a < 0 && b > 0) return std::log((std::erf(b * rootHalf) + std::erf(-a * rootHalf)) / 2);
    if (a < 0) return bellbetween(-b, -a);
    const double first = bellabove(a);
    return first + logoneminusexp(first - bellabove(b));
}

/// Slope of ln f, and the second.
double densityslope(Shape shape, double z) {
    switch (shape) {
    case Shape::smallest: return 1 - std::exp(z);
    case Shape::largest: return std::exp(-z) - 1;
    default: return -z;
    }
}

double densitycurve(Shape shape, double z) {
    switch (shape) {
    case Shape::smallest: return -std::exp(z);
    case Shape::largest: return -std::exp(-z);
    default: return -1;
    }
}

/// Second slope of ln D where the first is D'/D: D''/D less its square. Where nothing is left of the density
/// its own slope may be infinite, and nothing times that is still nothing.
double curve(Shape shape, double slope, double z) {
    return slope == 0 ? 0 : slope * (densityslope(shape, z) - slope);
}

bool hashigh(Known known) { return known == Known::between || known == Known::outside; }

} // namespace

double logdensity(Shape shape, double z) {
    if (std::isinf(z)) return impossible;
    switch (shape) {
    case Shape::smallest: return z - std::exp(z);
    case Shape::largest: return -z - std::exp(-z);
    default: return -z * z / 2 - halfLogTwoPi;
    }
}

double logabove(Shape shape, double z) {
    switch (shape) {
    case Shape::smallest: return -std::exp(z);
    case Shape::largest: return smallestbelow(-z);
    default: return bellabove(z);
    }
}

double logbelow(Shape shape, double z) {
    switch (shape) {
    case Shape::smallest: return smallestbelow(z);
    case Shape::largest: return -std::exp(-z);
    default: return bellabove(-z);
    }
}

double logbetween(Shape shape, double a, double b) {
    if (!(a < b)) return std::isnan(a) || std::isnan(b) ? a + b : impossible;
    if (std::isinf(a)) return logbelow(shape, b);
    switch (shape) {
    case Shape::smallest: return smallestbetween(a, b);
    case Shape::largest: return std::isinf(b) ? logabove(shape, a) : smallestbetween(-b, -a);
    default: return bellbetween(a, b);
    }
}

double logterm(Shape shape, Known known, double a, double b, double portion) {
    const double share = portion < 1 ? std::log(portion) : 0;
    switch (known) {
    case Known::exactly: return share + logdensity(shape, a);
    case Known::below: return share + logbelow(shape, a);
    case Known::between: return share + logbetween(shape, a, b);
    case Known::outside: return share + logofsum(logbelow(shape, a), logabove(shape, b));
    default:
        const double survived = logabove(shape, a);
        return portion < 1 ? logofsum(share + survived, std::log1p(-portion)) : survived;
    }
}

TermSlopes slopesofterm(Shape shape, Known known, double a, double b, double portion) {
    TermSlopes term;
    term.value = logterm(shape, known, a, b, portion);
    if (known == Known::exactly) {
        term.a = densityslope(shape, a);
        term.aa = densitycurve(shape, a);
        return term;
    }
    // The contribution is ln D with D' = sign * share * f: the slope is D'/D, the second D''/D - (D'/D)^2.
    const double share = portion < 1 ? std::log(portion) : 0;
    const double sign = known == Known::below || known == Known::outside ? 1 : -1;
    term.a = sign * std::exp(share + logdensity(shape, a) - term.value);
    term.aa = curve(shape, term.a, a);
    const bool plain = portion >= 1 || known != Known::above;
    if (plain && shape == Shape::smallest && known == Known::above) term.aa = term.a;
    if (plain && shape == Shape::largest && known == Known::below) term.aa = -term.a;
    if (!hashigh(known)) return term;
    term.b = -sign * std::exp(share + logdensity(shape, b) - term.value);
    term.bb = curve(shape, term.b, b);
    term.ab = -term.a * term.b;
    return term;
}
