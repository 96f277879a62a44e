#include "analysis/samplefit.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "analysis/biascorrection.h"
#include "analysis/linesearch.h"
#include "analysis/newton.h"
#include "analysis/ranks.h"
#include "numeric/normal.h"
#include "plot/transforms_register.h"
#include "session/options.h"

namespace {

bool never() { return false; }

/// Quantile of the standard distribution.
double standardquantile(Shape shape, double p) {
    switch (shape) {
    case Shape::smallest: return std::log(cumulatedhazard(p));
    case Shape::largest: return -std::log(-std::log(p));
    default: return normquantile(p);
    }
}

bool before(const SampleUnit& a, const SampleUnit& b) {
    return a.z < b.z || (a.z == b.z && a.suspended < b.suspended);
}

} // namespace

SampleFitter::SampleFitter(const SamplePlan& samplePlan)
    : plan(samplePlan),
      parent(standardline(plan.parent)),
      size(static_cast<double>(plan.leaves.size())) {
    const std::size_t units = plan.leaves.size();
    drawn.resize(units);
    sorted.resize(units);
    y.resize(units);
    weight.assign(units, 1);
    terms.resize(units);
    wholeRankY.resize(units + 1);
    for (std::size_t r = 1; r <= units; ++r) {
        const double p = plotposition(plan.rankMethod, size, static_cast<double>(r), 1);
        wholeRankY[r] = standardquantile(plan.shape, p);
        if (plan.rankMethod == binomialRank) medianRanks.push_back(p);
    }
}

std::span<const SampleUnit> SampleFitter::draw(RandomSource& source) {
    for (std::size_t i = 0; i < drawn.size(); ++i) {
        const double life = standardquantile(plan.shape, source.next());
        const bool outlives = life > plan.leaves[i];
        drawn[i] = {outlives ? plan.leaves[i] : life, outlives};
    }
    return drawn;
}

/// Plot Y of an adjusted rank. The exact median ranks of the whole ranks are kept: each is a search.
double SampleFitter::positiony(double rank) const {
    const double whole = std::floor(rank);
    const auto r = static_cast<std::size_t>(whole);
    if (rank == whole) return wholeRankY[r];
    if (medianRanks.empty() || r < 1 || r >= medianRanks.size())
        return standardquantile(plan.shape, plotposition(plan.rankMethod, size, rank, 1));
    const double part = rank - whole;
    return standardquantile(plan.shape, (1 - part) * medianRanks[r - 1] + part * medianRanks[r]);
}

void SampleFitter::sortunits(std::span<const SampleUnit> units) {
    std::copy(units.begin(), units.end(), sorted.begin());
    std::sort(sorted.begin(), sorted.end(), before);
    failures = 0;
    for (const SampleUnit& unit : sorted) failures += unit.suspended ? 0 : 1;
}

/// Sums over the failures, x counted from the first unit: equal failures then have no spread, not one of
/// rounding.
SampleFitter::PlotSums SampleFitter::plotsums() const {
    PlotSums sums;
    const double origin = sorted.front().z;
    double passed = 0;
    double rank = 0;
    for (const SampleUnit& unit : sorted) {
        if (!unit.suspended) {
            // Without suspensions before it a rank is whole, which the sum of gains would miss by rounding.
            rank = sums.n == passed ? passed + 1 : rank + rankincrement(size, passed, rank);
            const double ploty = positiony(rank);
            const double x = unit.z - origin;
            ++sums.n;
            sums.x += x;
            sums.xx += x * x;
            sums.y += ploty;
            sums.yy += ploty * ploty;
            sums.xy += x * ploty;
        }
        ++passed;
    }
    return sums;
}

bool SampleFitter::regression(const PlotSums& s, SampleLine& line) const {
    const double cross = s.n * s.xy - s.x * s.y;
    const double squares = plan.xOnY ? s.n * s.yy - s.y * s.y : cross;
    const double under = plan.xOnY ? cross : s.n * s.xx - s.x * s.x;
    if (!plan.fixedScale && (s.n < 2 || !(under > 0) || !(squares > 0))) return false;
    line.scale = plan.fixedScale ? 1 : under / squares;
    line.location = sorted.front().z + (s.x - line.scale * s.y) / s.n;
    return s.n > 0;
}

