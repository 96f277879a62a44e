#include "shell/commandactions.h"

#include "data/datafileoptions.h"
#include "options/limits.h"
#include "platform/platform.h"
#include "session/opendata.h"
#include "session/session.h"
#include "session/settings.h"
#include "session/siblings.h"
#include "shell/calcplot.h"
#include "shell/commands.h"
#include "shell/commandtable.h"
#include "shell/gridedit.h"
#include "shell/output.h"
#include "shell/prompts.h"
#include "shell/words.h"

namespace {

constexpr int yes = 1;

void additem(const char* letter, Word first, Word second = Word::None_) {
    std::string& text = session.menuItem[static_cast<std::size_t>(++session.menuCount)];
    compose(text, letter, "...", first);
    if (second != Word::None_) extend(text, " ", second);
}

char picked() {
    const auto chosen = static_cast<std::size_t>(session.menuChoice > 0 ? session.menuChoice : 0);
    return chosen == 0 || session.menuItem[chosen].empty() ? 'X' : session.menuItem[chosen].front();
}

void showhelp() {
    if (platform) platform->window().showview(ViewTab::help);
}

} // namespace

void pagecommand(OptionPage page) {
    if (optionpage(page)) calcplot();
}

void methodinput() {
    menuclear();
    additem("M", Word::Method);
    additem("I", Word::Input, Word::Method);
    additem("X", Word::Exit);
    session.menuTitle = commandname(15);
    compose(session.msg, Word::Method, " / ", Word::Input);
    session.menuChoice = 1;
    menushow();
    const char letter = picked();
    if (letter == 'M') pagecommand(OptionPage::fitMethod);
    if (letter == 'I') pagecommand(OptionPage::inputMethod);
}

void outputcommand() { outputpage(); }

void printcommand() {
    if (platform) platform->window().explain(session.commandNo, commandtip(session.commandNo), 200);
    outputpage();
}

void sidemark() {
    const char mark = session.progSide == lifeSide ? 'W' : 'V';
    settingsmark(mark, !settingsmarked(mark));
    settingswrite();
    pagecommand(OptionPage::mainOptions);
}

void switchsides() {
    calcpending();
    sidestart(session.progSide == lifeSide ? 'V' : 'W', "");
}

void copyplotcommand() {
    copyplot();
    calcplot();
}

/// A line's hide mark keeps its set off the plot. The last press gives all sets back.
void singleset() {
    bool hidden = false;
    for (int k = 1; k <= setcount(); ++k) hidden = hidden || session.lineHide(k) != 0;
    for (int k = 1; k <= setcount(); ++k)
        session.lineHide(k) = static_cast<int16_t>(!hidden && k != session.activeSet ? 1 : 0);
    if (!hidden && setcount() > 1) {
        compose(session.menuTitle, Word::Caution);
        compose(session.msg, Word::Set, " ", Word::Hide, " ... ", Word::Only, " ", Word::Set, " ",
                session.activeSet, " ", Word::Display);
        tellok();
    }
    calcplot();
}

void librarycommand() { pagecommand(OptionPage::library); }

void resetstandard() {
    compose(session.msg, Word::Reset, " ", Word::To, " ", Word::Standard);
    askyesno();
    if (session.u != yes) return;
    resetoptions();
    calcplot();
}

void rangechange() {
    struct Limits {
        double xLow, xHigh, yLow, yHigh;
    } wanted{session.xLimitLow, session.xLimitHigh, session.yLimitLow, session.yLimitHigh};
    compose(session.msg, "X-", Word::Range, " + Y-", Word::Range, " ", Word::Change);
    statusline();
    if (platform) platform->window().repaintplot();
    const bool answered = askaxislimit({"X-", Word::PlotScale, Word::Minimum}, LimitAxis::x, wanted.xLow)
                          && askaxislimit({"X-", Word::PlotScale, Word::Maximum}, LimitAxis::x, wanted.xHigh)
                          && askaxislimit({"Y-", Word::PlotScale, Word::Minimum}, LimitAxis::y, wanted.yLow)
                          && askaxislimit({"Y-", Word::PlotScale, Word::Maximum}, LimitAxis::y, wanted.yHigh);
    if (answered && (limitscross(wanted.xLow, wanted.xHigh) || limitscross(wanted.yLow, wanted.yHigh))) {
        compose(session.msg, Word::Range, " ", Word::Not, " ", Word::Possible, ": ", Word::Minimum,
                " >= ", Word::Maximum);
        tellok();
    } else if (answered) {
        session.xLimitLow = wanted.xLow;
        session.xLimitHigh = wanted.xHigh;
        session.yLimitLow = wanted.yLow;
        session.yLimitHigh = wanted.yHigh;
    }
    calcplot();
}

void aboutcommand() {
    calcplot();
    if (platform) platform->window().showabout();
}

void helpcommand() {
    if (!spawn("vanexHLP.exe", {})) showhelp();
}

void additionalinformation() { showhelp(); }

void notthere() {
    session.menuTitle = commandname(session.commandNo);
    compose(session.msg, AsTyped{session.menuTitle}, " ... ", Word::Not, " ", Word::Possible);
    tellok();
}

void datawizard() {
    menuclear();
    additem("A", Word::Type, Word::Data);
    extend(session.menuItem[1], " ", Word::In, " ", Word::Grid);
    additem("B", Word::Open);
    extend(session.menuItem[2], " / ", Word::Get, " / ", Word::Import);
    additem("C", Word::Paste, Word::Data);
    additem("D", Word::Demonstrate);
    extend(session.menuItem[4], " / ", Word::Sample);
    additem("X", Word::Exit);
    compose(session.menuTitle, Word::Data, " ", Word::Wizard);
    compose(session.msg, Word::Select, " ", Word::Input);
    session.menuChoice = 1;
    menushow();
    switch (picked()) {
    case 'A': gridgo(static_cast<int>(longestcolumn()) + 1, 1); break;
    case 'B': opendialog(); break;
    case 'C': gridpaste(); break;
    case 'D': opens<OptionPage::sample>(); break;
    default: break;
    }
}
