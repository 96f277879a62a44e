#include <benchmark/benchmark.h>

#include <cmath>
#include <vector>

#include "analysis/goodness.h"
#include "analysis/weibayes.h"

namespace {

/// In the simulation of a null distribution pve is asked once a sample.
void BM_Pve(benchmark::State& state) {
    const auto n = static_cast<double>(state.range(0));
    double rSquared = 0.9;
    for (auto _ : state) {
        benchmark::DoNotOptimize(pve(1, false, n, rSquared));
        rSquared = rSquared > 0.98 ? 0.9 : rSquared + 1e-4;
    }
}
BENCHMARK(BM_Pve)->Arg(8)->Arg(20)->Arg(200);

std::vector<double> quantiles(int n) {
    std::vector<double> values;
    for (int i = 0; i < n; ++i) values.push_back(1000 * std::sqrt(-std::log1p(-(i + 0.5) / n)));
    return values;
}

void BM_AndersonDarling(benchmark::State& state) {
    const std::vector<double> values = quantiles(static_cast<int>(state.range(0)));
    for (auto _ : state) benchmark::DoNotOptimize(andersondarling({1, -1, 1000, 2}, values));
}
BENCHMARK(BM_AndersonDarling)->Arg(10000)->Unit(benchmark::kMicrosecond);

void BM_WeibayesSum(benchmark::State& state) {
    const std::vector<double> values = quantiles(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        WeibayesSum sum(2);
        for (const double t : values) sum.add(1, t);
        benchmark::DoNotOptimize(sum.logarithm());
    }
}
BENCHMARK(BM_WeibayesSum)->Arg(10000)->Unit(benchmark::kMicrosecond);

} // namespace
