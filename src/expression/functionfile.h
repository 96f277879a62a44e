#pragma once

#include <string>
#include <string_view>

/// Function files, ".fun": see docs/functions.md.

/// The session's function as the text of a function file; empty when its tokens are none.
std::string functionfiletext();

/// Takes a function file's text as the session's function and keeps it as the saved copy. False, and the
/// session as it was, when any part cannot be read or the tokens make no function.
bool functionfiletake(std::string_view text);

/// The same with a file. Told when it cannot be written or read; the file that stood there, and the function
/// of the session, are then as they were.
bool functionsave(const std::string& path);
bool functionopen(const std::string& path);
