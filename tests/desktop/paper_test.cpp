#include "platform/qt/paper.h"

#include <QFile>
#include <QFileDialog>
#include <QImage>
#include <QLineEdit>
#include <QPdfWriter>
#include <QPrinterInfo>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>

#include "desktop/deskfixture.h"
#include "session/sampleload.h"
#include "shell/calcplot.h"

namespace {

class Paper : public DesktopTest {
protected:
    QTemporaryDir folder;
    QString file = folder.filePath(QStringLiteral("page.pdf"));

    /// Output of a PDF tool on the page file; empty, and the test skipped, without the tool.
    static QByteArray tool(const char* name, const QStringList& arguments) {
        const QString program = QStandardPaths::findExecutable(QLatin1String(name));
        if (program.isEmpty()) return {};
        QProcess run;
        run.start(program, arguments);
        EXPECT_TRUE(run.waitForFinished(30000));
        return run.readAllStandardOutput();
    }
    QStringList pages() const {
        QString all =
            QString::fromUtf8(tool("pdftotext", {QStringLiteral("-layout"), file, QStringLiteral("-")}));
        if (all.endsWith(QLatin1Char('\f'))) all.chop(1);
        return all.split(QLatin1Char('\f'));
    }
    static bool missing(const char* name) {
        return QStandardPaths::findExecutable(QLatin1String(name)).isEmpty();
    }
    /// The page as a picture, so many dots to the inch.
    QImage picture(int dots) const {
        const QString stem = folder.filePath(QStringLiteral("seen"));
        tool("pdftoppm", {QStringLiteral("-png"), QStringLiteral("-singlefile"), QStringLiteral("-r"),
                          QString::number(dots), file, stem});
        return QImage(stem + QStringLiteral(".png"));
    }
    /// Rectangle of what is not white.
    static QRect inked(const QImage& image) {
        QRect area;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                if (image.pixelColor(x, y).lightness() < 200) area |= QRect(x, y, 1, 1);
        return area;
    }
};

TEST_F(Paper, ATextHasItsHeaderAndNumberOnEveryPage) {
    if (missing("pdftotext")) GTEST_SKIP();
    {
        QPdfWriter page(file);
        std::string text;
        for (int i = 1; i <= 150; ++i) text += "row " + std::to_string(i) + "\r\n";
        ASSERT_TRUE(textonpaper(page, "Bearings", text));
    }
    const QStringList found = pages();
    ASSERT_GT(found.size(), 1);
    for (qsizetype i = 0; i < found.size(); ++i) {
        EXPECT_TRUE(found[i].contains(QStringLiteral("Bearings")));
        EXPECT_TRUE(found[i].contains(QStringLiteral("%1 / %2").arg(i + 1).arg(found.size())));
    }
    const QString all = found.join(QLatin1Char(' '));
    for (int i = 1; i <= 150; ++i) ASSERT_TRUE(all.contains(QStringLiteral("row %1\n").arg(i))) << i;
}

TEST_F(Paper, AFormFeedBeginsANewPage) {
    if (missing("pdftotext")) GTEST_SKIP();
    {
        QPdfWriter page(file);
        ASSERT_TRUE(textonpaper(page, "Two", "first\n\fsecond\n"));
    }
    const QStringList found = pages();
    ASSERT_EQ(found.size(), 2);
    EXPECT_TRUE(found[0].contains(QStringLiteral("first")));
    EXPECT_TRUE(found[1].contains(QStringLiteral("second")));
}

TEST_F(Paper, ALineTooLongForThePageGoesOnInTheNext) {
    if (missing("pdftotext")) GTEST_SKIP();
    {
        QPdfWriter page(file);
        ASSERT_TRUE(textonpaper(page, "Long", std::string(200, 'a') + "END"));
    }
    EXPECT_TRUE(pages()[0].contains(QStringLiteral("aEND")));
}

TEST_F(Paper, ThePlotTakesItsPartOfThePageCentred) {
    if (missing("pdftoppm")) GTEST_SKIP();
    ASSERT_TRUE(sampleload(2));
    calcplot();
    {
        QPdfWriter page(file);
        page.setPageOrientation(QPageLayout::Landscape);
        page.setPageMargins(QMarginsF(0, 0, 0, 0));
        ASSERT_TRUE(plotonpaper(page, true, 50, QSize(1200, 900)));
    }
    const QImage seen = picture(60);
    ASSERT_FALSE(seen.isNull());
    EXPECT_TRUE(seen.save(picturefile(QStringLiteral("paper-fine-50"))));
    const QRect area = inked(seen); // the frame stands at the edge of the canvas
    EXPECT_NEAR(area.width(), seen.width() * 0.5, 3);
    EXPECT_NEAR(area.height(), seen.height() * 0.5, 3);
    EXPECT_NEAR(area.center().x(), seen.width() / 2.0, 3);
    EXPECT_NEAR(area.center().y(), seen.height() / 2.0, 3);
}

TEST_F(Paper, ThePictureAsShownKeepsItsShape) {
    if (missing("pdftoppm")) GTEST_SKIP();
    ASSERT_TRUE(sampleload(2));
    calcplot();
    {
        QPdfWriter page(file);
        page.setPageMargins(QMarginsF(0, 0, 0, 0));
        ASSERT_TRUE(plotonpaper(page, false, 100, QSize(1200, 900)));
    }
    const QImage seen = picture(60);
    EXPECT_TRUE(seen.save(picturefile(QStringLiteral("paper-shown"))));
    const QRect area = inked(seen);
    EXPECT_NEAR(area.width(), seen.width(), 3);
    EXPECT_NEAR(1.0 * area.width() / area.height(), 4.0 / 3, 0.03);
}

TEST_F(Paper, ThePageKeepsTheWordsAsText) {
    if (missing("pdftotext")) GTEST_SKIP();
    ASSERT_TRUE(sampleload(2));
    calcplot();
    {
        QPdfWriter page(file);
        ASSERT_TRUE(plotonpaper(page, true, 100, QSize(1200, 900)));
    }
    EXPECT_TRUE(pages()[0].contains(QStringLiteral("Weibull")));
}

TEST_F(Paper, WithoutAPrinterThePlotGoesIntoAPdfFile) {
    if (!QPrinterInfo::availablePrinterNames().isEmpty()) GTEST_SKIP() << "there is a printer";
    ASSERT_TRUE(sampleload(2));
    calcplot();
    onform([this](QDialog& form) {
        auto* name = form.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        ASSERT_TRUE(name);
        name->setText(file);
        QTest::keyClick(name, Qt::Key_Return);
    });
    EXPECT_EQ(desktop.printer()->printplot(true, 100), PrintEnd::printed);
    EXPECT_TRUE(QFile::exists(file));
    EXPECT_FALSE(QFile::exists(file + QStringLiteral(".part")));
    press(Qt::Key_Escape);
    EXPECT_EQ(desktop.printer()->printtext("Header", "text"), PrintEnd::cancelled);
}

} // namespace
