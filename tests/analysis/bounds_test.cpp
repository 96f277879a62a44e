#include "analysis/bounds.h"

#include <gtest/gtest.h>

#include <limits>

#include "session/session.h"
#include "support/freshsession.h"

namespace {

class BoundRows : public ::testing::Test {
protected:
    void SetUp() override { session.lastRow = 3; }
    FreshSession fresh{lifeSide};
};

TEST_F(BoundRows, StandBeforeTheRowOfTheirSet) {
    EXPECT_EQ(boundrow(1, BoundSide::low), 1);
    EXPECT_EQ(boundrow(1, BoundSide::high), 2);
    EXPECT_EQ(boundrow(3, BoundSide::low), 7);
}

TEST_F(BoundRows, TakePointsInOrderAndDropWhatIsNoNumber) {
    addbound(1, BoundSide::low, 150, .1);
    addbound(1, BoundSide::low, std::numeric_limits<double>::quiet_NaN(), .2);
    addbound(1, BoundSide::low, 210, .5);
    EXPECT_EQ(session.n(1), 2);
    EXPECT_EQ(session.n(2), 0);
    EXPECT_EQ(session.X(1, 2), 210);
    EXPECT_FLOAT_EQ(session.Y(1, 2), .5f);
    clearbounds(1);
    EXPECT_EQ(session.n(1), 0);
}

TEST_F(BoundRows, DropWhatNoDataCanHaveRatherThanClipIt) {
    for (const double x : {1e31, -1e31, 1e-31, 9e30, 9e-30, 0.0}) addbound(1, BoundSide::low, x, .1);
    EXPECT_EQ(session.n(1), 0);
    addbound(1, BoundSide::low, 8e30, .1);
    addbound(1, BoundSide::low, 1e-29, .1);
    EXPECT_EQ(session.n(1), 2);
    session.negativeXAllowed = 1;
    addbound(1, BoundSide::low, 0, .1);
    EXPECT_EQ(session.n(1), 3);
}

TEST_F(BoundRows, AreLimitedByTheRoomOfARow) {
    session.n(1) = session.maxPoints;
    addbound(1, BoundSide::low, 1, .5);
    EXPECT_EQ(session.n(1), session.maxPoints);
}

TEST(BoundProbabilities, RiseWithinTheAxisAndHoldTheCharacteristicLife) {
    const auto all = boundprobabilities();
    EXPECT_DOUBLE_EQ(all.front(), 1e-6);
    EXPECT_DOUBLE_EQ(all.back(), .99999);
    bool characteristic = false;
    for (std::size_t i = 0; i < all.size(); ++i) {
        if (i > 0) {
            EXPECT_GT(all[i], all[i - 1]);
        }
        characteristic = characteristic || all[i] == .63212;
    }
    EXPECT_TRUE(characteristic);
}

} // namespace
