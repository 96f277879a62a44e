#include "plot/device_svg.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <utility>

#include "data/utf8.h"
#include "session/session.h"

namespace {

constexpr double unitsPerPixel = 15;
constexpr double unitsPerWidth = 18000; ///< canvas width for which a line of class 1 is one pixel wide
constexpr double finePart = 0.6;
constexpr std::size_t bufferSize = 32768;

/// Lengths of dashes and gaps in line widths, by line style; none for a solid line.
constexpr std::array<std::array<int, 6>, 7> dashes = {
    {{}, {6, 4}, {}, {}, {8, 3, 1, 3}, {8, 3, 1, 3, 1, 3}, {1, 3}}};

/// Appends a number with at most two decimals, and no more of them than it needs.
void appenddecimal(std::string& out, double value) {
    constexpr double farAway = 1e7; // beyond any picture: what is not finite stays readable
    const double held = std::isnan(value) ? 0 : std::clamp(value, -farAway, farAway);
    int64_t hundredths = std::llround(held * 100);
    if (hundredths < 0) {
        out += '-';
        hundredths = -hundredths;
    }
    char digits[16];
    char* first = std::end(digits);
    const auto fraction = static_cast<int>(hundredths % 100);
    if (fraction % 10 != 0) *--first = static_cast<char>('0' + fraction % 10);
    if (fraction != 0) {
        *--first = static_cast<char>('0' + fraction / 10);
        *--first = '.';
    }
    int64_t whole = hundredths / 100;
    do *--first = static_cast<char>('0' + whole % 10);
    while ((whole /= 10) != 0);
    out.append(first, std::end(digits));
}

void appendpair(std::string& out, double x, double y) {
    appenddecimal(out, x);
    out += ' ';
    appenddecimal(out, y);
}

void appendattribute(std::string& out, std::string_view name, double value) {
    out += ' ';
    out += name;
    out += "=\"";
    appenddecimal(out, value);
    out += '"';
}

void appendcolour(std::string& out, std::string_view name, int32_t rgb) {
    out += ' ';
    out += name;
    out += "=\"#";
    for (int bit = 20; bit >= 0; bit -= 4) out += "0123456789abcdef"[(rgb >> bit) & 15];
    out += '"';
}

void appenddashes(std::string& out, LineStyle style, double lineWidth) {
    const auto& lengths = dashes[static_cast<std::size_t>(style)];
    if (lengths[0] == 0) return;
    out += " stroke-linecap=\"butt\" stroke-dasharray=\"";
    for (std::size_t i = 0; i < lengths.size() && lengths[i] != 0; ++i) {
        if (i > 0) out += ' ';
        appenddecimal(out, lengths[i] * lineWidth);
    }
    out += '"';
}

/// A line of an odd number of pixels, and a finer one, is crisp on the middle of a pixel, an even one between
/// two.
double shiftof(double lineWidth) { return std::fmod(lineWidth, 2) == 0 ? 0 : 0.5; }

int32_t paletteat(int colour) {
    const int last = static_cast<int>(session.palette.size()) - 1;
    return session.palette[static_cast<std::size_t>(std::clamp(colour, 0, last))];
}

/// Length of the UTF-8 sequence at the start of a text; 0 when it is not valid.
std::size_t sequenceat(std::string_view text) {
    const auto lead = static_cast<unsigned char>(text[0]);
    const std::size_t length = lead < 0x80 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
    return length <= text.size() && isutf8(text.substr(0, length)) ? length : 0;
}

/// A character that a text may not hold, though the encoding has it: controls, and the two non-characters
/// that XML forbids.
bool isunprintable(std::string_view character) {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(character[i]); };
    if (character.size() == 1) return byte(0) < 0x20 || byte(0) == 0x7F;
    if (character.size() == 2) return byte(0) == 0xC2 && byte(1) < 0xA0;
    return character == "\xEF\xBF\xBE" || character == "\xEF\xBF\xBF";
}

/// The text as it can be shown: without controls, a replacement character for each byte that is not UTF-8.
void clean(std::string& shown, std::string_view text) {
    shown.clear();
    while (!text.empty()) {
        const std::size_t length = sequenceat(text);
        if (length == 0)
            shown += "\xEF\xBF\xBD";
        else if (!isunprintable(text.substr(0, length)))
            shown += text.substr(0, length);
        text.remove_prefix(std::max<std::size_t>(length, 1));
    }
}

void appendescaped(std::string& out, std::string_view text) {
    for (const char c : text) {
        if (c == '&')
            out += "&amp;";
        else if (c == '<')
            out += "&lt;";
        else if (c == '>')
            out += "&gt;";
        else
            out += c;
    }
}

/// The font that the user chose goes before those that the metrics were taken from. As delivered there is no
/// choice, and Arial is among the others.
void appendfont(std::string& out) {
    std::string name;
    clean(name, session.fontName);
    std::erase(name, '\'');
    std::erase(name, '"');
    if (name.empty() || name == "Arial") return;
    out += '\'';
    appendescaped(out, name);
    out += "', ";
}

} // namespace

SvgDevice::SvgDevice(int pixelWidth, int pixelHeight, TextSink& textSink)
    : pixelsAcross(pixelWidth),
      pixelsDown(pixelHeight),
      sink(textSink) {}

