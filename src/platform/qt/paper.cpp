#include "platform/qt/paper.h"

#include <QFileInfo>
#include <QFontMetricsF>
#include <QPainter>
#include <QPdfWriter>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QSaveFile>
#include <QStringList>
#include <algorithm>
#include <cmath>
#include <functional>

#include "platform/qt/filedialogs.h"
#include "platform/qt/style.h"
#include "platform/qt/surface.h"
#include "platform/qt/text.h"
#include "session/drawing.h"

namespace {

using Draw = std::function<bool(QPagedPaintDevice&)>;

/// Size of the page between its margins, in its own dots.
QSizeF printable(const QPagedPaintDevice& page) { return QSizeF(page.width(), page.height()); }

// --- text ---

constexpr int leastColumns = 80; ///< of a page, so that short texts are not set in large letters
constexpr int mostColumns = 132; ///< beyond it letters would be too small to read
constexpr qsizetype tabStops = 8;

/// Tabs as blanks up to the next stop, and pieces that fit the page.
void appendpieces(QStringList& lines, const QString& line) {
    QString flat;
    for (const QChar c : line)
        if (c == QLatin1Char('\t'))
            flat += QString(tabStops - flat.size() % tabStops, QLatin1Char(' '));
        else
            flat += c;
    qsizetype at = 0;
    do {
        lines << flat.mid(at, mostColumns);
        at += mostColumns;
    } while (at < flat.size());
}

/// The lines of each stretch between form feeds.
std::vector<QStringList> stretchesof(std::string_view text) {
    std::vector<QStringList> stretches;
    QString plain = qs(text).replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    while (plain.endsWith(QLatin1Char('\n')) || plain.endsWith(QLatin1Char('\f'))) plain.chop(1);
    for (const QString& stretch : plain.split(QLatin1Char('\f'))) {
        QStringList& lines = stretches.emplace_back();
        for (const QString& line : stretch.split(QLatin1Char('\n'))) appendpieces(lines, line);
    }
    return stretches;
}

/// The stretches cut into pages of so many lines.
std::vector<QStringList> pagesof(const std::vector<QStringList>& stretches, qsizetype linesPerPage) {
    std::vector<QStringList> pages;
    for (const QStringList& lines : stretches)
        for (qsizetype at = 0; at < lines.size(); at += linesPerPage)
            pages.push_back(lines.mid(at, linesPerPage));
    return pages;
}

qsizetype widestof(const std::vector<QStringList>& stretches) {
    qsizetype widest = leastColumns;
    for (const QStringList& lines : stretches)
        for (const QString& line : lines) widest = std::max(widest, line.size());
    return widest;
}

/// The fixed face in which so many columns take the width.
QFont fittingfont(QPainter& painter, double width, qsizetype columns) {
    constexpr int trial = 1000;
    QFont font = fixedfont();
    font.setPixelSize(trial);
    const double advance = QFontMetricsF(font, painter.device()).horizontalAdvance(QLatin1Char('0'));
    const double fits = width / static_cast<double>(columns) / advance * trial;
    const double elevenPoints = 11.0 / 72 * painter.device()->logicalDpiY();
    font.setPixelSize(std::max(1, static_cast<int>(std::min(fits, elevenPoints))));
    return font;
}

void drawpage(QPainter& painter, QSizeF size, const QString& header, const QString& number,
              const QStringList& lines) {
    const QFontMetricsF metrics(painter.font(), painter.device());
    const double step = metrics.lineSpacing();
    painter.setPen(QPen(Qt::black, step / 20));
    const double numberWidth = metrics.horizontalAdvance(number);
    const QString title = metrics.elidedText(header, Qt::ElideRight, size.width() - numberWidth - 2 * step);
    painter.drawText(QPointF(0, metrics.ascent()), title);
    painter.drawText(QPointF(size.width() - numberWidth, metrics.ascent()), number);
    painter.drawLine(QPointF(0, 1.3 * step), QPointF(size.width(), 1.3 * step));
    double y = 2 * step + metrics.ascent();
    for (const QString& line : lines) {
        if (!line.isEmpty()) painter.drawText(QPointF(0, y), line);
        y += step;
    }
}

// --- where it goes ---

QString creator() { return QStringLiteral("OmniVANEX"); }

/// Draws into a file that takes the place of the target once it is whole.
PrintEnd printtofile(QPageLayout::Orientation orientation, const QString& target, const Draw& draw) {
    constexpr int dotsPerInch = 1200;
    QSaveFile file(target);
    if (!file.open(QIODevice::WriteOnly)) return PrintEnd::failed;
    bool drawn = false;
    {
        QPdfWriter page(&file);
        page.setCreator(creator());
        page.setResolution(dotsPerInch);
        page.setPageOrientation(orientation);
        drawn = draw(page);
    }
    if (!drawn) file.cancelWriting();
    return file.commit() ? PrintEnd::printed : PrintEnd::failed;
}

PrintEnd print(QWidget* over, QPageLayout::Orientation orientation, const Draw& draw) {
    if (QPrinterInfo::availablePrinterNames().isEmpty()) {
        const std::string header = utf8(phrase(Word::Print) + QStringLiteral(": PDF"));
        const auto target = asksavefile({header, "PDF|*.pdf", "", "print.pdf"}, over);
        return target ? printtofile(orientation, qs(*target), draw) : PrintEnd::cancelled;
    }
    QPrinter printer(QPrinter::HighResolution);
    printer.setCreator(creator());
    printer.setPageOrientation(orientation);
    QPrintDialog dialog(&printer, over);
    dialog.setWindowTitle(phrase(Word::Print));
    if (dialog.exec() != QDialog::Accepted) return PrintEnd::cancelled;
    return draw(printer) && printer.printerState() != QPrinter::Error ? PrintEnd::printed : PrintEnd::failed;
}

/// Size of the plot on the screen; a common one where there is none.
QSize shownsize(QWidget* window) {
    constexpr QSize common(1200, 900);
    const QWidget* const picture = window ? window->findChild<QWidget*>(QStringLiteral("Picture1")) : nullptr;
    return picture && !picture->size().isEmpty() ? picture->size() : common;
}

} // namespace

