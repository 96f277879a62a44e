#include "plot/numbermask.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>

#include "data/numbertext.h"
#include "session/session.h"

namespace {

constexpr int mostDigits = 17;
constexpr int trueDigits = 15;   ///< that a double gives back as they were read
constexpr int alwaysPlain = 3;   ///< exponents to here never show
constexpr int longestPlain = 7;  ///< exponents past here always show
constexpr int compactPlaces = 5; ///< that mantissa and exponent of a compact field share behind the point

/// The size that a text stands for.
double presentable(double value) {
    if (std::isnan(value)) return 0;
    return std::min(std::fabs(value), std::numeric_limits<double>::max());
}

/// A size as d.ddd * 10^exponent, rounded to the nearest.
struct Figures {
    std::string digits;
    int exponent = 0;
};

Figures figuresof(double size, int count) {
    char buffer[32];
    const auto end = std::to_chars(buffer, buffer + sizeof buffer, size, std::chars_format::scientific,
                                   std::clamp(count, 1, mostDigits) - 1)
                         .ptr;
    char* e = std::find(buffer, end, 'e');
    Figures figures{{buffer, 1}, 0};
    if (e - buffer > 2) figures.digits.append(buffer + 2, e); // behind the point
    std::from_chars(e[1] == '+' ? e + 2 : e + 1, end, figures.exponent);
    return figures;
}

/// How a number is laid out: digits in all, and the room for the exponent, 0 in a plain number.
struct Layout {
    int digits = 1;
    int exponentRoom = 0;
};

int wanteddigits(int digits) { return std::clamp(std::abs(digits), 1, mostDigits); }

/// Nines below 1, or zeros behind it, that stand before the digits of interest: none outside .9 to 1.1.
int leadingnines(double size) {
    const double distance = std::fabs(1 - size);
    if (distance > .1 || distance == 0) return 0;
    return std::max(0, -1 - figuresof(distance, mostDigits).exponent);
}

Layout layoutof(double size, int digits) {
    const int wanted = wanteddigits(digits);
    if (size == 0) return {};
    if (const int nines = leadingnines(size))
        return {std::min(wanted + nines, std::max({wanted, trueDigits, nines + 1})), 0};
    const int distance = std::abs(figuresof(size, wanted).exponent);
    const bool plain = distance <= alwaysPlain || (distance <= longestPlain && distance < wanted);
    return {wanted, plain ? 0 : 3};
}

int placesneeded(int number) { return number < 10 ? 1 : number < 100 ? 2 : 3; }

/// The field of an axis: 9 places with its exponent. Each place that the exponent takes the mantissa gives.
Layout compactlayout(double size, int digits) {
    static constexpr int lowest = -alwaysPlain;
    static constexpr std::array plainDigits = {4, 5, 6, 4, 4, 5, 5, 5, 6}; // #.######, #.###, ###.##, …
    const int wanted = wanteddigits(digits);
    const int exponent = figuresof(size, std::min(wanted, compactPlaces)).exponent;
    const int row = exponent - lowest;
    if (row >= 0 && row < static_cast<int>(plainDigits.size()))
        return {std::min(wanted, plainDigits[static_cast<std::size_t>(row)]), 0};
    Layout layout;
    do {
        ++layout.exponentRoom;
        layout.digits = std::min(wanted, 1 + compactPlaces - layout.exponentRoom);
    } while (placesneeded(std::abs(figuresof(size, layout.digits).exponent)) > layout.exponentRoom);
    return layout;
}

void trimzeros(std::string& digits) {
    digits.erase(std::max<std::size_t>(digits.find_last_not_of('0') + 1, 1));
}

std::string plaintext(const Figures& f) {
    if (f.exponent < 0) return "." + std::string(static_cast<std::size_t>(-f.exponent - 1), '0') + f.digits;
    const auto whole = static_cast<std::size_t>(f.exponent) + 1;
    if (f.digits.size() <= whole) return f.digits + std::string(whole - f.digits.size(), '0');
    return f.digits.substr(0, whole) + '.' + f.digits.substr(whole);
}

std::string exponenttext(const Figures& f, int room) {
    std::string text = f.digits.substr(0, 1);
    if (f.digits.size() > 1) (text += '.') += f.digits.substr(1);
    text += f.exponent < 0 ? "E-" : "E+";
    const int size = std::abs(f.exponent);
    if (size < 10 && room > 1) text += '0';
    return text + std::to_string(size);
}

std::string spelled(const Figures& figures, int exponentRoom) {
    return exponentRoom ? exponenttext(figures, exponentRoom) : plaintext(figures);
}

std::string spell(double value, int asked) {
    const int use = std::min(asked, useClasses - 1);
    const int digits =
        use < 0 ? -session.maskDigits[generalUse] : session.maskDigits[static_cast<std::size_t>(use)];
    const double size = presentable(value);
    if (size == 0) return "0";
    const Layout layout = use == axisUse ? compactlayout(size, digits) : layoutof(size, digits);
    Figures figures = figuresof(size, layout.digits);
    if (digits < 0) trimzeros(figures.digits);
    return (value < 0 ? "-" : "") + spelled(figures, layout.exponentRoom);
}

/// The number that a single stands for by its own digits: .1, not .100000001490116.
double owndigits(float value) {
    if (!std::isfinite(value)) return value;
    char buffer[32];
    const auto end = std::to_chars(buffer, buffer + sizeof buffer, value).ptr;
    double wide = 0;
    std::from_chars(buffer, end, wide);
    return wide;
}

} // namespace

std::string maskof(double v, int digits) {
    const double size = presentable(v);
    const Layout layout = layoutof(size, digits);
    if (size == 0) return "#";
    const int exponent = figuresof(size, layout.digits).exponent;
    const bool plain = layout.exponentRoom == 0;
    const int whole = plain ? std::max(exponent, 0) + 1 : 1;
    const int places = plain ? std::max(layout.digits - 1 - exponent, 0) : layout.digits - 1;
    std::string mask(static_cast<std::size_t>(whole), '#');
    if (places > 0) (mask += '.').append(static_cast<std::size_t>(places), '#');
    if (plain) return mask;
    mask += exponent < 0 ? "E-" : "E+";
    return mask.append(static_cast<std::size_t>(layout.exponentRoom), '#');
}

std::string numbermask(int use) { return spell(session.ud, use); }
std::string numbermasks(int use) { return spell(owndigits(session.u), use); }

std::string axislabel(double v, int digits) {
    constexpr double lowestPlain = 0.00011, highestPlain = 9999;
    constexpr double hair = 1e-5;   // of the last place shown
    constexpr double slack = 1e-12; // an edge of the plain range counts as inside in spite of its rounding
    const double size = presentable(v);
    if (size == 0) return "0";
    const int wanted = wanteddigits(digits);
    const int exponent = figuresof(size, mostDigits).exponent;
    const double nudged = size + hair * std::pow(10.0, exponent - wanted + 1);
    Figures figures = figuresof(presentable(nudged), wanted);
    trimzeros(figures.digits);
    const bool plain = session.scientificScale == 0 && size >= lowestPlain * (1 - slack)
                       && size <= highestPlain * (1 + slack);
    return (v < 0 ? "-" : "") + spelled(figures, plain ? 0 : 2);
}
