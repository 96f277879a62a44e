#include "session/library.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <set>
#include <utility>

#include "platform/files.h"
#include "platform/headless/headless.h"
#include "session/session.h"
#include "session/usagetables.h"
#include "support/freshsession.h"
#include "support/scriptedplatform.h"

namespace {

namespace fs = std::filesystem;
using Texts = std::vector<std::string>;

constexpr const char* resources = VANEX_TESTS_DIR "/../resources/";

/// A program folder and a settings folder that exist, on a machine that shows only what the test puts there.
class Library : public testing::Test {
protected:
    Library() {
        std::string name = (fs::temp_directory_path() / "library-XXXXXX").string();
        root = mkdtemp(name.data());
        for (const char* folder : {"prog", "cfg", "data"}) fs::create_directory(root / folder);
        session.programPath = own("prog");
        session.configPath = own("cfg");
        session.dataPath = own("data");
        desktop.machine.folders = {own("prog")};
    }
    ~Library() override { fs::remove_all(root); }

    std::string own(const std::string& folder) const { return withbackslash((root / folder).string()); }
    void place(const std::string& folder, const std::string& name, const std::string& text) {
        std::ofstream(root / folder / name, std::ios::binary) << text;
        desktop.machine.present.insert(folderof(own(folder) + name) + name);
    }
    std::string text(const std::string& folder, const std::string& name) const {
        return readfile((root / folder / name).string()).value_or("(none)");
    }
    /// Answers for one round of the page: an item, and for a comment what is typed into its entry.
    void pick(int item) { desktop.expectmenu("Change For Select", item); }
    void edit(int comment, std::optional<std::string> typed) {
        pick(comment);
        desktop.expecttext("Comment " + std::to_string(comment), std::move(typed));
    }
    static constexpr int ok = 5, leave = 6;

