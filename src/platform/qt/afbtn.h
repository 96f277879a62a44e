#pragma once

#include "platform/platform.h"
#include "platform/qt/promptform.h"

/// The older button style: one button an item. For questions of a few answers.
class afbtn : public PromptForm {
public:
    afbtn(const MenuPage& page, QWidget* parent);

    int choice() const { return chosen; } ///< number of the item from 1; 0 on cancel

    /// True for a page of two to four answers to pick, all of them of a question: Yes, No, OK, Cancel.
    static bool suits(const MenuPage& page);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    std::vector<std::string> texts;
    int chosen = 0;
};
