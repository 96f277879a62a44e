#include "session/undo.h"

#include "session/session.h"
#include "session/snapshots.h"
#include "shell/calcplot.h"
#include "shell/prompts.h"
#include "shell/words.h"

namespace {

using Steps = std::vector<History::Snapshot>;

bool tellnothing() {
    compose(session.msg, Word::Present, " ", Word::At, " ", Word::Undo, " ", Word::No);
    tellok();
    return false;
}

/// Takes the newest step of one list into force, after the session as it is has become the newest step of
/// the other.
bool takestep(Steps& from, Steps& to) {
    calcpending(); // cells typed since the last cycle are a step of their own
    if (from.empty()) return tellnothing();
    const History::Snapshot present = snapshotnew();
    if (present.path.empty() || !snapshotread(from.back())) {
        if (!present.path.empty()) snapshotread(present);
        snapshotremove(present);
        return false;
    }
    snapshotremove(from.back());
    from.pop_back();
    to.push_back(present);
    undostack();
    session.undoKept = 1;
    session.gridEditOpen = 0;
    session.gridEditText.clear();
    calcplot();
    session.resultsDirty = 1;
    return true;
}

} // namespace

bool undoable(const History::Snapshot& before) {
    if (session.undoActive != 1 || !before.path.empty()) return true;
    compose(session.msg, Word::Undo, " ", Word::Not, " ", Word::Possible, " ... ", Word::Continue);
    askyesno();
    return session.u == 1;
}

bool undo() { return takestep(session.undoSteps, session.redoSteps); }
bool redo() { return takestep(session.redoSteps, session.undoSteps); }
