#include <gtest/gtest.h>

#include <cmath>

#include "data/cell.h"
#include "data/datafilesave.h"
#include "data/resultsjson.h"
#include "plot/shown.h"
#include "session/opendata.h"
#include "shell/gridedit.h"
#include "support/lifefixture.h"
#include "support/workfolder.h"

/// A cell of the visual side that has an X alone: its Y was not measured.

namespace {

class MissingOrdinate : public LifeTest {
protected:
    MissingOrdinate() {
        chooseside(visualSide);
        EXPECT_TRUE(allocatearrays());
        life({"1x2", "2x4", "3_later", "4x8.5", "5xx2", "6x0"});
    }
    WorkFolder folder;
};

TEST_F(MissingOrdinate, CountsAsZeroAndIsShownNowhere) {
    EXPECT_EQ(session.Y(1, 3), 0);
    EXPECT_FALSE(hasordinate(1, 3));
    EXPECT_FALSE(hasordinate(1, 5)) << "an empty field between two that are given";
    EXPECT_TRUE(hasordinate(1, 6)) << "a zero that was typed was measured";
    EXPECT_FALSE(shownpoint(1, 3).placed);
    EXPECT_FALSE(hasploty(shownpoint(1, 3).y));
    EXPECT_TRUE(hasploty(shownpoint(1, 6).y));
}

TEST_F(MissingOrdinate, StaysMissingInAFileAndInTheCells) {
    const std::string path = folder.path("open.v");
    ASSERT_TRUE(datafilesave(path));
    life({"9x9"});
    ASSERT_EQ(opendata(path), DataRead::read);
    calcplot();
    EXPECT_EQ(session.gridCells[0], (Cells{"1x2", "2x4", "3_later", "4x8.5", "5xx2", "6x0"}));
    EXPECT_FALSE(hasordinate(1, 3));
    EXPECT_TRUE(hasordinate(1, 6));
    EXPECT_TRUE(desktop.messages.empty()) << desktop.messages.front() << " (the check value holds)";
    gridputall();
    EXPECT_EQ(session.gridCells[0][2], "3_later");
    EXPECT_EQ(session.gridCells[0][4], "5xx2");
    EXPECT_EQ(session.gridCells[0][5], "6x0");
}

TEST_F(MissingOrdinate, IsNullInTheResults) {
    std::string json;
    writeresults(json);
    EXPECT_NE(json.find("\"y\": null"), std::string::npos) << json.substr(0, 400);
}

} // namespace
