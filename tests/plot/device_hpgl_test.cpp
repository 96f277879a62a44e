#include "plot/device_hpgl.h"

#include <cmath>
#include <filesystem>
#include <limits>

#include "plot/pens.h"
#include "plot/plottertext.h"
#include "support/hpglreader.h"
#include "support/plotfixture.h"

namespace {

class HpglTest : public PlotTest {
protected:
    HpglDevice plotter{sink};
    HpglTest() { session.outdev = plotterDevice; }

    void begin() {
        session.plotspeed = -20;
        ASSERT_TRUE(plotbegin(plotter));
    }
    std::string last() const { return sink.writes.back(); }

    std::string line(double x1, double y1, double x2, double y2, float pen) {
        lineto(x1, y1, x2, y2, pen);
        return last();
    }
    std::string label(std::string_view text) {
        textat(100, 500, 1, 0, 0, text);
        return last();
    }
};

} // namespace

TEST_F(HpglTest, APlotOfAFrameIsAsTheGoldenFileHasIt) {
    ASSERT_TRUE(plotbegin(plotter));
    ASSERT_TRUE(plotend());
    EXPECT_EQ(sink.text, golden("frame.hgl"));
    EXPECT_EQ(sink.opened, std::vector<std::string>{"LPT1"});
    EXPECT_EQ(sink.commits, 1);
}

TEST_F(HpglTest, TheShapesAreAsTheGoldenFileHasThem) {
    begin();
    shapes();
    ASSERT_TRUE(plotend());
    EXPECT_EQ(sink.text, golden("shapes.hgl"));
}

TEST_F(HpglTest, APlotterOfTheLanguageDrawsTheShapes) {
    begin();
    shapes();
    ASSERT_TRUE(plotend());
    const HpglPicture picture = readhpgl(sink.text);
    EXPECT_EQ(picture.problems, std::vector<std::string>{});
    EXPECT_EQ(picture.speed, 20);
    EXPECT_EQ(picture.scale, (std::vector<double>{-900, 10000, -150, 7500}));
    ASSERT_EQ(picture.strokes.size(), 6u); // a polyline, four styled lines, a mark
    EXPECT_EQ(picture.strokes[0].points.size(), 4u);
    EXPECT_EQ(picture.strokes[1].lineType, 2);
    EXPECT_EQ(picture.strokes[5].lineType, 0);
    EXPECT_EQ(picture.strokes[5].points, (std::vector<HpglPicture::Point>{{3000, 4530}, {3060, 4470}}));
    ASSERT_EQ(picture.rectangles.size(), 3u);
    EXPECT_TRUE(picture.rectangles[2].filled);
    ASSERT_EQ(picture.labels.size(), 2u);
    EXPECT_EQ(picture.labels[1].text, " say \"F\"");
    EXPECT_EQ(picture.labels[1].direction, (HpglPicture::Point{0, 1}));
    EXPECT_EQ(picture.pen, 0);
    EXPECT_FALSE(picture.down);
}

TEST_F(HpglTest, APlotWithNegativeSpeedSendsItsMagnitudeAndNoFrame) {
    begin();
    EXPECT_EQ(sink.text, "IN;SP1;IP0,0,10000,7500;SR0.75,2.0;VS20;SC-900,10000,-150,7500;PW0.3;");
}

TEST_F(HpglTest, TheLaserGetsEachControlSequenceAsOneWrite) {
    session.outdev = laserDevice;
    begin();
    ASSERT_GE(sink.writes.size(), 3u);
    EXPECT_EQ(sink.writes[0], "\x1b"
                              "E");
    EXPECT_EQ(sink.writes[1], "\x1b"
                              "&l1O");
    EXPECT_EQ(sink.writes[2], "\x1b"
                              "%0B");
    EXPECT_TRUE(sink.writes[3].starts_with("IN;"));
    ASSERT_TRUE(plotend());
    const auto& writes = sink.writes;
    EXPECT_EQ(writes[writes.size() - 2], "\x1b"
                                         "%0A");
    EXPECT_EQ(writes[writes.size() - 1], "\x1b"
                                         "E");
    EXPECT_EQ(sink.text.find("SP0;"), std::string::npos);
}

TEST_F(HpglTest, EachLineIsOneWrite) {
    begin();
    const std::size_t before = sink.writes.size();
    line(0, 0, 1, 1, -298);
    line(0, 0, 100, 100, -98);
    EXPECT_EQ(sink.writes.size(), before + 2);
}

