#include "platform/qt/afbtn.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <algorithm>

#include "platform/qt/text.h"
#include "shell/prompts.h"

namespace {

/// The word with its key underlined, or behind it where the word has no such letter: "Oui (Y)".
QString withkey(const std::string& item) {
    QString word = qs(std::string_view(item).substr(4)).trimmed();
    const QChar key = QLatin1Char(item.front());
    const qsizetype at = word.indexOf(key, 0, Qt::CaseInsensitive);
    word.replace(QLatin1Char('&'), QStringLiteral("&&"));
    if (at == 0) return QLatin1Char('&') + word;
    return word + QStringLiteral(" (&") + key + QLatin1Char(')');
}

} // namespace

bool afbtn::suits(const MenuPage& page) {
    constexpr std::string_view answers = "YNOC";
    if (page.items.size() < 2 || page.items.size() > 4 || page.lead.empty()) return false;
    return std::all_of(page.items.begin(), page.items.end(), [&](const std::string& item) {
        return itempickable(item) && answers.find(item.front()) != std::string_view::npos;
    });
}

afbtn::afbtn(const MenuPage& page, QWidget* parent)
    : PromptForm(QStringLiteral("afbtn"), page.header, page.lead, parent),
      texts(page.items.begin(), page.items.end()) {
    auto* row = new QHBoxLayout;
    row->addStretch();
    const int preset = std::clamp(page.preset, 1, static_cast<int>(texts.size()));
    for (int number = 1; number <= static_cast<int>(texts.size()); ++number) {
        const std::string& item = texts[static_cast<std::size_t>(number - 1)];
        auto* button = new QPushButton(withkey(item));
        button->setObjectName(QStringLiteral("Answer%1").arg(number));
        button->setAccessibleName(qs(std::string_view(item).substr(4)));
        connect(button, &QPushButton::clicked, this, [this, number] {
            chosen = number;
            accept();
        });
        row->addWidget(button);
        if (number == preset) {
            button->setDefault(true);
            button->setFocus();
        }
    }
    body->addLayout(row);
}

void afbtn::keyPressEvent(QKeyEvent* event) {
    const std::string typed = utf8(event->text());
    if (const int number = typed.size() == 1 ? itemofkey(texts, typed.front()) : 0; number > 0) {
        chosen = number;
        return accept();
    }
    PromptForm::keyPressEvent(event);
}
