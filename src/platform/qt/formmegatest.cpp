#include "platform/qt/formmegatest.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPainter>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QScrollArea>
#include <QStackedWidget>
#include <QStyle>
#include <QTabBar>
#include <QToolButton>
#include <algorithm>

#include "data/report.h"
#include "platform/qt/flowview.h"
#include "platform/qt/helpview.h"
#include "platform/qt/icons.h"
#include "platform/qt/style.h"
#include "platform/qt/surface.h"
#include "platform/qt/text.h"
#include "shell/commands.h"
#include "shell/commandtable.h"
#include "shell/helppages.h"

/// The plot at the size of the tab; drawn anew when the session or the size has changed.
class PlotPane : public QWidget {
public:
    PlotPane() {
        setObjectName(QStringLiteral("PlotPage"));
        setMinimumSize(320, 240);
    }
    void forget() {
        picture = {};
        update();
    }

protected:
    void paintEvent(QPaintEvent*) override {
        const QSizeF had = picture.deviceIndependentSize();
        if (picture.isNull() || had.toSize() != size()) picture = plotpixmap(size(), devicePixelRatioF());
        QPainter(this).drawPixmap(0, 0, picture);
    }

private:
    QPixmap picture;
};

namespace {

enum Page { plotPage, reportPage, flowPage }; ///< places of the first tabs

} // namespace

FormMegaTest::FormMegaTest(QWidget* parent)
    : QWidget(parent, Qt::Window),
      tabs(new QTabBar),
      box(new QStackedWidget),
      icons(new QWidget),
      gauge(new QProgressBar) {
    tones();
    setObjectName(QStringLiteral("FormMegaTest"));
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(8, 8, 8, 8);
    auto* top = new QHBoxLayout;
    icons->setObjectName(QStringLiteral("IconsMain1"));
    auto* iconScroll = new QScrollArea;
    iconScroll->setFrameShape(QFrame::NoFrame);
    iconScroll->setWidgetResizable(true);
    iconScroll->setFocusPolicy(Qt::NoFocus);
    iconScroll->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    iconScroll->setWidget(icons);
    new QHBoxLayout(icons);
    icons->layout()->setContentsMargins(0, 0, 0, 0);
    icons->layout()->setSpacing(1);
    iconScroll->setFixedHeight(58);
    top->addWidget(iconScroll, 1);
    buildsizes(top);
    column->addLayout(top);
    tabs->setObjectName(QStringLiteral("TabSet1"));
    tabs->setExpanding(false);
    tabs->setUsesScrollButtons(true);
    tabs->setElideMode(Qt::ElideNone);
    column->addWidget(tabs);
    box->setObjectName(QStringLiteral("PlotReportPicBox1"));
    column->addWidget(box, 1);
    gauge->setObjectName(QStringLiteral("TimeGagePic"));
    gauge->setRange(0, 1000);
    gauge->hide();
    column->addWidget(gauge);
    connect(tabs, &QTabBar::currentChanged, this, [this](int at) {
        box->setCurrentIndex(at);
        if (at == reportPage) fillreport();
    });
    retitle();
    resize(960, 700);
}

/// Image0, Image1, Image2: smallest, middle, largest.
void FormMegaTest::buildsizes(QHBoxLayout* row) {
    struct Size {
        const char* name;
        QStyle::StandardPixmap picture;
        void (QWidget::*show)();
    };
    constexpr Size sizes[] = {{"Image0", QStyle::SP_TitleBarMinButton, &QWidget::showMinimized},
                              {"Image1", QStyle::SP_TitleBarNormalButton, &QWidget::showNormal},
                              {"Image2", QStyle::SP_TitleBarMaxButton, &QWidget::showMaximized}};
    for (const Size& size : sizes) {
        auto* button = new QToolButton;
        button->setObjectName(QLatin1String(size.name));
        button->setIcon(style()->standardIcon(size.picture));
        button->setAutoRaise(true);
        connect(button, &QToolButton::clicked, this, [this, show = size.show] { (this->*show)(); });
        row->addWidget(button, 0, Qt::AlignTop);
    }
}

