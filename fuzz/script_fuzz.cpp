// Any bytes as a script request, a script file and an option file: read or refused with a sentence.

#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "session/optionfile.h"
#include "session/scriptrequest.h"
#include "session/session.h"

namespace {

void require(bool holds) {
    if (!holds) std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    if (const auto request = requestof(text)) {
        for (const ScriptCommand& command : request->commands) require(!command.word.empty());
        require(!(request->deleteInput && request->clipboardHelper));
    } else {
        require(!session.msg.empty());
    }
    if (const auto script = scriptfileof(text))
        require(script->bLevels.size() <= 1000 && script->usages.size() <= 1000);
    else
        require(!session.msg.empty());
    optionfiletake(text);
    require(session.libraryTitles.size() <= 26 && session.riskUsageRate.size() <= 12);
    require(session.exportDecimal == "." || session.exportDecimal == ",");
    return 0;
}
