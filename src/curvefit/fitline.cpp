#include "curvefit/fitline.h"

#include <cmath>

#include "curvefit/curvevalue.h"
#include "data/report.h"

namespace {

/// Beyond it e^exponent is shown by its exponent: the numbers of the report are those of the data, singles.
constexpr double plainExponent = 69;

void appendcannot(std::string& text) {
    extend(text, " ", Word::Display, " ", Word::Calculation, " ", Word::No);
}

void appendplain(std::string& text, char letter, double value) {
    extend(text, " ", letter, "=");
    if (std::isfinite(value) && value != noAnswer)
        append(text, Reported{value});
    else
        appendcannot(text);
}

/// e^exponent.
void appendexponential(std::string& text, char letter, double exponent) {
    if (std::isfinite(exponent) && std::fabs(exponent) <= plainExponent)
        return appendplain(text, letter, std::exp(exponent));
    extend(text, " ", letter, "=");
    if (!std::isfinite(exponent))
        appendcannot(text);
    else if (exponent > 0)
        extend(text, "e^", Reported{exponent});
    else
        extend(text, "1/(e^", Reported{-exponent}, ")");
}

} // namespace

void appendcoefficients(std::string& text, const SetCurve& curve) {
    const auto model = modelofcode(static_cast<int>(curve.fitmodel));
    if (!model) return;
    if (model->ispolynomial()) {
        char letter = 'a';
        for (const double coefficient : curve.coefficients) appendplain(text, letter++, coefficient);
        return;
    }
    const auto line = straightline(curve);
    if (line.size() != 2) return;
    appendexponential(text, 'a', line[0]);
    if (model->code == powerFit)
        appendplain(text, 'b', line[1]);
    else
        appendexponential(text, 'b', line[1]);
}

std::string fitline(const SetCurve& curve, int k) {
    std::string text;
    const auto model = modelofcode(static_cast<int>(curve.fitmodel));
    if (!model) return text;
    extend(text, Word::Set, " ", k, ": ", *model, " E [ev] = ", AsTyped{model->equation});
    appendcoefficients(text, curve);
    if (curve.hasR)
        extend(text, "; ", Word::Linear, " ", Word::Correlation, " (r) = ", Reported{curve.r},
               "; r ^ 2 = ", Reported{curve.r * curve.r});
    if (curve.standardError != 9e30)
        extend(text, "; ", Word::Standard, " ", Word::Error, " = ", Reported{curve.standardError});
    return text;
}
