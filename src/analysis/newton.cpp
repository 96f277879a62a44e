#include "analysis/newton.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "analysis/loglik.h"
#include "analysis/notices.h"
#include "session/session.h"

namespace {

constexpr int mostPasses = 60;
constexpr double steepestSlope = 10000;
constexpr double damping = 1.5;
constexpr double nearStep = 0.05; ///< relative step from which on steps are full
constexpr double lastStep = 1e-8; ///< a full step this small has doubled its digits beyond the last
constexpr double valuesBetweenEvents = 8192;

/// Sums of w x^beta and of its first two moments of ln x.
struct PowerSums {
    double zero = 0, one = 0, two = 0;
};

PowerSums powersums(const ProfileData& data, double beta) {
    PowerSums sums;
    for (std::size_t i = 0; i < data.y.size(); ++i) {
        const double y = data.y[i];
        const double power = data.weight[i] * std::exp(beta * y);
        sums.zero += power;
        sums.one += power * y;
        sums.two += power * y * y;
    }
    return sums;
}

/// Newton's step for G, in the direction of the root: G rises with beta.
double stepto(const ProfileData& data, double beta) {
    const PowerSums sums = powersums(data, beta);
    const double mean = sums.one / sums.zero;
    const double g = mean - data.failureSum / data.failures - 1 / beta;
    const double slope = sums.two / sums.zero - mean * mean + 1 / (beta * beta);
    return -g / slope;
}

/// The points of the current set, kept for the length of one search.
struct ProfilePoints {
    std::vector<double> y, weight;
    ProfileData data;

    explicit ProfilePoints(int k) {
        const int points = pointcount(k);
        y.reserve(static_cast<std::size_t>(points));
        weight.reserve(static_cast<std::size_t>(points));
        for (int j = 1; j <= points; ++j) take(termofpoint(k, j));
        data.reference = y.empty() ? 0 : *std::max_element(y.begin(), y.end());
        for (double& value : y) value -= data.reference;
        data.failureSum -= data.failures * data.reference;
        data.y = y;
        data.weight = weight;
    }

private:
    void take(const LifeTerm& term) {
        if (!(term.low > 0)) return; // suspended before anything could fail
        const double value = std::log(term.low);
        y.push_back(value);
        weight.push_back(term.weight);
        if (term.known == Known::above) return;
        data.failures += term.weight;
        data.failureSum += term.weight * value;
    }
};

} // namespace

double newtonstart(double storedSlope) { return storedSlope > 1 ? std::min(storedSlope, 3.0) : 1; }

double closedlogeta(const ProfileData& data, double beta) {
    const double failures = data.failures > 0 ? data.failures : 1;
    return data.reference + std::log(powersums(data, beta).zero / failures) / beta;
}

ProfileSearch weibullprofile(const ProfileData& data, double start, Interrupted interrupted) {
    ProfileSearch found{SearchEnd::noMaximum, start, 0, 0};
    if (data.failures <= 0) return found;
    double walked = 0;
    for (double beta = start; found.passes < mostPasses;) {
        walked += static_cast<double>(data.y.size());
        if (walked >= valuesBetweenEvents) {
            walked = 0;
            if (interrupted()) {
                found.end = SearchEnd::escaped;
                return found;
            }
        }
        double step = stepto(data, beta);
        if (!std::isfinite(step)) return found;
        if (std::fabs(step) > nearStep * beta) step /= damping;
        found.beta = beta;
        ++found.passes;
        beta = beta + step > 0 ? beta + step : beta / 2;
        if (beta > steepestSlope) return found;
        if (std::fabs(step) > lastStep * beta) continue;
        found.end = SearchEnd::found;
        found.beta = beta;
        found.logEta = closedlogeta(data, beta);
        return found;
    }
    found.end = SearchEnd::truncated;
    return found;
}

void maxlyknewton() {
    const ProfilePoints points(session.currentSet);
    const ProfileData& data = points.data;
    const bool known = session.fixedSlope > 0;
    const double start = known ? session.fixedSlope : newtonstart(session.beta);
    ProfileSearch found{SearchEnd::found, start, 0, 0};
    if (!known && data.failures > 0) found = weibullprofile(data, start, escaped);
    if (found.end == SearchEnd::escaped) return;
    if (found.end != SearchEnd::found) session.calcError = 1;
    session.beta = found.beta;
    session.eta = std::exp(closedlogeta(data, found.beta));
    loglyk();
}
