#include "session/former.h"

#include <algorithm>

#include "data/datafilesave.h"
#include "platform/paths.h"
#include "platform/platform.h"
#include "session/opendata.h"
#include "session/session.h"
#include "session/snapshots.h"
#include "shell/calcplot.h"
#include "shell/prompts.h"
#include "shell/words.h"

namespace {

std::vector<std::string>& list() { return session.XFILEFORMER; }

bool oursalone(const std::string& path) { return session.formerNotes.contains(path); }

std::string titleof(const std::string& path) {
    const auto note = session.formerNotes.find(path);
    return note == session.formerNotes.end() ? std::string(nameof(path)) : note->second.title;
}

/// What stands on the list for the active results: title, sets and points.
std::string activetitle() {
    int points = 0;
    for (int k = 1; k <= setcount(); ++k) points += pointcount(k);
    std::string title = session.plotTitle;
    if (!session.gridTitles.empty() && !session.gridTitles.front().empty())
        title = session.gridTitles.front();
    std::string text;
    wordclean(
        compose(text, AsTyped{title}, " (", Word::Set, " ", setcount(), ", ", Word::Point, " ", points, ")"));
    return text;
}

/// Fills the prompt with the list, a letter each: A to S.
void listmenu() {
    menuclear();
    for (const std::string& path : list()) {
        const auto item = static_cast<std::size_t>(++session.menuCount);
        compose(session.menuItem[item], std::string(1, static_cast<char>('A' + item - 1)), "...",
                AsTyped{titleof(path)});
    }
    compose(session.menuItem[static_cast<std::size_t>(++session.menuCount)], "X...", Word::Exit);
}

/// The result that the user chooses; 0 on a cancel.
std::size_t choose() {
    listmenu();
    session.menuTitle = formercaption();
    session.menuChoice = 1;
    menushow();
    const auto chosen = static_cast<std::size_t>(std::max(session.menuChoice, 0.0f));
    return chosen <= formercount() ? chosen : 0;
}

/// Makes room for one more. False when the user would rather keep all.
bool makeplace() {
    if (formercount() < Session::formerMax) return true;
    compose(session.msg, Word::Delete, " ", Word::Former, " ", Word::Results);
    const std::size_t k = choose();
    if (k > 0) formerdelete(k);
    return k > 0;
}

void put(const std::string& path) {
    std::erase(list(), path);
    list().push_back(path);
    session.formerSelected = path;
}

/// The session after a former result has come into force.
void recalculate(bool dirty) {
    gridreplaced();
    session.undoKept = 1;
    calcplot();
    session.resultsDirty = dirty ? 1 : 0;
}

/// The session read back as it was before something that failed.
void restore(const History::Snapshot& present) {
    if (!present.path.empty()) snapshotread(present);
    session.fileName = present.fileName;
}

/// The snapshot of a result on the list: a file of the user holds no more than itself.
History::Snapshot snapshotof(const std::string& path) {
    const auto note = session.formerNotes.find(path);
    if (note != session.formerNotes.end()) return note->second.snapshot;
    return {path, path, {}, {}};
}

/// The active results stand on the list, or in a file of the user, as they are.
bool listed() {
    const bool active = std::find(list().begin(), list().end(), session.formerActive) != list().end();
    return active && savedas(session.formerActive);
}

void deleteall() {
    while (formercount() > 0) formerdelete(formercount());
}

/// A thing to do with the result that was chosen.
struct FormerAction {
    char letter;
    Word first, second;
    void (*act)(std::size_t k);
};
constexpr FormerAction actions[] = {
    {'A', Word::Activate, Word::Results, [](std::size_t k) { formeractivate(k); }},
    {'B', Word::Merge, Word::Results, [](std::size_t k) { formermerge(k); }},
    {'C', Word::Delete, Word::Results, [](std::size_t k) { formerdelete(k); }},
    {'X', Word::Delete, Word::All, [](std::size_t) { deleteall(); }},
};

} // namespace

std::size_t formercount() { return list().size(); }

std::size_t formerunsaved() {
    return static_cast<std::size_t>(std::count_if(list().begin(), list().end(), oursalone));
}

std::string formercaption() {
    if (formercount() == 0) return {};
    std::string text;
    const std::string last = formercount() > 1 ? " ... -" + std::to_string(formercount()) : "";
    wordclean(compose(text, Word::Former, " ", Word::Results, " (-1", last, ")"));
    return text;
}

