#include "plot/device_trace.h"

#include <charconv>
#include <cstdint>

#include "session/session.h"

namespace {

template <class Number>
void put(std::string& line, Number value) {
    char digits[32];
    line += ' ';
    line.append(digits, std::to_chars(digits, digits + sizeof digits, value).ptr);
}

template <class... Numbers>
void putall(std::string& line, Numbers... values) {
    (put(line, values), ...);
}

void putpen(std::string& line, int colour) {
    line += " pen";
    put(line, colour);
}

void putquoted(std::string& line, std::string_view text) {
    constexpr char hex[] = "0123456789ABCDEF";
    line += " \"";
    for (const char c : text) {
        const auto byte = static_cast<uint8_t>(c);
        if (byte < 0x20 || byte == 0x7F) {
            ((line += "\\x") += hex[byte >> 4]) += hex[byte & 15];
            continue;
        }
        if (c == '"' || c == '\\') line += '\\';
        line += c;
    }
    line += '"';
}

std::string_view stylename(LineStyle style) {
    switch (style) {
    case LineStyle::dashed: return " dashed";
    case LineStyle::dashDot: return " dash-dot";
    case LineStyle::dashDotDot: return " dash-dot-dot";
    case LineStyle::dotted: return " dotted";
    default: return " solid";
    }
}

} // namespace

void TraceDevice::send(std::string_view line) {
    std::string text(line);
    text += '\n';
    broken = broken || !sink.write(text);
}

bool TraceDevice::begin() {
    broken = false;
    if (!sink.open(session.outputName.empty() ? "-" : session.outputName)) return false;
    std::string line = "begin";
    putall(line, canvasWidth, canvasHeight);
    send(line);
    if (broken) sink.drop();
    return !broken;
}

bool TraceDevice::end() {
    send("end");
    return sink.commit() && !broken;
}

void TraceDevice::line(const LineOperation& operation) {
    const Pen pen = operation.pen;
    const bool rectangle = pen.style == LineStyle::outline || pen.style == LineStyle::filled;
    const bool on = operation.continues && !rectangle;
    std::string line = on ? "on" : pen.style == LineStyle::outline ? "box" : rectangle ? "fill" : "line";
    if (!on) putall(line, operation.x1, operation.y1);
    putall(line, operation.x2, operation.y2);
    putpen(line, pen.colour);
    if (!rectangle) line += stylename(pen.style);
    line += " width";
    put(line, operation.width);
    send(line);
}

void TraceDevice::text(const TextOperation& operation) {
    std::string line = "text";
    putall(line, operation.x, operation.y);
    line += " size";
    put(line, operation.size);
    line += " rotation";
    put(line, operation.rotation);
    putpen(line, operation.colour);
    putquoted(line, operation.text);
    send(line);
}

void TraceDevice::markstep(const MarkStep& step) {
    std::string line = "step";
    putall(line, step.x, step.y);
    putpen(line, step.colour);
    send(line);
}

void TraceDevice::setwidth(int widthClass) {
    std::string line = "width";
    put(line, widthClass);
    send(line);
}
