// The driver: what it does with each set, what it tells, and what it leaves behind.

#include "analysis/calcsmain.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <numeric>

#include "plot/transforms.h"
#include "support/allocations.h"
#include "support/lifefixture.h"
#include "support/scriptedplatform.h"

namespace {

constexpr double digits = 1e-12;

using Notices = std::vector<std::string>;

class CalcsmainTest : public LifeTest {
protected:
    const Cells good = {"150", "230", "310"};

    static double benardy(double r, double N) {
        return plotyofp(session.dist, session.gumbeltype, (r - 0.3) / (N + 0.4));
    }
    static double meanof(const std::vector<double>& values) {
        return std::accumulate(values.begin(), values.end(), 0.0) / static_cast<double>(values.size());
    }
};

// ---- sets ----

TEST_F(CalcsmainTest, AnEmptySessionOnlyRestoresTheMethod) {
    session.fitMethodSaved = maximumLikelihood;
    sets({});
    EXPECT_EQ(session.fitMethod, maximumLikelihood);
    EXPECT_TRUE(desktop.messages.empty());
    EXPECT_EQ(setcount(), 0);
    EXPECT_EQ(session.cycleComplete, 1);
}

TEST_F(CalcsmainTest, FitsEverySetOnItsOwn) {
    life(good);
    const Fit alone = fit();
    sets({{"15", "23", "31"}, good, {"10", "30", "80"}});
    EXPECT_TRUE(fit(1).fitted);
    EXPECT_EQ(fit(2), alone);
    EXPECT_TRUE(fit(3).fitted);
    EXPECT_NE(fit(3).beta, alone.beta);
}

TEST_F(CalcsmainTest, ABadSetLeavesTheOthersAlone) {
    life(good);
    const Fit alone = fit();
    sets({good, {"100", "100"}, good});
    EXPECT_EQ(fit(1), alone);
    EXPECT_FALSE(fit(2).fitted);
    EXPECT_EQ(fit(3), alone);
    EXPECT_TRUE(told(1).empty());
    EXPECT_EQ(told(2).size(), 1u);
    EXPECT_TRUE(told(3).empty());
}

TEST_F(CalcsmainTest, ABadProbitRowStopsItsOwnSetAlone) {
    session.inputType = prbt2;
    const Cells rows = {"10x0x2x20", "20x0x8x20", "30x0x15x20"};
    sets({{"10x0x0x20", "20x0x8x20"}, rows});
    EXPECT_FALSE(fit(1).fitted);
    EXPECT_TRUE(fit(2).fitted);
}

TEST_F(CalcsmainTest, SkipsAHiddenSet) {
    session.lineHide(1) = 1;
    sets({{"100", "100"}, good});
    EXPECT_FALSE(fit(1).fitted);
    EXPECT_TRUE(told(1).empty());
    EXPECT_TRUE(fit(2).fitted);
}

TEST_F(CalcsmainTest, ForgetsTheLineOfASetThatGivesNoneAnyMore) {
    life(good);
    ASSERT_TRUE(fit().fitted);
    life({"100", "100"});
    EXPECT_FALSE(fit().fitted);
    EXPECT_EQ(fit().r, 0);
}

TEST_F(CalcsmainTest, EscapeEndsTheRunWithTheResultsSoFar) {
    ScriptedPlatform scripted;
    scripted.escapeat(3); // one look at the start of the cycle, one a set
    sets({good, good, good});
    EXPECT_EQ(session.abortCode, escapePressed);
    EXPECT_TRUE(fit(1).fitted);
    EXPECT_FALSE(fit(2).fitted);
    EXPECT_FALSE(fit(3).fitted);
}

TEST_F(CalcsmainTest, EscapeAsksNothingAfterwards) {
    session.inputType = prbt2;
    session.groupingOption = 1;
    ScriptedPlatform scripted;
    scripted.escapeat(2);
    life({"10x0x2x20", "20x0x8x30"});
    EXPECT_EQ(session.abortCode, escapePressed);
    EXPECT_TRUE(scripted.shown.empty());
}

TEST_F(CalcsmainTest, ShowsWhatItIsAtInTheCaption) {
    ScriptedPlatform scripted;
    sets({good, good});
    const auto& calls = scripted.windowCalls;
    const auto first = std::find(calls.begin(), calls.end(), "caption: Set 1 Order + Calculation ...");
    const auto second = std::find(first, calls.end(), "caption: Set 2 Order + Calculation ...");
    EXPECT_NE(second, calls.end());
    EXPECT_NE(std::find(second, calls.end(), "caption: Results Display ..."), calls.end());
}

// ---- too little data ----

const std::string weibayesOrMle =
    "Set 1: Not Enough Data\nPossible Analysis:\n1) Weibayes\n2) Method ... Change To mle";
const std::string byMle = "Set 1: Not Enough Data\nPossible Analysis:\n1) mle";

TEST_F(CalcsmainTest, TwoFailuresAtOneAgeGiveNoLine) {
    life({"100", "100"});
    EXPECT_FALSE(fit().fitted);
    EXPECT_EQ(told(), Notices{weibayesOrMle});
    EXPECT_EQ(desktop.messages, told());
}

TEST_F(CalcsmainTest, WhereThereIsNoLineTheMiddleOfTheFirstTwoValuesStandsWithSlopeThree) {
    life({"100", "100", "-160"});
    EXPECT_EQ(fit().eta, 100);
    EXPECT_EQ(fit().beta, 3);
    session.rrSwap = 1;
    life({"100", "-120", "100"});
    EXPECT_EQ(fit().eta, 100);
    EXPECT_EQ(fit().beta, 3);
}

TEST_F(CalcsmainTest, ASingleFailureBelowASuspensionCanBeFittedByLikelihood) {
    life({"100", "-200"});
    EXPECT_FALSE(fit().fitted);
    EXPECT_EQ(told(), Notices{byMle});
}

TEST_F(CalcsmainTest, ASingleFailureAboveAllSuspensionsNeedsASlope) {
    life({"-50", "100"});
    EXPECT_FALSE(fit().fitted);
    EXPECT_EQ(told(), Notices{weibayesOrMle});
}

TEST_F(CalcsmainTest, SuspensionsAloneGiveNoLine) {
    life({"-50", "-100", "-200"});
    EXPECT_FALSE(fit().fitted);
    EXPECT_EQ(told(), Notices{weibayesOrMle});
    EXPECT_EQ(session.countSusp(1), 3);
}

TEST_F(CalcsmainTest, OneRowOfInspectionOrGroupedInputIsNotEnough) {
    const std::string text = "Set 1: Not Enough Data\nInspect 1 <> Possible\nPossible Analysis = Weibayes";
    for (const int16_t type : {insp1, prbt2, prbt3, km4}) {
        session.inputType = type;
        life({"100x0x2x20"});
        EXPECT_FALSE(fit().fitted) << type;
        ASSERT_FALSE(told().empty()) << type;
        EXPECT_EQ(told().back(), text) << type;
    }
}

TEST_F(CalcsmainTest, DataThatAThresholdTakesToZeroOrBelowAreRefused) {
    session.t0(1) = 150;
    life(good);
    EXPECT_FALSE(fit().fitted);
    EXPECT_EQ(told(), Notices{"Set 1: Data? ... <= 0?\nPossible Analysis = Weibayes"});
}

TEST_F(CalcsmainTest, ALineThatFallsIsNoFit) {
    session.inputType = prbt2;
    life({"10x0x15x20", "20x0x8x20", "30x0x2x20"});
    EXPECT_FALSE(fit().fitted);
    EXPECT_EQ(told(), Notices{"Set 1: rr/prbt2 Fit Not Possible"});
}

TEST_F(CalcsmainTest, CellsThatTheInputTypeDoesNotReadAreTold) {
    life({">100<200", "230", "310"});
    EXPECT_EQ(told(), Notices{"Set 1: Interval Data? ... Present Input Type = Standard"});
}

// ---- fixed slopes ----

TEST_F(CalcsmainTest, OneFailureGivesALineWithAFixedSlope) {
    session.fixedSlope = 2;
    life({"100", "-200"});
    EXPECT_TRUE(fit().fitted);
    EXPECT_EQ(fit().beta, 2);
    EXPECT_RELATIVE(fit().eta, 100 / std::sqrt(-std::log1p(-0.7 / 2.4)), digits);
}

TEST_F(CalcsmainTest, AFixedWeibullSlopePassesThroughTheCentreOfThePoints) {
    session.fixedSlope = 2.5f;
    life(good);
    const double y = meanof({benardy(1, 3), benardy(2, 3), benardy(3, 3)});
    const double x = meanof({std::log(150), std::log(230), std::log(310)});
    EXPECT_EQ(fit().beta, 2.5);
    EXPECT_RELATIVE(fit().eta, std::exp(x - y / 2.5), digits);
}

TEST_F(CalcsmainTest, AFixedLognormalSpreadIsTheSpreadFactor) {
    choose(lognormal);
    session.fixedSlope = 1.5f;
    life({"150", "230", "-260", "310"});
    EXPECT_RELATIVE(fit().beta, 1.5, digits);
    // Ranks 1, 2, 2 + 3/2; the centre of the points lies off y = 0.
    const double y = meanof({benardy(1, 4), benardy(2, 4), benardy(3.5, 4)});
    const double x = meanof({std::log(150), std::log(230), std::log(310)});
    EXPECT_RELATIVE(fit().eta, std::exp(x - y * std::log(1.5)), digits);
}

TEST_F(CalcsmainTest, AFixedLognormalSpreadFactorBelowOneGivesNoLine) {
    choose(lognormal);
    session.fixedSlope = 0.5f;
    life(good);
    EXPECT_FALSE(fit().fitted);
    EXPECT_EQ(told(), Notices{"Set 1: rr Fit Not Possible"});
}

TEST_F(CalcsmainTest, AFixedLognormalSpreadFactorOfOneIsOutOfRange) {
    choose(lognormal);
    session.fixedSlope = 1;
    life(good);
    EXPECT_FALSE(fit().fitted);
    EXPECT_EQ(told(), Notices{"Set 1: Parameter Too Big Or Too Small ..."});
}

TEST_F(CalcsmainTest, ParametersBeyondTheNumericRangeAreTold) {
    session.inputType = intv5; // big values stay in it
    life({"1", "1e30", "-1e30x0x98"});
    EXPECT_FALSE(fit().fitted);
    EXPECT_EQ(told(), Notices{"Set 1: Parameter Too Big Or Too Small ..."});
}

TEST_F(CalcsmainTest, AFixedSpreadStillNeedsAFailure) {
    choose(lognormal);
    session.fixedSlope = 2;
    life({"-10", "-20"});
    EXPECT_FALSE(fit().fitted);
    EXPECT_EQ(told(), Notices{weibayesOrMle});
}

TEST_F(CalcsmainTest, AFixedNormalOrGumbelSpreadIsTheSpread) {
    struct {
        Dist family;
        int extreme;
    } const families[] = {{normal, -1}, {gumbel, -1}, {gumbel, 1}};
    for (const auto& [family, extreme] : families) {
        choose(family, extreme);
        session.fixedSlope = 40;
        life({"150", "230", "-260", "310"});
        const double y = meanof({benardy(1, 4), benardy(2, 4), benardy(3.5, 4)});
        EXPECT_RELATIVE(fit().beta, 40, digits);
        EXPECT_RELATIVE(fit().eta, 230 - y * 40, digits);
    }
}

TEST_F(CalcsmainTest, AFixedSlopeGivesFailuresAtOneAgeALine) {
    session.fixedSlope = 2;
    life({"100", "100"});
    const double y = meanof({benardy(1, 2), benardy(2, 2)});
    EXPECT_TRUE(fit().fitted);
    EXPECT_RELATIVE(fit().eta, std::exp(std::log(100) - y / 2), digits);
}

// ---- families ----

TEST_F(CalcsmainTest, TheSampleDeviationOfACompleteSetHasTheDivisorOneLess) {
    choose(normal);
    life({"10", "12", "15", "19"});
    EXPECT_RELATIVE(session.sampleSd(1), std::sqrt(46 / 3.0), digits); // mean 14: 16 + 4 + 1 + 25
}

TEST_F(CalcsmainTest, TheSampleDeviationOfLognormalDataIsThatOfTheirLogarithms) {
    choose(lognormal);
    life({"10", "100", "1000"});
    EXPECT_RELATIVE(session.sampleSd(1), std::log(10), digits);
}

TEST_F(CalcsmainTest, ASetWithSuspensionsHasNoSampleDeviation) {
    choose(normal);
    life({"10", "12", "15", "-19"});
    EXPECT_TRUE(fit().fitted);
    EXPECT_EQ(session.sampleSd(1), 0);
}

TEST_F(CalcsmainTest, TheLargestExtremeIsTheMirrorOfTheSmallest) {
    session.negativeXAllowed = 1;
    choose(gumbel, -1);
    life({"-90", "-30", "10", "80"});
    const Fit smallest = fit();
    EXPECT_TRUE(smallest.fitted);
    choose(gumbel, 1);
    life({"90", "30", "-10", "-80"});
    EXPECT_RELATIVE(fit().eta, -smallest.eta, digits);
    EXPECT_RELATIVE(fit().beta, smallest.beta, digits);
}

TEST_F(CalcsmainTest, NegativeValuesAreDataWhereTheyAreAllowed) {
    session.negativeXAllowed = 1;
    choose(normal);
    life({"-30", "-10", "10", "30"});
    EXPECT_EQ(session.countOccr(1), 4);
    EXPECT_TRUE(fit().fitted);
    EXPECT_NEAR(fit().eta, 0, 1e-12 * 30);
}

TEST_F(CalcsmainTest, NegativeValuesAreSuspensionsOfAFamilyThatHasNone) {
    session.negativeXAllowed = 1;
    life({"-30", "10", "20", "40"});
    EXPECT_EQ(session.countSusp(1), 1);
    EXPECT_EQ(session.countOccr(1), 3);
}

TEST_F(CalcsmainTest, NegativeValuesAreSuspensionsWhereTheyAreNotAllowed) {
    choose(normal);
    life({"-30", "10", "20", "40"});
    EXPECT_EQ(session.countSusp(1), 1);
}

TEST_F(CalcsmainTest, AThresholdShiftsTheValues) {
    for (const Dist family : {weibull, lognormal, normal, gumbel}) {
        choose(family);
        session.t0(1) = 0;
        life(good);
        const Fit plain = fit();
        EXPECT_TRUE(plain.fitted);
        session.t0(1) = 1000;
        life({"1150", "1230", "1310"});
        EXPECT_EQ(fit(), plain) << family;
        EXPECT_EQ(session.setLabel(1), "rr/t0");
        EXPECT_EQ(session.paramThree(1), 1000);
    }
}

TEST_F(CalcsmainTest, TheParametersAreKeptByMethodToo) {
    life(good);
    EXPECT_EQ(session.paramA(1, 1), fit().eta);
    EXPECT_EQ(session.paramB(1, 1), fit().beta);
    const double square = session.setCorrelation(1) * session.setCorrelation(1);
    EXPECT_EQ(session.correlation(1), static_cast<float>(square));
    EXPECT_TRUE(session.correlationLabel(1).starts_with("r^2 .")) << session.correlationLabel(1);
}

TEST_F(CalcsmainTest, ASetThatFailsKeepsNothingOfItsFormerLine) {
    life(good);
    ASSERT_GT(session.paramA(1, 1), 0);
    life({"150"});
    EXPECT_EQ(session.paramA(1, 1), 0);
    EXPECT_EQ(session.paramB(1, 1), 0);
    EXPECT_EQ(session.correlationLabel(1), "");
    EXPECT_EQ(session.lineLabelA(1), "");
}

TEST_F(CalcsmainTest, ABigSetChangesNoOtherSet) {
    const Cells tied = {"10", "10", "20", "30"};
    life(tied);
    const Fit alone = fit();
    sets({{"60000", "70000", "90000"}, tied});
    EXPECT_EQ(fit(2), alone);
    EXPECT_EQ(session.setInputType(1), insp1);
    EXPECT_EQ(session.setLabel(1), "rr/insp1");
    EXPECT_EQ(session.setInputType(2), standard0);
    EXPECT_EQ(session.setLabel(2), "rr");
    sets({tied, {"60000", "70000", "90000"}});
    EXPECT_EQ(fit(1), alone);
}

TEST_F(CalcsmainTest, ABigSetWithoutALineIsNotCalledInspection) {
    life({"60000", "-70000", "-80000"});
    EXPECT_EQ(session.setInputType(1), standard0);
    EXPECT_EQ(desktop.messages.size(), 1u);
}

TEST_F(CalcsmainTest, AnIntervalThatEndsBeforeItBeginsRefusesTheSet) {
    session.inputType = intv5;
    for (const char* cell : {"20x0x1x10", "10x0x1x-5"}) {
        life({cell, "30x0x1x40", "50"});
        EXPECT_FALSE(fit().fitted) << cell;
        ASSERT_EQ(desktop.messages.size(), 1u) << cell;
        EXPECT_EQ(desktop.messages[0], "Set 1: Bad Interval ... Upper < Lower");
    }
}

TEST_F(CalcsmainTest, OneInspectionRowHasALineWhereTheSlopeIsKnown) {
    session.inputType = insp1;
    session.fixedSlope = 1;
    life({"50", "-60x0x9"});
    EXPECT_TRUE(fit().fitted);
    EXPECT_EQ(fit().beta, 1);
}

// ---- methods ----

TEST_F(CalcsmainTest, AtMleAFailureAboveAllSuspensionsIsRefused) {
    choosemethod(maximumLikelihood);
    for (const Cells& cells : {Cells{"-50", "100"}, Cells{"100", "-100"}, Cells{"-50x0x9", "100", "-100"}}) {
        life(cells);
        EXPECT_EQ(told(), Notices{"Set 1: Suspension Too Small"});
    }
}

TEST_F(CalcsmainTest, AtMleASuspensionAboveTheFailureIsEnough) {
    choosemethod(maximumLikelihood);
    life({"100", "-101"});
    EXPECT_TRUE(fit().fitted);
    EXPECT_TRUE(told().empty());
}

TEST_F(CalcsmainTest, AtMleAFixedSlopeLetsAFailureAboveAllSuspensionsThrough) {
    choosemethod(maximumLikelihood);
    session.fixedSlope = 2;
    life({"-50", "100"});
    EXPECT_RELATIVE(fit().eta, std::sqrt(50.0 * 50 + 100.0 * 100), digits);
    EXPECT_TRUE(told().empty());
}

TEST_F(CalcsmainTest, TheMethodIsRestoredFromTheSavedOneAtTheEnd) {
    session.fitMethod = rankRegression;
    session.fitMethodSaved = maximumLikelihood;
    life(good);
    EXPECT_TRUE(fit().fitted); // by rr, the method of this run
    EXPECT_EQ(session.fitMethod, maximumLikelihood);
}

TEST_F(CalcsmainTest, AFixedSlopeTakesTheSavedMethodFromTheStart) {
    session.fixedSlope = 2;
    session.fitMethod = maximumLikelihood;
    session.fitMethodSaved = rankRegression;
    life(good);
    EXPECT_TRUE(fit().fitted);
}

TEST_F(CalcsmainTest, UnknownCodesFallBackToTheStandard) {
    session.dist = 9;
    session.gumbeltype = 1;
    session.fitMethod = 7;
    session.mleVariant = 3;
    session.fixedSlope = -2;
    methodcheck();
    EXPECT_EQ(session.dist, weibull);
    EXPECT_EQ(session.gumbeltype, -1);
    EXPECT_EQ(session.fitMethod, rankRegression);
    EXPECT_EQ(session.mleVariant, 0);
    EXPECT_EQ(session.fixedSlope, 0);
    session.fixedSlope = std::numeric_limits<float>::quiet_NaN();
    methodcheck();
    EXPECT_EQ(session.fixedSlope, 0);
}

// ---- the run title and bounds ----

TEST_F(CalcsmainTest, TheRunTitleNamesTheMethodAndTheFit) {
    life(good);
    EXPECT_EQ(session.runTitle, "(rr Fit)");
    session.rrSwap = 1;
    life(good);
    EXPECT_EQ(session.runTitle, "(rrs Fit)");
    choosemethod(maximumLikelihood);
    session.mleVariant = 2;
    life(good);
    EXPECT_EQ(session.runTitle, "(RBAmd Fit)");
}

TEST_F(CalcsmainTest, TheRunTitleNamesTheKindOfBounds) {
    const std::pair<int16_t, std::string> titles[] = {{3, "(rr Fit) Likelihood Contour "},
                                                      {-3, "(rr Fit) Assurance ... 1 vs. 2"},
                                                      {4, "(rr Fit) Simulation Results "},
                                                      {-5, "(rr Fit) Simulation Results "},
                                                      {2, "(rr Fit)"}};
    for (const auto& [kind, title] : titles) {
        session.confMethod = kind;
        life(good);
        EXPECT_EQ(session.runTitle, title) << kind;
    }
}

TEST_F(CalcsmainTest, NormalBoundsAreClearedForASetWithSuspensions) {
    choose(normal);
    session.confMethod = 6;
    session.confLow = 5;
    session.confHigh = 95;
    life({"10", "12", "15", "-19"});
    EXPECT_EQ(told(), Notices{"Set 1: No Normal Confidence With Suspension"});
    EXPECT_EQ(session.confLow, 0);
    EXPECT_EQ(session.confHigh, 0);
    EXPECT_TRUE(fit().fitted);
}

TEST_F(CalcsmainTest, ARunWithoutBoundsLeavesNoneOfAnEarlierRun) {
    session.n(1) = session.n(2) = 7; // low and high bound of set 1
    session.confLow = 5;
    life(good);
    EXPECT_EQ(session.n(1), 0);
    EXPECT_EQ(session.n(2), 0);
}

TEST_F(CalcsmainTest, ALognormalSetWithoutBoundsIsNotToldOfThem) {
    choose(lognormal);
    session.confMethod = 6;
    life({"10", "12", "15", "-19"});
    EXPECT_TRUE(told().empty());
}

TEST_F(CalcsmainTest, ABoundOnTheThresholdSideTakesNoThreshold) {
    session.confMethod = -50;
    session.findThreshold = 1;
    life(good);
    EXPECT_EQ(told(0), Notices{"t0 = 0 For BW Results"});
    EXPECT_EQ(session.findThreshold, 0);
    EXPECT_TRUE(fit().fitted);
}

TEST_F(CalcsmainTest, SeveralSetsClearTheAutomaticBoundMethodUnlessOneIsActive) {
    session.confAuto = 1;
    session.lineHide(2) = 1;
    sets({good, good});
    EXPECT_EQ(session.confAuto, 1);
    session.lineHide(2) = 0;
    sets({good, good});
    EXPECT_EQ(session.confAuto, 0);
}

// ---- the caution of sample sizes ----

const std::string caution = "Input Type Inspect Sample To Sample = No Difference\n"
                            "Set 2 Point To Point Sample Quantity = Difference\n"
                            "Change Input Type To Difference?";

class CautionTest : public CalcsmainTest {
protected:
    const std::vector<Cells> differing = {{"10x0x2x20", "20x0x8x20"}, {"10x0x2x20", "20x0x8x30"}};
    ScriptedPlatform scripted;

