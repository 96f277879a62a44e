#include "support/hpglreader.h"

#include <gtest/gtest.h>

namespace {

using Points = std::vector<HpglPicture::Point>;
using Problems = std::vector<std::string>;

} // namespace

TEST(HpglReader, CollectsARunOfThePenAsOneStroke) {
    const HpglPicture picture = readhpgl("IN;SP2;PU;PA10,20;PD;PA30,40;SP2;PD;PA50,60;PU;PA0,0;PD1,1,2,2;PU");
    EXPECT_EQ(picture.problems, Problems{});
    ASSERT_EQ(picture.strokes.size(), 2u);
    EXPECT_EQ(picture.strokes[0].pen, 2);
    EXPECT_EQ(picture.strokes[0].points, (Points{{10, 20}, {30, 40}, {50, 60}}));
    EXPECT_EQ(picture.strokes[1].points, (Points{{0, 0}, {1, 1}, {2, 2}}));
    EXPECT_FALSE(picture.down);
}

TEST(HpglReader, DrawsNothingWithoutAPen) {
    EXPECT_TRUE(readhpgl("IN;PD;PA30,40;SP0;PA1,2;").strokes.empty());
}

TEST(HpglReader, ARectangleLeavesThePenWhereItWas) {
    const HpglPicture picture = readhpgl("SP1;PU;PA1,2;FT3,2.5,45;PD;EA30,40;RA50,60;PA5,5;");
    ASSERT_EQ(picture.rectangles.size(), 2u);
    EXPECT_FALSE(picture.rectangles[0].filled);
    EXPECT_TRUE(picture.rectangles[1].filled);
    EXPECT_EQ(picture.rectangles[1].from, (HpglPicture::Point{1, 2}));
    EXPECT_EQ(picture.rectangles[1].to, (HpglPicture::Point{50, 60}));
    EXPECT_EQ(picture.rectangles[1].fill, (std::vector<double>{3, 2.5, 45}));
    ASSERT_EQ(picture.strokes.size(), 1u);
    EXPECT_EQ(picture.strokes[0].points[0], (HpglPicture::Point{1, 2}));
}

TEST(HpglReader, ALabelHoldsEverythingUpToItsEnd) {
    const HpglPicture picture = readhpgl("SP3;DI0,1;SR1,2.5;PU,PA7,8;LB PU;\x03SR;DI;LBx\x03");
    EXPECT_EQ(picture.problems, Problems{});
    ASSERT_EQ(picture.labels.size(), 2u);
    EXPECT_EQ(picture.labels[0].text, " PU;");
    EXPECT_EQ(picture.labels[0].at, (HpglPicture::Point{7, 8}));
    EXPECT_EQ(picture.labels[0].height, 2.5);
    EXPECT_EQ(picture.labels[0].direction, (HpglPicture::Point{0, 1}));
    EXPECT_EQ(picture.labels[1].height, 2);
    EXPECT_EQ(picture.labels[1].direction, (HpglPicture::Point{1, 0}));
}

TEST(HpglReader, TellsOfEveryMistake) {
    for (const char* wrong :
         {"ZZ;", "PA1;", "EA1,2,3;", "LBopen", "LBa\x1b\x03", "SP1;PD;PA10001,5;", "SP1;PD;PA5,-1;",
          "\x1b"
          "E"})
        EXPECT_FALSE(readhpgl(wrong).problems.empty()) << wrong;
}

TEST(HpglReader, KeepsTheLineTypeOfEachStroke) {
    const HpglPicture picture = readhpgl("SP1;LT4;PU0,0;PD5,5;LT;PU0,0;PD5,5;");
    ASSERT_EQ(picture.strokes.size(), 2u);
    EXPECT_EQ(picture.strokes[0].lineType, 4);
    EXPECT_EQ(picture.strokes[1].lineType, 0);
}

TEST(HpglReader, ThePictureCanBeLookedAt) {
    const std::string svg = readhpgl("SP1;PU0,0;PD5,5;EA9,9;LBa<b\x03").drawn();
    EXPECT_TRUE(svg.starts_with("<svg"));
    EXPECT_NE(svg.find("points=\"0,7500 5,7495 \""), std::string::npos);
    EXPECT_NE(svg.find("<rect x=\"5\" y=\"7491\""), std::string::npos);
    EXPECT_NE(svg.find("a&lt;b"), std::string::npos);
}
