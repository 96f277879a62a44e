#include "platform/qt/icons.h"

#include <QFile>
#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QPixmapCache>
#include <QSvgRenderer>
#include <memory>
#include <utility>

/// The pictures lie in a library: without this the linker leaves them out. Outside any namespace, as the
/// macro wants it.
static void initpictures() { Q_INIT_RESOURCE(desktop); }

namespace {

constexpr auto accentInk = "#1f5fad"; ///< the ink in the pictures that a palette replaces by its accent

QByteArray picturenamed(const QString& name) {
    static const bool ready = (initpictures(), true);
    QFile file(QStringLiteral(":/icons/") + name + QStringLiteral(".svg"));
    return ready && file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QByteArray tinted(QByteArray picture, QIcon::Mode mode) {
    const QPalette palette = QGuiApplication::palette();
    const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
    picture.replace("currentColor", palette.color(group, QPalette::ButtonText).name().toLatin1());
    return picture.replace(accentInk, palette.color(group, QPalette::Link).name().toLatin1());
}

/// Painted once for each size and each pair of inks: a strip of icons is painted with every plot.
class TintedPicture : public QIconEngine {
public:
    explicit TintedPicture(QByteArray source) : picture(std::move(source)) {}

    void paint(QPainter* painter, const QRect& place, QIcon::Mode mode, QIcon::State state) override {
        const double ratio = painter->device()->devicePixelRatioF();
        QPixmap drawn = pixmap((QSizeF(place.size()) * ratio).toSize(), mode, state);
        drawn.setDevicePixelRatio(ratio);
        painter->drawPixmap(place.topLeft(), drawn);
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State) override {
        const QByteArray source = tinted(picture, mode);
        const QString key =
            QStringLiteral("icon %1 %2 %3").arg(qHash(source)).arg(size.width()).arg(size.height());
        QPixmap drawn;
        if (QPixmapCache::find(key, &drawn)) return drawn;
        drawn = QPixmap(size);
        drawn.fill(Qt::transparent);
        QPainter painter(&drawn);
        if (!source.isEmpty()) QSvgRenderer(source).render(&painter, QRectF(QPointF(), QSizeF(size)));
        painter.end();
        QPixmapCache::insert(key, drawn);
        return drawn;
    }
    QPixmap scaledPixmap(const QSize& size, QIcon::Mode mode, QIcon::State state, qreal) override {
        return pixmap(size, mode, state);
    }
    QIconEngine* clone() const override { return std::make_unique<TintedPicture>(*this).release(); }

private:
    QByteArray picture;
};

} // namespace

QIcon tintedicon(const QString& name) {
    return QIcon(std::make_unique<TintedPicture>(picturenamed(name)).release());
}

QIcon programicon() { return tintedicon(QStringLiteral("omnivanex")); }
