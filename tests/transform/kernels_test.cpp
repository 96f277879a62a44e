#include "transform/kernels.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numbers>
#include <random>
#include <utility>
#include <vector>

namespace {

std::vector<double> totalsof(const std::vector<WeightedValue>& values, int intervals) {
    std::vector<double> totals;
    for (const HistogramRow& row : histogramof(values, intervals)) totals.push_back(row.total);
    return totals;
}

std::vector<WeightedValue> once(const std::vector<double>& values) {
    std::vector<WeightedValue> weighted;
    for (const double value : values) weighted.push_back({value});
    return weighted;
}

/// Points over the plane, in single precision as cells hold them: sizes from 1E-6 to 1E6.
std::vector<PlanePoint> plane() {
    std::mt19937 random(20);
    std::uniform_real_distribution<double> turn(-180, 180), size(-6, 6);
    std::vector<PlanePoint> points;
    for (int i = 0; i < 20000; ++i) {
        const double angle = turn(random) * std::numbers::pi / 180, radius = std::pow(10, size(random));
        points.push_back(
            {static_cast<float>(radius * std::cos(angle)), static_cast<float>(radius * std::sin(angle))});
    }
    return points;
}

PlanePoint single(PlanePoint point) { return {static_cast<float>(point.x), static_cast<float>(point.y)}; }

/// Largest distance of two points, in the unit of single precision at their radius.
double distance(PlanePoint a, PlanePoint b) {
    return std::hypot(a.x - b.x, a.y - b.y) / (std::hypot(a.x, a.y) * std::numeric_limits<float>::epsilon());
}

} // namespace

TEST(Polar, AnglesOfTheEightDirectionsAreExact) {
    const struct {
        double x, y, angle, radius;
    } directions[] = {
        {2, 0, 0, 2},    {1, 1, 45, std::sqrt(2)},     {0, 2, 90, 2},   {-1, 1, 135, std::sqrt(2)},
        {-3, 0, 180, 3}, {-1, -1, -135, std::sqrt(2)}, {0, -4, -90, 4}, {1, -1, -45, std::sqrt(2)},
        {3, -0.0, 0, 3}, {-3, -0.0, 180, 3},           {0, 0, 0, 0},    {-0.0, -0.0, 0, 0}};
    for (const auto& d : directions) {
        const PlanePoint polar = topolar({d.x, d.y});
        EXPECT_DOUBLE_EQ(polar.x, d.angle) << d.x << ", " << d.y;
        EXPECT_DOUBLE_EQ(polar.y, d.radius) << d.x << ", " << d.y;
    }
}

TEST(Polar, TheTriangleOfThreeFourFiveHasItsAngle) {
    // atan(4/3) = 53.130102354155978703 degrees
    EXPECT_DOUBLE_EQ(topolar({3, 4}).x, 53.13010235415598);
    EXPECT_DOUBLE_EQ(topolar({3, 4}).y, 5);
}

TEST(Polar, QuarterTurnsLeaveNoRest) {
    const std::pair<double, PlanePoint> quarters[] = {{0, {2, 0}},     {90, {0, 2}},   {180, {-2, 0}},
                                                      {270, {0, -2}},  {360, {2, 0}},  {-90, {0, -2}},
                                                      {-180, {-2, 0}}, {-270, {0, 2}}, {3690, {0, 2}}};
    for (const auto& [angle, expected] : quarters) {
        const PlanePoint point = torectangular({angle, 2});
        EXPECT_EQ(point.x, expected.x) << angle;
        EXPECT_EQ(point.y, expected.y) << angle;
    }
}

TEST(Polar, SixtyDegreesIsHalfTheRadius) {
    const PlanePoint point = torectangular({60, 4});
    EXPECT_DOUBLE_EQ(point.x, 2);
    EXPECT_DOUBLE_EQ(point.y, 2 * std::sqrt(3));
    const PlanePoint behind = torectangular({60, -4});
    EXPECT_DOUBLE_EQ(behind.x, -2);
    EXPECT_DOUBLE_EQ(behind.y, -2 * std::sqrt(3));
}

TEST(Polar, ThereAndBackGivesTheDataToSinglePrecision) {
    double worst = 0;
    for (const PlanePoint& point : plane())
        worst = std::max(worst, distance(point, torectangular(single(topolar(point)))));
    // From 128 degrees on an angle is off by 2^-17 degrees at most, 1.12 units; the radius by half a unit.
    EXPECT_LT(worst, std::hypot(1.12, 0.5));
}

TEST(Rotation, AQuarterTurnIsExact) {
    const PlanePoint point = rotated({3, 4}, 90);
    EXPECT_EQ(point.x, -4);
    EXPECT_EQ(point.y, 3);
}

TEST(Rotation, ThirtyDegreesByHand) {
    const PlanePoint point = rotated({2, 0}, 30);
    EXPECT_DOUBLE_EQ(point.x, std::sqrt(3));
    EXPECT_DOUBLE_EQ(point.y, 1);
}