/// The profile equation of the smallest extreme, in z or, for the largest, in -z.
bool SampleFitter::profile(double sign, SampleLine& line) {
    const double last = sign > 0 ? sorted.back().z : -sorted.front().z;
    ProfileData data;
    data.reference = last;
    for (std::size_t i = 0; i < sorted.size(); ++i) {
        y[i] = sign * sorted[i].z - last;
        if (sorted[i].suspended) continue;
        data.failures += 1;
        data.failureSum += y[i];
    }
    data.y = y;
    data.weight = weight;
    if (plan.fixedScale) {
        line.scale = 1;
        line.location = sign * closedlogeta(data, 1);
        return true;
    }
    const ProfileSearch found = weibullprofile(data, 1, never);
    if (found.end != SearchEnd::found) return false;
    line.scale = 1 / found.beta;
    line.location = sign * found.logEta;
    return true;
}

bool SampleFitter::search(SampleLine& line) {
    for (std::size_t i = 0; i < sorted.size(); ++i)
        terms[i] = {sorted[i].suspended ? Known::above : Known::exactly, 1, sorted[i].z, 0};
    const LineSearch found = maximumlikelihood(plan.shape, terms, 1, plan.fixedScale ? 1 : 0, never);
    if (found.end != SearchEnd::found) return false;
    line.location = found.location;
    line.scale = found.scale;
    return true;
}

bool SampleFitter::likelihood(SampleLine& line) {
    if (failures < 1) return false;
    // A single failure above all suspensions: the likelihood has no maximum.
    if (!plan.fixedScale && failures == 1 && !sorted.back().suspended) return false;
    if (plan.shape == Shape::smallest) return profile(1, line);
    const bool complete = failures == size;
    return plan.shape == Shape::largest && complete ? profile(-1, line) : search(line);
}

/// The correction speaks of the family's own parameters: those of the parent's scale.
void SampleFitter::correct(SampleLine& line) const {
    if (!plan.likelihood || plan.mleVariant == 0 || plan.fixedScale) return;
    const FamilyLine& family = plan.parent;
    const BiasCorrection correction = biascorrection(family.family, plan.mleVariant, failures);
    if (correction.variant == 0) return;
    const FamilyLine found =
        familyline(family.family, family.extreme, parent.location + parent.scale * line.location,
                   parent.scale * line.scale);
    const StandardLine mended = standardline(corrected(found, correction));
    line.location = (mended.location - parent.location) / parent.scale;
    line.scale = mended.scale / parent.scale;
}

bool SampleFitter::fit(std::span<const SampleUnit> units, SampleLine& line) {
    if (units.size() != sorted.size() || units.empty()) return false;
    sortunits(units);
    const PlotSums sums = plotsums();
    if (!(plan.likelihood ? likelihood(line) : regression(sums, line))) return false;
    correct(line);
    const double cross = sums.n * sums.xy - sums.x * sums.y;
    const double spread = (sums.n * sums.xx - sums.x * sums.x) * (sums.n * sums.yy - sums.y * sums.y);
    line.rSquared = spread > 0 ? std::min(1.0, cross * cross / spread) : 0;
    return line.scale > 0 && std::isfinite(line.scale) && std::isfinite(line.location);
}

double listvalue(std::span<double> list, double p) {
    const double place = (static_cast<double>(list.size()) + 1) * p;
    if (!(place >= 1) || place > static_cast<double>(list.size()))
        return std::numeric_limits<double>::quiet_NaN();
    const auto below = static_cast<std::ptrdiff_t>(place) - 1;
    const double part = place - std::floor(place);
    const auto at = list.begin() + below;
    std::nth_element(list.begin(), at, list.end());
    if (part == 0) return *at;
    return *at + part * (*std::min_element(at + 1, list.end()) - *at);
}
