#pragma once

#include <optional>
#include <string>
#include <string_view>

/// Whole files in one step; paths in native form.

/// Content of a file, or of standard input for "-"; nothing when it cannot be read.
std::optional<std::string> readfile(const std::string& path);

/// Writes a file, or standard output for "-". A regular file is written beside its place and renamed over it,
/// so that a full disk or a kill never costs the old one. False when not every byte could be written.
bool writefile(const std::string& path, std::string_view text);
