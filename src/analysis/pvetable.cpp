#include <algorithm>
#include <cmath>

#include "analysis/goodness.h"
#include "analysis/pvefitted.h"

namespace {

/// The published polynomials: Weibull and Gumbel below 90 failures and from 90, Lognormal and Normal below
/// 100 and from 100.
constexpr PvePolynomials published[] = {
    {{0.001973, -0.101019, -0.333822}, {-0.004794, 0.345408, -2.809149}, {0.008406, -0.377782, 3.723982}},
    {{0.002315, -0.04405, -0.649006}, {-0.010977, 0.142758, -1.626206}, {0.0105, -0.134373, 2.454795}},
    {{0.001381, -0.119344, -0.287823}, {-0.0047, 0.242805, -2.744663}, {0.002024, -0.220414, 3.550612}},
    {{0.00216, -0.066917, -0.525844}, {-0.001192, -0.01396, -1.713218}, {0.001105, 0.014956, 2.563473}},
};
constexpr PveRow weibullOfFourteen = {-0.501848, -2.406942, 3.249605};

constexpr double manyOfBell = 100, manyOfExtreme = 90;
constexpr double mostWithThreshold = 4500;
constexpr double endOfForm = 0.999999; ///< r^2 from which few failures take topPve

double value(const double (&c)[3], double l) { return (c[0] * l + c[1]) * l + c[2]; }

PveRow rowof(const PvePolynomials& p, double l) { return {value(p.A, l), value(p.B, l), value(p.C, l)}; }

PveRow rowoffew(const PveFew& few, double rSquared) { return rSquared >= few.split ? few.upper : few.lower; }

PveRow coefficients(ParameterCase which, double n, double rSquared) {
    if (n < 14) return rowoffew(pveFew[which][static_cast<int>(n) - 3], rSquared);
    if (which == extremeOfTwo && n == 14) return weibullOfFourteen;
    const bool bell = which >= bellOfTwo;
    const bool threshold = which == extremeOfThree || which == bellOfThree;
    const int many = n >= (bell ? manyOfBell : manyOfExtreme) ? 1 : 0;
    return rowof((threshold ? pveThreshold : published)[(bell ? 2 : 0) + many], std::log(n));
}

} // namespace

double pve(int family, bool threeParameter, double n, double rSquared) {
    const ParameterCase which = parametercase(family, threeParameter);
    n = std::floor(std::fabs(n) + 0.5);
    const bool threshold = which == extremeOfThree || which == bellOfThree;
    if (which == noCase || !(n >= 3) || !(rSquared < 1) || (threshold && n > mostWithThreshold)) return 0;
    if (n < 8 && rSquared >= endOfForm) return topPve;
    const double rho = (1 - rSquared) / (1 - cccsquare(family, threeParameter, n));
    const PveRow row = coefficients(which, n, rSquared);
    return std::exp(-std::exp(row.B * std::pow(rho, row.A) + row.C));
}
