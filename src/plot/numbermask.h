#pragma once

#include <string>

/// Numbers on plots and in reports go through one speller: it picks a mask by the size of the number and the
/// significant digits wanted.

/// What a number is shown as; the digits wanted follow from it (session.maskDigits).
enum UseClass : int { generalUse = 0, parameterUse, slopeUse, axisUse, fitUse, useClasses };

/// The mask for v with |digits| significant digits (1 to 17), in the notation "##.###", "#.##E+###". Plain
/// while the decimal exponent lies from -3 to 3, and to -7 or 7 while the digits reach to the point; past
/// that with an exponent. From .9 to 1 the digits count behind the leading nines: .999997 is not 1.
std::string maskof(double v, int digits);

/// ud by its use class as text, rounded to the nearest; not a number is "0", an infinity the largest number.
/// axisUse keeps to a field of 9 places, sign apart: past -3 or 5 the exponent takes the mantissa's places,
/// "#.####E+#", "#.###E+##", "#.##E+###". A negative class takes the negated general setting: fewer than its
/// digits never print as more, -n is n digits at most without trailing zeros.
std::string numbermask(int use);
/// The same for u, by the digits of its single precision.
std::string numbermasks(int use);

/// Label of a linear or logarithmic axis: plain decimals when |v| lies from 0.00011 to 9999 (and for 0), else
/// or where the user wants it with an exponent; `digits` significant at most. A value a hair under a round
/// number prints as that number.
std::string axislabel(double v, int digits);
