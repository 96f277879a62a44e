#include "analysis/linesearch.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int mostPasses = 200;
constexpr int mostHalvings = 60;
constexpr double termsBetweenEvents = 8192;
constexpr double startReach = 5;    ///< largest standardised value at the start, far from any overflow
constexpr double nearEnough = 1e-7; ///< a full step this small doubles its digits beyond the last
constexpr double flattest = 1e-9;   ///< rates outside this range are no scale of the data any more
constexpr double steepest = 1e13;

bool hasboth(Known known) { return known == Known::between || known == Known::outside; }

/// Shift and rate: z = rate * y - shift.
struct Place {
    double shift = 0, rate = 1;
};

/// Log likelihood at a place, its slopes and its curvatures.
struct Slopes {
    double value = 0;
    double shift = 0, rate = 0;
    double shiftShift = 0, shiftRate = 0, rateRate = 0;

    void add(double w, const TermSlopes& t, double low, double high) {
        value += w * t.value;
        shift -= w * (t.a + t.b);
        rate += w * (t.a * low + t.b * high);
        shiftShift += w * (t.aa + 2 * t.ab + t.bb);
        shiftRate -= w * (t.aa * low + t.ab * (low + high) + t.bb * high);
        rateRate += w * (t.aa * low * low + 2 * t.ab * low * high + t.bb * high * high);
    }
};

/// The terms about a centre, in units of their spread.
class Climb {
public:
    Climb(Shape form, std::span<const LifeTerm> data, double part, double scale)
        : shape(form),
          terms(data),
          portion(part),
          fixed(scale > 0) {
        findunits(scale);
    }

    LineSearch run(Interrupted interrupted);

private:
    double unit(double y) const { return (y - centre) / spread; }
    double middle(const LifeTerm& term) const {
        return hasboth(term.known) ? (term.low + term.high) / 2 : term.low;
    }
    void findunits(double scale);
    Place start() const;
    double valueat(const Place& place) const;
    Slopes slopesat(const Place& place) const;
    Place newtonstep(const Slopes& slopes) const;
    bool climb(Place& place, const Place& step, const Slopes& slopes) const;
    bool small(const Place& step, const Place& place) const;
    bool atmaximum(const Slopes& s) const {
        if (fixed) return s.shiftShift < 0;
        return s.shiftShift < 0 && s.shiftShift * s.rateRate > s.shiftRate * s.shiftRate;
    }

    Shape shape;
    std::span<const LifeTerm> terms;
    double portion;
    bool fixed;
    double fixedScale = 0;
    double centre = 0, spread = 1;
    double lowest = 0, highest = 0; ///< of the middles, in units
};

void Climb::findunits(double scale) {
    double n = 0;
    double sum = 0;
    for (const LifeTerm& term : terms) n += term.weight, sum += term.weight * middle(term);
    centre = sum / n;
    double squares = 0;
    double below = 0;
    double above = 0;
    for (const LifeTerm& term : terms) {
        const double distance = middle(term) - centre;
        squares += term.weight * distance * distance;
        below = std::min(below, distance);
        above = std::max(above, distance);
    }
    const double reach = std::max(-below, above) / startReach;
    fixedScale = scale;
    spread = fixed ? scale : std::max(std::sqrt(squares / n), reach);
    if (!(spread > 0)) spread = 1;
    lowest = below / spread;
    highest = above / spread;
}

/// In the middle of the data; with a known scale on the side where no power can overflow.
Place Climb::start() const {
    if (!fixed) return {0, 1};
    switch (shape) {
    case Shape::smallest: return {std::max(0.0, highest - startReach), 1};
    case Shape::largest: return {std::min(0.0, lowest + startReach), 1};
    default: return {0, 1};
    }
}

double Climb::valueat(const Place& place) const {
    double value = 0;
    double exact = 0;
    for (const LifeTerm& term : terms) {
        const double a = place.rate * unit(term.low) - place.shift;
        const double b = hasboth(term.known) ? place.rate * unit(term.high) - place.shift : 0;
        value += term.weight * logterm(shape, term.known, a, b, portion);
        if (term.known == Known::exactly) exact += term.weight;
    }
    return value + exact * std::log(place.rate);
}

Slopes Climb::slopesat(const Place& place) const {
    Slopes sum;
    double exact = 0;
    for (const LifeTerm& term : terms) {
        const double low = unit(term.low);
        const double high = hasboth(term.known) ? unit(term.high) : 0;
        const double a = place.rate * low - place.shift;
        const double b = hasboth(term.known) ? place.rate * high - place.shift : 0;
        sum.add(term.weight, slopesofterm(shape, term.known, a, b, portion), low, high);
        if (term.known == Known::exactly) exact += term.weight;
    }
    sum.value += exact * std::log(place.rate);
    sum.rate += exact / place.rate;
    sum.rateRate -= exact / (place.rate * place.rate);
    return sum;
}

