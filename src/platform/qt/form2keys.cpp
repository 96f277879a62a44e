#include "platform/qt/form2.h"

#include "shell/words.h" // ahead of Qt, which has a global Display

#include <QApplication>
#include <QMenu>
#include <QShortcut>
#include <functional>

#include "platform/paths.h"
#include "platform/qt/dropbar.h"
#include "platform/qt/gridview.h"
#include "platform/qt/plotview.h"
#include "platform/qt/text.h"
#include "session/session.h"
#include "shell/commands.h"
#include "shell/gridedit.h"
#include "shell/shellbusy.h"

/// The shortcuts that every desktop program has, beside the program's own keys.

namespace {

constexpr double zoomStep = 1.25;

template <int Number>
void command() {
    runcommand(Number);
}

/// What no command stands for, held off while one runs as the commands are.
template <auto Act>
void alone() {
    if (session.shellBusy > 0) return;
    const ShellBusy busy;
    gridsettle();
    Act();
}

void redo() { editaction(editRedo); }
void saveas() { savefileas(); }

void selectall() {
    if (session.shellBusy > 0) return;
    gridgo(1, 1);
    gridgo(gridrows(), gridcolumns(), true);
}

void heading() { gridheadingpress(session.gridCol); }

struct ShortcutOf {
    const char* keys;
    void (*act)();
};
constexpr ShortcutOf shortcuts[] = {{"Ctrl+N", command<0>},
                                    {"Ctrl+O", command<2>},
                                    {"Ctrl+S", command<3>},
                                    {"Ctrl+Shift+S", alone<saveas>},
                                    {"Ctrl+P", command<6>},
                                    {"Ctrl+X", command<79>},
                                    {"Ctrl+C", command<82>},
                                    {"Ctrl+V", command<83>},
                                    {"Ctrl+Z", command<81>},
                                    {"Ctrl+Y", alone<redo>},
                                    {"Ctrl+Shift+Z", alone<redo>},
                                    {"Ctrl+A", selectall},
                                    {"Ctrl+T", heading}};

} // namespace

void Form2::buildshortcuts() {
    const auto add = [this](const char* keys, std::function<void()> act) {
        auto* const shortcut = new QShortcut(QKeySequence(QString::fromLatin1(keys)), this);
        connect(shortcut, &QShortcut::activated, this, std::move(act));
    };
    for (const ShortcutOf& one : shortcuts) add(one.keys, one.act);
    add("Ctrl+R", [this] { openrecent(); });
    add("F11", [this] { fullview(); });
    add("F6", [this] { nextpane(); });
    for (const char* keys : {"Ctrl++", "Ctrl+="}) add(keys, [this] { plot->zoom(zoomStep); });
    add("Ctrl+-", [this] { plot->zoom(1 / zoomStep); });
    add("Ctrl+0", [this] { plot->zoomout(); });
}

void Form2::fullview() {
    if (isFullScreen())
        showNormal();
    else
        showFullScreen();
}

/// Grid, plot, the icons, and the grid again.
void Form2::nextpane() {
    if (grid->isAncestorOf(QApplication::focusWidget()) || grid->hasFocus())
        plot->setFocus(Qt::ShortcutFocusReason);
    else if (plot->hasFocus())
        bar->setFocus(Qt::ShortcutFocusReason);
    else
        grid->setFocus(Qt::ShortcutFocusReason);
}

void Form2::openrecent() {
    if (session.shellBusy > 0 || session.recentFiles.empty()) return;
    QMenu menu(this);
    menu.setObjectName(QStringLiteral("RecentFiles"));
    for (const std::string& file : session.recentFiles) {
        QString name = qs(nativepath(file));
        QAction* const action = menu.addAction(name.replace(QLatin1Char('&'), QStringLiteral("&&")));
        action->setData(qs(file));
    }
    const QAction* const chosen = menu.exec(bar->mapToGlobal(QPoint(0, bar->height())));
    if (chosen) openfile(utf8(chosen->data().toString()).c_str());
}
