#include "analysis/likelihoodgrid.h"

#include <cmath>

#include "analysis/loglik.h"
#include "data/report.h"
#include "session/session.h"
#include "shell/prompts.h"

namespace {

constexpr double shownDrop = 3;
constexpr int values = 7; ///< of each parameter
constexpr int columnWidth = 10;
constexpr int firstColumn = 12;
constexpr int mostDoublings = 200;

/// Log likelihood with one parameter moved; the line in the registers is kept.
double likelihoodat(double eta, double beta) {
    const Keep keep(session.eta, session.beta);
    session.eta = eta;
    session.beta = beta;
    return trueloglik();
}

/// A parameter on the scale on which it may take every value, and back.
struct Axis {
    bool logarithmic;
    double origin = 0; ///< least value

    double in(double value) const { return logarithmic ? std::log(value - origin) : value; }
    double out(double place) const { return logarithmic ? origin + std::exp(place) : place; }
};

Axis axisof(bool second) {
    const bool logarithmic = second || session.dist == weibull || session.dist == lognormal;
    return {logarithmic, second && session.dist == lognormal ? 1.0 : 0.0};
}

/// Place beyond `start` in the direction of `step` at which `value` falls to `level`.
template <class Value>
double fallsto(double level, double start, double step, Value value) {
    double inside = start;
    double outside = start + step;
    for (int doubling = 0; value(outside) > level; ++doubling) {
        if (doubling == mostDoublings) return outside;
        inside = outside;
        outside += step *= 2;
    }
    while (std::fabs(outside - inside) > 1e-7 * std::fabs(outside - start)) {
        const double middle = (inside + outside) / 2;
        (value(middle) > level ? inside : outside) = middle;
    }
    return (inside + outside) / 2;
}

double spread(const GridLimits& limits, int i) {
    return limits.low + (limits.high - limits.low) * i / (values - 1);
}

void reportlimits(int which, const GridLimits& limits) {
    report(" ", AsTyped{parametername(session.dist, which)}, " L=", Reported{limits.low},
           " U=", Reported{limits.high});
}

void reportrows(const GridLimits& etas, const GridLimits& betas) {
    for (int j = 0; j < values - 1; ++j)
        reportcell(firstColumn + j * columnWidth, Reported{spread(betas, j)});
    reportend(firstColumn + (values - 1) * columnWidth, Reported{spread(betas, values - 1)});
    for (int i = 0; i < values; ++i) {
        const double eta = spread(etas, i);
        reportcell(0, Reported{eta});
        for (int j = 0; j < values - 1; ++j)
            reportcell(firstColumn + j * columnWidth, Reported{likelihoodat(eta, spread(betas, j))});
        reportend(firstColumn + (values - 1) * columnWidth,
                  Reported{likelihoodat(eta, spread(betas, values - 1))});
    }
}

} // namespace

GridLimits gridlimits(bool second, double drop) {
    const Axis axis = axisof(second);
    const double eta = session.eta;
    const double beta = session.beta;
    const double level = likelihoodat(eta, beta) - drop;
    const auto value = [&](double place) {
        const double moved = axis.out(place);
        return second ? likelihoodat(eta, moved) : likelihoodat(moved, beta);
    };
    const double start = axis.in(second ? beta : eta);
    const double step = axis.logarithmic ? 0.01 : 0.01 * beta;
    return {axis.out(fallsto(level, start, -step, value)), axis.out(fallsto(level, start, step, value))};
}

void likelihoodgrid() {
    const int k = session.currentSet;
    if (k < 1 || k > setcount() || session.setFitted(k) != 1) return;
    const int row = static_cast<int>(rowofset(static_cast<float>(k)));
    const Keep keep(session.eta, session.beta);
    session.eta = session.etaFit(row, 1);
    session.beta = session.betaFit(row, 1);
    const GridLimits etas = gridlimits(false, shownDrop);
    const GridLimits betas = gridlimits(true, shownDrop);
    report();
    report(Word::Set, " ", k, ": ", Word::Likelihood, " ", Word::Value, " ", Word::Grid);
    reportlimits(1, etas);
    reportlimits(2, betas);
    reportrows(etas, betas);
}
