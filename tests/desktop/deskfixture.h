#pragma once

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QDir>
#include <QLabel>
#include <QPixmap>
#include <QPointer>
#include <QRegularExpression>
#include <QScrollBar>
#include <QTest>
#include <QTimer>
#include <functional>
#include <utility>

#include "platform/qt/qtplatform.h"
#include "platform/qt/style.h"
#include "platform/qt/text.h"
#include "session/session.h"
#include "support/freshsession.h"
#include "support/inlanguage.h"
#include "support/workfolder.h"

/// Where the tests leave what they saw.
inline QString picturefile(const QString& name) {
    QDir().mkpath(QStringLiteral("build/pictures"));
    return QStringLiteral("build/pictures/") + name + QStringLiteral(".png");
}

inline void keeppicture(QWidget& widget, const QString& name) {
    EXPECT_TRUE(widget.grab().save(picturefile(name))) << utf8(name);
}

/// A fresh session on the desktop's own platform.
class DesktopTest : public testing::Test {
protected:
    FreshSession fresh{lifeSide};
    QtPlatform desktop{"vanex"};
    WorkFolder settings; ///< takes what a form saves

    DesktopTest() : former(std::exchange(platform, &desktop)) {
        session.configPath = settings.path("") + "\\";
        session.startPasses = 1; // the first pass, which looks for the folders of the machine, is long over
        applysurroundings();
    }
    ~DesktopTest() override { platform = former; }

    /// Acts on the next modal form once it is open, and sees to it that it closes.
    void onform(std::function<void(QDialog&)> act) {
        auto* timer = new QTimer(&context);
        timer->setInterval(5);
        QObject::connect(timer, &QTimer::timeout, &context, [this, timer, act = std::move(act)] {
            auto* form = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            if (!form || !form->isVisible()) return;
            timer->stop();
            ++opened;
            QTimer::singleShot(8000, form, [form] {
                ADD_FAILURE() << "left open: " << utf8(form->objectName());
                form->reject();
            });
            act(*form);
        });
        timer->start();
    }
    /// Where keys go in a form, also while the window system has not made it the active one yet.
    static QWidget* focusin(QDialog& form) {
        QWidget* const inside =
            QApplication::focusWidget() ? QApplication::focusWidget() : form.focusWidget();
        return inside ? inside : &form;
    }
    void press(Qt::Key key) {
        onform([key](QDialog& form) { QTest::keyClick(focusin(form), key); });
    }

    int opened = 0; ///< forms that were acted on

private:
    QObject context;
    Platform* former;
};

/// Every text of the window fits its place.
inline void expectnothingcut(QWidget& window, const std::string& where) {
    for (const QLabel* label : window.findChildren<QLabel*>()) {
        if (!label->isVisible() || label->text().isEmpty()) continue;
        const QString what = label->objectName() + QStringLiteral(": ") + label->text().left(60);
        if (label->wordWrap()) {
            EXPECT_LE(label->heightForWidth(label->width()), label->height()) << where << ' ' << utf8(what);
            for (const QString& word : label->text().split(QRegularExpression(QStringLiteral("\\s+"))))
                EXPECT_LE(QFontMetrics(label->font()).horizontalAdvance(word), label->width())
                    << where << ' ' << utf8(word);
        } else {
            EXPECT_LE(QFontMetrics(label->font()).size(0, label->text()).width(), label->width())
                << where << ' ' << utf8(what);
        }
    }
    for (const QAbstractButton* button : window.findChildren<QAbstractButton*>()) {
        if (!button->isVisible() || button->text().isEmpty()) continue;
        EXPECT_LE(button->sizeHint().width(), button->width()) << where << ' ' << utf8(button->text());
    }
    for (const QWidget* row : window.findChildren<QWidget*>(QStringLiteral("RichTextMItem")))
        EXPECT_LE(row->heightForWidth(row->width()), row->height())
            << where << ' ' << utf8(row->accessibleName());
}

/// Every control that takes the focus says what it is.
inline void expectnamed(QWidget& window) {
    for (const QWidget* widget : window.findChildren<QWidget*>()) {
        if (!(widget->focusPolicy() & Qt::TabFocus) || !widget->isVisible()) continue;
        const auto* button = qobject_cast<const QAbstractButton*>(widget);
        const bool named = !widget->accessibleName().isEmpty() || (button && !button->text().isEmpty());
        const bool part = widget->parentWidget() && !widget->parentWidget()->accessibleName().isEmpty();
        EXPECT_TRUE(named || part) << utf8(widget->objectName()) << ' ' << widget->metaObject()->className();
    }
}
