#include "numeric/chisquare.h"

#include <cmath>
#include <limits>
#include <numbers>
#include <string>

#include <gtest/gtest.h>

#include "numeric/matherror.h"
#include "support/reference.h"
#include "support/told.h"

namespace {

std::string place(const ReferenceTable& table, std::size_t row, std::string_view column) {
    return std::string(table.text(row, "dof")) + ", " + std::string(table.text(row, column));
}

} // namespace

TEST(ChiSquare, ExactTailsAgreeWithTheReference) {
    const ReferenceTable table = reference("chi2_cdf.csv");
    ErrorSummary near;
    ErrorSummary far;
    const auto compare = [&](double actual, double expected, const std::string& at) {
        // A result among the subnormal doubles has only their spacing, 5e-324, to be right to.
        if (expected < std::numeric_limits<double>::min())
            EXPECT_NEAR(actual, expected, 1e-322) << at;
        else
            (expected > 1e-30 ? near : far).add(actual, expected, at);
    };
    for (std::size_t i = 0; i < table.rows.size(); ++i) {
        const double dof = table.number(i, "dof");
        const double x = table.number(i, "x");
        if (x >= 1000) continue;
        compare(chi2cdf(x, dof), table.number(i, "cdf"), "cdf " + place(table, i, "x"));
        compare(chi2sf(x, dof), table.number(i, "sf"), "sf " + place(table, i, "x"));
    }
    near.expectwithin(4e-14);  // the exponent is a difference of terms up to 200, each right to 1.4e-14
    far.expectwithin(1.6e-13); // exp(-709): one last place of the exponent
}

TEST(ChiSquare, QuantileAgreesWithTheReference) {
    const ReferenceTable table = reference("chi2_quantile.csv");
    ErrorSummary errors;
    for (std::size_t i = 0; i < table.rows.size(); ++i)
        if (table.number(i, "dof") < 318)
            errors.add(chi2inv(table.number(i, "p"), table.number(i, "dof")), table.number(i, "x"),
                       place(table, i, "p"));
    errors.expectwithin(1.5e-15);
}

TEST(ChiSquare, QuantileOfManyDegreesIsTheCubeRootFormWithItsOwnError) {
    const ReferenceTable table = reference("chi2_quantile.csv");
    ErrorSummary errors;
    for (std::size_t i = 0; i < table.rows.size(); ++i)
        if (table.number(i, "dof") >= 318)
            errors.add(chi2inv(table.number(i, "p"), table.number(i, "dof")), table.number(i, "x"),
                       place(table, i, "p"));
    errors.expectwithin(1.2e-4);
}

TEST(ChiSquare, QuantileUndoesTheDistribution) {
    ErrorSummary errors;
    for (const double dof : {1.0, 1.5, 2.0, 7.0, 33.3, 120.0, 317.0})
        for (const double p : {1e-5, 0.003, 0.2, 0.5, 0.77, 0.9999, 1 - 1e-12})
            errors.add(chi2sf(chi2inv(p, dof), dof), 1 - p, std::to_string(dof) + ", " + std::to_string(p));
    errors.expectwithin(5e-14);
}

TEST(ChiSquare, TinyProbabilityFollowsTheLeadingTerm) {
    // One degree: P = erf(sqrt(x/2)), so x = pi p^2 / 2 (1 + O(p^2)) for small p.
    EXPECT_NEAR(chi2inv(1e-20, 1) / (std::numbers::pi / 2 * 1e-40), 1, 1e-14);
    EXPECT_EQ(chi2inv(1e-200, 1), 1e-300);
}

TEST(ChiSquare, ArgumentNotAboveZeroHasNoProbability) {
    for (const double x : {0.0, -1.0, -std::numeric_limits<double>::infinity()}) {
        EXPECT_EQ(chi2cdf(x, 4), 0);
        EXPECT_EQ(chi2sf(x, 4), 1);
    }
}

TEST(ChiSquareShortForm, TableAgreesWithTheReferenceAtItsPoints) {
    // The table's ten digits and its single-precision probabilities leave 1e-7.
    const ReferenceTable table = reference("chi2_quantile.csv");
    ErrorSummary errors;
    for (std::size_t i = 0; i < table.rows.size(); ++i) {
        const double dof = table.number(i, "dof");
        if (dof > 10 && dof != 20) continue;
        errors.add(chi2cdf(table.number(i, "x"), dof, false), table.number(i, "p"), place(table, i, "p"));
    }
    EXPECT_EQ(errors.count, 8u * 15);
    errors.expectwithin(1e-7);
}

