#include "analysis/twosets.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "analysis/goodness.h"
#include "analysis/linesearch.h"
#include "analysis/notices.h"
#include "analysis/order.h"
#include "analysis/plotterms.h"
#include "numeric/chisquare.h"
#include "session/session.h"

namespace {

constexpr double fewestFailures = 3;

double loglikelihoodof(const StandardLine& line, std::span<const LifeTerm> terms, double portion) {
    const double logScale = std::log(line.scale);
    double sum = 0;
    for (const LifeTerm& term : terms) {
        const bool interval = term.known == Known::between || term.known == Known::outside;
        const double a = (term.low - line.location) / line.scale;
        const double b = interval ? (term.high - line.location) / line.scale : 0;
        const double density = term.known == Known::exactly ? logScale : 0;
        sum += term.weight * (logterm(line.shape, term.known, a, b, portion) - density);
    }
    return sum;
}

/// Parameters of one line under the settings in force.
double freeparameters() {
    return 2 - (session.fixedSlope > 0 ? 1 : 0) + (session.findThreshold == 1 ? 1 : 0);
}

/// pFF% of sets 1 and 2; noAnswer for none.
double differenceofsets() {
    if (failurecount(1) + failurecount(2) < fewestFailures) return noAnswer;
    const StandardLine family = standardline({session.dist, session.gumbeltype, 1, 1});
    const double portion = portionatrisk();
    const double scale = fixedscale();
    if (session.fixedSlope > 0 && !(scale > 0)) return noAnswer;
    std::vector<LifeTerm> terms;
    appendplotterms(terms, 1, family);
    const std::size_t first = terms.size();
    appendplotterms(terms, 2, family);
    const std::span<const LifeTerm> all = terms;
    double alone = 0;
    for (const auto& part : {all.first(first), all.subspan(first)}) {
        const double found = largestloglikelihood(family.shape, part, portion, scale);
        if (found == noAnswer) return noAnswer;
        alone += found;
    }
    const double together = largestloglikelihood(family.shape, all, portion, scale);
    if (together == noAnswer) return noAnswer;
    return likelihoodratiopvalue(2 * (alone - together), freeparameters());
}

} // namespace

double largestloglikelihood(Shape shape, std::span<const LifeTerm> terms, double portion, double fixedScale) {
    const auto placed = [](const LifeTerm& term) {
        return std::isfinite(term.low) && std::isfinite(term.high);
    };
    if (terms.empty() || !std::all_of(terms.begin(), terms.end(), placed)) return noAnswer;
    const LineSearch found = maximumlikelihood(shape, terms, portion, fixedScale, escaped);
    if (found.end != SearchEnd::found) return noAnswer;
    const double sum = loglikelihoodof({shape, false, found.location, found.scale}, terms, portion);
    return std::isfinite(sum) ? sum : noAnswer;
}

double likelihoodratiopvalue(double T, double dof) {
    return T > 0 ? std::clamp(100 * chi2sf(T, dof), 0.0, 100.0) : 100;
}

void twosettest() {
    for (const int k : {1, 2}) orderset(k);
    session.PVALUEFF(1) = session.PVALUEFF(2) = static_cast<float>(differenceofsets());
}
