#include "expression/rules.h"

#include <cmath>
#include <limits>

#include "numeric/c4.h"
#include "numeric/chisquare.h"
#include "numeric/constants.h"
#include "numeric/gamma.h"
#include "numeric/matherror.h"
#include "numeric/normal.h"
#include "numeric/sngguard.h"
#include "plot/transforms.h"
#include "session/session.h"

RankPosition rankPosition = nullptr;

namespace {

constexpr double undefinedLog = -9e14;
constexpr double tooBigHyperbolic = 9e14;
constexpr double tooBigProduct = 9e30;
constexpr double tooBigFactorial = 8.84e30;
constexpr double mostLog = 69;      ///< of a product, and of the argument of a hyperbolic function
constexpr double mostExponent = 70; ///< of exp
constexpr double mostExtreme = 84;  ///< of the extreme-value functions
constexpr double justBelowOne = 0.999999;
constexpr double justAboveOne = 1.000001;
constexpr double noValue = std::numeric_limits<double>::quiet_NaN();

/// Keeps the number routines from telling of a failure themselves: a run tells once for all its rows.
class MathWatch {
public:
    MathWatch() : before(tellmatherror) {
        failed = false;
        tellmatherror = [](std::string_view) { failed = true; };
    }
    ~MathWatch() { tellmatherror = before; }
    MathWatch(const MathWatch&) = delete;
    MathWatch& operator=(const MathWatch&) = delete;

    static double checked(double value) { return failed ? noValue : value; }

private:
    MathErrorTeller before;
    static inline bool failed = false;
};

double heldbelowone(double w) { return std::fabs(w) >= 1 ? std::copysign(justBelowOne, w) : w; }

} // namespace

double productrule(double w, double s) {
    const double product = w * s;
    const double size = std::fabs(product);
    // Well inside exp(-69) and exp(69), so that the usual product costs no logarithm.
    if (size > 2e-30 && size < 9e29) [[likely]]
        return product;
    if (w == 0 || s == 0) return product;
    if (std::fabs(std::log(std::fabs(w)) + std::log(std::fabs(s))) <= mostLog) return product;
    return (w < 0) == (s < 0) ? tooBigProduct : -tooBigProduct;
}

double quotientrule(double w, double s) { return w / (s == 0 ? 1e-6 : s); }
double sumrule(double w, double s) { return w + s; }
double differencerule(double w, double s) { return w - s; }

double powerrule(double w, double s) { return w == 0 && s < 0 ? noValue : std::pow(w, s); }

double anglerule(double w, double s) {
    if (s == 0) return sgnrule(w) * sessionPi / 2;
    const double angle = std::atan(w / s);
    if (s > 0) return angle;
    return w < 0 ? angle - sessionPi : angle + sessionPi;
}

double greaterrule(double w, double s) { return w < s ? s : w; }
double lesserrule(double w, double s) { return w > s ? s : w; }

double remainderrule(double w, double s) {
    const double divisor = std::nearbyint(s);
    return divisor == 0 ? noValue : std::fmod(std::nearbyint(w), divisor);
}

double chisquarerule(double w, double s) {
    const MathWatch watch;
    const double quantile = chi2inv(w, std::nearbyint(s));
    return MathWatch::checked(sngguard(quantile));
}

double absrule(double w) { return std::fabs(w); }
double atanrule(double w) { return std::atan(w); }
double cosrule(double w) { return std::cos(w); }
double exprule(double w) { return std::fabs(w) <= mostExponent ? std::exp(w) : 0; }
double intrule(double w) { return std::floor(w); }
double lnrule(double w) { return w > 0 ? std::log(w) : undefinedLog; }
double sinrule(double w) { return std::sin(w); }
double sqrrule(double w) { return std::copysign(std::sqrt(std::fabs(w)), w); }
double tanrule(double w) { return std::tan(w); }
double cshrule(double w) { return std::fabs(w) <= mostLog ? std::cosh(w) : tooBigHyperbolic; }

double factorialrule(double w) {
    double product = tooBigFactorial;
    if (std::fabs(w) <= 29) {
        product = w < 0 ? 0 : 1; // the numbers from 1 down to a negative pass through 0
        for (int i = 2; i <= w; ++i) product *= i;
    }
    return w == std::floor(w) ? product : 0 - product;
}

double logrule(double w) { return w > 0 ? std::log(w) / std::log(10.0) : undefinedLog; }

double snhrule(double w) {
    return std::fabs(w) <= mostLog ? std::sinh(w) : std::copysign(tooBigHyperbolic, w);
}

double tnhrule(double w) { return std::fabs(w) <= mostLog ? std::tanh(w) : sgnrule(w); }
double acosrule(double w) { return 1.570796 - asinrule(w); }
double asinrule(double w) { return std::asin(heldbelowone(w)); }
double acshrule(double w) { return std::acosh(w <= 1 ? justAboveOne : w); }
double asnhrule(double w) { return std::asinh(w); }
double atnhrule(double w) { return std::atanh(heldbelowone(w)); }
double sgnrule(double w) { return w > 0 ? 1 : w < 0 ? -1 : 0; }

double pdfnrule(double w) { return normpdf(w); }
double cdfnrule(double w) { return normcdf(w); }
double pdfwrule(double w) { return std::fabs(w) < mostExtreme ? std::exp(w) * std::exp(-std::exp(w)) : 0; }

double cdfwrule(double w) {
    if (std::fabs(w) < mostExtreme) return -std::expm1(-std::exp(w));
    return w > 0 ? 1 : 0;
}

double pdfxrule(double w) { return pdfwrule(-w); }

double cdfxrule(double w) {
    if (std::fabs(w) < mostExtreme) return std::exp(-std::exp(-w));
    return w > 0 ? 1 : 0;
}

double gammarule(double w) {
    const MathWatch watch;
    const double value = gammafunction(w);
    return MathWatch::checked(value);
}

double c4rule(double w) { return c4(w); }
double pdflrule(double w) { return w > 0 ? pdfnrule(std::log(w)) : 0; }
double cdflrule(double w) { return w > 0 ? cdfnrule(std::log(w)) : 0; }

double plotplacerule(double w, double s) {
    const double family = std::nearbyint(s);
    constexpr double first = weibull, last = gumbel;
    if (!(family >= first && family <= last)) return noValue;
    return plotyofp(static_cast<int16_t>(family), session.gumbeltype, w);
}

double rankpositionrule(double w, double s) {
    const double count = std::nearbyint(s);
    if (count < 1) return noValue;
    double position = w;
    rankPosition(count, w, position);
    return position;
}

BinaryRule modrule(int16_t setting) {
    if (setting == modPlotPlace) return plotplacerule;
    if (setting == modRankPosition && rankPosition) return rankpositionrule;
    return remainderrule;
}
