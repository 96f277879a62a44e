#include "data/datafilesave.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>

#include "data/datafileopen.h"
#include "data/htmlwrapper.h"
#include "session/session.h"
#include "shell/calcplot.h"
#include "support/freshsession.h"
#include "support/scriptedplatform.h"
#include "support/workfolder.h"

namespace {

namespace fs = std::filesystem;

/// A session with two sets that has run.
class DataFileSave : public testing::Test {
protected:
    DataFileSave() {
        session.noPrompt = 1;
        session.gridCells = {{"150", "230", "-400", "310x0x2_seal worn"}, {"20", "30", "40"}};
        session.gridTitles = {"Pump A", ""};
        calcplot();
    }

    FreshSession fresh{lifeSide};
    ScriptedPlatform desktop;
    WorkFolder folder;
};

TEST_F(DataFileSave, ANameWithoutAnExtensionGetsTheOneOfTheSide) {
    ASSERT_TRUE(datafilesave(" " + folder.path("pumps") + " "));
    EXPECT_TRUE(folder.text("pumps.w").starts_with("WINVANEX_DATA2-VXW[.]\r\n"));
    ASSERT_TRUE(datafilesave(folder.path("other.txt")));
    EXPECT_EQ(folder.text("other.txt"), folder.text("pumps.w"));
}

TEST_F(DataFileSave, TheExtensionOfTheOtherSideIsRefused) {
    desktop.expectmessage("a.V' With File To Save Cannot");
    EXPECT_FALSE(datafilesave(folder.path("a.V")));
    EXPECT_FALSE(folder.has("a.V"));
    chooseside(visualSide);
    ASSERT_TRUE(allocatearrays());
    desktop.expectmessage("A.W' With File To Save Cannot");
    EXPECT_FALSE(datafilesave(folder.path("A.W")));
    EXPECT_TRUE(folder.names().empty());
}

TEST_F(DataFileSave, AFileThatCannotBeWrittenIsToldAndTheOldOneStays) {
    desktop.expectmessage("Cannot Save File: /nowhere/at/all.w");
    EXPECT_FALSE(datafilesave("/nowhere/at/all.w"));
    folder.write("old.w", "the old file");
    session.sg = 0;
    desktop.expectmessage("sg<=0");
    desktop.expectmessage("Cannot Save File");
    EXPECT_FALSE(datafilesave(folder.path("old.w")));
    EXPECT_EQ(folder.text("old.w"), "the old file");
    EXPECT_EQ(folder.names().size(), 1u) << "nothing is left beside it";
}

TEST_F(DataFileSave, AFileKeepsItsPermissions) {
    const std::string path = folder.write("mine.w", "");
    fs::permissions(path, fs::perms::owner_read | fs::perms::owner_write);
    ASSERT_TRUE(datafilesave(path));
    EXPECT_EQ(fs::status(path).permissions(), fs::perms::owner_read | fs::perms::owner_write);
}

TEST_F(DataFileSave, TheWrapperIsAPageWithOneParagraphALine) {
    const std::string plain = datafiletext();
    session.htmlMode = wrapperAsked;
    ASSERT_TRUE(datafilesave(folder.path("page.w")));
    EXPECT_EQ(session.htmlMode, wrapperAsked);
    const std::string page = folder.text("page.w");
    EXPECT_TRUE(
        page.starts_with("<HTML>\r\n<HEAD>\r\n"
                         "<META HTTP-EQUIV=\"Content-Type\" CONTENT=\"text/html; charset=windows-1252\">\r\n"
                         "<META NAME=\"Generator\" CONTENT=\"Tarnbrook(TM)\">\r\n"
                         "<TITLE>OmniVANEX/WinVANEX_Data</TITLE>\r\n</HEAD>\r\n<BODY>\r\n\r\n"
                         "<FONT FACE=\"Courier New\" SIZE=2>\r\n<P>WINVANEX_DATA2-VXW[.]</P>\r\n<P>"));
    EXPECT_TRUE(page.ends_with("</P>\r\n</FONT></BODY>\r\n</HTML>\r\n"));

    session.htmlMode = plainLines;
    ASSERT_EQ(datafileopen(folder.path("page.w")), FileRead::read);
    EXPECT_EQ(session.htmlMode, plainLines);
    EXPECT_EQ(session.gridCells[0], (std::vector<std::string>{"150", "230", "-400", "310x0x2_seal worn"}));
    calcplot();
    EXPECT_EQ(datafiletext(), plain) << "the same session behind both";
}

TEST_F(DataFileSave, APageThatLostItsCarriageReturnsIsRestoredAndRewritten) {
    session.htmlMode = wrapperAsked;
    ASSERT_TRUE(datafilesave(folder.path("page.w")));
    const std::string whole = folder.text("page.w");
    std::string lost = whole;
    std::erase(lost, '\r');
    folder.write("page.w", lost);
    session.htmlMode = plainLines;
    session.gridCells.clear();
    desktop.expectmessage("CHR$(13) Character Removed From File ... I Will Attempt Restore");
    ASSERT_EQ(datafileopen(folder.path("page.w")), FileRead::read);
    EXPECT_EQ(session.gridCells.size(), 2u);
    EXPECT_EQ(folder.text("page.w"), whole);
}

TEST_F(DataFileSave, ALongPageWithoutCarriageReturnsIsReadAndLeftAlone) {
    session.gridTitles = {std::string(90000, 't'), ""};
    calcplot();
    session.htmlMode = wrapperAsked;
    ASSERT_TRUE(datafilesave(folder.path("page.w")));
    std::string lost = folder.text("page.w");
    std::erase(lost, '\r');
    folder.write("page.w", lost);
    session.htmlMode = plainLines;
    ASSERT_EQ(datafileopen(folder.path("page.w")), FileRead::read);
    EXPECT_EQ(session.gridTitles.front().size(), 90000u);
    EXPECT_EQ(folder.text("page.w"), lost);
}

TEST_F(DataFileSave, APageOfAnotherMakerGivesNothing) {
    const auto cells = session.gridCells;
    desktop.expectmessage("Bad Input File");
    EXPECT_EQ(datafiletake("<HTML>\r\n<HEAD>\r\n<TITLE>News</TITLE>\r\n<BODY>\r\n1\r\n2\r\n", ""),
              FileRead::bad);
    EXPECT_EQ(session.gridCells, cells);
}

TEST_F(DataFileSave, TheSideOfAFileIsKnownBeforeItIsOpened) {
    ASSERT_TRUE(datafilesave(folder.path("a.w")));
    session.htmlMode = wrapperAsked;
    ASSERT_TRUE(datafilesave(folder.path("page.w")));
    folder.write("text.txt", "1\n2\n");
    EXPECT_EQ(sideoffile(folder.path("a.w")), 'W');
    EXPECT_EQ(sideoffile(folder.path("page.w")), 'W');
    EXPECT_EQ(sideoffile(folder.path("text.txt")), 0);
    EXPECT_EQ(sideoffile(folder.path("none")), 0);
    EXPECT_EQ(sideoffile(folder.write("cut.w", "WINVANEX_DATA2-VX")), 0);
}

TEST_F(DataFileSave, AFileIsFoundWithTheExtensionOfItsSide) {
    ASSERT_TRUE(datafilesave(folder.path("pumps.w")));
    desktop.machine.present.insert(folder.path("pumps.w"));
    session.gridCells.clear();
    EXPECT_EQ(datafileopen(folder.path("pumps")), FileRead::read);
    EXPECT_EQ(session.gridCells.size(), 2u);
    desktop.expectmessage("No Data");
    EXPECT_EQ(datafileopen(folder.path("none")), FileRead::nodata);
    desktop.expectmessage("No Data");
    EXPECT_EQ(datafiletake("", ""), FileRead::nodata);
}

TEST_F(DataFileSave, ThePageIsInTheLettersItsHeadDeclares) {
    // a-umlaut and the euro sign are in windows-1252, omega is not; "&#" could be taken for a number
    const std::string title = "\xC3\xA4 \xE2\x82\xAC \xCE\xA9 &#65; & <b>";
    session.gridTitles = {title, ""};
    calcplot();
    session.htmlMode = wrapperAsked;
    ASSERT_TRUE(datafilesave(folder.path("page.w")));
    EXPECT_NE(folder.text("page.w").find("<P>SET_\xE4 \x80 &#937; &#38;#65; & <b>_"), std::string::npos);
    session.htmlMode = plainLines;
    session.gridTitles.clear();
    ASSERT_EQ(datafileopen(folder.path("page.w")), FileRead::read);
    EXPECT_EQ(session.gridTitles.front(), title);
}

TEST_F(DataFileSave, NinetyThousandCharactersAreTheMostThatIsRestored) {
    const std::string page = "<HTML>\n" + std::string(90000 - 8, 'x') + "\n";
    ASSERT_EQ(page.size(), 90000u);
    desktop.expectmessage("CHR$(13) Character Removed From File");
    const auto restored = restoredlines(page);
    ASSERT_TRUE(restored.has_value());
    EXPECT_TRUE(restored->starts_with("<HTML>\r\nx"));
    EXPECT_EQ(restored->size(), 90002u);
    EXPECT_EQ(restoredlines(page + "x"), std::nullopt);
    EXPECT_EQ(restoredlines(*restored), std::nullopt) << "nothing is missing";
}

} // namespace
