#include "curvefit/fitsolve.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "curvefit/curvevalue.h"
#include "curvefit/fitstats.h"

namespace {

using Rows = std::vector<FitRow>;

const CurveModel linear = *modelofcode(linearFit);

FitSolution solved(const Rows& rows, int code) {
    const FitSolution solution = fitsolve(rows, *modelofcode(code));
    EXPECT_EQ(solution.state, FitState::solved);
    return solution;
}

/// Digits in which two numbers agree, as the logarithm of the relative error.
double digits(double actual, double expected) {
    if (actual == expected) return 17;
    return -std::log10(std::fabs(actual - expected) / std::fabs(expected));
}

double errorof(const Rows& rows, int code) {
    const FitSolution solution = solved(rows, code);
    return fitstats(rows, solution.fitted, modelofcode(code)->parameters()).standardError;
}

/// Weighted straight line by the closed form about the means, in long double.
struct ClosedLine {
    double a, b;
    explicit ClosedLine(const Rows& rows) {
        long double n = 0, mx = 0, my = 0, xx = 0, xy = 0;
        for (const FitRow& r : rows) n += r.weight, mx += r.weight * r.x, my += r.weight * r.y;
        mx /= n, my /= n;
        for (const FitRow& r : rows) {
            xx += r.weight * (r.x - mx) * (r.x - mx);
            xy += r.weight * (r.x - mx) * (r.y - my);
        }
        b = static_cast<double>(xy / xx);
        a = static_cast<double>(my - xy / xx * mx);
    }
};

} // namespace

// ---- certified results: NIST Statistical Reference Datasets, linear regression ----

TEST(CertifiedFit, NorrisToThirteenDigits) {
    const Rows rows = {
        {0.2, 0.1},     {337.4, 338.8}, {118.2, 118.1}, {884.6, 888.0}, {10.1, 9.2},    {226.5, 228.1},
        {666.3, 668.5}, {996.3, 998.5}, {448.6, 449.1}, {777.0, 778.9}, {558.2, 559.2}, {0.4, 0.3},
        {0.6, 0.1},     {775.5, 778.1}, {666.9, 668.8}, {338.0, 339.3}, {447.5, 448.9}, {11.6, 10.8},
        {556.0, 557.7}, {228.1, 228.3}, {995.8, 998.0}, {887.6, 888.8}, {120.2, 119.6}, {0.3, 0.3},
        {0.3, 0.6},     {556.8, 557.6}, {339.1, 339.3}, {887.2, 888.0}, {999.0, 998.5}, {779.0, 778.9},
        {11.1, 10.2},   {118.3, 117.6}, {229.2, 228.9}, {669.1, 668.4}, {448.9, 449.2}, {0.5, 0.2}};
    const FitSolution fit = solved(rows, linearFit);
    EXPECT_GT(digits(fit.coefficients[0], -0.262323073774029), 12.9);
    EXPECT_GT(digits(fit.coefficients[1], 1.00211681802045), 13);
    EXPECT_GT(digits(errorof(rows, linearFit), 0.884796396144373), 12.9);
}

TEST(CertifiedFit, PontiusToThirteenDigits) {
    const double load[] = {150000,  300000,  450000,  600000,  750000,  900000,  1050000,
                           1200000, 1350000, 1500000, 1650000, 1800000, 1950000, 2100000,
                           2250000, 2400000, 2550000, 2700000, 2850000, 3000000};
    const double deflection[] = {.11019,  .21956,  .32949,  .43899,  .54803,  .65694,  .76562,  .87487,
                                 .98292,  1.09146, 1.20001, 1.30822, 1.41599, 1.52399, 1.63194, 1.73947,
                                 1.84646, 1.95392, 2.06128, 2.16844, .11052,  .22018,  .32939,  .43886,
                                 .54798,  .65739,  .76596,  .87474,  .98300,  1.09150, 1.20004, 1.30818,
                                 1.41613, 1.52408, 1.63159, 1.73965, 1.84696, 1.95445, 2.06177, 2.16829};
    Rows rows;
    for (std::size_t i = 0; i < 40; ++i) rows.push_back({load[i % 20], deflection[i]});
    const FitSolution fit = solved(rows, quadraticFit);
    EXPECT_GT(digits(fit.coefficients[0], 0.673565789473684E-03), 12.9);
    EXPECT_GT(digits(fit.coefficients[1], 0.732059160401003E-06), 12.9);
    EXPECT_GT(digits(fit.coefficients[2], -0.316081871345029E-14), 12.9);
    EXPECT_GT(digits(errorof(rows, quadraticFit), 0.205177424076185E-03), 12);
}

