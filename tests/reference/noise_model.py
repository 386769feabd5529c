#!/usr/bin/env python3
"""Independent model of the noise primitives, used to work out the expected values of the
noise tests: float32 emulation, improved noise (1-D, 2-D, 3-D) and its octave sums, simplex
noise, classic gradient noise with its seeded tables, and the Voronoi and Worley cellular
searches.

Single precision is emulated by doing each step in Python's double and rounding it to float32
at once, which gives the correctly rounded result for +, -, *, / and sqrt of float32 operands.
powf(x, 0.25) and powf(x, 4), correctly rounded in the library, are worked exactly in rationals.
Worley works in double, Python's own float. The cellular constant tables are read from the
library's table sources.

Run it to print the values the tests compare against (as C hex-float literals)."""
import itertools
import math
import os
import re
import struct
from fractions import Fraction

# ---------------------------------------------------------------- float32 emulation
INT32_MIN = -(2 ** 31)


def f(x):
    """Round a Python float to the nearest float32."""
    if math.isnan(x) or math.isinf(x):
        return x
    try:
        return struct.unpack('<f', struct.pack('<f', x))[0]
    except OverflowError:
        return math.copysign(math.inf, x)


FLT_MAX = f(3.4028235e38)


def f_exact(q):
    """Round an exact non-negative rational to the nearest float32 (ties to even, subnormals)."""
    if q == 0:
        return 0.0
    e = q.numerator.bit_length() - q.denominator.bit_length()  # 2^e <= q < 2^(e+2)
    if Fraction(2) ** e > q:
        e -= 1
    elif Fraction(2) ** (e + 1) <= q:
        e += 1
    quantum = max(e - 23, -149)
    n = round(q / Fraction(2) ** quantum)  # Fraction rounds halves to even
    return math.inf if n * Fraction(2) ** quantum >= Fraction(2) ** 128 else math.ldexp(float(n), quantum)


def next_f32(x, up):
    """The float32 after x (x >= 0) upwards or downwards."""
    b = struct.unpack('<I', struct.pack('<f', x))[0]
    return struct.unpack('<f', struct.pack('<I', b + 1 if up else b - 1))[0]


def pow4(x):
    """powf(x, 4): x^4 exactly, rounded once."""
    return math.nan if math.isnan(x) else math.inf if math.isinf(x) else f_exact(Fraction(x) ** 4)


def root4(v):
    """powf(v, 0.25) for v >= 0: the float32 whose neighbouring midpoints bracket the root."""
    if v == 0 or math.isinf(v) or math.isnan(v):
        return abs(v)
    r = f(v ** 0.25)
    while True:
        if ((Fraction(r) + Fraction(next_f32(r, True))) / 2) ** 4 < Fraction(v):
            r = next_f32(r, True)
        elif ((Fraction(r) + Fraction(next_f32(r, False))) / 2) ** 4 > Fraction(v):
            r = next_f32(r, False)
        else:
            return r


def add(a, b): return f(a + b)
def sub(a, b): return f(a - b)
def mul(a, b): return f(a * b)
def div(a, b): return f(a / b)


def bits(x):
    return struct.unpack('<I', struct.pack('<f', x))[0]


def to_int32(v):
    """Truncation toward zero; INT32_MIN for NaN and out of range."""
    if not (-2147483904.0 < v < 2147483648.0):
        return INT32_MIN
    return int(v)


def wrap32(n):
    n &= 0xFFFFFFFF
    return n - 2 ** 32 if n >= 2 ** 31 else n


def lattice_floor(c):
    """The noise floor: truncate, minus one when c is negative or not a number."""
    i = to_int32(c)
    if not (c >= 0):
        i = wrap32(i - 1)
    return i


def cell_floor(c):
    """The cell floor of the shared helpers: truncate, minus one when c is negative."""
    i = to_int32(c)
    return wrap32(i - 1) if c < 0 else i


def hexf(v):
    if v == 0:
        return '0.0f' if math.copysign(1, v) > 0 else '-0.0f'
    m, e = float(v).hex().split('p')
    return m.rstrip('0').rstrip('.') + 'p' + e + 'f'


