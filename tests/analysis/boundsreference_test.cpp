// Fisher and likelihood ratio bounds of published data against bounds of independent origin: by the kernels
// on the data as printed, and by the whole run, whose cells and curves are single precision (6e-8 relative).

#include <gtest/gtest.h>

#include "analysis/contour.h"
#include "analysis/information.h"
#include "numeric/chisquare.h"
#include "numeric/normal.h"
#include "support/families.h"
#include "support/lifefixture.h"
#include "support/publisheddata.h"

namespace {

/// Expected value of a quantity of the table.
double table(const std::string& dataSet, const ReferenceFamily& family, const char* method,
             const std::string& quantity) {
    return published().at(dataSet + ',' + family.name + ',' + method + ',' + quantity + ',');
}

struct Fitted {
    StandardLine line;
    std::vector<LifeTerm> terms;
};

Fitted fitted(const std::string& dataSet, const ReferenceFamily& family) {
    Fitted set;
    set.line = standardline({family.family, family.extreme, 1, 1});
    set.terms = onplotscale(set.line, publishedterms(dataSet));
    const LineSearch found = maximumlikelihood(set.line.shape, set.terms, 1, 0, [] { return false; });
    EXPECT_EQ(found.end, SearchEnd::found);
    set.line.location = found.location;
    set.line.scale = found.scale;
    return set;
}

TEST(FisherReference, TheInverseInformationIsThatOfTheTable) {
    ErrorSummary errors;
    for (const std::string dataSet : dataSets)
        for (const ReferenceFamily& family : families) {
            const Fitted set = fitted(dataSet, family);
            const Covariance covariance = covarianceof(observedinformation(set.line, set.terms, 1));
            ASSERT_TRUE(covariance.exists);
            const double s = set.line.scale;
            const std::string place = dataSet + ' ' + family.name;
            const auto expected = [&](const char* name) { return table(dataSet, family, "fisher90", name); };
            errors.add(covariance.aa * s * s, expected("var_loc"), place + " var_loc");
            errors.add(covariance.al * s, expected("cov_loc_lnscale"), place + " cov");
            errors.add(covariance.ll, expected("var_lnscale"), place + " var_lnscale");
        }
    EXPECT_EQ(errors.count, 60u);
    errors.expectwithin(1e-12);
}

TEST(LikelihoodRatioReference, TheExtremesOfTheContourAreTheProfileBounds) {
    ErrorSummary errors;
    for (const std::string dataSet : dataSets)
        for (const ReferenceFamily& family : families) {
            const Fitted set = fitted(dataSet, family);
            Contour contour(set.line, set.terms, 1);
            ASSERT_TRUE(contour.walk(chi2inv(0.9, 1) / 2, 60, [] { return false; }));
            const std::string place = dataSet + ' ' + family.name;
            const auto value = [&](double y) { return set.line.logarithmic ? std::exp(y) : y; };
            const auto compare = [&](const std::string& name, double low, double high) {
                errors.add(low, table(dataSet, family, "lr90", name + "_lo"), place + name);
                errors.add(high, table(dataSet, family, "lr90", name + "_hi"), place + name);
            };
            const Limits location = contour.value(0);
            compare(family.first, value(location.low), value(location.high));
            const Limits b10 = contour.value(plotyofp(family.family, family.extreme, 0.1));
            compare("b10", value(b10.low), value(b10.high));
            const Limits scale = contour.scale();
            const auto betaof = [&](double s) { return familyline(family.family, 1, 0, s).beta; };
            compare(family.second, std::min(betaof(scale.low), betaof(scale.high)),
                    std::max(betaof(scale.low), betaof(scale.high)));
        }
    EXPECT_EQ(errors.count, 120u);
    errors.expectwithin(1e-12);
}

class BoundsReference : public LifeTest {
protected:
    BoundsReference() {
        choosemethod(maximumLikelihood);
        session.confLow = 5;
        session.confHigh = 95;
    }
    /// Value of a bound curve of set 1 at a probability.
    static double curveat(int row, double p) {
        for (int m = 1; m <= static_cast<int>(session.n(row)); ++m)
            if (session.Y(row, m) == static_cast<float>(p)) return session.X(row, m);
        return noAnswer;
    }
    void compare(ErrorSummary& errors, const char* method, const std::vector<std::string>& lives) {
        for (const std::string dataSet : dataSets) {
            const auto [cells, intervals] = publishedcells(dataSet);
            session.inputType = intervals ? intv5 : standard0;
            for (const ReferenceFamily& family : families) {
                choose(family.family, family.extreme);
                life(cells);
                ASSERT_TRUE(told().empty()) << told().front();
                const std::string place = dataSet + ' ' + family.name + ' ';
                const auto add = [&](double actual, const std::string& name) {
                    errors.add(actual, table(dataSet, family, method, name), place + name);
                };
                const char* names[] = {"", family.first, family.second};
                for (const int j : {1, 2}) {
                    add(session.paramLow(1, j), std::string(names[j]) + "_lo");
                    add(session.paramHigh(1, j), std::string(names[j]) + "_hi");
                }
                for (const std::string& life : lives) {
                    const double p = std::stod(life.substr(1)) / 100;
                    // Values no data can have are taken off the curve.
                    if (table(dataSet, family, method, life + "_lo") > 0)
                        add(curveat(1, p), life + "_lo");
                    else
                        EXPECT_EQ(curveat(1, p), noAnswer);
                    if (table(dataSet, family, method, life + "_hi") > 0) add(curveat(2, p), life + "_hi");
                }
            }
        }
    }
};

TEST_F(BoundsReference, AFisherRunHasTheBoundsOfTheTable) {
    ErrorSummary errors;
    session.confMethod = fisherBounds;
    compare(errors, "fisher90", {"b1", "b10", "b50"});
    EXPECT_GT(errors.count, 150u);
    errors.expectwithin(2e-6);
}

TEST_F(BoundsReference, ALikelihoodRatioRunHasTheBoundsOfTheTable) {
    ErrorSummary errors;
    session.confMethod = likelihoodBounds;
    compare(errors, "lr90", {"b10"});
    EXPECT_GT(errors.count, 100u);
    errors.expectwithin(2e-6);
}

} // namespace
