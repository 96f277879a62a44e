#include "curvefit/fitsolve.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "curvefit/curvevalue.h"

namespace {

/// A pivot this small, against sums of terms of at most 1 a unit of weight, leaves no ten digits: the
/// rounding of the sums is some 1e-31.
constexpr double leastPivot = 1e-20;

/// A row in the coordinates of the straight line or polynomial.
struct Place {
    double across, up, weight;
    std::size_t row;
};

std::vector<Place> placesof(std::span<const FitRow> rows, const CurveModel& model) {
    std::vector<Place> places;
    places.reserve(rows.size());
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const FitRow& row = rows[i];
        const double across = coordinateof(model.across, model.swapped ? row.y : row.x);
        const double up = coordinateof(model.up, model.swapped ? row.x : row.y);
        if (!std::isfinite(across) || !std::isfinite(up) || !(row.weight > 0) || !std::isfinite(row.weight))
            continue;
        places.push_back({across, up, row.weight, i});
    }
    return places;
}

/// Where the abscissas are centred, and the power of two that brings them to within -1 and 1.
struct Centre {
    double middle = 0, scale = 1;
    Twofold of(double across) const {
        const Twofold away = exactsum(across, -middle);
        return {away.high * scale, away.low * scale};
    }
};

Centre centreof(std::span<const Place> places) {
    const auto [low, high] = std::minmax_element(
        places.begin(), places.end(), [](const Place& a, const Place& b) { return a.across < b.across; });
    Centre centre;
    centre.middle = low->across / 2 + high->across / 2;
    const double reach = std::max(high->across - centre.middle, centre.middle - low->across);
    int exponent = 0;
    std::frexp(reach, &exponent);
    if (reach > 0) centre.scale = std::ldexp(1.0, -exponent);
    return centre;
}

/// Abscissas that differ, counted up to `enough`.
int distinct(std::span<const Place> places, int enough) {
    std::vector<double> seen;
    for (const Place& place : places) {
        if (std::find(seen.begin(), seen.end(), place.across) != seen.end()) continue;
        seen.push_back(place.across);
        if (static_cast<int>(seen.size()) == enough) break;
    }
    return static_cast<int>(seen.size());
}

/// The normal equations: in one pass the sums of w*t^i, i to twice the order, and of w*t^i*y.
LinearSystem normalequations(std::span<const Place> places, const Centre& centre, int order) {
    const auto size = static_cast<std::size_t>(order) + 1;
    std::vector<LongSum> powers(2 * size - 1), moments(size);
    for (const Place& place : places) {
        const Twofold t = centre.of(place.across);
        Twofold term = place.weight;
        for (std::size_t i = 0; i < powers.size(); ++i) {
            powers[i].add(term);
            if (i < size) moments[i].add(term * place.up);
            term = term * t;
        }
    }
    LinearSystem system{std::vector(size, std::vector<Twofold>(size)), std::vector<Twofold>(size)};
    for (std::size_t i = 0; i < size; ++i) {
        system.b[i] = moments[i].value();
        for (std::size_t j = 0; j < size; ++j) system.a[i][j] = powers[i + j].value();
    }
    return system;
}

double valueat(std::span<const Twofold> coefficients, double t) {
    double value = 0;
    for (std::size_t i = coefficients.size(); i-- > 0;) value = value * t + coefficients[i].high;
    return value;
}

/// The polynomial in t = (x - middle) * scale as one in x, by repeated synthetic division. Nothing when a
/// coefficient leaves the range of a double.
std::optional<std::vector<double>> expanded(std::vector<Twofold> terms, const Centre& centre) {
    double factor = 1;
    for (Twofold& term : terms) {
        const bool wasZero = term.high == 0;
        term = {term.high * factor, term.low * factor};
        if (!std::isfinite(term.high) || (!wasZero && std::fabs(term.high) < 1e-300)) return std::nullopt;
        factor *= centre.scale;
    }
    const Twofold shift(-centre.middle);
    for (std::size_t low = 0; low + 1 < terms.size(); ++low)
        for (std::size_t i = terms.size() - 1; i-- > low;) terms[i] += terms[i + 1] * shift;
    std::vector<double> coefficients;
    for (const Twofold& term : terms) {
        if (!std::isfinite(term.value())) return std::nullopt;
        coefficients.push_back(term.value());
    }
    return coefficients;
}

