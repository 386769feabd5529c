#!/usr/bin/env python3
"""Independent float32 model of the kinds Camouflage, Cheetah, Psychedelic and Voronoi Tiles,
used to derive the expected values in their tests.

Every single-precision operation is done in Python's double and rounded to float32 right away
(exact for +, -, *, / and sqrt of float32 operands); the steps the kinds take in double are
kept in double. Run it to print the values the tests compare against, as C++ hex literals.
"""
import struct, math
def f32(x):
    return struct.unpack('<f', struct.pack('<f', x))[0]
def bits(x):
    return struct.unpack('<I', struct.pack('<f', x))[0]
FLT_MAX = f32(3.4028234663852886e38)
P = [151,160,137,91,90,15,
131,13,201,95,96,53,194,233,7,225,140,36,103,30,69,142,8,99,37,240,21,10,23,
190,6,148,247,120,234,75,0,26,197,62,94,252,219,203,117,35,11,32,57,177,33,
88,237,149,56,87,174,20,125,136,171,168,68,175,74,165,71,134,139,48,27,166,
77,146,158,231,83,111,229,122,60,211,133,230,220,105,92,41,55,46,245,40,244,
102,143,54,65,25,63,161,1,216,80,73,209,76,132,187,208,89,18,169,200,196,
135,130,116,188,159,86,164,100,109,198,173,186,3,64,52,217,226,250,124,123,
5,202,38,147,118,126,255,82,85,212,207,206,59,227,47,16,58,17,182,189,28,42,
223,183,170,213,119,248,152,2,44,154,163,70,221,153,101,155,167,43,172,9,
129,22,39,253,19,98,108,110,79,113,224,232,178,185,112,104,218,246,97,228,
251,34,242,193,238,210,144,12,191,179,162,241,81,51,145,235,249,14,239,107,
49,192,214,31,181,199,106,157,184,84,204,176,115,121,50,45,127,4,150,254,
138,236,205,93,222,114,67,29,24,72,243,141,128,195,78,66,215,61,156,180]
assert len(P) == 256 and sorted(P) == list(range(256))
perm = P + P

def toi(v):
    if v != v or not (-2147483904.0 < v < 2147483648.0): return -2**31
    return int(v)  # truncation
def wrap(i):
    i &= 0xffffffff
    return i - 2**32 if i >= 2**31 else i
def nfloor(c):  # lattice floor: minus one for negative and NaN
    i = toi(c)
    return wrap(i - 1) if (c < 0 or c != c) else i
def cfloor(c):  # cell floor
    i = toi(c)
    return wrap(i - 1) if c < 0 else i

def add(a, b): return f32(a + b)
def sub(a, b): return f32(a - b)
def mul(a, b): return f32(a * b)

def fade(t):
    t3 = mul(mul(t, t), t)
    return mul(add(mul(sub(mul(t, 6.0), 15.0), t), 10.0), t3)
def lerp(t, a, b): return add(a, mul(t, sub(b, a)))
def grad1(h, x):
    h &= 15
    g = float(1 + (h & 7))
    if h & 8: g = -g
    return mul(g, x)
def grad2(h, x, y):
    h &= 7
    u = x if h < 4 else y
    v = y if h < 4 else x
    return add(-u if h & 1 else u, mul(-2.0, v) if h & 2 else mul(2.0, v))
def grad3(h, x, y, z):
    h &= 15
    u = x if h < 8 else y
    v = y if h < 4 else (x if h in (12, 14) else z)
    return add(-u if h & 1 else u, -v if h & 2 else v)

S1, S2, S3 = f32(0.188), f32(0.507), f32(0.936)
def noise1(x):
    x = f32(x); i = nfloor(x); X = i & 255; f = sub(x, f32(float(i)))
    c0 = grad1(perm[X], f); c1 = grad1(perm[(i + 1) & 255], sub(f, 1.0))
    return mul(S1, lerp(fade(f), c0, c1))
def noise2(x, y):
    x = f32(x); y = f32(y)
    i = nfloor(x); j = nfloor(y); X = i & 255; Y = j & 255
    fx = sub(x, f32(float(i))); fy = sub(y, f32(float(j)))
    A = perm[X] + Y; B = perm[X + 1] + Y
    c00 = grad2(perm[A], fx, fy); c10 = grad2(perm[B], sub(fx, 1.0), fy)
    c01 = grad2(perm[A + 1], fx, sub(fy, 1.0)); c11 = grad2(perm[B + 1], sub(fx, 1.0), sub(fy, 1.0))
    u = fade(fx)
    return mul(S2, lerp(fade(fy), lerp(u, c00, c10), lerp(u, c01, c11)))
