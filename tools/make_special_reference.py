#!/usr/bin/env python3
"""Writes the reference values of the special functions with mpmath (Debian: python3-mpmath):

    tools/make_special_reference.py tests/data/mathparser/special_reference.txt [KEYWORD...]

takes each function, or those named, at the points of POINTS. Every argument is the double nearest
to the number given. A value counts once a second run with half as many digits again confirms it to
50 digits; until then the working precision is raised."""

import math
import random
import sys

from mpmath import mp, mpf

DIGITS = 50
MOST_DIGITS = 4000

ORDERS = (0, 1, 2, 3, 5, 10, 20, 50, 100)


def around(*edges):
    """Both sides of each switch between two methods."""
    return [e * f for e in edges for f in (1 - 1e-9, 1, 1 + 1e-9)]


def spread(low, high, count, seed=1):
    """Random numbers, evenly over the logarithm."""
    source = random.Random(seed)
    return [low * (high / low) ** source.random() for _ in range(count)]


def both(points):
    return [s * x for x in points for s in (1, -1)]


def with_orders(points, orders=ORDERS):
    return [(x, n) for x in points for n in orders]


def gamma_points():
    return (spread(1e-8, 170, 40) + [1e-300, 0.5, 1, 1.5, 2, 5, 10, 100.5, 170.5, 171.6] +
            [-x - 0.01 for x in range(8)] + [-x - 0.99 for x in range(8)] +
            around(1e-280) + [-0.5, -1e-9, -25.3, -100.4, -160.7, -170.6])


