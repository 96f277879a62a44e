#include "plot/drawing.h"

#include <cmath>
#include <limits>
#include <stdexcept>

#include "plot/device_trace.h"
#include "support/plotfixture.h"

namespace {

/// A surface that throws, or keeps the lines.
struct Surface : Device {
    std::vector<LineOperation> lines;
    int begins = 0, abandons = 0;
    bool throwing = false, broken = false;
    bool endWorks = true;
    bool begin() override {
        ++begins;
        if (throwing) throw std::runtime_error("no memory");
        return true;
    }
    bool end() override { return endWorks; }
    void abandon() override { ++abandons; }
    double width() const override { return 12000; }
    double height() const override { return 9000; }
    void line(const LineOperation& operation) override {
        if (throwing) throw std::runtime_error("no memory");
        lines.push_back(operation);
    }
    void text(const TextOperation&) override {}
    bool failed() const override { return broken; }
};

class DrawingTest : public PlotTest {
protected:
    TraceDevice trace{800, 600, sink};

    void begin() {
        session.plotspeed = -1;
        ASSERT_TRUE(plotbegin(trace));
    }
    std::string last() const { return sink.writes.back(); }
    using Told = std::vector<std::string>;
};

bool sameregisters(const Drawing& a, const Drawing& b) {
    return a.plotx1 == b.plotx1 && a.ploty1 == b.ploty1 && a.plotx2 == b.plotx2 && a.ploty2 == b.ploty2
           && a.plotpen == b.plotpen && a.plotw == b.plotw && a.ploth == b.ploth && a.linewidth == b.linewidth
           && a.palette == b.palette && a.setCounter == b.setCounter && a.textSize == b.textSize;
}

} // namespace

TEST(PenParts, EachHundredSelectsAStyleAndIsAddedBack) {
    struct Row {
        float plotpen;
        int colour;
        LineStyle style;
    };
    constexpr Row rows[] = {
        {0, 0, LineStyle::solid},         {28, 28, LineStyle::solid},    {-72, 28, LineStyle::dashed},
        {-99, 1, LineStyle::dashed},      {-100, 0, LineStyle::dashed},  {-101, 28, LineStyle::outline},
        {-172, 28, LineStyle::outline},   {-199, 1, LineStyle::outline}, {-200, 0, LineStyle::outline},
        {-201, 28, LineStyle::filled},    {-298, 2, LineStyle::filled},  {-300, 0, LineStyle::filled},
        {-397, 3, LineStyle::dashDot},    {-400, 0, LineStyle::dashDot}, {-496, 4, LineStyle::dashDotDot},
        {-500, 0, LineStyle::dashDotDot}, {-595, 5, LineStyle::dotted},  {-600, 0, LineStyle::dotted}};
    for (const Row& row : rows) {
        EXPECT_EQ(penparts(row.plotpen).colour, row.colour) << row.plotpen;
        EXPECT_EQ(penparts(row.plotpen).style, row.style) << row.plotpen;
    }
}

TEST(PenParts, TheColourStaysInsideThePalette) {
    constexpr float infinity = std::numeric_limits<float>::infinity();
    for (const float pen : {29.0f, 1e30f, infinity, -0.5f, -1e-40f, -150.0f, -1e30f, -infinity, NAN}) {
        const int colour = penparts(pen).colour;
        EXPECT_TRUE(colour >= 0 && colour <= 28) << pen;
    }
    EXPECT_EQ(penparts(-0.5f).style, LineStyle::dashed);
    EXPECT_EQ(penparts(-700).style, LineStyle::dotted);
}

TEST_F(DrawingTest, SnapPutsAllFourNumbersOnThePixelGrid) {
    plotsnap(7.4, 7.5, 22.4, 22.5);
    EXPECT_EQ(session.plotx1, 0);
    EXPECT_EQ(session.ploty1, 15);
    EXPECT_EQ(session.plotx2, 15);
    EXPECT_EQ(session.ploty2, 30);
    for (const double kept : {-30.0, -15.0, 0.0, 45.0}) EXPECT_EQ(snapped(kept), kept);
}

