#pragma once

#include <array>
#include <cstdint>
#include <string>

/// What findfile looks for: each class of files remembers the folder that served it last.
enum class FileClass : uint8_t { settings, temporary, grid, samples, library, program, language, text, data };
inline constexpr std::size_t fileClasses = 9;

/// Where files lie. Every folder ends in a backslash; empty while it is not known.
struct Folders {
    std::string configPath;  ///< folder of the settings file
    std::string programPath; ///< folder of the executable and its language and library files
    std::string tempPath;    ///< folder of temporary files
    std::string startDir;    ///< current folder when the program was started; entered again at the end
    std::string dataPath = "c:\\vanex\\"; ///< default data folder
    std::string extraPaths;               ///< further data folders of the settings, ";" between them
    std::array<std::string, fileClasses> classFolder; ///< folder that served the class last
    std::string tempBase; ///< begin of the names of this session's temporary files; no two sessions share it
    std::string undoFile; ///< undo snapshot: tempPath, tempBase and "-1.tmp"
    std::string lastFile; ///< data file that the program was left with
};
