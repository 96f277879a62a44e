#pragma once

#include <string>

/// The script channel: runs without a user.

/// Runs the request in scriptRequest: settings, input, calculation, outputs. False when something failed; the
/// fault has been told by scripterror. Prompts answer themselves and the settings file stays as it is.
bool scriptrun();

/// Tells a fault of a script run: "KXQM err:", the text and where to look; also puts it on the clipboard,
/// from where the caller reads it when nobody sees a window. Always false.
enum class ScriptHint { filename, commandline };
bool scripterror(const std::string& text, ScriptHint hint);
