#include "plot/transforms_fixture.h"

namespace {

class Mixture : public Transforms {
protected:
    void SetUp() override {
        Transforms::SetUp();
        ASSERT_TRUE(allocatearrays());
        mix(5, 0.3f);
    }

    /// Three components; `kind` says how many are read.
    static void mix(int kind, float portion) {
        session.mixFlag = 1;
        session.mixKind = static_cast<int16_t>(kind);
        session.mixPortions(1) = portion;
        for (int i = 1; i <= 3; ++i) {
            session.mixEtas(i) = std::array{0.f, 100.f, 1000.f, 5000.f}[static_cast<std::size_t>(i)];
            session.mixBetas(i) = std::array{0.f, 0.5f, 2.f, 6.f}[static_cast<std::size_t>(i)];
        }
    }
    static double survival(int i, double x) {
        const double eta = session.mixEtas(i);
        const double beta = session.mixBetas(i);
        return std::exp(-std::pow(x / eta, beta));
    }
};

TEST_F(Mixture, WithoutTheFlagBothDirectionsAreThoseOfTheLine) {
    session.mixFlag = 0;
    line(weibull, 100, 2);
    const double p = wide(txx2pd, 50);
    const double x = wide(txp2xd, 0.2);
    EXPECT_EQ(wide(txx2pmixd, 50), p);
    EXPECT_EQ(wide(txp2xmixd, 0.2), x);
    EXPECT_EQ(session.eta, 100);
}

TEST_F(Mixture, CompetingRisksMultiplyTheirSurvivals) {
    mix(4, 0.3f); // the portion of kind 4 is 1, whatever is stored
    for (double x : {1.0, 30.0, 400.0, 2000.0}) {
        const double R = survival(1, x) * survival(2, x);
        expectrelative(wide(txx2pmixd, x), 1 - R, 1e-13);
        expectrelative(session.udq, R, 1e-11);
    }
}

TEST_F(Mixture, PortionSharesTheFirstComponent) {
    const double w = session.mixPortions(1);
    for (double x : {1.0, 30.0, 400.0, 2000.0}) {
        const double R = w * survival(1, x) * survival(2, x) + (1 - w) * survival(2, x);
        expectrelative(wide(txx2pmixd, x), 1 - R, 1e-13);
    }
    mix(7, 0.3f);
    for (double x : {1.0, 30.0, 400.0, 2000.0, 4000.0}) {
        const double others = survival(2, x) * survival(3, x);
        const double R = w * survival(1, x) * others + (1 - w) * others;
        expectrelative(wide(txx2pmixd, x), 1 - R, 1e-13);
    }
}

TEST_F(Mixture, TailBeyondNinetyNinePercentOfTheFirstComesFromTheComplements) {
    mix(4, 1);
    session.mixEtas(1) = 100;
    session.mixBetas(1) = 1;
    session.mixEtas(2) = 200;
    session.mixBetas(2) = 1;
    wide(txx2pmixd, 2000); // exp(-20) * exp(-10): by 1 - F four digits would be gone
    expectrelative(session.udq, std::exp(-30.0), 1e-14);
}

TEST_F(Mixture, OtherKindsAreTheFirstComponentAlone) {
    for (int kind : {0, 3, 6, 9}) {
        mix(kind, 0.3f);
        expectrelative(wide(txx2pmixd, 30), 1 - survival(1, 30), 1e-14);
        EXPECT_EQ(session.eta, 100);
        EXPECT_EQ(session.beta, 0.5);
    }
}

TEST_F(Mixture, RegistersOfTheLineHoldTheLastComponentRead) {
    line(weibull, 1, 1);
    wide(txx2pmixd, 30);
    EXPECT_EQ(session.eta, 1000);
    EXPECT_EQ(session.beta, 2);
    mix(7, 0.3f);
    wide(txx2pmixd, 30);
    EXPECT_EQ(session.eta, 5000);
    EXPECT_EQ(session.beta, 6);
}

TEST_F(Mixture, EndsAreHeldInsideTheScale) {
    mix(4, 1);
    EXPECT_EQ(wide(txx2pmixd, 1e6), 0.999999999);
    EXPECT_EQ(wide(txx2pmixd, 0), 0); // below zero only is raised
    mix(5, 3);                        // a portion that is none drives F out of its range
    EXPECT_EQ(wide(txx2pmixd, 400), 0.999999999);
    mix(5, -3);
    EXPECT_EQ(wide(txx2pmixd, 30), 1e-30);
}

TEST_F(Mixture, QuantileFindsItsProbabilityAgain) {
    for (int kind : {4, 5, 7})
        for (double p : {0.001, 0.05, 0.3, 0.5, 0.9, 0.999}) {
            mix(kind, 0.3f);
            line(weibull, 100, 2);
            const double x = wide(txp2xmixd, p);
            EXPECT_NEAR(wide(txx2pmixd, x), p, 1.01e-6);
        }
}

TEST_F(Mixture, QuantileOfTheEndsIsFixedByFamily) {
    for (int family = 1; family <= 4; ++family) {
        line(family, 100, 2);
        const bool positive = family <= 2;
        EXPECT_EQ(wide(txp2xmixd, 0), positive ? 1e-12 : -9e30);
        EXPECT_EQ(wide(txp2xmixd, -1), positive ? 1e-12 : -9e30);
        EXPECT_EQ(wide(txp2xmixd, 1), 9e30);
        EXPECT_EQ(wide(txp2xmixd, 2), 9e30);
        EXPECT_EQ(session.eta, 100) << "no component was read";
    }
}

TEST_F(Mixture, TargetOutOfReachStopsWithTheLastPlace) {
    mix(4, 1);
    session.mixBetas(1) = session.mixBetas(2) = 1; // two spikes: nothing lies between 0 and 1
    line(lognormal, 50, 2);
    // Every round raises the low bound, and the logarithm of the distance to the ceiling halves.
    expectrelative(wide(txp2xmixd, 0.5), 9e30, 1e-12);
    EXPECT_TRUE(faults.empty());
}

TEST_F(Mixture, QuantileStartsAboveItsLowerBound) {
    for (double eta : {-5.0, 0.0}) {
        line(weibull, eta, 2);
        EXPECT_NEAR(wide(txx2pmixd, wide(txp2xmixd, 0.3)), 0.3, 1.01e-6);
    }
}

TEST_F(Mixture, QuantileOnANormalScaleHalvesAcrossZero) {
    mix(4, 1);
    line(normal, 0, 1);
    for (int i : {1, 2}) {
        session.mixEtas(i) = -50.0f * static_cast<float>(i);
        session.mixBetas(i) = 10;
    }
    const double x = wide(txp2xmixd, 0.3);
    EXPECT_LT(x, -50);
    EXPECT_NEAR(wide(txx2pmixd, x), 0.3, 1.01e-6);
}

TEST_F(Mixture, DensityIsTheSlopeOfTheDistribution) {
    for (int kind : {4, 5, 7})
        for (double x : {5.0, 90.0, 700.0, 1500.0}) {
            mix(kind, 0.3f);
            line(weibull, 100, 2);
            const double h = x * 1e-5;
            const double above = wide(txx2pmixd, x + h);
            const double below = wide(txx2pmixd, x - h);
            session.eta = 100;
            expectrelative(wide(txx2dpmixd, x), (above - below) / (2 * h), 1e-6);
            EXPECT_EQ(session.eta, 100);
        }
}

TEST_F(Mixture, DensityIsOfTheWeibullFamilyOnly) {
    for (int family : {2, 3, 4, 0, 9}) {
        line(family, 100, 2);
        EXPECT_EQ(wide(txx2dpmixd, 50), 0);
    }
}

TEST_F(Mixture, ComponentThatIsNoneHasNeitherSurvivalNorDensity) {
    session.mixEtas(1) = 0; // R1 = 0 and f1 = 0: (1-w) of the second component is left
    line(weibull, 100, 2);
    const double t = std::pow(0.5, 2);
    const double w = session.mixPortions(1);
    expectrelative(wide(txx2dpmixd, 500), (1 - w) * 2 * t * std::exp(-t) / 500, 1e-14);
}

TEST_F(Mixture, DensityAtZeroIsFiniteForSlopesFromOne) {
    mix(4, 1);
    session.mixEtas(1) = 10;
    session.mixBetas(1) = 1;
    EXPECT_DOUBLE_EQ(wide(txx2dpmixd, 0), 0.1);
    EXPECT_TRUE(faults.empty());
}

TEST_F(Mixture, ArraysThatDoNotReachTheComponentAreAnIndexFault) {
    mix(7, 0.3f);
    session.mixEtas.size(2);
    session.ud = 30;
    txx2pmixd();
    EXPECT_EQ(session.msg, "txx2pmixd");
    EXPECT_EQ(session.ud, 30);
    txp2xmixd();
    EXPECT_EQ(session.ud, 9e30) << "beyond the ends no component is read";
    session.ud = 0.5;
    txp2xmixd();
    EXPECT_EQ(session.msg, "txp2xmixd");
    EXPECT_EQ(session.ud, 0.5);
    EXPECT_EQ(faults, (std::vector{9, 9}));
}

} // namespace
