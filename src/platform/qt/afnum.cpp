#include "platform/qt/afnum.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>

#include "platform/qt/text.h"
#include "shell/numberentry.h"

HeldArrow::HeldArrow(Qt::ArrowType arrow, const QString& meaning) {
    constexpr int firstPause = 400, pause = 60; // milliseconds
    setArrowType(arrow);
    setAccessibleName(meaning);
    setToolTip(meaning);
    setFocusPolicy(Qt::TabFocus);
    connect(this, &QToolButton::pressed, this, [this] {
        held = 0;
        if (onStep) onStep(held);
        repeat.start(firstPause);
    });
    connect(this, &QToolButton::released, &repeat, &QTimer::stop);
    connect(&repeat, &QTimer::timeout, this, [this] {
        repeat.setInterval(pause);
        if (onStep) onStep(++held);
    });
}

afnum::afnum(const NumberPage& page, QWidget* parent, const QString& name)
    : PromptForm(name, page.header, page.lead, parent),
      value(new QLineEdit(qs(page.value).trimmed())) {
    value->setObjectName(QStringLiteral("NumberEntry"));
    const QString lead = plainlead(page.lead).simplified();
    value->setAccessibleName(lead.isEmpty() ? plainlead(page.header).simplified() : lead);
    value->setMaxLength(400); // a number of the widest kind written out has fewer
    value->setMinimumWidth(QFontMetrics(font()).horizontalAdvance(QLatin1Char('0')) * 24);
    leadText->setBuddy(value);
    buildarrows(page);
    buildincrement();
    addbuttons();
    value->selectAll();
    value->setFocus();
}

void afnum::buildarrows(const NumberPage& page) {
    auto* grid = new QGridLayout;
    grid->addWidget(value, 0, 0, 2, 1);
    const auto add = [&](int row, Qt::ArrowType arrow, std::string_view word, int direction,
                         const char* name) {
        auto* button = new HeldArrow(arrow, qs(word));
        button->setObjectName(QLatin1String(name));
        button->onStep = [this, direction](int held) { step(direction, held); };
        auto* label = new QLabel(qs(word));
        label->setTextFormat(Qt::PlainText);
        label->setBuddy(button);
        grid->addWidget(button, row, 1);
        grid->addWidget(label, row, 2);
    };
    add(0, Qt::UpArrow, page.more, 1, "More");
    add(1, Qt::DownArrow, page.lower, -1, "Lower");
    grid->setColumnStretch(0, 1);
    body->addLayout(grid);
}

/// The line with the step and its own arrows.
void afnum::buildincrement() {
    auto* row = new QHBoxLayout;
    increment = new QLabel(qs(incrementline()));
    increment->setObjectName(QStringLiteral("IncrementLine"));
    increment->setTextFormat(Qt::PlainText);
    const auto add = [&](Qt::ArrowType arrow, const QString& meaning, int by, const char* name) {
        auto* button = new HeldArrow(arrow, meaning);
        button->setObjectName(QLatin1String(name));
        button->onStep = [this, by](int) { changeincrement(by); };
        row->addWidget(button);
    };
    add(Qt::LeftArrow, phrase(Word::Increment, " ", Word::Small), -1, "IncrementSmaller");
    add(Qt::RightArrow, phrase(Word::Increment, " ", Word::Big), 1, "IncrementLarger");
    row->addWidget(increment, 1);
    body->addLayout(row);
}

std::string afnum::entry() const { return utf8(value->text().trimmed()); }

void afnum::step(int direction, int held) {
    value->setText(qs(numberstepped(entry(), direction, held)).trimmed());
}

void afnum::changeincrement(int by) {
    incrementchange(by);
    increment->setText(qs(incrementline()));
}

/// Up and down step the entry as the arrows do, the page keys change the step.
void afnum::keyPressEvent(QKeyEvent* event) {
    keyHeld = event->isAutoRepeat() ? keyHeld + 1 : 0;
    switch (event->key()) {
    case Qt::Key_Up: return step(1, keyHeld);
    case Qt::Key_Down: return step(-1, keyHeld);
    case Qt::Key_PageUp: return changeincrement(1);
    case Qt::Key_PageDown: return changeincrement(-1);
    default: PromptForm::keyPressEvent(event);
    }
}
