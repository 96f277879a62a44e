#include "platform/qt/formmegatest.h"

#include <QPlainTextEdit>
#include <QProgressBar>
#include <QStackedWidget>
#include <QTabBar>
#include <QTextBrowser>
#include <QToolButton>

#include "data/report.h"
#include "desktop/deskfixture.h"
#include "session/sampleload.h"
#include "shell/calcplot.h"
#include "shell/helppages.h"

namespace {

class TabbedView : public DesktopTest {
protected:
    TabbedView() {
        sampleload(2);
        calcplot();
    }
    template <class Kind>
    static Kind* child(FormMegaTest& view, const char* name) {
        return view.findChild<Kind*>(QLatin1String(name));
    }
    static QString report(FormMegaTest& view) {
        return child<QPlainTextEdit>(view, "ReportPage")->toPlainText();
    }
};

TEST_F(TabbedView, HasItsParts) {
    FormMegaTest view;
    EXPECT_EQ(view.objectName(), QStringLiteral("FormMegaTest"));
    for (const char* name :
         {"TabSet1", "PlotReportPicBox1", "IconsMain1", "Image0", "Image1", "Image2", "TimeGagePic"})
        EXPECT_TRUE(child<QWidget>(view, name)) << name;
    EXPECT_EQ(child<QTabBar>(view, "TabSet1")->count(), 3 + static_cast<int>(helppages().size()));
}

TEST_F(TabbedView, ShowsTheTabAskedFor) {
    FormMegaTest view;
    auto* box = child<QStackedWidget>(view, "PlotReportPicBox1");
    view.showtab(ViewTab::report);
    EXPECT_TRUE(view.isVisible());
    EXPECT_EQ(box->currentWidget()->objectName(), QStringLiteral("ReportPage"));
    view.showtab(ViewTab::plot);
    EXPECT_EQ(box->currentWidget()->objectName(), QStringLiteral("PlotPage"));
    keeppicture(view, QStringLiteral("megatest-plot"));
    view.showtab(ViewTab::help);
    EXPECT_TRUE(box->currentWidget()->findChild<QWidget*>(QStringLiteral("FlowChart")));
    expectnamed(view);
}

TEST_F(TabbedView, EveryPageOfAdviceCanBeSeen) {
    FormMegaTest view;
    view.showtab(ViewTab::plot);
    auto* tabs = child<QTabBar>(view, "TabSet1");
    for (int i = 0; i < tabs->count(); ++i) {
        tabs->setCurrentIndex(i);
        QApplication::processEvents();
        EXPECT_TRUE(child<QStackedWidget>(view, "PlotReportPicBox1")->currentWidget()->isVisibleTo(&view))
            << i;
        keeppicture(view, QStringLiteral("megatest-%1").arg(i));
    }
}

TEST_F(TabbedView, TheReportIsThatOfTheSessionInEqualWidths) {
    FormMegaTest view;
    view.showtab(ViewTab::report);
    QString expected = qs(reportastext());
    ASSERT_FALSE(expected.isEmpty());
    EXPECT_EQ(report(view), expected.replace(QStringLiteral("\r\n"), QStringLiteral("\n")));
    const QFontMetricsF metrics(child<QPlainTextEdit>(view, "ReportPage")->font());
    EXPECT_EQ(metrics.horizontalAdvance(QStringLiteral("iiii")),
              metrics.horizontalAdvance(QStringLiteral("WWWW")));
}

TEST_F(TabbedView, ARefreshShowsTheNewResults) {
    FormMegaTest view;
    view.showtab(ViewTab::report);
    const QString before = report(view);
    ASSERT_TRUE(sampleload(3));
    calcplot();
    view.refresh();
    EXPECT_NE(report(view), before);
}

TEST_F(TabbedView, TheGaugeShowsHowFarARunIs) {
    FormMegaTest view;
    view.showtab(ViewTab::plot);
    auto* gauge = child<QProgressBar>(view, "TimeGagePic");
    EXPECT_FALSE(gauge->isVisible());
    view.progress(0.25);
    EXPECT_TRUE(gauge->isVisible());
    EXPECT_EQ(gauge->value(), gauge->maximum() / 4);
    view.progress(1.1);
    EXPECT_FALSE(gauge->isVisible());
}

TEST_F(TabbedView, EscapeClosesIt) {
    FormMegaTest view;
    view.showtab(ViewTab::plot);
    QTest::keyClick(&view, Qt::Key_Escape);
    EXPECT_FALSE(view.isVisible());
}

TEST_F(TabbedView, MidsizeAndMaximise) {
    FormMegaTest view;
    view.showtab(ViewTab::plot);
    QTest::mouseClick(child<QToolButton>(view, "Image2"), Qt::LeftButton);
    EXPECT_TRUE(view.isMaximized());
    QTest::mouseClick(child<QToolButton>(view, "Image1"), Qt::LeftButton);
    EXPECT_FALSE(view.isMaximized());
    QTest::mouseClick(child<QToolButton>(view, "Image0"), Qt::LeftButton);
    EXPECT_TRUE(view.isMinimized());
    view.showtab(ViewTab::plot);
    EXPECT_FALSE(view.isMinimized());
}

TEST_F(TabbedView, SpeaksEveryLanguage) {
    FormMegaTest view;
    view.showtab(ViewTab::plot);
    for (const Language& language : languages()) {
        const InLanguage here(language.name);
        view.retitle();
        EXPECT_EQ(child<QTabBar>(view, "TabSet1")->tabText(1), phrase(Word::Report));
        expectnothingcut(view, std::string(language.name));
    }
}

TEST_F(TabbedView, IsReadableInDarkSurroundings) {
    session.surroundings = 2;
    applysurroundings();
    FormMegaTest view;
    view.showtab(ViewTab::help);
    keeppicture(view, QStringLiteral("megatest-dark"));
    const QPalette palette = QApplication::palette();
    EXPECT_LT(palette.color(QPalette::Window).lightness(), 100);
    EXPECT_GT(palette.color(QPalette::WindowText).lightness(), 200);
    view.showtab(ViewTab::plot);
    QApplication::processEvents();
    auto* plot = child<QWidget>(view, "PlotPage");
    EXPECT_EQ(plot->grab().toImage().pixelColor(5, plot->height() / 2),
              QColor(Qt::white)); // paper stays paper
    session.surroundings = 1;
    applysurroundings();
    EXPECT_GT(QApplication::palette().color(QPalette::Window).lightness(), 200);
}

} // namespace
