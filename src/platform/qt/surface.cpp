#include "platform/qt/surface.h"

#include <QPainterPath>
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>

#include "platform/qt/text.h"
#include "platform/qt/textface.h"
#include "plot/plotprob.h"
#include "session/session.h"

namespace {

constexpr double unitsPerPixel = 15;
constexpr double unitsPerWidth = 18000; ///< canvas width for which a line of class 1 is one pixel wide
constexpr double finePart = 0.6;

QColor colourof(int32_t rgb) { return QColor(static_cast<QRgb>(rgb)); }

int32_t paletteat(int colour) {
    const int last = static_cast<int>(session.palette.size()) - 1;
    return session.palette[static_cast<std::size_t>(std::clamp(colour, 0, last))];
}

/// A coordinate that is not finite, or beyond any picture, stays where a painter can hold it.
double held(double v) {
    constexpr double farAway = 1e6;
    return std::isnan(v) ? 0 : std::clamp(v, -farAway, farAway);
}

QPointF onpainter(double x, double y) { return {held(x / unitsPerPixel), held(y / unitsPerPixel)}; }

/// A line of an odd number of pixels, and a finer one, is crisp on the middle of a pixel, an even one between
/// two.
double shiftof(double lineWidth) { return std::fmod(lineWidth, 2) == 0 ? 0 : 0.5; }

/// Lengths of dashes and gaps in line widths, by line style.
QList<qreal> dashesof(LineStyle style) {
    switch (style) {
    case LineStyle::dashed: return {6, 4};
    case LineStyle::dashDot: return {8, 3, 1, 3};
    case LineStyle::dashDotDot: return {8, 3, 1, 3, 1, 3};
    case LineStyle::dotted: return {1, 3};
    default: return {};
    }
}

/// Controls have no face; they would come out as boxes.
QString printable(std::string_view text) {
    QString shown = qs(text);
    shown.removeIf([](QChar c) { return c.category() == QChar::Other_Control; });
    return shown;
}

} // namespace

PainterDevice::PainterDevice(QPainter& painter, QSizeF size)
    : out(painter),
      canvas(size),
      face(largeface(
          {qs(session.fontName), QStringLiteral("Liberation Sans"), QStringLiteral("DejaVu Sans")})),
      metrics(face) {}

bool PainterDevice::begin() {
    if (!out.isActive()) return false;
    out.save();
    const QTransform transform = out.deviceTransform();
    const bool even = transform.m11() > 0 && transform.m11() == transform.m22() && !transform.isRotating();
    ratio = even ? transform.m11() : 0;
    out.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    out.fillRect(QRectF(QPointF(0, 0), canvas), colourof(paletteat(backgroundColour)));
    out.setClipRect(QRectF(QPointF(0, 0), canvas), Qt::IntersectClip);
    fine = false;
    polyline.clear();
    pen = {};
    drawing = true;
    return true;
}

bool PainterDevice::end() {
    flush();
    abandon();
    return out.isActive();
}

void PainterDevice::abandon() {
    polyline.clear();
    if (std::exchange(drawing, false)) out.restore();
}

void PainterDevice::line(const LineOperation& operation) {
    const QPointF from = operation.continues ? pen : onpainter(operation.x1, operation.y1);
    const QPointF to = onpainter(operation.x2, operation.y2);
    pen = to;
    const int widthClass = std::abs(operation.width);
    const Stroke wanted{paletteat(operation.pen.colour), fine && widthClass <= 1 ? 0 : widthClass,
                        operation.pen.style};
    const bool boxed = wanted.style == LineStyle::outline || wanted.style == LineStyle::filled;
    boxed ? box(wanted, from, to) : segment(wanted, from, to);
}

void PainterDevice::markstep(const MarkStep& step) {
    if (step.colour == 0) return;
    segment({paletteat(step.colour), step.width, LineStyle::solid}, onpainter(step.fromX, step.fromY),
            onpainter(step.x, step.y));
}

