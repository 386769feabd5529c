#!/usr/bin/env python3
"""Independent float32 model of the noise-based texture kinds, used to derive the expected
values of their tests: Perlin Noise, FBM, Turbulence, Simplex, Simple Marble, Granite, Wood,
Camouflage, Cheetah, Psychedelic and Voronoi Tiles, the regular patterns Brick, Grid,
Stripes, Zigzag, Spiral, Corrugated, HexTile and Houndstooth, and the pattern kinds Spheres,
Nested Shapes, Plaid, Weave and Penrose Rhombus. The noise primitives come from noise_model.py.

Every single-precision operation is done in Python's double and rounded to float32 right away;
the steps the kinds take in double are kept in double. sin, cos and atan2 come from Python's
math module (the C library); the library's own correctly rounded functions give the same values
at every point the tests use. Run it to print the values the tests compare against, as C++ hex
literals."""
import math

from noise_model import (FLT_MAX, add, cell_floor, div, fractal2, fractal3, hexf, lattice_floor, mul,
                         sub, to_int32, wrap32)
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


# ---- Regular patterns: Brick, Grid, Stripes, Zigzag, Spiral, Corrugated, HexTile, Houndstooth
# Parameters default to the kinds' defaults; every float parameter is rounded to float32 first.

def cell_random3(x, y, z):
    return hash_unit(cell_floor(x) + cell_floor(y) * 1301 + cell_floor(z) * 314159)


def cell_random1(x):
    i = cell_floor(x) & 0xffffffff
    n = (i ^ (i << 13)) & 0xffffffff
    m = (n * ((n * n * 15731 + 789221) & 0xffffffff) + 1376312589) & 0xffffffff
    return f32((m & 0x7fffffff) * 4.656612875245797e-10)


def fmodf(a, b):
    return math.fmod(a, b)


def ind(c):
    return 1 if c else 0


BRICK = dict(pattern=1, H=0.225, W=0.8, D=0.4, M=0.01, rc=False, R=0.25, rov=False, amp=0.1,
             color=None, mortar=0.5, rnd=False, mn=0.0, mx=0.5)


def brick(p, flags=2, **kw):
    o = dict(BRICK); o.update(kw)
    if o['color'] is None:
        o['color'] = f32(0.223688006401062)
    for k in ('H', 'W', 'D', 'M', 'R', 'amp', 'color', 'mortar', 'mn', 'mx'):
        o[k] = f32(o[k])
    planar = (flags & 12) != 0
    return brick_running(p, planar, o) if o['pattern'] == 1 else brick_herring(p, planar, o)


def brick_running(p, planar, o):
    H, W, D, M, R = o['H'], o['W'], o['D'], o['M'], o['R']
    x, y, z = map(f32, p)
    h = mul(M, 0.5)
    cx, cy, cz = add(W, M), add(H, M), add(D, M)
    ix, iy, iz = div(1.0, cx), div(1.0, cy), div(1.0, cz)
    if planar: z = 0.5
    u, v, w = mul(x, ix), mul(y, iy), mul(z, iz)
    fm = fmodf(mul(v, 0.5), 1.0)
    if (y >= 0 and abs(fm) > 0.5) or (y < 0 and abs(fm) < 0.5): u = add(u, 0.5)
    g = fmodf(mul(w, 0.5), 1.0)
    if (z >= 0 and abs(g) > 0.5) or (z < 0 and abs(g) < 0.5): u = add(u, 0.5)
    row, layer = cell_floor(v), cell_floor(w)
    if o['rov']:
        u = add(u, mul(sub(cell_random2(float(row), float(layer)), 0.5), o['amp']))
    col = cell_floor(u)
    fu, fv, fw = sub(u, float(col)), sub(v, float(row)), sub(w, float(layer))
    bu = ind(fu >= mul(h, ix)) - ind(fu >= sub(1.0, mul(h, ix)))
    bv = ind(fv >= mul(h, iy)) - ind(fv >= sub(1.0, mul(h, iy)))
    bw = ind(fw >= mul(h, iz)) - ind(fw >= sub(1.0, mul(h, iz)))
    inside = bu * bv * bw
    B = o['color']
    if o['rnd']:
        B = add(o['mn'], mul(sub(o['mx'], o['mn']), cell_random3(float(col), float(row), float(layer))))
    value = add(mul(float(1 - inside), o['mortar']), mul(float(inside), B))
    if not (o['rc'] and value == B): return value
    m = W if W <= H else H
    C = cx if cy <= cx else cy
    if m == W: fu = mul(mul(fu, cx), iy)
    else: fv = mul(mul(fv, cy), ix)
    r = mul(mul(mul(m, 0.5), div(1.0, C)), R)
    e = add(mul(div(1.0, C), h), r)
    if m == H: Eu, Ev = 1.0, mul(cy, ix)
    else: Eu, Ev = mul(cx, iy), 1.0
    r2 = mul(r, r)

    def far(cu, cv): return add(mul(sub(cv, fv), sub(cv, fv)), mul(sub(cu, fu), sub(cu, fu))) >= r2
    cut = ((fu <= e and fv <= e and far(e, e)) or
           (fu >= sub(Eu, e) and fv <= e and far(sub(Eu, e), e)) or
           (fu <= e and fv >= sub(Ev, e) and far(e, sub(Ev, e))) or
           (fu >= sub(Eu, e) and fv >= sub(Ev, e) and far(sub(Eu, e), sub(Ev, e))))
    return o['mortar'] if cut else value


