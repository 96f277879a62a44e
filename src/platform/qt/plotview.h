#pragma once

#include <QPixmap>
#include <QTimer>
#include <QWidget>
#include <functional>
#include <vector>

#include "plot/readout.h"
#include "session/plotstate.h"

/// The plot surface "Picture1": a mirror of the plot that is drawn anew when the session asks or the size has
/// changed, and zoomed, moved and read with mouse and keys.
class PlotView : public QWidget {
public:
    explicit PlotView(QWidget* parent);

    void replot(); ///< draws the session's plot now
    void retitle();
    std::function<void(const QString&)> tell; ///< takes the read-out under the pointer

    void zoom(double factor); ///< about the middle of the plot
    void zoomout();           ///< the automatic window again

    QSize sizeHint() const override { return {760, 560}; }
    QSize minimumSizeHint() const override { return {240, 180}; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;

private:
    void replotquietly();
    void zoomat(QPointF place, double factor);
    void movewindow(double right, double up);
    void readout(QPointF place);

    QPixmap mirror;
    PlotWindow window;               ///< of the mirror
    std::vector<PlacedPoint> points; ///< of the mirror, once they have been asked for
    bool pointsKnown = false;
    QTimer settle; ///< runs while the size changes, and after a turn of the wheel
    QPointF grip;  ///< where a drag has come to
    bool gripped = false;
};
