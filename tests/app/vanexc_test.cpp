#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>
#include <sstream>
#include <string>

namespace {

namespace fs = std::filesystem;
using Json = nlohmann::json;

struct Outcome {
    int status;
    std::string out;
    std::string err;
};

std::string contents(const fs::path& path) {
    std::ostringstream text;
    text << std::ifstream(path, std::ios::binary).rdbuf();
    return text.str();
}

/// A folder of its own for each test, and the program run in it.
class Vanexc : public testing::Test {
protected:
    Vanexc() {
        std::string name = (fs::temp_directory_path() / "vanexc-XXXXXX").string();
        folder = mkdtemp(name.data());
    }
    ~Vanexc() override { fs::remove_all(folder); }

    Outcome run(const std::string& arguments, const std::string& input = "",
                const std::string& program = VANEXC) {
        write("stdin", input);
        const std::string command = "cd '" + folder.string() + "' && HOME='" + folder.string()
                                    + "' XDG_CONFIG_HOME= XDG_DATA_HOME= LC_ALL=C '" + program + "' "
                                    + arguments + " <stdin >stdout 2>stderr";
        const int status = std::system(command.c_str());
        return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, contents(folder / "stdout"),
                contents(folder / "stderr")};
    }
    void write(const std::string& name, const std::string& text) {
        std::ofstream(folder / name, std::ios::binary) << text;
    }

    fs::path folder;
};

} // namespace

TEST_F(Vanexc, WithoutAFileAnalysesTheLeukemiaSampleOnTheLifeSide) {
    const Outcome outcome = run("");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_NE(outcome.out.find("Eta=22.7971"), std::string::npos) << outcome.out;
    EXPECT_NE(outcome.out.find("Occurrence=9 (Susp=12"), std::string::npos);
    EXPECT_EQ(outcome.err, "");
}

TEST_F(Vanexc, GivesEveryFieldOfTheJsonContract) {
    const Json result = Json::parse(run("--json -").out);
    EXPECT_EQ(result["program"], "OmniVANEX");
    EXPECT_EQ(result["side"], "life");
    EXPECT_TRUE(result["version"].is_string());
    EXPECT_TRUE(result["file"].is_string());
    const Json& set = result["sets"].at(0);
    for (const char* field :
         {"set", "title", "family", "gumbeltype", "method", "label", "rankMethod", "inputType", "counts",
          "eta", "beta", "t0", "fixedSlope", "r", "r2", "messages", "points"})
        EXPECT_TRUE(set.contains(field)) << field;
    for (const char* field : {"occr", "susp", "disc", "intv", "quantity"})
        EXPECT_TRUE(set["counts"].contains(field)) << field;
    ASSERT_EQ(set["points"].size(), 18u);
    for (const char* field : {"x", "upper", "type", "quantity", "position", "rank", "label"})
        EXPECT_TRUE(set["points"][0].contains(field)) << field;
    // tests/reference/rankreg.csv, leukemia6mp, weibull, rrx_benard.
    EXPECT_NEAR(set["eta"].get<double>() / 22.79710106035492, 1, 1e-9);
    EXPECT_NEAR(set["beta"].get<double>() / 1.972655854941093, 1, 1e-9);
    EXPECT_NEAR(set["r2"].get<double>() / 0.7998002223479456, 1, 1e-6);
    EXPECT_EQ(set["counts"]["quantity"], 21);
}

TEST_F(Vanexc, ListsThePointsInOrderWithoutARankForSuspensions) {
    const Json result = Json::parse(run("- -p W --json -", "30\n-20\n20\n10_first one\n").out);
    const Json& points = result["sets"][0]["points"];
    ASSERT_EQ(points.size(), 4u);
    EXPECT_EQ(points[0]["x"], 10);
    EXPECT_EQ(points[0]["label"], "first one");
    EXPECT_EQ(points[1]["type"], "occr"); // a failure ranks before a suspension of the same value
    EXPECT_EQ(points[2]["type"], "susp");
    EXPECT_TRUE(points[2]["rank"].is_null());
    EXPECT_TRUE(points[2]["position"].is_null());
    EXPECT_EQ(points[0]["rank"], 1);
    EXPECT_EQ(points[1]["rank"], 2);
    EXPECT_EQ(points[3]["rank"], 3.5); // 2 + (5 - 2) / (5 - 3)
    EXPECT_TRUE(points[0]["upper"].is_null());
}

