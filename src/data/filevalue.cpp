#include "data/filevalue.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "data/filelines.h"
#include "data/numbertext.h"
#include "data/utf8.h"
#include "numeric/sngguard.h"
#include "session/session.h"

namespace {

/// Sizes that the number reader takes: an exponent of three digits must begin with 0 or 1.
constexpr double largest = 9.99999999999999e199;
constexpr double smallest = 1e-199;

template <class Integer>
void takeinteger(std::string_view line, Integer& value) {
    using Limits = std::numeric_limits<Integer>;
    value =
        static_cast<Integer>(std::clamp(std::trunc(readentry(line).value), static_cast<double>(Limits::min()),
                                        static_cast<double>(Limits::max())));
}

} // namespace

void appendvalue(std::string& line, float value) {
    if (std::isfinite(value)) [[likely]]
        appendfilenumber(line, sngguard(value));
    else
        appendfilenumber(line, static_cast<float>(noAnswer));
}

void appendvalue(std::string& line, double value) {
    if (!std::isfinite(value))
        value = noAnswer;
    else if (std::fabs(value) < smallest)
        value = 0;
    appendfilenumber(line, std::clamp(value, -largest, largest));
}

void appendvalue(std::string& line, int16_t value) { appendvalue(line, static_cast<double>(value)); }
void appendvalue(std::string& line, int32_t value) { appendvalue(line, static_cast<double>(value)); }

void appendvalue(std::string& line, const std::string& text) {
    const auto start = static_cast<std::ptrdiff_t>(line.size());
    line += isutf8(text) ? text : asutf8(text);
    std::replace_if(
        line.begin() + start, line.end(), [](char c) { return c == '\r' || c == '\n'; }, ' ');
}

void takevalue(std::string_view line, float& value) { value = sngguard(readentry(line).value); }
void takevalue(std::string_view line, double& value) { value = readentry(line).value; }
void takevalue(std::string_view line, int16_t& value) { takeinteger(line, value); }
void takevalue(std::string_view line, int32_t& value) { takeinteger(line, value); }
void takevalue(std::string_view line, std::string& text) { text = line; }
