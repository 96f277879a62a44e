#include "platform/qt/afgrf.h"

#include <QScreen>
#include <algorithm>

namespace {

QWidget* plotof(QWidget* over) {
    if (!over) return nullptr;
    QWidget* const picture = over->findChild<QWidget*>(QStringLiteral("Picture1"));
    return picture && picture->isVisible() ? picture : over;
}

} // namespace

afgrf::afgrf(const NumberPage& page, QWidget* over)
    : afnum(page, over, QStringLiteral("afgrf")),
      plot(plotof(over)) {}

void afgrf::showEvent(QShowEvent* event) {
    afnum::showEvent(event);
    if (!plot) return;
    constexpr int inset = 12;
    const QRect area(plot->mapToGlobal(QPoint(0, 0)), plot->size());
    const QRect on = plot->screen()->availableGeometry();
    const int left = area.right() - width() - inset;
    const int top = area.bottom() - height() - inset;
    move(std::clamp(left, on.left(), std::max(on.left(), on.right() - width())),
         std::clamp(top, on.top(), std::max(on.top(), on.bottom() - height())));
}
