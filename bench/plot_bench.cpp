#include <benchmark/benchmark.h>

#include <cmath>
#include <random>
#include <string>

#include "expression/functiontext.h"
#include "plot/device_hpgl.h"
#include "plot/device_svg.h"
#include "plot/device_trace.h"
#include "plot/plotprob.h"
#include "session/session.h"
#include "shell/calcplot.h"
#include "shell/grid.h"

namespace {

/// Counts what it is given, and the longest piece: what a plot holds in memory.
struct CountingSink : TextSink {
    std::size_t bytes = 0;
    std::size_t longest = 0;
    bool open(const std::string&) override { return true; }
    bool write(std::string_view text) override {
        bytes += text.size();
        longest = std::max(longest, text.size());
        return true;
    }
    bool commit() override { return true; }
    void drop() override {}
};

void lifesample(int points) {
    session = Session{};
    chooseside(lifeSide);
    allocatearrays();
    std::mt19937 random(5);
    for (int j = 1; j <= points; ++j) {
        const double p = (static_cast<double>(random()) + 0.5) / 4294967296.0;
        gridset(1, j, (j % 5 == 0 ? "-" : "") + std::to_string(1000 * std::pow(-std::log1p(-p), 0.5)));
    }
    calcplot();
}

void trends(int sets, int points) {
    session = Session{};
    chooseside(visualSide);
    allocatearrays();
    for (int k = 1; k <= sets; ++k)
        for (int j = 1; j <= points; ++j)
            gridset(k, j, std::to_string(j) + "x" + std::to_string(10 * k + std::sin(j / 40.0)));
    calcplot();
}

/// A cubic through each set, as a fit would leave it.
void cubics(int sets) {
    const auto tokens = typedtokens("5.5+.01*x+.002*x^2-.00001*x^3", functionCurve, true);
    for (int k = 1; k <= sets; ++k) {
        SetCurve& curve = session.curves(k);
        curve.fitmodel = 3;
        curve.code = tokens->fcode;
        curve.literals = tokens->literals;
        curve.literals[0] += 10 * k;
        curve.dataLow = 1;
        curve.dataHigh = 500;
    }
}

template <class Make>
void compose(benchmark::State& state, OutputDevice outdev, Make make) {
    session.outdev = static_cast<float>(outdev);
    CountingSink sink;
    for (auto _ : state) {
        auto device = make(sink);
        if (!plotentry(device)) return state.SkipWithError("no plot");
    }
    state.counters["bytes"] = static_cast<double>(sink.bytes) / static_cast<double>(state.iterations());
    state.counters["held"] = static_cast<double>(sink.longest);
}

void BM_Trace1500(benchmark::State& state) {
    lifesample(1500);
    compose(state, pictureDevice, [](TextSink& sink) { return TraceDevice(1200, 900, sink); });
}
void BM_Svg1500(benchmark::State& state) {
    lifesample(1500);
    compose(state, pictureDevice, [](TextSink& sink) { return SvgDevice(1200, 900, sink); });
}
void BM_Hpgl1500(benchmark::State& state) {
    lifesample(1500);
    compose(state, plotterDevice, [](TextSink& sink) { return HpglDevice(sink); });
}
void BM_SvgCurves24x500(benchmark::State& state) {
    trends(24, 500);
    cubics(24);
    compose(state, pictureDevice, [](TextSink& sink) { return SvgDevice(1200, 900, sink); });
}
/// The whole cycle: the grid is read anew, and the plot drawn with its curves.
void BM_CycleCurves24x500(benchmark::State& state) {
    trends(24, 500);
    cubics(24);
    session.outdev = pictureDevice;
    CountingSink sink;
    for (auto _ : state) {
        calcplot();
        cubics(24);
        SvgDevice device(1200, 900, sink);
        if (!plotentry(device)) return state.SkipWithError("no plot");
    }
}
template <PlotKind Kind>
void BM_SvgKind24x500(benchmark::State& state) {
    trends(24, 500);
    session.plotKind = Kind;
    compose(state, pictureDevice, [](TextSink& sink) { return SvgDevice(1200, 900, sink); });
}
void BM_Svg24x500(benchmark::State& state) {
    trends(24, 500);
    compose(state, pictureDevice, [](TextSink& sink) { return SvgDevice(1200, 900, sink); });
}
BENCHMARK(BM_Trace1500)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Svg1500)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Hpgl1500)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_SvgCurves24x500)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_CycleCurves24x500)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_SvgKind24x500<barsSideBySide>)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_SvgKind24x500<bars3D>)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_SvgKind24x500<pie3D>)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_SvgKind24x500<spacePlot>)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Svg24x500)->Unit(benchmark::kMillisecond);

} // namespace
