#pragma once

#include <string>
#include <string_view>

/// True when the bytes are valid UTF-8 (RFC 3629: no overlong forms, no surrogates, nothing above U+10FFFF).
bool isutf8(std::string_view text);

/// The text as UTF-8: as it stands when it is valid, else read as windows-1252.
std::string asutf8(std::string_view text);

/// A text in UTF-8 as windows-1252, with what has no place there as its number: "&#937;". An "&#" of the text
/// itself becomes "&#38;#".
std::string aswestern(std::string_view text);

/// The same text with its numbers as characters again, in UTF-8.
std::string withoutnumbers(std::string_view text);

/// The bytes of a text from outside as UTF-8: a byte-order mark is taken off, UTF-16 is converted, with a
/// mark or without, and what is neither is read as asutf8 does.
std::string unicodetext(std::string text);

/// Takes the character off the front of a text that is not empty; U+FFFD for a byte that begins none.
char32_t takecharacter(std::string_view& text);
