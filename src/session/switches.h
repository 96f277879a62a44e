#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

/// A command line cut into its switches.

/// One switch, or with letter 0 a text that belongs to none.
struct SwitchText {
    char letter = 0; ///< lower case letter, or digit
    std::string value;
    std::size_t place = 0; ///< where it begins on the line, from 1
    bool none = false;     ///< the word NONE stood for the value
};

/// The words of a program start as one line: what holds a blank is put in quotes.
std::string linefrom(std::span<const std::string> words);

/// Cuts a line into its switches. A switch is "-" or "/" and a letter or digit, at the begin or after a blank
/// or ";"; "/" only where the letter stands alone, for it also begins native paths. The value follows, in
/// single or double quotes, in brackets as one (the request of -s), or plain up to the next switch; ";" ends
/// it. Behind a value that is a number, a letter or a name the rest of the words is a text of its own: so the
/// data file may follow the switches. Doubled blanks count as one, and the word NONE as no value. -0 ends the
/// switches.
///
/// A sequence that is no switch leaves ": Undefined sequence" with its place in msg, else empty, and is
/// passed over.
std::vector<SwitchText> switchsplit(std::string_view line);
