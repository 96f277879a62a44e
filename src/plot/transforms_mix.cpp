/// The mixed model: up to three Weibull lines, whose survivals multiply, with a portion for the first.

#include "plot/transforms_register.h"

namespace {

/// Components that a kind of mixture reads; the other kinds are component 1 alone.
int componentcount(int16_t kind) {
    if (kind == 4 || kind == 5) return 2;
    return kind == 7 ? 3 : 1;
}

bool componentsthere(int count) {
    return session.mixEtas.bound() >= count && session.mixBetas.bound() >= count
           && session.mixPortions.bound() >= 1;
}

/// The line of component i, in the family of the current line.
FamilyLine component(int i) {
    FamilyLine line = currentline();
    line.eta = session.mixEtas(i);
    line.beta = session.mixBetas(i);
    return line;
}

/// Portion of the first component's population.
double portion(int16_t kind) { return kind == 4 ? 1 : static_cast<double>(session.mixPortions(1)); }

/// F = 1 - w*R1*R2*R3 - (1-w)*R2*R3. Above F1 = 0.99 by the complements of the components, which keep the
/// tail; below it by 1 - F.
Probability combined(const Probability (&parts)[3], double w) {
    const bool tail = parts[0].p > 0.99;
    double survival[3];
    for (int i = 0; i < 3; ++i) survival[i] = tail ? parts[i].q : 1 - parts[i].p;
    const double others = survival[1] * survival[2];
    const double first = w * survival[0] * others;
    const double rest = (1 - w) * others;
    return {1 - first - rest, first + rest};
}

/// Distribution function of the mixture. A component that cannot be computed is the trap of the whole.
Probability mixture(double x) {
    const int16_t kind = session.mixKind;
    const int count = componentcount(kind);
    Probability parts[3];
    for (int i = 0; i < count; ++i) {
        parts[i] = probabilityofx(component(i + 1), x);
        if (!std::isfinite(parts[i].p)) return parts[i];
    }
    Probability all = count == 1 ? parts[0] : combined(parts, portion(kind));
    if (all.p < 0) all.p = 1e-30;
    if (all.p >= 1) all.p = 0.999999999;
    return all;
}

/// True when the arrays hold the mixture; else the fault is told.
bool mixturethere(const char* name, int count) {
    if (componentsthere(count)) [[likely]]
        return true;
    session.msg = name;
    if (tellfault) tellfault(indexFault);
    return false;
}

void leavelastcomponent() {
    const FamilyLine last = component(componentcount(session.mixKind));
    session.eta = last.eta;
    session.beta = last.beta;
}

/// The next place between the bounds: the geometric mean of two positive ones, else the arithmetic.
double between(double low, double high) {
    return low <= 0 || high <= 0 ? (low + high) / 2 : std::exp((std::log(low) + std::log(high)) / 2);
}

/// Bisection for the x with F(x) = p; gives the last place tried, or what the mixture trapped with.
double bisected(double p, double start, double low) {
    constexpr int mostRounds = 300;
    double high = 9e30;
    double g = start;
    for (int round = 1;; ++round) {
        const double F = mixture(g).p;
        if (!std::isfinite(F)) return F;
        if (static_cast<float>(std::fabs(F - p)) <= 1e-6f || round == mostRounds) return g;
        (F < p ? low : high) = g;
        g = between(low, high);
    }
}

/// Survival and density of one component.
struct Part {
    double R = 0;
    double f = 0;
};

Part partofx(const FamilyLine& line, double x) {
    if (!(line.eta > 0 && line.beta > 0)) return {};
    const double ratio = x / line.eta;
    if (ratio < 0) return {0, std::nan("")};
    const double t = std::pow(ratio, line.beta);
    if (std::isinf(t)) return {0, allfinite(x) ? t : 0};
    const double R = std::exp(-t);
    return {R, x > 0 ? line.beta * R * t / x : line.beta * std::pow(ratio, line.beta - 1) / line.eta};
}

double mixturedensity(double x) {
    const int16_t kind = session.mixKind;
    const Part first = partofx(component(1), x);
    const Part second = partofx(component(2), x);
    const Part third = kind == 4 || kind == 5 ? Part{1, 0} : partofx(component(3), x);
    for (const Part& part : {first, second, third})
        if (!std::isfinite(part.f)) return part.f;
    const double w = portion(kind);
    const double rest = second.R * third.f + third.R * second.f;
    return w * (first.R * rest + second.R * third.R * first.f) + (1 - w) * rest;
}

} // namespace

void txx2pmixd() {
    if (session.mixFlag == 0) return txx2pd();
    if (!mixturethere("txx2pmixd", componentcount(session.mixKind))) return;
    const Probability all = mixture(session.ud);
    leavelastcomponent();
    if (!keepable(all.p, allfinite(session.ud), placenamed("txx2pmixd"))) return;
    session.ud = all.p;
    session.udq = all.q;
}

void txp2xmixd() {
    if (session.mixFlag == 0) return txp2xd();
    const int16_t family = currentline().family;
    const bool positive = family == weibull || family == lognormal;
    const double p = session.ud;
    const double low = positive ? 1e-30 : -9e30;
    if (p <= 0) {
        session.ud = positive ? 1e-12 : -9e30;
    } else if (p >= 1) {
        session.ud = 9e30;
    } else if (mixturethere("txp2xmixd", componentcount(session.mixKind))) {
        const double g = bisected(p, session.eta < low ? low : session.eta, low);
        leavelastcomponent();
        if (keepable(g, allfinite(p), placenamed("txp2xmixd"))) session.ud = g;
    }
}

void txx2dpmixd() {
    const FamilyLine line = currentline();
    if (line.family != weibull) {
        session.ud = 0;
        return;
    }
    const int16_t kind = session.mixKind;
    if (!mixturethere("txx2dpmixd", kind == 4 || kind == 5 ? 2 : 3)) return;
    const double x = session.ud;
    const double density = mixturedensity(x);
    const auto place = [&] { return densityplace("txx2dpmixd", line, x); };
    if (keepable(density, allfinite(x), place)) session.ud = density;
}
