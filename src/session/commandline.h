#pragma once

#include <span>
#include <string>
#include <string_view>

/// The command line: an optional data file, then switches "-x value" (session/switches.h tells the syntax).
/// Only recorded here, in the cmd fields of the session; a value that is not understood has no effect and
/// leaves a note in cmdNotes. False when a switch is unknown, or more than one file is named; msg then says
/// which.
bool cmdparse(std::string_view line);
bool cmdparse(std::span<const std::string> words);

/// Puts the recorded values into the session's options. The side is chosen before, by cmdSide.
void cmdapply();

/// One line for each switch, as the help shows them: letter, value, what it does.
struct SwitchHelp {
    char letter;
    std::string_view value;
    std::string_view text;
};
std::span<const SwitchHelp> switchhelp();
