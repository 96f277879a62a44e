// Any bytes as a settings file: what was taken is within its limits and survives a write and a read.

#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "session/session.h"
#include "session/settings.h"

namespace {

void require(bool holds) {
    if (!holds) std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static const Session fresh;
    static_cast<Options&>(session) = fresh;
    static_cast<Setup&>(session) = fresh;
    settingstake({reinterpret_cast<const char*>(data), size});
    require(session.dist >= weibull && session.dist <= gumbel);
    require(session.sizeExponent >= 1 && session.sizeExponent <= 10);
    require(session.XFILEFORMER.size() <= Setup::formerMax);
    const std::string written = settingstext();
    settingstake(written);
    require(settingstext() == written);
    return 0;
}