def brick_herring(p, planar, o):
    H, D, M, R = o['H'], o['D'], o['M'], o['R']
    x, y, z = map(f32, p)
    h = mul(M, 0.5)
    cy = add(H, M); iy = div(1.0, cy); cz = add(D, M); iz = div(1.0, cz)
    u, v = mul(x, iy), mul(y, iy)
    w = mul(add(z, 0.5), iz) if planar else mul(z, iz)
    a, b = float(math.floor(u)), float(math.floor(v))
    s = abs(math.fmod(math.floor(mul(add(a, b), 0.5)), 2.0))
    fu, fv, fw = sub(u, a), sub(v, b), sub(w, float(math.floor(w)))
    pa = math.fmod(to_int32(a), 2) == 0
    pb = math.fmod(to_int32(b), 2) == 0
    odd = pa != pb
    e, ez = mul(h, iy), mul(h, iz)
    if s != 0:
        bu = ind(fu >= e) - ind(fu >= sub(1.0, e))
        bv = 1 - ind(fv >= sub(1.0, e)) if odd else ind(fv >= e)
    else:
        bv = ind(fv >= e) - ind(fv >= sub(1.0, e))
        bu = 1 - ind(fu >= sub(1.0, e)) if odd else ind(fu >= e)
    bw = ind(fw >= ez) - ind(fw >= sub(1.0, ez))
    inside = bu * bv * bw
    B = o['color']
    if o['rnd']:
        if s != 0:
            rr = cell_random3(u, mul(v, 0.5), w) if pa else cell_random3(u, mul(add(v, 1.0), 0.5), w)
        else:
            rr = cell_random3(mul(u, 0.5), v, w) if pb else cell_random3(mul(add(u, 1.0), 0.5), v, w)
        B = add(o['mn'], mul(sub(o['mx'], o['mn']), rr))
    value = add(mul(float(1 - inside), o['mortar']), mul(float(inside), B))
    if not (o['rc'] and value == B): return value
    r = mul(mul(mul(H, 0.5), iy), R)
    E = add(mul(h, iy), r)
    F = sub(1.0, E)
    if s != 0 and odd: cands = [(fu <= E and fv >= F, E, F), (fu >= F and fv >= F, F, F)]
    elif s != 0: cands = [(fu <= E and fv <= E, E, E), (fu >= F and fv <= E, F, E)]
    elif odd: cands = [(fv <= E and fu >= F, F, E), (fv >= F and fu >= F, F, F)]
    else: cands = [(fv <= E and fu <= E, E, E), (fv >= F and fu <= E, E, F)]
    for ok, cu, cv in cands:
        if ok:
            if add(mul(sub(cv, fv), sub(cv, fv)), mul(sub(cu, fu), sub(cu, fu))) >= mul(r, r):
                return o['mortar']
            return value
    return value


def next_cell(k):
    return float(wrap32(k + 1))


