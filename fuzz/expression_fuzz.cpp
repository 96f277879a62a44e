// Any text as typed text, as a token string, as spellings and as a function file. What can be read can be
// shown, run and written, and a function written reads back to itself; what cannot changes nothing.

#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "expression/functionedit.h"
#include "expression/functionfile.h"
#include "expression/functionrun.h"
#include "expression/functiontext.h"
#include "expression/program.h"
#include "session/session.h"

namespace {

void require(bool holds) {
    if (!holds) std::abort();
}

void evaluate(const FunctionProgram& program) {
    std::vector<FunctionMemory> memory(static_cast<std::size_t>(program.memories));
    FunctionRow row;
    for (const double x : {0.0, -3.5, 1e30}) {
        row.x = x;
        const FunctionValue result = functionrow(program, row, memory);
        require(result.fault != 0 || std::isfinite(result.value));
    }
}

void ofthesession() {
    const Expression read = session;
    const FunctionProgram program = functionprogram(session.fcode, functionliterals(), session.modSetting);
    require(program.fault == FunctionFault::none);
    evaluate(program);
    require(functionfiletake(functionfiletext()));
    require(session.fcode == read.fcode && session.flits == read.flits);
    require(session.fk == read.fk && session.fxlow == read.fxlow && session.fxhigh == read.fxhigh);
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    chooseside(visualSide);
    allocatearrays();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size == 0) return 0;
    static_cast<Expression&>(session) = Expression();
    session.functionMode = static_cast<int16_t>(data[0] % 4);
    session.modSetting = static_cast<int16_t>(data[0] / 4 % 3);
    session.decimalSeparator = data[0] & 64 ? "," : ".";
    session.plotMode = static_cast<int16_t>(data[0] >> 7);
    session.gridCells = {{"1x2", "-3x4x5", "", "100"}, {"7", "8"}};
    const std::string_view text(reinterpret_cast<const char*>(data) + 1, size - 1);

    functiontext(text, {}, session.functionMode);
    evaluate(functionprogram(text, std::vector<double>{1, -2, .5}, session.modSetting));
    if (const auto fcode = functionspelled(text)) require(functionspelling(*fcode) == text);

    if (functionappend(text)) {
        functionline();
        functionrun(1);
        functioncurve(3, {});
    }
    static_cast<Expression&>(session) = Expression();
    if (functionfiletake(text)) ofthesession();
    return 0;
}
