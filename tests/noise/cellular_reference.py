#!/usr/bin/env python3
"""Independent models of the two cellular noises, used to work out the expected values in
voronoi_test.cpp and worley_test.cpp.

Voronoi runs in float32: every step is done in double and rounded to float32, which is the
correctly rounded single-precision result for +, -, * and sqrt (powf may differ in the last
place, so the tests compare that metric with a tolerance). Worley runs in double, which is
Python's own float. The constant tables are read from the library's table sources.

Run it to print the values the tests compare against."""
import itertools
import math
import os
import re
import struct

SRC = os.path.join(os.path.dirname(os.path.abspath(__file__)), '..', '..', 'src', 'noise')


def table(name, pattern):
    text = open(os.path.join(SRC, name)).read()
    return [m for m in re.findall(pattern, text.split('=', 1)[1])]


H = [int(v) for v in table('voronoi_tables.cpp', r'\b(\d+)\s*,')[:256]]
P_TEXT = open(os.path.join(SRC, 'voronoi_tables.cpp')).read().split('kVoronoiPoints', 1)[1]
POISSON = [int(v) for v in table('worley_tables.cpp', r'\b(\d)\s*,')]


def f(x):
    """Round a Python float to the nearest float32."""
    if math.isnan(x) or math.isinf(x):
        return x
    try:
        return struct.unpack('<f', struct.pack('<f', x))[0]
    except OverflowError:
        return math.copysign(math.inf, x)


P = [[f(float(v)) for v in p] for p in re.findall(r'\{([0-9.]+)f, ([0-9.]+)f, ([0-9.]+)f\}', P_TEXT)]
assert sorted(H) == list(range(256)) and len(P) == 256 and len(POISSON) == 256

# ---------------------------------------------------------------- Voronoi (float32)
FMAX = f(3.4028235e38)
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
        return f(math.pow(f(f(p4(dx) + p4(dy)) + p4(dz)), 0.25))
    if m == 6:
        s = f(f(f(math.sqrt(abs(dx))) + f(math.sqrt(abs(dy)))) + f(math.sqrt(abs(dz))))
        return f(s * s)
    return f(math.sqrt(sq))


def v_search(x, y, z, m, planar=False, floor=math.floor):
    F, pos = [FMAX] * 4, [None] * 4
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


def cell(v): return int(v) - (1 if v < 0 else 0)


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
        r = f(math.pow(f(((dx * dx) * dx) * dx + ((dy * dy) * dy) * dy + ((dz * dz) * dz) * dz), 0.25))
        return r * r
    if m == 7:
        r = f(math.pow(f(math.sqrt(abs(dx)) + math.sqrt(abs(dy)) + math.sqrt(abs(dz))), 4.0))
        return r * r
    return sq


def w_search(at, order, m):
    a = [v * K for v in at]
    c = [cell(v) for v in a]
    F, ids = [999999.9] * order, [0] * order

    def add(X, Y, Z):
        for pid, px, py, pz in w_points(X, Y, Z):
            v = w_stored(px - a[0], py - a[1], pz - a[2], m)
            if v >= F[-1]:
                continue
            i = order - 1
            while i > 0 and v < F[i - 1]:
                i -= 1
            F.insert(i, v), F.pop(), ids.insert(i, pid), ids.pop()

    add(*c)
    fr = [a[i] - c[i] for i in range(3)]
    near = sorted((o for o in itertools.product((-1, 0, 1), repeat=3) if o != (0, 0, 0)),
                  key=lambda o: sum(map(abs, o)))
    for o in near:
        gap = sum(fr[i] ** 2 if o[i] < 0 else (1 - fr[i]) ** 2 if o[i] > 0 else 0.0 for i in range(3))
        if gap < F[-1]:
            add(c[0] + o[0], c[1] + o[1], c[2] + o[2])
    return [math.sqrt(v) * IK for v in F], ids


def hit(target):
    """A double `at` with at * 0.39815 == target exactly, if one lies near."""
    g = target / K
    for i in range(-60, 61):
        c = g + i * math.ulp(g)
        if c * K == target:
            return c
    return None


if __name__ == '__main__':
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
          'with the cell floor:', [repr(v) for v in v_search(-3.0, 0.5, -2.5, 1, floor=cell)[0]])

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
