#include "session/commandline.h"

#include <gtest/gtest.h>

#include <vector>

#include "session/session.h"
#include "support/freshsession.h"

namespace {

class CommandLine : public testing::Test {
protected:
    CommandLine() { reset(); }
    ~CommandLine() override { reset(); }

    static void reset() {
        static_cast<CommandFields&>(session) = {};
        static_cast<Confidence&>(session) = {};
        session.scriptRequest.clear();
        session.titleWanted = session.titleSecond = "";
        session.xLimitLow = session.xLimitHigh = session.yLimitLow = session.yLimitHigh = 0;
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

TEST_F(CommandLine, AValueThatIsNotUnderstoodHasNoEffectAndIsNoted) {
    for (const std::vector<std::string>& wrong : {std::vector<std::string>{"-m", "0"},
                                                  {"-m", "9"},
                                                  {"-m", "12"},
                                                  {"-m"},
                                                  {"-i", "x"},
                                                  {"-i-1"},
                                                  {"-e", "WEIBULLS"},
                                                  {"-e", "WEIBULL(-1)"},
                                                  {"-e", "LOGNORMAL(1)"},
                                                  {"-e", "WEIBAYES"},
                                                  {"-e", ""},
                                                  {"-p"},
                                                  {"-b", "M7D90"},
                                                  {"-b", "M2D101"},
                                                  {"-b", "M2L40"},
                                                  {"-b", "Q5"},
                                                  {"-z", "1_2_3"},
                                                  {"-r", "5"},
                                                  {"-6", "Z_1"},
                                                  {"-8", "x"},
                                                  {"-w", "B"},
                                                  {"-x", "1_b"},
                                                  {"-s"}}) {
        EXPECT_TRUE(apply(wrong)) << wrong[0];
        ASSERT_EQ(session.cmdNotes.size(), 1u) << wrong[0];
        const bool told =
            session.cmdNotes[0].starts_with("Unknown: -") || session.cmdNotes[0].starts_with("No Value: -");
        EXPECT_TRUE(told) << session.cmdNotes[0];
        EXPECT_EQ(session.fitMethod, rankRegression);
        EXPECT_EQ(session.dist, weibull);
        EXPECT_EQ(session.confMethod, noBounds);
        EXPECT_EQ(session.scriptRequest, "");
    }
}

TEST_F(CommandLine, RefusesUnknownSwitchesAndASecondFile) {
    EXPECT_FALSE(parse({"a.txt", "-n", "1"}));
    EXPECT_EQ(session.msg, "-n: Undefined sequence 7");
    EXPECT_FALSE(parse({"a.txt", "b.txt"}));
    EXPECT_EQ(session.msg, "Unknown: b.txt");
    EXPECT_FALSE(parse({"-i", "1", "a.txt", "b.txt"}));
}

TEST_F(CommandLine, ReadsTheBoundsAskedFor) {
    const struct {
        const char* value;
        int method;
        double low, high;
        int automatic;
    } cases[] = {{"M2D90", 2, 5, 95, 0},       {"M3L95", 3, 5, 0, 0},    {"m1u90", 1, 0, 90, 0},
                 {"M6_D80", 6, 10, 90, 0},     {"M5 A95", 5, 5, 95, 0},  {"D", 0, 5, 95, 1},
                 {"M4", 4, 5, 95, 0},          {"M-2U95", -2, 0, 95, 0}, {"M0", 0, 0, 0, 0},
                 {"D99.9M2", 2, .05, 99.95, 0}};
    for (const auto& item : cases) {
        EXPECT_TRUE(apply({"-b", item.value})) << item.value;
        EXPECT_TRUE(session.cmdNotes.empty()) << item.value;
        EXPECT_EQ(session.confMethod, item.method) << item.value;
        EXPECT_FLOAT_EQ(session.confLow, static_cast<float>(item.low)) << item.value;
        EXPECT_FLOAT_EQ(session.confHigh, static_cast<float>(item.high)) << item.value;
        EXPECT_EQ(session.confAuto, item.automatic) << item.value;
    }
}

TEST_F(CommandLine, AThresholdOfTheBoundsIsThatOfEverySet) {
    const FreshSession fresh{lifeSide};
    EXPECT_TRUE(parse({"-b", "M2D90T12.5"}));
    cmdapply();
    EXPECT_EQ(session.t0(1), 12.5f);
    EXPECT_EQ(session.t0(8), 12.5f);
}

TEST_F(CommandLine, RecordsEverySwitch) {
    EXPECT_TRUE(
        parse({"a.w",    "-c", "c:\\cfg", "-t", "c:\\tmp",  "-d", "c:\\data", "-f", "First title", "-k",
               "Second", "-a", "opt.txt", "-w", "h",        "-h", "1",        "-r", "4_2000",      "-q",
               "3",      "-u", "4",       "-g", "500",      "-x", "1_2",      "-y", "3",           "-j",
               "C",      "-o", "5",       "-1", "1_2_3_4#", "-2", "5_6 7",    "-3", "6",           "-4",
               "7",      "-5", "8",       "-6", "B_2.5",    "-7", "R_.9",     "-8", "N",           "-v",
               "-9"}));
    EXPECT_TRUE(session.cmdNotes.empty());
    EXPECT_EQ(session.cmdConfig, "c:\\cfg");
    EXPECT_EQ(session.cmdTemp, "c:\\tmp");
    EXPECT_EQ(session.cmdData, "c:\\data");
    EXPECT_EQ(session.cmdTitle, "First title");
    EXPECT_EQ(session.cmdTitleSecond, "Second");
    EXPECT_EQ(session.cmdOptionFile, "opt.txt");
    EXPECT_EQ(session.cmdPlotChoice, 'H');
    EXPECT_EQ(session.cmdShowWindow, 1);
    EXPECT_EQ(session.cmdSets, 4);
    EXPECT_EQ(session.cmdPoints, 2000);
    EXPECT_EQ(session.cmdSamples, 500);
    EXPECT_EQ(session.cmdX, (std::vector<double>{1, 2}));
    EXPECT_EQ(session.cmdY, (std::vector<double>{3}));
    EXPECT_EQ(session.cmdInput, intv5);
    EXPECT_EQ(session.cmdRanges, (std::vector<double>{1, 2, 3, 4}));
    EXPECT_EQ(session.cmdScale, (std::vector<double>{5, 6, 7}));
    EXPECT_EQ(session.cmdMarks, (std::array<double, 6>{3, 4, 5, 6, 7, 8}));
    EXPECT_EQ(session.cmdLine[0], 'B');
    EXPECT_EQ(session.cmdLineAt[0], 2.5);
    EXPECT_EQ(session.cmdLine[1], 'R');
    EXPECT_EQ(session.cmdLineAt[1], .9);
    EXPECT_EQ(session.cmdPlot, 0);
}

TEST_F(CommandLine, TitlesLimitsAndSamplesTakeEffect) {
    EXPECT_TRUE(apply({"-f", "Bearings", "-k", "Plant 2", "-z", "1_100_0_0", "-g", "40000"}));
    EXPECT_EQ(session.titleWanted, "Bearings");
    EXPECT_EQ(session.titleSecond, "Plant 2");
    EXPECT_EQ(session.xLimitLow, 1);
    EXPECT_EQ(session.xLimitHigh, 100);
    EXPECT_EQ(session.mcCount, 32000) << "no more samples than there can be";
    EXPECT_EQ(session.fitMethod, maximumLikelihood) << "sampling goes by likelihood";
    EXPECT_TRUE(apply({"-g", "100", "-m", "1"}));
    EXPECT_EQ(session.fitMethod, rankRegression) << "unless the method is named";
}

TEST_F(CommandLine, APathBehindPIsNoSide) {
    EXPECT_TRUE(parse({"-p", "c:\\vanex"}));
    EXPECT_EQ(session.cmdSide, 0);
}

TEST_F(CommandLine, TheHelpNamesEverySwitchThatHasAnEffect) {
    std::string letters;
    for (const SwitchHelp& one : switchhelp()) letters += one.letter;
    for (const char letter : std::string("ctdimefkasvzprbgxyj1h80"))
        EXPECT_NE(letters.find(letter), std::string::npos) << letter;
}
