#include "session/distribution.h"

#include <algorithm>
#include <cctype>
#include <string>

#include "data/numbertext.h"
#include "data/textpieces.h"

namespace {

struct Distribution {
    std::string_view name;
    Dist dist;
    int16_t gumbeltype = -1;
    float fixedSlope = 0;
    int16_t negative = 0;
    bool needsSlope = false;
};

/// Longer names stand before those they begin with.
constexpr Distribution distributions[] = {
    {"EXPONENTIAL", weibull, -1, 1},
    {"EXPONEN", weibull, -1, 1},
    {"RAYLEIGH", weibull, -1, 2},
    {"WEIBAYES", weibull, -1, 0, 0, true},
    {"WEIBULL", weibull},
    {"LOGNORMAL", lognormal},
    {"LOGNORM", lognormal},
    {"NORMAL+", normal, -1, 0, 1},
    {"NORMAL", normal},
    {"GAUSSIAN", normal},
    {"GUMBEL+", gumbel, 1},
    {"GUMBEL-", gumbel, -1},
    {"GUMBEL", gumbel, -1},
    {"EXTREME+", gumbel, 1},
    {"EXTREME-", gumbel, -1},
};

/// The number in "(n)"; 0 when there is none above 0.
float slopein(std::string_view text) {
    if (text.size() < 3 || text.front() != '(' || text.back() != ')') return 0;
    const double slope = readnumber(text.substr(1, text.size() - 2)).value;
    return slope > 1e-6 && slope < 1e6 ? static_cast<float>(slope) : 0;
}

} // namespace

std::optional<DistributionChoice> distributionof(std::string_view text) {
    std::string upper = uppercase(text);
    std::erase(upper, ' ');
    for (const Distribution& family : distributions) {
        if (!upper.starts_with(family.name)) continue;
        const std::string_view rest = std::string_view(upper).substr(family.name.size());
        const float slope = slopein(rest);
        const bool threshold = rest == "3" || rest == "3AR";
        const bool known = rest.empty() ? !family.needsSlope : threshold || slope > 0;
        const bool logSpreadZero = family.dist == lognormal && slope > 0 && slope <= 1;
        if (!known || logSpreadZero) return std::nullopt;
        return DistributionChoice{
            family.dist,          family.gumbeltype, slope > 0 ? slope : family.fixedSlope,
            family.negative == 1, threshold,         rest == "3AR"};
    }
    return std::nullopt;
}
