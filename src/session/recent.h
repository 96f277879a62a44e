#pragma once

#include <string>

/// The list of data files opened and saved last, recentFiles.

/// Puts a file first on the list, once; the oldest goes beyond recentMax.
void recentpush(const std::string& path);

/// Takes files off the list that are no longer there.
void recentclean();
