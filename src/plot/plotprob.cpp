#include "plot/plotprob.h"

#include <algorithm>
#include <cmath>

#include "data/settitle.h"
#include "platform/platform.h"
#include "plot/axes.h"
#include "plot/block.h"
#include "plot/datapoints.h"
#include "plot/drawing.h"
#include "plot/frame.h"
#include "plot/titles.h"
#include "plot/window.h"
#include "session/session.h"
#include "shell/prompts.h"

namespace {

/// Bounds on parameters stand on a plot only together with the parameters: said once.
void remind() {
    if (session.parameterReminder != 1) return;
    session.parameterReminder = 0;
    compose(session.msg, Word::No, " ", Word::Parameter, " ", Word::Confidence, " ", Word::On, " ",
            Word::Plot, lineBreak, Word::Requirement, ": ", Word::Parameter, " ", Word::Display, " ",
            Word::Standard);
    tellok();
}

/// Sets of one name form a group and share the colour of its first set.
void groups() {
    session.groupColour.fill(0);
    if (session.groupDisplay != 1) return;
    for (int k = 1; k <= setcount(); ++k)
        for (int first = 1; first < k; ++first)
            if (!titleofset(k).empty() && titleofset(k) == titleofset(first)) {
                session.groupColour[static_cast<std::size_t>(k)] = static_cast<int16_t>(first);
                break;
            }
}

double labelwidth(const AxisTicks& ticks, double size) {
    double width = 0;
    for (std::size_t i = 1; i <= static_cast<std::size_t>(ticks.tickcount); ++i)
        width = std::max(width, plottextwidth(ticks.label[i], size));
    return width;
}

/// Layout and ticks wait for each other: the height places the Y ticks, their labels the plot area, and its
/// width the X ticks.
Layout arrange(const PlotBlock& block) {
    const int titles = static_cast<int>(titlelines().size());
    yticks(plotlayout(block.lines, 0, titles).size);
    const double size = charactersize();
    Layout layout = plotlayout(block.lines, labelwidth(session.yTicks, size), titles);
    xticks(size);
    return layout;
}

/// Draws the parts of a plot in their order on the open device.
void drawparts() {
    const PlotBlock block = composeblock();
    const Layout layout = arrange(block);
    session.windowSaved = session.window;
    plotframe(layout);
    plotyaxis(layout);
    plotxaxis(layout);
    plotbuttons(layout);
    plotpoints(layout);
    plottitles(block, layout);
}

bool draw(Device& device) {
    const Keep keep{session.msg,       session.ud,        session.u,        session.eta,
                    session.beta,      session.plotx1,    session.ploty1,   session.plotx2,
                    session.ploty2,    session.plotpen,   session.textSize, session.textRotation,
                    session.linewidth, session.setCounter};
    groups();
    xyanalyzw();
    const bool stopped = session.plotStopped == 1;
    session.plotStopped = 0;
    if (stopped || !plotbegin(device)) return false;
    drawparts();
    const bool whole = plotend();
    if (platform) platform->window().pendingevents();
    return whole;
}

} // namespace

bool plotprob(Device& device) {
    remind();
    return draw(device);
}

bool plotxy(Device& device) { return draw(device); }

bool plotentry(Device& device) {
    session.replotNeeded = 0;
    return session.progSide == lifeSide ? plotprob(device) : plotxy(device);
}

int barnumber(double n) {
    constexpr int fewest = 5;
    if (!(n > 1)) return fewest;
    const double bars = 1 + 3.3 * std::log(std::floor(n));
    return std::max(fewest, static_cast<int>(std::min(bars, 1e6)));
}