TEST_F(HpglTest, EachStyleHasItsLineType) {
    begin();
    EXPECT_EQ(line(0, 7500, 10, 7500, 1), "SP2;PU;PA0,0;PD;PA10,0;LT;");
    EXPECT_EQ(line(0, 7500, 10, 7500, -99), "LT2;SP2;PU;PA0,0;PD;PA10,0;LT;");
    EXPECT_EQ(line(0, 7500, 10, 7500, -199), "SP2;PU;PA0,0;PD;EA10,0;LT;");
    EXPECT_EQ(line(0, 7500, 10, 7500, -399), "LT4;SP2;PU;PA0,0;PD;PA10,0;LT;");
    EXPECT_EQ(line(0, 7500, 10, 7500, -499), "LT5;SP2;PU;PA0,0;PD;PA10,0;LT;");
    EXPECT_EQ(line(0, 7500, 10, 7500, -599), "LT6;SP2;PU;PA0,0;PD;PA10,0;LT;");
}

TEST_F(HpglTest, ALineThatEndsOffTheCanvasIsLeftOut) {
    begin();
    EXPECT_EQ(line(5, 5, 10001, 5, 1), "LT;");
    EXPECT_EQ(line(5, 5, -0.4, 5, 1), "LT;");
    EXPECT_EQ(line(5, 5, 5, 7500.1, -99), "LT2;LT;");
    EXPECT_EQ(line(5, 5, 5, -1, -298), "LT;");
    EXPECT_EQ(line(5, 5, 5, NAN, 1), "LT;");
    session.linewidth = 3;
    EXPECT_EQ(line(5, 5, -1, 5, 1), "LT;");
    EXPECT_EQ(line(5, 5, -1, 5, 0), "LT;");
}

TEST_F(HpglTest, ALineThatEndsOnTheEdgeIsDrawnWhateverItsStart) {
    begin();
    EXPECT_EQ(line(-500, 9000, 10000, 7500, 1), "SP2;PU;PA-500,-1500;PD;PA10000,0;LT;");
    EXPECT_EQ(line(0, 0, 0, 0, 1), "SP2;PU;PA0,7500;PD;PA0,7500;LT;");
    EXPECT_EQ(line(std::numeric_limits<double>::infinity(), NAN, 0, 0, 1).substr(0, 7), "SP2;PU;");
}

TEST_F(HpglTest, CoordinatesAreRoundedToWholeNumbers) {
    begin();
    EXPECT_EQ(line(0.6, 0.6, 99.4, 7499.6, 1), "SP2;PU;PA1,7499;PD;PA99,0;LT;");
}

TEST_F(HpglTest, PenZeroMovesWithoutDrawing) {
    begin();
    EXPECT_EQ(line(1, 2, 30, 40, 0), "PU;PA30,7460;LT;");
    session.linewidth = 2;
    EXPECT_EQ(line(1, 2, 30, 40, 0), "PU;PA30,7460;PT;LT;");
}

TEST_F(HpglTest, AContinuedLineSendsOnlyItsEnd) {
    begin();
    line(1, 2, 30, 40, 1);
    on(50, 60, 1);
    EXPECT_EQ(last(), "SP2;PD;PA50,7440;LT;");
}

TEST_F(HpglTest, AWideLineIsDrawnWithAThickerTip) {
    begin();
    struct Row {
        int16_t width;
        const char* tip;
    };
    for (const Row row : {Row{2, "PT0.6;"}, Row{-3, "PT0.9;"}, Row{4, "PT1.2;"}, Row{10, "PT3;"}}) {
        session.linewidth = row.width;
        EXPECT_EQ(line(0, 7500, 10, 7500, 1), std::string("SP2;") + row.tip + "PU;PA0,0;PD;PA10,0;PT;LT;");
    }
    for (const int16_t thin : {int16_t{0}, int16_t{1}, int16_t{-1}}) {
        session.linewidth = thin;
        EXPECT_EQ(line(0, 7500, 10, 7500, 1), "SP2;PU;PA0,0;PD;PA10,0;LT;");
    }
}

TEST(PlotterPens, EveryColourHasThePenOfTheTable) {
    constexpr int pens[29] = {0, 2, 5, 3, 6, 7, 1, 4, 2, 5, 3, 6, 7, 1, 4,
                              1, 2, 5, 3, 6, 7, 1, 4, 2, 5, 3, 1, 1, 1};
    for (int colour = 0; colour <= 28; ++colour) EXPECT_EQ(plotterpen(colour), pens[colour]) << colour;
}

