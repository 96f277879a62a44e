#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

/// Confidence bounds as the command line asks for them.
struct ConfidenceChoice {
    int16_t method = 0;     ///< confMethod; negative for the assurance of a single point
    double low = 0;         ///< confLow, percent; 0 no low side
    double high = 0;        ///< confHigh, percent; 0 no high side
    double threshold = 0;   ///< t0 to use; 0 none
    bool automatic = false; ///< no method was named: it is chosen by rule
};

/// Groups with nothing, a blank or "_" between them: M and a method number 1 to 6, negative for a single
/// point, 0 none; one of L lower, U upper, D double, A all (either side at its own level) with a confidence
/// in percent; T and a threshold. "M2D90" is the Fisher matrix, double-sided 90 percent: low 5, high 95;
/// "M3L95" likelihood ratio, lower 95 percent: low 5; "M2A95" both. Without a level it is D90. Nothing for a
/// text that is not of that form, and for levels not within 50 (D: 0) and 100.
std::optional<ConfidenceChoice> confidenceof(std::string_view text);
