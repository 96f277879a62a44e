/// Distribution functions: from a data value to its probability.

#include "plot/transforms_register.h"

#include <limits>

namespace {

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

constexpr double gumbelTest = 700; ///< where the power of a Gumbel is taken for saturated

constexpr Probability never{0, 1};
constexpr Probability surely{1, 0};

/// The pair with exp(-t) as the complement. Where that complement rounds to 1 nothing is left of p, and the
/// pair is saturated: the limits of the ends then take it.
Probability decay(double t) {
    const double q = std::exp(-t);
    if (q == 1) return never;
    return {q < 0.5 ? 1 - q : -std::expm1(-t), q};
}

Probability swapped(const Probability& pair) { return {pair.q, pair.p}; }

/// One call serves both members: the tail keeps its digits, the other is its complement.
Probability phipair(double z) {
    const double tail = normcdf(-std::fabs(z));
    return z > 0 ? Probability{1 - tail, tail} : Probability{tail, 1 - tail};
}

/// True when a step could not be taken although its arguments were finite.
bool untaken(double w, const FamilyLine& line, double x) {
    return !std::isfinite(w) && allfinite(line) && allfinite(x);
}

/// The trap of a standardised value, in both members: `ratio` is what the logarithm was taken of.
Probability trap(double ratio) {
    const double mark = ratio > 0 ? HUGE_VAL : notANumber;
    return {mark, mark};
}

Probability lognormalpair(const FamilyLine& line, double x) {
    const double ratio = x / line.eta;
    const double z = std::log(ratio) / std::log(line.beta);
    if (untaken(z, line, x)) [[unlikely]]
        return trap(ratio);
    return phipair(z);
}

Probability normalpair(const FamilyLine& line, double x) {
    const double z = (x - line.eta) / line.beta;
    if (untaken(z, line, x)) [[unlikely]]
        return trap(1);
    return phipair(z);
}

Probability gumbelpair(const FamilyLine& line, double x) {
    if (!gumbelchosen(line.extreme)) return {x, 1 - x};
    const double w = (x - line.eta) / line.beta;
    if (untaken(w, line, x)) [[unlikely]]
        return trap(1);
    if (std::fabs(w) >= gumbelTest) return w < 0 ? never : surely;
    const double e = std::exp(line.extreme < 0 ? w : -w);
    if (line.extreme < 0) return e >= gumbelTest ? surely : decay(e);
    return e >= gumbelTest ? never : swapped(decay(e));
}

/// The pair of a line before the limits. What is no line gives x itself, with its complement.
Probability pairofx(const FamilyLine& line, double x, double test, bool spike) {
    const Probability untouched{x, 1 - x};
    if (line.beta <= 0) return untouched;
    switch (line.family) {
    case weibull: return line.eta <= 0 || x <= 0 ? untouched : weibullstep(line, x, test).raw;
    case lognormal:
        if (line.eta <= 0 || x <= 0) return untouched;
        if (!(line.beta <= 1)) return lognormalpair(line, x);
        if (!spike) return untouched;
        return x == line.eta ? surely : never;
    case normal: return normalpair(line, x);
    case gumbel: return gumbelpair(line, x);
    default: return untouched;
    }
}

/// Power without a meaning for a negative base, whole exponents included.
double powerof(double ratio, double exponent) { return ratio < 0 ? notANumber : std::pow(ratio, exponent); }

} // namespace

WeibullStep weibullstep(const FamilyLine& line, double x, double test) {
    const double ratio = x / line.eta;
    const double w = line.beta * std::log(ratio);
    if (untaken(w, line, x)) [[unlikely]]
        return {0, trap(ratio)};
    const double t = std::exp(w);
    if (std::fabs(w) >= test || t >= test) return {t, w < 0 ? never : surely};
    return {t, decay(t)};
}

Probability limitedpair(const Probability& raw) {
    if (raw.p <= 0) return {1e-300, 0.999999999999};
    if (raw.p >= 1) return {0.999999999999, 1e-300};
    return raw;
}

Probability probabilityofx(const FamilyLine& line, double x) {
    const Probability raw = pairofx(line, x, wideWeibullTest, true);
    return std::isfinite(raw.p) || !allfinite(x) ? limitedpair(raw) : raw;
}

double probabilityofxsingle(const FamilyLine& line, float x) {
    return pairofx(line, x, singleWeibullTest, false).p;
}

double probabilityformula(const FamilyLine& line, double x) {
    const double w = (x - line.eta) / line.beta;
    switch (line.family) {
    case weibull: {
        const double t = powerof(x / line.eta, line.beta);
        return untaken(t, line, x) ? t : decay(t).p;
    }
    case lognormal: return lognormalpair(line, x).p;
    case normal: return normalpair(line, x).p;
    case gumbel: {
        if (!gumbelchosen(line.extreme)) return x;
        const double e = std::exp(line.extreme < 0 ? w : -w);
        if (untaken(e, line, x)) return e;
        return line.extreme < 0 ? decay(e).p : decay(e).q;
    }
    default: return x;
    }
}

namespace {

/// Lower limit of a probability in single precision, where the axes still have a place for it.
constexpr float lowestSingle = 1e-12f;

/// Takes the probability into u. An x that was left untouched stays as it is, sign and size.
void store(double p) {
    if (p != session.u) session.u = sngguard(p);
}

} // namespace

void txx2p() {
    const FamilyLine line = currentline();
    const double p = probabilityofxsingle(line, session.u);
    if (keepable(p, allfinite(line) && allfinite(session.u), placenamed("txx2p"))) store(p);
    if (session.u <= 0) session.u = lowestSingle;
    if (session.u >= 1) session.u = 1;
}

void txx2pd() {
    const FamilyLine line = currentline();
    const double x = session.ud;
    Probability pair = probabilityofx(line, x);
    if (!keepable(pair.p, allfinite(line) && allfinite(x), placenamed("txx2pd")))
        pair = limitedpair({x, 1 - x});
    session.ud = pair.p;
    session.udq = pair.q;
}

void txx2pprg() {
    const FamilyLine line = currentline();
    if (line.beta > 0) {
        const double p = probabilityformula(line, session.u);
        if (keepable(p, allfinite(line) && allfinite(session.u), placenamed("txx2pprg"))) store(p);
    }
    if (session.u <= 0) session.u = lowestSingle;
}