bool SvgDevice::begin() {
    if (!sink.open(session.outputName.empty() ? "-" : session.outputName)) return false;
    out.clear();
    out.reserve(bufferSize + 1024);
    broken = fine = inPath = false;
    pen = {};
    out += R"(<?xml version="1.0" encoding="UTF-8"?>
<svg xmlns="http://www.w3.org/2000/svg" version="1.1" xml:space="preserve")";
    appendattribute(out, "width", pixelsAcross);
    appendattribute(out, "height", pixelsDown);
    out += " viewBox=\"0 0 ";
    appendpair(out, pixelsAcross, pixelsDown);
    out += "\" font-family=\"";
    appendfont(out);
    out += "DejaVu Sans, Verdana, Helvetica, Arial, sans-serif\" fill=\"none\""
           " stroke-linecap=\"round\" stroke-linejoin=\"round\">\n<rect x=\"0\" y=\"0\"";
    appendattribute(out, "width", pixelsAcross);
    appendattribute(out, "height", pixelsDown);
    appendcolour(out, "fill", paletteat(backgroundColour));
    out += "/>\n";
    return true;
}

bool SvgDevice::end() {
    closepath();
    out += "</svg>\n";
    flush();
    return !broken && sink.commit();
}

void SvgDevice::abandon() {
    inPath = false;
    out.clear();
    sink.drop();
}

void SvgDevice::line(const LineOperation& operation) {
    const Point from = operation.continues ? pen : Point{operation.x1, operation.y1};
    const Point to = {operation.x2, operation.y2};
    pen = to;
    const int widthClass = std::abs(operation.width);
    const Stroke wanted{paletteat(operation.pen.colour), fine && widthClass <= 1 ? 0 : widthClass,
                        operation.pen.style};
    const bool boxed = wanted.style == LineStyle::outline || wanted.style == LineStyle::filled;
    boxed ? box(wanted, from, to) : segment(wanted, from, to);
}

/// A box covers the pixels of both corners, so that a filled one and its outline cover the same.
void SvgDevice::box(const Stroke& wanted, Point from, Point to) {
    closepath();
    const bool filled = wanted.style == LineStyle::filled;
    const double size = strokewidth(wanted.width);
    const double inset = filled ? 0 : shiftof(size);
    const double more = filled ? 1 : 0;
    out += "<rect";
    appendattribute(out, "x", std::min(from.x, to.x) / unitsPerPixel + inset);
    appendattribute(out, "y", std::min(from.y, to.y) / unitsPerPixel + inset);
    appendattribute(out, "width", std::abs(to.x - from.x) / unitsPerPixel + more);
    appendattribute(out, "height", std::abs(to.y - from.y) / unitsPerPixel + more);
    if (filled) {
        appendcolour(out, "fill", wanted.rgb);
    } else {
        out += " stroke-linejoin=\"miter\"";
        appendcolour(out, "stroke", wanted.rgb);
        appendattribute(out, "stroke-width", size);
    }
    out += "/>\n";
    if (out.size() >= bufferSize) flush();
}

void SvgDevice::markstep(const MarkStep& step) {
    if (step.colour == 0) return;
    segment({paletteat(step.colour), step.width}, {step.fromX, step.fromY}, {step.x, step.y});
}

/// One stroke; it joins the path in hand when it looks like that one's, and its line when it starts at its
/// end.
void SvgDevice::segment(const Stroke& wanted, Point from, Point to) {
    const bool joins = inPath && stroke == wanted;
    if (!joins) openpath(wanted);
    if (!joins || !(from == tip)) {
        out += 'M';
        appendpair(out, from.x / unitsPerPixel + shift, from.y / unitsPerPixel + shift);
    }
    out += 'L';
    appendpair(out, to.x / unitsPerPixel + shift, to.y / unitsPerPixel + shift);
    tip = to;
    if (out.size() >= bufferSize) flush();
}

void SvgDevice::openpath(const Stroke& wanted) {
    closepath();
    const double size = strokewidth(wanted.width);
    out += "<path";
    appendcolour(out, "stroke", wanted.rgb);
    appendattribute(out, "stroke-width", size);
    appenddashes(out, wanted.style, size);
    out += " d=\"";
    stroke = wanted;
    shift = shiftof(size);
    inPath = true;
}

void SvgDevice::closepath() {
    if (inPath) out += "\"/>\n";
    inPath = false;
}

double SvgDevice::strokewidth(int widthClass) const {
    const double size = std::max(1.0, std::round(width() / unitsPerWidth * std::max(1, widthClass)));
    return widthClass == 0 ? finePart * size : size;
}

/// Once a write has failed nothing more is written: the rest would not be a picture.
void SvgDevice::flush() {
    broken = broken || !sink.write(out);
    out.clear();
}

void SvgDevice::text(const TextOperation& operation) {
    clean(cleaned, operation.text);
    if (cleaned.empty()) return;
    closepath();
    out += "<text";
    appendattribute(out, "x", operation.x / unitsPerPixel);
    appendattribute(out, "y", operation.y / unitsPerPixel);
    appendattribute(out, "font-size", operation.size / unitsPerPixel);
    appendcolour(out, "fill", paletteat(operation.colour));
    const double length = textwidth(cleaned, operation.size);
    if (length > 0) {
        // Another font in the viewer must not make labels collide.
        appendattribute(out, "textLength", length / unitsPerPixel);
        out += " lengthAdjust=\"spacingAndGlyphs\"";
    }
    if (operation.rotation != 0) {
        out += " transform=\"rotate(";
        appenddecimal(out, -operation.rotation);
        out += ' ';
        appendpair(out, operation.x / unitsPerPixel, operation.y / unitsPerPixel);
        out += ")\"";
    }
    out += '>';
    appendescaped(out, cleaned);
    out += "</text>\n";
    if (out.size() >= bufferSize) flush();
}
