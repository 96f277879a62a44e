#include "session/findpaths.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "session/session.h"
#include "support/freshsession.h"
#include "support/scriptedplatform.h"

namespace {

class Findpaths : public testing::Test {
protected:
    FreshSession fresh{visualSide};
    ScriptedPlatform desktop;
    FakeSystem& machine = desktop.machine;
};

TEST_F(Findpaths, TheCommandLineWinsWhereItsFoldersCanBeUsed) {
    machine.folders = {"c:\\cfg\\", "c:\\tmp\\", "c:\\prog2\\"};
    findpaths("a.w -c c:/cfg -t 'c:\\tmp' -p c:\\prog2");
    EXPECT_EQ(session.configPath, "c:\\cfg\\");
    EXPECT_EQ(session.tempPath, "c:\\tmp\\");
    EXPECT_EQ(session.programPath, "c:\\prog2\\");
}

TEST_F(Findpaths, TheFolderTestsUseFilesOfTheirOwnNames) {
    machine.folders = {"c:\\cfg\\", "c:\\tmp\\"};
    findpaths("-c c:\\cfg -t c:\\tmp");
    EXPECT_EQ(machine.tested[0], "c:\\cfg\\VX-Test.TXT");
    EXPECT_EQ(machine.tested[1], "c:\\tmp\\VXTempTestFile2011.txt");
}

TEST_F(Findpaths, AnUnusableFolderGivesWayToTheNextCandidate) {
    machine.variables = {{"APPDATA", "c:\\users\\ann"}, {"TEMP", "c:\\t1"}, {"TMP", "c:\\t2"}};
    machine.folders = {"c:\\users\\ann\\", "c:\\t2\\"};
    findpaths("-c c:\\readonly -t c:\\readonly");
    EXPECT_EQ(session.configPath, "c:\\users\\ann\\");
    EXPECT_EQ(session.tempPath, "c:\\t2\\");
}

TEST_F(Findpaths, TheProgramsOwnFolderInTheSettingsComesFirst) {
    machine.variables = {{"APPDATA", "c:\\users\\ann"}, {"TEMP", "c:\\t1"}};
    machine.folders = {"c:\\users\\ann\\", "c:\\users\\ann\\OmniVANEX\\", "c:\\t1\\"};
    findpaths("");
    EXPECT_EQ(session.configPath, "c:\\users\\ann\\OmniVANEX\\");
    EXPECT_EQ(session.tempPath, "c:\\t1\\");
}

TEST_F(Findpaths, NamesOfTheEnvironmentBetweenPercentSignsAreResolved) {
    machine.variables = {{"WORK", "c:\\work"}, {"TEMP", "c:\\t1"}};
    machine.folders = {"c:\\work\\cfg\\", "c:\\t1\\"};
    findpaths("-c %WORK%/cfg");
    EXPECT_EQ(session.configPath, "c:\\work\\cfg\\");
    EXPECT_EQ(pathusable("%NONE%\\x", "t"), std::nullopt);
}

TEST_F(Findpaths, WithoutAnyVariableTheProgramFolderServesForAll) {
    machine.present = {"c:\\prog\\vanex.exe"};
    machine.folders = {"c:\\prog\\"};
    findpaths("");
    EXPECT_EQ(session.programPath, "c:\\prog\\");
    EXPECT_EQ(session.configPath, "c:\\prog\\");
    EXPECT_EQ(session.tempPath, "c:\\prog\\");
}

TEST_F(Findpaths, AProgramFolderWithoutTheProgramGivesWayToTheCurrentOne) {
    machine.program = "c:\\odd\\other.exe";
    machine.present = {"c:\\odd\\other.exe"};
    machine.folders = {"c:\\work\\", "c:\\t1\\"};
    findpaths("-t c:\\t1");
    EXPECT_EQ(session.programPath, "c:\\work\\");
    for (const char* name : {"VANEXW.EXE", "vanex1.ex.", "vanexc"}) {
        machine.present = {std::string("c:\\odd\\") + name};
        findpaths("-t c:\\t1");
        EXPECT_EQ(session.programPath, "c:\\odd\\") << name;
    }
}

TEST_F(Findpaths, TheDocumentsServeForTemporaryFilesAtTheLast) {
    machine.variables = {{"HOMEDRIVE", "c:"}, {"HOMEPATH", "\\users\\ann"}};
    machine.folders = {"c:\\users\\ann\\MYDOCU~1\\"};
    findpaths("");
    EXPECT_EQ(session.tempPath, "c:\\users\\ann\\MYDOCU~1\\");
}

TEST_F(Findpaths, TheUserIsAskedUntilAFolderServes) {
    machine.folders = {"c:\\mine\\"};
    desktop.expecttext("VANEX needs a path for temporary files but cannot use the system temporary paths.  "
                       "Please enter a directory",
                       "c:\\readonly");
    desktop.expecttext("Please enter a directory", "c:\\mine");
    findpaths("");
    EXPECT_EQ(session.tempPath, "c:\\mine\\");
}

TEST_F(Findpaths, AnEmptyAnswerGivesUp) {
    desktop.expecttext("Please enter a directory", "");
    findpaths("");
    EXPECT_EQ(session.tempPath, "");
}

TEST_F(Findpaths, ALetterBehindPChoosesTheSideAndNoFolder) {
    machine.folders = {"V\\", "c:\\prog\\"};
    machine.present = {"c:\\prog\\vanex.exe"};
    findpaths("-p V");
    EXPECT_EQ(session.programPath, "c:\\prog\\");
}

TEST_F(Findpaths, ThePathFileFillsWhatIsStillEmpty) {
    namespace fs = std::filesystem;
    std::string name = (fs::temp_directory_path() / "find-XXXXXX").string();
    const fs::path folder = mkdtemp(name.data());
    std::ofstream(folder / "VXPaths.txt") << "' folders of the line\r\n"
                                             "p c:\\prog3 ' the program\r\n"
                                             "t\tc:\\temp3\r\n"
                                             "x c:\\nothing\r\n"
                                             "tc:\\nothing\r\n";
    const std::string config = ownpath(folder.string()) + "\\";
    machine.folders = {config, "c:\\prog3\\", "c:\\temp3\\", "c:\\t1\\"};
    findpaths("-c " + config);
    EXPECT_EQ(session.programPath, "c:\\prog3\\");
    EXPECT_EQ(session.tempPath, "c:\\temp3\\");
    findpaths("-t c:\\t1 -c " + config);
    EXPECT_EQ(session.tempPath, "c:\\t1\\") << "the command line stands";
    fs::remove_all(folder);
}

TEST_F(Findpaths, TheDecimalSymbolIsReadOffANumber) {
    machine.decimal = ",";
    machine.group = ".";
    decimalsep();
    EXPECT_EQ(session.decimalSeparator, ",");
    EXPECT_EQ(session.displayDecimal, ",");
    EXPECT_EQ(session.groupSeparator, ".");
    machine.decimal = ".";
    machine.group = "";
    decimalsep();
    EXPECT_EQ(session.decimalSeparator, ".");
    EXPECT_EQ(session.groupSeparator, "");
}

TEST_F(Findpaths, AnUnreadableDecimalSymbolIsAskedForUntilThereIsOne) {
    machine.decimal = "";
    desktop.expecttext("Please enter the character to be used for a decimal separator", "");
    desktop.expecttext("Please enter the character", ",");
    decimalsep();
    EXPECT_EQ(session.decimalSeparator, ",");
    EXPECT_EQ(desktop.shown[0].header, "Unable to determine Decimal Separator");
}

} // namespace
