#include "analysis/confidfishermatrix.h"

#include <cmath>

#include "analysis/biascorrection.h"
#include "analysis/bounds.h"
#include "analysis/information.h"
#include "analysis/notices.h"
#include "analysis/plotterms.h"
#include "session/session.h"

namespace {

/// The curvature in eta instead of ln eta is larger by the slope in ln eta; likewise in beta.
void chooseform(Information& information, const StandardLine& line) {
    if (session.dist != weibull) return;
    if (session.fisherForm == 1) information.aa += information.slopeA * line.scale;
    if (session.fisherForm == 1 || session.fisherForm == 2) information.ll -= information.slopeL;
}

Covariance covarianceofset(int k) {
    FamilyLine family = currentline();
    if (session.setCorrected(k) == 1) family = uncorrected(family, currentcorrection());
    const StandardLine line = standardline(family);
    const auto terms = plotterms(k, line);
    Information information = observedinformation(line, terms, portionatrisk());
    chooseform(information, line);
    return covarianceof(information);
}

double valueof(const StandardLine& line, double y) { return line.logarithmic ? std::exp(y) : y; }

} // namespace

void confidfishermatrix() {
    const int k = session.currentSet;
    const FamilyLine family = currentline();
    const StandardLine line = standardline(family);
    const Covariance covariance = covarianceofset(k);
    if (!covariance.exists) {
        session.calcError = 1;
        return;
    }
    const double z = fmzvalue();
    const double off = z * std::sqrt(covariance.aa) * line.scale;
    const double factor = std::exp(z * std::sqrt(covariance.ll));
    const auto betaof = [&](double scale) {
        return familyline(family.family, family.extreme, line.location, scale).beta;
    };
    const bool slope = family.family == weibull; // one over the scale
    keepparameterbounds(k, {valueof(line, line.location - off), valueof(line, line.location + off)},
                        {betaof(slope ? line.scale * factor : line.scale / factor),
                         betaof(slope ? line.scale / factor : line.scale * factor)});
    for (const double p : askedprobabilities()) {
        if (escaped()) return;
        const double t = plotyofp(family.family, family.extreme, p);
        const double y = line.location + line.scale * t;
        const double distance = z * std::sqrt(std::fabs(covariance.at(t))) * line.scale;
        addbounds(k, p, {valueof(line, y - distance), valueof(line, y + distance)});
    }
}
