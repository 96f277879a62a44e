#include <benchmark/benchmark.h>

#include <string>

#include "session/session.h"
#include "shell/languages.h"
#include "shell/words.h"

namespace {

void speak(std::string_view language) {
    session.languageFile = languagefile(language);
    wordload();
}

/// A label of about 60 characters.
void composelabel(std::string& text) {
    compose(text, "B...", Word::New, " ", Word::Language, " ", Word::Analysis, " ", Word::Type, " [",
            Word::Standard, " ", Word::Distribution, " = ", Word::Small, "]");
}

void cleanlabel(benchmark::State& state, std::string_view language) {
    speak(language);
    std::string label, text;
    composelabel(label);
    for (auto _ : state) {
        text = label;
        wordclean(text);
        benchmark::DoNotOptimize(text.data());
    }
    state.counters["bytes"] = static_cast<double>(label.size());
    speak("English");
}
BENCHMARK_CAPTURE(cleanlabel, English, "English");
BENCHMARK_CAPTURE(cleanlabel, German, "German");
BENCHMARK_CAPTURE(cleanlabel, French, "French");

void BM_WordLoad(benchmark::State& state) {
    for (auto _ : state) {
        speak("French");
        speak("German");
    }
    state.SetItemsProcessed(2 * state.iterations());
    speak("English");
}
BENCHMARK(BM_WordLoad);

} // namespace
