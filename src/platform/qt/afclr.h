#pragma once

#include <vector>

#include "platform/platform.h"
#include "platform/qt/promptform.h"

class QAbstractButton;

/// The colours of the session to choose from, with their numbers.
class afclr : public PromptForm {
public:
    afclr(const ColorPage& page, QWidget* parent);
    int choice() const { return chosen; } ///< colour number

    void accept() override;

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void select(int number);

    std::vector<QAbstractButton*> swatches;
    int chosen = 0;
};
