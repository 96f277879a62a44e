#include <QClipboard>
#include <QDate>
#include <QFile>
#include <QGuiApplication>
#include <QImage>
#include <QMimeData>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>

#include "data/report.h"
#include "desktop/deskfixture.h"
#include "plot/plotfile.h"
#include "session/sampleload.h"
#include "shell/calcplot.h"
#include "shell/output.h"

namespace {

constexpr std::string_view simple =
    R"(<?xml version="1.0"?><svg xmlns="http://www.w3.org/2000/svg" width="80" height="60" viewBox="0 0 80 60">
<rect x="0" y="0" width="40" height="60" fill="#1f5fad"/></svg>)";

class PicturesOf : public DesktopTest {
protected:
    QTemporaryDir folder;
    std::string path(const char* name) const { return utf8(folder.filePath(QLatin1String(name))); }
    static QByteArray content(const std::string& name) {
        QFile file(qs(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
};

TEST_F(PicturesOf, TheExtensionNamesTheKind) {
    struct Kind {
        const char *name, *start;
    };
    for (const Kind kind : {Kind{"a.bmp", "BM"}, Kind{"a.PNG", "\x89PNG"}, Kind{"a.pdf", "%PDF-"}}) {
        ASSERT_TRUE(desktop.pictures().bitmap(path(kind.name), simple, 160, 120)) << kind.name;
        EXPECT_TRUE(content(path(kind.name)).startsWith(kind.start)) << kind.name;
    }
}

TEST_F(PicturesOf, PixelsAreThoseOfThePictureAtTheSizeAskedFor) {
    ASSERT_TRUE(desktop.pictures().bitmap(path("a.png"), simple, 160, 120));
    const QImage image(qs(path("a.png")));
    EXPECT_EQ(image.size(), QSize(160, 120));
    EXPECT_EQ(image.pixelColor(20, 60), QColor(0x1f, 0x5f, 0xad));
    EXPECT_EQ(image.pixelColor(120, 60), QColor(Qt::white));
}

TEST_F(PicturesOf, WhatCannotBeDrawnLeavesTheFileAsItWas) {
    QFile file(qs(path("old.png")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("kept");
    file.close();
    EXPECT_FALSE(desktop.pictures().bitmap(path("old.png"), "no picture", 160, 120));
    EXPECT_FALSE(desktop.pictures().bitmap(path("old.png"), simple, 0, 120));
    EXPECT_FALSE(desktop.pictures().bitmap(path("old.png"), simple, 1000000, 1000000));
    EXPECT_EQ(content(path("old.png")), "kept");
    EXPECT_FALSE(desktop.pictures().bitmap(path("a.gif"), simple, 160, 120));
    EXPECT_FALSE(QFile::exists(qs(path("a.gif"))));
    EXPECT_FALSE(desktop.pictures().bitmap(path("none/a.png"), simple, 160, 120));
}

TEST_F(PicturesOf, ThePdfOfAPlotHoldsItsWordsAsText) {
    const QString reader = QStandardPaths::findExecutable(QStringLiteral("pdftotext"));
    if (reader.isEmpty()) GTEST_SKIP() << "no pdftotext";
    ASSERT_TRUE(sampleload(2));
    calcplot();
    std::string svg;
    ASSERT_TRUE(plotsvg(svg, 1200, 900));
    ASSERT_TRUE(desktop.pictures().bitmap(path("plot.pdf"), svg, 1200, 900));
    QProcess run;
    run.start(reader, {qs(path("plot.pdf")), QStringLiteral("-")});
    ASSERT_TRUE(run.waitForFinished());
    EXPECT_TRUE(run.readAllStandardOutput().contains("Weibull"));
}

TEST_F(PicturesOf, ATextIsAsLongAsThePictureSays) {
    constexpr std::string_view stretched =
        R"(<svg xmlns="http://www.w3.org/2000/svg" width="400" height="60" viewBox="0 0 400 60">
<text x="50" y="40" font-size="20" fill="#000000" textLength="200">HHHH</text></svg>)";
    ASSERT_TRUE(desktop.pictures().bitmap(path("a.png"), stretched, 400, 60));
    const QImage image(qs(path("a.png")));
    int first = 400, last = 0;
    for (int x = 0; x < 400; ++x)
        for (int y = 0; y < 60; ++y)
            if (image.pixelColor(x, y).lightness() < 128) {
                first = std::min(first, x);
                last = std::max(last, x);
            }
    EXPECT_NEAR(first, 50, 12);
    EXPECT_NEAR(last, 250, 8);
}

class DesktopBoard : public DesktopTest {
protected:
    static const QMimeData* held() { return QGuiApplication::clipboard()->mimeData(); }
};

TEST_F(DesktopBoard, TextGoesThereAndBack) {
    const std::string text = "150\t-230\r\nGr\xC3\xB6\xC3\x9F"
                             "e \xE2\x89\xA5 1";
    EXPECT_TRUE(desktop.clipboard().settext(text));
    EXPECT_EQ(desktop.clipboard().text(), text);
}

TEST_F(DesktopBoard, AnEmptyClipboardHasNoText) {
    QGuiApplication::clipboard()->clear();
    EXPECT_EQ(desktop.clipboard().text(), std::nullopt);
}

TEST_F(DesktopBoard, APictureIsOfferedAsVectorsAndAsPixels) {
    ASSERT_TRUE(desktop.clipboard().setpicture(simple));
    EXPECT_EQ(held()->data(QStringLiteral("image/svg+xml")).toStdString(), simple);
    ASSERT_TRUE(held()->hasImage());
    const auto image = qvariant_cast<QImage>(held()->imageData());
    EXPECT_EQ(image.size(), QSize(80, 60));
    EXPECT_EQ(image.pixelColor(10, 30), QColor(0x1f, 0x5f, 0xad));
}

TEST_F(DesktopBoard, AReportGoesBesideThePlot) {
    ASSERT_TRUE(sampleload(2));
    calcplot();
    session.totalReport = 1;
    EXPECT_TRUE(copyplot());
    EXPECT_TRUE(held()->hasImage());
    EXPECT_TRUE(held()->hasFormat(QStringLiteral("image/svg+xml")));
    EXPECT_EQ(desktop.clipboard().text(), reportastext());
    session.totalReport = 0;
    EXPECT_TRUE(copyplot());
    EXPECT_TRUE(held()->hasImage());
    EXPECT_FALSE(held()->hasText());
}

TEST_F(DesktopBoard, WhatIsNoPictureLeavesTheClipboardAlone) {
    ASSERT_TRUE(desktop.clipboard().settext("before"));
    EXPECT_FALSE(desktop.clipboard().setpicture("<svg"));
    EXPECT_EQ(desktop.clipboard().text(), "before");
}

TEST_F(DesktopBoard, TodayIsADateOfTheCommonForm) {
    const QDate date = QDate::fromString(qs(desktop.clock().date()), QStringLiteral("yyyy-MM-dd"));
    EXPECT_LE(std::abs(date.daysTo(QDate::currentDate())), 1);
}

} // namespace
