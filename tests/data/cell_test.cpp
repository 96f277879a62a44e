#include "data/cell.h"

#include <gtest/gtest.h>

#include <cmath>

#include "session/session.h"
#include "support/allocations.h"

namespace {

class CellTest : public testing::Test {
protected:
    CellTest() {
        tellfault = [](int number) { ADD_FAILURE() << "fault " << number; };
        session.sizeExponent = 1;
        chooseside(lifeSide);
        allocatearrays();
        session.dist = weibull;
        session.inputType = standard0;
    }
    ~CellTest() override {
        tellfault = nullptr;
        session.inputType = standard0;
        session.dist = weibull;
        session.msg.clear();
        session.decimalSeparator = ".";
    }

    static std::string text(int k, int j) {
        std::string cell;
        celltext(cell, k, j);
        return cell;
    }
    static std::string storedtext(std::string_view cell) {
        EXPECT_TRUE(cellstore(cellsplit(cell), 1, 1)) << cell;
        return text(1, 1);
    }

    /// Type, X and Z of a cell as an analysis of set 2 sees it.
    struct Seen {
        int type;
        double x;
        float z;
    };
    static Seen classified(std::string_view cell, bool asStored = false) {
        const Cell cut = cellsplit(cell);
        session.xyz = cut.x;
        session.xyz2 = cut.z;
        const int type = pointclassify(asStored, 2);
        return {type, session.xyz, session.xyz2};
    }
};

void expectcell(std::string_view text, float x, float y, float quantity, float z,
                std::string_view label = {}) {
    const Cell cell = cellsplit(text);
    EXPECT_TRUE(cell.hasValue) << text;
    EXPECT_EQ(cell.x, x) << text;
    EXPECT_EQ(cell.y, y) << text;
    EXPECT_EQ(cell.quantity, quantity) << text;
    EXPECT_EQ(cell.z, z) << text;
    EXPECT_EQ(cell.label, label) << text;
}

void expectnovalue(std::string_view text) {
    const Cell cell = cellsplit(text);
    EXPECT_FALSE(cell.hasValue) << text.substr(0, 40);
    EXPECT_EQ(cell.x, 0) << text.substr(0, 40);
}

using CellSplit = CellTest;
using CellText = CellTest;
using CellStore = CellTest;
using PointClassify = CellTest;
using PointLabel = CellTest;

} // namespace

TEST_F(CellSplit, TakesTheShapesOfTheSampleSets) {
    expectcell("6x0x3x0", 6, 0, 3, 0);
    expectcell("-6x0x1x0", -6, 0, 1, 0);
    expectcell("6.12x0x5x167", 6.12f, 0, 5, 167);
    expectcell("13809x0x1x3.3E+33_026", 13809, 0, 1, 3.3e33f, "026");
    expectcell("28x1_026", 28, 1, 1, 0, "026");
    expectcell("10x3", 10, 3, 1, 0);
    expectcell("1000x52", 1000, 52, 1, 0);
}

TEST_F(CellSplit, TakesAllThreeSeparators) {
    expectcell("5*2*1*0", 5, 2, 1, 0);
    expectcell("5X2X3X4", 5, 2, 3, 4);
    expectcell("5x2X3*4", 5, 2, 3, 4);
}

TEST_F(CellSplit, CountsAMissingQuantityAsOneAndOtherFieldsAsZero) {
    expectcell("6", 6, 0, 1, 0);
    expectcell("6xxx", 6, 0, 1, 0);
    expectcell("6xxx7", 6, 0, 1, 7);
    expectcell("6x1x x", 6, 1, 1, 0);
    expectcell("6x1x0", 6, 1, 0, 0);
    expectcell("6xax-2xb", 6, 0, -2, 0);
}

TEST_F(CellSplit, DropsFieldsBeyondTheFourth) { expectcell("1x2x3x4x5x6_a", 1, 2, 3, 4, "a"); }

