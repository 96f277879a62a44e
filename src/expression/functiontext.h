#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// The typed function as text: shown, typed, and spelled in files.

/// A token string with its numbers, the first of them at index 0.
struct FunctionTokens {
    std::string fcode;
    std::vector<double> literals;
    bool operator==(const FunctionTokens&) const = default;
};

/// Text of a function, "2*x+sin(x)", in the names of a FunctionMode, with "." as decimal symbol. A negative
/// number stands in brackets, for "-2^2" is the negative of a square. A token that is none shows as "?".
std::string functiontext(std::string_view fcode, std::span<const double> literals, int16_t mode);

/// Reads typed text: a number, a name by its first letters, or a whole piece of a function, "2*x+sin(x)".
/// `operandNext` tells whether an operand may stand at its start, so that "-5" is a number there and else an
/// operator with a number. Within a longer text a function name has its bracket, a sign behind an operator
/// belongs to the number it stands before, and other names are not longer than they are. The session's
/// decimal symbol is read beside ".". Nothing when any part cannot be read. Whether the tokens make a
/// function is not asked here.
std::optional<FunctionTokens> typedtokens(std::string_view text, int16_t mode, bool operandNext);

/// The token string in two-letter spellings, for data files, and back. A token that has no spelling, a number
/// and "ichi^2", is written by its code. Nothing when a part is no spelling, or the string no tokens.
std::optional<std::string> functionspelling(std::string_view fcode);
std::optional<std::string> functionspelled(std::string_view spelling);