TEST(ChiSquareShortForm, TableAgreesWithTheExactQuantileInEveryRow) {
    ErrorSummary errors;
    for (const double dof : {1., 2., 3., 4., 5., 6., 7., 8., 9., 10., 12., 14., 16., 18., 20.})
        for (const double p : {0.001, 0.005, 0.01, 0.025, 0.05, 0.1, 0.25, 0.4, 0.5, 0.6, 0.75, 0.9, 0.95,
                               0.975, 0.99, 0.995, 0.999})
            errors.add(chi2cdf(chi2inv(p, dof), dof, false), p,
                       std::to_string(dof) + ", " + std::to_string(p));
    errors.expectwithin(1e-7);
}

TEST(ChiSquareShortForm, OddDegreesAboveTenAreTheMeanOfTheirNeighbours) {
    for (const double x : {3.0, 11.0, 25.0}) {
        EXPECT_NEAR(chi2cdf(x, 11, false), (chi2cdf(x, 10, false) + chi2cdf(x, 12, false)) / 2, 1e-15);
        EXPECT_NEAR(chi2cdf(x, 19, false), (chi2cdf(x, 18, false) + chi2cdf(x, 20, false)) / 2, 1e-15);
    }
}

TEST(ChiSquareShortForm, StaysWithinItsStatedErrorOfTheExactForm) {
    for (double dof = 1; dof <= 20; dof += 1)
        for (double x = 0.05; x < 60; x *= 1.07)
            EXPECT_NEAR(chi2cdf(x, dof, false), chi2cdf(x, dof), 0.02) << dof << ' ' << x;
    for (const double dof : {20.5, 21.0, 40.0, 200.0})
        for (double x = dof / 4; x < 3 * dof; x *= 1.05)
            EXPECT_NEAR(chi2cdf(x, dof, false), chi2cdf(x, dof), 7e-4) << dof << ' ' << x;
}

TEST(ChiSquareShortForm, DegreesBelowOneCountAsOne) {
    EXPECT_EQ(chi2cdf(2, 0.5, false), chi2cdf(2, 1, false));
    EXPECT_EQ(chi2cdf(2, -3, false), chi2cdf(2, 1, false));
    EXPECT_NEAR(chi2inv(0.95, 0.5), 3.841458820694124, 1e-6);
}

TEST(ChiSquareShortForm, TakesOverFromAThousandOn) {
    const ReferenceTable table = reference("chi2_cdf.csv");
    for (std::size_t i = 0; i < table.rows.size(); ++i) {
        const double x = table.number(i, "x");
        if (x < 1000) continue;
        EXPECT_NEAR(chi2cdf(x, table.number(i, "dof")), table.number(i, "cdf"), 2e-5);
        EXPECT_NEAR(chi2sf(x, table.number(i, "dof")), table.number(i, "sf"), 2e-5);
    }
    EXPECT_EQ(chi2cdf(1000, 950), chi2cdf(1000, 950, false));
    EXPECT_EQ(chi2cdf(1000, 12), 1);
    EXPECT_EQ(chi2sf(1000, 12), 0);
    EXPECT_NEAR(chi2cdf(1000, 950), chi2cdf(std::nextafter(1000.0, 0), 950), 2e-5);
    EXPECT_EQ(chi2cdf(std::numeric_limits<double>::infinity(), 30), 1);
}

TEST(ChiSquareShortForm, InverseUndoesTheTable) {
    for (const double p : {0.0004, 0.03, 0.3, 0.5, 0.97, 0.9995})
        EXPECT_NEAR(chi2cdf(chi2inv(p, 0.5), 0.5, false), p, 1e-15) << p;
}

TEST(ChiSquare, TailsMakeOneOnEveryRoute) {
    for (const bool exact : {true, false})
        for (const double dof : {1.0, 3.7, 10.0, 13.0, 20.0, 25.0, 400.0, 1500.0})
            for (double x = 0.01; x < 5000; x *= 1.9)
                EXPECT_NEAR(chi2cdf(x, dof, exact) + chi2sf(x, dof, exact), 1, 4e-16) << dof << ' ' << x;
}

TEST(ChiSquare, BadInputIsReportedAndGivesZero) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double infinity = std::numeric_limits<double>::infinity();
    const Told told;
    errCode = 0;
    EXPECT_EQ(chi2cdf(nan, 3), 0);
    EXPECT_EQ(errCode, 1001);
    EXPECT_EQ(chi2cdf(2, 0), 0);
    EXPECT_EQ(chi2sf(2, -1), 0);
    EXPECT_EQ(chi2cdf(2, nan, false), 0);
    EXPECT_EQ(chi2inv(0, 3), 0);
    EXPECT_EQ(chi2inv(1, 3), 0);
    EXPECT_EQ(chi2inv(nan, 3), 0);
    EXPECT_EQ(chi2inv(0.5, infinity), 0);
    EXPECT_EQ(Told::texts(), std::vector<std::string>(8, "Invalid input"));
}