TEST_F(Vanexc, TakesEachColumnAsASet) {
    write("data.txt", "# two columns\n10 100\n20 200\n\n30 400\n40\n");
    const Json result = Json::parse(run("data.txt -p W --json -").out);
    ASSERT_EQ(result["sets"].size(), 2u);
    EXPECT_EQ(result["sets"][0]["counts"]["occr"], 4);
    EXPECT_EQ(result["sets"][1]["counts"]["occr"], 3);
    EXPECT_EQ(result["file"], "data.txt");
}

TEST_F(Vanexc, TheNameVanexwChoosesTheLifeSide) {
    fs::create_symlink(VANEXC, folder / "vanexw");
    write("data.txt", "10\n20\n30\n");
    const auto side = [&](const std::string& arguments, const std::string& program) {
        return Json::parse(run(arguments, "", program).out)["side"];
    };
    EXPECT_EQ(side("data.txt --json -", VANEXC), "visual");
    EXPECT_EQ(side("data.txt --json -", "./vanexw"), "life");
    EXPECT_EQ(side("data.txt --json - -p V", "./vanexw"), "visual");
}

TEST_F(Vanexc, TheVisualSideIsTheDefaultAndSaysHowToGetALine) {
    write("data.txt", "10x3\n20x4\n30x7\n");
    const Outcome outcome = run("data.txt --json -");
    EXPECT_EQ(outcome.status, 0); // a summary was asked for, and that is one
    EXPECT_NE(outcome.err.find("Life Analysis = -p W, Curve Fit = --fit"), std::string::npos) << outcome.err;
    EXPECT_EQ(Json::parse(outcome.out)["side"], "visual");
    EXPECT_EQ(run("data.txt -p V").err, ""); // the side was chosen
}

TEST_F(Vanexc, ReadsTheDistributionGrammar) {
    const std::string data = "150\n230\n310\n480\n";
    const auto set = [&](const std::string& switches) {
        return Json::parse(run("- -p W --json - " + switches, data).out)["sets"][0];
    };
    EXPECT_EQ(set("-e lognorm")["family"], "LogNormal");
    EXPECT_EQ(set("-e NORMAL")["family"], "Normal");
    EXPECT_EQ(set("-e Gumbel+")["gumbeltype"], 1);
    EXPECT_EQ(set("-e EXTREME-")["gumbeltype"], -1);
    EXPECT_EQ(set("-e EXPONEN")["beta"], 1);
    EXPECT_EQ(set("-e RAYLEIGH")["beta"], 2);
    EXPECT_EQ(set("-e 'WEIBAYES(2.5)'")["beta"], 2.5);
    EXPECT_EQ(set("-e 'WEIBULL(2.5)'")["fixedSlope"], 2.5);
    EXPECT_EQ(set("-m 2")["label"], "rrs");
    EXPECT_EQ(set("-m '(1)'")["label"], "rr");
    EXPECT_EQ(set("-i 1")["label"], "rr/insp1");
    EXPECT_EQ(set("-i1")["inputType"], 1);
}

TEST_F(Vanexc, NormalPlusTakesNegativeValuesAsData) {
    const Json set = Json::parse(run("- -p W -e NORMAL+ --json -", "-10\n0\n10\n").out)["sets"][0];
    EXPECT_EQ(set["counts"]["occr"], 3);
    EXPECT_NEAR(set["eta"].get<double>(), 0, 1e-12);
    EXPECT_EQ(set["points"][0]["x"], -10);
}

TEST_F(Vanexc, AWrongUseEndsWithTwo) {
    for (const char* arguments : {"-n 3", "--report", "--nonsense", "--format excel", "a.txt b.txt"}) {
        const Outcome outcome = run(arguments);
        EXPECT_EQ(outcome.status, 2) << arguments;
        EXPECT_NE(outcome.err, "") << arguments;
        EXPECT_EQ(outcome.out, "") << arguments;
    }
}

