#include <cmath>

#include "curvefit/fitfunction.h"
#include "curvefit/models.h"
#include "plot/device_hpgl.h"
#include "plot/plotchoice.h"
#include "plot/readout.h"
#include "plot/window.h"
#include "plot/xycurve.h"
#include "plot/zoomwindow.h"
#include "support/hpglreader.h"
#include "support/readableplot.h"
#include "support/textsink.h"
#include "support/visualfixture.h"

namespace {

class VisualPlot : public VisualTest {
protected:
    const Cells parabola = {"1x1", "2x4", "3x9", "4x16", "5x25"};

    /// X and Y at a place of the canvas.
    static PlotPlace at(double x, double y) {
        const PlotWindow& w = session.window;
        return plotplace(w, std::clamp(x, w.left, w.right), std::clamp(y, w.top, w.bottom))
            .value_or(PlotPlace{});
    }
    /// Lowest and highest X of the lines in a colour.
    static std::pair<double, double> reach(const RecordingDevice& device, int colour) {
        double low = 1e300, high = -1e300;
        for (const LineOperation& line : linesof(device, colour))
            for (const double x : {line.x1, line.x2}) {
                low = std::min(low, at(x, line.y1).x);
                high = std::max(high, at(x, line.y1).x);
            }
        return {low, high};
    }
};

// ---- points and lines ----

TEST_F(VisualPlot, TheKindOfCurveDecidesOnMarksAndLines) {
    sets({parabola});
    const auto marks = [] { return drawn().marksBegun; };
    const auto lines = [] { return linesof(drawn(), 1).size(); };
    EXPECT_EQ(marks(), 6) << "five points and the legend";
    EXPECT_EQ(lines(), 0u);
    session.curveType(1) = "L";
    EXPECT_EQ(marks(), 1);
    EXPECT_EQ(lines(), 4u);
    session.curveType(1) = "M";
    EXPECT_EQ(marks(), 6);
    EXPECT_EQ(lines(), 4u);
    session.curveType(1) = "?";
    EXPECT_EQ(lines(), 0u) << "a kind that is none is drawn as points";
}

TEST_F(VisualPlot, ValuesWithoutAPlaceOnALogarithmicAxisAreToldOnceAndTheRestGoesOn) {
    session.xyscale = 3;
    sets({{"0x1", "-3x4", "5x0", "20x7", "300x20"}});
    desktop.messages.clear();
    const RecordingDevice device = drawn();
    ASSERT_EQ(desktop.messages.size(), 2u);
    EXPECT_NE(desktop.messages[0].find("X-Value <= 0 ... 2 Point"), std::string::npos) << desktop.messages[0];
    EXPECT_NE(desktop.messages[1].find("Y-Value <= 0 ... Point 3"), std::string::npos) << desktop.messages[1];
    EXPECT_EQ(device.marksBegun, 3) << "two points and the legend";
}

TEST_F(VisualPlot, APowerLawIsStraightOnLogarithmicAxesAndAnArrheniusLawOnReciprocalOnes) {
    struct {
        float pair;
        double (*law)(double);
    } const cases[] = {{3, [](double x) { return 3 * std::pow(x, 1.7); }},
                       {5, [](double x) { return 2e6 * std::exp(-900 / x); }},
                       {2, [](double x) { return 5 * std::exp(x / 200); }},
                       {1, [](double x) { return 4 + 3 * std::log(x); }},
                       {4, [](double x) { return -1 / (-0.2 + 0.02 * std::log(x)); }},
                       {0, [](double x) { return 2 * x - 7; }}};
    for (const auto& one : cases) {
        SCOPED_TRACE(one.pair);
        session.xyscale = one.pair;
        session.curveType(1) = "L";
        Cells cells;
        for (int i = 0; i <= 10; ++i) {
            const double x = 100 + 40 * i;
            cells.push_back(std::to_string(x) + "x" + std::to_string(one.law(x)));
        }
        sets({cells});
        const auto lines = linesof(drawn(), 1);
        ASSERT_EQ(lines.size(), 10u);
        const double x0 = lines.front().x1, y0 = lines.front().y1;
        const double slope = (lines.back().y2 - y0) / (lines.back().x2 - x0);
        for (const LineOperation& line : lines) EXPECT_NEAR(line.y2, y0 + slope * (line.x2 - x0), 15);
    }
}

TEST_F(VisualPlot, AnIntervalIsABarWithItsEndsInTheWindow) {
    session.intervalPlot = 1;
    sets({{"10x5x1x90", "40x8", "60x3x1x3.3E+33"}});
    session.pointLabelsShown = 0;
    const RecordingDevice device = drawn();
    EXPECT_GE(session.xhighd, 90);
    const auto lines = linesof(device, 1);
    const auto [low, high] = reach(device, 1);
    EXPECT_NEAR(low, 10, 0.2);
    EXPECT_NEAR(high, 90, 0.2);
    const auto uprights = std::count_if(lines.begin(), lines.end(), [](const LineOperation& line) {
        return std::fabs(line.x1 - line.x2) < 1 && std::fabs(line.y1 - line.y2) > 50;
    });
    EXPECT_EQ(uprights, 2) << "the known end of an open interval has the mark";
    session.intervalPlot = 0;
    EXPECT_TRUE(linesof(drawn(), 1).empty());
}

// ---- curves ----

TEST_F(VisualPlot, AFittedCurveRunsAlongItsEquationOverTheWindow) {
    sets({parabola});
    curve(1, "x^2", 1, 5);
    const RecordingDevice device = drawn();
    const auto lines = linesof(device, 1);
    EXPECT_GT(lines.size(), 30u);
    for (const LineOperation& line : lines) {
        const double pixelX = 15 / session.window.xfactor, pixelY = 15 / session.window.yfactor;
        for (const double part : {0.0, 0.5, 1.0}) {
            const PlotPlace place =
                at(line.x1 + part * (line.x2 - line.x1), line.y1 + part * (line.y2 - line.y1));
            EXPECT_NEAR(place.y, place.x * place.x, pixelY + 2 * place.x * pixelX);
        }
    }
    const auto [low, high] = reach(device, 1);
    EXPECT_NEAR(low, session.xAxisLow, 0.01);
    EXPECT_NEAR(high, session.xAxisHigh, 0.01);
}

TEST_F(VisualPlot, ACurveHasNoCornersOnALargeCanvas) {
    sets({{"0x0", "10x1"}});
    curve(1, "sin(x*3)", 0, 10);
    const RecordingDevice device = drawn(4000, 3000);
    for (const LineOperation& line : linesof(device, 1)) {
        const PlotPlace middle = at((line.x1 + line.x2) / 2, (line.y1 + line.y2) / 2);
        EXPECT_NEAR(middle.y, std::sin(3 * middle.x), 1.5 * 15 / session.window.yfactor);
    }
}

TEST_F(VisualPlot, ACurveKeepsToItsDataOrBeginsWhereItIsTold) {
    session.xLimitLow = 0.5;
    session.xLimitHigh = 8;
    sets({parabola});
    curve(1, "x^2", 1, 5);
    session.yLimitHigh = 100;
    session.curveExtrapolated = 0;
    EXPECT_NEAR(reach(drawn(), 1).first, 1, 0.01);
    EXPECT_NEAR(reach(drawn(), 1).second, 5, 0.01);
    session.curveFrom = 3;
    EXPECT_NEAR(reach(drawn(), 1).first, 3, 0.01);
    session.curveExtrapolated = 1;
    EXPECT_NEAR(reach(drawn(), 1).first, 3, 0.01);
    EXPECT_NEAR(reach(drawn(), 1).second, 8, 0.01);
}

TEST_F(VisualPlot, AFittedCurveIsDrawnWhereItsModelHasAValue) {
    session.xLimitLow = -10;
    session.xLimitHigh = 10;
    session.yLimitLow = -50;
    session.yLimitHigh = 50;
    const struct {
        int16_t model;
        double slope, low, high;
    } cases[] = {{powerFit, .5, 0, 10},         // sqr(x)
                 {powerFit, -1, 0.02, 10},      // 1/x
                 {exponentialFit, 35, -2, .12}, // e^(35x): its machine's part, then beyond the window
                 {exponentialFit, -35, -.12, 2}, {arrheniusXFit, -140, 2, 10}, // e^(-140/x)
                 {arrheniusXFit, 140, -10, -2},  {arrheniusYFit, 2, 0, 10}};   // 2/ln(x)
    for (const auto& one : cases) {
        SCOPED_TRACE(testing::Message() << one.model << " " << one.slope);
        sets({parabola});
        SetCurve& fitted = session.curves(1);
        fitted = {};
        fitted.fitmodel = one.model;
        fitted.coefficients = {1, one.slope};
        fitfunction(fitted);
        const auto [low, high] = reach(drawn(), 1);
        EXPECT_NEAR(low, one.low, 0.15);
        EXPECT_NEAR(high, one.high, 0.15);
    }
}

TEST_F(VisualPlot, EquationAndCorrelationStandBesideThePlotUntilTheLinesAreHidden) {
    sets({parabola});
    curve(1, "1.23456789+2.5*x", 1, 5);
    session.curves(1).coefficients = {1.23456789, 2.5};
    const RecordingDevice device = drawn();
    EXPECT_TRUE(shows(device, "y=1.235+2.5*x"));
    EXPECT_TRUE(shows(device, "r=.98765"));
    session.fitLinesHidden = 1;
    const RecordingDevice hidden = drawn();
    EXPECT_FALSE(shows(hidden, "y="));
    EXPECT_TRUE(linesof(hidden, 1).empty());
}

TEST_F(VisualPlot, TheEquationOfAModelIsTheOneThatUsersKnow) {
    sets({parabola});
    const struct {
        float model;
        std::vector<double> coefficients; ///< a, and ln b; b itself of the power model
        bool logarithm;
        const char* text;
    } cases[] = {{exponentialFit, {188.699, -0.04349}, false, "y=188.7*exp(-.04349*x)"},
                 {powerFit, {2.5, 1.5}, false, "y=2.5*x^(1.5)"},
                 {arrheniusXFit, {16.28, -2.2496}, false, "y=16.28*exp(-2.25/x)"},
                 {arrheniusYFit, {16.28, 2.2496}, false, "x=16.28*exp(2.25/y)"},
                 {exponentialFit, {120.5, -0.5}, true, "y=exp(120.5-.5*x)"},
                 {powerFit, {120.5, 30}, true, "y=exp(120.5+30*ln(x))"}};
    for (const auto& one : cases) {
        SetCurve& fitted = session.curves(1);
        fitted.fitmodel = one.model;
        fitted.coefficients = one.coefficients;
        fitted.noLogarithm = one.logarithm;
        EXPECT_EQ(curvetext(1), one.text);
    }
    session.curves(1).coefficients = {10.62, -1.851, 0.0975238};
    session.curves(1).fitmodel = quadraticFit;
    EXPECT_EQ(curvetext(1), "y=10.62-1.851*x+.09752*x^2");
}

TEST_F(VisualPlot, ALongEquationIsBrokenAtItsSigns) {
    sets({parabola});
    curve(1, "1.2346+2.3456*x-3.4567*x^2+4.5678*x^3-5.6789*x^4", 1, 5);
    session.curves(1).fitmodel = 4;
    session.curves(1).coefficients = {1.2346, 2.3456, -3.4567, 4.5678, -5.6789};
    const RecordingDevice device = drawn();
    std::string whole;
    for (const auto& t : device.texts)
        if (t.text.find("*x") != std::string::npos) whole += t.text;
    EXPECT_EQ(whole, "y=1.235+2.346*x-3.457*x^2+4.568*x^3-5.679*x^4");
    expectreadable(device);
}

TEST_F(VisualPlot, ACurveThatCannotRunIsLeftOut) {
    sets({parabola});
    curve(1, "x^2", 1, 5);
    session.curves(1).code = "9999";
    EXPECT_TRUE(linesof(drawn(), 1).empty());
    session.curves(1).code = "0";
    EXPECT_TRUE(linesof(drawn(), 1).empty());
    session.curves(1).code = "00";
    session.curves(1).literals.clear();
    EXPECT_TRUE(linesof(drawn(), 1).empty()) << "a number that is missing";
}

TEST_F(VisualPlot, TheTypedFunctionHasItsRangeItsTextAndAWindowWithoutData) {
    typed("2*x+1", 3, 7);
    calcplot();
    const RecordingDevice device = drawn();
    EXPECT_TRUE(shows(device, "f(x)=2*x+1"));
    const auto [low, high] = reach(device, functioncolour());
    EXPECT_NEAR(low, 3, 0.01);
    EXPECT_NEAR(high, 7, 0.01);
    EXPECT_LE(session.yAxisLow, 7);
    EXPECT_GE(session.yAxisHigh, 15);
    session.functionShown = 0;
    EXPECT_FALSE(shows(drawn(), "f(x)"));
}

TEST_F(VisualPlot, APoleIsNoLine) {
    typed("1/(x-1)", -3, 5);
    session.yLimitLow = -10;
    session.yLimitHigh = 10;
    calcplot();
    const auto lines = linesof(drawn(), functioncolour());
    EXPECT_GT(lines.size(), 50u);
    const double tall = session.window.bottom - session.window.top;
    for (const LineOperation& line : lines) EXPECT_LT(std::fabs(line.y1 - line.y2), 0.9 * tall);
}

TEST_F(VisualPlot, ASteepLineThroughASmallWindowIsDrawn) {
    typed("x*100000", -10, 10);
    session.yLimitLow = -0.01;
    session.yLimitHigh = 0.01;
    calcplot();
    const auto lines = linesof(drawn(), functioncolour());
    double tall = 0;
    for (const LineOperation& line : lines) tall += std::fabs(line.y1 - line.y2);
    EXPECT_NEAR(tall, session.window.bottom - session.window.top, 60);
}

TEST_F(VisualPlot, ADipNarrowerThanAStepIsFound) {
    typed("(x-.037)^2-1E-6", -10, 10);
    session.yLimitLow = -1e-5;
    session.yLimitHigh = 1e-4;
    calcplot();
    const auto lines = linesof(drawn(), functioncolour());
    ASSERT_FALSE(lines.empty());
    double lowest = 0;
    for (const LineOperation& line : lines) lowest = std::max({lowest, line.y1, line.y2});
    EXPECT_LE(at(lines[0].x1, lowest).y, 1e-5);
}

TEST_F(VisualPlot, AFunctionWithoutValuesLeavesAGap) {
    typed("sqr(x)*0+x^.5", -4, 4);
    calcplot();
    const auto [low, high] = reach(drawn(), functioncolour());
    EXPECT_NEAR(low, 0, 0.05) << "the root of a negative number is none";
    EXPECT_NEAR(high, 4, 0.05);
}

TEST_F(VisualPlot, AFunctionThatRemembersStartsAtItsOwnRangeWhateverTheWindowShows) {
    typed("sum(1)", 0, 10);
    session.xLimitLow = 5;
    session.xLimitHigh = 10;
    calcplot();
    const RecordingDevice device = drawn();
    const auto lines = linesof(device, functioncolour());
    ASSERT_GT(lines.size(), 100u);
    const PlotPlace first = at(lines.front().x1, lines.front().y1);
    EXPECT_NEAR(first.x, 5, 0.02);
    EXPECT_NEAR(first.y, 500, 15) << "half of a thousand steps lie before the window";
}

// ---- names for those without a menu ----

TEST_F(VisualPlot, NamesChooseKindAndScale) {
    sets({parabola, parabola});
    EXPECT_TRUE(takeplotkind("mixed"));
    EXPECT_EQ(curvekindof(1), mixedCurve);
    EXPECT_EQ(curvekindof(2), mixedCurve);
    EXPECT_TRUE(takeplotkind("stacked"));
    EXPECT_EQ(session.plotKind, barsStacked);
    EXPECT_TRUE(takeplotscale("arrhenius-x"));
    EXPECT_EQ(session.xyscale, 5);
    EXPECT_FALSE(takeplotkind("cake"));
    EXPECT_FALSE(takeplotscale(""));
    EXPECT_EQ(session.xyscale, 5);
    EXPECT_EQ(plotscalenames(), "linear loglog logx logy arrhenius-x arrhenius-y");
    EXPECT_EQ(plotkindnames(), "xy line mixed bars stacked bars3d pie pie3d space");
}

// ---- readable at every size, for every kind and for data that are not kind ----

struct Canvas {
    int across, down;
};

class ReadableVisualPlot : public VisualPlot, public testing::WithParamInterface<Canvas> {
protected:
    static std::vector<std::vector<Cells>> hostile() {
        std::vector<Cells> many(24);
        for (std::size_t k = 0; k < many.size(); ++k)
            for (int j = 1; j <= 30; ++j)
                many[k].push_back(std::to_string(j) + "x" + std::to_string(10.0 * static_cast<double>(k) + j)
                                  + "x1x" + std::to_string(j % 7));
        return {
            {},
            {{"5x3x1x2"}},
            {{"5x0"}},
            {{"5x3", "5x3", "5x3"}},
            {{"-1x-5x1x-3", "0x0x1x0", "1x5x1x4_a label", "2x7"}},
            {{"1E30x1E30x1x1E20", "2E30x-1E30x1x-1E20", "1E-30x1E-30"}},
            {{"1000000.1x5", "1000000.2x6", "1000000.3x7"}},
            {{"1x1E-20x1x1E-9", "2x3E-20x1x2E-9", "3x2E-20x1x3E-9"}},
            {{"1x42_" + std::string(60, 'W'), "2x25_valves", "3x12_[[TAB99seals", "4x1_x", "5x-3_negative"}},
            many};
    }
};

TEST_P(ReadableVisualPlot, NoTextLeavesTheCanvasOrCoversAnother) {
    const auto [across, down] = GetParam();
    const auto data = hostile();
    for (const char* kind : {"xy", "line", "mixed", "bars", "stacked", "bars3d", "pie", "pie3d", "space"})
        for (const float pair : {0.0f, 1.0f, 2.0f, 3.0f, 4.0f, 5.0f})
            for (std::size_t i = 0; i < data.size(); ++i) {
                const bool plain = session.plotKind != xyPlot;
                if (plain && pair > 0) continue; // those kinds have plain axes whatever the pair
                SCOPED_TRACE(testing::Message() << kind << ", pair " << pair << ", data " << i);
                ASSERT_TRUE(takeplotkind(kind));
                session.xyscale = pair;
                sets(data[i]);
                if (!data[i].empty()) curve(1, "1.5+2.25*x-.75*x^2", 1, 5);
                expectreadable(drawn(across, down));
            }
}

INSTANTIATE_TEST_SUITE_P(Sizes, ReadableVisualPlot,
                         testing::Values(Canvas{400, 300}, Canvas{800, 600}, Canvas{1200, 400},
                                         Canvas{600, 900}, Canvas{4000, 3000}));

TEST_F(ReadableVisualPlot, EveryKindReadsBackFromThePlotter) {
    session.outdev = plotterDevice;
    for (const char* kind : {"xy", "mixed", "bars", "stacked", "bars3d", "pie", "pie3d", "space"})
        for (const auto& data : hostile()) {
            SCOPED_TRACE(kind);
            takeplotkind(kind);
            sets(data);
            MemorySink sink;
            HpglDevice device(sink);
            ASSERT_TRUE(plotentry(device));
            const HpglPicture picture = readhpgl(sink.text);
            EXPECT_TRUE(picture.problems.empty()) << picture.problems[0];
        }
}

} // namespace
