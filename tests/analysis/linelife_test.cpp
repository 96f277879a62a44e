#include "analysis/linelife.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "session/fits.h"

namespace {

FamilyLine weibullline(double eta, double beta) { return {weibull, -1, eta, beta}; }

/// Mean time between renewals of a Weibull line of slope 2 in closed form: its reliability is that of a
/// normal curve.
double renewedrayleigh(double eta, double T) {
    const double u = T / eta;
    return eta * std::sqrt(std::numbers::pi) / 2 * std::erf(u) / -std::expm1(-u * u);
}

} // namespace

TEST(LineLife, AnExponentialItemHasNoMemory) {
    const FamilyLine line = weibullline(1000, 1);
    for (const double age : {0.0, 10.0, 500.0, 4000.0})
        EXPECT_NEAR(liferemaining(line, 0, age, 0.1), -1000 * std::log(0.9), 1e-9 * 1000) << age;
}

TEST(LineLife, AWearingItemHasLessLifeLeftTheOlderItIs) {
    // t = eta ((T/eta)^b - ln(1 - p))^(1/b) - T
    const FamilyLine line = weibullline(1000, 3);
    for (const double age : {0.0, 200.0, 900.0}) {
        const double wanted = 1000 * std::cbrt(std::pow(age / 1000, 3) - std::log(0.9)) - age;
        EXPECT_NEAR(liferemaining(line, 0, age, 0.1), wanted, 1e-9 * 1000) << age;
    }
}

TEST(LineLife, NothingIsUsedUpBeforeTheThreshold) {
    const FamilyLine line = weibullline(1000, 2);
    const double fresh = liferemaining(line, 300, 0, 0.1);
    EXPECT_NEAR(fresh, 300 + 1000 * std::sqrt(-std::log(0.9)), 1e-8);
    EXPECT_NEAR(liferemaining(line, 300, 250, 0.1), fresh - 250, 1e-8);
}

TEST(LineLife, PlannedRenewalOfAnExponentialItemGainsNothing) {
    for (const double T : {1.0, 100.0, 1000.0, 30000.0})
        EXPECT_NEAR(renewedmtbf(weibullline(1000, 1), 0, T), 1000, 1e-8 * 1000) << T;
}

TEST(LineLife, PlannedRenewalOfAWearingItemLengthensTheTimeBetweenFailures) {
    for (const double T : {10.0, 300.0, 1000.0, 5000.0})
        EXPECT_NEAR(renewedmtbf(weibullline(1000, 2), 0, T), renewedrayleigh(1000, T),
                    1e-9 * renewedrayleigh(1000, T))
            << T;
    // Renewed hardly ever it is the mean, eta Gamma(1 + 1/beta), for a slope below 1, too.
    EXPECT_NEAR(renewedmtbf(weibullline(1000, 0.5), 0, 1e6), 2000, 1e-6 * 2000);
}

TEST(LineLife, EndsOfASampleAsOrderStatistics) {
    const FamilyLine line = weibullline(100, 1);
    // With one value the largest and the smallest are the value itself.
    EXPECT_NEAR(largestbeyond(line, 0, 100, 1), std::exp(-1.0), 1e-12);
    EXPECT_NEAR(smallestbeyond(line, 0, 100, 1), 1 - std::exp(-1.0), 1e-12);
    // 20 values: none above x has probability (1 - e^-5)^20.
    EXPECT_NEAR(largestbeyond(line, 0, 500, 20), 1 - std::pow(1 - std::exp(-5.0), 20), 1e-12);
    // The smallest of n exponential values is exponential with a mean n times shorter.
    EXPECT_NEAR(smallestbeyond(line, 0, 0.1, 20), 1 - std::exp(-0.1 * 20 / 100), 1e-12);
    EXPECT_GT(smallestbeyond(line, 0, 1e-12, 20), 0) << "no digits are lost near the ends";
}

