// Two failure modes in one population: the likelihood, the climb and the fit.

#include "analysis/mixture.h"

#include <gtest/gtest.h>

#include <random>

#include "data/numbertext.h"
#include "plot/transforms.h"
#include "support/lifefixture.h"
#include "support/scriptedplatform.h"

namespace {

using Notices = std::vector<std::string>;

/// An early mode of a part of the population and wear-out of all; some units leave early.
std::vector<double> agesof(int n, double portion, double earlyEta = 100) {
    std::mt19937_64 generator(5);
    std::uniform_real_distribution<double> uniform(0, 1);
    std::vector<double> ages;
    for (int i = 0; i < n; ++i) {
        const bool struck = uniform(generator) < portion;
        const double early = earlyEta * std::pow(-std::log(1 - uniform(generator)), 1 / 0.9);
        const double late = 1000 * std::pow(-std::log(1 - uniform(generator)), 1 / 4.0);
        const double leaves = i % 5 == 0 ? 700 : 1e9;
        const double age = struck ? std::min(early, late) : late;
        ages.push_back(std::min(age, leaves) * (age > leaves ? -1 : 1));
    }
    return ages;
}

std::vector<ModeUnit> unitsof(const std::vector<double>& ages) {
    std::vector<ModeUnit> units;
    for (const double age : ages) units.push_back({std::log(std::fabs(age)), 1, age > 0});
    return units;
}

class MixtureTest : public LifeTest {
protected:
    MixtureTest() {
        session.rndStart = 3;
        session.mcCount = 500;
    }
    static Cells cellsof(const std::vector<double>& ages) {
        Cells cells;
        for (const double age : ages) {
            std::string text;
            appendtrimmed(text, static_cast<float>(age));
            cells.push_back(text);
        }
        return cells;
    }
    void fitmodes(const Cells& cells) {
        choosemethod(maximumLikelihood);
        life(cells);
        session.currentSet = 1;
        session.reportBuffer.clear();
        session.reportColumn = 0;
        mixturefit();
    }
    static TwoModes found() {
        return {{session.mixEtas(1), session.mixEtas(2)},
                {session.mixBetas(1), session.mixBetas(2)},
                session.mixPortions(1)};
    }
};

/// The mixed model of the plot is another path to the same probabilities: its survival, and the density as
/// the slope of its distribution function.
TEST_F(MixtureTest, TheLikelihoodIsThatOfTheMixedModelOfThePlot) {
    const TwoModes modes{{128, 1024}, {0.75, 3.5}, 0.25};
    session.mixFlag = 1;
    session.mixKind = 5;
    for (const int i : {0, 1}) {
        session.mixEtas(i + 1) = static_cast<float>(modes.eta[i]);
        session.mixBetas(i + 1) = static_cast<float>(modes.beta[i]);
    }
    session.mixPortions(1) = static_cast<float>(modes.portion);
    for (const double x : {40.0, 300.0, 900.0}) {
        const auto probability = [](double at) {
            session.dist = weibull;
            session.eta = session.beta = 1;
            session.ud = at;
            txx2pmixd();
            return Probability{session.ud, session.udq};
        };
        const std::vector<ModeUnit> suspended = {{std::log(x), 2, false}};
        EXPECT_RELATIVE(modeslikelihood(modes, suspended), 2 * std::log(probability(x).q), 1e-11);
        const double h = 1e-4 * x;
        const double density = (probability(x + h).p - probability(x - h).p) / (2 * h);
        const std::vector<ModeUnit> failed = {{std::log(x), 3, true}};
        EXPECT_RELATIVE(modeslikelihood(modes, failed), 3 * std::log(density), 1e-8);
    }
}

TEST_F(MixtureTest, NoStepOfTheClimbLowersTheLikelihood) {
    const auto units = unitsof(agesof(60, 0.3));
    for (TwoModes modes : {TwoModes{{200, 800}, {1, 1}, 0.5}, TwoModes{{900, 300}, {5, 0.5}, 0.05},
                           TwoModes{{500, 500}, {2, 2}, 1}}) {
        const bool whole = modes.portion == 1;
        double value = modeslikelihood(modes, units);
        for (int step = 0; step < 50; ++step) {
            modes = improvedmodes(modes, units);
            const double next = modeslikelihood(modes, units);
            EXPECT_GE(next, value - 1e-10 * std::fabs(value));
            value = next;
        }
        EXPECT_EQ(modes.portion == 1, whole);
    }
}

TEST_F(MixtureTest, TheFitSitsAtTheTopOfTheLikelihood) {
    for (const int16_t kind : {int16_t{4}, int16_t{5}}) {
        session.mixKind = kind;
        const auto ages = kind == 4 ? agesof(80, 1, 2000) : agesof(80, 0.3);
        std::vector<double> stored;
        for (const double age : ages) stored.push_back(static_cast<float>(age));
        const auto units = unitsof(stored);
        fitmodes(cellsof(ages));
        ASSERT_EQ(session.mixFlag, 1);
        EXPECT_EQ(session.mixKind, kind);
        const double top = modeslikelihood(found(), units);
        EXPECT_RELATIVE(top, session.logLik, 1e-9);
        EXPECT_GE(top, modeslikelihood({{kind == 4 ? 2000.0 : 100.0, 1000}, {0.9, 4}, kind == 4 ? 1.0 : 0.3},
                                       units));
        for (const double factor : {0.98, 1.02})
            for (int i = 0; i < 5; ++i) {
                TwoModes moved = found();
                if (i < 2) moved.eta[i] *= factor;
                if (i >= 2 && i < 4) moved.beta[i - 2] *= factor;
                if (i == 4) moved.portion *= factor;
                EXPECT_LT(modeslikelihood(moved, units), top) << kind << ' ' << i;
            }
    }
}

TEST_F(MixtureTest, FindsTheModesOfALargeSample) {
    fitmodes(cellsof(agesof(1000, 0.3)));
    // Five standard errors of a thousand units, of which some three hundred fail early.
    EXPECT_NEAR(session.mixPortions(1), 0.3, 5 * std::sqrt(0.3 * 0.7 / 1000) + 0.02);
    EXPECT_RELATIVE(session.mixEtas(2), 1000, 5 / (4 * std::sqrt(500.0)));
    EXPECT_RELATIVE(session.mixBetas(2), 4, 5 * 0.78 / std::sqrt(500.0));
    EXPECT_RELATIVE(session.mixBetas(1), 0.9, 5 * 0.78 / std::sqrt(200.0));
}

// A mode of one failure gains likelihood for ever as it grows steeper: here no second mode shows before all
// have failed by the first.
TEST_F(MixtureTest, AModeThatHoldsASingleFailureIsToldAndIsNoFit) {
    session.mixKind = 4;
    fitmodes(cellsof(agesof(80, 1)));
    EXPECT_EQ(session.mixFlag, 0);
    EXPECT_EQ(told(), Notices{"Set 1: Mixture Fit Not Possible ... No Optimum"});
}

TEST_F(MixtureTest, ReportsBothLikelihoods) {
    fitmodes(cellsof(agesof(40, 0.3)));
    const std::string& text = session.reportBuffer;
    EXPECT_NE(text.find(" LL1="), text.npos) << text;
    EXPECT_NE(text.find(" LL2="), text.npos) << text;
    EXPECT_GE(session.logLik, session.LOGLYKMLE(1));
}

TEST_F(MixtureTest, ALockedStartGivesTheSameModes) {
    const Cells cells = cellsof(agesof(40, 0.3));
    fitmodes(cells);
    const TwoModes first = found();
    fitmodes(cells);
    EXPECT_EQ(found().eta[0], first.eta[0]);
    EXPECT_EQ(found().beta[1], first.beta[1]);
    EXPECT_EQ(found().portion, first.portion);
}

TEST_F(MixtureTest, EscapeTellsAndChangesNothing) {
    choosemethod(maximumLikelihood);
    life(cellsof(agesof(40, 0.3)));
    session.currentSet = 1;
    ScriptedPlatform scripted;
    scripted.escapeat(3);
    scripted.expectmessage("Set 1: Calculation Truncated");
    mixturefit();
    EXPECT_EQ(session.mixFlag, 0);
    EXPECT_EQ(session.mixEtas(1), 0);
}

TEST_F(MixtureTest, NeedsFourExactFailuresOfAWeibull) {
    fitmodes({"10", "20", "30", "-40"});
    EXPECT_EQ(told(), Notices{"Set 1: Not Enough Data"});
    choose(lognormal);
    fitmodes({"10", "20", "30", "40", "50"});
    EXPECT_EQ(told(), Notices{"Set 1: Mixture Fit Not Possible For Data Type"});
    EXPECT_EQ(session.mixFlag, 0);
}

} // namespace
