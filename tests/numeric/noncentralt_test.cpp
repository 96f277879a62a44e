#include "numeric/noncentralt.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "numeric/normal.h"
#include "support/reference.h"

namespace {

TEST(NoncentralT, QuantilesGiveTheToleranceFactorsOfTheTable) {
    ErrorSummary errors;
    const ReferenceTable rows = reference("noncentralt.csv");
    for (std::size_t row = 0; row < rows.rows.size(); ++row) {
        const double k = rows.number(row, "k");
        const double found =
            tolerancefactor(rows.number(row, "n"), rows.number(row, "p"), rows.number(row, "conf"));
        // A factor near 0 is a difference: there its own size is no measure.
        errors.add(found / (1 + std::fabs(k)), k / (1 + std::fabs(k)), rows.rows[row][0]);
    }
    EXPECT_EQ(errors.count, 240u);
    errors.expectwithin(1e-11);
}

TEST(NoncentralT, ToleranceFactorsAreThosePrintedInTables) {
    // Hahn and Meeker, Statistical Intervals, table A.12, to its three decimals.
    EXPECT_NEAR(tolerancefactor(10, 0.90, 0.95), 2.355, 5e-4);
    EXPECT_NEAR(tolerancefactor(20, 0.99, 0.95), 3.295, 5e-4);
    EXPECT_NEAR(tolerancefactor(5, 0.95, 0.95), 4.203, 5e-4);
}

TEST(NoncentralT, WithOneDegreeOfFreedomAndNoCentreIsCauchys) {
    for (const double t : {-5.0, -0.3, 0.0, 1.0, 12.0})
        EXPECT_NEAR(noncentraltcdf(t, 1, 0), 0.5 + std::atan(t) / std::acos(-1.0), 2e-11) << t;
}

TEST(NoncentralT, NearsTheNormalWithManyDegreesOfFreedom) {
    EXPECT_NEAR(noncentraltcdf(3, 1e9, 2), normcdf(1), 1e-8);
}

TEST(NoncentralT, DoesNotFailAtFarCentres) {
    for (const double delta : {-300.0, -45.0, 45.0, 150.0, 300.0}) {
        const double t = noncentraltquantile(0.9, 500, delta);
        EXPECT_NEAR(noncentraltcdf(t, 500, delta), 0.9, 1e-10) << delta;
        EXPECT_NEAR(noncentraltquantile(0.1, 500, -delta), -t, 1e-8 * std::fabs(t)) << delta;
    }
}

TEST(NoncentralT, HasNoAnswerOutsideItsDomain) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double inf = std::numeric_limits<double>::infinity();
    for (const double bad : {nan, 0.0, -1.0, inf}) EXPECT_EQ(noncentraltcdf(1, bad, 0), 0);
    EXPECT_EQ(noncentraltcdf(nan, 5, 0), 0);
    EXPECT_EQ(noncentraltcdf(1, 5, inf), 0);
    EXPECT_EQ(noncentraltcdf(inf, 5, 0), 1);
    EXPECT_EQ(noncentraltcdf(-inf, 5, 0), 0);
    for (const double bad : {nan, 0.0, 1.0, -0.1, 1.1, inf}) {
        EXPECT_EQ(noncentraltquantile(bad, 5, 0), 0);
        EXPECT_EQ(tolerancefactor(10, bad, 0.9), 0);
        EXPECT_EQ(tolerancefactor(10, 0.9, bad), 0);
    }
    EXPECT_EQ(tolerancefactor(1, 0.9, 0.9), 0);
}

} // namespace
