#include <benchmark/benchmark.h>

#include <limits>
#include <vector>

#include "analysis/bounds.h"
#include "analysis/samplefit.h"

namespace {

/// Ten thousand samples of the plan, and the pivots of every probability of a bound curve at both sides.
void pivotal(benchmark::State& state, SamplePlan plan, double censored) {
    constexpr int samples = 10000;
    plan.leaves.assign(static_cast<std::size_t>(state.range(0)), std::numeric_limits<double>::infinity());
    for (std::size_t i = 0; i < plan.leaves.size(); ++i)
        if (static_cast<double>(i) < censored * static_cast<double>(plan.leaves.size())) plan.leaves[i] = 0;
    plan.parent = {1, -1, 1000, 1.8};
    if (plan.shape == Shape::bell) plan.parent = {2, -1, 1000, 2};
    std::vector<SampleLine> lines(samples);
    std::vector<double> pivots(samples);
    for (auto _ : state) {
        SampleFitter fitter(plan);
        RandomSource source;
        for (SampleLine& line : lines)
            while (!fitter.fit(fitter.draw(source), line)) {
            }
        double sum = 0;
        for (std::size_t i = 0; i < boundprobabilities().size(); ++i) {
            for (std::size_t m = 0; m < lines.size(); ++m)
                pivots[m] = (static_cast<double>(i) / 10 - lines[m].location) / lines[m].scale;
            sum += listvalue(pivots, 0.05) + listvalue(pivots, 0.95);
        }
        benchmark::DoNotOptimize(sum);
    }
}

/// Drawing and fitting alone.
void samples(benchmark::State& state, SamplePlan plan) {
    plan.leaves.assign(20, std::numeric_limits<double>::infinity());
    plan.parent = {1, -1, 1000, 1.8};
    SampleFitter fitter(plan);
    RandomSource source;
    SampleLine line;
    for (auto _ : state) benchmark::DoNotOptimize(fitter.fit(fitter.draw(source), line));
}

SamplePlan planof(Shape shape, bool byLikelihood) {
    SamplePlan plan;
    plan.shape = shape;
    plan.likelihood = byLikelihood;
    return plan;
}
SamplePlan regression(Shape shape) { return planof(shape, false); }
SamplePlan likelihood(Shape shape) { return planof(shape, true); }

BENCHMARK_CAPTURE(samples, rr, regression(Shape::smallest));
BENCHMARK_CAPTURE(samples, mle, likelihood(Shape::smallest));
BENCHMARK_CAPTURE(pivotal, rr, regression(Shape::smallest), 0)->Arg(20)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(pivotal, mle, likelihood(Shape::smallest), 0)->Arg(20)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(pivotal, rrSuspensions, regression(Shape::smallest), 0.5)
    ->Arg(20)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(pivotal, mleSuspensions, likelihood(Shape::smallest), 0.5)
    ->Arg(20)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(pivotal, mleLognormalSuspensions, likelihood(Shape::bell), 0.5)
    ->Arg(20)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(pivotal, rrLarge, regression(Shape::smallest), 0.5)
    ->Arg(1000)
    ->Unit(benchmark::kMillisecond);

} // namespace
