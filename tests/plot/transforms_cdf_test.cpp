#include "plot/transforms_fixture.h"

namespace {

constexpr double topP = 0.999999999999;

class Distribution : public Transforms {
protected:
    static void expectpair(double x, double p, double q) {
        session.ud = x;
        session.udq = -1;
        txx2pd();
        EXPECT_EQ(session.ud, p) << "at x = " << x;
        EXPECT_EQ(session.udq, q) << "at x = " << x;
    }
    static void expectlow(double x) { expectpair(x, 1e-300, topP); }
    static void expecthigh(double x) { expectpair(x, topP, 1e-300); }
};

TEST_F(Distribution, FarAboveAWeibullLineSingleIsExactlyOneAndWideIsHeldBelow) {
    EXPECT_EQ(single(txx2p, 1e30f), 1);
    expecthigh(1e30);
    expecthigh(1e200);
}

TEST_F(Distribution, FarBelowALineSingleIsAMillionMillionthAndWideIsTheLowPair) {
    EXPECT_EQ(single(txx2p, 1e-30f), 1e-12f);
    expectlow(1e-300);
    line(normal, 0, 1);
    EXPECT_EQ(single(txx2p, -1e30f), 1e-12f);
    expectlow(-100);
    expecthigh(100);
}

TEST_F(Distribution, PowerOfASingleWeibullIsSaturatedAtSeventyEight) {
    line(weibull, 1, 1);
    EXPECT_EQ(single(txx2p, 78), 1);
    line(weibull, 1, 26); // w = 26 ln x: -78.08 is saturated, -77.7 not
    EXPECT_EQ(single(txx2p, static_cast<float>(std::exp(-3.003))), 1e-12f);
    line(normal, 0, 1);
    EXPECT_GT(single(txx2p, -9), 0);
    EXPECT_LT(single(txx2p, -9), 1e-18f); // a positive result is not raised
}

TEST_F(Distribution, ComplementThatRoundsToOneLeavesNoProbability) {
    line(weibull, 1, 1);
    expectlow(1e-17);
    session.ud = 1e-15;
    txx2pd();
    expectrelative(session.ud, 1e-15, 1e-14);
}

TEST_F(Distribution, SmallProbabilitiesKeepTheirDigits) {
    line(weibull, 1, 1);
    expectrelative(wide(txx2pd, 3e-14), 3e-14 - 4.5e-28, 4e-15);
    EXPECT_EQ(session.udq, std::exp(-3e-14));
    line(gumbel, 0, 1, 1);
    wide(txx2pd, 30);
    expectrelative(session.udq, 9.3576229688397e-14, 1e-13); // -expm1(-exp(-30))
}

TEST_F(Distribution, LineWithoutASlopePassesXThroughTheLimits) {
    for (int family = 1; family <= 4; ++family)
        for (double beta : {0.0, -2.0}) {
            line(family, 100, beta);
            EXPECT_EQ(single(txx2p, -5), 1e-12f);
            EXPECT_EQ(single(txx2p, 0), 1e-12f);
            EXPECT_EQ(single(txx2p, 0.25f), 0.25f);
            EXPECT_EQ(single(txx2p, 1e-36f), 1e-36f);
            EXPECT_EQ(single(txx2p, 1), 1);
            EXPECT_EQ(single(txx2p, 50), 1);
            EXPECT_EQ(single(txx2p, -1e38f), 1e-12f);
            expectlow(-5);
            expectpair(0.25, 0.25, 0.75);
            expecthigh(50);
        }
}

TEST_F(Distribution, LogarithmicFamiliesNeedPositiveEtaAndX) {
    for (int family : {1, 2}) {
        line(family, 0, 2);
        EXPECT_EQ(single(txx2p, 0.25f), 0.25f);
        expectpair(0.25, 0.25, 0.75);
        line(family, 100, 2);
        EXPECT_EQ(single(txx2p, -0.25f), 1e-12f);
        expectlow(0);
    }
}

TEST_F(Distribution, LognormalWithoutSpreadIsUntouchedInSingleAndASpikeInWide) {
    for (double beta : {1.0, 0.5}) {
        line(lognormal, 0.5, beta);
        EXPECT_EQ(single(txx2p, 0.25f), 0.25f);
        expecthigh(0.5);
        expectlow(0.25);
        expectlow(0.75);
        expectlow(1e9);
    }
}

TEST_F(Distribution, GumbelSaturatesByTheSideOfItsType) {
    line(gumbel, 0, 1, -1);
    EXPECT_EQ(single(txx2p, 700), 1);
    EXPECT_EQ(single(txx2p, -700), 1e-12f);
    EXPECT_EQ(single(txx2p, 6.6f), 1); // exp(6.6) is above 700
    expecthigh(700);
    expectlow(-700);
    expecthigh(6.6);
    line(gumbel, 0, 1, 1);
    EXPECT_EQ(single(txx2p, 700), 1);
    EXPECT_EQ(single(txx2p, -700), 1e-12f);
    EXPECT_EQ(single(txx2p, -6.6f), 1e-12f);
    expecthigh(700);
    expectlow(-700);
    expectlow(-6.6);
}

TEST_F(Distribution, GumbelWithoutATypeAndUnknownFamiliesPassXThroughTheLimits) {
    for (const auto& [family, extreme] : {std::pair{4, 0}, {4, 3}, {0, -1}, {9, 1}}) {
        line(family, 20, 3, extreme);
        EXPECT_EQ(single(txx2p, 0.25f), 0.25f);
        expectpair(0.25, 0.25, 0.75);
        EXPECT_EQ(single(txx2pprg, 0.25f), 0.25f);
        EXPECT_EQ(single(txx2pprg, 25), 25);
    }
}

TEST_F(Distribution, LimitsOfTheWidePairAreOneSidedAtTheTop) {
    line(weibull, 1, 1);
    session.ud = 30; // 1 - exp(-30) is above the top value, and stays
    txx2pd();
    EXPECT_GT(session.ud, topP);
    expectrelative(session.udq, 9.3576229688401746e-14, 1e-14);
    expecthigh(40);
}

TEST_F(Distribution, FitterFormSeesValuesThatThePlainFormSaturates) {
    line(weibull, 1, 26); // exp(-78.08) is exp(-78) below the test, and still no probability
    EXPECT_EQ(single(txx2pprg, 0.04966f), 1e-12f);
    line(weibull, 1, 1);
    EXPECT_EQ(single(txx2pprg, 100), 1);
    expectrelative(single(txx2pprg, 0.5f), 0.39346934028736658, 1e-7);
    line(lognormal, 1, 0.5); // no test on the spread: the line runs the other way
    expectrelative(single(txx2pprg, 2), 0.15865525393145707, 1e-7);
}

TEST_F(Distribution, FitterFormHasOnlyTheLowerLimit) {
    line(weibull, 100, 0);
    EXPECT_EQ(single(txx2pprg, 5), 5);
    EXPECT_EQ(single(txx2pprg, -5), 1e-12f);
    line(weibull, 100, 2);
    EXPECT_EQ(single(txx2pprg, 0), 1e-12f);
    EXPECT_TRUE(faults.empty());
}

} // namespace
