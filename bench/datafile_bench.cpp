#include <benchmark/benchmark.h>

#include <random>
#include <string>

#include "data/cell.h"
#include "data/datafile.h"
#include "data/filelines.h"
#include "session/session.h"

namespace {

/// Takes all and keeps nothing.
class NoSink : public TextSink {
public:
    std::size_t bytes = 0;
    bool open(const std::string&) override { return true; }
    bool write(std::string_view part) override { return bytes += part.size(), true; }
    bool commit() override { return true; }
    void drop() override {}
};

class TextOut : public NoSink {
public:
    std::string text;
    bool write(std::string_view part) override { return text += part, true; }
};

Cell cell(float x) {
    Cell made;
    made.x = x;
    made.hasValue = true;
    return made;
}

void fillsession(Side side, int16_t exponent, int sets, int points) {
    session = Session{};
    session.sizeExponent = exponent;
    chooseside(side);
    allocatearrays();
    std::mt19937 random(1);
    std::uniform_real_distribution<float> value(0, 10000);
    for (int k = 1; k <= sets; ++k) {
        for (int j = 1; j <= points; ++j) cellstore(cell(value(random)), k, j);
        session.n(static_cast<int>(rowofset(static_cast<float>(k)))) = static_cast<float>(points);
    }
    session.lastRow = rowofset(static_cast<float>(sets));
}

/// Sides, exponents, sets and points a set.
void sizes(benchmark::internal::Benchmark* b) {
    b->Args({visualSide, 1, 24, 500})->Args({lifeSide, 10, 8, 768000})->Unit(benchmark::kMillisecond);
}

void fill(const benchmark::State& state) {
    fillsession(static_cast<Side>(state.range(0)), static_cast<int16_t>(state.range(1)),
                static_cast<int>(state.range(2)), static_cast<int>(state.range(3)));
}

void BM_WriteDataFile(benchmark::State& state) {
    fill(state);
    NoSink sink;
    for (auto _ : state) {
        outputbegin(sink);
        datafilewrite();
        outputend();
    }
    state.SetBytesProcessed(static_cast<int64_t>(sink.bytes));
    session = Session{};
}
BENCHMARK(BM_WriteDataFile)->Apply(sizes);

void BM_ReadDataFile(benchmark::State& state) {
    fill(state);
    TextOut sink;
    outputbegin(sink);
    datafilewrite();
    outputend();
    for (auto _ : state) {
        state.PauseTiming();
        inputtext(sink.text);
        nextline();
        state.ResumeTiming();
        benchmark::DoNotOptimize(datafileread());
    }
    state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(sink.text.size()));
    inputclose();
    session = Session{};
}
BENCHMARK(BM_ReadDataFile)->Apply(sizes);

} // namespace
