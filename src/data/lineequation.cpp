#include "data/lineequation.h"

#include <cmath>

#include "data/report.h"

std::string lineequation(int k) {
    if (k < 1 || k > setcount() || session.progSide != lifeSide || session.setFitted(k) != 1)
        return noAnswerText;
    const int row = static_cast<int>(rowofset(static_cast<float>(k)));
    const Reported eta{session.etaFit(row, 1)}, beta{session.betaFit(row, 1)};
    const Reported t0{static_cast<double>(session.t0(k))};
    std::string x = "x", text;
    if (t0.value != 0) compose(x, "(x - ", t0, ")");
    switch (session.dist) {
    case weibull: return compose(text, "F(x) = 1 - exp(-(", AsTyped{x}, " / ", eta, ") ^ ", beta, ")");
    case lognormal: return compose(text, "F(x) = Phi(ln(", AsTyped{x}, " / ", eta, ") / ln(", beta, "))");
    case normal: return compose(text, "F(x) = Phi((", AsTyped{x}, " - ", eta, ") / ", beta, ")");
    case gumbel:
        return session.gumbeltype == 1
                   ? compose(text, "F(x) = exp(-exp(-(", AsTyped{x}, " - ", eta, ") / ", beta, "))")
                   : compose(text, "F(x) = 1 - exp(-exp((", AsTyped{x}, " - ", eta, ") / ", beta, "))");
    default: return noAnswerText;
    }
}