TEST_F(Vanexc, AValueThatIsNotUnderstoodIsToldAndTheRunGoesOnButNotAsIfObeyed) {
    for (const char* arguments :
         {"-m 9", "-m", "-i 6", "-e CAUCHY", "-e WEIBAYES", "-e 'WEIBULL(0)'", "-b M9"}) {
        const Outcome outcome = run(arguments);
        EXPECT_EQ(outcome.status, 2) << arguments;
        EXPECT_TRUE(outcome.err.starts_with("vanexc: Unknown: -")
                    || outcome.err.starts_with("vanexc: No Value: -"))
            << outcome.err;
        EXPECT_NE(outcome.out.find("Eta=22.7971"), std::string::npos) << arguments;
    }
}

TEST_F(Vanexc, NothingToAnalyseEndsWithOneAndASentence) {
    const struct {
        const char* input;
        const char* sentence;
    } cases[] = {{"", "No Data"},
                 {"\n\n  \n", "Not Enough Data"},
                 {"# only a note\n", "Not Enough Data"},
                 {"150\n", "Not Enough Data"},
                 {"-150\n-230\n", "Not Enough Data"},
                 {"hello\nworld\n", "No Data"},
                 {"200\n200\n", "Not Enough Data"}};
    for (const auto& item : cases) {
        const Outcome outcome = run("- -p W --json -", item.input);
        EXPECT_EQ(outcome.status, 1) << item.input;
        EXPECT_NE(outcome.err.find(item.sentence), std::string::npos) << item.input << ": " << outcome.err;
        EXPECT_TRUE(Json::accept(outcome.out)) << outcome.out;
    }
}

TEST_F(Vanexc, AFailedSetHasNoValuesAndItsMessage) {
    const Json set = Json::parse(run("- -p W --json -", "150\n").out)["sets"][0];
    EXPECT_TRUE(set["eta"].is_null());
    EXPECT_TRUE(set["r2"].is_null());
    ASSERT_EQ(set["messages"].size(), 1u);
    EXPECT_NE(set["messages"][0].get<std::string>().find("Set 1: Not Enough Data"), std::string::npos);
}

TEST_F(Vanexc, FitsByLikelihoodWithEveryVariant) {
    const std::pair<const char*, const char*> variants[] = {
        {"3", "mle"}, {"4", "mmleN-1"}, {"5", "RBAmd"}, {"6", "RBAmu"}, {"7", "RBApb"}, {"8", "RBAjjm"}};
    double former = 0;
    for (const auto& [method, label] : variants) {
        const Outcome outcome = run(std::string("-m ") + method + " --json -");
        EXPECT_EQ(outcome.status, 0) << outcome.err;
        const Json set = Json::parse(outcome.out)["sets"][0];
        ASSERT_FALSE(set["logLik"].is_null()) << method;
        const double logLik = set["logLik"].get<double>();
        EXPECT_EQ(logLik, former == 0 ? logLik : former) << method;
        former = logLik;
        EXPECT_GT(set["beta"].get<double>(), 0) << method;
        EXPECT_EQ(set["label"].get<std::string>(), label) << method;
    }
}

TEST_F(Vanexc, TheReportShowsTheLogLikelihoodOfALikelihoodFitAlone) {
    EXPECT_NE(run("-m 3").out.find("\nmle (LL)=-"), std::string::npos);
    EXPECT_EQ(run("-m 1").out.find("(LL)"), std::string::npos);
    EXPECT_TRUE(Json::parse(run("-m 1 --json -").out)["sets"][0]["logLik"].is_null());
}

TEST_F(Vanexc, AColumnOfNumbersUnderAHeadingIsTitledByIt) {
    const Json set = Json::parse(run("- -p W --json -", "Hours\n150\n230\n310\n").out)["sets"][0];
    EXPECT_EQ(set["title"], "Hours");
    EXPECT_EQ(set["counts"]["occr"], 3);
}

