#include "session/opendata.h"

#include <algorithm>
#include <optional>

#include "data/datafileopen.h"
#include "data/datafilesave.h"
#include "data/filelines.h"
#include "data/plaintext.h"
#include "platform/files.h"
#include "platform/paths.h"
#include "platform/platform.h"
#include "session/session.h"
#include "session/sizing.h"
#include "session/snapshots.h"

namespace {

constexpr std::size_t oneSetTooMany = 25; ///< so that what is too much is told

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

/// Reads a text of no form of our own into the grid.
bool takeplain(std::string_view text) {
    CellColumns read = readplaintext(text, oneSetTooMany);
    if (read.empty()) return false;
    session.gridCells = std::move(read);
    session.gridTitles.clear();
    return true;
}

/// Reads whatever stands in a text into the session; the data that were there go.
DataRead take(Source& source) {
    session.dataFileRead = 0;
    switch (datafiletake(std::move(*source.text), source.path, roomfor)) {
    case FileRead::read: session.dataFileRead = 1; return DataRead::read;
    case FileRead::text: {
        const bool taken = takeplain(inputrest());
        inputclose();
        return taken ? DataRead::read : DataRead::empty;
    }
    case FileRead::nodata: return DataRead::empty;
    case FileRead::bad:
    case FileRead::oldForm: return DataRead::unreadable;
    case FileRead::cancelled: break;
    }
    return DataRead::cancelled;
}

/// Reads a text as further sets behind those that are there; the options stay.
DataRead takefurther(Source& source) {
    const auto cells = session.gridCells;
    auto titles = session.gridTitles;
    const std::string present = datafiletext();
    const int16_t optionsCame = session.dataFileRead;
    const DataRead end = take(source);
    const CellColumns added = std::move(session.gridCells);
    std::vector<std::string> addedTitles = std::move(session.gridTitles);
    if (session.dataFileRead != 0) {
        const Keep kept(session.noPrompt);
        session.noPrompt = 1;
        datafiletake(present, "");
    }
    session.dataFileRead = optionsCame;
    session.gridCells = cells;
    session.gridTitles = titles;
    if (end == DataRead::read) appendsets(added, addedTitles);
    return end;
}

} // namespace

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
    undokeep();
    const DataRead end = take(source);
    if (end != DataRead::read) {
        undodrop();
        return end;
    }
    session.fileName = source.path;
    session.gridAccepted = gridhash();
    session.resultsDirty = session.dataFileRead != 0 ? 0 : 1;
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
