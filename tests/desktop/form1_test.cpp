#include "platform/qt/form1.h"

#include <QElapsedTimer>
#include <QPushButton>

#include "desktop/deskfixture.h"
#include "session/startup.h"
#include "session/startwindow.h"

namespace {

class StartWindow : public DesktopTest {
protected:
    static int agreement() { return Form1(Form1::Purpose::agreement).exec(); }
    static QString line(QDialog& form) {
        return form.findChild<QAbstractButton*>(QStringLiteral("TitlePicture"))->accessibleName();
    }
    static QPushButton* button(QDialog& form, const char* name) {
        return form.findChild<QPushButton*>(QLatin1String(name));
    }
};

TEST_F(StartWindow, YGoesOnAndXAndEscLeave) {
    press(Qt::Key_Y);
    EXPECT_EQ(agreement(), QDialog::Accepted);
    press(Qt::Key_X);
    EXPECT_EQ(agreement(), QDialog::Rejected);
    press(Qt::Key_Escape);
    EXPECT_EQ(agreement(), QDialog::Rejected);
    EXPECT_EQ(opened, 3);
}

TEST_F(StartWindow, TheButtonsSayWhatTheyDo) {
    onform([](QDialog& form) {
        EXPECT_EQ(form.objectName(), QStringLiteral("Form1"));
        keeppicture(form, QStringLiteral("form1"));
        expectnamed(form);
        EXPECT_EQ(button(form, "ExitButton")->text(), QStringLiteral("<X> Exit."));
        EXPECT_EQ(button(form, "AgreeButton")->text(), QStringLiteral("<Y> Yes I Agree To The Above."));
        QTest::mouseClick(button(form, "AgreeButton"), Qt::LeftButton);
    });
    EXPECT_EQ(agreement(), QDialog::Accepted);
    onform([](QDialog& form) { QTest::mouseClick(button(form, "ExitButton"), Qt::LeftButton); });
    EXPECT_EQ(agreement(), QDialog::Rejected);
}

TEST_F(StartWindow, HasFivePanelsWithTheStrapLineAndTheDisclaimer) {
    onform([](QDialog& form) {
        for (const char* name :
             {"TitlePanel", "AuthorPanel", "AdvisorPanel", "AddressPanel", "DisclaimerPanel"})
            EXPECT_TRUE(form.findChild<QLabel*>(QLatin1String(name))) << name;
        EXPECT_EQ(form.findChild<QLabel*>(QStringLiteral("TitlePanel"))->text(),
                  QStringLiteral("The Intelligent Plotting/Analysis Software (SM)"));
        EXPECT_TRUE(form.findChild<QLabel*>(QStringLiteral("DisclaimerPanel"))
                        ->text()
                        .startsWith(QStringLiteral("This Software Cannot Replace Judgement")));
        form.reject();
    });
    agreement();
}

TEST_F(StartWindow, AClickOnThePictureShowsTheNextFeatureAndComesRound) {
    onform([](QDialog& form) {
        auto* picture = form.findChild<QAbstractButton*>(QStringLiteral("TitlePicture"));
        const QString first = line(form);
        EXPECT_TRUE(first.endsWith(QStringLiteral("Weibayes + RBA For Small Sample Size")));
        QTest::mouseClick(picture, Qt::LeftButton);
        EXPECT_TRUE(line(form).endsWith(QStringLiteral("Risk Analysis For Expected Quantity")));
        QTest::mouseClick(picture, Qt::LeftButton);
        EXPECT_TRUE(line(form).endsWith(QStringLiteral("Monte Carlo For Typical Data")));
        int clicks = 2;
        while (!line(form).contains(QStringLiteral("Language")) && clicks < 40) {
            QTest::mouseClick(picture, Qt::LeftButton);
            ++clicks;
        }
        EXPECT_EQ(clicks, static_cast<int>(starttexts().features.size()));
        form.reject();
    });
    agreement();
}

TEST_F(StartWindow, TheLanguageChangesAllItsTexts) {
    onform([this](QDialog& form) {
        onform([](QDialog& page) {
            EXPECT_EQ(page.objectName(), QStringLiteral("afmenu"));
            keeppicture(page, QStringLiteral("form1-language"));
            QWidget* german = nullptr;
            for (QWidget* row : page.findChildren<QWidget*>(QStringLiteral("RichTextMItem")))
                if (row->accessibleName().contains(QStringLiteral("Deutsch"))) german = row;
            ASSERT_TRUE(german);
            QTest::mouseClick(german, Qt::LeftButton);
        });
        QTest::keyClick(&form, Qt::Key_L);
        EXPECT_FALSE(button(form, "ExitButton")->text().contains(QStringLiteral("Exit")));
        keeppicture(form, QStringLiteral("form1-german"));
        form.reject();
    });
    agreement();
    EXPECT_EQ(session.languageFile, languagefile("German"));
    session.languageFile.clear();
    wordload();
}

TEST_F(StartWindow, TheAboutBoxHasOneOkAndNoQuestion) {
    onform([](QDialog& form) {
        EXPECT_EQ(form.findChildren<QPushButton*>().size(), 1);
        keeppicture(form, QStringLiteral("form1-about"));
        QTest::keyClick(&form, Qt::Key_Y);
        EXPECT_TRUE(form.isVisible());
        QTest::mouseClick(button(form, "OkButton"), Qt::LeftButton);
    });
    EXPECT_EQ(Form1(Form1::Purpose::about).exec(), QDialog::Accepted);
}

TEST_F(StartWindow, TheSplashGoesByItself) {
    QElapsedTimer clock;
    clock.start();
    Form1 form(Form1::Purpose::agreement);
    onform([](QDialog& shown) {
        EXPECT_FALSE(shown.findChild<QPushButton*>(QStringLiteral("AgreeButton"))->isVisible());
        EXPECT_FALSE(shown.findChild<QLabel*>(QStringLiteral("DisclaimerPanel"))->isVisible());
    });
    form.splash();
    EXPECT_EQ(form.result(), QDialog::Accepted);
    EXPECT_GE(clock.elapsed(), 1150);
    EXPECT_LT(clock.elapsed(), 4000);
    EXPECT_EQ(opened, 1);
}

TEST_F(StartWindow, ALongStartShowsItsCaptionUntilTheNextWindow) {
    const auto waiting = [] {
        for (QWidget* widget : QApplication::topLevelWidgets())
            if (widget->objectName() == QStringLiteral("Form1") && widget->isVisible())
                return widget->windowTitle();
        return QString();
    };
    desktop.window().caption("Data");
    EXPECT_EQ(waiting(), QString());
    desktop.window().caption(waitCaption);
    EXPECT_EQ(waiting(), QStringLiteral("Making Extra Large Array Dimensions - Please Wait ..."));
    desktop.setwindow(nullptr, nullptr);
    EXPECT_EQ(waiting(), QString());
}

TEST_F(StartWindow, AScriptRunShowsNoWindowAtAll) {
    session.scriptRequest = "[WVW]";
    desktop.window().caption(waitCaption);
    for (const QWidget* widget : QApplication::topLevelWidgets()) EXPECT_FALSE(widget->isVisible());
}

TEST_F(StartWindow, NothingIsCutOffInAnyLanguage) {
    for (const Language& language : languages()) {
        const InLanguage here(language.name);
        onform([&](QDialog& form) {
            expectnothingcut(form, std::string(language.name));
            form.reject();
        });
        agreement();
    }
}

} // namespace
