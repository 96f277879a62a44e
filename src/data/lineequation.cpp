#include "data/lineequation.h"

#include <cmath>

#include "curvefit/models.h"
#include "data/numbertext.h"
#include "data/report.h"

namespace {

void appendterm(std::string& text, double coefficient, std::size_t power) {
    if (power > 0) text += coefficient < 0 ? " - " : " + ";
    append(text, power > 0 ? std::fabs(coefficient) : coefficient);
    if (power > 0) text += " * x";
    if (power > 1) (text += " ^ ") += std::to_string(power);
}

std::string curveequation(const SetCurve& curve) {
    const auto model = modelofcode(static_cast<int>(curve.fitmodel));
    if (!model || curve.coefficients.empty()) return noAnswerText;
    std::string text = "y = ";
    if (model->ispolynomial()) {
        for (std::size_t i = 0; i < curve.coefficients.size(); ++i)
            appendterm(text, curve.coefficients[i], i);
        return text;
    }
    const double logA = curve.noLogarithm ? curve.coefficients[0] : std::log(curve.coefficients[0]);
    const double slope = curve.coefficients[1];
    if (model->swapped) return extend(text, slope, " / (ln(x) - ", logA, ")");
    const char* const across = model->across == Coordinate::logarithm    ? " * ln(x))"
                               : model->across == Coordinate::reciprocal ? " / x)"
                                                                         : " * x)";
    return extend(text, "exp(", logA, " + ", slope, across);
}

/// The value of a logarithm; not-a-number where no double holds it with all its digits.
double ofthelogarithm(double logarithm) {
    const double value = std::exp(logarithm);
    return std::isnormal(value) ? value : std::nan("");
}

} // namespace

std::vector<double> equationcoefficients(const SetCurve& curve) {
    std::vector<double> coefficients = curve.coefficients;
    const auto model = modelofcode(static_cast<int>(curve.fitmodel));
    if (!model || model->ispolynomial() || coefficients.size() != 2) return coefficients;
    if (curve.noLogarithm) coefficients[0] = ofthelogarithm(coefficients[0]);
    if (model->code != powerFit) coefficients[1] = ofthelogarithm(coefficients[1]);
    return coefficients;
}

std::string lineequation(int k) {
    if (k >= 1 && k <= setcount() && session.progSide == visualSide) return curveequation(session.curves(k));
    if (k < 1 || k > setcount() || session.progSide != lifeSide || session.setFitted(k) != 1)
        return noAnswerText;
    const int row = static_cast<int>(rowofset(static_cast<float>(k)));
    const Reported eta{session.etaFit(row, 1)}, beta{session.betaFit(row, 1)};
    const Reported t0{static_cast<double>(session.t0(k))};
    std::string x = "x", text;
    if (t0.value != 0) compose(x, "(x - ", t0, ")");
    switch (session.dist) {
    case weibull: return compose(text, "F(x) = 1 - exp(-(", AsTyped{x}, " / ", eta, ") ^ ", beta, ")");
    case lognormal: return compose(text, "F(x) = Phi(ln(", AsTyped{x}, " / ", eta, ") / ln(", beta, "))");
    case normal: return compose(text, "F(x) = Phi((", AsTyped{x}, " - ", eta, ") / ", beta, ")");
    case gumbel:
        return session.gumbeltype == 1
                   ? compose(text, "F(x) = exp(-exp(-(", AsTyped{x}, " - ", eta, ") / ", beta, "))")
                   : compose(text, "F(x) = 1 - exp(-exp((", AsTyped{x}, " - ", eta, ") / ", beta, "))");
    default: return noAnswerText;
    }
}
