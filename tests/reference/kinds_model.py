#!/usr/bin/env python3
"""Independent float32 model of the noise-based texture kinds, used to derive the expected
values of their tests: Perlin Noise, FBM, Turbulence, Simplex, Simple Marble, Granite, Wood,
Camouflage, Cheetah, Psychedelic and Voronoi Tiles, and the pattern kinds Spheres, Nested
Shapes, Plaid, Weave and Penrose Rhombus. The noise primitives come from noise_model.py.

Every single-precision operation is done in Python's double and rounded to float32 right away;
the steps the kinds take in double are kept in double. Run it to print the values the tests
compare against, as C++ hex literals."""
import math

from noise_model import (FLT_MAX, add, cell_floor, div, fractal2, fractal3, hexf, lattice_floor, mul,
                         sub)
from noise_model import f as f32
from noise_model import improved1 as noise1
from noise_model import improved2 as noise2
from noise_model import improved3 as noise3
from noise_model import simplex2, simplex3


def clamp01(v):
    v = v if v >= 0 else 0.0
    return 1.0 if v > 1 else v


def fractal(coords, octaves, frequency, amplitude):
    return fractal2(*coords, octaves, frequency, amplitude) if len(coords) == 2 else \
        fractal3(*coords, octaves, frequency, amplitude)


def cell_random2(x, y):
    n = (cell_floor(x) + cell_floor(y) * 1301) & 0xffffffff
    return hash_unit(n)


def hash_unit(n):
    n &= 0xffffffff
    n ^= (n << 13) & 0xffffffff
    v = ((n * n * 15731 + 789221) * n + 1376312589) & 0xffffffff
    return mul(float(v), f32(2.3283064e-10))


# The hash of the noise cells with the lattice floor (minus one for NaN as well).
def R2(a, b): return hash_unit(lattice_floor(b) * 1301 + lattice_floor(a))
def R3(a, b, c): return hash_unit(lattice_floor(b) * 1301 + lattice_floor(c) * 314159 + lattice_floor(a))


# ---- Perlin Noise, FBM, Turbulence, Simplex ------------------------------------------------

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


# ---- Simple Marble, Granite, Wood ----------------------------------------------------------

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


# ---- Camouflage, Cheetah, Psychedelic, Voronoi Tiles ---------------------------------------
# Parameters default to the kinds' defaults.

def camouflage(p, F=0.6, thr=0.2, base=1.0, l1=0.8, l2=0.3, planar=False):
    F, thr, base, l1, l2 = map(f32, (F, thr, base, l1, l2))
    x, y, z = map(f32, p)
    if planar:
        a = add(mul(noise2(x, y), F), x); b = add(mul(noise2(add(x, 1.0), y), F), y); c = 0.0
    else:
        a = add(mul(noise3(x, y, z), F), x); b = add(mul(noise3(add(x, 1.0), y, z), F), y)
        c = add(mul(noise3(x, add(y, 1.0), add(z, 2.0)), F), z)
    n1 = abs(noise3(mul(a, 3.0), mul(b, 3.0), mul(c, 3.0)))
    col1 = l1 if n1 > thr else base
    sx, sy, sz = add(x, 0.5), add(y, 0.5), add(z, 0.5)
    a2 = add(mul(noise3(sy, sx, sz), F), y)
    if planar:
        b2 = add(mul(noise3(sy, add(sx, 1.0), sz), F), x); c2 = 0.0
    else:
        b2 = add(mul(noise3(sy, add(sx, 1.0), sz), F), z)
        c2 = add(mul(noise3(add(sy, 1.0), sx, add(sz, 2.0)), F), x)
    n2 = abs(noise3(a2, b2, c2))
    col2 = l2 if n2 > thr else base
    return (col1 if col1 != base else col2), n1, n2


def psychedelic(p, F=1.0, mn=0.0, mx=1.0, planar=False):
    F, mn, mx = map(f32, (F, mn, mx))
    x, y, z = map(f32, p)
    if planar:
        a = add(mul(noise2(x, y), F), x); n2 = noise2(add(x, 1.0), y)
    else:
        a = add(mul(noise3(x, y, z), F), x); n2 = noise3(add(x, 1.0), y, z)
    b = add(mul(n2, F), y)
    h = cell_random2(mul(F, a), mul(F, b))
    v = add(mn, mul(sub(mx, mn), h))
    if v >= 1: v = 1.0
    if not v > 0: v = 0.0
    return v


