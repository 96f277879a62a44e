#include <benchmark/benchmark.h>

#include <cmath>
#include <string>

#include "analysis/order.h"
#include "analysis/regress.h"
#include "platform/headless/headless.h"
#include "session/session.h"
#include "shell/calcplot.h"
#include "shell/grid.h"

namespace {

/// A life side session over a headless platform; both are gone when the benchmark is over.
class Bench {
public:
    explicit Bench(int16_t exponent) {
        session = Session{};
        session.sizeExponent = exponent;
        chooseside(lifeSide);
        allocatearrays();
        platform = &headless;
    }
    ~Bench() {
        platform = nullptr;
        session = Session{};
    }
    Bench(const Bench&) = delete;
    Bench& operator=(const Bench&) = delete;

    /// True when nothing was told and the set has its line: what is timed is a whole fit.
    bool fitted(int k) const { return headless.messages.empty() && session.setFitted(k) == 1; }

private:
    HeadlessPlatform headless;
};

/// A life between 1 and 40000, out of order, every fourth a suspension: the same on every run.
void lifecell(int set, int point) {
    const auto mixed =
        (static_cast<uint32_t>(point) * 7919u + static_cast<uint32_t>(set) * 104729u) * 2654435761u;
    const double p = (mixed / 4294967296.0) * .999 + .0005;
    const double life = 10000 * std::pow(-std::log1p(-p), .6);
    std::string text = point % 4 == 0 ? "-" : "";
    text += std::to_string(std::round(life * 100) / 100);
    text.resize(text.size() - 4);
    gridset(set, point, text);
}

void BM_CycleEightSetsOf1500(benchmark::State& state) {
    const Bench bench(1);
    for (int k = 1; k <= 8; ++k)
        for (int j = 1; j <= 1500; ++j) lifecell(k, j);
    for (auto _ : state) calcplot();
    if (!bench.fitted(8) || pointcount(8) != 1500) state.SkipWithError("the sets were not fitted");
}
BENCHMARK(BM_CycleEightSetsOf1500)->Unit(benchmark::kMillisecond);

void BM_OneSetOf768000(benchmark::State& state) {
    const Bench bench(10);
    for (int j = 1; j <= 768000; ++j) lifecell(1, j);
    for (auto _ : state) calcplot();
    if (!bench.fitted(1) || pointcount(1) != 768000) state.SkipWithError("the set was not fitted");
}
BENCHMARK(BM_OneSetOf768000)->Unit(benchmark::kMillisecond);

void BM_WalkByUnit1000000(benchmark::State& state) {
    const Bench bench(1);
    for (int j = 1; j <= 1000; ++j) gridset(1, j, std::to_string(j) + "x0x1000");
    gridget(3);
    session.lastRow = 3;
    session.currentSet = 1;
    orderset(1);
    placepoints(1);
    for (auto _ : state) regresscalcw0();
    if (session.sums.n != 1e6) state.SkipWithError("not every unit was walked");
}
BENCHMARK(BM_WalkByUnit1000000)->Unit(benchmark::kMillisecond);

} // namespace
