#include "data/importwarranty.h"

#include <gtest/gtest.h>

#include "data/textnormalize.h"
#include "session/capacities.h"

namespace {

using Sets = std::vector<std::vector<std::string>>;

Sets read(std::string_view text, const char* choice = "W", std::size_t titleRow = 0) {
    ImportOptions options;
    options.titleRow = titleRow;
    return importread(textnormalize(text), *importchoice(lifeSide, choice).form, options).cells;
}

} // namespace

// Worked by hand. Shipped 500, 600, 400 in three months; column j is month j.
//   row 1: returns 1, 2, 4 at ages 1, 2, 3; 493 have reached age 3
//   row 2: returns 3, 5 at ages 1, 2; 592 have reached age 2
//   row 3: returns 2 at age 1; 398 have reached age 1
// By age: 1: 1 + 3 + 2 = 6 returned; 2: 2 + 5 = 7; 3: 4.
TEST(ImportWarranty, AddsTheReturnsOfEachAgeAndSuspendsTheRest) {
    const Sets byHand = {{"1x0x6x0", "-1x0x398x0", "2x0x7x0", "-2x0x592x0", "3x0x4x0", "-3x0x493x0"}};
    EXPECT_EQ(read("500\t1\t2\t4\n600\t\t3\t5\n400\t\t\t2\n"), byHand);
    EXPECT_EQ(read("500 1 2 4\n600 0 3 5\n400 0 0 2\n"), byHand) << "zeros before the production";
    EXPECT_EQ(read("May\t500\t1\t2\t4\nJun\t600\t\t3\t5\nJul\t400\t\t\t2\n"), byHand)
        << "names of the months";
    EXPECT_EQ(
        read("Month\tMade\tMay\tJun\tJul\nMay\t500\t1\t2\t4\nJun\t600\t\t3\t5\nJul\t400\t\t\t2\n", "W", 1),
        byHand);
    EXPECT_EQ(read("500 1 2 4\n600 3 5\n400 2\n"), byHand) << "the same table by age";
}

TEST(ImportWarranty, GivesIntervalsForTheLikelihood) {
    EXPECT_EQ(read("500 1 2\n600 0 3\n", "M3"),
              (Sets{{"1x0x4x-3.3E+33", "1x0x597x3.3E+33", "1x0x2x2", "2x0x497x3.3E+33"}}));
}

TEST(ImportWarranty, ShowsARowThatCannotBe) {
    EXPECT_EQ(read("5\t3\t3\n100\t\t1\n"), (Sets{{"? 5 3 3", "1x0x1x0", "-1x0x99x0"}}))
        << "more returned than made";
    EXPECT_EQ(read("100\t1\t2\n100\t1\t1\n")[0][0], "? 100 1 1") << "returned before it was made";
    EXPECT_EQ(read("100\t1\t-2\n100\t\t1\n")[0][0], "? 100 1 -2");
    EXPECT_EQ(read("100\t1\tx\n100\t\t1\n")[0][0], "? 100 1 x");
}

TEST(ImportWarranty, RowsThatNobodyHasObservedSayNothing) {
    EXPECT_EQ(read("100\t1\n200\t\n"), (Sets{{"1x0x1x0", "-1x0x99x0"}}));
}

TEST(ImportWarranty, AnEmptyLineBeginsTheNextTable) {
    EXPECT_EQ(read("100 1\n\n200 2\n"), (Sets{{"1x0x1x0", "-1x0x99x0"}, {"1x0x2x0", "-1x0x198x0"}}));
}

TEST(ImportWarranty, YearsThatFollowOneAnotherAreTheNamesOfThePeriods) {
    const Sets bare = read("5000\t1\t2\n6000\t\t3\n");
    EXPECT_EQ(read("2021\t5000\t1\t2\n2022\t6000\t\t3\n"), bare);
    EXPECT_NE(read("2021\t1\t2\n2025\t\t3\n"), read("1\t2\n\t3\n")) << "any other numbers are quantities";
}