def cheetah(p, size=0.4, L=0.6, var=0.5, planar=False):
    size, L, var = map(f32, (size, L, var))
    x, y, z = map(f32, p)
    best = FLT_MAX
    if planar:
        n = fractal2(x, y, 2, 2.0, var)
        ci = f32(cell_floor(x) + 0.5); cj = f32(cell_floor(y) + 0.5)
        for di in (-1, 0, 1):
            for dj in (-1, 0, 1):
                cx = add(di, ci); cy = add(dj, cj)
                h1 = cell_random2(cx, cy); h2 = cell_random2(add(cx, 23.0), sub(cy, 87.0))
                sx = add(mul(sub(h1, 0.5), L), cx); sy = add(mul(sub(h2, 0.5), L), cy)
                dx = sub(sx, x); dy = sub(sy, y)
                d = f32(math.sqrt(add(mul(dx, dx), mul(dy, dy))))
                best = min(best, d)
    else:
        n = fractal3(x, y, z, 2, 2.0, var)
        ci = f32(cell_floor(x) + 0.5); cj = f32(cell_floor(y) + 0.5); ck = f32(cell_floor(z) + 0.5)
        for di in (-1, 0, 1):
            for dj in (-1, 0, 1):
                for dk in (-1, 0, 1):
                    cx = add(di, ci); cy = add(dj, cj); cz = add(dk, ck)
                    h1 = cell_random2(cx, cz); h2 = cell_random2(cy, cx)
                    sx = add(mul(sub(h1, 0.5), L), cx); sy = add(mul(sub(h2, 0.5), L), cy)
                    sz = add(mul(sub(h2, 0.5), L), cz)
                    dx = sub(sx, x); dy = sub(sy, y); dz = sub(sz, z)
                    d = f32(math.sqrt(add(add(mul(dx, dx), mul(dy, dy)), mul(dz, dz))))
                    best = min(best, d)
    r = mul(add(n, 1.0), size)
    return (1.0 if best >= r else 0.0), best, r


VT_DEFAULTS = dict(j=0.5, rnd=False, mn=0.5, mx=1.0, cnoise=False, coct=2, clac=2.0, cgain=0.5, cdet=2.0,
                   thick=0.05, bnoise=False, boct=4, blac=2.0, bgain=0.5, bdet=2.0)


def vtiles(p, planar=False, **kw):
    o = dict(VT_DEFAULTS); o.update(kw)
    for k in ('j', 'mn', 'mx', 'clac', 'cgain', 'cdet', 'thick', 'blac', 'bgain', 'bdet'):
        o[k] = f32(o[k])
    x, y, z = map(f32, p)
    if planar: z = 0.0

    def B(t):
        w, s = 1.0, 0.0
        for _ in range(min(o['boct'], 64)):
            s = add(s, mul(noise1(t), w)); t = mul(t, o['blac']); w = mul(w, o['bgain'])
        return s
    if o['bnoise']:
        x = f32(x + 0.15 * B(mul(x, o['bdet'])))
        y = f32(y + 0.15 * B(mul(y, o['bdet'])))
        if not planar: z = f32(z + 0.15 * B(mul(z, o['bdet'])))
    F1 = F2 = FLT_MAX; c1 = c2 = (0.0, 0.0, 0.0)
    j = o['j']
    cands = []
    if planar:
        cx = add(float(lattice_floor(x)), 0.5); cy = add(float(lattice_floor(y)), 0.5)
        for dx in (-1, 0, 1):
            for dy in (-1, 0, 1):
                X = add(cx, dx); Y = add(cy, dy)
                px = add(X, mul(sub(R3(X, Y, 0.0), 0.5), j))
                py = add(Y, mul(sub(R3(add(X, 23.0), sub(Y, 87.0), 0.0), 0.5), j))
                ey = sub(py, y); ex = sub(px, x)
                cands.append((add(mul(ey, ey), mul(ex, ex)), (px, py, 0.0)))
    else:
        cx = add(float(lattice_floor(x)), 0.5); cy = add(float(lattice_floor(y)), 0.5)
        cz = add(float(lattice_floor(z)), 0.5)
        for dx in (-1, 0, 1):
            for dy in (-1, 0, 1):
                for dz in (-1, 0, 1):
                    X = add(cx, dx); Y = add(cy, dy); Z = add(cz, dz)
                    r1 = R3(X, Y, Z); r2 = R3(Y, Z, X)
                    px = add(X, mul(sub(r1, 0.5), j)); py = add(Y, mul(sub(r2, 0.5), j)); pz = add(Z, mul(sub(r2, 0.5), j))
                    ez = sub(pz, z); ey = sub(py, y); ex = sub(px, x)
                    cands.append((add(add(mul(ez, ez), mul(ey, ey)), mul(ex, ex)), (px, py, pz)))
    for d, c in cands:
        if d < F1: F2, c2 = F1, c1; F1, c1 = d, c
        elif d < F2: F2, c2 = d, c
    F1 = f32(math.sqrt(F1)); F2 = f32(math.sqrt(F2))

    def length(v):
        s = 0.0
        for comp in v: s = add(s, mul(comp, comp))
        return f32(math.sqrt(s))
    n = 2 if planar else 3
    P_ = (x, y, z)
    between = length([sub(c2[i], c1[i]) for i in range(n)])
    toF = length([sub(P_[i], c1[i]) for i in range(n)])
    toS = length([sub(c2[i], P_[i]) for i in range(n)])
    ratio = mul(f32(between / add(toF, toS)), o['thick'])
    if not sub(F2, F1) >= ratio: return 0.0, F1, F2, ratio, c1
    v = 1.0
    if o['rnd']:
        r = R2(c1[0], c1[1]) if planar else R3(*c1)
        v = add(o['mn'], mul(sub(o['mx'], o['mn']), r))
    if o['cnoise']:
        w, s = 1.0, 0.0
        if planar: q = [mul(o['cdet'], x), mul(o['cdet'], y)]
        else: q = [x, y, z]
        for _ in range(min(o['coct'], 64)):
            nn = noise2(*q) if planar else noise3(*q)
            q = [mul(c, o['clac']) for c in q]
            s = add(s, mul(nn, w)); w = mul(w, o['cgain'])
        v = f32(0.15 * s + v)
    if v > 1: v = 1.0
    if not v >= 0: v = 0.0
    return v, F1, F2, ratio, c1


