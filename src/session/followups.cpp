#include "session/followups.h"

#include "analysis/distanalysis.h"
#include "analysis/likelihoodgrid.h"
#include "analysis/mixture.h"
#include "data/report.h"
#include "session/session.h"

namespace {

/// Runs a step for set k; what it tells stands in the report, for nobody sees a message of a script.
void followup(int k, void (*step)()) {
    const auto& messages = session.setMessages[static_cast<std::size_t>(k)];
    const std::size_t before = messages.size();
    step();
    for (std::size_t i = before; i < messages.size(); ++i) report("!! ", AsTyped{messages[i]});
}

} // namespace

void followups() {
    if (session.progSide != lifeSide) return;
    const Keep keep{session.currentSet, session.eta, session.beta};
    for (int k = 1; k <= setcount(); ++k) {
        if (session.setFitted(k) != 1) continue;
        const int row = static_cast<int>(rowofset(static_cast<float>(k)));
        session.currentSet = k;
        session.eta = session.etaFit(row, 1);
        session.beta = session.betaFit(row, 1);
        if (session.distributionAsked == 1) followup(k, distributionanalysis);
        if (session.mixtureAsked > 0) {
            session.mixKind = session.mixtureAsked;
            followup(k, mixturefit);
        }
        if (session.gridAsked == 1) followup(k, likelihoodgrid);
    }
    if (setcount() > 1) session.mixFlag = 0; // a mixture in force is that of the one set on the plot
}
