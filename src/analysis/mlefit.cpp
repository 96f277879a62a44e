#include "analysis/mlefit.h"

#include <vector>

#include "analysis/biascorrection.h"
#include "analysis/loglik.h"
#include "analysis/newton.h"
#include "analysis/notices.h"
#include "analysis/order.h"
#include "analysis/plotterms.h"
#include "session/session.h"

namespace {

/// Failures and suspensions alone: the profile equation holds.
bool profileapplies() {
    if (session.dist != weibull || session.inputType > insp1 || groupedinput() || portionatrisk() < 1)
        return false;
    const int k = session.currentSet;
    for (int j = pointcount(k); j >= 1; --j)
        if (session.pointTypes(k, j) > Susp) return false;
    return true;
}

SearchEnd generalsearch() {
    const double scale = fixedscale();
    if (session.fixedSlope > 0 && !(scale > 0)) return SearchEnd::noMaximum;
    const StandardLine family = standardline({session.dist, session.gumbeltype, 1, 1});
    const std::vector<LifeTerm> terms = plotterms(session.currentSet, family);
    const LineSearch found = maximumlikelihood(family.shape, terms, portionatrisk(), scale, escaped);
    if (found.end != SearchEnd::found) return found.end;
    const FamilyLine line = familyline(session.dist, session.gumbeltype, found.location, found.scale);
    session.eta = line.eta;
    session.beta = session.fixedSlope > 0 ? session.fixedSlope : line.beta;
    loglyk();
    return SearchEnd::found;
}

/// The Newton search, and the general one for what it gives up.
SearchEnd searchmaximum() {
    if (!profileapplies()) return generalsearch();
    maxlyknewton();
    if (session.abortCode == escapePressed) return SearchEnd::escaped;
    if (session.calcError == 0) return SearchEnd::found;
    session.calcError = 0;
    return generalsearch();
}

} // namespace

bool bylikelihood() {
    const bool knownSlope = session.fixedSlope > 0 && session.fitMethodSaved == maximumLikelihood;
    return session.fitMethod == maximumLikelihood || knownSlope;
}

SearchEnd maxlyk() {
    const double eta = session.eta;
    const double beta = session.beta;
    session.setCorrected(session.currentSet) = 0;
    const SearchEnd end = searchmaximum();
    if (end != SearchEnd::found) {
        session.eta = eta;
        session.beta = beta;
        return end;
    }
    session.logLik = trueloglik();
    if (const BiasCorrection correction = currentcorrection(); correction.variant > 0) {
        const FamilyLine line = corrected(currentline(), correction);
        session.eta = line.eta;
        session.beta = line.beta;
        session.setCorrected(session.currentSet) = 1;
    }
    return SearchEnd::found;
}
