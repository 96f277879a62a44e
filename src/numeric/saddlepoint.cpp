#include "numeric/saddlepoint.h"

#include <cmath>
#include <cstddef>
#include <numbers>

namespace {

// Stirling's error of 0, 1/2, 1, ... 15/2.
constexpr double halves[] = {
    0,
    0.153426409720027345,
    0.0810614667953272582,
    0.0548141210519176539,
    0.0413406959554092941,
    0.0331628735199362875,
    0.0276779256849983391,
    0.023746163656297496,
    0.0207906721037650931,
    0.0184884505326731852,
    0.0166446911898211922,
    0.0151349732219173789,
    0.013876128823070748,
    0.0128104652429202269,
    0.0118967099458917701,
    0.0111045597582069173,
};

/// Asymptotic series, sum of B(2k) / (2k (2k-1) n^(2k-1)); n >= 8.
double stirlingseries(double n) {
    constexpr double terms[] = {1.0 / 12,   -1.0 / 360,        1.0 / 1260, -1.0 / 1680,
                                1.0 / 1188, -691.0 / 360360.0, 1.0 / 156,  -3617.0 / 122400};
    const double w = 1 / (n * n);
    double sum = terms[7];
    for (int k = 6; k >= 0; --k) sum = sum * w + terms[k];
    return sum / n;
}

/// n ln(p) where p is the smaller share and q = 1 - p is known, or the other way round.
double power(double n, double p, double q) { return std::exp(n * (p < 0.5 ? std::log(p) : std::log1p(-q))); }

} // namespace

double stirlingerror(double n) {
    if (n >= 8) return stirlingseries(n);
    const double twice = n + n;
    if (twice == std::floor(twice)) return halves[static_cast<std::size_t>(twice)];
    double steps = 0;
    for (; n < 8; n += 1) steps += (n + 0.5) * std::log1p(1 / n) - 1;
    return steps + stirlingseries(n);
}

double deviance(double x, double mean) {
    if (std::fabs(x - mean) >= 0.3 * (x + mean)) return x * std::log(x / mean) + mean - x;
    // ln(x/mean) = 2 artanh(v), of which the first term joins with mean - x.
    const double v = (x - mean) / (x + mean);
    double sum = (x - mean) * v;
    double term = 2 * x * v;
    for (int j = 1; j < 100; ++j) {
        term *= v * v;
        const double next = sum + term / (2 * j + 1);
        if (next == sum) break;
        sum = next;
    }
    return sum;
}

double binomialterm(double n, double x, double p, double q) {
    if (p == 0) return x == 0 ? 1 : 0;
    if (q == 0) return x == n ? 1 : 0;
    if (x == 0) return power(n, q, p);
    if (x == n) return power(n, p, q);
    const double logarithm = stirlingerror(n) - stirlingerror(x) - stirlingerror(n - x) - deviance(x, n * p)
                             - deviance(n - x, n * q);
    // The count shares of x and n - x are divided before they multiply: n may be beyond the root of the
    // range.
    return std::exp(logarithm) / std::sqrt(2 * std::numbers::pi * x * ((n - x) / n));
}