# ---------------------------------------------------------------- improved noise
# The published reference permutation, then twice in a row.
REFERENCE = [
    151, 160, 137, 91, 90, 15, 131, 13, 201, 95, 96, 53, 194, 233, 7, 225, 140, 36, 103, 30, 69, 142,
    8, 99, 37, 240, 21, 10, 23, 190, 6, 148, 247, 120, 234, 75, 0, 26, 197, 62, 94, 252, 219, 203,
    117, 35, 11, 32, 57, 177, 33, 88, 237, 149, 56, 87, 174, 20, 125, 136, 171, 168, 68, 175, 74,
    165, 71, 134, 139, 48, 27, 166, 77, 146, 158, 231, 83, 111, 229, 122, 60, 211, 133, 230, 220,
    105, 92, 41, 55, 46, 245, 40, 244, 102, 143, 54, 65, 25, 63, 161, 1, 216, 80, 73, 209, 76, 132,
    187, 208, 89, 18, 169, 200, 196, 135, 130, 116, 188, 159, 86, 164, 100, 109, 198, 173, 186, 3,
    64, 52, 217, 226, 250, 124, 123, 5, 202, 38, 147, 118, 126, 255, 82, 85, 212, 207, 206, 59, 227,
    47, 16, 58, 17, 182, 189, 28, 42, 223, 183, 170, 213, 119, 248, 152, 2, 44, 154, 163, 70, 221,
    153, 101, 155, 167, 43, 172, 9, 129, 22, 39, 253, 19, 98, 108, 110, 79, 113, 224, 232, 178, 185,
    112, 104, 218, 246, 97, 228, 251, 34, 242, 193, 238, 210, 144, 12, 191, 179, 162, 241, 81, 51,
    145, 235, 249, 14, 239, 107, 49, 192, 214, 31, 181, 199, 106, 157, 184, 84, 204, 176, 115, 121,
    50, 45, 127, 4, 150, 254, 138, 236, 205, 93, 222, 114, 67, 29, 24, 72, 243, 141, 128, 195, 78,
    66, 215, 61, 156, 180]
assert sorted(REFERENCE) == list(range(256))
PERM = REFERENCE + REFERENCE

nfloor = lattice_floor  # rebound by true_floor() below


def frac(c, i): return sub(c, f(float(i)))
def fade(t): return mul(add(mul(sub(mul(t, 6.0), 15.0), t), 10.0), mul(mul(t, t), t))
def lerp(t, a, b): return add(a, mul(t, sub(b, a)))


def grad1(h, x):
    h &= 15
    g = 1.0 + (h & 7)
    if h & 8:
        g = -g
    return mul(g, x)


def grad2(h, x, y):
    h &= 7
    u, v = (x, y) if h < 4 else (y, x)
    return add(-u if h & 1 else u, -mul(2.0, v) if h & 2 else mul(2.0, v))


def grad3(h, x, y, z):
    h &= 15
    u = x if h < 8 else y
    v = y if h < 4 else (x if h in (12, 14) else z)
    return add(-u if h & 1 else u, -v if h & 2 else v)


def improved1(x):
    x = f(x)
    i = nfloor(x)
    t = frac(x, i)
    c0 = grad1(PERM[i & 255], t)
    c1 = grad1(PERM[(i + 1) & 255], sub(t, 1.0))
    return mul(f(0.188), lerp(fade(t), c0, c1))


def improved2(x, y):
    x, y = f(x), f(y)
    ix, iy = nfloor(x), nfloor(y)
    X, Y = ix & 255, iy & 255
    fx, fy = frac(x, ix), frac(y, iy)
    A = PERM[X] + Y
    B = PERM[X + 1] + Y
    c00 = grad2(PERM[A], fx, fy)
    c10 = grad2(PERM[B], sub(fx, 1.0), fy)
    c01 = grad2(PERM[A + 1], fx, sub(fy, 1.0))
    c11 = grad2(PERM[B + 1], sub(fx, 1.0), sub(fy, 1.0))
    return mul(f(0.507), lerp(fade(fy), lerp(fade(fx), c00, c10), lerp(fade(fx), c01, c11)))