TEST_F(CellSplit, KeepsTheLabelWhole) {
    expectcell("6_Unit 7 ", 6, 0, 1, 0, "Unit 7 ");
    expectcell("6_a_b_c", 6, 0, 1, 0, "a_b_c");
    expectcell("6x2_ axle*X", 6, 2, 1, 0, " axle*X");
    expectcell("6_", 6, 0, 1, 0, "");
    expectcell("6_\xc3\xa9\xff", 6, 0, 1, 0, "\xc3\xa9\xff");
}

TEST_F(CellSplit, EndsAtACarriageReturnLineFeedOrTab) {
    expectcell("6x2\rx3", 6, 2, 1, 0);
    expectcell("6x2\tx3_label", 6, 2, 1, 0);
    expectcell("6x2\nx3", 6, 2, 1, 0);
    expectcell("6_label\trest", 6, 0, 1, 0, "label");
    expectcell("6_label\r\n7", 6, 0, 1, 0, "label");
    expectnovalue("\t6");
}

TEST_F(CellSplit, ReadsNumbersAsTheWholeProgramDoes) {
    expectcell("12%", 12, 0, 1, 0);
    expectcell("3@4", 34, 0, 1, 0);
    expectcell(" 6 x 2 ", 6, 2, 1, 0);
    expectcell("+.5x-.25", .5f, -.25f, 1, 0);
    expectcell("1E+400", 0, 0, 1, 0);
    expectcell("1E+300", 0, 0, 1, 0);
    expectcell("1E+199", 9e30f, 0, 1, 0);
    session.decimalSeparator = ",";
    expectcell("1,5x2,5", 1.5f, 2.5f, 1, 0);
}

TEST_F(CellSplit, ReadsASuspensionMark) {
    expectcell(">100", 100, 0, 1, suspendedZ);
    expectcell("> 100 ", 100, 0, 1, suspendedZ);
    expectcell(" >100x2x3_a", 100, 2, 3, suspendedZ, "a");
}

TEST_F(CellSplit, ReadsADiscoveryMark) {
    expectcell("<100", 100, 0, 1, discoveredZ);
    expectcell("<100x0x5", 100, 0, 5, discoveredZ);
}

TEST_F(CellSplit, ReadsAnIntervalBetweenMarks) {
    expectcell(">10<20", 10, 0, 1, 20);
    expectcell("<20>10", 10, 0, 1, 20);
    expectcell("<20 >10x0x4_a", 10, 0, 4, 20, "a");
    expectcell(">0<20", 0, 0, 1, 20);
}

TEST_F(CellSplit, TakesAGivenZBeforeAMark) {
    expectcell("<100x0x1x5", 100, 0, 1, 5);
    expectcell(">10<20x0x1x30", 10, 0, 1, 30);
    expectcell(">100x0x1x", 100, 0, 1, suspendedZ);
    expectcell(">100x0x1x0", 100, 0, 1, suspendedZ);
}

TEST_F(CellSplit, TakesAHalfWrittenIntervalByTheHalfThatStands) {
    expectcell(">10<", 10, 0, 1, suspendedZ);
    expectcell("<20>", 20, 0, 1, discoveredZ);
    for (const char* text : {">", "<", "<>", "><", ">x5", ">a<b", "> >"}) expectnovalue(text);
}

TEST_F(CellSplit, FindsNoValueInRubbish) {
    using namespace std::string_view_literals;
    for (const auto text : {""sv, "_"sv, "_026"sv, "x"sv, "xxx"sv, "x5"sv, " "sv, "nan"sv, "inf"sv, "-inf"sv,
                            "abc"sv, "-"sv, "."sv, "\0"sv,
                            "\0"
                            "6"sv,
                            "\xff\xfe\x80"sv, "%"sv, "\r"sv, "=6"sv})
        expectnovalue(text);
}

TEST_F(CellSplit, StopsANumberAtANul) {
    expectcell(std::string_view("6\0"
                                "7x2",
                                5),
               6, 2, 1, 0);
}

TEST_F(CellSplit, TakesTheReservedNumbersForEmptyFields) {
    expectnovalue("-9.123E+32");
    expectnovalue("-8E+32");
    expectcell("6x-9.123E+32x-8E+32x-9.123E32", 6, 0, 1, 0);
}

