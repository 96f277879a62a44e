#include "platform/qt/qtplatform.h"

#include <QDate>

#include "platform/qt/clipboard.h"
#include "platform/qt/form1.h"
#include "platform/qt/paper.h"
#include "platform/qt/pictures.h"
#include "platform/qt/prompts.h"
#include "platform/qt/text.h"
#include "session/startup.h"

namespace {

/// While there is no main window.
class QuietWindow : public MainWindow {
public:
    void caption(std::string_view text) override {
        if (text == waitCaption && !scriptmode()) Form1::showwaiting(qs(text));
    }
    void readswitches() override {}
    void closepopups() override {}
    void repainticons() override {}
    void repaintgrid() override {}
    void repaintplot() override {}
    bool pendingevents() override { return false; }
};

class Today : public Clock {
public:
    std::string date() override { return utf8(QDate::currentDate().toString(Qt::ISODate)); }
    std::string time() override { return utf8(QTime::currentTime().toString(QStringLiteral("HH:mm"))); }
};

} // namespace

QtPlatform::QtPlatform(std::string startedAs)
    : machine(std::move(startedAs)),
      quiet(std::make_unique<QuietWindow>()),
      forms(std::make_unique<FormPrompts>()),
      today(std::make_unique<Today>()),
      board(std::make_unique<DesktopClipboard>()),
      painter(std::make_unique<DesktopPictures>()),
      paper(std::make_unique<DesktopPrinter>()) {}

QtPlatform::~QtPlatform() = default;

void QtPlatform::setwindow(MainWindow* window, QWidget* parent) {
    Form1::closewaiting();
    shown = window;
    static_cast<FormPrompts&>(*forms).setparent(parent);
    static_cast<DesktopPrinter&>(*paper).setparent(parent);
}

MainWindow& QtPlatform::window() { return shown ? *shown : *quiet; }
