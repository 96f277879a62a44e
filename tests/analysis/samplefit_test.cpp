// The simulation kernel: it fits a sample as the analysis fits the same data.

#include "analysis/samplefit.h"

#include <gtest/gtest.h>

#include <limits>

#include "support/families.h"
#include "support/lifefixture.h"

namespace {

constexpr double unlimited = std::numeric_limits<double>::infinity();

/// Ages with and without suspensions; whole numbers, which a cell holds exactly.
const std::vector<std::pair<int, bool>> complete = {{31, false}, {12, false}, {58, false}, {44, false},
                                                    {90, false}, {23, false}, {71, false}};
const std::vector<std::pair<int, bool>> censored = {{31, false}, {12, true},  {58, true},  {44, false},
                                                    {90, true},  {23, false}, {71, false}, {31, true},
                                                    {80, false}, {66, true}};
const std::vector<std::pair<int, bool>> oneFailure = {
    {31, false}, {44, true}, {58, true}, {71, true}, {90, true}};

class SampleFitTest : public LifeTest {
protected:
    using Ages = std::vector<std::pair<int, bool>>;

    void analyse(const Ages& ages) {
        Cells cells;
        session.inputType = standard0;
        for (const auto& [age, suspended] : ages)
            cells.push_back(std::to_string(age) + (suspended ? "x0x1x3.3E33" : ""));
        life(cells);
    }

    /// The plan of the session's options for the line of location 0 and scale 1.
    static SamplePlan plan(std::size_t units) {
        SamplePlan made;
        made.parent = familyline(session.dist, session.gumbeltype, 0, 1);
        made.shape = standardline(made.parent).shape;
        made.likelihood = session.fitMethod == maximumLikelihood;
        made.xOnY = session.rrSwap <= 0;
        made.rankMethod = static_cast<int>(session.rankMethod);
        made.mleVariant = session.mleVariant;
        made.leaves.assign(units, unlimited);
        return made;
    }

    static std::vector<SampleUnit> units(const Ages& ages) {
        std::vector<SampleUnit> made;
        const bool logarithmic = session.dist <= lognormal;
        for (const auto& [age, suspended] : ages)
            made.push_back({logarithmic ? std::log(age) : static_cast<double>(age), suspended});
        return made;
    }

