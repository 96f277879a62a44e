"""Writes noncentralt.csv: factors of one-sided tolerance limits of normal samples, k = t / sqrt(n) with t the
quantile at the confidence of the non-central t distribution with n - 1 degrees of freedom and the
non-centrality z_p sqrt(n). Series of Lenth, AS 243, Appl. Statist. 38 (1989) 185, at 40 digits."""
import sys
from mpmath import mp, mpf, betainc, erfinv, exp, factorial, findroot, gamma, ncdf, sqrt, nstr, __version__

mp.dps = 40


def cdf(t, dof, delta):
    if t < 0:
        return 1 - cdf(-t, dof, -delta)
    x = t * t / (dof + t * t)
    half = delta * delta / 2
    total, p, q = mpf(0), exp(-half), delta * exp(-half) / (sqrt(2) * gamma(mpf(3) / 2))
    a, b = mpf(1) / 2, mpf(dof) / 2
    # I_x(a + 1, b) = I_x(a, b) - x^a (1-x)^b / (a B(a, b)): one incomplete beta a family, the rest by steps
    even = betainc(a, b, 0, x, regularized=True)
    odd = betainc(1, b, 0, x, regularized=True)
    stepeven = gamma(a + b) / (gamma(a + 1) * gamma(b)) * x**a * (1 - x)**b
    stepodd = gamma(1 + b) / (gamma(2) * gamma(b)) * x * (1 - x)**b
    j = 0
    while True:
        total += p * even + q * odd
        if j > half and p < mpf(10)**-34:
            break
        even -= stepeven
        odd -= stepodd
        stepeven *= x * (a + j + b) / (a + j + 1)
        stepodd *= x * (1 + j + b) / (j + 2)
        j += 1
        p *= half / j
        q *= half / (j + mpf(1) / 2)
    return ncdf(-delta) + total / 2


print(f"# tool: mpmath {__version__} at 40 digits, series of AS 243 (Lenth, Appl. Statist. 38 (1989) 185), root by secant; 17 digits")
print("# k = t / sqrt(n), t the quantile at conf of the non-central t with n - 1 degrees of freedom, delta = z_p sqrt(n)")
print("n,p,conf,k")
for n in (2, 3, 5, 10, 20, 100, 1000):
    for p in ("0.001", "0.1", "0.5", "0.9", "0.95", "0.99"):
        for conf in ("0.05", "0.1", "0.5", "0.9", "0.95", "0.99"):
            if n == 1000 and p in ("0.001", "0.99"):
                continue
            z = sqrt(2) * erfinv(2 * mpf(p) - 1)
            zc = sqrt(2) * erfinv(2 * mpf(conf) - 1)
            delta = z * sqrt(n)
            start = delta + zc * sqrt(1 + delta**2 / (2 * (n - 1)))
            f = lambda t: sqrt(2) * erfinv(2 * cdf(t, n - 1, delta) - 1) - zc
            lo, hi = start - 1, start + 1
            while f(lo) > 0:
                lo -= 2 * (hi - lo)
            while f(hi) < 0:
                hi += 2 * (hi - lo)
            t = findroot(f, (lo, hi), solver="anderson", tol=mpf(10)**-25, maxsteps=200, verify=False)
            assert abs(cdf(t, n - 1, delta) - mpf(conf)) < mpf(10)**-20, (n, p, conf)
            print(f"{n},{p},{conf},{nstr(t / sqrt(n), 17)}", flush=True)
