#pragma once

#include <string>
#include <string_view>

/// What the arrows of a number entry do. The step is ten to session.incrementExp, shown in increment; the
/// texts carry the decimal symbol of the display.

/// The step in force. An exponent beyond 29 (299 where promptKind is 1), either way, falls back to a step
/// of 1.
double incrementstep();

void incrementchange(int by); ///< moves the exponent of the step
std::string incrementline();  ///< "Change Increment = .1"

/// The entry after an arrow: direction 1 up, -1 down. An arrow that is held repeats, `held` counts from 0; it
/// goes by twice the step after a while. An entry that is no number counts as 0.
std::string numberstepped(std::string_view entry, int direction, int held);