std::string formerhint() {
    const bool chosen = !session.formerSelected.empty()
                        && std::find(list().begin(), list().end(), session.formerSelected) != list().end();
    std::string text;
    compose(text, Word::Select, " = ", Word::Activate);
    if (chosen)
        extend(text, " ", Word::Or, " ", Word::Merge, " ", Word::Or, " ", Word::Delete);
    else
        extend(text, " ... ", Word::Right, " ", Word::Select, " = ", Word::Delete);
    wordclean(text);
    return text;
}

bool formerkeep() {
    calcpending();
    if (longestcolumn() == 0 || listed()) return true;
    if (!makeplace()) return false;
    if (savedas(session.fileName)) {
        put(session.fileName);
        return true;
    }
    History::Snapshot snapshot = snapshotnew();
    if (snapshot.path.empty()) {
        compose(session.msg, Word::Cannot, " ", Word::Save, " ", Word::Former, " ", Word::Results);
        tellok();
        return false;
    }
    session.formerNotes[snapshot.path] = {activetitle(), snapshot};
    put(snapshot.path);
    return true;
}

bool formerfor(const std::function<bool()>& replace) {
    const std::size_t held = formercount();
    if (!formerkeep()) return false;
    if (replace()) return true;
    if (formercount() > held) formerdelete(formercount());
    return false;
}

void formerdelete(std::size_t k) {
    if (k < 1 || k > formercount()) return;
    const std::string path = list()[k - 1];
    list().erase(list().begin() + static_cast<std::ptrdiff_t>(k - 1));
    if (oursalone(path) && platform) platform->system().removefile(path);
    session.formerNotes.erase(path);
    if (session.formerSelected == path) session.formerSelected.clear();
}

bool formeractivate(std::size_t k) {
    if (k < 1 || k > formercount()) return false;
    const std::string path = list()[k - 1];
    if (!formerkeep() || std::find(list().begin(), list().end(), path) == list().end()) return false;
    const History::Snapshot present = snapshotnew();
    if (present.path.empty()) return false;
    if (!snapshotread(snapshotof(path))) {
        restore(present);
        snapshotremove(present);
        return false;
    }
    if (session.undoActive == 1)
        undopush(present);
    else
        snapshotremove(present);
    session.formerActive = session.formerSelected = path;
    recalculate(oursalone(path));
    return true;
}

bool formermerge(std::size_t k) {
    if (k < 1 || k > formercount()) return false;
    calcpending();
    const History::Snapshot present = snapshotnew();
    if (present.path.empty()) return false;
    const bool readable = snapshotread(snapshotof(list()[k - 1]));
    const GridState added = session;
    restore(present);
    if (!readable || session.undoActive == 0)
        snapshotremove(present);
    else
        undopush(present);
    if (!readable) return false;
    appendsets(added.gridCells, added.gridTitles);
    recalculate(true);
    return true;
}

void formerpress() {
    if (formercount() == 0) return;
    const std::size_t k = choose();
    if (k == 0) return;
    session.formerSelected = list()[k - 1];
    menuclear();
    for (const FormerAction& action : actions)
        compose(session.menuItem[static_cast<std::size_t>(++session.menuCount)],
                std::string(1, action.letter), "...", action.first, " ", action.second);
    session.msg = titleof(session.formerSelected);
    session.menuTitle = formercaption();
    session.menuChoice = 1;
    menushow();
    const auto chosen = static_cast<std::size_t>(std::max(session.menuChoice, 0.0f));
    if (chosen >= 1 && chosen <= std::size(actions)) actions[chosen - 1].act(k);
}

void formerother() {
    const auto at = std::find(list().begin(), list().end(), session.formerSelected);
    if (at == list().end()) return;
    compose(session.menuTitle, Word::Results, " ", Word::Not, " ", Word::Active);
    compose(session.msg, Word::Delete, " ", AsTyped{titleof(*at)});
    askyesno();
    if (session.u != 1) return;
    formerdelete(static_cast<std::size_t>(at - list().begin()) + 1);
    if (platform) platform->window().repaintgrid();
    calcplot();
}

bool formerexit() {
    if (formerunsaved() == 0) return true;
    compose(session.msg, Word::Save, " ", Word::Former, " ", Word::Results, " (",
            static_cast<int>(formerunsaved()), ")");
    askyesnocancel();
    constexpr int yes = 1, no = 2;
    const int answer = static_cast<int>(session.u);
    if (answer == no) return true;
    if (answer != yes) return false;
    compose(session.msg, Word::Select, " + ", Word::Activate, " + ", Word::Save, " + ", Word::Delete, "\n",
            Word::Each, " ", Word::Before, " ", Word::Exit);
    tellok();
    return false;
}
