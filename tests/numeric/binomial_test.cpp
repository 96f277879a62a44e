#include "numeric/binomial.h"

#include <cmath>
#include <limits>
#include <string>

#include <gtest/gtest.h>

#include "support/reference.h"

namespace {

struct TailRow {
    double N, C, p, atmost, above;
};

// Incomplete beta function, and for large N the sum of terms, by mpmath 1.2.1 at 60 digits, with the doubles
// nearest these decimals as arguments.
constexpr TailRow rows[] = {
    {10, 2, 0.3, 0.38278278640000003, 0.61721721359999997},
    {10, 9, 0.3, 0.9999940951, 5.9048999999999978e-6},
    {20, 0, 0.01, 0.81790693759723087, 0.18209306240276913},
    {50, 49, 0.99, 0.39499393286246362, 0.60500606713753638},
    {100.5, 40, 0.3, 0.98627608547577341, 0.013723914524226591},
    {7.25, 3, 0.5, 0.46350924842262549, 0.53649075157737451},
    {1000, 10, 0.001, 0.99999999040004481, 9.5999551852282202e-9},
    {200, 199, 0.5, 1.0, 6.2230152778611417e-61},
    {30, 1, 1e-09, 0.99999999999999956, 4.3499999188000014e-16},
};
constexpr TailRow largerows[] = {
    {1000000, 499000, 0.5, 0.022804149932691043, 0.97719585006730896},
    {1000000, 1000, 0.0011, 0.0011688664049360653, 0.99883113359506393},
    {250000, 200000, 0.805, 1.610531018138314e-10, 0.9999999998389469},
};

std::string place(const TailRow& row) {
    return std::to_string(row.N) + ", " + std::to_string(row.C) + ", " + std::to_string(row.p);
}

ErrorSummary compared(const TailRow* first, const TailRow* last) {
    ErrorSummary errors;
    for (; first != last; ++first) {
        errors.add(binotail(first->N, first->C, first->p), first->atmost, "at most " + place(*first));
        errors.add(binotailabove(first->N, first->C, first->p), first->above, "above " + place(*first));
    }
    return errors;
}

double rank(double N, double r, double conf) {
    BinomialPlan plan{.N = N, .C = r - 1, .conf = conf};
    binosolve(plan, BinomialUnknown::p);
    EXPECT_FALSE(plan.truncated) << N << ' ' << r << ' ' << conf;
    return plan.p;
}

} // namespace

TEST(BinomialTail, AgreesWithTheReference) {
    // The tail of 6e-61 is the exponential of -139, whose last place alone is 3e-14.
    compared(std::begin(rows), std::end(rows)).expectwithin(3e-14);
}

TEST(BinomialTail, KeepsItsDigitsForLargeSets) {
    compared(std::begin(largerows), std::end(largerows)).expectwithin(3e-13);
}

TEST(BinomialTail, ClosedFormsOfOneTerm) {
    EXPECT_NEAR(binotail(8, 0, 0.25), std::pow(0.75, 8), 1e-16);
    EXPECT_NEAR(binotailabove(8, 7, 0.25) / std::pow(0.25, 8), 1, 1e-15);
    EXPECT_NEAR(binotail(1e9, 0, 1e-9) / std::exp(-1 - 0.5e-9), 1, 1e-15);
}

TEST(BinomialTail, IsMirroredByCountingTheOtherOutcome) {
    for (const double N : {5.0, 17.0, 64.0})
        for (double C = 0; C < N; C += 1)
            for (const double p : {0.125, 0.25, 0.5, 0.75}) // 1 - p is exact
                EXPECT_NEAR(binotail(N, C, p) / binotailabove(N, N - C - 1, 1 - p), 1, 1e-13)
                    << N << ' ' << C;
}

TEST(BinomialTail, TailsMakeOne) {
    for (const double N : {3.0, 40.0, 40.5, 1234.0})
        for (double C = 0; C < N; C += std::ceil(N / 9))
            for (const double p : {0.001, 0.3, 0.5, 0.98})
                EXPECT_NEAR(binotail(N, C, p) + binotailabove(N, C, p), 1, 3e-16)
                    << N << ' ' << C << ' ' << p;
}

