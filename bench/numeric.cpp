#include <benchmark/benchmark.h>

#include "numeric/binomial.h"
#include "numeric/chisquare.h"
#include "numeric/normal.h"
#include "numeric/random.h"

static void normalcdf(benchmark::State& state) {
    double x = -6;
    for (auto _ : state) {
        benchmark::DoNotOptimize(normcdf(x));
        x = x < 6 ? x + 0.1 : -6;
    }
}
BENCHMARK(normalcdf);

static void normalinverse(benchmark::State& state) {
    for (auto _ : state) benchmark::DoNotOptimize(normquantile(Rnd()));
}
BENCHMARK(normalinverse);

static void randomnumber(benchmark::State& state) {
    for (auto _ : state) benchmark::DoNotOptimize(Rnd());
}
BENCHMARK(randomnumber);

static void chisquareinverse(benchmark::State& state) {
    for (auto _ : state) benchmark::DoNotOptimize(chi2inv(0.95, static_cast<double>(state.range(0))));
}
BENCHMARK(chisquareinverse)->Arg(1)->Arg(20)->Arg(300);

static void medianranks(benchmark::State& state) {
    const auto trials = static_cast<double>(state.range(0));
    for (auto _ : state)
        for (double r = 1; r <= trials; r += 1) {
            BinomialPlan plan{.N = trials, .C = r - 1, .conf = 0.5};
            binosolve(plan, BinomialUnknown::p);
            benchmark::DoNotOptimize(plan.p);
        }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(medianranks)->Arg(10)->Arg(100)->Arg(1000);

static void medianrankoflargeset(benchmark::State& state) {
    for (auto _ : state) {
        BinomialPlan plan{.N = 1e6, .C = 5e5, .conf = 0.5};
        binosolve(plan, BinomialUnknown::p);
        benchmark::DoNotOptimize(plan.p);
    }
}
BENCHMARK(medianrankoflargeset);