def grid(p, width=0.25, rnd=False, mn=0.5, mx=1.0, planar=False):
    width, mn, mx = f32(width), f32(mn), f32(mx)
    x, y, z = map(f32, p)
    hh = mul(width, 0.5); h2 = mul(hh, hh)
    for c in (x, y) if planar else (x, y, z):
        k = cell_floor(c)
        d1 = sub(c, float(k)); d2 = sub(next_cell(k), c)
        if mul(d1, d1) <= h2 or mul(d2, d2) <= h2: return 0.0
    return add(mn, mul(sub(mx, mn), cell_random3(x, y, z))) if rnd else 1.0


def triangle(t):
    if t < 0.5:
        u = mul(2.0, t); return add(mul(sub(1.0, u), 0.0), u)
    u = mul(sub(t, 0.5), 2.0); return add(sub(1.0, u), mul(u, 0.0))


def arc(t, c):
    d = sub(t, c)
    return f32(math.sqrt(sub(0.0625, mul(d, d))))


def stripes(p, style=4, width=0.25, amp=0.25, rnd=False, mn=0.0, mx=1.0):
    width, amp, mn, mx = map(f32, (width, amp, mn, mx))
    x, y = f32(p[0]), f32(p[1])
    t = sub(y, float(math.floor(y)))
    if style == 0: xs = add(x, mul(noise2(mul(2.0, x), mul(2.0, y)), amp))
    elif style == 1: xs = add(x, mul(arc(t, 0.25), amp)) if t < 0.5 else sub(x, mul(arc(t, 0.75), amp))
    elif style == 2: xs = add(x, mul(t, amp))
    elif style == 3: xs = f32(x + math.sin(2.0 * y * 3.141592653589793) * amp)
    elif style == 5: xs = add(x, mul(triangle(t), amp))
    else: xs = x
    k = cell_floor(xs)
    d1 = sub(xs, float(k)); d2 = sub(next_cell(k), xs)
    d1s, d2s = mul(d1, d1), mul(d2, d2)
    hh = mul(width, 0.5); h2 = mul(hh, hh)
    if not rnd: return 0.0 if (d1s <= h2 or d2s <= h2) else 1.0
    if d1s <= h2: return add(mn, mul(sub(mx, mn), cell_random1(float(k))))
    if d2s <= h2: return add(mn, mul(sub(mx, mn), cell_random1(next_cell(k))))
    return 1.0


def zigzag(p, rnd=False, var=0.5):
    var = f32(var)
    x, y = f32(p[0]), f32(p[1])
    pp = abs(math.fmod(math.floor((math.floor(x) + math.floor(y)) * 0.5), 2.0))
    if not rnd: return 0.25 if pp == 0 else 0.75
    u = add(x, 1.0) if math.floor(y) % 2 == 1 else x
    r = cell_random2(mul(u, 0.5), y)
    s = mul(sub(mul(r, 2.0), 1.0), var)
    v = mul(add(s, 1.0), 0.25) if pp == 0 else add(mul(s, 0.25), 0.75)
    return clamp01(v)


def spiral(p, width=0.25, rate=0.2, planar=False):
    width, rate = f32(width), f32(rate)
    x, y, z = map(f32, p)
    if planar:
        xs = add(x, mul(y, rate))
    else:
        rho = f32(math.sqrt(add(mul(x, x), mul(z, z))))
        th = add(f32(math.atan2(z, x)), mul(y, rate))
        xs = mul(rho, f32(math.cos(th)))
    k = cell_floor(xs)
    d1 = sub(xs, float(k)); d2 = sub(next_cell(k), xs)
    hh = mul(width, 0.5); h2 = mul(hh, hh)
    return 1.0 if (h2 < mul(d1, d1) and h2 < mul(d2, d2)) else 0.0


def corrugated(x, style=3):
    x = f32(x)
    t = sub(x, float(math.floor(x)))
    if style == 0: return add(mul(noise1(mul(2.0, x)), 0.5), 0.5)
    if style == 1: return t
    if style == 2: return add(arc(t, 0.25), 0.5) if t < 0.5 else sub(1.0, add(arc(t, 0.75), 0.5))
    if style == 3: return add(mul(f32(math.sin(2.0 * t * 3.141592653589793)), 0.5), 0.5)
    if style == 4: return triangle(t)
    return add(mul(f32(math.sin(mul(t, f32(math.pi)))), 0.5), 0.5)


SQRT3 = f32(math.sqrt(3.0))


