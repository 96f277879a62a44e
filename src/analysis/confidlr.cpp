#include "analysis/confidlr.h"

#include <algorithm>
#include <cmath>

#include "analysis/biascorrection.h"
#include "analysis/bounds.h"
#include "analysis/contour.h"
#include "analysis/notices.h"
#include "analysis/plotterms.h"
#include "numeric/chisquare.h"
#include "session/session.h"
#include "shell/prompts.h"

namespace {

/// Confidence of the contour: twice the larger side less one.
double contourconfidence() {
    double side = 0;
    if (boundasked(BoundSide::low)) side = 1 - static_cast<double>(session.confLow) / 100;
    if (boundasked(BoundSide::high)) side = std::max(side, static_cast<double>(session.confHigh) / 100);
    return 2 * side - 1;
}

/// What the bias correction does on the plot scale: location * stretch + move, scale * widen.
struct PlotCorrection {
    double stretch = 1, move = 0, widen = 1;
};

PlotCorrection correctionofset(int k, const StandardLine& line) {
    if (session.setCorrected(k) != 1) return {};
    const BiasCorrection correction = currentcorrection();
    const FamilyLine plain = familyline(session.dist, session.gumbeltype, line.location, line.scale);
    const StandardLine after = standardline(corrected(plain, correction));
    PlotCorrection plot;
    plot.widen = after.scale / line.scale;
    if (line.logarithmic)
        plot.move = -std::log(correction.etaDivisor);
    else
        plot.stretch = 1 / correction.etaDivisor;
    return plot;
}

double valueof(const StandardLine& line, double y) { return line.logarithmic ? std::exp(y) : y; }

double betaof(double scale) { return familyline(session.dist, session.gumbeltype, 0, scale).beta; }

/// The maximum of the set's own likelihood, whatever line is in force.
StandardLine maximumline(const StandardLine& family, const std::vector<LifeTerm>& terms) {
    StandardLine line = family;
    const LineSearch found = maximumlikelihood(family.shape, terms, portionatrisk(), 0, escaped);
    line.location = found.location;
    line.scale = found.end == SearchEnd::found ? found.scale : 0;
    return line;
}

void fillbounds(int k, const Contour& contour, const StandardLine& line) {
    const PlotCorrection c = correctionofset(k, line);
    const auto bounded = [&](double t) {
        const Limits y = contour.value(c.widen * t / c.stretch);
        return Limits{valueof(line, c.stretch * y.low + c.move), valueof(line, c.stretch * y.high + c.move)};
    };
    const Limits scale = contour.scale();
    const double one = betaof(c.widen * scale.low);
    const double two = betaof(c.widen * scale.high);
    keepparameterbounds(k, bounded(0), {std::min(one, two), std::max(one, two)});
    const auto asked = askedprobabilities();
    double done = 0;
    for (const double p : asked) {
        if (escapedat(done++ / static_cast<double>(asked.size()))) return;
        addbounds(k, p, bounded(plotyofp(session.dist, session.gumbeltype, p)));
    }
}

} // namespace

void confidlr() {
    const int k = session.currentSet;
    if (session.confMethod < 0) {
        tellset(k, Word::No, " ", Word::Likelihood, " ", Word::Ratio, " ", Word::Confidence, " ", Word::For,
                " ", Word::Single, " ", Word::Point);
        return;
    }
    const StandardLine family = standardline({session.dist, session.gumbeltype, 1, 1});
    const std::vector<LifeTerm> terms = plotterms(k, family);
    const StandardLine line = maximumline(family, terms);
    const double confidence = contourconfidence();
    const int steps = boundasked(BoundSide::low) && boundasked(BoundSide::high) ? 60 : 30;
    session.calcError = 1;
    if (!(line.scale > 0) || !(confidence > 0 && confidence < 1)) return;
    const double level = chi2inv(confidence, 1);
    compose(session.msg, "LR = ", level);
    statusline();
    Contour contour(line, terms, portionatrisk());
    if (!contour.walk(level / 2, steps, escaped)) return;
    session.calcError = 0;
    fillbounds(k, contour, line);
}
