#pragma once

#include <cstdint>
#include <string_view>

/// The numbered failures of the number routines; each selects one text of the table in matherror.cpp.
enum class MathError : int16_t {
    invalidInput,
    inputsOutOfBounds,
    excessiveIterations,
    excessiveIterationsOf, ///< the same, followed by the routine's name
    arrayTooSmallToSolve,
    arrayTooSmall,
    undefinedArray,
    singularMatrix,
    singularMatrixUnsolved,
    matrixProblem,
    matrixSolution,
    error,
    undetermined,
    undeterminedOf, ///< the same, followed by what is known
};

/// Shows the text of a failure. The shell installs the prompt dialog; until then a failure is silent.
using MathErrorTeller = void (*)(std::string_view text);
extern MathErrorTeller tellmatherror;

/// Set to 1001 by every routine of this floor that checks its input, as it is entered.
extern int16_t errCode;
inline constexpr int16_t inputChecked = 1001;

/// Reports a failure: the table's text with `detail` directly behind it. A number outside the table counts
/// as undetermined; a text beyond 400 bytes is cut. Allocates nothing. The routine that reports then
/// returns its initial value, 0.
void matherror(MathError number, std::string_view detail = {});

/// Text of a failure as the table has it.
std::string_view matherrortext(MathError number);
