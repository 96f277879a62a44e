#include "plot/block.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "data/boundvalues.h"
#include "data/settitle.h"
#include "plot/bars.h"
#include "plot/drawing.h"
#include "plot/functionplot.h"
#include "plot/numbermask.h"
#include "plot/pie.h"
#include "plot/plotkind.h"
#include "plot/polygon.h"
#include "plot/shown.h"
#include "plot/strokes.h"
#include "plot/xycurve.h"
#include "session/session.h"
#include "shell/words.h"

namespace {

std::string numbertext(double value, UseClass use) {
    const Keep keep{session.ud};
    session.ud = value;
    return numbermask(use);
}

int rownumber(int k) { return static_cast<int>(rowofset(static_cast<float>(k))); }

// ---- legend ----

void legendofset(std::vector<BlockLine>& lines, int k) {
    BlockLine line;
    const auto title = titleofset(k);
    if (title.empty())
        wordclean(compose(line.text, Word::Set, " ", k));
    else
        line.text = withoutcolumns(title);
    line.colour = frameColour;
    line.mark = session.plotMode != 1 && curvekindof(k) == lineCurve ? float{barMark} : setmark(k);
    line.setRow = rowofset(static_cast<float>(k));
    if (barsplotted()) line.box = colourofset(k);
    lines.push_back(std::move(line));
}

bool anysuspension() {
    if (session.plotMode != 1) return false;
    for (int k = 1; k <= setcount(); ++k)
        if (setshown(k) && session.setPlaced(k) == 1 && session.countSusp(k) > 0) return true;
    return false;
}

void legendlines(std::vector<BlockLine>& lines, BlockKind kind) {
    if (session.legendPlace == 0) return;
    lines.push_back({"LEGEND", frameColour});
    for (int k = 1; kind == fullBlock && k <= setcount(); ++k)
        if (setshown(k)) legendofset(lines, k);
    if (anysuspension()) {
        BlockLine line{word(Word::Suspension), frameColour};
        wordclean(line.text);
        line.mark = suspensionmark();
        lines.push_back(line);
    }
    if (lines.size() == 1) lines.clear();
}

// ---- parameters ----

/// What the parameter lines of one set say, left and right of the column.
struct SetLines {
    std::string parameters[2];
    std::string fit[2];
    std::string bounds[2];
};

SetLines wordsofset(int k) {
    SetLines words;
    std::string counts;
    compose(counts, "n/s=", session.countQuantity(k), "/", session.countSusp(k));
    if (hasline(k)) {
        const int row = rownumber(k);
        compose(words.parameters[0], parametername(session.dist, 1), "=",
                numbertext(session.etaFit(row, 1), parameterUse));
        compose(words.parameters[1], parametername(session.dist, 2), "=",
                numbertext(session.betaFit(row, 1), slopeUse));
    }
    const double r = session.setCorrelation(k);
    if (hasline(k) && std::isfinite(r) && r != 0) compose(words.fit[0], "r^2=", numbertext(r * r, fitUse));
    words.fit[words.fit[0].empty() ? 0 : 1] = counts;
    if (hasline(k) && hasbounds(k)) {
        compose(words.bounds[0], "c%=", boundconfidence());
        words.bounds[1] = session.setBoundLabel(k);
    }
    return words;
}

void pushcells(std::vector<BlockLine>& lines, const std::string (&cells)[2], int column) {
    if (cells[0].empty()) return;
    BlockLine line;
    line.colour = frameColour;
    line.text = cells[0];
    if (!cells[1].empty()) extend(line.text, "[[TAB", column, cells[1]);
    lines.push_back(std::move(line));
}

/// Full: which set and how it was fitted, its parameters, its fit and counts. Short, for many sets on a small
/// canvas: mark, set and fit on one line, so that the legend need not name it.
void linesofset(std::vector<BlockLine>& lines, int k, const SetLines& words, BlockKind kind, int column) {
    BlockLine heading;
    heading.colour = colourofset(k);
    if (kind == fullBlock) {
        compose(heading.text, Word::Set, " ", k, "  ", session.setLabel(k));
        wordclean(heading.text);
    } else {
        heading.mark = setmark(k);
        heading.setRow = rowofset(static_cast<float>(k));
        compose(heading.text, k, " ", session.setLabel(k));
        const auto cellColumn = static_cast<int>(heading.text.size() + 2);
        extend(heading.text, "[[TAB", cellColumn < 10 ? "0" : "", cellColumn);
        extend(heading.text, words.fit[words.fit[1].empty() ? 0 : 1]);
        if (!words.fit[1].empty()) extend(heading.text, " ", words.fit[0]);
    }
    lines.push_back(std::move(heading));
    pushcells(lines, words.parameters, column);
    if (kind != fullBlock) return;
    pushcells(lines, words.fit, column);
    pushcells(lines, words.bounds, column);
}

void paramlines(std::vector<BlockLine>& lines, BlockKind kind) {
    if (session.plotMode != 1 && !functionplotted()) return;
    constexpr std::size_t leastColumn = 15;
    constexpr std::size_t mostColumn = 40;
    constexpr std::size_t setsWithSpace = 4; ///< more sets stand without blank lines between them
    std::vector<std::pair<int, SetLines>> sets;
    std::size_t column = leastColumn;
    for (int k = 1; k <= setcount(); ++k) {
        if (!setshown(k)) continue;
        sets.emplace_back(k, wordsofset(k));
        for (const auto* cells : {&sets.back().second.parameters, &sets.back().second.fit})
            column = std::clamp((*cells)[0].size() + 3, column, mostColumn);
    }
    for (const auto& [k, words] : sets) {
        if (!lines.empty() && (sets.size() <= setsWithSpace || k == sets.front().first)) lines.push_back({});
        linesofset(lines, k, words, kind, static_cast<int>(column));
    }
}

// ---- curves ----

bool anycurve() {
    for (int k = 1; k <= setcount(); ++k)
        if (setshown(k) && curveshown(k)) return true;
    return false;
}

/// An equation on as many lines as it needs, cut before its signs.
void equationlines(std::vector<BlockLine>& lines, std::string_view text, int colour) {
    constexpr std::size_t room = 22;
    while (!text.empty()) {
        std::size_t cut = text.size();
        if (text.size() > room) {
            int depth = 0;
            std::size_t at = 0;
            for (std::size_t i = 1; i < text.size() && (i <= room || at == 0); ++i) {
                depth += text[i] == '(' ? 1 : text[i] == ')' ? -1 : 0;
                const bool sign = text[i] == '+' || text[i] == '-';
                const bool inNumber = text[i - 1] == 'E' || text[i - 1] == '(';
                if (sign && !inNumber && depth <= 0) at = i;
            }
            if (at > 0) cut = at;
        }
        lines.push_back({withoutcolumns(text.substr(0, cut)), colour});
        text.remove_prefix(cut);
    }
}

/// Set, equation and correlation of a fitted curve; in short mark, set and correlation on one line.
void curveofset(std::vector<BlockLine>& lines, int k, BlockKind kind) {
    const SetCurve& curve = session.curves(k);
    BlockLine heading;
    heading.colour = colourofset(k);
    std::string r;
    if (curve.hasR && std::isfinite(curve.r)) compose(r, "r=", numbertext(curve.r, fitUse));
    if (kind == shortBlock) {
        heading.mark = setmark(k);
        heading.setRow = rowofset(static_cast<float>(k));
        compose(heading.text, k, "  ", r);
    } else {
        compose(heading.text, Word::Set, " ", k);
        if (!r.empty()) extend(heading.text, "[[TAB09", r);
    }
    wordclean(heading.text);
    lines.push_back(std::move(heading));
    if (kind == fullBlock) equationlines(lines, curvetext(k), frameColour);
}

void curvelines(std::vector<BlockLine>& lines, BlockKind kind) {
    const auto space = [&lines, kind] {
        if (!lines.empty() && kind == fullBlock) lines.push_back({});
    };
    for (int k = 1; k <= setcount(); ++k) {
        if (!setshown(k) || !curveshown(k)) continue;
        space();
        curveofset(lines, k, kind);
    }
    if (functiontyped()) {
        space();
        equationlines(lines, typedtext(), functioncolour());
    }
    if (!barsplotted()) return;
    const auto cut = cutbars();
    if (!cut.empty()) space();
    for (const std::string& line : cut) lines.push_back({line, frameColour});
}

// ---- drawing ----

/// Draws the cells of a line, each at its column.
void drawcells(std::string_view rest, double left, double right, double y, double size) {
    double start = 0;
    while (true) {
        const auto mark = rest.find("[[TAB");
        const bool last = mark == std::string_view::npos || rest.size() < mark + 7;
        const double end = last ? right : left + tabplace(rest.substr(mark + 5, 2), size);
        session.plotx2 = left + start;
        session.ploty2 = y;
        plottext(fittedtext(rest.substr(0, mark), size, std::max(end, session.plotx2) - session.plotx2));
        if (last) return;
        start = tabplace(rest.substr(mark + 5, 2), size);
        rest.remove_prefix(mark + 7);
    }
}

/// A filled box around the anchor.
void drawbox(int colour, double size) {
    const Keep keep{session.window};
    const double x = session.plotx2, y = session.ploty2, half = 0.36 * size;
    session.window.left = session.window.top = 0; // the box stands beside the plot area
    session.window.right = session.plotw;
    session.window.bottom = session.ploth;
    plotbox(x - half, y - half, x + half, y + half, colour, false);
}

void drawline(const BlockLine& line, const Layout& layout, double y) {
    const double size = layout.blockSize;
    double left = layout.blockLeft;
    if (line.mark > 0) {
        session.setCounter = line.setRow > 0 ? line.setRow : session.sg * static_cast<float>(drawingColour);
        session.plotx2 = left + 0.7 * size;
        session.ploty2 = y - 0.35 * size;
        if (line.box > 0)
            drawbox(line.box, size);
        else
            strokemark(line.mark);
        left += 2 * size;
    }
    session.plotpen = static_cast<float>(line.colour);
    if (line.text.empty()) return;
    drawcells(line.text, left, layout.blockRight, y, size);
}

void drawlines(const PlotBlock& block, const Layout& layout, std::size_t from, std::size_t to) {
    const Keep keep{session.plotx2, session.ploty2, session.plotpen, session.textSize, session.setCounter};
    session.textSize = static_cast<float>(layout.blockSize);
    const double first = session.window.top + 0.85 * layout.blockSize;
    for (std::size_t i = from; i < std::min(to, layout.blockRows) && plotting(); ++i) {
        const double y = first + static_cast<double>(i) * lineheight(layout.blockSize);
        const bool cut = i + 1 == layout.blockRows && layout.blockRows < block.lines.size();
        if (cut)
            drawline({std::string(cutMark), frameColour}, layout, y);
        else
            drawline(block.lines[i], layout, y);
    }
}

} // namespace

