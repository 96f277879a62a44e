#pragma once

#include <QWidget>
#include <array>

#include "session/shellstate.h"

class QListWidget;
class QToolButton;

/// The bar of the drop-downs and the list "List1" that hangs from it. Shows the drop-down as the session has
/// it; presses, hovers and choices go to the program.
class DropBar : public QWidget {
public:
    /// `window` is the widget that the list hangs over.
    DropBar(QWidget* parent, QWidget* window);

    void retitle();
    void refresh();                         ///< titles and list by the session
    bool owns(const QWidget* widget) const; ///< bar and list: a press elsewhere closes the drop-down

private:
    void fill();
    void hang();

    std::array<QToolButton*, dropMenus> titles{};
    QListWidget* list;
};
