// The table of the likelihood over the two parameters.

#include "analysis/likelihoodgrid.h"

#include <gtest/gtest.h>

#include "analysis/loglik.h"
#include "support/lifefixture.h"

namespace {

class ContourTest : public LifeTest {
protected:
    const Cells ages = {"31", "12", "58", "-44", "90", "23", "71", "-65", "18", "39"};

    ContourTest() {
        choosemethod(maximumLikelihood);
        life(ages);
        session.currentSet = 1;
        session.eta = fit().eta;
        session.beta = fit().beta;
    }
    static double at(double eta, double beta) {
        session.eta = eta;
        session.beta = beta;
        loglyk();
        return session.logLik;
    }
    std::string table() {
        session.reportBuffer.clear();
        session.reportColumn = 0;
        likelihoodgrid();
        return session.reportBuffer;
    }
};

TEST_F(ContourTest, LimitsLieWhereTheLikelihoodHasFallen) {
    const Fit line = fit();
    const GridLimits etas = gridlimits(false, 3);
    const GridLimits betas = gridlimits(true, 3);
    const double top = at(line.eta, line.beta);
    EXPECT_NEAR(at(etas.low, line.beta), top - 3, 1e-5);
    EXPECT_NEAR(at(etas.high, line.beta), top - 3, 1e-5);
    EXPECT_NEAR(at(line.eta, betas.low), top - 3, 1e-5);
    EXPECT_NEAR(at(line.eta, betas.high), top - 3, 1e-5);
    EXPECT_LT(etas.low, line.eta);
    EXPECT_GT(betas.high, line.beta);
}

// For a known slope the likelihood of eta is r beta ln(eta^-1) - sum (x/eta)^beta: a drop solved by hand.
TEST_F(ContourTest, LimitsOfTheExponentialAreThoseOfItsOwnEquation) {
    session.fixedSlope = 1;
    life({"10", "20", "30", "40"});
    session.eta = fit().eta;
    session.beta = 1;
    const GridLimits etas = gridlimits(false, 2);
    for (const double eta : {etas.low, etas.high})
        EXPECT_NEAR(-4 * std::log(eta) - 100 / eta, -4 * std::log(25.0) - 4 - 2, 1e-5);
}

TEST_F(ContourTest, ASuspensionAtZeroChangesNoLimit) {
    const GridLimits without = gridlimits(false, 3);
    Cells more = ages;
    more.push_back("0");
    life(more);
    session.eta = fit().eta;
    session.beta = fit().beta;
    const GridLimits with = gridlimits(false, 3);
    EXPECT_RELATIVE(with.low, without.low, 1e-12);
    EXPECT_RELATIVE(with.high, without.high, 1e-12);
}

TEST_F(ContourTest, TheTableHoldsTheLimitsAndAValueForEveryPair) {
    const std::string text = table();
    EXPECT_TRUE(text.starts_with("\r\nSet 1: Likelihood Value Grid")) << text;
    EXPECT_NE(text.find("Eta L="), text.npos) << text;
    EXPECT_NE(text.find("Beta L="), text.npos) << text;
    EXPECT_NE(text.find(" U="), text.npos) << text;
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 1 + 3 + 1 + 7) << text; // a blank line first
}

TEST_F(ContourTest, TheTableLeavesTheLineInTheRegisters) {
    session.eta = 12;
    session.beta = 34;
    session.logLik = 56;
    table();
    EXPECT_EQ(session.eta, 12);
    EXPECT_EQ(session.beta, 34);
    EXPECT_EQ(session.logLik, 56);
}

TEST_F(ContourTest, EveryFamilyHasLimitsAboutItsLine) {
    for (const Dist family : {weibull, lognormal, normal, gumbel}) {
        choose(family);
        life(ages);
        session.eta = fit().eta;
        session.beta = fit().beta;
        const GridLimits betas = gridlimits(true, 3);
        EXPECT_LT(betas.low, session.beta);
        EXPECT_GT(betas.low, family == lognormal ? 1 : 0);
        EXPECT_GT(betas.high, session.beta);
    }
}

TEST_F(ContourTest, ASetWithoutALineHasNoTable) {
    life({"5", "5"});
    session.currentSet = 1;
    EXPECT_EQ(table(), "");
}

} // namespace
