#pragma once

#include <QFont>
#include <QFontMetricsF>
#include <QPainter>
#include <QPixmap>
#include <QPolygonF>
#include <QSize>

#include "plot/device.h"

/// A picture surface on any paint device: screen, page, bitmap. The canvas is 15 units to the painter's unit;
/// lines level or upright fall on whole device pixels, whatever the scale of the screen. The painter is used
/// between begin and end, and left as it was.
class PainterDevice final : public Device {
public:
    /// A canvas of that size in the painter's units, its corner at the painter's origin.
    PainterDevice(QPainter& painter, QSizeF size);

    bool begin() override;
    bool end() override;
    void abandon() override;

    double width() const override { return 15 * canvas.width(); }
    double height() const override { return 15 * canvas.height(); }

    void line(const LineOperation& operation) override;
    void text(const TextOperation& operation) override;
    void markstep(const MarkStep& step) override;
    /// Class 0 makes the lines of class 1 finer until another class is set.
    void setwidth(int widthClass) override { fine = widthClass == 0; }

    double textwidth(std::string_view text, double size) const override;

private:
    /// What the strokes of one polyline have in common.
    struct Stroke {
        int32_t rgb = 0;
        int width = 1; ///< width class; 0 fine
        LineStyle style = LineStyle::solid;
        bool operator==(const Stroke&) const = default;
    };

    void segment(const Stroke& wanted, QPointF from, QPointF to);
    void box(const Stroke& wanted, QPointF from, QPointF to);
    void flush();
    double strokewidth(int widthClass) const;
    double crispwidth(double wanted) const;
    QLineF crisp(QLineF line, double lineWidth) const;

    QPainter& out;
    QSizeF canvas;
    double ratio = 1;     ///< device pixels to the painter's unit; 0 where there are none
    bool drawing = false; ///< between begin and end
    bool fine = false;    ///< width class 0 is in force
    Stroke stroke;        ///< of the polyline in hand
    QPolygonF polyline;   ///< empty: none in hand
    QPointF tip;          ///< where it ends, before it was made crisp
    QPointF pen;          ///< where the last line ended
    QFont face;           ///< of all texts, large (textface.h)
    QFontMetricsF metrics;
};

/// The session's plot for the screen, on its paper; `size` in logical pixels. Only the paper when there is
/// nothing that can be drawn.
QPixmap plotpixmap(QSize size, double dpr);

/// Draws the session's plot by a painter as the output device of that code.
bool paintplot(QPainter& painter, QSizeF size, int outputDevice);
