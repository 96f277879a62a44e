#pragma once

#include <optional>
#include <string>
#include <string_view>

/// The name under which a file is saved that a dialog named: with the extension put on where it has none. The
/// dialog asked about a file of the name that it gave, not about one of the longer name: for that one the
/// user is asked here. Nothing when the user keeps the file that is there.
std::optional<std::string> extendedname(std::string name, std::string_view extension);
