#include "platform/qt/form1.h"

#include <QAbstractButton>
#include <QApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QPainterPath>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QTimer>
#include <QVBoxLayout>
#include <cmath>
#include <iterator>

#include "platform/qt/style.h"
#include "platform/qt/text.h"
#include "session/startwindow.h"

/// The title picture: points on a fitted line, the product, and a line about what it can do. Painted, so that
/// it is crisp on any screen.
class TitlePicture : public QAbstractButton {
public:
    TitlePicture() {
        setObjectName(QStringLiteral("TitlePicture"));
        setFocusPolicy(Qt::TabFocus);
        setCursor(Qt::PointingHandCursor);
    }
    void settexts(const QString& productLine, const QString& lineInView) {
        product = productLine;
        line = lineInView;
        setAccessibleName(product + QLatin1Char(' ') + line);
        update();
    }
    QSize sizeHint() const override { return {600, 190}; }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        QLinearGradient ground(0, 0, width(), height());
        ground.setColorAt(0, QColor(0x12, 0x2B, 0x4D));
        ground.setColorAt(1, QColor(0x1F, 0x5F, 0xAD));
        painter.fillRect(rect(), ground);
        paintplot(painter);
        painttext(painter);
        if (!hasFocus()) return;
        painter.setPen(QPen(Qt::white, 2, Qt::DotLine));
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(rect().adjusted(3, 3, -4, -4));
    }

private:
    /// A probability plot in small: decades, bounds, a line and its points.
    void paintplot(QPainter& painter) const {
        const QRectF area(width() * 0.52, 18, width() * 0.44, height() - 36.0);
        painter.setPen(QPen(QColor(255, 255, 255, 50), 1));
        for (const double part : {0.0, 0.301, 0.477, 0.602, 0.699, 0.778, 0.845, 0.903, 0.954, 1.0}) {
            const double x = std::round(area.left() + area.width() * part) + 0.5;
            painter.drawLine(QPointF(x, area.top()), QPointF(x, area.bottom()));
        }
        for (int row = 0; row <= 5; ++row) {
            const double y = std::round(area.top() + area.height() * row / 5.0) + 0.5;
            painter.drawLine(QPointF(area.left(), y), QPointF(area.right(), y));
        }
        const auto at = [&](double part, double off) {
            return QPointF(area.left() + area.width() * part,
                           area.bottom() - area.height() * (0.06 + 0.86 * part + off));
        };
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(QColor(255, 255, 255, 130), 1.2, Qt::DashLine));
        for (const double side : {-1.0, 1.0}) {
            QPainterPath bound(at(0.04, side * 0.13));
            bound.quadTo(at(0.5, side * 0.03), at(0.96, side * 0.09));
            painter.drawPath(bound);
        }
        painter.setPen(QPen(QColor(0xFF, 0xC8, 0x57), 2.2));
        painter.drawLine(at(0.03, 0), at(0.97, 0));
        painter.setPen(Qt::NoPen);
        painter.setBrush(Qt::white);
        constexpr double points[][2] = {{0.10, -0.03}, {0.24, 0.025}, {0.36, 0.01},  {0.47, -0.02},
                                        {0.57, 0.012}, {0.67, 0.018}, {0.78, -0.01}, {0.90, 0.02}};
        for (const auto& point : points) painter.drawEllipse(at(point[0], point[1]), 3.6, 3.6);
    }

    void painttext(QPainter& painter) const {
        const QRect area = rect().adjusted(24, 20, -width() / 2, -16);
        QFont title = font();
        title.setBold(true);
        title.setPixelSize(34);
        while (QFontMetrics(title).horizontalAdvance(product) > area.width() && title.pixelSize() > 14)
            title.setPixelSize(title.pixelSize() - 1);
        painter.setFont(title);
        painter.setPen(Qt::white);
        painter.drawText(area, Qt::AlignLeft | Qt::AlignTop, product);
        QFont small = font();
        small.setPixelSize(16);
        painter.setFont(small);
        painter.setPen(QColor(0xFF, 0xE3, 0xA8));
        painter.drawText(area, Qt::AlignLeft | Qt::AlignBottom | Qt::TextWordWrap, line);
    }

    QString product, line;
};

namespace {

QPointer<Form1> waiting;

const char* const panelNames[] = {"TitlePanel", "AuthorPanel", "AdvisorPanel", "AddressPanel",
                                  "DisclaimerPanel"};

QString joined(const std::vector<std::string>& lines) {
    QString text;
    for (const std::string& line : lines) {
        if (!text.isEmpty()) text += QLatin1Char('\n');
        text += qs(line);
    }
    return text;
}

} // namespace

Form1::Form1(Purpose wanted, QWidget* parent)
    : QDialog(parent),
      purpose(wanted),
      picture(new TitlePicture),
      panelArea(new QScrollArea) {
    tones();
    closewaiting();
    setObjectName(QStringLiteral("Form1"));
    setModal(true);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 14);
    column->setSpacing(10);
    column->addWidget(picture);
    connect(picture, &QAbstractButton::clicked, this, &Form1::picturepressed);
    buildpanels();
    buildbuttons();
    settexts();
    (agree ? agree : leave)->setFocus();
}

