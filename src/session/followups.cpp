#include "session/followups.h"

#include "analysis/distanalysis.h"
#include "analysis/likelihoodgrid.h"
#include "analysis/mixture.h"
#include "session/session.h"

void followups() {
    if (session.progSide != lifeSide) return;
    const Keep keep{session.currentSet, session.eta, session.beta};
    for (int k = 1; k <= setcount(); ++k) {
        if (session.setFitted(k) != 1) continue;
        const int row = static_cast<int>(rowofset(static_cast<float>(k)));
        session.currentSet = k;
        session.eta = session.etaFit(row, 1);
        session.beta = session.betaFit(row, 1);
        if (session.distributionAsked == 1) distributionanalysis();
        session.mixKind = session.mixtureAsked;
        if (session.mixtureAsked > 0) mixturefit();
        if (session.gridAsked == 1) likelihoodgrid();
    }
}
