#pragma once

#include <string_view>

/// The number a short text stands for. Blanks are dropped; then a sign "-" or "+", digits with at most one
/// `decimal`, an exponent "E" with its own sign, and at the end one scale letter: "K" 1e3, "M" 1e6, "G" 1e9,
/// "T" 1e12, "P" 1e15, "%" 0.01. Letters are capitals ("m" would be read as milli by some), but "e" passes.
/// The value is mantissa * scale * 10^exponent, correctly rounded up to 19 digits of mantissa; digits
/// alone are an integer, held to +-2147483640. A value too large gives the largest double, one too small 0.
/// A text without a digit is 0; any other character is reported with the character itself, and gives 0.
/// Any bytes are accepted; no locale, no allocation.
double readnum(std::string_view text, char decimal = '.');
