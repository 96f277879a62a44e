#include <benchmark/benchmark.h>

#include <string>

#include "data/textimport.h"
#include "data/textnormalize.h"
#include "session/session.h"

namespace {

/// Rows of two columns, a value with two decimals and a quantity.
std::string rowsof(std::int64_t rows, char separator) {
    std::string text;
    for (std::int64_t i = 0; i < rows; ++i) {
        text += std::to_string(i % 10000) + '.' + std::to_string(10 + i % 89) + separator;
        text += std::to_string(1 + i % 7) + '\n';
    }
    return text;
}

void import(benchmark::State& state, const char* form, char separator) {
    session = Session{};
    chooseside(lifeSide);
    allocatearrays();
    session.noPrompt = 1;
    session.formatWanted = form;
    const std::string text = rowsof(state.range(0), separator);
    for (auto _ : state) {
        session.msg = text;
        if (textimport(TextFrom::text) != TextRead::read) state.SkipWithError("not read");
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
    session = Session{};
}
BENCHMARK_CAPTURE(import, cells, "A1", '\t')->Arg(1000000)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(import, pairs, "B1", '\t')->Arg(1000000)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(import, commas, "B1", ',')->Arg(1000000)->Unit(benchmark::kMillisecond);

void normalize(benchmark::State& state) {
    const std::string text = rowsof(state.range(0), ' ');
    for (auto _ : state) benchmark::DoNotOptimize(textnormalize(text));
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}
BENCHMARK(normalize)->Arg(1000000)->Unit(benchmark::kMillisecond);

} // namespace
