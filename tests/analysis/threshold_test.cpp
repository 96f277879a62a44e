// The search for a threshold: it sits at the optimum of the profile, or says that there is none.

#include "analysis/threshold.h"

#include <gtest/gtest.h>

#include "session/session.h"
#include "support/lifefixture.h"
#include "support/reference.h"
#include "support/scriptedplatform.h"

namespace {

using Notices = std::vector<std::string>;

class ThresholdTest : public LifeTest {
protected:
    const Cells bent = {"105", "112", "118", "127", "139", "151", "170", "195", "240", "320"};
    const Cells mixed = {"1030", "-1047", "1055", "1069",  "-1080", "1091",
                         "1112", "1140",  "1190", "-1190", "1260"};
    const Cells farbelow = {"310", "345", "368", "390", "402", "421", "437", "455", "478", "512"};
    const Notices impossible = {"Set 1: Find t0 Not Possible ... No Optimum"};

    ThresholdTest() { session.findThreshold = 1; }

    const Cells& cellsof(std::string_view name) const {
        return name == "bent" ? bent : name == "mixed" ? mixed : farbelow;
    }
};

TEST_F(ThresholdTest, SitsAtTheOptimumOfTheProfile) {
    const ReferenceTable table = reference("threshold.csv");
    for (std::size_t i = 0; i < table.rows.size(); ++i) {
        SCOPED_TRACE(std::string(table.text(i, "dataset")) + " " + std::string(table.text(i, "family")) + " "
                     + std::string(table.text(i, "method")));
        choose(table.text(i, "family") == "weibull" ? weibull : lognormal);
        choosemethod(table.text(i, "method") == "mle" ? maximumLikelihood : rankRegression);
        const Cells& cells = cellsof(table.text(i, "dataset"));
        life(cells);
        ASSERT_TRUE(fit().fitted);
        // The measure is flat at its top: half the digits, and the spacing of a single beside them.
        const double t0 = table.number(i, "t0");
        EXPECT_NEAR(session.t0(1), t0, 2e-6 * 230 + 6e-8 * t0);
        const double logEta = std::log(fit().eta);
        const double scale = session.dist == weibull ? 1 / fit().beta : std::log(fit().beta);
        EXPECT_RELATIVE(logEta, table.number(i, "location"), 2e-5);
        EXPECT_RELATIVE(scale, table.number(i, "scale"), 2e-5);
        if (session.fitMethod == maximumLikelihood)
            EXPECT_RELATIVE(session.LOGLYKMLE(1), table.number(i, "measure"), 1e-9);
        else
            EXPECT_RELATIVE(fit().r * fit().r, table.number(i, "measure"), 1e-9);
    }
}

TEST_F(ThresholdTest, AMleLikelihoodWithoutBoundIsToldAndIsNoFit) {
    choosemethod(maximumLikelihood);
    for (const Cells& cells : {bent, mixed}) {
        life(cells);
        EXPECT_FALSE(fit().fitted);
        EXPECT_EQ(session.t0(1), 0);
        EXPECT_EQ(told(), impossible);
    }
}

TEST_F(ThresholdTest, AThresholdThatRecedesForEverIsToldAndIsNoFit) {
    choose(lognormal);
    for (const float method : {rankRegression, maximumLikelihood}) {
        choosemethod(method);
        life(farbelow);
        EXPECT_FALSE(fit().fitted);
        EXPECT_EQ(session.t0(1), 0);
        EXPECT_EQ(told(), impossible);
    }
}

// The likelihood of intervals is bounded, and here it only rises towards their lowest end: no maximum.
TEST_F(ThresholdTest, AMaximumAtTheBorderIsNone) {
    choosemethod(maximumLikelihood);
    session.inputType = intv5;
    life({"0x0x3x10", "10x0x5x20", "20x0x6x30", "30x0x2x40", "-40x0x4"});
    EXPECT_FALSE(fit().fitted);
    EXPECT_EQ(session.t0(1), 0);
    EXPECT_EQ(told(), impossible);
}

TEST_F(ThresholdTest, OfALikelihoodFitMayBeTheOneOfTheRegression) {
    life(bent);
    const float byRegression = session.t0(1);
    choosemethod(maximumLikelihood);
    session.thresholdByRegression = 1;
    life(bent);
    EXPECT_EQ(session.t0(1), byRegression);
    EXPECT_EQ(session.setLabel(1), "mle/t0~r");
}

TEST_F(ThresholdTest, IsShownInTheLabelOfTheSet) {
    life(bent);
    EXPECT_EQ(session.setLabel(1), "rr/t0");
    choosemethod(maximumLikelihood);
    life(farbelow);
    EXPECT_EQ(session.setLabel(1), "mle/t0~m");
}

TEST_F(ThresholdTest, MovesAndStretchesWithTheData) {
    choosemethod(maximumLikelihood);
    life(farbelow);
    const double t0 = session.t0(1);
    const double beta = fit().beta;
    const Cells large = {"310E12", "345E12", "368E12", "390E12", "402E12",
                         "421E12", "437E12", "455E12", "478E12", "512E12"};
    life(large);
    EXPECT_RELATIVE(session.t0(1), t0 * 1e12, 1e-5);
    EXPECT_RELATIVE(fit().beta, beta, 1e-4);
    const Cells small = {"310E-12", "345E-12", "368E-12", "390E-12", "402E-12",
                         "421E-12", "437E-12", "455E-12", "478E-12", "512E-12"};
    life(small);
    EXPECT_RELATIVE(session.t0(1), t0 * 1e-12, 1e-5);
    EXPECT_RELATIVE(fit().beta, beta, 1e-4);
}

TEST_F(ThresholdTest, ASecondRunFindsTheSame) {
    life(bent);
    const float t0 = session.t0(1);
    const Fit first = fit();
    life(bent);
    EXPECT_EQ(session.t0(1), t0);
    EXPECT_EQ(fit(), first);
}

TEST_F(ThresholdTest, EverySetHasItsOwn) {
    sets({bent, mixed});
    const float second = session.t0(2);
    EXPECT_NE(session.t0(1), second);
    life(mixed);
    EXPECT_EQ(session.t0(1), second);
}

TEST_F(ThresholdTest, NeedsThreeOccurrencesAndMoreThanOneValue) {
    for (const Cells& cells : {Cells{"100", "200"}, Cells{"100", "200", "-300"}, Cells{"100x0x5"}}) {
        life(cells);
        EXPECT_FALSE(fit().fitted);
        EXPECT_EQ(told(), impossible);
    }
}

TEST_F(ThresholdTest, FamiliesWithALocationAreFittedWithoutOne) {
    choose(normal);
    session.findThreshold = 0;
    life(bent);
    const Fit plain = fit();
    session.findThreshold = 1;
    life(bent);
    EXPECT_EQ(fit(), plain);
    EXPECT_EQ(session.t0(1), 0);
    EXPECT_EQ(told(), Notices{"Set 1: Find t0 Not Possible"});
}

TEST_F(ThresholdTest, EscapeEndsTheRunAndClearsTheBoundsOfEverySet) {
    session.findThreshold = 0;
    sets({bent, mixed});
    session.findThreshold = 1;
    ScriptedPlatform scripted;
    sets({bent, mixed});
    for (const int row : {1, 2, 4, 5}) session.n(row) = 3;
    scripted.escapeat(2);
    session.abortCode = 0;
    session.currentSet = 1;
    EXPECT_FALSE(findthreshold(1));
    EXPECT_EQ(session.abortCode, escapePressed);
    for (const int row : {1, 2, 4, 5}) EXPECT_EQ(session.n(row), 0);
}

// ---- the scans alone ----

TEST(ThresholdScans, TryTheFirstValueMovedBackByOneTenThousandth) {
    double nearest = -1e300;
    searchthreshold([&](double t0) { return nearest = std::max(nearest, t0), -(t0 - 80) * (t0 - 80); }, 100,
                    50, false);
    EXPECT_DOUBLE_EQ(nearest, 100 - 100.0 / 10000);
}

TEST(ThresholdScans, NeverReachTheFirstValue) {
    const auto rising = [](double t0) {
        EXPECT_LT(t0, 100);
        return t0;
    };
    EXPECT_EQ(searchthreshold(rising, 100, 50, true).end, ThresholdSearch::End::noOptimum);
    EXPECT_EQ(searchthreshold(rising, 100, 50, false).end, ThresholdSearch::End::noOptimum);
}

TEST(ThresholdScans, FindNoOptimumAtTheBorderOfDataFromZero) {
    const auto rising = [](double t0) { return t0; };
    for (const bool likelihood : {false, true})
        EXPECT_EQ(searchthreshold(rising, 0, 50, likelihood).end, ThresholdSearch::End::noOptimum);
}

TEST(ThresholdScans, FindAMaximumAtAnyDistance) {
    for (const double at : {99.7, 97.0, 60.0, -500.0, -1e5}) {
        const auto hill = [at](double t0) { return -std::fabs(t0 - at); };
        for (const bool likelihood : {false, true}) {
            const ThresholdSearch search = searchthreshold(hill, 100, 50, likelihood);
            ASSERT_EQ(search.end, ThresholdSearch::End::found) << at;
            EXPECT_NEAR(search.t0, at, 1e-6 * (100 - at)) << at;
        }
    }
}

TEST(ThresholdScans, PreferTheLocalMaximumToTheRiseWithoutBound) {
    const auto likelihood = [](double t0) { return -std::log(100 - t0) / 10 - (t0 - 80) * (t0 - 80) / 100; };
    const ThresholdSearch search = searchthreshold(likelihood, 100, 50, true);
    ASSERT_EQ(search.end, ThresholdSearch::End::found);
    // Where the slope 1/(10 d) - (t0 - 80)/50 = 0 with d = 100 - t0: d^2 - 20 d + 5 = 0, the farther root.
    EXPECT_NEAR(search.t0, 100 - (20 + std::sqrt(380)) / 2, 1e-5);
}

TEST(ThresholdScans, AMeasureThatIsTheSameEverywhereHasNoOptimum) {
    EXPECT_EQ(searchthreshold([](double) { return 1.0; }, 100, 50, false).end,
              ThresholdSearch::End::noOptimum);
    EXPECT_EQ(searchthreshold([](double) { return noMeasure; }, 100, 50, true).end,
              ThresholdSearch::End::noOptimum);
}

} // namespace
