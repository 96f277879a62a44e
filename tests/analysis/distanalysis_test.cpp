// The choice among families: what wins, what is told, and that nothing of it stays behind.

#include "analysis/distanalysis.h"

#include <gtest/gtest.h>

#include "data/numbertext.h"
#include "numeric/normal.h"
#include "support/lifefixture.h"
#include "support/scriptedplatform.h"

namespace {

using Notices = std::vector<std::string>;

class DistAnalysisTest : public LifeTest {
protected:
    /// n values at the plotting positions of a distribution given by its quantile.
    template <class Quantile>
    static Cells quantiles(int n, Quantile quantile) {
        Cells cells;
        for (int i = 1; i <= n; ++i) {
            std::string text;
            appendsignificant(text, quantile((i - 0.3) / (n + 0.4)), 7);
            cells.push_back(text);
        }
        return cells;
    }
    static Cells weibulls(int n) {
        return quantiles(n, [](double p) { return 100 * std::pow(-std::log(1 - p), 0.5); });
    }
    static Cells lognormals(int n) {
        return quantiles(n, [](double p) { return 100 * std::exp(1.5 * normquantile(p)); });
    }
    static Cells largest(int n) {
        return quantiles(n, [](double p) { return 50 - 20 * std::log(-std::log(p)); });
    }

