#include "platform/qt/afmenu.h"

#include <QKeyEvent>
#include <QPainter>
#include <QPainterPath>
#include <QScrollBar>
#include <QStyle>
#include <QTextLayout>
#include <algorithm>

#include "platform/qt/style.h"
#include "platform/qt/text.h"
#include "shell/prompts.h"

namespace {

constexpr int keyRoom = 30;   ///< width of the place of the letter
constexpr int rowPadding = 5; ///< above and below the text of a row
constexpr int endPadding = 10;
constexpr int widest = 760; ///< texts beyond it go on in a further line

/// An item text taken apart: "A...Activate [On]".
struct ItemParts {
    QString key, label, value; ///< a heading has no key; the value with its brackets
};

ItemParts partsof(const std::string& item) {
    ItemParts parts;
    QString text = qs(item).replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    if (itempickable(item)) {
        const qsizetype dots = text.indexOf(QStringLiteral("..."));
        parts.key = text.left(dots);
        text = text.mid(dots + 3);
    } else if (text == QStringLiteral("...")) {
        text.clear();
    }
    const qsizetype bracket = text.lastIndexOf(QLatin1Char('['));
    if (bracket > 0 && text.trimmed().endsWith(QLatin1Char(']'))) {
        parts.value = text.mid(bracket).trimmed();
        text.truncate(bracket);
    }
    parts.label = text.trimmed();
    return parts;
}

} // namespace

/// One item of a page. The keyboard belongs to the page; a row takes the focus to be read aloud.
class afmenu::Row : public QAbstractButton {
public:
    Row(const std::string& item, QWidget* parent) : QAbstractButton(parent), parts(partsof(item)) {
        setObjectName(QStringLiteral("RichTextMItem"));
        const QString name =
            QStringList{parts.key, parts.label, parts.value}.join(QLatin1Char(' ')).trimmed();
        setAccessibleName(name);
        setEnabled(pickable());
        setFocusPolicy(Qt::NoFocus);
        setAttribute(Qt::WA_Hover);
        QFont own = font();
        own.setBold(!pickable());
        setFont(own);
    }

    bool pickable() const { return !parts.key.isEmpty(); }
    void setselected(bool is) {
        inHand = is;
        setFocusPolicy(is ? Qt::StrongFocus : Qt::NoFocus);
        update();
    }

    /// Width that shows everything in one line.
    int naturalwidth() const {
        const QFontMetrics metrics(font());
        int width = 0;
        for (const QString& line : whole().split(QLatin1Char('\n')))
            width = std::max(width, metrics.horizontalAdvance(line));
        return keyRoom + 2 * endPadding + width + 2;
    }
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override {
        const QFontMetrics metrics(font());
        const int least = metrics.height();
        if (whole().isEmpty()) return least / 2;
        const int across = std::max(width - keyRoom - 2 * endPadding, 40);
        const QRect text = metrics.boundingRect(QRect(0, 0, across, 100000), flags, whole());
        return std::max(text.height(), least) + 2 * rowPadding;
    }
    QSize sizeHint() const override {
        const int width = std::min(naturalwidth(), widest);
        return {width, heightForWidth(width)};
    }
    QSize minimumSizeHint() const override { return {160, heightForWidth(width())}; }

    std::function<void()> onClick;

protected:
    void keyPressEvent(QKeyEvent* event) override { event->ignore(); }
    void keyReleaseEvent(QKeyEvent* event) override { event->ignore(); }
    void mousePressEvent(QMouseEvent* event) override { event->accept(); }
    void mouseReleaseEvent(QMouseEvent* event) override {
        if (pickable() && rect().contains(event->position().toPoint()) && onClick) onClick();
    }
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        paintground(painter);
        if (pickable()) paintkey(painter);
        painttext(painter);
    }