# ---- Values used by the tests --------------------------------------------------------------

def show(label, v):
    print(f'{label:58s} {hexf(v):>18s}  // {v!r}')


def P3(*v):
    return [f32(c) for c in v]


def print_noise_kinds():
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


def print_natural_kinds():
    print('Camouflage: (point) -> value at defaults')
    for planar in (False, True):
        for p in [(-3.95, -1.17, -1.21), (-3.04, -1.4, -3.98), (3.16, 0.77, -3.92), (1.0, -3.47, -1.8),
                  (2.13, 0.26, -2.84)]:
            print('  planar' if planar else '  space', p, camouflage(p, planar=planar)[0])
    print('Camouflage: layer noise magnitudes')
    for planar in (False, True):
        for p in [(0.3, 0.7, 1.1), (-2.45, 1.5, 0.85), (5.2, -3.3, -7.9)]:
            _, n1, n2 = camouflage(p, planar=planar)
            print('  planar' if planar else '  space', p, hexf(n1), hexf(n2))
    print('Cheetah: nearest spot distance at integer points (defaults)')
    for planar in (False, True):
        for p in [(0, 0, 0), (3, -2, 5), (-1, -1, -1), (7, 1, -4)]:
            print('  planar' if planar else '  space', p, hexf(cheetah(p, planar=planar)[1]))
    print('Cheetah: values at defaults')
    for planar in (False, True):
        for p in [(-1.41, 2.58, 3.88), (1.28, 3.33, -3.13), (-4.84, -2.95, 0.63), (-2.94, 3.07, 4.57)]:
            print('  planar' if planar else '  space', p, cheetah(p, planar=planar)[0])
    print('Psychedelic')
    for planar in (False, True):
        for p in [(0, 0, 5), (3, -2, 1), (-1, -1, 0), (-0.48, 0.6, 4.24), (-3.1, -2.58, -4.7)]:
            print('  planar' if planar else '  space', p, hexf(psychedelic(p, planar=planar)))
    print('  F 2.5, colours 0.2..0.7', hexf(psychedelic((1.54, 1.16, -3.43), F=2.5, mn=0.2, mx=0.7)),
          hexf(psychedelic((-2.11, -4.3, 2.66), F=2.5, mn=0.2, mx=0.7, planar=True)))
    print('Voronoi Tiles with every option on')
    full = dict(rnd=True, mn=0.2, mx=0.9, cnoise=True, bnoise=True, coct=3, clac=2.1, cgain=0.45, cdet=1.5,
                thick=0.08, boct=3, blac=1.9, bgain=0.6, bdet=2.5, j=0.7)
    for planar in (False, True):
        for p in [(4.82, 3.72, -2.11), (-2.95, 4.41, 1.91), (0.45, -1.88, -1.83), (3.26, -0.44, -0.78)]:
            print('  planar' if planar else '  space', p, hexf(vtiles(p, planar=planar, **full)[0]))


