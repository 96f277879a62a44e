#pragma once

#include <QWidget>
#include <vector>

#include "platform/platform.h"

class PlotPane;
class QHBoxLayout;
class QPlainTextEdit;
class QProgressBar;
class QStackedWidget;
class QTabBar;

/// The tabbed view of the session: plot, report and the pages of help. Holds no state of the session.
class FormMegaTest : public QWidget {
public:
    explicit FormMegaTest(QWidget* parent = nullptr);

    void showtab(ViewTab tab);  ///< brings a tab, and the window, to the front
    void refresh();             ///< plot, report and icons as the session has them
    void retitle();             ///< all texts again, after a change of language, font or colours
    void progress(double done); ///< 0 to 1; above 1 the gauge goes

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void buildicons();
    void buildpages();
    void buildsizes(QHBoxLayout* row);
    void fillreport();

    QTabBar* tabs;
    QStackedWidget* box;
    QWidget* icons;
    QProgressBar* gauge;
    PlotPane* plot = nullptr;
    QPlainTextEdit* report = nullptr;
};
