#include <array>
#include <cmath>

#include "expression/program.h"
#include "expression/rules.h"
#include "expression/tokens.h"

namespace {

constexpr int tooBig = 6; ///< calculation error of an infinite result

/// Each depth holds one value a level, and the one in hand.
constexpr std::size_t mostValues = 4 * mostDepth;

/// Slope from the row before. A row at the x of the one before has no slope of its own and repeats the last.
double derivative(FunctionMemory& memory, double w, double x) {
    if (memory.begun && x != memory.lastX) memory.result = (w - memory.last) / (x - memory.lastX);
    if (!memory.begun || x != memory.lastX) memory.last = w, memory.lastX = x;
    return memory.result;
}

/// Area under the rows so far, by trapezoids.
double integral(FunctionMemory& memory, double w, double x) {
    if (memory.begun) memory.result += (x - memory.lastX) * (memory.last + w) / 2;
    memory.last = w;
    memory.lastX = x;
    return memory.result;
}

double remembered(int code, FunctionMemory& memory, double w, double x) {
    double result = 0;
    switch (code) {
    case derivativeToken: result = derivative(memory, w, x); break;
    case integralToken: result = integral(memory, w, x); break;
    case productToken: result = memory.result = productrule(memory.begun ? memory.result : 1, w); break;
    default: result = memory.result += w;
    }
    memory.begun = true;
    return result;
}

/// Value of a step that stands for itself.
double operandof(const Step& step, const FunctionRow& row) {
    switch (step.kind) {
    case StepKind::x: return row.x;
    case StepKind::y: return row.y;
    case StepKind::lastX: return row.lastX;
    case StepKind::lastY: return row.lastY;
    case StepKind::row: return row.row;
    case StepKind::rows: return row.rows;
    case StepKind::column: return row.columns ? row.columns[step.index] : 0;
    default: return step.value;
    }
}

int faultof(const Step& step, double value) { return std::isnan(value) ? step.fault : tooBig; }

} // namespace

FunctionValue functionrow(const FunctionProgram& program, const FunctionRow& row,
                          std::span<FunctionMemory> memory) {
    std::array<double, mostValues> values;
    std::size_t top = 0; // values in use
    for (const Step& step : program.steps) {
        switch (step.kind) {
        case StepKind::unary: values[top - 1] = step.unary(values[top - 1]); break;
        case StepKind::binary:
            --top;
            values[top - 1] = step.binary(values[top - 1], values[top]);
            break;
        case StepKind::memory: {
            FunctionMemory& kept = memory[static_cast<std::size_t>(step.index)];
            values[top - 1] = remembered(step.code, kept, values[top - 1], row.x);
            break;
        }
        default: values[top++] = operandof(step, row);
        }
        if (!std::isfinite(values[top - 1])) return {0, faultof(step, values[top - 1])};
    }
    return {top ? values[top - 1] : 0, 0};
}