void Form1::buildpanels() {
    auto* inner = new QWidget;
    auto* grid = new QGridLayout(inner);
    grid->setContentsMargins(24, 4, 24, 4);
    grid->setVerticalSpacing(10);
    grid->setHorizontalSpacing(24);
    for (const char* name : panelNames) {
        auto* panel = new QLabel;
        panel->setObjectName(QLatin1String(name));
        panel->setTextFormat(Qt::PlainText);
        panel->setWordWrap(true);
        panel->setTextInteractionFlags(Qt::TextSelectableByMouse);
        panels.push_back(panel);
    }
    QFont strap = font();
    strap.setBold(true);
    panels[0]->setFont(strap);
    grid->addWidget(panels[0], 0, 0, 1, 3);
    for (int i = 1; i <= 3; ++i) grid->addWidget(panels[static_cast<std::size_t>(i)], 1, i - 1, Qt::AlignTop);
    for (int i = 0; i < 3; ++i) grid->setColumnStretch(i, 1);
    grid->addWidget(panels[4], 2, 0, 1, 3);
    panelArea->setFrameShape(QFrame::NoFrame);
    panelArea->setWidgetResizable(true);
    panelArea->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    panelArea->setFocusPolicy(Qt::NoFocus);
    panelArea->setWidget(inner);
    layout()->addWidget(panelArea);
}

void Form1::buildbuttons() {
    auto* row = new QHBoxLayout;
    row->setContentsMargins(24, 0, 24, 0);
    const auto add = [&](const char* name, auto slot) {
        auto* button = new QPushButton;
        button->setObjectName(QLatin1String(name));
        connect(button, &QPushButton::clicked, this, slot);
        row->addWidget(button);
        return button;
    };
    if (purpose == Purpose::agreement) {
        language = add("LanguageButton", &Form1::chooselanguage);
        row->addStretch();
        agree = add("AgreeButton", &QDialog::accept);
        leave = add("ExitButton", &QDialog::reject);
        agree->setDefault(true);
    } else {
        row->addStretch();
        leave = add("OkButton", &QDialog::accept);
        leave->setDefault(true);
    }
    static_cast<QVBoxLayout*>(layout())->addLayout(row);
}

void Form1::settexts() {
    const StartTexts texts = starttexts();
    setWindowTitle(purpose == Purpose::about ? phrase(Word::About) : qs(texts.product));
    panels[0]->setText(qs(texts.strap));
    panels[1]->setText(joined(texts.authors));
    panels[2]->setText(joined(texts.advisor));
    panels[3]->setText(joined(texts.address));
    panels[4]->setText(joined(texts.disclaimer));
    const auto name = [](QPushButton* button, const std::string& text) {
        if (!button) return;
        button->setText(qs(text).replace(QLatin1Char('&'), QStringLiteral("&&")));
        button->setAccessibleName(qs(text));
    };
    name(agree, texts.agree);
    name(language, "<L> " + utf8(phrase(Word::Language)));
    name(leave, purpose == Purpose::agreement ? texts.exit : texts.ok);
    const std::string& line = feature < texts.features.size() ? texts.features[feature] : texts.language;
    picture->settexts(qs(texts.product), qs(line));
    fit();
}

/// As wide as the buttons ask, as high as the panels need at that width, within the screen.
void Form1::fit() {
    const QSize most = (screen() ? screen()->availableGeometry().size() : QSize(1024, 768)) * 0.92;
    int buttons = 48 + layout()->spacing() * 4;
    for (const QPushButton* button : {agree, leave, language})
        if (button) buttons += button->sizeHint().width();
    const int across = std::min(std::max(600, buttons), most.width());
    const int tall = panelArea->widget()->layout()->totalHeightForWidth(across);
    const int rest = picture->sizeHint().height() + leave->sizeHint().height() + 50;
    panelArea->setFixedHeight(std::min(tall, std::max(60, most.height() - rest)));
    picture->setFixedHeight(picture->sizeHint().height());
    setFixedWidth(across);
    adjustSize();
}

void Form1::hidepanels() {
    panelArea->hide();
    for (QPushButton* button : {agree, leave, language})
        if (button) button->hide();
    layout()->setContentsMargins(0, 0, 0, 0);
    adjustSize();
}

void Form1::splash() {
    constexpr int milliseconds = 1200;
    hidepanels();
    QTimer::singleShot(milliseconds, this, &QDialog::accept);
    exec();
}

void Form1::showwaiting(const QString& caption) {
    closewaiting();
    auto* form = new Form1(Purpose::about);
    form->setAttribute(Qt::WA_DeleteOnClose);
    form->setModal(false);
    form->hidepanels();
    form->setWindowTitle(caption);
    form->picture->settexts(qs(starttexts().product), caption);
    form->show();
    waiting = form;
    QApplication::processEvents(
        QEventLoop::ExcludeUserInputEvents); // it is to be seen before the step begins
}

void Form1::closewaiting() {
    if (waiting) waiting->close();
    waiting = nullptr;
}

void Form1::chooselanguage() {
    if (choosestartlanguage()) settexts();
}

/// The next line; a press on the line of the language asks for it.
void Form1::picturepressed() {
    const std::size_t count = starttexts().features.size();
    if (purpose == Purpose::agreement && feature == count) chooselanguage();
    const std::size_t lines = purpose == Purpose::agreement ? count + 1 : count;
    feature = (feature + 1) % lines;
    settexts();
}

void Form1::keyPressEvent(QKeyEvent* event) {
    if (purpose == Purpose::agreement && !panelArea->isHidden()) {
        switch (event->key()) {
        case Qt::Key_Y: return accept();
        case Qt::Key_X: return reject();
        case Qt::Key_L: return chooselanguage();
        default: break;
        }
    }
    QDialog::keyPressEvent(event);
}
