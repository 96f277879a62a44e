#include "numeric/sngguard.h"

#include <cmath>

float sngguard(double value) {
    if (value == 0 || !std::isfinite(value)) return 0;
    // exp(78) and exp(-78), so that the usual value costs two comparisons and no logarithm.
    constexpr double huge = 7.4983e33;
    constexpr double tiny = 1.3337e-34;
    const double size = std::fabs(value);
    if (size < huge && size > tiny) [[likely]]
        return static_cast<float>(value);
    const double logarithm = std::log(size);
    if (std::fabs(logarithm) <= 78) return static_cast<float>(value);
    return logarithm < 0 ? 9e-30f : 9e30f;
}