    FreshSession fresh{lifeSide};
    ScriptedPlatform desktop;
    fs::path root;
};

TEST_F(Library, HasNineFilesAndNoOther) {
    const char* const names[] = {"libdevce.txt", "libequip.txt", "libcause.txt",
                                 "libusage.txt", "libenvir.txt", "libcmnt1.txt",
                                 "libcmnt2.txt", "libcmnt3.txt", "libcmnt4.txt"};
    for (int slot = 0; slot < librarySlots; ++slot) {
        libraryfile(slot);
        EXPECT_EQ(session.msg, names[slot]);
    }
    for (const int none : {-1, 9, 1000}) {
        session.msg = "former";
        libraryfile(none);
        EXPECT_EQ(session.msg, "");
        EXPECT_TRUE(librarylist(none).empty());
    }
}

TEST_F(Library, AMissingFileIsAnEmptyList) {
    session.msg = "kept";
    EXPECT_TRUE(librarylist(0).empty());
    EXPECT_EQ(session.msg, "kept");
}

TEST_F(Library, ALineIsAnEntry) {
    place("prog", "libcause.txt",
          "\xEF\xBB\xBF"
          "Wear\r\n\r\n  Creep \nFatigue, low cycle");
    EXPECT_EQ(librarylist(2), (Texts{"Wear", "Creep", "Fatigue, low cycle"}));
}

TEST_F(Library, TheUsersOwnCopyComesFirst) {
    place("prog", "libcmnt1.txt", "shipped\n");
    place("cfg", "libcmnt1.txt", "mine\n");
    EXPECT_EQ(librarylist(5), Texts{"mine"});
    place("data", "libcmnt1.txt", "of these data\n");
    EXPECT_EQ(librarylist(5), Texts{"of these data"});
}

TEST_F(Library, AFileThatIsNoTextIsNotTaken) {
    place("prog", "libdevce.txt", std::string("a\0b\n", 4));
    EXPECT_FALSE(libraryread(0));
    place("prog", "libequip.txt", std::string((16u << 20) + 1, 'a'));
    EXPECT_FALSE(libraryread(1));
    EXPECT_TRUE(librarylist(1).empty());
}

TEST_F(Library, OldTextIsReadAsWindows1252) {
    place("prog", "libcause.txt",
          "\xDC"
          "berlast\n");
    EXPECT_EQ(librarylist(2), Texts{"\xC3\x9C"
                                    "berlast"});
}

TEST_F(Library, TheShippedListsAreUsable) {
    session.programPath = withbackslash(std::string(resources) + "library");
    for (int slot = 0; slot < librarySlots; ++slot) {
        libraryfile(slot);
        desktop.machine.present.insert(session.programPath + session.msg);
        const Texts entries = librarylist(slot);
        EXPECT_GE(entries.size(), 20u) << slot;
        EXPECT_LE(entries.size(), 60u) << slot;
        EXPECT_EQ(std::set<std::string>(entries.begin(), entries.end()).size(), entries.size()) << slot;
    }
}

TEST_F(Library, ThePageShowsThePresentComments) {
    place("prog", "libcmnt2.txt", "One mode\nMixture\n");
    pick(leave);
    commentedit();
    const auto& page = desktop.shown.front();
    EXPECT_EQ(page.header, "Edit Title Comment Library");
    EXPECT_EQ(page.items, (Texts{"1...Comment 1 []", "2...Comment 2 [One mode]", "3...Comment 3 []",
                                 "4...Comment 4 []", "A...OK", "X...Exit"}));
}

TEST_F(Library, AnEditedCommentBecomesTheFirstEntryAndTheChosenLine) {
    place("prog", "libcmnt2.txt", "One mode\nMixture\n");
    edit(2, "Mixture");
    edit(3, "For review\nby all");
    pick(ok);
    commentedit();
    EXPECT_EQ(text("prog", "libcmnt2.txt"), "Mixture\r\nOne mode\r\n");
    EXPECT_EQ(session.libraryItem, "For review by all");
    EXPECT_EQ(session.analysisComment, "For review by all");
}

TEST_F(Library, TheListStandsInTheEntryToChooseFrom) {
    place("prog", "libcmnt1.txt", "One\nTwo\n");
    session.recentTexts = {"former"};
    edit(1, std::nullopt);
    pick(leave);
    commentedit();
    EXPECT_EQ(desktop.shown.at(1).items, (Texts{"One", "Two"}));
    EXPECT_EQ(session.recentTexts, Texts{"former"});
}

TEST_F(Library, ACancelledEntryChangesNothing) {
    place("prog", "libcmnt1.txt", "One\nTwo"); // as its author left it
    edit(1, std::nullopt);
    edit(1, "-9.123E+32");
    pick(ok);
    commentedit();
    EXPECT_EQ(text("prog", "libcmnt1.txt"), "One\nTwo");
    EXPECT_EQ(session.libraryItem, "");
}

TEST_F(Library, LeavingThePageChangesNothing) {
    place("prog", "libcmnt1.txt", "One\n");
    for (const int way : {leave, 0}) {
        edit(1, "Other");
        pick(way);
        commentedit();
        EXPECT_EQ(text("prog", "libcmnt1.txt"), "One\n");
        EXPECT_EQ(session.libraryItem, "");
    }
}

TEST_F(Library, AnEmptiedCommentLeavesTheList) {
    place("prog", "libcmnt1.txt", "One\nTwo\n");
    edit(1, "");
    pick(ok);
    commentedit();
    EXPECT_EQ(text("prog", "libcmnt1.txt"), "Two\r\n");
}

TEST_F(Library, ACommentTypedAndEmptiedAgainLeavesAnEmptyListEmpty) {
    edit(1, "x");
    edit(1, "");
    pick(ok);
    commentedit();
    EXPECT_TRUE(librarylist(5).empty());
}

TEST_F(Library, WhereTheProgramCannotBeWrittenTheUserGetsACopy) {
    place("prog", "libcmnt1.txt", "One\n");
    desktop.machine.folders = {own("cfg")};
    edit(1, "Mine");
    pick(ok);
    commentedit();
    EXPECT_EQ(text("prog", "libcmnt1.txt"), "One\n");
    EXPECT_EQ(text("cfg", "libcmnt1.txt"), "Mine\r\nOne\r\n");
    desktop.machine.present.insert(own("cfg") + "libcmnt1.txt");
    EXPECT_EQ(librarylist(5), (Texts{"Mine", "One"})) << "and it is the one that is read again";
}

TEST_F(Library, AListThatCannotBeSavedIsToldAndThePageStays) {
    desktop.machine.folders.clear();
    edit(1, "Mine");
    pick(ok);
    desktop.expectmessage("Cannot Save File: libcmnt1.txt");
    pick(leave);
    commentedit();
    EXPECT_EQ(desktop.shown.back().items.front(), "1...Comment 1 [Mine]");
}

TEST_F(Library, AListThatWasNotReadIsNeverWrittenOver) {
    const std::string strange("a\0b\n", 4);
    place("prog", "libcmnt1.txt", strange);
    edit(1, "Mine");
    pick(ok);
    desktop.expectmessage("Cannot Save File: libcmnt1.txt");
    pick(leave);
    commentedit();
    EXPECT_EQ(text("prog", "libcmnt1.txt"), strange);
}

TEST_F(Library, WhereNobodyAnswersThePageEnds) {
    HeadlessPlatform nobody;
    Platform* const former = std::exchange(platform, &nobody);
    commentedit();
    usagemenu();
    platform = former;
    EXPECT_EQ(session.usageChoice, 0);
    EXPECT_EQ(session.libraryItem, "");
}

TEST_F(Library, AScriptRunEditsNothing) {
    session.scriptRequest = "[WVW]";
    commentedit();
    EXPECT_TRUE(desktop.shown.empty());
}

class UsageTables : public Library {
protected:
    UsageTables() {
        session.programPath = withbackslash(std::string(resources) + "usage");
        for (const UsageTable& table : usagetables())
            desktop.machine.present.insert(session.programPath + table.file);
    }
};

TEST_F(UsageTables, AreSharesOfAHundredAndSayThatTheyAreIllustrations) {
    ASSERT_EQ(usagetables().size(), 6u);
    for (const UsageTable& table : usagetables()) {
        const std::string content = readfile(session.programPath + table.file).value_or("");
        EXPECT_NE(content.substr(0, content.find('\n')).find("not measured data"), std::string::npos);
        ASSERT_TRUE(usageopen(table.choice));
        EXPECT_EQ(session.usageChoice, table.choice);
        EXPECT_EQ(session.gridTitles, Texts{std::string("AIAG ") + table.label});
        double share = 0;
        double last = 0;
        for (const std::string& cell : session.gridCells.at(0)) {
            if (cell.empty()) continue; // a note has a line of its own
            const auto quantity = cell.find("x0x");
            ASSERT_NE(quantity, std::string::npos) << cell;
            EXPECT_GT(std::stod(cell), last);
            last = std::stod(cell);
            share += std::stod(cell.substr(quantity + 3));
        }
        EXPECT_EQ(share, 100) << table.label;
    }
}

TEST_F(UsageTables, AreCellsOnTheVisualSideToo) {
    session.progSide = visualSide;
    ASSERT_TRUE(usageopen(1));
    ASSERT_EQ(session.gridCells.size(), 1u);
    EXPECT_EQ(session.gridCells[0][2], "5000x0x4") << "not a pair of columns without its Y";
}

TEST_F(UsageTables, StandOnAPageWithTheirHeading) {
    desktop.expectmenu("AIAG ...", 2);
    usagemenu();
    const auto& page = desktop.shown.front();
    EXPECT_EQ(page.header, "Product Information / Benchmarking");
    EXPECT_EQ(page.items, (Texts{"1...AIAG Class 7", "2...AIAG Construction", "3...AIAG Linehaul",
                                 "4...AIAG Logging", "5...AIAG P & D", "6...AIAG Refuse", "X...Exit"}));
    EXPECT_EQ(session.usageChoice, 2);
}

TEST_F(UsageTables, LeavingThePageKeepsWhatStands) {
    session.gridCells = {{"1"}};
    for (const int way : {0, 7}) {
        desktop.expectmenu("AIAG ...", way);
        usagemenu();
        EXPECT_EQ(session.gridCells, std::vector<Texts>{{"1"}});
        EXPECT_EQ(session.usageChoice, 0);
    }
}

TEST_F(UsageTables, AMissingTableIsToldAndNothingIsLost) {
    desktop.machine.present.clear();
    session.gridCells = {{"1"}};
    session.gridTitles = {"mine"};
    session.usageChoice = 3;
    desktop.expectmessage("Cannot Open File: AIAGREFS.HST");
    EXPECT_FALSE(usageopen(6));
    EXPECT_EQ(session.gridCells, std::vector<Texts>{{"1"}});
    EXPECT_EQ(session.gridTitles, Texts{"mine"});
    EXPECT_EQ(session.usageChoice, 3);
    for (const int none : {-1, 0, 7}) EXPECT_FALSE(usageopen(none));
}

} // namespace
