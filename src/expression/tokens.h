#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "session/expressionstate.h"

/// The tokens of the typed function. One list serves evaluation, the text shown, typed text and data files.

/// A FunctionMode beside those of the session's list: Y of each row from the Y of two sets, "A" and "B".
inline constexpr int16_t functionTwoSetsY = 4;

inline bool oftwosets(int16_t mode) { return mode == functionTwoSets || mode == functionTwoSetsY; }
inline bool givesx(int16_t mode) { return mode == functionX || mode == functionTwoSets; }

enum class TokenKind : uint8_t {
    number,         ///< the next literal
    operand,        ///< a value of the row or the session
    column,         ///< x0 to x9
    additive,       ///< the weakest level
    multiplicative, ///< the middle one
    power,          ///< the strongest; every level runs from left to right
    function,       ///< opens a bracket
    memory,         ///< opens a bracket, and remembers the rows before
    open,
    close
};

/// Codes that the code knows by name.
enum TokenCode : int {
    numberToken = 0,
    xToken = 1,
    yToken = 2,
    piToken = 3,
    phiToken = 4,
    lastXToken = 5,
    lastYToken = 6,
    rowToken = 7,
    rowsToken = 8,
    plusToken = 11,
    minusToken = 12,
    modToken = 18,
    derivativeToken = 51,
    productToken = 54,
    integralToken = 55,
    runningSumToken = 57,
    openToken = 88,
    closeToken = 89,
    firstColumn = 90
};

struct Token {
    int code;
    std::string_view text;     ///< what the keypad shows
    std::string_view spelling; ///< two letters in data files; the code itself where a token has none
    TokenKind kind;
    double (*unary)(double) = nullptr;          ///< rule of a function
    double (*binary)(double, double) = nullptr; ///< rule of an operator
    int fault = 5;                              ///< calculation error when the rule has no value
};

/// All tokens, in the order of their codes.
std::span<const Token> tokens();

/// The token of a code, of a spelling at the start of a text; null when there is none.
const Token* tokenofcode(int code);
const Token* tokenofspelling(std::string_view text);

/// The code at a place of a token string; -1 when no two digits stand there.
int codeat(std::string_view fcode, std::size_t at);

/// Text of a token in a FunctionMode: the operands of a row have other names with the parameter k and with
/// two sets.
std::string_view tokentext(const Token& token, int16_t mode);

/// The token that a typed name means, found by its first letters, upper-cased; null when it is none. "ma" is
/// "max", "cosine" is "cos(".
const Token* tokenoftyped(std::string_view upper, int16_t mode);

inline bool opensbracket(TokenKind kind) {
    return kind == TokenKind::open || kind == TokenKind::function || kind == TokenKind::memory;
}
inline bool isoperator(TokenKind kind) {
    return kind == TokenKind::additive || kind == TokenKind::multiplicative || kind == TokenKind::power;
}
inline bool isoperand(TokenKind kind) {
    return kind == TokenKind::number || kind == TokenKind::operand || kind == TokenKind::column;
}
