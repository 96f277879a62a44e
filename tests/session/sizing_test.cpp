#include "session/sizing.h"

#include <gtest/gtest.h>

#include "session/session.h"
#include "support/freshsession.h"
#include "support/scriptedplatform.h"

namespace {

/// Memory of a given size for each single array.
std::size_t largestGranted = 0;
bool granted(std::size_t bytes) { return bytes <= largestGranted; }

class Sizing : public testing::Test {
protected:
    ~Sizing() override { memorygranted = nullptr; }
    static void limit(std::size_t bytes) {
        largestGranted = bytes;
        memorygranted = granted;
    }
    /// Bytes of the largest table at a size exponent.
    static std::size_t tableat(int exponent) {
        const std::size_t points = (18000u << exponent) / 24;
        return (24 + 3 + 1 + 1) * (points + 1) * sizeof(float);
    }

    FreshSession fresh{lifeSide};
    ScriptedPlatform desktop;
};

TEST_F(Sizing, AShortageLowersTheExponentAndTellsEachStep) {
    session.sizeExponent = 4;
    limit(tableat(2));
    desktop.expectmessage("Not Enough Free Memory Setup Change Possible?");
    desktop.expectmessage("Not Enough Free Memory Setup Change Possible?");
    EXPECT_TRUE(sizearrays());
    EXPECT_EQ(session.sizeExponent, 2);
    EXPECT_EQ(session.maxPoints, 3000);
}

TEST_F(Sizing, AtTheFloorTheBudgetIsHalved) {
    limit(tableat(0) / 2);
    desktop.expectmessage("Not Enough Free Memory");
    EXPECT_TRUE(sizearrays());
    EXPECT_EQ(session.sizeExponent, 0);
    EXPECT_LT(session.maxPoints, 750);
    EXPECT_GE(session.maxPoints, 35);
    memorygranted = nullptr;
    session.sizeExponent = 1;
    EXPECT_TRUE(sizearrays());
    EXPECT_EQ(session.maxPoints, 1500) << "a later sizing begins with the whole budget";
}

TEST_F(Sizing, FewerThanThirtyFivePointsEndTheProgram) {
    limit(16);
    desktop.expectmessage("Not Enough Free Memory Setup Change Possible?");
    desktop.expectmessage("Not Enough Free Memory Setup Change Possible?");
    EXPECT_FALSE(sizearrays());
    EXPECT_EQ(session.maxPoints, 0);
}

TEST_F(Sizing, ARequestRaisesTheExponentAndIsNeverUndercut) {
    for (const double points : {100.0, 1500.0, 1501.0, 3000.0, 5000.0, 100000.0, 700000.0}) {
        session.sizeExponent = 1;
        raisefor(8, points);
        EXPECT_TRUE(sizearrays());
        EXPECT_GE(session.maxPoints, points);
        EXPECT_LE(session.maxPoints, std::max(1500.0, 4 * points));
    }
    session.sizeExponent = 1;
    raisefor(8, 1499);
    EXPECT_EQ(session.sizeExponent, 1) << "less than what is there changes nothing";
    for (const double points : {5000.0, 500000.0}) {
        session.sizeExponent = 1;
        raisefor(1, points);
        EXPECT_TRUE(sizearrays());
        EXPECT_GE(session.maxPoints, points) << "one set needs its room as well";
    }
    raisefor(1e30, 1e30);
    EXPECT_EQ(session.sizeExponent, 10);
}

TEST_F(Sizing, ALongColumnGetsRoomAndAShortOneLeavesTheArrays) {
    EXPECT_TRUE(roomfor(1500));
    EXPECT_EQ(session.sizeExponent, 1);
    EXPECT_TRUE(roomfor(20000));
    EXPECT_GE(session.maxPoints, 20000);
    EXPECT_TRUE(roomfor(5000000));
    EXPECT_EQ(session.sizeExponent, 10);
}

} // namespace
