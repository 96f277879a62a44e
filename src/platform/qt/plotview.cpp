#include "platform/qt/plotview.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>
#include <cmath>
#include <utility>

#include "platform/platform.h"
#include "platform/qt/surface.h"
#include "platform/qt/text.h"
#include "plot/drawing.h"
#include "plot/window.h"
#include "plot/zoomwindow.h"
#include "session/session.h"
#include "shell/plotpress.h"

namespace {

constexpr double unitsPerPixel = 15;
constexpr double reach = 12 * unitsPerPixel; ///< of the pointer
constexpr int settleTime = 60;               ///< ms without a change of size
constexpr double stepFactor = 1.25;
constexpr double stepPart = 0.1;
constexpr double wheelNotch = 120;

} // namespace

PlotView::PlotView(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("Picture1"));
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setAttribute(Qt::WA_OpaquePaintEvent);
    settle.setSingleShot(true);
    settle.setInterval(settleTime);
    connect(&settle, &QTimer::timeout, this, [this] { replotquietly(); });
    retitle();
}

void PlotView::retitle() { setAccessibleName(phrase(Word::Plot)); }

void PlotView::replot() {
    if (plotting() || width() < 1 || height() < 1) return;
    settle.stop();
    mirror = plotpixmap(size(), devicePixelRatioF());
    window = session.windowSaved;
    points.clear();
    pointsKnown = false;
    update();
}

/// A plot that only the size or the window asks for: what the data have to tell was told by the run. Waits
/// while a command is on.
void PlotView::replotquietly() {
    if (session.shellBusy > 0 || plotting()) {
        settle.start();
        return;
    }
    const Keep keep{platform};
    platform = nullptr; // no messages, no captions
    replot();
}

/// While the size changes the mirror is shown stretched.
void PlotView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    if (mirror.isNull()) {
        painter.fillRect(rect(), Qt::white);
    } else {
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        painter.drawPixmap(rect(), mirror);
    }
    if (!hasFocus()) return;
    painter.setPen(palette().color(QPalette::Highlight));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

void PlotView::resizeEvent(QResizeEvent*) { settle.start(); }

void PlotView::zoomat(QPointF place, double factor) {
    if (session.shellBusy > 0 || plotting()) return;
    if (zoomplot(window, unitsPerPixel * place.x(), unitsPerPixel * place.y(), factor)) replotquietly();
}

void PlotView::movewindow(double right, double up) {
    if (session.shellBusy > 0 || plotting()) return;
    if (moveplot(window, right, up)) replotquietly();
}

void PlotView::zoom(double factor) {
    const QPointF middle((window.left + window.right) / 2, (window.top + window.bottom) / 2);
    zoomat(middle / unitsPerPixel, factor);
}

void PlotView::zoomout() {
    if (session.shellBusy > 0 || plotting()) return;
    LOCKZOOMOUT();
    replotquietly();
}

void PlotView::wheelEvent(QWheelEvent* event) {
    const double notches = event->angleDelta().y() / wheelNotch;
    if (notches != 0) zoomat(event->position(), std::pow(stepFactor, notches));
    event->accept();
}

void PlotView::keyPressEvent(QKeyEvent* event) {
    const bool foreign = event->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    if (foreign || session.dropMenuOpen == dropShown) {
        event->ignore();
        return;
    }
    switch (event->key()) {
    case Qt::Key_Plus: zoom(stepFactor); break;
    case Qt::Key_Minus: zoom(1 / stepFactor); break;
    case Qt::Key_0: zoomout(); break;
    case Qt::Key_Left: movewindow(-stepPart, 0); break;
    case Qt::Key_Right: movewindow(stepPart, 0); break;
    case Qt::Key_Up: movewindow(0, stepPart); break;
    case Qt::Key_Down: movewindow(0, -stepPart); break;
    default: event->ignore();
    }
}

void PlotView::mousePressEvent(QMouseEvent* event) {
    const QPointF place = unitsPerPixel * event->position();
    const int button = buttonat(window, place.x(), place.y());
    if (button >= 0 && event->button() == Qt::LeftButton) {
        gripped = false;
        if (session.shellBusy == 0 && !plotting() && pressbutton(window, button, stepFactor)) replotquietly();
        return;
    }
    if (event->button() == Qt::LeftButton && plotpressawaited()) {
        gripped = false;
        const PlotWindow pressed = window; // the press may draw the plot anew
        if (session.shellBusy == 0 && !plotting()) plotpress(pressed, place.x(), place.y());
        return;
    }
    gripped = event->button() == Qt::LeftButton;
    grip = event->position();
}

void PlotView::mouseMoveEvent(QMouseEvent* event) {
    constexpr double still = 4; ///< px that a press may slip
    const QPointF slip = event->position() - grip;
    const bool drags = gripped && (event->buttons() & Qt::LeftButton) && slip.manhattanLength() > still;
    if (!drags) {
        readout(event->position());
        return;
    }
    grip = event->position();
    const double across = (window.right - window.left) / unitsPerPixel;
    const double down = (window.bottom - window.top) / unitsPerPixel;
    if (across > 0 && down > 0) movewindow(-slip.x() / across, slip.y() / down);
}

void PlotView::mouseReleaseEvent(QMouseEvent*) { gripped = false; }

void PlotView::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) zoomout();
}

void PlotView::leaveEvent(QEvent*) {
    if (tell && session.shellBusy == 0) tell(QString());
}

void PlotView::readout(QPointF place) {
    if (!tell || session.shellBusy > 0 || plotting() || session.cycleComplete == 0) return;
    const double x = unitsPerPixel * place.x();
    const double y = unitsPerPixel * place.y();
    const auto at = plotplace(window, x, y);
    if (!at) {
        tell(QString());
        return;
    }
    if (!std::exchange(pointsKnown, true)) points = placedpoints(window);
    tell(qs(readouttext(*at, nearestpoint(points, x, y, reach))));
}
