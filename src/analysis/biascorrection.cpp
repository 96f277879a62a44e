#include "analysis/biascorrection.h"

#include <cmath>

#include "data/cell.h"
#include "numeric/c4.h"
#include "session/session.h"

namespace {

/// Power of C4 by which the slope is multiplied.
double slopepower(int variant, double r) {
    switch (variant) {
    case 2: return 3.5;
    case 3: return 6;
    case 4: return 3.52;
    case 5: return 0.985 * r + 3.71;
    default: return 0;
    }
}

FamilyLine scaled(FamilyLine line, double factor, double etaDivisor) {
    switch (line.family) {
    case lognormal: line.beta = std::exp(std::log(line.beta) * factor); break;
    case normal: line.beta *= factor; break;
    case gumbel: line.beta /= factor; break;
    default: line.beta *= factor; break;
    }
    line.eta /= etaDivisor;
    return line;
}

} // namespace

BiasCorrection biascorrection(int family, int variant, double r) {
    const double unbiasing = c4(r);
    if (variant < 1 || variant > 5 || unbiasing == 0) return {};
    if (family == lognormal || family == normal) return {variant, std::sqrt(r / (r - 1)) / unbiasing, 1};
    return {variant, std::pow(unbiasing, slopepower(variant, r)),
            variant == 4 ? std::pow(unbiasing, 0.217) : 1};
}

BiasCorrection currentcorrection() {
    if (session.fixedSlope > 0) return {};
    return biascorrection(session.dist, session.mleVariant, failurecount(session.currentSet));
}

FamilyLine corrected(FamilyLine line, const BiasCorrection& correction) {
    return scaled(line, correction.factor, correction.etaDivisor);
}

FamilyLine uncorrected(FamilyLine line, const BiasCorrection& correction) {
    return scaled(line, 1 / correction.factor, 1 / correction.etaDivisor);
}
