#include "platform/files.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

namespace {

namespace fs = std::filesystem;

class FilesTest : public testing::Test {
protected:
    const fs::path folder =
        fs::path(testing::TempDir())
        / ("vanexfiles_" + std::string(testing::UnitTest::GetInstance()->current_test_info()->name()));
    const std::string name = (folder / "plot.hgl").string();

    FilesTest() {
        fs::remove_all(folder);
        fs::create_directories(folder);
    }
    ~FilesTest() override { fs::remove_all(folder); }

    std::size_t filecount() const {
        return static_cast<std::size_t>(std::distance(fs::directory_iterator(folder), {}));
    }
};

} // namespace

TEST_F(FilesTest, AGrowingFileTakesItsPlaceOnCommit) {
    ASSERT_TRUE(writefile(name, "old"));
    OutputFile file;
    ASSERT_TRUE(file.open(name));
    EXPECT_TRUE(file.write("IN;"));
    EXPECT_TRUE(file.write("SP1;"));
    EXPECT_EQ(readfile(name), "old");
    EXPECT_TRUE(file.commit());
    EXPECT_EQ(readfile(name), "IN;SP1;");
    EXPECT_EQ(filecount(), 1u);
}

TEST_F(FilesTest, ADroppedFileLeavesTheOldOneAndNothingBeside) {
    ASSERT_TRUE(writefile(name, "old"));
    OutputFile file;
    ASSERT_TRUE(file.open(name));
    EXPECT_TRUE(file.write("new"));
    file.drop();
    EXPECT_EQ(readfile(name), "old");
    EXPECT_EQ(filecount(), 1u);
    EXPECT_FALSE(file.commit());
    EXPECT_EQ(readfile(name), "old");
}

TEST_F(FilesTest, AFileForgottenOpenIsDropped) {
    {
        OutputFile file;
        ASSERT_TRUE(file.open(name));
        EXPECT_TRUE(file.write("new"));
    }
    EXPECT_EQ(filecount(), 0u);
}

TEST_F(FilesTest, OpeningAgainDropsTheFileInHand) {
    OutputFile file;
    ASSERT_TRUE(file.open(name));
    ASSERT_TRUE(file.open((folder / "other").string()));
    EXPECT_TRUE(file.write("text"));
    EXPECT_TRUE(file.commit());
    EXPECT_EQ(filecount(), 1u);
    EXPECT_EQ(readfile((folder / "other").string()), "text");
}

TEST_F(FilesTest, AFolderThatIsNotThereCannotBeWrittenTo) {
    OutputFile file;
    EXPECT_FALSE(file.open((folder / "none" / "plot.hgl").string()));
    EXPECT_EQ(errno, ENOENT);
    EXPECT_FALSE(file.write("text"));
    EXPECT_FALSE(file.commit());
    EXPECT_FALSE(file.open(folder.string()));
    EXPECT_FALSE(writefile(folder.string(), "text"));
}

TEST_F(FilesTest, TheFileBehindALinkIsWritten) {
    ASSERT_TRUE(writefile(name, "old"));
    const fs::path link = folder / "link";
    fs::create_symlink(name, link);
    OutputFile file;
    ASSERT_TRUE(file.open(link.string()));
    EXPECT_TRUE(file.write("new"));
    EXPECT_TRUE(file.commit());
    EXPECT_TRUE(fs::is_symlink(link));
    EXPECT_EQ(readfile(name), "new");
}

#ifdef __linux__
TEST_F(FilesTest, ADeviceIsWrittenDirectlyAndStays) {
    OutputFile file;
    ASSERT_TRUE(file.open("/dev/null"));
    EXPECT_TRUE(file.write("text"));
    EXPECT_TRUE(file.commit());
    EXPECT_TRUE(fs::is_character_file("/dev/null"));
}

TEST_F(FilesTest, ADeviceTellsOfAFailureWithTheWriteThatMeetsIt) {
    OutputFile file;
    ASSERT_TRUE(file.open("/dev/full"));
    EXPECT_FALSE(file.write("text"));
    EXPECT_FALSE(file.commit());
    EXPECT_FALSE(writefile("/dev/full", "text"));
}
#endif

TEST_F(FilesTest, StandardOutputIsWrittenAndStaysOpen) {
    for (const char* text : {"one", "two"}) {
        testing::internal::CaptureStdout();
        OutputFile file;
        ASSERT_TRUE(file.open("-"));
        EXPECT_TRUE(file.write(text));
        EXPECT_TRUE(file.commit());
        EXPECT_EQ(testing::internal::GetCapturedStdout(), text);
    }
}
