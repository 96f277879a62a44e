#include "expression/program.h"

#include <utility>

#include "expression/rules.h"
#include "expression/tokens.h"
#include "numeric/constants.h"
#include "session/expressionstate.h"

namespace {

/// Puts the tokens in the order in which their operations run (Dijkstra's shunting yard). All operators bind
/// to the left, so an operator first runs those before it that bind as strongly or more.
class Reader {
public:
    Reader(std::span<const double> numbers, int16_t modSetting) : literals(numbers), setting(modSetting) {}

    FunctionProgram read(std::string_view fcode) {
        if (fcode.empty()) return stopped(FunctionFault::empty);
        for (std::size_t at = 0; at < fcode.size(); at += 2, ++program.place) {
            const Token* token = tokenofcode(codeat(fcode, at));
            const FunctionFault fault = token ? take(*token) : FunctionFault::malformed;
            if (fault != FunctionFault::none) return stopped(fault);
        }
        program.openBrackets = depth - 1;
        if (program.operandNext) return stopped(FunctionFault::unfinished);
        while (!waiting.empty()) finishlast();
        program.fault = FunctionFault::none;
        return std::move(program);
    }

private:
    struct Waiting {
        const Token* token;
        int memory; ///< place of a memory function
    };

    FunctionProgram stopped(FunctionFault fault) {
        program.fault = fault;
        program.steps.clear();
        return std::move(program);
    }

    FunctionFault take(const Token& token) {
        if (isoperator(token.kind)) return takeoperator(token);
        if (token.kind == TokenKind::close) return takeclose();
        if (!program.operandNext) return FunctionFault::malformed;
        if (opensbracket(token.kind)) return takeopen(token);
        program.operandNext = false;
        return takeoperand(token);
    }

    FunctionFault takeoperator(const Token& token) {
        if (program.operandNext) {
            if (!bracketBegins || token.kind != TokenKind::additive) return FunctionFault::malformed;
            program.steps.push_back({}); // a leading sign adds to 0, or takes from it
        }
        while (!waiting.empty() && isoperator(waiting.back().token->kind)
               && waiting.back().token->kind >= token.kind)
            finishlast();
        waiting.push_back({&token, 0});
        program.operandNext = true;
        bracketBegins = false;
        return FunctionFault::none;
    }

    FunctionFault takeopen(const Token& token) {
        if (++depth > mostDepth) return FunctionFault::tooDeep;
        waiting.push_back({&token, token.kind == TokenKind::memory ? program.memories++ : 0});
        bracketBegins = true;
        return FunctionFault::none;
    }

    FunctionFault takeclose() {
        if (program.operandNext || depth == 1) return FunctionFault::malformed;
        while (!opensbracket(waiting.back().token->kind)) finishlast();
        finishlast();
        --depth;
        return FunctionFault::none;
    }

    FunctionFault takeoperand(const Token& token) {
        bracketBegins = false;
        Step step;
        switch (token.code) {
        case numberToken:
            if (used == literals.size()) return FunctionFault::noLiteral;
            step.value = literals[used++];
            break;
        case xToken: step.kind = StepKind::x; break;
        case yToken: step.kind = StepKind::y; break;
        case piToken: step.value = sessionPi; break;
        case phiToken: step.value = sessionPhi; break;
        case lastXToken: step.kind = StepKind::lastX; break;
        case lastYToken: step.kind = StepKind::lastY; break;
        case rowToken: step.kind = StepKind::row; break;
        case rowsToken: step.kind = StepKind::rows; break;
        default:
            step.kind = StepKind::column;
            step.index = token.code - firstColumn;
            program.columns = static_cast<uint16_t>(program.columns | 1 << step.index);
        }
        program.usesY |= token.code == yToken || token.code == lastYToken;
        program.steps.push_back(step);
        return FunctionFault::none;
    }

    /// Runs what waits last; a plain bracket has nothing to run.
    void finishlast() {
        const auto [token, place] = waiting.back();
        waiting.pop_back();
        if (token->kind == TokenKind::open) return;
        Step step{StepKind::unary, place, token->code, token->fault, 0, token->unary, token->binary};
        if (token->kind == TokenKind::memory) step.kind = StepKind::memory;
        if (token->binary) step.kind = StepKind::binary;
        if (token->code == modToken) step.binary = modrule(setting);
        program.steps.push_back(step);
    }

    std::span<const double> literals;
    int16_t setting;
    FunctionProgram program;
    std::vector<Waiting> waiting; ///< operators and brackets whose operands are not complete
    std::size_t used = 0;
    int depth = 1;
    bool bracketBegins = true;
};

} // namespace

FunctionProgram functionprogram(std::string_view fcode, std::span<const double> literals,
                                int16_t modSetting) {
    return Reader(literals, modSetting).read(fcode);
}
