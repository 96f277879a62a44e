#include "plot/transforms_register.h"

#include <charconv>
#include <cstdlib>
#include <string_view>
#include <utility>

namespace {

/// `digits` and the power of ten of the first of them, in plain form while that stays within `limit` places.
void addplaces(std::string& text, std::string_view digits, int exponent, int limit) {
    const int count = static_cast<int>(digits.size());
    if (exponent >= limit || -exponent - 1 > limit) {
        text += digits[0];
        if (count > 1) text.append(".").append(digits.substr(1));
        const int size = std::abs(exponent);
        text.append(exponent < 0 ? "E-" : "E+").append(size < 10 ? "0" : "").append(std::to_string(size));
    } else if (exponent < 0) {
        text.append(".").append(static_cast<std::size_t>(-exponent - 1), '0').append(digits);
    } else if (count <= exponent + 1) {
        text.append(digits).append(static_cast<std::size_t>(exponent + 1 - count), '0');
    } else {
        const auto whole = static_cast<std::size_t>(exponent + 1);
        text.append(digits.substr(0, whole)).append(".").append(digits.substr(whole));
    }
}

/// Shortest digits that read back to the same value; `limit` places before an exponent is written.
template <class T>
void addshortest(std::string& text, T value, int limit) {
    if (value == 0) {
        text += '0';
        return;
    }
    if (value < 0) text += '-';
    char room[40];
    const auto end =
        std::to_chars(room, room + sizeof room, std::fabs(value), std::chars_format::scientific).ptr;
    const std::string_view written(room, static_cast<std::size_t>(end - room));
    const auto mark = written.find('e');
    std::string digits(written.substr(0, mark));
    if (digits.size() > 1) digits.erase(1, 1);
    int exponent = 0;
    std::from_chars(room + mark + 2, end, exponent);
    addplaces(text, digits, written[mark + 1] == '-' ? -exponent : exponent, limit);
}

} // namespace

void addplain(std::string& text, float value) { addshortest(text, value, 7); }

void addplain(std::string& text, double value) { addshortest(text, value, 15); }

void tellformula(std::string location, double result) {
    session.msg = std::move(location);
    if (tellfault) tellfault(std::isnan(result) ? domainFault : overflowFault);
}

bool negdataok() { return session.negativeXAllowed == 1; }

FamilyLine currentline() {
    const int16_t family = static_cast<int16_t>(session.dist < 0 ? -session.dist : session.dist);
    return {family, session.gumbeltype, session.eta, session.beta};
}
