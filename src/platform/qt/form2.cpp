#include "platform/qt/form2.h"

#include "shell/words.h" // ahead of Qt, which has a global Display

#include <QApplication>
#include <QBoxLayout>
#include <QCloseEvent>
#include <QDir>
#include <QDropEvent>
#include <QEventLoop>
#include <QLabel>
#include <QMenu>
#include <QMimeData>
#include <QMouseEvent>
#include <QPainter>
#include <QProgressBar>
#include <QPushButton>
#include <QScreen>
#include <QSplitter>
#include <QTimer>
#include <QToolButton>
#include <QToolTip>
#include <algorithm>
#include <utility>

#include "platform/paths.h"
#include "platform/qt/dropbar.h"
#include "platform/qt/form1.h"
#include "platform/qt/formmegatest.h"
#include "platform/qt/gridview.h"
#include "platform/qt/icons.h"
#include "platform/qt/iconstrip.h"
#include "platform/qt/keymap.h"
#include "platform/qt/plotview.h"
#include "platform/qt/style.h"
#include "platform/qt/text.h"
#include "session/former.h"
#include "session/session.h"
#include "shell/commands.h"
#include "shell/dropmenu.h"
#include "shell/gridedit.h"
#include "shell/shellbusy.h"

namespace {

constexpr QSize standardSize(1180, 780);
constexpr int captionEvery = 50; ///< ms between two captions painted within one run
constexpr int longTime = 1000;   ///< ms from which on a run shows its gauge

/// The toggles beside the plot. `on` is the value of the setting while the toggle is pressed.
struct SwitchOf {
    const char* name;
    QString (*label)();
    int16_t PlotState::*setting;
    int16_t on;
};
constexpr SwitchOf switchTable[] = {
    {"SwitchPoint", [] { return phrase(Word::Point); }, &PlotState::pointHide, 0},
    {"SwitchLabel", [] { return phrase(Word::Label); }, &PlotState::pointLabelsShown, 1},
    {"SwitchLegend", [] { return QStringLiteral("LEGEND"); }, &PlotState::legendPlace,
     1}}; // as the plot heads it

/// A label that takes the room there is and shows the rest of its text as a tip.
class ElidedLabel : public QLabel {
public:
    using QLabel::QLabel;
    QSize minimumSizeHint() const override { return {40, QLabel::minimumSizeHint().height()}; }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        const QString shown = fontMetrics().elidedText(text(), Qt::ElideRight, width());
        painter.drawText(rect(), Qt::AlignVCenter | Qt::AlignLeft, shown);
        if (toolTip() != (shown == text() ? QString() : text()))
            setToolTip(shown == text() ? QString() : text());
    }
};

bool input(QEvent::Type type) {
    switch (type) {
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::Shortcut:
    case QEvent::ShortcutOverride:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::Wheel:
    case QEvent::DragEnter:
    case QEvent::Drop:
    case QEvent::Close: return true;
    default: return false;
    }
}

/// A press of the other button, or its key.
bool secondarypress(const QEvent& event) {
    if (event.type() == QEvent::MouseButtonPress)
        return static_cast<const QMouseEvent&>(event).button() == Qt::RightButton;
    return event.type() == QEvent::KeyPress && secondarykey(static_cast<const QKeyEvent&>(event));
}

/// What asks by menus of its own, whose choices are commands again: not while a command runs, and with an
/// open entry in its cell.
template <auto Act>
void settled() {
    if (session.shellBusy > 0) return;
    gridsettle();
    Act();
}

/// The first file of what is dragged; empty when it brings none.
QString filedragged(const QMimeData* data) {
    if (!data) return {};
    for (const QUrl& url : data->urls())
        if (url.isLocalFile()) return url.toLocalFile();
    return {};
}

} // namespace

Form2::Form2() {
    setObjectName(QStringLiteral("Form2"));
    setWindowIcon(programicon());
    setAcceptDrops(true);
    auto* const middle = new QWidget(this);
    auto* const column = new QVBoxLayout(middle);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    setCentralWidget(middle);
    buildtop();
    buildpanes();
    buildfoot();
    floating = new QLabel(this);
    floating->setObjectName(QStringLiteral("FloatLabel"));
    floating->setAutoFillBackground(true);
    floating->setBackgroundRole(QPalette::ToolTipBase);
    floating->setForegroundRole(QPalette::ToolTipText);
    floating->setFrameShape(QFrame::Box);
    floating->setMargin(6);
    floating->setWordWrap(true);
    floating->hide();
    buildshortcuts();
    placewindow();
    retitle();
    qApp->installEventFilter(this);
    grid->setFocus();
}