TEST_F(CellSplit, TakesACellOfAMillionCharacters) {
    expectnovalue(std::string(1000000, 'x'));
    expectnovalue(std::string(1000000, 'a'));
    expectcell(std::string(1000000, '9'), 0, 0, 1, 0);
    expectcell("6" + std::string(1000000, 'x') + "_a", 6, 0, 1, 0, "a");
    EXPECT_EQ(cellsplit("6_" + std::string(1000000, 'b')).label.size(), 1000000u);
    expectnovalue(std::string(1000000, '>'));
}

TEST_F(CellSplit, AndStoreDoNotAllocate) {
    const std::size_t before = allocationcount();
    for (const char* text : {"6x0x3x0", "13809x0x1x3.3E+33", ">10<20", "12%", "", "1000x52"})
        cellstore(cellsplit(text), 1, 1);
    cellsplit("6_a label of more letters than fit into a short string");
    EXPECT_EQ(allocationcount(), before);
}

TEST_F(CellStore, KeepsTheRecordOnTheRowOfItsSet) {
    EXPECT_TRUE(cellstore(cellsplit("6x2x3x7_a"), 2, 5));
    EXPECT_EQ(session.X(6, 5), 6);
    EXPECT_EQ(session.Y(6, 5), 2);
    EXPECT_EQ(session.v1(2, 5), 3);
    EXPECT_EQ(session.v2(2, 5), 7);
    EXPECT_EQ(session.pointLabels[2][5], "a");
}

TEST_F(CellStore, DropsAPointBeyondTheCapacity) {
    const Cell cell = cellsplit("6");
    const int most = static_cast<int>(session.maxPoints);
    const int sets = static_cast<int>(session.maxSets);
    EXPECT_TRUE(cellstore(cell, 1, most));
    EXPECT_FALSE(cellstore(cell, 1, most + 1));
    EXPECT_FALSE(cellstore(cell, 1, 0));
    EXPECT_FALSE(cellstore(cell, 1, -1));
    EXPECT_TRUE(cellstore(cell, sets, 1));
    EXPECT_FALSE(cellstore(cell, sets + 1, 1));
    EXPECT_FALSE(cellstore(cell, 0, 1));
}

TEST_F(CellStore, DropsACellWithoutValue) {
    ASSERT_TRUE(cellstore(cellsplit("6_a"), 1, 1));
    EXPECT_FALSE(cellstore(cellsplit("x5_b"), 1, 1));
    EXPECT_EQ(text(1, 1), "6x0x1x0_a");
}

TEST_F(CellStore, TakesTheFormerLabelAway) {
    ASSERT_TRUE(cellstore(cellsplit("6_a"), 1, 1));
    ASSERT_TRUE(cellstore(cellsplit("7"), 1, 1));
    EXPECT_EQ(text(1, 1), "7x0x1x0");
}

TEST_F(CellText, AlwaysShowsFourFields) {
    EXPECT_EQ(storedtext("6x0x3x0"), "6x0x3x0");
    EXPECT_EQ(storedtext("6"), "6x0x1x0");
    EXPECT_EQ(storedtext("-6.50"), "-6.5x0x1x0");
    EXPECT_EQ(storedtext("28x1_026"), "28x1x1x0_026");
    EXPECT_EQ(storedtext("5*2*1*0"), "5x2x1x0");
    EXPECT_EQ(storedtext(">100"), "100x0x1x3.3E+33");
    EXPECT_EQ(storedtext("<100"), "100x0x1x-3.3E+33");
    EXPECT_EQ(storedtext("<20>10"), "10x0x1x20");
    EXPECT_EQ(storedtext(".5x.25"), ".5x.25x1x0");
}

TEST_F(CellText, LeavesABlankLabelAway) {
    EXPECT_EQ(storedtext("6_   "), "6x0x1x0");
    EXPECT_EQ(storedtext("6_ a "), "6x0x1x0_ a ");
}

TEST_F(CellText, IsAppended) {
    ASSERT_TRUE(cellstore(cellsplit("6"), 1, 1));
    std::string line = "cell ";
    celltext(line, 1, 1);
    EXPECT_EQ(line, "cell 6x0x1x0");
}

