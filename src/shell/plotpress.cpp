#include "shell/plotpress.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "data/cell.h"
#include "data/numbertext.h"
#include "options/page.h"
#include "platform/platform.h"
#include "plot/functionplot.h"
#include "plot/markerline.h"
#include "plot/readout.h"
#include "plot/shown.h"
#include "session/session.h"
#include "session/snapshots.h"
#include "shell/calcplot.h"
#include "shell/commands.h"
#include "shell/grid.h"
#include "shell/gridedit.h"
#include "shell/markerentry.h"
#include "shell/prompts.h"
#include "shell/shellbusy.h"
#include "shell/words.h"

namespace {

constexpr double pixel = 15;         ///< canvas units
constexpr double reach = 12 * pixel; ///< of a press

/// What the status line says while a press is awaited.
void awaittext() {
    switch (session.activeMode) {
    case addPointMode:
        compose(session.msg, Word::Select, " ", Word::On, " ", Word::Plot, ": ", Word::Add, " ", Word::Data,
                " (", Word::Set, " ", session.activeSet, ")");
        break;
    case selectPointMode:
        compose(session.msg, Word::Select, " ", Word::On, " ", Word::Plot, ": ", Word::Point);
        break;
    default:
        compose(session.msg, Word::Select, " ", Word::On, " ", Word::Plot, ": ", Word::Marker, " ",
                Word::Line, " ... ", Word::Point, " #", session.pressed.empty() ? 1 : 2);
    }
    statusline();
}

/// A row of a group says more than its age.
bool groupedinput() {
    return session.progSide == lifeSide && session.inputType != standard0 && session.inputType != intv5;
}

bool hasplaces() {
    if (functionplotted() || (session.activeMode == addPointMode && groupedinput())) return false;
    return session.plotMode == 1 || session.plotKind == xyPlot;
}

/// A value of the plot to the place of digits that a pixel can tell.
double ofpixel(double value, double beside) {
    const double step = std::fabs(beside - value);
    if (!(step > 0) || !std::isfinite(step)) return value;
    const double unit = std::pow(10.0, std::floor(std::log10(step)));
    return std::round(value / unit) * unit;
}

std::string celltext(double value) {
    constexpr int digits = 7; ///< that a cell keeps
    std::string text;
    appendsignificant(text, value, digits);
    if (session.decimalSeparator != ".")
        std::replace(text.begin(), text.end(), '.', session.decimalSeparator[0]);
    return text;
}

/// The place of a press, each value to what a pixel can tell.
std::optional<PlotPlace> pressedplace(const PlotWindow& window, double x, double y) {
    const auto at = plotplace(window, x, y);
    if (!at) return std::nullopt;
    const double right = x + pixel <= window.right ? pixel : -pixel;
    const double down = y + pixel <= window.bottom ? pixel : -pixel;
    const auto beside = plotplace(window, x + right, y + down);
    if (!beside) return at;
    return PlotPlace{ofpixel(at->x, beside->x), session.plotMode == 1 ? at->y : ofpixel(at->y, beside->y)};
}

/// The point goes behind the last cell of the active set.
void addpoint(const PlotPlace& at) {
    const int k = std::max(session.activeSet, 1);
    const auto set = static_cast<std::size_t>(k);
    // The plot shows the age less a threshold, unless its scale is kept as recorded.
    const double shift = session.plotMode == 1 ? static_cast<double>(session.t0(k)) - scaleshift(k) : 0;
    const std::size_t row = session.gridCells.size() < set ? 1 : session.gridCells[set - 1].size() + 1;
    std::string text = celltext(at.x + shift);
    if (session.plotMode != 1) text += "x" + celltext(at.y);
    gridset(static_cast<int>(set), static_cast<int>(row), text);
    calcplot();
}

/// Row of the grid that holds point j of a set; 0 for none.
int rowofpoint(int set, int j) {
    const auto column = static_cast<std::size_t>(set - 1);
    if (column >= session.gridCells.size()) return 0;
    int row = 0, points = 0;
    for (const std::string& text : session.gridCells[column]) {
        ++row;
        if (readablecell(text) && ++points == j) return row;
    }
    return 0;
}

/// Takes the cell of the point nearest to the press in hand, and asks what is to become of it.
void selectpoint(const PlotWindow& window, double x, double y) {
    const auto points = placedpoints(window);
    const auto nearest = nearestpoint(points, x, y, reach);
    const int row = nearest ? rowofpoint(nearest->set, nearest->point) : 0;
    if (row == 0) return;
    gridhold(row, nearest->set);
    constexpr Word names[] = {Word::Delete, Word::Cut, Word::Copy};
    constexpr int actions[] = {editDelete, editCut, editCopy};
    std::vector<std::string> entries;
    for (const Word name : names) wordclean(entries.emplace_back(word(name)));
    std::string cell;
    compose(cell, Word::Set, " ", nearest->set, ", ", Word::Row, " ", row, " = ",
            AsTyped{gridcell(nearest->set, row)});
    wordclean(cell);
    const int chosen = choosefrom({cell.c_str()}, entries);
    if (chosen >= 0) editaction(actions[chosen]);
}

void markerpress(const PlotPlace& at) {
    if (session.pressed.empty()) {
        session.pressed = {at.x, at.y};
        return;
    }
    const FamilyLine line = linethrough(session.pressed[0], session.pressed[1], at.x, at.y);
    session.pressed.clear();
    session.activeMode = 0;
    if (platform) platform->window().repainticons();
    if (markerkeep(line)) calcplot();
}

} // namespace

void plotpressbegin(int mode) {
    const int16_t former = std::exchange(session.activeMode, static_cast<int16_t>(mode));
    if (!hasplaces()) {
        session.activeMode = former;
        compose(session.msg, Word::Select, " ", Word::On, " ", Word::Plot, " ... ", Word::Not, " ",
                Word::Possible);
        tellok();
        return;
    }
    session.pressed.clear();
    calcpending(); // the plot that is pressed shows the cells as they stand
    if (platform) {
        platform->window().showview(ViewTab::plot);
        platform->window().repainticons();
    }
    awaittext();
}

bool plotpressawaited() {
    const int mode = session.activeMode;
    return mode == addPointMode || mode == selectPointMode || mode == markerLineMode;
}

void plotpress(const PlotWindow& window, double canvasx, double canvasy) {
    const ShellBusy busy;
    gridsettle();
    if (gridhash() != session.gridAccepted) {
        calcplot(); // cells were typed since: the press was at a plot that is no more
        return;
    }
    const auto at = pressedplace(window, canvasx, canvasy);
    if (!at || !hasplaces()) return;
    switch (session.activeMode) {
    case addPointMode: addpoint(*at); break;
    case selectPointMode: selectpoint(window, canvasx, canvasy); break;
    case markerLineMode: markerpress(*at); break;
    default: return;
    }
    if (plotpressawaited()) awaittext();
}
