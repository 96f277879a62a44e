#include "shell/gridedit.h"

#include <algorithm>
#include <cmath>

#include "data/cell.h"
#include "data/numbertext.h"
#include "numeric/sngguard.h"
#include "options/pages.h"
#include "platform/platform.h"
#include "plot/shown.h"
#include "session/opendata.h"
#include "session/session.h"
#include "shell/calcplot.h"
#include "shell/grid.h"
#include "shell/prompts.h"
#include "shell/words.h"

namespace {

constexpr int marginRows = 20; ///< empty rows that are offered behind the last point
constexpr float censored = 3e33f;
constexpr float exactFrom = 2e29f;

void repaintcell() {
    if (platform) platform->window().repaintcell();
}

std::vector<std::string>* columnof(int set) {
    const auto column = static_cast<std::size_t>(set - 1);
    return set >= 1 && column < session.gridCells.size() ? &session.gridCells[column] : nullptr;
}

std::string cellof(int set, int point) {
    const auto* const cells = columnof(set);
    const auto row = static_cast<std::size_t>(point - 1);
    return cells && point >= 1 && row < cells->size() ? (*cells)[row] : std::string();
}

bool blank(std::string_view text) { return text.find_first_not_of(" \t\r\n") == std::string_view::npos; }

/// A text that is neither a point nor a label alone.
bool problem(std::string_view text) {
    const auto start = text.find_first_not_of(" \t");
    return start != std::string_view::npos && text[start] != '_' && !readablecell(text);
}

void tellproblem(const std::string& text) {
    compose(session.menuTitle, Word::Data);
    compose(session.msg, Word::Bad, " ", Word::Data, ": ", Word::Set, " ", session.gridCol, ", ", Word::Row,
            " ", session.gridRow, " = ", AsTyped{text});
    tellok();
}

/// Takes the entry into the cell in hand; false when it says what stood there already.
bool takeentry() {
    const std::string text = session.gridEditText;
    session.gridEditOpen = 0;
    session.gridEditText.clear();
    if (text == cellof(session.gridCol, session.gridRow)) return false;
    session.msg = text;
    if (!blank(text)) cellformcheck();
    gridset(session.gridCol, session.gridRow, blank(text) ? std::string_view() : std::string_view(text));
    session.resultsDirty = 1;
    session.activeSet = session.gridCol;
    if (platform) platform->window().repaintgrid();
    if (problem(text)) tellproblem(text);
    return true;
}

void place(int row, int column, bool extend) {
    if (!extend) {
        session.gridMarkRow = row;
        session.gridMarkCol = column;
    }
    session.gridRow = row;
    session.gridCol = column;
    session.gridMarked =
        static_cast<int16_t>(row != session.gridMarkRow || column != session.gridMarkCol ? 1 : 0);
    if (columnof(column)) session.activeSet = column;
}

} // namespace

int gridrows() {
    const int used = static_cast<int>(longestcolumn());
    const int wanted = std::max(used + marginRows, static_cast<int>(session.gridVisibleRows));
    return std::max(1, std::min(wanted, std::max(used, static_cast<int>(session.maxPoints))));
}

int gridcolumns() {
    return std::max(1,
                    std::max(static_cast<int>(session.maxSets), static_cast<int>(session.gridCells.size())));
}

std::string gridcell(int set, int point) { return cellof(set, point); }

std::string gridordinate(int set, int point) {
    const auto* const cells = columnof(set);
    if (session.ordinatesInGrid == 0 || session.progSide != lifeSide || !cells || set > setcount()) return {};
    if (static_cast<int>(cells->size()) != pointcount(set) || point < 1 || point > pointcount(set)) return {};
    const ShownPoint shown = shownpoint(set, point);
    const double value = std::fabs(cellsplit((*cells)[static_cast<std::size_t>(point - 1)]).x);
    if (shown.suspended || !shown.placed
        || sngguard(value)
               != std::fabs(session.X(static_cast<int>(rowofset(static_cast<float>(set))), point)))
        return {};
    std::string text = "   ";
    appendsignificant(text, 100 * shown.y, 4);
    wordnumber(text);
    return text + " %";
}

