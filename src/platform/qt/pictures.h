#pragma once

#include <QByteArray>
#include <QImage>
#include <QSize>

#include "platform/platform.h"

/// Pictures as pixels and pages.
class DesktopPictures : public Pictures {
public:
    bool bitmap(const std::string& path, std::string_view svg, int across, int down) override;
};

QSize sizeofpicture(const QByteArray& svg); ///< in pixels; empty when it is no picture

/// The picture as pixels on white; null when it is no picture or too large.
QImage imageof(const QByteArray& svg, QSize size);
