#include "curvefit/fitstats.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace {

double scaled(double (*scale)(double), double value) { return scale ? scale(value) : value; }

/// A row on the scales of the comparison.
struct Compared {
    double x, y, fitted, weight;
};

std::vector<Compared> comparedrows(std::span<const FitRow> rows, std::span<const double> fitted,
                                   const FitScales& scales) {
    std::vector<Compared> compared;
    compared.reserve(rows.size());
    for (std::size_t i = 0; i < rows.size() && i < fitted.size(); ++i) {
        if (!std::isfinite(fitted[i])) continue;
        const Compared row{scaled(scales.x, rows[i].x), scaled(scales.y, rows[i].y),
                           scaled(scales.y, fitted[i]), rows[i].weight};
        if (std::isfinite(row.x) && std::isfinite(row.y) && std::isfinite(row.fitted))
            compared.push_back(row);
    }
    return compared;
}

/// Correlation about the means. The first row is the origin of the means: of equal values nothing is left,
/// where a rounded mean would leave its rounding.
void takecorrelation(FitStatistics& statistics, std::span<const Compared> rows) {
    const double x0 = rows[0].x, y0 = rows[0].y;
    double meanx = 0, meany = 0;
    for (const Compared& row : rows) {
        meanx += row.weight * (row.x - x0);
        meany += row.weight * (row.y - y0);
    }
    meanx /= statistics.n;
    meany /= statistics.n;
    double Sxx = 0, Syy = 0, Sxy = 0;
    for (const Compared& row : rows) {
        const double dx = row.x - x0 - meanx, dy = row.y - y0 - meany;
        Sxx += row.weight * dx * dx;
        Syy += row.weight * dy * dy;
        Sxy += row.weight * dx * dy;
    }
    const double r = Sxy / (std::sqrt(Sxx) * std::sqrt(Syy));
    statistics.hasR = Sxx > 0 && Syy > 0 && std::isfinite(r);
    if (statistics.hasR) statistics.r = std::clamp(r, -1.0, 1.0);
}

double standarderror(double sse, double n, int parameters) {
    double freedom = n - parameters;
    if (freedom < 1) freedom = 1 / (std::fabs(freedom) + 2);
    return freedom > 0 && std::isfinite(sse) ? std::sqrt(sse / freedom) : 9e30;
}

} // namespace

FitStatistics fitstats(std::span<const FitRow> rows, std::span<const double> fitted, int parameters,
                       const FitScales& scales) {
    FitStatistics statistics;
    const std::vector<Compared> compared = comparedrows(rows, fitted, scales);
    if (compared.empty()) return statistics;
    for (const Compared& row : compared) {
        const double residual = row.y - row.fitted;
        statistics.n += row.weight;
        statistics.sse += row.weight * residual * residual;
    }
    statistics.standardError = standarderror(statistics.sse, statistics.n, parameters);
    takecorrelation(statistics, compared);
    return statistics;
}
