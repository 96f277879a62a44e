// The bound methods against hand arithmetic, and on hard data.

#include <gtest/gtest.h>

#include "analysis/bounds.h"
#include "analysis/contour.h"
#include "analysis/information.h"
#include "numeric/binomial.h"
#include "numeric/chisquare.h"
#include "numeric/noncentralt.h"
#include "numeric/normal.h"
#include "support/boundsfixture.h"
#include "support/families.h"
#include "support/reference.h"

namespace {

// ---- Fisher ----

TEST_F(BoundsTest, FisherBoundsOfACompleteWeibullSetFollowTheSumsOfItsData) {
    // var ln beta from the inverse of {beta^2 S0, -beta (S0 + S1 - r); S2 + r}, with S0 = r at the maximum.
    session.confMethod = fisherBounds;
    life(complete);
    const double ratio = session.paramHigh(1, 2) / fit().beta;
    EXPECT_RELATIVE(fit().beta / session.paramLow(1, 2), ratio, 1e-12);
    double s2 = 0;
    for (const std::string& cell : complete) {
        const double z = fit().beta * std::log(std::stod(cell) / fit().eta);
        s2 += std::exp(z) * z * z;
    }
    const double r = 8;
    double s1 = 0;
    for (const std::string& cell : complete) {
        const double z = fit().beta * std::log(std::stod(cell) / fit().eta);
        s1 += std::exp(z) * z;
    }
    const double variance = r / (r * (s2 + r) - s1 * s1); // S0 = r at the maximum
    EXPECT_RELATIVE(ratio, std::exp(normquantile(0.95) * std::sqrt(variance)), 1e-9);
}

TEST_F(BoundsTest, TheFormsOfTheFisherMatrixAgreeAtTheMaximum) {
    session.confMethod = fisherBounds;
    life(censored);
    const double plain = at(BoundSide::low, 0.1);
    const std::pair<int16_t, const char*> forms[] = {{1, "mb"}, {2, "mc"}};
    for (const auto& [form, code] : forms) {
        session.fisherForm = form;
        life(censored);
        EXPECT_EQ(session.setBoundLabel(1), code);
        EXPECT_RELATIVE(at(BoundSide::low, 0.1), plain, 1e-6);
    }
    choosemethod(rankRegression);
    double last = 0;
    for (const int form : {0, 1, 2}) {
        session.fisherForm = static_cast<int16_t>(form);
        life(censored);
        EXPECT_NE(at(BoundSide::low, 0.1), last) << form;
        last = at(BoundSide::low, 0.1);
    }
    choose(gumbel);
    life(censored);
    EXPECT_EQ(session.setBoundLabel(1), "fm");
}

TEST(ObservedInformation, IsTheCurvatureOfTheLikelihoodOfEveryKindOfPoint) {
    const std::vector<LifeTerm> terms = {{Known::exactly, 2, 0.3, 0},
                                         {Known::above, 1.5, 1.1, 0},
                                         {Known::below, 1, -0.4, 0},
                                         {Known::between, 3, 0.2, 0.9},
                                         {Known::outside, 1, 0.1, 0.5}};
    for (const double portion : {1.0, 0.6})
        for (const Shape shape : {Shape::smallest, Shape::largest, Shape::bell}) {
            const StandardLine line{shape, false, 0.25, 0.8};
            const auto value = [&](double a, double l) {
                const StandardLine moved{shape, false, line.location + a * line.scale,
                                         line.scale * std::exp(l)};
                double sum = 0;
                for (const LifeTerm& t : terms) {
                    sum += t.weight * logterm(shape, t.known, moved.z(t.low), moved.z(t.high), portion);
                    if (t.known == Known::exactly) sum -= t.weight * std::log(moved.scale);
                }
                return sum;
            };
            const Information i = observedinformation(line, terms, portion);
            const double h = 1e-4;
            const double mid = value(0, 0);
            EXPECT_NEAR(i.slopeA, (value(h, 0) - value(-h, 0)) / (2 * h), 1e-6);
            EXPECT_NEAR(i.slopeL, (value(0, h) - value(0, -h)) / (2 * h), 1e-6);
            EXPECT_NEAR(i.aa, -(value(h, 0) - 2 * mid + value(-h, 0)) / (h * h), 1e-5);
            EXPECT_NEAR(i.ll, -(value(0, h) - 2 * mid + value(0, -h)) / (h * h), 1e-5);
            EXPECT_NEAR(i.al, -(value(h, h) - value(h, -h) - value(-h, h) + value(-h, -h)) / (4 * h * h),
                        1e-5);
        }
}

TEST(ObservedInformation, WithoutAHillHasNoCovariance) {
    EXPECT_FALSE(covarianceof({0, 0, 1, 2, 3}).exists);
    EXPECT_FALSE(covarianceof({0, 0, 1, 1, 1}).exists);
    EXPECT_FALSE(covarianceof({0, 0, -1, 0, -1}).exists);
    EXPECT_FALSE(covarianceof({0, 0, std::nan(""), 0, 1}).exists);
}

// ---- likelihood ratio ----

TEST_F(BoundsTest, ACorrectedLineLiesWithinItsCorrectedContour) {
    session.confMethod = likelihoodBounds;
    life(complete);
    const double plain = session.paramLow(1, 2) / fit().beta;
    for (const int variant : {2, 3, 4, 5})
        for (const ReferenceFamily& family : families) {
            choose(family.family, family.extreme);
            session.mleVariant = static_cast<int16_t>(variant);
            life(complete);
            EXPECT_LT(session.paramLow(1, 1), fit().eta) << family.name << variant;
            EXPECT_GT(session.paramHigh(1, 1), fit().eta) << family.name << variant;
            EXPECT_LT(session.paramLow(1, 2), fit().beta) << family.name << variant;
            EXPECT_GT(session.paramHigh(1, 2), fit().beta) << family.name << variant;
            if (family.family == weibull) {
                EXPECT_RELATIVE(session.paramLow(1, 2) / fit().beta, plain, 1e-9);
            }
        }
}

TEST_F(BoundsTest, TheContourStandsWhereTheLikelihoodIsBelowItsMaximumByHalfTheChiSquare) {
    // Complete Normal data: the profile of the mean is n ln(1 + (m - mu)^2 / v) = chi2, v with divisor n.
    choose(normal);
    session.confMethod = likelihoodBounds;
    life(three);
    const double variance = 2e4 / 3;
    const double off = std::sqrt(variance * std::expm1(chi2inv(0.9, 1) / 3));
    EXPECT_RELATIVE(session.paramLow(1, 1), 200 - off, 1e-10);
    EXPECT_RELATIVE(session.paramHigh(1, 1), 200 + off, 1e-10);
}

TEST(LikelihoodContour, HasTheSameExtremesHoweverManyDirectionsAreWalked) {
    // One failure among suspensions, intervals, a hundred suspensions: contours far from a circle.
    const std::vector<std::vector<LifeTerm>> all = {
        {{Known::exactly, 1, 0, 0}, {Known::above, 3, 0.2, 0}, {Known::above, 1, 0.7, 0}},
        {{Known::between, 2, -1, 0.5}, {Known::below, 1, -0.5, 0}, {Known::between, 2, 0.7, 2}},
        {{Known::exactly, 2, -1, 0}, {Known::exactly, 1, 0.4, 0}, {Known::above, 100, 0.5, 0}}};
    const auto never = [] { return false; };
    for (const auto& terms : all)
        for (const Shape shape : {Shape::smallest, Shape::largest, Shape::bell}) {
            const LineSearch found = maximumlikelihood(shape, terms, 1, 0, never);
            ASSERT_EQ(found.end, SearchEnd::found);
            const StandardLine line{shape, false, found.location, found.scale};
            Contour few(line, terms, 1);
            Contour many(line, terms, 1);
            ASSERT_TRUE(few.walk(chi2inv(0.9, 1) / 2, 30, never));
            ASSERT_TRUE(many.walk(chi2inv(0.9, 1) / 2, 1440, never));
            for (const double t : {-13.8, -4.0, -1.0, 0.0, 2.0}) {
                EXPECT_RELATIVE(few.value(t).low, many.value(t).low, 1e-9);
                EXPECT_RELATIVE(few.value(t).high, many.value(t).high, 1e-9);
            }
            EXPECT_RELATIVE(few.scale().low, many.scale().low, 1e-9);
            EXPECT_RELATIVE(few.scale().high, many.scale().high, 1e-9);
        }
}

TEST_F(BoundsTest, TheTestOfTwoSetsIsNoBound) {
    session.confMethod = -3;
    life(censored);
    EXPECT_EQ(session.ifylcnf, 0);
}

TEST_F(BoundsTest, ALikelihoodWithoutAMaximumHasNoContour) {
    choosemethod(rankRegression);
    session.confMethod = likelihoodBounds;
    session.inputType = intv5;
    life({"10x0x1x30", "12x0x2x50", "15x0x1x25"});
    ASSERT_TRUE(fit().fitted);
    EXPECT_EQ(told(), Notices{"Set 1: Confidence Calculation Truncated"});
    EXPECT_EQ(session.setBoundLabel(1), "");
}

// ---- binomial ----

TEST_F(BoundsTest, BinomialBoundsAreTheExactRanks) {
    session.confMethod = binomialBounds;
    choosemethod(rankRegression);
    session.sizeExponent = 1;
    ErrorSummary errors;
    const ReferenceTable ranks = reference("binomial_ranks.csv");
    for (const int N : {5, 10}) {
        Cells cells;
        for (int i = 1; i <= N; ++i) cells.push_back(std::to_string(100 * std::pow(i, 0.7)));
        life(cells);
        ASSERT_EQ(points(BoundSide::low), N);
        for (std::size_t row = 0; row < ranks.rows.size(); ++row) {
            if (ranks.number(row, "N") != N) continue;
            const int i = static_cast<int>(ranks.number(row, "i"));
            errors.add(session.Y(1, i), ranks.number(row, "p05"), ranks.rows[row][1]);
            errors.add(session.Y(2, i), ranks.number(row, "p95"), ranks.rows[row][1]);
            EXPECT_RELATIVE(session.X(1, i), std::stod(cells[static_cast<std::size_t>(i - 1)]), 2e-7);
        }
    }
    EXPECT_EQ(errors.count, 30u);
    errors.expectwithin(7e-8);
}

TEST_F(BoundsTest, BinomialBoundsBetweenWholeRanksAreStraight) {
    session.confMethod = binomialBounds;
    choosemethod(rankRegression);
    life({"100", "-150", "200", "300"}); // adjusted ranks 1, 2 1/3, 3 2/3 of 4
    const auto first = [](double i) { return 1 - std::pow(0.95, 1 / i); };
    EXPECT_RELATIVE(session.Y(1, 1), first(4), 1e-7);
    BinomialPlan two{4, 1, 0.05, 0}, three3{4, 2, 0.05, 0};
    binosolve(two, BinomialUnknown::p);
    binosolve(three3, BinomialUnknown::p);
    EXPECT_RELATIVE(session.Y(1, 2), two.p * 2 / 3 + three3.p / 3, 1e-6);
    EXPECT_EQ(points(BoundSide::low), 3);
}

TEST_F(BoundsTest, ASingleBinomialPointTakesItsPositionAsConfidence) {
    session.confMethod = -1;
    choosemethod(rankRegression);
    life(three);
    EXPECT_EQ(points(BoundSide::low), 0);
    const double position1 = 0.7 / 3.4; // Benard
    EXPECT_RELATIVE(session.Y(2, 1), 1 - std::cbrt(1 - position1), 1e-6);
}

TEST_F(BoundsTest, ASinglePointLeavesARowOfOne) {
    for (const int16_t method : {fisherBounds, normalTheoryBounds}) {
        choose(normal);
        session.confMethod = method;
        life(complete);
        const double low = at(BoundSide::low, 0.5);
        const double high = at(BoundSide::high, 0.5);
        session.confMethod = static_cast<int16_t>(-method);
        session.singleP = 0.5;
        life(complete);
        ASSERT_EQ(points(BoundSide::low), 1);
        EXPECT_EQ(session.X(1, 1), static_cast<float>(low));
        EXPECT_EQ(session.X(2, 1), static_cast<float>(high));
    }
}

// ---- normal theory ----

TEST_F(BoundsTest, NormalTheoryHasTheFactorsOfItsSample) {
    choose(normal);
    session.confMethod = normalTheoryBounds;
    life({"10", "12", "15", "19", "22", "24", "25", "27", "29", "30"});
    const double mean = 21.3;
    const double s = std::sqrt((11.3 * 11.3 + 9.3 * 9.3 + 6.3 * 6.3 + 2.3 * 2.3 + .7 * .7 + 2.7 * 2.7
                                + 3.7 * 3.7 + 5.7 * 5.7 + 7.7 * 7.7 + 8.7 * 8.7)
                               / 9);
    EXPECT_RELATIVE(at(BoundSide::high, 0.9), mean + 2.35464013182906 * s, 3e-7); // tests/reference
    EXPECT_RELATIVE(at(BoundSide::low, 0.1), mean - 2.35464013182906 * s, 3e-6);
    EXPECT_RELATIVE(session.paramLow(1, 1), mean - 1.6448536269514722 * s / std::sqrt(10), 1e-9);
    // chi-square of 18 degrees of freedom at 0.95 and 0.05 (any table): 28.8693, 9.39046
    EXPECT_RELATIVE(session.paramLow(1, 2), s * std::sqrt(18 / 28.8693), 1e-6);
    EXPECT_RELATIVE(session.paramHigh(1, 2), s * std::sqrt(18 / 9.39046), 1e-6);
    EXPECT_NE(report().find("(Occurrence Sum)=21.3  >"), std::string::npos) << report();
}

TEST_F(BoundsTest, LognormalTheoryIsThatOfTheLogarithms) {
    choose(lognormal);
    session.confMethod = normalTheoryBounds;
    life({"10", "100", "1000"});
    const double s = std::log(10);
    EXPECT_RELATIVE(session.paramHigh(1, 1), 100 * std::exp(1.6448536269514722 * s / std::sqrt(3)), 1e-7);
    EXPECT_RELATIVE(at(BoundSide::high, 0.9), 100 * std::exp(tolerancefactor(3, 0.9, 0.95) * s), 1e-5);
}

// ---- grouped rows ----

TEST_F(BoundsTest, ProbitRowsHaveTheDeviationOfAProportion) {
    session.inputType = prbt2;
    session.confMethod = fisherBounds;
    life({"20x0x2x20", "50x0x8x25", "90x0x17x20"});
    EXPECT_EQ(session.setBoundLabel(1), "pr");
    ASSERT_EQ(points(BoundSide::low), 3);
    const double z = 1.6448536269514722;
    EXPECT_EQ(session.Y(1, 1), 1e-6f); // 0.1 - z sqrt(0.0045) < 0
    EXPECT_RELATIVE(session.Y(2, 1), 0.1 + z * std::sqrt(0.1 * 0.9 / 20), 1e-6);
    EXPECT_RELATIVE(session.Y(1, 2), 0.32 - z * std::sqrt(0.32 * 0.68 / 25), 1e-6);
    EXPECT_EQ(session.X(1, 2), 50);
    session.confMethod = likelihoodBounds;
    life({"20x0x2x20", "50x0x8x25", "90x0x17x20"});
    EXPECT_EQ(session.setBoundLabel(1), "lr");
}

TEST_F(BoundsTest, KaplanMeierRowsHaveGreenwoodsDeviation) {
    session.inputType = km4;
    session.confMethod = fisherBounds;
    life({"20x0x2x3", "50x0x4x1", "90x0x3x2"});
    EXPECT_EQ(session.setBoundLabel(1), "gw");
    // 15 units: 2 of 15 fail, 3 leave, 4 of 10 fail, 1 leaves, 3 of 5 fail, 2 are left.
    const double z = 1.6448536269514722;
    const double s1 = 13 / 15.0;
    const double g1 = 2 / (15.0 * 13);
    const double s2 = s1 * 0.6;
    const double g2 = g1 + 4 / (10.0 * 6);
    ASSERT_EQ(points(BoundSide::high), 3);
    EXPECT_RELATIVE(session.Y(2, 1), 1 - s1 + z * s1 * std::sqrt(g1), 1e-6);
    EXPECT_RELATIVE(session.Y(2, 2), 1 - s2 + z * s2 * std::sqrt(g2), 1e-6);
}

// ---- hard data ----

TEST_F(BoundsTest, HardDataHaveBoundsAboutTheirLine) {
    Cells hundred = {"10", "20", "30", "40", "50"};
    hundred.push_back("-60x0x100");
    const Cells all[] = {{"100", "-120", "-150", "-180", "-200"},
                         hundred,
                         {"1e-12", "2e-12", "5e-12", "-7e-12"},
                         {"1e12", "2e12", "5e12", "-7e12"},
                         {"99", "100x0x50", "101"}};
    for (const Cells& cells : all)
        for (const ReferenceFamily& family : families)
            for (const int16_t method : {fisherBounds, likelihoodBounds}) {
                choose(family.family, family.extreme);
                session.confMethod = method;
                life(cells);
                ASSERT_TRUE(fit().fitted);
                const std::string place = cells[0] + ' ' + family.name + ' ' + std::to_string(method);
                EXPECT_TRUE(told().empty()) << place << ' ' << told().front();
                EXPECT_LE(session.paramLow(1, 1), fit().eta) << place;
                EXPECT_GE(session.paramHigh(1, 1), fit().eta) << place;
                EXPECT_LT(session.paramLow(1, 2), fit().beta) << place;
                EXPECT_GT(session.paramHigh(1, 2), fit().beta) << place;
                EXPECT_GT(points(BoundSide::high), 15) << place;
            }
}

TEST_F(BoundsTest, TiesAloneHaveNoLineAndNoBounds) {
    session.confMethod = likelihoodBounds;
    life({"100", "100", "100"});
    EXPECT_FALSE(fit().fitted);
    EXPECT_EQ(session.setBoundLabel(1), "");
    EXPECT_EQ(session.ifylcnf, 0);
}

TEST_F(BoundsTest, AThresholdShiftsTheCurves) {
    session.confMethod = likelihoodBounds;
    life({"150", "230", "-260", "310"});
    const double low = at(BoundSide::low, 0.5);
    session.t0(1) = 1000;
    life({"1150", "1230", "-1260", "1310"});
    EXPECT_RELATIVE(at(BoundSide::low, 0.5), low + 1000, 2e-7);
}

} // namespace
