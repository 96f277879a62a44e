#include "numeric/normal.h"

#include <cmath>
#include <limits>

#include <gtest/gtest.h>

#include "numeric/matherror.h"
#include "support/reference.h"
#include "support/told.h"

TEST(NormalDistribution, LowerTailAgreesWithTheReferenceToTheFormsOwnError) {
    const ReferenceTable table = reference("normal_cdf.csv");
    ErrorSummary errors;
    for (std::size_t i = 0; i < table.rows.size(); ++i)
        if (table.number(i, "x") >= -37.5)
            errors.add(normcdf(table.number(i, "x")), table.number(i, "cdf"), table.text(i, "x"));
    errors.expectwithin(5.1e-11);
}

TEST(NormalDistribution, UpperTailKeepsRelativePrecision) {
    const ReferenceTable table = reference("normal_cdf.csv");
    ErrorSummary errors;
    for (std::size_t i = 0; i < table.rows.size(); ++i)
        errors.add(normsf(table.number(i, "x")), table.number(i, "sf"), table.text(i, "x"));
    errors.expectwithin(5.1e-11);
}

TEST(NormalDistribution, BranchesMatchToSevenPlacesAtTheirBorders) {
    // Phi(5.03), Phi(5.04) and the ratio of their tails, by mpmath at 60 digits.
    EXPECT_NEAR(normcdf(5.03), 0.99999975476008193, 1e-14);
    EXPECT_NEAR(normcdf(5.04), 0.99999976723407695, 1e-14);
    EXPECT_NEAR(normsf(5.04) / normsf(5.03), 0.94913554402083401, 1e-10);
    const double behind = std::nextafter(5.03, 6);
    EXPECT_NEAR(normsf(behind) / normsf(5.03), 1, 2e-10);
    EXPECT_NEAR(normsf(std::nextafter(8.0, 9)) / normsf(8), 1, 2e-11);
}

TEST(NormalDistribution, EndsAreConstant) {
    EXPECT_EQ(normcdf(10.001), 1);
    EXPECT_EQ(normcdf(1e300), 1);
    EXPECT_EQ(normcdf(std::numeric_limits<double>::infinity()), 1);
    EXPECT_GT(normcdf(-37.5), 0);
    EXPECT_EQ(normcdf(-37.51), 0);
    EXPECT_EQ(normcdf(-std::numeric_limits<double>::infinity()), 0);
}

TEST(NormalDistribution, NeverFalls) {
    double last = 0;
    for (double x = -38; x <= 11; x += 0.0137) {
        const double now = normcdf(x);
        EXPECT_GE(now, last) << x;
        last = now;
    }
}

TEST(NormalDistribution, BothTailsMakeOne) {
    for (double x = -12; x <= 12; x += 0.17) EXPECT_NEAR(normcdf(x) + normsf(x), 1, 3e-16) << x;
}

TEST(NormalDensity, AgreesToTheDigitsOfItsDivisor) {
    // exp(-z^2/2)/sqrt(2 pi) by mpmath at 60 digits.
    EXPECT_NEAR(normpdf(0) / 0.39894228040143268, 1, 2e-12);
    EXPECT_NEAR(normpdf(1) / 0.24197072451914335, 1, 2e-12);
    EXPECT_NEAR(normpdf(-2.5) / 0.017528300493568537, 1, 2e-12);
    EXPECT_NEAR(normpdf(6) / 6.0758828498232855e-9, 1, 2e-12);
}

TEST(NormalInverse, AgreesWithTheReference) {
    const ReferenceTable table = reference("normal_inverse.csv");
    ErrorSummary errors;
    for (std::size_t i = 0; i < table.rows.size(); ++i)
        errors.add(fd_NormZ(table.number(i, "p")), table.number(i, "z"), table.text(i, "p"));
    errors.expectwithin(1e-15);
}

TEST(NormalInverse, UndoesTheDistribution) {
    ErrorSummary errors;
    for (double z = -37; z < 0; z += 0.0713) errors.add(normquantile(normcdf(z)), z, std::to_string(z));
    errors.expectwithin(3e-11); // the distribution's error, seen through a slope that flattens it
}

TEST(NormalInverse, IsContinuousWhereItsBranchesMeet) {
    for (const double border : {0.075, 1e-11, 0.925, 0.99999999999}) {
        const double behind = std::nextafter(border, 1);
        // The neighbours differ by dz = dp / density, and by z dz^2 / 2 for the bend.
        const double z = normquantile(border);
        const double step = (behind - border) / normpdf(z);
        EXPECT_NEAR(normquantile(behind) - z, step + z * step * step / 2, 4e-15) << border;
    }
}

TEST(NormalInverse, EndsGiveTheMessageAndZero) {
    for (const double p : {0.0, 1.0}) {
        const Told told;
        errCode = 0;
        EXPECT_EQ(fd_NormZ(p), 0);
        EXPECT_EQ(errCode, 1001);
        ASSERT_EQ(Told::texts().size(), 1u);
        EXPECT_EQ(Told::texts()[0], std::string("Invalid input\nNormal Inverse (Zscore) Routine: \nCDF= ")
                                        + (p == 0 ? "0" : "1")
                                        + "\nCDF range: 0 < CDF <  1\nfd_NormZ routine:");
    }
}

TEST(NormalInverse, SilentFormTellsNothing) {
    const Told told;
    EXPECT_EQ(normquantile(0), 0);
    EXPECT_EQ(normquantile(1), 0);
    EXPECT_TRUE(Told::texts().empty());
}
