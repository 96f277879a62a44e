#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// The settings file "VANEX.INI" in the config folder: text lines, one value a line, in sections of a name,
/// a count and that many values. What a reader does not know, and what is missing, broken or out of its
/// limits, keeps the default; nothing that is read can cost more than the file itself.

/// The same without a file: takes the text of one, and gives the text of one.
void settingstake(std::string_view text);
std::string settingstext();

/// Reads the whole file into the session. False when there is none; the defaults then stand.
bool settingsread();

/// Writes the whole file beside its place and over it. Does nothing in a script run. False, and told, when it
/// cannot be written; the old file then stays.
bool settingswrite();

/// What holds for one run alone, of the command line, an option file or a script, does not go into the file:
/// settingskeep remembers the values as they are before, settingsoverride which ones have another value
/// after. A value that the user changes later is written as any other.
void settingskeep();
void settingsoverride();

/// The value at a position (from 1) of a section in the file; noAnswerText and noAnswer when the file, the
/// section or the position is not there.
struct SettingValue {
    std::string text;
    double number;
};
SettingValue settingget(std::string_view section, int position);

/// Sets or clears the mark of a side in programTags: 'W' life, 'V' visual, 'Y' simulation.
void settingsmark(char side, bool on);
bool settingsmarked(char side);

/// Gives every setting its value as delivered. Where a value follows from the data at hand nothing changes.
void settingsreset();

/// Sets an option by its name, as scripts do: "popPortion" ".25". False for a name or a value that does not
/// serve; nothing is then changed.
bool settingset(std::string_view name, std::string_view value);
