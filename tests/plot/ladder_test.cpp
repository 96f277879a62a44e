#include "plot/ladder.h"

#include <gtest/gtest.h>

#include <charconv>
#include <cmath>
#include <fstream>
#include <limits>
#include <set>

#include "session/session.h"

namespace {

struct Row {
    int index = 0;
    std::string label;
    double lowest = 0;
};

double number(std::string_view text) {
    if (!text.empty() && text.front() == ' ') text.remove_prefix(1);
    double value = std::numeric_limits<double>::quiet_NaN();
    std::from_chars(text.data(), text.data() + text.size(), value);
    return value;
}

std::vector<Row> readrows() {
    std::vector<Row> rows;
    std::ifstream file(VANEX_TESTS_DIR "/reference/probability_labels.csv");
    for (std::string text; std::getline(file, text);) {
        if (text.empty() || text[0] == '#' || text.starts_with("index")) continue;
        const auto first = text.find(','), second = text.rfind(',');
        rows.push_back({static_cast<int>(number(text.substr(0, first))),
                        text.substr(first + 1, second - first - 1), number(text.substr(second + 1))});
    }
    return rows;
}

/// Labels with the registers put back afterwards.
class Ladder : public testing::Test {
protected:
    static std::string label(double percent, float index = noTickIndex) {
        session.ud = percent;
        session.tickindex = index;
        session.msg = "before";
        probticklabel();
        EXPECT_TRUE(std::isnan(percent) || session.ud == percent);
        EXPECT_EQ(session.tickindex, index);
        return session.msg;
    }
    static std::string mirrored(double percent) { return label(percent, reliabilityLabels); }

    Keep<double, float, std::string, int16_t> keep{session.ud, session.tickindex, session.msg,
                                                   session.yScaleKind};
    const std::vector<Row> rows = readrows();
};

} // namespace

TEST_F(Ladder, GivesEachLabelFromItsLowestPercent) {
    ASSERT_EQ(rows.size(), 118u);
    for (const Row& row : rows) EXPECT_EQ(label(row.lowest), " " + row.label) << row.lowest;
}

TEST_F(Ladder, GivesTheNextLabelJustBelow) {
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const std::string next = i + 1 < rows.size() ? " " + rows[i + 1].label : " <1E-31";
        EXPECT_EQ(label(std::nextafter(rows[i].lowest, 0)), next) << rows[i].lowest;
    }
}

TEST_F(Ladder, GivesTheLabelOfAnIndexWhateverThePercent) {
    std::set<int> seen;
    for (const Row& row : rows) {
        if (row.index == 0) continue;
        EXPECT_EQ(label(50, static_cast<float>(row.index)), " " + row.label);
        seen.insert(row.index);
    }
    EXPECT_EQ(seen.size(), 54u); // -25 to 30 without 0 and 22
}

TEST_F(Ladder, NamesTheLineOfTheCharacteristicValue) {
    EXPECT_EQ(label(63.212, 22), " 63.212");
    EXPECT_EQ(label(5, 22), " 63.212");
    EXPECT_EQ(label(63.212), " 60");
}

TEST_F(Ladder, CountsItsOneLabelsDownToTheIndexOfThe31stPlace) {
    EXPECT_EQ(label(50, 30), " 99.999");
    EXPECT_EQ(label(50, 15), " 5");
    EXPECT_EQ(label(50, 14), " 2");
    EXPECT_EQ(label(50, 2), " .0002");
    EXPECT_EQ(label(50, -2), " 1E-07");
    EXPECT_EQ(label(50, -15), " 1E-20");
    EXPECT_EQ(label(50, -21), " 1E-26");
    EXPECT_EQ(label(50, -22), " 1E-28");
    EXPECT_EQ(label(50, -25), " 1E-31");
}

TEST_F(Ladder, SearchesByThePercentForAnIndexItDoesNotHave) {
    EXPECT_EQ(label(50, 31), " 50");
    EXPECT_EQ(label(50, -26), " 50");
    EXPECT_EQ(label(50, 14.5f), " 50");
}

TEST_F(Ladder, HasNoLabelOfThe27thPlace) {
    for (double percent = 1e-32; percent < 100; percent *= 1.01)
        ASSERT_EQ(label(percent).find("E-27"), std::string::npos);
    for (int index = -40; index <= 40; ++index)
        ASSERT_EQ(label(3e-27, static_cast<float>(index)).find("E-27"), std::string::npos);
    EXPECT_EQ(label(7e-28), " 1E-26");
    EXPECT_EQ(label(6.9e-28), " 5E-28");
}

