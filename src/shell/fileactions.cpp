#include <algorithm>
#include <string>

#include "data/datafileopen.h"
#include "data/datafilesave.h"
#include "data/textpieces.h"
#include "platform/paths.h"
#include "platform/platform.h"
#include "session/former.h"
#include "session/opendata.h"
#include "session/recent.h"
#include "session/session.h"
#include "session/settings.h"
#include "session/sizing.h"
#include "session/snapshots.h"
#include "session/undo.h"
#include "shell/calcplot.h"
#include "shell/commandactions.h"
#include "shell/commands.h"
#include "shell/grid.h"
#include "shell/gridedit.h"
#include "shell/prompts.h"
#include "shell/savename.h"
#include "shell/shellbusy.h"
#include "shell/words.h"

namespace {

constexpr int yes = 1, no = 2; // numbers of the answers

std::string cleaned(std::string text) {
    wordclean(text);
    return text;
}

template <class... Parts>
std::string phrase(const Parts&... parts) {
    std::string text;
    return cleaned(compose(text, parts...));
}

/// Asks whether unsaved results are to be saved, and saves them. False when the user would rather go on with
/// them, or they could not be saved.
bool savedirty() {
    calcpending();
    if (session.resultsDirty == 0 || longestcolumn() == 0) return true;
    if (session.saveCaution == 0 && gridhash() == session.gridSaved) return true;
    compose(session.msg, Word::Save, " ", Word::Active, " ", Word::Data, " / ", Word::Results);
    askyesnocancel();
    const int answer = static_cast<int>(session.u);
    if (answer == no) return true;
    return answer == yes && savefile();
}

/// The data file of the session: its own, when it was read from or saved to one of this side.
bool hasownfile() {
    const std::string name = lowercase(session.fileName);
    return name.ends_with(session.progSide == lifeSide ? ".w" : ".v");
}

/// What a save proposes: the file of the session with the extension of the side.
std::string proposedname() {
    std::string name(nameof(session.fileName));
    const auto dot = name.find_last_of('.');
    if (dot != std::string::npos && dot > 0 && name.size() - dot <= 5) name.resize(dot);
    for (char& c : name)
        if (std::string_view("/\\:*?\"<>|").find(c) != std::string_view::npos
            || static_cast<unsigned char>(c) < ' ')
            c = '_';
    if (name.empty()) name = "data";
    return name + (session.progSide == lifeSide ? ".w" : ".v");
}

std::string dialogfolder() {
    const std::string own = hasownfile() ? std::string(folderof(session.fileName)) : std::string();
    return nativepath(own.empty() ? session.dataPath : own);
}

bool saveto(const std::string& name) {
    calcpending();
    session.u = 0;
    if (!datafilesave(name)) return false;
    session.gridSaved = session.resultsDirty == 0 ? gridhash() : History::emptyGrid; // all of it was saved
    recentpush(session.fileName);
    if (platform) platform->window().repainticons();
    return true;
}

/// Tells why nothing was read. An input without data has been told by its reader.
void tellunread(DataRead end, const char* name) {
    if (end == DataRead::empty || (end == DataRead::refused && session.msg.empty())) return;
    if (end == DataRead::unreadable)
        compose(session.msg, Word::Cannot, " ", Word::Open, " ", Word::File, ": ", AsTyped{name});
    tellok();
}

/// Labels, titles and options of the template; its points are another's.
void taketemplate() {
    if (session.templateFile.empty()) return;
    // A file of the other side would bring standard options in place of the user's; a text has none to bring.
    const bool life = session.progSide == lifeSide;
    if (sideoffile(session.templateFile) != (life ? 'W' : 'V')) {
        compose(session.msg, Word::Cannot, " ", Word::Open, " ", Word::File, ": ",
                AsTyped{session.templateFile}, " ... ", Word::Template, " = ", life ? "VXW" : "VXV");
        tellok();
        return;
    }
    const Keep keep{session.quietRead, session.fileName, session.undoActive};
    session.quietRead = 1;
    session.undoActive = 0; // the step is that of the new data
    if (opendata(session.templateFile) != DataRead::read) {
        tellunread(DataRead::unreadable, session.templateFile.c_str());
        return;
    }
    std::vector<std::string> titles = session.gridTitles;
    sessionclear();
    gridclear();
    session.gridTitles = std::move(titles);
    session.gridCells.resize(session.gridTitles.size());
}

/// The sets of a file join those that are there.
bool mergefile(const char* name) {
    calcpending();
    const DataRead end = opendata(name, true);
    if (end != DataRead::read) {
        tellunread(end, name);
        return false;
    }
    roomfor(longestcolumn());
    calcplot();
    return true;
}

/// Puts what stands in a file in the place of the data, which join the former results.
bool takefile(const char* name) {
    DataRead end = DataRead::refused;
    const bool read = formerfor([&] {
        end = opendata(name);
        return end == DataRead::read;
    });
    if (!read) {
        tellunread(end, name);
        return false;
    }
    gridreplaced();
    roomfor(longestcolumn());
    const int16_t dirty = session.resultsDirty;
    calcplot();
    if (session.dataFileRead != 0) {
        gridputall(); // a file's four fields, in the short form that is typed
        gridaccept();
        if (platform) platform->window().repaintgrid();
    }
    session.resultsDirty = dirty;
    session.gridSaved = dirty == 0 ? gridhash() : History::emptyGrid;
    return true;
}

} // namespace

