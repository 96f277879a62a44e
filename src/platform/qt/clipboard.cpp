#include "platform/qt/clipboard.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

#include "platform/qt/pictures.h"
#include "platform/qt/text.h"

namespace {

const QString svgType = QStringLiteral("image/svg+xml");

/// What the clipboard holds; null when its owner has gone.
const QMimeData* content() {
    const QClipboard* const board = QGuiApplication::clipboard();
    return board ? board->mimeData() : nullptr;
}

} // namespace

std::optional<std::string> DesktopClipboard::text() {
    const QMimeData* const held = content();
    if (!held || !held->hasText()) return std::nullopt;
    return utf8(held->text());
}

bool DesktopClipboard::settext(std::string_view text) {
    QClipboard* const board = QGuiApplication::clipboard();
    if (!board) return false;
    const QString wanted = qs(text);
    board->setText(wanted);
    const QMimeData* const held = content();
    return held && held->hasText() && held->text() == wanted;
}

bool DesktopClipboard::setboth(std::string_view text, std::string_view svg) {
    const QByteArray vector(svg.data(), static_cast<qsizetype>(svg.size()));
    const QImage pixels = imageof(vector, sizeofpicture(vector));
    QClipboard* const board = QGuiApplication::clipboard();
    if (pixels.isNull() || !board) return false;
    auto* both = new QMimeData; // the clipboard owns it
    both->setData(svgType, vector);
    both->setImageData(pixels);
    if (!text.empty()) both->setText(qs(text));
    board->setMimeData(both);
    const QMimeData* const held = content();
    return held && held->data(svgType) == vector;
}
