#pragma once

#include <cstdint>

#include "session/session.h"

/// The families by the names and parameter names of the reference tables.
struct ReferenceFamily {
    const char* name;
    Dist family;
    int16_t extreme;
    const char *first, *second;
};
inline constexpr ReferenceFamily families[] = {{"weibull", weibull, -1, "eta", "beta"},
                                               {"lognormal", lognormal, -1, "median", "sigma_factor"},
                                               {"normal", normal, -1, "mu", "sigma"},
                                               {"gumbelmin", gumbel, -1, "location", "scale"},
                                               {"gumbelmax", gumbel, 1, "location", "scale"}};
