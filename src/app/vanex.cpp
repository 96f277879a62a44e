// vanex: the desktop program. vanexw and vanexv are the same program on a side of its own.

#include "shell/words.h" // ahead of Qt, which has a global Display

#include <QApplication>
#include <QTimer>
#include <algorithm>
#include <clocale>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <new>
#include <string>
#include <vector>

#include "platform/qt/desktop.h"
#include "platform/qt/form1.h"
#include "platform/qt/form2.h"
#include "platform/qt/icons.h"
#include "platform/qt/qtplatform.h"
#include "platform/qt/style.h"
#include "session/session.h"
#include "session/startup.h"
#include "shell/prompts.h"

namespace {

enum ExitStatus { done = 0, noResult = 1, wrongUse = 2 };

constexpr const char* help =
    "Usage: vanex [FILE] [switches]\n"
    "\n"
    "Opens the desktop, with a data file of the program or a text with data. vanexw\n"
    "starts on the life side, vanexv on the X-Y side. vanexc --help lists the switches.\n";

constexpr const char* noDisplay =
    "vanex: there is no display to open a window on (DISPLAY and WAYLAND_DISPLAY are not set).\n"
    "       vanexc does the same work without one: vanexc --help\n";

void complain(const std::string& text) { std::fprintf(stderr, "vanex: %s\n", text.c_str()); }

bool displaythere() {
    const auto set = [](const char* name) {
        const char* const value = std::getenv(name);
        return value && *value != '\0';
    };
    return set("DISPLAY") || set("WAYLAND_DISPLAY") || set("QT_QPA_PLATFORM");
}

/// The agreement, or the title alone where the user has asked for no question. False when the user leaves.
bool agreed(StartEnd end) {
    if (end == StartEnd::startWindow) return Form1(Form1::Purpose::agreement).exec() == QDialog::Accepted;
    if (session.skipStartScreen == 1 && session.cmdShowWindow == 0) Form1(Form1::Purpose::agreement).splash();
    return true;
}

/// What the command line asked for in vain.
void tellnotes() {
    if (session.cmdNotes.empty()) return;
    std::string notes;
    for (const std::string& note : session.cmdNotes) notes += (notes.empty() ? "" : "\n") + note;
    compose(session.msg, AsTyped{notes});
    tellok();
}

/// The main window, until the exit sequence has gone through.
int mainwindow(QtPlatform& desktop) {
    Form2 window;
    desktop.setwindow(&window, &window);
    Form1::closewaiting();
    window.painted = [] {
        openmain();
        tellnotes();
    };
    window.show();
    const int status = QApplication::exec();
    desktop.setwindow(nullptr, nullptr);
    return status;
}

int start(const std::vector<std::string>& arguments, const char* name) {
    QtPlatform desktop(name);
    platform = &desktop;
    installreporters();
    const StartEnd end = startup(arguments, name, true);
    if (end == StartEnd::wrongUse) {
        wordclean(session.msg);
        complain(session.msg);
        return wrongUse;
    }
    int status = end == StartEnd::noMemory || end == StartEnd::failed ? noResult : done;
    if (end == StartEnd::mainWindow || end == StartEnd::startWindow) {
        applysurroundings();
        if (agreed(end)) status = mainwindow(desktop);
    }
    shutdown();
    platform = nullptr;
    return status;
}

} // namespace

int main(int argc, char** argv) {
    const std::vector<std::string> arguments(argv + std::min(argc, 1), argv + argc);
    const auto asked = [&](const char* option) {
        return std::find(arguments.begin(), arguments.end(), option) != arguments.end();
    };
    if (asked("--help")) return std::fputs(help, stdout) >= 0 ? done : noResult;
    if (asked("--version"))
        return std::printf("%s %s\n", session.productName.c_str(), VANEX_VERSION) >= 0 ? done : noResult;
    if (!displaythere()) {
        std::fputs(noDisplay, stderr);
        return noResult;
    }
    std::signal(SIGPIPE, SIG_IGN); // a port or pipe that is gone fails its write; it must not end the program
    try {
        Desktop application(argc, argv);
        std::setlocale(LC_NUMERIC, "C"); // the application has put the user's there
        QApplication::setDesktopFileName(QStringLiteral("omnivanex"));
        QApplication::setWindowIcon(programicon());
        return start(arguments, argc > 0 ? argv[0] : "vanex");
    } catch (const std::bad_alloc&) {
        complain("Not Enough Free Memory");
        return noResult;
    }
}