/// Fitted values by the polynomial about the middle, whose terms do not cancel; and whether the rounded
/// coefficients tell the same.
void takefitted(FitSolution& solution, std::span<const Place> places, std::span<const Twofold> terms,
                const Centre& centre) {
    double largest = 0, apart = 0;
    for (const Place& place : places) {
        const double value = valueat(terms, centre.of(place.across).high);
        solution.fitted[place.row] = value;
        largest = std::max(largest, std::fabs(place.up));
        apart = std::max(apart, std::fabs(value - polynomialvalue(solution.coefficients, place.across)));
    }
    solution.precise = apart <= 1e-6 * largest;
}

void takerange(FitSolution& solution, std::span<const Place> places, std::span<const FitRow> rows) {
    solution.used = static_cast<int>(places.size());
    solution.low = solution.high = rows[places.front().row].x;
    for (const Place& place : places) {
        solution.low = std::min(solution.low, rows[place.row].x);
        solution.high = std::max(solution.high, rows[place.row].x);
    }
}

/// Turns the fitted ordinates of the straight line into fitted y.
void takecurve(FitSolution& solution, std::span<const FitRow> rows, const CurveModel& model) {
    if (model.ispolynomial()) return;
    for (std::size_t i = 0; i < rows.size(); ++i)
        if (!std::isnan(solution.fitted[i]))
            solution.fitted[i] = logarithmicvalue(model, solution.coefficients, rows[i].x);
}

} // namespace

std::optional<std::vector<Twofold>> gaussjordan(LinearSystem system, double least) {
    auto& [a, b] = system;
    const std::size_t size = b.size();
    std::vector<std::size_t> columnOfRow(size);
    std::vector<bool> used(size, false);
    for (std::size_t k = 0; k < size; ++k) {
        std::size_t pivot = size;
        for (std::size_t j = 0; j < size; ++j)
            if (!used[j] && (pivot == size || std::fabs(a[k][j].high) > std::fabs(a[k][pivot].high)))
                pivot = j;
        if (!(std::fabs(a[k][pivot].high) > least)) return std::nullopt;
        used[pivot] = true;
        columnOfRow[k] = pivot;
        const Twofold divisor = a[k][pivot];
        b[k] /= divisor;
        for (Twofold& entry : a[k]) entry /= divisor;
        for (std::size_t i = 0; i < size; ++i) {
            if (i == k) continue;
            const Twofold factor = a[i][pivot];
            b[i] -= factor * b[k];
            for (std::size_t j = 0; j < size; ++j) a[i][j] -= factor * a[k][j];
        }
    }
    std::vector<Twofold> unknowns(size);
    for (std::size_t k = 0; k < size; ++k) unknowns[columnOfRow[k]] = b[k];
    return unknowns;
}

FitSolution fitsolve(std::span<const FitRow> rows, const CurveModel& model) {
    FitSolution solution;
    solution.fitted.assign(rows.size(), std::numeric_limits<double>::quiet_NaN());
    const std::vector<Place> places = placesof(rows, model);
    if (places.empty()) return solution;
    takerange(solution, places, rows);
    solution.state = FitState::singular;
    if (distinct(places, model.parameters()) < model.parameters()) return solution;
    const Centre centre = centreof(places);
    const LinearSystem system = normalequations(places, centre, model.order);
    const bool sums = std::isfinite(system.a.back().back().value()) && std::isfinite(system.b.back().value())
                      && std::isfinite(system.a[0][0].value()) && std::isfinite(system.b[0].value());
    const auto terms = sums ? gaussjordan(system, leastPivot * system.a[0][0].high) : std::nullopt;
    if (sums && !terms) return solution;
    auto coefficients = terms ? expanded(*terms, centre) : std::nullopt;
    if (!coefficients) {
        solution.state = FitState::outOfRange;
        return solution;
    }
    solution.state = FitState::solved;
    solution.coefficients = std::move(*coefficients);
    takefitted(solution, places, *terms, centre);
    takecurve(solution, rows, model);
    return solution;
}
