#include "platform/qt/form2.h"

#include "shell/words.h" // ahead of Qt, which has a global Display

#include <QAbstractButton>
#include <QApplication>
#include <QClipboard>
#include <QDropEvent>
#include <QElapsedTimer>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMimeData>
#include <QProgressBar>
#include <QScrollBar>
#include <QSplitter>
#include <QTableView>
#include <QTimer>
#include <QUrl>

#include "data/datafilesave.h"
#include "desktop/windowfixture.h"
#include "plot/readout.h"
#include "session/former.h"
#include "shell/commands.h"
#include "shell/commandtable.h"
#include "shell/dropmenu.h"
#include "shell/gridedit.h"
#include "shell/shellbusy.h"
#include "support/inlanguage.h"

namespace {

class MainForm : public WindowTest {
protected:
    /// A data file with three points, as another start of the program left it; the session is as before.
    std::string datafile(const std::string& name) {
        const auto cells = session.gridCells;
        session.gridCells = {{"11", "22", "33"}};
        calcplot();
        EXPECT_TRUE(datafilesave(folder.path(name)));
        session.gridCells = cells;
        session.fileName.clear();
        calcplot();
        session.resultsDirty = cells.empty() ? 0 : 1;
        return folder.path(name);
    }
};

TEST_F(MainForm, HasItsSurfacesByName) {
    for (const char* name :
         {"Grid1", "TextGridInput", "HScroll1", "VScroll1", "Picture1", "Image1", "List1", "ImageFormer",
          "WizardButton", "StatusCaption", "SwitchPoint", "SwitchLabel", "SwitchLegend", "TimeGage"})
        EXPECT_TRUE(window->findChild<QWidget*>(QString::fromLatin1(name))) << name;
    EXPECT_EQ(window->objectName(), QStringLiteral("Form2"));
    for (const int number : iconstrip())
        if (number != iconGap) {
            const auto* const icon = window->findChild<QToolButton*>(QStringLiteral("Image1_%1").arg(number));
            ASSERT_TRUE(icon) << number;
            EXPECT_GT(inked(icon->icon().pixmap(32, 32).toImage()), 0) << number << " has no picture";
        }
}

TEST_F(MainForm, EveryControlHasANameForAScreenReader) {
    for (const QWidget* const widget : window->findChildren<QWidget*>()) {
        const bool control =
            qobject_cast<const QAbstractButton*>(widget) || qobject_cast<const QLineEdit*>(widget)
            || qobject_cast<const QProgressBar*>(widget) || qobject_cast<const QListWidget*>(widget)
            || widget->objectName() == QStringLiteral("Picture1")
            || widget->objectName() == QStringLiteral("Grid1");
        if (!control || widget->objectName().startsWith(QStringLiteral("qt_")) || !widget->isVisible())
            continue;
        const auto* const button = qobject_cast<const QAbstractButton*>(widget);
        const bool named = !widget->accessibleName().isEmpty() || (button && !button->text().isEmpty());
        EXPECT_TRUE(named) << widget->objectName().toStdString() << " " << widget->metaObject()->className();
    }
}

TEST_F(MainForm, TypedDataAreFittedAndPlotted) {
    const int empty = inked(picture("Picture1"));
    typecells({"10", "20", "30", "-40", "50"});
    key(Qt::Key_Return); // on the empty cell below: the run
    ASSERT_EQ(session.setFitted(1), 1);
    EXPECT_EQ(pointcount(1), 5);
    EXPECT_GT(session.etaFit(3, 1), 20);
    EXPECT_GT(inked(picture("Picture1")), empty) << "points and a line";
    EXPECT_TRUE(window->isWindowModified());
    keep("typed.png");
}

TEST_F(MainForm, ArrowsLeaveTheBoxOnlyAtTheEndsOfItsText) {
    auto* const box = child<QLineEdit>("TextGridInput");
    type("150");
    ASSERT_TRUE(box->isVisible());
    EXPECT_EQ(session.gridEditText, "150");
    key(Qt::Key_Left);
    EXPECT_TRUE(box->isVisible()) << "walks within the text";
    key(Qt::Key_Down);
    EXPECT_FALSE(box->isVisible());
    EXPECT_EQ(session.gridCells.at(0).at(0), "150");
    EXPECT_EQ(session.gridRow, 2);
    type("7");
    key(Qt::Key_Right);
    EXPECT_EQ(session.gridCol, 2);
    EXPECT_EQ(session.gridCells.at(0).at(1), "7");
}

TEST_F(MainForm, EscapeLeavesTheCellAsItWas) {
    typecells({"10"});
    key(Qt::Key_Up);
    type("99");
    key(Qt::Key_Escape);
    EXPECT_EQ(gridcell(1, 1), "10");
    EXPECT_EQ(session.gridEditOpen, 0);
    EXPECT_TRUE(grid()->hasFocus()) << "the next key goes on in the grid";
}

TEST_F(MainForm, APressOpensTheBoxAndADragSelects) {
    typecells({"10", "20", "30"});
    auto* const view = child<QTableView>("Grid1");
    const auto middle = [&](int row, int column) {
        return view->visualRect(view->model()->index(row - 1, column - 1)).center();
    };
    QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, middle(2, 1));
    EXPECT_EQ(session.gridRow, 2);
    EXPECT_EQ(session.gridEditOpen, 1);
    EXPECT_EQ(child<QLineEdit>("TextGridInput")->selectedText(), QStringLiteral("20"));
    QTest::mousePress(view->viewport(), Qt::LeftButton, {}, middle(1, 1));
    QMouseEvent drag(QEvent::MouseMove, middle(3, 2), view->viewport()->mapToGlobal(middle(3, 2)),
                     Qt::NoButton, Qt::LeftButton, {});
    QApplication::sendEvent(view->viewport(), &drag);
    QTest::mouseRelease(view->viewport(), Qt::LeftButton, {}, middle(3, 2));
    EXPECT_EQ(session.gridEditOpen, 0);
    EXPECT_EQ(gridselection().firstRow, 1);
    EXPECT_EQ(gridselection().lastRow, 3);
    EXPECT_EQ(gridselection().lastCol, 2);
    EXPECT_EQ(session.gridSelecting, 0);
}

