#include "session/startwindow.h"

#include <gtest/gtest.h>

#include <set>

#include "session/session.h"
#include "shell/languages.h"
#include "support/freshsession.h"
#include "support/inlanguage.h"
#include "support/scriptedplatform.h"
#include "support/workfolder.h"

namespace {

class StartTextsTest : public testing::Test {
protected:
    FreshSession fresh{lifeSide};
    ScriptedPlatform desktop;
    WorkFolder settings; ///< takes what a choice saves
    StartTextsTest() { session.configPath = settings.path("") + "\\"; }
    ~StartTextsTest() override {
        session.languageFile.clear();
        wordload();
    }
};

TEST_F(StartTextsTest, TheAnswersAreWordedWithTheirKeys) {
    const StartTexts texts = starttexts();
    EXPECT_EQ(texts.agree, "<Y> Yes I Agree To The Above.");
    EXPECT_EQ(texts.exit, "<X> Exit.");
    EXPECT_EQ(texts.strap, "The Intelligent Plotting/Analysis Software (SM)");
}

TEST_F(StartTextsTest, TheFeatureLinesDiffer) {
    const StartTexts texts = starttexts();
    EXPECT_GE(texts.features.size(), 10u);
    EXPECT_EQ(texts.features[0], "Weibayes + RBA For Small Sample Size");
    EXPECT_EQ(std::set(texts.features.begin(), texts.features.end()).size(), texts.features.size());
}

TEST_F(StartTextsTest, AChosenLanguageIsInForceAtOnce) {
    int number = 0, german = 0;
    for (const Language& language : languages()) {
        if (language.alias == "Additional") continue; // has no words
        ++number;
        if (language.alias == "German") german = number;
    }
    ASSERT_GT(german, 0);
    session.startPasses = 1; // the first pass is long over
    desktop.expectmenu("Language", german);
    EXPECT_TRUE(choosestartlanguage());
    EXPECT_EQ(session.languageFile, languagefile("German"));
    EXPECT_EQ(word(Word::LanguageName), languagename(session.languageFile));
    EXPECT_EQ(session.startPasses, 2);
    EXPECT_EQ(desktop.shown.at(0).items.size(), 13u);
}

TEST_F(StartTextsTest, ACancelledLanguageChangesNothing) {
    desktop.expectmenu("Language", 0);
    EXPECT_FALSE(choosestartlanguage());
    EXPECT_EQ(session.languageFile, "");
    EXPECT_EQ(session.startPasses, 0);
}

} // namespace
