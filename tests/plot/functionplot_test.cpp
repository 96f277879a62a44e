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

TEST_F(FunctionPlots, AThresholdMovesTheCurve) {
    session.t0(1) = 100;
    life(bearings);
    EXPECT_GT(curve(densityPlot).x.front(), 100);
    EXPECT_EQ(session.t0(1), 100);
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
