// What a script asks for behind its run: it is in the report, and the results of the run stay what they were.

#include "session/followups.h"

#include <gtest/gtest.h>

#include "data/resultsjson.h"
#include "session/scriptoutput.h"
#include "support/lifefixture.h"

namespace {

// Millions of revolutions of 23 ball bearings; Lieblein and Zelen, J. Res. NBS 57 (1956).
const std::vector<std::string> bearings = {"17.88",  "28.92",  "33.00",  "41.52",  "42.12", "45.60",
                                           "48.40",  "51.84",  "51.96",  "54.12",  "55.56", "67.80",
                                           "68.64",  "68.64",  "68.88",  "84.12",  "93.12", "98.64",
                                           "105.12", "105.84", "127.92", "128.04", "173.40"};
const std::vector<std::string> suspended = {"150", "230", "-400", "310", "95"};

class Followups : public LifeTest {
protected:
    Followups() { session.scriptRequest = "[WVW]"; }

    /// Everything that a script can put out of the results.
    static std::string results() {
        std::string json;
        writeresults(json);
        return outputtext("R").value_or("") + outputtext("E").value_or("") + outputtext("MTBF").value_or("")
               + session.runTitle + json;
    }
    /// Results and options before and behind the follow-ups; what these have added to the report.
    static std::string followed() {
        const std::string before = results();
        const std::string report = session.reportBuffer;
        const int family = session.dist;
        const int threshold = session.findThreshold;
        const int method = session.confMethod;
        const float slope = session.fixedSlope;
        followups();
        EXPECT_EQ(results(), before);
        EXPECT_EQ(session.dist, family);
        EXPECT_EQ(session.findThreshold, threshold);
        EXPECT_EQ(session.confMethod, method);
        EXPECT_EQ(session.fixedSlope, slope);
        EXPECT_TRUE(session.reportBuffer.starts_with(report));
        return session.reportBuffer.substr(report.size());
    }
    static bool holds(const std::string& text, std::string_view part) { return text.find(part) != text.npos; }
};

TEST_F(Followups, TheChoiceAmongFamiliesLeavesTheLineOfOneSetAsItWas) {
    session.distributionAsked = 1;
    for (const Dist family : {weibull, lognormal, normal, gumbel})
        for (const float method : {rankRegression, maximumLikelihood}) {
            choose(family);
            choosemethod(method);
            life(bearings);
            const std::string text = followed();
            EXPECT_TRUE(holds(text, "\r\nSet 1: Data Distribution Analysis")) << text;
            EXPECT_TRUE(holds(text, "Optimum = ")) << text;
            EXPECT_TRUE(desktop.messages.empty());
        }
}

TEST_F(Followups, TheChoiceAmongFamiliesLeavesThresholdsAsTheyWere) {
    session.distributionAsked = 1;
    session.findThreshold = 1;
    for (const float method : {rankRegression, maximumLikelihood}) {
        choosemethod(method);
        sets({bearings, suspended});
        EXPECT_NE(session.t0(1), 0);
        const std::string text = followed();
        EXPECT_TRUE(holds(text, "Set 2: Data Distribution Analysis")) << text;
    }
}

TEST_F(Followups, AThresholdTypedInStays) {
    session.distributionAsked = 1;
    sets({bearings, suspended});
    session.t0(1) = 12;
    calcplot();
    EXPECT_EQ(session.t0(1), 12);
    followed();
}

TEST_F(Followups, SimulatedBoundsStayThoughTheStartOfTheSimulationVaries) {
    session.distributionAsked = 1;
    session.confLow = 10;
    session.confHigh = 90;
    session.mcCount = 200;
    for (const int16_t method : {pivotalBounds, likelihoodBounds, fisherBounds}) {
        session.confMethod = method;
        sets({bearings, suspended});
        EXPECT_GT(session.n(1), 0);
        followed();
    }
}

TEST_F(Followups, TheAutomaticRuleStaysInForce) {
    session.distributionAsked = session.confAuto = 1;
    session.confLow = 10;
    session.confHigh = 90;
    choosemethod(maximumLikelihood);
    life(suspended);
    followed();
    EXPECT_EQ(session.confAuto, 1);
}

TEST_F(Followups, AKnownSlopeStays) {
    session.distributionAsked = 1;
    session.fixedSlope = 2;
    sets({bearings, suspended});
    EXPECT_TRUE(holds(followed(), "Set 2: Data Distribution Analysis"));
    EXPECT_EQ(session.fixedSlope, 2);
}

TEST_F(Followups, TheGridStandsOnTheLineOfTheRun) {
    choose(lognormal);
    choosemethod(maximumLikelihood);
    session.gridAsked = 1;
    sets({bearings, suspended});
    const std::string alone = followed();
    session.distributionAsked = 1;
    calcplot();
    const std::string both = followed();
    for (const char* heading :
         {"\r\n\r\nSet 1: Likelihood Value Grid", "\r\n\r\nSet 2: Likelihood Value Grid"})
        EXPECT_TRUE(holds("\r\n" + alone, heading)) << alone;
    const auto second = alone.find("\r\nSet 2: Likelihood Value Grid");
    EXPECT_TRUE(holds(both, alone.substr(0, second))) << both;
    EXPECT_TRUE(holds(both, alone.substr(second))) << both;
}

TEST_F(Followups, AFamilyThatCannotBeFittedDoesNotEndTheSearch) {
    session.distributionAsked = session.gridAsked = 1;
    session.findThreshold = 1;
    choosemethod(maximumLikelihood);
    life({"105", "112", "118", "127", "139", "151", "170", "195", "240", "320"});
    ASSERT_FALSE(fit().fitted);
    const std::string text = followed();
    EXPECT_TRUE(holds(text, "Set 1: Data Distribution Analysis")) << text;
    EXPECT_TRUE(holds(text, "Optimum = ")) << text;
    EXPECT_FALSE(holds(text, "Grid")) << text;
}

TEST_F(Followups, WhatIsRefusedForTheRunStandsInTheReportWithItsSet) {
    session.distributionAsked = 1;
    sets({bearings, {"10", "10", "10"}, {"10", "20"}});
    followups();
    const std::string& text = session.reportBuffer;
    EXPECT_TRUE(holds(text, "!! Set 2: Distribution Analysis Not Possible\r\n")) << text;
    EXPECT_TRUE(holds(text, "!! Set 3: Distribution Analysis Not Possible\r\n   Total Quantity - Susp < 3"))
        << text;
    EXPECT_FALSE(holds(text, "!! Set 1")) << text;
}

TEST_F(Followups, ARefusedMixtureIsTold) {
    session.mixtureAsked = 5;
    const auto refused = [this](const Cells& cells) {
        life(cells);
        return followups(), session.reportBuffer;
    };
    EXPECT_TRUE(holds(refused({"10", "20", "30"}), "!! Set 1: Not Enough Data\r\n"));
    EXPECT_TRUE(holds(refused({"10", "-20"}), "!! Set 1: Not Enough Data\r\n")) << "a set without a line";
    session.popPortion = .5f;
    EXPECT_TRUE(holds(refused(bearings), "!! Set 1: Mixture Fit Not Possible For Data Type\r\n"));
    session.popPortion = 0;
    choose(lognormal);
    EXPECT_TRUE(holds(refused(bearings), "!! Set 1: Mixture Fit Not Possible For Data Type\r\n"));
}

TEST_F(Followups, AHiddenSetIsLeftOut) {
    session.distributionAsked = 1;
    sets({bearings, bearings});
    session.lineHide(1) = 1;
    calcplot();
    const std::string text = followed();
    EXPECT_FALSE(holds(text, "Set 1: Data")) << text;
    EXPECT_TRUE(holds(text, "Set 2: Data")) << text;
}

} // namespace
