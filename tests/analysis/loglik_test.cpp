// The log likelihood of a trial line: its formulas, its sentinels and its slopes.

#include "analysis/loglik.h"

#include <gtest/gtest.h>

#include <numbers>

#include "analysis/biascorrection.h"
#include "analysis/order.h"
#include "numeric/c4.h"
#include "support/allocations.h"
#include "support/lifefixture.h"

namespace {

struct Family {
    Dist family;
    int16_t extreme;
    double eta, beta;
};
constexpr Family families[] = {{weibull, -1, 120, 1.7},
                               {lognormal, -1, 90, 2.2},
                               {normal, -1, 110, 60},
                               {gumbel, -1, 130, 55},
                               {gumbel, 1, 80, 45}};

class LoglikTest : public LifeTest {
protected:
    /// Reads a set as the analysis does, without a fit.
    void read(const Cells& cells) {
        gridclear();
        for (int j = 1; j <= static_cast<int>(cells.size()); ++j) gridset(1, j, cells[j - 1]);
        session.lineHide(1) = 1; // read and ordered, not fitted
        calcplot();
        session.lineHide(1) = 0;
        session.currentSet = 1;
    }
    double loglikat(double eta, double beta) {
        session.eta = eta;
        session.beta = beta;
        loglyk();
        return session.logLik;
    }
    void take(const Family& family) {
        choose(family.family, family.extreme);
        session.eta = family.eta;
        session.beta = family.beta;
    }
    static double density(double x) { return densityofx(currentline(), x); }
    static Probability probability(double x) { return probabilityofx(currentline(), x); }
};

// ---- contributions ----

TEST_F(LoglikTest, FailuresAddTheDensityAndSuspensionsTheSurvivalOfEveryFamily) {
    for (const Family& family : families) {
        take(family);
        read({"60", "150x0x3", "-100", "-200x0x2"});
        const double expected = std::log(density(60)) + 3 * std::log(density(150))
                                + std::log(probability(100).q) + 2 * std::log(probability(200).q);
        EXPECT_NEAR(loglikat(family.eta, family.beta), expected, 1e-9) << family.family;
    }
}

TEST_F(LoglikTest, DiscoveriesAndIntervalsAddTheirProbability) {
    session.inputType = intv5;
    for (const Family& family : families) {
        take(family);
        read({"60x0x2x-3.3e33", "50x0x3x150", "100", "-180"});
        const double expected = 2 * std::log(probability(60).p)
                                + 3 * std::log(probability(150).p - probability(50).p)
                                + std::log(density(100)) + std::log(probability(180).q);
        EXPECT_NEAR(loglikat(family.eta, family.beta), expected, 1e-9) << family.family;
    }
}

TEST_F(LoglikTest, AComplementIntervalAddsThatItIsOutside) {
    session.inputType = intv5;
    for (const Family& family : families) {
        take(family);
        read({"50x0x3x150", "100"});
        session.pointTypes(1, 1) = intvComplement;
        const double inside = probability(150).p - probability(50).p;
        EXPECT_NEAR(loglikat(family.eta, family.beta), 3 * std::log(1 - inside) + std::log(density(100)),
                    1e-9)
            << family.family;
    }
}

TEST_F(LoglikTest, APopulationPortionScalesWhatFailsAndAddsWhatCannot) {
    session.inputType = intv5;
    session.popPortion = 0.25f;
    for (const Family& family : families) {
        take(family);
        read({"60x0x2x-3.3e33", "50x0x3x150", "100", "-180"});
        const double expected = 2 * std::log(0.25 * probability(60).p)
                                + 3 * std::log(0.25 * (probability(150).p - probability(50).p))
                                + std::log(0.25 * density(100)) + std::log(0.25 * probability(180).q + 0.75);
        EXPECT_NEAR(loglikat(family.eta, family.beta), expected, 1e-9) << family.family;
    }
}

TEST_F(LoglikTest, ValuesCountFromTheThreshold) {
    for (const Family& family : families) {
        take(family);
        session.t0(1) = 0;
        read({"60", "150", "-100"});
        const double plain = loglikat(family.eta, family.beta);
        session.t0(1) = 1000;
        read({"1060", "1150", "-1100"});
        EXPECT_EQ(loglikat(family.eta, family.beta), plain) << family.family;
    }
}

TEST_F(LoglikTest, NegativeValuesAreValuesWhereTheyAreAllowed) {
    session.negativeXAllowed = 1;
    for (const Family& family : families) {
        if (family.family < normal) continue;
        take(family);
        read({"-60", "150"});
        EXPECT_NEAR(loglikat(family.eta, family.beta), std::log(density(-60)) + std::log(density(150)), 1e-9);
    }
}

// ---- far tails ----

TEST(LogTerm, KeepsItsDigitsInTheFarTails) {
    // ln of the normal tail, of 1 - exp(-exp(z)), and of narrow intervals: mpmath, 30 digits.
    EXPECT_RELATIVE(logabove(Shape::bell, 5), -15.0649983939887, 1e-14);
    EXPECT_RELATIVE(logabove(Shape::bell, 40), -804.608442013754, 1e-14);
    EXPECT_RELATIVE(logbelow(Shape::bell, -100), -5005.52420869420, 1e-14);
    EXPECT_EQ(logbelow(Shape::smallest, -500), -500);
    EXPECT_EQ(logabove(Shape::largest, 500), -500);
    EXPECT_EQ(logabove(Shape::smallest, 3), -std::exp(3));
}

TEST(LogTerm, IsContinuousWhereOneFormTakesOverFromAnother) {
    const double bell = std::nextafter(36.0, 0);
    EXPECT_RELATIVE(logabove(Shape::bell, bell), logabove(Shape::bell, 36), 1e-14);
    EXPECT_RELATIVE(logbelow(Shape::smallest, std::nextafter(-37.0, 0)), logbelow(Shape::smallest, -37),
                    1e-15);
    EXPECT_NEAR(logbetween(Shape::bell, -1e-12, 1), logbetween(Shape::bell, 0, 1), 1e-11);
}

TEST(LogTerm, ANarrowIntervalIsTheDensityTimesItsWidth) {
    for (const Shape shape : {Shape::smallest, Shape::largest, Shape::bell})
        for (const double z : {-6.0, -1.0, 0.3, 2.0}) {
            const double width = 0x1p-20;
            const double expected = logdensity(shape, z + width / 2) + std::log(width);
            EXPECT_NEAR(logbetween(shape, z, z + width), expected, 1e-8) << z;
        }
}

TEST(LogTerm, TheLargestIsTheMirrorOfTheSmallest) {
    for (const double z : {-50.0, -3.0, 0.0, 2.5, 6.0}) {
        EXPECT_EQ(logabove(Shape::largest, z), logbelow(Shape::smallest, -z));
        EXPECT_EQ(logdensity(Shape::largest, z), logdensity(Shape::smallest, -z));
        EXPECT_EQ(logbetween(Shape::largest, z, z + 1), logbetween(Shape::smallest, -z - 1, -z));
    }
}

TEST(LogTerm, ItsSlopesAreThoseOfItsValue) {
    const double h = 1e-5;
    for (const Shape shape : {Shape::smallest, Shape::largest, Shape::bell})
        for (const Known known : {Known::exactly, Known::above, Known::below, Known::between, Known::outside})
            for (const double portion : {1.0, 0.3})
                for (const double a : {-2.5, -0.4, 0.9}) {
                    const double b = a + 0.8;
                    const auto value = [&](double da, double db) {
                        return logterm(shape, known, a + da, b + db, portion);
                    };
                    const auto slope = [&](double da, double db) {
                        return slopesofterm(shape, known, a + da, b + db, portion);
                    };
                    const TermSlopes t = slope(0, 0);
                    EXPECT_EQ(t.value, value(0, 0));
                    EXPECT_NEAR(t.a, (value(h, 0) - value(-h, 0)) / (2 * h), 1e-8 * (1 + std::fabs(t.a)));
                    EXPECT_NEAR(t.b, (value(0, h) - value(0, -h)) / (2 * h), 1e-8 * (1 + std::fabs(t.b)));
                    EXPECT_NEAR(t.aa, (slope(h, 0).a - slope(-h, 0).a) / (2 * h),
                                1e-7 * (1 + std::fabs(t.aa)));
                    EXPECT_NEAR(t.ab, (slope(0, h).a - slope(0, -h).a) / (2 * h),
                                1e-7 * (1 + std::fabs(t.ab)));
                    EXPECT_NEAR(t.bb, (slope(0, h).b - slope(0, -h).b) / (2 * h),
                                1e-7 * (1 + std::fabs(t.bb)));
                }
}

// ---- sentinels ----

TEST_F(LoglikTest, ASlopeThatIsNoneGivesZero) {
    read({"60", "150"});
    EXPECT_EQ(loglikat(100, 0), 0);
    EXPECT_EQ(loglikat(100, -1), 0);
}

TEST_F(LoglikTest, AContributionThatIsNotPositiveIsExactlyMinusThirty) {
    session.inputType = intv5;
    read({"0x0x1x-3.3e33"}); // failed before 0: F = 0
    EXPECT_EQ(loglikat(100, 2), -30);
    read({"0x0x4x-3.3e33"});
    EXPECT_EQ(loglikat(100, 2), -120);
    EXPECT_EQ(logcontribution(standardline({normal, -1, 0, 1}), {Known::above, 1, 1e200, 0}, 1), -30);
    EXPECT_EQ(logcontribution(standardline({lognormal, -1, 10, 1}), {Known::exactly, 1, 10, 0}, 1), -30);
}

TEST_F(LoglikTest, AContributionTooSmallForANumberKeepsItsLogarithm) {
    const StandardLine line = standardline({normal, -1, 0, 1});
    const double halfLogTwoPi = std::log(2 * std::numbers::pi) / 2;
    EXPECT_RELATIVE(logcontribution(line, {Known::exactly, 1, 100, 0}, 1), -5000 - halfLogTwoPi, 1e-15);
    // ln of the normal tail above 100: mpmath, 30 digits.
    EXPECT_RELATIVE(logcontribution(line, {Known::above, 1, 100, 0}, 1), -5005.52420869420, 1e-14);
    EXPECT_RELATIVE(logcontribution(standardline({gumbel, -1, 0, 1}), {Known::exactly, 1, 10, 0}, 1),
                    10 - std::exp(10), 1e-15);
}

TEST_F(LoglikTest, ItsTrueFormIsTheSameWhereNoLimitIsReached) {
    for (const Family& family : families) {
        take(family);
        session.inputType = intv5;
        read({"60x0x2x-3.3e33", "50x0x3x150", "100", "-180"});
        EXPECT_RELATIVE(loglikat(family.eta, family.beta), trueloglik(), 1e-14) << family.family;
        session.inputType = km4;
        read({"50x0x2x3", "100x0x4x0", "-150x0x5x0", "200x0x1x2"});
        EXPECT_RELATIVE(loglikat(family.eta, family.beta), trueloglik(), 1e-14) << family.family;
    }
}

TEST_F(LoglikTest, ItsTrueFormHasNoLimitsOfSinglePoints) {
    read({"60", "150", "-0x0x3"});
    EXPECT_EQ(loglikat(100, 2), -9e30 * 3);
    const double failures = std::log(density(60)) + std::log(density(150));
    EXPECT_NEAR(trueloglik(), failures, 1e-12); // every unit survives age 0
    session.inputType = prbt2;
    read({"50x0x2x20", "1000x0x20x20"}); // (1000 / 100)^3 = 1000: survival is exp(-1000)
    EXPECT_LT(loglikat(100, 3), -1e6);
    EXPECT_NEAR(trueloglik(), 2 * std::log(-std::expm1(-0.125)) + 18 * -0.125, 1e-12);
    session.beta = 0;
    EXPECT_EQ(trueloglik(), noLogLik);
}

TEST_F(LoglikTest, NoPointsGiveTheSentinelAndOneWarningARun) {
    read({"60", "150"});
    session.n(stride) = 0;
    const auto before = told().size();
    EXPECT_EQ(loglikat(100, 2), noLogLik);
    loglyk();
    EXPECT_EQ(told().size(), before + 1);
    EXPECT_EQ(session.eta, 100);
    EXPECT_EQ(session.beta, 2);
}

TEST_F(LoglikTest, ASuspensionAtZeroIsToldOnceARun) {
    read({"60", "150", "0", "0"});
    loglikat(100, 2);
    loglyk();
    ASSERT_EQ(told().size(), 1u);
    EXPECT_EQ(told().front(), "Set 1: Loglyk Error");
}

TEST(WeibullLog, ASuspensionIsHeldAtExponentsOfEighty) {
    const FamilyLine line{weibull, -1, 1, 1};
    EXPECT_EQ(weibullsuspensionlog(line, std::exp(81)), -9e30);
    EXPECT_EQ(weibullsuspensionlog(line, std::exp(-81)), -9e-30);
    EXPECT_RELATIVE(weibullsuspensionlog(line, std::exp(79)), -std::exp(79), 1e-13);
    EXPECT_EQ(weibullsuspensionlog(line, 0), -9e30);
    EXPECT_EQ(weibullsuspensionlog({weibull, -1, 0, 0.1}, 5), -std::exp(0.1 * 700));
}

TEST(WeibullLog, AFailureLeavesThePowerOutFromSixHundredAndNinety) {
    const double x = std::exp(3.0);
    EXPECT_NEAR(weibullfailurelog({weibull, -1, 1, 231}, x), 693 - 3 + std::log(231), 1e-9);
}

// ---- grouped rows ----

TEST_F(LoglikTest, ProbitRowsAreBinomial) {
    session.inputType = prbt2;
    for (const Family& family : families) {
        take(family);
        read({"50x0x2x20", "100x0x8x25", "200x0x17x20"});
        const auto row = [](double x, double r, double m) {
            return r * std::log(probability(x).p) + m * std::log(probability(x).q);
        };
        EXPECT_NEAR(loglikat(family.eta, family.beta), row(50, 2, 18) + row(100, 8, 17) + row(200, 17, 3),
                    1e-8);
    }
}

TEST_F(LoglikTest, PercentRowsAreTheIncrementsOfOneSampleAndWhatIsLeft) {
    session.inputType = prbt3;
    take(families[0]);
    read({"50x0x10x20", "100x0x40x20", "200x0x85x20"});
    const double first = probability(50).p;
    const double second = probability(100).p;
    const double third = probability(200).p;
    const double expected = 2 * std::log(first) + 6 * std::log(second - first) + 9 * std::log(third - second)
                            + 3 * std::log(1 - third);
    EXPECT_NEAR(loglikat(120, 1.7), expected, 1e-9);
}

TEST_F(LoglikTest, KaplanMeierRowsCumulateTheFailures) {
    session.inputType = km4;
    take(families[0]);
    read({"50x0x2x3", "100x0x4x0", "-150x0x5x0", "200x0x1x2"}); // 17 units
    const auto row = [](double x, double r, double m) {
        return r * std::log(probability(x).p) + m * std::log(probability(x).q);
    };
    EXPECT_NEAR(loglikat(120, 1.7), row(50, 2, 15) + row(100, 6, 8) + row(200, 7, 2), 1e-9);
}

TEST_F(LoglikTest, AGroupedRowWithoutAProbabilityTakesAMillion) {
    session.inputType = prbt2;
    read({"50x0x2x20", "100x0x8x25"});
    take(families[0]);
    const double second = 8 * std::log(probability(100).p) + 17 * std::log(probability(100).q);
    session.X(stride, 1) = 0;
    EXPECT_NEAR(loglikat(120, 1.7), second - 1e6, 1e-9);
    session.X(stride, 1) = 1e30f;
    EXPECT_NEAR(loglikat(120, 1.7), second - 1e6, 1e-9);
}

// ---- slopes ----

TEST_F(LoglikTest, TheSlopesAreThoseOfTheLogLikelihood) {
    struct Input {
        int16_t type;
        Cells cells;
    };
    const Input inputs[] = {{standard0, {"60", "150x0x3", "-100", "-200x0x2"}},
                            {intv5, {"60x0x2x-3.3e33", "50x0x3x150", "100", "-180", "0x0x1x40"}},
                            {prbt2, {"50x0x2x20", "100x0x8x25", "200x0x17x20"}},
                            {prbt3, {"50x0x10x20", "100x0x40x20", "200x0x85x20"}},
                            {km4, {"50x0x2x3", "100x0x4x0", "200x0x1x2"}}};
    for (const Input& input : inputs)
        for (const float portion : {0.0f, 0.6f})
            for (const Family& family : families) {
                session.inputType = input.type;
                session.popPortion = portion;
                take(family);
                read(input.cells);
                const double he = 1e-5 * family.eta;
                const double hb = 1e-5 * family.beta;
                const double eta =
                    (loglikat(family.eta + he, family.beta) - loglikat(family.eta - he, family.beta))
                    / (2 * he);
                const double beta =
                    (loglikat(family.eta, family.beta + hb) - loglikat(family.eta, family.beta - hb))
                    / (2 * hb);
                take(family);
                loglykderivative();
                EXPECT_NEAR(session.dLdEta, eta, 1e-6 * (1 + std::fabs(eta))) << input.type << family.family;
                EXPECT_NEAR(session.dLdBeta, beta, 1e-6 * (1 + std::fabs(beta)))
                    << input.type << family.family;
            }
}

// ---- corrections ----

TEST(BiasCorrections, AreTheFactorsOfTheirNames) {
    const double r = 9;
    const double c = c4(r);
    const FamilyLine line{weibull, -1, 100, 2};
    const auto beta = [&](int variant) { return corrected(line, biascorrection(weibull, variant, r)).beta; };
    EXPECT_EQ(beta(0), 2);
    EXPECT_EQ(beta(1), 2);
    EXPECT_RELATIVE(beta(2), 2 * std::pow(c, 3.5), 1e-15);
    EXPECT_RELATIVE(beta(3), 2 * std::pow(c, 6), 1e-15);
    EXPECT_RELATIVE(beta(4), 2 * std::pow(c, 3.52), 1e-15);
    EXPECT_RELATIVE(beta(5), 2 * std::pow(c, 0.985 * 9 + 3.71), 1e-15);
    EXPECT_RELATIVE(corrected(line, biascorrection(weibull, 4, r)).eta, 100 / std::pow(c, 0.217), 1e-15);
    EXPECT_EQ(corrected(line, biascorrection(weibull, 3, r)).eta, 100);
}

TEST(BiasCorrections, TakeTheSpreadOfTheNormalFamiliesToItsUnbiasedForm) {
    const double factor = std::sqrt(4.0 / 3) / c4(4);
    for (int variant = 1; variant <= 5; ++variant) {
        const BiasCorrection correction = biascorrection(normal, variant, 4);
        EXPECT_RELATIVE(corrected({normal, -1, 10, 3}, correction).beta, 3 * factor, 1e-15);
        EXPECT_RELATIVE(corrected({lognormal, -1, 10, 3}, correction).beta, std::pow(3, factor), 1e-14);
    }
    EXPECT_RELATIVE(corrected({gumbel, 1, 10, 3}, biascorrection(gumbel, 3, 4)).beta, 3 / std::pow(c4(4), 6),
                    1e-15);
}

TEST(BiasCorrections, OneFailureTakesNone) {
    for (const int family : {weibull, lognormal, normal, gumbel})
        for (int variant = 0; variant <= 5; ++variant) {
            EXPECT_EQ(biascorrection(family, variant, 1).factor, 1);
            EXPECT_EQ(biascorrection(family, variant, 0).factor, 1);
        }
}

TEST_F(LoglikTest, TheLogLikelihoodIsTheSameBeforeAndAfterTheCorrectionIsStored) {
    choosemethod(maximumLikelihood);
    for (const Family& family : families)
        for (int16_t variant = 1; variant <= 5; ++variant) {
            choose(family.family, family.extreme);
            session.mleVariant = 0;
            life({"60", "90", "150", "-100", "-200"});
            const double plain = session.LOGLYKMLE(1);
            const double eta = fit().eta;
            const double beta = fit().beta;
            session.mleVariant = variant;
            life({"60", "90", "150", "-100", "-200"});
            EXPECT_EQ(session.LOGLYKMLE(1), plain);
            const BiasCorrection correction = biascorrection(family.family, variant, 3);
            const FamilyLine line = corrected({family.family, family.extreme, eta, beta}, correction);
            EXPECT_EQ(fit().eta, line.eta);
            EXPECT_EQ(fit().beta, line.beta);
            session.logLik = 0;
            loglyk();
            EXPECT_RELATIVE(session.logLik, plain, 1e-13) << family.family << ' ' << variant;
            EXPECT_EQ(session.eta, line.eta);
        }
}

TEST_F(LoglikTest, AnEvaluationAllocatesNothing) {
    read({"60", "150", "-100"});
    session.eta = 100;
    session.beta = 2;
    const std::size_t before = allocationcount();
    loglyk();
    loglykderivative();
    EXPECT_EQ(allocationcount(), before);
}

} // namespace