private:
    static constexpr int flags = Qt::AlignLeft | Qt::AlignVCenter | Qt::TextWordWrap;

    QString whole() const {
        return parts.value.isEmpty() ? parts.label : parts.label + QStringLiteral("  ") + parts.value;
    }
    QColor ink() const {
        return inHand ? tones().onAccent : palette().color(QPalette::Active, QPalette::WindowText);
    }

    void paintground(QPainter& painter) const {
        if (!inHand && !(underMouse() && pickable())) return;
        painter.setPen(Qt::NoPen);
        painter.setBrush(inHand ? tones().accent : tones().hover);
        painter.drawRoundedRect(rect().adjusted(1, 1, -1, -1), 5, 5);
    }

    /// The letter in a key of its own.
    void paintkey(QPainter& painter) const {
        const QFontMetrics metrics(font());
        const int side = metrics.height() + 2;
        const QRectF key(endPadding - 2, rowPadding - 1, side, side);
        painter.setPen(QPen(inHand ? tones().onAccent : tones().edge, 1));
        painter.setBrush(inHand ? Qt::NoBrush : QBrush(tones().panel));
        painter.drawRoundedRect(key.adjusted(0.5, 0.5, -0.5, -0.5), 4, 4);
        QFont letter = font();
        letter.setBold(true);
        painter.setFont(letter);
        painter.setPen(inHand ? tones().onAccent : tones().accent);
        painter.drawText(key, Qt::AlignCenter, parts.key);
        painter.setFont(font());
    }

    void painttext(QPainter& painter) const {
        const int left = pickable() ? keyRoom + endPadding : endPadding;
        const QRect place = rect().adjusted(left, 0, -endPadding, 0);
        const QFontMetrics metrics(font());
        painter.setPen(ink());
        const bool oneLine = metrics.horizontalAdvance(whole()) <= place.width();
        if (parts.value.isEmpty() || !oneLine || whole().contains(QLatin1Char('\n'))) {
            painter.drawText(place, flags, whole());
            return;
        }
        painter.drawText(place, flags, parts.label);
        painter.setPen(inHand ? tones().onAccent : tones().quiet);
        const int gone = metrics.horizontalAdvance(parts.label + QStringLiteral("  "));
        painter.drawText(place.adjusted(gone, 0, 2, 0), Qt::AlignLeft | Qt::AlignVCenter, parts.value);
    }

    ItemParts parts;
    bool inHand = false;
};

afmenu::afmenu(const MenuPage& page, QWidget* parent)
    : PromptForm(QStringLiteral("afmenu"), page.header, page.lead, parent),
      texts(page.items.begin(), page.items.end()),
      rowsOfSpace(page.rows),
      openAt(page.scroll ? *page.scroll : 0) {
    leadText->setObjectName(QStringLiteral("RichTextMHeader"));
    buildrows(page);
    addbuttons(qs(page.accept), qs(page.cancel));
    for (QPushButton* button : {acceptButton, cancelButton})
        if (button) button->installEventFilter(this);
    int first = 0;
    for (std::size_t i = 0; i < rows.size() && first == 0; ++i)
        if (rows[i]->pickable()) first = static_cast<int>(i) + 1;
    const bool good = page.preset >= 1 && page.preset <= static_cast<int>(rows.size())
                      && rows[static_cast<std::size_t>(page.preset - 1)]->pickable();
    select(good ? page.preset : first);
}

void afmenu::buildrows(const MenuPage&) {
    area = new QScrollArea;
    area->setFrameShape(QFrame::NoFrame);
    area->setWidgetResizable(true);
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area->setFocusPolicy(Qt::NoFocus);
    area->verticalScrollBar()->setObjectName(QStringLiteral("MScroll"));
    area->verticalScrollBar()->setAccessibleName(phrase(Word::List));
    auto* list = new QWidget;
    auto* column = new QVBoxLayout(list);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(1);
    for (std::size_t i = 0; i < texts.size(); ++i) {
        auto* row = new Row(texts[i], list);
        row->onClick = [this, number = static_cast<int>(i) + 1] { take(number); };
        column->addWidget(row);
        rows.push_back(row);
    }
    column->addStretch();
    area->setWidget(list);
    body->addWidget(area, 1);
}

/// As wide as the longest text, as high as the screen or the asked-for lines allow.
void afmenu::fit() {
    PromptForm::fit();
    const int scroll = area->verticalScrollBar()->sizeHint().width();
    const QMargins margins = body->contentsMargins();
    const int aside = margins.left() + margins.right() + scroll;
    int across = leadArea->minimumWidth();
    for (const Row* row : rows) across = std::max(across, std::min(row->naturalwidth(), widest));
    across = std::min(across, room().width() - aside);
    int tall = 0, shownTall = 0;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        tall += rows[i]->heightForWidth(across) + (i > 0 ? 1 : 0);
        if (static_cast<int>(i) + 1 == rowsOfSpace) shownTall = tall;
    }
    for (Row* row : rows) row->setFixedHeight(row->heightForWidth(across));
    if (shownTall == 0) shownTall = tall;
    area->setMinimumWidth(across + (shownTall < tall ? scroll : 0));
    const int chrome = margins.top() + margins.bottom() + body->spacing() * 2
                       + (leadArea->isHidden() ? 0 : leadArea->height())
                       + (acceptButton ? acceptButton->sizeHint().height() : 0);
    const int allowed = std::max(room().height() - chrome, 3 * QFontMetrics(font()).height());
    if (shownTall > allowed) area->setMinimumWidth(across + scroll);
    area->setFixedHeight(std::min(shownTall, allowed));
    adjustSize();
    resize(size().boundedTo(room()));
}

