#include <benchmark/benchmark.h>

#include <cmath>

#include "plot/transforms.h"
#include "session/session.h"

namespace {

void useline(int family) {
    session.plotMode = 1;
    session.dist = static_cast<int16_t>(family);
    session.gumbeltype = -1;
    session.eta = 100;
    session.beta = family == gumbel || family == normal ? 20 : 2;
}

/// One register routine, its argument moving through the range.
void wide(benchmark::State& state, void (*routine)(), double low, double high) {
    useline(static_cast<int>(state.range(0)));
    double part = 0;
    for (auto _ : state) {
        part += 0.01;
        if (part >= 1) part -= 1;
        session.ud = low + (high - low) * part;
        routine();
        benchmark::DoNotOptimize(session.ud);
    }
}

void single(benchmark::State& state, void (*routine)(), double low, double high) {
    useline(static_cast<int>(state.range(0)));
    double part = 0;
    for (auto _ : state) {
        part += 0.01;
        if (part >= 1) part -= 1;
        session.u = static_cast<float>(low + (high - low) * part);
        routine();
        benchmark::DoNotOptimize(session.u);
    }
}

BENCHMARK_CAPTURE(wide, txp2xd, txp2xd, 0.001, 0.999)->DenseRange(1, 4);
BENCHMARK_CAPTURE(wide, txx2pd, txx2pd, 1, 200)->DenseRange(1, 4);
BENCHMARK_CAPTURE(wide, txx2dpd, txx2dpd, 1, 200)->DenseRange(1, 4);
BENCHMARK_CAPTURE(wide, txx2zd, txx2zd, 1, 200)->DenseRange(1, 4);
BENCHMARK_CAPTURE(wide, txx2txxd, txx2txxd, 1, 200)->DenseRange(1, 4);
BENCHMARK_CAPTURE(wide, txy2txyd, txy2txyd, 0.001, 0.999)->DenseRange(1, 4);
BENCHMARK_CAPTURE(wide, txtxx2xd, txtxx2xd, -3, 9)->DenseRange(1, 4);
BENCHMARK_CAPTURE(wide, txtxy2yd, txtxy2yd, -7, 2)->DenseRange(1, 4);
BENCHMARK_CAPTURE(wide, txz2logzd, txz2logzd, 1, 200)->Arg(1);
BENCHMARK_CAPTURE(wide, txlogz2zd, txlogz2zd, -3, 3)->Arg(1);
BENCHMARK_CAPTURE(wide, txz2dphid, txz2dphid, -3, 3)->Arg(1);
BENCHMARK_CAPTURE(wide, txmean2etad, txmean2etad, 1, 200)->DenseRange(1, 4);
BENCHMARK_CAPTURE(single, txp2x, txp2x, 0.001, 0.999)->DenseRange(1, 4);
BENCHMARK_CAPTURE(single, txx2p, txx2p, 1, 200)->DenseRange(1, 4);
BENCHMARK_CAPTURE(single, txx2dp, txx2dp, 1, 200)->DenseRange(1, 4);
BENCHMARK_CAPTURE(single, txx2pprg, txx2pprg, 1, 200)->DenseRange(1, 4);
BENCHMARK_CAPTURE(single, txx2dpprg, txx2dpprg, 1, 200)->DenseRange(1, 4);
BENCHMARK_CAPTURE(single, txx2txx, txx2txx, 1, 200)->DenseRange(1, 4);
BENCHMARK_CAPTURE(single, txy2txy, txy2txy, 0.001, 0.999)->DenseRange(1, 4);
BENCHMARK_CAPTURE(single, txtxx2x, txtxx2x, -3, 9)->DenseRange(1, 4);
BENCHMARK_CAPTURE(single, txtxy2y, txtxy2y, -7, 2)->DenseRange(1, 4);
BENCHMARK_CAPTURE(single, txz2lnz, txz2lnz, 1, 200)->Arg(1);
BENCHMARK_CAPTURE(single, txlnz2z, txlnz2z, -9, 9)->Arg(1);

void locate(benchmark::State& state) {
    useline(static_cast<int>(state.range(0)));
    double p = 0;
    for (auto _ : state) {
        p += 0.01;
        if (p >= 1) p = 0.005;
        session.ud = 40;
        session.ydd = p;
        txYandXandBeta2EtaD();
        benchmark::DoNotOptimize(session.eta);
    }
}
BENCHMARK(locate)->DenseRange(1, 4);

/// The three kernels of the regression walk, a million points.
void plotpoints(benchmark::State& state) {
    const auto family = static_cast<int16_t>(state.range(0));
    constexpr int points = 1000000;
    for (auto _ : state) {
        double sum = 0;
        for (int i = 1; i <= points; ++i)
            sum += plotxofx(family, i) * plotyofp(family, -1, (i - 0.3) / (points + 0.4));
        benchmark::DoNotOptimize(sum);
    }
}
BENCHMARK(plotpoints)->DenseRange(1, 4)->Unit(benchmark::kMillisecond);

} // namespace