TEST_F(DrawingTest, BeginTakesTheCanvasOfTheDevice) {
    begin();
    EXPECT_EQ(session.plotw, 12000);
    EXPECT_EQ(session.ploth, 9000);
    EXPECT_TRUE(plotting());
    EXPECT_EQ(plotdevice(), &trace);
}

TEST_F(DrawingTest, TheFrameIsAnOutlineWithADoubledLine) {
    session.linewidth = -2;
    session.plotpen = 5;
    session.plotx1 = 1;
    session.plotspeed = 0;
    ASSERT_TRUE(plotbegin(trace));
    EXPECT_EQ(last(), "box 0 0 11985 8985 pen 28 width 4\n");
    EXPECT_EQ(session.linewidth, -2);
    EXPECT_EQ(session.plotpen, 5);
    EXPECT_EQ(session.plotx1, 1);
}

TEST_F(DrawingTest, ADoubledLineStaysInItsRegister) {
    session.linewidth = std::numeric_limits<int16_t>::min();
    ASSERT_TRUE(plotbegin(trace));
    EXPECT_EQ(last(), "box 0 0 11985 8985 pen 28 width 32767\n");
}

TEST_F(DrawingTest, ANegativeSpeedDrawsNoFrame) {
    begin();
    EXPECT_EQ(sink.text, "begin 12000 9000\n");
}

TEST_F(DrawingTest, TheLineRegistersSurviveALine) {
    begin();
    lineto(1, 2, 3, 4, -198);
    EXPECT_EQ(session.plotx1, 1);
    EXPECT_EQ(session.ploty1, 2);
    EXPECT_EQ(session.plotx2, 3);
    EXPECT_EQ(session.ploty2, 4);
    EXPECT_EQ(session.plotpen, -198);
}

TEST_F(DrawingTest, ATinyBoxIsALineOnASurface) {
    begin();
    for (const float pen : {-198.0f, -298.0f}) {
        lineto(10, 10, 12, 8, pen);
        EXPECT_EQ(last(), "line 10 10 12 8 pen 2 solid width 1\n");
    }
    lineto(10, 10, 12, 12.5, -198);
    EXPECT_EQ(last(), "box 10 10 12 12.5 pen 2 width 1\n");
}

TEST_F(DrawingTest, ATinyBoxIsABoxOnAPlotter) {
    session.outdev = plotterDevice;
    begin();
    lineto(10, 10, 12, 8, -198);
    EXPECT_EQ(last(), "box 10 10 12 8 pen 2 width 1\n");
}

TEST_F(DrawingTest, TheSentinelGoesOnFromTheLastPoint) {
    begin();
    lineto(10, 20, 30, 40, 1);
    on(50, 60, 1);
    EXPECT_EQ(last(), "on 50 60 pen 1 solid width 1\n");
    on(90, 100, -198);
    EXPECT_EQ(last(), "box 50 60 90 100 pen 2 width 1\n");
    lineto(-29999, 0, 1, 1, 1);
    EXPECT_EQ(last(), "line -29999 0 1 1 pen 1 solid width 1\n");
}

TEST_F(DrawingTest, MonochromeTurnsAllButTheBackgroundIntoTheDrawingColour) {
    session.colormode = 1;
    const Palette colours = session.palette;
    begin();
    EXPECT_EQ(session.palette[0], colours[0]);
    for (std::size_t i = 1; i < colours.size(); ++i) EXPECT_EQ(session.palette[i], colours[15]) << i;
    EXPECT_EQ(session.paletteKept, colours);
    textat(1, 2, 3, 100, 0, "a");
    EXPECT_EQ(last(), "text 1 2 size 100 rotation 0 pen 15 \"a\"\n");
    lineto(1, 2, 3, 4, 0);
    EXPECT_EQ(last(), "line 1 2 3 4 pen 0 solid width 1\n");
    ASSERT_TRUE(plotend());
    EXPECT_EQ(session.palette, colours);
}

