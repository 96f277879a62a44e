#pragma once

#include "platform/platform.h"
#include "platform/qt/promptform.h"

class QComboBox;

/// Entry of a text, with a list of what was typed before.
class aftxt : public PromptForm {
public:
    aftxt(const TextPage& page, QWidget* parent);
    std::string entry() const;

private:
    QComboBox* text;
};
