#pragma once

#include <string>

#include "session/visualstate.h"

/// Appends the coefficients of a curve as the report shows them: " a=1.5 b=.25 c=2". b of a model 10 to 13 is
/// shown by its exponent where it is too large, " b=e^820", or too small, " b=1/(e^820)", to be shown
/// plainly; a likewise. Where there is no number to show the words "Display Calculation No" stand.
void appendcoefficients(std::string& text, const SetCurve& curve);

/// Report line of set k: model, equation with its coefficients, correlation, standard error. As composed:
/// wordclean makes it the text to show, as it stands in the curve of the set.
std::string fitline(const SetCurve& curve, int k);
