#include "session/snapshots.h"

#include <filesystem>
#include <utility>

#include "data/datafileopen.h"
#include "data/datafilesave.h"
#include "platform/paths.h"
#include "platform/platform.h"
#include "session/findfile.h"
#include "session/session.h"
#include "session/sizing.h"

namespace {

constexpr std::size_t mostTypedCells = 50000; ///< of a grid that is kept as it was typed

/// FNV-1a over 64 bits, a word of length before each text so that cells cannot run together (Fowler, Noll,
/// Vo; RFC 9923).
class Digest {
public:
    void add(std::string_view text) {
        add(text.size());
        for (const char c : text) step(static_cast<unsigned char>(c));
    }
    void add(uint64_t number) {
        for (int shift = 0; shift < 64; shift += 8) step((number >> shift) & 0xFF);
    }
    uint64_t value = History::emptyGrid;

private:
    void step(uint64_t byte) { value = (value ^ byte) * 1099511628211u; }
};

void moveto(History::Snapshot& snapshot, const std::string& path) {
    std::error_code error;
    std::filesystem::rename(nativepath(snapshot.path), nativepath(path), error);
    if (!error) snapshot.path = path;
}

std::size_t typedcells() {
    std::size_t cells = 0;
    for (const auto& column : session.gridCells) cells += column.size();
    return cells;
}

std::string newname() { return temppath("-s" + std::to_string(++session.snapshotSerial) + ".tmp"); }

/// Puts the grid of the last cycle in the place of the present one while it lives.
class AcceptedGrid {
public:
    AcceptedGrid() { exchange(); }
    ~AcceptedGrid() { exchange(); }
    AcceptedGrid(const AcceptedGrid&) = delete;
    AcceptedGrid& operator=(const AcceptedGrid&) = delete;

private:
    static void exchange() {
        std::swap(session.gridCells, session.acceptedCells);
        std::swap(session.gridTitles, session.acceptedTitles);
    }
};

void forgetredo() {
    for (const auto& step : session.redoSteps) snapshotremove(step);
    session.redoSteps.clear();
}

} // namespace

uint64_t gridhash() {
    Digest digest;
    for (const auto& column : session.gridCells) {
        digest.add(column.size());
        for (const std::string& cell : column) digest.add(cell);
    }
    for (const std::string& title : session.gridTitles) digest.add(title);
    return digest.value;
}

void undostack() {
    auto& steps = session.undoSteps;
    for (std::size_t i = 0; i + 1 < steps.size(); ++i)
        if (steps[i].path == session.undoFile) moveto(steps[i], newname());
    if (!steps.empty() && steps.back().path != session.undoFile) moveto(steps.back(), session.undoFile);
}

void gridaccept() {
    session.gridAccepted = gridhash();
    session.acceptedTitles = session.gridTitles;
    if (typedcells() > mostTypedCells)
        session.acceptedCells.clear();
    else
        session.acceptedCells = session.gridCells;
}

void gridreplaced() {
    const Keep keep{session.gridVisibleRows, session.gridVisibleCols};
    static_cast<GridView&>(session) = GridView();
}

History::Snapshot snapshotnew() {
    const std::string path = newname();
    History::Snapshot snapshot{snapshotwrite(path) ? path : std::string(), session.fileName, {}, {}};
    if (typedcells() > mostTypedCells) return snapshot;
    snapshot.cells = session.gridCells;
    snapshot.titles = session.gridTitles;
    return snapshot;
}

History::Snapshot undosnapshot() { return session.undoActive == 1 ? snapshotnew() : History::Snapshot(); }

void snapshotremove(const History::Snapshot& snapshot) {
    if (platform && !snapshot.path.empty()) platform->system().removefile(snapshot.path);
}

bool snapshotread(const History::Snapshot& snapshot) {
    const Keep kept(session.quietRead);
    session.quietRead = 1;
    if (datafileopen(snapshot.path, roomfor) != FileRead::read) return false;
    session.fileName = snapshot.fileName;
    if (snapshot.cells.empty()) return true;
    session.gridCells = snapshot.cells;
    session.gridTitles = snapshot.titles;
    return true;
}

std::vector<std::string> lefttemporaries() {
    if (!platform) return {};
    std::vector<std::string> left = platform->system().files(session.tempPath, "VX*-*.tmp");
    std::erase_if(left, [](const std::string& name) { return name.starts_with(session.tempBase + "-"); });
    return left;
}

void undopush(const History::Snapshot& snapshot) {
    session.undoKept = 1;
    if (snapshot.path.empty()) return;
    forgetredo();
    session.undoSteps.push_back(snapshot);
    if (session.undoSteps.size() > History::undoMax) {
        snapshotremove(session.undoSteps.front());
        session.undoSteps.erase(session.undoSteps.begin());
    }
    undostack();
}

void undonotice() {
    if (gridhash() != session.gridAccepted) {
        session.resultsDirty = 1;
        session.mixFlag = 0; // a mixture is that of the data it was fitted to
        if (session.undoKept == 0 && session.undoActive == 1) {
            // The points are still those of the last cycle; so must be the grid that goes with them.
            const AcceptedGrid accepted;
            undopush(snapshotnew());
        }
        gridaccept();
    }
    session.undoKept = 0;
}
