#include "analysis/twosets.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "analysis/linesearch.h"
#include "analysis/notices.h"
#include "analysis/order.h"
#include "analysis/plotterms.h"
#include "analysis/threshold.h"
#include "data/cell.h"
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

/// Lines of largest likelihood through one set or both.
class Comparison {
public:
    /// Log likelihood of the largest line through the sets, with one threshold that they share where
    /// thresholds are searched; noAnswer when there is none.
    double largest(std::span<const int> sets) {
        if (!thresholdsearched()) return atthreshold(sets);
        const auto measure = [&] {
            const double sum = atthreshold(sets);
            return sum == noAnswer ? noMeasure : sum;
        };
        const bool found = searchsets(sets, measure, true).end == ThresholdSearch::End::found;
        return found ? atthreshold(sets) : noAnswer;
    }

    bool possible() const { return session.fixedSlope <= 0 || scale > 0; }

private:
    /// The same at the thresholds that the sets have. The density is that of x: a threshold bends the plot
    /// scale.
    double atthreshold(std::span<const int> sets) {
        terms.clear();
        for (const int k : sets) appendplotterms(terms, k, family);
        double sum = largestloglikelihood(family.shape, terms, portion, scale);
        if (sum == noAnswer || !family.logarithmic) return sum;
        for (const LifeTerm& term : terms)
            if (term.known == Known::exactly) sum -= term.weight * term.low;
        return sum;
    }

    StandardLine family = standardline({session.dist, session.gumbeltype, 1, 1});
    double portion = portionatrisk();
    double scale = fixedscale();
    std::vector<LifeTerm> terms;
};

/// Parameters of one line under the settings in force.
double freeparameters() { return 2 - (session.fixedSlope > 0 ? 1 : 0) + (thresholdsearched() ? 1 : 0); }

/// pFF% of sets 1 and 2; noAnswer for none.
double differenceofsets() {
    static constexpr int both[] = {1, 2};
    const std::span<const int> sets = both;
    Comparison comparison;
    if (failurecount(1) + failurecount(2) < fewestFailures || !comparison.possible()) return noAnswer;
    double alone = 0;
    for (const auto& set : {sets.first(1), sets.last(1)}) {
        const double found = comparison.largest(set);
        if (found == noAnswer) return noAnswer;
        alone += found;
    }
    const double together = comparison.largest(sets);
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
    const Keep keep(session.t0);
    session.PVALUEFF(1) = session.PVALUEFF(2) = static_cast<float>(differenceofsets());
}
