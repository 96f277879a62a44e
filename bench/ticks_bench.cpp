#include <benchmark/benchmark.h>

#include "plot/ladder.h"
#include "plot/numbermask.h"
#include "plot/ticks.h"
#include "session/session.h"

namespace {

double extentof(std::string_view text) { return 8.0 * static_cast<double>(text.size()); }

void choose(benchmark::State& state, const AxisSpan& span) {
    const LabelExtent extent = extentof;
    for (auto _ : state) benchmark::DoNotOptimize(chooseticks(span, 600, 8, extent));
}
BENCHMARK_CAPTURE(choose, linear, AxisSpan{AxisScale::linear, -17.3, 123.456})->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(choose, narrow, AxisSpan{AxisScale::linear, 999999, 1000001})
    ->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(choose, threeDecades, AxisSpan{AxisScale::logarithmic, 1, 1000})
    ->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(choose, sixHundredDecades, AxisSpan{AxisScale::logarithmic, 1e-300, 1e300})
    ->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(choose, reciprocal, AxisSpan{AxisScale::reciprocal, 1, 100})->Unit(benchmark::kMicrosecond);

void BM_RoundedSpan(benchmark::State& state) {
    for (auto _ : state)
        benchmark::DoNotOptimize(roundedspan({AxisScale::logarithmic, 3, 4500}, false, false));
}
BENCHMARK(BM_RoundedSpan);

void BM_LabelTheLadder(benchmark::State& state) {
    session.tickindex = noTickIndex;
    for (auto _ : state)
        for (const LadderTick& tick : ladder()) {
            session.ud = tick.percent;
            probticklabel();
            benchmark::DoNotOptimize(session.msg.data());
        }
    state.SetItemsProcessed(state.iterations() * static_cast<int64_t>(ladder().size()));
}
BENCHMARK(BM_LabelTheLadder);

void BM_NumberMask(benchmark::State& state) {
    session.ud = 123.456789;
    for (auto _ : state) benchmark::DoNotOptimize(numbermask(generalUse));
}
BENCHMARK(BM_NumberMask);

} // namespace
