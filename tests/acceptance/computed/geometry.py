"""Vectors, planes and matrices in Python's floats: the same numbers as the library's, by other code.

Vectors and points are triples; matrices are lists of rows. The order of every operation shows in the last digit.
"""

import math

import mpmath

ZERO_VECTOR = r"MathError >Zero vector >zero vector in MathVector3d::normalize (zelkmath\pub_mathvector3d, line 85)"
ZERO_NORMAL = "MathError >Zero vector >MathPlane: Normal is zero vector >"
SINGULAR = "Numerical exception: Singular matrix in routine ludcmp"
SMALLEST_PIVOT = 1e-20
GIMBAL_LIMIT = 16 * 2.0 ** -23
DEFAULT_TOLERANCE = 1e-10


class GeometryError(Exception):
    """A vector without direction. Its text is the library's."""


class SingularMatrix(Exception):
    """A matrix with a row of zeros. Its text is the library's."""


def quotient(a, b):
    """a / b where b may be zero, as every processor has it."""
    if b != 0.0:
        return a / b
    if a == 0.0 or math.isnan(a):
        return math.nan
    return math.copysign(math.inf, a) * math.copysign(1.0, b)


def add(a, b):
    return (a[0] + b[0], a[1] + b[1], a[2] + b[2])


def sub(a, b):
    return (a[0] - b[0], a[1] - b[1], a[2] - b[2])


def times(a, s):
    return (a[0] * s, a[1] * s, a[2] * s)


def over(a, s):
    return (quotient(a[0], s), quotient(a[1], s), quotient(a[2], s))


def dot(a, b):
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2]


def cross(a, b):
    return (a[1] * b[2] - a[2] * b[1], b[0] * a[2] - a[0] * b[2], a[0] * b[1] - a[1] * b[0])


def distance(a, b):
    difference = sub(a, b)
    return math.sqrt(dot(difference, difference))


def length(a):
    plain = math.sqrt(dot(a, a))
    largest = max(abs(a[0]), abs(a[1]), abs(a[2]))
    if plain != 0.0 or largest == 0.0:
        return plain
    scaled = over(a, largest)  # its squares do not vanish
    return largest * math.sqrt(dot(scaled, scaled))


def normalized(a):
    divisor = length(a)
    if divisor == 0.0:
        raise GeometryError(ZERO_VECTOR)
    return over(a, divisor)


def is_zero(a, tolerance):
    return length(a) <= tolerance


def is_parallel(a, b, tolerance):
    if is_zero(a, tolerance) or is_zero(b, tolerance):
        return False
    return is_zero(cross(normalized(a), normalized(b)), tolerance)


def is_perpendicular(a, b, tolerance):
    if is_zero(a, tolerance) or is_zero(b, tolerance):
        return False
    return abs(dot(normalized(a), normalized(b))) <= tolerance


class Plane:
    def __init__(self, point, normal):
        if length(normal) == 0.0:
            raise GeometryError(ZERO_NORMAL)
        self.normal = normalized(normal)
        self.d = -dot(self.normal, point)

    def project(self, p):
        t = quotient(dot(self.normal, p) + self.d, dot(self.normal, self.normal))
        return sub(p, times(self.normal, t))


def placement(x, y, z, origin):
    return [[x[i], y[i], z[i], origin[i]] for i in range(3)] + [[0.0, 0.0, 0.0, 1.0]]


def mapped(m, p):
    x, y, z = p
    a, b, c, w = [r[0] * x + r[1] * y + r[2] * z + r[3] for r in m]
    return (quotient(a, w), quotient(b, w), quotient(c, w))


def inverse(matrix):
    """LU decomposition by Crout's method with implicit scaling, then one solution per unit vector."""
    n = len(matrix)
    a = [list(row) for row in matrix]
    scale = []
    for row in a:
        largest = 0.0
        for value in row:
            if abs(value) > largest:
                largest = abs(value)
        if largest == 0.0:
            raise SingularMatrix(SINGULAR)
        scale.append(1.0 / largest)
    swaps = []
    for j in range(n):
        for i in range(j):
            for k in range(i):
                a[i][j] -= a[i][k] * a[k][j]
        largest = 0.0
        pivot = j
        for i in range(j, n):
            for k in range(j):
                a[i][j] -= a[i][k] * a[k][j]
            candidate = scale[i] * abs(a[i][j])
            if candidate >= largest:
                largest = candidate
                pivot = i
        if pivot != j:
            a[pivot], a[j] = a[j], a[pivot]
            scale[pivot] = scale[j]
        swaps.append(pivot)
        if a[j][j] == 0.0:
            a[j][j] = SMALLEST_PIVOT
        if j < n - 1:
            factor = 1.0 / a[j][j]
            for i in range(j + 1, n):
                a[i][j] *= factor

    result = [[0.0] * n for _ in range(n)]
    for column in range(n):
        b = [0.0] * n
        b[column] = 1.0
        first = None
        for i in range(n):
            value = b[swaps[i]]
            b[swaps[i]] = b[i]
            if first is not None:
                for j in range(first, i):
                    value -= a[i][j] * b[j]
            elif value != 0.0:
                first = i
            b[i] = value
        for i in reversed(range(n)):
            value = b[i]
            for j in range(i + 1, n):
                value -= a[i][j] * b[j]
            b[i] = quotient(value, a[i][i])
        for i in range(n):
            result[i][column] = b[i]
    return result


def arc_tangent(y, x):
    """The double next to the true angle: math.atan2 misses it by one unit now and then."""
    if x == 0.0 or y == 0.0 or not math.isfinite(x) or not math.isfinite(y):
        return math.atan2(y, x)
    with mpmath.workprec(250):
        angle = mpmath.atan2(y, x)
    with mpmath.workprec(53):
        return float(+angle)


def twist_of(m):
    """Third angle, in degrees, of the rotations about the fixed axes z, y, x that make up `m`."""
    if math.sqrt(m[2][2] * m[2][2] + m[1][2] * m[1][2]) > GIMBAL_LIMIT:
        return (-arc_tangent(m[1][2], m[2][2]) + 0.0) * (180.0 / math.pi)
    return 0.0