TEST_F(Vanexc, ReadsTheFormThatWasAskedFor) {
    const Outcome outcome = run("- -p W --format E --json -", "150, F\n230, S\n400, F\n");
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    const Json counts = Json::parse(outcome.out)["sets"][0]["counts"];
    EXPECT_EQ(counts["occr"], 2);
    EXPECT_EQ(counts["susp"], 1);
    EXPECT_EQ(run("- -p W --format c", "10 2 1\n20 1 0\n30 1 4\n").status, 0) << "in either case";
}

TEST_F(Vanexc, TheFormDecidesTheInputMethod) {
    const Json set =
        Json::parse(run("- -p W --format B2 --json -", "10 1 20\n20 4 20\n30 9 20\n").out)["sets"][0];
    EXPECT_EQ(set["inputType"], 2);
}

TEST_F(Vanexc, AnUnknownFormIsAUsageErrorThatListsAll) {
    for (const char* arguments :
         {"- -p W --format Z", "- -p W --format K9", "- -p W --format Q", "--format ''"}) {
        const Outcome outcome = run(arguments, "150\n230\n");
        EXPECT_EQ(outcome.status, 2) << arguments;
        EXPECT_EQ(outcome.out, "") << arguments;
        for (const char* line : {"E  X-Value  F/S", "K2  Kaplan-Meier", "Q  ID-Label"})
            EXPECT_NE(outcome.err.find(line), std::string::npos) << arguments << outcome.err;
    }
}

TEST_F(Vanexc, ACommaThatMayBeADecimalSymbolIsRefusedWithTheWayOut) {
    const std::string text = "150,5\n230,25\n310,75\n";
    const Outcome outcome = run("- -p W --json -", text);
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.out, "");
    EXPECT_NE(outcome.err.find("150,5 = 150.5 Or 150 | 5? ... --decimal comma / --decimal point"),
              std::string::npos)
        << outcome.err;
    const Json decimal = Json::parse(run("- -p W --decimal comma --json -", text).out);
    ASSERT_EQ(decimal["sets"].size(), 1u);
    EXPECT_EQ(decimal["sets"][0]["points"][0]["x"], 150.5);
    const Json columns = Json::parse(run("- -p W --decimal point --json -", text).out);
    ASSERT_EQ(columns["sets"].size(), 2u);
    EXPECT_EQ(columns["sets"][1]["points"][0]["x"], 5);
    EXPECT_EQ(run("- -p W --decimal semicolon", text).status, 2);
}

TEST_F(Vanexc, AScriptRefusesAnUnclearTextWithTheWayOut) {
    write("a.txt", "150,5\n230,25\n310,75\n");
    const Outcome outcome = run("-s '[WVW [a.txt] Q]'");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_NE(outcome.err.find("--decimal comma"), std::string::npos) << outcome.err;
    EXPECT_EQ(run("-s '[WVW [a.txt] Q]' --decimal comma").out, "3\n");
}

TEST_F(Vanexc, MoreRowsThanTheLargestArraysHoldAreDroppedAndCounted) {
    std::string data;
    constexpr int most = 768000, extra = 5;
    for (int row = 0; row < most + extra; ++row) data += std::to_string(row % 1000 + 1) + "\n";
    const Outcome outcome = run("- -p W --report /dev/null", data);
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_NE(outcome.err.find("Point Quantity Too Big (+5)"), std::string::npos) << outcome.err;
}

TEST_F(Vanexc, AnUnreadableFileIsTold) {
    EXPECT_EQ(run("missing.txt -p W").status, 1);
    EXPECT_NE(run("missing.txt -p W").err.find("Cannot Open File: missing.txt"), std::string::npos);
    EXPECT_EQ(run(". -p W").status, 1);
}

TEST_F(Vanexc, ABadCellIsDroppedAndTold) {
    const Outcome outcome = run("- -p W --json -", "150\nabc\n230\n1,5\n310\n");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_NE(outcome.err.find("Bad Data (2) ... Row 2 = abc"), std::string::npos) << outcome.err;
    EXPECT_EQ(Json::parse(outcome.out)["sets"][0]["counts"]["quantity"], 3);
}

TEST_F(Vanexc, NamesABadCellByItsLineOfTheFile) {
    EXPECT_NE(run("- -p W", "# hours\n\n150\n\nabc\n230\n310\n").err.find("Row 5 = abc"), std::string::npos);
}

