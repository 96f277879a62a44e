#pragma once

#include <cstddef>
#include <string>

#include "data/datafile.h"

/// Opening a file of the program by what its first line says.

/// Asked, before the session changes, for room for so many points a set; null: the arrays stay as they are.
using MakeRoom = bool (*)(std::size_t points);

/// The name under which a file is there: as given, or with the extension of the side in force behind it.
std::string datafilename(const std::string& name);

/// Opens a file of data, options or labels. FileRead::text: the file is none of ours and waits in the input,
/// from its first line, for the text import.
FileRead datafileopen(const std::string& name, MakeRoom makeroom = nullptr);

/// The same for a text that has been read. A file whose line ends had to be put back is rewritten under its
/// path; empty where the text came out of no file.
FileRead datafiletake(std::string text, const std::string& path, MakeRoom makeroom = nullptr);

/// Side whose file this is by its first line: 'W' life, 'V' visual; 0 when it is no tagged file or cannot be
/// read.
char sideoffile(const std::string& name);
