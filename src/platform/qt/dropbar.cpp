#include "platform/qt/dropbar.h"

#include "shell/words.h" // ahead of Qt, which has a global Display

#include <QApplication>
#include <QEvent>
#include <QHBoxLayout>
#include <QListWidget>
#include <QPainter>
#include <QStyledItemDelegate>
#include <QToolButton>
#include <algorithm>
#include <cstddef>

#include "platform/qt/text.h"
#include "session/session.h"
#include "shell/dropmenu.h"

namespace {

constexpr int pad = 10;
constexpr qsizetype letterLength = 4; ///< "N..."

/// Draws "N...New" with the letter set off in a column of its own: it is the key to press.
class LetterItem : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        const QFontMetrics metrics(option.font);
        const QString text = index.data().toString();
        return {letterwidth(metrics) + metrics.horizontalAdvance(text.mid(letterLength)) + 3 * pad,
                metrics.height() + pad};
    }
    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        const bool chosen = option.state & QStyle::State_Selected;
        const QPalette& palette = option.palette;
        if (chosen) painter->fillRect(option.rect, palette.highlight());
        const QString text = index.data().toString();
        QRect place = option.rect.adjusted(pad, 0, -pad, 0);
        QFont bold = option.font;
        bold.setBold(true);
        painter->setFont(bold);
        painter->setPen(chosen ? palette.highlightedText().color() : palette.link().color());
        painter->drawText(place, Qt::AlignVCenter | Qt::AlignLeft, text.left(1));
        place.setLeft(place.left() + letterwidth(QFontMetrics(option.font)));
        painter->setFont(option.font);
        painter->setPen(chosen ? palette.highlightedText().color() : palette.text().color());
        painter->drawText(place, Qt::AlignVCenter | Qt::AlignLeft, text.mid(letterLength));
    }

private:
    static int letterwidth(const QFontMetrics& metrics) {
        return 2 * metrics.horizontalAdvance(QLatin1Char('W'));
    }
};

/// A title of the bar: opens on press; while one is open, hovering opens its neighbour.
class DropTitle : public QToolButton {
public:
    DropTitle(int number, QWidget* parent) : QToolButton(parent), index(number) {
        setObjectName(QStringLiteral("Drop%1").arg(number));
        setAutoRaise(true);
        setFocusPolicy(Qt::TabFocus);
        connect(this, &QToolButton::clicked, this, [number] { dropmenupress(number); });
    }

protected:
    void enterEvent(QEnterEvent* event) override {
        QToolButton::enterEvent(event);
        if (session.dropMenuOpen == dropShown && session.dropMenuIndex != index) dropmenupress(index);
    }

private:
    int index;
};

} // namespace

DropBar::DropBar(QWidget* parent, QWidget* window) : QWidget(parent), list(new QListWidget(window)) {
    setObjectName(QStringLiteral("DropBar"));
    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(3, 2, 3, 0);
    row->setSpacing(2);
    for (int i = 0; i < dropMenus; ++i) {
        titles[static_cast<std::size_t>(i)] = new DropTitle(i, this);
        row->addWidget(titles[static_cast<std::size_t>(i)]);
    }
    list->setObjectName(QStringLiteral("List1"));
    list->setItemDelegate(new LetterItem(list));
    list->setFocusPolicy(Qt::NoFocus); // keys stay with the window, which hands them over
    list->setMouseTracking(true);
    list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    list->setFrameShape(QFrame::StyledPanel);
    list->hide();
    connect(list, &QListWidget::itemEntered, this, [this](QListWidgetItem* item) {
        session.dropMenuItem = static_cast<int16_t>(list->row(item));
        list->setCurrentItem(item);
    });
    connect(list, &QListWidget::itemClicked, this,
            [this](QListWidgetItem* item) { dropmenuchoose(list->row(item)); });
    retitle();
}

void DropBar::retitle() {
    for (int i = 0; i < dropMenus; ++i) {
        const QString title = qs(dropmenutitle(i));
        titles[static_cast<std::size_t>(i)]->setText(title);
        titles[static_cast<std::size_t>(i)]->setAccessibleName(title);
    }
    refresh();
}

void DropBar::fill() {
    const auto items = dropmenuitems(session.dropMenuIndex);
    list->clear();
    for (const std::string& item : items) list->addItem(qs(item));
    list->setAccessibleName(qs(dropmenutitle(session.dropMenuIndex)));
    list->setCurrentRow(std::clamp<int>(session.dropMenuItem, 0, std::max(list->count() - 1, 0)));
}

/// Under its title, as far left as it must to stay inside the window.
void DropBar::hang() {
    const QToolButton* const title = titles[static_cast<std::size_t>(session.dropMenuIndex)];
    const QWidget* const window = list->parentWidget();
    const int frame = 2 * list->frameWidth();
    int height = frame;
    for (int i = 0; i < list->count(); ++i) height += list->sizeHintForRow(i);
    const int width = std::min(list->sizeHintForColumn(0) + frame, window->width());
    const QPoint below = title->mapTo(window, QPoint(0, title->height()));
    list->setGeometry(std::clamp(below.x(), 0, window->width() - width), below.y(), width,
                      std::min(height, window->height() - below.y()));
}

void DropBar::refresh() {
    const bool open =
        session.dropMenuOpen == dropShown && session.dropMenuIndex >= 0 && session.dropMenuIndex < dropMenus;
    for (int i = 0; i < dropMenus; ++i)
        titles[static_cast<std::size_t>(i)]->setDown(open && i == session.dropMenuIndex);
    list->setVisible(open);
    if (!open) return;
    fill();
    hang();
    list->raise();
}

bool DropBar::owns(const QWidget* widget) const {
    return widget && (widget == this || isAncestorOf(widget) || widget == list || list->isAncestorOf(widget));
}
