#include <benchmark/benchmark.h>

#include <cmath>
#include <vector>

#include "curvefit/fitsolve.h"
#include "curvefit/fitstats.h"

namespace {

/// A fit of so many points with its figures: the order as the first number, the points as the second.
void fit(benchmark::State& state) {
    std::vector<FitRow> rows;
    for (int i = 0; i < state.range(1); ++i) {
        const double x = 0.001 * i;
        rows.push_back({x, 3 + x * (2 - x * 0.1) + std::sin(x * 40), 1.0 + i % 3});
    }
    const CurveModel model = *modelofcode(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        const FitSolution solution = fitsolve(rows, model);
        benchmark::DoNotOptimize(fitstats(rows, solution.fitted, model.parameters()));
    }
    state.SetItemsProcessed(state.iterations() * state.range(1));
}

} // namespace

/// To be below 2 ms: a fit runs anew at every plot.
BENCHMARK(fit)->Name("CubicFit")->Args({3, 10000})->Unit(benchmark::kMillisecond);
BENCHMARK(fit)->Name("LinearFit")->Args({1, 10000})->Unit(benchmark::kMillisecond);
BENCHMARK(fit)->Name("OrderNineFit")->Args({9, 10000})->Unit(benchmark::kMillisecond);
BENCHMARK(fit)->Name("PowerFit")->Args({11, 10000})->Unit(benchmark::kMillisecond);
