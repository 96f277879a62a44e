#include "session/opendata.h"

#include <algorithm>
#include <optional>

#include "data/datafileopen.h"
#include "data/datafilesave.h"
#include "data/filelines.h"
#include "data/textimport.h"
#include "platform/files.h"
#include "platform/paths.h"
#include "platform/platform.h"
#include "session/session.h"
#include "session/sizing.h"
#include "session/snapshots.h"

namespace {

/// Where the data come from, and what stands there.
struct Source {
    std::string path; ///< empty: no file
    std::optional<std::string> text;
};

Source sourceof(const std::string& name) {
    if (name == "CLIPBOARD") return {"", platform ? platform->clipboard().text() : std::nullopt};
    if (name == "-") return {"", readfile(name)};
    const std::string here = datafilename(name);
    if (auto text = readfile(here)) return {here, std::move(text)};
    if (!folderof(name).empty()) return {name, std::nullopt};
    const std::string there = datafilename(session.dataPath + name);
    return {there, readfile(there)};
}

/// Hands a text of no form of our own to the import.
DataRead taketext(bool further) {
    session.msg = inputrest();
    inputclose();
    switch (textimport(TextFrom::text, further)) {
    case TextRead::read: return DataRead::read;
    case TextRead::empty: return DataRead::empty;
    case TextRead::refused: break;
    }
    return DataRead::refused;
}

/// What a read of a file of our own comes to for the data.
DataRead outcomeof(FileRead end) {
    session.dataFileRead = end == FileRead::read ? 1 : 0;
    switch (end) {
    case FileRead::read:
    case FileRead::labels: return DataRead::read;
    case FileRead::nodata: return DataRead::empty;
    case FileRead::cancelled: session.msg.clear(); return DataRead::refused;
    case FileRead::bad:
    case FileRead::oldForm:
    case FileRead::text: break;
    }
    return DataRead::unreadable;
}

/// Reads sets to stand behind those that are there; the options stay, and so do the data when it fails.
DataRead takefurther(Source& source) {
    const GridState grid = session;
    const int16_t optionsCame = session.dataFileRead;
    const std::string present = datafiletext();
    const Keep kept(session.quietRead);
    session.quietRead = 1; // points of the other side are taken as they are
    const FileRead read = datafiletake(std::move(*source.text), source.path, roomfor);
    if (read == FileRead::text) return taketext(true);
    const DataRead end = outcomeof(read);
    const GridState added = session;
    if (read != FileRead::labels) datafiletake(present, "");
    static_cast<GridState&>(session) = grid;
    session.dataFileRead = optionsCame;
    if (read == FileRead::read) appendsets(added.gridCells, added.gridTitles);
    return end;
}

/// The session has taken what stood in the source; a label file leaves data and file as they were.
void taken(const Source& source, FileRead read) {
    if (read == FileRead::labels) {
        session.resultsDirty = 1;
        return;
    }
    session.fileName = source.path;
    if (session.dataFileRead == 0) {
        session.mixFlag = 0;
        forgetchoices();
    }
    session.resultsDirty = session.dataFileRead != 0 ? 0 : 1;
    gridaccept();
}

} // namespace

void forgetchoices() {
    session.FITKIND.fill(0);
    session.lineHide.fill(0);
    session.curveType.fill({});
}

void appendsets(const std::vector<std::vector<std::string>>& cells, std::vector<std::string> titles) {
    session.gridTitles.resize(session.gridCells.size());
    session.gridCells.insert(session.gridCells.end(), cells.begin(), cells.end());
    titles.resize(cells.size());
    session.gridTitles.insert(session.gridTitles.end(), titles.begin(), titles.end());
}

std::size_t longestcolumn() {
    std::size_t longest = 0;
    for (const auto& column : session.gridCells) longest = std::max(longest, column.size());
    return longest;
}

DataRead opendata(const std::string& name, bool further) {
    Source source = sourceof(name);
    if (!source.text) return DataRead::unreadable;
    if (further) return takefurther(source);
    const History::Snapshot before = undosnapshot();
    session.dataFileRead = 0;
    const FileRead read = datafiletake(std::move(*source.text), source.path, roomfor);
    const DataRead end = read == FileRead::text ? taketext(false) : outcomeof(read);
    // A file that turned out bad may have left options behind: they can be undone.
    if (end == DataRead::read || read == FileRead::bad)
        undopush(before);
    else
        snapshotremove(before);
    if (end == DataRead::read) taken(source, read);
    return end;
}

std::string dataastext() {
    std::string text;
    const auto& columns = session.gridCells;
    // A single column of plain cells needs no tab; a label with blanks in it does.
    bool tabbed = columns.size() > 1;
    for (const auto& column : columns)
        for (const std::string& cell : column)
            tabbed = tabbed || cell.find_first_of(" ;,") != std::string::npos;
    for (std::size_t row = 0; row < longestcolumn(); ++row) {
        for (std::size_t set = 0; set < columns.size(); ++set) {
            if (set > 0) text += '\t';
            if (row < columns[set].size()) text += columns[set][row];
        }
        if (tabbed && columns.size() == 1) text += '\t';
        text += '\n';
    }
    return text;
}
