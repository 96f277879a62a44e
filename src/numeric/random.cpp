#include "numeric/random.h"

#include <chrono>
#include <cmath>
#include <random>

RandomSource randomsource;

namespace {

constexpr int32_t modulus1 = 2147483579;
constexpr int32_t modulus2 = 2147483543;
constexpr int32_t modulus3 = 2147483423;
constexpr int32_t modulus4 = 2147483123;

constexpr int32_t replacement = 5;

/// One step of a component, factor * seed mod modulus in 32 bits by Schrage's division.
void step(int32_t& seed, int32_t factor, int32_t quotient, int32_t remainder, int32_t modulus) {
    seed = factor * (seed % quotient) - remainder * (seed / quotient);
    if (seed < 0) seed += modulus;
}

int32_t reduced(int32_t seed, int32_t modulus) {
    const int32_t rest = seed % (modulus - 1);
    return rest < 1 ? replacement : rest;
}

} // namespace

double RandomSource::next() {
    for (;;) {
        step(seed1, 11600, 185127, 10379, modulus1);
        step(seed2, 47003, 45688, 10479, modulus2);
        step(seed3, 23000, 93368, 19423, modulus3);
        step(seed4, 33000, 65075, 8123, modulus4);
        const double w = static_cast<double>(seed1) / modulus1 + static_cast<double>(seed2) / modulus2
                         + static_cast<double>(seed3) / modulus3 + static_cast<double>(seed4) / modulus4;
        const double fraction = w - std::floor(w);
        // A sum that rounds to a whole number is drawn again too: the callers take logarithms.
        if (w > 4.656613022697298e-10 && fraction > 0) [[likely]]
            return fraction;
        // Four zeros would repeat for ever; a component in its cycle is never 0.
        if (seed1 == 0 && seed2 == 0 && seed3 == 0 && seed4 == 0) seed1 = replacement;
    }
}

void seedrnd(std::optional<int32_t> first, std::optional<int32_t> second, std::optional<int32_t> third,
             std::optional<int32_t> fourth) {
    const auto ticks = std::chrono::system_clock::now().time_since_epoch().count()
                       ^ std::chrono::steady_clock::now().time_since_epoch().count();
    std::mt19937 generator(static_cast<std::mt19937::result_type>(ticks));
    // Every seed draws, so that one left open does not depend on which others are given.
    const auto drawn = [&] { return static_cast<int32_t>(generator() >> 2) + 1; };
    const int32_t open[] = {drawn(), drawn(), drawn(), drawn()};
    randomsource = {reduced(first.value_or(open[0]), modulus1), reduced(second.value_or(open[1]), modulus2),
                    reduced(third.value_or(open[2]), modulus3), reduced(fourth.value_or(open[3]), modulus4)};
}
