#include <QGuiApplication>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>

#include "desktop/deskfixture.h"
#include "shell/prompts.h"

namespace {

class MenuForms : public DesktopTest {
protected:
    static void fill(std::initializer_list<const char*> items, const char* lead = "Lead") {
        menuclear();
        int number = 0;
        for (const char* item : items) session.menuItem[++number] = item;
        session.menuCount = static_cast<float>(number);
        session.menuChoice = 0;
        session.msg = lead;
    }
    static void fillmany(int count) {
        menuclear();
        for (int i = 1; i <= count; ++i)
            session.menuItem[i] = std::string(1, static_cast<char>(i <= 26 ? 'A' + i - 1 : '0' + i % 10))
                                  + "...Item " + std::to_string(i) + " [" + std::to_string(i * i) + "]";
        session.menuCount = static_cast<float>(count);
        session.menuChoice = 0;
        session.msg = "Many";
    }
    static QWidget* row(QDialog& form, int number) {
        return form.findChildren<QWidget*>(QStringLiteral("RichTextMItem")).value(number - 1);
    }
};

TEST_F(MenuForms, AKeyPicksTheItemWithThatLetterInEitherCase) {
    fill({"A...Activate", "B...Back up", "X...Exit"});
    press(Qt::Key_B); // a key without shift comes as a small letter
    menushow();
    EXPECT_EQ(session.menuChoice, 2);
    EXPECT_EQ(session.msg, "B...Back up");
}

TEST_F(MenuForms, ArrowsPassOverHeadingsAndEnterAccepts) {
    fill({"Heading", "A...One", "...", "Second heading", "B...Two", "C...Three"});
    onform([](QDialog& form) {
        keeppicture(form, QStringLiteral("afmenu-headings"));
        QTest::keyClick(&form, Qt::Key_Down);
        QTest::keyClick(&form, Qt::Key_Return);
    });
    menushow();
    EXPECT_EQ(session.menuChoice, 5);
}

TEST_F(MenuForms, ThePresetItemIsSelected) {
    fill({"A...One", "B...Two", "D...Three"});
    session.menuChoice = 3;
    press(Qt::Key_Return);
    menushow();
    EXPECT_EQ(session.menuChoice, 3);
}

TEST_F(MenuForms, EscapeCancels) {
    fill({"A...One", "B...Two"});
    press(Qt::Key_Escape);
    menushow();
    EXPECT_EQ(session.menuChoice, 0);
    EXPECT_EQ(session.msg, "");
}

TEST_F(MenuForms, AnyClickAcceptsTheItemUnderTheMouse) {
    for (const Qt::MouseButton button : {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton}) {
        fill({"A...One", "B...Two", "D...Three"});
        onform([button](QDialog& form) { QTest::mouseClick(row(form, 2), button); });
        menushow();
        EXPECT_EQ(session.menuChoice, 2) << button;
    }
}

TEST_F(MenuForms, AClickOnAHeadingChoosesNothing) {
    fill({"Heading", "A...One", "B...Two"});
    onform([](QDialog& form) {
        QTest::mouseClick(row(form, 1), Qt::LeftButton);
        EXPECT_TRUE(form.isVisible());
        QTest::keyClick(&form, Qt::Key_Escape);
    });
    menushow();
    EXPECT_EQ(session.menuChoice, 0);
}

TEST_F(MenuForms, TheButtonsAcceptAndGoBack) {
    fill({"A...One", "B...Two", "D...Three"});
    onform([](QDialog& form) {
        QTest::mouseClick(form.findChild<QPushButton*>(QStringLiteral("Accept")), Qt::LeftButton);
    });
    menushow();
    EXPECT_EQ(session.menuChoice, 1);
    fill({"A...One", "B...Two", "D...Three"});
    onform([](QDialog& form) {
        auto* back = form.findChild<QPushButton*>(QStringLiteral("Cancel"));
        EXPECT_EQ(back->text(), QStringLiteral("Back"));
        QTest::mouseClick(back, Qt::LeftButton);
    });
    menushow();
    EXPECT_EQ(session.menuChoice, 0);
}

TEST_F(MenuForms, ALongPageScrollsWithinTheScreenAndOpensWhereItWasLeft) {
    fillmany(51);
    session.menuPage = 7;
    onform([](QDialog& form) {
        expectnamed(form);
        EXPECT_LE(form.height(), QGuiApplication::primaryScreen()->availableGeometry().height());
        auto* scroll = form.findChild<QScrollBar*>(QStringLiteral("MScroll"));
        ASSERT_TRUE(scroll && scroll->isVisible());
        QTest::keyClick(&form, Qt::Key_End);
        EXPECT_EQ(scroll->value(), scroll->maximum());
        keeppicture(form, QStringLiteral("afmenu-51"));
        QTest::keyClick(&form, Qt::Key_Return);
    });
    menushowgo();
    EXPECT_EQ(session.menuChoice, 51);
    const int left = session.menuScroll[7];
    EXPECT_GT(left, 0);
    fillmany(51);
    session.menuPage = 7;
    onform([left](QDialog& form) {
        auto* scroll = form.findChild<QScrollBar*>(QStringLiteral("MScroll"));
        EXPECT_EQ(scroll->value(), std::min(row(form, left + 1)->y(), scroll->maximum()));
        QTest::keyClick(&form, Qt::Key_Escape);
    });
    menushowgo();
    EXPECT_EQ(session.menuScroll[7], left);
}

TEST_F(MenuForms, ASmallPageHasThreeLinesOfSpace) {
    fillmany(9);
    onform([](QDialog& form) {
        const int rows = row(form, 4)->y() - row(form, 1)->y();
        const auto* scroll = form.findChild<QScrollBar*>(QStringLiteral("MScroll"));
        EXPECT_LE(scroll->pageStep(), rows);
        EXPECT_GT(scroll->pageStep(), rows - row(form, 1)->height() / 2);
        QTest::keyClick(&form, Qt::Key_Escape);
    });
    menushowsmall();
}

TEST_F(MenuForms, AQuestionHasAButtonAnAnswer) {
    session.msg = "Replace the data";
    onform([](QDialog& form) {
        EXPECT_EQ(form.objectName(), QStringLiteral("afbtn"));
        keeppicture(form, QStringLiteral("afbtn"));
        expectnamed(form);
        QTest::mouseClick(form.findChild<QPushButton*>(QStringLiteral("Answer2")), Qt::LeftButton);
    });
    askyesno();
    EXPECT_EQ(session.u, 2);
}

TEST_F(MenuForms, AQuestionIsAnsweredByItsLetterAndCancelledByEscape) {
    session.msg = "Replace the data";
    press(Qt::Key_N);
    askyesnocancel();
    EXPECT_EQ(session.u, 2);
    press(Qt::Key_Return);
    askyesnocancel();
    EXPECT_EQ(session.u, 1);
    press(Qt::Key_Escape);
    askyesnocancel();
    EXPECT_EQ(session.u, 3);
}

TEST_F(MenuForms, AMessageHasOneButtonAndTextThatCanBeSelected) {
    session.menuTitle = "!KM!_Data";
    session.msg = "No Data\r\n\r\n<b>not bold</b>";
    onform([](QDialog& form) {
        EXPECT_EQ(form.objectName(), QStringLiteral("afmenu"));
        EXPECT_EQ(form.windowTitle(), QStringLiteral("Data"));
        EXPECT_EQ(form.findChildren<QPushButton*>().size(), 1);
        auto* text = form.findChild<QLabel*>(QStringLiteral("RichTextMHeader"));
        EXPECT_EQ(text->text(), QStringLiteral("No Data\n\n<b>not bold</b>"));
        EXPECT_TRUE(text->textInteractionFlags() & Qt::TextSelectableByMouse);
        keeppicture(form, QStringLiteral("afmenu-message"));
        QTest::keyClick(&form, Qt::Key_Escape);
    });
    tellok();
    EXPECT_EQ(opened, 1);
}

TEST_F(MenuForms, AVeryLongMessageScrollsWithinTheScreen) {
    std::string text;
    for (int i = 0; i < 400; ++i)
        text += "line " + std::to_string(i) + " of a message that goes on and on\r\n";
    session.msg = text;
    onform([](QDialog& form) {
        const QSize screen = QGuiApplication::primaryScreen()->availableGeometry().size();
        EXPECT_LE(form.height(), screen.height());
        EXPECT_LE(form.width(), screen.width());
        auto* ok = form.findChild<QPushButton*>();
        EXPECT_TRUE(form.rect().contains(ok->geometry()));
        QTest::mouseClick(ok, Qt::LeftButton);
    });
    tellok();
}

TEST_F(MenuForms, NothingIsCutOffInAnyLanguage) {
    for (const Language& language : languages()) {
        const InLanguage here(language.name);
        menuclear();
        int number = 0;
        const auto add = [&](char key, auto... parts) {
            std::string& item = session.menuItem[++number];
            extend(item, key, "...", parts...);
        };
        add('A', Word::Activate, " ", Word::Confidence, " ", Word::Limit, " [", Word::On, "]");
        add('B', Word::Maximum, " ", Word::Likelihood, " ", Word::Estimate, " [", Word::None, "]");
        session.menuItem[++number] = "...";
        add('C', Word::JudgementDisclaimer);
        session.menuCount = static_cast<float>(number);
        compose(session.msg, Word::Select, " ", Word::Distribution, " ", Word::Analysis);
        onform([&](QDialog& form) {
            expectnothingcut(form, std::string(language.name));
            QTest::keyClick(&form, Qt::Key_Escape);
        });
        menushow();
        compose(session.msg, Word::JudgementDisclaimer);
        onform([&](QDialog& form) {
            expectnothingcut(form, std::string(language.name));
            QTest::keyClick(&form, Qt::Key_Escape);
        });
        askyesnocancel();
    }
}

} // namespace