TEST_F(CellText, ReadsBackToTheSameRecord) {
    for (const char* cell :
         {"6x0x3x0", ".1x1E-12x16777217x-3.3E+33_a b", "123456789x2.9E+29", "<20>10", "-6_x*_"}) {
        const std::string written = storedtext(cell);
        EXPECT_EQ(storedtext(written), written) << cell;
    }
}

TEST_F(PointClassify, TakesAMinusSignForASuspensionWhereNoNegativeValueIs) {
    EXPECT_EQ(classified("-6x0x1x0").type, Susp);
    EXPECT_EQ(classified("6x0x1x0").type, Occr);
    EXPECT_EQ(classified("0").type, Susp);
    EXPECT_EQ(classified("-6").x, -6);
}

TEST_F(PointClassify, TakesANegativeValueAsAFailureOnTheWholeLine) {
    session.negativeXAllowed = 1;
    for (const int16_t family : {normal, gumbel}) {
        session.dist = family;
        EXPECT_EQ(classified("-6x0x1x0").type, Occr);
        EXPECT_EQ(classified("0").type, Occr);
        EXPECT_EQ(classified("-6x0x1x3.3E+33").type, Susp);
    }
}

TEST_F(PointClassify, TakesANegativeValueAsASuspensionInAFamilyWithoutIt) {
    session.negativeXAllowed = 1;
    for (const int16_t family : {weibull, lognormal}) {
        session.dist = family;
        EXPECT_EQ(classified("-6").type, Susp);
    }
    session.negativeXAllowed = 0;
    session.dist = normal;
    EXPECT_EQ(classified("-6").type, Susp);
}

TEST_F(PointClassify, TakesTheSentinelInEveryForm) {
    for (int16_t form = standard0; form <= intv5; ++form) {
        session.inputType = form;
        EXPECT_EQ(classified("6x0x1x3.3E+33").type, Susp) << form;
        EXPECT_EQ(classified(">6", true).type, Susp) << form;
    }
}

TEST_F(PointClassify, DoesNotReadTheSignOfAPointAsStored) {
    EXPECT_EQ(classified("-6", true).type, Occr);
    session.inputType = intv5;
    const Seen seen = classified("-10x0x1x20", true);
    EXPECT_EQ(seen.type, Intv);
    EXPECT_EQ(seen.x, 10);
    EXPECT_EQ(seen.z, 20);
}

TEST_F(PointClassify, ReadsOnlyTheIntervalFormsZAsAnEnd) {
    session.inputType = standard0;
    EXPECT_EQ(classified("10x0x1x20").type, Occr);
    EXPECT_EQ(classified("<10").type, Occr);
    EXPECT_EQ(classified("10x0x1x20").z, 20);
}

TEST_F(PointClassify, FillsAnEmptyZOfTheIntervalForm) {
    session.inputType = intv5;
    const Seen seen = classified("10x0x1x0");
    EXPECT_EQ(seen.type, Occr);
    EXPECT_EQ(seen.z, 2.2e29f);
    EXPECT_EQ(classified("10x0x1x2.9E+29").type, Occr);
    EXPECT_EQ(classified("10x0x1x2.9E+29").z, 2.9e29f);
}

TEST_F(PointClassify, FindsAnInterval) {
    session.inputType = intv5;
    const Seen seen = classified("10x0x1x20");
    EXPECT_EQ(seen.type, Intv);
    EXPECT_EQ(seen.x, 10);
    EXPECT_EQ(seen.z, 20);
}

TEST_F(PointClassify, TakesTheMinusSignOverTheUpperEnd) {
    session.inputType = intv5;
    const Seen seen = classified("-10x0x1x20");
    EXPECT_EQ(seen.type, Susp);
    EXPECT_EQ(seen.x, -10);
    EXPECT_EQ(seen.z, 3.3e33f);
}

TEST_F(PointClassify, FindsADiscovery) {
    session.inputType = intv5;
    EXPECT_EQ(classified("<10").type, Disc);
    const Seen stored = classified("-10x0x1x-3.3E+33", true);
    EXPECT_EQ(stored.type, Disc);
    EXPECT_EQ(stored.x, 10);
}

