#pragma once

#include <cstdint>

#include "session/history.h"

/// Snapshots of the session before its data change.

/// Digest of the grid's cells and titles: two grids that differ have the same one time in 2^64.
uint64_t gridhash();

/// Keeps the session as it is as the newest undo step, in undoFile; what had been undone is forgotten. Beyond
/// undoMax the oldest step goes. Does nothing where no undo can be asked for.
void undokeep();

/// Forgets the newest step: the change it was kept for did not come about.
void undodrop();

/// Gives the newest undo step the name undoFile, after a change of the list.
void undostack();

/// Called by a cycle before it reads the grid, while the session still holds the data of the last one: where
/// the grid has changed they are kept, and the session has results to save.
void undonotice();

/// Writes the session to a new temporary file; an empty path when that failed.
History::Snapshot snapshotnew();
void snapshotremove(const History::Snapshot& snapshot);
