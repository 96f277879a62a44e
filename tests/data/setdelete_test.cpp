#include <gtest/gtest.h>

#include "data/cell.h"
#include "session/session.h"

namespace {

/// Three sets with 1, 2 and 3 points; point j of set k has X = 10k + j and the label "k.j".
class SetDelete : public testing::TestWithParam<Side> {
protected:
    SetDelete() {
        tellfault = [](int number) { ADD_FAILURE() << "fault " << number; };
        session.sizeExponent = 1;
        chooseside(GetParam());
        allocatearrays();
        for (int k = 1; k <= 3; ++k) fill(k);
        session.lastRow = 3 * session.sg;
    }

    ~SetDelete() override {
        tellfault = nullptr;
        sessionclear();
    }

    static int row(int k) { return static_cast<int>(rowofset(static_cast<float>(k))); }

    static void fill(int k) {
        const auto mark = static_cast<float>(k);
        for (int j = 1; j <= k; ++j) {
            const std::string label = std::to_string(k) + '.' + std::to_string(j);
            cellstore({10 * mark + static_cast<float>(j), mark, mark, mark, label, true}, k, j);
        }
        session.n(row(k)) = mark;
        session.rowTitle(row(k)) = "Set " + std::to_string(k);
        session.t0(k) = mark;
        session.etaFit(row(k), 1) = k;
        session.setFitted(k) = 1;
        session.setLabel(k) = "rr" + std::to_string(k);
        session.setMessages[static_cast<std::size_t>(k)] = {"told " + std::to_string(k)};
        session.lineStyle(k) = mark;
        session.paramA(1, k) = k;
        session.pointOrder(k, 1) = k;
    }

    /// Set k of the session is what was filled as set `was`.
    static void expectset(int k, int was) {
        EXPECT_EQ(pointcount(k), was);
        for (int j = 1; j <= was; ++j) {
            std::string cell;
            celltext(cell, k, j);
            const std::string w = std::to_string(was);
            const std::string point = std::to_string(j);
            EXPECT_EQ(cell, w + point + 'x' + w + 'x' + w + 'x' + w + '_' + w + '.' + point);
        }
        EXPECT_EQ(session.rowTitle(row(k)), "Set " + std::to_string(was));
        EXPECT_EQ(session.t0(k), was);
        EXPECT_EQ(session.etaFit(row(k), 1), was);
        EXPECT_EQ(session.setLabel(k), "rr" + std::to_string(was));
        EXPECT_EQ(session.setMessages.at(static_cast<std::size_t>(k)).at(0), "told " + std::to_string(was));
        EXPECT_EQ(session.lineStyle(k), was);
        EXPECT_EQ(session.paramA(1, k), was);
        EXPECT_EQ(session.pointOrder(k, 1), was);
    }

    static void expectempty(int k) {
        EXPECT_EQ(pointcount(k), 0);
        EXPECT_EQ(session.rowTitle(row(k)), std::to_string(row(k)));
        EXPECT_EQ(session.t0(k), 0);
        EXPECT_EQ(session.setFitted(k), 0);
        EXPECT_EQ(session.lineVisible(k), 1);
        EXPECT_TRUE(session.setMessages.at(static_cast<std::size_t>(k)).empty());
        session.msg = "before";
        pointlabelget(k, 1);
        EXPECT_EQ(session.msg, "");
    }
};

} // namespace

TEST_P(SetDelete, MovesTheSetsAboveDown) {
    setdelete(2);
    expectset(1, 1);
    expectset(2, 3);
    expectempty(3);
    EXPECT_EQ(setcount(), 2);
}

TEST_P(SetDelete, TakesTheFirst) {
    setdelete(1);
    expectset(1, 2);
    expectset(2, 3);
    expectempty(3);
}

TEST_P(SetDelete, TakesTheLast) {
    setdelete(3);
    expectset(1, 1);
    expectset(2, 2);
    expectempty(3);
    EXPECT_EQ(setcount(), 2);
}

TEST_P(SetDelete, EmptiesTheSessionSetBySet) {
    for (int i = 0; i < 3; ++i) setdelete(1);
    EXPECT_EQ(session.lastRow, 0);
    for (int k = 1; k <= 3; ++k) expectempty(k);
}

TEST_P(SetDelete, KnowsNoSetThatIsNotThere) {
    for (const int k : {0, -1, 4, 1000}) setdelete(k);
    EXPECT_EQ(setcount(), 3);
    for (int k = 1; k <= 3; ++k) expectset(k, k);
}

TEST_P(SetDelete, GivesASetWithoutNameTheNumberOfItsNewRow) {
    session.rowTitle(row(3)) = std::to_string(row(3));
    setdelete(2);
    EXPECT_EQ(session.rowTitle(row(2)), std::to_string(row(2)));
}

TEST_P(SetDelete, WorksOnAFullSession) {
    const int sets = static_cast<int>(session.maxSets);
    for (int k = 1; k <= sets; ++k) fill(k);
    session.lastRow = session.maxSets * session.sg;
    setdelete(1);
    for (int k = 1; k < sets; ++k) {
        EXPECT_EQ(pointcount(k), k + 1);
        EXPECT_EQ(session.t0(k), k + 1);
    }
    expectempty(sets);
    EXPECT_EQ(setcount(), sets - 1);
}

TEST_P(SetDelete, LeavesTheExtraLines) {
    const int extra = static_cast<int>(session.maxSets) + 1;
    session.lineStyle(extra) = 9;
    session.paramA(1, extra) = 9;
    setdelete(1);
    EXPECT_EQ(session.lineStyle(extra), 9);
    EXPECT_EQ(session.paramA(1, extra), 9);
}

INSTANTIATE_TEST_SUITE_P(Sides, SetDelete, testing::Values(lifeSide, visualSide),
                         [](const auto& side) { return side.param == lifeSide ? "life" : "visual"; });

TEST(SetDeleteWithBounds, MovesTheConfidenceRows) {
    session.sizeExponent = 1;
    chooseside(lifeSide);
    allocatearrays();
    session.lastRow = 6;
    session.ifylcnf = 9;
    for (int i = 1; i <= 6; ++i) {
        session.n(i) = 2;
        session.X(i, 2) = static_cast<float>(i);
    }
    setdelete(1);
    for (int i = 1; i <= 3; ++i) {
        EXPECT_EQ(session.X(i, 2), i + 3);
        EXPECT_EQ(session.n(i), 2);
        EXPECT_EQ(session.n(i + 3), 0);
    }
    sessionclear();
}
