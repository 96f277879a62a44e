#pragma once

#include "platform/platform.h"
#include "platform/qt/promptform.h"

class QSlider;

/// A value chosen between two ends.
class afslider : public PromptForm {
public:
    afslider(const SliderPage& page, QWidget* parent);
    double value() const; ///< the value it opened with, to the digit, until it is moved

private:
    QString valuetext(double v) const;

    double low, high, preset;
    QSlider* slider;
    QLabel* shown;
};
