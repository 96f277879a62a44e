// Taking one set out of the session: what belongs to the sets above it moves down.

#include <algorithm>
#include <iterator>
#include <string>

#include "data/cell.h"
#include "session/members.h"

namespace {

/// The run of indices that moves: from `first` on each element takes the place of the one `step` below it;
/// the places left over at the end, up to `last`, become empty.
struct Move {
    int first, last, step;
    int points; ///< the most points of a row that moves
};

template <class T>
void movedown(List<T>& list, const Move& m, const T& empty = T{}) {
    for (int i = m.first; i <= m.last; ++i)
        list(i) = i + m.step <= m.last ? std::move(list(i + m.step)) : empty;
}

/// Rows of a table: only the points in use are touched, for the memory behind them may never have been.
template <class T>
void moverows(Table<T>& table, const Move& m) {
    for (int i = m.first; i + m.step <= m.last; ++i) {
        const auto from = table.row(i + m.step);
        const auto used = std::min(from.size(), static_cast<std::size_t>(m.points) + 1);
        std::copy_n(from.begin(), used, table.row(i).begin());
    }
}

/// Rows of a table of parameters, whole.
void moveparameters(Table<double>& table, const Move& m, double empty = 0) {
    for (int i = m.first; i <= m.last; ++i)
        for (int j = 0; j <= table.secondbound(); ++j)
            table(i, j) = i + m.step <= m.last ? table(i + m.step, j) : empty;
}

/// A table whose second index is the set or the line.
template <class T>
void movecolumns(Table<T>& table, const Move& m) {
    for (int row = 0; row <= table.firstbound(); ++row)
        for (int i = m.first; i <= m.last; ++i)
            table(row, i) = i + m.step <= m.last ? table(row, i + m.step) : T{};
}

/// A title that is the row's own number stays that: the set has no name yet.
void movetitles(const Move& m) {
    auto& title = session.rowTitle;
    for (int i = m.first; i <= m.last; ++i) {
        const bool named = i + m.step <= m.last && title(i + m.step) != std::to_string(i + m.step);
        title(i) = named ? title(i + m.step) : std::to_string(i);
    }
}

void moverowarrays(const Move& m) {
    Session& s = session;
    for (const auto table : members::rowPoints) moverows(s.*table, m);
    for (auto* table : {&s.etaFit, &s.betaFit}) moveparameters(*table, m);
    movetitles(m);
    movedown(s.n, m);
}

void movepoints(const Move& m) {
    Session& s = session;
    for (const auto table : members::setPoints) moverows(s.*table, m);
    moverows(s.pointPlotX, m);
    moverows(s.pointOrder, m);
    moverows(s.pointTypes, m);
    movedown(s.W2n, m);
    const int labelled = std::min(m.last, Points::labelledSets);
    for (int k = m.first; k <= labelled; ++k) {
        if (k < labelled)
            s.pointLabels[k].swap(s.pointLabels[k + 1]);
        else
            std::fill(s.pointLabels[k].begin(), s.pointLabels[k].end(), std::string());
    }
}

void moveresults(const Move& m) {
    Session& s = session;
    for (const auto list : members::setFloats) movedown(s.*list, m);
    for (const auto list : members::setDoubles) movedown(s.*list, m);
    for (const auto list : members::setFlags) movedown(s.*list, m);
    for (const auto list : members::setTexts) movedown(s.*list, m);
    for (const auto list : members::setLists) movedown(s.*list, m);
    movedown(s.setRange, m);
    for (auto* limits : {&s.paramLow, &s.paramHigh}) moveparameters(*limits, m, noAnswer);
    movecolumns(s.BARRXA, m);
    movecolumns(s.BARRYA, m);
    const auto messages = s.setMessages.begin() + m.first;
    std::rotate(messages, messages + 1, s.setMessages.begin() + m.last + 1);
    s.setMessages[static_cast<std::size_t>(m.last)].clear();
}

/// Line k is that of set k; the extra lines above the sets stay.
void movelines(const Move& m) {
    Session& s = session;
    for (const auto list : members::lineFloats) movedown(s.*list, m);
    movedown(s.lineVisible, m, int16_t{1});
    movedown(s.lineHide, m);
    for (const auto list : members::lineTexts) movedown(s.*list, m);
    for (auto& ends : s.lineEnd) movecolumns(ends, m);
    for (auto* table : {&s.paramA, &s.paramB, &s.paramExtra}) movecolumns(*table, m);
    for (auto& other : s.paramOther) movecolumns(other, m);
    movecolumns(s.paramExtraSingle, m);
}

/// The most points of any row, or of any second point table, up to the last set.
int mostpoints(int sets) {
    float most = 0;
    for (int i = 0; i <= static_cast<int>(session.lastRow); ++i) most = std::max(most, session.n(i));
    for (int k = 1; k <= sets; ++k) most = std::max(most, session.W2n(k));
    return static_cast<int>(most);
}

} // namespace

void setdelete(int k) {
    const int sets = setcount();
    if (k < 1 || k > sets) return;
    const int step = static_cast<int>(session.sg);
    const int points = mostpoints(sets);
    const Move bySet{k, sets, 1, points};
    moverowarrays({(k - 1) * step + 1, sets * step, step, points});
    movepoints(bySet);
    moveresults(bySet);
    movelines(bySet);
    const auto column = static_cast<std::ptrdiff_t>(k - 1);
    if (column < std::ssize(session.gridCells)) session.gridCells.erase(session.gridCells.begin() + column);
    if (column < std::ssize(session.gridTitles))
        session.gridTitles.erase(session.gridTitles.begin() + column);
    session.lastRow -= session.sg;
}