TEST_F(Vanexc, AColumnWithoutASingleNumberIsASetWithItsMessage) {
    const Json result = Json::parse(run("- -p W --json -", "150, old\n230, old\n400, new\n").out);
    ASSERT_EQ(result["sets"].size(), 2u);
    EXPECT_TRUE(result["sets"][1]["eta"].is_null());
    EXPECT_NE(result["sets"][1]["messages"][0].get<std::string>().find("Bad Data (3)"), std::string::npos);
}

TEST_F(Vanexc, ReadsTheUnicodeTextOfASpreadsheetInEitherByteOrder) {
    const std::string plain = "150\tF\r\n230\tS\r\n310\tF\r\n";
    for (const bool bigEndian : {false, true}) {
        std::string wide = bigEndian ? "\xFE\xFF" : "\xFF\xFE";
        for (const char c : plain) {
            const char pair[] = {bigEndian ? '\0' : c, bigEndian ? c : '\0'};
            wide.append(pair, 2);
        }
        write("wide.txt", wide);
        for (const char* file : {"wide.txt", "-"}) {
            const Json result = Json::parse(run(std::string(file) + " -p W --json -", wide).out);
            ASSERT_EQ(result["sets"].size(), 1u) << file;
            EXPECT_EQ(result["sets"][0]["points"].size(), 3u) << file;
            EXPECT_EQ(result["sets"][0]["points"][0]["x"], 150) << file;
        }
    }
}

TEST_F(Vanexc, AHugeNumberIsHeldInRange) {
    const Outcome outcome =
        run("- -p W --json -", "1E+30\n1E+199\n1E+400\n" + std::string(5000, '9') + "\n10\n20\n");
    EXPECT_TRUE(outcome.status == 0 || outcome.status == 1);
    EXPECT_TRUE(Json::accept(outcome.out));
}

TEST_F(Vanexc, TenMegabytesOfNoiseEndWithASentence) {
    std::string noise(10 << 20, '\0');
    uint32_t state = 12345;
    for (char& c : noise) c = static_cast<char>((state = state * 1664525u + 1013904223u) >> 24);
    const Outcome outcome = run("- -p W --json -", noise);
    EXPECT_TRUE(outcome.status == 0 || outcome.status == 1) << outcome.status;
    EXPECT_NE(outcome.err, "");
    EXPECT_TRUE(Json::accept(outcome.out));
}

TEST_F(Vanexc, MoreSetsThanThereIsRoomForAreTold) {
    std::string wide;
    for (int row = 1; row <= 3; ++row) {
        for (int set = 1; set <= 9; ++set) wide += std::to_string(row * set * 10) + " ";
        wide += "\n";
    }
    const Outcome outcome = run("- -p W --json -", wide);
    EXPECT_EQ(outcome.status, 0);
    EXPECT_NE(outcome.err.find("Set Quantity Too Big (> 8)"), std::string::npos) << outcome.err;
    const Json result = Json::parse(outcome.out);
    EXPECT_EQ(result["sets"].size(), 8u);
    EXPECT_NE(result["messages"][0].get<std::string>().find("Set Quantity Too Big"), std::string::npos);
}

TEST_F(Vanexc, ALongFileGetsLargerArrays) {
    std::string data;
    for (int j = 1; j <= 4000; ++j) data += std::to_string(j) + "\n";
    EXPECT_EQ(Json::parse(run("- -p W --json -", data).out)["sets"][0]["counts"]["occr"], 4000);
}

TEST_F(Vanexc, WritesReportAndJsonToFilesAndReplacesOldOnesWhole) {
    write("report.txt", "old");
    EXPECT_EQ(run("--report report.txt --json result.json").status, 0);
    EXPECT_NE(contents(folder / "report.txt").find("Analysis Report"), std::string::npos);
    EXPECT_TRUE(Json::accept(contents(folder / "result.json")));
    for (const auto& entry : fs::directory_iterator(folder))
        EXPECT_NE(entry.path().extension(), ".tmp") << "a temporary file was left";
}

