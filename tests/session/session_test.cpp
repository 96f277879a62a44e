#include "session/session.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "support/freshsession.h"

namespace {

struct SideRow {
    Side side;
    float sg, base, points, sets, lines; ///< points a set at exponent 1
};

constexpr SideRow sides[] = {{lifeSide, 3, 18000, 1500, 8, 20},
                             {visualSide, 1, 6000, 500, 24, 36},
                             {simulationSide, 3, 18000, 1500, 8, 20},
                             {fourthSide, 1, 6000, 500, 24, 36}};

class Capacity : public testing::TestWithParam<SideRow> {
protected:
    FreshSession fresh{GetParam().side};

    static void resize(int16_t exponent) {
        session.sizeExponent = exponent;
        ASSERT_TRUE(allocatearrays());
    }
};

TEST_P(Capacity, OfTheSmallestExponent) {
    const SideRow& side = GetParam();
    EXPECT_EQ(session.sg, side.sg);
    EXPECT_EQ(session.maxRows, 24);
    EXPECT_EQ(session.maxRowsBase, 24);
    EXPECT_EQ(session.arrayBudget, 2 * side.base);
    EXPECT_EQ(session.maxPoints, side.points);
    EXPECT_EQ(session.maxSets, side.sets);
    EXPECT_EQ(session.extraLines, 12);
    EXPECT_EQ(session.maxLines, side.lines);
    EXPECT_EQ(session.lastRow, 0);
}

TEST_P(Capacity, DoublesThePointsWithEachStepOfTheExponent) {
    float points = GetParam().points;
    float budget = 2 * GetParam().base;
    for (int16_t exponent = 1; exponent <= 10; ++exponent, points *= 2, budget *= 2) {
        resize(exponent);
        EXPECT_EQ(session.maxPoints, points) << exponent;
        EXPECT_EQ(session.arrayBudget, budget) << exponent;
        EXPECT_EQ(session.maxSets, GetParam().sets) << exponent;
        EXPECT_EQ(session.maxLines, GetParam().lines) << exponent;
    }
}

TEST_P(Capacity, HoldsAnExponentOutsideItsRangeAtTheLimit) {
    resize(0);
    EXPECT_EQ(session.sizeExponent, 0) << "what a shortage of memory may leave";
    EXPECT_EQ(session.maxPoints, GetParam().points / 2);
    resize(-5);
    EXPECT_EQ(session.sizeExponent, 0);
    resize(11);
    EXPECT_EQ(session.sizeExponent, 10);
    EXPECT_EQ(session.maxPoints, 512 * GetParam().points);
}

TEST_P(Capacity, AddressesTheRowOfEachSet) {
    for (int k = 1; k <= static_cast<int>(GetParam().sets); ++k) {
        const auto number = static_cast<float>(k);
        EXPECT_EQ(rowofset(number), number * GetParam().sg);
        EXPECT_EQ(setofrow(number * GetParam().sg), number);
    }
    EXPECT_EQ(rowofset(GetParam().sets), 24);
}

TEST_P(Capacity, DrawsDataRowsAsPointsAndTheRestAsLines) {
    const int stride = static_cast<int>(GetParam().sg);
    for (int i = 1; i <= 24; ++i) EXPECT_EQ(session.rowKind(i), i % stride == 0 ? "P" : "L") << i;
    for (int i = 25; i <= session.rowKind.bound(); ++i) EXPECT_EQ(session.rowKind(i), "L") << i;
}

TEST_P(Capacity, NamesEachRowByItsNumber) {
    for (int i = 0; i <= session.rowTitle.bound(); ++i) EXPECT_EQ(session.rowTitle(i), std::to_string(i));
}

INSTANTIATE_TEST_SUITE_P(EverySide, Capacity, testing::ValuesIn(sides),
                         [](const auto& instance) { return "side" + std::to_string(instance.param.side); });

TEST(CapacityOfTheVisualSide, LeavesTheExtraLinesThatTheRowsInUseLeave) {
    FreshSession fresh(visualSide);
    session.lastRow = 20;
    ASSERT_TRUE(allocatearrays());
    EXPECT_EQ(session.extraLines, 4);
    EXPECT_EQ(session.maxLines, 28);
}

TEST(CapacityOfTheLifeSide, DoesNotCountTheRowsInUseForItsExtraLines) {
    FreshSession fresh(lifeSide);
    session.lastRow = 24;
    ASSERT_TRUE(allocatearrays());
    EXPECT_EQ(session.extraLines, 12);
}

TEST(RowWalk, VisitsEveryRowOfTheLifeSideWhenTheConfidenceRowsStand) {
    FreshSession fresh(lifeSide);
    session.ifylcnf = 9;
    EXPECT_EQ(rowstep(), 1);
}

TEST(RowWalk, VisitsTheDataRowsAloneWithoutThem) {
    FreshSession fresh(lifeSide);
    EXPECT_EQ(session.ifylcnf, 0);
    EXPECT_EQ(rowstep(), 3);
}

TEST(RowWalk, GoesRowByRowOnTheVisualSide) {
    FreshSession fresh(visualSide);
    EXPECT_EQ(session.ifylcnf, 0);
    EXPECT_EQ(rowstep(), 1);
}

TEST(SetsInUse, AreTheLastRowByTheStride) {
    FreshSession fresh(lifeSide);
    EXPECT_EQ(setcount(), 0);
    session.lastRow = 15;
    session.n(15) = 7;
    EXPECT_EQ(setcount(), 5);
    EXPECT_EQ(pointcount(5), 7);
    EXPECT_EQ(pointcount(4), 0);
}

class SessionClear : public testing::Test {
protected:
    FreshSession fresh{lifeSide};
};

TEST_F(SessionClear, EmptiesTheRows) {
    session.lastRow = 6;
    for (int i = 0; i <= 48; ++i) session.n(i) = 5;
    session.W2n(2) = 4;
    session.rowTitle(6) = "Pumps";
    session.rowKind(6) = "L";
    session.rowKind(1) = "P";
    sessionclear();
    EXPECT_EQ(session.lastRow, 0);
    EXPECT_EQ(setcount(), 0);
    for (int i = 0; i <= 48; ++i) EXPECT_EQ(session.n(i), 0) << i;
    EXPECT_EQ(session.W2n(2), 0);
    EXPECT_EQ(session.rowTitle(6), "6");
    EXPECT_EQ(session.rowKind(6), "P");
    EXPECT_EQ(session.rowKind(1), "L");
}

TEST_F(SessionClear, EmptiesTheResultsOfTheSets) {
    session.setFitted(1) = 1;
    session.setLabel(1) = "rr";
    session.t0(1) = 5;
    session.setCorrelation(1) = .9f;
    session.countOccr(1) = 3;
    session.etaFit(3, 1) = 100;
    session.betaFit(3, 1) = 2;
    session.paramLow(1, 1) = 80;
    session.BARRXA(1, 1) = 7;
    session.CRAMERVONMISESTEXTS(1) = "good";
    session.setMessages[1] = {"told"};
    sessionclear();
    EXPECT_EQ(session.setFitted(1), 0);
    EXPECT_EQ(session.setLabel(1), "");
    EXPECT_EQ(session.t0(1), 0);
    EXPECT_EQ(session.setCorrelation(1), 0);
    EXPECT_EQ(session.countOccr(1), 0);
    EXPECT_EQ(session.etaFit(3, 1), 0);
    EXPECT_EQ(session.betaFit(3, 1), 0);
    EXPECT_EQ(session.paramLow(1, 1), noAnswer);
    EXPECT_EQ(session.BARRXA(1, 1), 0);
    EXPECT_EQ(session.CRAMERVONMISESTEXTS(1), "");
    EXPECT_TRUE(session.setMessages[1].empty());
}

TEST_F(SessionClear, EmptiesTheLineTables) {
    session.paramA(1, 1) = 100;
    session.paramB(2, 20) = 2;
    session.paramThree(1) = 5;
    session.paramOther[0](1, 1) = 3;
    session.paramExtra(30, 1) = 4;
    session.paramExtraSingle(30, 1) = 4;
    session.lineEnd[3](2, 1) = 6;
    session.lineStyle(1) = 2;
    session.lineHide(1) = 1;
    session.lineVisible(1) = 0;
    session.lineLabelA(1) = "legend";
    session.correlation(1) = .8f;
    session.correlationLabel(1) = "r^2";
    sessionclear();
    EXPECT_EQ(session.paramA(1, 1), 0);
    EXPECT_EQ(session.paramB(2, 20), 0);
    EXPECT_EQ(session.paramThree(1), 0);
    EXPECT_EQ(session.paramOther[0](1, 1), 0);
    EXPECT_EQ(session.paramExtra(30, 1), 0);
    EXPECT_EQ(session.paramExtraSingle(30, 1), 0);
    EXPECT_EQ(session.lineEnd[3](2, 1), 0);
    EXPECT_EQ(session.lineStyle(1), 0);
    EXPECT_EQ(session.lineHide(1), 0);
    EXPECT_EQ(session.lineVisible(1), 1);
    EXPECT_EQ(session.lineLabelA(1), "");
    EXPECT_EQ(session.correlation(1), 0);
    EXPECT_EQ(session.correlationLabel(1), "");
}

TEST_F(SessionClear, ForgetsTheLabelsOfThePoints) {
    session.pointLabels[1].assign(1501, "pump");
    sessionclear();
    for (const std::string& label : session.pointLabels[1]) ASSERT_EQ(label, "");
}

TEST_F(SessionClear, ClearsTheFlagsOfTheRun) {
    session.calcError = 1;
    session.abortCode = escapePressed;
    session.ifylcnf = 9;
    sessionclear();
    EXPECT_EQ(session.calcError, 0);
    EXPECT_EQ(session.abortCode, 0);
    EXPECT_EQ(session.ifylcnf, 0);
}

TEST_F(SessionClear, KeepsTheSettings) {
    session.dist = lognormal;
    session.fitMethod = maximumLikelihood;
    session.inputType = intv5;
    session.rankMethod = hazenRank;
    session.confLow = 5;
    session.findThreshold = 1;
    session.decimalSeparator = ",";
    session.fixedSlope = 2;
    session.reportDevice = reportPicture;
    sessionclear();
    EXPECT_EQ(session.progSide, lifeSide);
    EXPECT_EQ(session.maxPoints, 1500);
    EXPECT_EQ(session.sizeExponent, 1);
    EXPECT_EQ(session.dist, lognormal);
    EXPECT_EQ(session.fitMethod, maximumLikelihood);
    EXPECT_EQ(session.inputType, intv5);
    EXPECT_EQ(session.rankMethod, hazenRank);
    EXPECT_EQ(session.confLow, 5);
    EXPECT_EQ(session.findThreshold, 1);
    EXPECT_EQ(session.decimalSeparator, ",");
    EXPECT_EQ(session.fixedSlope, 2);
    EXPECT_EQ(session.reportDevice, reportPicture);
}

TEST(ParameterName, IsThatOfTheFamily) {
    constexpr const char* names[5][2] = {
        {"Lambda", "Beta"}, {"Eta", "Beta"}, {"Med", "SigF"}, {"Mu", "Sig"}, {"Xi", "Del"}};
    for (int type = 0; type <= 4; ++type) {
        EXPECT_STREQ(parametername(type, 1), names[type][0]);
        EXPECT_STREQ(parametername(type, 2), names[type][1]);
    }
}

/// Leaves a scope in which u and msg were kept and changed.
void changeandreturn(bool early) {
    const Keep keep{session.u, session.msg};
    session.u = 99;
    session.msg = "changed";
    if (early) return;
    session.u = 100;
}

class KeepTest : public testing::Test {
protected:
    KeepTest() {
        session.u = 7;
        session.msg = "before";
    }
    static void expectrestored() {
        EXPECT_EQ(session.u, 7);
        EXPECT_EQ(session.msg, "before");
    }
    FreshSession fresh{lifeSide};
};

TEST_F(KeepTest, RestoresAtTheEndOfTheScope) {
    changeandreturn(false);
    expectrestored();
}

TEST_F(KeepTest, RestoresOnAnEarlyReturn) {
    changeandreturn(true);
    expectrestored();
}

TEST_F(KeepTest, RestoresWhenTheScopeIsLeftByAnException) {
    const auto leave = [] {
        const Keep keep{session.u, session.msg};
        session.u = 99;
        session.msg = "changed";
        throw std::runtime_error("out");
    };
    EXPECT_THROW(leave(), std::runtime_error);
    expectrestored();
}

TEST_F(KeepTest, RestoresEachScopeToItsOwnBeginning) {
    {
        const Keep outer{session.u, session.msg};
        session.u = 8;
        changeandreturn(false);
        EXPECT_EQ(session.u, 8);
    }
    expectrestored();
}

TEST(ReservedNumber, HasItsValueAndItsText) {
    EXPECT_EQ(noAnswer, -9.123e+32);
    EXPECT_STREQ(noAnswerText, "-9.123E+32");
    EXPECT_EQ(noLowLimit, -9e+30);
    EXPECT_EQ(noHighLimit, 9e+30f);
    EXPECT_EQ(suspendedZ, 3.3e+33f);
    EXPECT_EQ(discoveredZ, -3.3e+33f);
    EXPECT_EQ(exactZ, 2.9e+29f);
    EXPECT_EQ(searchCeiling, 1e+300);
}

} // namespace
