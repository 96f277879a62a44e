// One battery of hostile arguments over every function of the number floor: each must come back, in time,
// with a value of its own range.

#include <cmath>
#include <limits>

#include <gtest/gtest.h>

#include "numeric/binomial.h"
#include "numeric/c4.h"
#include "numeric/chisquare.h"
#include "numeric/gamma.h"
#include "numeric/normal.h"
#include "support/told.h"

namespace {

constexpr double notanumber = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double largest = std::numeric_limits<double>::max();
constexpr double smallest = std::numeric_limits<double>::denorm_min();

const double battery[] = {notanumber, infinity, -infinity, 0.0,   -0.0, smallest, -smallest,
                          1e-300,     -1e-9,    -1.0,      -2.5,  0.5,  1.0,      std::nextafter(1.0, 0),
                          1 + 1e-9,   2.0,      317.9,     318.0, 1e3,  1e12,     1e12 + 1,
                          1e100,      largest,  -largest};

bool isprobability(double value) { return value >= 0 && value <= 1; }
bool isfinitevalue(double value) { return std::fabs(value) <= largest; }

} // namespace

TEST(BadInput, OneArgumentFunctionsStayInTheirRange) {
    for (const double x : battery) {
        EXPECT_TRUE(std::isnan(x) ? std::isnan(normcdf(x)) : isprobability(normcdf(x))) << x;
        EXPECT_TRUE(std::isnan(x) ? std::isnan(normpdf(x)) : isprobability(normpdf(x))) << x;
        EXPECT_LE(std::fabs(normquantile(x)), 39) << x;
        EXPECT_LE(std::fabs(fd_NormZ(x)), 39) << x;
        EXPECT_TRUE(isfinitevalue(gammafunction(x))) << x;
        EXPECT_TRUE(isfinitevalue(lngamma(x))) << x;
        EXPECT_TRUE(isprobability(c4(x))) << x;
    }
}

TEST(BadInput, TwoArgumentFunctionsStayInTheirRange) {
    for (const double a : battery)
        for (const double x : battery) {
            EXPECT_TRUE(isprobability(gammap(a, x))) << a << ' ' << x;
            EXPECT_TRUE(isprobability(gammaq(a, x))) << a << ' ' << x;
            for (const bool exact : {true, false}) {
                EXPECT_TRUE(isprobability(chi2cdf(x, a, exact))) << a << ' ' << x;
                EXPECT_TRUE(isprobability(chi2sf(x, a, exact))) << a << ' ' << x;
            }
            EXPECT_TRUE(isfinitevalue(chi2inv(x, a)) && chi2inv(x, a) >= 0) << a << ' ' << x;
        }
}

TEST(BadInput, ValuesOutsideTheDomainAreReportedEachTime) {
    const Told told;
    for (const double p : {notanumber, infinity, -infinity, 0.0, -smallest, 1.0, 1 + 1e-9, largest}) {
        Told::texts().clear();
        EXPECT_EQ(fd_NormZ(p), 0);
        EXPECT_EQ(chi2inv(p, 5), 0);
        EXPECT_EQ(Told::texts().size(), 2u) << p;
    }
    for (const double a : {notanumber, infinity, -infinity, 0.0, -smallest, -largest}) {
        Told::texts().clear();
        EXPECT_EQ(gammap(a, 1), 0);
        EXPECT_EQ(gammaq(a, 1), 0);
        EXPECT_EQ(chi2cdf(1, a), 0);
        EXPECT_EQ(chi2sf(1, a), 0);
        EXPECT_EQ(Told::texts().size(), 4u) << a;
    }
}

TEST(BadInput, BinomialTailsAreProbabilitiesOrTheSentinel) {
    for (const double N : battery)
        for (const double C : battery)
            for (const double p : battery)
                for (const double tail : {binotail(N, C, p), binotailabove(N, C, p)})
                    EXPECT_TRUE(isprobability(tail) || tail == failedtail) << N << ' ' << C << ' ' << p;
}

TEST(BadInput, BinomialPlanSolvesOrGivesTheSentinel) {
    for (const double first : battery)
        for (const double second : battery)
            for (const double third : battery) {
                BinomialPlan plan{.N = first, .C = second, .conf = third};
                binosolve(plan, BinomialUnknown::p);
                EXPECT_TRUE(isprobability(plan.p) || plan.p == failedtail)
                    << first << ' ' << second << ' ' << third;
                plan = {.C = first, .conf = second, .p = third};
                binosolve(plan, BinomialUnknown::N);
                EXPECT_TRUE((plan.N >= 1 && plan.N <= 1e12) || plan.N == failedtail)
                    << first << ' ' << second << ' ' << third;
            }
}
