#include "analysis/contour.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace {

constexpr double turn = 2 * std::numbers::pi;
constexpr int mostPasses = 200;
constexpr double farOff = 1e6; ///< a crossing so many standard errors away is none

/// Largest f on [a, b], by golden section.
template <class F>
double goldensection(double a, double b, int passes, const F& f) {
    constexpr double ratio = 0.61803398874989485;
    double x1 = b - ratio * (b - a);
    double x2 = a + ratio * (b - a);
    double f1 = f(x1);
    double f2 = f(x2);
    for (int i = 0; i < passes; ++i) {
        if (f1 > f2) {
            b = x2;
            x2 = x1;
            f2 = f1;
            f1 = f(x1 = b - ratio * (b - a));
        } else {
            a = x1;
            x1 = x2;
            f1 = f2;
            f2 = f(x2 = a + ratio * (b - a));
        }
    }
    return (a + b) / 2;
}

} // namespace

Contour::Contour(const StandardLine& maximum, std::span<const LifeTerm> terms, double part)
    : line(maximum),
      units(standardised(maximum, terms)),
      portion(part) {
    const PlaceSlopes s = slopesat({0, 1});
    highest = s.value;
    l11 = std::sqrt(-s.shiftShift);
    l21 = -s.shiftRate / l11;
    l22 = std::sqrt(-s.rateRate - l21 * l21);
}

Contour::Place Contour::direction(double angle) const {
    const double rate = std::sin(angle) / l22;
    return {(std::cos(angle) - l21 * rate) / l11, rate};
}

Contour::Place Contour::placeat(double angle, double radius) const {
    const Place d = direction(angle);
    return {radius * d.shift, 1 + radius * d.rate};
}

/// The root along one direction: beyond it the likelihood lies below the level. A rate must stay positive,
/// which bounds the way where the likelihood does not.
bool Contour::crossing(double angle, double start, Knot& knot) const {
    const Place along = direction(angle);
    const Place across = direction(angle + turn / 4);
    double within = 0;
    double beyond = along.rate < 0 ? -1 / along.rate : HUGE_VAL;
    double radius = start < beyond ? start : beyond / 2;
    for (int pass = 0; pass < mostPasses; ++pass) {
        const PlaceSlopes s = slopesat({radius * along.shift, 1 + radius * along.rate});
        const double height = s.value - highest + drop;
        const double slope = s.shift * along.shift + s.rate * along.rate;
        (height > 0 ? within : beyond) = radius; // not a number counts as beyond
        double next = radius - height / slope;
        const bool good = slope < 0 && next > within && next < beyond;
        if (good && std::fabs(next - radius) <= 1e-7 * radius) { // the next one has twice the digits
            const double sidewise = s.shift * across.shift + s.rate * across.rate;
            knot = {angle, next, -radius * sidewise / slope};
            return true;
        }
        if (!good) next = std::isinf(beyond) ? 2 * radius : (within + beyond) / 2;
        if (next > farOff || next == radius) return false;
        radius = next;
    }
    return false;
}

bool Contour::walk(double below, int steps, Interrupted interrupted) {
    knots.clear();
    drop = below;
    if (!(l11 > 0) || !(l22 > 0) || !(drop > 0)) return false;
    double start = std::sqrt(2 * drop);
    for (int i = 0; i < steps; ++i) {
        if (interrupted()) return false;
        Knot knot{};
        if (!crossing(turn * i / steps, start, knot)) return false;
        knots.push_back(knot);
        start = std::fmax(0.1 * start, knot.radius + knot.slope * turn / steps);
    }
    return true;
}

/// The curve between the steps by the cubic through values and slopes of the logarithm, which stays positive.
double Contour::radiusbetween(double angle) const {
    const double step = turn / static_cast<double>(knots.size());
    const double turns = std::floor(angle / turn);
    const double place = (angle - turns * turn) / step;
    const auto i = std::min(static_cast<std::size_t>(place), knots.size() - 1);
    const Knot& a = knots[i];
    const Knot& b = knots[(i + 1) % knots.size()];
    const double u = place - static_cast<double>(i);
    const double v = 1 - u;
    const double sa = a.slope / a.radius * step;
    const double sb = b.slope / b.radius * step;
    return std::exp(std::log(a.radius) * v * v * (1 + 2 * u) + std::log(b.radius) * u * u * (1 + 2 * v)
                    + sa * u * v * v - sb * u * u * v);
}

/// Newton's method on the two conditions of an extreme. False when it does not settle near the start.
bool Contour::polish(const Quantity& q, Place& place) const {
    Place at = place;
    for (int pass = 0; pass < 12; ++pass) {
        const PlaceSlopes s = slopesat(at);
        const double m = q.move * at.shift + q.t;
        const double n = q.move * at.rate;
        const double height = s.value - highest + drop;
        const double level = s.shift * m + s.rate * n;
        const double a = s.shiftShift * m + s.shiftRate * n + q.move * s.shift;
        const double b = s.shiftRate * m + s.rateRate * n + q.move * s.rate;
        const double determinant = s.shift * b - s.rate * a;
        const Place step{-(height * b - level * s.rate) / determinant,
                         -(level * s.shift - height * a) / determinant};
        at = {at.shift + step.shift, at.rate + step.rate};
        if (!(at.rate > 0) || !std::isfinite(at.shift)) return false;
        const double size = std::hypot(at.shift, at.rate - 1);
        if (std::hypot(at.shift - place.shift, at.rate - place.rate) > 0.1 * size) return false;
        if (std::hypot(step.shift, step.rate) > 1e-7 * size) continue;
        place = at;
        return true;
    }
    return false;
}

/// Least (sign -1) or largest (1) value of a quantity on the curve.
double Contour::extreme(const Quantity& q, double sign) const {
    const auto valueof = [&](const Knot& knot) { return sign * q.at(placeat(knot.angle, knot.radius)); };
    const auto best = std::max_element(knots.begin(), knots.end(),
                                       [&](const Knot& a, const Knot& b) { return valueof(a) < valueof(b); });
    const double step = turn / static_cast<double>(knots.size());
    const double low = best->angle - step;
    const double high = best->angle + step;
    const double angle = goldensection(
        low, high, 30, [&](double trial) { return sign * q.at(placeat(trial, radiusbetween(trial))); });
    Place place = placeat(angle, radiusbetween(angle));
    if (polish(q, place)) return q.at(place);
    // The curve bends too sharply for its steps: the same search on the curve itself.
    double radius = best->radius;
    const auto oncurve = [&](double trial) {
        Knot knot{};
        if (!crossing(trial, radius, knot)) return -HUGE_VAL;
        radius = knot.radius;
        return sign * q.at(placeat(trial, knot.radius));
    };
    return sign * oncurve(goldensection(low, high, 40, oncurve));
}

Limits Contour::value(double t) const {
    const Quantity q{1, t};
    return {line.location + line.scale * extreme(q, -1), line.location + line.scale * extreme(q, 1)};
}

Limits Contour::scale() const {
    const Quantity q{0, 1};
    return {line.scale * extreme(q, -1), line.scale * extreme(q, 1)};
}
