#!/usr/bin/env python3
"""Independent float32 model of the noise-based kinds Perlin Noise, FBM, Turbulence, Simplex,
Simple Marble, Granite and Wood, used to derive the expected values in their tests.

Every single-precision operation is done in Python's double and rounded to float32 right away
(exact for +, -, *, / and sqrt of float32 operands); the steps the kinds take in double are
kept in double. Run it to print the values the tests compare against, as C++ hex literals.
"""
import math
import struct


def f32(v):
    return struct.unpack('<f', struct.pack('<f', v))[0]


def add(a, b): return f32(a + b)
def sub(a, b): return f32(a - b)
def mul(a, b): return f32(a * b)
def div(a, b): return f32(a / b)


# The reference permutation of improved gradient noise, twice in a row.
P = [151, 160, 137, 91, 90, 15, 131, 13, 201, 95, 96, 53, 194, 233, 7, 225, 140, 36, 103, 30, 69, 142,
     8, 99, 37, 240, 21, 10, 23, 190, 6, 148, 247, 120, 234, 75, 0, 26, 197, 62, 94, 252, 219, 203, 117,
     35, 11, 32, 57, 177, 33, 88, 237, 149, 56, 87, 174, 20, 125, 136, 171, 168, 68, 175, 74, 165, 71,
     134, 139, 48, 27, 166, 77, 146, 158, 231, 83, 111, 229, 122, 60, 211, 133, 230, 220, 105, 92, 41,
     55, 46, 245, 40, 244, 102, 143, 54, 65, 25, 63, 161, 1, 216, 80, 73, 209, 76, 132, 187, 208, 89,
     18, 169, 200, 196, 135, 130, 116, 188, 159, 86, 164, 100, 109, 198, 173, 186, 3, 64, 52, 217, 226,
     250, 124, 123, 5, 202, 38, 147, 118, 126, 255, 82, 85, 212, 207, 206, 59, 227, 47, 16, 58, 17, 182,
     189, 28, 42, 223, 183, 170, 213, 119, 248, 152, 2, 44, 154, 163, 70, 221, 153, 101, 155, 167, 43,
     172, 9, 129, 22, 39, 253, 19, 98, 108, 110, 79, 113, 224, 232, 178, 185, 112, 104, 218, 246, 97,
     228, 251, 34, 242, 193, 238, 210, 144, 12, 191, 179, 162, 241, 81, 51, 145, 235, 249, 14, 239, 107,
     49, 192, 214, 31, 181, 199, 106, 157, 184, 84, 204, 176, 115, 121, 50, 45, 127, 4, 150, 254, 138,
     236, 205, 93, 222, 114, 67, 29, 24, 72, 243, 141, 128, 195, 78, 66, 215, 61, 156, 180]
assert sorted(P) == list(range(256))
PERM = P + P


def lattice_floor(c):
    i = math.trunc(c)
    return i - 1 if c < 0 else i


def fade(t):
    return mul(add(mul(sub(mul(t, 6.0), 15.0), t), 10.0), mul(mul(t, t), t))


def lerp(t, a, b):
    return add(a, mul(t, sub(b, a)))


def grad1(h, x):
    h &= 15
    g = float(1 + (h & 7))
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


def noise1(x):
    i = lattice_floor(x)
    fx = sub(x, float(i))
    c0 = grad1(PERM[i & 255], fx)
    c1 = grad1(PERM[(i + 1) & 255], sub(fx, 1.0))
    return mul(f32(0.188), lerp(fade(fx), c0, c1))


def noise2(x, y):
    i, j = lattice_floor(x), lattice_floor(y)
    fx, fy = sub(x, float(i)), sub(y, float(j))
    X, Y = i & 255, j & 255
    A = PERM[X] + Y
    B = PERM[X + 1] + Y
    c00 = grad2(PERM[A], fx, fy)
    c10 = grad2(PERM[B], sub(fx, 1.0), fy)
    c01 = grad2(PERM[A + 1], fx, sub(fy, 1.0))
    c11 = grad2(PERM[B + 1], sub(fx, 1.0), sub(fy, 1.0))
    u, v = fade(fx), fade(fy)
    return mul(f32(0.507), lerp(v, lerp(u, c00, c10), lerp(u, c01, c11)))