/// Newton's step; where the curvature is not that of a hill, a ridge is added to it until it is (Levenberg,
/// Q. Appl. Math. 2 (1944) 164).
Place Climb::newtonstep(const Slopes& s) const {
    if (fixed) return {s.shift / std::max(-s.shiftShift, 1e-300), 0};
    const double size = std::fabs(s.shiftShift) + std::fabs(s.rateRate);
    for (double ridge = 0; ridge < 1e6; ridge = ridge == 0 ? 1e-3 : ridge * 10) {
        const double aa = -s.shiftShift + ridge * size;
        const double bb = -s.rateRate + ridge * size;
        const double ab = -s.shiftRate;
        const double determinant = aa * bb - ab * ab;
        if (aa > 0 && determinant > 1e-14 * aa * bb)
            return {(bb * s.shift - ab * s.rate) / determinant, (aa * s.rate - ab * s.shift) / determinant};
    }
    return {s.shift, s.rate};
}

/// Goes along the step as far as it climbs. A rate that would fall to zero or below is halved instead.
bool Climb::climb(Place& place, const Place& step, const Slopes& slopes) const {
    const double rise = slopes.shift * step.shift + slopes.rate * step.rate;
    const double noise = 1e-13 * (1 + std::fabs(slopes.value));
    double fraction = 1;
    if (place.rate + step.rate <= 0) fraction = -place.rate / 2 / step.rate;
    for (int halving = 0; halving < mostHalvings; ++halving, fraction /= 2) {
        const Place trial{place.shift + fraction * step.shift, place.rate + fraction * step.rate};
        if (valueat(trial) >= slopes.value + 1e-4 * fraction * rise - noise) {
            place = trial;
            return true;
        }
    }
    return false;
}

bool Climb::small(const Place& step, const Place& place) const {
    return std::fabs(step.shift) <= nearEnough * (1 + std::fabs(place.shift))
           && std::fabs(step.rate) <= nearEnough * place.rate;
}

LineSearch Climb::run(Interrupted interrupted) {
    Place place = start();
    double walked = 0;
    for (int pass = 0; pass < mostPasses; ++pass) {
        walked += static_cast<double>(terms.size());
        if (walked >= termsBetweenEvents) {
            walked = 0;
            if (interrupted()) return {SearchEnd::escaped};
        }
        const Slopes slopes = slopesat(place);
        if (!std::isfinite(slopes.value)) return {};
        const Place step = newtonstep(slopes);
        if (small(step, place)) {
            if (!atmaximum(slopes)) return {};
            place = {place.shift + step.shift, place.rate + step.rate};
            const double scale = fixed ? fixedScale : spread / place.rate;
            return {SearchEnd::found, centre + spread * place.shift / place.rate, scale};
        }
        if (!climb(place, step, slopes)) return {SearchEnd::truncated};
        if (place.rate < flattest || place.rate > steepest) return {};
        if (!std::isfinite(place.shift)) return {};
    }
    return {SearchEnd::truncated};
}

/// Mean and root mean square deviation, which are the maximum for complete data of the bell.
LineSearch completebell(std::span<const LifeTerm> terms, double fixedScale) {
    double n = 0;
    double sum = 0;
    for (const LifeTerm& term : terms) n += term.weight, sum += term.weight * term.low;
    const double mean = sum / n;
    double squares = 0;
    for (const LifeTerm& term : terms) squares += term.weight * (term.low - mean) * (term.low - mean);
    return {SearchEnd::found, mean, fixedScale > 0 ? fixedScale : std::sqrt(squares / n)};
}

/// What the terms say of a common place of all failures: at or above low, at or below high.
struct CommonPlace {
    double low = -HUGE_VAL, high = HUGE_VAL;
};

CommonPlace commonplace(std::span<const LifeTerm> terms, double portion) {
    CommonPlace place;
    for (const LifeTerm& term : terms) {
        const bool survivor = term.known == Known::above;
        if (term.known == Known::outside || (survivor && portion < 1)) continue;
        if (term.known != Known::below) place.low = std::max(place.low, term.low);
        if (survivor) continue;
        place.high = std::min(place.high, term.known == Known::between ? term.high : term.low);
    }
    return place;
}

bool readable(const LifeTerm& term) {
    const bool interval = hasboth(term.known);
    return std::isfinite(term.low) && (!interval || (std::isfinite(term.high) && term.high > term.low));
}

} // namespace

LineSearch maximumlikelihood(Shape shape, std::span<const LifeTerm> terms, double portion, double fixedScale,
                             Interrupted interrupted) {
    if (terms.empty() || !std::all_of(terms.begin(), terms.end(), readable)) return {};
    const CommonPlace place = commonplace(terms, portion);
    // A known scale needs no more than something on either side of the location.
    const bool bounded =
        fixedScale > 0 ? std::isfinite(place.low) && std::isfinite(place.high) : place.low > place.high;
    if (!bounded) return {};
    const bool complete = std::all_of(terms.begin(), terms.end(),
                                      [](const LifeTerm& term) { return term.known == Known::exactly; });
    if (complete && shape == Shape::bell) return completebell(terms, fixedScale);
    return Climb(shape, terms, portion, fixedScale).run(interrupted);
}