void Form2::buildtop() {
    auto* const column = static_cast<QBoxLayout*>(centralWidget()->layout());
    auto* const row = new QHBoxLayout;
    bar = new DropBar(centralWidget(), this);
    row->addWidget(bar);
    row->addStretch(1);
    former = new QToolButton;
    former->setObjectName(QStringLiteral("ImageFormer"));
    former->setIcon(tintedicon(QStringLiteral("former")));
    former->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    former->setAutoRaise(true);
    former->setFocusPolicy(Qt::TabFocus);
    former->installEventFilter(this);
    connect(former, &QToolButton::clicked, this, settled<formerpress>);
    row->addWidget(former);
    wizard = new QPushButton;
    wizard->setObjectName(QStringLiteral("WizardButton"));
    wizard->setIcon(tintedicon(QStringLiteral("wizard")));
    wizard->setAutoDefault(false);
    wizard->setFocusPolicy(Qt::TabFocus);
    connect(wizard, &QPushButton::clicked, this, settled<datawizard>);
    row->addWidget(wizard);
    row->setContentsMargins(0, 2, 6, 0);
    column->addLayout(row);
    icons = new IconStrip(centralWidget());
    column->addWidget(icons);
}

void Form2::buildpanes() {
    auto* const left = new QWidget;
    auto* const cells = new QVBoxLayout(left);
    cells->setContentsMargins(6, 2, 2, 2);
    format = new QLabel;
    format->setObjectName(QStringLiteral("GridFormat"));
    format->setWordWrap(true);
    format->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Minimum);
    grid = new DataGrid(left);
    cells->addWidget(format);
    cells->addWidget(grid, 1);

    auto* const right = new QWidget;
    auto* const picture = new QVBoxLayout(right);
    picture->setContentsMargins(2, 2, 6, 2);
    auto* const row = new QHBoxLayout;
    buildswitches(row);
    plot = new PlotView(right);
    plot->tell = [this](const QString& text) { status->setText(text); };
    picture->addLayout(row);
    picture->addWidget(plot, 1);

    panes = new QSplitter(Qt::Horizontal);
    panes->setObjectName(QStringLiteral("Panes"));
    panes->addWidget(left);
    panes->addWidget(right);
    panes->setStretchFactor(1, 1);
    panes->setChildrenCollapsible(false);
    connect(panes, &QSplitter::splitterMoved, this, [this] {
        const auto sizes = panes->sizes();
        for (std::size_t i = 0; i < session.paneSizes.size(); ++i)
            session.paneSizes[i] =
                static_cast<int16_t>(std::clamp(sizes.value(static_cast<int>(i)), 0, 32000));
    });
    static_cast<QBoxLayout*>(centralWidget()->layout())->addWidget(panes, 1);
}

/// A toggle acts at once on the plot alone: no result depends on it.
void Form2::buildswitches(QHBoxLayout* row) {
    row->addStretch(1);
    for (std::size_t i = 0; i < switches.size(); ++i) {
        auto* const button = new QToolButton;
        button->setObjectName(QString::fromLatin1(switchTable[i].name));
        button->setCheckable(true);
        button->setAutoRaise(true);
        button->setFocusPolicy(Qt::TabFocus);
        connect(button, &QToolButton::clicked, this, [this, i] {
            switches[i].turned = true;
            if (session.shellBusy > 0) return;
            readswitches();
            repaintplot();
        });
        switches[i].button = button;
        row->addWidget(button);
    }
}

void Form2::buildfoot() {
    auto* const foot = new QWidget;
    auto* const row = new QHBoxLayout(foot);
    row->setContentsMargins(8, 0, 8, 3);
    status = new ElidedLabel;
    status->setObjectName(QStringLiteral("StatusCaption"));
    gauge = new QProgressBar;
    gauge->setObjectName(QStringLiteral("TimeGage"));
    gauge->setRange(0, 1000);
    gauge->setTextVisible(false);
    gauge->setFixedWidth(180);
    stopHint = new QLabel;
    stopHint->setObjectName(QStringLiteral("StopHint"));
    row->addWidget(status, 1);
    row->addWidget(gauge);
    row->addWidget(stopHint);
    gauge->hide();
    stopHint->hide();
    static_cast<QBoxLayout*>(centralWidget()->layout())->addWidget(foot);
}

