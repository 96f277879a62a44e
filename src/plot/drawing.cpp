#include "plot/drawing.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cmath>
#include <cstdlib>
#include <thread>
#include <utility>

#include "data/numbertext.h"
#include "plot/textmetrics.h"
#include "session/session.h"
#include "shell/prompts.h"

namespace {

/// The plot in hand.
struct Hand {
    Device* device = nullptr;
    Drawing before;              ///< registers as the plot found them
    double lastX = 0, lastY = 0; ///< end of the last line
};
Hand hand;

constexpr int openTries = 3;
constexpr std::chrono::milliseconds openPause{100};

bool chosen(OutputDevice device) { return session.outdev == static_cast<float>(device); }

bool plotterchosen() { return chosen(plotterDevice) || chosen(laserDevice); }

bool screenchosen() { return chosen(screenDevice); }

/// A port that another process holds, or a device that is not switched on, may come back.
bool unavailable(int error) { return error == ENXIO || error == EBUSY || error == ENODEV; }

/// Calls the device; a device that throws has failed.
template <class Call>
bool worked(Call&& call) {
    try {
        return call();
    } catch (...) {
        return false;
    }
}

/// Monochrome output has one pen. A plotter chooses its own.
int inkcolour(int colour) {
    return session.colormode == 1 && colour != backgroundColour && !plotterchosen() ? drawingColour : colour;
}

void inkpalette() {
    if (session.colormode != 1) return;
    const int32_t ink = session.palette[drawingColour];
    for (std::size_t i = backgroundColour + 1; i < session.palette.size(); ++i) session.palette[i] = ink;
}

bool openoutput(Device& device) {
    for (int tries = 1;; ++tries) {
        errno = 0;
        if (worked([&] { return device.begin(); })) return true;
        if (tries == openTries || !unavailable(errno)) return false;
        std::this_thread::sleep_for(openPause);
    }
}

/// Drops the plot in hand: the device keeps nothing of it, the session is as before.
void undoplot() {
    Device& device = *std::exchange(hand.device, nullptr);
    worked([&] { return device.abandon(), true; });
    static_cast<Drawing&>(session) = hand.before;
}

void tellfailure(bool screen) {
    Keep keep{session.msg, session.menuTitle};
    session.menuTitle.clear();
    compose(session.msg, screen ? Word::Video : Word::Device, " ", Word::Error, "!!!...");
    tellok();
}

void breakoff() {
    const bool screen = screenchosen();
    undoplot();
    tellfailure(screen);
}

/// One operation on the device in hand; the plot ends when it fails.
template <class Operation>
void draw(Operation&& operation) {
    if (!hand.device) return;
    Device& device = *hand.device;
    if (!worked([&] { return !device.failed() && (operation(device), !device.failed()); })) breakoff();
}

void drawframe() {
    Keep keep{session.plotx1, session.ploty1,  session.plotx2,
              session.ploty2, session.plotpen, session.linewidth};
    session.plotx1 = session.ploty1 = 0;
    session.plotx2 = static_cast<double>(session.plotw) - 15;
    session.ploty2 = static_cast<double>(session.ploth) - 15;
    session.plotpen = -172;
    session.linewidth = static_cast<int16_t>(std::clamp<int>(2 * session.linewidth, -INT16_MAX, INT16_MAX));
    plotline();
}

} // namespace

Pen penparts(float plotpen) {
    constexpr int most = paletteSize + 2;
    if (!(plotpen < 0))
        return {static_cast<int>(std::min(plotpen > 0 ? plotpen : 0.0f, float{most})), LineStyle::solid};
    const int hundreds = static_cast<int>(std::clamp(std::ceil(plotpen / -100), 1.0f, 6.0f));
    const float colour = std::clamp(plotpen + 100.0f * static_cast<float>(hundreds), 0.0f, float{most});
    return {static_cast<int>(colour), static_cast<LineStyle>(hundreds)};
}

double snapped(double v) { return std::floor(v / 15 + 0.5) * 15; }

void plotsnap(double x1, double y1, double x2, double y2) {
    session.plotx1 = snapped(x1);
    session.ploty1 = snapped(y1);
    session.plotx2 = snapped(x2);
    session.ploty2 = snapped(y2);
}

void plotline() {
    LineOperation operation{.continues = session.plotx1 == continueLine,
                            .x1 = session.plotx1,
                            .y1 = session.ploty1,
                            .x2 = session.plotx2,
                            .y2 = session.ploty2,
                            .pen = penparts(session.plotpen),
                            .width = std::abs(int{session.linewidth})};
    if (operation.continues) {
        operation.x1 = hand.lastX;
        operation.y1 = hand.lastY;
    }
    hand.lastX = operation.x2;
    hand.lastY = operation.y2;
    operation.pen.colour = inkcolour(operation.pen.colour);
    const bool box = operation.pen.style == LineStyle::outline || operation.pen.style == LineStyle::filled;
    // A surface would leave a box of a fraction of a pixel empty.
    if (box && !plotterchosen() && std::fabs(operation.x2 - operation.x1) <= 2
        && std::fabs(operation.y2 - operation.y1) <= 2)
        operation.pen.style = LineStyle::solid;
    draw([&](Device& device) { device.line(operation); });
}

void plottext(std::string_view text) {
    const TextOperation operation{.text = text,
                                  .x = session.plotx2,
                                  .y = session.ploty2,
                                  .size = session.textSize,
                                  .rotation = session.textRotation,
                                  .colour = inkcolour(penparts(session.plotpen).colour)};
    draw([&](Device& device) { device.text(operation); });
}

double plottextwidth(std::string_view text, double size) {
    double width = textadvance(text) * size / 1000;
    if (hand.device) worked([&] { return width = hand.device->textwidth(text, size), true; });
    return width;
}

int32_t setcolor() { return session.palette[static_cast<std::size_t>(penparts(session.plotpen).colour)]; }

void plotwidth(int widthClass) {
    draw([&](Device& device) { device.setwidth(widthClass); });
}

bool plotbegin(Device& device) {
    if (hand.device) return false; // a repaint asked for in the middle of a plot
    hand = {&device, session};
    session.paletteKept = session.palette;
    inkpalette();
    const bool opened = openoutput(device) && worked([&] {
                            session.plotw = static_cast<float>(device.width());
                            session.ploth = static_cast<float>(device.height());
                            return true;
                        });
    if (!opened) {
        breakoff();
        return false;
    }
    if (session.plotspeed >= 0) drawframe();
    return hand.device != nullptr;
}

bool plotend() {
    if (!hand.device) return false;
    Device& device = *hand.device;
    if (!worked([&] { return !device.failed() && device.end(); })) {
        breakoff();
        return false;
    }
    hand.device = nullptr;
    session.palette = session.paletteKept;
    return true;
}

void plotabandon() {
    if (hand.device) undoplot();
}

bool plotting() {
    return hand.device && worked([] { return !hand.device->failed(); });
}

Device* plotdevice() { return hand.device; }

std::string portconfig(const std::string& port) {
    if (port.find("COM") == std::string::npos) return port;
    std::string text = port;
    appendtrimmed(text, session.serialBaud);
    extend(text, ",", session.serialParity, ",", int{session.serialDataBits}, ",");
    appendtrimmed(text, session.serialStopBits);
    return extend(text, ",", "RS,CS65535,DS,CD");
}

std::string plotteroutput() {
    if (!session.outputName.empty()) return session.outputName;
    const int last = static_cast<int>(session.outputPorts.size()) - 1;
    return portconfig(
        session.outputPorts[static_cast<std::size_t>(std::clamp<int>(session.outputPort, 1, last))]);
}
