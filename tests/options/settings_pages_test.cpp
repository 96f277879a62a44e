#include <gtest/gtest.h>

#include <string>

#include "data/boundvalues.h"
#include "data/datetext.h"
#include "options/page.h"
#include "options/pages.h"
#include "session/session.h"
#include "session/settings.h"
#include "session/sizing.h"
#include "shell/words.h"
#include "support/freshsession.h"
#include "support/inlanguage.h"
#include "support/scriptedplatform.h"
#include "support/workfolder.h"

namespace {

class SettingsPages : public testing::Test {
protected:
    SettingsPages() {
        session.configPath = folder.path("") + "/";
        session.programPath = session.tempPath = session.configPath;
    }
    ~SettingsPages() override {
        session.languageFile.clear();
        wordload();
    }
    /// Text of an item at the last showing of a menu.
    std::string item(char letter) const {
        for (auto shown = desktop.shown.rbegin(); shown != desktop.shown.rend(); ++shown)
            for (const std::string& text : shown->items)
                if (text.front() == letter) return text;
        return "";
    }
    void keys(std::string_view letters) {
        for (const char letter : letters) desktop.expectkey("", letter);
    }

    FreshSession fresh{lifeSide};
    ScriptedPlatform desktop;
    WorkFolder folder;
};

} // namespace

TEST_F(SettingsPages, TheSizeIsDoubledAndHalvedForTheNextStart) {
    const float present = session.maxPoints;
    keys("22X");
    EXPECT_TRUE(optionpage(OptionPage::dimension));
    EXPECT_EQ(session.sizeExponent, 3);
    EXPECT_EQ(session.maxPoints, present) << "the arrays stay as they are until then";
    EXPECT_NE(desktop.shown.back().text.find("Point " + std::to_string(static_cast<int>(4 * present))),
              std::string::npos)
        << desktop.shown.back().text;
    keys("1X");
    optionpage(OptionPage::dimension);
    EXPECT_EQ(session.sizeExponent, 2);
    session.sizeExponent = 1;
    ASSERT_TRUE(settingsread());
    EXPECT_EQ(session.sizeExponent, 2) << "kept for the next start";
}

TEST_F(SettingsPages, TheSizeExponentStaysWithinOneAndTen) {
    keys("11X");
    EXPECT_FALSE(optionpage(OptionPage::dimension));
    EXPECT_EQ(session.sizeExponent, 1);
    keys("222222222222X");
    EXPECT_TRUE(optionpage(OptionPage::dimension));
    EXPECT_EQ(session.sizeExponent, 10);
}

TEST_F(SettingsPages, ALanguageIsOfferedWhenItsFileIsThere) {
    desktop.machine.present.insert(session.programPath + "VXLNGDEU.TXT");
    desktop.machine.present.insert(session.programPath + "VXLNGENG.TXT");
    keys("LBA"); // English stands first in the list; the page comes again, in the language
    EXPECT_TRUE(optionpage(OptionPage::language));
    EXPECT_EQ(session.languageFile, "VXLNGDEU.TXT");
    EXPECT_EQ(desktop.shown[1].items.size(), 3u) << "English, German, exit";
    EXPECT_EQ(item('L'), "L...Sprache = Deutsch");
    EXPECT_EQ(desktop.windowCalls, std::vector<std::string>{"retitle"});
    keys("MX");
    EXPECT_FALSE(optionpage(OptionPage::language)) << "the exit gives the language back";
    EXPECT_EQ(session.languageFile, "VXLNGDEU.TXT");
    EXPECT_NE(word(Word::Language), "Language");
    EXPECT_EQ(desktop.windowCalls, (std::vector<std::string>(3, "retitle"))) << "and shows it";
    keys("MA");
    EXPECT_TRUE(optionpage(OptionPage::language));
    EXPECT_EQ(session.languageFile, "");
    EXPECT_EQ(item('L'), "L...Language = English");
}

TEST_F(SettingsPages, WithoutALanguageFileThereIsEnglishAlone) {
    desktop.expectkey("", 'L');
    desktop.expectkey("Cannot Find Language File", '0');
    desktop.expectkey("", 'X');
    EXPECT_FALSE(optionpage(OptionPage::language));
    EXPECT_EQ(desktop.shown[1].items.front(), "0...No Language File ... Default Language");
    EXPECT_EQ(session.languageFile, "");
}

