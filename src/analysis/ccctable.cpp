#include <cmath>
#include <span>

#include "analysis/goodness.h"
#include "session/fits.h"

namespace {

constexpr double extremeTwo[] = {0.79203,  0.799092, 0.807591, 0.820316, 0.83247,  0.842517, 0.851494,
                                 0.859368, 0.866253, 0.872374, 0.877895, 0.882905, 0.887377, 0.891365,
                                 0.895123, 0.898583, 0.901686, 0.904607, 0.907297, 0.909864, 0.912237,
                                 0.914447, 0.916512, 0.918419, 0.920306, 0.922086, 0.923695, 0.925218};
constexpr double extremeThree[] = {0.891237, 0.890423, 0.888551, 0.899912,
                                   0.909174, 0.915483, 0.92096,  0.925742};
constexpr double bellTwo[] = {0.793884, 0.799178, 0.814385, 0.828565, 0.841572, 0.853096, 0.863007,
                              0.871798, 0.879389, 0.886126, 0.892134, 0.897482, 0.902408, 0.906765,
                              0.910791, 0.914375, 0.91774,  0.920867, 0.923633, 0.926301, 0.928736,
                              0.930987, 0.933127, 0.935117, 0.937009, 0.93872,  0.940445, 0.942006};
constexpr double bellThree[] = {0.872419, 0.887364, 0.8976, 0.904581, 0.911731, 0.917515, 0.923364, 0.926422};

/// One parameter case: a table from 3 failures on, and behind its end (1 - exp(-exp(y)))^power with
/// y = shorter I + mixed / (I L) + longer L + constant, L = ln(n + a), I = 1 / ln(n + b).
struct CriticalCase {
    std::span<const double> table;
    double a, b;
    double shorter, mixed, longer, constant;
    double power;
};

constexpr CriticalCase cases[] = {
    {extremeTwo, 37.85, 3.15, -14.922, -0.7049, 0.0318, 3.469, 0.0561},
    {extremeThree, -1.136, -2.92, -10.294, -14.7182, 0.0568, 16.8391, 0.048},
    {bellTwo, 141.9, 3.29, -10.843, 0.0414, 0.0412, 2.4915, 0.0867},
    {bellThree, -7, 7.18, -11.44, -0.0056, 0.0435, 2.5086, 0.0479},
};

double formula(const CriticalCase& c, double n) {
    const double L = std::log(n + c.a);
    const double I = 1 / std::log(n + c.b);
    const double y = c.shorter * I + c.mixed / (I * L) + c.longer * L + c.constant;
    return std::pow(-std::expm1(-std::exp(y)), c.power);
}

} // namespace

ParameterCase parametercase(int family, bool threeParameter) {
    switch (family) {
    case weibull:
    case gumbel: return threeParameter ? extremeOfThree : extremeOfTwo;
    case lognormal: return threeParameter ? bellOfThree : bellOfTwo;
    case normal: return bellOfTwo;
    default: return noCase;
    }
}

double cccsquare(int family, bool threeParameter, double n) {
    const ParameterCase which = parametercase(family, threeParameter);
    n = std::floor(std::fabs(n) + 0.5);
    if (which == noCase || !(n >= 3)) return 0;
    const CriticalCase& c = cases[which];
    const double index = n - 3;
    if (index < static_cast<double>(c.table.size())) return c.table[static_cast<std::size_t>(index)];
    return formula(c, n);
}