def noise3(x, y, z):
    i, j, k = lattice_floor(x), lattice_floor(y), lattice_floor(z)
    fx, fy, fz = sub(x, float(i)), sub(y, float(j)), sub(z, float(k))
    X, Y, Z = i & 255, j & 255, k & 255
    u, v, w = fade(fx), fade(fy), fade(fz)
    A = PERM[X] + Y
    AA = PERM[A] + Z
    AB = PERM[A + 1] + Z
    B = PERM[X + 1] + Y
    BA = PERM[B] + Z
    BB = PERM[B + 1] + Z
    gx, gy, gz = sub(fx, 1.0), sub(fy, 1.0), sub(fz, 1.0)
    r = lerp(w,
             lerp(v, lerp(u, grad3(PERM[AA], fx, fy, fz), grad3(PERM[BA], gx, fy, fz)),
                  lerp(u, grad3(PERM[AB], fx, gy, fz), grad3(PERM[BB], gx, gy, fz))),
             lerp(v, lerp(u, grad3(PERM[AA + 1], fx, fy, gz), grad3(PERM[BA + 1], gx, fy, gz)),
                  lerp(u, grad3(PERM[AB + 1], fx, gy, gz), grad3(PERM[BB + 1], gx, gy, gz))))
    return mul(f32(0.936), r)


def fractal(coords, octaves, frequency, amplitude):
    if octaves < 1:
        return 0.0
    c = [mul(v, frequency) for v in coords]
    w, total = amplitude, 0.0
    for _ in range(octaves):
        n = noise2(*c) if len(c) == 2 else noise3(*c)
        total = add(total, mul(n, w))
        c = [mul(v, 2.0) for v in c]
        w = mul(w, 0.5)
    return total


def simplex2(x, y):
    G2 = f32(0.21132487)
    s = mul(add(x, y), f32(0.3660254))
    i, j = lattice_floor(add(x, s)), lattice_floor(add(y, s))
    t = mul(float(i + j), G2)
    x0 = sub(x, sub(float(i), t))
    y0 = sub(y, sub(float(j), t))
    i1, j1 = (1, 0) if x0 > y0 else (0, 1)
    x1, y1 = add(sub(x0, float(i1)), G2), add(sub(y0, float(j1)), G2)
    x2, y2 = add(sub(x0, 1.0), f32(0.42264974)), add(sub(y0, 1.0), f32(0.42264974))
    ii, jj = i & 255, j & 255

    def corner(cx, cy, a, b):
        q = sub(sub(0.5, mul(cx, cx)), mul(cy, cy))
        if not q >= 0:
            return 0.0
        q2 = mul(q, q)
        return mul(mul(q2, q2), grad2(PERM[a + PERM[b]], cx, cy))

    n0 = corner(x0, y0, ii, jj)
    n1 = corner(x1, y1, ii + i1, jj + j1)
    n2 = corner(x2, y2, ii + 1, jj + 1)
    return mul(add(add(n1, n0), n2), 40.0)


def simplex3(x, y, z):
    G3 = f32(0.16666667)
    s = mul(add(add(x, y), z), f32(0.33333334))
    i, j, k = lattice_floor(add(x, s)), lattice_floor(add(y, s)), lattice_floor(add(z, s))
    t = mul(float(i + j + k), G3)
    x0, y0, z0 = sub(x, sub(float(i), t)), sub(y, sub(float(j), t)), sub(z, sub(float(k), t))
    if x0 >= y0:
        if y0 >= z0:
            o1, o2 = (1, 0, 0), (1, 1, 0)
        elif x0 >= z0:
            o1, o2 = (1, 0, 0), (1, 0, 1)
        else:
            o1, o2 = (0, 0, 1), (1, 0, 1)
    else:
        if y0 < z0:
            o1, o2 = (0, 0, 1), (0, 1, 1)
        elif x0 < z0:
            o1, o2 = (0, 1, 0), (0, 1, 1)
        else:
            o1, o2 = (0, 1, 0), (1, 1, 0)
    c0 = (x0, y0, z0)
    c1 = tuple(add(sub(c, float(o)), G3) for c, o in zip(c0, o1))
    c2 = tuple(add(sub(c, float(o)), f32(0.33333334)) for c, o in zip(c0, o2))
    c3 = tuple(sub(c, 0.5) for c in c0)
    ii, jj, kk = i & 255, j & 255, k & 255

    def corner(c, a, b, d):
        q = sub(sub(sub(f32(0.6), mul(c[0], c[0])), mul(c[1], c[1])), mul(c[2], c[2]))
        if not q >= 0:
            return 0.0
        q2 = mul(q, q)
        return mul(mul(q2, q2), grad3(PERM[a + PERM[b + PERM[d]]], *c))

    n0 = corner(c0, ii, jj, kk)
    n1 = corner(c1, ii + o1[0], jj + o1[1], kk + o1[2])
    n2 = corner(c2, ii + o2[0], jj + o2[1], kk + o2[2])
    n3 = corner(c3, ii + 1, jj + 1, kk + 1)
    return mul(add(add(add(n1, n0), n2), n3), 32.0)


