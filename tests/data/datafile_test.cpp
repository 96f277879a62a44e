#include "data/datafile.h"

#include <gtest/gtest.h>

#include <limits>

#include "platform/headless/headless.h"
#include "support/filefixture.h"
#include "support/scriptedplatform.h"

namespace {

TEST(DataFile, ASessionIsReadBackAsItWas) {
    FreshSession life(lifeSide);
    ScriptedPlatform desktop;
    gridread({{"100", "-150x0x2", "200x0x1x0_pump A  7"}, {"5", "6"}});
    session.gridTitles = {"Pump_A 2", ""};
    const std::string first = written();
    FreshSession again(lifeSide);
    ASSERT_EQ(readfiletext(first), FileRead::read);
    EXPECT_EQ(session.u, 0);
    EXPECT_EQ(session.lastRow, 6);
    EXPECT_EQ(session.gridCells[0], (std::vector<std::string>{"100", "-150x0x2", "200_pump A  7"}));
    EXPECT_EQ(session.gridCells[1], (std::vector<std::string>{"5", "6"}));
    EXPECT_EQ(session.gridTitles, std::vector<std::string>{"Pump_A 2"});
    EXPECT_EQ(session.X(3, 2), -150);
    EXPECT_EQ(session.v1(1, 2), 2);
    EXPECT_EQ(session.pointLabels[1][3], "pump A  7");
    EXPECT_EQ(written(), first);
}

TEST(DataFile, AnEmptySetListOpensAsAnEmptySession) {
    FreshSession life(lifeSide);
    ScriptedPlatform desktop;
    gridread({{"1", "2"}});
    ASSERT_EQ(readfiletext(lifehead(0, "")), FileRead::read);
    EXPECT_EQ(session.lastRow, 0);
    EXPECT_TRUE(session.gridCells.empty());
}

TEST(DataFile, ACommaFileReadsOnASessionWithAPoint) {
    FreshSession life(lifeSide);
    ScriptedPlatform desktop;
    std::string text = lifehead(1, "SET_A_1,5_2\r\n2\r\n1,25 0 1 0\r\n-3,5 0 2 0 IX-no, 4\r\n", "3:-2");
    text.replace(text.find("[.]"), 3, "[,]");
    ASSERT_EQ(readfiletext(text), FileRead::read);
    EXPECT_EQ(session.X(3, 1), 1.25f);
    EXPECT_EQ(session.X(3, 2), -3.5f);
    EXPECT_EQ(session.gridCells[0], (std::vector<std::string>{"1.25", "-3.5x0x2_no, 4"}));
    EXPECT_EQ(session.setRange(1)[0], 1.5);
}

TEST(DataFile, ADecimalSymbolThatLineOneCannotNameIsWrittenAsAPoint) {
    FreshSession life(lifeSide);
    ScriptedPlatform desktop;
    gridread({{"1.5"}});
    const std::string plain = written();
    session.decimalSeparator = "\xD9\xAB";
    EXPECT_EQ(written(), plain);
    EXPECT_EQ(session.decimalSeparator, "\xD9\xAB");
    ASSERT_EQ(readfiletext(plain), FileRead::read);
    EXPECT_EQ(session.X(3, 1), 1.5f);
}

TEST(DataFile, APointThatIsNoNumberComesBackAsNone) {
    FreshSession life(lifeSide);
    HeadlessPlatform desktop;
    Platform* const former = std::exchange(platform, &desktop);
    gridread({{"1", "2", "3"}});
    session.entryX(3, 2) = std::numeric_limits<float>::quiet_NaN();
    const std::string text = written();
    ASSERT_EQ(readfiletext(text), FileRead::read);
    EXPECT_EQ(session.gridCells[0], (std::vector<std::string>{"1", "3"}));
    EXPECT_NE(session.fileNotes.find("Bad Data (1)"), std::string::npos);
    platform = former;
}

} // namespace
