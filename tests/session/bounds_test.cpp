#include <gtest/gtest.h>

#include "session/session.h"
#include "support/freshsession.h"

namespace {

/// The upper index bounds of a side at size exponent 1.
struct Bounds {
    Side side;
    int R, S, P, LL, extra;
};

class ArrayBounds : public testing::TestWithParam<Bounds> {
protected:
    /// The index at the bound works; one beyond the end is a fault that touches nothing.
    template <class T>
    void list(List<T>& cells, int bound, const char* name) {
        SCOPED_TRACE(name);
        ASSERT_EQ(cells.bound(), bound);
        cells(0) = mark<T>(1);
        cells(bound) = mark<T>(2);
        EXPECT_EQ(faults.taken(), std::vector<int>{});
        cells(bound + 1) = mark<T>(3);
        cells(-1) = mark<T>(4);
        EXPECT_EQ(faults.taken(), (std::vector<int>{9, 9}));
        EXPECT_EQ(cells(0), mark<T>(1));
        EXPECT_EQ(cells(bound), mark<T>(2));
        EXPECT_EQ(cells(bound + 1), T{}) << "a fault reads as empty";
        faults.taken();
    }

    /// The same for both indices; the table may be larger than `first` x `second`, never smaller.
    template <class T>
    void table(Table<T>& cells, int first, int second, const char* name) {
        SCOPED_TRACE(name);
        ASSERT_GE(cells.firstbound(), first);
        ASSERT_GE(cells.secondbound(), second);
        const auto lastRow = cells.firstbound();
        const auto lastColumn = cells.secondbound();
        const T untouched = cells(0, lastColumn);
        cells(0, 0) = mark<T>(1);
        cells(first, second) = mark<T>(2);
        cells(lastRow, lastColumn) = mark<T>(3);
        cells(1, 0) = mark<T>(5);
        EXPECT_EQ(faults.taken(), std::vector<int>{});
        cells(0, lastColumn + 1) = mark<T>(4);
        cells(lastRow + 1, 0) = mark<T>(4);
        cells(-1, 0) = mark<T>(4);
        cells(1, -1) = mark<T>(4);
        EXPECT_EQ(faults.taken(), (std::vector<int>{9, 9, 9, 9}));
        EXPECT_EQ(cells(0, 0), mark<T>(1));
        EXPECT_EQ(cells(0, lastColumn), untouched);
        EXPECT_EQ(cells(1, 0), mark<T>(5)) << "a column too far is not the next row";
        EXPECT_EQ(cells(lastRow, lastColumn), mark<T>(3));
        EXPECT_TRUE(cells.row(lastRow + 1).empty());
        EXPECT_EQ(faults.taken(), (std::vector<int>{9}));
    }

    template <class T>
    static T mark(int number) {
        if constexpr (std::is_same_v<T, std::string>)
            return std::to_string(number);
        else
            return static_cast<T>(number);
    }

