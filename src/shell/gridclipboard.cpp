#include <algorithm>
#include <chrono>
#include <thread>

#include "data/cell.h"
#include "data/textimport.h"
#include "data/textpieces.h"
#include "platform/platform.h"
#include "session/opendata.h"
#include "session/session.h"
#include "session/sizing.h"
#include "session/snapshots.h"
#include "session/undo.h"
#include "shell/calcplot.h"
#include "shell/commands.h"
#include "shell/grid.h"
#include "shell/gridedit.h"
#include "shell/prompts.h"
#include "shell/words.h"

namespace {

constexpr int manyRows = 20000; ///< a copy of more is asked about: other programs choke on it
constexpr int yes = 1;

using Columns = std::vector<std::vector<std::string>>;

bool confirmbig(const CellRange& range) {
    if (range.lastRow - range.firstRow < manyRows) return true;
    compose(session.msg, Word::Data, " ", Word::Copy, " ... ", Word::Big, " ", Word::Data, " ", Word::Set,
            " ", Word::With, " ", Word::Additional, " ", Word::Information);
    askokcancel();
    return session.u == yes;
}

/// Results are lost with the last point of their set.
bool losesresults(const CellRange& range) {
    for (int set = range.firstCol; set <= std::min(range.lastCol, setcount()); ++set) {
        int left = 0;
        for (int row = 1; row <= pointcount(set); ++row)
            if ((row < range.firstRow || row > range.lastRow) && !gridcell(set, row).empty()) ++left;
        if (pointcount(set) > 0 && left == 0) return true;
    }
    return false;
}

bool confirmdelete(const CellRange& range) {
    if (!losesresults(range)) return true;
    compose(session.msg, Word::Delete, " ", Word::Data, " + ", Word::Results);
    askyesno();
    return session.u == yes;
}

/// The clipboard may be held by another program for a moment: half a second is waited for it.
bool toclipboard(const std::string& text) {
    using namespace std::chrono_literals;
    if (!platform) return false;
    for (int tries = 0; tries < 5; ++tries) {
        if (platform->clipboard().settext(text)) return true;
        std::this_thread::sleep_for(100ms);
    }
    compose(session.menuTitle, Word::Clipboard);
    compose(session.msg, Word::Clipboard, " ", Word::Not, " ", Word::Ready);
    tellok();
    return false;
}

void clearcells(const CellRange& range) {
    for (int set = range.firstCol; set <= range.lastCol; ++set) {
        const auto column = static_cast<std::size_t>(set - 1);
        if (column >= session.gridCells.size()) break;
        auto& cells = session.gridCells[column];
        const auto last = std::min(static_cast<std::size_t>(range.lastRow), cells.size());
        for (auto row = static_cast<std::size_t>(range.firstRow - 1); row < last; ++row) cells[row].clear();
        while (!cells.empty() && cells.back().empty()) cells.pop_back();
    }
    while (!session.gridCells.empty() && session.gridCells.back().empty()) session.gridCells.pop_back();
}

/// A text that is one column of cells as they are typed: nothing about it is to be asked.
std::optional<Columns> plaincolumn(std::string_view text) {
    std::vector<std::string> cells;
    while (!text.empty()) {
        const std::string_view line = takeline(text);
        const std::string_view numbers = line.substr(0, line.find('_'));
        const bool plain = numbers.find_first_not_of("0123456789.+-eExX*<>") == std::string_view::npos;
        if (!plain || (!line.empty() && !cellsplit(line).hasValue)) return std::nullopt;
        cells.emplace_back(line);
    }
    while (!cells.empty() && cells.back().empty()) cells.pop_back();
    if (cells.empty()) return std::nullopt;
    return Columns{cells};
}

/// Gives the grid back as it was, on every way out.
struct GridKept {
    GridState grid = session;
    GridKept() = default;
    ~GridKept() { static_cast<GridState&>(session) = std::move(grid); }
    GridKept(const GridKept&) = delete;
    GridKept& operator=(const GridKept&) = delete;
};

/// A text of several columns, which the import takes apart. The grid stays as it is.
std::optional<Columns> importedcolumns(const std::string& text) {
    const GridKept kept;
    session.gridCells.clear();
    session.gridTitles.clear();
    session.msg = text;
    const TextRead end = textimport(TextFrom::text, true);
    Columns columns = session.gridCells;
    if (end == TextRead::refused && !session.msg.empty()) tellok();
    if (end != TextRead::read) return std::nullopt;
    return columns;
}

void tellnothing() {
    compose(session.menuTitle, Word::Paste);
    compose(session.msg, Word::Clipboard, ": ", Word::No, " ", Word::Data);
    tellok();
}

bool roomforpaste(const Columns& columns) {
    std::size_t longest = 0;
    for (const auto& column : columns) longest = std::max(longest, column.size());
    return static_cast<float>(session.gridCol - 1) + static_cast<float>(columns.size()) <= session.maxSets
           && static_cast<float>(session.gridRow - 1) + static_cast<float>(longest) <= session.maxPoints;
}

/// A paste into the empty grid: whatever the clipboard holds, a data file included, as an Open of it.
bool pastewhole() {
    const DataRead end = opendata("CLIPBOARD");
    if (end == DataRead::unreadable) tellnothing();
    if (end == DataRead::refused && !session.msg.empty()) tellok();
    if (end != DataRead::read) return false;
    if (static_cast<float>(session.gridCells.size()) > session.maxSets || !roomfor(longestcolumn())) {
        telltoobig();
        if (session.undoSteps.empty())
            gridclear();
        else
            undo(); // with the options that came along
        return false;
    }
    session.fileName.clear();
    session.resultsDirty = 1;
    return true;
}

/// Puts columns into the grid from the cell in hand on.
bool pasteover(const Columns& columns) {
    if (!roomforpaste(columns)) {
        telltoobig();
        return false;
    }
    const History::Snapshot before = undosnapshot();
    if (!undoable(before)) return false;
    undopush(before);
    for (std::size_t c = 0; c < columns.size(); ++c)
        for (std::size_t r = 0; r < columns[c].size(); ++r)
            gridset(session.gridCol + static_cast<int>(c), session.gridRow + static_cast<int>(r),
                    columns[c][r]);
    return true;
}

bool pastetext(const std::string& text) {
    auto columns = gridtextread(text);
    if (!columns) columns = plaincolumn(text);
    if (columns) return pasteover(*columns);
    if (longestcolumn() == 0) return pastewhole();
    columns = importedcolumns(text);
    return columns && pasteover(*columns);
}

} // namespace

void telltoobig() {
    compose(session.menuTitle, Word::Data);
    compose(session.msg, Word::Point, " ", Word::Quantity, " ", Word::Too, " ", Word::Big, " ... ",
            Word::View, " ", Word::Setup);
    tellok();
}

bool gridcopy(int mode) {
    gridsettle();
    const CellRange range = gridselection();
    const bool clears = mode != editCopy;
    if (mode != editDelete && !confirmbig(range)) return false;
    if (clears && !confirmdelete(range)) return false;
    if (mode != editDelete && !toclipboard(gridtext(range))) return false;
    if (clears) {
        const History::Snapshot before = undosnapshot();
        if (!undoable(before)) return false;
        undopush(before);
        clearcells(range);
    }
    calcplot();
    return true;
}

bool gridpaste() {
    gridsettle();
    const auto text = platform ? platform->clipboard().text() : std::nullopt;
    if (!text || text->empty()) {
        tellnothing();
        return false;
    }
    if (!pastetext(*text)) return false;
    calcplot();
    return true;
}
