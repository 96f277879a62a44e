"""Writes threshold.csv: thresholds at the true optimum of the profile, in 30 digits with mpmath.

rr: least squares X on Y of Benard positions with Johnson's adjusted ranks; the largest r^2 over t0.
mle: the local maximum of the profile log likelihood; for each t0 the Weibull slope is the root of the
profile equation, the lognormal line of complete data has its closed form.
Golden sections in a bracket found on a grid of distances below the first value.
"""
from mpmath import mp, mpf, log, exp, sqrt, erfinv, findroot, pi
mp.dps = 30

SETS = {
    "bent": [(v, 1) for v in (105, 112, 118, 127, 139, 151, 170, 195, 240, 320)],
    "mixed": [(1030, 1), (1047, 0), (1055, 1), (1069, 1), (1080, 0), (1091, 1), (1112, 1), (1140, 1),
              (1190, 1), (1190, 0), (1260, 1)],
    "farbelow": [(v, 1) for v in (310, 345, 368, 390, 402, 421, 437, 455, 478, 512)],
}

def probit(p): return sqrt(mpf(2)) * erfinv(2 * p - 1)

def points(data):
    order = sorted(data, key=lambda d: (d[0], -d[1]))
    n, r, out = len(order), mpf(0), []
    for c, (v, failed) in enumerate(order):
        if failed:
            r += (n + 1 - r) / mpf(n + 1 - c)
            out.append((mpf(v), (r - mpf(3) / 10) / (n + mpf(4) / 10)))
    return out

def ploty(family, p): return log(-log(1 - p)) if family == "weibull" else probit(p)

def rr(family, data, t0):
    pts = [(log(v - t0), ploty(family, p)) for v, p in points(data)]
    n = len(pts)
    mx, my = sum(x for x, _ in pts) / n, sum(y for _, y in pts) / n
    xx = sum((x - mx) ** 2 for x, _ in pts)
    yy = sum((y - my) ** 2 for _, y in pts)
    xy = sum((x - mx) * (y - my) for x, y in pts)
    slope = yy / xy
    return xy * xy / xx / yy, mx - my / slope, 1 / slope

def mle(family, data, t0):
    x = [(log(mpf(v) - t0), failed) for v, failed in data]
    r = sum(f for _, f in x)
    if family == "lognormal":
        m = sum(a for a, _ in x) / r
        s = sqrt(sum((a - m) ** 2 for a, _ in x) / r)
        return -sum(a for a, _ in x) - r * log(s) - r * log(2 * pi) / 2 - mpf(r) / 2, m, s
    fs = sum(a for a, f in x if f) / r
    g = lambda b: sum(exp(b * a) * a for a, _ in x) / sum(exp(b * a) for a, _ in x) - fs - 1 / b
    lo, hi = mpf("0.05"), mpf(400)
    b = findroot(g, (lo, hi), solver="anderson", tol=1e-25)
    eta = (sum(exp(b * a) for a, _ in x) / r) ** (1 / b)
    ll = sum((b - 1) * a + log(b) - b * log(eta) if f else 0 for a, f in x) - r
    return ll, log(eta), 1 / b

def optimum(fun, first, span):
    grid = [span * mpf(10) ** (mpf(i) / 12) for i in range(-36, 25)]
    vals = [fun(first - d)[0] for d in grid]
    best = None
    for i in range(1, len(grid) - 1):
        if vals[i] > vals[i - 1] and vals[i] >= vals[i + 1] and (best is None or vals[i] > vals[best]): best = i
    if best is None: return None
    a, b = grid[best - 1], grid[best + 1]
    g = (sqrt(mpf(5)) - 1) / 2
    while b - a > span * mpf(10) ** -13:
        c, d = b - g * (b - a), a + g * (b - a)
        if fun(first - c)[0] > fun(first - d)[0]: b = d
        else: a = c
    return first - (a + b) / 2

print("# Thresholds at the optimum of the profile: threshold.py, mpmath 1.3.0, 30 digits.")
print("# Data sets: see threshold.py. location and scale of ln(x - t0) at the optimum.")
print("dataset,family,method,t0,measure,location,scale")
for name, data in SETS.items():
    for family in ("weibull", "lognormal"):
        for method, fun in (("rr", rr), ("mle", mle)):
            if family == "lognormal" and method == "mle" and any(not f for _, f in data): continue
            values = [v for v, _ in data]
            f = lambda t: fun(family, data, t)
            t0 = optimum(f, mpf(min(values)), mpf(max(values) - min(values)))
            if t0 is None:
                print(f"# {name},{family},{method}: no interior optimum")
                continue
            m, loc, sc = f(t0)
            print(f"{name},{family},{method},{mp.nstr(t0,12)},{mp.nstr(m,14)},{mp.nstr(loc,12)},{mp.nstr(sc,12)}")