def raw3(x, y, z, P=PERM):
    """One octave of 3-D noise without the output scale (the ImprovedPerlin class)."""
    x, y, z = f(x), f(y), f(z)
    ix, iy, iz = nfloor(x), nfloor(y), nfloor(z)
    X, Y, Z = ix & 255, iy & 255, iz & 255
    fx, fy, fz = frac(x, ix), frac(y, iy), frac(z, iz)
    u, v, w = fade(fx), fade(fy), fade(fz)
    A = P[X] + Y; AA = P[A] + Z; AB = P[A + 1] + Z
    B = P[X + 1] + Y; BA = P[B] + Z; BB = P[B + 1] + Z
    gx, gy, gz = sub(fx, 1.0), sub(fy, 1.0), sub(fz, 1.0)
    return lerp(w,
                lerp(v, lerp(u, grad3(P[AA], fx, fy, fz), grad3(P[BA], gx, fy, fz)),
                     lerp(u, grad3(P[AB], fx, gy, fz), grad3(P[BB], gx, gy, fz))),
                lerp(v, lerp(u, grad3(P[AA + 1], fx, fy, gz), grad3(P[BA + 1], gx, fy, gz)),
                     lerp(u, grad3(P[AB + 1], fx, gy, gz), grad3(P[BB + 1], gx, gy, gz))))


def improved3(x, y, z): return mul(f(0.936), raw3(x, y, z))


def true_floor(noise, *args):
    """The same noise with a true floor, to show which results depend on the cell rule."""
    global nfloor
    kept = nfloor
    nfloor = lambda c: math.floor(c)
    try:
        return noise(*args)
    finally:
        nfloor = kept


def octaves_sum(noise, coords, octaves, frequency, amplitude):
    """Lacunarity 2, gain 0.5, at most 64 octaves, 0 for fewer than one."""
    if octaves < 1:
        return 0.0
    c = [mul(f(v), f(frequency)) for v in coords]
    w, s = f(amplitude), 0.0
    for _ in range(min(octaves, 64)):
        s = add(s, mul(noise(*c), w))
        c = [mul(v, 2.0) for v in c]
        w = mul(w, 0.5)
    return s


def fractal2(x, y, o, fr, a): return octaves_sum(improved2, [x, y], o, fr, a)
def fractal3(x, y, z, o, fr, a): return octaves_sum(improved3, [x, y, z], o, fr, a)


# ---------------------------------------------------------------- simplex noise
def corner2(cx, cy, a, b):
    q = sub(sub(0.5, mul(cx, cx)), mul(cy, cy))
    if not q >= 0:
        return 0.0
    q2 = mul(q, q)
    return mul(mul(q2, q2), grad2(PERM[a + PERM[b]], cx, cy))


def simplex2(x, y, tie_to_x=False):
    x, y = f(x), f(y)
    F2, G2, G22 = f(0.3660254), f(0.21132487), f(0.42264974)
    s = mul(add(x, y), F2)
    i, j = nfloor(add(x, s)), nfloor(add(y, s))
    t = mul(float(wrap32(i + j)), G2)
    x0 = sub(x, sub(float(i), t))
    y0 = sub(y, sub(float(j), t))
    if x0 > y0 or (tie_to_x and x0 == y0):
        i1, j1 = 1, 0
    else:
        i1, j1 = 0, 1
    x1, y1 = add(sub(x0, i1), G2), add(sub(y0, j1), G2)
    x2, y2 = add(sub(x0, 1.0), G22), add(sub(y0, 1.0), G22)
    ii, jj = i & 255, j & 255
    n0 = corner2(x0, y0, ii, jj)
    n1 = corner2(x1, y1, ii + i1, jj + j1)
    n2 = corner2(x2, y2, ii + 1, jj + 1)
    return mul(add(add(n1, n0), n2), 40.0)


def corner3(cx, cy, cz, a, b, c):
    q = sub(sub(sub(f(0.6), mul(cx, cx)), mul(cy, cy)), mul(cz, cz))
    if not q >= 0:
        return 0.0
    q2 = mul(q, q)
    return mul(mul(q2, q2), grad3(PERM[a + PERM[b + PERM[c]]], cx, cy, cz))


def simplex_order(x0, y0, z0):
    if x0 >= y0:
        if y0 >= z0: return (1, 0, 0), (1, 1, 0), 'xyz'
        if x0 >= z0: return (1, 0, 0), (1, 0, 1), 'xzy'
        return (0, 0, 1), (1, 0, 1), 'zxy'
    if y0 < z0: return (0, 0, 1), (0, 1, 1), 'zyx'
    if x0 < z0: return (0, 1, 0), (0, 1, 1), 'yzx'
    return (0, 1, 0), (1, 1, 0), 'yxz'