def count_points():
    return [(k, n, p) for n in (1, 5, 20, 100, 1000, 3000, 20000)
            for k in sorted({0, 1, n // 10, n // 3, n // 2, n - 1, n})
            for p in (1e-6, 0.01, 0.3, 0.5, 0.9)]


def count_pairs():
    return [(n, k) for n in (1, 2, 5, 10, 30, 50, 52, 56, 57, 60, 100, 170, 171, 200, 500, 1000, 1029,
                             10000, 1e6, 1e9, 1e15)
            for k in sorted({0, 1, 2, 3, 5, 17, 30, 31, 100, int(n) // 2, int(n) - 2, int(n)})
            if 0 <= k <= n and (k < 1100 or n - k < 1100)] + [
                (int(n), k) for n in spread(1e3, 3e10, 12, 2) for k in (31, 34, 43)]


def event_points():
    return [(k, m) for m in (1e-5, 0.3, 1, 7.5, 40, 200, 999.5, 1000, 5000.25)
            for k in sorted({0, 1, 3, 10, 50, int(m), int(m * 1.2), int(m * 0.8) + 1, 999, 1001})]


def beta_points():
    values = (1e-4, 0.5, 1, 2.5, 10, 15.9, 16.1, 70, 300, 999, 1001, 5000)
    return [(a, b) for a in values for b in values]


def beta_regions():
    """Shapes of every size against each other, at quantiles on both sides of the mean."""
    def near_one(count, low, high, seed):
        shapes = zip(spread(low, high, count, seed), spread(1e-6, 1, count, seed + 1),
                     spread(1e-3, 30, count, seed + 2))
        return [(1 - min(0.999, y * max(b, 0.05) / (a + b)), a, b) for a, b, y in shapes]

    def about_mean(count, lows, highs, seed):
        source = random.Random(seed)
        shapes = zip(spread(lows[0], highs[0], count, seed), spread(lows[1], highs[1], count, seed + 1))
        return [(a / (a + b) * (1 + source.gauss(0, 2) * math.sqrt(b / a / (a + b + 1))), a, b)
                for a, b in shapes]

    return ([(0.999, 500, 0.5), (0.5, 1e8, 1e8 + 7), (0.5, 4.5e15, 4.5e15),
             (0.9859868356715945, 55.22250052086193, 7.259519966522205e-05),
             (0.7900661697378719, 66201522.277620256, 17585728.073168486)] +
            near_one(20, 1e-3, 100, 11) + near_one(20, 100, 1e11, 21) +
            about_mean(12, (20, 20), (2e4, 2e4), 31) + about_mean(12, (5e4, 20), (1e13, 5e4), 41) +
            [(1 - x, b, a) for x, a, b in about_mean(12, (5e4, 20), (1e10, 5e4), 51)] +
            about_mean(16, (8e4, 8e4), (1e14, 1e14), 61))


def bessel_points():
    return spread(1e-6, 200, 24) + around(2, 4, 20, 25) + [1e-30, 1, 3, 7, 12, 18, 50, 100, 300]


def far_points():
    return [-9999999999] + [-x for x in spread(1e4, 1e10, 16, 3)]


def hypergeometric_points():
    parameters = [(1, 1, 2), (0.5, 0.5, 1), (0.5, 1, 1.5), (2, 3, 4.5), (1.3, 2.7, 4), (5, 6, 2.5),
                  (-0.3, 1.6, 0.9), (10, 0.2, 3), (1, 2, 3.0000001), (0.1, 20, 7), (-3, 2, 1.5),
                  (-7, 8.5, 1), (2.5, -1.5, 3.2), (20, 30, 40)]
    points = [-0.999, -0.8, -0.6, -0.5, -0.3, -1e-5, 1e-10, 0.2, 0.5, 0.74, 0.75, 0.76, 0.9, 0.95,
              0.99, 0.999]
    # Terms that grow again after a pole of c + n nearly met, or from a tiny b; errors that grow where
    # the function shrinks; a tiny value that a series would lose.
    hard = [(0.75, 3, 1, -100.0001), (0.9, 3, 1, -100.0001), (0.5, 500, 1e-30, 1), (0.5, 1e-30, 300, 2), (0.9, 1, 1, 5000),
            (0.52, 1.34, -8.04, -255.38), (0.95, -28.03, -4.82, -26.82), (-0.25, 80.3, 11.2, 2.4)]
    # Next to a pole, where all that is left of c - a or c - b may be below its last place.
    poles = [(-0.55, 3, 6, -3 + 2**-42), (-0.85, 9.12, 3.4e-17, -6 + 2**-43), (-0.56, 4, 9.3e-16, -4 - 2**-43),
             (-0.58, 6, 1.578e-6, 5.1e-21), (-0.37, 3.5e-14, 15.2, -8 + 2**-49), (-0.8, 2.6, 5.2e-12, -6 + 2**-42)]
    ends = [(1, 0.5, 0.25, 2), (1, 30.5, -2.5, 40), (1, -3, 2, 1.5), (-1, 0.3, 0.2, 1.4), (-1, 2, 1.5, 3)]
    return [(x, *p) for p in parameters for x in points] + hard + poles + ends


POINTS = {
    "gamma": gamma_points(),
    "gammaln": spread(1e-8, 1e6, 40) + [1, 1.01, 2, 2.01, 0.99, 171, 172, 1000, 1e10, 1e100, 1e300,
                                        1e-300, -1.5, -3.5, -99.5, -1000.5 - 1],
    "digamma": both(spread(0.01, 1000, 30)) + around(8) + [1e-12, 1, 2, 0.5, 1.4616, 1e8, 1e300],
    "beta": beta_points() + [(-0.5, 0.7), (-2.5, 0.25), (-1.2, -2.1), (-1500.25, 2.5), (1500, -1499.25), (-1e9 + 0.25, 2.5), (100, 200), (1e6, 3.5)],
    "comb": count_pairs(),
    "perm": [(n, k) for n, k in count_pairs() if k < 1100],
    "erf": both(spread(1e-10, 7, 40)) + around(1, 6) + [1e-300, 0.5, 2, 3, 5],
    "gammai": [(a, x) for a in (1e-5, 0.1, 0.5, 1, 2, 7.5, 30, 100, 170)
               for x in (1e-6, 0.01, 0.5, 1, 2, 5, 10, 29, 31, 32, 90, 110, 200, 700)] +
              [(a, a + 1 + d) for a in (0.5, 3, 20, 169) for d in (-1e-9, 0, 1e-9)],
    "betai": [(x, a, b) for a in (0.01, 0.5, 1, 3, 20, 150, 999, 1500) for b in (0.3, 2, 40, 2000)
              for x in (1e-6, 0.01, 0.1, 0.3, 0.5, 0.75, 0.99)] +
             [(x, a, b) for x in (0.2, 0.88, 0.995) for a in (0.2, 3.4, 1500) for b in (1e-6, 0.002)] +
             [(x, a, b) for x in (0.01, 0.016, 0.1) for a in (15.9, 16.1, 17) for b in (999, 1001)] +
             [((a + 1) / (a + b + 2) * (1 + d), a, b) for d in (-1e-9, 1e-9)
              for a in (0.4, 7, 300) for b in (0.9, 12, 2000)] + beta_regions(),
    "dnorm": [(x, 0, 1) for x in both(spread(0.01, 37, 15))] + [(3.7, 1.5, 0.3), (1e3, 1e3, 1e-3)],
    "cnorm": [(x, 0, 1) for x in both(spread(0.01, 37, 25)) + both(around(0.5 * 2**0.5, 2**0.5))] +
             [(3.7, 1.5, 0.3), (2, 5, 0.25)],
    "dbinom": count_points(), "cbinom": [p for p in count_points() if p[1] < 20000] +
              [(k, n, p) for n, p in ((777777, 0.3), (31415926, 0.0123), (987654321, 0.6), (6e12, 3e-9))
               for k in (math.floor(n * p + d * math.sqrt(n * p)) for d in (-3, -0.5, 1, 4))],
    "dpoisson": [(k, m) for k, m in event_points()] + [(100000, 1e5), (99000, 1e5)],
    "cpoisson": event_points() + [(k, k * f) for k in (999998, 999999) for f in (0.999, 1, 1.001)],
    "j0": both(bessel_points()) + [1e3, 1e5, 1e8], "y0": bessel_points() + [1e3, 1e5, 1e8],
    "i0": both(bessel_points()) + [700, 712], "k0": bessel_points() + around(600) + [700],
    "besselj": with_orders(bessel_points()) + [(-3.3, 3), (3.3, -3), (-30.0, -5), (1500, 7), (1e6, 4),
                                               (100.5, 100), (99.5, 100)],
    "bessely": with_orders(bessel_points()) + [(3.3, -3), (1500, 7), (1e6, 4)],
    "besseli": with_orders(bessel_points()) + [(-3.3, 3), (600, 7)],
    "besselk": with_orders(bessel_points()) + [(3.3, -3)] + [(x, 7) for x in around(600)] + [(33000, 50000)],
    "airya": both(spread(1e-5, 60, 40)) + around(-9.75, -6, -2.5, 2, 10) + [0, 1, 100, -200, -5000, -90000, -1e7, -1e10] + far_points(),
    "airyb": both(spread(1e-5, 60, 40)) + around(-9.75, -6, -2.5, 10) + [0, 1, 100, -200, -5000, -90000, -1e7, -1e10] + far_points(),
    "elli1": [(p, k) for p in (1e-6, 1, 30, 45, 60, 89, 89.999, 90, -50, 120, 270, 1000)
              for k in (0, 1e-5, 0.3, -0.7, 0.9, 0.999, 0.9999999)] +
             [(30, 1), (80, 1), (89.9999999, 1), (30, 1.5), (10, 5)],
    "elli2": [(p, k) for p in (1e-6, 1, 30, 45, 60, 89, 89.999, 90, -50, 120, 270, 1000)
              for k in (0, 1e-5, 0.3, -0.7, 0.9, 0.999, 0.9999999)] +
             [(30, 1), (80, 1), (30, 1.5), (10, 5)],
    "ei": both(spread(1e-8, 300, 40)) + around(-2, 1, 40) + [600, 700, 713, 0.3725, -700],
    "ein": with_orders(spread(1e-6, 100, 12) + around(1) + [1e-30, 0.5, 10, 30, 700]),
    "si": both(spread(1e-6, 300, 40)) + around(6, 10, 42) + [1e-200, 20, 1000, 1e5, 1e8],
    "ci": spread(1e-6, 300, 40) + around(6, 10, 42) + [1e-100, 20, 1000, 1e5, 1e8],
    "fresnels": both(spread(1e-4, 12, 40)) + around(2.5, 5) + [1e-50, 30, 1000.3],
    "fresnelc": both(spread(1e-4, 12, 40)) + around(2.5, 5) + [1e-50, 30, 1000.3],
    "zeta": both(spread(1e-6, 60, 40)) + around(-0.1) + [-69.9, -70.1, 0, 0.5, 0.999999, 1.000001, 2, 4, 69.9, 70.1, 100, -1, -3,
                                          -99.5, -170.3, -255.1],
    "hypgeom": hypergeometric_points(),
    **{name: with_orders([-1, -0.99, -0.4, 0, 1e-5, 0.3, 0.7, 0.9999, 1, 1.5, 4, 30])
       for name in ("polyle", "polyla", "polyhe", "polych")},
}
POINTS["polych"] = POINTS["polych"] + with_orders([-0.99, 0.3, 1.01, -1.2], (199, 200, 201, 1000))
POINTS["polyla"] = POINTS["polyla"] + with_orders([10, 100, 350.5])


def logarithm_of_beta(a, b):
    return mp.loggamma(a) + mp.loggamma(b) - mp.loggamma(a + b)


def beta(a, b):
    return mp.exp(logarithm_of_beta(a, b)) if a > 0 and b > 0 else mp.beta(a, b)


def lower_gamma(a, x):
    return mp.exp(a * mp.log(x) - x - mp.loggamma(a + 1)) * mp.hyp1f1(1, a + 1, x)


def lower_beta(x, a, b):
    """By the series of the tail that is the smaller one, for large shapes by its integral."""
    if x > (a + 1) / (a + b + 2):
        return 1 - lower_beta(1 - x, b, a)
    if max(a, b) > 2e4:
        return beta_tail(x, a, b)
    logarithm = a * mp.log(x) + b * mp.log1p(-x) - logarithm_of_beta(a, b)
    return mp.exp(logarithm) / a * mp.hyp2f1(a + b, 1, a + 1, x)


def beta_tail(x, a, b):
    """The integral over s = ln(t / (1 - t)) from ln(x / (1 - x)) down, a deviation at a time."""
    digits = mp.dps
    with mp.extradps(2 * int(mp.log10(a + b))):
        constant = logarithm_of_beta(a, b)

        def density(s):
            return mp.exp(-a * mp.log1p(mp.exp(-s)) - b * mp.log1p(mp.exp(s)) - constant)

        width = min(mp.mpf(1), mp.sqrt(1 / a + 1 / b))
        end = mp.log(x) - mp.log1p(-x)
        total = part = mpf(0)
        while part >= total * mpf(10) ** -digits:
            part = mp.quad(density, [end - width, end])
            total += part
            end -= width
            width *= mpf(1.25) if width >= 1 else 1
        return total


def binomial_density(k, n, p):
    return math.comb(int(n), int(k)) * p ** int(k) * (1 - p) ** int(n - k)


def binomial_distribution(k, n, p):
    if n > 20000:
        return lower_beta(1 - p, n - k, k + 1)
    return mp.fsum(binomial_density(i, n, p) for i in range(int(k) + 1))


def poisson_density(k, mean):
    return mp.exp(k * mp.log(mean) - mean - mp.loggamma(k + 1))


def poisson_distribution(k, mean):
    if k > 1e5:  # from the last term down, until nothing is added
        term = total = poisson_density(k, mean)
        while term > total * mpf(10) ** -mp.dps:
            term *= k / mean
            total += term
            k -= 1
        return total
    return mp.fsum(poisson_density(i, mean) for i in range(int(k) + 1))


def bessel_k(x, n):
    """For large orders the trapezoidal rule about the saddle point of exp(n t - x cosh(t)) / 2."""
    if n < 10000:
        return mp.besselk(int(n), x)
    saddle = mp.asinh(n / x)
    step = 1 / (8 * mp.sqrt(mp.hypot(n, x)))
    nodes = (saddle + k * step for k in range(-480, 481))
    return mp.fsum(mp.exp(n * t - x * mp.cosh(t)) for t in nodes) * step / 2


def hypergeometric(x, a, b, c):
    """Its series where mp.hyp2f1 may end too early, while terms can still grow."""
    if max(abs(a), abs(b), abs(c)) < 50 or abs(x) > 0.96:
        return mp.hyp2f1(a, b, c, x)
    term = total = mpf(1)
    n = 0
    while (c + n <= 0 or abs(term) > abs(total) * mpf(10) ** -mp.dps or
           max(1, abs((a + n) / (c + n))) * max(1, abs((b + n) / (n + 1))) * abs(x) >= 1):
        term *= (a + n) * (b + n) / ((c + n) * (n + 1)) * x
        total += term
        n += 1
    return total


def laguerre(x, n):
    """Written out: mp.laguerre raises an error at a zero."""
    return mp.fsum(math.comb(int(n), k) * (-x) ** k / mp.factorial(k) for k in range(int(n) + 1))


FUNCTIONS = {
    "gamma": mp.gamma,
    "gammaln": lambda x: mp.loggamma(x) if x > 0 else mp.log(mp.gamma(x)),
    "digamma": mp.digamma,
    "beta": beta,
    "comb": lambda n, k: mpf(math.comb(int(n), int(k))),
    "perm": lambda n, k: mpf(math.perm(int(n), int(k))),
    "erf": mp.erf,
    "gammai": lower_gamma,
    "betai": lower_beta,
    "dnorm": mp.npdf,
    "cnorm": lambda x, mean, deviation: mp.erfc((mean - x) / deviation / mp.sqrt(2)) / 2,
    "dbinom": binomial_density,
    "cbinom": binomial_distribution,
    "dpoisson": poisson_density,
    "cpoisson": poisson_distribution,
    "j0": lambda x: mp.besselj(0, x),
    "y0": lambda x: mp.bessely(0, x),
    "i0": lambda x: mp.besseli(0, x),
    "k0": lambda x: mp.besselk(0, x),
    "besselj": lambda x, n: mp.besselj(int(n), x),
    "bessely": lambda x, n: mp.bessely(int(n), x),
    "besseli": lambda x, n: mp.besseli(int(n), x),
    "besselk": bessel_k,
    "airya": mp.airyai,
    "airyb": mp.airybi,
    "elli1": lambda phi, k: mp.ellipf(phi * mp.pi / 180, k * k),
    "elli2": lambda phi, k: mp.ellipe(phi * mp.pi / 180, k * k),
    "ei": mp.ei,
    "ein": lambda x, n: mp.expint(int(n), x),
    "si": mp.si,
    "ci": mp.ci,
    "fresnels": mp.fresnels,
    "fresnelc": mp.fresnelc,
    "zeta": mp.zeta,
    "polyle": lambda x, n: mp.legendre(int(n), x),
    "polyla": laguerre,
    "polyhe": lambda x, n: mp.hermite(int(n), x),
    "polych": lambda x, n: mp.chebyt(int(n), x),
    "hypgeom": hypergeometric,
}


def confirmed(function, arguments):
    """The value to 50 digits."""
    digits = DIGITS + 15
    while digits < MOST_DIGITS:
        values = []
        for mp.dps in (digits, digits + digits // 2):
            try:
                values.append(mp.re(function(*(mpf(a) for a in arguments))))
            except mp.NoConvergence:
                values.append(mp.nan)
        first, second = values
        if abs(first - second) <= abs(second) * mpf(10) ** -DIGITS:
            return second
        if digits > 500 and max(abs(first), abs(second)) < mpf(10) ** -450:
            return mpf(0)  # what is left where terms cancel entirely
        digits = digits * 2
    raise ArithmeticError(f"no {DIGITS} digits at {arguments}")


def main(path, names):
    with open(path, "w", encoding="ascii") as out:
        out.write("# Written by tools/make_special_reference.py with mpmath: keyword, arguments\n"
                  "# (hexadecimal doubles), value to 50 digits.\n")
        for name, function in FUNCTIONS.items():
            if names and name not in names:
                continue
            for point in POINTS[name]:
                arguments = [float(a) for a in (point if isinstance(point, tuple) else (point,))]
                value = confirmed(function, arguments)
                if abs(value) > mpf("1.7e308") or (value != 0 and abs(value) < mpf("1e-290")):
                    continue
                out.write(f"{name} {' '.join(a.hex() for a in arguments)} "
                          f"{mp.nstr(value, DIGITS, strip_zeros=False, min_fixed=1, max_fixed=0)}\n")
            print(name, file=sys.stderr, flush=True)


if __name__ == "__main__":
    main(sys.argv[1], sys.argv[2:])