TEST(PlotterPens, TheHatchTellsColoursApart) {
    // Diagonal 300: 2 units apart, then divided by 1.414 once from colour 6 and once more from colour 11.
    struct Row {
        int colour, type, angle;
        double spacing;
    };
    constexpr Row rows[] = {{1, 3, 90, 2},          {2, 3, 45, 2},         {3, 3, 90, 2},
                            {4, 4, 135, 2},         {5, 4, 45, 2},         {6, 3, 90, 1.414427},
                            {7, 3, 45, 1.414427},   {8, 3, 90, 1.414427},  {9, 4, 135, 1.414427},
                            {10, 4, 45, 1.414427},  {11, 3, 90, 1.000302}, {13, 3, 90, 1.000302},
                            {14, 4, 135, 1.000302}, {28, 4, 90, 1.000302}};
    for (const Row& row : rows) {
        const Hatch hatch = plotterhatch(row.colour, 180, -240);
        EXPECT_EQ(hatch.type, row.type) << row.colour;
        EXPECT_EQ(hatch.angle, row.angle) << row.colour;
        EXPECT_NEAR(hatch.spacing, row.spacing, 1e-6) << row.colour;
    }
}

TEST_F(HpglTest, AFilledRectangleIsEdgedThenHatched) {
    begin();
    EXPECT_EQ(line(0, 7500, 300, 7100, -286),
              "SP4;PU;PA0,0;PD;EA300,400;PT0.3;FT4,1.667,135;PU;PA0,0;PD;RA300,400;PT0.3;LT;");
    session.linewidth = 2;
    EXPECT_EQ(line(0, 7500, 300, 7100, -298),
              "SP5;PT0.6;PU;PA0,0;PD;EA300,400;PT0.3;FT3,3.333,45;PU;PA0,0;PD;RA300,400;PT0.3;PT;LT;");
}

TEST_F(HpglTest, MonochromeOutputHasOnePen) {
    session.colormode = 1;
    begin();
    EXPECT_EQ(line(0, 7500, 10, 7500, 2), "SP1;PU;PA0,0;PD;PA10,0;LT;");
    EXPECT_EQ(line(0, 7500, 10, 7500, 0), "PU;PA10,0;LT;");
    plotter.markstep({10, 7500, 20, 7500, 15, 1});
    EXPECT_EQ(last(), "PU;SP1;PD;PA20,0;");
}

TEST_F(HpglTest, AMarkStepSelectsItsPenBeforeItTouchesThePaper) {
    begin();
    plotter.markstep({0, 0, 10, 7500, 0, 2});
    EXPECT_EQ(last(), "PU;PA10,0;");
    plotter.markstep({10, 7500, 20, 7490, 28, 2});
    EXPECT_EQ(last(), "PU;SP1;PD;PA20,10;");
    session.linewidth = -2;
    plotter.markstep({20, 7490, 30, 7490, 2, 2});
    EXPECT_EQ(last(), "PU;SP5;PD;PT0.6;PA30,10;PT;");
    plotter.markstep({30, 7490, 20, 7490, 0, 2});
    EXPECT_EQ(last(), "PU;PT0.6;PA20,10;PT;");
    plotter.markend();
    EXPECT_EQ(last(), "PU;");
}

TEST_F(HpglTest, AMarkThatBeginsWithAStrokeDoesNotDrawItsWayThere) {
    begin();
    line(0, 0, 5000, 5000, 1);
    plotter.markstep({10, 7500, 20, 7500, 1, 2});
    EXPECT_EQ(last(), "PU;PA10,0;SP2;PD;PA20,0;");
    label("x"); // leaves the pen behind its last letter
    plotter.markstep({20, 7500, 30, 7500, 1, 2});
    EXPECT_EQ(last(), "PU;PA20,0;SP2;PD;PA30,0;");
}

TEST_F(HpglTest, WidthClassesAreTwoPens) {
    begin();
    plotwidth(0);
    EXPECT_EQ(last(), "PW0.1;");
    plotwidth(1);
    EXPECT_EQ(last(), "PW0.3;");
    plotwidth(3);
    EXPECT_EQ(last(), "PW0.3;");
}

TEST_F(HpglTest, ALabelOfTheStandardSizeSendsNoSize) {
    begin();
    EXPECT_EQ(label("Beta"), "DI1,0;SP2;PU,PA100,7000;LB Beta\x03");
    textat(100, 500, 1, 218.571429f, 90, "Beta"); // capitals of 150 plotter units, 2 % of the height
    EXPECT_EQ(last(), "DI0,1;SP2;PU,PA100,7009;LB Beta\x03");
}

TEST_F(HpglTest, ALabelOfAnotherSizePutsTheStandardSizeBack) {
    begin();
    textat(100, 500, 1, 100, 0, "Beta");
    EXPECT_EQ(last(), "DI1,0;SR0.343,0.915;SP2;PU,PA100,7004;LB Beta\x03SR0.75,2.0;");
}