float setmark(int k) {
    static constexpr std::array<int16_t, 24> marks = {24, 23, 31, 21, 33, 32, 22, 34, 29, 30, 43, 44,
                                                      40, 41, 42, 38, 35, 36, 37, 39, 25, 27, 26, 28};
    return marks[static_cast<std::size_t>(k - 1) % marks.size()];
}

float suspensionmark() { return 18; } // points to the right: the unit ran on

std::string withoutcolumns(std::string_view name) {
    std::string text(name);
    for (auto at = text.find("[[TAB"); at != std::string::npos; at = text.find("[[TAB")) text.erase(at, 2);
    return text;
}

PlotBlock composeblock(BlockKind kind) {
    PlotBlock block;
    if (pieplotted()) {
        // Ahead of the legend: it may be longer than its room, and what is missing must not go with its end.
        for (const std::string& line : pieleftout()) block.lines.push_back({line, frameColour});
        if (session.legendPlace != 0) pielegend(block.lines);
        block.legendLines = block.lines.size();
        return block;
    }
    legendlines(block.lines, session.plotMode == 1 || anycurve() ? kind : fullBlock);
    block.legendLines = block.lines.size();
    paramlines(block.lines, kind);
    curvelines(block.lines, kind);
    return block;
}

void plotlegend(const PlotBlock& block, const Layout& layout) {
    drawlines(block, layout, 0, block.legendLines);
}

void plotparams(const PlotBlock& block, const Layout& layout) {
    drawlines(block, layout, block.legendLines, block.lines.size());
}