/// A box covers the pixels of both corners, so that a filled one and its outline cover the same.
void PainterDevice::box(const Stroke& wanted, QPointF from, QPointF to) {
    flush();
    QRectF area = QRectF(from, to).normalized();
    if (wanted.style == LineStyle::filled) {
        area.setSize(area.size() + QSizeF(1, 1));
        out.fillRect(area, colourof(wanted.rgb));
        return;
    }
    const double size = strokewidth(wanted.width);
    area.translate(shiftof(size), shiftof(size));
    const QLineF diagonal = crisp({area.topLeft(), area.bottomRight()}, crispwidth(size));
    out.setPen(QPen(colourof(wanted.rgb), crispwidth(size), Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    out.setBrush(Qt::NoBrush);
    out.drawRect(QRectF(diagonal.p1(), diagonal.p2()));
}

/// One stroke; it joins the polyline in hand when it looks like that one and starts at its end, so that
/// dashes run on over its corners.
void PainterDevice::segment(const Stroke& wanted, QPointF from, QPointF to) {
    if (polyline.isEmpty() || !(stroke == wanted) || from != tip) {
        flush();
        stroke = wanted;
        polyline << from;
    }
    polyline << to;
    tip = to;
}

void PainterDevice::flush() {
    if (polyline.isEmpty()) return;
    const double size = strokewidth(stroke.width);
    const double drawn = crispwidth(size);
    QPen ink(colourof(stroke.rgb), drawn, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
    if (const QList<qreal> dashes = dashesof(stroke.style); !dashes.isEmpty()) {
        ink.setCapStyle(Qt::FlatCap);
        ink.setDashPattern(dashes);
    }
    out.setPen(ink);
    out.setBrush(Qt::NoBrush);
    polyline.translate(shiftof(size), shiftof(size));
    if (polyline.size() == 2)
        out.drawLine(crisp({polyline[0], polyline[1]}, drawn));
    else
        out.drawPolyline(polyline);
    polyline.clear();
}

double PainterDevice::strokewidth(int widthClass) const {
    const double size = std::max(1.0, std::round(width() / unitsPerWidth * std::max(1, widthClass)));
    return widthClass == 0 ? finePart * size : size;
}

/// A width of whole device pixels, where there are pixels.
double PainterDevice::crispwidth(double wanted) const {
    if (ratio <= 0 || wanted < 1) return wanted;
    return std::max(1.0, std::round(wanted * ratio)) / ratio;
}

/// A level or upright line moved so that its edges fall between device pixels; any other stays.
QLineF PainterDevice::crisp(QLineF line, double lineWidth) const {
    if (ratio <= 0) return line;
    const double half = lineWidth / 2;
    const auto onedge = [&](double centre) { return std::round((centre - half) * ratio) / ratio + half; };
    if (line.dx() == 0) line = {onedge(line.x1()), line.y1(), onedge(line.x1()), line.y2()};
    if (line.dy() == 0) line = {line.x1(), onedge(line.y1()), line.x2(), onedge(line.y1())};
    return line;
}

void PainterDevice::text(const TextOperation& operation) {
    const QString shown = printable(operation.text);
    if (shown.isEmpty() || !(operation.size > 0)) return;
    flush();
    out.save();
    out.setPen(colourof(paletteat(operation.colour)));
    out.translate(onpainter(operation.x, operation.y));
    out.rotate(-operation.rotation);
    drawscaled(out, face, operation.size / unitsPerPixel, shown);
    out.restore();
}

double PainterDevice::textwidth(std::string_view text, double size) const {
    if (!(size > 0)) return 0;
    return metrics.horizontalAdvance(printable(text)) / facePixels * size;
}

bool paintplot(QPainter& painter, QSizeF size, int outputDevice) {
    const Keep keep{session.outdev, session.outputName, session.plotw, session.ploth};
    session.outdev = static_cast<float>(outputDevice);
    PainterDevice device(painter, size);
    return plotentry(device);
}

QPixmap plotpixmap(QSize size, double dpr) {
    constexpr int mostPixels = 16384;
    const QSize logical = size.expandedTo({1, 1}).boundedTo({mostPixels, mostPixels});
    QPixmap picture((QSizeF(logical) * std::clamp(dpr, 1.0, 8.0)).toSize());
    if (picture.isNull()) return picture;
    picture.setDevicePixelRatio(std::clamp(dpr, 1.0, 8.0));
    picture.fill(colourof(paletteat(backgroundColour)));
    QPainter painter(&picture);
    const Keep keep{session.outdev};
    session.outdev = screenDevice;
    PainterDevice device(painter, logical);
    plotentry(device);
    return picture;
}