bool plotonpaper(QPagedPaintDevice& page, bool fine, double percent, QSize shown) {
    QPainter painter;
    if (!painter.begin(&page)) return false;
    const QSizeF whole = printable(page);
    const double part = std::clamp(std::isfinite(percent) ? percent : 100.0, 1.0, 100.0) / 100;
    QSizeF size = whole * part;
    const double scale = std::min(size.width() / shown.width(), size.height() / shown.height());
    if (!fine) size = QSizeF(shown) * scale;
    painter.translate(std::round((whole.width() - size.width()) / 2),
                      std::round((whole.height() - size.height()) / 2));
    if (fine) return paintplot(painter, size, printerDevice) && painter.end();
    painter.scale(scale, scale);
    return paintplot(painter, shown, pictureDevice) && painter.end();
}

bool textonpaper(QPagedPaintDevice& page, std::string_view header, std::string_view text) {
    QPainter painter;
    if (!painter.begin(&page)) return false;
    const QSizeF size = printable(page);
    const auto stretches = stretchesof(text);
    painter.setFont(fittingfont(painter, size.width(), widestof(stretches)));
    const double step = QFontMetricsF(painter.font(), painter.device()).lineSpacing();
    constexpr double headLines = 2.5;
    const auto fits = std::max<qsizetype>(1, static_cast<qsizetype>(size.height() / step - headLines));
    const std::vector<QStringList> pages = pagesof(stretches, fits);
    const QString title = qs(header).simplified();
    for (std::size_t i = 0; i < pages.size(); ++i) {
        if (i > 0 && !page.newPage()) return false;
        drawpage(painter, size, title, QStringLiteral("%1 / %2").arg(i + 1).arg(pages.size()), pages[i]);
    }
    return painter.end();
}

PrintEnd DesktopPrinter::printplot(bool fine, double percent) {
    const QSize shown = shownsize(parent);
    return print(parent, QPageLayout::Landscape,
                 [&](QPagedPaintDevice& page) { return plotonpaper(page, fine, percent, shown); });
}

PrintEnd DesktopPrinter::printtext(std::string_view header, std::string_view text) {
    return print(parent, QPageLayout::Portrait,
                 [&](QPagedPaintDevice& page) { return textonpaper(page, header, text); });
}