TEST_F(PointClassify, TakesAnIntervalOfNoWidthForAnExactPoint) {
    session.inputType = intv5;
    EXPECT_EQ(classified("10x0x1x10").type, Occr);
    EXPECT_EQ(classified("6.12x0x1x6.12").type, Occr);
    EXPECT_EQ(classified("-10x0x1x10", true).type, Occr);
}

TEST_F(PointClassify, LeavesTheSignOnTheWholeLine) {
    session.inputType = intv5;
    session.negativeXAllowed = 1;
    const Seen interval = classified("-10x0x1x20");
    EXPECT_EQ(interval.type, Intv);
    EXPECT_EQ(interval.x, -10);
    const Seen discovery = classified("-10x0x1x-3.3E+33");
    EXPECT_EQ(discovery.type, Disc);
    EXPECT_EQ(discovery.x, -10);
    EXPECT_EQ(classified("-10x0x1x0").type, Intv); // up to 0, which is a value here
    EXPECT_EQ(classified("-10x0x1x0").z, 0);
}

TEST_F(PointClassify, ShiftsTheUpperEndByTheThresholdOfItsSet) {
    session.inputType = intv5;
    session.t0(2) = 5;
    EXPECT_EQ(classified("10x0x1x20").z, 15);
    EXPECT_EQ(classified("10x0x1x20").x, 10);
    EXPECT_EQ(classified("10x0x1x10").type, Occr);
    session.inputType = standard0;
    EXPECT_EQ(classified("10x0x1x20").z, 20);
}

TEST_F(PointClassify, KeepsTheSentinelsRecognisableWhenItShifts) {
    session.inputType = intv5;
    for (const float threshold : {1e6f, -1e6f}) {
        session.t0(2) = threshold;
        EXPECT_EQ(classified(">10").z, 3.3e33f);
        EXPECT_EQ(classified("<10").z, -3.3e33f);
        EXPECT_EQ(classified("10").z, 2.2e29f);
    }
}

TEST_F(PointClassify, DoesNotTakeAnXOfSentinelSizeForASuspension) {
    session.inputType = intv5;
    EXPECT_EQ(classified("-3.3E+33x0x1x0").type, Occr);
}

TEST_F(PointLabel, IsEmptyUntilItIsKept) {
    session.msg = "before";
    pointlabelget(3, 1);
    EXPECT_EQ(session.msg, "");
    pointlabelput(3, 1, "026");
    pointlabelget(3, 1);
    EXPECT_EQ(session.msg, "026");
    pointlabelget(3, 2);
    EXPECT_EQ(session.msg, "");
}

TEST_F(PointLabel, StaysAsItWasForASetWithoutLabels) {
    session.msg = "before";
    for (const int set : {25, 0, -1, 1000}) {
        pointlabelput(set, 1, "lost");
        pointlabelget(set, 1);
        EXPECT_EQ(session.msg, "before") << set;
    }
    pointlabelput(24, 1, "kept");
    pointlabelget(24, 1);
    EXPECT_EQ(session.msg, "kept");
}

TEST_F(PointLabel, IsEmptyOutsideThePoints) {
    const int most = static_cast<int>(session.maxPoints);
    for (const int point : {0, -1, most + 1, 1 << 30}) {
        pointlabelput(1, point, "lost");
        session.msg = "before";
        pointlabelget(1, point);
        EXPECT_EQ(session.msg, "") << point;
    }
    pointlabelput(1, most, "last");
    pointlabelget(1, most);
    EXPECT_EQ(session.msg, "last");
}

TEST_F(PointLabel, ListTakesItsSizeWithTheFirstLabel) {
    pointlabelput(4, 1, "");
    EXPECT_TRUE(session.pointLabels[4].empty());
    pointlabelput(4, 7, "a");
    EXPECT_EQ(session.pointLabels[4].size(), static_cast<std::size_t>(session.maxPoints) + 1);
    pointlabelput(4, 7, "");
    EXPECT_EQ(session.pointLabels[4][7], "");
}

TEST_F(PointLabel, ThatIsEmptyAllocatesNothing) {
    const std::size_t before = allocationcount();
    pointlabelput(5, 1, "");
    EXPECT_EQ(allocationcount(), before);
}