def simplex3(x, y, z, want_branch=False):
    x, y, z = f(x), f(y), f(z)
    F3, G3, G32 = f(0.33333334), f(0.16666667), f(0.33333334)
    s = mul(add(add(x, y), z), F3)
    i, j, k = nfloor(add(x, s)), nfloor(add(y, s)), nfloor(add(z, s))
    t = mul(float(wrap32(i + j + k)), G3)
    x0 = sub(x, sub(float(i), t))
    y0 = sub(y, sub(float(j), t))
    z0 = sub(z, sub(float(k), t))
    (i1, j1, k1), (i2, j2, k2), branch = simplex_order(x0, y0, z0)
    x1, y1, z1 = add(sub(x0, i1), G3), add(sub(y0, j1), G3), add(sub(z0, k1), G3)
    x2, y2, z2 = add(sub(x0, i2), G32), add(sub(y0, j2), G32), add(sub(z0, k2), G32)
    x3, y3, z3 = sub(x0, 0.5), sub(y0, 0.5), sub(z0, 0.5)
    ii, jj, kk = i & 255, j & 255, k & 255
    n0 = corner3(x0, y0, z0, ii, jj, kk)
    n1 = corner3(x1, y1, z1, ii + i1, jj + j1, kk + k1)
    n2 = corner3(x2, y2, z2, ii + i2, jj + j2, kk + k2)
    n3 = corner3(x3, y3, z3, ii + 1, jj + 1, kk + 1)
    r = mul(add(add(add(n1, n0), n2), n3), 32.0)
    return (r, branch) if want_branch else r


