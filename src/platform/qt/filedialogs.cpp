#include "platform/qt/filedialogs.h"

#include <QFileDialog>
#include <QRegularExpression>

#include "platform/qt/promptform.h"
#include "platform/qt/text.h"

namespace {

/// Patterns between blanks or ";", in either case of letters: file names of other systems come in capitals.
QString patternsof(const QString& listed) {
    static const QRegularExpression between(QStringLiteral("[;, ]+"));
    QStringList patterns;
    for (const QString& one : listed.split(between, Qt::SkipEmptyParts)) {
        const QString pattern = one == QStringLiteral("*.*") ? QStringLiteral("*") : one;
        for (const QString& form : {pattern, pattern.toLower(), pattern.toUpper()})
            if (!patterns.contains(form)) patterns << form;
    }
    return patterns.join(QLatin1Char(' '));
}

struct Dialog : QFileDialog {
    Dialog(const FilePage& page, QWidget* over)
        : QFileDialog(over, plainlead(page.header).simplified(), qs(page.folder)) {
        const QStringList filters = filefilters(page.filter);
        if (!filters.isEmpty()) setNameFilters(filters);
        if (!page.name.empty()) selectFile(qs(page.name));
    }
};

/// The name chosen in a dialog; nothing on cancel.
std::optional<QString> chosenin(QFileDialog& dialog) {
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return std::nullopt;
    return dialog.selectedFiles().constFirst();
}

} // namespace

QStringList filefilters(std::string_view filter) {
    const QStringList parts = qs(filter).split(QLatin1Char('|'));
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        QString name = parts[i];
        name.remove(QRegularExpression(QStringLiteral("\\s*\\(\\*[^)]*\\)\\s*$"))); // the dialog adds its own
        filters << name + QStringLiteral(" (") + patternsof(parts[i + 1]) + QLatin1Char(')');
    }
    return filters;
}

QString extensionof(const QString& filter) {
    static const QRegularExpression first(QStringLiteral("\\(\\*\\.([A-Za-z0-9]+)[ )]"));
    return first.match(filter).captured(1);
}

std::optional<std::string> askopenfile(const FilePage& page, QWidget* over) {
    Dialog dialog(page, over);
    dialog.setAcceptMode(QFileDialog::AcceptOpen);
    dialog.setFileMode(QFileDialog::ExistingFile);
    const std::optional<QString> chosen = chosenin(dialog);
    return chosen ? std::optional(utf8(*chosen)) : std::nullopt;
}

/// The dialog confirms an existing file of the name as it will be written, so the extension is settled there.
std::optional<std::string> asksavefile(const FilePage& page, QWidget* over) {
    Dialog dialog(page, over);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    const auto follow = [&dialog](const QString& filter) { dialog.setDefaultSuffix(extensionof(filter)); };
    QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog, follow);
    follow(dialog.selectedNameFilter());
    const std::optional<QString> chosen = chosenin(dialog);
    return chosen ? std::optional(utf8(*chosen)) : std::nullopt;
}