TEST_F(MainForm, SeveralCellsPastedInTheBoxGoToTheGrid) {
    QApplication::clipboard()->setText(QStringLiteral("1\n2\n3\n"));
    desktop.clipboardText = "1\n2\n3\n";
    typecells({"10"});
    type("5");
    key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(session.gridEditOpen, 0);
    EXPECT_NE(gridcell(1, 2).find("1"), std::string::npos);
    EXPECT_NE(gridcell(1, 4).find("3"), std::string::npos);
    EXPECT_EQ(gridcell(1, 1), "10");
}

TEST_F(MainForm, LettersOpenAndChooseInTheDropDowns) {
    const auto* const list = child<QListWidget>("List1");
    EXPECT_FALSE(list->isVisible());
    key(Qt::Key_F);
    ASSERT_TRUE(list->isVisible());
    EXPECT_EQ(list->item(0)->text().left(4), QStringLiteral("N..."));
    EXPECT_EQ(list->count(), static_cast<int>(dropmenuitems(fileMenu).size()));
    keep("dropdown.png");
    key(Qt::Key_Right);
    EXPECT_EQ(session.dropMenuIndex, editMenu);
    key(Qt::Key_Down);
    EXPECT_EQ(list->currentRow(), 1);
    key(Qt::Key_Escape);
    EXPECT_FALSE(list->isVisible());
    EXPECT_EQ(session.dropMenuOpen, dropClosed);
}

