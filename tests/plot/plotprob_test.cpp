#include "plot/plotprob.h"

#include <algorithm>
#include <random>

#include "plot/device_hpgl.h"
#include "plot/device_trace.h"
#include "plot/shown.h"
#include "support/hpglreader.h"
#include "support/lifefixture.h"
#include "support/readableplot.h"
#include "support/recordingdevice.h"
#include "support/scriptedplatform.h"
#include "support/textsink.h"

namespace {

class ProbabilityPlot : public LifeTest {
protected:
    /// A sample by inversion of the Weibull distribution, the same on every machine.
    static Cells sample(int n, double eta, double beta, unsigned seed, int everySuspended = 0) {
        std::mt19937 random(seed);
        Cells cells;
        for (int i = 1; i <= n; ++i) {
            const double p = (static_cast<double>(random()) + 0.5) / 4294967296.0;
            const double x = eta * std::pow(-std::log1p(-p), 1 / beta);
            const bool suspended = everySuspended > 0 && i % everySuspended == 0;
            cells.push_back((suspended ? "-" : "") + std::to_string(x));
        }
        return cells;
    }

    static RecordingDevice drawn(int across = 1200, int down = 900) {
        RecordingDevice device(15.0 * across, 15.0 * down);
        EXPECT_TRUE(plotentry(device));
        return device;
    }

