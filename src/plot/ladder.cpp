#include "plot/ladder.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <vector>

#include "data/numbertext.h"
#include "session/session.h"

namespace {

enum TickKind : int8_t { none, light, heavy };

/// A label with the lowest percent that bears it.
struct Rung {
    int16_t index; ///< noTickIndex: found by its percent alone
    std::string_view label;
    double lowest;
    TickKind tick; ///< how the axis draws it
};

constexpr double byIndexOnly = std::numeric_limits<double>::infinity();

/// From the top down: the first rung whose lowest percent is not above the value bears its label. The topmost
/// rungs, for probabilities beyond those of the axis, have no tick.
constexpr Rung rungs[] = {
    {0, " 99.9999", 99.99995, none},
    {0, " 99.9998", 99.99985, none},
    {0, " 99.9995", 99.99965, none},
    {0, " 99.999", 99.99925, none},
    {30, " 99.999", 99.9985, heavy},
    {0, " 99.998", 99.9965, none},
    {0, " 99.995", 99.9925, none},
    {29, " 99.99", 99.985, heavy},
    {0, " 99.98", 99.965, none},
    {0, " 99.95", 99.925, none},
    {28, " 99.9", 99.85, heavy},
    {0, " 99.8", 99.65, none},
    {0, " 99.5", 99.25, none},
    {27, " 99", 98.5, heavy},
    {0, " 98", 96.5, none},
    {26, " 95", 92.5, light},
    {25, " 90", 85, heavy},
    {24, " 80", 75, light},
    {23, " 70", 65, light},
    {22, " 63.212", byIndexOnly, none},
    {21, " 60", 55, light},
    {20, " 50", 45, light},
    {19, " 40", 35, light},
    {18, " 30", 25, light},
    {17, " 20", 15, light},
    {16, " 10", 7, heavy},
    {15, " 5", 3, light},
    {14, " 2", 1.5, light},
    {13, " 1", .7, heavy},
    {12, " .5", .3, light},
    {11, " .2", .15, light},
    {10, " .1", .07, heavy},
    {9, " .05", .03, light},
    {8, " .02", .015, light},
    {7, " .01", .007, heavy},
    {6, " .005", .003, light},
    {5, " .002", .0015, light},
    {4, " .001", .0007, heavy},
    {3, " .0005", .0003, light},
    {2, " .0002", .00015, light},
    {1, " .0001", 7e-5, heavy},
    {0, " .00005", 3e-5, light},
    {0, " .00002", 1.5e-5, light},
    {0, " .00001", 7e-6, heavy},
    {0, " .000005", 3e-6, light},
    {0, " .000002", 1.5e-6, light},
    {-1, " .000001", 7e-7, heavy},
    {0, " 5E-07", 3e-7, light},
    {0, " 2E-07", 1.5e-7, light},
    {-2, " 1E-07", 7e-8, heavy},
    {0, " 5E-08", 3e-8, light},
    {0, " 2E-08", 1.5e-8, light},
    {-3, " 1E-08", 7e-9, heavy},
    {0, " 5E-09", 3e-9, light},
    {0, " 2E-09", 1.5e-9, light},
    {-4, " 1E-09", 7e-10, heavy},
    {0, " 5E-10", 3e-10, light},
    {0, " 2E-10", 1.5e-10, light},
    {-5, " 1E-10", 7e-11, heavy},
    {0, " 5E-11", 3e-11, light},
    {0, " 2E-11", 1.5e-11, light},
    {-6, " 1E-11", 7e-12, heavy},
    {0, " 5E-12", 3e-12, light},
    {0, " 2E-12", 1.5e-12, light},
    {-7, " 1E-12", 7e-13, heavy},
    {0, " 5E-13", 3e-13, light},
    {0, " 2E-13", 1.5e-13, light},
    {-8, " 1E-13", 7e-14, heavy},
    {0, " 5E-14", 3e-14, light},
    {0, " 2E-14", 1.5e-14, light},
    {-9, " 1E-14", 7e-15, heavy},
    {0, " 5E-15", 3e-15, light},
    {0, " 2E-15", 1.5e-15, light},
    {-10, " 1E-15", 7e-16, heavy},
    {0, " 5E-16", 3e-16, light},
    {0, " 2E-16", 1.5e-16, light},
    {-11, " 1E-16", 7e-17, heavy},
    {0, " 5E-17", 3e-17, light},
    {0, " 2E-17", 1.5e-17, light},
    {-12, " 1E-17", 7e-18, heavy},
    {0, " 5E-18", 3e-18, light},
    {0, " 2E-18", 1.5e-18, light},
    {-13, " 1E-18", 7e-19, heavy},
    {0, " 5E-19", 3e-19, light},
    {0, " 2E-19", 1.5e-19, light},
    {-14, " 1E-19", 7e-20, heavy},
    {0, " 5E-20", 3e-20, light},
    {0, " 2E-20", 1.5e-20, light},
    {-15, " 1E-20", 7e-21, heavy},
    {0, " 5E-21", 3e-21, light},
    {0, " 2E-21", 1.5e-21, light},
    {-16, " 1E-21", 7e-22, heavy},
    {0, " 5E-22", 3e-22, light},
    {0, " 2E-22", 1.5e-22, light},
    {-17, " 1E-22", 7e-23, heavy},
    {0, " 5E-23", 3e-23, light},
    {0, " 2E-23", 1.5e-23, light},
    {-18, " 1E-23", 7e-24, heavy},
    {0, " 5E-24", 3e-24, light},
    {0, " 2E-24", 1.5e-24, light},
    {-19, " 1E-24", 7e-25, heavy},
    {0, " 5E-25", 3e-25, light},
    {0, " 2E-25", 1.5e-25, light},
    {-20, " 1E-25", 7e-26, heavy},
    {0, " 5E-26", 3e-26, light},
    {0, " 2E-26", 1.5e-26, light},
    {-21, " 1E-26", 7e-28, heavy}, // the decade of the 27th place has no labels
    {0, " 5E-28", 3e-28, light},
    {0, " 2E-28", 1.5e-28, light},
    {-22, " 1E-28", 7e-29, heavy},
    {0, " 5E-29", 3e-29, light},
    {0, " 2E-29", 1.5e-29, light},
    {-23, " 1E-29", 7e-30, heavy},
    {0, " 5E-30", 3e-30, light},
    {0, " 2E-30", 1.5e-30, light},
    {-24, " 1E-30", 7e-31, heavy},
    {0, " 5E-31", 3e-31, light},
    {0, " 2E-31", 1.5e-31, light},
    {-25, " 1E-31", 7e-32, heavy},
};
constexpr std::string_view belowAll = " <1E-31";

/// Above this the rungs no longer stand at their labels.
constexpr double lastTrueRung = 99.99925;

std::string_view labelof(double percent) {
    if (!(percent >= 0 && percent <= 100)) return {};
    const auto rung = std::find_if(std::begin(rungs), std::end(rungs),
                                   [percent](const Rung& r) { return r.lowest <= percent; });
    return rung == std::end(rungs) ? belowAll : rung->label;
}

const Rung* rungof(float index) {
    if (index == noTickIndex) return nullptr;
    const auto rung = std::find_if(std::begin(rungs), std::end(rungs),
                                   [index](const Rung& r) { return static_cast<float>(r.index) == index; });
    return rung == std::end(rungs) ? nullptr : rung;
}

/// The complement of a small percent with its nines, to the place of the first digit of that percent; what
/// trails behind the last digit other than 0 is cut, and 100 is left where a double holds no nine more.
std::string nines(double percent) {
    constexpr int places = 14; // of a double just under 100
    const int wanted = percent > 0 ? std::min(places, static_cast<int>(-std::floor(std::log10(percent)))) : 0;
    char buffer[32];
    const auto end =
        std::to_chars(buffer, buffer + sizeof buffer, 100 - percent, std::chars_format::fixed, wanted).ptr;
    std::string_view digits(buffer, static_cast<std::size_t>(end - buffer));
    digits = digits.substr(0, digits.find_last_of("987654321") + 1);
    return digits == "1" ? " 100" : " " + std::string(digits);
}

std::string mirroredlabel(double percent) {
    const double mirrored = 100 - percent;
    if (mirrored >= lastTrueRung && mirrored <= 100) return nines(percent);
    return std::string(labelof(mirrored));
}

std::vector<LadderTick> ladderticks() {
    std::vector<LadderTick> ticks;
    std::for_each(std::rbegin(rungs), std::rend(rungs), [&ticks](const Rung& r) {
        if (r.tick != none) ticks.push_back({readnumber(r.label).value, r.label, r.tick == heavy});
    });
    return ticks;
}

} // namespace

bool showsreliability() { return session.yScaleKind % 2 == 1; }

std::span<const LadderTick> ladder() {
    static const std::vector<LadderTick> ticks = ladderticks();
    return ticks;
}

void probticklabel() {
    if (session.tickindex == reliabilityLabels && showsreliability()) {
        session.msg = mirroredlabel(session.ud);
    } else {
        const Rung* chosen = rungof(session.tickindex);
        session.msg = chosen ? chosen->label : labelof(session.ud);
    }
}
