#include "plot/labelplace.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

namespace {

constexpr ClipWindow area{0, 0, 10000, 7000};
constexpr double size = 150;

struct Box {
    double left, top, right, bottom;
};

Box boxof(const LabelPlaces::Spot& spot, double width) {
    return {spot.x, spot.y - 0.75 * size, spot.x + width, spot.y + 0.25 * size};
}

bool overlap(const Box& a, const Box& b) {
    return a.left < b.right && b.left < a.right && a.top < b.bottom && b.top < a.bottom;
}

TEST(LabelPlaces, ALoneLabelStandsRightOfItsPoint) {
    LabelPlaces places(area, size);
    const auto spot = places.place(5000, 3000, 600);
    ASSERT_TRUE(spot);
    EXPECT_GT(spot->x, 5000);
    EXPECT_NEAR(spot->y, 3000, size);
}

TEST(LabelPlaces, AtTheRightEdgeTheLabelStandsLeftOfItsPoint) {
    LabelPlaces places(area, size);
    const auto spot = places.place(9900, 3000, 600);
    ASSERT_TRUE(spot);
    EXPECT_LE(spot->x + 600, 9900);
}

TEST(LabelPlaces, ALabelWiderThanTheAreaIsLeftOut) {
    LabelPlaces places(area, size);
    EXPECT_FALSE(places.place(5000, 3000, 20000));
}

TEST(LabelPlaces, FiveHundredLabelsNeverCoverEachOtherOrAPoint) {
    LabelPlaces places(area, size);
    std::mt19937 random(11);
    std::uniform_real_distribution<double> x(0, 10000);
    std::uniform_real_distribution<double> y(0, 7000);
    std::vector<std::pair<double, double>> points;
    for (int i = 0; i < 500; ++i) points.emplace_back(x(random), y(random));
    for (const auto& [px, py] : points) places.keepfree(px, py, 40);
    std::vector<Box> taken;
    for (const auto& [px, py] : points)
        if (const auto spot = places.place(px, py, 700)) taken.push_back(boxof(*spot, 700));
    EXPECT_GT(taken.size(), 50u) << "some labels find room";
    for (std::size_t i = 0; i < taken.size(); ++i) {
        ASSERT_GE(taken[i].left, area.left);
        ASSERT_LE(taken[i].right, area.right);
        for (std::size_t j = 0; j < i; ++j) ASSERT_FALSE(overlap(taken[i], taken[j])) << i << ' ' << j;
        for (const auto& [px, py] : points) {
            const bool covered =
                px > taken[i].left && px < taken[i].right && py > taken[i].top && py < taken[i].bottom;
            ASSERT_FALSE(covered);
        }
    }
}

} // namespace