TEST(BinomialTail, EndsAreExact) {
    EXPECT_EQ(binotail(10, 10, 0.4), 1);
    EXPECT_EQ(binotail(10, 12, 0.4), 1);
    EXPECT_EQ(binotail(10, 3, 0), 1);
    EXPECT_EQ(binotail(10, 3, 1), 0);
    EXPECT_EQ(binotail(10, 10, 1), 1);
    EXPECT_EQ(binotailabove(10, 10, 1), 0);
    EXPECT_EQ(binotail(10, 2.9, 0.3), binotail(10, 2, 0.3));
}

TEST(BinomialTail, BadInputIsTheSentinel) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    for (const double value :
         {binotail(0, 0, 0.5), binotail(-3, 1, 0.5), binotail(10, -1, 0.5), binotail(10, 2, -0.1),
          binotail(10, 2, 1.1), binotail(nan, 2, 0.5), binotail(10, nan, 0.5), binotail(10, 2, nan),
          binotail(2e12, 2, 0.5), binotailabove(10, -1, 0.5)})
        EXPECT_EQ(value, -9e30);
}

TEST(BinomialPlan, ProbabilitiesAreTheReferenceRanks) {
    const ReferenceTable table = reference("binomial_ranks.csv");
    ErrorSummary errors;
    const struct {
        const char* column;
        double conf;
    } levels[] = {{"p05", 0.05}, {"p50", 0.5}, {"p95", 0.95}};
    for (std::size_t i = 0; i < table.rows.size(); ++i)
        for (const auto& level : levels)
            errors.add(rank(table.number(i, "N"), table.number(i, "i"), level.conf),
                       table.number(i, level.column),
                       std::string(table.text(i, "N")) + ", " + std::string(table.text(i, "i")) + ", "
                           + level.column);
    errors.expectwithin(5e-15);
}

TEST(BinomialPlan, MedianRanksOfAMillionKeepTheirDigits) {
    // By mpmath 1.2.1 at 60 digits.
    EXPECT_NEAR(rank(1e6, 1, 0.5) / 6.9314694033349385e-7, 1, 1e-14);
    EXPECT_NEAR(rank(1e6, 3, 0.5) / 2.6740594124847909e-6, 1, 1e-14);
    EXPECT_NEAR(rank(1e6, 500001, 0.5) / 0.50000049999983333, 1, 1e-14);
}

TEST(BinomialPlan, FirstAndLastRanksHaveClosedForms) {
    ErrorSummary errors;
    for (const double N : {1.0, 2.0, 9.0, 150.0})
        for (const double conf : {1e-9, 0.01, 0.5, 0.9, 0.999}) {
            const std::string at = std::to_string(N) + ", " + std::to_string(conf);
            errors.add(rank(N, 1, conf), -std::expm1(std::log1p(-conf) / N), "first " + at);
            errors.add(rank(N, N, conf), std::exp(std::log(conf) / N), "last " + at);
        }
    errors.expectwithin(2e-14); // at p = 7e-12 the logarithm of the odds is -26, and its last places count
}

TEST(BinomialPlan, RanksMirrorEachOther) {
    for (const double N : {6.0, 31.0, 400.0})
        for (double r = 1; r <= N; r += 5)
            EXPECT_NEAR(rank(N, r, 0.5) + rank(N, N + 1 - r, 0.5), 1, 2e-15) << N << ' ' << r;
}

TEST(BinomialPlan, ConfidenceNearItsEndsStillSolves) {
    for (const double conf : {1e-300, 1e-12, 1 - 1e-12})
        for (const double C : {0.0, 7.0, 19.0}) {
            BinomialPlan plan{.N = 20, .C = C, .conf = conf};
            binosolve(plan, BinomialUnknown::p);
            EXPECT_FALSE(plan.truncated);
            const double reached =
                conf < 0.5 ? binotailabove(20, C, plan.p) / conf : binotail(20, C, plan.p) / (1 - conf);
            EXPECT_NEAR(reached, 1, C == 19 && conf > 0.5 ? 1e-3 : 1e-12) << conf << ' ' << C;
        }
}

