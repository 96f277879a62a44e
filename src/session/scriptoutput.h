#pragma once

#include <optional>
#include <span>
#include <string>

#include "session/scriptrequest.h"

/// The outputs that a script can ask for, of the session as it has been calculated.

/// The text of one output: A report of all, D data, E equations, R results, C and F the report, Q quantity,
/// P and I the picture of the plot as SVG; MTBF, RATE, SURV, EXPR, AVAL one value, a line for each set and
/// value asked for. noAnswerText where a value does not exist. Nothing for a word that has no text.
std::optional<std::string> outputtext(const std::string& word);

/// True when the run left something to put out: a line, or on the visual side points.
bool anyresult();

/// Writes one output to its file, or to the clipboard where none is named. False, with what went wrong in
/// msg, when it cannot be.
bool scriptoutput(const ScriptCommand& command);

/// Lines "B10=" value for each level in percent, of every line of the plot.
std::string blifelines(std::span<const double> percents);
