#include "session/followups.h"

#include <string>

#include "analysis/distanalysis.h"
#include "analysis/likelihoodgrid.h"
#include "analysis/mixture.h"
#include "data/report.h"
#include "data/reportanalysis.h"
#include "session/session.h"
#include "shell/words.h"

namespace {

/// Runs a step for set k; what it tells of the set or of the run stands in the report, for nobody sees a
/// message of a script. What is told of the run is of this set here, and names it.
void followup(int k, void (*step)()) {
    const auto& run = session.setMessages[0];
    const auto& set = session.setMessages[static_cast<std::size_t>(k)];
    const std::size_t ofRun = run.size();
    const std::size_t ofSet = set.size();
    step();
    for (std::size_t i = ofRun; i < run.size(); ++i) {
        std::string notice;
        compose(notice, Word::Set, " ", k, ": ", AsTyped{run[i]});
        reportnotice(notice);
    }
    for (std::size_t i = ofSet; i < set.size(); ++i) reportnotice(set[i]);
}

/// The choice among families and the two modes need no line of the family in force, only data.
void followset(int k) {
    const bool fitted = session.setFitted(k) == 1;
    const int row = static_cast<int>(rowofset(static_cast<float>(k)));
    session.currentSet = k;
    session.eta = session.etaFit(row, 1);
    session.beta = session.betaFit(row, 1);
    // A script is offered no change of the family: there is nothing to run again.
    if (session.distributionAsked == 1) followup(k, [] { distributionanalysis(); });
    if (session.mixtureAsked > 0) {
        session.mixKind = session.mixtureAsked;
        followup(k, mixturefit);
    }
    if (session.gridAsked == 1 && fitted) followup(k, likelihoodgrid);
}

} // namespace

void followups() {
    if (session.progSide != lifeSide) return;
    const Keep keep{session.currentSet, session.eta, session.beta};
    for (int k = 1; k <= setcount(); ++k)
        if (session.lineHide(k) == 0 && pointcount(k) > 0) followset(k);
    if (setcount() > 1) session.mixFlag = 0; // a mixture in force is that of the one set on the plot
}