# ---------------------------------------------------------------- classic noise
class Classic:
    B = 1024

    def __init__(self, seed):
        state = seed & 0xFFFFFFFF
        draws = 0

        def rnd():
            nonlocal state, draws
            state = (state * 214013 + 2531011) & 0xFFFFFFFF
            draws += 1
            return (state >> 16) & 0x7FFF

        def coord():
            return mul(float(rnd() % 2048 - 1024), 0.0009765625)

        def normalize(v):
            ss = 0.0
            for c in v:
                ss = add(ss, mul(c, c))
            if ss == 0.0:
                return v
            s = f(1.0 / f(math.sqrt(ss)))
            return [mul(c, s) for c in v]

        B = self.B
        self.p, self.g1, self.g2, self.g3 = [0] * (2 * B + 2), [0.0] * (2 * B + 2), [None] * (2 * B + 2), [None] * (2 * B + 2)
        for i in range(B):
            self.p[i] = i
            self.g1[i] = coord()
            self.g2[i] = normalize([coord(), coord()])
            self.g3[i] = normalize([coord(), coord(), coord()])
        for i in range(B - 1, 0, -1):
            k = self.p[i]
            j = rnd() % B
            self.p[i] = self.p[j]
            self.p[j] = k
        for i in range(B + 2):
            self.p[B + i] = self.p[i]
            self.g1[B + i] = self.g1[i]
            self.g2[B + i] = self.g2[i]
            self.g3[B + i] = self.g3[i]
        assert draws == 7167

    @staticmethod
    def setup(c):
        t = add(f(c), 4096.0)
        i = to_int32(t)
        b0 = i & 1023
        b1 = (b0 + 1) & 1023
        r0 = sub(t, float(i))
        return b0, b1, r0, sub(r0, 1.0)

    @staticmethod
    def scurve(t): return mul(mul(t, t), sub(3.0, mul(2.0, t)))

    @staticmethod
    def unit(r, to_unit): return mul(add(r, 1.0), 0.5) if to_unit else r

    def noise1(self, x, to_unit=False):
        b0, b1, r0, r1 = self.setup(x)
        u = mul(r0, self.g1[self.p[b0]])
        v = mul(r1, self.g1[self.p[b1]])
        return self.unit(lerp(self.scurve(r0), u, v), to_unit)

    def noise2(self, vec, to_unit=False):
        p, g = self.p, self.g2
        bx0, bx1, rx0, rx1 = self.setup(vec[0])
        by0, by1, ry0, ry1 = self.setup(vec[1])
        i, j = p[bx0], p[bx1]
        b00, b10, b01, b11 = p[i + by0], p[j + by0], p[i + by1], p[j + by1]
        sx, sy = self.scurve(rx0), self.scurve(ry0)
        at2 = lambda rx, ry, q: add(mul(rx, q[0]), mul(ry, q[1]))
        a = lerp(sx, at2(rx0, ry0, g[b00]), at2(rx1, ry0, g[b10]))
        b = lerp(sx, at2(rx0, ry1, g[b01]), at2(rx1, ry1, g[b11]))
        return self.unit(lerp(sy, a, b), to_unit)

    def noise3(self, vec, to_unit=False):
        p, g = self.p, self.g3
        bx0, bx1, rx0, rx1 = self.setup(vec[0])
        by0, by1, ry0, ry1 = self.setup(vec[1])
        bz0, bz1, rz0, rz1 = self.setup(vec[2])
        i, j = p[bx0], p[bx1]
        b00, b10, b01, b11 = p[i + by0], p[j + by0], p[i + by1], p[j + by1]
        sx, sy, sz = self.scurve(rx0), self.scurve(ry0), self.scurve(rz0)
        at3 = lambda rx, ry, rz, q: add(add(mul(rx, q[0]), mul(ry, q[1])), mul(rz, q[2]))
        a = lerp(sx, at3(rx0, ry0, rz0, g[b00 + bz0]), at3(rx1, ry0, rz0, g[b10 + bz0]))
        b = lerp(sx, at3(rx0, ry1, rz0, g[b01 + bz0]), at3(rx1, ry1, rz0, g[b11 + bz0]))
        c = lerp(sy, a, b)
        a = lerp(sx, at3(rx0, ry0, rz1, g[b00 + bz1]), at3(rx1, ry0, rz1, g[b10 + bz1]))
        b = lerp(sx, at3(rx0, ry1, rz1, g[b01 + bz1]), at3(rx1, ry1, rz1, g[b11 + bz1]))
        d = lerp(sy, a, b)
        return self.unit(lerp(sz, c, d), to_unit)

    def sum(self, noise, vec, octaves, frequency, amplitude, to_unit):
        vec = [mul(f(v), f(frequency)) for v in vec]
        if octaves < 1:
            return 0.0
        s, w = 0.0, f(amplitude)
        for _ in range(min(octaves, 64)):
            n = noise(vec if len(vec) > 1 else vec[0], to_unit)
            s = add(s, mul(n, w))
            vec = [mul(v, 2.0) for v in vec]
            w = mul(w, 0.5)
        return s

    def sum1(self, x, o, fr, a, u): return self.sum(self.noise1, [x], o, fr, a, u)
    def sum2(self, x, y, o, fr, a, u): return self.sum(self.noise2, [x, y], o, fr, a, u)
    def sum3(self, x, y, z, o, fr, a, u): return self.sum(self.noise3, [x, y, z], o, fr, a, u)


# ---------------------------------------------------------------- cellular tables
SRC = os.path.join(os.path.dirname(os.path.abspath(__file__)), '..', '..', 'src', 'noise')


def _read(name):
    with open(os.path.join(SRC, name)) as source:
        return source.read()


_VORONOI_TEXT = _read('voronoi_tables.cpp')
# The hash permutation is a macro (continued lines, no comma after the last value).
H = [int(v) for v in re.findall(r'\d+', _VORONOI_TEXT.split('#define GRAINSMITH_VORONOI_HASH', 1)[1])[:256]]
P = [[f(float(v)) for v in p] for p in re.findall(r'\{([0-9.]+)f, ([0-9.]+)f, ([0-9.]+)f\}',
                                                   _VORONOI_TEXT.split('kVoronoiPoints', 1)[1])]
POISSON = [int(v) for v in re.findall(r'\b(\d)\s*,', _read('worley_tables.cpp').split('=', 1)[1])]
assert sorted(H) == list(range(256)) and len(P) == 256 and len(POISSON) == 256

# ---------------------------------------------------------------- Voronoi (float32)
S2, S3 = 1.4142135623730951, 0.5773502691896258