TEST_F(DrawingTest, ColourOutputKeepsThePalette) {
    session.palette[3] = 0x123456;
    const Palette colours = session.palette;
    begin();
    EXPECT_EQ(session.palette, colours);
    session.palette[3] = 0;
    plotabandon();
    EXPECT_EQ(session.palette, colours);
    EXPECT_EQ(sink.commits, 0);
    EXPECT_FALSE(plotting());
}

TEST_F(DrawingTest, SetColorLooksThePenUpInThePalette) {
    for (int colour = 0; colour <= 28; ++colour) {
        session.plotpen = static_cast<float>(colour);
        EXPECT_EQ(setcolor(), standardPalette[static_cast<std::size_t>(colour)]);
    }
    session.plotpen = -198;
    EXPECT_EQ(setcolor(), standardPalette[2]);
}

TEST_F(DrawingTest, WithoutAPlotNothingIsDrawn) {
    lineto(1, 2, 3, 4, 1);
    plottext("a");
    plotwidth(1);
    plotabandon();
    EXPECT_FALSE(plotend());
    EXPECT_FALSE(plotting());
    EXPECT_EQ(plotdevice(), nullptr);
    EXPECT_TRUE(desktop.messages.empty());
}

TEST_F(DrawingTest, APlotIsNotReentered) {
    begin();
    Surface other;
    EXPECT_FALSE(plotbegin(other));
    EXPECT_EQ(other.begins, 0);
    EXPECT_EQ(plotdevice(), &trace);
    EXPECT_TRUE(plotend());
}

TEST_F(DrawingTest, AnUnavailableDeviceIsTriedAgain) {
    session.outdev = printerDevice;
    for (const int reason : {ENXIO, EBUSY, ENODEV}) {
        sink.opened.clear();
        sink.openFailures = 2;
        sink.openErrno = reason;
        EXPECT_TRUE(plotbegin(trace));
        EXPECT_EQ(sink.opened.size(), 3u);
        EXPECT_TRUE(plotend());
    }
    EXPECT_TRUE(desktop.messages.empty());
}

TEST_F(DrawingTest, TheTriesHaveAnEnd) {
    session.outdev = plotterDevice;
    sink.openFailures = 1000;
    EXPECT_FALSE(plotbegin(trace));
    EXPECT_EQ(sink.opened.size(), 3u);
    EXPECT_EQ(desktop.messages, Told{"Device Error!!!..."});
}

TEST_F(DrawingTest, ARefusedDeviceIsNotTriedAgain) {
    session.outdev = plotterDevice;
    session.colormode = 1;
    session.msg = "kept";
    session.menuTitle = "header";
    session.plotx2 = 77;
    sink.openFailures = 1;
    sink.openErrno = EACCES;
    const Drawing before = session;
    EXPECT_FALSE(plotbegin(trace));
    EXPECT_EQ(sink.opened.size(), 1u);
    EXPECT_EQ(desktop.messages, Told{"Device Error!!!..."});
    EXPECT_TRUE(sameregisters(session, before));
    EXPECT_EQ(session.msg, "kept");
    EXPECT_EQ(session.menuTitle, "header");
}

TEST_F(DrawingTest, AScreenThatFailsIsAVideoError) {
    sink.openErrno = EACCES;
    for (const int code : {screenDevice, pictureDevice, bitmapDevice, printerDevice}) {
        session.outdev = static_cast<float>(code);
        sink.openFailures = 1;
        desktop.messages.clear();
        EXPECT_FALSE(plotbegin(trace));
        EXPECT_EQ(desktop.messages, Told{code == screenDevice ? "Video Error!!!..." : "Device Error!!!..."});
    }
}

TEST_F(DrawingTest, AFailedWriteEndsThePlotAndPutsTheSessionBack) {
    session.outdev = plotterDevice;
    session.colormode = 1;
    const Drawing before = session;
    ASSERT_TRUE(plotbegin(trace));
    sink.writesLeft = 1;
    lineto(1, 2, 3, 4, 1);
    EXPECT_TRUE(plotting());
    lineto(5, 6, 7, 8, 1);
    EXPECT_FALSE(plotting());
    EXPECT_EQ(desktop.messages, Told{"Device Error!!!..."});
    EXPECT_TRUE(sameregisters(session, before));
    EXPECT_GE(sink.drops, 1);
    lineto(5, 6, 7, 8, 1);
    EXPECT_FALSE(plotend());
    EXPECT_EQ(sink.commits, 0);
    EXPECT_EQ(desktop.messages.size(), 1u);
}

