#include "numeric/normal.h"

#include <cmath>
#include <cstddef>

namespace {

template <std::size_t N>
double horner(const double (&c)[N], double x) {
    double sum = c[N - 1];
    for (std::size_t i = N - 1; i-- > 0;) sum = sum * x + c[i];
    return sum;
}

constexpr double P[] = {220.206867912376, 221.213596169931,  112.079291497871,  33.912866078383,
                        6.37396220353165, 0.700383064443688, 0.0352624965998911};
constexpr double Q[] = {440.413735824752, 793.826512519948, 637.333633378831, 296.564248779674,
                        86.7807322029461, 16.064177579207,  1.75566716318264, 0.0883883476483184};

double lowertail(double a) {
    const double e = std::exp(-a * a / 2);
    if (a <= 5.03) return horner(P, a) * e / horner(Q, a);
    const double g = e * 0.398942280401433;
    double b;
    if (a <= 8) {
        b = a + 5.55776850037765 / (a + 2.50440865608421);
        b = a + 3.03675451056799 / b;
        b = a + 2.00053522446876 / b;
        b = a + 1.00000184225207 / b;
    } else {
        b = a + 4.57862024689392 / (a + 1.55374860627633);
        b = a + 3.00540899739 / b;
        b = a + 2.00002630497464 / b;
        b = a + 1.00000002624654 / b;
    }
    return g / b;
}

constexpr double centralUp[] = {3.3871328727963666080e0,  1.3314166789178437745e+2, 1.9715909503065514427e+3,
                                1.3731693765509461125e+4, 4.5921953931549871457e+4, 6.7265770927008700853e+4,
                                3.3430575583588128105e+4, 2.5090809287301226727e+3};
constexpr double centralDown[] = {1.0,
                                  4.2313330701600911252e+1,
                                  6.8718700749205790830e+2,
                                  5.3941960214247511077e+3,
                                  2.1213794301586595867e+4,
                                  3.9307895800092710610e+4,
                                  2.8729085735721942674e+4,
                                  5.2264952788528545610e+3};
constexpr double nearUp[] = {1.42343711074968357734e0,  4.63033784615654529590e0, 5.76949722146069140550e0,
                             3.64784832476320460504e0,  1.27045825245236838258e0, 2.41780725177450611770e-1,
                             2.27238449892691845833e-2, 7.74545014278341407640e-4};
constexpr double nearDown[] = {1.0,
                               2.05319162663775882187e0,
                               1.67638483018380384940e0,
                               6.89767334985100004550e-1,
                               1.48103976427480074590e-1,
                               1.51986665636164571966e-2,
                               5.47593808499534494600e-4,
                               1.05075007164441684324e-9};
constexpr double farUp[] = {6.65790464350110377720e0,  5.46378491116411436990e0,  1.78482653991729133580e0,
                            2.96560571828504891230e-1, 2.65321895265761230930e-2, 1.24266094738807843860e-3,
                            2.71155556874348757815e-5, 2.01033439929228813265e-7};
constexpr double farDown[] = {1.0,
                              5.99832206555887937690e-1,
                              1.36929880922735805310e-1,
                              1.48753612908506148525e-2,
                              7.86869131145613259100e-4,
                              1.84631831751005468180e-5,
                              1.42151175831644588870e-7,
                              2.04426310338993978564e-15};

/// The distance from the middle of the quantile with tail probability p.
double tailquantile(double p, bool far) {
    const double r = std::sqrt(-std::log(p));
    return far ? horner(farUp, r - 5) / horner(farDown, r - 5)
               : horner(nearUp, r - 1.6) / horner(nearDown, r - 1.6);
}

} // namespace

double normcdf(double x) {
    if (x > 10) return 1;
    if (x < -37.5) return 0;
    const double tail = lowertail(std::fabs(x));
    return x > 0 ? 1 - tail : tail;
}

double normpdf(double z) { return std::exp(-z * z / 2) / 2.50662827462709; }

double normquantile(double p) {
    if (!(p > 0 && p < 1)) return 0;
    if (p <= 0.075) return -tailquantile(p, p <= 1e-11);
    if (p > 0.925) return tailquantile(1 - p, p > 0.99999999999);
    const double q = p - 0.5;
    const double r = 0.180625 - q * q;
    return q * horner(centralUp, r) / horner(centralDown, r);
}
