#include "platform/qt/prompts.h"

#include <QApplication>

#include "platform/qt/afbtn.h"
#include "platform/qt/afclr.h"
#include "platform/qt/afgrf.h"
#include "platform/qt/afmenu.h"
#include "platform/qt/afnum.h"
#include "platform/qt/afslider.h"
#include "platform/qt/aftxt.h"
#include "platform/qt/filedialogs.h"
#include "platform/qt/form1.h"

/// A form that is already open is in front: a prompt asked from within it stands over it.
QWidget* FormPrompts::over() const {
    Form1::closewaiting();
    if (QWidget* const modal = QApplication::activeModalWidget()) return modal;
    return parent ? parent->window() : nullptr;
}

int FormPrompts::menu(const MenuPage& page) {
    if (afbtn::suits(page)) {
        afbtn form(page, over());
        return form.exec() == QDialog::Accepted ? form.choice() : 0;
    }
    afmenu form(page, over());
    const bool taken = form.exec() == QDialog::Accepted;
    if (page.scroll) *page.scroll = form.firstrow();
    return taken ? form.choice() : 0;
}

void FormPrompts::message(std::string_view header, std::string_view text) {
    afmenu::message(header, text, over());
}

std::optional<std::string> FormPrompts::number(const NumberPage& page) {
    const auto ask = [](afnum& form) -> std::optional<std::string> {
        if (form.exec() != QDialog::Accepted) return std::nullopt;
        return form.entry();
    };
    if (page.overPlot) {
        afgrf form(page, over());
        return ask(form);
    }
    afnum form(page, over());
    return ask(form);
}

std::optional<std::string> FormPrompts::text(const TextPage& page) {
    aftxt form(page, over());
    if (form.exec() != QDialog::Accepted) return std::nullopt;
    return form.entry();
}

std::optional<double> FormPrompts::slider(const SliderPage& page) {
    afslider form(page, over());
    if (form.exec() != QDialog::Accepted) return std::nullopt;
    return form.value();
}

std::optional<int> FormPrompts::color(const ColorPage& page) {
    afclr form(page, over());
    if (form.exec() != QDialog::Accepted) return std::nullopt;
    return form.choice();
}

std::optional<std::string> FormPrompts::openfile(const FilePage& page) { return askopenfile(page, over()); }

std::optional<std::string> FormPrompts::savefile(const FilePage& page) { return asksavefile(page, over()); }