CellMark gridmark(int set, int point) {
    const auto* const cells = columnof(set);
    const auto row = static_cast<std::size_t>(point - 1);
    if (!cells || point < 1 || row >= cells->size() || (*cells)[row].empty()) return CellMark::none;
    const std::string& text = (*cells)[row];
    const Cell cell = cellsplit(text);
    if (!readablecell(text)) return problem(text) ? CellMark::unreadable : CellMark::none;
    if (session.progSide != lifeSide) return CellMark::none;
    if (cell.z > censored) return CellMark::suspended;
    if (cell.z < -censored) return CellMark::discovered;
    if (cell.x < 0 && !negativedata()) return CellMark::suspended;
    const bool interval = session.inputType == intv5 && cell.z != 0 && std::fabs(cell.z) < exactFrom;
    return interval && cell.z != cell.x ? CellMark::interval : CellMark::none;
}

std::string gridheading(int set) {
    const auto column = static_cast<std::size_t>(set - 1);
    const bool titled = set >= 1 && column < session.gridTitles.size() && !session.gridTitles[column].empty();
    if (titled) return session.gridTitles[column];
    std::string text;
    wordclean(compose(text, Word::Set, " ", set));
    return text;
}

std::string gridformat() {
    std::string text;
    const bool life = session.progSide == lifeSide;
    if (life && session.inputType == intv5)
        compose(text, Word::Age, " x Y-", Word::Value, " (<", Word::Age, " = ", Word::Unknown, " ",
                Word::Before, ", >", Word::Age, " = ", Word::Unknown, " ", Word::After, ") _ ", Word::Label,
                " ", Word::Or, " ID");
    else if (life && session.inputType == standard0)
        compose(text, "Y-", Word::Value, " _ ", Word::Point, " ", Word::Label, " ", Word::Or, " ID");
    else if (life)
        compose(text, "X-", Word::Value, " x Y-", Word::Value, " x ", Word::Quantity, " _ ", Word::Point, " ",
                Word::Label, " ", Word::Or, " ID");
    else
        compose(text, "X-", Word::Value, " x Y-", Word::Value, " _ ", Word::Point, " ", Word::Label, " ",
                Word::Or, " ID");
    wordclean(text);
    return text;
}

CellRange gridselection() {
    const auto [top, bottom] = std::minmax(session.gridRow, session.gridMarkRow);
    const auto [left, right] = std::minmax(session.gridCol, session.gridMarkCol);
    if (session.gridMarked == 0) return {session.gridRow, session.gridCol, session.gridRow, session.gridCol};
    return {top, left, bottom, right};
}

void gridedit() { gridedit(cellof(session.gridCol, session.gridRow)); }

void gridedit(std::string_view typed) {
    if (session.shellBusy > 0) return;
    session.gridEditText = typed;
    session.gridEditOpen = 1;
    repaintcell();
}

bool gridcommit() {
    if (session.shellBusy > 0) return false;
    const std::string former = cellof(session.gridCol, session.gridRow);
    const bool empty =
        session.gridEditOpen != 0 ? blank(session.gridEditText) && former.empty() : former.empty();
    if (empty) {
        session.gridEditOpen = 0;
        session.gridEditText.clear();
        repaintcell();
        calcplot();
        return false;
    }
    const bool changed = session.gridEditOpen != 0 && takeentry();
    place(std::min(session.gridRow + 1, gridrows()), session.gridCol, false);
    repaintcell();
    return changed;
}

void gridleave() {
    session.gridEditOpen = 0;
    session.gridEditText.clear();
    repaintcell();
}

void gridsettle() {
    if (session.gridEditOpen == 0) return;
    takeentry();
    repaintcell();
}

void gridmove(int rows, int columns, bool extend) {
    gridgo(session.gridRow + rows, session.gridCol + columns, extend);
}

void gridgo(int row, int column, bool extend) {
    if (session.shellBusy > 0) return;
    gridsettle();
    place(std::clamp(row, 1, gridrows()), std::clamp(column, 1, gridcolumns()), extend);
    repaintcell();
}

void gridhold(int row, int column) {
    session.gridRow = session.gridMarkRow = row;
    session.gridCol = session.gridMarkCol = column;
    session.gridMarked = 0;
    repaintcell();
}

