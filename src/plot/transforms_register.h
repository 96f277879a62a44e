#pragma once

/// What the register routines of the transforms share: putting a result where it belongs, and telling of a
/// formula that could not be computed.

#include <cmath>
#include <string>

#include "data/numbertext.h"
#include "numeric/normal.h"
#include "numeric/sngguard.h"
#include "plot/transforms.h"
#include "session/session.h"

inline constexpr int domainFault = 5;   ///< logarithm or power of a negative value
inline constexpr int overflowFault = 6; ///< result too big

template <class... T>
bool allfinite(T... values) {
    return (... && std::isfinite(values));
}

inline bool allfinite(const FamilyLine& line) { return allfinite(line.eta, line.beta); }

/// Narrows without a guard, for the formulas that know no wide value: too big becomes an infinity, by which
/// the caller knows the overflow.
inline float tosingle(double value) {
    constexpr double largest = 3.4028234663852886e38;
    if (std::fabs(value) > largest) return std::copysign(HUGE_VALF, value > 0 ? 1.0f : -1.0f);
    return static_cast<float>(value);
}

/// Phi^-1 of a probability inside (0, 1); not-a-number stays.
inline double phiinverse(double p) { return p > 0 ? normquantile(p) : p; }

/// True for the two types of a Gumbel line; with any other value a Gumbel branch changes nothing.
inline bool gumbelchosen(int16_t extreme) { return extreme == -1 || extreme == 1; }

/// -ln(1-p) with the digits of a small p: the rounding of 1 - p cancels in the quotient (Kahan; Goldberg, ACM
/// Computing Surveys 23 (1991), theorem 4). Within 5 ulp for 0 < p < 1, and half the time of log1p.
inline double cumulatedhazard(double p) {
    const double survival = 1 - p;
    return survival == 1 ? p : std::log(survival) * p / (survival - 1);
}

/// What the Weibull distribution function and density share: t = (x/eta)^beta, and the pair before the limits
/// of the ends, saturated where t or its logarithm reaches `test`. A trap stands in the pair.
struct WeibullStep {
    double t = 0;
    Probability raw;
};
inline constexpr double singleWeibullTest = 78;
inline constexpr double wideWeibullTest = 700;
WeibullStep weibullstep(const FamilyLine& line, double x, double test);

/// The limits of the wide pair: neither member reaches 0.
Probability limitedpair(const Probability& raw);

/// Tells of a formula that gave `result` from finite arguments.
void tellformula(std::string location, double result);

/// "name ... eta#=… beta#=… x=…", the location of the densities.
template <class T>
std::string densityplace(const char* name, const FamilyLine& line, T x) {
    std::string place = name;
    place += " ... eta#=";
    appendtrimmed(place, line.eta);
    place += " beta#=";
    appendtrimmed(place, line.beta);
    place += " x=";
    appendtrimmed(place, x);
    return place;
}

/// True when the result may be kept. A result that is not finite although the arguments were is a trap: its
/// place is told, and the register is left alone.
template <class Place>
bool keepable(double result, bool finiteArguments, const Place& place) {
    if (std::isfinite(result) || !finiteArguments) [[likely]]
        return true;
    tellformula(place(), result);
    return false;
}

inline auto placenamed(const char* name) {
    return [name] { return std::string(name); };
}
