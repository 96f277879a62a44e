#include "plot/device_svg.h"

#include <charconv>
#include <cmath>
#include <limits>
#include <map>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "plot/drawing.h"
#include "plot/strokes.h"
#include "support/freshsession.h"

namespace {

struct Element {
    std::string name;
    std::map<std::string, std::string> attributes;
    std::string text; ///< character data between its tags, as written
};

/// A reader for the XML that a picture needs: start, end and empty tags, attributes, the five named entities.
/// Anything else is a test failure.
class XmlReader {
public:
    explicit XmlReader(std::string_view xml) : rest(xml) {
        take("<?xml version=\"1.0\" encoding=\"UTF-8\"?>");
        while (!rest.empty() && !testing::Test::HasFatalFailure()) node();
        EXPECT_TRUE(open.empty()) << "not closed: " << (open.empty() ? "" : open.back());
    }
    std::vector<Element> elements;

private:
    void take(std::string_view expected) {
        ASSERT_EQ(rest.substr(0, expected.size()), expected);
        rest.remove_prefix(expected.size());
    }
    std::string until(std::string_view stops) {
        const std::size_t end = std::min(rest.find_first_of(stops), rest.size());
        const std::string found(rest.substr(0, end));
        rest.remove_prefix(end);
        return found;
    }
    static void checkdata(std::string_view data) {
        for (std::size_t i = 0; i < data.size(); ++i) {
            const auto byte = static_cast<unsigned char>(data[i]);
            EXPECT_TRUE(byte >= 0x20 || byte == '\n') << "control character in " << data;
            EXPECT_TRUE(byte != '<' && byte != '>') << data;
            if (byte != '&') continue;
            const std::string_view entity = data.substr(i, data.find(';', i) - i + 1);
            EXPECT_TRUE(entity == "&amp;" || entity == "&lt;" || entity == "&gt;" || entity == "&quot;")
                << entity;
        }
    }
    void node() {
        if (rest[0] != '<') {
            const std::string data = until("<");
            checkdata(data);
            if (!closed && !elements.empty()) elements.back().text += data;
            return;
        }
        if (rest.substr(0, 2) == "</") {
            rest.remove_prefix(2);
            ASSERT_FALSE(open.empty());
            EXPECT_EQ(until(">"), open.back());
            open.pop_back();
            closed = true;
            return take(">");
        }
        rest.remove_prefix(1);
        Element element;
        element.name = until(" />");
        ASSERT_FALSE(element.name.empty());
        while (rest.substr(0, 1) == " ") {
            rest.remove_prefix(1);
            const std::string name = until("=");
            take("=\"");
            const std::string value = until("\"");
            checkdata(value);
            take("\"");
            EXPECT_TRUE(element.attributes.emplace(name, value).second) << name << " twice";
        }
        if (rest.substr(0, 1) == "/")
            rest.remove_prefix(1);
        else
            open.push_back(element.name);
        closed = false;
        elements.push_back(element);
        take(">");
    }

    std::string_view rest;
    std::vector<std::string> open;
    bool closed = false; ///< the last tag was an end tag
};

double number(const std::string& text) {
    double value = NAN;
    const auto [end, problem] = std::from_chars(text.data(), text.data() + text.size(), value);
    return problem == std::errc{} && end == text.data() + text.size() ? value : NAN;
}

/// A picture of 800 by 600 pixels, lines of class 1 and 2 one pixel wide.
class SvgPicture : public testing::Test {
protected:
    void SetUp() override {
        session.plotspeed = -1;
        ASSERT_TRUE(plotbegin(device));
    }
    void TearDown() override {
        if (plotdevice()) plotend();
    }

    void draw(double x1, double y1, double x2, double y2, int colour = 1, LineStyle style = LineStyle::solid,
              int width = 1) {
        device.line({false, x1, y1, x2, y2, {colour, style}, width});
    }
    void drawon(double x2, double y2, int colour = 1) {
        device.line({true, continueLine, 0, x2, y2, {colour, LineStyle::solid}, 1});
    }