    FreshSession fresh{GetParam().side};
    Faults faults;
    const Bounds b = GetParam();
};

TEST_P(ArrayBounds, OfThePoints) {
    table(session.X, b.R, b.P, "X");
    table(session.Y, b.R, b.P, "Y");
    table(session.v1, b.S + 1, b.P, "v1");
    table(session.v2, b.S + 1, b.P, "v2");
    table(session.entryX, b.R + 1, b.P, "entryX");
    table(session.entryY, b.R + 1, b.P, "entryY");
    table(session.plotRank, b.R, b.P, "plotRank");
    table(session.pointOrder, b.S, b.P, "pointOrder");
    table(session.pointTypes, b.S, b.P, "pointTypes");
    table(session.pointPlotX, b.S, b.P, "pointPlotX");
    table(session.W2X, b.S + 1, b.P + 1, "W2X");
    table(session.W2Y, b.S + 1, b.P + 1, "W2Y");
    list(session.W2n, b.S, "W2n");
    EXPECT_EQ(session.orderKeys.bound(), b.P);
}

TEST_P(ArrayBounds, OfThePointCountAreFixed) { list(session.n, 48, "n"); }

TEST_P(ArrayBounds, OfTheLines) {
    list(session.rowKind, b.R + 1, "rowKind");
    list(session.rowTitle, b.R + 1, "rowTitle");
    list(session.lineStyle, b.LL, "lineStyle");
    list(session.lineVisible, b.LL + 1, "lineVisible");
    list(session.lineHide, b.LL, "lineHide");
    list(session.lineLabelA, b.LL, "lineLabelA");
    list(session.lineLabelB, b.LL, "lineLabelB");
    list(session.correlation, b.LL, "correlation");
    list(session.correlationLabel, b.LL, "correlationLabel");
    list(session.paramThree, b.LL, "paramThree");
    for (auto& ends : session.lineEnd) table(ends, 2, b.LL + 14, "lineEnd");
    table(session.paramA, 2, b.LL, "paramA");
    table(session.paramB, 2, b.LL, "paramB");
    for (auto& other : session.paramOther) table(other, 2, b.LL, "paramOther");
    table(session.paramExtra, 30, b.LL, "paramExtra");
    table(session.paramExtraSingle, 30, b.LL, "paramExtraSingle");
}

TEST_P(ArrayBounds, OfTheFits) {
    list(session.FITKIND, b.S, "FITKIND");
    list(session.CI, b.S, "CI");
    list(session.LOGLYKMLE, b.S, "LOGLYKMLE");
    list(session.PVALUE, b.S, "PVALUE");
    list(session.PVALUEFF, b.S, "PVALUEFF");
    table(session.paramLow, b.S, 2, "paramLow");
    table(session.paramHigh, b.S, 2, "paramHigh");
    list(session.ETABARR1, b.S, "ETABARR1");
    list(session.BETABARR1, b.S, "BETABARR1");
    list(session.ETABARR2, b.S, "ETABARR2");
    list(session.BETABARR2, b.S, "BETABARR2");
    table(session.BARRXA, 10, b.S, "BARRXA");
    table(session.BARRYA, 10, b.S, "BARRYA");
    list(session.DUANEGROWTHS, b.S, "DUANEGROWTHS");
    list(session.CRAMERVONMISESTEXTS, b.S, "CRAMERVONMISESTEXTS");
    list(session.mixEtas, b.extra + 1, "mixEtas");
    list(session.mixBetas, b.extra + 1, "mixBetas");
    list(session.mixPortions, b.extra + 1, "mixPortions");
    EXPECT_EQ(session.fitKindList.size(), 11u);
    EXPECT_EQ(session.SOLCOEF.size(), 11u);
    EXPECT_EQ(session.menuItem.size(), 52u);
}

TEST_P(ArrayBounds, OfARunOfPointsHoldTheWholeRow) {
    const auto row = session.X.row(3);
    EXPECT_GE(row.size(), static_cast<std::size_t>(b.P) + 1);
    row[1] = 5;
    EXPECT_EQ(session.X(3, 1), 5);
    EXPECT_EQ(&row[1] + 1, &session.X(3, 2));
}

TEST_P(ArrayBounds, OfTheNoticesEndWithTheLastSet) {
    EXPECT_EQ(session.setMessages.size(), static_cast<std::size_t>(b.S) + 1);
}

INSTANTIATE_TEST_SUITE_P(EverySide, ArrayBounds,
                         testing::Values(Bounds{lifeSide, 27, 9, 1500, 47, 12},
                                         Bounds{visualSide, 25, 25, 500, 63, 12},
                                         Bounds{simulationSide, 27, 9, 1500, 47, 12},
                                         Bounds{fourthSide, 25, 25, 500, 63, 12}),
                         [](const auto& instance) { return "side" + std::to_string(instance.param.side); });

TEST(PointCount, BeyondRow48DoesNotExist) {
    FreshSession fresh(visualSide, 10);
    const Faults faults;
    session.n(48) = 3;
    EXPECT_TRUE(Faults::taken().empty());
    session.n(49) = 4;
    EXPECT_EQ(Faults::taken(), std::vector<int>{9});
    EXPECT_EQ(session.n(48), 3);
}

TEST(SessionWithoutArrays, FaultsAtEveryAccessAndGoesOn) {
    session = Session{};
    const Faults faults;
    session.X(1, 1) = 5;
    session.n(1) = 5;
    session.lineStyle(1) = 5;
    EXPECT_EQ(Faults::taken(), (std::vector<int>{9, 9, 9}));
    EXPECT_EQ(session.X(1, 1), 0);
}

TEST(Fault, IsSilentUntilAReporterStands) {
    session = Session{};
    const Keep keep{tellfault};
    tellfault = nullptr;
    session.n(49) = 1;
    EXPECT_EQ(session.n(49), 0);
}

} // namespace
