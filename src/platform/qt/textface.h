#pragma once

#include <QFont>
#include <QPainter>
#include <QStringList>
#include <algorithm>

/// Text of plots. The advances of a small font are whole pixels, which makes a text several percent wider or
/// narrower than a page that was laid out for it: so a face is measured and set large, and scaled.

inline constexpr double facePixels = 256;

/// The first of the families that there is, else any without serifs.
inline QFont largeface(const QStringList& families) {
    QFont font;
    font.setFamilies(families);
    font.setStyleHint(QFont::SansSerif);
    font.setPixelSize(static_cast<int>(facePixels));
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

/// Draws a text of that character size at the painter's origin. `stretch` is its width over the natural one.
inline void drawscaled(QPainter& painter, const QFont& face, double size, const QString& text,
                       double stretch = 1) {
    const double scale = std::clamp(size, 0.5, 5000.0) / facePixels;
    painter.setFont(face);
    painter.scale(scale * stretch, scale);
    painter.drawText(QPointF(0, 0), text);
}
