#pragma once

#include <gtest/gtest.h>

#include <cmath>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "expression/functiontext.h"
#include "expression/program.h"
#include "session/session.h"

/// A function as it is typed, made ready.
inline FunctionProgram programof(std::string_view text, int16_t mode = functionY,
                                 int16_t setting = modRemainder) {
    const auto typed = typedtokens(text, mode, true);
    if (!typed) {
        ADD_FAILURE() << "cannot be read: " << text;
        return {};
    }
    return functionprogram(typed->fcode, typed->literals, setting);
}

/// Its results over rows, in order. A row without a value is not-a-number; faults are checked where they
/// matter.
inline std::vector<double> valuesof(std::string_view text, const std::vector<FunctionRow>& rows,
                                    int16_t setting = modRemainder) {
    const FunctionProgram program = programof(text, functionY, setting);
    EXPECT_EQ(program.fault, FunctionFault::none) << text;
    std::vector<FunctionMemory> memory(static_cast<std::size_t>(program.memories));
    std::vector<double> values;
    for (const FunctionRow& row : rows) {
        const FunctionValue result = functionrow(program, row, memory);
        values.push_back(result.fault ? NAN : result.value);
    }
    return values;
}

inline double valueof(std::string_view text, const FunctionRow& row = {}) { return valuesof(text, {row})[0]; }

/// The calculation error of one row; 0 for none.
inline int faultof(std::string_view text, const FunctionRow& row = {}) {
    const FunctionProgram program = programof(text);
    std::vector<FunctionMemory> memory(static_cast<std::size_t>(program.memories));
    return functionrow(program, row, memory).fault;
}

inline FunctionFault faultoftokens(std::string_view fcode, const std::vector<double>& literals = {}) {
    return functionprogram(fcode, literals, modRemainder).fault;
}
