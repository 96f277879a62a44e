#pragma once

#include <QPointer>
#include <QWidget>

#include "platform/platform.h"

/// The prompts of the desktop: each call shows its form and waits.
class FormPrompts : public Prompts {
public:
    /// What the forms stand over; null: the desktop.
    void setparent(QWidget* over) { parent = over; }

    int menu(const MenuPage& page) override;
    void message(std::string_view header, std::string_view text) override;
    std::optional<std::string> number(const NumberPage& page) override;
    std::optional<std::string> text(const TextPage& page) override;
    std::optional<double> slider(const SliderPage& page) override;
    std::optional<int> color(const ColorPage& page) override;
    std::optional<std::string> openfile(const FilePage& page) override;
    std::optional<std::string> savefile(const FilePage& page) override;

private:
    QWidget* over() const;
    QPointer<QWidget> parent;
};
