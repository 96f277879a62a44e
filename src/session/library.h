#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// The library lists: texts for titles and comments, one list a file, a line an entry.

/// Slots of the lists, 0 to 8: device, equipment, cause, usage, environment, comment 1 to 4.
inline constexpr int librarySlots = 9;
inline constexpr int firstCommentSlot = 5;
inline constexpr int commentSlots = 4;

/// Register form: msg = file name of the list of a slot; empty for a number that is no slot.
void libraryfile(int slot);

/// Entries of a list, without blank lines. The user's own copy in the data folder or the one beside the
/// settings comes before the one beside the program. A missing list is an empty one; nothing when a file is
/// there that is no list: not readable, or far too long.
std::optional<std::vector<std::string>> libraryread(int slot);

/// The same for those who only show it: empty for a list that cannot be read.
std::vector<std::string> librarylist(int slot);

/// Writes a list over the file it was read from, or where that cannot be written to the user's own folders.
/// False when nothing took it; the former file then stands.
bool librarywrite(int slot, std::span<const std::string> entries);

/// The page that edits the four comments. A comment shows the first entry of its list; what is typed in or
/// chosen becomes the first. With OK the lists are written, and the comment edited last becomes libraryItem
/// and analysisComment; without it nothing changes.
void commentedit();
