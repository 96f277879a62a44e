#include "platform/qt/svgpicture.h"

#include <QFontMetricsF>
#include <QRegularExpression>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>
#include <algorithm>

#include "platform/qt/textface.h"

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
    static const QFont face =
        largeface({QStringLiteral("DejaVu Sans"), QStringLiteral("Verdana"), QStringLiteral("Arial")});
    const double natural = QFontMetricsF(face).horizontalAdvance(text.words) / facePixels * text.size;
    const double stretch = text.length > 0 && natural > 0 ? text.length / natural : 1;
    painter.save();
    painter.setPen(text.colour);
    painter.translate(text.at);
    painter.rotate(text.rotation);
    drawscaled(painter, face, text.size, text.words, std::clamp(stretch, 0.25, 4.0));
    painter.restore();
}