def noise3(x, y, z):
    x = f32(x); y = f32(y); z = f32(z)
    i = nfloor(x); j = nfloor(y); k = nfloor(z)
    X = i & 255; Y = j & 255; Z = k & 255
    fx = sub(x, f32(float(i))); fy = sub(y, f32(float(j))); fz = sub(z, f32(float(k)))
    u = fade(fx); v = fade(fy); w = fade(fz)
    A = perm[X] + Y; AA = perm[A] + Z; AB = perm[A + 1] + Z
    B = perm[X + 1] + Y; BA = perm[B] + Z; BB = perm[B + 1] + Z
    gx, gy, gz = sub(fx, 1.0), sub(fy, 1.0), sub(fz, 1.0)
    r = lerp(w, lerp(v, lerp(u, grad3(perm[AA], fx, fy, fz), grad3(perm[BA], gx, fy, fz)),
                        lerp(u, grad3(perm[AB], fx, gy, fz), grad3(perm[BB], gx, gy, fz))),
                lerp(v, lerp(u, grad3(perm[AA + 1], fx, fy, gz), grad3(perm[BA + 1], gx, fy, gz)),
                        lerp(u, grad3(perm[AB + 1], fx, gy, gz), grad3(perm[BB + 1], gx, gy, gz))))
    return mul(S3, r)
def fractal2(x, y, octaves, freq, amp):
    if octaves < 1: return 0.0
    x = mul(x, freq); y = mul(y, freq); w = f32(amp); s = 0.0
    for _ in range(octaves):
        s = add(s, mul(noise2(x, y), w)); x = mul(x, 2.0); y = mul(y, 2.0); w = mul(w, 0.5)
    return s
def fractal3(x, y, z, octaves, freq, amp):
    if octaves < 1: return 0.0
    x = mul(x, freq); y = mul(y, freq); z = mul(z, freq); w = f32(amp); s = 0.0
    for _ in range(octaves):
        s = add(s, mul(noise3(x, y, z), w)); x = mul(x, 2.0); y = mul(y, 2.0); z = mul(z, 2.0); w = mul(w, 0.5)
    return s

def hashunit(n):
    n &= 0xffffffff
    n ^= (n << 13) & 0xffffffff
    v = ((n * n * 15731 + 789221) * n + 1376312589) & 0xffffffff
    return mul(float(v), f32(2.3283064e-10))
def cellRandom2(x, y):
    return hashunit(cfloor(x) + cfloor(y) * 1301)
def R2(a, b): return hashunit(nfloor(b) * 1301 + nfloor(a))
def R3(a, b, c): return hashunit(nfloor(b) * 1301 + nfloor(c) * 314159 + nfloor(a))

# The four kinds. Parameters default to the kinds' defaults.
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
    h = cellRandom2(mul(F, a), mul(F, b))
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
        ci = f32(cfloor(x) + 0.5); cj = f32(cfloor(y) + 0.5)
        for di in (-1, 0, 1):
            for dj in (-1, 0, 1):
                cx = add(di, ci); cy = add(dj, cj)
                h1 = cellRandom2(cx, cy); h2 = cellRandom2(add(cx, 23.0), sub(cy, 87.0))
                sx = add(mul(sub(h1, 0.5), L), cx); sy = add(mul(sub(h2, 0.5), L), cy)
                dx = sub(sx, x); dy = sub(sy, y)
                d = f32(math.sqrt(add(mul(dx, dx), mul(dy, dy))))
                best = min(best, d)
    else:
        n = fractal3(x, y, z, 2, 2.0, var)
        ci = f32(cfloor(x) + 0.5); cj = f32(cfloor(y) + 0.5); ck = f32(cfloor(z) + 0.5)
        for di in (-1, 0, 1):
            for dj in (-1, 0, 1):
                for dk in (-1, 0, 1):
                    cx = add(di, ci); cy = add(dj, cj); cz = add(dk, ck)
                    h1 = cellRandom2(cx, cz); h2 = cellRandom2(cy, cx)
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
        cx = add(float(nfloor(x)), 0.5); cy = add(float(nfloor(y)), 0.5)
        for dx in (-1, 0, 1):
            for dy in (-1, 0, 1):
                X = add(cx, dx); Y = add(cy, dy)
                px = add(X, mul(sub(R3(X, Y, 0.0), 0.5), j))
                py = add(Y, mul(sub(R3(add(X, 23.0), sub(Y, 87.0), 0.0), 0.5), j))
                ey = sub(py, y); ex = sub(px, x)
                cands.append((add(mul(ey, ey), mul(ex, ex)), (px, py, 0.0)))
    else:
        cx = add(float(nfloor(x)), 0.5); cy = add(float(nfloor(y)), 0.5); cz = add(float(nfloor(z)), 0.5)
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


def hexf(v):
    """C++ float literal of a float32 value."""
    if v == 0: return '0.0f'
    m, e = float(v).hex().split('p')
    return m.rstrip('0').rstrip('.') + 'p' + e + 'f'


def main():
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


if __name__ == '__main__':
    main()
