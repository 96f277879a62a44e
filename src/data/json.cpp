#include "data/json.h"

#include <charconv>
#include <cmath>
#include <cstdint>

#include "data/utf8.h"
#include "session/session.h"

namespace {

template <class T>
void appenddigits(std::string& out, T number) {
    char digits[64];
    const auto end = std::to_chars(digits, digits + sizeof digits, number).ptr;
    out.append(digits, end);
}

void appendescaped(std::string& out, char c) {
    static constexpr char hex[] = "0123456789abcdef";
    switch (c) {
    case '"': out += "\\\""; return;
    case '\\': out += "\\\\"; return;
    case '\n': out += "\\n"; return;
    case '\r': out += "\\r"; return;
    case '\t': out += "\\t"; return;
    default: break;
    }
    if (static_cast<unsigned char>(c) >= 0x20) {
        out += c;
        return;
    }
    out += "\\u00";
    out += hex[(c >> 4) & 15];
    out += hex[c & 15];
}

} // namespace

void JsonWriter::newline() {
    out += '\n';
    out.append(static_cast<std::size_t>(depth) * 2, ' ');
}

void JsonWriter::separate() {
    if (afterName) {
        afterName = false;
        return;
    }
    if (!first) out += ',';
    if (depth > 0) newline();
    first = false;
}

void JsonWriter::open(char bracket) {
    separate();
    out += bracket;
    ++depth;
    first = true;
}

void JsonWriter::close(char bracket) {
    --depth;
    if (!first) newline();
    out += bracket;
    first = false;
    if (depth == 0) out += '\n';
}

void JsonWriter::name(std::string_view key) {
    value(key);
    out += ": ";
    afterName = true;
}

void JsonWriter::null() {
    separate();
    out += "null";
}

void JsonWriter::value(double number) {
    if (!std::isfinite(number) || number == noAnswer) {
        null();
        return;
    }
    separate();
    appenddigits(out, number);
}

void JsonWriter::value(float number) {
    if (!std::isfinite(number) || number == static_cast<float>(noAnswer)) {
        null();
        return;
    }
    separate();
    appenddigits(out, number);
}

void JsonWriter::value(int number) {
    separate();
    appenddigits(out, number);
}

void JsonWriter::value(std::string_view text) {
    separate();
    out += '"';
    for (const char c : asutf8(text)) appendescaped(out, c);
    out += '"';
}
