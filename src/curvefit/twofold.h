#pragma once

#include <cmath>

/// A number as the sum of two doubles, some 106 bits: the normal equations square the condition of a fit, and
/// single doubles would lose its digits. Dekker, Numer. Math. 18 (1971) 224; Knuth, The Art of Computer
/// Programming 2, 4.2.2. Without fused operations, so that every machine gives the same digits. Magnitudes
/// below 1e290; beyond, the result is not finite.
struct Twofold {
    double high = 0, low = 0;
    Twofold() = default;
    Twofold(double value) : high(value) {}
    Twofold(double a, double b) : high(a), low(b) {}
    double value() const { return high + low; }
};

/// a + b with its rounding error.
inline Twofold exactsum(double a, double b) {
    const double sum = a + b;
    const double part = sum - a;
    return {sum, (a - (sum - part)) + (b - part)};
}

/// The same where |a| >= |b|.
inline Twofold orderedsum(double a, double b) {
    const double sum = a + b;
    return {sum, b - (sum - a)};
}

/// a * b with its rounding error.
inline Twofold exactproduct(double a, double b) {
    constexpr double splitter = 134217729; // 2^27 + 1
    const double product = a * b;
    const double at = splitter * a, bt = splitter * b;
    const double ahigh = at - (at - a), bhigh = bt - (bt - b);
    const double alow = a - ahigh, blow = b - bhigh;
    return {product, ((ahigh * bhigh - product) + ahigh * blow + alow * bhigh) + alow * blow};
}

inline Twofold operator+(Twofold a, Twofold b) {
    Twofold sum = exactsum(a.high, b.high);
    const Twofold rest = exactsum(a.low, b.low);
    sum = orderedsum(sum.high, sum.low + rest.high);
    return orderedsum(sum.high, sum.low + rest.low);
}

inline Twofold operator-(Twofold a) { return {-a.high, -a.low}; }
inline Twofold operator-(Twofold a, Twofold b) { return a + -b; }

inline Twofold operator*(Twofold a, Twofold b) {
    const Twofold product = exactproduct(a.high, b.high);
    return orderedsum(product.high, product.low + (a.high * b.low + a.low * b.high));
}

inline Twofold operator*(Twofold a, double b) {
    const Twofold product = exactproduct(a.high, b);
    return orderedsum(product.high, product.low + a.low * b);
}

inline Twofold operator/(Twofold a, Twofold b) {
    const double first = a.high / b.high;
    Twofold rest = a - b * first;
    const double second = rest.high / b.high;
    rest = rest - b * second;
    return orderedsum(first, second) + Twofold(rest.high / b.high);
}

inline Twofold& operator+=(Twofold& a, Twofold b) { return a = a + b; }
inline Twofold& operator-=(Twofold& a, Twofold b) { return a = a - b; }
inline Twofold& operator/=(Twofold& a, Twofold b) { return a = a / b; }

/// A long sum: the rounding errors of its terms are gathered beside it and added at the end, at a third of
/// the cost of as many twofold sums. Its error is that of the sum of so many rounding errors, n 2^-106 of the
/// sum of the magnitudes. Ogita, Rump, Oishi, SIAM J. Sci. Comput. 26 (2005) 1955.
class LongSum {
public:
    void add(Twofold term) {
        const Twofold step = exactsum(sum, term.high);
        sum = step.high;
        errors += step.low + term.low;
    }
    Twofold value() const { return exactsum(sum, errors); }

private:
    double sum = 0, errors = 0;
};
