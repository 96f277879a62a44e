// Simulates the null distribution of r^2 and fits the coefficients of pve that no published list gives: those
// of fewer than 14 failures, and those of lines with a threshold. Built and run by scripts/fitpve.
//
//   fitpve fit     the header of coefficients, to standard output
//   fitpve check   for every parameter case: the share of samples below ccc^2, and how far the shares below
//                  each level of pve are from that level
//
// Samples come from the family itself, are placed at the median ranks of Benard and regressed on their own
// paper. That this is the convention of the published tables shows in `check`: the tables of ccc^2 are met to
// the simulation's own noise. A sample with a threshold takes the t0 below its first value that gives the
// largest r^2. There the null distribution depends on the shape; a Weibull slope of 3.5 and a Lognormal
// spread of 0.8 come closest to the tables of ccc^2.
//
// Every curve goes through 10 percent at rho = 1, so that pve and the table of ccc^2 never contradict each
// other. With a threshold and fewer than 8 failures the table lies below the simulated value (6 to 9 percent
// of the samples are under it); there the levels near 10 percent give way to it.

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <random>
#include <string_view>
#include <vector>

#include "analysis/goodness.h"
#include "numeric/normal.h"

namespace {

using Values = std::vector<double>;

struct Case {
    const char* name;
    int family; ///< of the paper: 1 extreme value, 2 normal
    bool threshold;
};
constexpr Case cases[] = {{"Weibull, two parameters", 1, false},
                          {"Weibull, three parameters", 1, true},
                          {"Lognormal, two parameters", 2, false},
                          {"Lognormal, three parameters", 2, true}};
constexpr double weibullSlope = 3.5, lognormalSpread = 0.8;

std::mt19937_64 generator;
double uniform() { return (static_cast<double>(generator() >> 11) + 0.5) * 0x1p-53; }

double onpaper(int family, double p) { return family == 1 ? std::log(-std::log1p(-p)) : normquantile(p); }

/// Plot Y of the n positions, about their mean.
Values positions(int family, int n) {
    Values y;
    for (int i = 1; i <= n; ++i) y.push_back(onpaper(family, (i - 0.3) / (n + 0.4)));
    double mean = 0;
    for (const double v : y) mean += v / n;
    for (double& v : y) v -= mean;
    return y;
}

double squared(const Values& y, const Values& x) {
    double mean = 0, xx = 0, xy = 0, yy = 0;
    for (const double v : x) mean += v;
    mean /= static_cast<double>(x.size());
    for (std::size_t i = 0; i < x.size(); ++i) {
        const double d = x[i] - mean;
        xx += d * d, xy += d * y[i], yy += y[i] * y[i];
    }
    return xy * xy / (xx * yy);
}

/// Largest r^2 over a threshold below the first value: golden section over the logarithm of its distance.
double largestsquared(const Values& y, const Values& t, Values& work) {
    const double range = std::log(t.back() - t.front());
    const auto at = [&](double s) {
        const double t0 = t.front() - std::exp(s);
        for (std::size_t i = 0; i < t.size(); ++i) work[i] = std::log(t[i] - t0);
        return squared(y, work);
    };
    constexpr double golden = 0.6180339887498949;
    double a = range - 20, b = range + 10;
    double c = b - golden * (b - a), d = a + golden * (b - a);
    double fc = at(c), fd = at(d);
    const double farthest = at(b);
    for (int pass = 0; pass < 40; ++pass) {
        if (fc > fd)
            b = d, d = c, fd = fc, c = b - golden * (b - a), fc = at(c);
        else
            a = c, c = d, fc = fd, d = a + golden * (b - a), fd = at(d);
    }
    return std::max({fc, fd, farthest});
}

/// r^2 of `count` samples of n, in rising order.
Values simulate(const Case& of, int n, int count) {
    generator.seed(static_cast<std::uint64_t>(n) * 10 + of.family * 2 + of.threshold);
    const Values y = positions(of.family, n);
    const double scale = of.family == 1 ? 1 / weibullSlope : lognormalSpread;
    Values x(y.size()), work(y.size()), found;
    for (int sample = 0; sample < count; ++sample) {
        for (double& v : x) v = onpaper(of.family, uniform());
        std::sort(x.begin(), x.end());
        if (!of.threshold) {
            found.push_back(squared(y, x));
            continue;
        }
        for (double& v : x) v = std::exp(v * scale);
        found.push_back(largestsquared(y, x, work));
    }
    std::sort(found.begin(), found.end());
    return found;
}

double quantile(const Values& sorted, double p) {
    return sorted[static_cast<std::size_t>(p * static_cast<double>(sorted.size()))];
}

double shareupto(const Values& sorted, double limit) {
    return static_cast<double>(std::lower_bound(sorted.begin(), sorted.end(), limit) - sorted.begin())
           / static_cast<double>(sorted.size());
}

double criticalvalue(const Case& of, int n) { return cccsquare(of.family, of.threshold, n); }

// ---- the fit

const double tenPercent = std::log(std::log(10));

struct Level {
    double rho, y, weight;
};
struct Curve {
    double A = 0, B = 0, C = 0, error = 0;
};

/// The levels of pve between two r^2, and for each what the form must give there.
std::vector<Level> levelsof(const Values& sorted, double critical, double low, double high) {
    std::vector<Level> levels;
    for (double p = 0.005; p < 0.9975; p += 0.0025) {
        const double r2 = quantile(sorted, p);
        if (r2 < low || r2 >= std::min(high, 0.999999)) continue;
        levels.push_back({(1 - r2) / (1 - critical), std::log(-std::log(p)), std::fabs(p * std::log(p))});
    }
    return levels;
}

/// Least squares of pve by y = y0 + B (rho^A - rho0^A), for one A.
Curve curveofa(const std::vector<Level>& levels, double A, double rho0, double y0) {
    const double g0 = std::pow(rho0, A);
    double gg = 0, gy = 0;
    for (const Level& l : levels) {
        const double g = l.weight * (std::pow(l.rho, A) - g0);
        gg += g * g, gy += g * l.weight * (l.y - y0);
    }
    Curve curve{A, gy / gg, 0, 0};
    curve.C = y0 - curve.B * g0;
    for (const Level& l : levels) {
        const double d = l.weight * (curve.B * std::pow(l.rho, A) + curve.C - l.y);
        curve.error += d * d;
    }
    return curve;
}

Curve bestcurve(const std::vector<Level>& levels, double rho0, double y0) {
    Curve best;
    best.error = HUGE_VAL;
    for (double A = -3; A < 3; A += 0.002) {
        if (std::fabs(A) < 0.01) continue;
        const Curve curve = curveofa(levels, A, rho0, y0);
        if (curve.error < best.error) best = curve;
    }
    return best;
}

struct Rows {
    double split = 0; ///< r^2 from which the upper row holds; 0 one row
    Curve upper, lower;
};

/// One row, or two that meet at the better of the two splits.
Rows fitrows(const Case& of, int n) {
    const Values sorted = simulate(of, n, of.threshold ? 300000 : 2000000);
    const double critical = criticalvalue(of, n);
    if (n >= 8) return {0, bestcurve(levelsof(sorted, critical, 0, 1), 1, tenPercent), {}};
    Rows best;
    double error = HUGE_VAL;
    for (const double split : {0.93, 0.96}) {
        const double rho = (1 - split) / (1 - critical);
        const Curve lower = bestcurve(levelsof(sorted, critical, 0, split), 1, tenPercent);
        const Curve upper =
            bestcurve(levelsof(sorted, critical, split, 1), rho, lower.B * std::pow(rho, lower.A) + lower.C);
        if (lower.error + upper.error >= error) continue;
        error = lower.error + upper.error;
        best = {split, upper, lower};
    }
    return best;
}

/// Least-squares parabola a l^2 + b l + c.
void parabola(const Values& l, const Values& v, double (&coefficients)[3]) {
    long double m[3][4] = {};
    for (std::size_t i = 0; i < l.size(); ++i) {
        const long double g[3] = {l[i] * l[i], l[i], 1};
        for (int r = 0; r < 3; ++r) {
            for (int c = 0; c < 3; ++c) m[r][c] += g[r] * g[c];
            m[r][3] += g[r] * v[i];
        }
    }
    for (int p = 0; p < 3; ++p)
        for (int r = 0; r < 3; ++r) {
            if (r == p) continue;
            const long double factor = m[r][p] / m[p][p];
            for (int c = 0; c < 4; ++c) m[r][c] -= factor * m[p][c];
        }
    for (int p = 0; p < 3; ++p) coefficients[p] = static_cast<double>(m[p][3] / m[p][p]);
}

double at(const double (&c)[3], double l) { return (c[0] * l + c[1]) * l + c[2]; }

/// Parabolas of A and B over a range of n; B is fitted after A has been smoothed, for the two move together.
void fitrange(const Case& of, const std::vector<int>& sizes) {
    Values l, first, second;
    std::vector<std::vector<Level>> levels;
    for (const int n : sizes) {
        const Values sorted = simulate(of, n, std::clamp(12000000 / n, 8000, 300000));
        levels.push_back(levelsof(sorted, criticalvalue(of, n), 0, 1));
        l.push_back(std::log(n));
        first.push_back(bestcurve(levels.back(), 1, tenPercent).A);
    }
    double A[3], B[3];
    parabola(l, first, A);
    for (std::size_t i = 0; i < l.size(); ++i)
        second.push_back(curveofa(levels[i], at(A, l[i]), 1, tenPercent).B);
    parabola(l, second, B);
    std::printf("    {{%.6f, %.6f, %.6f},\n     {%.6f, %.6f, %.6f},\n     {%.6f, %.6f, %.6f}},\n", A[0], A[1],
                A[2], B[0], B[1], B[2], -B[0], -B[1], tenPercent - B[2]);
}

void printcurve(const Curve& c) { std::printf("{%.6f, %.6f, %.6f}", c.A, c.B, c.C); }

void fit() {
    std::puts("#pragma once\n\n// Written by scripts/fitpve; not to be edited.\n");
    std::puts("/// pve = exp(-exp(B rho^A + C)).\nstruct PveRow {\n    double A, B, C;\n};\n");
    std::puts("/// Below 14 failures. From r^2 = split on the upper row holds; 0: it holds everywhere.");
    std::puts("struct PveFew {\n    double split;\n    PveRow upper, lower;\n};\n");
    std::puts("/// By parameter case and n from 3.\ninline constexpr PveFew pveFew[4][11] = {");
    for (const Case& of : cases) {
        std::printf("    {// %s\n", of.name);
        for (int n = 3; n < 14; ++n) {
            const Rows rows = fitrows(of, n);
            std::printf("     {%g, ", rows.split);
            printcurve(rows.upper);
            std::printf(", ");
            printcurve(rows.lower);
            std::puts("},");
            std::fprintf(stderr, "%s n=%d error %g %g\n", of.name, n, rows.upper.error, rows.lower.error);
        }
        std::puts("    },");
    }
    std::puts("};\n\n/// Polynomials in l = ln n: the factors of l^2, l and 1.");
    std::puts("struct PvePolynomials {\n    double A[3], B[3], C[3];\n};\n");
    std::puts(
        "/// With a threshold, from 14 failures on: Weibull below 90 and from 90, Lognormal below 100 and");
    std::puts("/// from 100.\ninline constexpr PvePolynomials pveThreshold[4] = {");
    for (const Case& of : {cases[1], cases[3]}) {
        fitrange(of, {14, 16, 18, 21, 24, 28, 34, 42, 52, 64, 78, 95});
        fitrange(of, {90, 110, 140, 190, 260, 380, 600, 1000, 2000, 4500});
    }
    std::puts("};");
}

void check() {
    for (const Case& of : cases) {
        for (const int n : {3, 4, 5, 6, 7, 8, 10, 13, 14, 15, 17, 20, 30, 50, 89, 120, 300}) {
            const Values sorted =
                simulate(of, n, std::clamp(8000000 / n, 8000, of.threshold ? 100000 : 400000));
            const int family = of.family;
            std::printf("%s n=%3d below ccc^2 %.4f; below pve", of.name, n,
                        shareupto(sorted, cccsquare(family, of.threshold, n)));
            Values found;
            for (const double r2 : sorted)
                found.push_back(r2 < 0.999999 ? pve(family, of.threshold, n, r2) : 1);
            for (const double level : {0.01, 0.05, 0.1, 0.3, 0.5, 0.7, 0.9, 0.95, 0.99})
                std::printf(" %g: %.4f", level,
                            static_cast<double>(std::count_if(found.begin(), found.end(), [=](double p) {
                                return p < level;
                            })) / static_cast<double>(found.size()));
            std::puts("");
        }
    }
}

} // namespace

int main(int argc, char** argv) {
    if (argc == 2 && std::string_view(argv[1]) == "fit")
        fit();
    else
        check();
}
