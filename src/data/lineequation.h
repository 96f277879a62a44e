#pragma once

#include <string>

/// The line of a set as a formula in x with its numbers, "F(x) = 1 - exp(-(x / 33.77) ^ 1.354)"; Phi is the
/// standard normal distribution function. noAnswerText for a set without a line.
std::string lineequation(int k);
