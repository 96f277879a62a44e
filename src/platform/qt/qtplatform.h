#pragma once

#include <QWidget>
#include <memory>
#include <string>

#include "platform/system.h"

/// The desktop: prompts are forms, the clipboard is the desktop's, paper its printers. Lives as long as the
/// QApplication.
class QtPlatform : public Platform {
public:
    explicit QtPlatform(std::string startedAs);
    ~QtPlatform() override;

    /// The main window, and the widget that forms stand over. Before it, and after a null, window calls have
    /// no effect but one: a caption while the program starts is shown on a start window.
    void setwindow(MainWindow* window, QWidget* parent);

    Prompts& prompts() override { return *forms; }
    MainWindow& window() override;
    Clock& clock() override { return *today; }
    System& system() override { return machine; }
    Clipboard& clipboard() override { return *board; }
    Pictures& pictures() override { return *painter; }
    Printer* printer() override { return paper.get(); }

private:
    NativeSystem machine;
    std::unique_ptr<MainWindow> quiet;
    MainWindow* shown = nullptr;
    std::unique_ptr<Prompts> forms;
    std::unique_ptr<Clock> today;
    std::unique_ptr<Clipboard> board;
    std::unique_ptr<Pictures> painter;
    std::unique_ptr<Printer> paper;
};
