"""Writes binomial_interpolated.csv: exact median ranks, interpolated linearly between whole ranks.

Adjusted ranks by Johnson's rule as exact fractions; the median rank of whole rank i is the root of
sum_{k>=i} C(N,k) q^k (1-q)^(N-k) = 1/2 at 40 digits; the position of rank r = i + f is
(1-f) median(i) + f median(i+1). Lines by least squares on the plot axes at the same precision.
"""
import csv
from fractions import Fraction
from functools import lru_cache
from pathlib import Path

import mpmath
from mpmath import mp, mpf

mp.dps = 40
here = Path(__file__).parent


def units(dataset):
    rows = [line for line in (here / f"data_{dataset}.csv").open() if not line.startswith("#")]
    found = []
    for row in csv.DictReader(rows):
        found += [(Fraction(row["value"]), row["type"] == "susp")] * int(row["quantity"])
    return sorted(found)


def adjusted(points):
    """(value, rank) of every failure unit."""
    N, r, ranked = len(points), Fraction(0), []
    for c, (value, suspended) in enumerate(points):
        if suspended:
            continue
        r += (N + 1 - r) / (N + 1 - c)
        ranked.append((value, r))
    return ranked


@lru_cache(maxsize=None)
def median(N, i):
    def above(q):
        return sum(mpmath.binomial(N, k) * q**k * (1 - q) ** (N - k) for k in range(i, N + 1)) - mpf(1) / 2

    guess = (mpf(i) - mpf("0.3")) / (N + mpf("0.4"))
    return mpmath.findroot(above, (guess * mpf("0.97"), guess))


def real(x):
    return mpf(x.numerator) / x.denominator


def position(N, r):
    whole = r.numerator // r.denominator
    f = real(r - whole)
    return median(N, whole) if f == 0 else (1 - f) * median(N, whole) + f * median(N, whole + 1)


def normalquantile(p):
    return mpmath.sqrt(2) * mpmath.erfinv(2 * p - 1)


def smallest(p):
    return mpmath.log(-mpmath.log1p(-p))


FAMILIES = {
    "weibull": (True, smallest, "eta", "beta"),
    "lognormal": (True, normalquantile, "median", "sigma_factor"),
    "normal": (False, normalquantile, "mu", "sigma"),
    "gumbelmin": (False, smallest, "location", "scale"),
    "gumbelmax": (False, lambda p: -mpmath.log(-mpmath.log(p)), "location", "scale"),
}


def line(points, family, x_on_y):
    logarithmic, ploty, first, second = FAMILIES[family]
    xs = [mpmath.log(real(x)) if logarithmic else real(x) for x, _ in points]
    ys = [ploty(p) for _, p in points]
    mx, my = mpmath.fsum(xs) / len(xs), mpmath.fsum(ys) / len(ys)
    sxx = mpmath.fsum((x - mx) ** 2 for x in xs)
    syy = mpmath.fsum((y - my) ** 2 for y in ys)
    sxy = mpmath.fsum((x - mx) * (y - my) for x, y in zip(xs, ys))
    slope = syy / sxy if x_on_y else sxy / sxx
    location, r = mx - my / slope, sxy / mpmath.sqrt(sxx * syy)
    spread = slope if family == "weibull" else mpmath.exp(1 / slope) if family == "lognormal" else 1 / slope
    return {first: mpmath.exp(location) if logarithmic else location, second: spread, "r": r, "r2": r * r}


out = (here / "binomial_interpolated.csv").open("w")
out.write("# tool: mpmath " + mpmath.__version__ + " at 40 digits, by binomial_interpolated.py beside this file\n")
out.write("# binomial positions of fractional adjusted ranks: linear between the exact medians of whole ranks\n")
out.write("# otherwise as ranks.csv and rankreg.csv\n")
out.write("dataset,family,method,quantity,value\n")


def write(dataset, family, method, quantity, value):
    out.write(f"{dataset},{family},{method},{quantity},{mpmath.nstr(value, 17)}\n")


for dataset in ("fans", "leukemia6mp"):
    points = units(dataset)
    ranked = adjusted(points)
    highest = [p for n, p in enumerate(ranked) if n + 1 == len(ranked) or ranked[n + 1][0] != p[0]]
    for suffix, chosen in (("", ranked), ("_tiehigh", highest)):
        placed = [(x, position(len(points), r)) for x, r in chosen]
        for n, (x, p) in enumerate(placed, 1):
            write(dataset, "any", "ranks" + suffix, f"binomial_{n}", p)
        for family in FAMILIES:
            for direction in ("rrx", "rry"):
                for quantity, value in line(placed, family, direction == "rrx").items():
                    write(dataset, family, f"{direction}_binomial{suffix}", quantity, value)
