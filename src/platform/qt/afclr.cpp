#include "platform/qt/afclr.h"

#include <QAbstractButton>
#include <QGridLayout>
#include <QKeyEvent>
#include <QPainter>
#include <algorithm>

#include "platform/qt/style.h"
#include "platform/qt/text.h"

namespace {

constexpr int across = 8;

/// One colour with its number. The keyboard belongs to the page.
class Swatch : public QAbstractButton {
public:
    Swatch(int32_t rgb, int number) : colour(static_cast<QRgb>(rgb)), text(QString::number(number)) {
        setObjectName(QStringLiteral("Swatch%1").arg(number));
        setAccessibleName(phrase(Word::Color, " ", number) + QLatin1Char(' ') + colour.name());
        setToolTip(accessibleName());
        setFixedSize(48, 40);
        setCheckable(true);
        setAutoExclusive(true);
        setFocusPolicy(Qt::ClickFocus);
    }

protected:
    void keyPressEvent(QKeyEvent* event) override { event->ignore(); }
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(isChecked() ? QPen(tones().accent, 3) : QPen(tones().edge, 1));
        painter.setBrush(palette().base());
        painter.drawRoundedRect(QRectF(rect()).adjusted(2, 2, -2, -2), 5, 5);
        painter.setPen(QPen(tones().edge, 1));
        painter.setBrush(colour);
        painter.drawRoundedRect(QRectF(rect()).adjusted(6, 6, -6, -6), 3, 3);
        // Whichever of black and white stands out more from the colour.
        const int grey = qGray(colour.rgb());
        painter.setPen(grey > 140 ? Qt::black : Qt::white);
        painter.drawText(rect(), Qt::AlignCenter, text);
    }

private:
    QColor colour;
    QString text;
};

} // namespace

afclr::afclr(const ColorPage& page, QWidget* parent)
    : PromptForm(QStringLiteral("afclr"), page.header, page.lead, parent) {
    auto* grid = new QGridLayout;
    grid->setSpacing(2);
    for (std::size_t i = 0; i < page.colors.size(); ++i) {
        const int number = static_cast<int>(i);
        auto* swatch = new Swatch(page.colors[i], number);
        connect(swatch, &QAbstractButton::clicked, this, [this, number] {
            select(number);
            accept();
        });
        grid->addWidget(swatch, number / across, number % across);
        swatches.push_back(swatch);
    }
    body->addLayout(grid);
    addbuttons();
    select(page.preset);
}

void afclr::select(int number) {
    if (swatches.empty()) return;
    chosen = std::clamp(number, 0, static_cast<int>(swatches.size()) - 1);
    QAbstractButton* const swatch = swatches[static_cast<std::size_t>(chosen)];
    swatch->setChecked(true);
    swatch->setFocus();
}

void afclr::accept() {
    if (!swatches.empty()) QDialog::accept();
}

void afclr::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Left: return select(chosen - 1);
    case Qt::Key_Right: return select(chosen + 1);
    case Qt::Key_Up: return select(chosen >= across ? chosen - across : chosen);
    case Qt::Key_Down:
        return select(chosen + across < static_cast<int>(swatches.size()) ? chosen + across : chosen);
    case Qt::Key_Home: return select(0);
    case Qt::Key_End: return select(static_cast<int>(swatches.size()) - 1);
    case Qt::Key_Space: return accept();
    default: PromptForm::keyPressEvent(event);
    }
}