TEST_F(DrawingTest, AFailedFrameIsAFailedBegin) {
    session.outdev = plotterDevice;
    sink.writesLeft = 1;
    EXPECT_FALSE(plotbegin(trace));
    EXPECT_EQ(desktop.messages, Told{"Device Error!!!..."});
}

TEST_F(DrawingTest, AFailureThatShowsAtTheEndIsTold) {
    Surface surface;
    surface.endWorks = false;
    session.outdev = printerDevice;
    session.colormode = 1;
    const Palette colours = session.palette;
    ASSERT_TRUE(plotbegin(surface));
    EXPECT_FALSE(plotend());
    EXPECT_EQ(desktop.messages, Told{"Device Error!!!..."});
    EXPECT_EQ(surface.abandons, 1);
    EXPECT_EQ(session.palette, colours);
}

TEST_F(DrawingTest, ADeviceThatThrowsHasFailed) {
    Surface surface;
    surface.throwing = true;
    EXPECT_FALSE(plotbegin(surface));
    surface.throwing = false;
    ASSERT_TRUE(plotbegin(surface));
    surface.throwing = true;
    EXPECT_NO_THROW(lineto(1, 2, 3, 4, 1));
    EXPECT_FALSE(plotting());
    EXPECT_EQ(desktop.messages, (Told{"Video Error!!!...", "Video Error!!!..."}));
}

TEST_F(DrawingTest, AMarkOnASurfaceIsAsManyLinesAsItHasStrokes) {
    Surface surface;
    session.plotspeed = -1;
    ASSERT_TRUE(plotbegin(surface));
    surface.markbegin();
    surface.markstep({10, 20, 30, 40, 0, 2});
    EXPECT_TRUE(surface.lines.empty());
    surface.markstep({30, 40, 50, 60, 7, 2});
    ASSERT_EQ(surface.lines.size(), 1u);
    const LineOperation& line = surface.lines[0];
    EXPECT_EQ(line.pen.colour, 7);
    EXPECT_EQ(line.pen.style, LineStyle::solid);
    EXPECT_EQ(line.width, 2);
    EXPECT_FALSE(line.continues);
    EXPECT_TRUE(line.x1 == 30 && line.y1 == 40 && line.x2 == 50 && line.y2 == 60);
    plotabandon();
}

TEST_F(DrawingTest, OnlyASerialPortGetsItsParameters) {
    EXPECT_EQ(portconfig("COM1"), "COM19600,S,7,1,RS,CS65535,DS,CD");
    EXPECT_EQ(portconfig("LPT1"), "LPT1");
    EXPECT_EQ(portconfig(""), "");
    session.serialBaud = 115200;
    session.serialParity = 'N';
    session.serialDataBits = 8;
    session.serialStopBits = 1.5;
    EXPECT_EQ(portconfig("COM3:"), "COM3:115200,N,8,1.5,RS,CS65535,DS,CD");
}

TEST_F(DrawingTest, TheOutputIsTheNamedFileElseThePort) {
    constexpr const char* ports[] = {"LPT1", "LPT2", "COM1", "COM2", "LPT3", "COM3"};
    for (int16_t i = 1; i <= 6; ++i) {
        session.outputPort = i;
        EXPECT_EQ(plotteroutput(), portconfig(ports[i - 1]));
    }
    session.outputPort = 0;
    EXPECT_EQ(plotteroutput(), "LPT1");
    session.outputPort = 1000;
    EXPECT_EQ(plotteroutput(), portconfig("COM3"));
    session.outputName = "plot.hgl";
    EXPECT_EQ(plotteroutput(), "plot.hgl");
}
