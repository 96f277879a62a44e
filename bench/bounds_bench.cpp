#include <benchmark/benchmark.h>

#include <cmath>
#include <string>

#include "analysis/boundsofset.h"
#include "platform/headless/headless.h"
#include "session/session.h"
#include "shell/calcplot.h"
#include "shell/grid.h"

namespace {

/// The whole step behind the line: two curves and the bounds of both parameters, 90 percent. Every fifth pair
/// of the values suspended.
void bounds(benchmark::State& state, Dist family, int16_t method, bool complete) {
    HeadlessPlatform desktop;
    platform = &desktop;
    session = Session{};
    chooseside(lifeSide);
    allocatearrays();
    session.dist = family;
    session.fitMethod = session.fitMethodSaved = maximumLikelihood;
    gridclear();
    const int n = static_cast<int>(state.range(0));
    for (int i = 1; i <= n; ++i) {
        const double p = (i * 7919 % n + 0.5) / n;
        const double x = 1000 * std::pow(-std::log1p(-p), 1 / 1.8);
        gridset(1, i, (!complete && i % 5 < 2 ? "-" : "") + std::to_string(x));
    }
    calcplot();
    session.confMethod = method;
    session.confLow = 5;
    session.confHigh = 95;
    session.currentSet = 1;
    for (auto _ : state) boundsofset(1);
    if (session.ifylcnf != 9) state.SkipWithError("no bounds");
    session = Session{};
    platform = nullptr;
}
BENCHMARK_CAPTURE(bounds, fisher, weibull, fisherBounds, false)
    ->Arg(20)
    ->Arg(1000)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(bounds, likelihoodRatioWeibull, weibull, likelihoodBounds, false)
    ->Arg(20)
    ->Arg(1000)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(bounds, likelihoodRatioLognormal, lognormal, likelihoodBounds, false)
    ->Arg(20)
    ->Arg(1000)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(bounds, binomial, weibull, binomialBounds, false)
    ->Arg(20)
    ->Arg(1000)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(bounds, normalTheory, normal, normalTheoryBounds, true)
    ->Arg(20)
    ->Arg(1000)
    ->Unit(benchmark::kMillisecond);

} // namespace
