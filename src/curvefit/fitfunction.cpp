#include "curvefit/fitfunction.h"

#include <algorithm>
#include <cmath>

#include "curvefit/curvevalue.h"

namespace {

// Pieces of a token string.
constexpr const char* literal = "00";
constexpr const char* plus = "11";
constexpr const char* minus = "12";
constexpr const char* timesX = "001301";
constexpr const char* xAlone = "01";
constexpr const char* power = "1900";
constexpr const char* dividedBy = "1400";
constexpr const char* exponential = "44";
constexpr const char* timesLogarithm = "00134601";
constexpr const char* timesReciprocal = "0013001401";
constexpr const char* dividedByBracket = "001488";
constexpr const char* logarithmOfX = "460189";
constexpr const char* close = "89";

class Writer {
public:
    explicit Writer(SetCurve& target) : curve(target) {
        curve.code.clear();
        curve.literals.clear();
    }
    /// Appends a piece with the numbers of its "00" tokens.
    void put(const char* piece, std::initializer_list<double> numbers = {}) {
        curve.code += piece;
        curve.literals.insert(curve.literals.end(), numbers);
    }

private:
    SetCurve& curve;
};

/// True when c*x^k keeps clear of the smallest product for every x that is not a rounded 0.
bool staysproduct(double c, int k, double reach) {
    constexpr double roundedZero = 1e-17; // of the greatest |x|
    constexpr double smallestProduct = 1e-29;
    return std::fabs(c) * std::pow(reach * roundedZero, k) > smallestProduct;
}

void putterm(Writer& writer, double c, int k, double reach) {
    const auto x = static_cast<double>(k);
    if (staysproduct(c, k, reach)) {
        writer.put(timesX, {c});
        if (k > 1) writer.put(power, {x});
        return;
    }
    writer.put(xAlone);
    if (k > 1) writer.put(power, {x});
    writer.put(dividedBy, {1 / c});
}

void putpolynomial(Writer& writer, const SetCurve& curve) {
    const double reach = std::max(std::fabs(curve.dataLow), std::fabs(curve.dataHigh));
    writer.put(literal, {curve.coefficients[0]});
    for (int k = 1; k < static_cast<int>(curve.coefficients.size()); ++k) {
        const double c = curve.coefficients[static_cast<std::size_t>(k)];
        if (c == 0 || !std::isfinite(1 / c)) continue;
        writer.put(plus);
        putterm(writer, c, k, reach);
    }
}

void putline(Writer& writer, const CurveModel& model, std::span<const double> line) {
    writer.put(exponential);
    writer.put(literal, {line[0]});
    writer.put(plus);
    if (model.across == Coordinate::logarithm) {
        writer.put(timesLogarithm, {line[1]});
        writer.put(close);
    } else if (model.across == Coordinate::reciprocal) {
        writer.put(timesReciprocal, {line[1], 1});
    } else {
        writer.put(timesX, {line[1]});
    }
    writer.put(close);
}

void putsolved(Writer& writer, std::span<const double> line) {
    writer.put(dividedByBracket, {line[1]});
    writer.put(logarithmOfX);
    writer.put(minus);
    writer.put(literal, {line[0]});
    writer.put(close);
}

} // namespace

void fitfunction(SetCurve& curve) {
    Writer writer(curve);
    const auto model = modelofcode(static_cast<int>(curve.fitmodel));
    if (!model || curve.coefficients.empty()) return;
    if (model->ispolynomial()) return putpolynomial(writer, curve);
    const std::vector<double> line = straightline(curve);
    if (line.size() != 2) return;
    if (model->swapped)
        putsolved(writer, line);
    else
        putline(writer, *model, line);
}
