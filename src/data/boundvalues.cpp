#include "data/boundvalues.h"

#include <algorithm>
#include <cmath>

#include "plot/transforms.h"
#include "session/session.h"

namespace {

/// Bounds of the probability at a value, not of the value at a probability.
bool ofprobability(int k) {
    const std::string& code = session.setBoundLabel(k);
    return code == "bi" || code == "pr" || code == "gw";
}

double pointat(int row, double p) {
    const auto wanted = static_cast<float>(p);
    for (int m = 1; m <= static_cast<int>(session.n(row)); ++m)
        if (session.Y(row, m) == wanted) return session.X(row, m);
    return noAnswer;
}

/// Where a curve through points crosses a probability.
double crossing(int k, int row, double p) {
    const double t0 = session.t0(k);
    const auto ploty = [](double y) { return plotyofp(session.dist, session.gumbeltype, y); };
    const auto plotx = [&](int m) { return plotxofx(session.dist, session.X(row, m) - t0); };
    for (int m = 2; m <= static_cast<int>(session.n(row)); ++m) {
        const double first = session.Y(row, m - 1);
        const double second = session.Y(row, m);
        if (!(first <= p && p <= second && first < second)) continue;
        const double share = (ploty(p) - ploty(first)) / (ploty(second) - ploty(first));
        return xofplotx(session.dist, plotx(m - 1) + share * (plotx(m) - plotx(m - 1))) + t0;
    }
    return noAnswer;
}

} // namespace

bool hasbounds(int k) { return !session.setBoundLabel(k).empty(); }

int highboundrow(int k) { return static_cast<int>(rowofset(static_cast<float>(k))) - 1; }
int lowboundrow(int k) { return highboundrow(k) - 1; }

double boundconfidence() {
    if (session.confLow > 0 && session.confHigh > 0) return session.confHigh - session.confLow;
    return session.confLow > 0 ? 100 - session.confLow : session.confHigh;
}

ValueBounds valuebounds(int k, double p) {
    if (!hasbounds(k)) return {noAnswer, noAnswer};
    if (ofprobability(k)) return {crossing(k, highboundrow(k), p), crossing(k, lowboundrow(k), p)};
    return {pointat(lowboundrow(k), p), pointat(highboundrow(k), p)};
}

ValueBounds valuepercentages(int k) {
    const double low = session.confLow;
    const double high = session.confHigh;
    if (!ofprobability(k)) return {low, high};
    return {high > 0 ? 100 - high : 0, low > 0 ? 100 - low : 0};
}

std::span<const double> reportlevels() {
    const auto& named = session.reportValue;
    const bool serve =
        std::all_of(named.begin(), named.end(), [](double percent) { return percent > 0 && percent < 100; });
    return named.empty() || !serve ? std::span(bLives) : std::span(named);
}