/// The rectangle of the last time where a screen still shows it, else a standard one in the middle.
void Form2::placewindow() {
    const auto& [left, top, width, height] = session.windowRect;
    const QRect kept(left, top, width, height);
    const QScreen* const screen = QApplication::primaryScreen();
    const bool visible = kept.width() >= 300 && kept.height() >= 200 && QApplication::screenAt(kept.center());
    if (visible) {
        setGeometry(kept);
    } else if (screen) {
        const QRect room = screen->availableGeometry();
        const QSize size = standardSize.boundedTo(room.size() * 0.96);
        setGeometry(QRect(room.center() - QPoint(size.width() / 2, size.height() / 2), size));
    }
    const int grids = session.paneSizes[0] > 0 ? session.paneSizes[0] : this->width() * 36 / 100;
    const int plots = session.paneSizes[1] > 0 ? session.paneSizes[1] : this->width() * 64 / 100;
    panes->setSizes({grids, plots});
}

void Form2::keeprectangle() {
    if (!isVisible() || isMaximized() || isFullScreen() || isMinimized()) return;
    const QRect place = geometry();
    const int values[] = {place.left(), place.top(), place.width(), place.height()};
    for (std::size_t i = 0; i < session.windowRect.size(); ++i)
        session.windowRect[i] = static_cast<int16_t>(std::clamp(values[i], -32000, 32000));
}

void Form2::caption(std::string_view text) {
    if (!isVisible()) return;
    status->setText(qs(text));
    if (sinceCaption.isValid() && sinceCaption.elapsed() < captionEvery) return;
    sinceCaption.start();
    status->repaint();
}

void Form2::readswitches() {
    for (std::size_t i = 0; i < switches.size(); ++i) {
        if (!std::exchange(switches[i].turned, false)) continue;
        const SwitchOf& of = switchTable[i];
        session.*of.setting = static_cast<int16_t>(switches[i].button->isChecked() ? of.on : 1 - of.on);
    }
}

void Form2::closepopups() {
    floating->hide();
    QToolTip::hideText();
}

void Form2::titlewindow() {
    const QString name = qs(nativepath(session.fileName)).section(QDir::separator(), -1);
    const QString product = qs(session.productName);
    setWindowTitle(name.isEmpty() ? product + QStringLiteral("[*]")
                                  : name + QStringLiteral("[*] - ") + product);
    setWindowModified(session.resultsDirty != 0);
}

void Form2::repainticons() {
    icons->retitle();
    titlewindow();
    wizard->setText(phrase(Word::Data, " ", Word::Wizard));
    former->setText(qs(formercaption()));
    former->setToolTip(qs(formerhint()));
    former->setVisible(formercount() > 0);
    for (std::size_t i = 0; i < switches.size(); ++i)
        if (!switches[i].turned)
            switches[i].button->setChecked(session.*switchTable[i].setting == switchTable[i].on);
    if (view) view->refresh();
}

void Form2::repaintgrid() {
    format->setText(qs(gridformat()));
    grid->repaintgrid();
    titlewindow();
}

void Form2::repaintplot() {
    plot->replot();
    repainticons();
}

bool Form2::pendingevents() {
    if (pumping) return false;
    {
        const ShellBusy busy;
        const Keep keep{pumping};
        pumping = true;
        QApplication::processEvents();
    }
    return std::exchange(escaped, false);
}

/// Below the icon, or in the corner of the plot for a command that has none.
void Form2::settle(QLabel* label, const QWidget* beside) const {
    constexpr int widest = 380;
    const int wanted = label->fontMetrics().boundingRect(QRect(), Qt::AlignLeft, label->text()).width();
    const int wide = std::min(wanted + 2 * label->margin() + 6, std::min(widest, width() - 20));
    label->resize(wide, label->heightForWidth(wide));
    const QWidget* const base = beside ? beside : static_cast<const QWidget*>(plot);
    const QPoint below = base->mapTo(this, QPoint(0, beside ? beside->height() + 4 : 8));
    label->move(std::clamp(below.x(), 4, std::max(4, width() - label->width() - 4)), below.y());
}

void Form2::explain(int command, std::string_view text, int milliseconds) {
    if (text.empty() || !isVisible()) return;
    floating->setText(qs(text));
    floating->setAccessibleName(qs(text));
    settle(floating, icons->button(command));
    floating->show();
    floating->raise();
    if (milliseconds <= 0) return;
    {
        const ShellBusy busy;
        const Keep keep{pumping};
        pumping = true;
        QEventLoop wait;
        QTimer::singleShot(milliseconds, &wait, &QEventLoop::quit);
        wait.exec();
    }
    escaped = false;
    floating->hide();
}

void Form2::repaintmenu() { bar->refresh(); }

