"""Special functions at any precision, by plain definitions: power series, sums and recurrences in
decimal arithmetic with as many guard digits as the cancellation takes. Slow, and sharing no method
with the program beyond the definitions themselves."""

from decimal import Decimal as D, getcontext, localcontext
from fractions import Fraction
from functools import lru_cache
from math import comb as binomial

DIGITS = 50


def working(digits):
    """A context with this many digits."""
    context = getcontext().copy()
    context.prec = digits
    context.Emax = 10**12
    context.Emin = -(10**12)
    return localcontext(context)


@lru_cache(None)
def bernoulli(n):
    if n == 0:
        return Fraction(1)
    if n > 1 and n % 2:
        return Fraction(0)
    return -sum(binomial(n + 1, k) * bernoulli(k) for k in range(n)) / (n + 1)


def from_fraction(f):
    return D(f.numerator) / D(f.denominator)


@lru_cache(None)
def pi_at(digits):
    with working(digits + 10):  # Machin's formula
        def arctan_inverse(n):
            term = total = D(1) / n
            k = 1
            while abs(term) > D(10) ** -(digits + 8):
                term /= -n * n
                k += 2
                total += term / k
            return total
        return 4 * (4 * arctan_inverse(5) - arctan_inverse(239))


def pi():
    return pi_at(-(-getcontext().prec // 100) * 100)


@lru_cache(None)
def euler_at(digits):
    with working(digits * 2 + 20):  # Brent and McMillan's sums, off by about e^(-4n)
        n = digits
        term, harmonics, k = D(1), D(0), 0
        upper, lower = D(0), D(1)
        while k < n or term > lower * D(10) ** -(digits + 15):
            k += 1
            term *= D(n * n) / (k * k)
            harmonics += D(1) / k
            lower += term
            upper += term * harmonics
        return upper / lower - D(n).ln()


def euler():
    return euler_at(-(-getcontext().prec // 100) * 100)


def cos_sin(x):
    """Of any size of x: the precision is raised by its digits."""
    with working(getcontext().prec + max(0, x.adjusted()) + 25):
        x = x % (2 * pi())
        if x > pi():
            x -= 2 * pi()
        scaled = x / 32
        c = s = D(0)
        term, n = D(1), 0
        while abs(term) > D(10) ** -(getcontext().prec + 5) or n < 3:
            if n % 4 == 0: c += term
            elif n % 4 == 1: s += term
            elif n % 4 == 2: c -= term
            else: s -= term
            n += 1
            term = term * scaled / n
            if term == 0: break
        for _ in range(5):
            c, s = c * c - s * s, 2 * s * c
        return c, s


def sin(x): return cos_sin(x)[1]
def cos(x): return cos_sin(x)[0]


def series(first, ratio):
    """The sum of the terms, each ratio(n) times the one before; ends at the working precision."""
    term = total = first
    n, calm = 0, 0
    while calm < 3:
        n += 1
        term = term * ratio(n)
        total += term
        calm = calm + 1 if abs(term) <= abs(total) * D(10) ** -(getcontext().prec + 2) else 0
        if term == 0: break
    return total


def ln_gamma(x):
    """x > 0: raised by recurrence, then Stirling's series."""
    prec = getcontext().prec
    product, z = D(1), x
    while z < prec:
        product *= z
        z += 1
    rest = sum(from_fraction(bernoulli(2 * k)) / (2 * k * (2 * k - 1)) / z ** (2 * k - 1)
               for k in range(1, prec))
    return (z - D("0.5")) * z.ln() - z + (2 * pi()).ln() / 2 + rest - product.ln()


def gamma(x):
    if x > 0:
        return ln_gamma(x).exp()
    return pi() / (sin(pi() * x) * gamma(1 - x))


def digamma(x):
    if x <= 0:
        c, s = cos_sin(pi() * x)
        return digamma(1 - x) - pi() * c / s
    prec = getcontext().prec
    total, z = D(0), x
    while z < prec:
        total -= 1 / z
        z += 1
    return total + z.ln() - 1 / (2 * z) - sum(
        from_fraction(bernoulli(2 * k)) / (2 * k) / z ** (2 * k) for k in range(1, prec))


def beta(a, b):
    if a > 0 and b > 0:
        return (ln_gamma(a) + ln_gamma(b) - ln_gamma(a + b)).exp()
    return gamma(a) * gamma(b) / gamma(a + b)


def erf(x):
    with working(getcontext().prec + int(x * x * D("0.44")) + 10):
        return 2 / pi().sqrt() * (-x * x).exp() * series(
            x, lambda n: 2 * x * x / (2 * n + 1))


def erfc(x):
    with working(getcontext().prec + int(x * x * D("0.9")) + 10):
        return 1 - erf(x)


def gammai(a, x):
    with working(getcontext().prec + 20):
        return (a * x.ln() - x - ln_gamma(a + 1)).exp() * series(D(1), lambda n: x / (a + n))


def upper_gammai(a, x):
    with working(getcontext().prec + int(x * D("0.44")) + 20):
        return 1 - gammai(a, x)


def betai(x, a, b):
    with working(getcontext().prec + 30):
        if x > (a + 1) / (a + b + 2):
            return 1 - betai(1 - x, b, a)
        return (a * x.ln() + b * (1 - x).ln()).exp() / a / beta(a, b) * series(
            D(1), lambda n: (a + b + n - 1) / (a + n) * x)


def guard(x):
    return working(getcontext().prec + int(abs(x) * D("0.9")) + 20)


def besselj(x, n):
    n = int(n)
    if n < 0: return (-1) ** -n * besselj(x, -n)
    with guard(x):
        q = -x * x / 4
        return series((x / 2) ** n / factorial(n), lambda k: q / (k * (k + n)))


def besseli(x, n):
    n = abs(int(n))
    with guard(x):
        q = x * x / 4
        return series((x / 2) ** n / factorial(n), lambda k: q / (k * (k + n)))


def factorial(n):
    result = D(1)
    for k in range(2, n + 1):
        result *= k
    return result


def second_solution(x, n, sign):
    """What Y (sign -1) and K (sign 1) share: the finite sum and the one with harmonic numbers."""
    q = sign * x * x / 4
    finite = D(0)
    term = factorial(n - 1) * (x / 2) ** -n if n else D(0)
    for k in range(n):
        finite += term
        if k < n - 1: term *= -q / ((k + 1) * (n - k - 1))
    harmonics = sum((D(1) / k for k in range(1, n + 1)), D(0))
    term = (x / 2) ** n / factorial(n)
    total, k = term * (harmonics - 2 * euler()), 0
    while abs(term) > D(10) ** -(getcontext().prec) * abs(total) or k < 5:
        k += 1
        term *= q / (k * (k + n))
        harmonics += D(1) / k + D(1) / (k + n)
        total += term * (harmonics - 2 * euler())
    return finite, total


def bessely(x, n):
    n = int(n)
    if n < 0: return (-1) ** -n * bessely(x, -n)
    with guard(x):
        finite, total = second_solution(x, n, -1)
        return (2 * (x / 2).ln() * besselj(x, n) - finite - total) / pi()


def besselk(x, n):
    n = abs(int(n))
    with working(getcontext().prec + int(abs(x) * D("1.8")) + 20):
        finite, total = second_solution(x, n, 1)
        return (-1) ** (n + 1) * (x / 2).ln() * besseli(x, n) + finite / 2 + (-1) ** n * total / 2


@lru_cache(None)
def gamma_of_thirds(count, digits):
    """The lower incomplete gamma function, so far out that nothing is left above."""
    with working(digits + 20):
        a, n = D(count) / 3, 3 * digits
        return D(n) ** a * D(-n).exp() * series(1 / a, lambda k: n / (a + k))


def airy(x):
    with working(getcontext().prec + int(abs(x) ** D("1.5") * D("1.2")) + 20):
        third = D(1) / 3
        c = x ** 3
        digits = -(-getcontext().prec // 100) * 100
        f = series(D(3) ** (-2 * third) / gamma_of_thirds(2, digits), lambda k: c / ((3 * k - 1) * (3 * k)))
        g = series(x * D(3) ** (-third) / gamma_of_thirds(1, digits), lambda k: c / (3 * k * (3 * k + 1)))
        return f - g, D(3).sqrt() * (f + g)


def ei(x):
    with guard(x):
        total, term, k = D(0), D(1), 0
        while abs(term) > D(10) ** -(getcontext().prec + 5):
            k += 1
            term *= x / k
            total += term / k
        return euler() + abs(x).ln() + total


def ein(x, n):
    n = int(n)
    if n == 0: return (-x).exp() / x
    with working(getcontext().prec + int(x) + 30 + n * 2):
        value = -ei(-x)
        for k in range(1, n):  # E_(k+1) = (e^-x - x E_k) / k
            value = ((-x).exp() - x * value) / k
        return value


def trigonometric_integral(x, start):
    with guard(x):
        term = x if start == 1 else -x * x / 2
        total, n = term / start, start
        while abs(term) > D(10) ** -(getcontext().prec + 5):
            term *= -x * x / ((n + 1) * (n + 2))
            n += 2
            total += term / n
        return total if start == 1 else total + euler() + x.ln()


def fresnel(x, is_sine):
    with working(getcontext().prec + int(x * x * D("1.5")) + 20):
        u = pi() * x * x / 2
        term, n = (x * u, 1) if is_sine else (x, 0)
        total = term / (2 * n + 1)
        while abs(term) > D(10) ** -(getcontext().prec + 5) * abs(x) ** 3:
            term *= -u * u / ((n + 1) * (n + 2))
            n += 2
            total += term / (2 * n + 1)
        return total


def zeta(s):
    if s < 0:
        if s % 2 == 0: return D(0)
        return (2 * pi()) ** s / pi() * sin(pi() * s / 2) * gamma(1 - s) * zeta(1 - s)
    n = getcontext().prec
    total = sum((D(k) ** -s for k in range(1, n)), D(0)) + D(n) ** (1 - s) / (s - 1) + D(n) ** -s / 2
    factor = s * D(n) ** (-s - 1)
    for k in range(1, n):
        total += from_fraction(bernoulli(2 * k)) / factorial(2 * k) * factor
        factor *= (s + 2 * k - 1) * (s + 2 * k) / (n * n)
    return total


def elliptic(phi, k, power):
    """The integral of (1 - k^2 sin^2)^(power/2): the trapezoidal rule on a full period converges
    geometrically for the complete one; the rest by Gauss and Legendre on short pieces."""
    turns = (phi / 180).to_integral_value()
    rest = phi - 180 * turns
    total = gauss(rest * pi() / 180, k, power)
    return total + (2 * turns * gauss(pi() / 2, k, power) if turns else 0)


@lru_cache(None)
def gauss_nodes(n, digits):
    with working(digits + 15):
        nodes = []
        for i in range(1, n + 1):
            x = cos(pi() * (D(i) - D("0.25")) / (n + D("0.5")))
            for _ in range(100):
                before, here = D(1), x
                for m in range(1, n):
                    before, here = here, ((2 * m + 1) * x * here - m * before) / (m + 1)
                slope = n * (x * here - before) / (x * x - 1)
                step = here / slope
                x -= step
                if abs(step) < D(10) ** -(digits + 5): break
            nodes.append((x, 2 / ((1 - x * x) * slope * slope)))
        return nodes


def gauss(end, k, power):
    nodes = gauss_nodes(40, getcontext().prec)

    def integrand(t):
        s = sin(t)
        root = (1 - k * k * s * s).sqrt()
        return root if power == 1 else 1 / root

    # Pieces that halve towards a quarter turn, where the integrand may nearly have a pole.
    quarter = pi() / 2 if end > 0 else -pi() / 2
    edges, here = [D(0)], D(0)
    while True:
        here = quarter - (quarter - here) / 2
        if abs(here) >= abs(end) or abs(quarter - here) < D("1e-9"): break
        edges.append(here)
    edges.append(end)
    total = D(0)
    for a, b in zip(edges, edges[1:]):
        half, middle = (b - a) / 2, (a + b) / 2
        total += half * sum(w * integrand(middle + half * x) for x, w in nodes)
    return total


def polynomial(name, x, n):
    x, n = Fraction(x), int(n)
    steps = {
        "polyle": (x, lambda k, p, b: ((2 * k + 1) * x * p - k * b) / (k + 1)),
        "polyla": (1 - x, lambda k, p, b: ((2 * k + 1 - x) * p - k * b) / (k + 1)),
        "polyhe": (2 * x, lambda k, p, b: 2 * x * p - 2 * k * b),
        "polych": (x, lambda k, p, b: 2 * x * p - b),
    }
    first, step = steps[name]
    before, here = Fraction(1), first
    if n == 0: return D(1)
    for k in range(1, n):
        before, here = here, step(k, here, before)
    return from_fraction(here)


def hypgeom(x, a, b, c):
    with working(getcontext().prec + 40):
        if x < D("-0.6") and not (a == a.to_integral_value() and a <= 0):
            return (1 - x) ** -a * hypgeom(x / (x - 1), a, c - b, c)
        if x == 1:
            return gamma(c) * gamma(c - a - b) / gamma(c - a) / gamma(c - b)
        return series(D(1), lambda n: (a + n - 1) * (b + n - 1) / ((c + n - 1) * n) * x)


def normal_density(x, mean, deviation):
    z = (x - mean) / deviation
    return (-z * z / 2).exp() / deviation / (2 * pi()).sqrt()


def normal_distribution(x, mean, deviation):
    return erfc((mean - x) / deviation / D(2).sqrt()) / 2


def binomial_density(k, n, p):
    return D(binomial(int(n), int(k))) * p ** int(k) * (1 - p) ** int(n - k)


def binomial_distribution(k, n, p):
    return sum((binomial_density(i, n, p) for i in range(int(k) + 1)), D(0))


def poisson_density(k, mean):
    return (k * mean.ln() - mean - ln_gamma(k + 1)).exp()


def poisson_distribution(k, mean):
    term = total = (-mean).exp()
    for i in range(1, int(k) + 1):
        term *= mean / i
        total += term
    return total


FUNCTIONS = {
    "gamma": gamma, "gammaln": lambda x: gamma(x).ln() if x < 0 else ln_gamma(x),
    "digamma": digamma, "beta": beta, "erf": erf, "gammai": gammai, "betai": betai,
    "dnorm": normal_density, "cnorm": normal_distribution, "dbinom": binomial_density,
    "cbinom": binomial_distribution, "dpoisson": poisson_density, "cpoisson": poisson_distribution,
    "j0": lambda x: besselj(x, 0), "y0": lambda x: bessely(x, 0), "i0": lambda x: besseli(x, 0),
    "k0": lambda x: besselk(x, 0), "besselj": besselj, "bessely": bessely, "besseli": besseli,
    "besselk": besselk, "airya": lambda x: airy(x)[0], "airyb": lambda x: airy(x)[1],
    "elli1": lambda phi, k: elliptic(phi, k, -1), "elli2": lambda phi, k: elliptic(phi, k, 1),
    "ei": ei, "ein": ein, "si": lambda x: trigonometric_integral(x, 1),
    "ci": lambda x: trigonometric_integral(x, 2), "fresnels": lambda x: fresnel(x, True),
    "fresnelc": lambda x: fresnel(x, False), "zeta": zeta, "hypgeom": hypgeom,
    **{name: (lambda name: lambda x, n: polynomial(name, x, n))(name)
       for name in ("polyle", "polyla", "polyhe", "polych")},
}
