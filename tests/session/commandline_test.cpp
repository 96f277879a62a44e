#include "session/commandline.h"

#include <gtest/gtest.h>

#include <vector>

#include "session/session.h"

namespace {

class CommandLine : public testing::Test {
protected:
    CommandLine() { reset(); }
    ~CommandLine() override { reset(); }

    static void reset() {
        static_cast<CommandFields&>(session) = {};
        session.inputType = standard0;
        session.dist = weibull;
        session.gumbeltype = -1;
        session.fixedSlope = 0;
        session.negativeXAllowed = 0;
        session.findThreshold = session.scaleAsRecorded = 0;
        session.fitMethod = session.fitMethodSaved = rankRegression;
        session.rrSwap = 0;
        session.mleVariant = 0;
    }
    static bool parse(const std::vector<std::string>& arguments) {
        reset();
        return cmdparse(arguments);
    }
    static bool apply(const std::vector<std::string>& arguments) {
        const bool good = parse(arguments);
        cmdapply();
        return good;
    }
};

} // namespace

TEST_F(CommandLine, ReadsFileAndSwitchesInAnyOrder) {
    EXPECT_TRUE(parse({"data.txt", "-p", "W", "-i", "5"}));
    EXPECT_EQ(session.cmdFile, "data.txt");
    EXPECT_EQ(session.cmdSide, lifeSide);
    EXPECT_EQ(session.cmdInput, intv5);
    EXPECT_TRUE(parse({"-i5", "-pvisual", "data.txt"}));
    EXPECT_EQ(session.cmdFile, "data.txt");
    EXPECT_EQ(session.cmdSide, visualSide);
    EXPECT_EQ(session.cmdInput, intv5);
    EXPECT_TRUE(parse({"-", "-P", "W"}));
    EXPECT_EQ(session.cmdFile, "-");
}

TEST_F(CommandLine, OnlyRecordsUntilItIsApplied) {
    EXPECT_TRUE(parse({"-i", "1", "-m", "2", "-e", "NORMAL"}));
    EXPECT_EQ(session.inputType, standard0);
    EXPECT_EQ(session.dist, weibull);
    cmdapply();
    EXPECT_EQ(session.inputType, insp1);
    EXPECT_EQ(session.dist, normal);
    EXPECT_EQ(session.rrSwap, 1);
}

TEST_F(CommandLine, TheWordNoneSetsNothing) {
    EXPECT_TRUE(apply({"-i", "NONE", "-m", "none", "-e", "NONE", "-p", "NONE"}));
    EXPECT_EQ(session.cmdInput, -1);
    EXPECT_EQ(session.cmdMethod, 0);
    EXPECT_EQ(session.cmdSide, 0);
    EXPECT_EQ(session.dist, weibull);
}

TEST_F(CommandLine, SelectsEachOfTheEightMethods) {
    const struct {
        const char* value;
        float method, swap;
        int variant;
    } cases[] = {{"1", 1, 0, 0}, {"2", 1, 1, 0}, {"3", 2, 0, 0}, {"(4)", 2, 0, 1},
                 {"5", 2, 0, 2}, {"6", 2, 0, 3}, {"7", 2, 0, 4}, {"(8)", 2, 0, 5}};
    for (const auto& item : cases) {
        EXPECT_TRUE(apply({"-m", item.value})) << item.value;
        EXPECT_EQ(session.fitMethod, item.method) << item.value;
        EXPECT_EQ(session.fitMethodSaved, item.method) << item.value;
        EXPECT_EQ(session.rrSwap, item.swap) << item.value;
        EXPECT_EQ(session.mleVariant, item.variant) << item.value;
    }
}

TEST_F(CommandLine, KnowsEveryDistributionName) {
    const struct {
        const char* name;
        int dist, extreme;
        float slope;
    } cases[] = {{"EXPONEN", 1, -1, 1},     {"EXPONENTIAL", 1, -1, 1}, {"RAYLEIGH", 1, -1, 2},
                 {"WEIBAYES(3)", 1, -1, 3}, {"WEIBULL", 1, -1, 0},     {"LOGNORM", 2, -1, 0},
                 {"LogNormal", 2, -1, 0},   {"NORMAL", 3, -1, 0},      {"GAUSSIAN", 3, -1, 0},
                 {"GUMBEL", 4, -1, 0},      {"GUMBEL-", 4, -1, 0},     {"GUMBEL+", 4, 1, 0},
                 {"EXTREME-", 4, -1, 0},    {"EXTREME+", 4, 1, 0},     {"weibull(2.5)", 1, -1, 2.5f}};
    for (const auto& item : cases) {
        EXPECT_TRUE(apply({"-e", item.name})) << item.name;
        EXPECT_EQ(session.dist, item.dist) << item.name;
        EXPECT_EQ(session.gumbeltype, item.extreme) << item.name;
        EXPECT_EQ(session.fixedSlope, item.slope) << item.name;
    }
    EXPECT_TRUE(apply({"-e", "NORMAL+"}));
    EXPECT_EQ(session.negativeXAllowed, 1);
}

TEST_F(CommandLine, AThreeBehindTheNameAsksForAThreshold) {
    EXPECT_TRUE(apply({"-e", "WEIBULL3"}));
    EXPECT_EQ(session.findThreshold, 1);
    EXPECT_EQ(session.scaleAsRecorded, 0);
    EXPECT_TRUE(apply({"-e", "LOGNORMAL3AR"}));
    EXPECT_EQ(session.scaleAsRecorded, 1);
}

TEST_F(CommandLine, RefusesWhatItDoesNotKnowAndSaysWhat) {
    for (const std::vector<std::string>& wrong : {std::vector<std::string>{"-q", "1"},
                                                  {"-m", "0"},
                                                  {"-m", "9"},
                                                  {"-m", "12"},
                                                  {"-m"},
                                                  {"-i", "x"},
                                                  {"-i", "-1"},
                                                  {"-e", "WEIBULLS"},
                                                  {"-e", "WEIBULL(-1)"},
                                                  {"-e", "LOGNORMAL(1)"},
                                                  {"-e", "WEIBAYES"},
                                                  {"-e", ""},
                                                  {"-p"},
                                                  {"a.txt", "b.txt"},
                                                  {"-i", "1", "a.txt", "b.txt"}}) {
        EXPECT_FALSE(parse(wrong)) << wrong[0];
        EXPECT_TRUE(session.msg.starts_with("Unknown: ")) << session.msg;
    }
}
