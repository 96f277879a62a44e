#include "plot/readout.h"

#include <algorithm>
#include <cmath>

#include "plot/plotfile.h"
#include "support/lifefixture.h"

namespace {

class PlotReadout : public LifeTest {
protected:
    void plot(const std::vector<Cells>& all) {
        sets(all);
        std::string picture;
        ASSERT_TRUE(plotsvg(picture, 800, 600));
    }
    const PlotWindow& window = session.window;
};

TEST_F(PlotReadout, ThePlaceOfAPointReadsItsValues) {
    plot({{"10", "20", "30", "50", "90"}});
    const auto points = placedpoints(window);
    ASSERT_EQ(points.size(), 5u);
    for (const PlacedPoint& point : points) {
        const auto place = plotplace(window, point.x, point.y);
        ASSERT_TRUE(place) << point.point;
        EXPECT_RELATIVE(place->x, static_cast<double>(session.X(stride, point.point)), 1e-4);
        EXPECT_RELATIVE(place->y, position(point.point), 1e-4);
    }
}

TEST_F(PlotReadout, OutsideThePlotAreaThereIsNothing) {
    plot({{"10", "20", "30"}});
    EXPECT_FALSE(plotplace(window, window.left - 1, window.top + 1));
    EXPECT_FALSE(plotplace(window, window.left + 1, window.bottom + 1));
    EXPECT_TRUE(plotplace(window, window.left, window.bottom));
    EXPECT_FALSE(plotplace(PlotWindow{}, 0, 0));
}

TEST_F(PlotReadout, TheNearestPointIsFoundWithinReach) {
    plot({{"10", "20", "30"}, {"15", "25", "80"}});
    const auto points = placedpoints(window);
    const auto wanted = std::find_if(points.begin(), points.end(),
                                     [](const PlacedPoint& one) { return one.set == 2 && one.point == 3; });
    ASSERT_NE(wanted, points.end());
    const auto near = nearestpoint(points, wanted->x + 60, wanted->y - 60, 180);
    ASSERT_TRUE(near);
    EXPECT_EQ(near->set, 2);
    EXPECT_EQ(near->point, 3);
    EXPECT_FALSE(nearestpoint(points, wanted->x + 181, wanted->y, 180));
    EXPECT_FALSE(nearestpoint({}, 0, 0, 1e9));
}

TEST_F(PlotReadout, ASuspensionIsFoundAtTheFootOfThePlot) {
    plot({{"10", "20", "-25", "30"}});
    const auto points = placedpoints(window);
    const auto susp =
        std::find_if(points.begin(), points.end(), [](const PlacedPoint& one) { return one.suspended; });
    ASSERT_NE(susp, points.end());
    const auto near = nearestpoint(points, susp->x, window.bottom - 300, 180);
    ASSERT_TRUE(near);
    EXPECT_TRUE(near->suspended);
    EXPECT_NE(readouttext(*plotplace(window, susp->x, window.bottom - 300), near).find(">25"),
              std::string::npos);
}

TEST_F(PlotReadout, HiddenPointsAndSetsAreNotFound) {
    plot({{"10", "20", "30"}, {"15", "25", "80"}});
    session.lineHide(1) = 1;
    for (const PlacedPoint& point : placedpoints(window)) EXPECT_EQ(point.set, 2);
    session.pointHide = 1;
    EXPECT_TRUE(placedpoints(window).empty());
}

TEST_F(PlotReadout, PointsBetweenTheDrawnOnesAreNotFound) {
    session.pointInterval = 3;
    plot({{"10", "20", "30", "50", "90"}, {"15", "25"}});
    const auto points = placedpoints(window);
    ASSERT_EQ(points.size(), 3u);
    EXPECT_EQ(points[0].point, 1);
    EXPECT_EQ(points[1].point, 4);
    EXPECT_EQ(points[2].set, 2);
    EXPECT_EQ(points[2].point, 1);
}

TEST_F(PlotReadout, TheProbabilityIsSpeltAsTheAxisSpellsIt) {
    plot({{"10", "20", "30"}});
    const PlotPlace place{12.5, 0.25};
    EXPECT_EQ(readouttext(place, {}), "X = 12.5   Y = 25%");
    session.yScaleKind = reliabilityPercent;
    EXPECT_EQ(readouttext(place, {}), "X = 12.5   Y = 75%");
    session.yScaleKind = occurrencePerThousand;
    EXPECT_EQ(readouttext(place, {}), "X = 12.5   Y = 250/1000");
    session.yScaleKind = reliabilityProbability;
    EXPECT_EQ(readouttext(place, {}), "X = 12.5   Y = .75");
    session.yScaleKind = 99;
    EXPECT_EQ(readouttext(place, {}), "X = 12.5   Y = 25%") << "a kind that a file made up";
}

TEST_F(PlotReadout, NamesThePointWithItsLabel) {
    plot({{"10_first {a}", "20", "30"}});
    const auto points = placedpoints(window);
    ASSERT_FALSE(points.empty());
    EXPECT_TRUE(readouttext({10, 0.2}, points[0]).ends_with("Set 1 Point 1: 10 _first {a}"))
        << readouttext({10, 0.2}, points[0]);
}

TEST_F(PlotReadout, ManyPointsAreSearchedAtOnce) {
    std::vector<PlacedPoint> many(768000);
    for (std::size_t i = 0; i < many.size(); ++i) many[i].x = static_cast<float>(i);
    const auto near = nearestpoint(many, 767999, 0, 10);
    ASSERT_TRUE(near);
    EXPECT_EQ(near->x, 767999.0f);
}

} // namespace