namespace {

/// Wampler 1 and 2 are polynomials of order 5 without an error; 3 to 5 the first with one, of growing size.
Rows wampler(double base, double error = 0) {
    const double deviations[] = {759,   -2048, 2048,  -2048, 2523,  -2048, 2048,  -2048, 1838,  -2048, 2048,
                                 -2048, 1838,  -2048, 2048,  -2048, 2523,  -2048, 2048,  -2048, 759};
    Rows rows;
    for (int x = 0; x <= 20; ++x) {
        long double y = 0, term = 1;
        for (int k = 0; k <= 5; ++k, term *= base * x) y += term;
        rows.push_back({static_cast<double>(x), static_cast<double>(y) + error * deviations[x]});
    }
    return rows;
}

} // namespace

TEST(CertifiedFit, WamplerOneToTheLastDigit) {
    for (const double coefficient : solved(wampler(1), 5).coefficients) EXPECT_EQ(coefficient, 1);
}

/// Its values have five decimals: they are rounded when they are read.
TEST(CertifiedFit, WamplerTwoToThirteenDigits) {
    Rows rows = wampler(0.1);
    for (FitRow& row : rows) row.y = std::round(row.y * 1e5) / 1e5;
    const FitSolution fit = solved(rows, 5);
    for (int k = 0; k <= 5; ++k) EXPECT_GT(digits(fit.coefficients[k], std::pow(10.0, -k)), 13) << k;
}

TEST(CertifiedFit, WamplerThreeToFiveToThirteenDigits) {
    const struct {
        double error, standardError;
    } sets[] = {{1, 2360.14502379268}, {100, 236014.502379268}, {10000, 23601450.2379268}};
    for (const auto& set : sets) {
        const Rows rows = wampler(1, set.error);
        for (const double coefficient : solved(rows, 5).coefficients)
            EXPECT_GT(digits(coefficient, 1), 13) << set.error;
        EXPECT_GT(digits(errorof(rows, 5), set.standardError), 13);
    }
}

// ---- weights ----

TEST(FitSolve, AWeightCountsAsSoManyRows) {
    const Rows weighted = {{1, 2.1, 3}, {2, 3.9, 1}, {3, 6.2, 2}, {5, 9.7, 4}};
    Rows repeated;
    for (const FitRow& row : weighted)
        for (int i = 0; i < row.weight; ++i) repeated.push_back({row.x, row.y});
    for (const int code : {1, 2, 3, 10, 11, 12, 13}) {
        const FitSolution a = solved(weighted, code), b = solved(repeated, code);
        for (std::size_t i = 0; i < a.coefficients.size(); ++i)
            EXPECT_NEAR(a.coefficients[i], b.coefficients[i], 1e-13 * std::fabs(b.coefficients[i])) << code;
        EXPECT_NEAR(errorof(weighted, code), errorof(repeated, code), 1e-12);
    }
}

TEST(FitSolve, AWeightedLineIsThatOfTheClosedForm) {
    std::mt19937 random(7);
    std::uniform_real_distribution<double> place(-50, 1000), noise(-3, 3), weight(0.1, 9);
    for (int trial = 0; trial < 50; ++trial) {
        Rows rows;
        for (int i = 0; i < 30; ++i) {
            const double x = place(random);
            rows.push_back({x, 4 - 0.25 * x + noise(random), weight(random)});
        }
        const FitSolution fit = solved(rows, linearFit);
        const ClosedLine line(rows);
        EXPECT_NEAR(fit.coefficients[0], line.a, 1e-13 * std::fabs(line.a));
        EXPECT_NEAR(fit.coefficients[1], line.b, 1e-14 * std::fabs(line.b));
    }
}

TEST(FitSolve, TheResidualsOfEveryOrderAreOrthogonalToItsPowers) {
    std::mt19937 random(11);
    std::uniform_real_distribution<double> value(-1, 1);
    for (int order = 1; order <= highestOrder; ++order) {
        Rows rows;
        for (int i = 0; i < 40; ++i) rows.push_back({value(random), value(random), 1 + (i % 3) * 0.5});
        const FitSolution fit = solved(rows, order);
        EXPECT_TRUE(fit.precise);
        for (int k = 0; k <= order; ++k) {
            long double sum = 0, size = 0;
            for (const FitRow& row : rows) {
                const long double power = std::pow(static_cast<long double>(row.x), k) * row.weight;
                sum += power * (row.y - polynomialvalue(fit.coefficients, row.x));
                size += std::fabs(power * row.y);
            }
            EXPECT_LT(std::fabs(sum), 1e-11L * size) << order << " " << k;
        }
    }
}

