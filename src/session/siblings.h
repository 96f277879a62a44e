#pragma once

#include <span>
#include <string>
#include <string_view>

/// The other programs of the family, found in programPath: VANEXW.EXE the life side, VANEXV.EXE the visual
/// side, VANEXY.EXE simulation, VANEXDICE.EXE a sampling tool, vanexHLP.exe help. Each is started by the
/// native executable that stands for it here.

/// Path of a program by its own name: as named when that is there, else the native executable, the name in
/// small letters without ".exe".
std::string programof(std::string_view name);

/// Starts a program with arguments and does not wait for it; for those of the family tempPath goes with it,
/// so that both look for exchanged files in one place. False when there is no such program.
bool spawn(std::string_view name, std::span<const std::string> arguments);

/// Hands the data to the other side of the program: writes them to a temporary file and starts the side with
/// that file and the commands of the request, which deletes the file when it is done. False, and told, when
/// the file cannot be written or the program is not there.
bool sidestart(char side, std::string_view commands);
