#include <benchmark/benchmark.h>

#include <cmath>
#include <vector>

#include "analysis/linesearch.h"
#include "analysis/newton.h"

namespace {

/// Quantiles of a Weibull line of slope 1.8, every fifth pair suspended: 40 %. In the order of a shuffle, for
/// the branches of a sorted sample are foretold too well.
LifeTerm lifeof(std::size_t i, std::size_t n) {
    const double p = (static_cast<double>(i * 7919 % n) + 0.5) / static_cast<double>(n);
    const double x = 1000 * std::pow(-std::log1p(-p), 1 / 1.8);
    return {i % 5 < 2 ? Known::above : Known::exactly, 1, x, 0};
}

/// From the values as they stand, logarithms included.
void BM_WeibullProfile(benchmark::State& state) {
    const auto n = static_cast<std::size_t>(state.range(0));
    std::vector<LifeTerm> values(n);
    for (std::size_t i = 0; i < n; ++i) values[i] = lifeof(i, n);
    for (auto _ : state) {
        std::vector<double> y(n), weight(n);
        ProfileData data;
        data.reference = std::log(20000);
        for (std::size_t i = 0; i < n; ++i) {
            y[i] = std::log(values[i].low) - data.reference;
            weight[i] = values[i].weight;
            if (values[i].known == Known::above) continue;
            data.failures += weight[i];
            data.failureSum += weight[i] * y[i];
        }
        data.y = y;
        data.weight = weight;
        benchmark::DoNotOptimize(weibullprofile(data, newtonstart(1.5), [] { return false; }));
    }
}
BENCHMARK(BM_WeibullProfile)->Arg(1000)->Arg(768000)->Unit(benchmark::kMillisecond);

void search(benchmark::State& state, Shape shape) {
    const auto n = static_cast<std::size_t>(state.range(0));
    std::vector<LifeTerm> terms(n);
    for (std::size_t i = 0; i < n; ++i) terms[i] = lifeof(i, n);
    for (LifeTerm& term : terms)
        if (shape == Shape::bell) term.low = std::log(term.low);
    for (auto _ : state)
        benchmark::DoNotOptimize(maximumlikelihood(shape, terms, 1, 0, [] { return false; }));
}
BENCHMARK_CAPTURE(search, lognormal, Shape::bell)->Arg(10000)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(search, gumbelSmallest, Shape::smallest)->Arg(10000)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(search, gumbelLargest, Shape::largest)->Arg(10000)->Unit(benchmark::kMillisecond);

void BM_WeibullIntervals(benchmark::State& state) {
    const auto n = static_cast<std::size_t>(state.range(0));
    std::vector<LifeTerm> terms(n);
    for (std::size_t i = 0; i < n; ++i) {
        const double x = lifeof(i, n).low;
        terms[i] = {Known::between, 1, std::log(x * 0.8), std::log(x * 1.2)};
    }
    for (auto _ : state)
        benchmark::DoNotOptimize(maximumlikelihood(Shape::smallest, terms, 1, 0, [] { return false; }));
}
BENCHMARK(BM_WeibullIntervals)->Arg(1000)->Unit(benchmark::kMillisecond);

} // namespace
