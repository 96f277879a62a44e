#pragma once

#include <string>

/// Numbers on plots and in reports go through one speller: it picks a mask by the size of the number and the
/// significant digits wanted.

/// What a number is shown as; the digits wanted follow from it (session.maskDigits).
enum UseClass : int { generalUse = 0, parameterUse, slopeUse, axisUse, useClasses };

/// The mask for v with `digits` significant digits, in the notation "##.###", "#.##E+###".
std::string maskof(double v, int digits);

/// ud by its use class as text. A negative class takes the negated general setting: fewer than its digits
/// never print as more, -n is n digits at most without trailing zeros.
std::string numbermask(int use);
/// The same for u, in single precision.
std::string numbermasks(int use);

/// Label of a linear or logarithmic axis: plain decimals when |v| lies from 0.00011 to 9999 (and for 0), else
/// with an exponent; `digits` significant. A value a hair under a round number prints as that number.
std::string axislabel(double v, int digits);