def hextile(p, tile=1.0, mortar=0.0, R=0.2, T=0.02, rnd=False, mn=0.5, mx=1.0):
    tile, mortar, R, T, mn, mx = map(f32, (tile, mortar, R, T, mn, mx))
    S = SQRT3
    x = abs(f32(p[0])); y = f32(p[1])
    if y < 0: y = add(abs(y), R)
    t = mul(T, 0.5)
    rh = mul(1.5, R); SR = mul(S, R)
    fy = fmodf(y, rh)
    row = float(math.floor(div(y, rh)))
    odd = fmodf(mul(row, 0.5), 1.0)
    xs = add(mul(SR, 0.5), x) if odd == 0.5 else x
    col = float(math.floor(div(xs, SR)))
    fx = fmodf(xs, SR)
    if fy < R:
        m = 0 if (t <= fx and fx < sub(SR, t)) else 1
    else:
        half = mul(SR, 0.5)
        d = mul(sub(fy, R), S)
        line = sub(half, abs(sub(fx, half)))
        if d > line:
            if odd == 0.5: col = sub(col, 1.0)
            row = add(row, 1.0)
            if fx > half: col = add(col, 1.0)
        m = 1 if (sub(line, mul(S, t)) <= d and d < add(line, mul(S, t))) else 0
    G = add(mn, mul(sub(mx, mn), cell_random2(col, row))) if rnd else tile
    return add(mul(float(1 - m), G), mul(float(m), mortar))


def houndstooth(p, pattern=3, rnd=False, var=0.5):
    var = f32(var)
    x, y = f32(p[0]), f32(p[1])
    ix, iy = cell_floor(x), cell_floor(y)
    fx, fy = sub(x, float(ix)), sub(y, float(iy))
    ex, ey = math.fmod(ix, 2) == 0, math.fmod(iy, 2) == 0

    def shade(base, kx, ky):
        return add(base, mul(mul(sub(mul(cell_random2(kx, ky), 2.0), 1.0), var), 0.25))

    def L(kx, ky): return shade(0.75, kx, ky) if rnd else 1.0
    def Dk(kx, ky): return shade(0.25, kx, ky) if rnd else 0.0
    xm, xp, ym, yp = sub(x, 1.0), add(x, 1.0), sub(y, 1.0), add(y, 1.0)
    if pattern == 0:
        s = add(fx, fy)
        if ex and ey: return L(x, ym) if s <= 1 else Dk(xp, y)
        if ex: return L(x, y)
        if ey: return Dk(x, y)
        return Dk(x, ym) if s <= 1 else L(xp, y)
    if pattern == 2:
        if ex and ey: return 1.0
        if not ex and not ey: return Dk(x, y)
        if ex:
            t = add(sub(1.0, fx), fy); first, second = (xp, y), (xm, y)
        else:
            t = add(fx, fy); first, second = (x, ym), (x, yp)
        if t <= 0.606092: return Dk(*first)
        if t < 1.19188: return 1.0
        if t < 1.79797: return Dk(*second)
        return 1.0
    if pattern == 1:
        a = mul(f32(0.35355), f32(0.33333334)); b = mul(a, 2.0)
        if ex and ey: return 1.0
        if not ex and not ey: return Dk(x, y)
        t = add(fx, fy)
        first, second = ((xm, y), (xp, y)) if ex else ((x, ym), (x, yp))
        if t < sub(0.5, b): return 1.0
        if t < add(0.5, a): return Dk(*first)
        if t < sub(1.5, a): return 1.0
        if t < add(1.5, b): return Dk(*second)
        return 1.0
    if ex and ey: return L(x, y)
    if not ex and not ey: return Dk(x, y)
    s = add(fx, fy)
    if ex: bands = [Dk(xm, y), L(x, ym), Dk(xp, y), L(x, yp)]
    else: bands = [L(xm, y), Dk(x, ym), L(xp, y), Dk(x, yp)]
    return bands[0 if s < 0.5 else 1 if s < 1.0 else 2 if s < 1.5 else 3]


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


def bit_string(fn, points):
    """'0'/'1' per point for the kinds whose value is 0.0 or 1.0 (other values print '?')."""
    return ''.join({0.0: '0', 1.0: '1'}.get(fn(q), '?') for q in points)


def sample_grid(x0=-2.1, y0=-1.3, z=0.37, dx=0.37, dy=0.29, n=8):
    """The 8 x 8 points, row by row (y outer), that the pattern tests sample."""
    return [(f32(x0 + i * dx), f32(y0 + j * dy), f32(z)) for j in range(n) for i in range(n)]


