#include "numeric/noncentralt.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "numeric/gamma.h"
#include "numeric/normal.h"

namespace {

constexpr double mostFreedom = 1e9;

/// Nodes above 0 and weights of the rule of 16 points on (-1, 1); Abramowitz and Stegun, table 25.4.
constexpr std::array<double, 8> nodes = {0.0950125098376374402, 0.281603550779258913, 0.458016777657227386,
                                         0.617876244402643748,  0.755404408355003034, 0.865631202387831744,
                                         0.944575023073232576,  0.989400934991649933};
constexpr std::array<double, 8> weights = {0.189450610455068496,  0.182603415044923589, 0.169156519395002538,
                                           0.149595988816576732,  0.124628971255533872, 0.0951585116824927848,
                                           0.0622535239386478929, 0.0271524594117540949};

/// Value and density of the distribution at t.
struct Level {
    double p = 0, density = 0;
};

Level levelat(double t, double dof, double delta) {
    constexpr double reach = 8; // the density of u falls faster than exp(-dof (u - 1)^2 / 2) from its mean
    constexpr double widthsOfPanel = 4;
    constexpr int mostPanels = 4000;
    const double root = std::sqrt(dof);
    const double low = std::max(0.0, std::sqrt(std::max(0.0, 1 - 1 / dof)) - reach / root);
    const double high = 1 + reach / root;
    const double steps = std::max(std::fabs(t), root) * (high - low) / widthsOfPanel;
    const int panels = static_cast<int>(std::clamp(std::ceil(steps), 2.0, static_cast<double>(mostPanels)));
    const double half = (high - low) / panels / 2;
    // ln of 2 (dof/2)^(dof/2) / Gamma(dof/2) exp(-dof/2), the density's constant about u = 1
    const double constant = std::log(2) + dof / 2 * std::log(dof / 2) - lngamma(dof / 2) - dof / 2;
    Level sum;
    double whole = 0;
    for (int i = 0; i < panels; ++i) {
        const double middle = low + half * (2 * i + 1);
        for (std::size_t j = 0; j < 2 * nodes.size(); ++j) {
            const double u = middle + half * (j % 2 == 0 ? nodes[j / 2] : -nodes[j / 2]);
            const double exponent = (dof - 1) * std::log(u) - dof / 2 * (u - 1) * (u + 1);
            const double share = weights[j / 2] * half * std::exp(constant + exponent);
            const double z = t * u - delta;
            whole += share;
            sum.p += share * normcdf(z);
            sum.density += share * u * normpdf(z);
        }
    }
    // Dividing by the whole takes off what the constant of a large dof has lost.
    return {sum.p / whole, sum.density / whole};
}

bool isgiven(double dof, double delta) { return dof > 0 && dof <= mostFreedom && std::isfinite(delta); }

} // namespace

double noncentraltcdf(double t, double dof, double delta) {
    if (!isgiven(dof, delta) || std::isnan(t)) return 0;
    if (std::isinf(t)) return t > 0 ? 1 : 0;
    return std::clamp(levelat(t, dof, delta).p, 0.0, 1.0);
}

double noncentraltquantile(double p, double dof, double delta) {
    constexpr int mostPasses = 100;
    if (!isgiven(dof, delta) || !(p > 0 && p < 1)) return 0;
    const double z = normquantile(p);
    double low = -HUGE_VAL;
    double high = HUGE_VAL;
    double t = delta + z * std::sqrt(1 + delta * delta / (2 * dof));
    double reach = 1 + std::fabs(t - delta);
    for (int pass = 0; pass < mostPasses; ++pass) {
        const Level level = levelat(t, dof, delta);
        (level.p < p ? low : high) = t;
        const double at = level.p > 0 && level.p < 1 ? normquantile(level.p) : 0;
        double next = t - (at - z) * normpdf(at) / level.density;
        const bool good = level.p > 0 && level.p < 1 && next > low && next < high;
        if (good && std::fabs(next - t) <= 1e-7 * (1 + std::fabs(t))) return next;
        if (!good && std::isinf(low)) next = t - (reach *= 2);
        if (!good && std::isinf(high)) next = t + (reach *= 2);
        if (!good && std::isfinite(low) && std::isfinite(high)) next = low + (high - low) / 2;
        if (next == t) return t;
        t = next;
    }
    return t;
}

double tolerancefactor(double n, double p, double conf) {
    if (!(n > 1 && p > 0 && p < 1 && conf > 0 && conf < 1)) return 0;
    const double root = std::sqrt(n);
    return noncentraltquantile(conf, n - 1, normquantile(p) * root) / root;
}
