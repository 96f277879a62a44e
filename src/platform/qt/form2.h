#pragma once

#include <QElapsedTimer>
#include <QMainWindow>
#include <QPointer>
#include <array>
#include <functional>

#include "platform/platform.h"

class DataGrid;
class DropBar;
class FormMegaTest;
class IconStrip;
class PlotView;
class QHBoxLayout;
class QLabel;
class QProgressBar;
class QPushButton;
class QSplitter;
class QToolButton;

/// The main window: drop-downs, icon strip, data grid and plot over one session. Hands every event to the
/// program's functions and shows the session as it stands; holds nothing of it.
class Form2 : public QMainWindow, public MainWindow {
public:
    Form2();

    // MainWindow
    void caption(std::string_view text) override;
    void readswitches() override;
    void closepopups() override;
    void repainticons() override;
    void repaintgrid() override;
    void repaintplot() override;
    bool pendingevents() override;
    void explain(int command, std::string_view text, int milliseconds) override;
    void repaintmenu() override;
    void repaintcell() override;
    void showview(ViewTab tab) override;
    void showabout() override;
    void retitle() override;
    void progress(double done) override;
    void leave() override;

    /// Called once, when the window stands on the screen.
    std::function<void()> painted;

    void openrecent(); ///< a menu of the data files opened or saved last

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    /// A toggle beside the plot and the setting that it stands for.
    struct Switch {
        QToolButton* button = nullptr;
        bool turned = false; ///< by the user, and not yet taken into the setting
    };

    void buildtop();
    void buildpanes();
    void buildfoot();
    void buildswitches(QHBoxLayout* row);
    void buildshortcuts();
    void placewindow();
    void keeprectangle();
    void settle(QLabel* label, const QWidget* beside) const;
    void titlewindow();
    void nextpane();
    void fullview();
    bool pressedoutside(QObject* watched, const QEvent& event) const;

    DropBar* bar = nullptr;
    IconStrip* icons = nullptr;
    QPushButton* wizard = nullptr;
    QToolButton* former = nullptr;
    QSplitter* panes = nullptr;
    QLabel* format = nullptr;
    DataGrid* grid = nullptr;
    PlotView* plot = nullptr;
    std::array<Switch, 3> switches;
    QLabel* status = nullptr;
    QLabel* stopHint = nullptr;
    QProgressBar* gauge = nullptr;
    QLabel* floating = nullptr; ///< the label that explains an icon
    QPointer<FormMegaTest> view;

    bool pumping = false; ///< pendingevents is letting events run
    bool escaped = false; ///< Escape came meanwhile
    QElapsedTimer longRun;
    QElapsedTimer sinceCaption;
};
