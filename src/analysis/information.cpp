#include "analysis/information.h"

#include <cmath>

namespace {

bool haswidth(Known known) { return known == Known::between || known == Known::outside; }

} // namespace

std::vector<LifeTerm> standardised(const StandardLine& line, std::span<const LifeTerm> terms) {
    std::vector<LifeTerm> units(terms.begin(), terms.end());
    for (LifeTerm& term : units) {
        term.low = (term.low - line.location) / line.scale;
        if (haswidth(term.known)) term.high = (term.high - line.location) / line.scale;
    }
    return units;
}

PlaceSlopes placeslopes(Shape shape, std::span<const LifeTerm> terms, double portion, double shift,
                        double rate) {
    PlaceSlopes sum;
    double exact = 0;
    for (const LifeTerm& term : terms) {
        const double w = term.weight;
        const double low = term.low;
        const double high = haswidth(term.known) ? term.high : 0;
        const TermSlopes t =
            slopesofterm(shape, term.known, rate * low - shift, rate * high - shift, portion);
        sum.value += w * t.value;
        sum.shift -= w * (t.a + t.b);
        sum.rate += w * (t.a * low + t.b * high);
        sum.shiftShift += w * (t.aa + 2 * t.ab + t.bb);
        sum.shiftRate -= w * (t.aa * low + t.ab * (low + high) + t.bb * high);
        sum.rateRate += w * (t.aa * low * low + 2 * t.ab * low * high + t.bb * high * high);
        if (term.known == Known::exactly) exact += w;
    }
    sum.value += exact * std::log(rate);
    sum.rate += exact / rate;
    sum.rateRate -= exact / (rate * rate);
    return sum;
}

double placevalue(Shape shape, std::span<const LifeTerm> terms, double portion, double shift, double rate) {
    double value = 0;
    double exact = 0;
    for (const LifeTerm& term : terms) {
        const double high = haswidth(term.known) ? rate * term.high - shift : 0;
        value += term.weight * logterm(shape, term.known, rate * term.low - shift, high, portion);
        if (term.known == Known::exactly) exact += term.weight;
    }
    return value + exact * std::log(rate);
}

Information observedinformation(const StandardLine& line, std::span<const LifeTerm> terms, double portion) {
    // shift = a exp(-l) and rate = exp(-l): the second slopes take up the first ones at a line off the
    // maximum.
    const PlaceSlopes s = placeslopes(line.shape, standardised(line, terms), portion, 0, 1);
    return {s.shift, -s.rate, -s.shiftShift, s.shiftRate + s.shift, -s.rateRate - s.rate};
}

Covariance covarianceof(const Information& i) {
    const double determinant = i.aa * i.ll - i.al * i.al;
    if (!(determinant > 0) || !(i.aa > 0) || !std::isfinite(determinant)) return {};
    return {true, i.ll / determinant, -i.al / determinant, i.aa / determinant};
}
