#include "session/script.h"

#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <fstream>
#include <optional>
#include <sstream>

#include "platform/files.h"
#include "session/findfile.h"
#include "session/opendata.h"
#include "session/scriptoutput.h"
#include "session/scriptrequest.h"
#include "session/session.h"
#include "session/siblings.h"
#include "shell/calcplot.h"
#include "shell/grid.h"
#include "support/freshsession.h"
#include "support/scriptedplatform.h"

namespace {

namespace fs = std::filesystem;

/// Two sets on file, and a folder for what a script writes.
class Script : public testing::Test {
protected:
    Script() {
        std::string name = (fs::temp_directory_path() / "script-XXXXXX").string();
        folder = mkdtemp(name.data());
        session.noPrompt = 1;
        write("one.txt", "150\n230\n-400\n310\n");
        write("two.txt", "20\n30\n40\n");
        write("empty.txt", "\n\n");
    }
    ~Script() override { fs::remove_all(folder); }

    void write(const std::string& name, const std::string& text) const {
        std::ofstream(folder / name, std::ios::binary) << text;
    }
    std::optional<std::string> written(const std::string& name) const {
        return readfile((folder / name).string());
    }
    std::string path(const std::string& name) const { return (folder / name).string(); }

    bool run(const std::string& request) {
        session.scriptRequest = request;
        return scriptrun();
    }
    /// Runs a request that must fail, and what it told.
    std::string fault(const std::string& request) {
        desktop.expectmessage("KXQM err:");
        EXPECT_FALSE(run(request));
        EXPECT_EQ(desktop.clipboardText.value_or(""), desktop.shown.back().text + "\n");
        return desktop.shown.back().text;
    }

