#include "numeric/readnum.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <system_error>

#include "numeric/matherror.h"

namespace {

constexpr double largestinteger = 2147483640;
constexpr int longestexponent = 99999999; // far beyond any double, far below overflow of an int

struct Scale {
    char letter;
    int power;
};
constexpr Scale scales[] = {{'K', 3}, {'M', 6}, {'G', 9}, {'T', 12}, {'P', 15}, {'%', -2}};

bool isblank(char c) { return c == ' ' || c == '\t'; }
bool isdigit(char c) { return c >= '0' && c <= '9'; }

/// Walks a text, stepping over blanks.
struct Reader {
    std::string_view text;
    std::size_t at = 0;

    bool more() {
        while (at < text.size() && isblank(text[at])) ++at;
        return at < text.size();
    }
    bool take(char c) {
        if (!more() || text[at] != c) return false;
        ++at;
        return true;
    }
    bool digit(int& value) {
        if (!more() || !isdigit(text[at])) return false;
        value = text[at++] - '0';
        return true;
    }
    int sign() {
        if (take('-')) return -1;
        take('+');
        return 1;
    }
};

/// Up to 19 digits as they stand and the power of ten behind them.
struct Decimal {
    uint64_t digits = 0;
    int64_t power = 0;

    void append(int digit, bool behindpoint) {
        if (digits < 1000000000000000000u) {
            digits = digits * 10 + static_cast<uint64_t>(digit);
            if (behindpoint) --power;
        } else if (!behindpoint) {
            ++power;
        }
    }
    double value() const {
        if (digits == 0) return 0;
        char form[48];
        char* end = std::to_chars(form, form + 24, digits).ptr;
        *end++ = 'e';
        end = std::to_chars(end, form + sizeof form, power).ptr;
        double result = 0;
        if (std::from_chars(form, end, result).ec == std::errc{}) return result;
        return power > 0 ? std::numeric_limits<double>::max() : 0;
    }
};

int exponent(Reader& reader) {
    const int sign = reader.sign();
    int size = 0;
    for (int digit; reader.digit(digit);) size = std::min(size * 10 + digit, longestexponent);
    return sign * size;
}

/// Asks for a character in place of the one that cannot stand there, shown whole when it is UTF-8.
void reject(std::string_view rest) {
    constexpr std::string_view lead = "Please enter the character ";
    const auto follows = [](char c) { return (static_cast<unsigned char>(c) & 0xC0) == 0x80; };
    std::size_t length = 1;
    while (length < std::min<std::size_t>(4, rest.size()) && follows(rest[length])) ++length;
    if (!tellmatherror) return;
    char text[lead.size() + 4];
    std::memcpy(text, lead.data(), lead.size());
    std::memcpy(text + lead.size(), rest.data(), length);
    tellmatherror({text, lead.size() + length});
}

} // namespace

double readnum(std::string_view text, char decimal) {
    errCode = inputChecked;
    Reader reader{text};
    const int sign = reader.sign();
    Decimal number;
    bool integer = true;
    for (int digit; reader.digit(digit);) number.append(digit, false);
    if (reader.take(decimal)) {
        integer = false;
        for (int digit; reader.digit(digit);) number.append(digit, true);
    }
    if (reader.take('E') || reader.take('e')) {
        integer = false;
        number.power += exponent(reader);
    }
    for (const Scale& scale : scales) {
        if (!reader.take(scale.letter)) continue;
        integer = false;
        number.power += scale.power;
        break;
    }
    if (reader.more()) {
        reject(text.substr(reader.at));
        return 0;
    }
    const double value = sign * number.value();
    return integer ? std::clamp(value, -largestinteger, largestinteger) : value;
}
