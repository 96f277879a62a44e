#pragma once

#include <span>
#include <string_view>

/// A built-in sample: data to try the program on, one cell a point.
struct Sample {
    int number;
    std::string_view label;
    std::span<const std::string_view> cells;
};

/// Sample by its number; null when there is none.
const Sample* sampledata(int number);