TEST_F(HpglTest, ALabelOffTheCanvasIsLeftOut) {
    begin();
    textat(-1, 500, 1, 100, 0, "Beta");
    EXPECT_EQ(last(), "DI1,0;SR0.343,0.915;SP2;SR0.75,2.0;");
    textat(10, 3, 1, 100, 0, "Beta"); // the 25th of the height lifts it over the edge
    EXPECT_EQ(last(), "DI1,0;SR0.343,0.915;SP2;SR0.75,2.0;");
    textat(10, 4, 1, 100, 0, "Beta");
    EXPECT_NE(last().find("PU,PA10,7500;LB Beta"), std::string::npos);
}

TEST_F(HpglTest, ALabelCanNeitherEndItselfNorCommandThePrinter) {
    begin();
    EXPECT_EQ(label("a\x03"
                    "IN;\x1b"
                    "E\r\n\x7f\xC2\x9B"),
              "DI1,0;SP2;PU,PA100,7000;LB aIN;E\x03");
}

TEST(PlotterText, IsPrintableAscii) {
    EXPECT_EQ(plottertext("Größe Ångström çà Æsir"), "Grosse Angstrom ca AEsir");
    EXPECT_EQ(plottertext("“F” – ‘t0’ — −1\u00A0h"), "\"F\" - 't0' - -1 h");
    EXPECT_EQ(plottertext("η寿\xFF×"), "????");
    EXPECT_EQ(plottertext(""), "");
}

TEST_F(HpglTest, ATextIsAsLongAsItsCharactersAndTheBlankBeforeThem) {
    begin();
    // Standard size: 75 plotter units a character, cells of 112.5, in user units of 10000/10900.
    EXPECT_NEAR(plottextwidth("Beta", 218.5714286), 5 * 112.5 * 1.09, 1e-5);
    EXPECT_NEAR(plottextwidth("Größe", 218.5714286), 7 * 112.5 * 1.09, 1e-5);
}

namespace {

class HpglFileTest : public HpglTest {
protected:
    const std::filesystem::path folder =
        std::filesystem::path(testing::TempDir())
        / ("vanexhpgl_" + std::string(testing::UnitTest::GetInstance()->current_test_info()->name()));
    OutputFile file;
    HpglDevice toFile{file};
    HpglFileTest() {
        std::filesystem::remove_all(folder);
        std::filesystem::create_directories(folder);
        session.outputName = (folder / "plot.hgl").string();
    }
    ~HpglFileTest() override {
        plotabandon();
        std::filesystem::remove_all(folder);
    }
};

} // namespace

TEST_F(HpglFileTest, APlotGoesToTheNamedFile) {
    ASSERT_TRUE(plotbegin(toFile));
    ASSERT_TRUE(plotend());
    EXPECT_EQ(readfile(session.outputName), golden("frame.hgl"));
}

TEST_F(HpglFileTest, AnAbandonedPlotKeepsTheOldFile) {
    ASSERT_TRUE(writefile(session.outputName, "old"));
    ASSERT_TRUE(plotbegin(toFile));
    plotabandon();
    EXPECT_EQ(readfile(session.outputName), "old");
}

TEST_F(HpglFileTest, AFailureMidwayKeepsTheOldFileAndThePalette) {
    /// A disk that fills up.
    struct FullDisk : OutputFile {
        int left = 5;
        bool write(std::string_view text) override { return left-- > 0 && OutputFile::write(text); }
    } disk;
    HpglDevice device{disk};
    ASSERT_TRUE(writefile(session.outputName, "old"));
    session.colormode = 1;
    const Palette colours = session.palette;
    ASSERT_TRUE(plotbegin(device));
    for (int i = 0; i < 5; ++i) lineto(0, 0, 100, 100, 1);
    EXPECT_FALSE(plotend());
    EXPECT_EQ(desktop.messages, std::vector<std::string>{"Device Error!!!..."});
    EXPECT_EQ(session.palette, colours);
    EXPECT_EQ(readfile(session.outputName), "old");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder), {}), 1);
}

TEST_F(HpglFileTest, AFolderThatIsNotThereIsTold) {
    session.outputName = (folder / "none" / "plot.hgl").string();
    const float width = session.plotw;
    EXPECT_FALSE(plotbegin(toFile));
    EXPECT_EQ(desktop.messages, std::vector<std::string>{"Device Error!!!..."});
    EXPECT_EQ(session.plotw, width);
    EXPECT_FALSE(plotting());
}
