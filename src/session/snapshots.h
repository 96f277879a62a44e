#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "session/history.h"

/// Snapshots of the session before its data change.

/// Digest of the grid's cells and titles: two grids that differ have the same one time in 2^64.
uint64_t gridhash();

/// Takes the grid as the one that the session's results belong to.
void gridaccept();

/// The grid holds other data: the cell in hand, the selection and an open entry were those of the former
/// ones.
void gridreplaced();

/// Writes the session to a new temporary file; an empty path when that failed.
History::Snapshot snapshotnew();
/// The same where steps are kept to be undone; elsewhere, an empty path.
History::Snapshot undosnapshot();
void snapshotremove(const History::Snapshot& snapshot);

/// Reads a snapshot back, the grid as it was typed, without a question or a note. False when its file cannot
/// be read.
bool snapshotread(const History::Snapshot& snapshot);

/// Data files of other runs in the folder of temporary files: of one that ended by itself, which had no time
/// to take them away, or one that is still on. Names without the folder.
std::vector<std::string> lefttemporaries();

/// Makes a snapshot the newest undo step, with the name undoFile; what had been undone is forgotten. Beyond
/// undoMax the oldest step goes. An empty one makes no step.
void undopush(const History::Snapshot& snapshot);

/// Gives the newest undo step the name undoFile, after a change of the list.
void undostack();

/// Called by a cycle before it reads the grid, while the session still holds the data of the last one: where
/// the grid has changed they are kept, and the session has results to save.
void undonotice();
