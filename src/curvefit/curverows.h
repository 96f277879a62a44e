#pragma once

#include <string_view>
#include <vector>

#include "curvefit/fitsolve.h"

/// The end of the label of a point whose Y was filled from a curve, and is no measurement.
inline constexpr std::string_view fillLabel = "(fill)";
inline bool isfilled(std::string_view label) { return label.ends_with(fillLabel); }

/// The rows of set k of the session as a fit takes them: in order of entry, the quantity of the point as its
/// weight. Out of the fit stay suspensions, discoveries (the value of neither is known), cells without Y, and
/// points that a curve has filled: they lie on it, and would only make it look more certain.
struct CurveRows {
    std::vector<FitRow> rows;
    int withoutY = 0; ///< cells that have an X but no Y
};
CurveRows curverows(int k);

/// A cell that has an X but no Y.
struct OpenCell {
    std::size_t place = 0; ///< in the set's column of the grid, from 0
    int point = 0;         ///< of the set, from 1
};
std::vector<OpenCell> opencells(int k);