TEST_F(Vanexc, ReportAndJsonMayShareStandardOutput) {
    const std::string out = run("--report - --json -").out;
    EXPECT_LT(out.find("Analysis Report"), out.find("\"program\""));
}

TEST_F(Vanexc, AnOutputThatCannotBeWrittenIsToldAndFails) {
    const Outcome outcome = run("--report missing/report.txt");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_NE(outcome.err.find("Cannot Save File: missing/report.txt"), std::string::npos) << outcome.err;
    EXPECT_EQ(run("--report /dev/full").status, 1);
}

TEST_F(Vanexc, TellsOfItself) {
    EXPECT_EQ(run("--help").status, 0);
    EXPECT_NE(run("--help").out.find("Usage: vanexc"), std::string::npos);
    EXPECT_EQ(run("--version").out.rfind("OmniVANEX ", 0), 0u);
}

TEST_F(Vanexc, TextThatIsNotUtf8StaysReadableInJson) {
    const Outcome outcome = run("- -p W --json -", "150_K\xFChler\n230\n310\n");
    const Json result = Json::parse(outcome.out);
    EXPECT_EQ(result["sets"][0]["points"][0]["label"], "K\u00FChler");
}

// ---- plots ----

TEST_F(Vanexc, DrawsThePlotOnTheOutputThatTheExtensionNames) {
    EXPECT_EQ(run("--plot a.svg --plot b.hgl").status, 0) << "the last one counts";
    EXPECT_EQ(run("--plot a.svg").status, 0);
    EXPECT_EQ(run("--plot b.HGL").status, 0);
    EXPECT_EQ(run("--plot c.trace").status, 0);
    const std::string svg = contents(folder / "a.svg");
    EXPECT_TRUE(svg.starts_with("<?xml"));
    EXPECT_NE(svg.find("viewBox=\"0 0 1200 900\""), std::string::npos);
    EXPECT_TRUE(svg.ends_with("</svg>\n"));
    const std::string hgl = contents(folder / "b.HGL");
    EXPECT_TRUE(hgl.starts_with("IN;SP1;IP0,0,10000,7500;SR0.75,2.0;VS"));
    EXPECT_TRUE(hgl.ends_with("SP1;SP0;IN;"));
    const std::string trace = contents(folder / "c.trace");
    EXPECT_TRUE(trace.starts_with("begin 18000 13500\n"));
    EXPECT_TRUE(trace.ends_with("end\n"));
}

TEST_F(Vanexc, APlotAloneLeavesStandardOutputToTheUser) {
    const Outcome outcome = run("--plot a.svg");
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err, "");
}

TEST_F(Vanexc, ThePictureTakesTheSizeAskedFor) {
    EXPECT_EQ(run("--plot a.svg --plot-size 400x300").status, 0);
    EXPECT_NE(contents(folder / "a.svg").find("viewBox=\"0 0 400 300\""), std::string::npos);
    for (const char* size :
         {"399x300", "4001x300", "400x3001", "400", "x", "400x", "400x300x2", "-400x300", "axb"})
        EXPECT_EQ(run(std::string("--plot b.svg --plot-size ") + size).status, 2) << size;
    EXPECT_FALSE(fs::exists(folder / "b.svg"));
}

TEST_F(Vanexc, AnUnknownKindOfPlotIsRefusedBeforeAnyWork) {
    const Outcome outcome = run("--plot a.png --report r.txt");
    EXPECT_EQ(outcome.status, 2);
    EXPECT_NE(outcome.err.find("Unknown Plot File Type: a.png"), std::string::npos) << outcome.err;
    EXPECT_FALSE(fs::exists(folder / "r.txt"));
}

TEST_F(Vanexc, APlotThatCannotBeWrittenIsToldAndTheReportStillComes) {
    const Outcome outcome = run("--plot nowhere/a.svg --report -");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_NE(outcome.err.find("Device Error!!!..."), std::string::npos) << outcome.err;
    EXPECT_NE(outcome.err.find("nowhere/a.svg"), std::string::npos) << outcome.err;
    EXPECT_NE(outcome.out.find("Eta=22.7971"), std::string::npos);
}

