#pragma once

#include <QDialog>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QVBoxLayout>
#include <string_view>

/// What the prompt forms have in common: the header in the title bar, the lead text above, a row of buttons
/// below; no larger than the screen.
class PromptForm : public QDialog {
public:
    int exec() override; ///< sized to its content and placed first

protected:
    PromptForm(const QString& name, std::string_view header, std::string_view lead, QWidget* parent);

    /// OK and Cancel with their words; Enter accepts, Esc cancels. An empty word: no such button.
    void addbuttons(const QString& accept, const QString& cancel);
    void addbuttons();

    /// Largest size that a form may take on its screen.
    QSize room() const;
    /// Sizes the form to its content; the lead scrolls where it is too long.
    virtual void fit();

    QVBoxLayout* body; ///< lead, then what the form adds, then the buttons
    QLabel* leadText;
    QScrollArea* leadArea;
    QPushButton* acceptButton = nullptr;
    QPushButton* cancelButton = nullptr;
};

/// A lead text cleaned of what a label would take for markup, with line ends of one character.
QString plainlead(std::string_view text);
