#include "plot/device_trace.h"

#include "support/plotfixture.h"

namespace {

class TraceTest : public PlotTest {
protected:
    TraceDevice trace{667, 500, sink};
    TraceTest() { session.plotspeed = -1; }
};

} // namespace

TEST_F(TraceTest, WritesTheShapesAsTheGoldenFileHasThem) {
    session.outputName = "shapes.trace";
    ASSERT_TRUE(plotbegin(trace));
    shapes();
    ASSERT_TRUE(plotend());
    EXPECT_EQ(sink.text, golden("shapes.trace"));
    EXPECT_EQ(sink.opened, std::vector<std::string>{"shapes.trace"});
    EXPECT_EQ(sink.commits, 1);
}

TEST_F(TraceTest, GoesToStandardOutputWithoutAName) {
    ASSERT_TRUE(plotbegin(trace));
    EXPECT_EQ(sink.opened, std::vector<std::string>{"-"});
}

TEST_F(TraceTest, AUnitIsAFifteenthOfAPixel) {
    EXPECT_EQ(trace.width(), 10005);
    EXPECT_EQ(trace.height(), 7500);
}

TEST_F(TraceTest, ATextStaysOnItsLine) {
    ASSERT_TRUE(plotbegin(trace));
    textat(0, 0, 1, 100, 0, "a\n\"b\\\x1b");
    EXPECT_TRUE(sink.text.ends_with("pen 1 \"a\\x0A\\\"b\\\\\\x1B\"\n")) << sink.text;
}

TEST_F(TraceTest, AFailedWriteIsKept) {
    ASSERT_TRUE(trace.begin());
    sink.writesLeft = 0;
    trace.setwidth(1);
    sink.writesLeft = -1;
    trace.setwidth(1);
    EXPECT_TRUE(trace.failed());
    EXPECT_FALSE(trace.end());
}
