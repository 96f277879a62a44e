#include <algorithm>
#include <cmath>

#include "data/cell.h"
#include "data/numbertext.h"
#include "session/session.h"
#include "session/snapshots.h"
#include "shell/calcplot.h"
#include "shell/grid.h"
#include "shell/gridedit.h"
#include "shell/prompts.h"
#include "shell/words.h"

namespace {

/// What the page tells of a set.
struct Statistics {
    int points = 0;
    double quantity = 0, failures = 0, suspensions = 0, discoveries = 0, intervals = 0;
    double mean = 0, deviation = 0, median = 0;
    float xLow = 0, xHigh = 0, yLow = 0, yHigh = 0;
    int xLowRow = 0, xHighRow = 0, yLowRow = 0, yHighRow = 0;
};

double ageof(float x) { return session.progSide == lifeSide && !negativedata() ? std::fabs(x) : x; }

void count(Statistics& all, CellMark mark, double quantity) {
    switch (mark) {
    case CellMark::suspended: all.suspensions += quantity; break;
    case CellMark::discovered: all.discoveries += quantity; break;
    case CellMark::interval: all.intervals += quantity; break;
    default: all.failures += quantity;
    }
}

/// Mean and standard deviation weigh each point by its quantity, and so does the median (the lowest value
/// with at least half of the quantity at or below it).
Statistics statisticsof(int set) {
    Statistics all;
    std::vector<std::pair<double, double>> values;
    const auto column = static_cast<std::size_t>(set - 1);
    if (column >= session.gridCells.size()) return all;
    const int rows = static_cast<int>(session.gridCells[column].size());
    for (int row = 1; row <= rows; ++row) {
        const std::string& text = session.gridCells[column][static_cast<std::size_t>(row - 1)];
        if (!readablecell(text)) continue;
        const Cell cell = cellsplit(text);
        const auto x = static_cast<float>(ageof(cell.x));
        const double quantity = std::max(1.0, std::floor(static_cast<double>(cell.quantity)));
        if (all.points == 0 || x < all.xLow) all.xLow = x, all.xLowRow = row;
        if (all.points == 0 || x > all.xHigh) all.xHigh = x, all.xHighRow = row;
        if (cell.hasY && (all.yLowRow == 0 || cell.y < all.yLow)) all.yLow = cell.y, all.yLowRow = row;
        if (cell.hasY && (all.yHighRow == 0 || cell.y > all.yHigh)) all.yHigh = cell.y, all.yHighRow = row;
        ++all.points;
        all.quantity += quantity;
        count(all, gridmark(set, row), quantity);
        values.emplace_back(x, quantity);
    }
    if (all.points == 0) return all;
    for (const auto& [value, quantity] : values) all.mean += value * quantity / all.quantity;
    double squares = 0;
    for (const auto& [value, quantity] : values)
        squares += quantity * (value - all.mean) * (value - all.mean);
    if (all.quantity > 1) all.deviation = std::sqrt(squares / (all.quantity - 1));
    std::sort(values.begin(), values.end());
    double reached = 0;
    for (const auto& [value, quantity] : values) {
        reached += quantity;
        all.median = value;
        if (2 * reached >= all.quantity) break;
    }
    return all;
}

std::string shown(double value) {
    std::string text;
    appendtrimmed(text, static_cast<float>(value));
    wordnumber(text);
    return text;
}

/// One item of the page; a row to change behind it, or 0.
struct Line {
    char letter;
    void (*label)(std::string& text);
    std::string (*value)(const Statistics& all);
    int (*row)(const Statistics& all);
    bool (*when)();
};

bool life() { return session.progSide == lifeSide; }
bool visual() { return session.progSide != lifeSide; }

#define LABEL(...) [](std::string& t) { extend(t, __VA_ARGS__); }
#define VALUE(member) [](const Statistics& s) { return shown(s.member); }
#define ROW(member) [](const Statistics& s) { return s.member; }

using W = Word;
constexpr Line lines[] = {
    {'N', LABEL(W::Point, " ", W::Quantity), VALUE(points), nullptr, nullptr},
    {'Q', LABEL(W::Total, " ", W::Quantity), VALUE(quantity), nullptr, nullptr},
    {'F', LABEL(W::Failure, " ", W::Quantity), VALUE(failures), nullptr, life},
    {'U', LABEL(W::Suspension, " ", W::Quantity), VALUE(suspensions), nullptr, life},
    {'D', LABEL(W::Discovery, " ", W::Quantity), VALUE(discoveries), nullptr, life},
    {'V', LABEL(W::Interval, " ", W::Quantity), VALUE(intervals), nullptr, life},
    {'A', LABEL("X ", W::Minimum), VALUE(xLow), ROW(xLowRow), nullptr},
    {'B', LABEL("X ", W::Maximum), VALUE(xHigh), ROW(xHighRow), nullptr},
    {'C', LABEL("X ", W::Mean), VALUE(mean), nullptr, nullptr},
    {'E', LABEL("X ", W::StdDev), VALUE(deviation), nullptr, nullptr},
    {'M', LABEL("X ", W::Median), VALUE(median), nullptr, nullptr},
    {'K', LABEL("Y ", W::Minimum), VALUE(yLow), ROW(yLowRow), visual},
    {'L', LABEL("Y ", W::Maximum), VALUE(yHigh), ROW(yHighRow), visual},
    {'P', LABEL(W::Change, " ", W::Point), nullptr, nullptr, nullptr},
    {'T', LABEL(W::Change, " ", W::Title), nullptr, nullptr, nullptr},
    {'W', LABEL(W::Next, " ", W::Set), nullptr, nullptr, nullptr},
    {'X', LABEL(W::Exit), nullptr, nullptr, nullptr},
};

#undef LABEL
#undef VALUE
#undef ROW

void fillpage(int set, const Statistics& all) {
    menuclear();
    for (const Line& line : lines) {
        if (line.when && !line.when()) continue;
        std::string& text = session.menuItem[static_cast<std::size_t>(++session.menuCount)];
        compose(text, std::string(1, line.letter), "...");
        line.label(text);
        if (line.value) extend(text, " = ", AsTyped{line.value(all)});
    }
    session.menuChoice = session.menuCount;
    compose(session.menuTitle, Word::Set, " ", set);
    compose(session.msg, "1) ", AsTyped{gridheading(set)}, "\n2) ", Word::Data, " ", Word::Grid, " ",
            Word::Summary);
}

/// Asks for the new text of a cell, and puts it there.
void changecell(int set, int row) {
    gridhold(row, set);
    compose(session.menuTitle, Word::Set, " ", set);
    compose(session.msg, Word::Row, " ", row, " = ", AsTyped{gridcell(set, row)});
    textprompt();
    if (session.msg == noAnswerText || session.msg.empty()) return;
    const std::string text = session.msg;
    if (!readablecell(text)) {
        compose(session.msg, Word::Bad, " ", Word::Data, " = ", AsTyped{text});
        tellok();
        return;
    }
    gridset(set, row, text);
    calcplot();
}

void changepoint(int set, const Statistics& all) {
    session.u = 1;
    session.promptKind = 0;
    compose(session.msg, Word::Row);
    numberprompt();
    const auto rows = static_cast<float>(gridrows());
    if (session.u == static_cast<float>(noAnswer) || !(session.u >= 1 && session.u <= rows)
        || all.points == 0)
        return;
    changecell(set, static_cast<int>(session.u));
}

} // namespace

void gridstatistics() {
    for (;;) {
        const int set = std::clamp(static_cast<int>(session.activeSet), 1, gridcolumns());
        const Statistics all = statisticsof(set);
        fillpage(set, all);
        menushow();
        const auto chosen = static_cast<std::size_t>(std::max(session.menuChoice, 0.0f));
        const char letter = chosen == 0 ? 'X' : session.menuItem[chosen].front();
        if (letter == 'X') return;
        if (letter == 'P') changepoint(set, all);
        if (letter == 'T') gridheadingpress(set);
        if (letter == 'W')
            session.activeSet = set % std::max(1, static_cast<int>(session.gridCells.size())) + 1;
        for (const Line& line : lines)
            if (line.letter == letter && line.row && line.row(all) > 0) changecell(set, line.row(all));
    }
}
