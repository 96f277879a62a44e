#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "session/table.h"

/// Rows and lines of a plot. Lines 1 to maxSets belong to the sets, those above come from elsewhere.
struct Lines {
    List<std::string> rowKind;                ///< "P" a row drawn as points, "L" a row drawn as a line
    List<std::string> rowTitle;               ///< title of the set on that row
    List<float> lineStyle;                    ///< style of each line
    List<int16_t> lineVisible;                ///< 1 when the line is drawn
    List<int16_t> lineHide;                   ///< a line's hide mark
    std::array<Table<float>, 4> lineEnd;      ///< x1, y1, x2, y2 of the straight and extra lines
    List<std::string> lineLabelA, lineLabelB; ///< line legends
    List<float> correlation;                  ///< fit quality of each line
    List<std::string> correlationLabel;       ///< and its printed form

    Table<double> paramA, paramB;            ///< first and second parameter, by (method, line)
    List<float> paramThree;                  ///< third parameter (t0) of each line
    std::array<Table<double>, 3> paramOther; ///< further values, by (method, line)
    Table<double> paramExtra;                ///< up to 30 more coefficients a line
    Table<float> paramExtraSingle;           ///< the same in single precision
    std::array<double, 11> SOLCOEF{};        ///< coefficients of the fit in force
    std::array<double, 11> SOLCOEFA{};       ///< the list before it
    std::array<double, 11> SOLCOEFB{};       ///< and the one before that
};
