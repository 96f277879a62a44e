"""Writes transforms.txt: distribution functions, quantiles, densities, plot coordinates and locations of the
four families, by mpmath at 60 digits from their definitions. Run: python3 transforms.py > transforms.txt

A tolerance is relative and follows from the method: 4e-14 where only libm rounds (a power exp(beta*ln) adds
its exponent, in ulp); 1e-10 for the lower tail of the normal distribution function (rational form with a
continued fraction beyond 5.03); 3e-12 for a density that divides by 2.50662827462709, which is carried to
twelve digits; p for a branch that takes ln(-ln(1-p)) as ln(p). To these comes what one rounding of the standardised value does to the result.
"""
from mpmath import mp, mpf, exp, log, log1p, expm1, erfc, sqrt, pi, gamma, findroot, nstr, euler

mp.dps = 60
LINES = [(1, 0, 100.0, 2.0), (1, 0, 3500.0, 0.7), (1, 0, 0.02, 12.0), (2, 0, 50.0, 1.8), (2, 0, 0.3, 7.5),
         (3, 0, 100.0, 15.0), (3, 0, -2.0, 0.25), (4, -1, 20.0, 3.0), (4, -1, -500.0, 80.0),
         (4, 1, 20.0, 3.0), (4, 1, -500.0, 80.0)]
P = [1e-14, 1e-12, 9e-10, 1.1e-9, 9e-9, 1.1e-8, 1e-6, 1e-4, 0.01, 0.1, 0.3, 0.5, 0.632, 0.9, 0.99, 0.9999,
     0.9999999]
LIBM, PHI, DENSITY = 4e-14, 1e-10, 3e-12


def phi(z):
    return erfc(-z / sqrt(mpf(2))) / 2


def phiinverse(p):
    if p > 0.5:
        return -phiinverse(1 - p)
    z = -sqrt(-2 * log(p)) if p < 0.1 else mpf(0)
    for _ in range(80):
        z -= (phi(z) - p) / (exp(-z * z / 2) / sqrt(2 * pi)) if p > 0.01 else \
            (log(phi(z)) - log(p)) * phi(z) / (exp(-z * z / 2) / sqrt(2 * pi))
    return z


def standard(line, x):
    f, _, eta, beta = line
    if f == 1:
        return mpf(beta) * log(mpf(x) / mpf(eta))
    if f == 2:
        return log(mpf(x) / mpf(eta)) / log(mpf(beta))
    return (mpf(x) - mpf(eta)) / mpf(beta)


def ploty(line, p):
    f, ex, _, _ = line
    p = mpf(p)
    if f in (2, 3):
        return phiinverse(p)
    return -log(-log(p)) if f == 4 and ex == 1 else log(-log1p(-p))


def quantile(line, p):
    f, _, eta, beta = line
    y, eta, beta = ploty(line, p), mpf(eta), mpf(beta)
    if f == 1:
        return eta * exp(y / beta)
    if f == 2:
        return eta * exp(y * log(beta))
    return eta + beta * y


def cdf(line, x):
    """p and 1 - p, each with all its digits."""
    f, ex, _, _ = line
    w = standard(line, x)
    if f in (2, 3):
        return phi(w), phi(-w)
    if f == 4 and ex == 1:
        return exp(-exp(-w)), -expm1(-exp(-w))
    return -expm1(-exp(w)), exp(-exp(w))


def density(line, x):
    f, ex, _, beta = line
    w, x, beta = standard(line, x), mpf(x), mpf(beta)
    if f == 1:
        return beta / x * exp(w - exp(w))
    if f == 2:
        return exp(-w * w / 2) / sqrt(2 * pi) / log(beta) / x
    if f == 3:
        return exp(-w * w / 2) / sqrt(2 * pi) / beta
    return exp(-w - exp(-w)) / beta if ex == 1 else exp(w - exp(w)) / beta


def row(what, line, given, value, tolerance):
    f, ex, eta, beta = line
    print(what, f, ex, repr(eta), repr(beta), repr(given), nstr(value, 20), repr(tolerance))


print('# Reference values of the scale transforms, from transforms.py (mpmath, 60 digits).')
print('# what family gumbeltype eta beta given expected relative-tolerance')
for line in LINES:
    f = line[0]
    f, eta, beta = line[0], abs(line[2]), line[3]
    for p in P:
        y = ploty(line, p)
        x = quantile(line, p)
        at = float(x)
        z = standard(line, at)
        t = float(exp(z if line[1] != 1 else -z)) if f in (1, 4) else 1.0
        # what rounding x/eta, or x - eta, leaves in the standardised value
        off = 4e-16 * float(1 + abs(z)) if f < 3 else 4e-16 * (abs(at) + eta) / beta
        low, high = cdf(line, at)
        if abs(y) > 1e-9:
            row('plotY', line, p, y, LIBM * max(1, float(1 / abs(y))) + (p if f == 1 and p <= 1e-8 else 0))
        small = p if f == 1 and p <= 1e-9 else 0
        row('quantile', line, p, x, LIBM + 4 * small / beta if f < 3 else LIBM * float((abs(y) * beta + eta) / abs(x)))
        tail = PHI if f in (2, 3) else LIBM
        scale = log(mpf(beta)) * at if f == 2 else at / beta if f == 1 else beta
        slope = float(abs(density(line, at) * scale))
        row('p', line, at, low, tail + 4 * off * slope / float(low))
        row('q', line, at, high, tail + 4 * off * slope / float(high))
        if abs(z) > 1e-3:
            row('z', line, at, z, 4 * off / float(abs(z)) + 1e-15)
        if f == 2:  # ln x - ln eta cancels
            off = 4e-16 * float((abs(log(mpf(at))) + abs(log(mpf(eta)))) / log(mpf(beta)))
        carried = off * (float(abs(z)) if f in (2, 3) else 1 + t)
        row('density', line, at, density(line, at), (DENSITY if f in (2, 3) else LIBM) + 4 * carried)
        given = (f, line[1], 0.0, beta)
        if f < 3:
            row('etathrough', given, p, 250 / quantile((f, line[1], 1.0, beta), p), LIBM + 4 * small / beta)
        else:
            location = 250 - mpf(beta) * y
            row('etathrough', given, p, location, LIBM * float((250 + beta * abs(y)) / abs(location)))
    # 250 as the wanted mean
    m, beta = mpf(250), mpf(line[3])
    location = {1: m / gamma(1 + 1 / beta), 2: exp(log(m) - log(beta) ** 2 / 2), 3: m,
                4: m + (-line[1]) * euler * beta}[f]
    # the spread of a Lognormal passes through a single; Euler's constant is carried to thirteen digits
    row('etaofmean', (f, line[1], 0.0, line[3]), 250.0, location, {1: 1e-14, 2: 3e-7, 3: 0.0, 4: 1e-12}[f])
