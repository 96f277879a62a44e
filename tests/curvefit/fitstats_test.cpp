#include "curvefit/fitstats.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

using Rows = std::vector<FitRow>;

FitStatistics statistics(const Rows& rows, int code) {
    const CurveModel model = *modelofcode(code);
    return fitstats(rows, fitsolve(rows, model).fitted, model.parameters());
}

} // namespace

TEST(FitStats, TwoRowsAndALineHaveHalfADegreeOfFreedom) {
    const Rows rows = {{1, 2}, {3, 5}};
    const double fitted[] = {2.5, 4.75}; // residuals -0.5 and 0.25
    const FitStatistics one = fitstats(rows, fitted, 2);
    EXPECT_DOUBLE_EQ(one.sse, 0.3125);
    EXPECT_DOUBLE_EQ(one.standardError, std::sqrt(2 * 0.3125));
    EXPECT_NEAR(statistics(rows, linearFit).standardError, 0, 1e-15);
}

TEST(FitStats, ThreeRowsAndACubicHaveAThirdOfADegree) {
    const Rows rows = {{1, 2}, {2, 4}, {3, 5}};
    const double fitted[] = {2, 3, 5};
    EXPECT_DOUBLE_EQ(fitstats(rows, fitted, 4).standardError, std::sqrt(1 / (1.0 / 3)));
}

TEST(FitStats, DegreesOfFreedomFromOneOnAreTheirOwnNumber) {
    const Rows rows = {{1, 2}, {2, 4}, {3, 5}};
    const double fitted[] = {2, 3, 5};
    EXPECT_DOUBLE_EQ(fitstats(rows, fitted, 2).standardError, 1);
    const Rows weighted = {{1, 2, 2}, {2, 4, 3}, {3, 5, 1}};
    EXPECT_DOUBLE_EQ(fitstats(weighted, fitted, 2).standardError, std::sqrt(3.0 / 4));
}

TEST(FitStats, EqualOrdinatesHaveNoCorrelationAndNoError) {
    for (const double y : {0.0, 7.0, 1234567.125, -0.1}) {
        const FitStatistics one = statistics({{1, y}, {2, y}, {3.7, y}, {11, y}}, linearFit);
        EXPECT_FALSE(one.hasR) << y;
        EXPECT_NEAR(one.standardError, 0, 1e-15 * std::fabs(y));
    }
}

TEST(FitStats, CorrelationIsThatOfTheDefinition) {
    // x 1 2 4 5 about 3, y 2 1 5 4 about 3: Sxx 10, Syy 10, Sxy 8.
    const FitStatistics up = statistics({{1, 2}, {2, 1}, {4, 5}, {5, 4}}, linearFit);
    EXPECT_TRUE(up.hasR);
    EXPECT_DOUBLE_EQ(up.r, 0.8);
    EXPECT_DOUBLE_EQ(statistics({{1, 4}, {2, 5}, {4, 1}, {5, 2}}, linearFit).r, -0.8);
}

TEST(FitStats, ValuesFarFromZeroKeepTheirCorrelation) {
    const double far = 1e12;
    const FitStatistics one = statistics(
        {{far + 1, far + 2}, {far + 2, far + 1}, {far + 4, far + 5}, {far + 5, far + 4}}, linearFit);
    EXPECT_NEAR(one.r, 0.8, 1e-15);
}

TEST(FitStats, ARowLeftOutOfTheFitCountsForNothing) {
    const Rows rows = {{1, 2}, {-3, 100}, {2, 4.1}, {4, 8}};
    const Rows inside = {{1, 2}, {2, 4.1}, {4, 8}};
    EXPECT_EQ(statistics(rows, powerFit).sse, statistics(inside, powerFit).sse);
    EXPECT_EQ(statistics(rows, powerFit).r, statistics(inside, powerFit).r);
    EXPECT_EQ(statistics(rows, powerFit).n, 3);
}

TEST(FitStats, WithoutARowTheErrorIsNotDefined) {
    const FitStatistics none = fitstats({}, {}, 2);
    EXPECT_EQ(none.standardError, 9e30);
    EXPECT_FALSE(none.hasR);
}

TEST(FitStats, ScalesTakeThePlaceOfTheValues) {
    const Rows rows = {{1, 10}, {2, 100}, {3, 1000}};
    const double fitted[] = {10, 1000, 1000};
    const FitStatistics one = fitstats(rows, fitted, 2, {nullptr, [](double y) { return std::log10(y); }});
    EXPECT_DOUBLE_EQ(one.sse, 1);
    EXPECT_DOUBLE_EQ(one.r, 1);
}
