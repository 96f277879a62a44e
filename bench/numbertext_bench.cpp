#include <benchmark/benchmark.h>

#include <string>
#include <vector>

#include "data/cell.h"
#include "data/numbertext.h"
#include "session/session.h"

namespace {

const std::vector<std::string> shortNumbers = {"150",     "-400",    "6.12", ".5",
                                               "1250.75", "3.3E+33", "85",   "-1.25"};

void BM_ReadShortNumbers(benchmark::State& state) {
    int64_t bytes = 0;
    for (auto _ : state)
        for (const std::string& text : shortNumbers) {
            benchmark::DoNotOptimize(readnumber(text));
            bytes += static_cast<int64_t>(text.size());
        }
    state.SetBytesProcessed(bytes);
}
BENCHMARK(BM_ReadShortNumbers);

void BM_ReadNumbersWithAComma(benchmark::State& state) {
    session.decimalSeparator = ",";
    const std::vector<std::string> numbers = {"6,12", ",5", "1250,75", "-1,25"};
    int64_t bytes = 0;
    for (auto _ : state)
        for (const std::string& text : numbers) {
            benchmark::DoNotOptimize(readentry(text));
            bytes += static_cast<int64_t>(text.size());
        }
    state.SetBytesProcessed(bytes);
    session.decimalSeparator = ".";
}
BENCHMARK(BM_ReadNumbersWithAComma);

void BM_WriteSingles(benchmark::State& state) {
    const std::vector<float> values = {150, -400, 6.12f, .5f, 1250.75f, 3.3e33f, 1e-12f};
    std::string text;
    for (auto _ : state) {
        text.clear();
        for (const float value : values) appendnumber(text, value);
        benchmark::DoNotOptimize(text.data());
    }
    state.SetItemsProcessed(state.iterations() * static_cast<int64_t>(values.size()));
}
BENCHMARK(BM_WriteSingles);

/// The grid of a full life session: 8 sets of 1500 cells.
void BM_SplitAndStoreAGrid(benchmark::State& state) {
    chooseside(lifeSide);
    allocatearrays();
    const std::vector<std::string> cells = {"150", "-400", "6.12x0x5x167", "28x1", "85x0x1x0"};
    for (auto _ : state)
        for (int k = 1; k <= 8; ++k)
            for (int j = 1; j <= 1500; ++j)
                benchmark::DoNotOptimize(cellstore(cellsplit(cells[static_cast<std::size_t>(j % 5)]), k, j));
    state.SetItemsProcessed(state.iterations() * 12000);
}
BENCHMARK(BM_SplitAndStoreAGrid)->Unit(benchmark::kMicrosecond);

} // namespace
