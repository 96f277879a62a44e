#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "session/folders.h"

/// Finding the program's auxiliary files, and the names of its temporary ones.

/// Class of a file by its name and extension.
FileClass fileclass(std::string_view name);

/// Folders in which a file of that class is looked for, in order, each with its closing "\": the one that
/// served the class last, the program's, the standard ones of the present drive and of drive c:, and those
/// under "PROGRAM FILES". Empty and repeated ones are left out.
std::vector<std::string> candidatefolders(FileClass kind);

/// Register form: the name of a file in msg becomes its whole path in the first candidate folder that holds
/// it, or for a temporary name the first that can be written in; the folder is remembered for its class. A
/// name that pathofname knows, and a name that brings its folder and exists, need no search. False, and told,
/// when no folder has it: msg then is empty.
bool findfile();

/// The same without a word to the user.
bool findfilequietly();

/// Whole path of a name of the program's own: "VANEX.INI" in configPath; executables, library and language
/// names in programPath; exchange and temporary files in tempPath. Empty for any other name.
std::string pathofname(std::string_view name);

/// Starts a base name that no file in tempPath bears, and the name of the undo snapshot with it.
void newtempbase();

/// Path of a temporary file of this session: tempPath, tempBase and the ending ("-1.tmp").
std::string temppath(std::string_view ending);

/// Removes every temporary file of this session.
void removetemporaries();
