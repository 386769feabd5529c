#!/usr/bin/env python3
"""Independent float32 model of the gradient noises, used to work out the expected values
in the noise tests. Every arithmetic step is done in double and rounded to float32, which
gives the correctly rounded single-precision result for +, -, *, / and sqrt.

Run it to print the values the tests compare against (as C hex-float literals)."""
import math
import struct

INT32_MIN = -(2 ** 31)


def f(x):
    """Round a Python float to the nearest float32."""
    if math.isnan(x) or math.isinf(x):
        return x
    try:
        return struct.unpack('<f', struct.pack('<f', x))[0]
    except OverflowError:
        return math.copysign(math.inf, x)


def add(a, b): return f(a + b)
def sub(a, b): return f(a - b)
def mul(a, b): return f(a * b)


def to_int32(v):
    if not (-2147483904.0 < v < 2147483648.0):
        return INT32_MIN
    return int(v)  # truncation toward zero


def wrap32(n):
    n &= 0xFFFFFFFF
    return n - 2 ** 32 if n >= 2 ** 31 else n


def hexf(v):
    if v == 0:
        return '0.0f' if math.copysign(1, v) > 0 else '-0.0f'
    m, e = v.hex().split('p')
    return m.rstrip('0').rstrip('.') + 'p' + e + 'f'


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


# ---------------------------------------------------------------- improved noise
def nfloor(c):
    i = to_int32(c)
    if not (c >= 0):
        i = wrap32(i - 1)
    return i


def frac(c, i): return sub(c, float(i))
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


if __name__ == '__main__':
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
