#include "session/startup.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "expression/rules.h"
#include "platform/paths.h"
#include "session/findfile.h"
#include "session/optionfile.h"
#include "session/session.h"
#include "session/settings.h"
#include "shell/words.h"
#include "support/scriptedplatform.h"

namespace {

namespace fs = std::filesystem;

/// A machine whose config and temp folders are real ones of the test.
class Startup : public testing::Test {
protected:
    Startup() {
        std::string name = (fs::temp_directory_path() / "start-XXXXXX").string();
        folder = mkdtemp(name.data());
        session = Session{};
        own = ownpath(folder.string()) + "\\";
        desktop.machine.folders = {own};
        desktop.machine.present = {"c:\\prog\\vanex.exe"};
    }
    ~Startup() override {
        fs::remove_all(folder);
        session = Session{};
        wordload();
    }
    StartEnd start(std::vector<std::string> words, const char* name = "vanex", bool windowed = false) {
        session = Session{};
        session.noPrompt = 1;
        words.insert(words.end(), {"-c", folder.string(), "-t", folder.string()});
        return startup(words, name, windowed);
    }
    void write(const std::string& name, const std::string& text) const {
        std::ofstream(folder / name, std::ios::binary) << text;
    }
    std::string settingsfile() const {
        std::ostringstream text;
        text << std::ifstream(folder / "VANEX.INI", std::ios::binary).rdbuf();
        return text.str();
    }