TEST_F(MainForm, TheMouseOpensHoversAndClosesTheDropDowns) {
    const auto* const list = child<QListWidget>("List1");
    QTest::mouseClick(child("Drop1"), Qt::LeftButton);
    ASSERT_TRUE(list->isVisible());
    QEnterEvent hover(QPointF(2, 2), QPointF(2, 2), QPointF(2, 2));
    QApplication::sendEvent(child("Drop3"), &hover);
    EXPECT_EQ(session.dropMenuIndex, analysisMenu);
    const int row = session.gridRow;
    QTest::mouseClick(child<QTableView>("Grid1")->viewport(), Qt::LeftButton, {}, QPoint(20, 60));
    EXPECT_FALSE(list->isVisible());
    EXPECT_EQ(session.gridRow, row) << "the press only closes";
    QTest::mouseClick(child("Drop0"), Qt::LeftButton);
    press("Image1_0");
    EXPECT_FALSE(list->isVisible()) << "and so does a press of an icon: nothing is asked";
}

TEST_F(MainForm, ASecondaryPressOfAnIconExplainsAndChangesNothing) {
    typecells({"10", "20", "30"});
    key(Qt::Key_Return);
    const auto cells = session.gridCells;
    const double eta = session.etaFit(3, 1);
    const auto* const label = child<QLabel>("FloatLabel");
    for (const int number : iconstrip()) {
        if (number == iconGap) continue;
        press(QStringLiteral("Image1_%1").arg(number).toLatin1().constData(), Qt::RightButton);
        EXPECT_TRUE(label->isVisible()) << number;
        EXPECT_EQ(label->text().toStdString(), commandtip(number));
        EXPECT_EQ(session.gridCells, cells) << number;
        EXPECT_EQ(session.etaFit(3, 1), eta) << number;
    }
    keep("explained.png");
}

TEST_F(MainForm, TheFirstPressOfAnIconExplainsIt) {
    session.commandSeen[23] = 0;
    bool shown = false;
    QTimer::singleShot(60, window.get(), [&] { shown = child("FloatLabel")->isVisible(); });
    press("Image1_23");
    EXPECT_TRUE(shown);
    EXPECT_EQ(session.commandSeen[23], 1);
    EXPECT_FALSE(child("FloatLabel")->isVisible());
}

TEST_F(MainForm, UndoBringsTheDataBack) {
    typecells({"10", "20", "30"});
    key(Qt::Key_Return);
    type("99");
    key(Qt::Key_Return);
    key(Qt::Key_Return);
    ASSERT_EQ(pointcount(1), 4);
    key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(pointcount(1), 3);
    key(Qt::Key_Y, Qt::ControlModifier);
    EXPECT_EQ(pointcount(1), 4);
}

TEST_F(MainForm, SavesOpensAndSavesAgain) {
    typecells({"10", "20", "30"});
    key(Qt::Key_Return);
    const double eta = session.etaFit(3, 1);
    desktop.expectfile("Save", folder.path("three.w"));
    key(Qt::Key_S, Qt::ControlModifier);
    ASSERT_TRUE(folder.has("three.w"));
    EXPECT_FALSE(window->isWindowModified());
    EXPECT_TRUE(window->windowTitle().startsWith(QStringLiteral("three.w")))
        << window->windowTitle().toStdString();
    type("40");
    key(Qt::Key_Return);
    key(Qt::Key_Return);
    EXPECT_TRUE(window->isWindowModified());
    key(Qt::Key_S, Qt::ControlModifier); // its own file: no question
    EXPECT_FALSE(window->isWindowModified());
    key(Qt::Key_N, Qt::ControlModifier);
    EXPECT_EQ(session.lastRow, 0);
    desktop.expectfile("Open", folder.path("three.w"));
    key(Qt::Key_O, Qt::ControlModifier);
    EXPECT_EQ(pointcount(1), 4);
    EXPECT_NE(session.etaFit(3, 1), eta);
}

