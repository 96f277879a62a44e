#pragma once

#include <string>
#include <string_view>

/// The program's own paths: "\" between the folders, drives in front ("c:\vanex\data.w"), the same on every
/// system: "\" and "/" are alike, a path without a drive is a
/// native path ("\home\ann\x.w" is "/home/ann/x.w"), and drive c: lies in the user's data folder,
/// $XDG_DATA_HOME/OmniVANEX/c, so that the standard folders exist for everybody without any right.

/// The path as the operating system takes it. "-" (a standard stream) and "" stay. A name that exists as it
/// stands stays as well: a file may bear a backslash in its name.
std::string nativepath(std::string_view own);

/// A native path in the program's own form: what lies in the folder of a drive gets its drive back.
std::string ownpath(std::string_view native);

/// The same path with a closing "\"; an empty path stays empty.
std::string withbackslash(std::string path);

/// Folder of a file with its closing "\"; empty for a name alone.
std::string folderof(std::string_view path);

/// Name of a file without its folder.
std::string nameof(std::string_view path);