TEST_F(SettingsPages, TheExportSymbolAndTheDateOrderShowAndChange) {
    keys("EUA");
    EXPECT_TRUE(optionpage(OptionPage::language));
    EXPECT_EQ(item('E'), "E...Export / Import Decimal Symbol = ',' (/ '.')");
    EXPECT_EQ(item('U'), "U...Date Format = Day - Month - Year (/ Month - Day - Year)");
    EXPECT_EQ(session.exportDecimal, ",");
    EXPECT_EQ(session.dateFormat, (std::array<std::string, 3>{"D", "M", "Y"}));
    keys("EUX");
    EXPECT_FALSE(optionpage(OptionPage::language)) << "an exit takes both back";
    EXPECT_EQ(session.exportDecimal, ",");
    EXPECT_EQ(session.dateFormat[0], "D");
}

TEST_F(SettingsPages, NumbersOnAPageHaveTheDecimalSymbolOfTheDisplay) {
    session.fixedSlope = 2.5f;
    session.displayDecimal = ",";
    desktop.expectmenu("", 0);
    optionpage(OptionPage::weibayes);
    EXPECT_EQ(item('B'), "B...Weibull Slope (0 = None) = 2,5");
}

TEST_F(SettingsPages, AParameterNameIsThatOfTheFamilyInForce) {
    session.dist = lognormal;
    desktop.expectkey("", 'N');
    desktop.expecttext("Name For Parameter 1", "");
    desktop.expectkey("", 'N');
    desktop.expecttext("Name For Parameter 1", "Median");
    keys("A");
    EXPECT_TRUE(optionpage(OptionPage::language));
    EXPECT_STREQ(parametername(lognormal, 1), "Median");
    EXPECT_STREQ(parametername(weibull, 1), "Eta");
}

TEST_F(SettingsPages, AColourOfThePaletteIsGivenToASetAndTakenBackByTheReset) {
    desktop.expectkey("", 'S');
    desktop.expectnumber("Set Color", "3");
    desktop.expectcolor("Color Select", 7);
    keys("X");
    EXPECT_TRUE(optionpage(OptionPage::color));
    EXPECT_EQ(session.palette[3], standardPalette[7]);
    EXPECT_EQ(session.palette[7], standardPalette[7]);
    keys("RX");
    EXPECT_TRUE(optionpage(OptionPage::color));
    EXPECT_EQ(session.palette, standardPalette);
}

TEST_F(SettingsPages, AFontIsPickedOrTyped) {
    keys("VX");
    EXPECT_TRUE(optionpage(OptionPage::font));
    EXPECT_EQ(session.fontName, "Verdana");
    desktop.expectkey("", 'N');
    desktop.expecttext("Font Name", "Gill Sans");
    keys("X");
    EXPECT_TRUE(optionpage(OptionPage::font));
    EXPECT_EQ(session.fontName, "Gill Sans");
}

TEST_F(SettingsPages, ADataFolderThatIsNotThereIsRefused) {
    desktop.expectkey("", 'D');
    desktop.expecttext("Data Path", "/no/such/folder");
    desktop.expectmessage("Cannot Find Path");
    keys("A");
    EXPECT_FALSE(optionpage(OptionPage::fileFormat));
    EXPECT_EQ(session.dataPath, "c:\\vanex\\");
}

TEST_F(SettingsPages, TheResetAsksAndThenGivesEverySettingItsOriginalValue) {
    session.yScaleKind = reliabilityPercent;
    session.pointHide = 1;
    desktop.expectkey("", 'R');
    desktop.expectkey("Reset To Original Setup?", 'N');
    desktop.expectkey("", 'R');
    desktop.expectkey("Reset To Original Setup?", 'Y');
    keys("A");
    EXPECT_TRUE(optionpage(OptionPage::mainOptions));
    EXPECT_EQ(session.yScaleKind, occurrencePercent);
    EXPECT_EQ(session.pointHide, 0);
}

TEST_F(SettingsPages, APageBehindAPageKeepsWhatItAccepted) {
    keys("LEAX"); // set-up, language, export symbol, accept, exit of the set-up
    EXPECT_TRUE(optionpage(OptionPage::setup));
    EXPECT_EQ(session.exportDecimal, ",");
}

TEST_F(SettingsPages, PortSettingsShowAndParityStaysWithItsLine) {
    keys("P");
    keys("B"); // E, even, is the second
    keys("K");
    keys("C"); // COM1
    keys("A");
    EXPECT_TRUE(optionpage(OptionPage::ports));
    EXPECT_EQ(item('P'), "P...Parity (Com) = E");
    EXPECT_EQ(item('K'), "K...Plotter Port = COM1");
    EXPECT_EQ(session.serialLine, "23@E");
    session.serialParity = 'S';
    session.serialLine = "";
    session.outputPort = 1;
    ASSERT_TRUE(settingsread());
    EXPECT_EQ(session.serialParity, 'E');
    EXPECT_EQ(session.outputPort, 3);
    keys("RA");
    EXPECT_TRUE(optionpage(OptionPage::ports));
    EXPECT_EQ(session.serialParity, 'S');
    EXPECT_EQ(session.outputPort, 1);
}

