#include "platform/qt/helpview.h"

#include "platform/qt/style.h"
#include "platform/qt/text.h"

namespace {

QString paragraph(const HelpPart& part) {
    const QString text = qs(part.text).toHtmlEscaped();
    const QString term = qs(part.term).toHtmlEscaped();
    switch (part.kind) {
    case HelpKind::heading: return QStringLiteral("<h3 style='margin-bottom:4px'>%1</h3>").arg(text);
    case HelpKind::item:
        return QStringLiteral("<p style='margin:4px 0 4px 24px; text-indent:-14px'>&bull;&nbsp; %1</p>")
            .arg(text);
    case HelpKind::entry:
        return QStringLiteral("<p style='margin:4px 0 4px 24px'><b><span style='color:%1'>%2</span></b>"
                              "&nbsp;&nbsp; %3</p>")
            .arg(tones().accent.name(), term, text);
    case HelpKind::text: break;
    }
    return QStringLiteral("<p style='margin:6px 0'>%1</p>").arg(text);
}

} // namespace

QTextBrowser* helpbrowser(const HelpPage& page) {
    auto* browser = new QTextBrowser;
    QFont font = helpfont();
    font.setPointSizeF(font.pointSizeF() + 1);
    browser->setFont(font);
    browser->setOpenLinks(false);
    browser->document()->setDocumentMargin(20);
    QString html = QStringLiteral("<h2>%1</h2>").arg(qs(page.title).toHtmlEscaped());
    for (const HelpPart& part : page.parts) html += paragraph(part);
    browser->setHtml(html);
    return browser;
}

QScrollArea* scrolled(QWidget* inner) {
    auto* area = new QScrollArea;
    area->setWidgetResizable(true);
    area->setFrameShape(QFrame::NoFrame);
    area->setWidget(inner);
    return area;
}
