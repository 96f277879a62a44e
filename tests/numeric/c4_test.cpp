#include "numeric/c4.h"

#include <gtest/gtest.h>

#include "support/reference.h"

TEST(BiasFactor, UpToEightyIsTheTrueValue) {
    const ReferenceTable table = reference("c4.csv");
    ErrorSummary errors;
    for (std::size_t i = 0; i < table.rows.size(); ++i)
        if (table.number(i, "n") <= 80)
            errors.add(c4(table.number(i, "n")), table.number(i, "c4"), table.text(i, "n"));
    EXPECT_EQ(errors.count, 79u);
    errors.expectwithin(1.2e-16);
}

TEST(BiasFactor, AboveEightyIsTheFormWithItsOwnError) {
    const ReferenceTable table = reference("c4.csv");
    ErrorSummary errors;
    for (std::size_t i = 0; i < table.rows.size(); ++i)
        if (table.number(i, "n") > 80)
            errors.add(c4(table.number(i, "n")), table.number(i, "c4"), table.text(i, "n"));
    errors.expectwithin(8.4e-8);
    EXPECT_EQ(c4(100), 395.5 / 396.5);
}

TEST(BiasFactor, OneAndBelowIsTheGuardValue) {
    for (const double n : {1.0, 1.999, 0.0, -5.0}) EXPECT_EQ(c4(n), 0) << n;
}

TEST(BiasFactor, ArgumentIsRoundedDownFirst) {
    EXPECT_EQ(c4(2.99), c4(2));
    EXPECT_EQ(c4(38.5), c4(38));
    EXPECT_EQ(c4(80.999), c4(80));
    EXPECT_EQ(c4(81.5), c4(81));
}

TEST(BiasFactor, HugeCountNeedsNoCorrection) { EXPECT_EQ(c4(1e308), 1); }