def v_metric(dx, dy, dz, m):
    sq = f(f(f(dx * dx) + f(dy * dy)) + f(dz * dz))
    if m == 1:
        return sq
    if m == 2:
        s = f(f(abs(dx) + abs(dy)) + abs(dz))
        return f(s * s)
    if m == 3:
        s = max(abs(dx), abs(dy), abs(dz))
        return f(s * s)
    if m == 4:
        return f(f(f(sq + f(dx * dy)) + f(dz * dx)) + f(dz * dy))
    if m == 5:
        def p4(a): return f(f(f(a * a) * a) * a)
        return root4(f(f(p4(dx) + p4(dy)) + p4(dz)))
    if m == 6:
        s = f(f(f(math.sqrt(abs(dx))) + f(math.sqrt(abs(dy)))) + f(math.sqrt(abs(dz))))
        return f(s * s)
    return f(math.sqrt(sq))


def v_search(x, y, z, m, planar=False, floor=math.floor):
    F, pos = [FLT_MAX] * 4, [None] * 4
    xi, yi = floor(x), floor(y)
    zs = [0] if planar else range(floor(z) - 1, floor(z) + 2)
    if planar:
        z = 0.0
    for cx in range(xi - 1, xi + 2):
        for cy in range(yi - 1, yi + 2):
            for cz in zs:
                k = H[(H[(H[cz & 255] + cy) & 255] + cx) & 255]
                p = (f(cx + P[k][0]), f(cy + P[k][1]), f(cz + P[k][2]))
                d = v_metric(f(x - p[0]), f(y - p[1]), f(z - p[2]), m)
                for s in range(4):
                    if d < F[s]:
                        F.insert(s, d), F.pop(), pos.insert(s, p), pos.pop()
                        break
    return F, pos


def scaled(v): return f(v * S2 * S3)


def v_value(F, t):
    if t < 4:
        return scaled(F[t])
    if t == 4:
        return scaled(f(F[1] - F[0]))
    if t == 5:
        return scaled(f(F[2] - F[1]))
    v = f(20.0 * scaled(f(F[1] - F[0])))
    return scaled(v if v > 1 else 1.0)


# ---------------------------------------------------------------- Worley (double)
M32 = 0xFFFFFFFF
K, IK = 0.39815, 2.5116162250408136


def lcg(s): return (1402024253 * s + 586950981) & M32


def w_points(X, Y, Z):
    seed = (702395077 * X + 915488749 * Y + 2120969693 * Z) & M32  # wraps like uint32
    n, out = POISSON[seed >> 24], []
    if n < 1:
        return out
    seed = lcg(seed)
    for _ in range(n):
        pid = seed
        f3 = []
        for _ in range(3):
            seed = lcg(seed)
            f3.append((seed + 0.5) * 2.3283064365386963e-10)
        seed = lcg(seed)
        out.append((pid, X + f3[0], Y + f3[1], Z + f3[2]))
    return out


def w_cell(v): return int(v) - (1 if v < 0 else 0)


def w_stored(dx, dy, dz, m):
    sq = dx * dx + dy * dy + dz * dz
    if m == 1:
        return sq * sq
    if m == 2:
        ax, ay, az = abs(dx), abs(dy), abs(dz)
        mm, o1, o2 = (dx, dy, dz) if ax >= ay and ax >= az else (dy, dx, dz) if ay >= az else (dz, dx, dy)
        s = mm + math.sqrt(o1 * o1 + o2 * o2)
        return s * s
    if m == 3:
        return (abs(dx) + abs(dy) + abs(dz)) ** 2
    if m == 4:
        return max(abs(dx), abs(dy), abs(dz)) ** 2
    if m == 5:
        q = sq + dx * dy + dz * dx + dz * dy
        return q * q
    if m == 6:
        r = root4(f(((dx * dx) * dx) * dx + ((dy * dy) * dy) * dy + ((dz * dz) * dz) * dz))
        return r * r
    if m == 7:
        r = pow4(f(math.sqrt(abs(dx)) + math.sqrt(abs(dy)) + math.sqrt(abs(dz))))
        return r * r
    return sq