    static std::string analysed() {
        session.reportBuffer.clear();
        session.reportColumn = 0;
        distributionanalysis();
        return session.reportBuffer;
    }
    static bool holds(const std::string& text, std::string_view part) { return text.find(part) != text.npos; }
};

TEST(BestCandidate, IsTheEarlierOfATie) {
    EXPECT_EQ(bestcandidate(std::vector<double>{0.2, 0.5, 0.5, 0.1}), 1);
    EXPECT_EQ(bestcandidate(std::vector<double>{-40, -30, -30}), 1);
}

TEST(BestCandidate, NeedsAMeasure) {
    EXPECT_EQ(bestcandidate(std::vector<double>{-9e30, NAN, -9e30}), -1);
    EXPECT_EQ(bestcandidate(std::vector<double>{}), -1);
}

// The median of chi-square with one degree of freedom is 0.454936423119573.
TEST(ConfidenceOfWinner, IsChiSquareOfTheCorrectedRatio) {
    const double n = 25;
    const double correction = 24 / 25.618;
    EXPECT_NEAR(confidenceofwinner(-100 + 0.454936423119573 / 2 / correction, -100, n), 0.5, 1e-9);
    EXPECT_NEAR(confidenceofwinner(-100 + 3.841458820694124 / 2 / correction, -100, n), 0.95, 1e-9);
    EXPECT_EQ(confidenceofwinner(-100, -100, n), 0);
    EXPECT_EQ(confidenceofwinner(-101, -100, n), 0);
    EXPECT_EQ(confidenceofwinner(-90, -100, 1), 0);
}

TEST_F(DistAnalysisTest, FindsTheFamilyOfDataThatMayBeNegative) {
    session.negativeXAllowed = 1;
    session.batchActive = 1;
    choose(normal);
    life(largest(30));
    const std::string text = analysed();
    EXPECT_TRUE(holds(text, "Data Distribution Analysis Regression Fit Value [ccc^2]")) << text;
    EXPECT_TRUE(holds(text, "Optimum = Gumbel+")) << text;
    EXPECT_FALSE(holds(text, "Weibull")) << text;
    EXPECT_FALSE(holds(text, "Caution")) << text;
}

TEST_F(DistAnalysisTest, TriesTheNormalWhereItIsAsked) {
    session.batchActive = 1;
    life(weibulls(22));
    EXPECT_FALSE(holds(analysed(), "  Normal"));
    session.normalCandidate = 1;
    const std::string text = analysed();
    EXPECT_TRUE(holds(text, "  Normal")) << text;
    EXPECT_LT(text.find("2-Parameter Weibull"), text.find("3-Parameter Weibull"));
    EXPECT_LT(text.find("3-Parameter Weibull"), text.find("2-Parameter LogNormal"));
    EXPECT_LT(text.find("3-Parameter LogNormal"), text.find("  Normal"));
}

TEST_F(DistAnalysisTest, BelowTwentyOneOccurrencesCautionsForTheStandard) {
    life(weibulls(20));
    const std::string text = analysed();
    EXPECT_TRUE(holds(text, "(Caution: Occr < 21 ... 2-Parameter Weibull = Standard)")) << text;
}

TEST_F(DistAnalysisTest, AtMleTheStandardStaysWhereNothingIsBetterThanByChance) {
    session.batchActive = 1;
    choosemethod(maximumLikelihood);
    life(weibulls(40));
    const std::string text = analysed();
    EXPECT_TRUE(holds(text, "Data Distribution Analysis + Likelihood Ratio Test")) << text;
    EXPECT_TRUE(holds(text, "Optimum = 2-Parameter Weibull")) << text;
}

TEST_F(DistAnalysisTest, AtMleASuspensionAtZeroDoesNotHideTheWeibull) {
    session.batchActive = 1;
    choosemethod(maximumLikelihood);
    life({"-1", "0", "0", "5", "10", "12"});
    const std::string text = analysed();
    // The log likelihood of 5, 10 and 12 with a survivor of age 1: mpmath, 40 digits.
    EXPECT_TRUE(holds(text, "  2-Parameter Weibull = -7.40209")) << text;
}

TEST_F(DistAnalysisTest, AtMleAClearWinnerStandsAndMayBeAccepted) {
    choosemethod(maximumLikelihood);
    life(lognormals(40));
    ScriptedPlatform scripted;
    scripted.expectmenu("Present Distribution = 2-Parameter Weibull\nOptimum = ", 1);
    const std::string text = analysed();
    EXPECT_TRUE(holds(text, "Parameter LogNormal")) << text;
    EXPECT_EQ(session.dist, lognormal) << text;
    EXPECT_EQ(session.findThreshold, holds(text, "Optimum = 3") ? 1 : 0);
}

TEST_F(DistAnalysisTest, ARefusedOfferChangesNothing) {
    choosemethod(maximumLikelihood);
    life(lognormals(40));
    ScriptedPlatform scripted;
    scripted.expectmenu("Change", 2);
    analysed();
    EXPECT_EQ(session.dist, weibull);
    EXPECT_EQ(session.findThreshold, 0);
}

TEST_F(DistAnalysisTest, TellsItsCallerOfAChangeForWhichTheCycleMustRun) {
    choosemethod(maximumLikelihood);
    life(lognormals(40));
    for (const int answer : {2, 1}) {
        ScriptedPlatform scripted;
        scripted.expectmenu("Change", answer);
        EXPECT_EQ(distributionanalysis(), answer == 1);
    }
    EXPECT_FALSE(distributionanalysis()) << "what is in force is not offered";
}

TEST_F(DistAnalysisTest, OffersNothingToAScript) {
    choosemethod(maximumLikelihood);
    life(lognormals(40));
    session.scriptRequest = "[WVW]";
    EXPECT_TRUE(holds(analysed(), "LogNormal"));
    EXPECT_EQ(session.dist, weibull);
    EXPECT_EQ(session.findThreshold, 0);
}

TEST_F(DistAnalysisTest, DoesNotOfferWhatIsInForce) {
    choosemethod(maximumLikelihood);
    life(weibulls(40));
    ScriptedPlatform scripted;
    EXPECT_TRUE(holds(analysed(), "Optimum = 2-Parameter Weibull"));
}

TEST_F(DistAnalysisTest, LeavesTheSessionAsItWas) {
    session.batchActive = 1;
    sets({weibulls(12), lognormals(22), weibulls(5)});
    session.t0(1) = 3;
    session.lineHide(3) = 1;
    session.fixedSlope = 2;
    sets({weibulls(12), lognormals(22), weibulls(5)});
    session.currentSet = 2;
    const Fit first = fit(1);
    const Fit second = fit(2);
    const auto messages = session.setMessages;
    analysed();
    EXPECT_EQ(fit(1), first);
    EXPECT_EQ(fit(2), second);
    EXPECT_EQ(session.setMessages, messages);
    EXPECT_EQ(session.t0(1), 3);
    EXPECT_EQ(session.lineHide(1), 0);
    EXPECT_EQ(session.lineHide(3), 1);
    EXPECT_EQ(session.dist, weibull);
    EXPECT_EQ(session.fixedSlope, 2);
    EXPECT_EQ(session.findThreshold, 0);
    EXPECT_EQ(session.currentSet, 2);
    EXPECT_EQ(session.quiet, 0);
}

TEST_F(DistAnalysisTest, ACandidateWithoutALineDoesNotEndIt) {
    session.batchActive = 1;
    choosemethod(maximumLikelihood);
    life({"105", "112", "118", "127", "139", "151", "170", "195", "240", "320"});
    const std::string text = analysed();
    EXPECT_TRUE(holds(text, "3-Parameter Weibull = Not Possible")) << text;
    EXPECT_TRUE(holds(text, "3-Parameter LogNormal =")) << text;
    EXPECT_TRUE(holds(text, "Optimum = ")) << text;
}

TEST_F(DistAnalysisTest, NeedsThreeOccurrences) {
    for (const Cells& cells : {Cells{}, Cells{"10", "20"}, Cells{"10", "20", "-30", "-40"}}) {
        life(cells);
        session.setMessages[0].clear();
        session.currentSet = 1;
        EXPECT_EQ(analysed(), "");
        EXPECT_EQ(told(0), Notices{"Distribution Analysis Not Possible\nTotal Quantity - Susp < 3"});
    }
}

TEST_F(DistAnalysisTest, TellsWhenNoCandidateHasALine) {
    life({"10", "10", "10"});
    session.setMessages[0].clear();
    session.currentSet = 1;
    EXPECT_FALSE(holds(analysed(), "Optimum"));
    EXPECT_EQ(told(0), Notices{"Distribution Analysis Not Possible"});
}

TEST_F(DistAnalysisTest, EscapeEndsItWithoutAResult) {
    life(weibulls(25));
    const Fit before = fit();
    ScriptedPlatform scripted;
    scripted.escapeat(3);
    EXPECT_FALSE(holds(analysed(), "Optimum"));
    EXPECT_EQ(session.abortCode, escapePressed);
    EXPECT_EQ(fit(), before);
    EXPECT_EQ(session.dist, weibull);
}

} // namespace
