#include "shell/plotpress.h"

#include <cmath>

#include "plot/markerline.h"
#include "plot/plotprob.h"
#include "plot/shown.h"
#include "shell/gridedit.h"
#include "support/recordingdevice.h"
#include "support/shellfixture.h"

namespace {

class PlotPress : public ShellTest {
protected:
    /// Draws the plot of the screen, whose window a press is read by.
    void draw() {
        const Keep keep{session.outdev};
        session.outdev = screenDevice;
        RecordingDevice device(15.0 * 1000, 15.0 * 700);
        ASSERT_TRUE(plotentry(device));
    }
    /// Presses the plot where the values are.
    void press(double x, double y) {
        draw();
        const PlotWindow w = session.windowSaved;
        plotpress(w, w.left + (plotxof(x) - w.xlow) * w.xfactor,
                  w.bottom - (plotyof(y) - w.ylow) * w.yfactor);
    }
    void trend(const Cells& cells) {
        chooseside(visualSide);
        ASSERT_TRUE(allocatearrays());
        given(cells);
    }
};

TEST_F(PlotPress, APressAddsAPointOfThePlotsOwnDigits) {
    trend({"0x0", "100x50"});
    plotpressbegin(addPointMode);
    press(40, 20);
    ASSERT_EQ(column().size(), 3u);
    EXPECT_EQ(pointcount(1), 3);
    EXPECT_NEAR(session.X(1, 3), 40, 0.2);
    EXPECT_NEAR(session.Y(1, 3), 20, 0.2);
    EXPECT_LE(column()[2].size(), 11u) << "no more digits than a pixel can tell: " << column()[2];
    EXPECT_EQ(session.activeMode, addPointMode) << "the next press adds another one";
}

TEST_F(PlotPress, OnTheLifeSideAPressAddsItsAge) {
    given({"150", "230", "310", "420"});
    plotpressbegin(addPointMode);
    press(250, 0.5);
    ASSERT_EQ(column().size(), 5u);
    EXPECT_EQ(column()[4].find('x'), std::string::npos) << column()[4];
    EXPECT_NEAR(session.X(3, 5), 250, 2);
}

TEST_F(PlotPress, APressBesideThePlotDoesNothing) {
    given({"150", "230", "310"});
    plotpressbegin(addPointMode);
    draw();
    plotpress(session.windowSaved, 0, 0);
    EXPECT_EQ(column().size(), 3u);
}

TEST_F(PlotPress, APressOnAPointTakesItsCellInHandAndOffersWhatToDo) {
    given({"150", "_label alone", "230", "310", "420"});
    plotpressbegin(selectPointMode);
    draw();
    desk.expectkey("", 'X');
    press(session.X(3, 3), session.Y(3, 3));
    EXPECT_EQ(session.gridRow, 4) << "the row of the grid, where a label stands between";
    desk.expectkey("", 'A');
    press(session.X(3, 3), session.Y(3, 3));
    EXPECT_EQ(pointcount(1), 3);
    EXPECT_EQ(session.gridCells[0][3], "");
}

TEST_F(PlotPress, AwayFromEveryPointNothingIsSelected) {
    given({"150", "230", "310", "420"});
    plotpressbegin(selectPointMode);
    press(400, 0.1);
    EXPECT_EQ(session.activeMode, selectPointMode);
}

TEST_F(PlotPress, TwoPressesMakeAMarkerLine) {
    given({"150", "230", "310", "420"});
    plotpressbegin(markerLineMode);
    press(200, 0.2);
    EXPECT_TRUE(markerlines().empty());
    desk.expecttext("Marker Line Label", "goal");
    press(400, 0.8);
    ASSERT_EQ(markerlines().size(), 1u);
    EXPECT_EQ(markerlines()[0].label, "goal");
    const FamilyLine wanted = linethrough(200, 0.2, 400, 0.8);
    EXPECT_NEAR(markerlines()[0].parameters.beta, wanted.beta, 0.05);
    EXPECT_EQ(session.activeMode, 0);
}

TEST_F(PlotPress, EscEndsTheModeAndSoDoesTheCheckMark) {
    trend({"0x0", "100x50"});
    plotpressbegin(addPointMode);
    EXPECT_TRUE(plotpressawaited());
    key(27);
    EXPECT_FALSE(plotpressawaited());
    plotpressbegin(selectPointMode);
    command(23);
    EXPECT_FALSE(plotpressawaited());
}

TEST_F(PlotPress, WhereThePlotHasNoPlacesItSaysSo) {
    given({"150", "230", "310", "420"});
    session.functionPlot = 'H';
    desk.expectmessage("Not Possible");
    plotpressbegin(addPointMode);
    EXPECT_EQ(session.activeMode, 0);
}

TEST_F(PlotPress, UnderAThresholdAPressAddsTheAgeAsRecorded) {
    for (int k = 1; k <= static_cast<int>(session.maxSets); ++k) session.t0(k) = 100;
    given({"150", "230", "310", "420"});
    plotpressbegin(addPointMode);
    press(130, 0.5); // where 230 stands, less the threshold
    ASSERT_EQ(column().size(), 5u);
    EXPECT_NEAR(session.entryX(3, 5), 230, 2);
    session.scaleAsRecorded = 1;
    calcplot();
    press(230, 0.5);
    ASSERT_EQ(column().size(), 6u);
    EXPECT_NEAR(session.entryX(3, 6), 230, 2);
}

TEST_F(PlotPress, CellsTypedSinceThePlotWasDrawnAreCalculatedFirst) {
    given({"10", "20", "30", "40"});
    plotpressbegin(selectPointMode);
    draw();
    const PlotWindow before = session.windowSaved;
    const double x = plotxof(30), y = plotyof(session.Y(3, 3));
    gridset(1, 1, "");
    plotpress(before, before.left + (x - before.xlow) * before.xfactor,
              before.bottom - (y - before.ylow) * before.yfactor);
    EXPECT_EQ(column(), (Cells{"", "20", "30", "40"})) << "that press was at another plot";
    EXPECT_EQ(pointcount(1), 3);
}

TEST_F(PlotPress, ARowOfAGroupIsNotAddedByAPress) {
    session.inputType = prbt2;
    given({"100x0x2x10", "200x0x5x10", "300x0x8x10"});
    desk.expectmessage("Not Possible");
    plotpressbegin(addPointMode);
    EXPECT_EQ(session.activeMode, 0);
}

} // namespace
