// Any bytes as a command line: nothing but a note or a refusal, and options within their limits.

#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include "session/commandline.h"
#include "session/session.h"
#include "session/switches.h"

namespace {

void require(bool holds) {
    if (!holds) std::abort();
}

void reset() {
    static const Session fresh;
    static_cast<CommandFields&>(session) = fresh;
    static_cast<Options&>(session) = fresh;
    session.confMethod = 0;
    session.confLow = session.confHigh = 0;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string_view line(reinterpret_cast<const char*>(data), size);
    reset();
    if (!cmdparse(line)) require(!session.msg.empty());
    cmdapply();
    require(session.inputType >= standard0 && session.inputType <= intv5);
    require(session.mleVariant >= 0 && session.mleVariant <= 5);
    require(session.confLow >= 0 && session.confLow < 100 && session.confHigh >= 0 && session.confHigh < 100);

    // The same bytes as the words of a program start, cut at line ends.
    std::vector<std::string> words(1);
    for (const char c : line) {
        if (c == '\n')
            words.emplace_back();
        else
            words.back() += c;
    }
    reset();
    cmdparse(words);
    return 0;
}
