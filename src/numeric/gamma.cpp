#include "numeric/gamma.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <numbers>

#include "numeric/matherror.h"
#include "numeric/saddlepoint.h"

namespace {

constexpr double smallestx = 1e-12;
constexpr double largeshape = 2000;
constexpr double epsilon = std::numeric_limits<double>::epsilon();

/// x^a e^-x / Gamma(a + 1).
double leadingterm(double a, double x) {
    if (a < 10) return x > 1000 ? 0 : std::pow(x, a) * std::exp(-x) / std::tgamma(a + 1);
    return std::exp(-stirlingerror(a) - deviance(a, x)) / std::sqrt(2 * std::numbers::pi * a);
}

/// P(a, x) / leading term: the sum of x^n / ((a+1) ... (a+n)). At x < a + 1 the terms fall; in a < 2000
/// fewer than 400 are needed.
double lowerseries(double a, double x) {
    double term = 1;
    double sum = 1;
    for (int n = 1; n < 2000 && term > sum * epsilon / 4; ++n) {
        term *= x / (a + n);
        sum += term;
    }
    return sum;
}

/// Q(a, x) / (a leading term): the continued fraction of DLMF 8.9.2, by the modified Lentz method, x >= 1.
double upperfraction(double a, double x) {
    constexpr double tiny = 1e-300;
    double b = x + 1 - a;
    double c = 1 / tiny;
    double d = 1 / (std::fabs(b) < tiny ? tiny : b);
    double fraction = d;
    for (int n = 1; n < 2000; ++n) {
        const double numerator = -n * (n - a);
        b += 2;
        d = numerator * d + b;
        c = b + numerator / c;
        d = 1 / (std::fabs(d) < tiny ? tiny : d);
        if (std::fabs(c) < tiny) c = tiny;
        const double change = d * c;
        fraction *= change;
        if (std::fabs(change - 1) < epsilon) break;
    }
    return fraction;
}

/// ln Gamma(1 + a), 0 < a < 1, with the digits of a that 1 + a drops.
double lngammaoneplus(double a) {
    const double dropped = a - ((1 + a) - 1);
    return std::lgamma(1 + a) - std::numbers::egamma * dropped;
}

/// Q(a, x) for a < 1 and x < 1: 1 - P with the leading 1 taken out of both parts, so that a small Q keeps
/// its digits (Gautschi).
double uppersmall(double a, double x) {
    const double logarithm = a * std::log(x) - lngammaoneplus(a);
    double term = 1;
    double sum = 0;
    for (int n = 1; n < 100; ++n) {
        term *= -x / n;
        const double next = sum + term / (a + n);
        if (next == sum) break;
        sum = next;
    }
    return -std::expm1(logarithm) - std::exp(logarithm) * a * sum;
}

// Coefficients of eta^n a^-k in the uniform expansion, DLMF 8.12.7; row k.
constexpr int etapowers = 14;
constexpr double uniform[][etapowers] = {
    {-0.33333333333333333, 0.083333333333333333, -0.014814814814814815, 0.0011574074074074074,
     0.0003527336860670194, -0.00017875514403292181, 3.9192631785224378e-5, -2.1854485106799922e-6,
     -1.85406221071516e-6, 8.296711340953086e-7, -1.7665952736826079e-7, 6.7078535434014986e-9,
     1.0261809784240308e-8, -4.3820360184533532e-9},
    {-0.0018518518518518519, -0.0034722222222222222, 0.0026455026455026455, -0.00099022633744855967,
     0.00020576131687242798, -4.0187757201646091e-7, -1.8098550334489978e-5, 7.6491609160811101e-6,
     -1.6120900894563446e-6, 4.6471278028074343e-9, 1.378633446915721e-7, -5.752545603517705e-8,
     1.1951628599778147e-8, 0},
    {0.0041335978835978836, -0.0026813271604938272, 0.00077160493827160494, 2.0093878600823045e-6,
     -0.00010736653226365161, 5.2923448829120125e-5, -1.2760635188618728e-5, 3.4235787340961381e-8,
     1.3721957309062933e-6, -6.298992138380055e-7, 0, 0, 0, 0},
    {0.00064943415637860082, 0.00022947209362139918, -0.00046918949439525571, 0.00026772063206283885,
     -7.5618016718839764e-5, -2.3965051138672967e-7, 1.1082654115347302e-5, 0, 0, 0, 0, 0, 0, 0},
    {-0.0008618882909167117, 0.00078403922172006663, -0.00029907248030319018, -1.4638452578843418e-6, 0, 0, 0,
     0, 0, 0, 0, 0, 0, 0},
};

/// Tails for a >= 2000 and x within a quarter of a.
GammaTails uniformtails(double a, double x) {
    const double half = deviance(a, x); // a eta^2 / 2
    const double eta = std::copysign(std::sqrt(2 * half / a), x - a);
    double sum = 0;
    for (std::size_t k = std::size(uniform); k-- > 0;) {
        double row = 0;
        for (int n = etapowers - 1; n >= 0; --n) row = row * eta + uniform[k][n];
        sum = sum / a + row;
    }
    const double correction = std::exp(-half) / std::sqrt(2 * std::numbers::pi * a) * sum;
    const double root = std::copysign(std::sqrt(half), eta);
    return {std::erfc(-root) / 2 - correction, std::erfc(root) / 2 + correction};
}

bool outside(double a, double x) {
    errCode = inputChecked;
    if (a > 0 && std::isfinite(a) && !std::isnan(x)) return false;
    matherror(MathError::invalidInput);
    return true;
}

} // namespace

double gammafunction(double x) {
    errCode = inputChecked;
    const double value = x == 0 ? 0 : std::tgamma(x);
    if (std::isfinite(value) && value != 0) return value;
    // Between the far negative poles the function itself is below the smallest double: 0 is its value.
    if (x < -170 && x != std::floor(x)) return value;
    matherror(MathError::invalidInput);
    return 0;
}

double lngamma(double x) {
    errCode = inputChecked;
    const double value = std::isfinite(x) ? std::lgamma(x) : x;
    if (std::isfinite(value)) return value;
    matherror(MathError::invalidInput);
    return 0;
}

GammaTails gammatails(double a, double x) {
    if (x <= 0) return {0, 1};
    // So far out the spread sqrt(a) is less than the spacing of doubles: the distribution is a step at a.
    if (std::max(a, x) > 1e100)
        return x == a ? GammaTails{0.5, 0.5} : GammaTails{x > a ? 1. : 0., x > a ? 0. : 1.};
    if (a >= largeshape && std::fabs(x - a) <= a / 4) return uniformtails(a, x);
    const double lead = leadingterm(a, x);
    if (x < (a < 1 ? 1 : a + 1)) {
        const double lower = std::min(lead * lowerseries(a, x), 1.0);
        return {lower, a < 1 ? uppersmall(a, x) : 1 - lower};
    }
    if (lead == 0) return {1, 0};
    const double upper = a * lead * upperfraction(a, x);
    return {1 - upper, upper};
}

double gammap(double a, double x) { return outside(a, x) ? 0 : gammatails(a, std::max(x, smallestx)).lower; }

double gammaq(double a, double x) { return outside(a, x) ? 0 : gammatails(a, std::max(x, smallestx)).upper; }
