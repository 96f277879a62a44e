#pragma once

#include <string>

#include "session/visualstate.h"

/// The line of a set as a formula in x with its numbers, "F(x) = 1 - exp(-(x / 33.77) ^ 1.354)"; Phi is the
/// standard normal distribution function. On the visual side the fitted curve, "y = 1.5 + 2 * x", the numbers
/// with every digit. noAnswerText for a set without a line or curve.
std::string lineequation(int k);

/// Coefficients of a curve by the letters of its equation, y = a*b^x: for the models 10 to 13 a and b, one
/// that no double can hold, for its size or its smallness, as not-a-number; for a polynomial those from the
/// constant up.
std::vector<double> equationcoefficients(const SetCurve& curve);
