#include "plot/transforms_fixture.h"

namespace {

using Axes = Transforms;

TEST_F(Axes, LogarithmicFamiliesTakeTheLogarithmOfPositiveXOnly) {
    for (int family : {1, 2}) {
        line(family, 100, 2);
        EXPECT_FLOAT_EQ(single(txx2txx, 20), static_cast<float>(std::log(20.0)));
        EXPECT_EQ(single(txx2txx, 0), 0);
        EXPECT_EQ(single(txx2txx, -3), -3);
        EXPECT_EQ(wide(txx2txxd, 20), std::log(20.0));
        EXPECT_EQ(wide(txx2txxd, -3), -3);
    }
    for (int family : {3, 4, 0, 9}) {
        line(family, 100, 2);
        EXPECT_EQ(single(txx2txx, 20), 20);
        EXPECT_EQ(wide(txx2txxd, 20), 20);
    }
}

TEST_F(Axes, AxisPairGivesTheXOfAnXYPlot) {
    for (float pair : {0.f, 1.f, 2.f, 3.f, 4.f, 5.f, 6.f, -1.f}) {
        xyplot(pair);
        const bool logarithmic = pair == 1 || pair == 3 || pair == 4;
        const double positive = logarithmic ? std::log(4.0) : pair == 5 ? -0.25 : 4;
        const double negative = pair == 5 ? 0.25 : -4;
        EXPECT_EQ(wide(txx2txxd, 4), positive) << pair;
        EXPECT_EQ(wide(txx2txxd, -4), negative) << pair;
        EXPECT_EQ(wide(txx2txxd, 0), 0) << pair;
        EXPECT_FLOAT_EQ(single(txx2txx, 4), static_cast<float>(positive)) << pair;
    }
}

TEST_F(Axes, AxisPairGivesTheYOfAnXYPlot) {
    for (float pair : {0.f, 1.f, 2.f, 3.f, 4.f, 5.f, 6.f, -1.f}) {
        xyplot(pair);
        const bool logarithmic = pair == 2 || pair == 3 || pair == 5;
        const double positive = logarithmic ? std::log(4.0) : pair == 4 ? -0.25 : 4;
        const double negative = pair == 4 ? 0.25 : -4;
        EXPECT_EQ(wide(txy2txyd, 4), positive) << pair;
        EXPECT_EQ(wide(txy2txyd, -4), negative) << pair;
        EXPECT_EQ(wide(txy2txyd, 0), 0) << pair;
        EXPECT_FLOAT_EQ(single(txy2txy, 4), static_cast<float>(positive)) << pair;
    }
}

TEST_F(Axes, AnyPlotModeButOneIsAnXYPlot) {
    line(weibull, 100, 2);
    xyplot(0);
    for (int mode : {0, 2, -1, 7}) {
        session.plotMode = static_cast<int16_t>(mode);
        EXPECT_EQ(wide(txx2txxd, 4), 4);
    }
}

TEST_F(Axes, WFormsTakeTheProbabilityBranchWhateverThePlotMode) {
    xyplot(0);
    EXPECT_EQ(wide(txx2txxdw, 20), std::log(20.0));
    EXPECT_EQ(wide(txy2txydw, 0), 30);
    EXPECT_EQ(wide(txy2txyd, 0), 0);
    expectrelative(wide(txy2txydw, 0.5), -0.36651292058166433, 1e-15);
}

TEST_F(Axes, ProbabilityWithoutAPlaceIsPlusThirtyAtBothEnds) {
    for (int family : {1, 2, 3, 4, 0, 9})
        for (double p : {0.0, -1.0, 1.0, 2.0}) {
            line(family, 100, 2);
            EXPECT_EQ(single(txy2txy, static_cast<float>(p)), 30);
            EXPECT_EQ(wide(txy2txyd, p), 30);
            EXPECT_EQ(wide(txy2txydw, p), 30);
        }
}

TEST_F(Axes, SmallProbabilitiesOfAWeibullScaleAreTheirLogarithm) {
    EXPECT_EQ(wide(txy2txyd, 1e-8), std::log(1e-8));
    EXPECT_EQ(wide(txy2txyd, 1e-200), std::log(1e-200));
    EXPECT_NE(wide(txy2txyd, 1.5e-8), std::log(1.5e-8));
    EXPECT_FLOAT_EQ(single(txy2txy, 1e-30f), static_cast<float>(std::log(static_cast<double>(1e-30f))));
}

TEST_F(Axes, SmallProbabilitiesOfASmallestExtremeScaleAreTheirLogarithm) {
    line(gumbel, 0, 1, -1);
    EXPECT_EQ(wide(txy2txyd, 9e-16), std::log(9e-16));
    EXPECT_FLOAT_EQ(single(txy2txy, 1e-30f), static_cast<float>(std::log(static_cast<double>(1e-30f))));
    EXPECT_TRUE(faults.empty());
}

TEST_F(Axes, ProbabilityStaysOnAScaleThatIsNone) {
    for (const auto& [family, extreme] : {std::pair{4, 0}, {4, 5}, {0, -1}, {9, 1}}) {
        line(family, 0, 1, extreme);
        EXPECT_EQ(single(txy2txy, 0.25f), 0.25f);
        EXPECT_EQ(wide(txy2txyd, 0.25), 0.25);
        EXPECT_EQ(single(txtxy2y, 2), 2);
        EXPECT_EQ(wide(txtxy2yd, 800), 800);
    }
}

TEST_F(Axes, ExponentialOfASinglePlotXIsHeldFromSeventyEight) {
    EXPECT_FLOAT_EQ(single(txtxx2x, 77.5f), static_cast<float>(std::exp(77.5)));
    EXPECT_FLOAT_EQ(single(txtxx2x, 78), 5.540622e34f);
    EXPECT_FLOAT_EQ(single(txtxx2x, -78), static_cast<float>(1 / 5.540622e34));
    EXPECT_GT(single(txtxx2x, 1e36f), 1e36f);
    EXPECT_EQ(single(txtxx2x, 0), 1);
}

TEST_F(Axes, ExponentialOfAWidePlotXIsHeldFromSevenHundredAndFive) {
    expectrelative(wide(txtxx2xd, 704.5), std::exp(704.5), 1e-15);
    EXPECT_DOUBLE_EQ(wide(txtxx2xd, 705), 5.540622e34 + 705);
    EXPECT_DOUBLE_EQ(wide(txtxx2xd, -705), 1 / (5.540622e34 + 705));
    EXPECT_DOUBLE_EQ(wide(txtxx2xd, 1e40), 1e40 + 5.540622e34);
}

TEST_F(Axes, PlotXOfTheOtherFamiliesIsX) {
    for (int family : {3, 4, 0, 9}) {
        line(family, 0, 1);
        EXPECT_EQ(single(txtxx2x, 100), 100);
        EXPECT_EQ(wide(txtxx2xd, 1000), 1000);
    }
}

TEST_F(Axes, AxisPairGivesTheInverseOfAnXYPlot) {
    for (float pair : {0.f, 1.f, 2.f, 3.f, 4.f, 5.f, 6.f}) {
        xyplot(pair);
        for (double v : {0.3, 4.0, 60.0}) {
            expectrelative(wide(txtxx2xd, wide(txx2txxd, v)), v, 1e-14);
            expectrelative(wide(txtxy2yd, wide(txy2txyd, v)), v, 1e-14);
            const float narrow = static_cast<float>(v);
            expectrelative(single(txtxx2x, single(txx2txx, narrow)), narrow, 1e-6);
            expectrelative(single(txtxy2y, single(txy2txy, narrow)), narrow, 1e-6);
        }
        EXPECT_EQ(wide(txtxx2xd, 0), pair == 1 || pair == 3 || pair == 4 ? 1 : 0);
        EXPECT_EQ(wide(txtxy2yd, 0), pair == 2 || pair == 3 || pair == 5 ? 1 : 0);
    }
}

TEST_F(Axes, ExponentialOfAPlotYIsHeldFromEightyInBothRanges) {
    xyplot(2);
    expectrelative(single(txtxy2y, 79.5f), std::exp(79.5), 1e-6);
    EXPECT_FLOAT_EQ(single(txtxy2y, 80), 5.540622e34f);
    expectrelative(wide(txtxy2yd, 79.99), std::exp(79.99), 1e-14);
    EXPECT_DOUBLE_EQ(wide(txtxy2yd, 80), 5.540622e34 + 80);
    EXPECT_DOUBLE_EQ(wide(txtxy2yd, -300), 1 / (5.540622e34 + 300));
}

TEST_F(Axes, WidePlotYOfAWeibullIsGuardedAtBothEnds) {
    EXPECT_EQ(wide(txtxy2yd, 700), 1);
    EXPECT_EQ(wide(txtxy2yd, 1e9), 1);
    EXPECT_EQ(wide(txtxy2yd, -700), 0);
    EXPECT_EQ(wide(txtxy2yd, -40), std::exp(-40.0));
    EXPECT_EQ(wide(txtxy2yd, -600), std::exp(-600.0));
    EXPECT_TRUE(faults.empty());
}

TEST_F(Axes, WidePlotYOfAGumbelIsOneFromSevenHundred) {
    for (int extreme : {-1, 1}) {
        line(gumbel, 0, 1, extreme);
        EXPECT_EQ(wide(txtxy2yd, 700), 1);
        EXPECT_EQ(wide(txtxy2yd, 1e300), 1);
    }
    EXPECT_TRUE(faults.empty());
}

TEST_F(Axes, SinglePlotYGivesTheProbabilityOfEachScale) {
    expectrelative(single(txtxy2y, 0), 0.63212055882855768, 1e-7);
    line(lognormal, 1, 2);
    expectrelative(single(txtxy2y, -1), 0.15865525393145705, 1e-7);
    line(normal, 1, 2);
    expectrelative(single(txtxy2y, 1), 0.84134474606854293, 1e-7);
    line(gumbel, 1, 2, -1);
    expectrelative(single(txtxy2y, 0), 0.63212055882855768, 1e-7);
    line(gumbel, 1, 2, 1);
    expectrelative(single(txtxy2y, 0), 0.36787944117144232, 1e-7);
}

TEST_F(Axes, KernelsAndRegisterRoutinesAgreeToTheLastBit) {
    for (int family : {1, 2, 3, 4, 0, 9})
        for (int extreme : {-1, 0, 1}) {
            line(family, 100, 2, extreme);
            const auto f = static_cast<int16_t>(family);
            const auto e = static_cast<int16_t>(extreme);
            for (double v : {-800.0, -50.0, -1.0, 0.0, 1e-16, 1e-9, 0.3, 0.999, 1.0, 7.0, 699.0, 1e300}) {
                EXPECT_EQ(wide(txx2txxdw, v), plotxofx(f, v));
                EXPECT_EQ(wide(txx2txxd, v), plotxofx(f, v));
                EXPECT_EQ(wide(txy2txydw, v), plotyofp(f, e, v));
                EXPECT_EQ(wide(txy2txyd, v), plotyofp(f, e, v));
                EXPECT_EQ(wide(txtxx2xd, v), xofplotx(f, v));
            }
        }
}

using Logarithms = Transforms;

TEST_F(Logarithms, DecimalLogarithmWithoutAValueIsNoAnswer) {
    EXPECT_EQ(wide(txz2logzd, 0), -9.123e32);
    EXPECT_EQ(wide(txz2logzd, -1), -9.123e32);
    EXPECT_DOUBLE_EQ(wide(txz2logzd, 1000), 3);
}

TEST_F(Logarithms, PowerOfTenIsHeldFromThreeHundred) {
    EXPECT_DOUBLE_EQ(wide(txlogz2zd, 2), 100);
    EXPECT_EQ(wide(txlogz2zd, 300), 9e300);
    EXPECT_EQ(wide(txlogz2zd, -300), 9e-300);
    expectrelative(wide(txlogz2zd, 299.5), 3.1622776601683793e299, 1e-13);
}

TEST_F(Logarithms, ExponentialFromEightyIsTheSentinelOfItsSign) {
    EXPECT_EQ(single(txlnz2z, -100), -9e30f);
    EXPECT_EQ(single(txlnz2z, -80), -9e30f);
    EXPECT_EQ(single(txlnz2z, 80), 9e30f);
    expectrelative(single(txlnz2z, 79), std::exp(79.0), 1e-6);
    expectrelative(single(txlnz2z, -79), std::exp(-79.0), 1e-6);
}

TEST_F(Logarithms, NaturalLogarithmWithoutAValueIsTheLowSentinel) {
    EXPECT_EQ(single(txz2lnz, 0), -9e30f);
    EXPECT_EQ(single(txz2lnz, -4), -9e30f);
    EXPECT_FLOAT_EQ(single(txz2lnz, 10), 2.3025851f);
}

TEST_F(Logarithms, FitterFormActsOnLogarithmicFamiliesAndPositiveValues) {
    for (int family : {1, 2, -1, -2}) {
        line(family, 1, 2);
        EXPECT_FLOAT_EQ(single(txz2logzprg, 1000), 3);
        EXPECT_EQ(single(txz2logzprg, 0), 0);
        EXPECT_EQ(single(txz2logzprg, -5), -5);
    }
    for (int family : {3, 4, 0, 9}) {
        line(family, 1, 2);
        EXPECT_EQ(single(txz2logzprg, 1000), 1000);
    }
}

} // namespace
