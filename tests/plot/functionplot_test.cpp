#include "plot/functionplot.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "plot/plotprob.h"
#include "plot/readout.h"
#include "plot/zoomwindow.h"
#include "support/lifefixture.h"
#include "support/recordingdevice.h"

namespace {

class FunctionPlots : public LifeTest {
protected:
    const Cells bearings = {"150", "230", "310", "420", "-500"};

    static FunctionCurve curve(FunctionPlot kind) {
        session.functionPlot = kind;
        const auto curves = functioncurves();
        EXPECT_EQ(curves.size(), 1u);
        return curves.empty() ? FunctionCurve{} : curves.front();
    }
    static std::vector<HistogramBar> barsof(FunctionPlot kind) {
        session.functionPlot = kind;
        return histogrambars();
    }
    /// Units in the bars of a set.
    static double counted(int set, bool suspended) {
        double sum = 0;
        for (const HistogramBar& bar : barsof(histogramPlot))
            if (bar.set == set && bar.suspended == suspended) sum += bar.to - bar.from;
        return sum;
    }
    static void expectheights(const std::vector<double>& heights) {
        const auto bars = barsof(histogramPlot);
        ASSERT_EQ(bars.size(), heights.size());
        for (std::size_t i = 0; i < heights.size(); ++i) EXPECT_NEAR(bars[i].to, heights[i], 1e-9) << i;
    }
    static double area(const FunctionCurve& c) {
        double sum = 0;
        for (std::size_t i = 1; i < c.x.size(); ++i) sum += (c.x[i] - c.x[i - 1]) * (c.y[i] + c.y[i - 1]) / 2;
        return sum;
    }
};

TEST_F(FunctionPlots, TheDensityOfEachFamilyHasTheAreaBetweenItsQuantiles) {
    for (const Dist family : {weibull, lognormal, normal, gumbel}) {
        choose(family);
        life(bearings);
        EXPECT_NEAR(area(curve(densityPlot)), 0.998, 2e-3) << family;
    }
}

TEST_F(FunctionPlots, DistributionAndReliabilityAddToOne) {
    life(bearings);
    const FunctionCurve f = curve(distributionPlot), r = curve(reliabilityPlot);
    ASSERT_EQ(f.x, r.x);
    for (std::size_t i = 0; i < f.x.size(); ++i) EXPECT_NEAR(f.y[i] + r.y[i], 1, 1e-15);
    EXPECT_NEAR(f.y.front(), 0.001, 1e-9);
    EXPECT_NEAR(f.y.back(), 0.999, 1e-9);
}

TEST_F(FunctionPlots, HazardsOfAWeibullLineFollowTheirClosedForms) {
    life(bearings);
    const Fit line = fit();
    const FunctionCurve h = curve(hazardPlot), a = curve(cumulativeHazardPlot);
    for (std::size_t i = 0; i < h.x.size(); i += 20) {
        const double z = h.x[i] / line.eta;
        EXPECT_NEAR(h.y[i], line.beta / line.eta * std::pow(z, line.beta - 1), 1e-12);
        EXPECT_NEAR(a.y[i], std::pow(z, line.beta), 1e-11 * std::max(1.0, std::pow(z, line.beta)));
    }
}

TEST_F(FunctionPlots, UnderAThresholdXIsThatOfTheProbabilityPlot) {
    session.t0(1) = 100;
    life(bearings);
    session.scaleAsRecorded = 1;
    const FunctionCurve recorded = curve(densityPlot);
    const auto bars = barsof(histogramPlot);
    session.scaleAsRecorded = 0;
    const FunctionCurve shifted = curve(densityPlot);
    const auto moved = barsof(histogramPlot);
    ASSERT_EQ(recorded.x.size(), shifted.x.size());
    for (std::size_t i = 0; i < shifted.x.size(); ++i) {
        EXPECT_NEAR(recorded.x[i] - shifted.x[i], 100, 1e-9);
        EXPECT_EQ(recorded.y[i], shifted.y[i]);
    }
    EXPECT_NEAR(bars.front().low, 150, 1e-9);
    EXPECT_NEAR(moved.front().low, 50, 1e-9);
    EXPECT_GT(shifted.x.front(), 0);
    session.functionPlot = densityPlot;
    functionwindow();
    EXPECT_EQ(session.xlowd, 0) << "where the family begins";
    RecordingDevice device(12000, 9000);
    ASSERT_TRUE(plotentry(device));
    EXPECT_TRUE(std::any_of(device.texts.begin(), device.texts.end(),
                            [](const auto& text) { return text.text == "Probability Density f(x) - NAR"; }));
}

TEST_F(FunctionPlots, TheHistogramCountsEveryUnitOnce) {
    sets({{"150", "230x0x3", "310", "-500"}, {"90", "-95x0x2", "800"}});
    session.functionPlot = histogramPlot;
    double failed[3] = {}, suspended[3] = {};
    for (const HistogramBar& bar : histogrambars()) {
        (bar.suspended ? suspended : failed)[bar.set] += bar.to - bar.from;
        EXPECT_NEAR(bar.high - bar.low, (800 - 90) / 7.0, 1e-9) << "1 + 3.3 ln 7, in whole bars";
    }
    EXPECT_EQ(failed[1], 5);
    EXPECT_EQ(suspended[1], 1);
    EXPECT_EQ(failed[2], 2);
    EXPECT_EQ(suspended[2], 2);
    session.functionPlot = suspensionPlot;
    for (const HistogramBar& bar : histogrambars()) EXPECT_TRUE(bar.suspended);
}

TEST_F(FunctionPlots, SuspensionsStandUponTheFailuresOfTheirInterval) {
    life({"100", "100", "-100", "900"});
    session.functionPlot = histogramPlot;
    const auto bars = histogrambars();
    ASSERT_EQ(bars.size(), 3u);
    EXPECT_EQ(bars[0].to, 2);
    EXPECT_TRUE(bars[1].suspended);
    EXPECT_EQ(bars[1].from, 2);
    EXPECT_EQ(bars[1].to, 3);
}

TEST_F(FunctionPlots, CumulativeRowsCountByTheirIncreaseBetweenInspections) {
    session.inputType = prbt2;
    life({"30x0x20x100", "10x0x5x100", "20x0x8x100"});
    EXPECT_NEAR(counted(1, false), 20, 1e-9);
    EXPECT_EQ(counted(1, true), 0);
    // 5 in 0 to 10, 3 in 10 to 20, 12 in 20 to 30; five bars of 6
    expectheights({3, 2.6, 1.8, 5.4, 7.2});
}

TEST_F(FunctionPlots, CumulativePercentagesCountInUnitsOfTheSample) {
    session.inputType = prbt3;
    life({"10x0x5x200", "20x0x8x200", "30x0x20x200"});
    EXPECT_NEAR(counted(1, false), 40, 1e-9);
    expectheights({6, 5.2, 3.6, 10.8, 14.4});
}

TEST_F(FunctionPlots, KaplanMeierRowsCountTheirFailuresAndTheirSuspensions) {
    session.inputType = km4;
    life({"10x0x2x1", "20x0x0x3", "30x0x1x0", "-40x0x5x0"});
    EXPECT_EQ(counted(1, false), 3);
    EXPECT_EQ(counted(1, true), 9);
}

TEST_F(FunctionPlots, ASetWhoseCountCannotBeToldIsLeftOut) {
    session.inputType = prbt2;
    const Cells good = {"10x0x5x100", "20x0x9x100"};
    for (const Cells& bad : {Cells{"10x0x5x100", "20x0x3x100"}, Cells{"10x0x5x100", "20x0x9x120"}}) {
        sets({bad, good});
        EXPECT_EQ(counted(1, false), 0);
        EXPECT_NEAR(counted(2, false), 9, 1e-9);
    }
}

TEST_F(FunctionPlots, SamplesDeclaredDifferentCountEachForItself) {
    session.inputType = prbt2;
    session.groupingOption = 2;
    life({"10x0x5x100", "20x0x9x120"});
    EXPECT_NEAR(counted(1, false), 14, 1e-9);
}

TEST_F(FunctionPlots, AnIntervalIsSpreadOverTheBarsItOverlaps) {
    session.inputType = intv5;
    // Bars of 10 from 0 to 50: 2 before 10, 4 between 10 and 30, 1 at 50, 3 suspended at 45.
    life({"<10x0x2", ">10<30x0x4", "50", ">45x0x3"});
    const auto bars = barsof(histogramPlot);
    ASSERT_EQ(bars.size(), 5u);
    const double heights[] = {2, 2, 2, 1, 4};
    for (std::size_t i = 0; i < bars.size(); ++i) EXPECT_NEAR(bars[i].to, heights[i], 1e-9) << i;
    EXPECT_TRUE(bars[4].suspended);
}

TEST_F(FunctionPlots, ADiscoveryAmongNegativeDataStandsAtItsAge) {
    choose(normal);
    session.inputType = intv5;
    session.negativeXAllowed = 1;
    life({"-50x0x1x-50", "<-15x0x2", "0", "50x0x1x50"}); // a Z of 0 is a value here
    const auto bars = barsof(histogramPlot);
    ASSERT_FALSE(bars.empty());
    EXPECT_EQ(bars.front().low, -50);
    EXPECT_EQ(counted(1, false), 5);
    EXPECT_TRUE(std::any_of(bars.begin(), bars.end(), [](const HistogramBar& bar) { return bar.to == 2; }));
}

TEST_F(FunctionPlots, InTheTotalPictureTheBarsAreADensityBesideTheCurve) {
    life(bearings);
    session.functionPlot = totalPlot;
    double sum = 0;
    for (const HistogramBar& bar : histogrambars()) sum += (bar.high - bar.low) * (bar.to - bar.from);
    EXPECT_NEAR(sum, 1, 1e-12);
    EXPECT_EQ(functioncurves().size(), 1u);
}

TEST_F(FunctionPlots, APointAloneStillHasItsBar) {
    life({"100", "100", "100"});
    session.functionPlot = histogramPlot;
    const auto bars = histogrambars();
    ASSERT_EQ(bars.size(), 1u);
    EXPECT_EQ(bars[0].to, 3);
    EXPECT_GT(bars[0].high, bars[0].low);
}

TEST_F(FunctionPlots, EveryKindIsDrawnWithItsTitleAndLeavesTheSessionAsItWas) {
    sets({bearings, {"90", "120", "180"}});
    const std::pair<FunctionPlot, const char*> kinds[] = {
        {cumulativeHazardPlot, "Aggregate Cumulative Hazard"},
        {distributionPlot, "Cumulative Distribution F(x)"},
        {hazardPlot, "Hazard h(x)"},
        {densityPlot, "Probability Density f(x)"},
        {reliabilityPlot, "Reliability 1-F(x)"},
        {totalPlot, "Probability Density f(x)"},
        {histogramPlot, "Occurrence + Suspension Quantity"},
        {suspensionPlot, "Suspension Quantity"}};
    for (const auto& [kind, title] : kinds) {
        session.functionPlot = kind;
        RecordingDevice device(12000, 9000);
        ASSERT_TRUE(plotentry(device)) << title;
        EXPECT_EQ(session.plotMode, 1);
        const bool named = std::any_of(device.texts.begin(), device.texts.end(),
                                       [&](const auto& text) { return text.text == title; });
        EXPECT_TRUE(named) << title;
        for (const LineOperation& line : device.lines) {
            EXPECT_GE(std::min(line.y1, line.y2), 0) << title;
            EXPECT_LE(std::max(line.y1, line.y2), 9000) << title;
        }
    }
}

TEST_F(FunctionPlots, ASessionWithoutDataHasAnEmptyPlot) {
    life({});
    for (const FunctionPlot kind : {densityPlot, histogramPlot}) {
        session.functionPlot = kind;
        RecordingDevice device(12000, 9000);
        EXPECT_TRUE(plotentry(device));
    }
}

TEST_F(FunctionPlots, AHazardThatFallsFromInfinityKeepsTheRestInSight) {
    life({"1", "2", "5", "20", "100", "900", "9000"});
    ASSERT_LT(fit().beta, 1);
    session.functionPlot = hazardPlot;
    functionwindow();
    const FunctionCurve h = curve(hazardPlot);
    EXPECT_LE(session.yhighd, 3 * h.y[h.y.size() / 10]);
}

TEST_F(FunctionPlots, ThePointerReadsTheFunctionAndTheWheelZoomsIt) {
    life(bearings);
    session.functionPlot = densityPlot;
    session.outdev = screenDevice;
    RecordingDevice device(12000, 9000);
    ASSERT_TRUE(plotentry(device));
    const PlotWindow w = session.windowSaved;
    const auto middle = plotplace(w, (w.left + w.right) / 2, (w.top + w.bottom) / 2);
    ASSERT_TRUE(middle);
    EXPECT_NEAR(middle->x, (session.xAxisLow + session.xAxisHigh) / 2, 1e-9 * session.xAxisHigh);
    EXPECT_NEAR(middle->y, session.yAxisHigh / 2, 1e-9 * session.yAxisHigh);
    EXPECT_TRUE(placedpoints(w).empty());
    ASSERT_TRUE(zoomplot(w, w.left, w.bottom, 2));
    EXPECT_NEAR(session.yLimitHigh, session.yAxisHigh / 2, 1e-9);
    EXPECT_EQ(session.plotMode, 1);
}

TEST_F(FunctionPlots, ManualLimitsOfXHold) {
    life(bearings);
    session.functionPlot = densityPlot;
    session.xLimitLow = 100;
    session.xLimitHigh = 400;
    functionwindow();
    EXPECT_EQ(session.xlowd, 100);
    EXPECT_EQ(session.xhighd, 400);
}

} // namespace