# ---- Spheres, Nested Shapes, Plaid, Weave, Penrose Rhombus --------------------------------

def cell_random1(x):
    i = cell_floor(x) & 0xffffffff
    n = i ^ ((i << 13) & 0xffffffff)
    v = (n * ((n * n * 15731 + 789221) & 0xffffffff) + 1376312589) & 0xffffffff
    return f32((v & 0x7fffffff) * 4.656612875245797e-10)


def on_shell(p, c, r, hollow):
    d = [sub(a, b) for a, b in zip(p, c)]
    d2 = add(add(mul(d[0], d[0]), mul(d[1], d[1])), mul(d[2], d[2]))
    r2 = mul(r, r)
    return mul(mul(hollow, hollow), r2) <= d2 <= r2


def spheres(p, size=0.25, staggered=False, hollow=0.0, planar=False):
    x, y, z = P3(*p)
    if planar:
        z = -0.5
    i, j, k = cell_floor(x), cell_floor(y), cell_floor(z)
    c = [add(float(n), 0.5) for n in (i, j, k)]
    size, hollow = f32(size), f32(hollow)
    if not staggered:
        return 0.0 if on_shell((x, y, z), c, size, hollow) else 1.0
    r = mul(f32(math.sqrt(2.0)), size)
    ei, ej, ek = (math.fmod(n, 2) == 0 for n in (i, j, k))
    if (ek != ej) != ei:
        return 0.0 if on_shell((x, y, z), c, r, hollow) else 1.0
    for axis, n in enumerate((i, j, k)):
        for off in (-0.5, 1.5):
            cc = list(c)
            cc[axis] = add(float(n), off)
            if on_shell((x, y, z), cc, r, hollow):
                return 0.0
    return 1.0


def nested(p, shape=0, thickness=0.25):
    x, y, z = P3(*p)
    if shape == 0:
        r = f32(math.sqrt(add(mul(x, x), mul(y, y))))
    elif shape == 1:
        r = f32(math.sqrt(add(add(mul(x, x), mul(y, y)), mul(z, z))))
    elif shape == 2:
        m = max(abs(x), abs(y))
        r = mul(f32(math.sqrt(mul(mul(m, 2.0), m))), f32(1.0 / f32(math.sqrt(2.0))))
    elif shape == 3:
        m = max(abs(x), abs(y), abs(z))
        r = mul(f32(math.sqrt(mul(mul(m, 3.0), m))), f32(1.0 / f32(math.sqrt(3.0))))
    else:
        return 1.0
    i = cell_floor(r)
    t = mul(f32(thickness), 0.5)
    a, b = sub(r, float(i)), sub(float(i + 1), r)
    return 1.0 if mul(a, a) > mul(t, t) and mul(b, b) > mul(t, t) else 0.0


def plaid_band(a, period):
    period = float(period)
    m = f32(math.fmod(a, period)) if period != 0 else math.nan
    if a < 0:
        m = add(m, period)
    return div(add(mul(noise1(m), sub(period, m)), mul(noise1(sub(m, period)), m)), period)


def plaid(p, hf=2.0, vf=2.0, hp=3, vp=5, bg=0.0, bg2=0.0, bg3=None, c1=None, c2=None, c3=None, c4=0.0):
    from struct import pack, unpack
    def fb(b): return unpack('<f', pack('<I', b))[0]
    bg3 = fb(0x3E24C272) if bg3 is None else f32(bg3)
    c1 = fb(0x3E6FF10F) if c1 is None else f32(c1)
    c2 = fb(0x3E24C272) if c2 is None else f32(c2)
    c3 = fb(0x3E979B78) if c3 is None else f32(c3)
    x, y, _ = P3(*p)
    A = plaid_band(mul(f32(vf), y), vp)
    t1 = add(mul(sub(1.0, A), c1), mul(A, f32(bg)))
    B = plaid_band(mul(f32(hf), x), hp)
    t2 = add(mul(sub(1.0, B), c2), mul(B, f32(bg)))
    C = cell_random1(mul(x, 5.0))
    t3 = add(mul(sub(1.0, C), c3), mul(C, f32(bg2)))
    D = cell_random1(mul(y, 5.0))
    t4 = add(mul(sub(1.0, D), f32(c4)), mul(D, bg3))
    s = add(add(add(t2, t1), t3), t4)
    s = 1.0 if s >= 1 else s
    return s if s > 0 else 0.0


