// Largest likelihoods of published data against fits of independent origin: by the kernels on the data as
// printed, and by the whole run, whose cells are single precision (6e-8 relative).

#include <gtest/gtest.h>

#include "analysis/linesearch.h"
#include "analysis/loglik.h"
#include "plot/transforms.h"
#include "support/families.h"
#include "support/lifefixture.h"
#include "support/publisheddata.h"
#include "support/reference.h"

namespace {

constexpr const char* methods[] = {"mle_scipy", "mle_survreg"};

/// Adds the line and its log likelihood to the errors, once for each of the two fits of the table.
void compare(ErrorSummary& parameters, ErrorSummary& likelihoods, const std::string& dataSet,
             const ReferenceFamily& family, const FamilyLine& line, double logLik) {
    for (const char* method : methods) {
        const std::string place = dataSet + ',' + family.name + ',' + method + ',';
        const auto expected = [&](const char* quantity) { return published().at(place + quantity + ','); };
        parameters.add(line.eta, expected(family.first), place + family.first);
        parameters.add(line.beta, expected(family.second), place + family.second);
        likelihoods.add(logLik, expected("loglik"), place + "loglik");
        for (const auto& [name, p] : {std::pair{"b1", 0.01}, {"b10", 0.1}, {"b50", 0.5}})
            parameters.add(quantileofp(line, p, family.family >= normal), expected(name), place + name);
    }
}

TEST(MaximumLikelihoodReference, TheKernelsFindTheMaximaOfTheTable) {
    ErrorSummary parameters;
    ErrorSummary likelihoods;
    for (const std::string dataSet : dataSets) {
        for (const ReferenceFamily& family : families) {
            const StandardLine plot = standardline({family.family, family.extreme, 1, 1});
            const std::vector<LifeTerm> values = publishedterms(dataSet);
            const std::vector<LifeTerm> terms = onplotscale(plot, values);
            const LineSearch found = maximumlikelihood(plot.shape, terms, 1, 0, [] { return false; });
            ASSERT_EQ(found.end, SearchEnd::found) << dataSet << ' ' << family.name;
            const FamilyLine line = familyline(family.family, family.extreme, found.location, found.scale);
            double logLik = 0;
            for (const LifeTerm& value : values)
                logLik += value.weight * logcontribution(standardline(line), value, 1);
            compare(parameters, likelihoods, dataSet, family, line, logLik);
        }
    }
    parameters.expectwithin(1e-12);
    likelihoods.expectwithin(1e-13);
    EXPECT_EQ(likelihoods.count, std::size(dataSets) * std::size(families) * 2);
}

class MleReference : public LifeTest {};

TEST_F(MleReference, TheRunFindsTheMaximaOfTheTable) {
    ErrorSummary parameters;
    ErrorSummary likelihoods;
    choosemethod(maximumLikelihood);
    for (const std::string dataSet : dataSets) {
        const auto [cells, intervals] = publishedcells(dataSet);
        session.inputType = intervals ? intv5 : standard0;
        for (const ReferenceFamily& family : families) {
            choose(family.family, family.extreme);
            life(cells);
            ASSERT_TRUE(fit().fitted) << dataSet << ' ' << family.name;
            const FamilyLine line{family.family, family.extreme, fit().eta, fit().beta};
            compare(parameters, likelihoods, dataSet, family, line, session.LOGLYKMLE(1));
            EXPECT_EQ(session.eta, fit().eta);
            EXPECT_TRUE(told().empty());
        }
    }
    // A B life near zero, and the width of an interval, lose digits of the singles they are formed of.
    parameters.expectwithin(1e-6);
    likelihoods.expectwithin(5e-8);
    EXPECT_EQ(likelihoods.count, std::size(dataSets) * std::size(families) * 2);
}

} // namespace
