#include "platform/headless/headless.h"

#include <gtest/gtest.h>

#include <ctime>

namespace {

const std::vector<std::string> items = {"A...Activate", "B...Back"};

std::string localdate(std::time_t time) {
    const std::tm* t = std::localtime(&time);
    const auto two = [](int n) { return (n < 10 ? "0" : "") + std::to_string(n); };
    return std::to_string(t->tm_year + 1900) + '-' + two(t->tm_mon + 1) + '-' + two(t->tm_mday);
}

} // namespace

TEST(Headless, AnswersAMenuWithItsDefault) {
    HeadlessPlatform headless;
    EXPECT_EQ(headless.prompts().menu({"", "Lead", items, 2}), 2);
}

TEST(Headless, AnswersAMenuWithoutDefaultByTheFirstItem) {
    HeadlessPlatform headless;
    EXPECT_EQ(headless.prompts().menu({"", "Lead", items, 0}), 1);
    EXPECT_EQ(headless.prompts().menu({"", "Lead", items, 3}), 1);
    EXPECT_EQ(headless.prompts().menu({"", "Lead", items, -1}), 1);
}

TEST(Headless, HasNoAnswerForAPageWithoutItems) {
    HeadlessPlatform headless;
    EXPECT_EQ(headless.prompts().menu({"", "Lead", {}, 0}), 0);
}

TEST(Headless, KeepsTheMessagesInOrder) {
    HeadlessPlatform headless;
    headless.prompts().message("Header", "first");
    headless.prompts().message("", "second");
    EXPECT_EQ(headless.messages, (std::vector<std::string>{"first", "second"}));
}

TEST(Headless, HasNoEvents) {
    HeadlessPlatform headless;
    headless.window().caption("Data");
    headless.window().repaintplot();
    EXPECT_FALSE(headless.window().pendingevents());
    EXPECT_TRUE(headless.messages.empty());
}

TEST(Headless, GivesTodaysDate) {
    HeadlessPlatform headless;
    const std::string before = localdate(std::time(nullptr));
    const std::string date = headless.clock().date();
    const std::string after = localdate(std::time(nullptr));
    EXPECT_TRUE(date == before || date == after) << date;
}
