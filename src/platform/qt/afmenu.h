#pragma once

#include <QAbstractButton>
#include <vector>

#include "platform/platform.h"
#include "platform/qt/promptform.h"

/// A letter-keyed page: a key picks the item with that first letter, the arrows move the selection, Enter
/// accepts it, Esc cancels, any click accepts the item under the mouse.
class afmenu : public PromptForm {
public:
    afmenu(const MenuPage& page, QWidget* parent);

    int choice() const { return chosen; } ///< number of the item from 1; 0 on cancel
    int firstrow() const;                 ///< first row in view, from 0

    /// A text with one OK.
    static void message(std::string_view header, std::string_view text, QWidget* parent);

    void accept() override; ///< takes the selected item; nothing happens while there is none

protected:
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void fit() override;

private:
    class Row;
    void buildrows(const MenuPage& page);
    void select(int number);
    void step(int direction, int rows);
    void take(int number);

    std::vector<std::string> texts;
    std::vector<Row*> rows;
    QScrollArea* area = nullptr;
    int rowsOfSpace;
    int openAt;
    int selected = 0;
    int chosen = 0;
};
