#include "data/numbertext.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>

#include "numeric/sngguard.h"
#include "session/session.h"

namespace {

// ---- writing

constexpr int singleDigits = 7; ///< places the plain form may take before an exponent is written
constexpr int doubleDigits = 15;

/// A decimal number as its digits and the place of the first: value = d.ddd * 10^exponent.
struct Decimal {
    std::array<char, 20> digits;
    int count = 0;
    int exponent = 0;
};

/// Takes "d.ddde±xx" apart, without the zeros at the end of the digits.
Decimal takeapart(const char* at, const char* end) {
    Decimal d;
    for (; at != end && *at != 'e'; ++at)
        if (*at != '.') d.digits[static_cast<std::size_t>(d.count++)] = *at;
    if (at != end) {
        ++at;
        std::from_chars(*at == '+' ? at + 1 : at, end, d.exponent);
    }
    while (d.count > 1 && d.digits[static_cast<std::size_t>(d.count - 1)] == '0') --d.count;
    return d;
}

void appendexponent(std::string& text, int exponent) {
    text += exponent < 0 ? "E-" : "E+";
    const int size = std::abs(exponent);
    if (size < 10) text += '0';
    char digits[4];
    text.append(digits, std::to_chars(digits, digits + sizeof digits, size).ptr);
}

/// Writes the digits plainly, or with an exponent when more than `limit` places would be needed.
void appenddecimal(std::string& text, const Decimal& d, int limit) {
    const std::string_view digits(d.digits.data(), static_cast<std::size_t>(d.count));
    const int before = d.exponent + 1; // digits before the point; zeros after it, when negative
    if (before > limit || -before > limit) {
        text += digits.substr(0, 1);
        if (d.count > 1) (text += '.') += digits.substr(1);
        appendexponent(text, d.exponent);
    } else if (before <= 0) {
        text += '.';
        text.append(static_cast<std::size_t>(-before), '0');
        text += digits;
    } else {
        const auto whole = static_cast<std::size_t>(before);
        text += digits.substr(0, whole);
        if (digits.size() < whole) text.append(whole - digits.size(), '0');
        if (digits.size() > whole) (text += '.') += digits.substr(whole);
    }
}

/// The finite value that a text stands for.
template <class T>
T presentable(T value) {
    if (std::isnan(value)) return 0;
    constexpr T most = std::numeric_limits<T>::max();
    return std::clamp(value, -most, most);
}

template <class T>
void appendshortest(std::string& text, T given, int limit) {
    const T value = presentable(given);
    if (value == 0) {
        text += '0';
        return;
    }
    if (value < 0) text += '-';
    char buffer[32];
    const auto end =
        std::to_chars(buffer, buffer + sizeof buffer, std::fabs(value), std::chars_format::scientific).ptr;
    appenddecimal(text, takeapart(buffer, end), limit);
}

// ---- reading

/// A number longer than this without its marks is read by its first places; no file writes such a number.
constexpr std::size_t longestNumber = 1024;

/// The decimal symbols that stand for "." beside it.
struct Symbols {
    std::string_view session = ".";
    std::string_view file = ".";
};

bool digit(char c) { return c >= '0' && c <= '9'; }
bool mark(char c) { return c == '%' || c == '@'; }
bool endsnumber(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }

/// An exponent with a sign: two digits at most, or three that begin with 0 or 1.
bool exponentstands(std::string_view digits) {
    const auto count = std::find_if_not(digits.begin(), digits.end(), digit) - digits.begin();
    return count <= 2 || (count == 3 && digits[0] < '2');
}

/// Reads a number of at most 15 digits without exponent, as nearly every cell holds one; null when the text
/// is something else. The digits and the power of ten are exact doubles, so their quotient is the nearest
/// double to the text: the same value as from the general reader, in half its time.
const char* readshort(const char* at, const char* end, double& value) {
    static constexpr double powers[] = {1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                        1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
    uint64_t digits = 0;
    const auto take = [&] {
        const char* start = at;
        for (; at != end && digit(*at); ++at) digits = digits * 10 + static_cast<uint64_t>(*at - '0');
        return at - start;
    };
    const auto whole = take();
    const bool hasPoint = at != end && *at == '.';
    if (hasPoint) ++at;
    const auto places = hasPoint ? take() : 0;
    if (whole + places == 0 || whole + places > 15) return nullptr;
    if (at != end && (*at == 'e' || *at == 'E')) return nullptr;
    value = static_cast<double>(digits) / powers[places];
    return at;
}

struct Reading {
    NumberText number;
    const char* stop; ///< first character that is not part of the number
};

/// The number at the start of a text that has neither blanks nor marks before it.
Reading readplain(std::string_view text) {
    const char* at = text.data();
    const char* end = at + text.size();
    const bool negative = at != end && *at == '-';
    if (at != end && (*at == '-' || *at == '+')) ++at;
    if (at == end || !(digit(*at) || *at == '.')) return {{}, at};
    double value = 0;
    if (const char* stop = readshort(at, end, value)) return {{negative ? 0 - value : value, true}, stop};
    const auto [stop, fault] = std::from_chars(at, end, value);
    if (fault == std::errc::invalid_argument) return {{}, at};
    if (fault == std::errc::result_out_of_range) return {{0, true}, stop};
    const char* e = std::find_if(at, stop, [](char c) { return c == 'E' || c == 'e'; });
    const bool isSigned = stop - e > 1 && !digit(e[1]);
    if (isSigned && !exponentstands({e + 2, static_cast<std::size_t>(end - e - 2)})) value = 0;
    return {{negative ? 0 - value : value, true}, stop};
}

/// Length of the decimal symbol at the start of a text; 0 when none stands there.
std::size_t symbolat(std::string_view text, const Symbols& symbols) {
    for (const std::string_view symbol : {symbols.session, symbols.file})
        if (!symbol.empty() && text.starts_with(symbol)) return symbol.size();
    return 0;
}

/// The number of a text with percent signs, "@" or other decimal symbols in it: a copy without them is read.
NumberText readmarked(std::string_view text, const Symbols& symbols) {
    std::array<char, longestNumber> copy;
    std::size_t count = 0;
    while (!text.empty() && count < copy.size()) {
        const std::size_t symbol = symbolat(text, symbols);
        const char c = symbol ? '.' : text[0];
        if (endsnumber(c)) break;
        if (!mark(c)) copy[count++] = c;
        text.remove_prefix(std::max<std::size_t>(symbol, 1));
    }
    return readplain({copy.data(), count}).number;
}

/// Reads straight from the text; only where the reading stopped at something that may not end the number is
/// it read again from a copy.
NumberText readwith(std::string_view text, const Symbols& symbols) {
    while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
    if (text.empty()) return {};
    const Reading reading = readplain(text);
    const char* end = text.data() + text.size();
    if (reading.stop == end || endsnumber(*reading.stop)) return reading.number;
    const std::string_view rest(reading.stop, static_cast<std::size_t>(end - reading.stop));
    const bool unfinished = mark(rest[0]) || rest[0] == 'E' || rest[0] == 'e' || symbolat(rest, symbols) > 0;
    return unfinished ? readmarked(text, symbols) : reading.number;
}

} // namespace

void appendtrimmed(std::string& text, float value) { appendshortest(text, value, singleDigits); }
void appendtrimmed(std::string& text, double value) { appendshortest(text, value, doubleDigits); }

void appendnumber(std::string& text, float value) {
    if (!(value < 0)) text += ' ';
    appendtrimmed(text, value);
}

void appendnumber(std::string& text, double value) {
    if (!(value < 0)) text += ' ';
    appendtrimmed(text, value);
}

void appendsignificant(std::string& text, double given, int digits) {
    const double value = presentable(given);
    if (value == 0) {
        text += '0';
        return;
    }
    if (value < 0) text += '-';
    char buffer[32];
    const auto end = std::to_chars(buffer, buffer + sizeof buffer, std::fabs(value),
                                   std::chars_format::scientific, std::clamp(digits, 1, 17) - 1)
                         .ptr;
    appenddecimal(text, takeapart(buffer, end), std::max(digits, singleDigits));
}

NumberText readnumber(std::string_view text) { return readwith(text, {}); }

NumberText readentry(std::string_view text) {
    return readwith(text, {session.decimalSeparator, session.fileDecimal});
}

void numberread() {
    session.ud = readentry(session.msg).value;
    session.u = sngguard(session.ud);
}

void fieldcut() {
    const std::string& delimiter = session.delimiter;
    const auto at = delimiter.empty() ? std::string::npos : session.msg.find(delimiter);
    if (at == std::string::npos) {
        session.fieldText = session.msg;
        session.msg.clear();
    } else {
        session.fieldText.assign(session.msg, 0, at);
        session.msg.erase(0, at + delimiter.size());
    }
    session.ud = readentry(session.fieldText).value;
    session.u = sngguard(session.ud);
}