    ScriptedPlatform desktop;
    fs::path folder;
    std::string own;
};

TEST_F(Startup, ABareStartIsTheVisualSideWithEmptyArrays) {
    EXPECT_EQ(start({}), StartEnd::ready);
    EXPECT_EQ(session.progSide, visualSide);
    EXPECT_EQ(session.maxPoints, 500);
    EXPECT_EQ(session.configPath, own);
    EXPECT_EQ(session.tempPath, own);
    EXPECT_EQ(session.startDir, "c:\\work\\");
    EXPECT_EQ(session.dataPath, "c:\\vanex\\");
}

TEST_F(Startup, LendsThePlottingPositionToTheTypedFunctions) {
    rankPosition = nullptr;
    start({});
    EXPECT_EQ(modrule(modRankPosition)(3, 10), (3 - 0.3) / (10 + 0.4)); // Benard's, the standard one
}

TEST_F(Startup, TheNameOfTheProgramChoosesTheSideAndPWins) {
    start({}, "/usr/bin/vanexw");
    EXPECT_EQ(session.progSide, lifeSide);
    start({}, "VANEXV.EXE");
    EXPECT_EQ(session.progSide, visualSide);
    start({"-p", "V"}, "vanexw");
    EXPECT_EQ(session.progSide, visualSide);
    start({"-p", "life"}, "vanexv");
    EXPECT_EQ(session.progSide, lifeSide);
}

TEST_F(Startup, TheCommandLineWinsOverTheSettings) {
    start({});
    session.dist = lognormal;
    session.rankMethod = hazenRank;
    ASSERT_TRUE(settingswrite());
    EXPECT_EQ(start({"-e", "NORMAL"}), StartEnd::ready);
    EXPECT_EQ(session.dist, normal);
    EXPECT_EQ(session.rankMethod, hazenRank);
}

TEST_F(Startup, OnlyAWindowWritesTheSettingsAndOnlyTheFirstTime) {
    start({});
    EXPECT_FALSE(fs::exists(folder / "VANEX.INI")) << "a run without a window leaves nothing behind";
    EXPECT_EQ(start({}, "vanex", true), StartEnd::startWindow);
    ASSERT_TRUE(fs::exists(folder / "VANEX.INI"));
    const std::string first = settingsfile() + " ";
    write("VANEX.INI", first);
    start({}, "vanex", true);
    EXPECT_EQ(settingsfile(), first) << "marked as written, it stays";
}

TEST_F(Startup, TheStartWindowCanBeSkipped) {
    start({}, "vanex", true);
    session.skipStartScreen = 1;
    ASSERT_TRUE(settingswrite());
    EXPECT_EQ(start({}, "vanex", true), StartEnd::mainWindow);
}

TEST_F(Startup, AWishForMoreRoomRaisesTheExponent) {
    start({"-r", "8_2000"}, "vanexw");
    EXPECT_GE(session.maxPoints, 2000);
    start({"-r", "1_10"}, "vanexw");
    EXPECT_EQ(session.maxPoints, 1500);
}

TEST_F(Startup, SixHundredPointsOrMoreAreWorthAWord) {
    const auto waited = [&] {
        const auto& calls = desktop.windowCalls;
        return std::find(calls.begin(), calls.end(),
                         "caption: Making Extra Large Array Dimensions - Please Wait ...")
               != calls.end();
    };
    start({});
    EXPECT_FALSE(waited()) << "500 points";
    start({"-r", "24_501"});
    EXPECT_TRUE(waited()) << "1000 points";
}

TEST_F(Startup, AWrongSwitchEndsTheStart) {
    EXPECT_EQ(start({"-n"}), StartEnd::wrongUse);
    EXPECT_EQ(session.msg, "-n: Undefined sequence 1");
}

TEST_F(Startup, AScriptRunsAndTheSettingsStayByteForByte) {
    write("VANEX.INI", "OMNIVANEX: WVW=ON\nNEWPARAM\n1\n2\nodd tail");
    write("a.txt", "150\n230\n310\n");
    const std::string before = settingsfile();
    EXPECT_EQ(
        start({"-s", "[WVW [" + (folder / "a.txt").string() + "] R " + (folder / "r.txt").string() + "]"},
              "vanex", true),
        StartEnd::exit);
    EXPECT_EQ(session.progSide, lifeSide) << "the tag chooses the side";
    EXPECT_EQ(session.dist, lognormal) << "the settings hold";
    EXPECT_TRUE(fs::exists(folder / "r.txt"));
    EXPECT_EQ(settingsfile(), before);
}

TEST_F(Startup, AFailedScriptEndsAsOne) {
    desktop.expectmessage("KXQM err:");
    EXPECT_EQ(start({"-s", "[WVW [none.txt] R]"}), StartEnd::failed);
}

TEST_F(Startup, TheWindowOpensAfterAScriptThatWantsIt) {
    write("a.txt", "150\n230\n310\n");
    EXPECT_EQ(start({"-h", "1", "-s", "[WVW [" + (folder / "a.txt").string() + "] Q]"}, "vanex", true),
              StartEnd::mainWindow);
    EXPECT_EQ(session.scriptRequest, "");
}

TEST_F(Startup, ASecondPassChangesTheLanguageAndNothingElse) {
    start({});
    const std::string base = session.tempBase;
    session.languageFile = "VXLNGDEU.TXT";
    session.X(1, 1) = 7;
    startup({}, "vanex", false);
    EXPECT_EQ(word(Word::Not), "Nicht") << "German words";
    EXPECT_EQ(session.tempBase, base);
    EXPECT_EQ(session.X(1, 1), 7) << "the arrays stand";
}

TEST_F(Startup, AFolderThatCannotBeUsedIsNoted) {
    session = Session{};
    desktop.machine.variables["TEMP"] = own;
    const std::string words[] = {"-c", "c:\\readonly"};
    startup(words, "vanex", false);
    ASSERT_EQ(session.cmdNotes.size(), 1u);
    EXPECT_EQ(session.cmdNotes[0], "Cannot Save: -c c:\\readonly");
}

TEST_F(Startup, WithoutMemoryTheProgramCannotGoOn) {
    memorygranted = [](std::size_t) { return false; };
    desktop.expectmessage("Not Enough Free Memory");
    desktop.expectmessage("Not Enough Free Memory");
    EXPECT_EQ(start({}), StartEnd::noMemory);
    memorygranted = nullptr;
}

TEST_F(Startup, TheEndRestoresTheFolderAndClearsUp) {
    start({});
    session.lastFile = "c:\\vanex\\a.w";
    desktop.machine.present.insert(temppath("-1.tmp"));
    desktop.machine.current = "c:\\elsewhere\\";
    shutdown();
    EXPECT_EQ(desktop.machine.current, "c:\\work\\");
    EXPECT_FALSE(desktop.machine.present.contains(temppath("-1.tmp")));
    EXPECT_EQ(settingget("PATH", 5).text, "");
}

TEST_F(Startup, TheWelcomeIsShownTwice) {
    start({}, "vanex", true);
    desktop.expectmessage(" WELCOME! Some Ways To Start:");
    welcome();
    EXPECT_EQ(desktop.shown.back().text.find("Not Be Shown Again"), std::string::npos);
    desktop.expectmessage("This Message Will Not Be Shown Again");
    welcome();
    welcome();
    EXPECT_EQ(session.firstRunStage, 2);
}

TEST_F(Startup, WhatHoldsForOneRunIsNotWrittenIntoTheSettings) {
    start({}, "vanex", true);
    session.mtbfName = "MTTF";
    session.rankMethod = hazenRank;
    ASSERT_TRUE(settingswrite());
    write("opt.txt", "OPTREPL\nA Other\nRISK\nA 7\nLIBRARY\nA Title\n");
    start({"-a", (folder / "opt.txt").string(), "-e", "NORMAL", "-b", "M2D90", "-r", "24_5000"}, "vanex",
          true);
    EXPECT_EQ(session.mtbfName, "Other");
    session.rankMethod = blomRank; // by the user
    ASSERT_TRUE(settingswrite());
    start({});
    EXPECT_EQ(session.mtbfName, "MTTF");
    EXPECT_EQ(session.dist, weibull);
    EXPECT_EQ(session.confMethod, noBounds);
    EXPECT_EQ(session.sizeExponent, 1);
    EXPECT_TRUE(session.riskUsageRate.empty());
    EXPECT_TRUE(session.libraryTitles.empty());
    EXPECT_EQ(session.rankMethod, blomRank) << "what the user changed is";
}

TEST_F(Startup, TheMainWindowOpensWithTheFileOfTheCommandLine) {
    write("a.txt", "150\n230\n310\n");
    start({(folder / "a.txt").string(), "-p", "W"}, "vanex", true);
    session.firstRunStage = 2;
    openmain();
    EXPECT_EQ(session.setFitted(1), 1);
    start({"none.txt", "-p", "W"}, "vanex", true);
    session.firstRunStage = 2;
    desktop.expectmessage("Cannot Open File: ");
    openmain();
}

TEST_F(Startup, ATitleFromTheCommandLineStandsOnThePlot) {
    write("a.txt", "150\n230\n310\n");
    start({(folder / "a.txt").string(), "-p", "W", "-f", "My title"}, "vanex", true);
    session.firstRunStage = 2;
    openmain();
    EXPECT_EQ(session.plotTitle, "My title");
}

TEST_F(Startup, ADataFolderIsFoundWithOrWithoutItsClosingSlash) {
    write("only.txt", "150\n230\n310\n");
    desktop.machine.folders.insert(folder.string() + "\\");
    start({"only.txt", "-p", "W", "-d", folder.string()}, "vanex", true);
    EXPECT_TRUE(session.cmdNotes.empty());
    session.firstRunStage = 2;
    openmain();
    EXPECT_EQ(session.setFitted(1), 1);
    start({"-d", "/no/such/folder"});
    EXPECT_EQ(session.cmdNotes, std::vector<std::string>{"Cannot Open: -d /no/such/folder"});
}

TEST_F(Startup, AnOptionFileReplacesSettingsForOneRun) {
    write("opt.txt",
          "KEY\nA 123\nOPTREPL\nA MTTF\nE x\nF My plot\nRISK\nA 100\nB 110\nM 5\nZ 1\nLIBRARY\nC Third\n");
    EXPECT_EQ(start({"-a", (folder / "opt.txt").string()}), StartEnd::ready);
    EXPECT_EQ(session.mtbfName, "MTTF");
    EXPECT_EQ(session.exportDecimal, ".");
    EXPECT_EQ(session.titleWanted, "My plot");
    EXPECT_EQ(session.riskUsageRate, (std::vector<float>{100, 110}));
    EXPECT_EQ(session.riskProdRate, (std::vector<float>{5}));
    EXPECT_EQ(session.libraryTitles, (std::vector<std::string>{"", "", "Third"}));
    start({"-a", "none.txt"});
    EXPECT_EQ(session.cmdNotes, std::vector<std::string>{"Cannot Open: none.txt"});
}

} // namespace
