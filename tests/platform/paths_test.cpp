#include "platform/paths.h"

#include <gtest/gtest.h>
#include <stdlib.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "platform/files.h"
#include "platform/system.h"

namespace {

namespace fs = std::filesystem;

/// A user with folders of his own for a test.
class Paths : public testing::Test {
protected:
    Paths() {
        std::string name = (fs::temp_directory_path() / "paths-XXXXXX").string();
        folder = mkdtemp(name.data());
        setenv("XDG_DATA_HOME", folder.c_str(), 1);
    }
    ~Paths() override {
        unsetenv("XDG_DATA_HOME");
        fs::remove_all(folder);
    }
    fs::path folder;
};

TEST_F(Paths, ADriveLiesInTheUsersDataFolder) {
    EXPECT_EQ(nativepath("c:\\vanex\\data.w"), folder.string() + "/OmniVANEX/c/vanex/data.w");
    EXPECT_EQ(nativepath("C:/VANEXW"), folder.string() + "/OmniVANEX/c/VANEXW");
    EXPECT_EQ(ownpath(folder.string() + "/OmniVANEX/c/vanex/data.w"), "c:\\vanex\\data.w");
}

TEST_F(Paths, APathWithoutADriveIsANativeOne) {
    EXPECT_EQ(nativepath("\\home\\ann\\x.w"), "/home/ann/x.w");
    EXPECT_EQ(nativepath("/home/ann/x.w"), "/home/ann/x.w");
    EXPECT_EQ(nativepath("x.w"), "x.w");
    EXPECT_EQ(nativepath("-"), "-");
    EXPECT_EQ(nativepath(""), "");
    EXPECT_EQ(ownpath("/home/ann/x.w"), "\\home\\ann\\x.w");
}

TEST_F(Paths, AFileMayBearABackslashInItsName) {
    const std::string odd = folder.string() + "/a\\b.txt";
    std::ofstream(odd) << "1\n";
    EXPECT_EQ(nativepath(odd), odd);
    EXPECT_EQ(readfile(odd), "1\n");
}

TEST_F(Paths, FilesAreReadAndWrittenByTheProgramsOwnPaths) {
    NativeSystem machine;
    ASSERT_TRUE(machine.makefolder("c:\\vanex"));
    EXPECT_TRUE(writefile("c:\\vanex\\a.txt", "7"));
    EXPECT_EQ(readfile("C:/vanex/a.txt"), "7");
    EXPECT_TRUE(machine.fileexists("c:\\vanex\\a.txt"));
    EXPECT_EQ(machine.files("c:\\vanex", "*.TXT"), std::vector<std::string>{"a.txt"});
    EXPECT_TRUE(machine.removefile("c:\\vanex\\a.txt"));
    EXPECT_FALSE(machine.removefile("c:\\vanex\\a.txt"));
}

TEST_F(Paths, AWriteTestLeavesNothingBehind) {
    NativeSystem machine;
    const std::string own = ownpath(folder.string());
    EXPECT_TRUE(machine.writable(own, "VX-Test.TXT"));
    EXPECT_TRUE(fs::is_empty(folder));
    EXPECT_FALSE(machine.writable(own + "\\none", "VX-Test.TXT"));
    std::ofstream(folder / "VX-Test.TXT") << "mine";
    EXPECT_TRUE(machine.writable(own, "VX-Test.TXT"));
    EXPECT_EQ(readfile((folder / "VX-Test.TXT").string()), "mine");
}

TEST_F(Paths, AWriteTestLeavesPipesAndLinksOfOthersAlone) {
    NativeSystem machine;
    const std::string own = ownpath(folder.string());
    const fs::path pipe = folder / "pipe.txt", link = folder / "link.txt";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    fs::create_symlink(folder / "victim", link);
    EXPECT_FALSE(machine.writable(own, "pipe.txt")) << "and does not wait for a reader";
    EXPECT_FALSE(machine.writable(own, "link.txt"));
    EXPECT_FALSE(fs::exists(folder / "victim"));
    EXPECT_EQ(readregular(pipe.string()), std::nullopt);
    EXPECT_EQ(readregular("/dev/zero"), std::nullopt);
}

TEST_F(Paths, TheNamesOfWindowsAreAnsweredWithWhatStandsForThem) {
    NativeSystem machine("vanexc");
    setenv("XDG_CONFIG_HOME", "/home/ann/.config", 1);
    EXPECT_EQ(machine.environment("APPDATA"), "\\home\\ann\\.config");
    unsetenv("XDG_CONFIG_HOME");
    EXPECT_EQ(machine.environment("APPDATA"), ownpath(std::string(getenv("HOME")) + "/.config"));
    EXPECT_EQ(machine.environment("HOMEPATH"), ownpath(getenv("HOME")));
    EXPECT_EQ(machine.environment("HOMEDRIVE"), "");
    EXPECT_TRUE(machine.environment("TEMP").has_value());
    EXPECT_EQ(machine.environment("NOBODY_SET_THIS"), std::nullopt);
    EXPECT_NE(machine.programfile().find("unittests"), std::string::npos);
}

TEST_F(Paths, AProgramThatIsNotThereIsNotStarted) {
    NativeSystem machine;
    const std::string mark = folder.string() + "/mark";
    const std::string arguments[] = {mark};
    EXPECT_TRUE(machine.start("\\usr\\bin\\touch", arguments));
    for (int i = 0; i < 200 && !fs::exists(mark); ++i) usleep(10000);
    EXPECT_TRUE(fs::exists(mark));
    EXPECT_FALSE(machine.start("\\usr\\bin\\no-such-program", {}));
}

TEST(PathPieces, FolderNameAndClosingBackslash) {
    EXPECT_EQ(folderof("c:\\a\\b.txt"), "c:\\a\\");
    EXPECT_EQ(folderof("b.txt"), "");
    EXPECT_EQ(folderof("c:b.txt"), "c:");
    EXPECT_EQ(nameof("c:\\a\\b.txt"), "b.txt");
    EXPECT_EQ(nameof("c:b.txt"), "b.txt");
    EXPECT_EQ(withbackslash("c:\\a"), "c:\\a\\");
    EXPECT_EQ(withbackslash("c:\\a\\"), "c:\\a\\");
    EXPECT_EQ(withbackslash(""), "");
}

TEST(Patterns, StarAndQuestionMarkFitAsFileNamesDo) {
    EXPECT_TRUE(fitspattern("VANEXW.EXE", "vanex*.exe"));
    EXPECT_TRUE(fitspattern("vanex.ex4", "vanex*.ex?"));
    EXPECT_FALSE(fitspattern("vanexc", "vanex*.exe"));
    EXPECT_TRUE(fitspattern("a.b.tmp", "*.tmp"));
    EXPECT_TRUE(fitspattern("", "*"));
    EXPECT_FALSE(fitspattern("", "?"));
    EXPECT_FALSE(fitspattern(std::string(60, 'a'), "*a*a*a*a*a*a*a*a*b")) << "and does not take forever";
}

} // namespace