TEST_F(Ladder, TellsOfWhatLiesBelowAllLabels) {
    EXPECT_EQ(label(6.9e-32), " <1E-31");
    EXPECT_EQ(label(0), " <1E-31");
    EXPECT_EQ(label(100), " 99.9999");
}

TEST_F(Ladder, GivesTheEmptyTextForWhatIsNoPercent) {
    EXPECT_EQ(label(-1e-30), "");
    EXPECT_EQ(label(100.000001), "");
    EXPECT_EQ(label(std::numeric_limits<double>::quiet_NaN()), "");
    EXPECT_EQ(label(std::numeric_limits<double>::infinity()), "");
    session.yScaleKind = reliabilityPercent;
    EXPECT_EQ(mirrored(-1), "");
    EXPECT_EQ(mirrored(101), "");
    EXPECT_EQ(mirrored(std::numeric_limits<double>::quiet_NaN()), "");
}

TEST_F(Ladder, MirrorsThePercentOnAReliabilityAxis) {
    for (const int16_t kind : {reliabilityPercent, reliabilityProbability, reliabilityPerThousand}) {
        session.yScaleKind = kind;
        EXPECT_EQ(mirrored(1), " 99");
        EXPECT_EQ(mirrored(2), " 98");
        EXPECT_EQ(mirrored(5), " 95");
        EXPECT_EQ(mirrored(10), " 90");
        EXPECT_EQ(mirrored(50), " 50");
        EXPECT_EQ(mirrored(90), " 10");
        EXPECT_EQ(mirrored(95), " 5");
        EXPECT_EQ(mirrored(99), " 1");
        EXPECT_EQ(mirrored(99.9), " .1");
        EXPECT_EQ(mirrored(99.999), " .001");
        EXPECT_EQ(mirrored(100), " <1E-31");
    }
}

TEST_F(Ladder, MirrorsNothingOnAnOccurrenceAxis) {
    for (const int16_t kind : {occurrencePercent, occurrenceProbability, occurrencePerThousand}) {
        session.yScaleKind = kind;
        EXPECT_EQ(mirrored(1), " 1");
        EXPECT_EQ(mirrored(99), " 99");
    }
}

TEST_F(Ladder, MirrorsEveryTickToItsTrueValue) {
    session.yScaleKind = reliabilityPercent;
    for (const LadderTick& tick : ladder()) {
        const std::string text = mirrored(tick.percent);
        EXPECT_NEAR(number(text), 100 - tick.percent, 1e-14 + 1e-12 * (100 - tick.percent)) << tick.label;
    }
}

TEST_F(Ladder, WritesOutTheNinesOfASmallPercent) {
    session.yScaleKind = reliabilityPercent;
    EXPECT_EQ(mirrored(.001), " 99.999");
    EXPECT_EQ(mirrored(.0005), " 99.9995");
    EXPECT_EQ(mirrored(.0001), " 99.9999");
    EXPECT_EQ(mirrored(1e-9), " 99.999999999");
}

TEST_F(Ladder, EndsInAHundredWhereNoNineIsLeft) {
    session.yScaleKind = reliabilityPercent;
    EXPECT_EQ(mirrored(1e-20), " 100");
    EXPECT_EQ(mirrored(0), " 100");
}

TEST_F(Ladder, HasItsTicksInRisingOrderFromThe31stPlaceTo99999) {
    const auto ticks = ladder();
    EXPECT_EQ(ticks.front().percent, 1e-31);
    EXPECT_EQ(ticks.back().percent, 99.999);
    for (std::size_t i = 1; i < ticks.size(); ++i) EXPECT_LT(ticks[i - 1].percent, ticks[i].percent);
    EXPECT_EQ(ticks.size(), 31u * 3 + 9 + 5); // 1-2-5 of the units and of 30 places; tens; 95 to 99.999
}

TEST_F(Ladder, HasTicksThatBearTheirOwnPercent) {
    for (const LadderTick& tick : ladder()) {
        EXPECT_EQ(tick.percent, number(tick.label));
        EXPECT_EQ(label(tick.percent), tick.label);
    }
}

TEST_F(Ladder, DrawsTheDecadesHeavy) {
    std::set<std::string> heavy;
    for (const LadderTick& tick : ladder())
        if (tick.heavy) heavy.insert(std::string(tick.label));
    for (const char* text :
         {" 1E-31", " 1E-07", " .001", " .1", " 1", " 10", " 90", " 99", " 99.9", " 99.99", " 99.999"})
        EXPECT_TRUE(heavy.contains(text)) << text;
    for (const char* text : {" 2E-31", " 5", " 20", " 50", " 95"}) EXPECT_FALSE(heavy.contains(text)) << text;
    EXPECT_EQ(heavy.size(), 37u); // 1E-31 to 10 without the 27th place, and the five above
}
