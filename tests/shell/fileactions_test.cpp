#include <gtest/gtest.h>

#include "data/datafilesave.h"
#include "plot/markerline.h"
#include "session/former.h"
#include "session/opendata.h"
#include "session/recent.h"
#include "session/snapshots.h"
#include "shell/commandactions.h"
#include "shell/gridedit.h"
#include "support/shellfixture.h"

namespace {

/// Text is read as it stands, without the question about its columns.
class FileActions : public ShellTest {
protected:
    FileActions() { session.formatWanted = "A1"; }
};

TEST_F(FileActions, OpenReadsTheChosenFileAndRemembersIt) {
    const std::string path = folder.write("pumps.txt", "150\n230\n-400\n310\n");
    desk.expectfile("Open / Get / Import", path);
    command(2);
    EXPECT_EQ(column().size(), 4u);
    EXPECT_TRUE(fit().fitted);
    EXPECT_EQ(session.recentFiles, (std::vector<std::string>{path}));
}

TEST_F(FileActions, OpenThatIsCancelledChangesNothing) {
    given({"150", "230", "310"});
    desk.expectfile("Open", std::nullopt);
    command(2);
    EXPECT_EQ(column().size(), 3u);
}

TEST_F(FileActions, AMissingFileIsToldAndTheDataStay) {
    given({"150", "230", "310"});
    desk.expectmessage("Cannot Open File: " + folder.path("none.w"));
    EXPECT_FALSE(openfile(folder.path("none.w").c_str()));
    EXPECT_EQ(column().size(), 3u);
}

TEST_F(FileActions, AFileWithoutANumberIsToldAndTheDataStay) {
    given({"150", "230", "310"});
    const std::string path = folder.write("words.txt", "");
    desk.expectmessage("No Data");
    EXPECT_FALSE(openfile(path.c_str()));
    EXPECT_EQ(column().size(), 3u);
}

TEST_F(FileActions, WhatWasActiveIsAFormerResultAfterAnOpen) {
    session.undoActive = 1;
    given({"150", "230", "310"});
    const std::string path = folder.write("b.txt", "15\n23\n31\n");
    ASSERT_TRUE(openfile(path.c_str()));
    ASSERT_EQ(formercount(), 1u);
    ASSERT_TRUE(formeractivate(1));
    EXPECT_EQ(column(), (Cells{"150", "230", "310"}));
}

TEST_F(FileActions, ASaveThatOnlyTheExtensionBringsUponAFileIsAskedFor) {
    given({"150", "230", "310"});
    folder.write("pumps.w", "another's");
    desk.machine.present.insert(folder.path("pumps.w"));
    desk.expectfile("Save", folder.path("pumps"));
    desk.expectkey("File Already Present", 'N');
    EXPECT_FALSE(savefileas());
    EXPECT_EQ(folder.text("pumps.w"), "another's");
    desk.expectfile("Save", folder.path("pumps"));
    desk.expectkey("File Already Present", 'Y');
    EXPECT_TRUE(savefileas());
    EXPECT_NE(folder.text("pumps.w"), "another's");
}

TEST_F(FileActions, TheFirstSaveAsksForANameAndTheNextDoesNot) {
    given({"150", "230", "310"});
    desk.expectfile("Save Active Data + Results", folder.path("bearings"));
    command(3);
    EXPECT_EQ(session.fileName, folder.path("bearings.w"));
    EXPECT_EQ(session.resultsDirty, 0);
    EXPECT_EQ(desk.shown.back().value, "data.w");
    life({"150", "230", "310", "420"});
    command(3);
    desk.clipboardText.reset();
    gridclear();
    ASSERT_TRUE(openfile(folder.path("bearings.w").c_str()));
    EXPECT_EQ(column(), (Cells{"150", "230", "310", "420"})) << "the short form, as typed";
    EXPECT_EQ(session.resultsDirty, 0);
}

TEST_F(FileActions, ATextFileIsNotWrittenOverByASave) {
    const std::string path = folder.write("pumps.txt", "150\n230\n310\n");
    ASSERT_TRUE(openfile(path.c_str()));
    desk.expectfile("Save", folder.path("pumps.w"));
    EXPECT_TRUE(savefile());
    EXPECT_EQ(desk.shown.back().value, "pumps.w");
    EXPECT_EQ(folder.text("pumps.txt"), "150\n230\n310\n");
}

TEST_F(FileActions, AFileThatVanishedWhileOpenIsWrittenAnew) {
    given({"150", "230", "310"});
    desk.expectfile("Save", folder.path("a.w"));
    ASSERT_TRUE(savefile());
    std::remove(folder.path("a.w").c_str());
    life({"150", "230", "310", "500"});
    EXPECT_TRUE(savefile());
    EXPECT_NE(folder.text("a.w").find("500"), std::string::npos);
}

TEST_F(FileActions, AFileThatCannotBeWrittenIsToldAndStaysDirty) {
    given({"150", "230", "310"});
    session.resultsDirty = 1;
    desk.expectfile("Save", folder.path("none/a.w"));
    desk.expectmessage("Cannot Save File");
    EXPECT_FALSE(savefile());
    EXPECT_EQ(session.resultsDirty, 1);
}

TEST_F(FileActions, ASaveHoldsWhatWasTypedSinceTheLastCycle) {
    given({"150", "230", "310"});
    desk.expectfile("Save", folder.path("a.w"));
    ASSERT_TRUE(savefile());
    gridgo(2, 1);
    gridedit("999");
    gridcommit();
    ASSERT_TRUE(savefile());
    EXPECT_NE(folder.text("a.w").find("999"), std::string::npos);
    EXPECT_EQ(session.resultsDirty, 0);
}

TEST_F(FileActions, ASaveThatLeavesCellsOutStaysUnsaved) {
    desk.expectmessage("Bad Data");
    given({"150", "230", "310", "later"});
    desk.expectfile("Save", folder.path("a.w"));
    desk.expectmessage("Not Saved: 1 Point");
    ASSERT_TRUE(savefile());
    EXPECT_EQ(session.resultsDirty, 1);
}

TEST_F(FileActions, CellsThatNoCycleHasTakenAreAskedAboutAtTheEnd) {
    gridedit("150");
    gridcommit();
    gridedit("230");
    desk.expectmenu("Save Active Data / Results?", 3);
    EXPECT_FALSE(exitsequence(false));
    EXPECT_EQ(column(), (Cells{"150", "230"}));
}

TEST_F(FileActions, AFailedOpenAddsNoFormerResult) {
    given({"150", "230", "310"});
    for (int i = 0; i < 3; ++i) {
        desk.expectmessage("Cannot Open File");
        EXPECT_FALSE(openfile(folder.path("none.w").c_str()));
    }
    EXPECT_EQ(formercount(), 0u);
}

TEST_F(FileActions, AnOpenEntryBelongsToTheDataItWasTypedInto) {
    session.undoActive = 1;
    given({"150", "230", "310"});
    const std::string path = folder.write("b.txt", "15\n23\n31\n");
    gridgo(3, 1);
    gridedit("77");
    ASSERT_TRUE(openfile(path.c_str()));
    gridgo(1, 1);
    EXPECT_EQ(column(), (Cells{"15", "23", "31"}));
    ASSERT_TRUE(formeractivate(1));
    EXPECT_EQ(column(), (Cells{"150", "230", "77"}));
}

TEST_F(FileActions, UndoAfterASampleGivesDataAndOptionsBack) {
    session.undoActive = 1;
    given({"150", "230", "310"});
    gridgo(2, 1);
    gridedit("240");
    gridcommit();
    const std::string name = session.fileName;
    desk.expectmenu("", 4);
    command(7);
    ASSERT_NE(session.inputType, standard0) << "a grouped sample";
    editaction(editUndo);
    EXPECT_EQ(column(), (Cells{"150", "240", "310"}));
    EXPECT_EQ(session.inputType, standard0);
    EXPECT_EQ(session.fileName, name);
}

TEST_F(FileActions, WithoutRoomForASnapshotAChangeIsAskedAbout) {
    session.undoActive = 1;
    given({"150", "230", "310", "420"});
    session.tempPath = folder.path("gone") + "\\";
    session.tempBase.clear();
    gridgo(2, 1);
    desk.expectmenu("Undo Not Possible ... Continue?", 2);
    EXPECT_FALSE(gridcopy(1));
    EXPECT_EQ(column().size(), 4u);
    EXPECT_EQ(column()[1], "230");
}

TEST_F(FileActions, MarkerLinesAreWorthASave) {
    given({"150", "230", "310"});
    session.resultsDirty = 0;
    markeradd(300, 2, "Requirement");
    desk.expectmenu("Save Active Data / Results?", 3);
    EXPECT_FALSE(exitsequence(false));
}

TEST_F(FileActions, NothingToSaveSaysNoData) {
    desk.expectmessage("No Data");
    EXPECT_FALSE(savefileas());
}

TEST_F(FileActions, MarksOfAFileComeInTheFormThatIsTyped) {
    given({"150", ">230", "310x0x3", "-400_b"});
    desk.expectfile("Save", folder.path("a.w"));
    ASSERT_TRUE(savefile());
    ASSERT_TRUE(openfile(folder.path("a.w").c_str()));
    EXPECT_EQ(column(), (Cells{"150", ">230", "310x0x3", "-400_b"}));
}

TEST_F(FileActions, TheFormerListOpensAFile) {
    const std::string first = folder.write("a.txt", "150\n230\n310\n");
    const std::string second = folder.write("b.txt", "15\n23\n31\n");
    for (const std::string& path : {first, second}) {
        ASSERT_TRUE(openfile(path.c_str()));
    }
    desk.expectmenu("Former File List", 2);
    command(77);
    const auto& page = desk.shown[0];
    EXPECT_EQ(page.header, "* Former File List *");
    EXPECT_EQ(page.items[0], "A..." + second);
    EXPECT_EQ(column()[0], "150");
    EXPECT_EQ(session.recentFiles.front(), first);
}

TEST_F(FileActions, TheListOfRecentFilesHoldsNineteen) {
    for (int i = 0; i < 25; ++i) recentpush("/x/f" + std::to_string(i) + ".w");
    EXPECT_EQ(session.recentFiles.size(), 19u);
    EXPECT_EQ(session.recentFiles.front(), "/x/f24.w");
    recentpush("/x/f10.w");
    EXPECT_EQ(session.recentFiles.size(), 19u);
    EXPECT_EQ(session.recentFiles.front(), "/x/f10.w");
}

TEST_F(FileActions, TheWizardOffersTheWaysIn) {
    desk.clipboardText = "150\n230\n310\n";
    desk.expectmenu("Select Input", 3);
    datawizard();
    EXPECT_EQ(desk.shown[0].header, "Data Wizard");
    EXPECT_EQ(column().size(), 3u);
}

TEST_F(FileActions, AFileThatIsMergedJoinsTheDataAndCanBeUndone) {
    session.undoActive = 1;
    given({"150", "230", "310"});
    session.openMerges = 1;
    ASSERT_TRUE(openfile(folder.write("b.txt", "15\n23\n31\n").c_str()));
    ASSERT_EQ(session.gridCells.size(), 2u);
    EXPECT_EQ(column(0), (Cells{"150", "230", "310"}));
    EXPECT_EQ(column(1), (Cells{"15", "23", "31"}));
    EXPECT_EQ(formercount(), 0u) << "nothing was replaced";
    command(81);
    EXPECT_EQ(session.gridCells.size(), 1u);
}

TEST_F(FileActions, AMergeThatFailsLeavesTheData) {
    given({"150", "230", "310"});
    session.openMerges = 1;
    desk.expectmessage("Cannot Open File");
    EXPECT_FALSE(openfile(folder.path("none.w").c_str()));
    EXPECT_EQ(column(), (Cells{"150", "230", "310"}));
}

TEST_F(FileActions, NewDataBeginWithTheTitlesAndOptionsOfTheTemplate) {
    sets({{"150", "230", "310"}, {"5", "6", "7"}});
    session.gridTitles = {"pumps", "valves"};
    session.dist = lognormal;
    calcplot();
    const std::string path = folder.path("standard.w");
    desk.expectfile("Save", path);
    ASSERT_TRUE(savefileas());
    session.dist = weibull;
    session.templateFile = session.fileName;
    newdata();
    EXPECT_EQ(session.gridTitles, (std::vector<std::string>{"pumps", "valves"}));
    EXPECT_EQ(longestcolumn(), 0u) << "its points are another's";
    EXPECT_EQ(session.dist, lognormal);
    EXPECT_EQ(session.fileName, "");
    EXPECT_EQ(session.resultsDirty, 0);
}

TEST_F(FileActions, ATemplateThatIsGoneIsToldAndTheGridIsEmpty) {
    given({"150", "230", "310"});
    session.resultsDirty = 0;
    session.templateFile = folder.path("gone.w");
    desk.expectmessage("Cannot Open File");
    newdata();
    EXPECT_EQ(longestcolumn(), 0u);
}

TEST_F(FileActions, ATemplateOfTheOtherSideOrATextLeavesTheOptionsOfTheUser) {
    chooseside(visualSide);
    ASSERT_TRUE(allocatearrays());
    life({"1x2", "2x4"});
    const std::string trend = folder.path("trend.v");
    ASSERT_TRUE(datafilesave(trend));
    chooseside(lifeSide);
    ASSERT_TRUE(allocatearrays());
    for (const std::string& name : {trend, folder.write("plain.txt", "150\n230\n")}) {
        given({"150", "230", "310"});
        session.resultsDirty = 0;
        session.dist = lognormal;
        session.fitMethod = session.fitMethodSaved = maximumLikelihood;
        session.templateFile = name;
        desk.expectmessage("Template = VXW");
        newdata();
        EXPECT_EQ(session.dist, lognormal) << name;
        EXPECT_EQ(session.fitMethod, maximumLikelihood) << name;
        EXPECT_EQ(longestcolumn(), 0u) << name;
    }
}

TEST_F(FileActions, WhatAFormerRunHasLeftIsReadAsDataWithoutAFile) {
    given({"150", "230", "310"});
    for (const char* base : {"VX1234567", "VX7654321"}) {
        session.tempBase = base;
        const std::string path = snapshotnew().path;
        ASSERT_NE(path, "");
        desk.machine.present.insert(path);
    }
    const auto left = lefttemporaries();
    ASSERT_EQ(left.size(), 1u) << "its own files are none that were left";
    given({"5", "6", "7"});
    ASSERT_TRUE(openrecovered(left[0]));
    EXPECT_EQ(column(), (Cells{"150", "230", "310"}));
    EXPECT_EQ(session.fileName, "");
    EXPECT_EQ(session.resultsDirty, 1) << "they are asked about before they go";
}

TEST_F(FileActions, WithoutTheCautionForResultsOnlyChangedDataAreAskedAbout) {
    given({"150", "230", "310"});
    desk.expectfile("Save", folder.path("kept.w"));
    ASSERT_TRUE(savefileas());
    session.saveCaution = 0;
    session.resultsDirty = 1; // another option, the same data
    newdata();
    EXPECT_EQ(longestcolumn(), 0u);
    given({"150", "230"});
    session.resultsDirty = 1;
    desk.expectmenu("Save Active Data", 3);
    newdata();
    EXPECT_EQ(longestcolumn(), 2u) << "changed data are asked about still";
}

TEST_F(FileActions, CellsThatTheFileDoesNotHoldAreAskedAboutWhateverTheCaution) {
    session.saveCaution = 0;
    desk.expectmessage("Bad Data");
    given({"150", "230", "1,5", "310"});
    desk.expectfile("Save", folder.path("part.w"));
    desk.expectmessage("Not Saved: 1 Point");
    ASSERT_TRUE(savefileas());
    desk.expectmenu("Save Active Data", 3);
    newdata();
    EXPECT_EQ(longestcolumn(), 4u);
}

TEST_F(FileActions, AMergeThatNeedsMoreRoomKeepsWhatWasChosenOfTheSets) {
    sets({{"150", "230", "310"}, {"5", "6", "7"}});
    session.t0(1) = 20;
    session.lineHide(2) = 1;
    calcplot();
    const float room = session.maxPoints;
    std::string rows;
    for (int i = 0; i <= static_cast<int>(room); ++i) rows += std::to_string(100 + i) + "\n";
    session.openMerges = 1;
    ASSERT_TRUE(openfile(folder.write("long.txt", rows).c_str()));
    EXPECT_GT(session.maxPoints, room);
    EXPECT_EQ(session.t0(1), 20);
    EXPECT_EQ(session.lineHide(2), 1);
}

TEST_F(FileActions, OtherDataForgetWhatWasChosenOfTheSetsBefore) {
    sets({{"150", "230", "310"}, {"5", "6", "7"}});
    session.lineHide(2) = 1;
    session.FITKIND(1) = 5;
    ASSERT_TRUE(openfile(folder.write("b.txt", "15\t1\n23\t2\n31\t3\n").c_str()));
    EXPECT_EQ(session.lineHide(2), 0);
    EXPECT_EQ(session.FITKIND(1), 0);
}

} // namespace