void Form2::repaintcell() { grid->repaintcell(); }

void Form2::showview(ViewTab tab) {
    if (!view) {
        view = new FormMegaTest(this);
        view->setWindowFlag(Qt::Window);
        view->setAttribute(Qt::WA_DeleteOnClose);
    }
    view->refresh();
    view->showtab(tab);
}

void Form2::showabout() { Form1(Form1::Purpose::about, this).exec(); }

void Form2::retitle() {
    applysurroundings();
    bar->retitle();
    grid->retitle();
    plot->retitle();
    for (std::size_t i = 0; i < switches.size(); ++i) {
        switches[i].button->setText(switchTable[i].label());
        switches[i].button->setAccessibleName(switchTable[i].label());
    }
    stopHint->setText(QStringLiteral("<Esc> ") + phrase(Word::Stop));
    gauge->setAccessibleName(phrase(Word::Calculation));
    status->setAccessibleName(phrase(Word::Information));
    repainticons();
    repaintgrid();
    if (view) view->retitle();
}

void Form2::progress(double done) {
    if (done > 1) {
        longRun.invalidate();
        gauge->hide();
        stopHint->hide();
    } else {
        if (!longRun.isValid()) longRun.start();
        gauge->setValue(static_cast<int>(1000 * std::clamp(done, 0.0, 1.0)));
        const bool late = longRun.elapsed() >= longTime;
        gauge->setVisible(late);
        stopHint->setVisible(late);
    }
    if (view) view->progress(done);
}

void Form2::leave() { close(); }

/// The data of the start are read when the window has been painted: it is there at once, and a question of
/// the file stands over it.
bool Form2::event(QEvent* event) {
    const bool handled = QMainWindow::event(event);
    if (event->type() == QEvent::Paint && painted)
        QTimer::singleShot(0, this, std::exchange(painted, nullptr));
    return handled;
}

/// Closed by the desktop, the window asks as the program's own exit does. What that then closes is this very
/// window, which is closing already: the answer decides here.
void Form2::closeEvent(QCloseEvent* event) {
    if (session.leaving == 0 && (session.shellBusy > 0 || !exitsequence(false))) {
        event->ignore();
        return;
    }
    keeprectangle();
    event->accept();
    QCoreApplication::quit();
}

void Form2::keyPressEvent(QKeyEvent* event) {
    floating->hide();
    if (!dispatchkey(*event)) QMainWindow::keyPressEvent(event);
}

void Form2::mousePressEvent(QMouseEvent* event) {
    floating->hide();
    QMainWindow::mousePressEvent(event);
}

void Form2::resizeEvent(QResizeEvent* event) {
    QMainWindow::resizeEvent(event);
    keeprectangle();
    if (session.dropMenuOpen == dropShown) bar->refresh();
}

void Form2::moveEvent(QMoveEvent* event) {
    QMainWindow::moveEvent(event);
    keeprectangle();
}

void Form2::dragEnterEvent(QDragEnterEvent* event) {
    if (session.shellBusy == 0 && !filedragged(event->mimeData()).isEmpty()) event->acceptProposedAction();
}

/// The file is read when the drop is over: the program it comes from must not wait for an answer to a
/// question.
void Form2::dropEvent(QDropEvent* event) {
    const QString file = filedragged(event->mimeData());
    if (file.isEmpty()) return;
    event->acceptProposedAction();
    QTimer::singleShot(0, this, [name = utf8(QDir::toNativeSeparators(file))] {
        if (session.shellBusy == 0) openfile(name.c_str());
    });
}

/// A press beside an open drop-down closes it and does no more.
bool Form2::pressedoutside(QObject* watched, const QEvent& event) const {
    if (event.type() != QEvent::MouseButtonPress || session.dropMenuOpen != dropShown) return false;
    const auto* const widget = qobject_cast<QWidget*>(watched);
    if (!widget || widget->window() != this || bar->owns(widget)) return false;
    return widget != icons && !icons->isAncestorOf(widget); // an icon closes it by itself
}

bool Form2::eventFilter(QObject* watched, QEvent* event) {
    if (pumping && input(event->type()) && watched->isWidgetType()) {
        if (event->type() == QEvent::KeyPress)
            escaped = escaped || static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape;
        if (event->type() == QEvent::Close) event->ignore();
        return true;
    }
    if (watched == former && secondarypress(*event)) {
        settled<formerother>();
        return true;
    }
    if (pressedoutside(watched, *event)) {
        dropmenupress(session.dropMenuIndex);
        return true;
    }
    return QMainWindow::eventFilter(watched, event);
}