// ---- models ----

TEST(FitSolve, EveryLogarithmicModelFindsTheCurveItsPointsLieOn) {
    const double lnA = std::log(2.5), lnB = std::log(1.4);
    const auto curve = [&](int code, double x) {
        switch (code) {
        case exponentialFit: return std::exp(lnA + lnB * x);
        case powerFit: return 2.5 * std::pow(x, 1.4);
        case arrheniusXFit: return std::exp(lnA + lnB / x);
        default: return lnB / (std::log(x) - lnA); // x = a * b^(1/y)
        }
    };
    for (int code = exponentialFit; code <= arrheniusYFit; ++code) {
        Rows rows;
        for (double x = 3; x < 12; x += 0.75) rows.push_back({x, curve(code, x)});
        const FitSolution fit = solved(rows, code);
        EXPECT_NEAR(fit.coefficients[0], lnA, 1e-12) << code;
        EXPECT_NEAR(fit.coefficients[1], code == powerFit ? 1.4 : lnB, 1e-12) << code;
        for (std::size_t i = 0; i < rows.size(); ++i) EXPECT_NEAR(fit.fitted[i], rows[i].y, 1e-11) << code;
    }
}

TEST(FitSolve, TheExponentialIsTheWeightedLineOfTheLogarithms) {
    const Rows rows = {{1, 3.1, 2}, {2, 5.2, 1}, {4, 20, 5}, {5, 41, 1}};
    Rows logarithms = rows;
    for (FitRow& row : logarithms) row.y = std::log(row.y);
    const ClosedLine line(logarithms);
    const FitSolution fit = solved(rows, exponentialFit);
    EXPECT_NEAR(fit.coefficients[0], line.a, 1e-14);
    EXPECT_NEAR(fit.coefficients[1], line.b, 1e-14);
}

TEST(FitSolve, ARowWithoutCoordinatesInTheModelIsLeftOut) {
    const Rows inside = {{1, 2}, {2, 4.5}, {4, 9}, {8, 17}};
    const struct {
        int code;
        FitRow outside;
    } cases[] = {{powerFit, {0, 3}},         {powerFit, {-1, 3}},      {powerFit, {3, 0}},
                 {powerFit, {3, -2}},        {exponentialFit, {3, 0}}, {exponentialFit, {3, -1}},
                 {arrheniusXFit, {0, 3}},    {arrheniusXFit, {3, -3}}, {arrheniusYFit, {0, 3}},
                 {arrheniusYFit, {-3, 3}},   {arrheniusYFit, {3, 0}},  {linearFit, {NAN, 1}},
                 {linearFit, {1, INFINITY}}, {linearFit, {3, 50, 0}},  {linearFit, {3, 50, -2}}};
    for (const auto& one : cases) {
        Rows rows = inside;
        rows.insert(rows.begin() + 1, one.outside);
        const FitSolution with = solved(rows, one.code), without = solved(inside, one.code);
        EXPECT_EQ(with.coefficients, without.coefficients) << one.code;
        EXPECT_EQ(with.used, 4);
        EXPECT_TRUE(std::isnan(with.fitted[1]));
    }
    const FitSolution negative = solved({{-1, 2}, {-2, 3}, {-4, 5}}, exponentialFit); // an x may be negative
    EXPECT_EQ(negative.used, 3);
}

TEST(FitSolve, TheRangeIsThatOfTheRowsFitted) {
    const FitSolution fit = solved({{-9, 1}, {2, 4}, {7, 3}, {4, 8}}, powerFit);
    EXPECT_EQ(fit.low, 2);
    EXPECT_EQ(fit.high, 7);
}

// ---- what cannot be solved ----

