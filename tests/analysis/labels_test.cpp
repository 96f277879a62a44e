// Names and codes of families, methods and positions, and the status word of a set.

#include "data/methodlabels.h"

#include <gtest/gtest.h>

#include "shell/words.h"
#include "support/lifefixture.h"

namespace {

class LabelsTest : public LifeTest {
protected:
    static std::string statusword() {
        std::string text;
        appendstatus(text, 1);
        return text;
    }
    static std::string family(Dist code, int extreme = -1) {
        choose(code, extreme);
        std::string text;
        appendfamily(text);
        return text;
    }
    static std::string letter(int k) {
        std::string text;
        appendletter(text, k);
        return text;
    }
    static std::string input(int16_t type) {
        std::string text;
        appendinput(text, type);
        return text;
    }
};

TEST_F(LabelsTest, NameTheFamily) {
    EXPECT_EQ(family(weibull), "Weibull");
    EXPECT_EQ(family(lognormal), "LogNormal");
    EXPECT_EQ(family(normal), "Normal");
    EXPECT_EQ(family(gumbel, -1), "Gumbel-");
    EXPECT_EQ(family(gumbel, 1), "Gumbel+");
    EXPECT_EQ(family(gumbel, 0), "Gumbel");
}

TEST_F(LabelsTest, MarkALognormalWithAFixedSlope) {
    session.fixedSlope = 2;
    EXPECT_EQ(family(lognormal), "BLogNormal");
    EXPECT_EQ(family(weibull), "Weibull");
}

TEST_F(LabelsTest, NameTheInput) {
    EXPECT_EQ(input(standard0), "Standard Point-By-Point");
    EXPECT_EQ(input(insp1), "Inspect (insp1)");
    EXPECT_EQ(input(prbt2), "Probit Grouped (prbt2)");
    EXPECT_EQ(input(prbt3), "Probit Grouped (prbt3)");
    EXPECT_EQ(input(km4), "Kaplan-Meier Grouped (km4)");
    EXPECT_EQ(input(intv5), "Interval (intv5)");
}

TEST_F(LabelsTest, GiveThePositionsTheirCodesAndNames) {
    const char* codes[] = {"rr", "br", "mr", "hr", "nr", "kr", "rr", "rr"};
    for (int method = 0; method <= benardRank; ++method) EXPECT_EQ(rankcode(method), codes[method]) << method;
    EXPECT_EQ(rankname(binomialRank), "Binomial");
    EXPECT_EQ(rankname(meanRank), word(Word::Mean));
    EXPECT_EQ(rankname(hazenRank), "Hazen");
    EXPECT_EQ(rankname(blomRank), "Blom");
    EXPECT_EQ(rankname(kaplanMeierRank), "Kaplan-Meier");
    EXPECT_EQ(rankname(benardRank), "Benard");
    EXPECT_EQ(rankname(42), "Benard");
}

TEST_F(LabelsTest, NameTheMethodAndItsVariant) {
    const char* names[] = {"mle", "mmleN-1", "RBAmd", "RBAmu", "RBApb", "RBAjjm"};
    choosemethod(maximumLikelihood);
    for (int16_t variant = 0; variant <= 5; ++variant) {
        session.mleVariant = variant;
        std::string text;
        appendmethod(text);
        EXPECT_EQ(text, names[variant]);
    }
}

TEST_F(LabelsTest, BeginTheStatusWordWithTheMethod) {
    EXPECT_EQ(statusword(), "rr");
    session.rrSwap = 1;
    EXPECT_EQ(statusword(), "rrs");
    choosemethod(maximumLikelihood);
    EXPECT_EQ(statusword(), "mle");
}

TEST_F(LabelsTest, TheStatusWordOfACorrectedLineHasTheNameOfItsCorrection) {
    const char* names[] = {"mle", "mmleN-1", "RBAmd", "RBAmu", "RBApb", "RBAjjm"};
    const Cells cells = {"10", "20", "30", "45", "-50"};
    choosemethod(maximumLikelihood);
    for (int16_t variant = 0; variant <= 5; ++variant) {
        session.mleVariant = variant;
        session.dist = weibull;
        life(cells);
        EXPECT_EQ(session.setLabel(1), names[variant]);
        EXPECT_NE(session.reportBuffer.find(std::string("Method=") + names[variant]), std::string::npos);
        session.dist = lognormal;
        life(cells);
        EXPECT_EQ(session.setLabel(1), names[variant]);
        session.fixedSlope = 2;
        life(cells);
        EXPECT_EQ(session.setLabel(1), "mle") << "a known slope is not corrected";
        session.fixedSlope = 0;
    }
}

TEST_F(LabelsTest, MarkTheInputTypeInTheStatusWord) {
    const char* words[] = {"rr", "rr/insp1", "rr/prbt2", "rr/prbt3", "rr/km4", "rr/intv5"};
    for (int16_t type = standard0; type <= intv5; ++type) {
        session.inputType = type;
        EXPECT_EQ(statusword(), words[type]);
    }
}

TEST_F(LabelsTest, MarkTheGroupingOfGroupedRowsAlone) {
    session.groupingOption = 1;
    session.inputType = prbt2;
    EXPECT_EQ(statusword(), "rr/prbt2n");
    session.groupingOption = 2;
    session.inputType = km4;
    EXPECT_EQ(statusword(), "rr/km4d");
    session.inputType = insp1;
    EXPECT_EQ(statusword(), "rr/insp1");
}

TEST_F(LabelsTest, MarkAThresholdAndAtMleItsOrigin) {
    session.t0(1) = 12;
    EXPECT_EQ(statusword(), "rr/t0");
    choosemethod(maximumLikelihood);
    EXPECT_EQ(statusword(), "mle/t0~m");
    session.thresholdByRegression = 1;
    EXPECT_EQ(statusword(), "mle/t0~r");
}

TEST_F(LabelsTest, MarkThePopulationPortionInPercentToOneDecimal) {
    session.popPortion = 0.5f;
    EXPECT_EQ(statusword(), "rr/tP%=50");
    session.popPortion = 0.12345f;
    EXPECT_EQ(statusword(), "rr/tP%=12.3");
}

TEST_F(LabelsTest, MarkVariableSlopesOfALikelihoodFitAlone) {
    session.variableSlopes = 2;
    EXPECT_EQ(statusword(), "rr");
    choosemethod(maximumLikelihood);
    EXPECT_EQ(statusword(), "mle/VS");
}

TEST_F(LabelsTest, JoinTheMarksInTheirOrder) {
    session.inputType = insp1;
    session.t0(1) = 3;
    session.popPortion = 0.25f;
    session.variableSlopes = 1;
    choosemethod(maximumLikelihood);
    EXPECT_EQ(statusword(), "mle/insp1/t0~m/tP%=25/VS");
}

TEST_F(LabelsTest, AreKeptWithTheSetByARun) {
    session.rrSwap = 1;
    session.inputType = insp1;
    session.popPortion = 0.5f;
    life({"10", "20", "30", "-40x0x20"});
    EXPECT_EQ(session.setLabel(1), "rrs/insp1/tP%=50");
}

} // namespace

TEST_F(LabelsTest, OneLetterOfASetNamesItsKindOfLine) {
    session.dist = weibull;
    session.fixedSlope = 0;
    EXPECT_EQ(letter(1), "A");
    EXPECT_EQ(letter(3), "C");
    for (const auto& [slope, name] : {std::pair{1.0f, "E"}, {2.0f, "R"}, {2.5f, "WB"}}) {
        session.fixedSlope = slope;
        EXPECT_EQ(letter(1), name);
    }
    session.dist = lognormal;
    EXPECT_EQ(letter(1), "B");
    session.dist = normal;
    EXPECT_EQ(letter(1), "");
    session.dist = gumbel;
    for (const auto& [extreme, name] : {std::pair{0, "G"}, {-1, "G-"}, {1, "G+"}}) {
        session.gumbeltype = static_cast<int16_t>(extreme);
        EXPECT_EQ(letter(1), name);
    }
}
