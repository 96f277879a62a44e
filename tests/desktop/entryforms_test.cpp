#include <QComboBox>
#include <QGuiApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QSlider>
#include <QToolButton>

#include "desktop/deskfixture.h"
#include "platform/qt/filedialogs.h"
#include "shell/prompts.h"

namespace {

class EntryForms : public DesktopTest {
protected:
    static QLineEdit* entry(QDialog& form) {
        return form.findChild<QLineEdit*>(QStringLiteral("NumberEntry"));
    }
    static QToolButton* arrow(QDialog& form, const char* name) {
        return form.findChild<QToolButton*>(QLatin1String(name));
    }
    /// Asks with a default of 5 and steps of 1.
    static void asknumber() {
        session.msg = "Beta";
        session.u = 5;
        session.incrementExp = 0;
        numberprompt();
    }
};

TEST_F(EntryForms, EnterTakesTheTypedNumber) {
    onform([](QDialog& form) {
        EXPECT_EQ(form.objectName(), QStringLiteral("afnum"));
        EXPECT_EQ(form.windowTitle(), QStringLiteral("Input Value"));
        EXPECT_EQ(entry(form)->text(), QStringLiteral("5"));
        expectnamed(form);
        keeppicture(form, QStringLiteral("afnum"));
        QTest::keyClicks(entry(form), QStringLiteral("2.75")); // over the default, which is selected
        QTest::keyClick(entry(form), Qt::Key_Return);
    });
    asknumber();
    EXPECT_EQ(session.u, 2.75f);
}

TEST_F(EntryForms, CancelOfANumberGivesTheSentinel) {
    press(Qt::Key_Escape);
    asknumber();
    EXPECT_EQ(session.u, -9.123E+32f);
    onform([](QDialog& form) {
        QTest::mouseClick(form.findChild<QPushButton*>(QStringLiteral("Cancel")), Qt::LeftButton);
    });
    asknumber();
    EXPECT_EQ(session.u, -9.123E+32f);
}

TEST_F(EntryForms, TheArrowsAddAndSubtractTheStep) {
    onform([](QDialog& form) {
        QTest::mouseClick(arrow(form, "More"), Qt::LeftButton);
        QTest::mouseClick(arrow(form, "More"), Qt::LeftButton);
        EXPECT_EQ(entry(form)->text(), QStringLiteral("7"));
        QTest::mouseClick(arrow(form, "Lower"), Qt::LeftButton);
        QTest::keyClick(entry(form), Qt::Key_Down);
        QTest::keyClick(entry(form), Qt::Key_Up);
        QTest::keyClick(entry(form), Qt::Key_Return);
    });
    asknumber();
    EXPECT_EQ(session.u, 6);
}

TEST_F(EntryForms, TheStepHasArrowsOfItsOwn) {
    onform([](QDialog& form) {
        auto* line = form.findChild<QLabel*>(QStringLiteral("IncrementLine"));
        QTest::mouseClick(arrow(form, "IncrementSmaller"), Qt::LeftButton);
        EXPECT_EQ(line->text(), QStringLiteral("Change Increment = .1"));
        QTest::mouseClick(arrow(form, "More"), Qt::LeftButton);
        EXPECT_EQ(entry(form)->text(), QStringLiteral("5.1"));
        QTest::mouseClick(arrow(form, "IncrementLarger"), Qt::LeftButton);
        QTest::keyClick(entry(form), Qt::Key_PageUp);
        EXPECT_EQ(line->text(), QStringLiteral("Change Increment = 10"));
        QTest::keyClick(entry(form), Qt::Key_Return);
    });
    asknumber();
    EXPECT_EQ(session.u, 5.1f);
}

TEST_F(EntryForms, AHeldArrowGoesOnAndGrowsFaster) {
    onform([](QDialog& form) {
        QTest::mousePress(arrow(form, "More"), Qt::LeftButton);
        QTest::qWait(1500); // a pause, then a step every 60 ms: past the tenth repeat they count twice
        QTest::mouseRelease(arrow(form, "More"), Qt::LeftButton);
        const int reached = entry(form)->text().toInt();
        EXPECT_GT(reached, 5 + 12);
        QTest::qWait(200);
        EXPECT_EQ(entry(form)->text().toInt(), reached);
        QTest::keyClick(entry(form), Qt::Key_Escape);
    });
    asknumber();
}

TEST_F(EntryForms, ANumberOverThePlotStandsInItsCorner) {
    QWidget window;
    window.resize(600, 500);
    auto* picture = new QWidget(&window);
    picture->setObjectName(QStringLiteral("Picture1"));
    picture->setGeometry(100, 50, 500, 450);
    window.show();
    desktop.setwindow(nullptr, &window);
    onform([picture](QDialog& form) {
        EXPECT_EQ(form.objectName(), QStringLiteral("afgrf"));
        const QPoint plotCorner = picture->mapToGlobal(QPoint(picture->width(), picture->height()));
        const QPoint corner = form.geometry().bottomRight();
        EXPECT_LT(corner.x(), plotCorner.x());
        EXPECT_GT(corner.x(), plotCorner.x() - 40);
        QTest::keyClick(entry(form), Qt::Key_Return);
    });
    session.msg = "X";
    session.u = 3;
    numberpromptonplot();
    EXPECT_EQ(session.u, 3);
    desktop.setwindow(nullptr, nullptr);
}

TEST_F(EntryForms, ATextIsTypedOrTakenFromTheList) {
    onform([](QDialog& form) {
        EXPECT_EQ(form.objectName(), QStringLiteral("aftxt"));
        auto* combo = form.findChild<QComboBox*>();
        QTest::keyClicks(combo->lineEdit(), QStringLiteral("Pump x7_a"));
        QTest::keyClick(combo->lineEdit(), Qt::Key_Return);
    });
    session.msg = "Title";
    textprompt();
    EXPECT_EQ(session.msg, "Pump x7_a");
    onform([](QDialog& form) {
        auto* combo = form.findChild<QComboBox*>();
        EXPECT_EQ(combo->itemText(0), QStringLiteral("Pump x7_a"));
        EXPECT_EQ(combo->currentText(), QString());
        QTest::keyClick(combo, Qt::Key_Down);
        expectnamed(form);
        keeppicture(form, QStringLiteral("aftxt"));
        QTest::keyClick(combo->lineEdit(), Qt::Key_Return);
    });
    session.msg = "Title";
    textprompt();
    EXPECT_EQ(session.msg, "Pump x7_a");
}

TEST_F(EntryForms, ATextOpensSelectedWithThePresentOne) {
    onform([](QDialog& form) {
        auto* combo = form.findChild<QComboBox*>();
        EXPECT_EQ(combo->lineEdit()->selectedText(), QStringLiteral("former"));
        QTest::keyClick(combo->lineEdit(), Qt::Key_End);
        QTest::keyClicks(combo->lineEdit(), QStringLiteral(" one"));
        QTest::keyClick(combo->lineEdit(), Qt::Key_Return);
    });
    session.msg = "Title";
    textprompt("former");
    EXPECT_EQ(session.msg, "former one");
}

TEST_F(EntryForms, CancelOfATextGivesTheSentinel) {
    press(Qt::Key_Escape);
    session.msg = "Title";
    textprompt();
    EXPECT_EQ(session.msg, "-9.123E+32");
}

TEST_F(EntryForms, ASliderLeftAloneGivesItsOwnValue) {
    const auto slide = [] {
        session.msg = "Part";
        session.promptMin = 0;
        session.promptMax = 3;
        session.u = 1.2345f;
        slidershow();
    };
    onform([](QDialog& form) {
        EXPECT_EQ(form.objectName(), QStringLiteral("afslider"));
        expectnamed(form);
        keeppicture(form, QStringLiteral("afslider"));
        QTest::keyClick(focusin(form), Qt::Key_Return);
    });
    slide();
    EXPECT_EQ(session.u, 1.2345f);
    onform([](QDialog& form) {
        auto* slider = form.findChild<QSlider*>();
        QTest::keyClick(slider, Qt::Key_End);
        EXPECT_EQ(form.findChild<QLabel*>(QStringLiteral("SliderValue"))->text(), QStringLiteral("3"));
        QTest::keyClick(slider, Qt::Key_Return);
    });
    slide();
    EXPECT_EQ(session.u, 3);
    press(Qt::Key_Escape);
    slide();
    EXPECT_EQ(session.u, -9.123E+32f);
}

TEST_F(EntryForms, AColourIsChosenByKeysOrMouse) {
    const auto pick = [] {
        session.msg = "Colour";
        session.u = 3;
        colorpick();
    };
    onform([](QDialog& form) {
        EXPECT_EQ(form.objectName(), QStringLiteral("afclr"));
        expectnamed(form);
        keeppicture(form, QStringLiteral("afclr"));
        QTest::keyClick(focusin(form), Qt::Key_Right);
        QTest::keyClick(focusin(form), Qt::Key_Down);
        QTest::keyClick(focusin(form), Qt::Key_Return);
    });
    pick();
    EXPECT_EQ(session.u, 12); // one to the right, one row of eight down
    onform([](QDialog& form) {
        QTest::mouseClick(form.findChild<QAbstractButton*>(QStringLiteral("Swatch28")), Qt::LeftButton);
    });
    pick();
    EXPECT_EQ(session.u, 28);
    press(Qt::Key_Escape);
    pick();
    EXPECT_EQ(session.u, -9.123E+32f);
}

TEST_F(EntryForms, NothingIsCutOffInAnyLanguage) {
    for (const Language& language : languages()) {
        const InLanguage here(language.name);
        const auto look = [&](QDialog& form) {
            expectnothingcut(form, std::string(language.name) + " " + utf8(form.objectName()));
            QTest::keyClick(&form, Qt::Key_Escape);
        };
        onform(look);
        asknumber();
        onform(look);
        compose(session.msg, Word::Enter, " ", Word::Title);
        textprompt();
        onform(look);
        session.promptMax = 9e9f;
        compose(session.msg, Word::Confidence, " ", Word::Limit);
        slidershow();
        onform(look);
        compose(session.msg, Word::Select, " ", Word::Color);
        session.u = 1;
        colorpick();
    }
}

TEST(FileFilters, NamesAndPatternsComeByTurns) {
    EXPECT_EQ(filefilters("Data|*.w;*.v|All (*.*)|*.*"),
              (QStringList{QStringLiteral("Data (*.w *.W *.v *.V)"), QStringLiteral("All (*)")}));
    EXPECT_EQ(filefilters(""), QStringList());
    EXPECT_EQ(filefilters("only a name"), QStringList());
}

TEST(FileFilters, TheFirstPatternGivesTheExtension) {
    EXPECT_EQ(extensionof(QStringLiteral("Data (*.w *.W *.v *.V)")), QStringLiteral("w"));
    EXPECT_EQ(extensionof(QStringLiteral("PDF (*.pdf)")), QStringLiteral("pdf"));
    EXPECT_EQ(extensionof(QStringLiteral("All (*)")), QString());
}

} // namespace
