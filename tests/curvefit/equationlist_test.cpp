#include "curvefit/equationlist.h"

#include <gtest/gtest.h>

#include <limits>

#include "curvefit/models.h"
#include "platform/files.h"
#include "support/workfolder.h"
#include "support/xyfixture.h"

namespace {

const EquationList pumps{"Pumps, 2nd test", {{"0011001301", {1.5, -2e-7}}, {"44001100130189", {0.1, 3}}}};

std::optional<EquationList> block(const std::string& lines) { return equationlistof("{\n" + lines + "}\n"); }

} // namespace

TEST(EquationList, IsWrittenByItsKeys) {
    EXPECT_EQ(equationlisttext(pumps), "{\r\nEqnsName=Pumps, 2nd test\r\nEqns1=00O+00O*VA 1.5 -.0000002\r\n"
                                       "Eqns2=FC00O+00O*VAL) .1 3\r\n}\r\n");
}

TEST(EquationList, WhatIsWrittenReadsBackToTheLastBit) {
    EXPECT_EQ(equationlistof(equationlisttext(pumps)), pumps);
    const EquationList odd{"", {{"0011001301", {1.0 / 3, std::numeric_limits<double>::denorm_min()}}}};
    EXPECT_EQ(equationlistof(equationlisttext(odd)), odd);
    EXPECT_EQ(equationlistof("{\n}\n"), EquationList{});
}

TEST(EquationList, TheBlockMayStandWithinOtherSettings) {
    const auto list =
        equationlistof("OPTREPL\nA MTBF\n{\nEqns2=VA\nEqnsName=N\nOther=1\nEqns1=00 7\n}\nB x\n");
    ASSERT_TRUE(list);
    EXPECT_EQ(list->name, "N");
    EXPECT_EQ(list->equations, (std::vector<FunctionTokens>{{"00", {7}}, {"01", {}}}));
}

TEST(EquationList, NothingIsTakenFromABlockThatIsDamaged) {
    EXPECT_FALSE(equationlistof(""));
    EXPECT_FALSE(equationlistof("Eqns1=VA\n"));
    EXPECT_FALSE(equationlistof("{\nEqns1=VA\n")); // not closed
    EXPECT_FALSE(block("Eqns1=VAO+\n"));           // ends where an operand is missing
    EXPECT_FALSE(block("Eqns1=00 1 2\n"));         // a number too many
    EXPECT_FALSE(block("Eqns1=00\n"));             // one too few
    EXPECT_FALSE(block("Eqns1=00 1x\n"));          // no number
    EXPECT_FALSE(block("Eqns1=00 nan\n"));
    EXPECT_FALSE(block("Eqns1=00 1e999\n"));
    EXPECT_FALSE(block("Eqns1=??\n"));
    EXPECT_FALSE(block("Eqns1=\n"));
    EXPECT_FALSE(block("Eqns0=VA\n"));
    EXPECT_FALSE(block("Eqns101=VA\n"));
    EXPECT_FALSE(block("Eqns1=VA\nEqns1=VA\n"));
    EXPECT_TRUE(block("Eqns100=VA\n"));
}

TEST(EquationList, ANameCannotBreakTheBlock) {
    const auto list = equationlistof(equationlisttext({"a\n}\r\nEqns1=VA", {}}));
    ASSERT_TRUE(list);
    EXPECT_TRUE(list->equations.empty());
}

namespace {
class EquationFile : public XYTest {
protected:
    WorkFolder folder;
};
} // namespace

TEST_F(EquationFile, TheCurvesOfTheSessionAreSavedAndOpened) {
    sets({{"1x3", "2x5", "3x7"}, {"1x1", "2x1"}, {"1x2", "2x4", "3x8"}}, {linearFit, noFit, exponentialFit});
    const std::string path = folder.path("fits.eqn");
    ASSERT_TRUE(equationssave(path));
    const auto list = equationsopen(path);
    ASSERT_TRUE(list);
    ASSERT_EQ(list->equations.size(), 2u);
    EXPECT_EQ(list->equations[0].fcode, session.curves(1).code);
    EXPECT_EQ(list->equations[1].literals, session.curves(3).literals);
}

TEST_F(EquationFile, WhatCannotBeSavedOrOpenedIsTold) {
    const std::string path = folder.path("fits.eqn");
    desk.expectmessage("Cannot Save File");
    EXPECT_FALSE(equationssave(path)); // no curves
    desk.expectmessage("Cannot Open File");
    EXPECT_FALSE(equationsopen(path));
    ASSERT_TRUE(writefile(path, "{\nEqns1=VAVA\n}\n"));
    desk.expectmessage("Cannot Open File");
    EXPECT_FALSE(equationsopen(path));
}
