#include "session/findfile.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "session/session.h"
#include "support/freshsession.h"
#include "support/scriptedplatform.h"

namespace {

class Findfile : public testing::Test {
protected:
    Findfile() {
        session.programPath = "c:\\prog\\";
        session.configPath = "c:\\cfg\\";
        session.tempPath = "c:\\tmp\\";
        session.startDir = "c:\\start\\";
        session.extraPaths = "c:\\data1;c:\\data2\\";
    }
    std::string find(const std::string& name) {
        session.msg = name;
        findfilequietly();
        return session.msg;
    }

    FreshSession fresh{visualSide};
    ScriptedPlatform desktop;
    FakeSystem& machine = desktop.machine;
};

TEST_F(Findfile, KnowsTheClassesByNameAndExtension) {
    EXPECT_EQ(fileclass("vanex.ini"), FileClass::settings);
    EXPECT_EQ(fileclass("x.TMP"), FileClass::temporary);
    EXPECT_EQ(fileclass("GRID1.dat"), FileClass::grid);
    EXPECT_EQ(fileclass("aiag3.w"), FileClass::samples);
    EXPECT_EQ(fileclass("libhours.txt"), FileClass::library);
    EXPECT_EQ(fileclass("vanexw.exe"), FileClass::program);
    EXPECT_EQ(fileclass("VXLNGGER.TXT"), FileClass::language);
    EXPECT_EQ(fileclass("c:\\a\\notes.txt"), FileClass::text);
    EXPECT_EQ(fileclass("engine.w"), FileClass::data);
}

TEST_F(Findfile, WalksTheCandidateFoldersInTheirOrder) {
    machine.current = "d:\\work\\";
    session.classFolder[static_cast<std::size_t>(FileClass::library)] = "c:\\last\\";
    const std::vector<std::string> expected = {"c:\\last\\",
                                               "c:\\prog\\",
                                               "C:\\VANEXW\\",
                                               "d:\\VANEXW\\",
                                               "\\VANEXW\\",
                                               "c:\\start\\",
                                               "d:\\work\\",
                                               "C:\\VANEXDAT\\",
                                               "d:\\VANEXDAT\\",
                                               "\\VANEXDAT\\",
                                               "C:\\RG\\",
                                               "C:\\RUDGE\\",
                                               "c:\\data1\\",
                                               "c:\\data2\\",
                                               "d:\\WINDOWS\\",
                                               "C:\\WINDOWS\\",
                                               "\\WINDOWS\\",
                                               "d:\\WINNT\\",
                                               "C:\\WINNT\\",
                                               "\\WINNT\\",
                                               "C:\\PROGRAM FILES\\OMNIVANEX\\",
                                               "\\PROGRAM FILES\\OMNIVANEX\\",
                                               "C:\\PROGRAM FILES\\WEIBUll\\",
                                               "\\PROGRAM FILES\\WEIBUll\\",
                                               "C:\\PROGRAM FILES\\VISUAL\\",
                                               "\\PROGRAM FILES\\VISUAL\\",
                                               "C:\\PROGRAM FILES\\RUDGE\\",
                                               "\\PROGRAM FILES\\RUDGE\\",
                                               "C:\\PROGRAM FILES\\",
                                               "\\PROGRAM FILES\\"};
    EXPECT_EQ(candidatefolders(FileClass::library), expected);
}

TEST_F(Findfile, TheFirstFolderThatHoldsTheFileIsRememberedForItsClass) {
    machine.present = {"C:\\RG\\libhours.txt", "C:\\RG\\libdays.txt", "c:\\start\\libdays.txt"};
    EXPECT_EQ(find("libhours.txt"), "C:\\RG\\libhours.txt");
    EXPECT_EQ(find("libdays.txt"), "C:\\RG\\libdays.txt") << "the folder used last comes first";
    EXPECT_EQ(find("libnone.txt"), "");
}

TEST_F(Findfile, ATemporaryFileGoesWhereOneCanBeWritten) {
    machine.folders = {"c:\\start\\"};
    EXPECT_EQ(find("odd.tmp"), "c:\\start\\odd.tmp");
    EXPECT_EQ(machine.tested.back(), "c:\\start\\WV~CHK2B.TMP");
    machine.folders.insert("c:\\tmp\\");
    EXPECT_EQ(find("x.tmp"), "c:\\tmp\\x.tmp") << "the program's own in its temp folder";
}

TEST_F(Findfile, AWholePathThatExistsNeedsNoSearch) {
    machine.present = {"d:\\x\\engine.w", "c:\\prog\\engine.w"};
    EXPECT_EQ(find("d:\\x\\engine.w"), "d:\\x\\engine.w");
    EXPECT_EQ(find("engine.w"), "c:\\prog\\engine.w");
}

TEST_F(Findfile, WhatIsNowhereIsTold) {
    desktop.expectmessage("Please Make C:\\VANEXW Path");
    session.msg = "engine.w";
    EXPECT_FALSE(findfile());
    EXPECT_EQ(session.msg, "");
}

TEST_F(Findfile, NamesOfTheProgramsOwnLiveInTheirFolders) {
    EXPECT_EQ(pathofname("vanex.ini"), "c:\\cfg\\vanex.ini");
    EXPECT_EQ(pathofname("VANEXW.EXE"), "c:\\prog\\VANEXW.EXE");
    for (const char* name : {"WV2RUDGE.RGD", "WV2RUDGE.RGM", "x.tmp", "RUDGE2WV.RGR", "VX123-1.tmp"})
        EXPECT_EQ(pathofname(name), std::string("c:\\tmp\\") + name);
    EXPECT_EQ(pathofname("LIBCMNT.TXT"), "c:\\prog\\LIBCMNT.TXT");
    EXPECT_EQ(pathofname("\\VANEXLNG.TXT"), "c:\\prog\\VANEXLNG.TXT");
    EXPECT_EQ(pathofname("engine.w"), "");
}

TEST_F(Findfile, TwoSessionsNeverShareTheirTemporaryNames) {
    newtempbase();
    const std::string first = session.tempBase;
    machine.present = {temppath("-1.tmp"), temppath("-2.tmp"), "c:\\tmp\\other.tmp"};
    EXPECT_EQ(session.undoFile, "c:\\tmp\\" + first + "-1.tmp");
    EXPECT_EQ(first.size(), 9u) << "of one length: none is the begin of another";
    newtempbase();
    EXPECT_NE(session.tempBase, first);
    session.tempBase = first;
    removetemporaries();
    EXPECT_EQ(machine.present, std::set<std::string>{"c:\\tmp\\other.tmp"});
}

} // namespace
