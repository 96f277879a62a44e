#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <random>
#include <thread>

#include "support/workfolder.h"

namespace {

/// Starts a save of the data in `from` to `to`; its process number.
pid_t startsave(const WorkFolder& folder, const std::string& from, const std::string& to) {
    const pid_t child = fork();
    if (child != 0) return child;
    setenv("HOME", folder.path("").c_str(), 1);
    if (!freopen("/dev/null", "w", stdout) || !freopen(folder.path("stderr").c_str(), "w", stderr))
        _exit(126);
    execl(VANEXC, VANEXC, from.c_str(), "-p", "W", "--save", to.c_str(), nullptr);
    _exit(127);
}

std::string column(int first, int count) {
    std::string text;
    for (int i = 0; i < count; ++i) text += std::to_string(first + i) + "\n";
    return text;
}

TEST(SaveKill, AKillAtAnyMomentLeavesTheOldOrTheNewFileWhole) {
    const WorkFolder folder;
    const std::string sources[] = {folder.write("a.txt", column(1000, 4000)),
                                   folder.write("b.txt", column(7000, 4000))};
    std::string whole[2];
    const auto begin = std::chrono::steady_clock::now();
    for (int k = 0; k < 2; ++k) {
        int status = 0;
        waitpid(startsave(folder, sources[k], folder.path("data.w")), &status, 0);
        ASSERT_EQ(status, 0) << folder.text("stderr");
        whole[k] = folder.text("data.w");
        ASSERT_FALSE(whole[k].empty());
    }
    ASSERT_NE(whole[0], whole[1]);
    const auto oneSave = (std::chrono::steady_clock::now() - begin) / 2;

    std::mt19937 random(20240229);
    std::uniform_real_distribution<double> moment(0, 1.2);
    int killed = 0, finished = 0, changed = 0;
    std::string before = whole[1];
    for (int run = 0; run < 300; ++run) {
        const pid_t child = startsave(folder, sources[run % 2], folder.path("data.w"));
        std::this_thread::sleep_for(moment(random) * oneSave);
        kill(child, SIGKILL);
        int status = 0;
        waitpid(child, &status, 0);
        WIFSIGNALED(status) ? ++killed : ++finished;
        const std::string now = folder.text("data.w");
        ASSERT_TRUE(now == whole[0] || now == whole[1]) << "run " << run << ", " << now.size() << " bytes";
        if (now != before) ++changed;
        before = now;
    }
    // The moments must lie on both sides of the step from the old file to the new one.
    EXPECT_GT(killed, 30);
    EXPECT_GT(finished, 3);
    EXPECT_GT(changed, 3);
}

} // namespace
