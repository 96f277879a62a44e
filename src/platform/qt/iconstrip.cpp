#include "platform/qt/iconstrip.h"

#include <QMouseEvent>
#include <QResizeEvent>
#include <QToolButton>
#include <algorithm>

#include "platform/qt/icons.h"
#include "platform/qt/text.h"
#include "session/session.h"
#include "shell/commands.h"
#include "shell/commandtable.h"

namespace {

constexpr int side = 34;    ///< of a button
constexpr int picture = 22; ///< of its icon
constexpr int gap = 9;      ///< between groups
constexpr int margin = 3;

/// A button of a command: the left button runs it, the right one explains it.
class CommandIcon : public QToolButton {
public:
    CommandIcon(int command, QWidget* parent) : QToolButton(parent), number(command) {
        setObjectName(QStringLiteral("Image1_%1").arg(command));
        setAutoRaise(true);
        setFixedSize(side, side);
        setIconSize(QSize(picture, picture));
        setFocusPolicy(Qt::TabFocus); // a press leaves the focus with grid or plot
        connect(this, &QToolButton::clicked, this, [command] { iconpress(command, primaryPress); });
    }

protected:
    void mousePressEvent(QMouseEvent* event) override {
        if (event->button() == Qt::RightButton) {
            iconpress(number, secondaryPress);
            return;
        }
        QToolButton::mousePressEvent(event);
    }

private:
    int number;
};

} // namespace

IconStrip::IconStrip(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("Image1"));
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
    retitle();
}

void IconStrip::rebuild() {
    for (QToolButton* const button : buttons)
        if (button) {
            button->hide();
            button->setObjectName(QString()); // the name goes to its successor
            button->deleteLater();            // it may be the one that was pressed
        }
    buttons.clear();
    for (const int number : shown) {
        if (number == iconGap) {
            buttons.push_back(nullptr);
            continue;
        }
        auto* const button = new CommandIcon(number, this);
        const Command* const command = commandof(number);
        button->setIcon(tintedicon(qs(command ? command->icon : "")));
        button->show();
        buttons.push_back(button);
    }
    arrange(width(), true);
    updateGeometry();
}

void IconStrip::retitle() {
    const auto strip = iconstrip();
    if (!std::equal(strip.begin(), strip.end(), shown.begin(), shown.end())) {
        shown.assign(strip.begin(), strip.end());
        rebuild();
    }
    for (std::size_t i = 0; i < buttons.size(); ++i) {
        if (!buttons[i]) continue;
        buttons[i]->setAccessibleName(qs(commandname(shown[i])));
        const bool silent = session.informationDisplay == noInformation;
        buttons[i]->setToolTip(silent ? QString() : qs(commandtip(shown[i])));
    }
}

const QWidget* IconStrip::button(int command) const {
    for (std::size_t i = 0; i < buttons.size(); ++i)
        if (buttons[i] && shown[i] == command) return buttons[i];
    return nullptr;
}

/// Places the buttons from left to right, a row under the other; the height that they take.
int IconStrip::arrange(int width, bool place) const {
    int x = margin;
    int y = margin;
    for (QToolButton* const button : buttons) {
        if (!button) {
            x += x > margin ? gap : 0;
            continue;
        }
        if (x > margin && x + side > width - margin) {
            x = margin;
            y += side;
        }
        if (place) button->move(x, y);
        x += side;
    }
    return y + side + margin;
}

QSize IconStrip::sizeHint() const {
    int width = 2 * margin;
    for (const QToolButton* const button : buttons) width += button ? side : gap;
    return {width, side + 2 * margin};
}

QSize IconStrip::minimumSizeHint() const { return {8 * side, side + 2 * margin}; }

void IconStrip::resizeEvent(QResizeEvent* event) {
    arrange(event->size().width(), true);
    setFixedHeight(heightForWidth(event->size().width()));
}
