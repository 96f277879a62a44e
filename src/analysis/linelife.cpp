#include "analysis/linelife.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

#include "numeric/gamma.h"
#include "numeric/normal.h"
#include "session/fits.h"

namespace {

constexpr double none = std::numeric_limits<double>::quiet_NaN();

bool logarithmic(const FamilyLine& line) { return line.family == weibull || line.family == lognormal; }

bool isline(const FamilyLine& line) {
    return line.beta > 0 && std::isfinite(line.eta) && (!logarithmic(line) || line.eta > 0);
}

/// Distribution at a time that counts from the start of life. Nothing fails before the threshold.
Probability failedby(const FamilyLine& line, double t0, double time) {
    if (logarithmic(line) && time - t0 <= 0) return {0, 1};
    return probabilityofx(line, time - t0);
}

/// Integral of f over [low, high] by the double exponential rule, which takes a slope without bound at either
/// end in its stride. Takahasi and Mori, Publ. RIMS 9 (1974) 721.
template <class F>
double integral(F f, double low, double high) {
    constexpr double reach = 3.4; // of the transformed axis: the weights beyond are below 1e-20
    constexpr int steps = 200;
    const double h = 2 * reach / steps;
    double sum = 0;
    for (int i = 0; i <= steps; ++i) {
        const double s = -reach + h * i;
        const double u = std::numbers::pi / 2 * std::sinh(s);
        const double place = low + (high - low) / (1 + std::exp(-2 * u));
        const double weight = std::numbers::pi / 2 * std::cosh(s) / (std::cosh(u) * std::cosh(u));
        sum += weight * f(place);
    }
    return sum * h * (high - low) / 2;
}

/// Integral of the reliability from 0 to T. A steep line falls within a small part of the range: its
/// quantiles cut the range into pieces that each are smooth.
double livedby(const FamilyLine& line, double t0, double T) {
    constexpr double cuts[] = {1e-6, 1e-3, 0.05, 0.5, 0.95, 0.999, 1 - 1e-9, 1 - 1e-15};
    double sum = 0, low = 0;
    const auto piece = [&](double high) {
        if (!(high > low)) return;
        sum += integral([&](double time) { return failedby(line, t0, time).q; }, low, high);
        low = high;
    };
    for (const double p : cuts) piece(std::min(quantileofp(line, p, true) + t0, T));
    piece(T);
    return sum;
}

/// Families whose hazard summed up tells the life left without a difference of two near values: the further
/// life with the summed hazard `more` behind the standard value z, in the unit of the data; `x` is the age on
/// the line.
double byhazard(const FamilyLine& line, double x, double more) {
    if (line.family == gumbel) return line.beta * std::log1p(more / std::exp(standardofx(line, x)));
    if (x <= 0) return -x + line.eta * std::pow(more, 1 / line.beta);
    return x * std::expm1(std::log1p(more / std::pow(x / line.eta, line.beta)) / line.beta);
}

/// Value of a line of the other families that a share q outlives.
double outlivedby(const FamilyLine& line, double q) {
    if (line.family == gumbel) return line.eta - line.beta * std::log(-std::log1p(-q));
    const double z = -normquantile(q);
    return line.family == lognormal ? line.eta * std::exp(z * std::log(line.beta)) : line.eta + z * line.beta;
}

/// The further life with the summed hazard `more` by the hazard at its middle: for shares so small that two
/// quantiles would not differ in enough digits.
double bymiddle(const FamilyLine& line, double x, double more) {
    const auto hazard = [&line](double at) { return densityofx(line, at) / probabilityofx(line, at).q; };
    const double first = more / hazard(x);
    return more / hazard(x + first / 2);
}

} // namespace

double liferemaining(const FamilyLine& line, double t0, double age, double p) {
    constexpr double smallShare = 1e-5;
    if (!isline(line) || !(age >= 0) || !(p > 0) || !(p < 1)) return none;
    const double x = age - t0;
    const double more = -std::log1p(-p);
    const bool smallest = line.family == weibull || (line.family == gumbel && line.extreme != 1);
    if (smallest) return byhazard(line, x, more);
    const bool born = logarithmic(line) && x <= 0; // all of them live
    const double left = born ? 1 : probabilityofx(line, x).q;
    if (!(left > 1e-290)) return none;
    if (!born && p < smallShare) return bymiddle(line, x, more);
    return outlivedby(line, (1 - p) * left) - x;
}

double renewedmtbf(const FamilyLine& line, double t0, double T) {
    if (!isline(line) || !(T > 0) || !std::isfinite(T)) return none;
    const double failed = failedby(line, t0, T).p;
    if (!(failed > 0)) return none;
    if (line.family != weibull || t0 < 0) return livedby(line, t0, T) / failed;
    // The integral of a Weibull reliability is an incomplete gamma function of its summed hazard.
    const double summed = std::pow((T - t0) / line.eta, line.beta);
    const double scale = line.eta * std::tgamma(1 + 1 / line.beta);
    return (t0 + scale * gammatails(1 / line.beta, summed).lower) / failed;
}

double largestbeyond(const FamilyLine& line, double t0, double x, double n) {
    if (!isline(line) || !(n >= 1)) return none;
    return -std::expm1(n * std::log1p(-failedby(line, t0, x).q));
}

double smallestbeyond(const FamilyLine& line, double t0, double x, double n) {
    if (!isline(line) || !(n >= 1)) return none;
    return -std::expm1(n * std::log1p(-failedby(line, t0, x).p));
}