void afmenu::showEvent(QShowEvent* event) {
    PromptForm::showEvent(event);
    layout()->activate();
    const int last = static_cast<int>(rows.size()) - 1;
    if (last < 0) return;
    area->widget()->layout()->activate();
    const Row* top = rows[static_cast<std::size_t>(std::clamp(openAt, 0, last))];
    area->verticalScrollBar()->setValue(top->y());
    if (selected > 0) rows[static_cast<std::size_t>(selected - 1)]->setFocus();
    if (openAt == 0) select(selected);
}

int afmenu::firstrow() const {
    const int top = area->verticalScrollBar()->value();
    for (std::size_t i = 0; i < rows.size(); ++i)
        if (rows[i]->y() + rows[i]->height() / 2 >= top) return static_cast<int>(i);
    return 0;
}

void afmenu::select(int number) {
    if (number < 1) return;
    if (selected > 0) rows[static_cast<std::size_t>(selected - 1)]->setselected(false);
    selected = number;
    Row* row = rows[static_cast<std::size_t>(number - 1)];
    row->setselected(true);
    if (!isVisible()) return;
    row->setFocus();
    area->ensureWidgetVisible(row, 0, 2);
}

/// The next item that can be picked, headings skipped, at least `far` rows away as long as there is one.
void afmenu::step(int direction, int far) {
    const int count = static_cast<int>(rows.size());
    int best = 0;
    for (int at = selected + direction, gone = 1; at >= 1 && at <= count; at += direction, ++gone) {
        if (!rows[static_cast<std::size_t>(at - 1)]->pickable()) continue;
        best = at;
        if (gone >= far) break;
    }
    if (best > 0) select(best);
}

void afmenu::take(int number) {
    chosen = number;
    QDialog::accept();
}

void afmenu::accept() {
    if (selected > 0) take(selected);
}

void afmenu::keyPressEvent(QKeyEvent* event) {
    const int count = static_cast<int>(rows.size());
    const int page =
        std::max(1, rows.empty() ? 1 : area->viewport()->height() / std::max(rows[0]->height(), 1));
    switch (event->key()) {
    case Qt::Key_Up: return step(-1, 1);
    case Qt::Key_Down: return step(1, 1);
    case Qt::Key_PageUp: return step(-1, page);
    case Qt::Key_PageDown: return step(1, page);
    case Qt::Key_Home: return step(-1, count);
    case Qt::Key_End: return step(1, count);
    case Qt::Key_Return:
    case Qt::Key_Enter: return accept();
    default: break;
    }
    const std::string typed = utf8(event->text());
    const bool plain = !(event->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier));
    const int number = plain && typed.size() == 1 ? itemofkey(texts, typed.front()) : 0;
    if (number > 0) return take(number);
    PromptForm::keyPressEvent(event);
}

/// Letters and arrows act on the page from its buttons, too.
bool afmenu::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        auto* key = static_cast<QKeyEvent*>(event);
        switch (key->key()) {
        case Qt::Key_Space:
        case Qt::Key_Return:
        case Qt::Key_Enter:
        case Qt::Key_Tab:
        case Qt::Key_Backtab:
        case Qt::Key_Escape: break;
        default: keyPressEvent(key); return true;
        }
    }
    return PromptForm::eventFilter(watched, event);
}

namespace {

class Message : public PromptForm {
public:
    Message(std::string_view header, std::string_view text, QWidget* parent)
        : PromptForm(QStringLiteral("afmenu"), header, text, parent) {
        leadText->setObjectName(QStringLiteral("RichTextMHeader"));
        addbuttons(phrase(Word::OK), {});
        acceptButton->setFocus();
    }
};

} // namespace

void afmenu::message(std::string_view header, std::string_view text, QWidget* parent) {
    Message(header, text, parent).exec();
}
