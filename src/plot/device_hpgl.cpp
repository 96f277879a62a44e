#include "plot/device_hpgl.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>

#include "plot/drawing.h"
#include "plot/pens.h"
#include "plot/plottertext.h"
#include "session/session.h"

namespace {

constexpr char escape = 27;
constexpr char labelEnd = 3;

std::string digits(long value) {
    char text[24];
    return {text, std::to_chars(text, text + sizeof text, value).ptr};
}

/// At most three places after the point, no trailing zeros.
std::string decimal(double value) {
    constexpr double most = 1e6;
    value = std::isnan(value) ? 0 : std::clamp(value, -most, most);
    char text[32];
    std::string out(text, std::to_chars(text, text + sizeof text, value, std::chars_format::fixed, 3).ptr);
    out.erase(out.find_last_not_of('0') + 1);
    if (out.back() == '.') out.pop_back();
    return out;
}

long whole(double v) {
    constexpr double most = 1e6; // far off any paper; keeps the conversion defined
    return std::isnan(v) ? 0 : std::lround(std::clamp(v, -most, most));
}

std::string at(HpglPlace place) { return digits(place.x) + "," + digits(place.y) + ";"; }

std::string escaped(std::string_view sequence) { return std::string(1, escape).append(sequence); }

/// A line wider than the class 1 is drawn with a thicker pen tip, 0.3 mm a class.
std::string widthtext(int widthClass) {
    return widthClass > 1 ? "PT" + decimal(0.3 * widthClass) + ";" : std::string();
}
std::string_view widthback(int widthClass) { return widthClass > 1 ? "PT;" : ""; }

std::string_view linetype(LineStyle style) {
    switch (style) {
    case LineStyle::dashed: return "LT2;";
    case LineStyle::dashDot: return "LT4;";
    case LineStyle::dashDotDot: return "LT5;";
    case LineStyle::dotted: return "LT6;";
    default: return "";
    }
}

/// Pen that draws a colour; monochrome output has only the first.
int pennumber(int colour) {
    const int pen = plotterpen(colour);
    return session.colormode == 1 ? std::min(pen, 1) : pen;
}

std::string selectpen(int colour) { return "SP" + digits(pennumber(colour)) + ";"; }

// Characters are sized in percent of the 10000 by 7500 units between P1 and P2, which hold 10900 by 7650 user
// units. A capital letter is 0.7 of the character size high, half that wide, and each takes 1.5 widths.
constexpr double capitalHeight = 0.7;
constexpr double unitsHigh = 7500.0 / 7650, unitsWide = 10000.0 / 10900;

std::string charactersize(double size) {
    const double height = std::min(capitalHeight * size * unitsHigh, 7500.0); // a page; also catches infinity
    const double width = height / 2;
    return "SR" + decimal(width / 100) + "," + decimal(height / 75) + ";";
}

} // namespace

void HpglDevice::send(std::string_view text) { broken = broken || !sink.write(text); }

HpglPlace HpglDevice::place(double x, double y) const { return {whole(x), whole(height() - y)}; }

bool HpglDevice::oncanvas(double x, double y) const {
    return x >= 0 && x <= width() && y >= 0 && y <= height();
}

bool HpglDevice::begin() {
    broken = placed = false;
    laser = session.outdev == static_cast<float>(laserDevice);
    if (!sink.open(plotteroutput())) return false;
    if (laser)
        for (const std::string_view sequence : {"E", "&l1O", "%0B"}) send(escaped(sequence));
    send("IN;SP1;IP0,0,10000,7500;SR0.75,2.0;VS" + digits(std::abs(int{session.plotspeed})) + ";");
    send("SC-900,10000,-150,7500;");
    send("PW0.3;");
    if (broken) sink.drop();
    return !broken;
}

bool HpglDevice::end() {
    if (laser)
        for (const std::string_view sequence : {"%0A", "E"}) send(escaped(sequence));
    else
        send("SP1;SP0;IN;");
    return sink.commit() && !broken;
}

std::string HpglDevice::strokes(const LineOperation& operation) {
    const auto [continues, x1, y1, x2, y2, pen, widthClass] = operation;
    const HpglPlace from = place(x1, y1), to = place(x2, y2);
    const bool box = pen.style == LineStyle::outline || pen.style == LineStyle::filled;
    placed = true;
    stand = box && pen.colour > 0 ? from : to;
    if (pen.colour <= 0) return "PU;PA" + at(to);

    std::string text = selectpen(pen.colour) + widthtext(widthClass);
    if (!box) return text + (continues ? "" : "PU;PA" + at(from)) + "PD;PA" + at(to);
    text += "PU;PA" + at(from) + "PD;EA" + at(to);
    if (pen.style == LineStyle::outline) return text;
    const Hatch hatch = plotterhatch(pen.colour, x2 - x1, y2 - y1);
    text += "PT0.3;FT" + digits(hatch.type) + "," + decimal(hatch.spacing) + "," + digits(hatch.angle) + ";";
    return text + "PU;PA" + at(from) + "PD;RA" + at(to) + "PT0.3;";
}

void HpglDevice::line(const LineOperation& operation) {
    std::string text(linetype(operation.pen.style));
    if (oncanvas(operation.x2, operation.y2)) {
        text += strokes(operation);
        text += widthback(operation.width);
    }
    send(text + "LT;");
}

void HpglDevice::text(const TextOperation& operation) {
    const std::string standard = "SR0.75,2;";
    const std::string size = operation.size > 0 ? charactersize(operation.size) : standard;
    const bool resized = size != standard;
    const double y = operation.y - operation.size / 25;
    std::string text = operation.rotation == 90 ? "DI0,1;" : "DI1,0;";
    if (resized) text += size;
    text += selectpen(operation.colour);
    if (oncanvas(operation.x, y)) {
        const HpglPlace anchor = place(operation.x, y);
        text += "PU,PA" + digits(anchor.x) + "," + digits(anchor.y) + ";";
        text += "LB " + plottertext(operation.text) + labelEnd;
        placed = false;
    }
    if (resized) text += "SR0.75,2.0;";
    send(text);
}

void HpglDevice::markstep(const MarkStep& step) {
    const int widthClass = std::abs(int{session.linewidth});
    const HpglPlace from = place(step.fromX, step.fromY), to = place(step.x, step.y);
    std::string text = "PU;";
    // A mark that begins with a stroke, or comes back from beyond the edge, must not draw its way there.
    if (step.colour > 0 && !(placed && stand == from)) text += "PA" + at(from);
    if (step.colour > 0) text += selectpen(step.colour) + "PD;";
    text += widthtext(widthClass) + "PA" + at(to);
    text += widthback(widthClass);
    placed = true;
    stand = to;
    send(text);
}

double HpglDevice::textwidth(std::string_view text, double size) const {
    const double characterWidth = capitalHeight * size * unitsHigh / 2 / unitsWide;
    return static_cast<double>(plottertext(text).size() + 1) * 1.5 * characterWidth;
}
