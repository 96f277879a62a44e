#include "analysis/distanalysis.h"
#include "analysis/goodness.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <string>
#include <vector>

#include "analysis/calcsmain.h"
#include "analysis/notices.h"
#include "analysis/order.h"
#include "analysis/runresults.h"
#include "data/methodlabels.h"
#include "data/report.h"
#include "numeric/chisquare.h"
#include "session/session.h"
#include "shell/prompts.h"

namespace {

constexpr float noCandidateMeasure = -9e30f;
constexpr double leastOccurrences = 3;
constexpr double fewOccurrences = 21;   ///< below, the standard family is the better choice
constexpr double leastConfidence = 0.5; ///< of a winner at mle
constexpr Candidate standardPick{weibull, -1};

Candidate present() {
    const bool threshold = session.findThreshold == 1 && session.dist <= lognormal;
    return {static_cast<int16_t>(threshold ? -session.dist : session.dist),
            static_cast<int16_t>(session.dist == gumbel && session.gumbeltype > 0 ? 1 : -1)};
}

/// Puts a candidate's family in force.
void choose(const Candidate& candidate) {
    session.dist = static_cast<int16_t>(std::abs(candidate.code));
    session.gumbeltype = candidate.gumbeltype;
    session.findThreshold = candidate.code < 0 ? 1 : 0;
    session.fixedSlope = 0;
}

/// "3-Parameter Weibull", "Normal", "Gumbel+".
std::string nameof(const Candidate& candidate) {
    std::string name;
    const int family = std::abs(candidate.code);
    if (family <= lognormal) {
        append(name, candidate.code < 0 ? "3-" : "2-");
        append(name, Word::Parameter);
        append(name, " ");
    }
    name += familyname(family);
    if (family == gumbel) name += candidate.gumbeltype > 0 ? '+' : '-';
    return name;
}

/// Measure of the fit that the run has left. A set whose goodness is not stored goes by its r^2.
double measureofset(int k) {
    if (session.setFitted(k) != 1) return noCandidateMeasure;
    if (session.fitMethod == maximumLikelihood) return session.LOGLYKMLE(k);
    if (session.rSquaredMinusCcc(k) > noCandidateMeasure) return session.rSquaredMinusCcc(k);
    return session.setCorrelation(k) * session.setCorrelation(k);
}

/// One quiet run over set k alone.
double tryfamily(int k, const Candidate& candidate) {
    choose(candidate);
    session.t0(k) = 0;
    session.rSquaredMinusCcc(k) = noCandidateMeasure;
    calcsmain();
    return measureofset(k);
}

/// Everything that the candidates' runs write over is put back, but for a press of Escape.
std::vector<double> measurecandidates(int k, std::span<const Candidate> candidates) {
    const KeepResults results;
    const Keep options(session.dist, session.gumbeltype, session.findThreshold, session.fixedSlope,
                       session.fitMethod, session.fitMethodSaved, session.confMethod, session.confAuto,
                       session.quiet, session.lineHide, session.inputType);
    const Keep state(session.currentSet, session.setMessages, session.runTitle, session.calcError,
                     session.ifylcnf, session.eta, session.beta, session.rFit, session.logLik, session.sums,
                     session.loglykErrorTold, session.minimumTold);
    session.quiet = 1;
    session.confMethod = session.confAuto = 0;
    for (int other = 1; other <= setcount(); ++other) session.lineHide(other) = other == k ? 0 : 1;
    std::vector<double> measures;
    for (const Candidate& candidate : candidates) {
        measures.push_back(tryfamily(k, candidate));
        if (session.abortCode == escapePressed) break;
    }
    return measures;
}

double occurrences(int k) { return session.countOccr(k) + session.countDisc(k) + session.countIntv(k); }

bool analysispossible(int k) {
    if (k >= 1) {
        orderset(k);
        const double failed = session.countQuantity(k) - session.countSusp(k);
        if (occurrences(k) >= leastOccurrences && failed >= leastOccurrences) return true;
    }
    tellrun(Word::Distribution, " ", Word::Analysis, " ", Word::Not, " ", Word::Possible, "\n", Word::Total,
            " ", Word::Quantity, " - Susp < 3");
    return false;
}

const char* measurename() {
    switch (session.fitMeasure) {
    case 1: return "[ccc^2]";
    case 2: return "[pve%]";
    case 3: return "[pAD%]";
    default: return "[r^2]";
    }
}

void reportheading(int k, double occurred) {
    report();
    compose(session.msg, Word::Set, " ", k, ": ", Word::Data, " ", Word::Distribution, " ", Word::Analysis);
    const auto behind = [](const auto&... parts) { extend(session.msg, parts...); };
    if (session.fitMethod == maximumLikelihood)
        behind(" + ", Word::Likelihood, " ", Word::Ratio, " ", Word::Test);
    else
        behind(" ", Word::Regression, " ", Word::Fit, " ", Word::Value, " ", measurename());
    reportline();
    if (occurred < fewOccurrences)
        report("(", Word::Caution, ": Occr < 21 ... ", nameof(standardPick), " = ", Word::Standard, ")");
}

void reportmeasures(std::span<const Candidate> candidates, std::span<const double> measures) {
    for (std::size_t i = 0; i < measures.size(); ++i) {
        if (measures[i] > noCandidateMeasure)
            report("  ", nameof(candidates[i]), " = ", Reported{measures[i]});
        else
            report("  ", nameof(candidates[i]), " = ", Word::Not, " ", Word::Possible);
    }
}

/// At mle the standard family, unless the winner is better by more than chance.
int judged(int winner, std::span<const Candidate> candidates, std::span<const double> measures, double n) {
    const auto standard = std::find(candidates.begin(), candidates.end(), standardPick) - candidates.begin();
    const bool likelihood = session.fitMethod == maximumLikelihood;
    const bool comparable = static_cast<std::size_t>(standard) < candidates.size()
                            && measures[static_cast<std::size_t>(standard)] > noCandidateMeasure;
    if (!likelihood || !comparable || winner == standard) return winner;
    const double confidence = confidenceofwinner(measures[static_cast<std::size_t>(winner)],
                                                 measures[static_cast<std::size_t>(standard)], n);
    return confidence >= leastConfidence ? winner : static_cast<int>(standard);
}

/// A change is the user's to make: a run without one, a script or a batch, keeps to its own options.
bool mayoffer(double occurred) {
    return occurred >= fewOccurrences && session.batchActive == 0 && session.scriptRequest.empty();
}

/// Asks whether the best family shall be the one in force. True when it now is.
bool offerchange(const Candidate& best) {
    const std::string offered = nameof(best);
    compose(session.msg, Word::Present, " ", Word::Distribution, " = ", nameof(present()), "\n",
            Word::Optimum, " = ", offered, "\n", Word::Change);
    session.menuTitle.clear();
    askyesno();
    if (session.u != 1) return false;
    choose(best);
    return true;
}

} // namespace