void gridheadingpress(int set) {
    if (session.shellBusy > 0 || set < 1 || set > gridcolumns()) return;
    gridgo(1, set);
    session.activeSet = set;
    const auto* const cells = columnof(set);
    if (cells && cells->size() > 1) gridgo(static_cast<int>(cells->size()), set, true);
    compose(session.menuTitle, Word::Set, " ", set);
    compose(session.msg, Word::Title, " = ", AsTyped{gridheading(set)});
    textprompt();
    if (session.msg == noAnswerText) return;
    const std::string title = blank(session.msg) ? std::string() : session.msg;
    const auto column = static_cast<std::size_t>(set - 1);
    if (session.gridTitles.size() <= column) session.gridTitles.resize(column + 1);
    session.gridTitles[column] = title;
    calcplot();
}

void gridexplain(int row, int column) {
    if (session.shellBusy > 0) return;
    const int set = session.activeSet;
    for (;;) {
        menuclear();
        compose(session.menuItem[1], "A...", Word::Select, " ", Word::With, " ", Word::Zoom);
        compose(session.menuItem[2], "B...", Word::Display, " ", Word::Point, " ", Word::Label, " ", Word::On,
                " ", Word::Plot, " = ", session.pointLabelsShown == 1 ? Word::Yes : Word::No, " (/ ",
                session.pointLabelsShown == 1 ? Word::No : Word::Yes, ")");
        compose(session.menuItem[3], "X...", Word::Exit);
        session.menuCount = 3;
        session.menuChoice = 1;
        compose(session.menuTitle, Word::Set, " ", set);
        compose(session.msg, AsTyped{gridheading(set)}, "\n", Word::Point, " ", Word::Quantity, " = ",
                set <= setcount() ? pointcount(set) : 0);
        const std::string text = cellof(column, row);
        if (!text.empty()) extend(session.msg, "\n", Word::Row, " ", row, " = ", AsTyped{text});
        menushow();
        if (session.menuChoice == 2) {
            session.pointLabelsShown = static_cast<int16_t>(1 - session.pointLabelsShown);
            calcplot();
            continue;
        }
        if (session.menuChoice == 1 && optionpage(OptionPage::zoom)) calcplot();
        return;
    }
}

void gridput(int set, int point) {
    const int row = static_cast<int>(rowofset(static_cast<float>(set)));
    if (set < 1 || set > setcount() || point < 1 || point > pointcount(set)) return;
    const float x = session.entryX(row, point), y = session.entryY(row, point);
    const float quantity = session.v1(set, point), z = session.v2(set, point);
    const bool interval = session.inputType == intv5 && z != 0 && std::fabs(z) < exactFrom;
    const bool marked = interval || z == suspendedZ || z == discoveredZ;
    std::string text;
    const auto shown = [&text](float value) {
        std::string number;
        appendtrimmed(number, value);
        if (session.displayDecimal == session.decimalSeparator)
            wordnumber(number); // else it could not be read
        text += number;
    };
    if (interval || z == suspendedZ) text += '>';
    if (z == discoveredZ) text += '<';
    shown(x);
    if (interval) {
        text += '<';
        shown(z);
    }
    const auto field = [&](float value) {
        text += 'x';
        shown(value);
    };
    const bool fourth = z != 0 && !marked;
    const bool open = !hasordinate(set, point);
    if (!open && (y != 0 || quantity != 1 || fourth || session.progSide != lifeSide)) field(y);
    if (open && (quantity != 1 || fourth)) text += 'x'; // an empty field
    if (quantity != 1 || fourth) field(quantity);
    if (fourth) field(z);
    const Keep keep{session.msg};
    session.msg.clear();
    pointlabelget(set, point);
    if (!blank(session.msg)) (text += '_') += session.msg;
    gridset(set, point, text);
}

void gridputall() {
    for (int k = 1; k <= setcount(); ++k) {
        for (int j = 1; j <= pointcount(k); ++j) gridput(k, j);
        session.gridCells[static_cast<std::size_t>(k - 1)].resize(static_cast<std::size_t>(pointcount(k)));
    }
}
