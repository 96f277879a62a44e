// Any text as a number: the value is finite, and what is written of it reads back to the same value.

#include <cmath>
#include <cstdint>
#include <cstdlib>

#include "data/numbertext.h"
#include "numeric/sngguard.h"
#include "session/session.h"

namespace {

void require(bool holds) {
    if (!holds) std::abort();
}

/// The reader refuses signed exponents from 200 on, so only these sizes can come back.
bool readsback(double value) {
    return value == 0 || (std::fabs(value) >= 1e-199 && std::fabs(value) < 1e200);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const NumberText number = readnumber(text);
    require(std::isfinite(number.value));
    require(number.readable || number.value == 0);

    static std::string written;
    written.clear();
    appendnumber(written, number.value);
    if (readsback(number.value)) require(readnumber(written).value == number.value);

    const float single = sngguard(number.value);
    written.clear();
    appendnumber(written, single);
    require(sngguard(readnumber(written).value) == single);

    session.decimalSeparator = ",";
    session.msg = text;
    numberread();
    require(session.msg == text && std::isfinite(session.ud) && std::isfinite(session.u));
    session.delimiter = "x";
    while (!session.msg.empty()) {
        const std::size_t before = session.msg.size();
        fieldcut();
        require(session.msg.size() < before);
    }
    return 0;
}
