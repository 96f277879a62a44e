#include "shell/grid.h"

#include <algorithm>

#include "analysis/notices.h"
#include "data/cell.h"
#include "data/gridpoints.h"
#include "session/session.h"

namespace {

constexpr std::size_t shownText = 24; ///< characters of a bad cell that its notice repeats

/// Cells of one set that could not become points.
struct Dropped {
    int unreadable = 0;
    int firstRow = 0;
    std::string_view firstText;
    int beyond = 0;
};

std::string_view trimmed(std::string_view text) {
    const auto start = text.find_first_not_of(" \t\r\n");
    if (start == std::string_view::npos) return {};
    return text.substr(start, text.find_last_not_of(" \t\r\n") - start + 1);
}

/// The start of a cell's text, fit for a message whatever bytes it holds; braces would hide it.
std::string printable(std::string_view text) {
    std::string shown(text.substr(0, shownText));
    for (char& c : shown)
        if (c < ' ' || c > '~' || c == '{' || c == '}') c = '?';
    if (text.size() > shownText) shown += "...";
    return shown;
}

void telldropped(int k, const Dropped& dropped) {
    if (dropped.unreadable > 0)
        tellset(k, Word::Bad, " ", Word::Data, " (", dropped.unreadable, ") ... ", Word::Row, " ",
                dropped.firstRow, " = ", AsTyped{printable(dropped.firstText)});
    if (dropped.beyond > 0)
        tellset(k, Word::Point, " ", Word::Quantity, " ", Word::Too, " ", Word::Big, " (+", dropped.beyond,
                ") ... ", Word::View, " ", Word::Setup);
}

} // namespace

bool readablecell(std::string_view text) { return ispointtext(text, cellsplit(text)); }

void gridclear() {
    session.gridCells.clear();
    session.gridTitles.clear();
}

void gridset(int set, int point, std::string_view text) {
    const auto column = static_cast<std::size_t>(set - 1);
    const auto row = static_cast<std::size_t>(point - 1);
    if (session.gridCells.size() <= column) session.gridCells.resize(column + 1);
    auto& cells = session.gridCells[column];
    if (cells.size() <= row) cells.resize(row + 1);
    cells[row] = text;
}

bool gridget(float row) {
    if (session.maxPoints < 1) return false;
    const int k = static_cast<int>(setofrow(row));
    const auto column = static_cast<std::size_t>(k - 1);
    session.n(static_cast<int>(row)) = 0;
    const bool titled = column < session.gridTitles.size() && !session.gridTitles[column].empty();
    session.rowTitle(static_cast<int>(row)) =
        titled ? session.gridTitles[column] : std::to_string(static_cast<int>(row));
    if (column >= session.gridCells.size()) return true;
    Dropped dropped;
    int points = 0;
    int line = 0;
    for (const std::string& text : session.gridCells[column]) {
        ++line;
        const Cell cell = cellsplit(text);
        if (ispointtext(text, cell)) {
            if (cellstore(cell, k, points + 1))
                ++points;
            else
                ++dropped.beyond;
            continue;
        }
        const std::string_view shown = trimmed(text);
        if (shown.empty() || shown.front() == '_') continue;
        if (dropped.unreadable++ == 0) dropped.firstRow = line, dropped.firstText = shown;
    }
    session.n(static_cast<int>(row)) = static_cast<float>(points);
    telldropped(k, dropped);
    return true;
}
