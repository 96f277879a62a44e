#pragma once

#include "session/history.h"

/// Undo and redo of changes of the data: data and options come back together.

/// Gives the session back as it was before the last change of the data, and runs the cycle. False, and told,
/// when nothing can be undone or the snapshot cannot be read; the session then is as it was.
bool undo();

/// Takes the last undo back. False, and told, when there was none.
bool redo();

/// True where a step can be taken back by the snapshot made for it, or the user goes on without.
bool undoable(const History::Snapshot& before);
