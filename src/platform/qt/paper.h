#pragma once

#include <QPagedPaintDevice>
#include <QPointer>
#include <QWidget>

#include "platform/platform.h"

/// The plot on a page. Fine: composed for the page at its own resolution; else the picture of the screen,
/// which is `shown` large, as it stands. It takes `percent` of the page each way, centred.
bool plotonpaper(QPagedPaintDevice& page, bool fine, double percent, QSize shown);

/// Text of equal widths on as many pages as it needs, each with the header and its number. A form feed begins
/// a new page; a line too long for the page goes on in the next.
bool textonpaper(QPagedPaintDevice& page, std::string_view header, std::string_view text);

/// The printers of the desktop, chosen in its dialog. Where there is none, a PDF file stands in.
class DesktopPrinter : public Printer {
public:
    /// What the dialogs stand over; the plot is looked for in it.
    void setparent(QWidget* over) { parent = over; }

    PrintEnd printplot(bool fine, double percent) override;
    PrintEnd printtext(std::string_view header, std::string_view text) override;

private:
    QPointer<QWidget> parent;
};