def w_search(at, order, m):
    a = [v * K for v in at]
    c = [w_cell(v) for v in a]
    F, ids = [999999.9] * order, [0] * order

    def insert(X, Y, Z):
        for pid, px, py, pz in w_points(X, Y, Z):
            v = w_stored(px - a[0], py - a[1], pz - a[2], m)
            if v >= F[-1]:
                continue
            i = order - 1
            while i > 0 and v < F[i - 1]:
                i -= 1
            F.insert(i, v), F.pop(), ids.insert(i, pid), ids.pop()

    insert(*c)
    fr = [a[i] - c[i] for i in range(3)]
    near = sorted((o for o in itertools.product((-1, 0, 1), repeat=3) if o != (0, 0, 0)),
                  key=lambda o: sum(map(abs, o)))
    for o in near:
        gap = sum(fr[i] ** 2 if o[i] < 0 else (1 - fr[i]) ** 2 if o[i] > 0 else 0.0 for i in range(3))
        if gap < F[-1]:
            insert(c[0] + o[0], c[1] + o[1], c[2] + o[2])
    return [math.sqrt(v) * IK for v in F], ids


def hit(target):
    """A double `at` with at * 0.39815 == target exactly, if one lies near."""
    g = target / K
    for i in range(-60, 61):
        c = g + i * math.ulp(g)
        if c * K == target:
            return c
    return None


# ---------------------------------------------------------------- printed values
def print_gradient_noises():
    def show(label, v):
        print(f'{label:48s} {hexf(v):28s} // {v!r}')

    print('--- improved')
    for x in (0.3, -0.7, 3.25, -1.5, 100.6):
        show(f'improved1({x})', improved1(x))
    for x, y in ((0.3, 0.7), (-1.25, 2.5), (12.34, -56.78)):
        show(f'improved2({x}, {y})', improved2(x, y))
    for x, y, z in ((0.3, 0.7, 0.1), (-1.25, 2.5, -3.75), (123.456, -78.9, 0.5)):
        show(f'improved3({x}, {y}, {z})', improved3(x, y, z))
        show(f'  raw3', raw3(x, y, z))
    # At an exact negative integer the cell is one lower, with fraction 1; the blend then
    # lands on the next cell's value only up to rounding, which a true floor would not do.
    for y in (0.1, 0.3):
        show(f'improved2(-1.0, {y})', improved2(-1.0, y))
        show(f'  with a true floor', true_floor(improved2, -1.0, y))
    show('improved3(0.3, -7.0, 0.7)', improved3(0.3, -7.0, 0.7))
    show('  with a true floor', true_floor(improved3, 0.3, -7.0, 0.7))
    show('fractal2(0.3, 0.7, 4, 1.5, 0.8)', fractal2(0.3, 0.7, 4, 1.5, 0.8))
    show('fractal3(0.3, 0.7, 0.1, 5, 2.0, 1.0)', fractal3(0.3, 0.7, 0.1, 5, 2.0, 1.0))
    show('fractal3(-1.1, 2.2, -3.3, 3, 0.75, 1.5)', fractal3(-1.1, 2.2, -3.3, 3, 0.75, 1.5))
    show('improvedPerlin sum (0.3,0.7,0.1) 5 2 1', octaves_sum(raw3, [0.3, 0.7, 0.1], 5, 2.0, 1.0))
    tiny = 2.0 ** -40
    show('fractal2 tiny 64', fractal2(0.3, 0.7, 64, tiny, 1.0))
    show('fractal3 tiny 64', fractal3(0.3, 0.7, 0.1, 64, tiny, 1.0))

    print('--- simplex')
    for x, y in ((0.3, 0.7), (-1.25, 2.5), (10.1, -20.2), (0.25, 0.25)):
        show(f'simplex2({x}, {y})', simplex2(x, y))
    show('simplex2(0.25,0.25) if ties went to x', simplex2(0.25, 0.25, tie_to_x=True))
    for pt in ((0.3, 0.7, 0.1), (0.7, 0.3, 0.1), (0.7, 0.1, 0.3), (0.1, 0.3, 0.7), (0.1, 0.7, 0.3),
               (0.3, 0.1, 0.7), (0.3, 0.7, 0.2), (-3.3, -1.7, 2.2), (25.5, -100.25, 7.125)):
        r, br = simplex3(*pt, want_branch=True)
        show(f'simplex3{pt} [{br}]', r)

    print('--- classic, seed 95')
    c = Classic(95)
    print('p[0..7]  ', c.p[:8])
    print('g1[0..3] ', [hexf(v) for v in c.g1[:4]])
    for b in range(4):
        x = b - 4096 + 0.5
        show(f'noise1({x})', c.noise1(x))
    for x in (0.3, -4096.75, -5000.25):
        show(f'noise1({x})', c.noise1(x))
    show('noise1(0.3, toUnit)', c.noise1(0.3, True))
    show('noise2(0.3, 0.7)', c.noise2([0.3, 0.7]))
    show('noise3(0.3, 0.7, 0.1)', c.noise3([0.3, 0.7, 0.1]))
    show('noise3(-1.2, 3.4, -5.6, toUnit)', c.noise3([-1.2, 3.4, -5.6], True))
    show('Get(0.3, 0.7, toUnit=false) [4, 4, 1]', c.sum2(0.3, 0.7, 4, 4.0, 1.0, False))
    show('Get(0.3, 0.7, toUnit=true) [4, 4, 1]', c.sum2(0.3, 0.7, 4, 4.0, 1.0, True))
    show('Get1(0.3, 3, 2.0, 0.5)', c.sum1(0.3, 3, 2.0, 0.5, False))
    show('Get1(0.3, 3, 2.0, 0.5) if toUnit were used', c.sum1(0.3, 3, 2.0, 0.5, True))
    show('Get2(0.3, 0.7, 3, 1.5, 2.0, false)', c.sum2(0.3, 0.7, 3, 1.5, 2.0, False))
    show('Get3(0.3, *, 0.1, 3, 1.5, 2.0, false)', c.sum3(0.3, 0.1, 0.0, 3, 1.5, 2.0, False))
    show('Get3 if y were used (0.3,0.7,0.1)', c.sum3(0.3, 0.7, 0.1, 3, 1.5, 2.0, False))
    show('Get3(0.3, *, 0.1, 2, 1.0, 1.0, true)', c.sum3(0.3, 0.1, 0.0, 2, 1.0, 1.0, True))
    show('Get1 tiny 64', c.sum1(0.3, 64, tiny, 1.0, False))
    c96 = Classic(96)
    show('seed 96 noise3(0.3, 0.7, 0.1)', c96.noise3([0.3, 0.7, 0.1]))


