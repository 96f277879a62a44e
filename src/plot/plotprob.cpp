#include "plot/plotprob.h"

#include <algorithm>
#include <cmath>

#include "data/settitle.h"
#include "platform/platform.h"
#include "plot/axes.h"
#include "plot/bars.h"
#include "plot/block.h"
#include "plot/datapoints.h"
#include "plot/drawing.h"
#include "plot/frame.h"
#include "plot/functionplot.h"
#include "plot/markerline.h"
#include "plot/pie.h"
#include "plot/plotkind.h"
#include "plot/spaceplot.h"
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

/// Room that the labels take outside the plot area.
LabelRoom labelroom(double size) {
    LabelRoom room;
    const auto last = static_cast<std::size_t>(session.yTicks.tickcount);
    for (std::size_t i = 1; i <= last; ++i)
        room.y = std::max(room.y, plottextwidth(session.yTicks.label[i], size));
    const auto end = static_cast<std::size_t>(session.xTicks.tickcount);
    if (end == 0) return room;
    room.xFirst = plottextwidth(session.xTicks.label[1], size) / 2;
    room.xLast = plottextwidth(session.xTicks.label[end], size) / 2;
    return room;
}

/// Layout and ticks wait for each other: the labels need room beside the plot area, and its size chooses the
/// labels. The second pass has the labels of the first.
Layout arrange(const PlotBlock& block) {
    const int titles = static_cast<int>(titlelines().size());
    const double size = charactersize();
    session.xTicks.tickcount = session.yTicks.tickcount = 0;
    Layout layout;
    if (pieplotted() || spaceplotted()) return plotlayout(block.lines, {}, titles);
    for (int pass = 1; pass <= 2; ++pass) {
        layout = plotlayout(block.lines, labelroom(size), titles);
        yticks(size);
        xticks(size);
    }
    layout = plotlayout(block.lines, labelroom(size), titles);
    xticks(size);
    return layout;
}

/// A pie or a view of space: without a frame and axes of the canvas, whose places have no X and Y.
void drawpicture(const PlotBlock& block, const Layout& layout) {
    session.window.xfactor = session.window.yfactor = 0;
    if (static_cast<int>(session.outdev) == screenDevice) session.windowSaved = session.window;
    if (pieplotted())
        drawpie(layout);
    else
        drawspace(layout);
    plottitles(block, layout);
}

/// Draws the parts of a plot in their order on the open device.
void drawparts() {
    PlotBlock block = composeblock(fullBlock);
    Layout layout = arrange(block);
    if (layout.blockRows < block.lines.size()) {
        block = composeblock(shortBlock);
        layout = arrange(block);
    }
    if (static_cast<int>(session.outdev) == screenDevice) session.windowSaved = session.window;
    if (pieplotted() || spaceplotted()) {
        drawpicture(block, layout);
        return;
    }
    plotframe(layout);
    plotyaxis(layout);
    plotxaxis(layout);
    plotbuttons(layout);
    if (functionplotted())
        plotfunctions();
    else if (barsplotted())
        drawbars();
    else
        plotpoints(layout);
    if (barsplotted()) drawbarline();
    if (session.plotMode == 1) plotmarkers(0.8 * layout.size);
    plottitles(block, layout);
}

/// Drops a plot that an exception broke off: its device is about to go.
struct DropUnfinished {
    ~DropUnfinished() { plotabandon(); }
};

/// Draws the session on the device. When nothing whole was drawn the session is as before, but for the canvas
/// size, which the interface needs for its next try.
bool draw(Device& device) {
    const PlotState before = session;
    const Keep keep{session.msg,       session.ud,        session.u,        session.eta,
                    session.beta,      session.plotx1,    session.ploty1,   session.plotx2,
                    session.ploty2,    session.plotpen,   session.textSize, session.textRotation,
                    session.linewidth, session.setCounter};
    const DropUnfinished drop;
    const FunctionAxes axes;
    groups();
    xyanalyzw();
    const bool stopped = session.plotStopped == 1;
    if (!stopped && plotbegin(device)) drawparts();
    const bool whole = plotend();
    if (!whole) static_cast<PlotState&>(session) = before;
    if (!whole && !stopped) {
        session.plotw = static_cast<float>(device.width());
        session.ploth = static_cast<float>(device.height());
    }
    if (platform) platform->window().pendingevents();
    return whole;
}

} // namespace

bool plotprob(Device& device) {
    if (plotting()) return false; // a repaint asked for in the middle of a plot
    remind();
    return draw(device);
}

bool plotxy(Device& device) { return !plotting() && draw(device); }

bool plotentry(Device& device) {
    const bool whole = session.progSide == lifeSide ? plotprob(device) : plotxy(device);
    if (whole) session.replotNeeded = 0;
    return whole;
}

int barnumber(double n) {
    constexpr int fewest = 5;
    if (!(n > 1)) return fewest;
    const double bars = 1 + 3.3 * std::log(std::floor(n));
    return std::max(fewest, static_cast<int>(std::min(bars, 1e6)));
}