def weave_fraction(c):
    fr = abs(math.fmod(c, 1.0))
    return fr if c >= 0 else sub(1.0, fr)


def weave_band(fr, w):
    h = mul(w, 0.5)
    return (1.0 if fr >= sub(0.5, h) else 0.0) - (1.0 if fr >= add(0.5, h) else 0.0)


def weave_shade(s, a):
    return add(div(f32(math.sin(math.pi * a)), div(2.0, s)), add(mul(sub(1.0, s), 0.5), 0.5))


def weave(p, bg=0.0, hc=1.0, vc=1.0, hw=0.85, vw=0.85, hrand=False, hmin=0.0, hmax=0.5, vrand=False, vmin=0.5,
          vmax=1.0, shading=True, hs=0.85, vs=0.85):
    x, y, _ = P3(*p)
    bg, hc, vc, hw, vw, hmin, hmax, vmin, vmax, hs, vs = map(f32, (bg, hc, vc, hw, vw, hmin, hmax, vmin, vmax, hs, vs))
    fx, fy = weave_fraction(x), weave_fraction(y)
    i, j = cell_floor(x), cell_floor(y)
    if hrand:
        hc = add(hmin, mul(sub(hmax, hmin), cell_random1(float(j))))
    if vrand:
        vc = add(vmin, mul(sub(vmax, vmin), cell_random1(float(i))))
    if (math.fmod(i, 2) == 0) == (math.fmod(j, 2) == 0):   # vertical thread on top
        h_in = weave_band(fy, hw)
        c = add(mul(sub(1.0, h_in), bg), mul(h_in, hc))
        if shading and h_in == 1:
            c = mul(c, weave_shade(hs, add(fx, 1.0)))
        v_in = weave_band(fx, vw)
        r = add(mul(sub(1.0, v_in), c), mul(v_in, vc))
        return r if not shading or v_in != 1 else mul(r, weave_shade(vs, fy))
    v_in = weave_band(fx, vw)
    c = add(mul(sub(1.0, v_in), bg), mul(v_in, vc))
    if shading and v_in == 1:
        c = mul(c, weave_shade(vs, add(fy, 1.0)))
    h_in = weave_band(fy, hw)
    r = add(mul(sub(1.0, h_in), c), mul(h_in, hc))
    return r if not shading or h_in != 1 else mul(r, weave_shade(hs, fx))


PEN_COS = [1.0, f32(-0.809017), f32(0.309017), f32(0.309017), f32(-0.809017)]
PEN_SIN = [0.0, f32(-0.58778524), f32(0.95105654), f32(-0.95105654), f32(0.58778524)]


def penrose_find(x, y):
    g = []
    for j in range(5):
        d = add(mul(x, PEN_COS[j]), mul(y, PEN_SIN[j]))
        w = add(f32(d * 0.4 + 3.141592653589793), 1.25)
        g.append(sub(math.fmod(w, 1.0), 1.25))
    best, out = 1000.0, (0.0, 0.0, 0)
    phis = [f32(1.618034), sub(1.0, f32(1.618034))]
    for m in range(32):
        t = [add(g[j], float((m >> j) & 1)) for j in range(5)]
        for _ in range(5):
            for r in range(2):
                phi, k = phis[r], r + 1
                A, B, C, E, T = t[5 - 2 * k], t[5 - k], t[k], t[2 * k], t[0]
                c1 = sub(mul(add(A, B), phi), C)
                c0 = -add(mul(B, phi), add(A, T))
                c2 = -add(mul(A, phi), add(B, E))
                if all(0.0 <= c <= 1.0 for c in (c0, c1, c2)):
                    u = add(mul(sub(C, E), phi), sub(A, T))
                    v = add(mul(sub(C, T), phi), sub(B, E))
                    score = max(abs(sub(u, 0.5)), abs(sub(v, 0.5)))
                    if best > score:
                        out, best = (u, v, r), score
            t = t[1:] + t[:1]
    return out


def penrose(p, skinny=0.5, fat=1.0):
    x, y, _ = P3(*p)
    u, v, kind = penrose_find(x, y)
    e = min(min(min(u, sub(1.0, u)), v), sub(1.0, v))
    if e < 0:
        shade = 0.0
    elif e < f32(0.1):
        s = mul(e, 10.0)
        shade = mul(mul(sub(3.0, mul(s, 2.0)), s), s)
    else:
        shade = 1.0
    return mul(shade, f32(fat) if kind != 0 else f32(skinny)), (u, v, kind)