TEST(BinomialPlan, EveryTrialAnEventGivesCertaintyAtOnce) {
    BinomialPlan plan{.N = 12, .C = 12, .conf = 0.5, .p = 0.3};
    binosolve(plan, BinomialUnknown::p);
    EXPECT_EQ(plan.p, 1);
    EXPECT_TRUE(plan.certain);
    EXPECT_FALSE(plan.truncated);
}

TEST(BinomialPlan, ConfidenceIsTheTailAboveTheEvents) {
    BinomialPlan plan{.N = 10, .C = 2, .p = 0.3};
    binosolve(plan, BinomialUnknown::conf);
    EXPECT_NEAR(plan.conf, 0.61721721359999997, 1e-15);
}

TEST(BinomialPlan, ConfidenceTooSmallStaysZero) {
    BinomialPlan plan{.N = 30, .C = 1, .conf = 0.7, .p = 1e-9};
    binosolve(plan, BinomialUnknown::conf);
    EXPECT_EQ(plan.conf, 0);
}

TEST(BinomialPlan, TrialsForNoEventsFollowTheSuccessRun) {
    // n = ln(1 - conf) / ln(1 - p), rounded up: 22 for 90 % at 10 %, 59 for 95 % at 5 %, 299 for 95 % at 1 %.
    const struct {
        double conf, p, N;
    } cases[] = {{0.9, 0.1, 22}, {0.95, 0.05, 59}, {0.95, 0.01, 299}, {0.9, 1e-6, 2302584}};
    for (const auto& one : cases) {
        BinomialPlan plan{.C = 0, .conf = one.conf, .p = one.p};
        binosolve(plan, BinomialUnknown::N);
        EXPECT_EQ(plan.N, one.N) << one.conf << ' ' << one.p;
    }
}

TEST(BinomialPlan, TrialsAreTheFewestThatReachTheConfidence) {
    for (const double C : {0.0, 1.0, 5.0, 60.0})
        for (const double conf : {0.1, 0.5, 0.9, 0.99})
            for (const double p : {0.003, 0.2, 0.9, 1.0}) {
                BinomialPlan plan{.C = C, .conf = conf, .p = p};
                binosolve(plan, BinomialUnknown::N);
                EXPECT_GE(binotailabove(plan.N, C, p), conf) << C << ' ' << conf << ' ' << p;
                EXPECT_LT(binotailabove(plan.N - 1, C, p), conf) << C << ' ' << conf << ' ' << p;
            }
}

TEST(BinomialPlan, EventsCannotBeSearched) {
    BinomialPlan plan{.N = 10, .conf = 0.5, .p = 0.3};
    binosolve(plan, BinomialUnknown::C);
    EXPECT_EQ(plan.C, -9e30);
}

TEST(BinomialPlan, GivenValuesOutsideTheirRangesAreTheSentinel) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    for (BinomialPlan plan :
         {BinomialPlan{.N = 10, .C = 11, .conf = 0.5}, BinomialPlan{.N = 10, .C = -1, .conf = 0.5},
          BinomialPlan{.N = 10, .C = 2, .conf = 1}, BinomialPlan{.N = 10, .C = 2, .conf = 0},
          BinomialPlan{.N = nan, .C = 2, .conf = 0.5}, BinomialPlan{.N = 0, .C = 0, .conf = 0.5}}) {
        binosolve(plan, BinomialUnknown::p);
        EXPECT_EQ(plan.p, -9e30) << plan.N << ' ' << plan.C << ' ' << plan.conf;
    }
    for (BinomialPlan plan :
         {BinomialPlan{.C = 2, .conf = 0.5, .p = 0}, BinomialPlan{.C = 2, .conf = 0.5, .p = 1.5},
          BinomialPlan{.C = nan, .conf = 0.5, .p = 0.5}, BinomialPlan{.C = 0, .conf = 0.9, .p = 1e-13}}) {
        binosolve(plan, BinomialUnknown::N);
        EXPECT_EQ(plan.N, -9e30) << plan.C << ' ' << plan.conf << ' ' << plan.p;
    }
    BinomialPlan plan{.N = -1, .C = 2, .p = 0.5};
    binosolve(plan, BinomialUnknown::conf);
    EXPECT_EQ(plan.conf, -9e30);
}
