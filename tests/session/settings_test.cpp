#include "session/settings.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "platform/paths.h"
#include "session/settingstable.h"
#include "support/freshsession.h"
#include "support/scriptedplatform.h"

namespace {

namespace fs = std::filesystem;

/// A config folder of its own for each test.
class Settings : public testing::Test {
protected:
    Settings() {
        std::string name = (fs::temp_directory_path() / "settings-XXXXXX").string();
        folder = mkdtemp(name.data());
        session.configPath = ownpath(folder.string()) + "\\";
    }
    ~Settings() override {
        fs::permissions(folder, fs::perms::owner_all);
        fs::remove_all(folder);
    }
    std::string file() const {
        std::ostringstream text;
        text << std::ifstream(folder / "VANEX.INI", std::ios::binary).rdbuf();
        return text.str();
    }
    void writefile(const std::string& text) const {
        std::ofstream(folder / "VANEX.INI", std::ios::binary) << text;
    }
    /// A session as it starts, which reads the file.
    bool readafresh() {
        const std::string config = session.configPath;
        session = Session{};
        chooseside(visualSide);
        session.configPath = config;
        return settingsread();
    }
    std::vector<std::string> lines() const {
        std::vector<std::string> all;
        std::istringstream text(file());
        for (std::string line; std::getline(text, line);) {
            EXPECT_TRUE(line.ends_with('\r'));
            line.pop_back();
            all.push_back(line);
        }
        return all;
    }
    /// The values of a section as they stand in the file.
    std::vector<std::string> section(const std::string& name) const {
        const auto all = lines();
        const auto header = std::find(all.begin(), all.end(), name);
        if (header == all.end()) return {};
        const auto count = std::stol(*(header + 1));
        return {header + 2, header + 2 + count};
    }

