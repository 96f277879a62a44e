#pragma once

#include <QByteArray>
#include <QColor>
#include <QPainter>
#include <QString>
#include <QSvgRenderer>
#include <vector>

/// A vector picture of the program, to be painted anywhere. Qt's reader draws text as shapes and by the
/// length of its own fonts; here the texts are taken out and set as text, as long as the picture says: so
/// labels never collide, and a page can be searched.
class SvgPicture {
public:
    explicit SvgPicture(const QByteArray& svg);

    bool valid() const { return shapes.isValid(); }
    QSize size() const { return shapes.defaultSize(); } ///< in pixels
    void paint(QPainter& painter, QSizeF area);         ///< from the painter's origin

private:
    struct Text {
        QPointF at;
        double size = 0, length = 0, rotation = 0;
        QColor colour;
        QString words;
    };
    void takeapart(const QByteArray& svg);
    void painttext(QPainter& painter, const Text& text) const;

    QByteArray rest; ///< the picture without its texts
    std::vector<Text> texts;
    QSvgRenderer shapes;
};
