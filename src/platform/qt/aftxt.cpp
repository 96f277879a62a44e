#include "platform/qt/aftxt.h"

#include <QComboBox>
#include <QCompleter>
#include <QLineEdit>

#include "platform/qt/text.h"

aftxt::aftxt(const TextPage& page, QWidget* parent)
    : PromptForm(QStringLiteral("aftxt"), page.header, page.lead, parent),
      text(new QComboBox) {
    constexpr int charactersShown = 40;
    text->setObjectName(QStringLiteral("TextEntry"));
    text->setEditable(true);
    text->setCompleter(nullptr); // what is typed stays as typed
    text->setInsertPolicy(QComboBox::NoInsert);
    text->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    text->setMinimumContentsLength(charactersShown);
    for (const std::string& recent : page.recent) text->addItem(qs(recent));
    text->setCurrentIndex(-1);
    text->setEditText(qs(page.value));
    text->lineEdit()->selectAll(); // a first key takes its place
    const QString lead = plainlead(page.lead).simplified();
    text->setAccessibleName(lead.isEmpty() ? plainlead(page.header).simplified() : lead);
    leadText->setBuddy(text);
    body->addWidget(text);
    addbuttons();
    text->setFocus();
}

std::string aftxt::entry() const { return utf8(text->lineEdit()->text()); }
