#include <benchmark/benchmark.h>

#include "plot/device_svg.h"
#include "plot/drawing.h"
#include "plot/strokes.h"
#include "session/session.h"

namespace {

struct CountingSink : TextSink {
    std::size_t bytes = 0;
    bool open(const std::string&) override { return true; }
    bool write(std::string_view text) override { return bytes += text.size(), true; }
    bool commit() override { return true; }
    void drop() override {}
};

/// A full data set: 1500 marks of one set, composed and written.
void BM_MarksOfAFullSetAsAPicture(benchmark::State& state) {
    session.plotspeed = -1;
    session.marksize = 3;
    session.setCounter = session.sg;
    CountingSink sink;
    SvgDevice device(1200, 800, sink);
    for (auto _ : state) {
        if (!plotbegin(device)) return state.SkipWithError("no picture");
        for (int i = 0; i < 1500; ++i) {
            session.plotx2 = 1500 + 15 * (i * 7 % 1000);
            session.ploty2 = 1500 + 15 * (i * 13 % 600);
            strokemark(static_cast<float>(state.range(0)));
        }
        plotend();
    }
    state.SetItemsProcessed(state.iterations() * 1500);
    state.SetBytesProcessed(static_cast<int64_t>(sink.bytes));
}
BENCHMARK(BM_MarksOfAFullSetAsAPicture)->Arg(24)->Arg(31)->Arg(34)->Unit(benchmark::kMicrosecond);

} // namespace
