#pragma once

#include <string>
#include <string_view>

/// The label block: two title lines and five further lines of the plot. It stands in every data file, and in
/// label files of its own, which carry labels from one session to another.

inline constexpr int labelLines = 7;
inline constexpr std::size_t titleLength = 60; ///< characters of a title line that are taken

/// Line 1 to 7 of the block.
std::string& labelline(int line);

/// Takes a text as a title line: cut to titleLength.
std::string titleline(std::string_view text);

/// Writes the block, and the titles of the sets behind it where any set has one, to the output. Always true.
bool labelswrite();

/// Reads a label file from the input, which stands behind its first line. "LABELSWVW": a count, the block,
/// and the titles of the sets. Any other heading that begins with "LA": seven lines and no count, of which
/// the first may hold both titles, "_" between them. False, with nothing changed, when what follows is no
/// label file.
bool labelsread(std::string_view heading);
