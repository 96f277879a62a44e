#include "platform/qt/surface.h"

#include <QImage>
#include <QSvgRenderer>
#include <cstdlib>

#include "desktop/deskfixture.h"
#include "plot/drawing.h"
#include "plot/plotfile.h"
#include "plot/textmetrics.h"
#include "session/sampleload.h"
#include "shell/calcplot.h"

namespace {

class Surface : public DesktopTest {
protected:
    /// The device on an image of that scale, kept for the session's calls from begin to end.
    struct Sheet {
        QImage image;
        QPainter painter;
        PainterDevice device;
        Sheet(int across, int down, double dpr)
            : image(blank(across, down, dpr)),
              painter(&image),
              device(painter, QSizeF(across, down)) {
            session.plotspeed = -1; // no frame
            EXPECT_TRUE(plotbegin(device));
        }
        static QImage blank(int across, int down, double dpr) {
            QImage image((QSizeF(across, down) * dpr).toSize(), QImage::Format_RGB32);
            image.setDevicePixelRatio(dpr);
            image.fill(Qt::red); // what the device must cover
            return image;
        }
        const QImage& done() {
            EXPECT_TRUE(plotend());
            painter.end();
            return image;
        }
    };
    static void lineto(double x1, double y1, double x2, double y2, float pen) {
        session.plotx1 = x1;
        session.ploty1 = y1;
        session.plotx2 = x2;
        session.ploty2 = y2;
        session.plotpen = pen;
        plotline();
    }
    static QColor colour(int number) {
        return QColor(static_cast<QRgb>(session.palette[static_cast<std::size_t>(number)]));
    }
    void TearDown() override { plotabandon(); }
};

TEST_F(Surface, CoversItsPaperInWhite) {
    Sheet sheet(40, 30, 1);
    const QImage& image = sheet.done();
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) ASSERT_EQ(image.pixelColor(x, y), QColor(Qt::white));
}

TEST_F(Surface, AHairlineIsOnePixelOfItsColourAtEveryScale) {
    for (const double dpr : {1.0, 1.25, 1.5, 2.0, 3.0}) {
        Sheet sheet(100, 80, dpr);
        lineto(15 * 20, 15 * 10, 15 * 20, 15 * 70, 6); // upright at x = 20
        const QImage& image = sheet.done();
        const int y = static_cast<int>(40 * dpr);
        int inked = 0, mixed = 0;
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixelColor(x, y) == colour(6))
                ++inked;
            else if (image.pixelColor(x, y) != QColor(Qt::white))
                ++mixed;
        }
        EXPECT_EQ(inked, std::lround(dpr)) << dpr;
        EXPECT_EQ(mixed, 0) << dpr;
        EXPECT_EQ(image.pixelColor(static_cast<int>(20.5 * dpr), y), colour(6)) << dpr;
    }
}

TEST_F(Surface, AFilledBoxCoversThePixelsOfBothCorners) {
    Sheet sheet(60, 60, 1);
    lineto(15 * 10, 15 * 20, 15 * 30, 15 * 40, -299); // filled, colour 1
    const QImage& image = sheet.done();
    EXPECT_EQ(image.pixelColor(10, 20), colour(1));
    EXPECT_EQ(image.pixelColor(30, 40), colour(1));
    EXPECT_EQ(image.pixelColor(9, 20), QColor(Qt::white));
    EXPECT_EQ(image.pixelColor(31, 40), QColor(Qt::white));
}

TEST_F(Surface, AnOutlineLiesOnTheSamePixelsAsItsFilling) {
    Sheet sheet(60, 60, 1);
    lineto(15 * 10, 15 * 20, 15 * 30, 15 * 40, -198); // outline, colour 2
    const QImage& image = sheet.done();
    EXPECT_EQ(image.pixelColor(10, 30), colour(2));
    EXPECT_EQ(image.pixelColor(30, 30), colour(2));
    EXPECT_EQ(image.pixelColor(20, 20), colour(2));
    EXPECT_EQ(image.pixelColor(20, 40), colour(2));
    EXPECT_EQ(image.pixelColor(20, 30), QColor(Qt::white));
    EXPECT_EQ(image.pixelColor(9, 30), QColor(Qt::white));
}

TEST_F(Surface, APolylineGoesOnFromWhereThePenStands) {
    Sheet sheet(60, 60, 1);
    lineto(15 * 10, 15 * 10, 15 * 40, 15 * 10, 1);
    session.plotx1 = continueLine;
    session.plotx2 = 15 * 40;
    session.ploty2 = 15 * 50;
    plotline();
    const QImage& image = sheet.done();
    EXPECT_LT(image.pixelColor(40, 30).red(), 80);
    EXPECT_EQ(image.pixelColor(10, 30), QColor(Qt::white));
}

TEST_F(Surface, DashesLeaveGaps) {
    Sheet sheet(200, 20, 1);
    lineto(0, 15 * 10, 15 * 199, 15 * 10, -94); // dashed, colour 6
    const QImage& image = sheet.done();
    int inked = 0;
    for (int x = 0; x < 200; ++x) inked += image.pixelColor(x, 10) == colour(6);
    EXPECT_NEAR(inked, 120, 8); // six of ten
}

