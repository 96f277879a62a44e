#include "plot/transforms_fixture.h"

namespace {

using Density = Transforms;

TEST_F(Density, WeibullOutsideItsDomainIsZero) {
    for (auto [eta, beta, x] :
         {std::array{100.0, 2.0, 0.0}, {100, 2, -1}, {0, 2, 5}, {-1, 2, 5}, {100, 0, 5}}) {
        line(weibull, eta, beta);
        EXPECT_EQ(single(txx2dp, static_cast<float>(x)), 0);
        EXPECT_EQ(wide(txx2dpd, x), 0);
    }
}

TEST_F(Density, LognormalAndNormalOutsideTheirDomainAreZero) {
    for (auto [eta, beta, x] : {std::array{100.0, 2.0, 0.0}, {0, 2, 5}, {100, 1, 5}, {100, 0.5, 5}}) {
        line(lognormal, eta, beta);
        EXPECT_EQ(single(txx2dp, static_cast<float>(x)), 0);
        EXPECT_EQ(wide(txx2dpd, x), 0);
    }
    line(normal, 100, 0);
    EXPECT_EQ(single(txx2dp, 5), 0);
    EXPECT_EQ(wide(txx2dpd, 5), 0);
}

TEST_F(Density, GumbelWithoutASlopeOrATypeLeavesTheRegister) {
    for (auto [beta, extreme] : {std::pair{0.0, -1}, {-1.0, 1}, {2.0, 0}}) {
        line(gumbel, 20, beta, extreme);
        EXPECT_EQ(single(txx2dp, -1e38f), -1e38f);
        EXPECT_EQ(wide(txx2dpd, 5), 5);
        EXPECT_EQ(single(txx2dpprg, 5), 5);
    }
}

TEST_F(Density, SingleWeibullIsZeroOnceItsProbabilityIsOne) {
    line(weibull, 1, 1);
    EXPECT_GT(single(txx2dp, 16), 0);
    EXPECT_EQ(single(txx2dp, 18), 0); // 1 - exp(-18) rounds to 1 in single precision
}

TEST_F(Density, WideWeibullBeyondItsScaleKeepsTheSurvivalThatTheDistributionLeaves) {
    line(weibull, 1, 1);
    expectrelative(wide(txx2dpd, 30), 9.3576229688401746e-14, 1e-13);
    expectrelative(wide(txx2dpd, 50), 1 - 0.999999999999, 1e-14);
}

TEST_F(Density, GumbelFarOutIsASmallNumberByDistance) {
    for (int extreme : {-1, 1})
        for (double w : {-1000.0, -80.0, 80.0, 1000.0}) {
            line(gumbel, 0, 1, extreme);
            expectrelative(single(txx2dp, static_cast<float>(w)), 9e-30 / std::fabs(w), 1e-6);
        }
    line(gumbel, 0, 1, -1);
    expectrelative(wide(txx2dpd, 700), 9e-300 / 700, 1e-15);
    expectrelative(wide(txx2dpd, -700), 9e-300 / 700, 1e-15);
}

TEST_F(Density, GumbelBehindItsSteepSideIsSmallByTheExponent) {
    line(gumbel, 0, 1, -1);
    const double v = std::exp(5.0) - 5; // above 80
    expectrelative(single(txx2dp, 5), 9e-30 / v, 1e-6);
    line(gumbel, 0, 1, 1);
    expectrelative(single(txx2dp, -5), 9e-30 * v, 1e-6);
    const double wideV = std::exp(7.0) - 7; // above 700
    expectrelative(wide(txx2dpd, -7), 9e-300 * wideV, 1e-14);
    line(gumbel, 0, 1, -1);
    expectrelative(wide(txx2dpd, 7), 9e-300 / wideV, 1e-14);
}

TEST_F(Density, StandardDensityHasItsOwnDivisor) {
    EXPECT_FLOAT_EQ(single(txz2dphi, 0), static_cast<float>(1 / 2.50662827462709));
    EXPECT_DOUBLE_EQ(wide(txz2dphid, 0), 1 / 2.50662827462709);
    expectrelative(wide(txz2dphid, -3), std::exp(-4.5) / 2.50662827462709, 1e-15);
    EXPECT_EQ(wide(txz2dphid, 50), 0);
    EXPECT_EQ(single(txz2dphi, 1e30f), 0);
}

TEST_F(Density, FitterFormHasNoSaturation) {
    line(weibull, 1, 1);
    expectrelative(single(txx2dpprg, 18), std::exp(-18.0), 1e-6);
    line(gumbel, 0, 1, -1);
    expectrelative(single(txx2dpprg, 4.3f),
                   std::exp(static_cast<double>(4.3f) - std::exp(static_cast<double>(4.3f))), 1e-6);
    EXPECT_EQ(single(txx2dpprg, 6),
              9e-30f); // exp(6 - exp(6)) is 1e-173: the narrowing puts its own tiny value
}

TEST_F(Density, FitterFormWithoutASlopeIsZeroOnTheFamiliesThatSayZero) {
    for (int family : {1, 2, 3}) {
        line(family, 100, 0);
        EXPECT_EQ(single(txx2dpprg, 5), 0);
    }
}

TEST_F(Density, IntegratesToOne) {
    for (auto [family, eta, beta, extreme, low, high] : {std::tuple{1, 100.0, 2.0, 0, 0.0, 800.0},
                                                         {2, 50.0, 1.8, 0, 0.0, 5000.0},
                                                         {3, 100.0, 15.0, 0, -50.0, 250.0},
                                                         {4, 20.0, 3.0, -1, -90.0, 40.0},
                                                         {4, 20.0, 3.0, 1, 0.0, 130.0}}) {
        line(family, eta, beta, extreme);
        const int steps = 40000; // the midpoint rule is then within 4e-9
        double sum = 0;
        for (int i = 0; i < steps; ++i) sum += wide(txx2dpd, low + (high - low) * (i + 0.5) / steps);
        EXPECT_NEAR(sum * (high - low) / steps, 1, 1e-8) << "family " << family << " " << extreme;
    }
}

using Standard = Transforms;

TEST_F(Standard, ValueStaysWhereThereIsNone) {
    for (int family = 1; family <= 4; ++family) {
        line(family, 100, 0);
        EXPECT_EQ(wide(txx2zd, 5), 5);
    }
    for (int family : {1, 2}) {
        line(family, 100, 2);
        EXPECT_EQ(wide(txx2zd, 0), 0);
        EXPECT_EQ(wide(txx2zd, -5), -5);
        line(family, 0, 2);
        EXPECT_EQ(wide(txx2zd, 5), 5);
    }
    line(9, 100, 2);
    EXPECT_EQ(wide(txx2zd, 5), 5);
}

TEST_F(Standard, GumbelNeedsNoType) {
    line(gumbel, 20, 4, 0);
    EXPECT_EQ(wide(txx2zd, 30), 2.5);
}

} // namespace