/// The commands of the main window's strip: a press here is a press there.
void FormMegaTest::buildicons() {
    qDeleteAll(icons->findChildren<QToolButton*>(Qt::FindDirectChildrenOnly));
    auto* row = static_cast<QHBoxLayout*>(icons->layout());
    while (QLayoutItem* left = row->takeAt(0)) delete left;
    for (const int number : iconstrip()) {
        if (number == iconGap) {
            row->addSpacing(8);
            continue;
        }
        auto* button = new QToolButton;
        const Command* const command = commandof(number);
        button->setObjectName(QStringLiteral("IconsMain1_%1").arg(number));
        button->setAutoRaise(true);
        button->setFocusPolicy(Qt::TabFocus);
        const QString name = qs(commandname(number));
        button->setAccessibleName(name);
        button->setToolTip(qs(commandtip(number)));
        button->setIcon(tintedicon(qs(command ? command->icon : "")));
        button->setIconSize(QSize(24, 24));
        connect(button, &QToolButton::clicked, this, [this, number] {
            iconpress(number, primaryPress);
            refresh();
        });
        row->addWidget(button);
    }
    row->addStretch();
}

void FormMegaTest::buildpages() {
    while (box->count() > 0) delete box->widget(0);
    while (tabs->count() > 0) tabs->removeTab(0);
    const auto add = [this](const QString& title, QWidget* page) {
        page->setAccessibleName(title);
        box->addWidget(page);
        tabs->addTab(title);
    };
    plot = new PlotPane;
    report = new QPlainTextEdit;
    report->setObjectName(QStringLiteral("ReportPage"));
    report->setReadOnly(true);
    report->setLineWrapMode(QPlainTextEdit::NoWrap);
    report->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    report->setFont(fixedfont());
    add(phrase(Word::Plot), plot);
    add(phrase(Word::Report), report);
    const FlowChart chart = flowchart();
    add(qs(chart.title), scrolled(new FlowView(chart)));
    for (const HelpPage& page : helppages()) add(qs(page.title), helpbrowser(page));
}

void FormMegaTest::retitle() {
    const int at = tabs->currentIndex();
    setWindowTitle(
        phrase(AsTyped{session.productName}, " ... ", Word::Plot, " / ", Word::Report, " / ", Word::Help));
    const QString sizes[] = {phrase(Word::Minimize), phrase(Word::Midsize), phrase(Word::Maximize)};
    for (int i = 0; i < 3; ++i) {
        auto* button = findChild<QToolButton*>(QStringLiteral("Image%1").arg(i));
        button->setAccessibleName(sizes[i]);
        button->setToolTip(sizes[i]);
    }
    tabs->setAccessibleName(phrase(Word::Select, " ", Word::View));
    gauge->setAccessibleName(phrase(Word::Progress));
    buildpages();
    tabs->setCurrentIndex(std::max(at, 0));
    refresh();
}

void FormMegaTest::fillreport() {
    const QString text = qs(reportastext());
    if (report->toPlainText() != text) report->setPlainText(text);
}

void FormMegaTest::refresh() {
    buildicons();
    plot->forget();
    if (tabs->currentIndex() == reportPage) fillreport();
}

void FormMegaTest::showtab(ViewTab tab) {
    constexpr int pages[] = {plotPage, reportPage, flowPage};
    refresh();
    tabs->setCurrentIndex(pages[static_cast<std::size_t>(tab)]);
    if (isMinimized()) showNormal();
    show();
    raise();
    activateWindow();
    tabs->setFocus();
}

void FormMegaTest::progress(double done) {
    gauge->setVisible(done <= 1);
    if (done <= 1) gauge->setValue(static_cast<int>(std::clamp(done, 0.0, 1.0) * gauge->maximum()));
}

void FormMegaTest::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) {
        close();
        return;
    }
    if (event->matches(QKeySequence::Print)) {
        const bool onReport = tabs->currentIndex() == reportPage;
        if (Printer* const paper = platform ? platform->printer() : nullptr; paper && onReport)
            paper->printtext(session.productName, reportastext());
        else if (paper && tabs->currentIndex() == plotPage)
            paper->printplot(true, 100);
        return;
    }
    QWidget::keyPressEvent(event);
}
