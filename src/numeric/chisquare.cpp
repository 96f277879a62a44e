#include "numeric/chisquare.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <iterator>

#include "numeric/gamma.h"
#include "numeric/matherror.h"
#include "numeric/normal.h"

namespace {

constexpr std::size_t points = 17;

// The table's shared probabilities, in single precision.
constexpr float cuts[points] = {0.001f, 0.005f, 0.01f, 0.025f, 0.05f,  0.1f,  0.25f,  0.4f,  0.5f,
                                0.6f,   0.75f,  0.9f,  0.95f,  0.975f, 0.99f, 0.995f, 0.999f};

// Quantiles at the cuts for 1 to 10 degrees of freedom, then 12, 14, 16, 18 and 20.
constexpr double quantiles[][points] = {
    {1.570797149e-6, 3.927042222e-5, 0.0001570878579, 0.0009820691172, 0.00393214, 0.01579077409,
     0.1015310443, 0.2749958977, 0.4549364231, 0.7083263008, 1.323303697, 2.705543454, 3.841458821,
     5.023886187, 6.634896601, 7.879438577, 10.82756617},
    {0.002001000667, 0.01002508365, 0.02010067171, 0.05063561597, 0.1025865888, 0.2107210313, 0.5753641449,
     1.021651248, 1.386294361, 1.832581464, 2.772588722, 4.605170186, 5.991464547, 7.377758908, 9.210340372,
     10.59663473, 13.81551056},
    {0.02429758582, 0.07172177459, 0.1148318019, 0.2157952826, 0.3518463177, 0.5843743742, 1.212532903,
     1.869168403, 2.365973884, 2.946166073, 4.108344936, 6.251388631, 7.814727903, 9.348403604, 11.34486673,
     12.83815647, 16.2662362},
    {0.09080403554, 0.2069890935, 0.2971094805, 0.4844185571, 0.7107230214, 1.063623217, 1.922557526,
     2.752842684, 3.35669398, 4.044626491, 5.385269058, 7.77944034, 9.487729037, 11.14328678, 13.27670414,
     14.860259, 18.46682695},
    {0.2102126026, 0.4117419038, 0.5542980767, 0.8312116135, 1.145476226, 1.610307987, 2.674602809,
     3.655499623, 4.351460191, 5.131867074, 6.625679764, 9.2363569, 11.07049769, 12.83250199, 15.08627247,
     16.74960234, 20.51500565},
    {0.3810667551, 0.6757267775, 0.8720903302, 1.237344246, 1.635382894, 2.204130656, 3.454598836,
     4.570153808, 5.348120627, 6.210757195, 7.840804121, 10.64464068, 12.59158724, 14.44937534, 16.81189383,
     18.54758418, 22.45774448},
    {0.5984937524, 0.9892556831, 1.239042306, 1.689869181, 2.167349909, 2.833106918, 4.254852184, 5.49323486,
     6.345811196, 7.283207633, 9.037147548, 12.01703662, 14.06714045, 16.01276427, 18.47530691, 20.27773987,
     24.32188635},
    {0.8571048273, 1.344413087, 1.646497373, 2.179730747, 2.732636793, 3.489539126, 5.070640424, 6.42264556,
     7.344121498, 8.350525468, 10.21885497, 13.36156614, 15.50731306, 17.53454614, 20.09023503, 21.95495499,
     26.12448156},
    {1.151949546, 1.734932905, 2.087900736, 2.7003895, 3.325112843, 4.168159008, 5.898825883, 7.357034502,
     8.342832692, 9.413640094, 11.38875144, 14.68365657, 16.9189776, 19.0227678, 21.66599433, 23.58935078,
     27.87716487},
    {1.478743464, 2.155856481, 2.55821216, 3.24697278, 3.940299136, 4.865182052, 6.737200772, 8.295471761,
     9.341817766, 10.47323623, 12.5488614, 15.98717917, 18.30703805, 20.48317735, 23.20925116, 25.18817957,
     29.58829845},
    {2.214209321, 3.073823638, 3.570568971, 4.403788507, 5.226029488, 6.30379606, 8.438418766, 10.18197138,
     11.34032238, 12.58383797, 14.84540367, 18.54934779, 21.02606982, 23.33666416, 26.21696731, 28.29951882,
     32.90949041},
    {3.040672521, 4.074674957, 4.660425063, 5.628726103, 6.570631384, 7.78953361, 10.16531381, 12.07848248,
     13.33927415, 14.68529426, 17.1169336, 21.06414421, 23.6847913, 26.11894805, 29.14123774, 31.31934962,
     36.12327368},
    {3.941627843, 5.142205443, 5.81221247, 6.907664353, 7.961645572, 9.312236354, 11.9122197, 13.98273634,
     15.33849889, 16.77953671, 19.36886022, 23.54182892, 26.2962276, 28.84535072, 31.99992691, 34.26718654,
     39.25235479},
    {4.904848809, 6.264804685, 7.014910901, 8.230746195, 9.390455081, 10.86493612, 13.67529035, 15.89321172,
     17.33790237, 18.86790412, 21.6048898, 25.98942308, 28.86929943, 31.52637844, 34.80530573, 37.15645146,
     42.31239633},
    {5.921040745, 7.433844263, 8.260398333, 9.590777392, 10.85081139, 12.44260921, 15.45177354, 17.80882947,
     19.33742923, 20.95136838, 23.82769204, 28.41198058, 31.41043284, 34.1696069, 37.56623479, 39.99684631,
     45.31474662},
};

/// A place between two rows of the table: row `index` and, by `share`, the one behind it.
struct Place {
    std::size_t index;
    double share;
};

/// Rows stand at each whole number up to 10 and at each even one up to 20; between two rows the result is
/// shared by distance, so an odd number above 10 is the mean of its neighbours.
Place placeof(double dof) {
    const double row = (dof <= 10 ? dof : (dof - 10) / 2 + 10) - 1;
    const double whole = std::min(std::floor(row), static_cast<double>(std::size(quantiles) - 2));
    return {static_cast<std::size_t>(whole), row - whole};
}

/// Straight lines through (0, 0) and the table's points; the last line goes on beyond the table.
template <class From, class To>
double interpolated(const From (&from)[points], const To (&to)[points], double value) {
    const std::size_t cell = static_cast<std::size_t>(std::upper_bound(from, from + points, value) - from);
    if (cell == 0) return to[0] * (value / from[0]);
    const std::size_t i = std::min(cell, points - 1);
    const double share = (value - from[i - 1]) / (from[i] - from[i - 1]);
    return to[i - 1] + share * (to[i] - to[i - 1]);
}

double tablecdf(double x, double dof) {
    const Place place = placeof(dof);
    const double low = std::min(1.0, interpolated(quantiles[place.index], cuts, x));
    const double high = std::min(1.0, interpolated(quantiles[place.index + 1], cuts, x));
    return low + place.share * (high - low);
}

double tableinv(double p, double dof) {
    const Place place = placeof(dof);
    const double low = interpolated(cuts, quantiles[place.index], p);
    const double high = interpolated(cuts, quantiles[place.index + 1], p);
    return low + place.share * (high - low);
}

/// The normal deviate of the cube root of x / dof.
double cuberootdeviate(double x, double dof) {
    const double spread = 2.0 / 9 / dof;
    return (std::cbrt(x / dof) - (1 - spread)) / std::sqrt(spread);
}

double cuberootinv(double z, double dof) {
    const double spread = 2.0 / 9 / dof;
    const double root = 1 - spread + z * std::sqrt(spread);
    return root > 0 ? dof * root * root * root : 0;
}

constexpr double tablelimit = 20;
constexpr double exactlimit = 1000;
constexpr double smallestx = 1e-300;

bool outside(double x, double dof, bool exact) {
    errCode = inputChecked;
    if (!std::isnan(x) && std::isfinite(dof) && (dof > 0 || !exact)) return false;
    matherror(MathError::invalidInput);
    return true;
}

/// ln of the half quantile to start from: the cube-root form, or where that fails the first term of the
/// series for the lower tail, P = (x/2)^a / Gamma(a + 1).
double startlogarithm(double p, double dof) {
    const double a = dof / 2;
    const double first = (std::log(p) + std::lgamma(a + 1)) / a;
    const double root = cuberootinv(normquantile(p), dof) / 2;
    return root > 0.05 * dof && first > -3 ? std::log(root) : first;
}

/// Newton's method on the logarithm of the smaller tail against ln x, in which both tails are nearly
/// straight and bend one way only.
double directinv(double p, double dof) {
    constexpr int mostpasses = 320;
    const double a = dof / 2;
    const bool lower = p <= 0.5;
    const double target = lower ? p : 1 - p;
    double u = startlogarithm(p, dof);
    for (int pass = 0; pass < mostpasses; ++pass) {
        const double x = std::exp(u);
        if (2 * x < smallestx) return smallestx;
        const GammaTails tails = gammatails(a, x);
        const double tail = lower ? tails.lower : tails.upper;
        const double density = std::exp(a * u - x - std::lgamma(a)); // d lower / du
        const double step = tail * std::log(target / tail) / (lower ? density : -density);
        u += std::clamp(step, -1.0, 1.0);
        if (std::fabs(step) < 1e-12) return 2 * std::exp(u);
    }
    matherror(MathError::excessiveIterationsOf, "chi2inv");
    return 0;
}

} // namespace

double chi2cdf(double x, double dof, bool exact) {
    if (outside(x, dof, exact)) return 0;
    if (x <= 0) return 0;
    if (exact && x < exactlimit) return gammap(dof / 2, x / 2);
    dof = std::max(dof, 1.0);
    return dof <= tablelimit ? tablecdf(x, dof) : normcdf(cuberootdeviate(x, dof));
}

double chi2sf(double x, double dof, bool exact) {
    if (outside(x, dof, exact)) return 0;
    if (x <= 0) return 1;
    if (exact && x < exactlimit) return gammaq(dof / 2, x / 2);
    dof = std::max(dof, 1.0);
    return dof <= tablelimit ? 1 - tablecdf(x, dof) : normsf(cuberootdeviate(x, dof));
}

double chi2inv(double p, double dof) {
    errCode = inputChecked;
    if (!(p > 0 && p < 1 && std::isfinite(dof))) {
        matherror(MathError::invalidInput);
        return 0;
    }
    if (dof < 1) return tableinv(p, 1);
    return dof < 318 ? directinv(p, dof) : cuberootinv(fd_NormZ(p), dof);
}