    void expectsameline(const Ages& ages) {
        analyse(ages);
        ASSERT_TRUE(fit().fitted);
        SampleLine line;
        ASSERT_TRUE(SampleFitter(plan(ages.size())).fit(units(ages), line));
        const StandardLine expected = standardline({session.dist, session.gumbeltype, fit().eta, fit().beta});
        EXPECT_NEAR(line.location, expected.location, 1e-9 * std::max(1.0, std::fabs(expected.location)));
        EXPECT_RELATIVE(line.scale, expected.scale, 1e-9);
        EXPECT_NEAR(line.rSquared, fit().r * fit().r, 1e-9);
    }
};

TEST_F(SampleFitTest, RegressionGivesTheLineOfTheAnalysisForEveryFamilyPositionAndDirection) {
    for (const ReferenceFamily& family : families)
        for (int method = binomialRank; method <= benardRank; ++method)
            for (const float swap : {0.0f, 1.0f}) {
                if (method == suppliedRank) continue;
                SCOPED_TRACE(family.name + std::string(" ") + std::to_string(method));
                choose(family.family, family.extreme);
                session.rankMethod = static_cast<float>(method);
                session.rrSwap = swap;
                expectsameline(complete);
                expectsameline(censored);
            }
}

TEST_F(SampleFitTest, LikelihoodGivesTheLineOfTheAnalysisWithEveryBiasCorrection) {
    choosemethod(maximumLikelihood);
    for (const ReferenceFamily& family : families)
        for (int16_t variant = 0; variant <= 5; ++variant) {
            SCOPED_TRACE(family.name + std::string(" ") + std::to_string(variant));
            choose(family.family, family.extreme);
            session.mleVariant = variant;
            expectsameline(complete);
            expectsameline(censored);
        }
}

TEST_F(SampleFitTest, OneFailureBelowSuspensionsHasALikelihoodLineAndNoRegressionLine) {
    choosemethod(maximumLikelihood);
    expectsameline(oneFailure);
    SampleLine line;
    SamplePlan byRank = plan(oneFailure.size());
    byRank.likelihood = false;
    EXPECT_FALSE(SampleFitter(byRank).fit(units(oneFailure), line));
}

TEST_F(SampleFitTest, OneFailureAboveAllSuspensionsHasNoLine) {
    choosemethod(maximumLikelihood);
    for (const ReferenceFamily& family : families) {
        choose(family.family, family.extreme);
        SampleLine line;
        EXPECT_FALSE(SampleFitter(plan(3)).fit(units({{5, true}, {7, true}, {9, false}}), line))
            << family.name;
    }
}

TEST_F(SampleFitTest, EqualFailuresAndNoFailuresHaveNoLine) {
    for (const float method : {rankRegression, maximumLikelihood}) {
        choosemethod(method);
        SampleLine line;
        EXPECT_FALSE(SampleFitter(plan(3)).fit(units({{5, false}, {5, false}, {5, false}}), line));
        EXPECT_FALSE(SampleFitter(plan(3)).fit(units({{5, true}, {6, true}, {7, true}}), line));
    }
}

TEST_F(SampleFitTest, AKnownScaleIsKept) {
    for (const float method : {rankRegression, maximumLikelihood}) {
        choosemethod(method);
        for (const ReferenceFamily& family : families) {
            choose(family.family, family.extreme);
            SamplePlan known = plan(censored.size());
            known.fixedScale = true;
            SampleLine line;
            ASSERT_TRUE(SampleFitter(known).fit(units(censored), line)) << family.name;
            EXPECT_EQ(line.scale, 1) << family.name;
        }
    }
}

TEST_F(SampleFitTest, AKnownWeibullScaleHasItsClosedLocation) {
    choosemethod(maximumLikelihood);
    SamplePlan known = plan(censored.size());
    known.fixedScale = true;
    SampleLine line;
    ASSERT_TRUE(SampleFitter(known).fit(units(censored), line));
    double total = 0;
    double failed = 0;
    for (const auto& [age, suspended] : censored) total += age, failed += suspended ? 0 : 1;
    EXPECT_NEAR(line.location, std::log(total / failed), 1e-12);
}

TEST_F(SampleFitTest, UnitsThatOutliveTheirLimitAreSuspendedThere) {
    SamplePlan made = plan(1000);
    std::fill(made.leaves.begin(), made.leaves.begin() + 500, -1.0);
    SampleFitter fitter(made);
    RandomSource source;
    int suspended = 0;
    for (std::size_t i = 0; const SampleUnit& unit : fitter.draw(source)) {
        if (i >= 500) {
            EXPECT_FALSE(unit.suspended);
        } else if (unit.suspended) {
            EXPECT_EQ(unit.z, -1);
            ++suspended;
        } else {
            EXPECT_LE(unit.z, -1);
        }
        ++i;
    }
    // 500 units that survive z = -1 with probability q: five standard deviations of the binomial.
    const double q = std::exp(-std::exp(-1.0));
    EXPECT_NEAR(suspended, 500 * q, 5 * std::sqrt(500 * q * (1 - q)));
}

TEST_F(SampleFitTest, DrawsTheQuantilesOfTheGenerator) {
    choose(gumbel, 1);
    SampleFitter fitter(plan(4));
    RandomSource source;
    RandomSource same;
    for (const SampleUnit& unit : fitter.draw(source))
        EXPECT_NEAR(std::exp(-std::exp(-unit.z)), same.next(), 1e-14);
}

TEST(ListValue, StandsAtThePlaceOfNPlusOne) {
    std::vector<double> list = {30, 10, 20, 40};
    EXPECT_DOUBLE_EQ(listvalue(list, 0.2), 10);
    EXPECT_DOUBLE_EQ(listvalue(list, 0.5), 25);
    EXPECT_DOUBLE_EQ(listvalue(list, 0.7), 35);
    EXPECT_DOUBLE_EQ(listvalue(list, 0.8), 40);
}

TEST(ListValue, IsNoNumberBeyondTheEndsOfTheList) {
    std::vector<double> list = {10, 20, 30, 40};
    EXPECT_TRUE(std::isnan(listvalue(list, 0.19)));
    EXPECT_TRUE(std::isnan(listvalue(list, 0.81)));
    std::vector<double> none;
    EXPECT_TRUE(std::isnan(listvalue(none, 0.5)));
}

} // namespace