std::span<const Candidate> candidatesinforce() {
    static constexpr Candidate positive[] = {
        {weibull, -1}, {-weibull, -1}, {lognormal, -1}, {-lognormal, -1}, {normal, -1}};
    static constexpr Candidate whole[] = {{normal, -1}, {gumbel, -1}, {gumbel, 1}};
    if (session.negativeXAllowed == 1) return whole;
    const std::span<const Candidate> all = positive;
    return session.normalCandidate == 1 ? all : all.first(4);
}

int bestcandidate(std::span<const double> measures) {
    int best = -1;
    double largest = noCandidateMeasure;
    for (std::size_t i = 0; i < measures.size(); ++i) {
        if (!(measures[i] > largest)) continue;
        largest = measures[i];
        best = static_cast<int>(i);
    }
    return best;
}

double confidenceofwinner(double winner, double standard, double n) {
    const double ratio = 2 * (winner - standard) * fultonfactor(n);
    return ratio > 0 ? chi2cdf(ratio, 1) : 0;
}

bool distributionanalysis() {
    const int k = std::clamp(session.currentSet, setcount() > 0 ? 1 : 0, setcount());
    if (!analysispossible(k)) return false;
    const double occurred = occurrences(k);
    reportheading(k, occurred);
    const std::span<const Candidate> candidates = candidatesinforce();
    const std::vector<double> measures = measurecandidates(k, candidates);
    if (session.abortCode == escapePressed) return false;
    reportmeasures(candidates, measures);
    int best = bestcandidate(measures);
    if (best < 0) {
        tellrun(Word::Distribution, " ", Word::Analysis, " ", Word::Not, " ", Word::Possible);
        return false;
    }
    best = judged(best, candidates, measures, occurred);
    const Candidate& optimum = candidates[static_cast<std::size_t>(best)];
    report(Word::Optimum, " = ", nameof(optimum));
    return mayoffer(occurred) && !(optimum == present()) && offerchange(optimum);
}
