#include "plot/layout.h"

#include <algorithm>
#include <cmath>

#include "data/numbertext.h"
#include "plot/drawing.h"
#include "session/session.h"

namespace {

constexpr double unitsPerPixel = 15;
constexpr double smallestPixels = 8;
constexpr double rounding = 1e-6;    ///< a block that fits exactly has all its rows
constexpr double blockShare = 0.28;  ///< of the canvas width, at most
constexpr double blockShrink = 0.62; ///< how far the block's characters may shrink before lines are cut

double largestwidth(const std::vector<BlockLine>& block, double size) {
    double width = 0;
    for (const BlockLine& line : block) width = std::max(width, blockwidth(line, size));
    return width;
}

/// Width that must not be cut: that of the numbers, which stand in columns. A name may be cut short.
double numberswidth(const std::vector<BlockLine>& block, double size) {
    double width = 0;
    for (const BlockLine& line : block)
        if (line.text.find("[[TAB") != std::string::npos) width = std::max(width, blockwidth(line, size));
    return width;
}

/// Character size at which the block fits the room; not below what can be read.
double blocksize(const std::vector<BlockLine>& block, double size, double roomX, double roomY) {
    const double width = numberswidth(block, size);
    const double height = lineheight(size) * static_cast<double>(block.size());
    const double factor =
        std::min({1.0, width > roomX ? roomX / width : 1.0, height > roomY ? roomY / height : 1.0});
    const double least = std::min(size, std::max(size * blockShrink, 0.75 * smallestPixels * unitsPerPixel));
    return std::max(least, size * factor);
}

/// Both axes plain, and a unit wanted as long on the one as on the other.
bool equalunits() {
    return session.equalScales == 1 && session.plotKind == xyPlot && session.plotMode != 1
           && session.plotMode != functionAxes && session.xyscale == 0;
}

/// Takes off the longer way of the area what a unit has too much there.
void makesquare(PlotWindow& area) {
    const double factor = std::min(area.xfactor, area.yfactor);
    area.right = area.left + factor * (area.xhigh - area.xlow);
    area.top = area.bottom - factor * (area.yhigh - area.ylow);
    area.xfactor = area.yfactor = factor;
}

} // namespace

double charactersize() {
    const double natural = std::min(session.ploth / 42.0, session.plotw / 56.0);
    return std::max(natural, std::min(smallestPixels * unitsPerPixel, session.ploth / 20.0));
}

double tabplace(std::string_view digits, double size) {
    constexpr double columnWidth = 0.6; // of the character size: a digit's
    return readnumber(digits).value * columnWidth * size;
}

double blockwidth(const BlockLine& line, double size) {
    const double indent = line.mark > 0 ? 2 * size : 0;
    double width = 0;
    double start = 0;
    std::string_view rest = line.text;
    while (!rest.empty()) {
        const auto mark = rest.find("[[TAB");
        width = std::max(width, start + plottextwidth(rest.substr(0, mark), size));
        if (mark == std::string_view::npos || rest.size() < mark + 7) break;
        start = tabplace(rest.substr(mark + 5, 2), size);
        rest.remove_prefix(mark + 7);
    }
    return indent + width;
}

Layout plotlayout(const std::vector<BlockLine>& block, const LabelRoom& labels, int titleLines) {
    Layout layout;
    const double w = session.plotw;
    const double h = session.ploth;
    layout.size = charactersize();
    layout.titleSize = 1.3 * layout.size;
    const double size = layout.size;
    const double margin = 0.9 * size;

    PlotWindow& area = session.window;
    area.top = margin + lineheight(layout.titleSize) + (titleLines - 1) * lineheight(size) + 0.5 * size;
    layout.footY = h - 0.8 * size;
    layout.xTitleY = layout.footY - 1.5 * size;
    layout.xLabelY = layout.xTitleY - 1.6 * size;
    area.bottom = layout.xLabelY - 1.4 * size;
    layout.yTitleX = margin + 0.9 * size;
    area.left = layout.yTitleX + 0.8 * size + labels.y + 0.5 * size;
    area.left = std::max(area.left, labels.xFirst + 0.3 * size);

    const double roomX = blockShare * w;
    const double roomY = area.bottom - area.top;
    layout.blockSize = blocksize(block, size, roomX, roomY);
    const double blockWide = std::min(roomX, largestwidth(block, layout.blockSize));
    layout.blockRight = w - margin;
    layout.blockLeft = block.empty() ? layout.blockRight : layout.blockRight - blockWide;
    area.right = block.empty() ? w - 2.5 * size : layout.blockLeft - 1.8 * size;
    area.right = std::min(area.right, w - labels.xLast - 0.3 * size);
    layout.blockRows =
        std::min(block.size(), static_cast<std::size_t>(roomY / lineheight(layout.blockSize) + rounding));

    area.xfactor = (area.right - area.left) / (area.xhigh - area.xlow);
    area.yfactor = (area.bottom - area.top) / (area.yhigh - area.ylow);
    if (equalunits()) makesquare(area);
    return layout;
}

std::string fittedtext(std::string_view text, double size, double room) {
    constexpr double slack = 1; // the room was measured by the same texts
    if (plottextwidth(text, size) <= room + slack) return std::string(text);
    const double left = room - plottextwidth(cutMark, size);
    const auto bound = [text](std::size_t length) { // never inside a character
        while (length > 0 && length < text.size() && (text[length] & 0xC0) == 0x80) --length;
        return length;
    };
    std::size_t fits = 0;
    for (std::size_t tooLong = text.size(); fits + 1 < tooLong;) {
        const std::size_t middle = (fits + tooLong) / 2;
        (plottextwidth(text.substr(0, bound(middle)), size) <= left ? fits : tooLong) = middle;
    }
    return std::string(text.substr(0, bound(fits))).append(cutMark);
}