def print_pattern_kinds():
    P = [P3(0.3, 0.7, 0.2), P3(-1.37, 0.51, 2.86), P3(2.45, -0.15, -0.8), P3(5.62, 3.41, -1.27),
         P3(-0.62, -2.33, 0.47)]
    G = sample_grid()
    print('# Brick, running bond')
    for q in [(0.3, 0.7, 0.2), (-1.37, 0.51, 2.86), (2.45, -0.15, -0.8), (5.62, 3.41, -1.27)]:
        q = P3(*q)
        show(f'random greys 0.1..0.9 at {q}', brick(q, rnd=True, mn=0.1, mx=0.9))
        show(f'  with row offset amplitude 0.6', brick(q, rov=True, amp=0.6, rnd=True, mn=0.1, mx=0.9))
    print('# Brick, herringbone random greys 0.1..0.9')
    for q in [(0.3, 0.7, 0.2), (2.45, -0.15, -0.8), (5.62, 3.41, -1.27)]:
        show(f'  at {q}', brick(P3(*q), pattern=0, rnd=True, mn=0.1, mx=0.9))
    print('# Grid (bits over the sample grid; random greys at P)')
    print('  3-D   ', bit_string(lambda q: grid(q, width=0.3), G))
    print('  planar', bit_string(lambda q: grid(q, width=0.3, planar=True), G))
    for q in P:
        show(f'  random at {q}', grid(q, rnd=True))
    print('# Stripes, width 0.4, amplitude 0.6, bits over the sample grid')
    for st in range(7):
        print(f'  style {st}', bit_string(lambda q: stripes(q, style=st, amp=0.6, width=0.4), G))
    for q in [P3(0.1, 0.3, 0), P3(0.9, 0.3, 0), P3(-1.05, 2.0, 0), P3(-0.95, 2.0, 0)]:
        show(f'  random 0.2..0.7, width 0.4, at {q}', stripes(q, rnd=True, width=0.4, mn=0.2, mx=0.7))
    print('# Zigzag')
    print('  plain', [zigzag(q) for q in P])
    for q in P:
        show(f'  random at {q}', zigzag(q, rnd=True))
        show(f'  random, variability 5, at {q}', zigzag(q, rnd=True, var=5.0))
    print('# Spiral, bits over the sample grid')
    print('  defaults  ', bit_string(lambda q: spiral(q), G))
    print('  w 0.6 r 1.3', bit_string(lambda q: spiral(q, width=0.6, rate=1.3), G))
    print('  planar    ', bit_string(lambda q: spiral(q, width=0.6, rate=1.3, planar=True), G))
    print('# Corrugated')
    for st in (0, 1, 2, 3, 4, 9):
        print(f'  style {st}', ', '.join(hexf(corrugated(x, st)) for x in (0.3, -1.37, 2.45, 0.8, -0.62)))

    print('# HexTile')
    H = sample_grid(-0.9, -0.7, 0.0, 0.113, 0.097)
    print('  defaults   ', bit_string(lambda q: hextile(q), H))
    print('  R 0.3, T 0.05', bit_string(lambda q: hextile(q, R=0.3, T=0.05), H))
    for q in [P3(0.3, 0.7, 0), P3(-0.31, 0.45, 0), P3(0.52, -0.41, 0), P3(1.13, 2.2, 0)]:
        show(f'  random 0.5..1 at {q}', hextile(q, rnd=True))
    print('# Houndstooth (z ignored), bits over a grid')
    T = sample_grid(-2.05, -1.95, 0.0, 0.29, 0.31, 14)
    for pat in range(4):
        print(f'  pattern {pat}', bit_string(lambda q: houndstooth(q, pattern=pat), T))
    for pat in range(4):
        vals = ', '.join(hexf(houndstooth(q, pattern=pat, rnd=True)) for q in
                         [P3(0.3, 0.7, 0), P3(-1.37, 0.51, 0), P3(2.45, -0.15, 0), P3(1.62, 3.41, 0),
                          P3(-0.62, -2.33, 0), P3(1.8, 1.9, 0)])
        print(f'  randomized pattern {pat}:', vals)

# ---- Spheres, Nested Shapes, Plaid, Weave, Penrose Rhombus --------------------------------

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


def print_woven_kinds():
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
    print_woven_kinds()
