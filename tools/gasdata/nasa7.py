"""NASA 7-coefficient records: parsing, evaluation and least-squares refits.

A record has two ranges split at 1000 K, range 1 (above 1000 K) first:
  cp/R = a1 + a2 T + a3 T^2 + a4 T^3 + a5 T^4
  H/R  = a1 T + a2 T^2/2 + a3 T^3/3 + a4 T^4/4 + a5 T^5/5 + a6
  S/R  = a1 ln T + a2 T + a3 T^2/2 + a4 T^3/3 + a5 T^4/4 + a7
A range whose a1 is 0.0 is not given; the loader then serves the other one.
"""

import math

T_SPLIT = 1000.0


class Record:
    """One record of a Chemkin THERMO file with the molar mass in columns
    66-78 (the NO_TMID layout: the split is 1000 K for every record)."""

    def __init__(self, lines):
        head = lines[0]
        self.name = head[0:18].split()[0]
        self.phase = head[44]
        self.elements = []
        for k in range(4):
            slot = head[24 + 5 * k:29 + 5 * k]
            symbol, count = slot[0:2].strip(), slot[2:5].strip()
            if symbol and count and float(count) != 0.0:
                self.elements.append((symbol.upper(), float(count)))
        self.tmin_text = head[45:55].strip()
        self.tmax_text = head[55:65].strip()
        self.mmol_text = head[65:78].strip()
        fields = []
        for line in lines[1:4]:
            fields += [line[15 * k:15 * k + 15] for k in range(5)]
        self.coef_text = [f.strip() for f in fields[:14]]
        self.coef = [[float(t) for t in self.coef_text[0:7]],
                     [float(t) for t in self.coef_text[7:14]]]


def read_records(path):
    """Records of a NASA/Chemkin thermo file by species name (first word).
    A name that heads more than one record maps to None (ambiguous)."""
    with open(path, encoding="ascii") as f:
        lines = [l.rstrip("\n") for l in f]
    records = {}
    i = 0
    while i < len(lines):
        line = lines[i]
        if len(line) >= 80 and line[79] == "1" and i + 3 < len(lines) \
                and lines[i + 3][79:80] == "4":
            rec = Record(lines[i:i + 4])
            records[rec.name] = None if rec.name in records else rec
            i += 4
        else:
            i += 1
    return records


def cp(a, t):
    return a[0] + t * (a[1] + t * (a[2] + t * (a[3] + t * a[4])))


def h(a, t):
    return t * (a[0] + t * (a[1] / 2 + t * (a[2] / 3 + t * (a[3] / 4 + t * a[4] / 5)))) + a[5]


def s(a, t):
    return a[0] * math.log(t) + t * (a[1] + t * (a[2] / 2 + t * (a[3] / 3 + t * a[4] / 4))) + a[6]


def range_at(coef, t):
    """Coefficients the loader serves at t: range 1 above 1000 K, range 2 at
    and below, the other range when the chosen one has a1 = 0.0."""
    first, other = (coef[0], coef[1]) if t > T_SPLIT else (coef[1], coef[0])
    return other if first[0] == 0.0 else first


def lstsq(rows, rhs):
    """Least-squares solution of rows * x = rhs by Householder QR (the normal
    equations lose too many digits for power bases on narrow ranges)."""
    m, n = len(rows), len(rows[0])
    a = [list(r) + [y] for r, y in zip(rows, rhs)]
    for k in range(n):
        norm = math.sqrt(sum(a[i][k] ** 2 for i in range(k, m)))
        if norm == 0.0:
            raise ValueError("rank-deficient fit")
        alpha = -norm if a[k][k] > 0 else norm
        v = [0.0] * m
        v[k] = a[k][k] - alpha
        for i in range(k + 1, m):
            v[i] = a[i][k]
        vv = sum(x * x for x in v[k:])
        for j in range(k, n + 1):
            dot = sum(v[i] * a[i][j] for i in range(k, m))
            f = 2.0 * dot / vv
            for i in range(k, m):
                a[i][j] -= f * v[i]
    x = [0.0] * n
    for k in reversed(range(n)):
        x[k] = (a[k][n] - sum(a[k][j] * x[j] for j in range(k + 1, n))) / a[k][k]
    return x


def fit_cp(samples, nterms, pin=None):
    """cp/R coefficients a1..a5 (unused trailing ones 0.0) fitted by least
    squares to (T, cp/R) samples. pin = (T0, cp0) forces cp(T0) = cp0 exactly
    (up to rounding) by fitting the differences to the pinned point."""
    scale = 1000.0
    rows, rhs = [], []
    for t, y in samples:
        tau = t / scale
        if pin is None:
            rows.append([tau ** k for k in range(nterms)])
            rhs.append(y)
        else:
            tau0 = pin[0] / scale
            rows.append([tau ** k - tau0 ** k for k in range(1, nterms)])
            rhs.append(y - pin[1])
    b = lstsq(rows, rhs)
    if pin is not None:
        tau0 = pin[0] / scale
        b = [pin[1] - sum(bk * tau0 ** (k + 1) for k, bk in enumerate(b))] + b
    a = [bk / scale ** k for k, bk in enumerate(b)]
    return a + [0.0] * (5 - nterms)
