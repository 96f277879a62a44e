#pragma once

#include <optional>
#include <string>
#include <string_view>

/// Finding the folders of the settings, of the program and of temporary files, before anything else.

/// The folder with "/" turned to "\", names between "%" replaced by the environment's value and a closing
/// backslash, when a test file of that name can be made in it; nothing else counts as usable.
std::optional<std::string> pathusable(std::string_view folder, const char* testname);

/// Settles configPath, programPath and tempPath, each with the first usable of
///   config  -c; APPDATA with "\OmniVANEX" behind it, and without; the program folder
///   program -p; the path file; the folder of the executable; the current folder; APPDATA
///   temp    -t; the path file; TEMP; TMP; the config and the program folder; the user's documents; what the
///           user is asked for
/// A -p whose value is no path, but a letter or a word, chooses the side and is left alone here.
void findpaths(std::string_view line);

/// Decimal symbol of the system's number format, asked for where it cannot be told; and the symbol between
/// thousands, empty when there is none.
void decimalsep();
