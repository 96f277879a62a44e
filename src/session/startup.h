#pragma once

#include <span>
#include <string>
#include <string_view>

/// The life of a process: from its command line to an idle main window, and back.

/// Caption of the start window while arrays of many points are made.
inline constexpr std::string_view waitCaption = "Making Extra Large Array Dimensions - Please Wait ...";

/// What a start comes to.
enum class StartEnd {
    wrongUse,   ///< the command line cannot be understood; msg tells why
    noMemory,   ///< not even the smallest arrays have room; told
    exit,       ///< a script run has done its work
    failed,     ///< a script run has told a fault
    ready,      ///< no window is wanted: the caller goes on
    mainWindow, ///< the main window opens
    startWindow ///< the start window opens and asks
};

/// Settles the folders, takes the command line, the side, the settings and the language, sizes the arrays and
/// runs a script request. The first call does all of it; a further one, after a change of the language,
/// leaves out what stands already. `name` is the program as started: vanexw is the life side, vanexv the
/// visual one.
StartEnd startup(std::span<const std::string> words, std::string_view name, bool windowed);

/// The last things of a process: the file marks are cleared, the settings saved, the temporary files removed
/// and the folder of the start entered again.
void shutdown();

/// What the main window opens with: the data file of the command line, one run, and the welcome if it is due.
/// A file that cannot be read is told.
void openmain();

/// The welcome of the first two starts: which ways there are to begin.
void welcome();
