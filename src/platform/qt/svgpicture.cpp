#include "platform/qt/svgpicture.h"

#include <QFontMetricsF>
#include <QRegularExpression>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>
#include <algorithm>

namespace {

/// Angle of "rotate(-90 20 30)"; 0 for any other transform.
double angleof(const QString& transform) {
    static const QRegularExpression rotate(QStringLiteral("^rotate\\((-?[0-9.]+)"));
    return rotate.match(transform).captured(1).toDouble();
}

} // namespace

SvgPicture::SvgPicture(const QByteArray& svg) {
    takeapart(svg);
    shapes.load(rest);
}

void SvgPicture::takeapart(const QByteArray& svg) {
    QXmlStreamReader in(svg);
    QXmlStreamWriter out(&rest);
    while (!in.atEnd()) {
        in.readNext();
        if (in.hasError()) break;
        if (!in.isStartElement() || in.name() != QStringLiteral("text")) {
            out.writeCurrentToken(in);
            continue;
        }
        const QXmlStreamAttributes given = in.attributes();
        const auto number = [&](const char* name) { return given.value(QLatin1String(name)).toDouble(); };
        Text text{{number("x"), number("y")},
                  number("font-size"),
                  number("textLength"),
                  angleof(given.value(QLatin1String("transform")).toString()),
                  QColor(given.value(QLatin1String("fill")).toString()),
                  {}};
        text.words = in.readElementText(QXmlStreamReader::IncludeChildElements);
        texts.push_back(std::move(text));
    }
    if (in.hasError()) rest.clear(); // half a picture is none
}

void SvgPicture::paint(QPainter& painter, QSizeF area) {
    shapes.render(&painter, QRectF(QPointF(0, 0), area));
    const QRectF view = shapes.viewBoxF();
    if (view.isEmpty()) return;
    painter.save();
    painter.scale(area.width() / view.width(), area.height() / view.height());
    painter.translate(-view.topLeft());
    for (const Text& text : texts) painttext(painter, text);
    painter.restore();
}

void SvgPicture::painttext(QPainter& painter, const Text& text) const {
    const double size = std::clamp(text.size, 0.5, 5000.0);
    QFont font;
    font.setFamilies({QStringLiteral("DejaVu Sans"), QStringLiteral("Verdana"), QStringLiteral("Arial")});
    font.setStyleHint(QFont::SansSerif);
    font.setPointSizeF(size * 72 / painter.device()->logicalDpiY());
    font.setHintingPreference(QFont::PreferNoHinting);
    const double natural = QFontMetricsF(font, painter.device()).horizontalAdvance(text.words);
    painter.save();
    painter.setFont(font);
    painter.setPen(text.colour);
    painter.translate(text.at);
    painter.rotate(text.rotation);
    if (text.length > 0 && natural > 0) painter.scale(std::clamp(text.length / natural, 0.25, 4.0), 1);
    painter.drawText(QPointF(0, 0), text.words);
    painter.restore();
}
