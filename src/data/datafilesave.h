#pragma once

#include <string>

#include "platform/files.h"

/// Saving the session as a data file.

/// What a caller puts into u, in either sign, to have the labels saved instead of the data.
inline constexpr float labelsWanted = 1.111111e-11f;

/// Saves the session under a name, or its labels when u asks for them. A name without an extension gets the
/// one of the side. Refused, and told, when the extension belongs to the other side or the file cannot be
/// written; the file that was there then stays as it was. The file is whole at any moment: it grows beside
/// its place, is put on the disk, and takes the place in one step. What cannot be in a file, cells that are
/// no points, is told. The file becomes that of the session, which then is saved.
bool datafilesave(const std::string& name);

/// True when a file holds the very session, data and options, as a plain data file.
bool savedas(const std::string& path);

/// The session as the text of a plain data file.
std::string datafiletext();

/// The session as a plain data file of the program's own use: whole or not there, but not forced to the disk.
bool snapshotwrite(const std::string& path);

/// The files a dialog offers: name and pattern of each kind by turns, "|" between them, all files first.
inline constexpr const char* fileFilter =
    "All (*.*)|*.*|VXW (*.w)|*.w|VXV (*.v)|*.v|RG (*.rgd)|*.rgd|Text (*.txt)|*.txt|Label (*.lbl)|*.lbl";

/// The same for a save: the kind of the side first.
std::string saveFilter();