    /// Ends the picture and reads it; what stands in front of the plot's own elements is checked and left
    /// out.
    std::vector<Element> picture() {
        EXPECT_TRUE(plotend());
        std::vector<Element> found = XmlReader(written).elements;
        if (found.size() < 2) return {};
        found.erase(found.begin(), found.begin() + 2);
        return found;
    }
    Element only() {
        const auto found = picture();
        EXPECT_EQ(found.size(), 1u) << written;
        return found.empty() ? Element{} : found[0];
    }

    FreshSession fresh{visualSide};
    struct PictureSink : TextSink {
        std::string text;
        int commits = 0, drops = 0;
        std::size_t capacity = 10'000'000; ///< bytes that can be written
        bool open(const std::string&) override { return true; }
        bool write(std::string_view part) override { return text.append(part).size() <= capacity; }
        bool commit() override { return ++commits > 0; }
        void drop() override { ++drops; }
    };
    PictureSink sink;
    std::string& written = sink.text;
    int& finished = sink.commits;
    int& dropped = sink.drops;
    std::size_t& capacity = sink.capacity;
    SvgDevice device{800, 600, sink};
};

TEST_F(SvgPicture, CanvasIsFifteenUnitsToThePixel) {
    EXPECT_EQ(device.width(), 12000);
    EXPECT_EQ(device.height(), 9000);
}

TEST_F(SvgPicture, EmptyPictureIsTheBackgroundAlone) {
    ASSERT_TRUE(plotend());
    session.palette[backgroundColour] = 0xFFFEF0;
    written.clear();
    ASSERT_TRUE(device.begin());
    ASSERT_TRUE(device.end());
    const auto elements = XmlReader(written).elements;
    ASSERT_EQ(elements.size(), 2u);
    Element svg = elements[0], background = elements[1];
    EXPECT_EQ(svg.name, "svg");
    EXPECT_EQ(svg.attributes["xmlns"], "http://www.w3.org/2000/svg");
    EXPECT_EQ(svg.attributes["viewBox"], "0 0 800 600");
    EXPECT_EQ(svg.attributes["width"], "800");
    EXPECT_EQ(svg.attributes["height"], "600");
    EXPECT_EQ(background.name, "rect");
    EXPECT_EQ(background.attributes["fill"], "#fffef0");
    EXPECT_EQ(background.attributes["width"], "800");
    EXPECT_EQ(background.attributes["height"], "600");
}

TEST_F(SvgPicture, LineOfOnePixelLiesOnTheMiddleOfPixels) {
    draw(150, 300, 1500, 300, 2);
    Element path = only();
    EXPECT_EQ(path.name, "path");
    EXPECT_EQ(path.attributes["stroke"], "#c8321e");
    EXPECT_EQ(path.attributes["stroke-width"], "1");
    EXPECT_EQ(path.attributes["d"], "M10.5 20.5L100.5 20.5");
    EXPECT_FALSE(path.attributes.count("stroke-dasharray"));
}

TEST_F(SvgPicture, LineOfTwoPixelsLiesBetweenPixels) {
    draw(150, 300, 1500, 300, 2, LineStyle::solid, 3); // 12000 / 18000 * 3
    Element path = only();
    EXPECT_EQ(path.attributes["stroke-width"], "2");
    EXPECT_EQ(path.attributes["d"], "M10 20L100 20");
}

TEST_F(SvgPicture, WidthClassCountsByMagnitude) {
    draw(0, 0, 150, 0, 1, LineStyle::solid, -3);
    EXPECT_EQ(only().attributes["stroke-width"], "2");
}

TEST_F(SvgPicture, WidthClassNoughtIsFiner) {
    device.setwidth(0);
    draw(0, 0, 150, 0);
    draw(0, 15, 150, 15, 1, LineStyle::solid, 3);
    device.setwidth(1);
    draw(0, 30, 150, 30);
    auto paths = picture();
    ASSERT_EQ(paths.size(), 3u);
    EXPECT_EQ(paths[0].attributes["stroke-width"], "0.6");
    EXPECT_EQ(paths[1].attributes["stroke-width"], "2");
    EXPECT_EQ(paths[2].attributes["stroke-width"], "1");
}

TEST_F(SvgPicture, LinesThatMeetAreOnePolyline) {
    draw(0, 0, 15, 15);
    draw(15, 15, 30, 0);
    drawon(45, 15);
    EXPECT_EQ(only().attributes["d"], "M0.5 0.5L1.5 1.5L2.5 0.5L3.5 1.5");
}

TEST_F(SvgPicture, LinesApartThatLookAlikeShareAPath) {
    draw(0, 0, 15, 0);
    draw(0, 30, 15, 30);
    EXPECT_EQ(only().attributes["d"], "M0.5 0.5L1.5 0.5M0.5 2.5L1.5 2.5");
}

TEST_F(SvgPicture, ColourWidthOrStyleStartsAPath) {
    draw(0, 0, 15, 0);
    draw(15, 0, 30, 0, 2);
    draw(30, 0, 45, 0, 2, LineStyle::dotted);
    draw(45, 0, 60, 0, 2, LineStyle::dotted, 3);
    EXPECT_EQ(picture().size(), 4u);
}

TEST_F(SvgPicture, LineGoesOnFromThePenWhateverWasDrawnBetween) {
    draw(0, 0, 15, 15);
    device.markstep({150, 150, 300, 300, 3, 1});
    device.text({"x", 600, 600, 150, 0, 1});
    drawon(30, 0);
    auto elements = picture();
    ASSERT_EQ(elements.size(), 4u);
    EXPECT_EQ(elements[3].attributes["d"], "M1.5 1.5L2.5 0.5");
}

TEST_F(SvgPicture, ColourIsThatOfThePaletteWhenItIsDrawn) {
    draw(0, 0, 15, 0, 5);
    session.palette[5] = 0x00000A;
    draw(15, 0, 30, 0, 5);
    draw(15, 0, 30, 0, 1000);
    auto paths = picture();
    ASSERT_EQ(paths.size(), 3u);
    EXPECT_EQ(paths[0].attributes["stroke"], "#d07a00");
    EXPECT_EQ(paths[1].attributes["stroke"], "#00000a");
    EXPECT_EQ(paths[2].attributes["stroke"], "#20242a") << "held inside the palette";
}

TEST_F(SvgPicture, DashesGrowWithTheWidth) {
    draw(0, 0, 150, 0, 1, LineStyle::dashed);
    draw(0, 0, 150, 0, 1, LineStyle::dashed, 3);
    draw(0, 0, 150, 0, 1, LineStyle::dashDot);
    draw(0, 0, 150, 0, 1, LineStyle::dashDotDot);
    draw(0, 0, 150, 0, 1, LineStyle::dotted);
    auto paths = picture();
    ASSERT_EQ(paths.size(), 5u);
    EXPECT_EQ(paths[0].attributes["stroke-dasharray"], "6 4");
    EXPECT_EQ(paths[1].attributes["stroke-dasharray"], "12 8");
    EXPECT_EQ(paths[2].attributes["stroke-dasharray"], "8 3 1 3");
    EXPECT_EQ(paths[3].attributes["stroke-dasharray"], "8 3 1 3 1 3");
    EXPECT_EQ(paths[4].attributes["stroke-dasharray"], "1 3");
}

TEST_F(SvgPicture, BoxIsARectangleWhicheverCornersAreGiven) {
    draw(300, 450, 150, 150, 28, LineStyle::outline);
    draw(150, 450, 300, 150, 3, LineStyle::filled);
    auto boxes = picture();
    ASSERT_EQ(boxes.size(), 2u);
    EXPECT_EQ(boxes[0].name, "rect");
    EXPECT_EQ(boxes[0].attributes["x"], "10.5");
    EXPECT_EQ(boxes[0].attributes["y"], "10.5");
    EXPECT_EQ(boxes[0].attributes["width"], "10");
    EXPECT_EQ(boxes[0].attributes["height"], "20");
    EXPECT_EQ(boxes[0].attributes["stroke"], "#20242a");
    EXPECT_FALSE(boxes[0].attributes.count("fill")) << "the picture's own fill is none";
    EXPECT_EQ(boxes[1].attributes["x"], "10") << "the fill covers the pixels of the outline";
    EXPECT_EQ(boxes[1].attributes["width"], "11");
    EXPECT_EQ(boxes[1].attributes["height"], "21");
    EXPECT_EQ(boxes[1].attributes["fill"], "#1e7d3c");
    EXPECT_FALSE(boxes[1].attributes.count("stroke"));
}

TEST_F(SvgPicture, NothingIsFilledUnlessItSaysSo) {
    ASSERT_TRUE(plotend());
    EXPECT_EQ(XmlReader(written).elements.at(0).attributes.at("fill"), "none");
}

TEST_F(SvgPicture, NumbersHaveTwoDecimalsAtMost) {
    draw(1, 2, -1, 1.5, 1, LineStyle::solid, 3);
    draw(1e300, std::numeric_limits<double>::quiet_NaN(), -1e300, 0, 1, LineStyle::solid, 3);
    EXPECT_EQ(only().attributes["d"], "M0.07 0.13L-0.07 0.1M10000000 0L-10000000 0");
}

TEST_F(SvgPicture, FrameAtTheEdgeStaysInside) {
    draw(0, 0, 12000 - 15, 9000 - 15, 28, LineStyle::outline);
    Element box = only();
    EXPECT_EQ(number(box.attributes["x"]) - 0.5, 0);
    EXPECT_EQ(number(box.attributes["x"]) + number(box.attributes["width"]) + 0.5, 800);
    EXPECT_EQ(number(box.attributes["y"]) + number(box.attributes["height"]) + 0.5, 600);
}

TEST_F(SvgPicture, TextStandsAtItsAnchorInItsLength) {
    device.text({"Eta = 12", 150, 300, 180, 0, 28});
    const double length = device.textwidth("Eta = 12", 180) / 15;
    Element text = only();
    EXPECT_EQ(text.name, "text");
    EXPECT_EQ(text.text, "Eta = 12");
    EXPECT_EQ(text.attributes["x"], "10");
    EXPECT_EQ(text.attributes["y"], "20");
    EXPECT_EQ(text.attributes["font-size"], "12");
    EXPECT_EQ(text.attributes["fill"], "#20242a");
    EXPECT_NEAR(number(text.attributes["textLength"]), length, 0.005);
    EXPECT_EQ(text.attributes["lengthAdjust"], "spacingAndGlyphs");
    EXPECT_FALSE(text.attributes.count("transform"));
}

TEST_F(SvgPicture, TextThatRunsUpwardsTurnsAboutItsAnchor) {
    device.text({"Occurrence", 150, 300, 180, 90, 28});
    EXPECT_EQ(only().attributes["transform"], "rotate(-90 10 20)");
}

TEST_F(SvgPicture, TextIsEscapedAndKeepsItsBlanks) {
    device.text({"  a<b & \"c\">d", 0, 0, 180, 0, 1});
    EXPECT_EQ(only().text, "  a&lt;b &amp; \"c\"&gt;d");
    EXPECT_EQ(XmlReader(written).elements[0].attributes.at("xml:space"), "preserve");
}

TEST_F(SvgPicture, TextLosesControlsAndBytesThatAreNotUtf8) {
    device.text({std::string_view("a\x01\t\n\x7F\0b", 7), 0, 0, 180, 0, 1});
    device.text({"\xC3\xA9\xC2\x85\xE2\x82\xAC\xF0\x9F\x98\x80\xEF\xBF\xBF", 0, 0, 180, 0, 1});
    device.text({"x\xFFy\xE2\x82", 0, 0, 180, 0, 1});
    const auto texts = picture();
    ASSERT_EQ(texts.size(), 3u);
    EXPECT_EQ(texts[0].text, "ab");
    EXPECT_EQ(texts[1].text, "\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80");
    EXPECT_EQ(texts[2].text, "x\xEF\xBF\xBDy\xEF\xBF\xBD\xEF\xBF\xBD");
}

TEST_F(SvgPicture, TextWithNothingToShowIsLeftOut) {
    device.text({"", 0, 0, 180, 0, 1});
    device.text({"\n", 0, 0, 180, 0, 1});
    EXPECT_TRUE(picture().empty());
}

TEST_F(SvgPicture, MarkIsOnePathAndItsPenUpStepsLeaveNoTrace) {
    session.plotx2 = 1500;
    session.ploty2 = 1500;
    session.setCounter = 3 * session.sg;
    session.marksize = 3; // a diamond of two steps, 34 units across and 40 down: 2 and 3 pixels
    strokemark(24);
    Element mark = only();
    EXPECT_EQ(mark.attributes["stroke"], "#1e7d3c");
    EXPECT_EQ(mark.attributes["d"], "M98.5 100.5L100.5 97.5L102.5 100.5L100.5 103.5L98.5 100.5");
}

TEST_F(SvgPicture, MarksOfOneColourAndWidthShareAPath) {
    session.setCounter = session.sg;
    session.marksize = 4;
    for (const double x : {1500.0, 3000.0, 4500.0}) {
        session.plotx2 = x;
        session.ploty2 = 1500;
        strokemark(24);
    }
    session.setCounter = 2 * session.sg;
    strokemark(24);
    EXPECT_EQ(picture().size(), 2u);
}

TEST_F(SvgPicture, MarksAtEveryEdgeStayInside) {
    session.marksize = 1;
    session.marksteps = 3;
    session.setCounter = session.sg;
    for (const double x : {0.0, 6000.0, 11985.0})
        for (const double y : {0.0, 4500.0, 8985.0}) {
            session.plotx2 = x;
            session.ploty2 = y;
            strokemark(43); // along the axes only: cut sides lie on the canvas or are left out
        }
    const std::string path = only().attributes["d"];
    int ends = 0;
    for (std::size_t at = path.find('L'); at != std::string::npos; at = path.find('L', at + 1), ++ends) {
        const std::size_t blank = path.find(' ', at), stop = path.find_first_of("ML", blank);
        const double x = number(path.substr(at + 1, blank - at - 1));
        const double y = number(path.substr(blank + 1, std::min(stop, path.size()) - blank - 1));
        EXPECT_TRUE(x >= 0 && x <= 800.5) << x;
        EXPECT_TRUE(y >= 0 && y <= 600.5) << y;
    }
    EXPECT_GT(ends, 9);
}

TEST_F(SvgPicture, EndFinishesOnceAndAbandonDrops) {
    draw(0, 0, 15, 15);
    EXPECT_TRUE(plotend());
    EXPECT_EQ(finished, 1);
    EXPECT_EQ(dropped, 0);
    ASSERT_TRUE(plotbegin(device));
    const std::size_t before = written.size();
    draw(0, 0, 15, 15);
    plotabandon();
    EXPECT_EQ(written.size(), before) << "a short picture that broke off was never written";
    EXPECT_EQ(dropped, 1);
    EXPECT_EQ(finished, 1);
}

TEST_F(SvgPicture, LongPictureIsWrittenAsItGrows) {
    for (int i = 0; i < 20000; ++i) draw(0, 0, 15.0 * i, 15);
    EXPECT_GT(written.size(), 100'000u);
    const auto paths = picture();
    EXPECT_EQ(paths.size(), 1u);
}

TEST_F(SvgPicture, FailedWriteEndsThePicture) {
    capacity = 50'000;
    while (!device.failed() && written.size() < 200'000) draw(0, 0, 1500, 1500);
    EXPECT_TRUE(device.failed());
    const std::size_t then = written.size();
    for (int i = 0; i < 20000; ++i) draw(0, 0, 1500, 1500);
    EXPECT_EQ(written.size(), then) << "nothing is written behind a gap";
    EXPECT_FALSE(device.end());
    EXPECT_EQ(finished, 0);
    plotabandon();
    EXPECT_EQ(dropped, 1);
}

} // namespace
