#pragma once

#include <string>
#include <string_view>

/// Entry of the typed function, and of what belongs to it.

/// The function as it is shown: " Y = 2*x+sin(x)", or " X = …" when the run yields X. In the decimal symbol
/// of the display.
std::string functionline();

/// Appends typed text to the session's function; false, and nothing changed, when it cannot be read or cannot
/// stand there.
bool functionappend(std::string_view typed);

/// The entry loop. Shows the function so far and takes typed text, or a choice of the keypad list: a token, a
/// number, or a whole piece of a function. "R:" empties the function, "N:" asks for a number; an empty text
/// finishes: the brackets are closed, the function is kept as the saved copy and its file is offered. False
/// when it was cancelled; the function is then as it was.
bool functionedit();

/// Asks for the X range of the curve; limits in the wrong order change places, equal ones are to be
/// confirmed. False, and nothing changed, on a cancel.
bool functionrange();

/// Asks for the parameter k. False, and nothing changed, on a cancel.
bool functionk();

/// Offers to save the function; the name offered first is "x.fun". True when it was saved.
bool functionsaveoffer();
