#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "session/session.h"

/// A distribution as the command line names it.
struct DistributionChoice {
    Dist dist = weibull;
    int16_t gumbeltype = -1;
    float fixedSlope = 0;    ///< 0 free
    bool negative = false;   ///< a negative X is a value
    bool threshold = false;  ///< a threshold is searched
    bool asRecorded = false; ///< and the scale stays as recorded
};

/// A name and what stands behind it: "3" a threshold, "3AR" one with the scale as recorded, "(n)" a fixed
/// slope. Small letters and blanks count alike. Nothing for a text that is no distribution, and for a
/// Weibayes line without its slope.
std::optional<DistributionChoice> distributionof(std::string_view text);
