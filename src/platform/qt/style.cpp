#include "platform/qt/style.h"

#include <QApplication>
#include <QFontDatabase>
#include <QPalette>
#include <QStyleFactory>

#include "session/session.h"

namespace {

enum Surroundings { asSystem, light, dark };

/// One palette of the windows, 0xRRGGBB.
struct Scheme {
    unsigned window, text, base, button, quiet, accent, onAccent, hover, edge, panel;
};
constexpr Scheme lightScheme = {0xF5F6F8, 0x1D232B, 0xFFFFFF, 0xECEEF1, 0x56616F,
                                0x1F5FAD, 0xFFFFFF, 0xE3ECF7, 0xC6CCD4, 0xFFFFFF};
constexpr Scheme darkScheme = {0x23272E, 0xE6E9ED, 0x1B1F25, 0x2F353E, 0xA6B0BD,
                               0x7FB2F0, 0x0E1A28, 0x303B4A, 0x454D59, 0x2A2F37};

Tones inForce = {};
bool darkInForce = false;

/// What the system says, asked once: later the application's palette is our own.
bool systemdark() {
    static const bool is = QApplication::palette().color(QPalette::Window).lightness() < 128;
    return is;
}

QPalette palettefrom(const Scheme& scheme) {
    const QColor text(QRgb{scheme.text});
    QPalette palette(QColor(QRgb{scheme.button}), QColor(QRgb{scheme.window}));
    const auto set = [&](QPalette::ColorRole role, unsigned rgb) {
        palette.setColor(role, QColor(QRgb{rgb}));
    };
    set(QPalette::WindowText, scheme.text);
    set(QPalette::Text, scheme.text);
    set(QPalette::ButtonText, scheme.text);
    set(QPalette::Base, scheme.base);
    set(QPalette::AlternateBase, scheme.window);
    set(QPalette::ToolTipBase, scheme.panel);
    set(QPalette::ToolTipText, scheme.text);
    set(QPalette::PlaceholderText, scheme.quiet);
    set(QPalette::Highlight, scheme.accent);
    set(QPalette::HighlightedText, scheme.onAccent);
    set(QPalette::Link, scheme.accent);
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, QColor(QRgb{scheme.quiet}));
    return palette;
}

QFont firstof(const QStringList& families) {
    QFont font = QApplication::font();
    for (const QString& family : families)
        if (QFontDatabase::hasFamily(family)) {
            font.setFamily(family);
            return font;
        }
    return font;
}

} // namespace

void applysurroundings() {
    const bool system = systemdark();
    darkInForce = session.surroundings == dark || (session.surroundings == asSystem && system);
    const Scheme& scheme = darkInForce ? darkScheme : lightScheme;
    inForce = {QColor(QRgb{scheme.accent}), QColor(QRgb{scheme.onAccent}), QColor(QRgb{scheme.quiet}),
               QColor(QRgb{scheme.hover}),  QColor(QRgb{scheme.edge}),     QColor(QRgb{scheme.panel})};
    if (QStyle* style = QStyleFactory::create(QStringLiteral("Fusion"))) QApplication::setStyle(style);
    QApplication::setPalette(palettefrom(scheme));
}

bool darksurroundings() { return darkInForce; }

const Tones& tones() {
    if (!inForce.accent.isValid()) applysurroundings();
    return inForce;
}

QFont fixedfont() {
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    font.setStyleHint(QFont::Monospace);
    font.setFixedPitch(true);
    return font;
}

QFont helpfont() {
    return firstof({QStringLiteral("Calibri"), QStringLiteral("Carlito"), QStringLiteral("DejaVu Sans")});
}
