#include "numeric/normal.h"

#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstring>
#include <string_view>

#include "numeric/matherror.h"

namespace {

constexpr double upperlimit = 10;    // 1 - tail is 1 in double precision from 8.3 on
constexpr double lowerlimit = -37.5; // the tail is 4.6e-308, twice the smallest normal double

/// Tail beyond a, 0 <= a <= 37.5.
double tail(double a) {
    const double e = std::exp(-a * a / 2);
    if (a <= 5.03) {
        const double p =
            ((((((0.0352624965998911 * a + 0.700383064443688) * a + 6.37396220353165) * a + 33.912866078383)
                   * a
               + 112.079291497871)
                  * a
              + 221.213596169931)
                 * a
             + 220.206867912376)
            * e;
        const double q =
            ((((((0.0883883476483184 * a + 1.75566716318264) * a + 16.064177579207) * a + 86.7807322029461)
                   * a
               + 296.564248779674)
                  * a
              + 637.333633378831)
                 * a
             + 793.826512519948)
                * a
            + 440.413735824752;
        return p / q;
    }
    const double g = e * 0.398942280401433;
    if (a <= 8) {
        double b = a + 5.55776850037765 / (a + 2.50440865608421);
        b = a + 3.03675451056799 / b;
        b = a + 2.00053522446876 / b;
        b = a + 1.00000184225207 / b;
        return g / b;
    }
    double b = a + 4.57862024689392 / (a + 1.55374860627633);
    b = a + 3.00540899739 / b;
    b = a + 2.00002630497464 / b;
    b = a + 1.00000002624654 / b;
    return g / b;
}

double polynomial(const double (&c)[8], double r) {
    double sum = c[7];
    for (int i = 6; i >= 0; --i) sum = sum * r + c[i];
    return sum;
}

// The published coefficients of PPND16, constant term first: centre, near tail, far tail.
constexpr double a[] = {3.3871328727963666080,   1.3314166789178437745e2, 1.9715909503065514427e3,
                        1.3731693765509461125e4, 4.5921953931549871457e4, 6.7265770927008700853e4,
                        3.3430575583588128105e4, 2.5090809287301226727e3};
constexpr double b[] = {1.0,
                        4.2313330701600911252e1,
                        6.8718700749205790830e2,
                        5.3941960214247511077e3,
                        2.1213794301586595867e4,
                        3.9307895800092710610e4,
                        2.8729085735721942674e4,
                        5.2264952788528545610e3};
constexpr double c[] = {1.42343711074968357734,    4.63033784615654529590,   5.76949722146069140550,
                        3.64784832476320460504,    1.27045825245236838258,   2.41780725177450611770e-1,
                        2.27238449892691845833e-2, 7.74545014278341407640e-4};
constexpr double d[] = {1.0,
                        2.05319162663775882187,
                        1.67638483018380384940,
                        6.89767334985100004550e-1,
                        1.48103976427480074590e-1,
                        1.51986665636164571966e-2,
                        5.47593808499534494600e-4,
                        1.05075007164441684324e-9};
constexpr double e[] = {6.65790464350110377720,    5.46378491116411436990,    1.78482653991729133580,
                        2.96560571828504891230e-1, 2.65321895265761230930e-2, 1.24266094738807843860e-3,
                        2.71155556874348757815e-5, 2.01033439929228813265e-7};
constexpr double f[] = {1.0,
                        5.99832206555887937690e-1,
                        1.36929880922735805310e-1,
                        1.48753612908506148525e-2,
                        7.86869131145613259100e-4,
                        1.84631831751005468180e-5,
                        1.42151175831644588870e-7,
                        2.04426310338993978564e-15};

/// Distance from 0 of the quantile whose tail is `share`, share <= 0.075.
double tailquantile(double share, bool far) {
    const double root = std::sqrt(-std::log(share));
    if (far) return polynomial(e, root - 5) / polynomial(f, root - 5);
    return polynomial(c, root - 1.6) / polynomial(d, root - 1.6);
}

} // namespace

double normpdf(double z) { return std::exp(-z * z / 2) / 2.50662827462709; }

double normcdf(double x) {
    if (x > upperlimit) return 1;
    if (x < lowerlimit) return 0;
    return x > 0 ? 1 - tail(x) : tail(-x);
}

double normquantile(double p) {
    if (!(p > 0 && p < 1)) return 0;
    if (p <= 0.075) return -tailquantile(p, p <= 1e-11);
    if (p > 0.925) return tailquantile(1 - p, p > 0.99999999999);
    const double q = p - 0.5;
    const double r = 0.180625 - q * q;
    return q * polynomial(a, r) / polynomial(b, r);
}

double fd_NormZ(double p) {
    errCode = inputChecked;
    if (p > 0 && p < 1) return normquantile(p);
    constexpr std::string_view lead = "\nNormal Inverse (Zscore) Routine: \nCDF= ";
    constexpr std::string_view rest = "\nCDF range: 0 < CDF <  1\nfd_NormZ routine:";
    char text[lead.size() + 32 + rest.size()];
    std::memcpy(text, lead.data(), lead.size());
    char* end = std::to_chars(text + lead.size(), text + lead.size() + 32, p).ptr;
    std::memcpy(end, rest.data(), rest.size());
    matherror(MathError::invalidInput, {text, static_cast<std::size_t>(end - text) + rest.size()});
    return 0;
}
