"""Writes curvefit.csv: weighted least squares of every curve model, in 60 digits with mpmath.

Each model is solved by Householder QR of the rows times the root of their weight, without normal equations.
Coefficients are those of the straight line, ln(a) and ln(b) (power: ln(a) and b), or of the polynomial. The
standard error is sqrt(SSE/df) on y, df = sum of weights - coefficients, 1/(|df| + 2) where that is below 1; r the
linear correlation of x and y with the weights. Data: every value below is a short decimal and read as a double.
"""
from mpmath import mp, mpf, log, exp, sqrt, matrix, qr_solve

mp.dps = 60
DATA = {
    # x, y, weight
    "cooling": [(1, 98.25, 1), (2.5, 71.5, 2), (4, 50.75, 1), (6, 33.125, 3), (9, 17.5, 1), (13, 7.0625, 2),
                (18, 2.75, 1), (24, .8125, 1), (29, .375, 4), (35, .140625, 1), (41, .0703125, 1)],
    "pressure": [(300.5, 3.5, 2), (310.25, 6.125, 1), (320, 9.875, 1), (335.75, 20.5, 3), (350, 36.25, 1),
                 (362.5, 58.75, 1), (381, 110.5, 2), (400, 198.125, 1), (415.5, 301, 1), (433.25, 470.5, 1),
                 (450, 702.75, 2)],
    "far": [(100000.5, 12.25, 1), (100001.25, 14.5, 2), (100003, 9.75, 1), (100004.5, 15.125, 1), (100006, 18.5, 3),
            (100007.75, 11.25, 1), (100009, 21.5, 1), (100011.5, 19.125, 2), (100013, 25.5, 1), (100014.25, 22.75, 1),
            (100016, 30.125, 1)],
    "saturated": [(1.5, 2.25, 1), (4, 7.5, 1)],
}


def coordinates(code, x, y):
    if code < 10:
        return x, y
    if code == 13:
        return 1 / y, log(x)
    return {10: x, 11: log(x), 12: 1 / x}[code], log(y)


def fitted(code, c, x):
    if code < 10:
        return sum(c[k] * x**k for k in range(len(c)))
    if code == 13:
        return c[1] / (log(x) - c[0])
    return exp(c[0] + c[1] * coordinates(code, x, mpf(1))[0])


def solve(code, rows):
    order = code if code < 10 else 1
    a, b = matrix(len(rows), order + 1), matrix(len(rows), 1)
    for i, (x, y, w) in enumerate(rows):
        u, v = coordinates(code, x, y)
        for k in range(order + 1):
            a[i, k] = sqrt(w) * u**k
        b[i] = sqrt(w) * v
    c = qr_solve(a, b)[0]
    return [c[k] for k in range(order + 1)]


def statistics(code, c, rows):
    n = sum(w for _, _, w in rows)
    sse = sum(w * (y - fitted(code, c, x))**2 for x, y, w in rows)
    df = n - len(c)
    if df < 1:
        df = 1 / (abs(df) + 2)
    mx, my = sum(w * x for x, _, w in rows) / n, sum(w * y for _, y, w in rows) / n
    sxy = sum(w * (x - mx) * (y - my) for x, y, w in rows)
    sxx, syy = (sum(w * (x - mx)**2 for x, _, w in rows), sum(w * (y - my)**2 for _, y, w in rows))
    return sqrt(sse / df), sxy / sqrt(sxx * syy)


with open("curvefit.csv", "w") as out:
    out.write("# Weighted least squares of every curve model: curvefit.py, mpmath 1.3.0, Householder QR in 60 digits.\n")
    out.write("# Data rows: model 0, the quantity x, y or weight and its number. Results: see curvefit.py.\n")
    out.write("dataset,model,quantity,index,value\n")
    for name, data in DATA.items():
        rows = [(mpf(x), mpf(y), mpf(w)) for x, y, w in data]
        for i, row in enumerate(data):
            for quantity, value in zip(("x", "y", "weight"), row):
                out.write(f"{name},0,{quantity},{i},{value}\n")
        for code in [1] if name == "saturated" else range(1, 14):
            c = solve(code, rows)
            error, r = statistics(code, c, rows)
            values = [("coefficient", i, value) for i, value in enumerate(c)]
            values += [("r", 0, r)] + ([("standardError", 0, error)] if name != "saturated" else [])
            for quantity, i, value in values:
                out.write(f"{name},{code},{quantity},{i},{mp.nstr(value, 17)}\n")
