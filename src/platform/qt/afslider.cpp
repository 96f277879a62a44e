#include "platform/qt/afslider.h"

#include <QHBoxLayout>
#include <QSlider>
#include <algorithm>
#include <cmath>

#include "data/numbertext.h"
#include "platform/qt/text.h"

namespace {

constexpr int steps = 1000;

int stepof(double value, double low, double high) {
    if (!(high > low)) return 0;
    return static_cast<int>(std::lround(std::clamp((value - low) / (high - low), 0.0, 1.0) * steps));
}

} // namespace

afslider::afslider(const SliderPage& page, QWidget* parent)
    : PromptForm(QStringLiteral("afslider"), page.header, page.lead, parent),
      low(page.low),
      high(page.high),
      preset(page.value),
      slider(new QSlider(Qt::Horizontal)),
      shown(new QLabel) {
    slider->setObjectName(QStringLiteral("Slider"));
    const QString lead = plainlead(page.lead).simplified();
    slider->setAccessibleName(lead.isEmpty() ? plainlead(page.header).simplified() : lead);
    slider->setRange(0, steps);
    slider->setSingleStep(steps / 100);
    slider->setPageStep(steps / 10);
    slider->setValue(stepof(preset, low, high));
    slider->setMinimumWidth(320);
    shown->setObjectName(QStringLiteral("SliderValue"));
    shown->setAlignment(Qt::AlignCenter);
    shown->setText(valuetext(preset));
    connect(slider, &QSlider::valueChanged, this, [this] { shown->setText(valuetext(value())); });
    auto* row = new QHBoxLayout;
    row->addWidget(new QLabel(valuetext(low)));
    row->addWidget(slider, 1);
    row->addWidget(new QLabel(valuetext(high)));
    body->addWidget(shown);
    body->addLayout(row);
    addbuttons();
    slider->setFocus();
}

double afslider::value() const {
    if (slider->value() == stepof(preset, low, high)) return preset;
    const double part = static_cast<double>(slider->value()) / steps;
    return low * (1 - part) + high * part;
}

QString afslider::valuetext(double v) const {
    std::string text;
    appendtrimmed(text, static_cast<float>(v));
    wordnumber(text);
    return qs(text).trimmed();
}