TEST(FitSolve, FewerDifferentAbscissasThanCoefficientsAreSingular) {
    EXPECT_EQ(fitsolve(Rows{{2, 1}, {2, 3}, {2, 5}}, linear).state, FitState::singular);
    EXPECT_EQ(fitsolve(Rows{{2, 1}}, linear).state, FitState::singular);
    EXPECT_EQ(fitsolve(Rows{{.1, 1}, {.2, 3}, {.3, 5}}, *modelofcode(cubicFit)).state, FitState::singular);
    EXPECT_EQ(fitsolve(Rows{{.1, 1}, {.2, 3}, {.3, 5}, {.3, 9}}, *modelofcode(cubicFit)).state,
              FitState::singular);
    EXPECT_EQ(fitsolve(Rows{{.1, 1}, {.2, 3}, {.3, 5}, {.4, 9}}, *modelofcode(cubicFit)).state,
              FitState::solved);
    EXPECT_EQ(fitsolve(Rows{}, linear).state, FitState::noRows);
    EXPECT_EQ(fitsolve(Rows{{-1, 2}, {-2, 3}}, *modelofcode(powerFit)).state, FitState::noRows);
}

TEST(FitSolve, AbscissasTooCloseToTellApartAreSingularAndNotWrong) {
    const double next = std::nextafter(1.0, 2.0);
    const Rows rows = {{1, 1}, {next, 2}, {std::nextafter(next, 2.0), 4}, {1e6, 3}};
    EXPECT_EQ(fitsolve(rows, *modelofcode(cubicFit)).state, FitState::singular);
}

TEST(FitSolve, HostileNumbersNeverGiveACoefficientThatIsNone) {
    const double odd[] = {0, 1e-300, -1e-38, 1e-20, 1, 3e38, -3e38, 1e150, 1e300, NAN, -INFINITY};
    std::mt19937 random(3);
    std::uniform_int_distribution<std::size_t> pick(0, std::size(odd) - 1);
    std::uniform_int_distribution<int> code(1, 13);
    for (int trial = 0; trial < 20000; ++trial) {
        Rows rows;
        for (int i = 0; i < 6; ++i) rows.push_back({odd[pick(random)], odd[pick(random)], odd[pick(random)]});
        const FitSolution fit = fitsolve(rows, *modelofcode(code(random)));
        EXPECT_EQ(fit.coefficients.empty(), fit.state != FitState::solved);
        for (const double coefficient : fit.coefficients) EXPECT_TRUE(std::isfinite(coefficient));
    }
}

/// Far from x = 0 the terms cancel: an order 5 over the years 2000 to 2020 keeps its exact coefficients but
/// no six digits of the curve.
TEST(FitSolve, ItTellsWhereTheRoundedCoefficientsNoLongerTellTheCurve) {
    Rows far, near;
    for (int i = 0; i <= 20; ++i) {
        const double y = std::sin(i * 0.4);
        far.push_back({2000.0 + i, y});
        near.push_back({static_cast<double>(i), y});
    }
    const FitSolution a = solved(far, 5), b = solved(near, 5);
    EXPECT_FALSE(a.precise);
    EXPECT_TRUE(b.precise);
    EXPECT_TRUE(solved(far, cubicFit).precise);
    for (std::size_t i = 0; i < far.size(); ++i) EXPECT_NEAR(a.fitted[i], b.fitted[i], 1e-12);
}

// ---- the elimination ----

TEST(GaussJordan, SolvesInWhateverOrderThePivotsStand) {
    const auto unknowns = gaussjordan({{{0, 2, 0}, {0, 0, 4}, {5, 0, 0}}, {6, 8, 10}});
    ASSERT_TRUE(unknowns);
    EXPECT_EQ((*unknowns)[0].value(), 2);
    EXPECT_EQ((*unknowns)[1].value(), 3);
    EXPECT_EQ((*unknowns)[2].value(), 2);
}

TEST(GaussJordan, APivotOfZeroIsASingularSystem) {
    EXPECT_FALSE(gaussjordan({{{1, 2}, {2, 4}}, {3, 6}}));
    EXPECT_FALSE(gaussjordan({{{0}}, {1}}));
    EXPECT_FALSE(gaussjordan({{{NAN}}, {1}}));
}

/// The Hilbert system of order 8, whose condition is 1.5e10, with the sums of its rows: every unknown is 1.
TEST(GaussJordan, KeepsAllDigitsOfAnIllConditionedSystem) {
    constexpr int size = 8;
    LinearSystem hilbert{std::vector(size, std::vector<Twofold>(size)), std::vector<Twofold>(size)};
    for (int i = 0; i < size; ++i)
        for (int j = 0; j < size; ++j) {
            hilbert.a[i][j] = Twofold(1) / Twofold(i + j + 1);
            hilbert.b[i] += hilbert.a[i][j];
        }
    const auto unknowns = gaussjordan(hilbert);
    ASSERT_TRUE(unknowns);
    for (const Twofold& unknown : *unknowns) EXPECT_NEAR(unknown.value(), 1, 1e-15);
}
