#include "data/labels.h"

#include <gtest/gtest.h>

#include "data/datafileopen.h"
#include "data/datafilesave.h"
#include "session/session.h"
#include "support/freshsession.h"
#include "support/scriptedplatform.h"
#include "support/workfolder.h"

namespace {

class Labels : public testing::Test {
protected:
    Labels() {
        for (int line = 1; line <= labelLines; ++line) labelline(line) = "line " + std::to_string(line);
        session.gridCells = {{"1"}, {"2"}};
    }
    bool save(const std::string& path) {
        session.u = -labelsWanted;
        return datafilesave(path);
    }

    FreshSession fresh{lifeSide};
    ScriptedPlatform desktop;
    WorkFolder folder;
};

const std::string block = "line 1\r\nline 2\r\nline 3\r\nline 4\r\nline 5\r\nline 6\r\nline 7\r\n";

TEST_F(Labels, AreSavedAsTheBlockAndTheTitlesOfTheSets) {
    ASSERT_TRUE(save(folder.path("short")));
    EXPECT_EQ(folder.text("short.lbl"), "LABELSWVW\r\n7\r\n" + block);
    session.gridTitles = {"", "second", ""};
    ASSERT_TRUE(save(folder.path("long.lbl")));
    EXPECT_EQ(folder.text("long.lbl"), "LABELSWVW\r\n9\r\n" + block + "\r\nsecond\r\n");
}

TEST_F(Labels, ComeBackWithoutTouchingTheData) {
    session.gridTitles = {"one", "two"};
    ASSERT_TRUE(save(folder.path("a.lbl")));
    for (int line = 1; line <= labelLines; ++line) labelline(line).clear();
    session.gridTitles.clear();
    ASSERT_EQ(datafileopen(folder.path("a.lbl")), FileRead::labels);
    for (int line = 1; line <= labelLines; ++line) EXPECT_EQ(labelline(line), "line " + std::to_string(line));
    EXPECT_EQ(session.gridTitles, (std::vector<std::string>{"one", "two"}));
    EXPECT_EQ(session.gridCells.size(), 2u);
}

TEST_F(Labels, TheOlderFormHasSevenLinesAndNoCount) {
    ASSERT_EQ(datafiletake("LABELS\na\nb\nc\nd\ne\nf\ng\n", ""), FileRead::labels);
    EXPECT_EQ(labelline(1), "a");
    EXPECT_EQ(labelline(7), "g");
    ASSERT_EQ(datafiletake("LABELS\nfirst_second\nc\nd\ne\nf\ng\n", ""), FileRead::labels);
    EXPECT_EQ(labelline(1), "first");
    EXPECT_EQ(labelline(2), "second");
    EXPECT_EQ(labelline(3), "c");
    EXPECT_EQ(labelline(7), "g");
}

TEST_F(Labels, TitleLinesAreCutToSixtyCharacters) {
    const std::string wide = std::string(59, 'x') + "\xC3\xA4\xC3\xB6"; // a-umlaut is the 60th
    ASSERT_EQ(datafiletake("LABELSWVW\n8\n" + wide + "\nb\nc\nd\ne\nf\ng\n" + wide + "\n", ""),
              FileRead::labels);
    EXPECT_EQ(labelline(1), std::string(59, 'x') + "\xC3\xA4");
    EXPECT_EQ(session.gridTitles.front(), std::string(59, 'x') + "\xC3\xA4");
}

TEST_F(Labels, AFalseCountTakesWhatIsThere) {
    for (const char* count : {"-1", "0", "1e9", "abc", ""}) {
        labelline(1) = "kept";
        ASSERT_EQ(datafiletake(std::string("LABELSWVW\n") + count + "\nnew\n", ""), FileRead::labels)
            << count;
        EXPECT_EQ(labelline(1), std::string_view(count) == "1e9" ? "new" : "kept") << count;
    }
}

} // namespace
