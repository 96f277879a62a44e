#include "curvefit/fitfunction.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "curvefit/curvevalue.h"
#include "curvefit/fitsolve.h"
#include "expression/program.h"

namespace {

SetCurve curveof(int code, std::vector<double> coefficients, double low = 1, double high = 10) {
    SetCurve curve;
    curve.fitmodel = static_cast<float>(code);
    curve.coefficients = std::move(coefficients);
    curve.dataLow = low;
    curve.dataHigh = high;
    fitfunction(curve);
    return curve;
}

/// The function of the curve at x.
double traced(const SetCurve& curve, double x) {
    const FunctionProgram program = functionprogram(curve.code, curve.literals, 0);
    EXPECT_EQ(program.fault, FunctionFault::none) << curve.code;
    FunctionRow row;
    row.x = x;
    const FunctionValue value = functionrow(program, row, {});
    EXPECT_EQ(value.fault, 0) << curve.code;
    return value.value;
}

void expectsame(const SetCurve& curve, double low, double high, double size) {
    constexpr int steps = 400;
    for (int i = 0; i <= steps; ++i) {
        const double x = low + (high - low) * i / steps;
        EXPECT_NEAR(traced(curve, x), fitusex2y(curve, x), 1e-7 * size) << curve.code << " at " << x;
    }
}

} // namespace

TEST(FitFunction, WritesTheTokensOfEachModel) {
    EXPECT_EQ(curveof(linearFit, {1.5, -2}).code, "0011001301");
    EXPECT_EQ(curveof(linearFit, {1.5, -2}).literals, (std::vector<double>{1.5, -2}));
    EXPECT_EQ(curveof(exponentialFit, {2, .5}).code, "44001100130189");
    EXPECT_EQ(curveof(exponentialFit, {2, .5}).literals, (std::vector<double>{std::log(2.0), .5}));
    EXPECT_EQ(curveof(powerFit, {2, .5}).code, "440011001346018989");
    EXPECT_EQ(curveof(arrheniusXFit, {2, .5}).code, "440011001300140189");
    EXPECT_EQ(curveof(arrheniusXFit, {2, .5}).literals, (std::vector<double>{std::log(2.0), .5, 1}));
    EXPECT_EQ(curveof(arrheniusYFit, {2, .5}).code, "001488460189120089");
}

TEST(FitFunction, TheFirstCoefficientIsTakenAsItIsWhereItIsALogarithm) {
    SetCurve curve;
    curve.fitmodel = exponentialFit;
    curve.coefficients = {2, .5};
    curve.noLogarithm = true;
    fitfunction(curve);
    EXPECT_EQ(curve.literals[0], 2);
    EXPECT_DOUBLE_EQ(fitusex2y(curve, 0), std::exp(2));
    EXPECT_EQ(curveof(exponentialFit, {-3, .5}).literals[0], -3);
}

TEST(FitFunction, ASetWithoutACurveHasNoFunction) {
    SetCurve curve;
    curve.code = "01";
    fitfunction(curve);
    EXPECT_EQ(curve.code, "");
    EXPECT_TRUE(std::isnan(fitusex2y(curve, 1)));
}

TEST(FitFunction, PolynomialsTraceTheCurve) {
    expectsame(curveof(1, {1.5, -2}), 1, 10, 20);
    expectsame(curveof(2, {1.5, -2, .25}, -10, 10), -10, 10, 40);
    expectsame(curveof(3, {-7, 0, 1e-3, 4}, -10, 10), -10, 10, 4000);
    expectsame(curveof(9, {1, 2, 3, 4, 5, 6, 7, 8, 9, 10}, -1, 1), -1, 1, 55);
}

/// A sweep over a range about 0 rarely meets 0 itself: the powers of what it meets must not count as products
/// that are too big.
TEST(FitFunction, NearZeroAPolynomialStaysAtItsConstant) {
    for (int order = 1; order <= 9; ++order) {
        std::vector<double> coefficients(order + 1, 1e-3);
        coefficients[0] = 5;
        const SetCurve curve = curveof(order, coefficients, -10, 10);
        for (const double x : {1e-15, -1.8e-15, 1e-7, 0.0}) EXPECT_NEAR(traced(curve, x), 5, 1e-6) << order;
    }
    const SetCurve rounded = curveof(1, {5, 1e-17}, -10, 10);
    EXPECT_EQ(traced(rounded, 1e-15), 5);
}

TEST(FitFunction, LogarithmicModelsTraceTheCurve) {
    expectsame(curveof(exponentialFit, {2.5, .3}), 1, 10, 50);
    expectsame(curveof(exponentialFit, {2.5, -3}), -5, 10, 8e6);
    expectsame(curveof(powerFit, {.7, -2.5}), .1, 10, 250);
    expectsame(curveof(arrheniusXFit, {1e-9, 6000}), 300, 500, 1);
    expectsame(curveof(arrheniusYFit, {2.5, 3}), 4, 100, 7);
}

TEST(FitFunction, ARandomFitIsTracedOverItsData) {
    std::mt19937 random(5);
    std::uniform_real_distribution<double> value(.5, 20), weight(1, 4);
    for (int trial = 0; trial < 200; ++trial) {
        const int code = trial % 13 + 1;
        std::vector<FitRow> rows;
        for (int i = 0; i < 25; ++i) rows.push_back({value(random), value(random), weight(random)});
        const FitSolution fit = fitsolve(rows, *modelofcode(code));
        ASSERT_EQ(fit.state, FitState::solved);
        auto coefficients = fit.coefficients;
        if (code >= exponentialFit) coefficients[0] = std::exp(coefficients[0]);
        const SetCurve curve = curveof(code, coefficients, fit.low, fit.high);
        for (const FitRow& row : rows) {
            const double expected = fitusex2y(curve, row.x);
            EXPECT_NEAR(traced(curve, row.x), expected, 1e-7 * (std::fabs(expected) + 1)) << code;
        }
    }
}

// ---- values ----

TEST(CurveValue, APolynomialIsSummedFromTheConstantUp) {
    EXPECT_EQ(polynomialvalue(std::vector<double>{1, 2, 3}, 2), 17);
    EXPECT_EQ(polynomialvalue(std::vector<double>{}, 2), 0);
}

TEST(CurveValue, ATermOfE600EndsTheSum) {
    EXPECT_EQ(polynomialvalue(std::vector<double>{1, 2, 3, 4}, 1e100), 1 + 2e100 + 3e200); // 4e300 is dropped
    EXPECT_EQ(polynomialvalue(std::vector<double>{1, 0, 0, 1e300}, 1e300), 1);
    EXPECT_TRUE(std::isfinite(polynomialvalue(std::vector<double>(10, 1e200), 1e200)));
}

TEST(CurveValue, ModelThirteenGivesTheYOfAnX) {
    const SetCurve curve = curveof(arrheniusYFit, {2, std::log(3.0)});
    for (const double y : {.25, 1.0, 7.0, -2.0})
        EXPECT_NEAR(fitusex2y(curve, 2 * std::pow(3.0, 1 / y)), y, 1e-12 * std::fabs(y));
    EXPECT_TRUE(std::isnan(fitusex2y(curve, 2))); // x = a lies at y without end
    EXPECT_TRUE(std::isnan(fitusex2y(curve, 0)));
}
