#include "shell/words.h" // ahead of Qt, which has a global Display

#include "platform/qt/desktop.h"

#include <gtest/gtest.h>

#include <new>
#include <stdexcept>

#include "support/freshsession.h"
#include "support/scriptedplatform.h"

namespace {

class DesktopStep : public testing::Test {
protected:
    FreshSession fresh{lifeSide};
    ScriptedPlatform desk;
};

TEST_F(DesktopStep, HandsOnWhatItAnswers) {
    EXPECT_TRUE(guarded([] { return true; }));
    EXPECT_FALSE(guarded([] { return false; }));
}

TEST_F(DesktopStep, ThatRunsOutOfMemoryIsToldAndTheSessionGoesOn) {
    desk.expectmessage("Not Enough Free Memory");
    EXPECT_TRUE(guarded([]() -> bool { throw std::bad_alloc(); }));
}

TEST_F(DesktopStep, ThatFailsIsToldByItsCause) {
    desk.expectmessage("Error: a step out of range");
    EXPECT_TRUE(guarded([]() -> bool { throw std::out_of_range("a step out of range"); }));
}

} // namespace
