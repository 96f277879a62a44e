#pragma once

#include <cstdint>

/// The sides of the program: one executable, two personalities and two relatives.
enum Side : int16_t { lifeSide = 1, visualSide = 2, simulationSide = 3, fourthSide = 4 };

/// How much data the session can hold, and how it is addressed. A data set k has its points on row k * sg;
/// on the life side the two rows before it hold its confidence curves.
struct Capacities {
    int16_t progSide = visualSide; ///< which personality is active (Side)
    float sg = 1;                  ///< rows a set occupies: 3 on the life side, 1 on the visual side
    int16_t ifylcnf = 0;           ///< 9 when the confidence rows are populated, else 0
    float lastRow = 0;             ///< number of the last row in use; 0 in an empty session

    float maxRows = 24;       ///< row ceiling of the session
    float maxRowsBase = 24;   ///< the same, as files write it
    int16_t sizeExponent = 1; ///< array size exponent k, 1 to 10: each step doubles the points a set
    float budgetShare = 1;    ///< less, by halves, where memory falls short at exponent 0
    float arrayBudget = 0;    ///< elements of X: 2^k * 18000 (sides 1, 3) or 2^k * 6000 (sides 2, 4)
    float maxPoints = 0;      ///< points a set
    float maxSets = 0;        ///< sets: 8 on the life side, 24 on the visual side
    int16_t extraLines = 0;   ///< lines above the sets, at most 12
    float maxLines = 0;       ///< maxSets + extraLines
};
