#include "platform/qt/pictures.h"

#include <QFileInfo>
#include <QImageWriter>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QSaveFile>

#include "platform/paths.h"
#include "platform/qt/svgpicture.h"
#include "platform/qt/text.h"

namespace {

constexpr int mostPixels = 16384; ///< on a side

bool drawable(QSize size) {
    return !size.isEmpty() && size.width() <= mostPixels && size.height() <= mostPixels;
}

bool savepixels(QSaveFile& file, const char* format, const QByteArray& svg, QSize size) {
    const QImage image = imageof(svg, size);
    return !image.isNull() && QImageWriter(&file, format).write(image);
}

/// One page of the picture's size, vectors and text.
bool savepage(QSaveFile& file, const char*, const QByteArray& svg, QSize size) {
    constexpr double pointsPerPixel = 0.75;
    constexpr int dotsPerInch = 1200;
    SvgPicture picture(svg);
    if (!picture.valid() || !drawable(size)) return false;
    QPdfWriter page(&file);
    page.setCreator(QStringLiteral("OmniVANEX"));
    page.setResolution(dotsPerInch);
    page.setPageSize(QPageSize(QSizeF(size) * pointsPerPixel, QPageSize::Point));
    page.setPageMargins(QMarginsF(0, 0, 0, 0));
    QPainter painter;
    if (!painter.begin(&page)) return false;
    picture.paint(painter, QSizeF(page.width(), page.height()));
    return painter.end();
}

struct Kind {
    const char* extension;
    const char* format;
    bool (*save)(QSaveFile& file, const char* format, const QByteArray& svg, QSize size);
};
constexpr Kind kinds[] = {{"bmp", "BMP", savepixels}, {"png", "PNG", savepixels}, {"pdf", "PDF", savepage}};

} // namespace

QSize sizeofpicture(const QByteArray& svg) {
    const SvgPicture picture(svg);
    return picture.valid() ? picture.size() : QSize();
}

QImage imageof(const QByteArray& svg, QSize size) {
    SvgPicture picture(svg);
    if (!picture.valid() || !drawable(size)) return {};
    QImage image(size, QImage::Format_RGB32);
    if (image.isNull()) return {};
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    picture.paint(painter, size);
    return image;
}

bool DesktopPictures::bitmap(const std::string& path, std::string_view svg, int across, int down) {
    const QString target = qs(nativepath(path));
    const QString extension = QFileInfo(target).suffix().toLower();
    for (const Kind& kind : kinds) {
        if (extension != QLatin1String(kind.extension)) continue;
        QSaveFile file(target);
        const QByteArray text(svg.data(), static_cast<qsizetype>(svg.size()));
        return file.open(QIODevice::WriteOnly) && kind.save(file, kind.format, text, {across, down})
               && file.commit();
    }
    return false;
}