    FreshSession fresh{lifeSide};
    ScriptedPlatform desktop;
    fs::path folder;
};

TEST_F(Script, WritesEachOutputToItsFile) {
    ASSERT_TRUE(run("[WVW [" + path("one.txt") + "] A " + path("a.txt") + " R " + path("r.txt") + " E "
                    + path("e.txt") + " D " + path("d.txt") + " P " + path("p.svg") + " Q " + path("q.txt")
                    + "]"));
    EXPECT_NE(written("a.txt")->find("Analysis Report"), std::string::npos);
    EXPECT_NE(written("r.txt")->find("Eta=314.887"), std::string::npos) << *written("r.txt");
    EXPECT_TRUE(written("e.txt")->starts_with("Set 1: F(x) = 1 - exp(-(x / 314.887"));
    EXPECT_EQ(*written("d.txt"), "150\n230\n-400\n310\n");
    EXPECT_NE(written("p.svg")->find("<svg"), std::string::npos);
    EXPECT_EQ(*written("q.txt"), "4\n");
    EXPECT_EQ(desktop.clipboardText, std::nullopt);
}

TEST_F(Script, WithoutAFileAnOutputGoesToTheClipboard) {
    ASSERT_TRUE(run("[WVW [" + path("one.txt") + "] D]"));
    EXPECT_EQ(desktop.clipboardText, "150\n230\n-400\n310\n");
    ASSERT_TRUE(run("[WVW [" + path("one.txt") + "] P]"));
    EXPECT_NE(desktop.clipboardPicture->find("<svg"), std::string::npos);
    EXPECT_EQ(desktop.clipboardText, "150\n230\n-400\n310\n") << "a picture is no text";
}

TEST_F(Script, ReportsGoToTheClipboardByCAndTheSessionToAFileByF) {
    ASSERT_TRUE(run("[WVW [" + path("one.txt") + "] C]"));
    EXPECT_NE(desktop.clipboardText->find("Analysis Report"), std::string::npos);
    ASSERT_TRUE(run("[WVW [" + path("one.txt") + "] F " + path("f.txt") + "]"));
    EXPECT_TRUE(written("f.txt")->starts_with("WINVANEX_DATA2-VXW[.]\r\n"));
    EXPECT_NE(fault("[WVW [" + path("one.txt") + "] F]").find("Check command line."), std::string::npos);
}

TEST_F(Script, ABitmapIsThePlatformsMatter) {
    ASSERT_TRUE(run("[WVW [" + path("one.txt") + "] B c:\\x.bmp]"));
    EXPECT_EQ(desktop.bitmaps, std::vector<std::string>{"c:\\x.bmp"});
}

TEST_F(Script, SettingsAreSwitchesAndOptionsByName) {
    ASSERT_TRUE(run("[WVW {-m 3 -e LOGNORMAL popPortion=.5, rankMethod=3} [" + path("one.txt") + "] R]"));
    EXPECT_EQ(session.fitMethodSaved, maximumLikelihood);
    EXPECT_EQ(session.dist, lognormal);
    EXPECT_EQ(session.popPortion, .5f);
    EXPECT_EQ(session.rankMethod, hazenRank);
    EXPECT_NE(fault("[WVW {popPortion=7} [" + path("one.txt") + "] R]").find("Unknown: popPortion=7"),
              std::string::npos);
}

TEST_F(Script, TheMethodCodesChooseTheBounds) {
    const struct {
        const char* code;
        int method;
    } cases[] = {{"BN", 0}, {"BV", -2}, {"BI", 1}, {"FM", 2}, {"LR", 3}, {"MC", 4}, {"PV", 5}, {"NC", 6}};
    for (const auto& item : cases) {
        session.confLow = session.confHigh = 0;
        EXPECT_TRUE(run(std::string("[WVW ") + item.code + " [" + path("two.txt") + "] R]")) << item.code;
        EXPECT_EQ(session.confMethod, item.method) << item.code;
        EXPECT_EQ(session.confLow, item.method == 0 ? 0 : 5) << item.code;
        EXPECT_EQ(session.confHigh, item.method == 0 ? 0 : 95) << item.code;
    }
}

TEST_F(Script, SeveralInputsAreSeveralSets) {
    ASSERT_TRUE(run("[WVW [" + path("one.txt") + "] [" + path("two.txt") + "] R " + path("r.txt") + "]"));
    EXPECT_EQ(setcount(), 2);
    EXPECT_NE(written("r.txt")->find("Set 2: Eta="), std::string::npos);
}

TEST_F(Script, AFileWithoutDataGivesWayToTheClipboard) {
    desktop.clipboardText = "20\n30\n40\n";
    ASSERT_TRUE(run("[WVW [" + path("empty.txt") + "] Q " + path("q.txt") + "]"));
    EXPECT_EQ(*written("q.txt"), "3\n");
    ASSERT_TRUE(run("[WVW [CLIPBOARD] Q " + path("q2.txt") + "]"));
    EXPECT_EQ(*written("q2.txt"), "3\n");
}

TEST_F(Script, FaultsTellWhereToLook) {
    const std::string text = fault("[WVW [" + path("none.txt") + "] R]");
    EXPECT_EQ(text, "KXQM err: Cannot Open File: " + path("none.txt") + "\nCheck file/path name.");
    EXPECT_NE(fault("[WVW X]").find("Unknown: X\nCheck command line."), std::string::npos);
    EXPECT_NE(fault("[WVW [" + path("one.txt") + "] R " + path("no/such/r.txt") + "]")
                  .find("Check file/path name."),
              std::string::npos);
    EXPECT_NE(fault("[WVW [" + path("one.txt") + "] P " + path("p.xyz") + "]").find("Cannot Plot"),
              std::string::npos);
}

TEST_F(Script, WithoutAResultThereIsNoPlot) {
    write("single.txt", "150\n");
    EXPECT_NE(fault("[WVW [" + path("single.txt") + "] P]").find("KXQM err: No Plot."), std::string::npos);
}

TEST_F(Script, AnExchangedInputIsDeletedWhenTheRequestEndsInD) {
    write("x.tmp", "20\n30\n40\n");
    ASSERT_TRUE(run("[WVW [" + path("x.tmp") + "] R " + path("r.txt") + " D]"));
    EXPECT_EQ(desktop.machine.removed, std::vector<std::string>{path("x.tmp")});
    ASSERT_TRUE(run("[WVW [" + path("one.txt") + "] R " + path("r.txt") + " D]"));
    EXPECT_EQ(desktop.machine.removed.size(), 1u) << "a file of the user's stays";
    EXPECT_EQ(desktop.clipboardText, "150\n230\n-400\n310\n") << "D is its data";
}

TEST_F(Script, TheClipboardHelperIsStartedWhereItIsAskedFor) {
    session.programPath = "c:\\prog\\";
    desktop.machine.present = {"c:\\prog\\clipbrd.exe"};
    ASSERT_TRUE(run("[WVW [" + path("one.txt") + "] R C]"));
    ASSERT_EQ(desktop.machine.started.size(), 1u);
    EXPECT_EQ(desktop.machine.started[0].program, "c:\\prog\\clipbrd.exe");
}

TEST_F(Script, SingleValuesOfTheLifeSideFollowTheLine) {
    write("exp.txt", "100\n200\n300\n");
    session.cmdX = {0, 50};
    ASSERT_TRUE(run("[WVW {-e EXPONENTIAL} [" + path("exp.txt") + "] R]"));
    const double eta = session.etaFit(3, 1);
    EXPECT_NEAR(std::stod(*outputtext("MTBF")), eta, 1e-5 * eta)
        << "the mean of an exponential line is its eta";
    std::istringstream survival(*outputtext("SURV")), rate(*outputtext("RATE"));
    double at0 = 0, at50 = 0;
    survival >> at0 >> at50;
    EXPECT_NEAR(at50, std::exp(-50 / eta), 1e-6);
    rate >> at0 >> at50;
    EXPECT_NEAR(at50, 1 / eta, 1e-5 / eta) << "and its failure rate is constant";
}

TEST_F(Script, SurvivalAndRateKeepTheirDigitsFarInTheTail) {
    session.cmdX = {1000};
    ASSERT_TRUE(run("[WVW {-e NORMAL} [" + path("two.txt") + "] R]"));
    const double z = (1000 - session.etaFit(3, 1)) / session.betaFit(3, 1);
    // Mills' ratio: far out the rate is z / sigma times 1 + 1/z^2.
    EXPECT_NEAR(std::stod(*outputtext("RATE")) * session.betaFit(3, 1) / z, 1 + 1 / (z * z), 1e-5);
    session.cmdX = {150};
    ASSERT_TRUE(run("[WVW {-e WEIBULL} [" + path("two.txt") + "] R]"));
    const double eta = session.etaFit(3, 1), beta = session.betaFit(3, 1);
    const double power = std::pow(150 / eta, beta);
    EXPECT_GT(power, 50) << "beyond the digits of 1 - F";
    EXPECT_NEAR(std::stod(*outputtext("RATE")) / (beta / 150 * power), 1, 1e-5);
    EXPECT_NEAR(std::log(std::stod(*outputtext("SURV"))) / power, -1, 1e-5);
}

TEST_F(Script, SwitchesThatComeTooLateAndStrayWordsAreFaults) {
    for (const char* settings : {"-p V", "-r 1_5000", "nonsense", "-x 20 30", "-m 9", "-n 1"})
        EXPECT_NE(fault("[WVW {" + std::string(settings) + "} [" + path("one.txt") + "] R]")
                      .find("Check command line."),
                  std::string::npos)
            << settings;
}

TEST_F(Script, NamesInFaultsStandAsTheyWereTyped) {
    EXPECT_EQ(fault("[WVW [no_file here.txt] R]"),
              "KXQM err: Cannot Open File: no_file here.txt\nCheck file/path name.");
}

TEST_F(Script, EveryCommandWordHasAnOutput) {
    ASSERT_TRUE(run("[WVW [" + path("one.txt") + "] Q]"));
    for (const char* word :
         {"A", "C", "D", "E", "R", "Q", "P", "I", "MTBF", "RATE", "SURV", "EXPR", "AVAL"}) {
        const auto request = requestof(std::string("[WVW ") + word + "]");
        ASSERT_TRUE(request && request->commands.size() == 1) << word;
        EXPECT_TRUE(outputtext(word).has_value()) << word;
    }
}

TEST_F(Script, AScriptFileWithoutInputsIsAFault) {
    write("job.txt", "WV-SCRIPT\nBVALUEIN%=10\n");
    EXPECT_NE(fault("[@" + path("job.txt") + "]").find("No File Name"), std::string::npos);
}

TEST_F(Script, AValueThatDoesNotExistIsTheMarkOfNoValue) {
    ASSERT_TRUE(run("[WVW [" + path("one.txt") + "] Q]"));
    EXPECT_EQ(outputtext("EXPR"), "-9.123E+32\n") << "a matter of growth analysis, not of this version";
    EXPECT_EQ(outputtext("AVAL"), "-9.123E+32\n");
    EXPECT_EQ(outputtext("SURV"), "-9.123E+32\n") << "no X was given";
    chooseside(visualSide);
    ASSERT_TRUE(allocatearrays());
    ASSERT_TRUE(run("[VXV [" + path("one.txt") + "] Q]"));
    for (const char* word : {"MTBF", "RATE", "SURV", "EXPR", "AVAL", "E"})
        EXPECT_EQ(outputtext(word), "-9.123E+32\n") << word;
    EXPECT_EQ(outputtext("Q"), "4\n");
}

TEST_F(Script, AScriptFileAsksForBLivesOfEachInput) {
    write("job.txt", "WV-SCRIPT\nFILE=" + path("one.txt") + "\nFILE=" + path("two.txt")
                         + "\nBVALUEIN%=10\n2:63.212\n" + "BVALUEOUTFILE=" + path("b.txt") + "\n");
    ASSERT_TRUE(run("[@" + path("job.txt") + "]"));
    std::istringstream lines(*written("b.txt"));
    std::string b10, b63;
    std::getline(lines, b10);
    std::getline(lines, b63);
    EXPECT_TRUE(b10.starts_with("B10=")) << b10;
    EXPECT_TRUE(b63.starts_with("B63.212=314.887")) << "eta of the first input";
}

TEST_F(Script, TheRiskForecastAnswersNoValueUntilItExists) {
    write("job.txt", "WV-SCRIPT\nFILE=" + path("one.txt")
                         + "\nRISKINUSAGE=100\nRISKNEXTOUTFILE=" + path("r.txt") + "\n");
    ASSERT_TRUE(run("[@" + path("job.txt") + "]"));
    EXPECT_EQ(*written("r.txt"), "-9.123E+32\n");
}

TEST_F(Script, DataAsTextComeBackAsTheyWere) {
    session.gridCells = {{"150", "-230_first unit, 3 mm", "310x0x2_b; c"}};
    const auto before = session.gridCells;
    write("back.txt", dataastext());
    ASSERT_EQ(opendata(path("back.txt")), DataRead::read);
    EXPECT_EQ(session.gridCells, before);
    session.gridCells = {{"1", "2", "3"}, {"4", "5"}, {"", "7 _x"}};
    write("back.txt", dataastext());
    ASSERT_EQ(opendata(path("back.txt")), DataRead::read);
    EXPECT_EQ(session.gridCells[0], (std::vector<std::string>{"1", "2", "3"}));
    EXPECT_EQ(session.gridCells[1], (std::vector<std::string>{"4", "5"}));
    EXPECT_EQ(session.gridCells[2], (std::vector<std::string>{"", "7 _x"}));
}

TEST_F(Script, ANameWithoutAFolderIsLookedForInTheDataFolder) {
    session.dataPath = folder.string() + "/";
    EXPECT_EQ(opendata("two.txt"), DataRead::read);
    EXPECT_EQ(opendata("none.txt"), DataRead::unreadable);
    EXPECT_EQ(opendata("empty.txt"), DataRead::empty);
    EXPECT_EQ(session.gridCells[0].size(), 3u) << "what cannot be read changes nothing";
}

TEST_F(Script, SiblingsAreStartedByTheirOwnNamesOrTheNativeOnes) {
    session.programPath = "c:\\prog\\";
    session.tempPath = "c:\\tmp\\";
    EXPECT_EQ(programof("VANEXW.EXE"), "c:\\prog\\vanexw");
    EXPECT_EQ(programof("vanexHLP.exe"), "c:\\prog\\vanexhlp");
    EXPECT_FALSE(spawn("VANEXDICE.EXE", {}));
    desktop.machine.present = {"c:\\prog\\VANEXW.EXE"};
    const std::string arguments[] = {"a.w"};
    EXPECT_TRUE(spawn("VANEXW.EXE", arguments));
    EXPECT_EQ(desktop.machine.started.back().program, "c:\\prog\\VANEXW.EXE");
    EXPECT_EQ(desktop.machine.started.back().arguments, (std::vector<std::string>{"a.w", "-t", "c:\\tmp\\"}));
}

TEST_F(Script, TheOtherSideGetsTheDataInAFileThatItDeletes) {
    session.programPath = "c:\\prog\\";
    session.tempPath = folder.string() + "/";
    session.tempBase = "VX1";
    session.gridCells = {{"1", "2"}};
    calcplot();
    desktop.machine.present = {"c:\\prog\\vanexv"};
    ASSERT_TRUE(sidestart('V', "P"));
    EXPECT_TRUE(written("VX1-x.tmp")->starts_with("WINVANEX_DATA2-VXW[.]\r\n"));
    EXPECT_NE(written("VX1-x.tmp")->find("\r\n1 0 1 0\r\n2 0 1 0\r\n"), std::string::npos);
    EXPECT_EQ(desktop.machine.started[0].arguments[0], "-s");
    EXPECT_EQ(desktop.machine.started[0].arguments[1], "[VXV [" + path("VX1-x.tmp") + "] P D]");
    desktop.machine.present.clear();
    desktop.expectmessage("VANEXV.EXE");
    EXPECT_FALSE(sidestart('V', "P"));
    EXPECT_FALSE(sidestart('Q', "P"));
}

TEST_F(Script, NoPlotIsDrawnWhereNoneIsWanted) {
    session.cmdPlot = 0;
    ASSERT_TRUE(run("[WVW [" + path("one.txt") + "] P " + path("p.svg") + "]"));
    EXPECT_EQ(written("p.svg"), std::nullopt);
}

} // namespace
