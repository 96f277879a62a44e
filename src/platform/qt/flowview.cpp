#include "platform/qt/flowview.h"

#include <QPainter>
#include <algorithm>

#include "platform/qt/style.h"
#include "platform/qt/text.h"

namespace {

constexpr double margin = 24;
constexpr double between = 70; ///< columns, room for an answer on its arrow
constexpr double below = 26;   ///< rows
constexpr double leastBox = 56;

void arrow(QPainter& painter, QPointF from, QPointF to) {
    painter.drawLine(from, to);
    const bool level = from.y() == to.y();
    const QPointF back = level ? QPointF(-8, 0) : QPointF(0, -8);
    const QPointF aside = level ? QPointF(0, 4) : QPointF(4, 0);
    painter.drawPolygon(QPolygonF{to, to + back + aside, to + back - aside});
}

} // namespace

FlowView::FlowView(FlowChart chart) : shown(std::move(chart)) {
    setObjectName(QStringLiteral("FlowChart"));
    QFont font = helpfont();
    font.setPointSizeF(font.pointSizeF() + 1);
    setFont(font);
    QStringList texts;
    for (const FlowBox& box : shown.boxes) texts << qs(box.text);
    setAccessibleDescription(texts.join(QStringLiteral(". ")));
}

QSize FlowView::minimumSizeHint() const {
    constexpr int boxWidth = 260;
    const int tallest = QFontMetrics(font()).height() * 3 + 20;
    const double row = std::max<double>(leastBox, tallest);
    return {static_cast<int>(2 * margin + shown.columns * boxWidth + (shown.columns - 1) * between),
            static_cast<int>(2 * margin + shown.rows * row + (shown.rows - 1) * below)};
}

QRectF FlowView::boxat(const FlowBox& box) const {
    constexpr double widest = 460;
    const double across =
        std::min(widest, (width() - 2 * margin - (shown.columns - 1) * between) / shown.columns);
    const double down = (height() - 2 * margin - (shown.rows - 1) * below) / shown.rows;
    const double tall = std::min(down, QFontMetrics(font()).height() * 3 + 20.0);
    return {margin + box.column * (across + between), margin + box.row * (tall + below), across, tall};
}

void FlowView::drawbox(QPainter& painter, const FlowBox& box) const {
    const QRectF area = boxat(box);
    painter.setPen(QPen(box.question ? tones().accent : tones().edge, 1.5));
    painter.setBrush(box.question ? tones().hover : tones().panel);
    const double corner = box.question ? area.height() / 2.5 : 6;
    painter.drawRoundedRect(area, corner, corner);
    painter.setPen(palette().color(QPalette::WindowText));
    const int side = box.question ? Qt::AlignCenter : Qt::AlignVCenter | Qt::AlignLeft;
    painter.drawText(area.adjusted(14, 4, -14, -4), side | Qt::TextWordWrap, qs(box.text));
}

void FlowView::drawway(QPainter& painter, const FlowWay& way) const {
    const FlowBox& first = shown.boxes[static_cast<std::size_t>(way.from)];
    const FlowBox& second = shown.boxes[static_cast<std::size_t>(way.to)];
    const QRectF from = boxat(first), to = boxat(second);
    painter.setPen(QPen(tones().quiet, 1.4));
    painter.setBrush(tones().quiet);
    const bool level = first.row == second.row;
    const QPointF start =
        level ? QPointF(from.right(), from.center().y()) : QPointF(from.center().x(), from.bottom());
    const QPointF end = level ? QPointF(to.left(), start.y()) : QPointF(start.x(), to.top());
    arrow(painter, start, end);
    const QPointF middle = (start + end) / 2;
    const QFontMetricsF metrics(font());
    if (level)
        painter.drawText(
            QPointF(middle.x() - metrics.horizontalAdvance(qs(way.answer)) / 2 - 3, start.y() - 5),
            qs(way.answer));
    else
        painter.drawText(QPointF(start.x() + 8, middle.y() + metrics.ascent() / 2 - 1), qs(way.answer));
}

void FlowView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    for (const FlowWay& way : shown.ways) drawway(painter, way);
    for (const FlowBox& box : shown.boxes) drawbox(painter, box);
}
