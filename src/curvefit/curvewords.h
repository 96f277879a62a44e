#pragma once

#include <string_view>

/// Typed settings of a curve fit, in the option file of a run and among the options of a script; "=" and a
/// blank both stand before a value, and letters may be of either case.
///
/// - FIT name: the kind of fit of every set, a model by its name, a number from 1 to 9 or its code.
/// - FITCURVE=name: the same; without a value a straight line, 0 no curves.
/// - FITFILL: missing Y values are filled from the curves, once; FITFILL=0: they are not.
/// - FITPAR-ORDER=n: a polynomial of order n, 1 to 9.
/// - FITPAR-FROM=x: the curve is drawn from this X on.
/// - FITPAR-EXTRAPOLATE=0: it is drawn over the data alone; 1: over the whole window.
enum class CurveWord { none, taken, wrong };

/// Takes one setting. `none`: the text is no word of a fit. `wrong`: it is, but its value is not understood;
/// the session then is as it was.
CurveWord curveword(std::string_view text);