def print_cellular():
    p = (f(1 + P[124][0]), P[124][1], P[124][2])
    s = (f(p[0] + 0.25), f(p[1] - 0.125), f(p[2] + 0.0625))
    print('Voronoi, offset (0.25, -0.125, 0.0625) from the point of cube (1,0,0):')
    for m in range(7):
        print('  method', m, repr(v_search(*s, m)[0][0]))
    F, pos = v_search(*p, 0)
    print('Voronoi, Length on that point: F =', F, 'values by type', [repr(v_value(F, t)) for t in range(7)])
    mid = tuple(f(f(p[i] + pos[1][i]) * 0.5) for i in range(3))
    print('Voronoi, halfway to the second point:', [repr(v) for v in mid], 'tile', repr(v_value(v_search(*mid, 0)[0], 6)))
    print('Voronoi, (-3, 0.5, -2.5) squared:', [repr(v) for v in v_search(-3.0, 0.5, -2.5, 1)[0]],
          'with the cell floor:', [repr(v) for v in v_search(-3.0, 0.5, -2.5, 1, floor=w_cell)[0]])

    pid, px, py, pz = w_points(-2, -2, -2)[0]
    print('Worley, first point of cube (-2,-2,-2):', hex(pid), 'reached by', [repr(hit(v)) for v in (px, py, pz)])
    on = [hit(v) for v in (px, py, pz)]
    print('  search there:', w_search(on, 4, 0))
    off = [hit(v) for v in (px + 0.03125, py - 0.015625, pz - 0.0078125)]
    print('Worley, offset (-1/32, 1/64, 1/128) reached by', [repr(v) for v in off])
    for m in range(8):
        print('  method', m, w_search(off, 1, m))
    print('Worley, gap test with "Squared" at (-6.381, -4.11, -0.3):', w_search([-6.381, -4.11, -0.3], 1, 1),
          'Euclidean:', w_search([-6.381, -4.11, -0.3], 1, 0))
    print('Worley, exact cube coordinates -2, 3, -1 reached by', [repr(hit(v)) for v in (-2.0, 3.0, -1.0)])


if __name__ == '__main__':
    print_gradient_noises()
    print_cellular()
