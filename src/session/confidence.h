#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "session/table.h"

/// Bound methods, the size of confMethod. A negative confMethod asks for a single point.
enum BoundMethod : int16_t {
    noBounds = 0,
    binomialBounds = 1,    ///< bi, point by point
    fisherBounds = 2,      ///< fm
    likelihoodBounds = 3,  ///< lr
    simulationBounds = 4,  ///< mc
    pivotalBounds = 5,     ///< pv
    normalTheoryBounds = 6 ///< nr
};

/// Percentages of the B life table: bound curves have a point at each.
inline constexpr double bLives[] = {.1, .5, 1, 5, 10, 20, 50, 63.212, 90, 95, 99, 99.9};

/// How bounds are asked for.
struct BoundsInForce {
    int16_t method = noBounds, automatic = 0;
    float low = 0, high = 0;
    bool operator==(const BoundsInForce&) const = default;
};

/// Confidence bounds: how they are made, and those of each set. The curves stand in the two rows before the
/// set's own: X the data value, Y the probability, n the count of points. A single point is a row of one.
struct Confidence {
    int16_t confMethod = noBounds; ///< BoundMethod; negative: a single point is asked for
    float confLow = 0;             ///< low confidence in percent; 0 no low side
    float confHigh = 0;            ///< high confidence in percent; 0 no high side
    double singleP = 0.1;          ///< probability of the single point that a negative confMethod asks for
    int16_t confAuto = 0;          ///< 1: the bound method is chosen by rule
    int16_t fisherForm = 0;        ///< Weibull: 0 on the logarithms, 1 mb, 2 mc
    float rndStart = 0;            ///< "Rnd #": start of the simulation; 0 variable, else locked
    float mcCount = 1000;          ///< "MC #": samples, at most 32000

    BoundsInForce boundsBefore; ///< what was in force before a single point was asked for
    BoundsInForce boundsSingle; ///< and what that came to

    Table<double> paramLow, paramHigh; ///< (set, j): bounds of eta (j = 1) and beta (j = 2); noAnswer none
    List<std::string> setBoundLabel;   ///< code of the method that made the set's bounds; empty for none
    std::vector<float> mcCorrelations; ///< r^2 of the samples of the last simulation, in rising order
};