    static const RecordingDevice::Text* textof(const RecordingDevice& device, std::string_view text) {
        const auto found = std::find_if(device.texts.begin(), device.texts.end(),
                                        [&](const auto& t) { return t.text == text; });
        return found == device.texts.end() ? nullptr : &*found;
    }
    static std::size_t indexof(const RecordingDevice& device, std::string_view text) {
        const auto* found = textof(device, text);
        EXPECT_TRUE(found) << text;
        return found ? static_cast<std::size_t>(found - device.texts.data()) : 0;
    }
};

TEST_F(ProbabilityPlot, ShowsTitleAxesParametersAndDate) {
    session.fileName = "pumps.txt";
    life({"150", "230", "-400", "310"});
    const RecordingDevice device = drawn();
    for (const char* text : {"pumps.txt", "Weibull (rr Fit)", "Age", "F(Age) [Occurrence %]", "LEGEND",
                             "Set 1", "Suspension", "Set 1  rr", "n/s=4/1", "50", "90"})
        EXPECT_TRUE(textof(device, text)) << text;
    const auto starts = [&](const char* start) {
        return std::any_of(device.texts.begin(), device.texts.end(),
                           [&](const auto& t) { return t.text.starts_with(start); });
    };
    EXPECT_TRUE(starts("Eta="));
    EXPECT_TRUE(starts("Beta="));
    EXPECT_TRUE(starts("r^2="));
    EXPECT_TRUE(starts("OmniVANEX  20"));
}

TEST_F(ProbabilityPlot, ParametersCarryTheNamesOfTheFamily) {
    const auto shows = [&](Dist family, const char* first, const char* second) {
        choose(family);
        life({"150", "230", "310", "420"});
        const RecordingDevice device = drawn();
        bool one = false, two = false;
        for (const auto& t : device.texts) {
            one = one || t.text.starts_with(first);
            two = two || t.text.starts_with(second);
        }
        return one && two;
    };
    EXPECT_TRUE(shows(weibull, "Eta=", "Beta="));
    EXPECT_TRUE(shows(lognormal, "Med=", "SigF="));
    EXPECT_TRUE(shows(normal, "Mu=", "Sig="));
    EXPECT_TRUE(shows(gumbel, "Xi=", "Del="));
}

TEST_F(ProbabilityPlot, TheScaleLineStandsOnWeibullPaperAlone) {
    life({"150", "230", "310", "420"});
    EXPECT_TRUE(textof(drawn(), "63.212"));
    choose(lognormal);
    life({"150", "230", "310", "420"});
    EXPECT_FALSE(textof(drawn(), "63.212"));
}

TEST_F(ProbabilityPlot, ReliabilityAxisMirrorsTheLabels) {
    session.yScaleKind = reliabilityPercent;
    life({"150", "230", "310", "420", "500", "600", "700"});
    const RecordingDevice device = drawn();
    EXPECT_TRUE(textof(device, "1-F(Age) [Reliability %]"));
    const auto* ninety = textof(device, "90");
    const auto* ten = textof(device, "10");
    ASSERT_TRUE(ninety && ten);
    EXPECT_GT(ninety->y, ten->y) << "reliability falls upwards";
}

TEST_F(ProbabilityPlot, DrawsGridThenFrameThenLinesThenMarks) {
    life({"150", "230", "310", "420"});
    const RecordingDevice device = drawn();
    const auto at = [&](auto want) {
        return std::find_if(device.lines.begin(), device.lines.end(), want) - device.lines.begin();
    };
    const auto count = static_cast<std::ptrdiff_t>(device.lines.size());
    const auto grid = at([](const LineOperation& l) { return l.pen.colour == gridColour; });
    const auto box =
        at([&](const LineOperation& l) { return l.pen.style == LineStyle::outline && l.x1 > 0; });
    const auto fit = at([](const LineOperation& l) { return l.pen.colour == 1 && l.width == 2; });
    ASSERT_LT(fit, count);
    EXPECT_LT(grid, box);
    EXPECT_LT(box, fit);
    EXPECT_EQ(device.marksBegun, 4 + 1) << "four points and one in the legend";
    EXPECT_EQ(device.marksEnded, device.marksBegun);
}

TEST_F(ProbabilityPlot, PointsStandWhereTheirScalesPutThem) {
    life({"100", "200", "400"});
    const RecordingDevice device = drawn();
    const PlotWindow& w = session.window;
    // Logarithmic age: equal ratios are equal lengths. The first step of a mark starts at its point.
    std::vector<double> x;
    std::vector<double> y;
    for (std::size_t i = 0; i < device.steps.size(); ++i)
        if (i == 0 || device.steps[i].colour == 0) {
            x.push_back(device.steps[i].fromX);
            y.push_back(device.steps[i].fromY);
        }
    ASSERT_GE(x.size(), 3u);
    EXPECT_NEAR(x[1] - x[0], x[2] - x[1], 30) << "within the pixel grid";
    for (int j = 1; j <= 3; ++j) {
        const double p = (j - 0.3) / 3.4;
        const double expected = w.bottom - (std::log(-std::log1p(-p)) - w.ylow) * w.yfactor;
        EXPECT_NEAR(y[static_cast<std::size_t>(j - 1)], expected, 15);
    }
}

TEST_F(ProbabilityPlot, TheFittedLinePassesThroughItsScaleAtTheScaleLine) {
    life(sample(20, 1000, 2, 3));
    const RecordingDevice device = drawn();
    const auto fitted = std::find_if(device.lines.begin(), device.lines.end(), [](const LineOperation& l) {
        return l.pen.colour == 1 && l.width == 2;
    });
    ASSERT_NE(fitted, device.lines.end());
    const PlotWindow& w = session.window;
    const double x = w.left + (std::log(fit().eta) - w.xlow) * w.xfactor;
    const double y = w.bottom - (0 - w.ylow) * w.yfactor; // ln(-ln(1 - 0.63212)) = 0
    const double along = (x - fitted->x1) / (fitted->x2 - fitted->x1);
    EXPECT_NEAR(fitted->y1 + along * (fitted->y2 - fitted->y1), y, 2);
}

TEST_F(ProbabilityPlot, SuspensionsStandAtTheFootAndNotAmongTheFailures) {
    life({"100", "200", "-300"});
    const RecordingDevice device = drawn();
    const PlotWindow& w = session.window;
    const double x = w.left + (std::log(300.0) - w.xlow) * w.xfactor;
    bool found = false;
    for (const MarkStep& step : device.steps)
        if (std::fabs(step.x - x) < 200) {
            found = true;
            EXPECT_GT(step.y, w.bottom - 0.08 * (w.bottom - w.top));
        }
    EXPECT_TRUE(found);
    EXPECT_FALSE(shownpoint(1, 1).suspended);
    EXPECT_TRUE(shownpoint(1, 3).suspended);
}

TEST_F(ProbabilityPlot, MarksCarryTheColourOfTheirSet) {
    sets({{"100", "200", "300"}, {"110", "220", "350"}});
    const RecordingDevice device = drawn();
    std::array<int, 29> steps{};
    for (const MarkStep& step : device.steps) ++steps[static_cast<std::size_t>(step.colour)];
    EXPECT_GT(steps[1], 0);
    EXPECT_GT(steps[2], 0);
    EXPECT_EQ(steps[3], 0);
}

TEST_F(ProbabilityPlot, AHiddenSetIsNotDrawn) {
    sets({{"100", "200", "300"}, {"110", "220", "350"}});
    session.lineHide(2) = 1;
    const RecordingDevice device = drawn();
    EXPECT_FALSE(textof(device, "Set 2"));
    for (const MarkStep& step : device.steps) EXPECT_NE(step.colour, 2);
}

TEST_F(ProbabilityPlot, SetsOfOneNameShareTheirColourInAGroupDisplay) {
    sets({{"100", "200", "300"}, {"110", "220", "350"}});
    session.rowTitle(3) = session.rowTitle(6) = "pump";
    session.groupDisplay = 1;
    const RecordingDevice device = drawn();
    for (const MarkStep& step : device.steps) EXPECT_NE(step.colour, 2);
}

TEST_F(ProbabilityPlot, ASetThatWasRefusedShowsNoPoints) {
    session.inputType = intv5;
    life({"20x0x1x10", "30x0x1x40", "50x0x1x60"}); // the first interval ends before it begins
    ASSERT_EQ(session.setFitted(1), 0);
    EXPECT_EQ(drawn().marksBegun, 1) << "the legend's";
}

TEST_F(ProbabilityPlot, ASuspensionAtZeroIsToldAndLeftOut) {
    life({"-0", "150", "230"});
    desktop.messages.clear();
    const RecordingDevice device = drawn();
    ASSERT_EQ(desktop.messages.size(), 1u);
    EXPECT_EQ(desktop.messages[0], "Set 1: X-Value <= 0 ... Point 1 Not On Plot");
    EXPECT_EQ(device.marksBegun, 2 + 2);
}

TEST_F(ProbabilityPlot, AnEmptySessionGivesAnEmptyPlot) {
    sets({});
    const RecordingDevice device = drawn();
    EXPECT_FALSE(device.lines.empty());
    EXPECT_TRUE(device.steps.empty());
    EXPECT_FALSE(textof(device, "LEGEND"));
    expectreadable(device);
}

TEST_F(ProbabilityPlot, TheScaleLineKeepsItsTrueLabelOnEveryAxis) {
    const auto labels = [&](YScaleKind kind, const char* scale, const char* sixty) {
        session.yScaleKind = kind;
        life(sample(20, 100, 2, 1));
        const RecordingDevice device = drawn(2400, 1800);
        EXPECT_TRUE(textof(device, scale)) << kind;
        EXPECT_TRUE(textof(device, sixty)) << kind << " at 50 percent";
    };
    labels(occurrencePercent, "63.212", "50");
    labels(reliabilityPercent, "36.788", "50");
    labels(occurrenceProbability, ".63212", ".5");
    labels(reliabilityProbability, ".36788", ".5");
    labels(occurrencePerThousand, "632.12", "500");
    labels(reliabilityPerThousand, "367.88", "500");
}

TEST_F(ProbabilityPlot, AManualLimitOffTheLadderIsLabelledAsTheNumberItIs) {
    life(sample(20, 100, 2, 1));
    session.yLimitLow = 0.03;
    session.yLimitHigh = 0.83;
    const RecordingDevice device = drawn();
    for (const char* text : {"3", "5", "63.212", "83"}) EXPECT_TRUE(textof(device, text)) << text;
    for (const char* text : {"90", "95"}) EXPECT_FALSE(textof(device, text)) << text;
}

TEST_F(ProbabilityPlot, EightSetsShowAllTheirParameters) {
    std::vector<Cells> all;
    for (unsigned k = 1; k <= 8; ++k) all.push_back(sample(15, 100.0 * k * k, 1.5, 10 + k, 5));
    sets(all);
    for (const auto& [across, down] : {std::pair{1200, 900}, {800, 600}, {640, 480}, {400, 300}}) {
        const RecordingDevice device = drawn(across, down);
        const auto count = [&](const char* start) {
            return std::count_if(device.texts.begin(), device.texts.end(),
                                 [&](const auto& t) { return t.text.find(start) != std::string::npos; });
        };
        EXPECT_EQ(count("Eta="), 8) << across;
        EXPECT_EQ(count("Beta="), 8) << across;
        EXPECT_EQ(count("n/s=15/3"), 8) << across;
        EXPECT_EQ(count("r^2="), 8) << across;
        expectreadable(device);
    }
}

TEST_F(ProbabilityPlot, AnRSquaredUnderOneNeverPrintsAsOne) {
    life({"100", "200", "300"});
    session.setCorrelation(1) = std::sqrt(0.999997);
    const RecordingDevice device = drawn();
    EXPECT_TRUE(std::any_of(device.texts.begin(), device.texts.end(),
                            [](const auto& t) { return t.text.starts_with("r^2=.999997"); }));
}

TEST_F(ProbabilityPlot, LabelsOfSuspensionsKeepClearOfTheirMarks) {
    life({"100", "200", "300", "-400_ran on", "500"});
    const RecordingDevice device = drawn();
    const auto* label = textof(device, "ran on");
    ASSERT_TRUE(label);
    const Box box = boxof(*label);
    for (const MarkStep& step : device.steps)
        EXPECT_FALSE(step.colour > 0 && step.x > box.left && step.x < box.right && step.y > box.top
                     && step.y < box.bottom);
}

TEST_F(ProbabilityPlot, HostileNamesAreJustText) {
    life({"100", "200", "300"});
    session.rowTitle(3) = "a[[TAB99b<&\x03\x1B\"";
    expectreadable(drawn());
    session.rowTitle(3) = std::string(100000, 'x');
    session.plotTitle = std::string(100000, 'y');
    expectreadable(drawn());
    std::string wide;
    for (int i = 0; i < 60; ++i) wide += "\xE6\xBC\xA2"; // a character two columns wide
    session.plotTitle = wide;
    expectreadable(drawn(400, 300));
}

// ---- readable at every size and for every kind of data ----

struct Canvas {
    int across, down;
};

class ReadablePlot : public ProbabilityPlot, public testing::WithParamInterface<Canvas> {};

TEST_P(ReadablePlot, NoTextLeavesTheCanvasOrCoversAnother) {
    const auto [across, down] = GetParam();
    const std::vector<std::vector<Cells>> data = {
        {sample(5, 100, 2, 1)},
        {sample(60, 1000, 1.3, 2, 3)},
        {sample(30, 3e-9, 4, 3)},
        {sample(30, 2e12, 0.6, 4)},
        {{"0.012", "0.0131", "0.0152", "0.0167", "0.019"}},
        {{"77", "77", "77"}},
        {sample(15, 100, 1, 5, 4), sample(15, 400, 1.5, 6, 5), sample(15, 900, 2, 7), sample(15, 1600, 3, 8),
         sample(15, 2500, 3, 9), sample(15, 3600, 2, 10), sample(15, 4900, 1, 11), sample(15, 6400, 1, 12)}};
    for (const Dist family : {weibull, lognormal, normal, gumbel})
        for (std::size_t i = 0; i < data.size(); ++i) {
            SCOPED_TRACE(testing::Message() << "family " << family << ", data " << i);
            choose(family);
            session.fileName = i == 0 ? std::string(60, 'W') : "data.txt";
            sets(data[i]);
            expectreadable(drawn(across, down));
        }
}

INSTANTIATE_TEST_SUITE_P(Sizes, ReadablePlot,
                         testing::Values(Canvas{400, 300}, Canvas{800, 600}, Canvas{1200, 900},
                                         Canvas{300 * 4, 400}, Canvas{600, 900}, Canvas{4000, 3000}));

TEST_F(ProbabilityPlot, FiveHundredPointLabelsStayApart) {
    Cells cells = sample(500, 800, 1.6, 13);
    for (std::size_t i = 0; i < cells.size(); ++i) cells[i] += "_unit" + std::to_string(i);
    life(cells);
    const RecordingDevice device = drawn();
    const auto labels = std::count_if(device.texts.begin(), device.texts.end(),
                                      [](const auto& t) { return t.text.starts_with("unit"); });
    EXPECT_GT(labels, 10);
    expectreadable(device);
}

TEST_F(ProbabilityPlot, ASetNameTooLongForTheBlockIsCutShort) {
    life({"100", "200", "300"});
    session.rowTitle(3) = std::string(60, 'W');
    const RecordingDevice device = drawn();
    EXPECT_TRUE(std::any_of(device.texts.begin(), device.texts.end(), [](const auto& t) {
        return t.text.starts_with("W") && t.text.ends_with("(...");
    }));
    expectreadable(device);
}

// ---- the plotter ----

TEST_F(ProbabilityPlot, PlotterTextReadsBackWholeAndOnTheCanvas) {
    MemorySink sink;
    session.outdev = plotterDevice;
    for (const Dist family : {weibull, lognormal, normal, gumbel}) {
        choose(family);
        sets({sample(40, 1000, 1.5, 21, 4), sample(30, 3000, 2.5, 22)});
        HpglDevice device(sink);
        ASSERT_TRUE(plotentry(device));
        const HpglPicture picture = readhpgl(sink.text);
        EXPECT_TRUE(picture.problems.empty()) << picture.problems[0];
        EXPECT_FALSE(picture.down);
        EXPECT_EQ(picture.pen, 0);
        EXPECT_GT(picture.strokes.size(), 70u);
        const auto labelled = [&](const char* text) {
            return std::any_of(picture.labels.begin(), picture.labels.end(),
                               [&](const HpglPicture::Label& l) { return l.text == text; });
        };
        EXPECT_TRUE(labelled(" LEGEND"));
        EXPECT_TRUE(labelled(" Age"));
    }
}

TEST_F(ProbabilityPlot, ALineAcrossATransferredThresholdGoesOnFromThePen) {
    life(sample(20, 1000, 2, 3));
    session.t0(1) = -200;
    session.scaleAsRecorded = 1;
    MemorySink sink;
    TraceDevice device(1200, 900, sink);
    ASSERT_TRUE(plotentry(device));
    std::size_t continued = 0;
    for (std::size_t at = sink.text.find("\non "); at != std::string::npos;
         at = sink.text.find("\non ", at + 1))
        ++continued;
    EXPECT_GT(continued, 50u);
    EXPECT_NE(sink.text.find("- AR"), std::string::npos);
}

TEST_F(ProbabilityPlot, ALaserPrinterGetsThePlotBetweenItsControlCodes) {
    life({"100", "200", "300"});
    session.outdev = laserDevice;
    MemorySink sink;
    HpglDevice device(sink);
    ASSERT_TRUE(plotentry(device));
    ASSERT_GT(sink.writes.size(), 5u);
    EXPECT_EQ(sink.writes[0], "\x1B"
                              "E");
    EXPECT_EQ(sink.writes[1], "\x1B&l1O");
    EXPECT_EQ(sink.writes[2], "\x1B%0B");
    EXPECT_EQ(sink.writes[sink.writes.size() - 2], "\x1B%0A");
    EXPECT_EQ(sink.writes.back(), "\x1B"
                                  "E");
}

TEST_F(ProbabilityPlot, PartsGoOutInTheirOrder) {
    life({"100", "200", "300"});
    session.outdev = screenDevice;
    MemorySink sink;
    TraceDevice device(1200, 900, sink);
    ASSERT_TRUE(plotentry(device));
    std::size_t at = 0;
    // Grid, frame, Y axis, X axis, buttons, fitted line, marks, main title, axis title, parameters, legend.
    for (const char* part :
         {"pen 25", "box", "\"90\"", "\"100\"", "\"Y-Scale vvv\"", "pen 1 solid width 2", "\nmark\n",
          "\"OmniVANEX\"", "\"Age\"", "\"Set 1  rr\"", "\"LEGEND\"", "\nend\n"}) {
        const std::size_t next = sink.text.find(part, at + 1);
        ASSERT_NE(next, std::string::npos) << part << " after " << sink.text.substr(at, 60);
        at = next;
    }
}

// ---- what the user is told ----

TEST_F(ProbabilityPlot, ManyPointsOnTheScreenAreToldToBeSlow) {
    session = Session{};
    session.sizeExponent = 5;
    chooseside(lifeSide);
    ASSERT_TRUE(allocatearrays());
    life(sample(20500, 1000, 2, 3));
    session.outdev = screenDevice;
    ScriptedPlatform screen;
    drawn();
    EXPECT_NE(std::find(screen.windowCalls.begin(), screen.windowCalls.end(),
                        "caption: Slow Point Display ... Select 'Zoom / Point Symbol Display' For Change"),
              screen.windowCalls.end());
}

TEST_F(ProbabilityPlot, TheReminderComesOnce) {
    life({"100", "200", "300"});
    desktop.messages.clear();
    session.parameterReminder = 1;
    drawn();
    drawn();
    ASSERT_EQ(desktop.messages.size(), 1u);
    EXPECT_EQ(desktop.messages[0],
              "No Parameter Confidence On Plot\r\nRequirement: Parameter Display Standard");
    EXPECT_EQ(session.parameterReminder, 0);
}

TEST_F(ProbabilityPlot, TheCaptionTellsWhichSetAndLineGoOut) {
    sets({{"100", "200", "300"}, {"110", "220", "350"}});
    ScriptedPlatform screen;
    drawn();
    const auto told = [&](const char* text) {
        return std::find(screen.windowCalls.begin(), screen.windowCalls.end(),
                         std::string("caption: ") + text)
               != screen.windowCalls.end();
    };
    EXPECT_TRUE(told("Set 1 Plot"));
    EXPECT_TRUE(told("Line 2 Plot"));
}

TEST_F(ProbabilityPlot, ScaleButtonsStandOnTheScreenAlone) {
    life({"100", "200", "300"});
    session.outdev = screenDevice;
    const RecordingDevice screen = drawn();
    for (const char* text : {"Y-Scale vvv", "Y-Scale ^^^", "X-Scale vvv", "X-Scale ^^^"})
        EXPECT_TRUE(textof(screen, text)) << text;
    expectreadable(screen);
    session.outdev = pictureDevice;
    EXPECT_FALSE(textof(drawn(), "Y-Scale vvv"));
}

// ---- the session stays as it was ----

struct Kept {
    double plotx1, ploty1, plotx2, ploty2;
    float plotpen;
    double ud, eta, beta;
    std::string msg;
    Palette palette;
    bool operator==(const Kept&) const = default;
};
Kept registers() {
    return {session.plotx1, session.ploty1, session.plotx2, session.ploty2, session.plotpen,
            session.ud,     session.eta,    session.beta,   session.msg,    session.palette};
}

TEST_F(ProbabilityPlot, APlotLeavesRegistersPaletteAndDataAsTheyWere) {
    life({"100", "200", "-300"});
    session.ud = 12.5;
    session.plotx1 = 77;
    session.msg = "kept";
    const Kept before = registers();
    const Fit fitted = fit();
    session.colormode = 1;
    drawn();
    EXPECT_EQ(registers(), before);
    EXPECT_EQ(fit(), fitted);
}

TEST_F(ProbabilityPlot, AFailingOutputTellsAndLeavesTheSession) {
    life({"100", "200", "300"});
    desktop.messages.clear();
    session.outdev = plotterDevice;
    const Kept before = registers();
    MemorySink sink;
    sink.writesLeft = 40;
    HpglDevice device(sink);
    EXPECT_FALSE(plotentry(device));
    ASSERT_EQ(desktop.messages.size(), 1u);
    EXPECT_EQ(desktop.messages[0], "Device Error!!!...");
    EXPECT_EQ(registers(), before);
    EXPECT_FALSE(plotting());
}

TEST_F(ProbabilityPlot, ParametersThatAreNoNumbersDrawNoLineAndNoWords) {
    constexpr double inf = std::numeric_limits<double>::infinity();
    for (const auto& [eta, beta] : {std::pair{inf, 2.0}, {100.0, std::nan("")}, {100.0, 0.0}, {-inf, -1.0}}) {
        life({"100", "200", "300"});
        session.etaFit(3, 1) = eta;
        session.betaFit(3, 1) = beta;
        const RecordingDevice device = drawn();
        for (const LineOperation& line : device.lines) {
            EXPECT_FALSE(line.width == 2 && line.pen.colour == 1) << "a fitted line";
            EXPECT_TRUE(std::isfinite(line.x1 + line.y1 + line.x2 + line.y2));
        }
        for (const auto& text : device.texts) EXPECT_FALSE(text.text.starts_with("Eta=")) << text.text;
        expectreadable(device);
    }
}

TEST_F(ProbabilityPlot, APlotThatFailsLeavesTheFormerWindow) {
    life({"100", "200", "300"});
    session.outdev = screenDevice;
    drawn();
    const double high = session.xhighd;
    const double right = session.windowSaved.right;
    life({"1000", "2000", "3000"});
    for (const int writes : {0, 60}) {
        MemorySink sink;
        sink.openFailures = writes == 0 ? 100 : 0;
        sink.openErrno = EACCES;
        sink.writesLeft = writes;
        TraceDevice device(1200, 900, sink);
        session.replotNeeded = 1;
        EXPECT_FALSE(plotentry(device));
        EXPECT_EQ(session.xhighd, high);
        EXPECT_EQ(session.windowSaved.right, right);
        EXPECT_EQ(session.replotNeeded, 1) << "the plot is still to be drawn";
    }
}

TEST_F(ProbabilityPlot, ARepaintInTheMiddleOfAPlotIsRefused) {
    life({"100", "200", "300"});
    RecordingDevice device(18000, 13500);
    ASSERT_TRUE(plotbegin(device));
    session.parameterReminder = 1;
    RecordingDevice second(18000, 13500);
    EXPECT_FALSE(plotentry(second));
    EXPECT_EQ(session.parameterReminder, 1);
    EXPECT_TRUE(plotend());
}

TEST_F(ProbabilityPlot, ManualLimitsThatLeaveNoWindowAreWidened) {
    life({"100", "200", "300"});
    for (const auto& [low, high] : {std::pair{500.0, 0.0}, {0.0, 50.0}, {400.0, 200.0}, {-5.0, 0.0}}) {
        session.xLimitLow = low;
        session.xLimitHigh = high;
        const RecordingDevice device = drawn();
        EXPECT_LT(session.xlowd, session.xhighd) << low << " to " << high;
        EXPECT_GT(session.xlowd, 0);
        expectreadable(device);
    }
}

// ---- X-Y plots ----

class XyPlot : public ProbabilityPlot {
protected:
    XyPlot() {
        chooseside(visualSide);
        EXPECT_TRUE(allocatearrays());
    }
};

TEST_F(XyPlot, TwentyFourSetsStayReadable) {
    std::vector<Cells> all;
    for (int k = 1; k <= 24; ++k) {
        Cells cells;
        for (int j = 1; j <= 20; ++j)
            cells.push_back(std::to_string(j) + "x" + std::to_string(10 * k + j % 5));
        all.push_back(cells);
    }
    sets(all);
    const RecordingDevice device = drawn();
    EXPECT_TRUE(textof(device, "Set 24"));
    EXPECT_EQ(device.marksBegun, 24 * 20 + 24);
    expectreadable(device);
}

TEST_F(XyPlot, ARowOfLinesIsDrawnAsAPolyline) {
    sets({{"1x1", "2x4", "3x9", "4x16"}});
    session.rowKind(1) = "L";
    const RecordingDevice device = drawn();
    const auto segments = std::count_if(device.lines.begin(), device.lines.end(), [](const LineOperation& l) {
        return l.pen.colour == 1 && l.width == 2;
    });
    EXPECT_EQ(segments, 3);
    EXPECT_TRUE(std::any_of(device.lines.begin(), device.lines.end(),
                            [](const LineOperation& l) { return l.continues; }));
}

TEST_F(XyPlot, APointWithoutAPlaceOnALogarithmicAxisIsLeftOutAndTheRestIsDrawn) {
    session.xyscale = 3;
    sets({{"-1x5", "10x20", "100x200"}});
    desktop.messages.clear();
    const RecordingDevice device = drawn();
    EXPECT_EQ(desktop.messages.size(), 1u);
    EXPECT_EQ(device.marksBegun, 2 + 1);
}

TEST_F(XyPlot, EveryAxisPairDraws) {
    for (const float pair : {0.0f, 1.0f, 2.0f, 3.0f, 4.0f, 5.0f}) {
        session.xyscale = pair;
        sets({{"1x2", "5x20", "30x7", "250x90"}});
        SCOPED_TRACE(pair);
        expectreadable(drawn());
    }
}

} // namespace