    CautionTest() {
        session.inputType = prbt2;
        session.groupingOption = 1;
    }
};

TEST_F(CautionTest, YesTakesTheSamplesAsDifferent) {
    scripted.expectmenu(caution, 1);
    sets(differing);
    EXPECT_EQ(session.groupingOption, 2);
    ASSERT_EQ(scripted.shown.size(), 1u);
    EXPECT_EQ(scripted.shown[0].text, caution);
    EXPECT_EQ(scripted.shown[0].header, "Caution");
    EXPECT_EQ(scripted.shown[0].items, (Notices{"Y...Yes", "N...No"}));
}

TEST_F(CautionTest, NoLeavesThemAsTheyAre) {
    scripted.expectmenu(caution, 2);
    sets(differing);
    EXPECT_EQ(session.groupingOption, 1);
}

TEST_F(CautionTest, IsNotAskedForEqualSamples) {
    sets({{"10x0x2x20", "20x0x8x20"}, {"10x0x2x30", "20x0x8x30"}});
    EXPECT_TRUE(scripted.shown.empty());
}

TEST_F(CautionTest, IsNotAskedWhereSamplesMayDiffer) {
    session.groupingOption = 2;
    sets(differing);
    EXPECT_TRUE(scripted.shown.empty());
}

// ---- cost ----

TEST_F(CalcsmainTest, ASecondCycleOverEightSetsAllocatesNothing) {
    sets(std::vector<Cells>(8, {"150", "230x0x3", "-240", "310", "-400x0x5"}));
    for (int k = 1; k <= 8; ++k) ASSERT_TRUE(fit(k).fitted) << k;
    const std::size_t before = allocationcount();
    calcplot();
    EXPECT_EQ(allocationcount() - before, 0u);
}

} // namespace