def clamp01(v):
    v = v if v >= 0 else 0.0
    return 1.0 if v > 1 else v


# ---- The kinds -----------------------------------------------------------------------------

def perlin(p, octaves=4, frequency=4.0, amplitude=1.0, planar=False):
    n = fractal(p[:2] if planar else p, octaves, frequency, amplitude)
    return clamp01(mul(add(n, 1.0), 0.5))


def octave_loop(p, scale, planar, octaves, lacunarity, gain, fold):
    q = [mul(v, scale) for v in (p[:2] if planar else p)]
    total, w = 0.0, 1.0
    for _ in range(max(0, min(octaves, 64))):
        n = noise2(*q) if planar else noise3(*q)
        q = [mul(v, lacunarity) for v in q]
        total = add(total, mul(fold(n), w))
        w = mul(w, gain)
    return total


def fbm(p, octaves=4, lacunarity=2.0, gain=0.5, scale=4.0, planar=False):
    s = octave_loop(p, scale, planar, octaves, lacunarity, gain, lambda n: n)
    return clamp01(mul(add(s, 1.0), 0.5))


def turbulence(p, octaves=4, lacunarity=2.0, gain=0.5, scale=4.0, planar=False):
    return clamp01(octave_loop(p, scale, planar, octaves, lacunarity, gain, abs))


def simplex(p, scale=4.0, planar=False):
    q = [mul(v, scale) for v in p]
    n = simplex2(q[0], q[1]) if planar else simplex3(*q)
    return clamp01(mul(add(n, 1.0), 0.5))


KNOTS = [f32(v) for v in (0.7349143, 0.7349143, 0.32697144, 0.32697144, 0.32697144, 0.7349143, 0.7349143,
                          0.18617715, 0.18617715, 0.12078286, 0.12078286, 0.7349143, 0.12078286)] + [0.0]


def marble_sum(p, octaves=4, texture_scale=2.5, planar=False):
    q = [mul(v, texture_scale) for v in p]
    total, f = 0.0, 1.0
    for _ in range(max(0, octaves)):
        n = noise2(mul(q[0], f), mul(q[1], f)) if planar else noise3(*(mul(v, f) for v in q))
        total = add(total, div(n, f))
        f = f32(f * 2.17)
    return total


def marble_spline(total):
    t = add(mul(total, 2.0), 0.75)
    t = min(max(t, 0.0), 1.0)
    t = mul(t, 10.0)
    i = int(t)
    u = sub(t, float(i))
    k0, k1, k2, k3 = KNOTS[i:i + 4]
    c3 = add(sub(add(mul(-0.5, k0), mul(1.5, k1)), mul(1.5, k2)), mul(0.5, k3))
    c2 = sub(add(sub(k0, mul(2.5, k1)), mul(2.0, k2)), mul(0.5, k3))
    c1 = sub(mul(0.5, k2), mul(0.5, k0))
    return add(mul(add(mul(add(mul(c3, u), c2), u), c1), u), k1)


def marble(p, octaves=4, texture_scale=2.5, planar=False):
    return clamp01(marble_spline(marble_sum(p, octaves, texture_scale, planar)))


def granite(p, octaves=6, frequency=1.0, planar=False):
    total, f = 0.0, frequency
    for _ in range(max(0, octaves)):
        a = [mul(mul(4.0, v), f) for v in p]
        n = noise2(a[0], a[1]) if planar else noise3(*a)
        total = f32(abs(0.5 - n) / f + total)
        f = mul(f, 2.0)
    return clamp01(total)


def smooth(u):
    return mul(sub(3.0, mul(2.0, u)), mul(u, u))


def wood_ring(p, ring_scale=6.0, octaves=1, frequency=1.0, amplitude=0.1):
    x, z = p[0], p[2]
    if frequency > 0:
        n = mul(add(fractal(p, octaves, frequency, amplitude), 1.0), 0.5)
        x, z = add(x, n), add(z, n)
    r = mul(f32(math.sqrt(add(mul(z, z), mul(x, x)))), ring_scale)
    r = add(r, abs(mul(add(noise1(r), 1.0), 0.5)))
    return sub(r, float(lattice_floor(r)))


def wood(p, ring_scale=6.0, octaves=1, frequency=1.0, amplitude=0.1, dark=0.1, light=0.5):
    dark, light = f32(dark), f32(light)
    r = wood_ring(p, ring_scale, octaves, frequency, f32(amplitude))
    if not r >= 0:
        a = 0.0
    elif r < f32(0.8):
        a = smooth(mul(r, 1.25))
    else:
        a = 1.0
    if r < f32(0.83):
        b = 0.0
    elif r < 1.0:
        b = smooth(mul(sub(r, f32(0.83)), f32(5.8823524)))
    else:
        b = 1.0
    d = sub(a, b)
    return add(mul(sub(1.0, d), light), mul(d, dark))


