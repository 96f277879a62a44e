#include "plot/titles.h"

#include <algorithm>

#include "data/datetext.h"
#include "data/methodlabels.h"
#include "plot/drawing.h"
#include "plot/functionplot.h"
#include "plot/ladder.h"
#include "plot/plotkind.h"
#include "plot/shown.h"
#include "session/session.h"
#include "shell/words.h"

namespace {

/// Draws a text centred on a level line between two edges, cut when it is longer.
void centred(std::string_view text, double left, double right, double y, double size) {
    session.textSize = static_cast<float>(size);
    const std::string shown = fittedtext(text, size, right - left);
    session.plotx2 = (left + right - plottextwidth(shown, size)) / 2;
    session.ploty2 = y;
    plottext(shown);
}

/// Still to be cleaned, with what the user typed kept from it.
std::string xtitle() {
    std::string text;
    if (!session.axisTitleX.empty()) return compose(text, AsTyped{session.axisTitleX});
    return session.plotMode == 1 || functionplotted() ? compose(text, Word::Age) : "X";
}

/// What the probability axis counts, in words.
std::string yunit() {
    std::string text;
    append(text, showsreliability() ? Word::Reliability : Word::Occurrence);
    switch (session.yScaleKind) {
    case occurrenceProbability:
    case reliabilityProbability: break;
    case occurrencePerThousand:
    case reliabilityPerThousand: text += " / K"; break;
    default: text += " %"; break;
    }
    return text;
}

bool thresholdinforce() {
    for (int k = 1; k <= setcount(); ++k)
        if (setshown(k) && session.t0(k) != 0) return true;
    return false;
}

/// Carets around a name mark it as a function's; they are not drawn.
std::string withoutcarets(std::string text) {
    std::erase(text, '^');
    return text;
}

/// Behind the title, which scale of X a threshold in force has left.
std::string marked(std::string title) {
    if (thresholdinforce()) extend(title, " - ", scalename());
    wordclean(title);
    return title;
}

std::string ytitle() {
    if (functionplotted()) return marked(functionname());
    if (session.plotMode != 1) return session.axisTitleY.empty() ? "Y" : session.axisTitleY;
    std::string text;
    extend(text, withoutcarets(showsreliability() ? "^1-F^" : "^F^"), "(", xtitle(), ") [");
    if (session.axisTitleY.empty())
        append(text, yunit());
    else
        append(text, AsTyped{session.axisTitleY});
    text += ']';
    return marked(text);
}

/// The rotated title beside the Y axis, centred on the plot area.
void drawytitle(const Layout& layout) {
    const PlotWindow& w = session.window;
    const std::string text = fittedtext(ytitle(), layout.size, w.bottom - w.top);
    session.textSize = static_cast<float>(layout.size);
    session.textRotation = 90;
    session.plotx2 = layout.yTitleX;
    session.ploty2 = (w.top + w.bottom + plottextwidth(text, layout.size)) / 2;
    plottext(text);
    session.textRotation = 0;
}

/// Program and date at the right of the foot line.
void drawfoot(const Layout& layout) {
    const double size = 0.8 * layout.size;
    std::string text;
    compose(text, session.productName, "  ", datetext());
    session.textSize = static_cast<float>(size);
    session.plotx2 = layout.blockRight - plottextwidth(text, size);
    session.ploty2 = layout.footY;
    plottext(text);
}

} // namespace

std::vector<std::string> titlelines() {
    std::vector<std::string> lines;
    lines.push_back(session.plotTitle);
    if (!session.titleSecond.empty()) lines.push_back(session.titleSecond);
    if ((session.plotMode == 1 || functionplotted()) && setcount() > 0) {
        std::string run;
        appendfamily(run);
        extend(run, " ", session.runTitle);
        wordclean(run);
        lines.push_back(run);
    }
    return lines;
}

void plottitles(const PlotBlock& block, const Layout& layout) {
    const Keep keep{session.plotx2, session.ploty2, session.plotpen, session.textSize, session.textRotation};
    const double margin = 0.9 * layout.size;
    const double right = session.plotw - margin;
    session.plotpen = frameColour;
    session.textRotation = 0;
    double y = margin + 0.85 * layout.titleSize;
    double size = layout.titleSize;
    for (const std::string& line : titlelines()) {
        centred(line, margin, right, y, size);
        size = layout.size;
        y += lineheight(size);
    }
    if (!pieplotted() && !spaceplotted()) {
        std::string below = xtitle();
        wordclean(below);
        centred(below, session.window.left, session.window.right, layout.xTitleY, layout.size);
        drawytitle(layout);
    }
    drawfoot(layout);
    plotparams(block, layout);
    plotlegend(block, layout);
}
