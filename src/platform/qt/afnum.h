#pragma once

#include <QTimer>
#include <QToolButton>
#include <functional>

#include "platform/platform.h"
#include "platform/qt/promptform.h"

class QLineEdit;

/// An arrow that goes on while it is held: by its own count of repeats, from 0.
class HeldArrow : public QToolButton {
public:
    HeldArrow(Qt::ArrowType arrow, const QString& meaning);
    std::function<void(int held)> onStep;

private:
    QTimer repeat;
    int held = 0;
};

/// Entry of a number with increment arrows.
class afnum : public PromptForm {
public:
    afnum(const NumberPage& page, QWidget* parent, const QString& name = QStringLiteral("afnum"));
    std::string entry() const;

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void buildarrows(const NumberPage& page);
    void buildincrement();
    void step(int direction, int held);
    void changeincrement(int by);

    QLineEdit* value;
    QLabel* increment = nullptr;
    int keyHeld = 0;
};
