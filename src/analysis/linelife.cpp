#include "analysis/linelife.h"

#include <cmath>
#include <limits>
#include <numbers>

#include "session/fits.h"

namespace {

constexpr double none = std::numeric_limits<double>::quiet_NaN();

bool isline(const FamilyLine& line) {
    const bool logarithmic = line.family == weibull || line.family == lognormal;
    return line.beta > 0 && std::isfinite(line.eta) && (!logarithmic || line.eta > 0);
}

/// Distribution at a time that counts from the start of life. Nothing fails before the threshold.
Probability failedby(const FamilyLine& line, double t0, double time) {
    const bool logarithmic = line.family == weibull || line.family == lognormal;
    if (logarithmic && time - t0 <= 0) return {0, 1};
    return probabilityofx(line, time - t0);
}

/// Integral of f over [0, end] by the double exponential rule, which takes a slope without bound at either
/// end in its stride. Takahasi and Mori, Publ. RIMS 9 (1974) 721.
template <class F>
double integral(F f, double end) {
    constexpr double reach = 3.4; // of the transformed axis: the weights beyond are below 1e-20
    constexpr int steps = 400;
    const double h = 2 * reach / steps;
    double sum = 0;
    for (int i = 0; i <= steps; ++i) {
        const double s = -reach + h * i;
        const double u = std::numbers::pi / 2 * std::sinh(s);
        const double place = end / (1 + std::exp(-2 * u));
        const double weight = std::numbers::pi / 2 * std::cosh(s) / (std::cosh(u) * std::cosh(u));
        sum += weight * f(place);
    }
    return sum * h * end / 2;
}

} // namespace

double liferemaining(const FamilyLine& line, double t0, double age, double p) {
    if (!isline(line) || !(age >= 0) || !(p > 0) || !(p < 1)) return none;
    const double left = failedby(line, t0, age).q;
    if (!(left > 0)) return none;
    const double failed = 1 - (1 - p) * left;
    if (!(failed < 1)) return none;
    return quantileofp(line, failed, true) + t0 - age;
}

double renewedmtbf(const FamilyLine& line, double t0, double T) {
    if (!isline(line) || !(T > 0) || !std::isfinite(T)) return none;
    const double failed = failedby(line, t0, T).p;
    if (!(failed > 0)) return none;
    return integral([&](double time) { return failedby(line, t0, time).q; }, T) / failed;
}

double largestbeyond(const FamilyLine& line, double t0, double x, double n) {
    if (!isline(line) || !(n >= 1)) return none;
    return -std::expm1(n * std::log1p(-failedby(line, t0, x).q));
}

double smallestbeyond(const FamilyLine& line, double t0, double x, double n) {
    if (!isline(line) || !(n >= 1)) return none;
    return -std::expm1(n * std::log1p(-failedby(line, t0, x).p));
}
