#include "session/scriptrequest.h"

#include <gtest/gtest.h>

#include "session/session.h"

namespace {

/// "W {settings} METHOD [files] P:file ... D" of a request.
std::string read(std::string_view text) {
    const auto request = requestof(text);
    if (!request) return "fault " + session.msg;
    std::string out;
    if (request->side) out += std::string(1, request->side) + " ";
    if (!request->settings.empty()) out += "{" + request->settings + " } ";
    if (!request->method.empty()) out += request->method + " ";
    for (const std::string& file : request->files) out += "[" + file + "] ";
    for (const ScriptCommand& command : request->commands)
        out += command.word + (command.file.empty() ? "" : ":" + command.file) + " ";
    if (request->deleteInput) out += "delete ";
    if (request->clipboardHelper) out += "helper ";
    if (!request->scriptFile.empty()) out += "@" + request->scriptFile + " ";
    return out;
}

TEST(Requestof, TakesTagSettingsMethodFilesAndCommandsWithTheirOutputs) {
    EXPECT_EQ(read("[WVW {-m 3} FM [a b.txt] [c.txt] R out.txt P c:\\x\\plot.svg]"),
              "W { -m 3 } FM [a b.txt] [c.txt] R:out.txt P:c:\\x\\plot.svg ");
    EXPECT_EQ(read("VXV [CLIPBOARD] E"), "V [CLIPBOARD] E ");
    EXPECT_EQ(read("[vxv [a.v] mtbf \"my file\"]"), "V [a.v] MTBF:my file ");
}

TEST(Requestof, LettersMayBePacked) {
    EXPECT_EQ(read("[pr]"), "P R ");
    EXPECT_EQ(read("[WVW [a.w] AQ both.txt]"), "W [a.w] A Q:both.txt ");
}

TEST(Requestof, ALastDDeletesTheInputAndALastCStartsTheHelper) {
    EXPECT_EQ(read("[pd]"), "P delete ") << "no file of the user's is named";
    EXPECT_EQ(read("[WVW [mine.txt] E D]"), "W [mine.txt] E D ") << "a user's file is never deleted";
    EXPECT_EQ(read("[WVW [a.tmp] [mine.txt] RD]"), "W [a.tmp] [mine.txt] R D ");
    EXPECT_EQ(read("[VXV [x.tmp] P a.svg D]"), "V [x.tmp] P:a.svg delete ");
    EXPECT_EQ(read("[VXV [x.v] R C]"), "V [x.v] R helper ");
    EXPECT_EQ(read("[VXV [x.v] D]"), "V [x.v] D ") << "the only command is one";
    EXPECT_EQ(read("[VXV [x.v] P D all.txt]"), "V [x.v] P D:all.txt ");
}

TEST(Requestof, TheMethodBelongsToTheLifeSide) {
    for (const char* code : {"BN", "BV", "BI", "FM", "LR", "MC", "PV", "NC"})
        EXPECT_EQ(read(std::string("WVW ") + code + " R"), "W " + std::string(code) + " R ");
    EXPECT_EQ(read("VXV BI"), "V B I ") << "two commands there";
}

TEST(Requestof, AnAtSignNamesAScriptFile) {
    EXPECT_EQ(read("[@c:\\jobs\\night.txt]"), "@c:\\jobs\\night.txt ");
    EXPECT_EQ(read("[@my job.txt]"), "@my job.txt ");
    EXPECT_EQ(read("[@\"my job.txt\"]"), "@my job.txt ");
}

TEST(Requestof, WhatHasNoPlaceIsTold) {
    EXPECT_EQ(read("[WVW X]"), "fault Unknown: X");
    EXPECT_EQ(read("[WVW out.txt]"), "fault Unknown: out.txt");
    EXPECT_EQ(read("[WVW R a.txt b.txt]"), "fault Unknown: b.txt");
    EXPECT_EQ(read("[WVW R \"a.txt\" \"b.txt\"]"), "fault Unknown: b.txt");
}

TEST(Requestof, TakesWhatIsNotClosedAsItStands) {
    EXPECT_EQ(read("[WVW [a.txt"), "W [a.txt] ");
    EXPECT_EQ(read("[WVW {-m 3"), "W { -m 3 } ");
    EXPECT_EQ(read(""), "");
    EXPECT_EQ(read("[]"), "");
}

TEST(Scriptfileof, ReadsEveryLine) {
    const auto script =
        scriptfileof("WV-SCRIPT\r\nFILE=a.txt\r\nfile = b.txt\r\n\r\nBVALUEIN%=10\r\n2:50\r\n4:1\r\n"
                     "BVALUEOUTFILE=b.out\r\nRISKINUSAGE=100\r\nRISKNEXTOUTFILE=r.out\r\n");
    ASSERT_TRUE(script.has_value());
    EXPECT_EQ(script->files, (std::vector<std::string>{"a.txt", "b.txt"}));
    EXPECT_EQ(script->bLevels, (std::vector<double>{10, 50, noAnswer, 1}));
    EXPECT_EQ(script->bLevelFile, "b.out");
    EXPECT_EQ(script->usages, (std::vector<double>{100}));
    EXPECT_EQ(script->riskFile, "r.out");
}

TEST(Scriptfileof, APathMayHoldAColon) {
    EXPECT_EQ(scriptfileof("WV-SCRIPT\nFILE=c:\\a=b.txt\n")->files[0], "c:\\a=b.txt");
}

TEST(Scriptfileof, TellsTheLineThatIsWrong) {
    const struct {
        const char* text;
        const char* told;
    } cases[] = {{"FILE=a.txt\n", "Unknown: FILE=a.txt"},
                 {"WV-SCRIPT\nNONSENSE=1\n", "Unknown: NONSENSE=1"},
                 {"WV-SCRIPT\nBVALUEIN%=x\n", "Unknown: BVALUEIN%=x"},
                 {"WV-SCRIPT\n2:50\n", "Unknown: 2:50"},
                 {"WV-SCRIPT\nFILE=a\n2:50\n", "Unknown: 2:50"},
                 {"WV-SCRIPT\nBVALUEIN%=1\n0:50\n", "Unknown: 0:50"},
                 {"WV-SCRIPT\nBVALUEIN%=1\n99999999:50\n", "Unknown: 99999999:50"},
                 {"", "Not Enough Data"}};
    for (const auto& item : cases) {
        EXPECT_FALSE(scriptfileof(item.text).has_value()) << item.text;
        EXPECT_EQ(session.msg, item.told);
    }
}

} // namespace
