#include "transform/sets.h"

#include <algorithm>
#include <utility>

#include "data/gridpoints.h"
#include "expression/functionnotices.h"
#include "session/session.h"
#include "session/snapshots.h"
#include "session/undo.h"
#include "shell/calcplot.h"
#include "shell/gridedit.h"
#include "shell/prompts.h"
#include "transform/kernels.h"

namespace {

bool haspoint(int set) {
    const auto& cells = gridcellsof(set);
    return std::any_of(cells.begin(), cells.end(),
                       [](const std::string& text) { return ispointtext(text, cellsplit(text)); });
}

std::string nameof(int set) {
    std::string name;
    const auto column = static_cast<std::size_t>(set - 1);
    compose(name, Word::Set, " ", set);
    if (column < session.gridTitles.size() && !session.gridTitles[column].empty())
        extend(name, " ", AsTyped{session.gridTitles[column]});
    wordclean(name);
    return name;
}

/// Shows the sets as a list behind the entries that come before them; the place chosen from 0, or -1.
int choose(const Label& title, const std::vector<int>& sets, std::vector<std::string> entries, int present) {
    for (const int set : sets) entries.push_back(nameof(set));
    return choosefrom(title, entries, present);
}

bool tellnodata() {
    tell(Word::No, " ", Word::Data);
    return false;
}

/// The last column with a cell or a heading.
std::size_t usedcolumns() {
    std::size_t used = session.gridCells.size();
    const auto blank = [](const std::string& text) { return text.empty(); };
    while (used > 0
           && std::all_of(session.gridCells[used - 1].begin(), session.gridCells[used - 1].end(), blank))
        --used;
    std::size_t titled = session.gridTitles.size();
    while (titled > used && session.gridTitles[titled - 1].empty()) --titled;
    return std::max(used, titled);
}

} // namespace

std::vector<int> setswithpoints() {
    std::vector<int> sets;
    const int last = std::min(static_cast<int>(session.gridCells.size()), static_cast<int>(session.maxSets));
    for (int set = 1; set <= last; ++set)
        if (haspoint(set)) sets.push_back(set);
    return sets;
}

int askset(const Label& title, int wanted) {
    const std::vector<int> sets = setswithpoints();
    if (sets.empty()) return tellnodata();
    if (sets.size() == 1) return sets.front();
    const auto at = std::find(sets.begin(), sets.end(), wanted);
    const int chosen = choose(title, sets, {}, at == sets.end() ? 0 : static_cast<int>(at - sets.begin()));
    return chosen < 0 ? 0 : sets[static_cast<std::size_t>(chosen)];
}

int asksets(const Label& title) {
    const std::vector<int> sets = setswithpoints();
    if (sets.empty()) return tellnodata();
    if (sets.size() == 1) return sets.front();
    std::vector<std::string> all(1);
    wordclean(compose(all.front(), Word::All));
    const int chosen = choose(title, sets, all, 0);
    if (chosen < 1) return chosen < 0 ? 0 : allsets;
    return sets[static_cast<std::size_t>(chosen - 1)];
}

bool changegrid(const std::function<bool()>& change) {
    calcpending(); // cells typed since the last cycle are a step of their own
    const History::Snapshot before = undosnapshot();
    if (!undoable(before)) return false;
    const uint64_t grid = gridhash();
    if (!change() || gridhash() == grid) {
        snapshotremove(before);
        return false;
    }
    undopush(before);
    session.resultsDirty = 1;
    return true;
}

bool rewriteset(int set, const PointRule& rule) {
    auto points = gridpoints(set);
    std::vector<std::pair<std::size_t, std::string>> results;
    RowsWithout without;
    for (std::size_t row = 0; row < points.size(); ++row) {
        if (!points[row]) continue;
        std::optional<std::string> text;
        if (rule(row, *points[row])) text = pointtext(*points[row]);
        if (text)
            results.emplace_back(row, std::move(*text));
        else
            without.add(row);
    }
    for (auto& [row, text] : results)
        session.gridCells[static_cast<std::size_t>(set - 1)][row] = std::move(text);
    without.tell(set);
    return !results.empty();
}

bool appendset(const std::vector<Cell>& points, std::string_view title) {
    if (points.empty()) return false;
    const std::size_t column = usedcolumns();
    if (static_cast<float>(column) >= session.maxSets) {
        tell(Word::Set, " ", Word::Quantity, " ", Word::Too, " ", Word::Big, " (> ",
             static_cast<int>(session.maxSets), ") ... ", Word::View, " ", Word::Setup);
        return false;
    }
    if (static_cast<float>(points.size()) > session.maxPoints) {
        telltoobig();
        return false;
    }
    std::vector<std::string> cells;
    for (const Cell& point : points) cells.push_back(pointtext({point, true}).value_or(std::string()));
    if (session.gridCells.size() <= column) session.gridCells.resize(column + 1);
    if (session.gridTitles.size() <= column) session.gridTitles.resize(column + 1);
    session.gridCells[column] = std::move(cells);
    session.gridTitles[column] = title;
    return true;
}

std::vector<Cell> pointsmadeof(int set, const PointRule& rule) {
    std::vector<Cell> made;
    RowsWithout without;
    auto points = gridpoints(set);
    for (std::size_t row = 0; row < points.size(); ++row) {
        if (!points[row]) continue;
        if (rule(row, *points[row]) && pointtext({points[row]->cell, true}))
            made.push_back(points[row]->cell);
        else
            without.add(row);
    }
    without.tell(set);
    return made;
}

bool putresult(float& field, double value) {
    const auto number = cellnumber(value);
    if (number) field = *number;
    return number.has_value();
}
