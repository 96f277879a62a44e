#pragma once

#include <cstdint>
#include <optional>

/// The four-cycle generator of Wichmann and Hill, period 2^121: uniform numbers strictly between 0 and 1.
/// The seeds are the whole state; copy the struct to keep it. Seed k lies in 1 .. modulus k - 1.
/// Wichmann and Hill, Generating good pseudo-random numbers, Comput. Statist. Data Anal. 51 (2006) 1614.
struct RandomSource {
    int32_t seed1 = 5;
    int32_t seed2 = 5;
    int32_t seed3 = 5;
    int32_t seed4 = 5;

    /// The next number; the same seeds give the same digits on every machine.
    double next();
};

/// The source of the whole program. Until it is seeded it runs from the seeds 5, 5, 5, 5.
extern RandomSource randomsource;

/// The next number of the program's source.
inline double Rnd() { return randomsource.next(); }

/// Seeds the program's source. A seed given is taken modulo (its modulus - 1) and, when then below 1,
/// replaced by 5; so any value is accepted, and the same values always give the same sequence. A seed that
/// is missing is drawn from a generator started by the clock, as an integer plus 1.
void seedrnd(std::optional<int32_t> first = {}, std::optional<int32_t> second = {},
             std::optional<int32_t> third = {}, std::optional<int32_t> fourth = {});
