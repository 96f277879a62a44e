#include "plot/frame.h"

#include <algorithm>

#include "plot/drawing.h"
#include "session/session.h"
#include "shell/words.h"

namespace {

void straight(double x1, double y1, double x2, double y2, float pen) {
    plotsnap(x1, y1, x2, y2);
    session.plotpen = pen;
    plotline();
}

/// A dashed pen carries its colour below 0.
constexpr float dashed(int colour) { return static_cast<float>(colour - 100); }

float gridpen(float kind) {
    if (static_cast<int>(kind) == scaleTick) return dashed(frameColour);
    return static_cast<float>(static_cast<int>(kind) == lightTick ? gridColour : decadeColour);
}

/// The grid line of a tick: light ones thin, so that decades lead the eye.
template <class Draw>
void gridlines(const AxisTicks& ticks, bool heavy, Draw draw) {
    for (std::size_t i = 1; i <= static_cast<std::size_t>(ticks.tickcount); ++i)
        if ((static_cast<int>(ticks.kind[i]) != lightTick) == heavy)
            draw(ticks.position[i], gridpen(ticks.kind[i]));
}

void drawgrid() {
    const PlotWindow& w = session.window;
    const Keep keep{session.linewidth};
    for (const bool heavy : {false, true}) {
        if (session.gridLines == noGridLines || (!heavy && session.gridLines == heavyGridLines)) continue;
        session.linewidth = heavy ? 1 : 0;
        plotwidth(session.linewidth);
        gridlines(session.xTicks, heavy, [&](double x, float pen) { straight(x, w.top, x, w.bottom, pen); });
        gridlines(session.yTicks, heavy, [&](double y, float pen) { straight(w.left, y, w.right, y, pen); });
    }
    plotwidth(1);
}

void label(double x, double y, std::string_view text) {
    session.plotx2 = x;
    session.ploty2 = y;
    session.plotpen = frameColour;
    plottext(text);
}

/// A label without the blank that the ladder's labels begin with.
std::string_view bare(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    return text;
}

} // namespace

void plotframe(const Layout&) {
    const PlotWindow& w = session.window;
    drawgrid();
    straight(w.left, w.top, w.right, w.bottom, -200 + frameColour);
}

void plotyaxis(const Layout& layout) {
    const PlotWindow& w = session.window;
    session.textSize = static_cast<float>(layout.size);
    const double length = 0.4 * layout.size;
    for (std::size_t i = 1; i <= static_cast<std::size_t>(session.yTicks.tickcount); ++i) {
        const std::string_view text = bare(session.yTicks.label[i]);
        if (text.empty()) continue;
        const double y = session.yTicks.position[i];
        straight(w.left - length, y, w.left, y, frameColour);
        label(w.left - length - 0.2 * layout.size - plottextwidth(text, layout.size), y + 0.35 * layout.size,
              text);
    }
}

void plotxaxis(const Layout& layout) {
    const PlotWindow& w = session.window;
    session.textSize = static_cast<float>(layout.size);
    const double length = 0.4 * layout.size;
    for (std::size_t i = 1; i <= static_cast<std::size_t>(session.xTicks.tickcount); ++i) {
        const std::string_view text = bare(session.xTicks.label[i]);
        if (text.empty()) continue;
        const double x = session.xTicks.position[i];
        straight(x, w.bottom, x, w.bottom + length, frameColour);
        label(x - plottextwidth(text, layout.size) / 2, layout.xLabelY, text);
    }
}

void plotbuttons(const Layout& layout) {
    if (static_cast<int>(session.outdev) != screenDevice) return;
    const double size = 0.75 * layout.size;
    session.textSize = static_cast<float>(size);
    double x = 0.9 * layout.size;
    std::size_t place = 0;
    for (const char* axis : {"Y-", "X-"})
        for (const char* arrows : {" vvv", " ^^^"}) {
            std::string text;
            compose(text, axis, Word::PlotScale, arrows);
            wordclean(text);
            label(x, layout.footY, text);
            const double end = x + plottextwidth(text, size);
            session.windowSaved.buttons[place++] = {x - size / 2, layout.footY - 1.3 * size, end + size / 2,
                                                    layout.footY + 0.6 * size};
            x = end + size;
        }
}