TEST_F(Vanexc, TheVisualSideDrawsItsPoints) {
    const Outcome outcome = run("- --plot a.trace", "1x2\n2x5\n3x4\n");
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    const std::string trace = contents(folder / "a.trace");
    EXPECT_NE(trace.find("\nmark\n"), std::string::npos);
}

TEST_F(Vanexc, SpeaksTheLanguageThatWasNamed) {
    const std::string german = run("--language german").out;
    EXPECT_NE(german.find("Methode=rr"), std::string::npos) << german;
    EXPECT_EQ(german.find("Method=rr"), std::string::npos);
    EXPECT_EQ(german, run("--language DEUTSCH").out);
    EXPECT_EQ(run("").out, run("--language 'English (American)'").out);
}

TEST_F(Vanexc, KeepsNamesOfFilesInEveryLanguage) {
    write("my_data_nm (x).txt", "10\n20\n30\n");
    const Outcome outcome = run("'my_data_nm (x).txt' -p W --language french");
    EXPECT_NE(outcome.out.find(" = my_data_nm (x).txt"), std::string::npos) << outcome.out;
    EXPECT_NE(run("no_such_nf.txt --language french").err.find(": no_such_nf.txt"), std::string::npos);
}

TEST_F(Vanexc, AnUnknownLanguageIsAUsageErrorThatListsAll) {
    const Outcome outcome = run("--language Latin");
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.out, "");
    for (const char* name : {"Latin", "English (American)", "Français", "Basa Jawa"})
        EXPECT_NE(outcome.err.find(name), std::string::npos) << outcome.err;
}

TEST_F(Vanexc, AScriptHonoursTheLongOptionsAsWell) {
    write("a.txt", "150\n230\n310\n");
    const Outcome outcome = run("-s '[WVW [a.txt] Q]' --json j.json --report r.txt --language German");
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_EQ(outcome.out, "3\n");
    EXPECT_TRUE(Json::accept(contents(folder / "j.json")));
    EXPECT_NE(contents(folder / "r.txt").find("Analyse"), std::string::npos) << "in German";
    EXPECT_EQ(run("-s '[WVW [a.txt] Q]' --language Klingon").out, "") << "told before any work";
}

TEST_F(Vanexc, ATitleThatSwallowedTheFileDoesNotShowTheSampleInItsPlace) {
    write("b.txt", "150\n230\n310\n");
    const Outcome outcome = run("-p W -f Title b.txt");
    EXPECT_NE(outcome.status, 0);
    EXPECT_EQ(outcome.out, "");
    EXPECT_NE(outcome.err.find("Title b.txt"), std::string::npos);
    EXPECT_NE(run("-c . b.txt -p W").out.find("File = b.txt"), std::string::npos);
}

TEST_F(Vanexc, AScriptOnAFullDiskFailsWithASentence) {
    write("a.txt", "150\n230\n310\n");
    const Outcome full = run("-s '[WVW [a.txt] R /dev/full]'");
    EXPECT_EQ(full.status, 1);
    EXPECT_NE(full.err.find("Cannot Save"), std::string::npos);
}

TEST_F(Vanexc, SavesTheSessionAndComputesTheSameOfIt) {
    write("pumps.txt", "150\n230\n-400\n310x0x2_seal worn\n");
    const Outcome first = run("pumps.txt -p W -e LOGNORMAL -b M2D90 --save pumps --json first.json");
    ASSERT_EQ(first.status, 0) << first.err;
    EXPECT_EQ(first.out, "");
    EXPECT_TRUE(contents(folder / "pumps.w").starts_with("WINVANEX_DATA2-VXW[.]\r\n"));
    const Outcome second = run("pumps.w --save again.w --json second.json");
    ASSERT_EQ(second.status, 0) << second.err;
    EXPECT_EQ(contents(folder / "again.w"), contents(folder / "pumps.w"));
    const Json before = Json::parse(contents(folder / "first.json"));
    const Json after = Json::parse(contents(folder / "second.json"));
    EXPECT_EQ(after["sets"], before["sets"]);
    EXPECT_EQ(before["sets"][0]["family"], "LogNormal");
}

