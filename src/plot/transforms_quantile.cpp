/// Quantiles: from a probability to the data value, and the location of a line from what it must meet.

#include "numeric/constants.h"
#include "plot/transforms_register.h"

#include <algorithm>
#include <limits>

namespace {

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

/// ln(ln(1/(1-p))).
double lnlnsurvival(double p) { return std::log(cumulatedhazard(p)); }

/// Beyond the ends of the scale, still in the order of p above 1.
double beyondends(double p, bool negative) {
    if (p <= 0) return negative ? -9e30 : 1e-30;
    return p / 9e22 + 9e20;
}

/// Puts a result beyond `limit` at `value`, with its sign.
double saturated(double r, double limit, double value) {
    return std::fabs(r) > limit ? std::copysign(value, r) : r;
}

/// The same for the result of a formula: an overflow of a finite line stays one, so that it can be told.
double saturated(double r, double limit, double value, const FamilyLine& line) {
    return std::isinf(r) && allfinite(line) ? r : saturated(r, limit, value);
}

/// eta * exp(w), w held to `limit`. The quotient w overflows for a slope near zero.
double scaledexp(const FamilyLine& line, double w, double limit) {
    if (std::isinf(w) && allfinite(line)) return w;
    return line.eta * std::exp(std::clamp(w, -limit, limit));
}

/// The small-p line of the Weibull in logarithms. Out of the range of doubles the result is a plain 1.
double smallweibull(const FamilyLine& line, double p) {
    if (!(line.eta > 0)) return 0;
    const double w = std::log(line.eta) + std::log(p) / line.beta;
    if (std::isinf(w) && allfinite(line)) return w;
    return std::fabs(w) >= 702 ? 1.0 : std::exp(w);
}

/// Gumbel quantile; the caller has p inside the limits of its form.
double gumbelquantile(const FamilyLine& line, double p) {
    if (line.extreme < 0) return line.beta * lnlnsurvival(p) + line.eta;
    return line.eta - line.beta * std::log(-std::log(p));
}

double widequantile(const FamilyLine& line, double p) {
    switch (line.family) {
    case weibull:
        return p <= 1e-9 ? smallweibull(line, p) : scaledexp(line, lnlnsurvival(p) / line.beta, 702);
    case lognormal: return scaledexp(line, (p <= 1e-198 ? -20 : phiinverse(p)) * std::log(line.beta), 702);
    case normal: return line.beta * (p <= 1e-198 ? -30 : phiinverse(p)) + line.eta;
    case gumbel: return gumbelquantile(line, line.extreme < 0 ? std::clamp(p, 1e-15, 0.999999999999999) : p);
    default: return 0;
    }
}

double singlequantile(const FamilyLine& line, float p) {
    const double wide = p;
    switch (line.family) {
    case weibull:
        if (1.0f - p == 1.0f) return line.eta * 1e-15;
        return scaledexp(line, lnlnsurvival(wide) / line.beta, 69);
    case lognormal: return scaledexp(line, phiinverse(wide) * std::log(line.beta), 69);
    case normal: return line.beta * phiinverse(wide) + line.eta;
    case gumbel: return gumbelquantile(line, std::clamp(wide, 1e-15, 0.999999));
    default: return 0;
    }
}

/// True for a point and a slope by which a line can be placed.
bool locates(const FamilyLine& line, double x, double p, bool negative) {
    return line.beta > 0 && p > 0 && p < 1 && (x > 0 || negative);
}

/// eta of a Weibull line through (x, p); at a small p in logarithms, which a negative x does not have.
double weibullthrough(const FamilyLine& line, double x, double p) {
    if (p <= 1e-9) return x > 0 ? std::exp(std::log(x) - std::log(p) / line.beta) : notANumber;
    const double scale = std::pow(cumulatedhazard(p), 1 / line.beta);
    return std::isinf(scale) ? scale : x / scale;
}

} // namespace

double quantileofp(const FamilyLine& line, double p, bool negative) {
    if (line.beta <= 0) return 0;
    constexpr double limit = 1.505253833063194e306; // exp(705)
    if (p <= 0 || p >= 1) return saturated(beyondends(p, negative), limit, 1e305);
    if (line.family == gumbel && !gumbelchosen(line.extreme)) return p;
    return saturated(widequantile(line, p), limit, 1e305, line);
}