TEST(Rotation, ThereAndBackGivesTheDataToSinglePrecision) {
    double worst = 0;
    for (const double angle : {0.001, 30.0, 123.456, 359.0, -725.5})
        for (const PlanePoint& point : plane())
            worst = std::max(worst, distance(point, rotated(single(rotated(point, angle)), -angle)));
    EXPECT_LT(worst, 0.51 * std::sqrt(2)); // each coordinate in between is off by half a unit at most
}

TEST(HistogramOf, CountsByHand) {
    // 9 over 8 intervals: edges 1, 2.125, 3.25, 4.375, 5.5, 6.625, 7.75, 8.875, 10.
    const auto rows = histogramof(once({1, 2, 2, 3, 3, 3, 4, 4, 5, 10}), 8);
    const double middles[] = {1.5625, 2.6875, 3.8125, 4.9375, 6.0625, 7.1875, 8.3125, 9.4375};
    const double totals[] = {3, 3, 2, 1, 0, 0, 0, 1};
    ASSERT_EQ(rows.size(), 8u);
    for (std::size_t i = 0; i < 8; ++i) {
        EXPECT_DOUBLE_EQ(rows[i].middle, middles[i]);
        EXPECT_EQ(rows[i].total, totals[i]);
    }
}

TEST(HistogramOf, AValueOnAnEdgeBelongsAboveAndTheGreatestToTheLast) {
    EXPECT_EQ(totalsof(once({0, 2, 4, 6, 8, 10}), 5), (std::vector<double>{1, 1, 1, 1, 2}));
}

TEST(HistogramOf, AnEdgeInSinglePrecisionIsStillTheEdge) {
    std::vector<double> tenths;
    for (int i = 0; i <= 10; ++i) tenths.push_back(static_cast<float>(i) / 10.0f);
    EXPECT_EQ(totalsof(once(tenths), 5), (std::vector<double>{2, 2, 2, 2, 3}));
    EXPECT_EQ(totalsof(once(tenths), 10), (std::vector<double>{1, 1, 1, 1, 1, 1, 1, 1, 1, 2}));
}

TEST(HistogramOf, WeightsCountAsTheyAreNegativeOnesToo) {
    EXPECT_EQ(totalsof({{0, 2.5}, {1, -1}, {10, 4}}, 5), (std::vector<double>{1.5, 0, 0, 0, 4}));
}

TEST(HistogramOf, EqualValuesStandInTheMiddleOfABar) {
    for (const int intervals : {5, 8}) {
        const auto rows = histogramof(once({40, 40, 40}), intervals);
        int bars = 0;
        for (const HistogramRow& row : rows) {
            if (row.total == 0) continue;
            ++bars;
            EXPECT_DOUBLE_EQ(row.middle, 40);
            EXPECT_EQ(row.total, 3);
        }
        EXPECT_EQ(bars, 1) << intervals;
    }
}

TEST(HistogramOf, EveryValueIsCountedOnceWhateverTheRange) {
    for (const double offset : {0.0, 1e7, -3e8})
        for (const double spread : {1.0, 1e-3, 1e20}) {
            std::vector<WeightedValue> values;
            for (int i = 0; i < 1000; ++i) values.push_back({offset + spread * std::sin(i), 1});
            double sum = 0;
            for (const HistogramRow& row : histogramof(values, 23)) sum += row.total;
            EXPECT_EQ(sum, 1000);
        }
}

TEST(HistogramOf, NothingGivesNothing) {
    EXPECT_TRUE(histogramof({}, 5).empty());
    EXPECT_TRUE(histogramof(once({1}), 0).empty());
}

TEST(TotalsByX, AddWhatStandsAtTheSameXInOrder) {
    const auto totals = totalsbyx({{3, 1, 30}, {1, 1, 10}, {1, 2, 5}, {2, 2, 7}, {1, 1, .5}});
    ASSERT_EQ(totals.size(), 3u);
    EXPECT_EQ(totals[0].x, 1);
    EXPECT_EQ(totals[0].total, 15.5);
    EXPECT_TRUE(totals[0].ofall);
    EXPECT_EQ(totals[1].total, 7);
    EXPECT_FALSE(totals[1].ofall);
    EXPECT_EQ(totals[2].x, 3);
    EXPECT_FALSE(totals[2].ofall);
    EXPECT_TRUE(totalsbyx({}).empty());
}

TEST(CellNumber, IsNoneWhereNoCellReadsItBack) {
    constexpr double inf = std::numeric_limits<double>::infinity();
    for (const double none : {double{NAN}, inf, -inf, 1e34, -1e34, 1e300})
        EXPECT_FALSE(cellnumber(none)) << none;
    EXPECT_EQ(cellnumber(7e33), 7e33f);
    EXPECT_EQ(cellnumber(-0.1), -0.1f);
    EXPECT_EQ(cellnumber(1e-40), 0.0f);
    EXPECT_EQ(cellnumber(0), 0.0f);
    EXPECT_FALSE(std::signbit(*cellnumber(-0.0)));
}
