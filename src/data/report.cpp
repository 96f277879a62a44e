#include "data/report.h"

#include <algorithm>
#include <cmath>
#include <string_view>

namespace {

constexpr int reportDigits = 6;
constexpr std::size_t markLength = 7; ///< "[[TAB" and two digits

bool characterdevice() { return session.reportDevice == reportList || session.reportDevice == reportText; }

void put(std::string_view text) {
    if (session.reportDevice == reportText) session.reportBuffer += text;
}

void endline() {
    put(lineBreak);
    ++session.reportLine;
    session.reportColumn = 0;
}

/// Characters of a UTF-8 text: what it takes on a line of fixed pitch.
std::size_t width(std::string_view text) {
    return static_cast<std::size_t>(
        std::count_if(text.begin(), text.end(), [](char c) { return (c & 0xC0) != 0x80; }));
}

bool purenumber(std::string_view text) { return text.find_first_not_of(" +-.0123456789E") == text.npos; }

/// Takes the column mark off the text; 0 when there is none or its digits cannot be read.
int takecolumn(std::string& text) {
    if (text.size() <= markLength || !text.starts_with("[[TAB")) return 0;
    const NumberText number = readnumber(std::string_view(text).substr(5, 2));
    text.erase(0, markLength);
    return static_cast<int>(number.value);
}

/// Blanks up to a column; one blank when the column has been passed already.
void padto(int column) {
    const int present = static_cast<int>(session.reportColumn);
    const int blanks = present < column ? column - 1 - present : 1;
    if (!characterdevice()) return;
    for (int i = 0; i < blanks; ++i) put(" ");
    session.reportColumn += static_cast<float>(blanks);
}

/// Text without a column: notes behind an asterisk stand off from it.
void puttext(std::string_view text) {
    const bool wide = characterdevice() || session.reportDevice == reportPicture;
    std::size_t written = width(text);
    for (std::size_t star; (star = text.find('*')) != std::string_view::npos; text.remove_prefix(star + 1)) {
        put(text.substr(0, star + 1));
        put(wide ? "  " : " ");
        written += wide ? 2 : 1;
    }
    put(text);
    session.reportColumn += static_cast<float>(written);
}

/// A line left open on another device ends there.
void changedevice() {
    const int16_t device = session.reportDevice;
    if (session.reportColumn > 0 && session.lineDevice != device) {
        session.reportDevice = session.lineDevice;
        endline();
        session.reportDevice = device;
    }
    session.lineDevice = device;
}

} // namespace

void append(std::string& text, Reported part) {
    if (std::isfinite(part.value) && part.value != noAnswer)
        appendsignificant(text, part.value, reportDigits);
}

void append(std::string& text, ReportedColumn part) {
    if (!std::signbit(part.value)) text += ' ';
    append(text, Reported{part.value});
}

void reportstart() {
    session.reportLine = 0;
    session.reportColumn = 0;
    if (session.reportDevice == reportText) session.reportBuffer.clear();
}

namespace {

/// Sends the line in msg; `cleaned` when the language filter has seen it.
void sendline(bool cleaned) {
    if (session.reportDevice == noReport) return;
    const Keep keep{session.u};
    changedevice();
    std::string& text = session.msg;
    if (text.empty()) {
        endline();
        return;
    }
    const bool open = text.front() == ';';
    if (open) text.erase(0, 1);
    const int column = takecolumn(text);
    if (!cleaned && !purenumber(text)) wordclean(text);
    if (column > 0) {
        padto(column);
        put(text);
        session.reportColumn += static_cast<float>(width(text));
    } else {
        puttext(text);
    }
    if (!open) endline();
}

} // namespace

void reportline() { sendline(false); }

void reportlinew() {
    const bool filtered = session.reportDevice != 3;
    if (filtered) wordclean(session.msg);
    sendline(filtered);
}

void reportnumberpad(int column, int width) {
    std::string& msg = session.msg;
    append(msg, ";[[TAB");
    if (column < 10) msg += '0';
    append(msg, column);
    const std::size_t start = msg.size();
    appendtrimmed(msg, session.u);
    msg.resize(std::min(msg.size(), start + static_cast<std::size_t>(std::max(width, 0))));
}

std::string reportastext() {
    std::string text = session.reportBuffer;
    std::erase(text, '\r');
    return text;
}
