#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

/// What the session was before: snapshots for undo and redo, and the former results.
struct History {
    /// A whole data file in the folder of temporary files, and what such a file does not say.
    struct Snapshot {
        std::string path;
        std::string fileName; ///< data file of the session at that time
        /// The grid as it was typed, unless it is very large: a data file holds points, and a cell that is
        /// none would be gone.
        std::vector<std::vector<std::string>> cells;
        std::vector<std::string> titles;
    };
    static constexpr std::size_t undoMax = 20;                   ///< steps that can be undone
    static constexpr uint64_t emptyGrid = 14695981039346656037u; ///< digest of a grid without cells

    int16_t resultsDirty = 0;          ///< 1: data or results that were not saved
    int16_t undoActive = 0;            ///< 1: snapshots are kept; a run without a window needs none
    int16_t undoKept = 0;              ///< 1: the change in hand has its snapshot already
    uint64_t gridAccepted = emptyGrid; ///< digest of the grid that the last cycle took
    uint64_t gridSaved = emptyGrid;    ///< digest of the grid that its file holds
    int snapshotSerial = 0;            ///< makes the names of snapshots differ
    std::vector<Snapshot> undoSteps;   ///< the newest last; its path is undoFile
    std::vector<Snapshot> redoSteps;   ///< what was undone, the latest last
    std::string formerSelected;        ///< former result chosen last; empty when it is not on the list
    std::string formerActive;          ///< former result that was activated last
    /// The grid that the last cycle took; its cells unless it is very large.
    std::vector<std::vector<std::string>> acceptedCells;
    std::vector<std::string> acceptedTitles;
    /// Of each former result that is a temporary file: its name on the list, and the file.
    struct Former {
        std::string title;
        Snapshot snapshot;
    };
    std::map<std::string, Former, std::less<>> formerNotes;
};