TEST_F(SettingsPages, ParityGivenUpGoesWithItsLine) {
    session.serialParity = 'S';
    const std::string line = session.serialLine;
    keys("PBX");
    EXPECT_FALSE(optionpage(OptionPage::ports));
    EXPECT_EQ(session.serialParity, 'S');
    EXPECT_EQ(session.serialLine, line);
}

TEST_F(SettingsPages, TheStandardPortLeavesFrameAndVelocityAlone) {
    session.plotspeed = -35;
    session.outputPort = 3;
    keys("RA");
    EXPECT_TRUE(optionpage(OptionPage::ports));
    EXPECT_EQ(session.outputPort, 1);
    EXPECT_EQ(session.plotspeed, -35);
}

TEST_F(SettingsPages, TheVelocityOfThePlotterLeavesTheFrameAlone) {
    session.plotspeed = -20;
    desktop.expectkey("", 'M');
    desktop.expectnumber("Speed", "35");
    keys("A");
    EXPECT_TRUE(optionpage(OptionPage::ports));
    EXPECT_EQ(session.plotspeed, -35);
}

TEST_F(SettingsPages, ADateStandsInTheOrderAndWithTheSymbolOfTheUser) {
    EXPECT_EQ(datetext(), "2024-02-29");
    keys("UVA");
    EXPECT_TRUE(optionpage(OptionPage::language));
    EXPECT_EQ(datetext(), "29/02/2024");
    keys("UVTA");
    EXPECT_TRUE(optionpage(OptionPage::language));
    EXPECT_EQ(datetext(), "02.29.2024 14:05");
    EXPECT_EQ(dateshown("no date"), "no date");
}

TEST_F(SettingsPages, NamesOfTheUserStandInTheResults) {
    desktop.expectkey("", 'P');
    desktop.expecttext("", "delay");
    desktop.expectkey("", 'S');
    desktop.expecttext("", "MTTF");
    keys("A");
    EXPECT_TRUE(optionpage(OptionPage::language));
    EXPECT_EQ(session.thresholdName, "delay");
    EXPECT_EQ(session.mtbfName, "MTTF");
}

TEST_F(SettingsPages, ATemplateMustBeAFileThatIsThere) {
    desktop.expectkey("", 'T');
    desktop.expecttext("Template", folder.path("none.w"));
    desktop.expectmessage("Cannot Find File");
    desktop.expectkey("", 'X');
    EXPECT_FALSE(optionpage(OptionPage::setup));
    EXPECT_EQ(session.templateFile, "");
}

TEST_F(SettingsPages, AFileIsSavedInItsWrapperWhereTheFormatSaysSo) {
    keys("FA");
    EXPECT_TRUE(optionpage(OptionPage::fileFormat));
    EXPECT_EQ(session.htmlMode, wrapperAsked);
    EXPECT_NE(item('F').find("HTML"), std::string::npos);
}

TEST_F(SettingsPages, WithoutFilesOfAFormerRunThereIsNothingToGet) {
    desktop.expectkey("", 'T');
    desktop.expectmessage("No Former Results");
    EXPECT_FALSE(optionpage(OptionPage::fileFormat));
}

TEST_F(SettingsPages, TheValuesPutOutAreThoseThatTheUserNames) {
    desktop.expectkey("", 'M');
    desktop.expecttext("", "10 0.5;50");
    desktop.expectkey("", 'X');
    EXPECT_TRUE(optionpage(OptionPage::output));
    EXPECT_EQ(session.reportValue, (std::vector<double>{10, 0.5, 50}));
    EXPECT_EQ(reportlevels().data(), session.reportValue.data());
    desktop.expectkey("", 'M');
    desktop.expecttext("", "10 100");
    desktop.expectmessage("0 < B% < 100");
    desktop.expectkey("", 'X');
    EXPECT_FALSE(optionpage(OptionPage::output));
    EXPECT_EQ(session.reportValue.size(), 3u);
    session.reportValue = {-5, 200};
    EXPECT_GT(reportlevels().size(), 5u) << "what a file brings is not taken where it is no percentage";
}
