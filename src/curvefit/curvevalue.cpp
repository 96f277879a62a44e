#include "curvefit/curvevalue.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr double none = std::numeric_limits<double>::quiet_NaN();
constexpr double mostLogarithm = 600;

} // namespace

double polynomialvalue(std::span<const double> coefficients, double x) {
    static const double most = std::exp(mostLogarithm);
    double sum = 0, power = 1;
    for (const double coefficient : coefficients) {
        const double term = coefficient * power;
        if (!(std::fabs(term) < most)) break;
        sum += term;
        power *= x;
    }
    return sum;
}

double logarithmicvalue(const CurveModel& model, std::span<const double> coefficients, double x) {
    if (coefficients.size() != 2) return none;
    if (model.swapped) {
        const double away = coordinateof(model.up, x) - coefficients[0];
        return away != 0 ? coefficients[1] / away : none;
    }
    const double exponent = coefficients[0] + coefficients[1] * coordinateof(model.across, x);
    return std::isnan(exponent) ? none : std::exp(std::clamp(exponent, -mostLogarithm, mostLogarithm));
}

std::vector<double> straightline(const SetCurve& curve) {
    std::vector<double> line = curve.coefficients;
    if (!line.empty() && !curve.noLogarithm && line[0] > 0) line[0] = std::log(line[0]);
    return line;
}

double fitusex2y(const SetCurve& curve, double x) {
    const auto model = modelofcode(static_cast<int>(curve.fitmodel));
    if (!model || curve.coefficients.empty()) return none;
    if (model->ispolynomial()) return polynomialvalue(curve.coefficients, x);
    return logarithmicvalue(*model, straightline(curve), x);
}
