#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cmath>
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
    std::string out, err;
};

/// The console program, run in a folder of its own.
class VanexcFit : public testing::Test {
protected:
    VanexcFit() {
        std::string name = (fs::temp_directory_path() / "vanexc-fit-XXXXXX").string();
        folder = mkdtemp(name.data());
    }
    ~VanexcFit() override { fs::remove_all(folder); }

    static std::string contents(const fs::path& path) {
        std::ostringstream text;
        text << std::ifstream(path, std::ios::binary).rdbuf();
        return text.str();
    }
    Outcome run(const std::string& arguments, const std::string& data = "1x3\n2x5\n3x7\n4x9\n") {
        std::ofstream(folder / "data.txt") << data;
        const std::string command = "cd '" + folder.string() + "' && HOME='" + folder.string()
                                    + "' XDG_CONFIG_HOME= XDG_DATA_HOME= LC_ALL=C '" VANEXC "' data.txt "
                                    + arguments + " >stdout 2>stderr";
        const int status = std::system(command.c_str());
        return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, contents(folder / "stdout"),
                contents(folder / "stderr")};
    }

    /// The results of the first set of the saved file.
    Json reopened() {
        const std::string command = "cd '" + folder.string() + "' && HOME='" + folder.string()
                                    + "' XDG_CONFIG_HOME= XDG_DATA_HOME= '" VANEXC
                                      "' kept.v -p V --json - >stdout";
        EXPECT_EQ(std::system(command.c_str()), 0);
        return Json::parse(contents(folder / "stdout"))["sets"][0];
    }
    static void expectcurve(const Json& set, const Json& expected) {
        for (const char* field : {"model", "coefficients", "standardError", "r", "equation"}) {
            EXPECT_FALSE(expected[field].is_null()) << field;
            EXPECT_EQ(set[field], expected[field]) << field;
        }
    }

    fs::path folder;
};

} // namespace

TEST_F(VanexcFit, EveryNameFitsItsCurve) {
    const char* const names[] = {"linear",      "quadratic", "cubic",       "1",           "3",
                                 "exponential", "power",     "arrhenius-x", "arrhenius-y", "Linear"};
    for (const std::string name : names) {
        const Outcome outcome = run("-p V --json - --fit " + name);
        EXPECT_EQ(outcome.status, 0) << name << outcome.err;
        const Json set = Json::parse(outcome.out)["sets"][0];
        EXPECT_FALSE(set["model"].is_null()) << name;
        EXPECT_FALSE(set["equation"].is_null()) << name;
    }
}

TEST_F(VanexcFit, AWrongNameListsThemAll) {
    for (const std::string name : {"parabola", "10x", "0", "14", "''"}) {
        const Outcome outcome = run("-p V --fit " + name);
        EXPECT_EQ(outcome.status, 2) << name;
        EXPECT_NE(outcome.err.find("linear quadratic cubic 1-9 exponential power arrhenius-x arrhenius-y"),
                  std::string::npos)
            << outcome.err;
        EXPECT_EQ(outcome.out, "");
    }
}

TEST_F(VanexcFit, TheQuantityIsTheWeight) {
    const Outcome outcome = run("-p V --json - --fit linear", "1x1x3\n1x5\n2x2\n");
    const Json set = Json::parse(outcome.out)["sets"][0];
    EXPECT_NEAR(set["coefficients"][0], 2, 1e-14);
    EXPECT_NEAR(set["coefficients"][1], 0, 1e-14);
}

TEST_F(VanexcFit, ASetWithoutItsCurveIsAFailure) {
    const Outcome outcome = run("-p V --fit quadratic", "1x3\n2x5\n");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_NE(outcome.err.find(" = 0,0,0,0...!"), std::string::npos) << outcome.err;
}

TEST_F(VanexcFit, WithoutAFitTheSummaryIsASuccess) {
    const Outcome outcome = run("-p V");
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_EQ(outcome.err, "");
    EXPECT_NE(outcome.out.find("Summary Report"), std::string::npos);
}

TEST_F(VanexcFit, NoDataIsAFailureWithOrWithoutAFit) {
    EXPECT_EQ(run("-p V --fit linear", "none\n").status, 1);
    EXPECT_EQ(run("-p V", "none\n").status, 1);
}

TEST_F(VanexcFit, CurvesBelongToTheVisualSide) {
    const Outcome outcome = run("-p W --fit linear");
    EXPECT_EQ(outcome.status, 2);
    EXPECT_NE(outcome.err.find("-p V"), std::string::npos) << outcome.err;
}

TEST_F(VanexcFit, ASavedFileKeepsItsKindAndGivesTheSameCurve) {
    const Outcome first = run("-p V --fit quadratic --json - --save kept.v", "1x1\n2x4.5\n3x8\n4x17\n5x24\n");
    ASSERT_EQ(first.status, 0) << first.err;
    EXPECT_NE(contents(folder / "kept.v").find("SOLCOEF"), std::string::npos);
    const Json before = Json::parse(first.out)["sets"][0];
    EXPECT_EQ(before["model"], "quadratic");
    expectcurve(reopened(), before);
}

TEST_F(VanexcFit, ASavedFileKeepsFilledValuesApartFromMeasuredOnes) {
    std::ofstream(folder / "run.opt") << "FITFILL\n";
    const Outcome first =
        run("-p V --fit linear -a run.opt --json - --save kept.v", "1x2\n2x1\n3\n4x5\n5x4\n6_a\n");
    ASSERT_EQ(first.status, 0) << first.err;
    const Json before = Json::parse(first.out)["sets"][0];
    EXPECT_NEAR(before["standardError"], std::sqrt(1.8), 1e-12);
    const Json after = reopened();
    expectcurve(after, before);
    EXPECT_NEAR(after["points"][5]["y"], 5.4, 1e-6); // .6 + .8 * 6
}

TEST_F(VanexcFit, AWrongSettingOfAnOptionFileIsToldAsWrongUse) {
    std::ofstream(folder / "run.opt") << "FIT=foo\n";
    const Outcome outcome = run("-p V -a run.opt");
    EXPECT_EQ(outcome.status, 2);
    EXPECT_NE(outcome.err.find("Unknown: FIT=foo"), std::string::npos) << outcome.err;
}
