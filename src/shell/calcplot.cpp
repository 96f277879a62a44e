#include "shell/calcplot.h"

#include <algorithm>

#include "analysis/calcsmain.h"
#include "analysis/notices.h"
#include "curvefit/curvesmain.h"
#include "data/cell.h"
#include "data/report.h"
#include "data/reportanalysis.h"
#include "platform/platform.h"
#include "session/session.h"
#include "session/snapshots.h"
#include "session/undo.h"
#include "shell/grid.h"
#include "shell/prompts.h"
#include "shell/shellbusy.h"

namespace {

/// Runs a window call; without a platform there is no window.
template <class Call>
void window(Call call) {
    if (platform) call(platform->window());
}

void status(Word step) {
    compose(session.msg, step);
    statusline();
}

bool discoveryingrid() {
    if (session.progSide != lifeSide || session.inputType != intv5) return false;
    constexpr float discovered = -3e33f;
    for (const auto& column : session.gridCells)
        for (const std::string& text : column)
            if (cellsplit(text).z < discovered) return true;
    return false;
}

void refusethresholdsearch() {
    if (session.findThreshold == 0 || !discoveryingrid()) return;
    tellrun(Word::Discovery, " ", Word::In, " ", Word::Data, " ", Word::Set, " ... ", Word::Find, " t0 ",
            Word::Not, " ", Word::Possible);
    session.findThreshold = 0;
}

/// Another family needs other fits and another plot.
void noticefamily() {
    const bool same = session.familyDrawn == session.dist && session.gumbeltypeDrawn == session.gumbeltype;
    if (same) return;
    session.familyDrawn = session.dist;
    session.gumbeltypeDrawn = session.gumbeltype;
    session.setFitted.fill(0);
    session.replotNeeded = 1;
}

void resetmarks() {
    session.cycleComplete = 0;
    session.calcError = 0;
    session.abortCode = 0;
    session.inputNote.clear();
}

/// Title of the plot: the one that was asked for, else the file without its folder, or the product where the
/// data were typed.
void plotsetup() {
    const std::string& name = session.fileName;
    if (!session.titleWanted.empty()) {
        session.plotTitle = session.titleWanted;
        return;
    }
    session.plotTitle = name.empty() ? session.productName : name.substr(name.find_last_of("/\\") + 1);
}

/// Tells of a set whose values do not rise from row to row: in growth and trend data their order counts.
void cautionorder(int k) {
    if (session.orderCaution == 0) return;
    for (int j = 2; j <= pointcount(k); ++j)
        if (pointvalue(k, j) < pointvalue(k, j - 1)) {
            tellset(k, Word::Caution, ": ", Word::Data, " ", Word::Order, " ... ", Word::Point, " ", j, " < ",
                    Word::Point, " ", j - 1);
            return;
        }
}

/// Reads the rows and counts those in use; sets beyond the capacity are told.
bool readdata() {
    if (session.maxPoints < 1) return false;
    const int sets = static_cast<int>(session.gridCells.size());
    const int room = static_cast<int>(session.maxSets);
    if (sets > room)
        tellrun(Word::Set, " ", Word::Quantity, " ", Word::Too, " ", Word::Big, " (> ", room, ") ... ",
                Word::View, " ", Word::Setup);
    float last = 0;
    for (int k = 1; k <= std::min(sets, room); ++k) {
        const float row = rowofset(static_cast<float>(k));
        if (!gridget(row)) return false;
        cautionorder(k);
        const bool told = !session.setMessages[static_cast<std::size_t>(k)].empty();
        if (session.n(static_cast<int>(row)) > 0 || told) last = row;
    }
    session.lastRow = last;
    return true;
}

/// The curves of an X-Y plot. What they fill is a change of the data: the former ones are kept for undo while
/// the points are still theirs.
void fitcurves() {
    curvesmain();
    const auto fills = curvefills();
    if (fills.empty()) return;
    const History::Snapshot before = undosnapshot();
    if (!undoable(before)) return;
    curvefillsput(fills);
    undopush(before);
    undonotice();
    curvefillstake(fills);
}

void writereport() {
    reportstart();
    report(session.productName, " ", VANEX_VERSION);
    reportsetup();
    if (session.progSide == lifeSide) reportanalysis();
    if (session.progSide == visualSide) reportcurves();
    if (session.progSide != lifeSide || setcount() > 1)
        if (setcount() > 0) reportsummary();
}

} // namespace

void calcpending() {
    if (gridhash() != session.gridAccepted) calcplot();
}

void calcplot() {
    const ShellBusy busy; // pending events run within, and must not start another one
    for (auto& messages : session.setMessages) messages.clear();
    window([](MainWindow& w) { w.readswitches(); });
    refusethresholdsearch();
    if (session.progSide == lifeSide) methodcheck();
    window([](MainWindow& w) { w.closepopups(); });
    noticefamily();
    resetmarks();
    window([](MainWindow& w) {
        w.pendingevents();
        w.readswitches();
    });
    status(Word::Reset);
    window([](MainWindow& w) { w.repainticons(); });
    if (session.progSide == lifeSide && session.dist != gumbel) session.gumbeltype = -1;
    plotsetup();

    status(Word::Data);
    undonotice();
    if (!readdata()) return;
    status(Word::Calculation);
    if (session.progSide == lifeSide) calcsmain();
    if (session.progSide == visualSide) fitcurves();

    session.replotNeeded = 1;
    window([](MainWindow& w) { w.repaintgrid(); });
    writereport();
    session.replotNeeded = 0;
    window([](MainWindow& w) { w.repaintplot(); });
    session.msg.clear();
    statusline();
    window([](MainWindow& w) { w.progress(progressOver); });
    session.cycleComplete = 1;
    if (session.inputNote.empty()) return;
    session.msg = session.inputNote;
    tellok();
}