void newdata() {
    if (!savedirty()) return;
    const History::Snapshot before = undosnapshot();
    if (!undoable(before)) return;
    gridclear();
    sessionclear();
    session.fileName.clear();
    session.titleWanted.clear();
    session.titleSecond.clear();
    session.axisTitleX.clear();
    session.axisTitleY.clear();
    taketemplate();
    gridreplaced();
    undopush(before);
    calcplot();
    session.resultsDirty = 0;
    session.gridSaved = gridhash();
}

bool openfile(const char* name) {
    const ShellBusy busy; // the questions of a reader stand over data that are half read
    gridsettle();
    session.msg.clear();
    if (session.openMerges == 1 && longestcolumn() > 0) return mergefile(name);
    if (!takefile(name)) return false;
    if (!session.fileName.empty()) recentpush(session.fileName);
    return true;
}

bool openrecovered(const std::string& name) {
    const ShellBusy busy;
    gridsettle();
    session.msg.clear();
    if (!takefile((session.tempPath + name).c_str())) return false;
    session.fileName.clear();
    calcplot(); // without the name in title and report
    session.resultsDirty = 1;
    session.gridSaved = History::emptyGrid;
    return true;
}

void opendialog() {
    const std::string header = phrase(Word::Open, " / ", Word::Get, " / ", Word::Import);
    if (!platform) return;
    const auto chosen = platform->prompts().openfile({header, fileFilter, dialogfolder()});
    if (chosen) openfile(chosen->c_str());
}

bool savefileas() {
    if (session.lastRow <= 0 && session.gridCells.empty()) {
        compose(session.menuTitle, Word::Data);
        compose(session.msg, Word::No, " ", Word::Data);
        tellok();
        return false;
    }
    if (!platform) return false;
    const std::string header = phrase(Word::Save, " ", Word::Active, " ", Word::Data, " + ", Word::Results);
    const auto chosen = platform->prompts().savefile({header, saveFilter(), dialogfolder(), proposedname()});
    if (!chosen) return false;
    const auto name = extendedname(*chosen, session.progSide == lifeSide ? ".w" : ".v");
    return name && saveto(*name);
}

bool savefile() { return hasownfile() ? saveto(session.fileName) : savefileas(); }

bool exitsequence(bool ask) {
    gridsettle();
    if (ask) {
        compose(session.msg, Word::Exit);
        askyesno();
        if (session.u != yes) return false;
    }
    if (!formerexit() || !savedirty()) return false;
    session.leaving = 1;
    if (platform) platform->window().leave();
    return true;
}

void formerlist() {
    menuclear();
    const auto item = [](char letter, const std::string& text) {
        const auto place = static_cast<std::size_t>(++session.menuCount);
        session.menuItem[place] = std::string(1, letter) + "..." + text;
    };
    std::string text;
    char letter = 'A';
    for (const std::string& path : session.recentFiles)
        item(letter++, compose(text, AsTyped{nativepath(path)}));
    if (formercount() > 0) item('V', compose(text, Word::Former, " ", Word::Results, " ..."));
    item('W', compose(text, "Weibull ", Word::Library));
    item('X', compose(text, Word::Exit));
    compose(session.menuTitle, "* ", Word::Former, " ", Word::File, " ", Word::List, " *");
    compose(session.msg, Word::Former, " ", Word::File, " ", Word::List, " / Weibull ", Word::Library);
    session.menuChoice = 1;
    const std::vector<std::string> files = session.recentFiles;
    menushow();
    const auto chosen = static_cast<std::size_t>(std::max(session.menuChoice, 0.0f));
    if (chosen == 0) return;
    if (chosen <= files.size()) {
        openfile(files[chosen - 1].c_str());
        return;
    }
    const char picked = session.menuItem[chosen].empty() ? 'X' : session.menuItem[chosen].front();
    if (picked == 'V') formerpress();
    if (picked == 'W') librarycommand();
}
