#include "plot/transforms_fixture.h"

namespace {

using Quantile = Transforms;

TEST_F(Quantile, SmallProbabilityOfAWideWeibullTakesLogP) {
    expectrelative(wide(txp2xd, 1e-12), 1e-4, 1e-13);
    expectrelative(wide(txp2xd, 1e-9), 100 * std::sqrt(1e-9), 1e-13);
}

TEST_F(Quantile, SmallProbabilityResultOutOfRangeIsAPlainOne) {
    line(weibull, 100, 0.02); // ln(100) + ln(1e-12)/0.02 is -1377
    EXPECT_EQ(wide(txp2xd, 1e-12), 1.0);
    line(weibull, 1e300, 1);
    expectrelative(wide(txp2xd, 1e-12), 1e288, 1e-12);
}

TEST_F(Quantile, SmallProbabilityWithoutAPositiveEtaIsZero) {
    for (double eta : {0.0, -5.0}) {
        line(weibull, eta, 2);
        EXPECT_EQ(wide(txp2xd, 1e-10), 0);
    }
}

TEST_F(Quantile, WideFormWithoutASlopeIsZeroWhateverTheProbability) {
    for (double beta : {0.0, -1.0})
        for (int family = 1; family <= 4; ++family)
            for (double p : {-1.0, 0.0, 0.5, 1.0, 2.0}) {
                line(family, 100, beta);
                EXPECT_EQ(wide(txp2xd, p), 0);
            }
}

TEST_F(Quantile, SingleFormWithoutASlopeIsZeroOnlyInsideTheEnds) {
    line(weibull, 100, 0);
    EXPECT_EQ(single(txp2x, 0.5f), 0);
    EXPECT_FLOAT_EQ(single(txp2x, 0), 1e-30f);
    EXPECT_FLOAT_EQ(single(txp2x, 1), 9e20f);
}

TEST_F(Quantile, ProbabilityAtOrBelowZeroIsTheLowSentinel) {
    for (int family = 1; family <= 4; ++family)
        for (float p : {0.0f, -0.0f, -3.0f}) {
            line(family, 100, 2);
            session.negativeXAllowed = 0;
            EXPECT_FLOAT_EQ(single(txp2x, p), 1e-30f);
            EXPECT_EQ(wide(txp2xd, p), 1e-30);
            session.negativeXAllowed = 1;
            EXPECT_FLOAT_EQ(single(txp2x, p), -9e30f);
            EXPECT_EQ(wide(txp2xd, p), -9e30);
        }
}

TEST_F(Quantile, ProbabilityFromOneUpwardsKeepsItsOrder) {
    for (int family = 1; family <= 4; ++family) {
        line(family, 100, 2);
        EXPECT_EQ(wide(txp2xd, 1), 1 / 9e22 + 9e20);
        EXPECT_FLOAT_EQ(single(txp2x, 1), 9e20f);
        EXPECT_GE(wide(txp2xd, 2), 9e20);
        EXPECT_EQ(wide(txp2xd, 9e43), 9e43 / 9e22 + 9e20);
        EXPECT_GT(wide(txp2xd, 1e40), wide(txp2xd, 1e30));
    }
}

TEST_F(Quantile, SingleWeibullBelowTheRoundingOfOneIsAFixedFractionOfEta) {
    EXPECT_FLOAT_EQ(single(txp2x, 2e-8f), 1e-13f);
    expectrelative(single(txp2x, 1e-7f), 100 * std::sqrt(static_cast<double>(1e-7f)), 1e-6);
}

TEST_F(Quantile, SingleExponentIsHeldAtSixtyNine) {
    line(weibull, 0.01, 0.01); // ln(-ln(0.5))/0.01 is -36.7, of 0.1 -225, of 0.9 83
    expectrelative(single(txp2x, 0.1f), 0.01 * std::exp(-69.0), 1e-6);
    expectrelative(single(txp2x, 0.9f), 0.01 * std::exp(69.0), 1e-6);
    line(lognormal, 0.01, std::exp(40.0));
    expectrelative(single(txp2x, 0.999f), 0.01 * std::exp(69.0), 1e-6);
    expectrelative(single(txp2x, 0.001f), 0.01 * std::exp(-69.0), 1e-6);
}

TEST_F(Quantile, WideExponentIsHeldAtSevenHundredAndTwo) {
    line(weibull, 1e-3, 0.001);
    expectrelative(wide(txp2xd, 0.9), 1e-3 * std::exp(702.0), 1e-12);
    expectrelative(wide(txp2xd, 0.1), 1e-3 * std::exp(-702.0), 1e-12);
    line(lognormal, 1e-3, std::exp(500.0));
    expectrelative(wide(txp2xd, 0.999), 1e-3 * std::exp(702.0), 1e-12);
    expectrelative(wide(txp2xd, 0.001), 1e-3 * std::exp(-702.0), 1e-12);
}

TEST_F(Quantile, ResultsBeyondTheScaleAreHeldWithTheirSign) {
    line(normal, 1e31, 1);
    EXPECT_FLOAT_EQ(single(txp2x, 0.5f), 9e30f);
    line(normal, -1e31, 1);
    EXPECT_FLOAT_EQ(single(txp2x, 0.5f), -9e30f);
    line(normal, 1.6e306, 1);
    EXPECT_EQ(wide(txp2xd, 0.5), 1e305);
    line(normal, -1.6e306, 1);
    EXPECT_EQ(wide(txp2xd, 0.5), -1e305);
    line(normal, 1.5e306, 1); // ln is still below 705
    EXPECT_EQ(wide(txp2xd, 0.5), 1.5e306);
}

TEST_F(Quantile, DeepTailOfTheNormalScalesIsAFixedNumberOfSpreads) {
    line(normal, 10, 2);
    EXPECT_DOUBLE_EQ(wide(txp2xd, 1e-198), 10 - 2 * 30.0);
    EXPECT_DOUBLE_EQ(wide(txp2xd, 1e-300), 10 - 2 * 30.0);
    line(lognormal, 10, 2);
    expectrelative(wide(txp2xd, 1e-198), 10 * std::pow(2, -20), 1e-14);
    EXPECT_LT(wide(txp2xd, 1.1e-198), 10 * std::pow(2, -29.9)); // the quantile itself is -29.97
}

TEST_F(Quantile, SingleGumbelHoldsProbabilityInsideItsLimits) {
    for (int extreme : {-1, 1}) {
        line(gumbel, 20, 3, extreme);
        EXPECT_EQ(single(txp2x, 0.9999999f), single(txp2x, 0.9999995f));
        EXPECT_EQ(single(txp2x, 1e-20f), single(txp2x, 1e-16f));
        EXPECT_LT(single(txp2x, 1e-15f), single(txp2x, 1e-13f));
    }
    line(gumbel, 20, 3, -1);
    expectrelative(single(txp2x, 0.9999999f), 20 + 3 * std::log(-std::log(1e-6)), 1e-6);
    expectrelative(single(txp2x, 1e-20f), 20 + 3 * std::log(1e-15), 1e-6);
}

TEST_F(Quantile, WideGumbelHoldsProbabilityForTheSmallestExtremeOnly) {
    line(gumbel, 20, 3, -1);
    expectrelative(wide(txp2xd, 1e-20), 20 + 3 * std::log(1e-15), 1e-14);
    EXPECT_EQ(wide(txp2xd, 1 - 1e-16), wide(txp2xd, 0.999999999999999));
    line(gumbel, 20, 3, 1);
    expectrelative(wide(txp2xd, 1e-20), 20 - 3 * std::log(20 * std::log(10.0)), 1e-14);
    EXPECT_GT(wide(txp2xd, 1 - 1.2e-16), wide(txp2xd, 0.999999999999999));
}

TEST_F(Quantile, GumbelWithoutATypeLeavesTheRegister) {
    for (int extreme : {0, 2, -7}) {
        line(gumbel, 20, 3, extreme);
        EXPECT_EQ(single(txp2x, 0.25f), 0.25f);
        EXPECT_EQ(wide(txp2xd, 0.25), 0.25);
    }
}

TEST_F(Quantile, UnknownFamilyGivesZeroInsideTheEnds) {
    for (int family : {0, 9}) {
        line(family, 20, 3);
        EXPECT_EQ(single(txp2x, 0.25f), 0);
        EXPECT_EQ(wide(txp2xd, 0.25), 0);
    }
}

TEST_F(Quantile, SignOfTheFamilyIsAnotherSetting) {
    line(-lognormal, 50, 1.8);
    EXPECT_DOUBLE_EQ(wide(txp2xd, 0.5), 50);
}

using Location = Transforms;

double located(double x, double p, double eta = 7) {
    session.eta = eta;
    session.ud = x;
    session.ydd = p;
    txYandXandBeta2EtaD();
    return session.eta;
}

TEST_F(Location, LineKeepsItsEtaWhereThePointOrTheSlopeIsNone) {
    for (int family = 1; family <= 4; ++family) {
        line(family, 7, 2);
        EXPECT_EQ(located(10, 0), 7);
        EXPECT_EQ(located(10, 1), 7);
        EXPECT_EQ(located(0, 0.5), 7);
        EXPECT_EQ(located(-10, 0.5), 7);
        session.beta = 0;
        EXPECT_EQ(located(10, 0.5), 7);
    }
    EXPECT_TRUE(faults.empty());
}

TEST_F(Location, NegativeXPlacesALineWhereNegativeDataAreAllowed) {
    session.negativeXAllowed = 1;
    line(normal, 0, 2);
    EXPECT_EQ(located(-10, 0.5), -10);
    line(weibull, 0, 1);
    expectrelative(located(-10, 0.5), -10 / std::log(2.0), 1e-15);
}

TEST_F(Location, RegistersOfThePointStay) {
    line(lognormal, 0, 2);
    located(30, 0.2);
    EXPECT_EQ(session.ud, 30);
    EXPECT_EQ(session.ydd, 0.2);
}

TEST_F(Location, SmallProbabilityOfAWeibullGoesByLogarithms) {
    line(weibull, 0, 2);
    expectrelative(located(1e-4, 1e-12), 100, 1e-13);
}

TEST_F(Location, OnAnXYPlotOnlyTheWFormKeepsToTheProbabilityAxis) {
    line(normal, 0, 2);
    xyplot(0); // linear: the plain form takes p itself as plot Y
    EXPECT_DOUBLE_EQ(located(10, 0.25), 10 - 0.25 * 2);
    txYandXandBeta2EtaDw();
    expectrelative(session.eta, 10 + 2 * 0.67448975019608174, 1e-14);
}

TEST_F(Location, GumbelWithoutATypeKeepsItsEta) {
    line(gumbel, 7, 2, 0);
    EXPECT_EQ(located(10, 0.5), 7);
}

using Mean = Transforms;

TEST_F(Mean, SlopeThatIsNoneGivesZero) {
    for (double beta : {0.0, -1.0}) {
        line(weibull, 7, beta);
        EXPECT_EQ(wide(txmean2etad, 10), 0);
    }
    for (double beta : {0.5, 1.0}) {
        line(lognormal, 7, beta);
        EXPECT_EQ(wide(txmean2etad, 10), 0);
    }
    line(lognormal, 7, 2);
    EXPECT_EQ(wide(txmean2etad, 0), 0);
    EXPECT_EQ(wide(txmean2etad, -1), 0);
}

TEST_F(Mean, NormalAndGumbelWithoutATypeLeaveTheMean) {
    line(normal, 7, 2);
    EXPECT_EQ(wide(txmean2etad, 10), 10);
    line(gumbel, 7, 2, 0);
    EXPECT_EQ(wide(txmean2etad, 10), 10);
}

TEST_F(Mean, ExponentialMeanIsItsEta) {
    line(weibull, 7, 1);
    expectrelative(wide(txmean2etad, 10), 10, 1e-15);
}

TEST_F(Mean, GumbelMovesByEulersConstantOfTheSession) {
    line(gumbel, 7, 2, -1);
    EXPECT_EQ(wide(txmean2etad, 10), 10 + 0.5772156649015 * 2);
    line(gumbel, 7, 2, 1);
    EXPECT_EQ(wide(txmean2etad, 10), 10 - 0.5772156649015 * 2);
}

TEST_F(Mean, LognormalSpreadTooNearToOneChangesNothing) {
    line(lognormal, 7, 1 + 4e-15);
    expectrelative(wide(txmean2etad, 10), 10, 1e-15);
}

} // namespace