    FreshSession fresh{visualSide};
    ScriptedPlatform desktop;
    fs::path folder;
};

TEST_F(Settings, StandInTheSectionsOfTheFileInTheirOrder) {
    session.lastFile = "c:\\vanex\\a.v";
    session.confLow = 5;
    session.confHigh = 95;
    session.inputType = intv5;
    ASSERT_TRUE(settingswrite());
    const auto all = lines();
    const char* order[] = {"COM",
                           "LASER",
                           "PORTS",
                           "PATH",
                           "PROG",
                           "PEN",
                           "FONT",
                           "PTS",
                           "OCCUR",
                           "METHOD",
                           "NEWPARAM",
                           "DATAMETHOD",
                           "RISKUSAGERATE()",
                           "RISKPRODRATE()",
                           "FYLLIBRCOMMTITLESOUT()",
                           "FYLOLDSOUT()",
                           "FYLPARAMNAMEOUT()",
                           "XFILEFORMER()"};
    auto at = all.begin();
    for (const char* name : order) {
        at = std::find(at, all.end(), name);
        ASSERT_NE(at, all.end()) << name;
    }
    EXPECT_EQ(section("COM"), (std::vector<std::string>{"9600", "23@S", "7", "1"}));
    EXPECT_EQ(section("LASER"), (std::vector<std::string>{"0", "1", "1", "0"}));
    EXPECT_EQ(section("PORTS"), (std::vector<std::string>{"LPT1", "LPT2", "COM1"}));
    EXPECT_EQ(section("PATH")[0], "c:\\vanex\\");
    EXPECT_EQ(section("PATH")[3], "NOT-USED");
    EXPECT_EQ(section("PATH")[4], "c:\\vanex\\a.v");
    EXPECT_EQ(section("PTS"), (std::vector<std::string>{"500", "0"}));
    const auto newparam = section("NEWPARAM");
    ASSERT_EQ(newparam.size(), 262u);
    EXPECT_EQ(newparam[14], "5");
    EXPECT_EQ(newparam[16], ".05");
    EXPECT_EQ(newparam[17], ".95");
    EXPECT_EQ(newparam[28], ".");
    EXPECT_EQ(newparam[228], "MTBF");
    EXPECT_EQ(section("FYLPARAMNAMEOUT()").back(), "t0");
}

TEST_F(Settings, AreTheFileThatWasWrittenByHandFromTheFormat) {
    std::ifstream golden(fs::path(VANEX_TESTS_DIR) / "golden" / "VANEX.INI", std::ios::binary);
    std::ostringstream text;
    text << golden.rdbuf();
    settingstake(text.str());
    EXPECT_EQ(session.confLow, 5);
    EXPECT_EQ(session.confMethod, fisherBounds);
    EXPECT_EQ(session.fitMethod, maximumLikelihood);
    EXPECT_EQ(session.mleVariant, 3);
    EXPECT_EQ(session.languageFile, "VXLNGDEU.TXT");
    EXPECT_EQ(session.lastFile, "c:\\vanex\\pumps.w");
    EXPECT_EQ(session.riskUsageRate, (std::vector<float>{100, 110.5f}));
    EXPECT_TRUE(settingsmarked('W'));
    session.programPath = "c:\\prog\\";
    EXPECT_EQ(settingstext(), text.str());
}

TEST_F(Settings, WhatIsWrittenIsReadAgain) {
    session.dist = gumbel;
    session.gumbeltype = 1;
    session.fitMethodSaved = maximumLikelihood;
    session.mleVariant = 3;
    session.confLow = 2.5f;
    session.languageFile = "VXLNGDEU.TXT";
    session.mtbfName = "MTTF = \"x\"";
    session.exportDecimal = ",";
    session.windowRect = {-8, 10, 1200, 800};
    session.palette[3] = 0x123456;
    session.sizeExponent = 4;
    session.riskUsageRate = {1.5f, 2, .25f};
    session.formerNames = {"one", "PEN", "2", ""};
    ASSERT_TRUE(settingswrite());
    const std::string written = file();
    ASSERT_TRUE(readafresh());
    EXPECT_EQ(session.dist, gumbel);
    EXPECT_EQ(session.gumbeltype, 1);
    EXPECT_EQ(session.fitMethod, maximumLikelihood);
    EXPECT_EQ(session.mleVariant, 3);
    EXPECT_EQ(session.confLow, 2.5f);
    EXPECT_EQ(session.languageFile, "VXLNGDEU.TXT");
    EXPECT_EQ(session.mtbfName, "MTTF = \"x\"");
    EXPECT_EQ(session.exportDecimal, ",");
    EXPECT_EQ(session.windowRect, (std::array<int16_t, 4>{-8, 10, 1200, 800}));
    EXPECT_EQ(session.palette[3], 0x123456);
    EXPECT_EQ(session.sizeExponent, 4);
    EXPECT_EQ(session.riskUsageRate, (std::vector<float>{1.5f, 2, .25f}));
    EXPECT_EQ(session.formerNames, (std::vector<std::string>{"one", "PEN", "2", ""}));
    session.maxPoints = 500; // sized anew after the read
    ASSERT_TRUE(settingswrite());
    EXPECT_EQ(file(), written);
}

TEST_F(Settings, EveryRowOfTheTableSurvivesAWriteAndARead) {
    for (const Section& one : settingsections()) {
        int last = 0;
        for (const Setting& setting : one.settings) {
            EXPECT_GT(setting.position, last) << one.name << " rises";
            EXPECT_LE(setting.position, one.count) << one.name;
            last = setting.position;
        }
    }
    const auto high = [](const Setting& setting) { return setting.high; };
    for (const Section& one : settingsections())
        for (const Setting& setting : one.settings) {
            if (setting.writeOnly || !setting.choices.empty()) continue;
            const Place place = setting.at(session);
            if (auto* const* text = std::get_if<std::string*>(&place)) **text = "some text";
            if (auto* const* code = std::get_if<int16_t*>(&place))
                **code = static_cast<int16_t>(high(setting));
            if (auto* const* number = std::get_if<float*>(&place))
                **number = static_cast<float>(high(setting));
        }
    ASSERT_TRUE(settingswrite());
    ASSERT_TRUE(readafresh());
    for (const Section& one : settingsections())
        for (const Setting& setting : one.settings) {
            if (setting.writeOnly || !setting.choices.empty()) continue;
            const Place place = setting.at(session);
            if (auto* const* text = std::get_if<std::string*>(&place)) {
                EXPECT_EQ(**text, "some text") << setting.name;
            } else if (auto* const* code = std::get_if<int16_t*>(&place)) {
                EXPECT_EQ(**code, static_cast<int16_t>(high(setting))) << setting.name;
            } else if (auto* const* number = std::get_if<float*>(&place)) {
                EXPECT_FLOAT_EQ(**number, static_cast<float>(high(setting))) << setting.name;
            }
        }
}

TEST_F(Settings, AShorterListKeepsAllLaterDefaults) {
    writefile("OMNIVANEX: WVW=ON\nNEWPARAM\n15\n4\n1\n0\n3\n1\n0\n0\n0\n0\n500\n0\n0\n0\n0\n5\n");
    ASSERT_TRUE(settingsread());
    EXPECT_EQ(session.dist, gumbel);
    EXPECT_EQ(session.rankMethod, hazenRank);
    EXPECT_EQ(session.inputType, intv5);
    EXPECT_EQ(session.confLow, 0);
    EXPECT_EQ(session.mtbfName, "MTBF");
    EXPECT_TRUE(settingsmarked('W'));
    EXPECT_FALSE(settingsmarked('V'));
}

TEST_F(Settings, ALongerSectionHasItsSurplusSkipped) {
    writefile("OMNIVANEX\nFONT\n3\nCourier\nsurplus\nmore\nPROG\n1\nMy equations\n");
    ASSERT_TRUE(settingsread());
    EXPECT_EQ(session.fontName, "Courier");
    EXPECT_EQ(session.equationsName, "My equations");
}

TEST_F(Settings, ASectionThatEndsTooEarlyDoesNotSwallowTheNext) {
    writefile("OMNIVANEX\nCOM\n4\n1200\nPROG\n1\nMy equations\n");
    ASSERT_TRUE(settingsread());
    EXPECT_EQ(session.serialBaud, 1200);
    EXPECT_EQ(session.serialDataBits, 7);
    EXPECT_EQ(session.equationsName, "My equations");
}

TEST_F(Settings, ABrokenLineKeepsItsDefaultAndTheReadGoesOn) {
    writefile("OMNIVANEX\nMETHOD\n2\nnonsense\n9\nNEWPARAM\n17\n\n\n\n99\n\n\n\n\n\n\n\n\n\n\n3\n\n1E+99\n");
    ASSERT_TRUE(settingsread());
    EXPECT_EQ(session.fitMethodSaved, rankRegression);
    EXPECT_EQ(session.mleVariant, 0);
    EXPECT_EQ(session.rankMethod, benardRank);
    EXPECT_EQ(session.inputType, prbt3);
    EXPECT_EQ(session.confLow, 0);
}

TEST_F(Settings, LinesOfAnotherVersionAreWrittenBack) {
    std::string text = "OMNIVANEX\r\nPEN\r\n2\r\n5\r\n6\r\nNEWPARAM\r\n262\r\n";
    for (int i = 1; i <= 262; ++i) text += i == 200 ? "from the future\r\n" : "-9.123E+32\r\n";
    writefile(text);
    ASSERT_TRUE(settingsread());
    ASSERT_TRUE(settingswrite());
    EXPECT_EQ(section("NEWPARAM")[199], "from the future");
    EXPECT_EQ(section("PEN"), (std::vector<std::string>{"5", "6"}));
}

TEST_F(Settings, GetAnswersOneValueAndNoAnswerForWhatIsNotThere) {
    session.confLow = 10;
    ASSERT_TRUE(settingswrite());
    session.msg = "kept";
    EXPECT_EQ(settingget("NEWPARAM", 17).number, .1);
    EXPECT_EQ(settingget("NEWPARAM", 229).text, "MTBF");
    EXPECT_EQ(session.msg, "kept");
    for (const SettingValue& none :
         {settingget("NOSECTION", 1), settingget("NEWPARAM", 263), settingget("COM", 0)}) {
        EXPECT_EQ(none.text, "-9.123E+32");
        EXPECT_EQ(none.number, noAnswer);
    }
    fs::remove(folder / "VANEX.INI");
    EXPECT_EQ(settingget("NEWPARAM", 17).text, "-9.123E+32");
}

TEST_F(Settings, AScriptRunDoesNotTouchTheFile) {
    writefile("byte for byte");
    session.scriptRequest = "[WVW P]";
    EXPECT_TRUE(settingswrite());
    EXPECT_EQ(file(), "byte for byte");
}

TEST_F(Settings, AFileThatCannotBeWrittenIsToldAndTheSessionStays) {
    session.configPath = ownpath((folder / "none").string()) + "\\";
    session.programPath = "c:\\nowhere\\";
    desktop.expectmessage("File Open (File=");
    EXPECT_FALSE(settingswrite());
    EXPECT_EQ(session.settingsWritten, 0);
    EXPECT_EQ(session.programTags, "");
    EXPECT_NE(desktop.shown[0].text.find(") NOT POSSIBLE ... PATH OKAY?"), std::string::npos);
}

TEST_F(Settings, WithoutAFileTheDefaultsStand) {
    EXPECT_FALSE(settingsread());
    EXPECT_EQ(session.dataPath, "c:\\vanex\\");
    EXPECT_EQ(session.mtbfName, "MTBF");
}

TEST_F(Settings, TheFormerListHoldsNineteenNames) {
    for (int i = 1; i <= 25; ++i) session.XFILEFORMER.push_back("former" + std::to_string(i) + ".tmp");
    ASSERT_TRUE(settingswrite());
    ASSERT_TRUE(readafresh());
    ASSERT_EQ(session.XFILEFORMER.size(), 19u);
    EXPECT_EQ(session.XFILEFORMER[18], "former19.tmp");
}

TEST_F(Settings, MarksTellWhichSidesWereStarted) {
    settingsmark('V', true);
    settingsmark('W', true);
    settingsmark('W', true);
    ASSERT_TRUE(settingswrite());
    EXPECT_EQ(lines()[0], "OMNIVANEX: WVV=ON WVW=ON");
    settingsmark('V', false);
    EXPECT_EQ(session.programTags, "OMNIVANEX: WVW=ON");
    session.programTags = "other program: WVY=ON";
    writefile("some other line WVY=ON\n");
    ASSERT_TRUE(readafresh());
    EXPECT_FALSE(settingsmarked('Y')) << "marks count only behind the product tag";
}

TEST_F(Settings, ATextNeverBreaksItsLine) {
    session.mtbfName = "two\r\nlines";
    ASSERT_TRUE(settingswrite());
    EXPECT_EQ(section("NEWPARAM")[228], "two  lines");
}

TEST_F(Settings, TheResetGivesEveryOptionItsValueAsDelivered) {
    session.dist = normal;
    session.rankMethod = blomRank;
    session.windowRect[2] = 900;
    settingsreset();
    EXPECT_EQ(session.dist, weibull);
    EXPECT_EQ(session.rankMethod, benardRank);
    EXPECT_EQ(session.windowRect[2], 900) << "what is no option stays";
}

TEST_F(Settings, AScriptSetsOptionsByName) {
    EXPECT_TRUE(settingset("popPortion", ".25"));
    EXPECT_EQ(session.popPortion, .25f);
    EXPECT_TRUE(settingset("confLow", "5"));
    EXPECT_EQ(session.confLow, 5);
    EXPECT_TRUE(settingset("fitMethod", "2"));
    EXPECT_EQ(session.fitMethod, maximumLikelihood);
    EXPECT_TRUE(settingset("plotTitle", "A title"));
    EXPECT_EQ(session.titleWanted, "A title");
    EXPECT_FALSE(settingset("popPortion", "2"));
    EXPECT_FALSE(settingset("popPortion", "x"));
    EXPECT_FALSE(settingset("nothing", "1"));
    EXPECT_FALSE(settingset("", "1"));
    EXPECT_FALSE(settingset("exportDecimal", "5"));
    EXPECT_EQ(session.popPortion, .25f);
}

TEST_F(Settings, RandomBytesLeaveTheDefaultsOrValuesWithinTheirLimits) {
    std::string noise;
    unsigned state = 7;
    for (int i = 0; i < 200000; ++i) noise += static_cast<char>((state = state * 1664525 + 1013904223) >> 24);
    writefile(noise + "\nNEWPARAM\n99999999999\n" + noise);
    EXPECT_TRUE(settingsread());
    EXPECT_GE(session.dist, weibull);
    EXPECT_LE(session.dist, gumbel);
    EXPECT_LE(session.XFILEFORMER.size(), 19u);
}

} // namespace
