#pragma once

#include <QDir>
#include <QTest>
#include <QToolButton>
#include <memory>
#include <string>
#include <vector>

#include "platform/qt/form2.h"
#include "session/session.h"
#include "shell/calcplot.h"
#include "shell/grid.h"
#include "support/freshsession.h"
#include "support/scriptedplatform.h"
#include "support/workfolder.h"

/// A platform whose prompts answer from a script and whose window is a real one.
class WindowedPlatform : public ScriptedPlatform {
public:
    ::MainWindow* shown = nullptr;
    ::MainWindow& window() override { return shown ? *shown : ScriptedPlatform::window(); }
};

/// The main window on the screen over a fresh session on the life side. Commands have been explained before,
/// so that no test waits for a label.
class WindowTest : public testing::Test {
protected:
    FreshSession fresh{lifeSide};
    WindowedPlatform desktop;
    WorkFolder folder; ///< takes the settings, the temporary files and the test's own
    std::unique_ptr<Form2> window;

    WindowTest() {
        session.commandSeen.fill(1);
        session.undoActive = 1;
        session.configPath = session.tempPath = session.dataPath = folder.path("") + "\\";
        open();
    }
    ~WindowTest() override { desktop.shown = nullptr; }

    void open(QSize size = QSize(1180, 760)) {
        desktop.shown = nullptr;
        window = std::make_unique<Form2>();
        desktop.shown = window.get();
        window->resize(size);
        window->show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(window.get()));
        calcplot();
        settle();
    }

    /// Lets timers of a replot run out.
    static void settle() { QTest::qWait(90); }

    template <class Widget = QWidget>
    Widget* child(const char* name) {
        auto* const found = window->findChild<Widget*>(QString::fromLatin1(name));
        EXPECT_TRUE(found) << name;
        return found;
    }
    QWidget* grid() { return child("Grid1"); }
    QWidget* focus() { return window->focusWidget() ? window->focusWidget() : window.get(); }

    void key(Qt::Key one, Qt::KeyboardModifiers with = Qt::NoModifier) {
        QTest::keyClick(focus(), one, with);
    }
    void type(const char* text) {
        for (; *text != '\0'; ++text) QTest::keyClick(focus(), *text);
    }
    /// Types cells one under the other.
    void typecells(const std::vector<const char*>& cells) {
        for (const char* cell : cells) {
            type(cell);
            key(Qt::Key_Return);
        }
    }
    void press(const char* icon, Qt::MouseButton button = Qt::LeftButton) {
        QTest::mouseClick(child(icon), button);
    }
    QImage picture(const char* name) { return child(name)->grab().toImage(); }

    /// Keeps a picture of the window for looking at.
    void keep(const char* name) {
        const QString pictures = QStringLiteral(VANEX_TESTS_DIR "/../build/pictures");
        QDir().mkpath(pictures);
        EXPECT_TRUE(window->grab().save(pictures + QLatin1Char('/') + QString::fromLatin1(name)));
    }
};

/// Pixels of a picture that are not paper.
inline int inked(const QImage& image) {
    int count = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) count += qGray(image.pixel(x, y)) < 200;
    return count;
}