TEST_F(Surface, ATextIsAsWideAsTheDeviceSays) {
    Sheet sheet(400, 60, 1);
    session.plotx2 = 15 * 20;
    session.ploty2 = 15 * 40;
    session.plotpen = 28;
    session.textSize = 15 * 24;
    session.textRotation = 0;
    plottext("HHHHHHHH");
    const double wide = sheet.device.textwidth("HHHHHHHH", 15 * 24) / 15;
    const QImage& image = sheet.done();
    int first = 400, last = 0;
    for (int x = 0; x < 400; ++x)
        for (int y = 0; y < 60; ++y)
            if (image.pixelColor(x, y).lightness() < 128) {
                first = std::min(first, x);
                last = std::max(last, x);
            }
    EXPECT_NEAR(first, 20, 4);
    EXPECT_NEAR(last, 20 + wide, 4);
}

TEST_F(Surface, ATextIsAsWideInEverySizeAsItsFaceSays) {
    session.fontName = "DejaVu Sans";
    Sheet sheet(100, 60, 1);
    for (double pixels = 8; pixels < 40; pixels += 0.7) {
        const double size = 15 * pixels;
        EXPECT_NEAR(sheet.device.textwidth("Beta=1.9727", size), textadvance("Beta=1.9727") * size / 1000,
                    0.005 * size);
    }
    sheet.done();
}

TEST_F(Surface, AnUprightTextRunsUpFromItsAnchor) {
    Sheet sheet(60, 200, 1);
    session.plotx2 = 15 * 30;
    session.ploty2 = 15 * 180;
    session.plotpen = 28;
    session.textSize = 15 * 20;
    session.textRotation = 90;
    plottext("HHHHH");
    const QImage& image = sheet.done();
    int above = 0, below = 0;
    for (int x = 0; x < 60; ++x)
        for (int y = 0; y < 200; ++y)
            if (image.pixelColor(x, y).lightness() < 128) ++(y < 180 ? above : below);
    EXPECT_GT(above, 100);
    EXPECT_LT(below, 10);
    session.textRotation = 0;
}

TEST_F(Surface, WhatIsNoNumberIsNotDrawnFarAway) {
    Sheet sheet(60, 60, 1);
    lineto(std::nan(""), 0, 1e300, 15 * 10, 1);
    lineto(0, 0, 15 * 10, 0, 2);
    const QImage image = sheet.done();
    EXPECT_EQ(image.pixelColor(5, 0), colour(2)) << "what comes behind it is drawn";
}

/// Share of the pixels in which two pictures differ clearly, after a blur that forgives the edge of a letter.
double difference(const QImage& a, const QImage& b) {
    const auto soft = [](const QImage& image) {
        return image.scaled(image.size() / 8, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
            .convertToFormat(QImage::Format_RGB32);
    };
    const QImage left = soft(a), right = soft(b);
    int apart = 0;
    for (int y = 0; y < left.height(); ++y)
        for (int x = 0; x < left.width(); ++x)
            apart += std::abs(left.pixelColor(x, y).lightness() - right.pixelColor(x, y).lightness()) > 40;
    return apart / (1.0 * left.width() * left.height());
}

TEST_F(Surface, TheScreenShowsThePictureOfThePlotFile) {
    ASSERT_TRUE(sampleload(2));
    calcplot();
    const QPixmap screen = plotpixmap(QSize(1000, 750), 1);
    EXPECT_TRUE(screen.save(picturefile(QStringLiteral("plot-screen"))));
    std::string svg;
    ASSERT_TRUE(plotsvg(svg, 1000, 750));
    QSvgRenderer renderer(QByteArray::fromStdString(svg));
    QImage file(1000, 750, QImage::Format_RGB32);
    file.fill(Qt::white);
    QPainter painter(&file);
    renderer.render(&painter);
    painter.end();
    EXPECT_TRUE(file.save(picturefile(QStringLiteral("plot-svg"))));
    EXPECT_LT(difference(screen.toImage().convertToFormat(QImage::Format_RGB32), file), 0.01);
}

TEST_F(Surface, TheScreenPictureIsSharpOnADenseScreen) {
    ASSERT_TRUE(sampleload(2));
    calcplot();
    const QPixmap screen = plotpixmap(QSize(400, 300), 2);
    EXPECT_EQ(screen.size(), QSize(800, 600));
    EXPECT_EQ(screen.devicePixelRatio(), 2);
}

TEST_F(Surface, ThePlotLeavesTheOutputOfTheSessionAlone) {
    ASSERT_TRUE(sampleload(2));
    calcplot();
    session.outdev = plotterDevice;
    session.outputName = "x.hgl";
    plotpixmap(QSize(400, 300), 1);
    EXPECT_EQ(session.outdev, plotterDevice);
    EXPECT_EQ(session.outputName, "x.hgl");
}

} // namespace