double quantileofpsingle(const FamilyLine& line, float p, bool negative) {
    constexpr double limit = 9.253781725587787e29; // exp(69)
    if (p <= 0 || p >= 1) return saturated(beyondends(p, negative), limit, 9e30);
    if (line.beta <= 0) return 0;
    if (line.family == gumbel && !gumbelchosen(line.extreme)) return p;
    return saturated(singlequantile(line, p), limit, 9e30, line);
}

void txp2x() {
    const FamilyLine line = currentline();
    const double r = quantileofpsingle(line, session.u, negdataok());
    if (keepable(r, allfinite(line) && allfinite(session.u), placenamed("txp2x"))) session.u = sngguard(r);
}

void txp2xd() {
    const FamilyLine line = currentline();
    const double r = quantileofp(line, session.ud, negdataok());
    if (keepable(r, allfinite(line) && allfinite(session.ud), placenamed("txp2xd"))) session.ud = r;
}

double etathrough(const FamilyLine& line, double x, double p, double s, bool negative) {
    if (!locates(line, x, p, negative)) return line.eta;
    switch (line.family) {
    case weibull: return weibullthrough(line, x, p);
    case lognormal: return x > 0 ? std::exp(std::log(x) - s * std::log(line.beta)) : notANumber;
    case normal: return x - s * line.beta;
    case gumbel:
        if (line.extreme == -1) return x - line.beta * lnlnsurvival(p);
        if (line.extreme == 1) return x + line.beta * std::log(-std::log(p));
        return line.eta;
    default: return line.eta;
    }
}

namespace {

/// The plot Y of ydd by the transform `toplot`; ud is left as it was. Only Lognormal and Normal draw on it.
double plotyofydd(const FamilyLine& line, void (*toplot)()) {
    if (line.family != lognormal && line.family != normal) return 0;
    Keep keep{session.ud};
    session.ud = session.ydd;
    toplot();
    return session.ud;
}

void locatethrough(const char* name, void (*toplot)()) {
    const FamilyLine line = currentline();
    const double x = session.ud;
    const double p = session.ydd;
    if (!locates(line, x, p, negdataok())) return;
    const double eta = etathrough(line, x, p, plotyofydd(line, toplot), negdataok());
    const auto place = [&] {
        std::string text = name;
        text += " Y=";
        appendtrimmed(text, p);
        text += " X=";
        appendtrimmed(text, x);
        text += " B=";
        appendtrimmed(text, line.beta);
        return text;
    };
    if (keepable(eta, allfinite(line) && allfinite(x, p), place)) session.eta = eta;
}

} // namespace

void txYandXandBeta2EtaD() { locatethrough("txYandXandBeta2EtaD", txy2txyd); }

void txYandXandBeta2EtaDw() { locatethrough("txYandXandBeta2EtaDw", txy2txydw); }

double etaofmean(const FamilyLine& line, double mean) {
    switch (line.family) {
    case weibull: {
        if (line.beta <= 0) return 0;
        const double value = std::tgamma(1 + 1 / line.beta);
        return std::isinf(value) ? value : mean / value;
    }
    case lognormal: {
        if (line.beta <= 1 || mean <= 0) return 0;
        const double s = std::log(line.beta);
        double m = std::log(mean);
        if (std::fabs(s) >= 9e-15 && std::fabs(s) < 9e300) {
            const double narrow = sngguard(s);
            m -= narrow * narrow / 2;
        }
        return xofplotx(lognormal, m);
    }
    case gumbel:
        if (line.extreme == -1) return mean + sessionEuler * line.beta;
        if (line.extreme == 1) return mean - sessionEuler * line.beta;
        return mean;
    default: return mean;
    }
}

void txmean2etad() {
    const FamilyLine line = currentline();
    const double eta = etaofmean(line, session.ud);
    if (keepable(eta, allfinite(line) && allfinite(session.ud), placenamed("txmean2etad"))) session.ud = eta;
}