# ---- Values used by the tests --------------------------------------------------------------

def hexf(v):
    if v == 0:
        return '0.0f'
    m, e = v.hex().split('p')
    m = m.rstrip('0').rstrip('.')
    return f'{m}p{e}f'


def show(label, v):
    print(f'{label:58s} {hexf(v):>18s}  // {v!r}')


def P3(*v):
    return [f32(c) for c in v]


if __name__ == '__main__':
    a = P3(0.3, 0.7, 0.2)
    b = P3(1.37, 0.51, 2.86)
    c = P3(0.45, 0.15, 0.8)
    d = P3(0.62, 0.41, 0.27)
    print('# Perlin Noise')
    show('default at a', perlin(a))
    show('planar default at a', perlin(a, planar=True))
    show('octaves 2, frequency 1.5, amplitude 0.8 at b', perlin(b, 2, 1.5, f32(0.8)))
    show('raw octave sum, amplitude 40, at a (clamps)', fractal(a, 4, 4.0, 40.0))
    print('# FBM')
    show('default at a', fbm(a))
    show('5 octaves, lacunarity 1.9, gain 0.6, scale 1.3 at b', fbm(b, 5, f32(1.9), f32(0.6), f32(1.3)))
    show('planar default at a', fbm(a, planar=True))
    show('63 octaves, lacunarity 1.1, gain 0.95 at a', fbm(a, 63, f32(1.1), f32(0.95)))
    show('64 octaves, lacunarity 1.1, gain 0.95 at a', fbm(a, 64, f32(1.1), f32(0.95)))
    print('# Turbulence')
    show('default at a', turbulence(a))
    show('5 octaves, lacunarity 1.9, gain 0.6, scale 1.3 at b', turbulence(b, 5, f32(1.9), f32(0.6), f32(1.3)))
    show('planar default at a', turbulence(a, planar=True))
    show('raw sum, gain 10, at a (clamps)', octave_loop(a, 4.0, False, 4, 2.0, 10.0, abs))
    print('# Simplex')
    show('default at a', simplex(a))
    show('scale 1.3 at b', simplex(b, f32(1.3)))
    show('planar default at a', simplex(a, planar=True))
    print('# Simple Marble')
    show('octaves 0 (sum 0)', marble(a, 0))
    show('sum at a (below the spline range)', marble_sum(a))
    show('sum at (0.9, 0.35, 1.75) (above the spline range)', marble_sum(P3(0.9, 0.35, 1.75)))
    show('default at c', marble(c))
    show('default at d', marble(d))
    show('3 octaves, texture scale 1.7 at d', marble(d, 3, f32(1.7)))
    show('planar default at a', marble(a, planar=True))
    print('# Granite')
    show('default at the origin', granite(P3(0, 0, 0)))
    show('default at a', granite(a))
    show('3 octaves, frequency 0.7 at b (clamps)', granite(b, 3, f32(0.7)))
    show('3 octaves, frequency 2 at b', granite(b, 3, 2.0))
    show('planar default at a', granite(a, planar=True))
    print('# Wood')
    show('frequency 0 at the origin', wood(P3(0, 0, 0), frequency=0.0))
    show('frequency 0 at (1/64, 0, 0) (rising edge)', wood(P3(1 / 64, 0, 0), frequency=0.0))
    show('  its ring fraction', wood_ring(P3(1 / 64, 0, 0), frequency=0.0))
    show('frequency 0 at (0.0325927734375, 0, 0) (just past 0.83)', wood(P3(0.0325927734375, 0, 0), frequency=0.0))
    show('  its ring fraction', wood_ring(P3(0.0325927734375, 0, 0), frequency=0.0))
    show('frequency 0 at (1/32, 0, 0) (dark band)', wood(P3(1 / 32, 0, 0), frequency=0.0))
    show('  its ring fraction', wood_ring(P3(1 / 32, 0, 0), frequency=0.0))
    show('frequency 0 at (5/128, 0, 0) (falling edge)', wood(P3(5 / 128, 0, 0), frequency=0.0))
    show('  its ring fraction', wood_ring(P3(5 / 128, 0, 0), frequency=0.0))
    show('default at a', wood(a))
    show('default at b', wood(b))
    show('ring 4.5, 3 octaves, freq 2, amp 0.3, dark 0.2, light 0.9 at b',
         wood(b, f32(4.5), 3, 2.0, f32(0.3), f32(0.2), f32(0.9)))
    show('frequency 0, dark -1, light 2 at the origin', wood(P3(0, 0, 0), frequency=0.0, dark=-1.0, light=2.0))
