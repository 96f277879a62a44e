#include <benchmark/benchmark.h>

#include <vector>

#include "expression/functiontext.h"
#include "expression/program.h"
#include "session/expressionstate.h"

namespace {

constexpr int rows = 10000;

void run(benchmark::State& state, const char* text) {
    const auto typed = typedtokens(text, functionY, true);
    for (auto _ : state) {
        const FunctionProgram program = functionprogram(typed->fcode, typed->literals, modRemainder);
        std::vector<FunctionMemory> memory(static_cast<std::size_t>(program.memories));
        FunctionRow row;
        double sum = 0;
        for (int j = 1; j <= rows; ++j) {
            row.x = j * .01;
            row.y = j;
            row.row = j;
            sum += functionrow(program, row, memory).value;
        }
        benchmark::DoNotOptimize(sum);
    }
    state.counters["tokens"] = static_cast<double>(typed->fcode.size() / 2);
    state.SetItemsProcessed(state.iterations() * rows);
}
BENCHMARK_CAPTURE(run, arithmetic, "2*x+3*y-x/4+x*y-5*x+y/3")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(run, functions, "2*x+sin(x)*exp(x/50)-ln(x+1)^2+3")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(run, memories, "sum(x)/j+ddx(x*y)-Sdx(x)+2*x-3*y")->Unit(benchmark::kMicrosecond);

void BM_ReadTenThousandTokens(benchmark::State& state) {
    std::string text = "x";
    for (int i = 0; i < 5000; ++i) text += "+x";
    for (auto _ : state) {
        const auto typed = typedtokens(text, functionY, true);
        benchmark::DoNotOptimize(functionprogram(typed->fcode, typed->literals, modRemainder));
    }
}
BENCHMARK(BM_ReadTenThousandTokens)->Unit(benchmark::kMicrosecond);

} // namespace
