#include "platform/qt/promptform.h"

#include <QGuiApplication>
#include <QHBoxLayout>
#include <QScreen>
#include <QStyle>
#include <algorithm>

#include "platform/qt/style.h"
#include "platform/qt/text.h"

QString plainlead(std::string_view text) {
    QString plain = qs(text);
    plain.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    plain.replace(QLatin1Char('\r'), QLatin1Char('\n'));
    return plain;
}

PromptForm::PromptForm(const QString& name, std::string_view header, std::string_view lead, QWidget* parent)
    : QDialog(parent) {
    tones(); // the surroundings are in force before the first form shows
    setObjectName(name);
    setWindowTitle(plainlead(header).simplified());
    setModal(true);
    body = new QVBoxLayout(this);
    body->setContentsMargins(16, 14, 16, 14);
    body->setSpacing(10);
    leadText = new QLabel(plainlead(lead));
    leadText->setObjectName(QStringLiteral("Lead"));
    leadText->setTextFormat(Qt::PlainText);
    leadText->setWordWrap(true);
    leadText->setTextInteractionFlags(Qt::TextSelectableByMouse);
    leadText->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    leadArea = new QScrollArea;
    leadArea->setFrameShape(QFrame::NoFrame);
    leadArea->setWidgetResizable(true);
    leadArea->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    leadArea->setFocusPolicy(Qt::NoFocus);
    leadArea->setWidget(leadText);
    body->addWidget(leadArea);
    leadArea->setVisible(!leadText->text().isEmpty());
}

void PromptForm::addbuttons(const QString& accept, const QString& cancel) {
    auto* row = new QHBoxLayout;
    row->addStretch();
    const auto add = [&](const QString& word, const char* name, auto slot) -> QPushButton* {
        if (word.isEmpty()) return nullptr;
        auto* button = new QPushButton(QString(word).replace(QLatin1Char('&'), QStringLiteral("&&")));
        button->setObjectName(QLatin1String(name));
        button->setAccessibleName(word);
        connect(button, &QPushButton::clicked, this, slot);
        row->addWidget(button);
        return button;
    };
    acceptButton = add(accept, "Accept", &QDialog::accept);
    cancelButton = add(cancel, "Cancel", &QDialog::reject);
    if (acceptButton) acceptButton->setDefault(true);
    body->addLayout(row);
}

void PromptForm::addbuttons() { addbuttons(phrase(Word::OK), phrase(Word::Cancel)); }

QSize PromptForm::room() const {
    const QScreen* on = parentWidget() ? parentWidget()->screen() : QGuiApplication::primaryScreen();
    return on ? on->availableGeometry().size() * 0.92 : QSize(700, 500);
}

void PromptForm::fit() {
    constexpr int comfortable = 620; // beyond it a line of text is hard to follow
    const QSize most = room();
    const QMargins margins = body->contentsMargins();
    const int aside = margins.left() + margins.right();
    const QFontMetrics metrics(leadText->font());
    const QSize lines = metrics.size(0, leadText->text());
    const int scroll = style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    const int wanted = std::min({lines.width() + 4, comfortable, most.width() - aside});
    const int width = std::max(wanted, body->minimumSize().width() - aside);
    const int tall = leadText->heightForWidth(std::max(width, 1));
    const int rest = body->minimumSize().height() + margins.top() + margins.bottom();
    const int allowed = std::max(most.height() - rest, metrics.height() * 3);
    leadArea->setMinimumWidth(tall > allowed ? width + scroll : width);
    leadArea->setFixedHeight(std::min(tall, allowed));
    adjustSize();
    resize(size().boundedTo(most));
}

int PromptForm::exec() {
    fit();
    return QDialog::exec();
}
