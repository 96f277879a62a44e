#pragma once

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

/// A function made ready for a run. The token string is read once; its steps then give, row by row, what a
/// walk over the tokens would give, in the same order of operations and so to the last bit.

enum class FunctionFault : uint8_t {
    none,
    empty,
    malformed,  ///< a token where it cannot stand, or no token at all
    unfinished, ///< ends where an operand is missing
    tooDeep,    ///< more than 32 depths of brackets, the function itself counted as one
    noLiteral   ///< more "00" tokens than numbers
};

/// What a step does with the values so far.
enum class StepKind : uint8_t { constant, x, y, lastX, lastY, row, rows, column, unary, binary, memory };

struct Step {
    StepKind kind = StepKind::constant;
    int index = 0;    ///< digit of a column, or place of a memory
    int code = 0;     ///< token of a memory
    int fault = 0;    ///< calculation error where the rule has no value
    double value = 0; ///< of a constant
    double (*unary)(double) = nullptr;
    double (*binary)(double, double) = nullptr;
};

struct FunctionProgram {
    FunctionFault fault = FunctionFault::empty;
    std::size_t place = 0; ///< of the token at fault, in tokens from 0
    std::vector<Step> steps;
    int memories = 0;
    uint16_t columns = 0;    ///< bit d: the column xd is used
    bool usesY = false;      ///< y of the row, or the last y
    bool operandNext = true; ///< where an unfinished function stopped: an operand comes next
    int openBrackets = 0;    ///< brackets that the end of the string closed
};

inline constexpr int mostDepth = 32;

/// Reads a token string with its numbers, the first of them at index 0, for a run with this ModSetting. A
/// bracket left open is closed at the end. A sign may stand for itself only at the start of a bracket.
FunctionProgram functionprogram(std::string_view fcode, std::span<const double> literals, int16_t modSetting);

/// What a row offers to the function.
struct FunctionRow {
    double x = 0, y = 0;             ///< y is the parameter k when a curve is drawn
    double lastX = 0, lastY = 0;     ///< of the data column
    double row = 0, rows = 0;        ///< number of the row, and of rows
    const double* columns = nullptr; ///< x0 to x9; may be null where the program uses none
};

/// What ddx, prd, Sdx and sum remember, one a place where they stand.
struct FunctionMemory {
    bool begun = false;
    double last = 0, lastX = 0, result = 0;
};

/// Result of a row; or the number of the calculation error that stopped it, and no value.
struct FunctionValue {
    double value = 0;
    int fault = 0;
};

/// Evaluates one row. `memory` has one element for each of program.memories and lasts for the run. A program
/// with a fault has no steps, and gives 0.
FunctionValue functionrow(const FunctionProgram& program, const FunctionRow& row,
                          std::span<FunctionMemory> memory);