def print_pattern_kinds():
    print('# Spheres')
    for args in [((0.5, 0.5, 0.5), {}), ((0.5, 0.9, 0.5), {}), ((0.7, 0.6, 0.55), dict(hollow=0.5)),
                 ((0.5, 0.5, 0.5), dict(hollow=0.5)), ((-0.3, 1.62, 7.0), dict(planar=True, size=0.3)),
                 ((1.5, 0.5, 0.5), dict(staggered=True, size=0.3)),
                 ((1.05, 0.5, 0.5), dict(staggered=True, size=0.4)),
                 ((1.5, 0.05, 0.5), dict(staggered=True, size=0.4)),
                 ((1.5, 0.5, 0.95), dict(staggered=True, size=0.4)),
                 ((1.5, 0.5, 0.5), dict(staggered=True, size=0.4)),
                 ((0.5, 0.5, 0.5), dict(staggered=True, size=0.3, hollow=0.5))]:
        print(' ', args, spheres(args[0], **args[1]))
    print('# Nested Shapes')
    for p, shape in [((1, 0, 0), 1), ((0.5, 0, 0), 1), ((0.1, 0, 0), 1), ((0.5, 0, 7), 0), ((1, 0, 7), 0),
                     ((1.05, 0.6, 3), 2), ((2.2, -1.9, 0.3), 2), ((0.3, -1.1, 2.93), 3), ((0.3, -1.1, 2.6), 3),
                     ((1.6, 1.2, 0), 0), ((2.05, 0.3, 0.4), 1)]:
        print(' ', p, shape, nested(p, shape))
    print('# Plaid')
    for p in [(0.3, 0.7, 0.2), (-1.37, 2.51, 9.0), (4.11, -0.62, -3.0)]:
        show(f'  defaults at {p}', plaid(p))
    show('  hf 1.5 vf 0.7 hp 4 vp 2, bg 0.3 bg2 0.2 bg3 0.1 c 0.1..0.4 at (2.3, -1.4)',
         plaid((2.3, -1.4, 0), 1.5, 0.7, 4, 2, 0.3, 0.2, 0.1, 0.1, 0.2, 0.3, 0.4))
    for a in (0.37, 1.9, -2.2):
        show(f'  band({a}, 3)', plaid_band(f32(a), 3))
    print('# Weave')
    show('  defaults at (0.5, 0.02)', weave((0.5, 0.02, 0)))
    show('  defaults at (1.3, 0.45) (horizontal on top)', weave((1.3, 0.45, 0)))
    show('  defaults at (-0.2, -1.3) (cells -1, -2)', weave((-0.2, -1.3, 0)))
    show('  defaults at (-1.0, 0.5) (cell -2, fx 1)', weave((-1.0, 0.5, 0)))
    show('  hrand at (7.5, -0.5) (row -1 hashes cell -2)', weave((7.5, -0.5, 0), hrand=True, shading=False))
    show('  hrand at (0.5, 0.5) no shading', weave((0.5, 0.5, 0), hrand=True, shading=False))
    show('  vrand at (-2.5, 3.5) no shading', weave((-2.5, 3.5, 0), vrand=True, shading=False))
    show('  bg 0.2 hc 0.7 vc 0.4 hw 0.6 vw 0.5 hs 0.3 vs 0.6 at (2.12, 3.9)',
         weave((2.12, 3.9, 0), 0.2, 0.7, 0.4, 0.6, 0.5, hs=0.3, vs=0.6))
    show('  same at (2.4, 3.5)', weave((2.4, 3.5, 0), 0.2, 0.7, 0.4, 0.6, 0.5, hs=0.3, vs=0.6))
    show('  same at (3.4, 3.3)', weave((3.4, 3.3, 0), 0.2, 0.7, 0.4, 0.6, 0.5, hs=0.3, vs=0.6))
    print('# Penrose Rhombus')
    for p in [(0.3, 0.7, 0), (2.1, -1.3, 0), (-3.7, 4.2, 0), (10.5, 7.25, 0), (0, 0, 0)]:
        v, found = penrose(p)
        print(' ', p, hexf(v), v, found)


if __name__ == '__main__':
    print_noise_kinds()
    print_natural_kinds()
    print_pattern_kinds()
