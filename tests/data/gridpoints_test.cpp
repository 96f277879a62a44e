#include "data/gridpoints.h"

#include <gtest/gtest.h>

#include "support/freshsession.h"

namespace {

class GridPoints : public testing::Test {
protected:
    FreshSession fresh{visualSide};
};

} // namespace

TEST_F(GridPoints, ComeBackAsTheyWere) {
    session.gridCells = {{"10", "10x0", "10x3", "5xx2", "5xx1x7_end", "6x0x3", "1x2x3x4_a b"}};
    const auto points = gridpoints(1);
    for (std::size_t i = 0; i < points.size(); ++i) {
        ASSERT_TRUE(points[i]);
        EXPECT_EQ(pointtext(*points[i]), session.gridCells[0][i]);
    }
    EXPECT_FALSE(points[3]->hasY) << "an empty field is a Y that was not measured";
    EXPECT_TRUE(points[1]->hasY) << "a zero is one that was";
}

TEST_F(GridPoints, ACommaThatIsNotTheDecimalSymbolMakesNoPoint) {
    session.gridCells = {{"1,5x2", "_label, alone", "3x4_with, a comma", "text"}};
    const auto points = gridpoints(1);
    EXPECT_FALSE(points[0]);
    EXPECT_FALSE(points[1]);
    EXPECT_TRUE(points[2]);
    EXPECT_FALSE(points[3]);
    session.decimalSeparator = ",";
    EXPECT_TRUE(gridpoints(1)[0]);
}

TEST_F(GridPoints, AReservedNumberCannotBeWrittenIntoACell) {
    session.gridCells = {{"1x2"}};
    GridPoint point = *gridpoints(1)[0];
    point.cell.y = static_cast<float>(noAnswer);
    EXPECT_FALSE(pointtext(point));
}