TEST_F(Vanexc, TheCommandLineHoldsAgainstTheOptionsOfTheFile) {
    write("pumps.txt", "150\n230\n-400\n310\n");
    ASSERT_EQ(run("pumps.txt -p W -e LOGNORMAL --save pumps.w").status, 0);
    const Outcome outcome = run("pumps.w -e WEIBULL --json -");
    ASSERT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_EQ(Json::parse(outcome.out)["sets"][0]["family"], "Weibull");
}

TEST_F(Vanexc, RefusesToSaveUnderTheExtensionOfTheOtherSide) {
    const Outcome outcome = run("-p W --save pumps.v");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_NE(outcome.err.find("'pumps.v' With File To Save Cannot"), std::string::npos) << outcome.err;
    EXPECT_FALSE(fs::exists(folder / "pumps.v"));
}

TEST_F(Vanexc, AScriptSavesADataFileByF) {
    write("pumps.txt", "150\n230\n-400\n310\n");
    ASSERT_EQ(run("-s '[WVW [pumps.txt] F pumps.w]'").status, 0);
    EXPECT_TRUE(contents(folder / "pumps.w").starts_with("WINVANEX_DATA2-VXW[.]\r\n"));
}

TEST_F(Vanexc, ASampleIsAnalysedByItsNumber) {
    const Outcome outcome = run("--sample 3 -m 3");
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_NE(outcome.out.find("3W - Nelson [1982] pp. 317 to 336"), std::string::npos);
    EXPECT_EQ(run("--sample 4 --json -").status, 0) << "grouped input, without a switch for it";
}

TEST_F(Vanexc, ASampleThatCannotBeServedIsToldAndAnalysesNoOther) {
    const Outcome refused = run("--sample 7 -p W");
    EXPECT_EQ(refused.status, 1);
    EXPECT_NE(refused.err.find("Only For X-Y Plot"), std::string::npos) << refused.err;
    EXPECT_EQ(refused.out, "");
    EXPECT_NE(run("--sample 1 -p V").err.find("Only For Life Analysis"), std::string::npos);
    for (const char* unknown : {"0", "12", "2x", "-1", "99999999999"}) {
        const Outcome outcome = run(std::string("--sample ") + unknown);
        EXPECT_EQ(outcome.status, 2) << unknown;
        EXPECT_EQ(outcome.out, "");
    }
}

TEST_F(Vanexc, AFileAndASampleTogetherAreAUsageError) {
    write("data.txt", "10\n20\n30\n");
    const Outcome outcome = run("data.txt -p W --sample 2");
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.out, "");
}

TEST_F(Vanexc, KindAndScaleOfAnXYPlotAreChosenByName) {
    const std::string data = "1x3\n2x5\n3x4\n";
    EXPECT_EQ(run("- -p V --plot points.svg --report /dev/null", data).status, 0);
    EXPECT_EQ(run("- -p V --plot pie.svg --plot-kind pie --report /dev/null", data).status, 0);
    EXPECT_EQ(run("- -p V --plot log.svg --scale loglog --plot-kind line --report /dev/null", data).status,
              0);
    EXPECT_NE(contents(folder / "pie.svg").find("41.7%"), std::string::npos);
    EXPECT_EQ(contents(folder / "points.svg").find("%"), std::string::npos);
    EXPECT_NE(contents(folder / "log.svg"), contents(folder / "points.svg"));
}

TEST_F(Vanexc, AKindOrScaleThatIsNoneListsThemAll) {
    Outcome outcome = run("- -p V --plot a.svg --plot-kind cake", "1x3\n");
    EXPECT_EQ(outcome.status, 2);
    EXPECT_NE(outcome.err.find("xy line mixed bars stacked bars3d pie pie3d space"), std::string::npos)
        << outcome.err;
    outcome = run("- -p V --plot a.svg --scale cubic", "1x3\n");
    EXPECT_EQ(outcome.status, 2);
    EXPECT_NE(outcome.err.find("linear loglog logx logy arrhenius-x arrhenius-y"), std::string::npos);
    EXPECT_EQ(run("- -p W --plot a.svg --plot-kind pie", "150\n230\n310\n").status, 2)
        << "the life side has none";
    EXPECT_FALSE(fs::exists(folder / "a.svg"));
}