TEST(LineLife, AQuestionWithoutAnAnswerHasNone) {
    const FamilyLine line = weibullline(100, 2);
    EXPECT_TRUE(std::isnan(liferemaining(line, 0, -1, 0.1)));
    EXPECT_TRUE(std::isnan(liferemaining(line, 0, 10, 0)));
    EXPECT_TRUE(std::isnan(liferemaining(line, 0, 10, 1)));
    EXPECT_TRUE(std::isnan(liferemaining(weibullline(100, 0), 0, 10, 0.1)));
    EXPECT_TRUE(std::isnan(renewedmtbf(line, 0, 0)));
    EXPECT_TRUE(std::isnan(renewedmtbf(line, 500, 100))) << "nothing fails before the threshold";
    EXPECT_TRUE(std::isnan(largestbeyond(line, 0, 10, 0)));
}

TEST(LineLife, AnOldItemKeepsItsDigits) {
    // The summed hazard at the age is 32, 36.2 and 36: two quantiles there do not differ in enough digits.
    EXPECT_NEAR(liferemaining(weibullline(100, 5), 0, 200, 0.1),
                200 * (std::pow(1 - std::log(0.9) / 32, 0.2) - 1), 1e-12);
    EXPECT_GT(liferemaining(weibullline(100, 5), 0, 205, 0.1), 0.118);
    EXPECT_NEAR(liferemaining(weibullline(100, 2), 0, 600, 0.1), 100 * std::sqrt(36 - std::log(0.9)) - 600,
                1e-10);
    EXPECT_NEAR(liferemaining(weibullline(100, 2), 0, 0, 1e-9), 100 * std::sqrt(1e-9), 1e-12);
}

TEST(LineLife, EveryFamilyAnswersWhatItsReliabilitySays) {
    const FamilyLine lines[] = {{lognormal, -1, 100, 1.6},
                                {normal, -1, 100, 15},
                                {gumbel, -1, 100, 12},
                                {gumbel, 1, 100, 12},
                                {weibull, -1, 100, 3}};
    for (const FamilyLine& line : lines)
        for (const double age : {60.0, 100.0, 140.0})
            for (const double p : {1e-3, 0.1, 0.9}) {
                const double t = liferemaining(line, 0, age, p);
                const double gone = std::log(probabilityofx(line, age).q / probabilityofx(line, age + t).q);
                EXPECT_NEAR(gone, -std::log1p(-p), 1e-9 * -std::log1p(-p) + 1e-14)
                    << line.family << " " << line.extreme << " " << age << " " << p;
            }
}

TEST(LineLife, RenewalOfASteepLineOrOneWithAThreshold) {
    // By the incomplete gamma function in 30 digits (mpmath).
    EXPECT_NEAR(renewedmtbf(weibullline(100, 0.7), 50, 200), 167.604165146016, 1e-9);
    EXPECT_NEAR(renewedmtbf(weibullline(100, 2), 50, 200), 151.597050981842, 1e-9);
    EXPECT_NEAR(renewedmtbf(weibullline(100, 50), 0, 1000), 98.8844203263914, 1e-9);
    EXPECT_NEAR(renewedmtbf(weibullline(100, 5), 0, 1e5), 91.816874239976, 1e-9);
    // Renewed hardly ever: the mean of the line.
    EXPECT_NEAR(renewedmtbf({lognormal, -1, 100, 1.6}, 0, 1e5),
                100 * std::exp(std::log(1.6) * std::log(1.6) / 2), 1e-7);
    EXPECT_NEAR(renewedmtbf({normal, -1, 100, 1}, 0, 1e4), 100, 1e-8);
    EXPECT_NEAR(renewedmtbf({gumbel, 1, 100, 5}, 0, 1e4), 100 + 5 * std::numbers::egamma, 1e-8);
}

TEST(LineLife, ASmallShareIsThatOfTheHazard) {
    // The hazard of a Normal line at its mean is sqrt(2 / pi) / sigma, and it rises by the square of that.
    const double hazard = std::sqrt(2 / std::numbers::pi) / 15;
    const double p = 1e-7;
    EXPECT_NEAR(liferemaining({normal, -1, 100, 15}, 0, 100, p), p / hazard, 1e-6 * p / hazard);
    // A threshold moves the age and nothing else.
    EXPECT_NEAR(liferemaining({lognormal, -1, 100, 1.6}, 50, 150, 1e-8)
                    / liferemaining({lognormal, -1, 100, 1.6}, 0, 100, 1e-8),
                1, 1e-12);
}
