// The lists of the built-in samples, each held to what its source, or a later author, publishes of it.

#include "data/samples.h"

#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <string>
#include <vector>

#include "data/cell.h"
#include "data/numbertext.h"
#include "support/reference.h"

namespace {

using Row = std::vector<std::string>;

/// Pieces of a text between marks, without the empty ones.
Row pieces(std::string_view text, std::string_view marks) {
    Row found;
    for (std::size_t at = 0; at < text.size();) {
        const auto end = std::min(text.find_first_of(marks, at), text.size());
        if (end > at) found.emplace_back(text.substr(at, end - at));
        at = end + 1;
    }
    return found;
}

/// Rows of a sample as handed over, cut at "x" and tabs; a label is the last piece.
std::vector<Row> rows(int number, std::string_view marks = "x_\t") {
    std::vector<Row> all;
    for (const std::string& line : pieces(sampletext(number).value().text, "\r\n"))
        all.push_back(pieces(line, marks));
    return all;
}

double value(const std::string& text) {
    const NumberText read = readnumber(text);
    EXPECT_TRUE(read.readable) << text;
    return read.value;
}

struct Moments {
    double n = 0, mx = 0, my = 0, xx = 0, yy = 0, xy = 0;
    double slope() const { return xy / xx; }
    double intercept() const { return my - slope() * mx; }
    double r2() const { return xy * xy / (xx * yy); }
};

Moments moments(int number, std::size_t x, std::size_t y) {
    Moments m;
    const auto all = rows(number);
    for (const Row& row : all) {
        m.n += 1;
        m.mx += value(row.at(x));
        m.my += value(row.at(y));
    }
    m.mx /= m.n;
    m.my /= m.n;
    for (const Row& row : all) {
        const double dx = value(row[x]) - m.mx;
        const double dy = value(row[y]) - m.my;
        m.xx += dx * dx;
        m.yy += dy * dy;
        m.xy += dx * dy;
    }
    return m;
}

TEST(Samples, AreElevenAndNoOthers) {
    for (int number = 1; number <= 11; ++number) {
        const Sample* const sample = sampledata(number);
        ASSERT_NE(sample, nullptr) << number;
        EXPECT_EQ(sample->number, number);
        EXPECT_TRUE(sample->label.starts_with(std::to_string(number) + static_cast<char>(sample->side)));
        EXPECT_FALSE(sample->source.empty());
    }
    for (const int none : {-1, 0, 12, 100}) {
        EXPECT_EQ(sampledata(none), nullptr);
        EXPECT_FALSE(sampletext(none));
    }
}

TEST(Samples, TitlesEndInWords) {
    EXPECT_EQ(sampletitle(*sampledata(1)), "1W - Lawless [1982] p. 228 Life Test");
    EXPECT_EQ(sampletitle(*sampledata(6)), "6W");
    EXPECT_EQ(sampletitle(*sampledata(9)), "9V - Recurrent");
}

TEST(Samples, TextHasTabsBetweenItemsAndALineEndBehindEachRow) {
    const auto handed = sampletext(11).value();
    EXPECT_TRUE(handed.text.starts_with("10\t8.04\t10\t9.14\t10\t7.46\t8\t6.58\r\n8\t6.95\t"));
    EXPECT_TRUE(handed.text.ends_with("\t6.89\r\n"));
    EXPECT_EQ(handed.format, 'A');
    EXPECT_EQ(handed.title, "11A - Anscombe [1973]");
    EXPECT_EQ(sampletext(6).value().text, "");
}

TEST(Samples, EveryItemIsANumber) {
    for (int number = 1; number <= 11; ++number)
        for (const Row& row : rows(number))
            for (std::size_t i = 0; i < row.size() - (number == 9 ? 1 : 0); ++i) value(row[i]);
}

/// Value, quantity and kind, in any order, summed over equal units.
std::map<double, double> units(const ReferenceTable& table, bool suspended) {
    std::map<double, double> found;
    for (std::size_t i = 0; i < table.rows.size(); ++i)
        if ((table.text(i, "type") == "susp") == suspended)
            found[table.number(i, "value")] += table.number(i, "quantity");
    return found;
}
std::map<double, double> units(int number, bool suspended) {
    std::map<double, double> found;
    for (const Row& row : rows(number)) {
        const double x = value(row[0]);
        if ((x < 0) == suspended) found[std::fabs(x)] += row.size() > 2 ? value(row[2]) : 1;
    }
    return found;
}

TEST(Samples, LifeDataEqualTheListsOfOthers) {
    const std::map<int, std::string> lists = {
        {1, "data_bearings.csv"}, {2, "data_leukemia6mp.csv"}, {3, "data_fans.csv"}};
    for (const auto& [number, file] : lists)
        for (const bool suspended : {false, true})
            EXPECT_EQ(units(number, suspended), units(reference(file), suspended)) << file;
}

TEST(Samples, FansHaveThePublishedTotalTime) {
    // Nelson 1982: 12 failures in 344,440 hours, a mean of 28,701 hours.
    double hours = 0;
    double count = 0;
    double failures = 0;
    for (const bool suspended : {false, true})
        for (const auto& [x, quantity] : units(3, suspended)) {
            hours += x * quantity;
            count += quantity;
            if (!suspended) failures += quantity;
        }
    EXPECT_EQ(hours, 344440);
    EXPECT_EQ(count, 70);
    EXPECT_NEAR(hours / failures, 28701, 3);
}

TEST(Samples, CracksAreTheIntervalCountsAddedUp) {
    const ReferenceTable cracks = reference("data_cracks.csv");
    const auto all = rows(4);
    ASSERT_EQ(all.size() + 1, cracks.rows.size()) << "the last row of the list are the survivors";
    double cracked = 0;
    for (std::size_t i = 0; i < all.size(); ++i) {
        cracked += cracks.number(i, "quantity");
        EXPECT_EQ(value(all[i][0]), cracks.number(i, i == 0 ? "value" : "upper"));
        EXPECT_EQ(value(all[i][2]), cracked);
        EXPECT_EQ(value(all[i][3]), 167);
    }
    EXPECT_EQ(cracked + cracks.number(all.size(), "quantity"), 167);
    EXPECT_EQ(sampledata(4)->inputType, prbt2) << "parts affected up to X, sample size";
}

TEST(Samples, BearingCagesAre1703With6Fractures) {
    double failures = 0;
    double suspensions = 0;
    for (const auto& [x, quantity] : units(5, false)) failures += quantity;
    for (const auto& [x, quantity] : units(5, true)) suspensions += quantity;
    EXPECT_EQ(failures, 6);
    EXPECT_EQ(failures + suspensions, 1703);
}

TEST(Samples, GrowthDataGiveTheEstimatesOfTheStandard) {
    const ReferenceTable times = reference("growthdata_iec.csv");
    const auto all = rows(7);
    ASSERT_EQ(all.size(), times.rows.size() + 1);
    double logs = 0;
    for (std::size_t i = 0; i < times.rows.size(); ++i) {
        EXPECT_EQ(value(all[i][0]), times.number(i, "time"));
        EXPECT_EQ(value(all[i][1]), static_cast<double>(i + 1));
        logs += std::log(1000 / value(all[i][0]));
    }
    EXPECT_EQ(all.back(), (Row{"1000", "52"})) << "the end of the test";
    const double beta = 51 / logs; // without bias, for a test that ends at a time
    EXPECT_NEAR(beta, 0.5623, 5e-5);
    EXPECT_NEAR(1000 / (52 * beta), 34.2, 0.05) << "time between failures at the end";
}

TEST(Samples, SpeedOfLightHasTheCertifiedMoments) {
    // NIST StRD, Michelso: mean 299.852400000000, standard deviation 0.0790105478190518, 100 observations
    // in thousands of km/s.
    const auto all = rows(8);
    ASSERT_EQ(all.size(), 100u);
    double mean = 0;
    for (const Row& row : all) mean += value(row[0]) / 100;
    double squares = 0;
    for (const Row& row : all) squares += (value(row[0]) - mean) * (value(row[0]) - mean);
    EXPECT_NEAR(mean, 852.4, 1e-10);
    EXPECT_NEAR(std::sqrt(squares / 99), 79.0105478190518, 1e-10);
}

TEST(Samples, SpeedOfLightHasTheMeansOfTheFiveRuns) {
    // Means of 20 determinations each, as the five experiments are tabulated since Stigler 1977.
    const double means[] = {909, 856, 845, 820.5, 831.5};
    const auto all = rows(8);
    for (std::size_t run = 0; run < 5; ++run) {
        double sum = 0;
        for (std::size_t i = 0; i < 20; ++i) sum += value(all.at(run * 20 + i)[0]);
        EXPECT_EQ(sum / 20, means[run]);
    }
}

/// Repairs and end of observation of each car.
struct Car {
    std::vector<double> repairs;
    std::vector<double> ends;
};
std::map<std::string, Car> cars() {
    std::map<std::string, Car> found;
    for (const Row& row : rows(9)) {
        Car& car = found[row.back()];
        (row.size() == 3 ? car.repairs : car.ends).push_back(value(row[0]));
    }
    return found;
}

TEST(Samples, EveryCarIsObservedToAnEndBehindItsRepairs) {
    const auto all = cars();
    EXPECT_EQ(all.size(), 34u);
    std::size_t repairs = 0;
    for (const auto& [label, car] : all) {
        ASSERT_EQ(car.ends.size(), 1u) << label;
        for (const double repair : car.repairs) EXPECT_LT(repair, car.ends[0]) << label;
        repairs += car.repairs.size();
    }
    EXPECT_EQ(repairs, 10u);
}

TEST(Samples, RepairsOfTransmissionsAddUpToThePublishedFunction) {
    // Nelson 1998: 0.31 repairs a car by 24,000 miles, from increments that are rounded to two places.
    const auto all = cars();
    double repairs = 0;
    for (const auto& [label, car] : all)
        for (const double at : car.repairs) {
            double observed = 0;
            for (const auto& [other, one] : all) observed += one.ends[0] >= at ? 1 : 0;
            repairs += 1 / observed;
        }
    EXPECT_NEAR(repairs, 0.31, 0.0075);
}

TEST(Samples, CalibrationDataGiveTheCertifiedLine) {
    // NIST StRD, Norris, with its certified residual standard deviation.
    const Moments m = moments(10, 0, 1);
    EXPECT_EQ(m.n, 36);
    EXPECT_NEAR(m.slope(), 1.00211681802045, 1e-13);
    EXPECT_NEAR(m.intercept(), -0.262323073774029, 1e-11);
    EXPECT_NEAR(m.r2(), 0.999993745883712, 1e-13);
    EXPECT_NEAR(std::sqrt((m.yy - m.slope() * m.xy) / 34), 0.884796396144373, 1e-8);
}

TEST(Samples, TheFourSetsOfAnscombeHaveOneLine) {
    // Anscombe 1973: means 9.0 and 7.5, sum of squares 110.0, Y = 3 + 0.5 X, r^2 0.667 in each.
    for (std::size_t set = 0; set < 4; ++set) {
        const Moments m = moments(11, 2 * set, 2 * set + 1);
        EXPECT_EQ(m.n, 11);
        EXPECT_EQ(m.mx, 9);
        EXPECT_EQ(m.xx, 110);
        EXPECT_NEAR(m.my, 7.5, 0.005);
        EXPECT_NEAR(m.slope(), 0.5, 0.0005);
        EXPECT_NEAR(m.intercept(), 3, 0.005);
        EXPECT_NEAR(m.r2(), 0.667, 0.001);
    }
}

} // namespace