TEST_F(MainForm, AFileDroppedOnTheWindowIsOpened) {
    const std::string name = datafile("dropped.w");
    QMimeData data;
    data.setUrls({QUrl(QStringLiteral("https://example.org/no.w")),
                  QUrl::fromLocalFile(QString::fromStdString(name))});
    QDragEnterEvent enter(QPoint(50, 50), Qt::CopyAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(window.get(), &enter);
    EXPECT_TRUE(enter.isAccepted());
    QDropEvent drop(QPointF(50, 50), Qt::CopyAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(window.get(), &drop);
    settle();
    EXPECT_EQ(pointcount(1), 3);
    QMimeData text;
    text.setText(QStringLiteral("5\n6\n"));
    QDragEnterEvent refused(QPoint(50, 50), Qt::CopyAction, &text, Qt::LeftButton, {});
    refused.ignore();
    QApplication::sendEvent(window.get(), &refused);
    EXPECT_FALSE(refused.isAccepted());
}

TEST_F(MainForm, ASwitchChangesThePlotAndNoResult) {
    typecells({"10", "20", "30"});
    key(Qt::Key_Return);
    const double eta = session.etaFit(3, 1);
    const QImage before = picture("Picture1");
    press("SwitchPoint");
    EXPECT_EQ(session.pointHide, 1);
    EXPECT_NE(picture("Picture1"), before);
    EXPECT_EQ(session.etaFit(3, 1), eta);
    press("SwitchPoint");
    EXPECT_EQ(session.pointHide, 0);
    EXPECT_EQ(picture("Picture1"), before);
}

TEST_F(MainForm, ASwitchShowsTheSettingOfAPage) {
    session.legendPlace = 0; // as an option page leaves it
    calcplot();
    EXPECT_EQ(session.legendPlace, 0) << "the switch as it stood must not win";
    EXPECT_FALSE(child<QToolButton>("SwitchLegend")->isChecked());
}

TEST_F(MainForm, ANewSizeDrawsThePlotAnew) {
    typecells({"10", "20", "30"});
    key(Qt::Key_Return);
    const double right = session.window.right;
    window->resize(900, 600);
    settle();
    EXPECT_LT(session.window.right, right);
    keep("small.png");
    window->resize(1180, 760);
    settle();
    EXPECT_EQ(session.window.right, right);
}

TEST_F(MainForm, WheelAndKeysZoomAndADoubleClickShowsAll) {
    typecells({"10", "20", "30"});
    key(Qt::Key_Return);
    QWidget* const plot = child("Picture1");
    const QPointF middle = plot->rect().center();
    QWheelEvent wheel(middle, plot->mapToGlobal(middle), {}, QPoint(0, 120), Qt::NoButton, {},
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(plot, &wheel);
    EXPECT_GT(session.xLimitLow, 10);
    EXPECT_LT(session.xLimitHigh, 30);
    QTest::mouseDClick(plot, Qt::LeftButton);
    EXPECT_EQ(session.xLimitLow, 0);
    plot->setFocus();
    key(Qt::Key_Plus);
    EXPECT_NE(session.xLimitLow, 0);
    const double low = session.xLimitLow;
    key(Qt::Key_Right);
    EXPECT_GT(session.xLimitLow, low);
    key(Qt::Key_0);
    EXPECT_EQ(session.xLimitHigh, 0);
    EXPECT_EQ(session.gridEditOpen, 0) << "no digit goes to the grid";
}

TEST_F(MainForm, ThePointerReadsThePointUnderIt) {
    typecells({"10", "20_second", "30"});
    key(Qt::Key_Return);
    QWidget* const plot = child("Picture1");
    const auto points = placedpoints(session.window);
    ASSERT_EQ(points.size(), 3u);
    const QPoint place(static_cast<int>(points[1].x) / 15, static_cast<int>(points[1].y) / 15);
    QMouseEvent move(QEvent::MouseMove, place, plot->mapToGlobal(place), Qt::NoButton, Qt::NoButton, {});
    QApplication::sendEvent(plot, &move);
    const QString text = child<QLabel>("StatusCaption")->text();
    EXPECT_TRUE(text.startsWith(QStringLiteral("X = "))) << text.toStdString();
    EXPECT_TRUE(text.endsWith(QStringLiteral("Point 2: 20 _second"))) << text.toStdString();
}

TEST_F(MainForm, InputDuringARunIsHeldOff) {
    typecells({"10"});
    const auto cells = session.gridCells;
    QTimer::singleShot(0, window.get(), [&] {
        QTest::keyClick(window.get(), Qt::Key_5);
        QTest::keyClick(window.get(), Qt::Key_Escape);
        press("Image1_0");
    });
    EXPECT_TRUE(window->pendingevents()) << "Escape was pressed";
    EXPECT_FALSE(window->pendingevents()) << "and is told once";
    EXPECT_EQ(session.gridCells, cells);
    EXPECT_EQ(session.gridEditOpen, 0);
}

TEST_F(MainForm, ALongRunShowsItsGauge) {
    const QWidget* const gauge = child("TimeGage");
    window->progress(0.1);
    EXPECT_FALSE(gauge->isVisible()) << "a short run needs none";
    QTest::qSleep(1050);
    window->progress(0.5);
    EXPECT_TRUE(gauge->isVisible());
    EXPECT_TRUE(child<QLabel>("StopHint")->text().startsWith(QStringLiteral("<Esc>")));
    window->progress(2);
    EXPECT_FALSE(gauge->isVisible());
}

TEST_F(MainForm, ClosingWithUnsavedDataAsksAndCancelStays) {
    typecells({"10", "20", "30"});
    key(Qt::Key_Return);
    desktop.expectmenu("Save", 0);
    window->close();
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(session.leaving, 0);
    EXPECT_EQ(pointcount(1), 3);
}

TEST_F(MainForm, ClosingWithNothingToLoseEndsTheProgram) {
    EXPECT_TRUE(window->close());
    EXPECT_FALSE(window->isVisible());
    EXPECT_EQ(session.leaving, 1);
}

TEST_F(MainForm, ClosingIsHeldOffWhileACommandRuns) {
    const ShellBusy busy;
    EXPECT_FALSE(window->close());
    EXPECT_TRUE(window->isVisible());
}

TEST_F(MainForm, KeepsItsRectangleAndPanes) {
    window->setGeometry(40, 30, 700, 500);
    settle();
    EXPECT_EQ(session.windowRect[2], 700);
    EXPECT_EQ(session.windowRect[3], 500);
    session.leaving = 1;
    session.paneSizes = {300, 380};
    open(QSize(700, 500));
    EXPECT_EQ(window->width(), 700);
    const auto sizes = child<QSplitter>("Panes")->sizes();
    EXPECT_NEAR(sizes[0] * 380.0, sizes[1] * 300.0, 8000);
}

TEST_F(MainForm, ARectangleOffTheScreenIsNotTaken) {
    session.windowRect = {20000, 20000, 700, 500};
    window = std::make_unique<Form2>();
    desktop.shown = window.get();
    EXPECT_LT(window->x(), 5000);
}

TEST_F(MainForm, FormerResultsHaveAnIconOnceThereAreSome) {
    EXPECT_FALSE(child("ImageFormer")->isVisible());
    typecells({"10", "20", "30"});
    key(Qt::Key_Return);
    ASSERT_TRUE(openfile(datafile("next.w").c_str()));
    ASSERT_EQ(formercount(), 1u);
    auto* const icon = child<QToolButton>("ImageFormer");
    EXPECT_TRUE(icon->isVisible());
    EXPECT_EQ(icon->text().toStdString(), formercaption());
    desktop.expectmenu("", 2); // No
    QTest::mouseClick(icon, Qt::RightButton);
    EXPECT_EQ(formercount(), 1u);
}

TEST_F(MainForm, FormerResultsAreReachedByKeyAndTakeAnOpenEntryFirst) {
    typecells({"10", "20", "30"});
    key(Qt::Key_Return);
    ASSERT_TRUE(openfile(datafile("next.w").c_str()));
    auto* const icon = child<QToolButton>("ImageFormer");
    EXPECT_TRUE(icon->focusPolicy() & Qt::TabFocus);
    type("99");
    ASSERT_EQ(session.gridEditOpen, 1);
    desktop.expectmenu("", 2); // No
    QTest::keyClick(icon, Qt::Key_F10, Qt::ShiftModifier);
    EXPECT_EQ(session.gridEditOpen, 0);
    EXPECT_EQ(gridcell(session.gridCol, session.gridRow), "99");
    desktop.expectmenu("", 0);
    QTest::keyClick(icon, Qt::Key_Space);
    const ShellBusy busy;
    QTest::keyClick(icon, Qt::Key_Menu); // held off: no prompt
    QTest::mouseClick(icon, Qt::LeftButton);
    QTest::mouseClick(child("WizardButton"), Qt::LeftButton);
    EXPECT_EQ(formercount(), 1u);
}

TEST_F(MainForm, TheSecondaryPressAndTheHeadingHaveKeys) {
    typecells({"10", "20"});
    desktop.expectmenu("Point Quantity", 0);
    QTest::keyClick(grid(), Qt::Key_Menu);
    key(Qt::Key_Up);
    desktop.expectmenu("Row 2 = 20", 0);
    QTest::keyClick(grid(), Qt::Key_F10, Qt::ShiftModifier);
    desktop.expecttext("Title", "Bearings");
    key(Qt::Key_T, Qt::ControlModifier);
    EXPECT_EQ(session.gridTitles.at(0), "Bearings");
}

TEST_F(MainForm, AltWithALetterIsNotTheLetter) {
    key(Qt::Key_F, Qt::AltModifier);
    EXPECT_FALSE(child("List1")->isVisible());
    EXPECT_NE(session.dropMenuOpen, dropShown);
}

TEST_F(MainForm, TheVisualSideHasItsOwnIcons) {
    chooseside(visualSide);
    ASSERT_TRUE(allocatearrays());
    window->repainticons();
    for (const int number : iconstrip()) {
        if (number == iconGap) continue;
        const auto* const icon =
            child<QToolButton>(QStringLiteral("Image1_%1").arg(number).toLatin1().constData());
        EXPECT_EQ(icon->accessibleName().toStdString(), commandname(number));
    }
}

TEST_F(MainForm, ALargeGridScrollsWithoutWaiting) {
    constexpr std::size_t sets = 24, rows = 32000;
    session.gridCells.assign(sets, std::vector<std::string>(rows, "123.456"));
    QElapsedTimer timer;
    timer.start();
    window->repaintgrid();
    auto* const view = child<QTableView>("Grid1");
    EXPECT_GE(view->model()->rowCount(), static_cast<int>(rows));
    EXPECT_LT(timer.elapsed(), 300);
    timer.restart();
    constexpr int scrolls = 20;
    for (int i = 0; i < scrolls; ++i) {
        view->verticalScrollBar()->setValue(view->verticalScrollBar()->maximum() * i / scrolls);
        view->repaint();
    }
    EXPECT_LT(timer.elapsed() / scrolls, 100);
    key(Qt::Key_End);
    EXPECT_EQ(session.gridRow, static_cast<int>(rows));
}

TEST_F(MainForm, NoLabelIsCutOffInAnyLanguage) {
    for (const Language& language : languages()) {
        const InLanguage words(language.file);
        window->retitle();
        settle();
        for (const QAbstractButton* const button : window->findChildren<QAbstractButton*>()) {
            if (button->text().isEmpty() || !button->isVisible()) continue;
            EXPECT_GE(button->width(), button->fontMetrics().horizontalAdvance(button->text()))
                << language.name << ": " << button->text().toStdString();
            EXPECT_TRUE(window->rect().contains(QRect(button->mapTo(window.get(), QPoint()), button->size())))
                << language.name << ": " << button->text().toStdString();
        }
        for (int index = 0; index < dropMenus; ++index) {
            dropmenupress(index);
            const auto* const list = child<QListWidget>("List1");
            EXPECT_GE(list->width(), list->sizeHintForColumn(0)) << language.name << " " << index;
            EXPECT_TRUE(window->rect().contains(list->geometry())) << language.name << " " << index;
        }
        dropmenupress(helpMenu);
    }
    session.languageFile.clear();
}

TEST_F(MainForm, PanesAreReachedByKey) {
    ASSERT_TRUE(grid()->hasFocus());
    key(Qt::Key_F6);
    EXPECT_TRUE(child("Picture1")->hasFocus());
    key(Qt::Key_F6);
    key(Qt::Key_F6);
    EXPECT_TRUE(grid()->hasFocus());
}

} // namespace
