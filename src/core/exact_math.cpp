// Correctly rounded sin, sinf, cosf, atan2f, fourth root and fourth power; see exact_math.h.
//
// Arithmetic. A double-double (DD) is an unevaluated sum hi + lo with hi = RN(hi + lo). Sums
// use the error-free 2Sum/Fast2Sum, products Dekker's 2Prod with Veltkamp's splitting, so no
// FMA is needed; none may be contracted in either (the build sets -ffp-contract=off: a fused
// c - (c - a) after c = K a breaks the splitting, and the tests then fail). With u = 2^-53 the
// relative errors are (Joldes, Muller, Popescu 2017) DD + DD <= 3u^2, DD + double <= 2u^2,
// DD * double <= 2u^2, DD * DD <= 8u^2 = 2^-103 (7u^2 with FMA, one rounding more without).
// No operand below comes near overflow or underflow.
//
// Three stages (Ziv's strategy). Each gives a value with a stated relative error bound; if that
// value is farther from every rounding boundary (the midpoints between adjacent doubles resp.
// floats) than its bound, it rounds to the correctly rounded result, else the next stage runs:
//  1. quick, DD where the leading terms need it and double elsewhere: within 2^-65 by the
//     term-by-term bound below, kQuickRelError = 2^-64 (largest error measured: 2^-65.9).
//     Settles all but about one double result in 2^10 and one float result in 2^38 (the
//     exhaustive check found no float argument of sinf or cosf needing more).
//  2. DD throughout: within 2^-101.5, kDDRelError = 2^-100 (largest measured: 2^-103.9).
//     Leaves about one double in 2^46 undecided.
//  3. 256-bit fixed point: within 2^-246 absolute, at least 2^-184 relative here. Undecided
//     would be a result within 2^-184 of a boundary: about 2^-130 of the 2^63 doubles are
//     expected to be, i.e. none (the float functions have far fewer arguments still). This
//     stage returns its nearest value regardless.
//
// sin and cos. x = q pi/2 + r with |r| <= pi/4:
//  - |x| < 0.78: r = x, exactly.
//  - otherwise the reduction multiplies the 53-bit integer mantissa of x by a window of the bits
//    of 2/pi (Payne-Hanek, in integers): the bits of weight above 2^(1-e) (x = m 2^e) only add
//    multiples of 4 and are skipped, so the window starts there and the low bits of the product
//    hold the quadrant and the fraction of x 2/pi. A window of 64N bits leaves a tail below
//    2^(55-64N) (units of pi/2). No double comes closer than 2^-61.6 (in these units) to a
//    multiple of pi/2 (the closest is 6381956970095103 2^797), so the fraction's relative
//    error is below 2^-75 for N = 3 (stage 1) and 2^-139 for N = 4 (stage 2); its leading 106
//    bits (2^-105) times pi/2 in DD (2^-107, product 2^-103) give r to 2^-102.4 relative. As
//    |sin'(r) r / sin(r)| <= 1 and |cos'(r) r / cos(r)| <= pi/4 for |r| <= pi/4, the function
//    value inherits at most that relative error.
//  - r = a + s with a = j/64, |s| <= 2^-7; sin(a) and cos(a) (S, C) come from a table (each
//    to 2^-107). sin(a + s) = S + C s + (S (cos s - 1) + C (sin s - s)), and cos(a + s) =
//    C - S s + (C (cos s - 1) - S (sin s - s)). For j >= 1 the result is at least S/2 (resp.
//    C), so each part's error counts at most twice relative to the result.
//    Stage 1: S + C s in DD (2^-102); cos s - 1 (<= 2^-15) and sin s - s (<= 2^-23.6) by
//    their Taylor series in double from s.hi (to 2^-67.9 and 2^-74.6 absolute; s.lo enters
//    cos s - 1 to first order); with the roundings of the small products and their sum:
//    2^-65.2 in all.
//    Stage 2: the Taylor terms down to 2^-75 of the result are summed in DD, the smaller ones
//    (below 2^-54) in double, truncation below 2^-112: sin(s)/s - 1 and cos(s) - 1 within
//    2^-105.5 absolute; the combination S + (S (cos s - 1) + C sin s) adds the table (2^-106),
//    the products and the two sums (2^-103.4 each): 2^-101.5 in all.
//
// atan2(y, x), x and y floats, finite and nonzero. With n = min(|x|, |y|), d = max(|x|, |y|),
// t = n/d in [0, 1] and c = j/128 its nearest table point, atan(t) = atan(c) + atan(u) with
// u = (t - c)/(1 + tc) = (n - c d)/(d + c n). Both n - c d and d + c n are exact in double
// (c has 8 bits, the floats 24, and the quotient bounds the exponent gap), so u is one DD
// division of exact numbers (2^-105). |u| <= 2^-8, atan(u) = u (1 - u^2/3 + ... + u^12/13) to
// 2^-115, atan(c) from a table (2^-107). Stage 1 sums atan(u) - u (<= 2^-17.6 u) in double
// (2^-68), stage 2 in DD. Then pi/2 - . when |y| > |x|, pi - . when x < 0 (pi in DD to 2^-107;
// neither step loses relative accuracy: the subtrahend is at most the result). Bounds as for
// sin.
//
// Rounding. roundsSafelyToDouble/Float test the distance to the boundaries (with the bound
// enlarged by 1/8 to cover the test's own roundings); nearestFloat rounds hi + lo to float
// without double rounding (a hi exactly halfway between two floats is decided by lo).
//
// The 256-bit stage: fixed point with 254 fraction bits (Q2.254), integer limbs. The reduction
// uses a 320-bit window of 2/pi (tail below 2^-265), sin and cos are their Taylor series to
// the 55th power by Horner's rule (every partial sum stays in (0, 1]), each step truncating by
// at most 2^-254: within 2^-248 absolute. Below |x| = 2^-26 sin x rounds to x and never gets
// here, so the doubles' sines are at least 2^-63 in magnitude. atan2 refines the DD angle by
// two Newton steps on y cos(theta) - x sin(theta), cubically convergent (theta + tan(phi -
// theta)), which leaves the fixed-point errors; quotients below 2^-64 use atan t = t - t^3/3.
//
// Fourth power and fourth root are exact: x^4 of a 24-bit mantissa is a 96-bit integer, rounded
// once; the root's candidate from two double square roots is checked against the neighbouring
// float midpoints m by comparing m^4 (at most 104 bits) with x in integers. No float's fourth
// root is a midpoint (that would need an odd 25-bit integer whose fourth power has 24 bits),
// and no float's fourth power is one either.

#include "core/exact_math.h"

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>

namespace grainsmith::exact {

using detail::DD;

namespace {

using u64 = uint64_t;
using u128 = unsigned __int128;

// 2^k for -1022 <= k <= 1023, exactly.
inline double pow2(int k) { return std::bit_cast<double>(static_cast<u64>(k + 1023) << 52); }

inline bool signBit(double v) { return (std::bit_cast<u64>(v) >> 63) != 0; }
inline bool signBit(float v) { return (std::bit_cast<uint32_t>(v) >> 31) != 0; }

// ---------------------------------------------------------------------------------------------
// Double-double arithmetic.

inline DD twoSum(double a, double b) {
    const double s = a + b;
    const double bb = s - a;
    return {s, (a - (s - bb)) + (b - bb)};
}

// Requires |a| >= |b| (or a = 0).
inline DD fastTwoSum(double a, double b) {
    const double s = a + b;
    return {s, b - (s - a)};
}

inline void split(double a, double& hi, double& lo) {
    const double c = 134217729.0 * a;  // 2^27 + 1
    hi = c - (c - a);
    lo = a - hi;
}

inline DD twoProd(double a, double b) {
    const double p = a * b;
    double ah, al, bh, bl;
    split(a, ah, al);
    split(b, bh, bl);
    return {p, (((ah * bh - p) + ah * bl) + al * bh) + al * bl};
}

inline DD neg(DD a) { return {-a.hi, -a.lo}; }

inline DD add(DD a, DD b) {
    const DD s = twoSum(a.hi, b.hi);
    const DD t = twoSum(a.lo, b.lo);
    const DD v = fastTwoSum(s.hi, s.lo + t.hi);
    return fastTwoSum(v.hi, t.lo + v.lo);
}

inline DD sub(DD a, DD b) { return add(a, neg(b)); }

inline DD addD(DD a, double b) {
    const DD s = twoSum(a.hi, b);
    return fastTwoSum(s.hi, s.lo + a.lo);
}

inline DD mul(DD a, DD b) {
    const DD p = twoProd(a.hi, b.hi);
    return fastTwoSum(p.hi, p.lo + (a.hi * b.lo + a.lo * b.hi));
}

inline DD mulD(DD a, double b) {
    const DD p = twoProd(a.hi, b);
    return fastTwoSum(p.hi, p.lo + a.lo * b);
}

// a / b with one correction step (a few u^2 relative; only the 256-bit stage uses it, where far
// less would do).
inline DD div(DD a, DD b) {
    const double q = a.hi / b.hi;
    const DD r = sub(a, mulD(b, q));
    return fastTwoSum(q, r.hi / b.hi);
}

// ---------------------------------------------------------------------------------------------
// Constants (from MPFR; hi = RN(v), lo = RN(v - hi)).

constexpr DD kHalfPi = {0x1.921fb54442d18p+0, 0x1.1a62633145c07p-54};
constexpr DD kPi = {0x1.921fb54442d18p+1, 0x1.1a62633145c07p-53};

// Taylor coefficients, signs included.
constexpr double kSin3d = -0x1.5555555555555p-3;
constexpr double kSin5d = 0x1.1111111111111p-7;
constexpr double kCos4d = 0x1.5555555555555p-5;
constexpr double kCos6d = -0x1.6c16c16c16c17p-10;
constexpr double kAtan3d = -0x1.5555555555555p-2;
constexpr double kAtan5d = 0x1.999999999999ap-3;
constexpr double kAtan7d = -0x1.2492492492492p-3;
constexpr DD kSin3 = {-0x1.5555555555555p-3, -0x1.5555555555555p-57};  // -1/3!
constexpr DD kSin5 = {0x1.1111111111111p-7, 0x1.1111111111111p-63};    // 1/5!
constexpr double kSin7 = -0x1.a01a01a01a01ap-13;                        // -1/7!
constexpr double kSin9 = 0x1.71de3a556c734p-19;                         // 1/9!
constexpr double kSin11 = -0x1.ae64567f544e4p-26;                       // -1/11!
constexpr DD kCos4 = {0x1.5555555555555p-5, 0x1.5555555555555p-59};    // 1/4!
constexpr DD kCos6 = {-0x1.6c16c16c16c17p-10, 0x1.f49f49f49f49fp-65};   // -1/6!
constexpr double kCos8 = 0x1.a01a01a01a01ap-16;                         // 1/8!
constexpr double kCos10 = -0x1.27e4fb7789f5cp-22;                       // -1/10!
constexpr DD kAtan3 = {-0x1.5555555555555p-2, -0x1.5555555555555p-56};  // -1/3
constexpr DD kAtan5 = {0x1.999999999999ap-3, -0x1.999999999999ap-57};   // 1/5
constexpr DD kAtan7 = {-0x1.2492492492492p-3, -0x1.2492492492492p-57};  // -1/7
constexpr double kAtan9 = 0x1.c71c71c71c71cp-4;                         // 1/9
constexpr double kAtan11 = -0x1.745d1745d1746p-4;                       // -1/11
constexpr double kAtan13 = 0x1.3b13b13b13b14p-4;                        // 1/13

struct SinCos {
    DD s, c;
};

// sin(j/64) and cos(j/64), j = 0 .. 51.
constexpr SinCos kSinCosTable[52] = {
    {{0x0p+0, 0x0p+0}, {0x1p+0, 0x0p+0}},
    {{0x1.fffaaaaeeeed5p-7, -0x1.2ab639a9f0776p-63}, {0x1.fff000155549fp-1, 0x1.28a28a03a5ef3p-55}},
    {{0x1.ffeaaaeeee86fp-6, -0x1.cd406fb224ae2p-60}, {0x1.ffc00155527d3p-1, -0x1.3b54492d89b5bp-55}},
    {{0x1.7fdc01032fba9p-5, -0x1.599bdf46e997ap-59}, {0x1.ff7006bfdf99fp-1, -0x1.8b3b560648d5fp-56}},
    {{0x1.ffaaaeeed4edbp-5, -0x1.2d16d32684b69p-59}, {0x1.ff0015549f4d3p-1, 0x1.328387b99426fp-55}},
    {{0x1.3facb12d1755bp-4, -0x1.921915299468bp-58}, {0x1.fe7034129ef6fp-1, -0x1.cbf4337c96f97p-57}},
    {{0x1.7f701032550e4p-4, 0x1.afc2d1800501ap-60}, {0x1.fdc06bf7e6b9bp-1, 0x1.31902b535f8dbp-55}},
    {{0x1.bf1b78568391dp-4, 0x1.e91841dea4cc8p-58}, {0x1.fcf0c800e99b1p-1, 0x1.ea3d786d186acp-57}},
    {{0x1.feaaeee86ee36p-4, -0x1.afcb2bcc6f03bp-59}, {0x1.fc015527d5bd3p-1, 0x1.b68f35094efb8p-55}},
    {{0x1.1f0d3d7afceafp-3, -0x1.6ef95099769a5p-57}, {0x1.faf22263c4bd3p-1, -0x1.52ace133a2769p-58}},
    {{0x1.3eb312c5d66cbp-3, 0x1.47d666b66cb91p-57}, {0x1.f9c340a7cc428p-1, 0x1.c5b6b063b7462p-55}},
    {{0x1.5e44fcfa126f3p-3, -0x1.6f443063f89b6p-57}, {0x1.f874c2e1eecf6p-1, -0x1.c6514e1332b16p-55}},
    {{0x1.7dc102fbaf2b5p-3, 0x1.5ab50e23c97c3p-59}, {0x1.f706bdf9ece1cp-1, -0x1.698c80c36dcb4p-55}},
    {{0x1.9d252d0cec312p-3, 0x1.9c43d80b1137dp-58}, {0x1.f57948cff6797p-1, 0x1.e3a0d3e03b1d4p-57}},
    {{0x1.bc6f84edc6199p-3, 0x1.9c1a56a7b0cabp-57}, {0x1.f3cc7c3b3d16ep-1, -0x1.21a3ad28a3494p-57}},
    {{0x1.db9e15fb5a5dp-3, -0x1.32e20d6cc6fc2p-57}, {0x1.f20073086649fp-1, 0x1.b940416c1984bp-56}},
    {{0x1.faaeed4f31577p-3, -0x1.15d88508e32b8p-57}, {0x1.f01549f7deea1p-1, 0x1.d3c1e99e5cafdp-55}},
    {{0x1.0cd00cef36436p-2, -0x1.9fb0a0c93e2b4p-56}, {0x1.ee0b1fbc0f11cp-1, -0x1.bfd2380bbc3b1p-59}},
    {{0x1.1c37d64c6b876p-2, 0x1.46076fe0dcff4p-56}, {0x1.ebe214f76efa8p-1, -0x1.02f9f12ba543ep-55}},
    {{0x1.2b8ddc43eb49fp-2, 0x1.1553899f2d807p-57}, {0x1.e99a4c3a7cd83p-1, -0x1.2264b1bc53ce8p-55}},
    {{0x1.3ad129769d3d8p-2, 0x1.03d550487839ap-63}, {0x1.e733ea0193d4p-1, -0x1.6428b3546ce13p-55}},
    {{0x1.4a00c9b0f3d2p-2, 0x1.823ba6bb08eadp-56}, {0x1.e4af14b2a449cp-1, -0x1.68ca02e8a6833p-55}},
    {{0x1.591bc9fa2f597p-2, 0x1.7c74bac3fe0cbp-57}, {0x1.e20bf49acd6c1p-1, -0x1.660aec7ef636bp-58}},
    {{0x1.682138a38d7f7p-2, -0x1.d889202444aadp-56}, {0x1.df4ab3ebd875ep-1, -0x1.e2d8a7e6736c4p-55}},
    {{0x1.7710255764214p-2, -0x1.6ead7314bb6cep-57}, {0x1.dc6b7eb995912p-1, 0x1.4b364776dcd35p-58}},
    {{0x1.85e7a12826949p-2, 0x1.8a40e9b5facep-56}, {0x1.d96e82f71a9dcp-1, 0x1.ff61bd5d2039dp-55}},
    {{0x1.94a6be9f546c5p-2, -0x1.69ce13e683f58p-56}, {0x1.d653f073e404p-1, -0x1.76236434bec37p-55}},
    {{0x1.a34c91cc50ccap-2, -0x1.a310e3b50cecdp-58}, {0x1.d31bf8d8d7c06p-1, 0x1.e60dd3089cbddp-56}},
    {{0x1.b1d8305321617p-2, -0x1.ae242cb99f519p-56}, {0x1.cfc6cfa52ad9fp-1, 0x1.8b5b5508f2a0dp-55}},
    {{0x1.c048b17b140a3p-2, 0x1.19fe6757e9fa7p-57}, {0x1.cc54aa2b2972ep-1, 0x1.4ee162ba83a98p-57}},
    {{0x1.ce9d2e3d4a51fp-2, -0x1.2fc8a12dae298p-57}, {0x1.c8c5bf8ce1a84p-1, 0x1.ab3d1a1590123p-56}},
    {{0x1.dcd4c15329c9ap-2, 0x1.0d4c6e171fd9ap-56}, {0x1.c51a48b8b175ep-1, -0x1.1bbb43b9aa88p-57}},
    {{0x1.eaee8744b05fp-2, -0x1.789b43c9b027dp-58}, {0x1.c1528065b7d5p-1, -0x1.892111312e828p-55}},
    {{0x1.f8e99e76abc97p-2, 0x1.9d950af2d00a3p-58}, {0x1.bd6ea310294f5p-1, 0x1.31bbcc88c109dp-56}},
    {{0x1.0362939c69955p-1, -0x1.2d8cd78397b01p-55}, {0x1.b96eeef58840ep-1, 0x1.45a3cc78fadep-58}},
    {{0x1.0a4021e9e1001p-1, -0x1.6f643a13914f6p-55}, {0x1.b553a410c104ep-1, 0x1.8ff7947027a15p-58}},
    {{0x1.110d0c4b69c3bp-1, 0x1.d918998809981p-55}, {0x1.b11d04162a4c6p-1, 0x1.1dd561efbc0c2p-56}},
    {{0x1.17c8e5f2eedbp-1, 0x1.35e57102e2488p-57}, {0x1.accb526f69de5p-1, 0x1.8fb6a8dd6b6ccp-55}},
    {{0x1.1e7343236574cp-1, 0x1.22a3fa4f41d5ap-56}, {0x1.a85ed4373e02dp-1, 0x1.9be06385ec792p-57}},
    {{0x1.250bb93788bbbp-1, 0x1.ea3d02457bccep-56}, {0x1.a3d7d0352bdcfp-1, -0x1.68dbaeca19669p-55}},
    {{0x1.2b91dea88421ep-1, -0x1.fa371db216abp-55}, {0x1.9f368ed912f85p-1, -0x1.1d200c5791606p-55}},
    {{0x1.32054b148bc4fp-1, 0x1.f6b42095a135bp-55}, {0x1.9a7b5a36a6514p-1, 0x1.722cfcc9fa7a9p-55}},
    {{0x1.386597456282bp-1, -0x1.10fada93b07a8p-56}, {0x1.95a67e00cb1fdp-1, -0x1.0befda21f862dp-55}},
    {{0x1.3eb25d36cd53ap-1, -0x1.be570e1570fcp-58}, {0x1.90b84784ddaf7p-1, -0x1.0feb10ab93b87p-56}},
    {{0x1.44eb381cf386bp-1, -0x1.3ed6c1e6a5505p-55}, {0x1.8bb105a5dc9p-1, 0x1.863e03e9474c1p-55}},
    {{0x1.4b0fc46aab761p-1, 0x1.0da05738cc59cp-61}, {0x1.869108d77a6c6p-1, 0x1.338ffe2bfe9ddp-56}},
    {{0x1.511f9fd7b351cp-1, -0x1.5c0e861c48831p-55}, {0x1.8158a31916d5dp-1, -0x1.de8b90b8228dep-57}},
    {{0x1.571a6966d59b3p-1, 0x1.c843b4d0fb197p-58}, {0x1.7c0827f09e54fp-1, -0x1.c73d6d72aee68p-57}},
    {{0x1.5cffc16bf8f0dp-1, 0x1.96cb370eb578ap-55}, {0x1.769fec655211fp-1, -0x1.827d5cf8c68c5p-57}},
    {{0x1.62cf49921ac79p-1, -0x1.edd9855b6241ap-55}, {0x1.712046fa77678p-1, 0x1.425b0a5029c81p-55}},
    {{0x1.6888a4e134b2fp-1, -0x1.6b7d37644d5e6p-55}, {0x1.6b898fa9efb5dp-1, 0x1.15ac786ccf4b2p-56}},
    {{0x1.6e2b77c40bde1p-1, -0x1.0e729857fad53p-56}, {0x1.65dc1fdeb8cbap-1, -0x1.97c1b47337c77p-58}},
};

// atan(j/128), j = 0 .. 128.
constexpr DD kAtanTable[129] = {
    {0x0p+0, 0x0p+0},
    {0x1.fffd555bbba97p-8, 0x1.68062351fbbe6p-63},
    {0x1.fff555bbb729bp-7, -0x1.220c39d4dff5p-61},
    {0x1.7fee0184a5c36p-6, -0x1.43189fc0a354bp-60},
    {0x1.ffd55bba97625p-6, -0x1.5ec431444912cp-60},
    {0x1.3fd65f169c9d9p-5, 0x1.7230a716461b5p-61},
    {0x1.7fb818430da2ap-5, -0x1.86ef8f794f105p-63},
    {0x1.bf8ddf139c444p-5, -0x1.89fe34b2a7fa8p-59},
    {0x1.ff55bb72cfdeap-5, -0x1.c934d86d23f1dp-60},
    {0x1.1f86dbf082d59p-4, -0x1.095dc7732ef81p-59},
    {0x1.3f59f0e7c559dp-4, 0x1.ac4ce285df847p-58},
    {0x1.5f2324fd2d7b2p-4, 0x1.8a8da4401318ep-58},
    {0x1.7ee182602f10fp-4, -0x1.cfb654c0c3d98p-58},
    {0x1.9e94153cfdcf1p-4, 0x1.a332e1d69c47ep-58},
    {0x1.be39ebe6f07c3p-4, 0x1.f7b8f29a05987p-58},
    {0x1.ddd21701eba6ep-4, 0x1.94effcd76fe58p-58},
    {0x1.fd5ba9aac2f6ep-4, -0x1.cd37686760c17p-59},
    {0x1.0e6adccf40882p-3, -0x1.d71a31bb98d0dp-57},
    {0x1.1e1fafb043727p-3, -0x1.b485914dacf8cp-59},
    {0x1.2dcbdb2fba1ffp-3, 0x1.8f28705561534p-58},
    {0x1.3d6eee8c6626cp-3, 0x1.61a3b0ce9281bp-57},
    {0x1.4d087a9da4f17p-3, 0x1.1f323f1adf158p-57},
    {0x1.5c9811e3ec26ap-3, -0x1.054ab2c010f3dp-58},
    {0x1.6c1d4898933d9p-3, -0x1.2954a7603c427p-58},
    {0x1.7b97b4bce5b02p-3, 0x1.347b0b4f881cap-58},
    {0x1.8b06ee2879c29p-3, -0x1.118cd30308c4fp-57},
    {0x1.9a6a8e96c8626p-3, 0x1.cf601e7b4348ep-59},
    {0x1.a9c231b403279p-3, 0x1.0e8bbe89cca85p-57},
    {0x1.b90d7529260a2p-3, 0x1.17b10d2e0e5abp-61},
    {0x1.c84bf8a742e6ep-3, -0x1.95bdd0682ea26p-58},
    {0x1.d77d5df205736p-3, 0x1.c648d1534597ep-57},
    {0x1.e6a148e96ec4dp-3, 0x1.866b22029f765p-57},
    {0x1.f5b75f92c80ddp-3, 0x1.8ab6e3cf7afbdp-57},
    {0x1.025fa510665b6p-2, -0x1.672df6832fa48p-56},
    {0x1.09dc597d86362p-2, 0x1.62e47390cb865p-56},
    {0x1.1151a362431cap-2, -0x1.4dc8dc9077b9fp-56},
    {0x1.18bf5a30bf178p-2, 0x1.30ca4748b1bf9p-57},
    {0x1.2025567e47c96p-2, -0x1.1832328f4290ep-57},
    {0x1.278372057ef46p-2, -0x1.077cdd36dfc81p-56},
    {0x1.2ed987a823cfep-2, 0x1.b91258ea012cap-57},
    {0x1.362773707ebccp-2, -0x1.963a544b672d8p-57},
    {0x1.3d6d129271134p-2, 0x1.137ca41cc958ap-56},
    {0x1.44aa436c2af0ap-2, -0x1.5d5e43c55b3bap-56},
    {0x1.4bdee586890e7p-2, -0x1.e4dc77c22a757p-57},
    {0x1.530ad9951cd4ap-2, -0x1.2566480884082p-57},
    {0x1.5a2e0175e0f4ep-2, 0x1.13b7a8f82e457p-56},
    {0x1.614840309cfe2p-2, -0x1.a725715711fp-56},
    {0x1.685979f5fa6fep-2, -0x1.257814d1ada9cp-59},
    {0x1.6f61941e4def1p-2, -0x1.c63aae6f6e918p-56},
    {0x1.7660752817502p-2, -0x1.dd11791cc76p-59},
    {0x1.7d5604b63b3f7p-2, 0x1.69c885c2b249ap-56},
    {0x1.84422b8df95d7p-2, 0x1.d76a0299b41b6p-56},
    {0x1.8b24d394a1b25p-2, 0x1.b6d0ba3748fa8p-56},
    {0x1.91fde7cd0c662p-2, 0x1.1074188054b53p-56},
    {0x1.98cd5454d6b18p-2, 0x1.9e6c988fd0a77p-56},
    {0x1.9f93066168002p-2, -0x1.c827047c9439ap-56},
    {0x1.a64eec3cc23fdp-2, -0x1.24dec1b50b7ffp-56},
    {0x1.ad00f5422058bp-2, 0x1.fc4c33891d2e8p-56},
    {0x1.b3a911da65c6cp-2, 0x1.ae187b1ca504p-56},
    {0x1.ba473378624a5p-2, 0x1.519a1b46e4affp-56},
    {0x1.c0db4c94ec9fp-2, -0x1.cc1ce70934c34p-56},
    {0x1.c76550aad71f9p-2, -0x1.74b8bff7043e4p-56},
    {0x1.cde53432c1351p-2, -0x1.a2cfa4418f1adp-56},
    {0x1.d45aec9ec862bp-2, 0x1.89421163ef92dp-57},
    {0x1.dac670561bb4fp-2, 0x1.a2b7f222f65e2p-56},
    {0x1.e127b6b0744bp-2, -0x1.2b0986398d4abp-58},
    {0x1.e77eb7f175a34p-2, 0x1.0e53dc1bf3435p-56},
    {0x1.edcb6d43f8435p-2, -0x1.fc976330884e4p-58},
    {0x1.f40dd0b541418p-2, -0x1.a3992dc382a23p-57},
    {0x1.fa45dd3029259p-2, -0x1.ca563dc28d8b5p-56},
    {0x1.0039c73c1a40cp-1, -0x1.b32c949c9d593p-55},
    {0x1.034b709250488p-1, 0x1.8f9b38d85541p-56},
    {0x1.0657e94db30dp-1, -0x1.d5b495f6349e6p-56},
    {0x1.095f30861a59p-1, -0x1.121b20a15a9f3p-56},
    {0x1.0c6145b5b43dap-1, 0x1.974fa13b5404fp-58},
    {0x1.0f5e28b67e295p-1, 0x1.311b17ec990dp-65},
    {0x1.1255d9bfbd2a9p-1, -0x1.2bdaee1c0ee35p-58},
    {0x1.154859637646ap-1, -0x1.4ba7c548bf3c3p-55},
    {0x1.1835a88be7c13p-1, 0x1.c621cec00c301p-55},
    {0x1.1b1dc87904285p-1, -0x1.21e8c8aef8f29p-57},
    {0x1.1e00babdefeb4p-1, -0x1.928df287a668fp-58},
    {0x1.20de813e823b2p-1, -0x1.791d753ebb744p-55},
    {0x1.23b71e2cc9e6ap-1, 0x1.c421c9f38224ep-57},
    {0x1.268a940696da6p-1, 0x1.d1348a04c73ccp-58},
    {0x1.2958e59308e31p-1, -0x1.09e73b0c6c087p-56},
    {0x1.2c2215e024466p-1, -0x1.4b810da3a4be1p-59},
    {0x1.2ee628406cbcap-1, 0x1.c5d5e9ff0cf8dp-55},
    {0x1.31a52048874bep-1, 0x1.40cab87a7ac24p-55},
    {0x1.345f01cce37bbp-1, 0x1.1021137c71102p-55},
    {0x1.3713d0df6c504p-1, -0x1.4f789e031606dp-58},
    {0x1.39c391cd4171ap-1, -0x1.2304331d8bf46p-55},
    {0x1.3c6e491c78dc5p-1, -0x1.e145094fd0ba7p-55},
    {0x1.3f13fb89e96f4p-1, 0x1.ecf8b492644fp-56},
    {0x1.41b4ae06fea41p-1, 0x1.3d60a53277652p-57},
    {0x1.445065b795b56p-1, -0x1.f76d0163f79c8p-56},
    {0x1.46e727efe4716p-1, -0x1.39b9b1b844cc9p-57},
    {0x1.4978fa3269ee1p-1, 0x1.2419a87f2a458p-56},
    {0x1.4c05e22de94e5p-1, -0x1.c0ac1f09f2edfp-55},
    {0x1.4e8de5bb6ec04p-1, 0x1.4a33dbeb3796cp-55},
    {0x1.51110adc5ed81p-1, 0x1.23dcd6832a63ep-56},
    {0x1.538f57b89061fp-1, -0x1.1bb74abda520cp-55},
    {0x1.5608d29c70c34p-1, 0x1.9939cf0de8088p-55},
    {0x1.587d81f732fbbp-1, -0x1.5e5c9d8c5a95p-56},
    {0x1.5aed6c5909517p-1, 0x1.7312f714a9436p-55},
    {0x1.5d58987169b18p-1, 0x1.0028e4bc5e7cap-57},
    {0x1.5fbf0d0d5cc4ap-1, -0x1.b4cfd000b7158p-58},
    {0x1.6220d115d7b8ep-1, -0x1.2b785350ee8c1p-57},
    {0x1.647deb8e20b9p-1, -0x1.eca04023a51cfp-58},
    {0x1.66d663923e087p-1, -0x1.6ea6febe8bbbap-56},
    {0x1.692a40556fb6ap-1, 0x1.d94b95a8ea2ccp-55},
    {0x1.6b798920b3d99p-1, -0x1.a80386188c50ep-55},
    {0x1.6dc44551553afp-1, -0x1.bf8863573828ep-58},
    {0x1.700a7c5784634p-1, -0x1.8c34d25aadef6p-56},
    {0x1.724c35b4fae7bp-1, 0x1.948b32db3499bp-58},
    {0x1.748978fba8e0fp-1, 0x1.7b2a6165884a1p-59},
    {0x1.76c24dcc6c6cp-1, 0x1.1952551adc83dp-55},
    {0x1.78f6bbd5d315ep-1, 0x1.406a08980374p-55},
    {0x1.7b26cad2e50fep-1, -0x1.ce80df30411fbp-55},
    {0x1.7d528289fa093p-1, 0x1.560821e2f3aa9p-55},
    {0x1.7f79eacb97898p-1, 0x1.fd5ca80ead221p-55},
    {0x1.819d0b7158a4dp-1, -0x1.bf76229d3b917p-56},
    {0x1.83bbec5cdee22p-1, 0x1.3107104ffc6c3p-57},
    {0x1.85d69576cc2c5p-1, 0x1.6b66e7fc8b8c3p-57},
    {0x1.87ed0eadc5a2ap-1, 0x1.0af5ad957f4bcp-56},
    {0x1.89ff5ff57f1f8p-1, -0x1.55b9a5e177a1bp-55},
    {0x1.8c0d9145cf49dp-1, 0x1.bea4076dc4333p-55},
    {0x1.8e17aa99cc05ep-1, -0x1.ec182ab042f61p-56},
    {0x1.901db3eeef187p-1, 0x1.68665e5603c8fp-55},
    {0x1.921fb54442d18p-1, 0x1.1a62633145c07p-55},
};

// The bits of 2/pi, 64 to a word, most significant first, after one word of zeros (the bits
// of weight 2^63 .. 2^0), so that a window may start before the binary point.
constexpr u64 kTwoOverPi[23] = {
    0x0000000000000000u, 0xA2F9836E4E441529u, 0xFC2757D1F534DDC0u, 0xDB6295993C439041u,
    0xFE5163ABDEBBC561u, 0xB7246E3A424DD2E0u, 0x06492EEA09D1921Cu, 0xFE1DEB1CB129A73Eu,
    0xE88235F52EBB4484u, 0xE99C7026B45F7E41u, 0x3991D639835339F4u, 0x9C845F8BBDF9283Bu,
    0x1FF897FFDE05980Fu, 0xEF2F118B5A0A6D1Fu, 0x6D367ECF27CB09B7u, 0x4F463F669E5FEA2Du,
    0x7527BAC7EBE5F17Bu, 0x3D0739F78A5292EAu, 0x6BFB5FB11F8D5D08u, 0x56033046FC7B6BABu,
    0xF0CFBC209AF4361Du, 0xA9E391615EE61B08u, 0x6599855F14A06840u,
};

// ---------------------------------------------------------------------------------------------
// Reduction by pi/2 in integer arithmetic.

// |x| 2/pi = 4k + quadrant + f with -1/2 <= f < 1/2, for 2^-10 <= |x| finite: the quadrant, the
// sign of f and |f| 2^(64N), most significant word first, within 2^(55-64N) of |f|.
template <int N>
struct QuadrantFraction {
    unsigned quadrant;  // 0 .. 3
    bool negative;      // f < 0
    u64 bits[N];
};

template <int N>
QuadrantFraction<N> reduceQuadrants(double ax) {
    const u64 b = std::bit_cast<u64>(ax);
    const int e = static_cast<int>(b >> 52) - 1075;  // ax = m 2^e
    const u64 m = (b & 0xFFFFFFFFFFFFFu) | (1ull << 52);
    // The window starts at the bit of 2/pi of weight 2^(1-e): the window times m 2^e is then
    // (the window read as an integer) times m, scaled by 2^(2-64N); the bits before it only add
    // multiples of 4, the ones after it less than m 2^(2-64N) < 2^(55-64N).
    const int first = e + 62;
    const int word = first >> 6, shift = first & 63;
    u64 window[N];
    for (int k = 0; k < N; ++k)
        window[k] = shift == 0 ? kTwoOverPi[word + k]
                               : (kTwoOverPi[word + k] << shift) | (kTwoOverPi[word + k + 1] >> (64 - shift));
    // The low 64N bits of m * window: two bits of quadrant, then the fraction.
    QuadrantFraction<N> out;
    u64* p = out.bits;
    u128 t = 0;
    for (int k = N - 1; k > 0; --k) {
        t = static_cast<u128>(m) * window[k] + (t >> 64);
        p[k] = static_cast<u64>(t);
    }
    p[0] = m * window[0] + static_cast<u64>(t >> 64);
    const unsigned quadrant = static_cast<unsigned>(p[0] >> 62);
    for (int k = 0; k + 1 < N; ++k) p[k] = (p[k] << 2) | (p[k + 1] >> 62);
    p[N - 1] <<= 2;
    // A fraction of 1/2 or more: the next multiple of pi/2 is nearer, and |f| is 1 minus the
    // fraction, here its complement (short by one unit of the last place).
    out.negative = (p[0] >> 63) != 0;
    if (out.negative)
        for (int k = 0; k < N; ++k) p[k] = ~p[k];
    out.quadrant = (quadrant + (out.negative ? 1u : 0u)) & 3u;
    return out;
}

// A fraction of 64N bits as a DD of its leading 106 bits (short by less than 2^-105 relative).
template <int N>
DD fractionDD(const u64 (&p)[N]) {
    int k = 0;
    while (k + 1 < N && p[k] == 0) ++k;
    if (p[k] == 0) return {0.0, 0.0};
    const int s = std::countl_zero(p[k]);
    u64 w0 = p[k];
    u64 w1 = k + 1 < N ? p[k + 1] : 0;
    const u64 w2 = k + 2 < N ? p[k + 2] : 0;
    if (s != 0) {
        w0 = (w0 << s) | (w1 >> (64 - s));
        w1 = (w1 << s) | (w2 >> (64 - s));
    }
    const int lz = 64 * k + s;
    return fastTwoSum(static_cast<double>(w0 >> 11) * pow2(-53 - lz),
                      static_cast<double>(((w0 & 0x7FFu) << 42) | (w1 >> 22)) * pow2(-106 - lz));
}

struct Reduced {
    DD r;               // |r| <= pi/4 (1 + 2^-50)
    unsigned quadrant;  // |x| = quadrant pi/2 + r (mod 2 pi)
};

// With N = 3 words (the quick stage) r is within 2^-75 relative, with N = 4 within 2^-102.4.
template <int N>
Reduced reduce(double ax) {
    if (ax < 0.78) return {{ax, 0.0}, 0};
    const QuadrantFraction<N> f = reduceQuadrants<N>(ax);
    const DD r = mul(fractionDD(f.bits), kHalfPi);
    return {f.negative ? neg(r) : r, f.quadrant};
}

// True when hi (a double in the range of normal floats) is more than two units in its last place
// away from the nearest float midpoint: then any value within two units of hi rounds to float as
// hi does. Cheap, and true for all but about one double in 2^26.
inline bool clearOfFloatMidpoint(double hi) {
    const u64 b = std::bit_cast<u64>(hi) & ~(1ull << 63);
    const u64 low = b & 0x1FFFFFFFu;  // the 29 bits below float precision
    return b >= (static_cast<u64>(1023 - 126) << 52) && b < (static_cast<u64>(1023 + 128) << 52) &&
           low - ((1u << 28) - 2) > 4;
}

// ---------------------------------------------------------------------------------------------
// The DD kernels.

// First stage: sin(rho) or cos(rho) for 0 <= rho <= pi/4 (1 + 2^-50), within 2^-65 relative.
// Only the leading terms S + C s (resp. C - S s) are in DD; cos(s) - 1 (<= 2^-15) and sin(s) - s
// (<= 2^-23.6) are in double, where they are within 2^-68 resp. 2^-76 of their true values.
DD sinCosQuick(DD rho, bool wantCos) {
    const int j = static_cast<int>(rho.hi * 64.0 + 0.5);
    const DD s = twoSum(rho.hi - j * 0x1p-6, rho.lo);  // the difference is exact
    const double z = s.hi * s.hi;
    // s.lo (< 2^-60) enters cos(s) - 1 to first order only, and sin(s) - s below 2^-75.
    const double cosM1 = z * (-0.5 + z * (kCos4d + z * (kCos6d + z * kCos8))) - s.hi * s.lo;
    const double sinMs = (s.hi * z) * (kSin3d + z * (kSin5d + z * (kSin7 + z * kSin9)));
    if (j == 0) return wantCos ? fastTwoSum(1.0, cosM1) : addD(s, sinMs);
    const SinCos& t = kSinCosTable[j];
    if (wantCos) return addD(sub(t.c, mul(t.s, s)), t.c.hi * cosM1 - t.s.hi * sinMs);
    return addD(add(t.s, mul(t.c, s)), t.s.hi * cosM1 + t.c.hi * sinMs);
}

// cos(s) - 1 = z (-1/2 + z (1/4! + z (-1/6! + z (1/8! - z/10!)))), z = s^2 <= 2^-14.
DD cosMinusOne(DD z) {
    const double a = kCos8 + z.hi * kCos10;
    const DD b = addD(kCos6, z.hi * a);
    const DD c = add(kCos4, mul(z, b));
    return mul(z, addD(mul(z, c), -0.5));
}

// sin(s) = s + s z (-1/3! + z (1/5! + z (-1/7! + z (1/9! - z/11!)))), z = s^2 <= 2^-14.
DD sinSmall(DD s, DD z) {
    const double a = kSin9 + z.hi * kSin11;
    const double b = kSin7 + z.hi * a;
    const DD c = addD(kSin5, z.hi * b + z.lo * b);
    const DD d = add(kSin3, mul(z, c));
    return add(s, mul(s, mul(z, d)));
}

// sin(rho) or cos(rho) for 0 <= rho <= pi/4 (1 + 2^-50).
DD sinCosKernel(DD rho, bool wantCos) {
    const int j = static_cast<int>(rho.hi * 64.0 + 0.5);
    const DD s = twoSum(rho.hi - j * 0x1p-6, rho.lo);  // the difference is exact
    const DD z = mul(s, s);
    if (j == 0) return wantCos ? addD(cosMinusOne(z), 1.0) : sinSmall(s, z);
    const DD cosM1 = cosMinusOne(z), sinS = sinSmall(s, z);
    const SinCos& t = kSinCosTable[j];
    if (wantCos) return add(t.c, sub(mul(t.c, cosM1), mul(t.s, sinS)));
    return add(t.s, add(mul(t.s, cosM1), mul(t.c, sinS)));
}

// sin(quadrant pi/2 + r), by the first (quick) or the second stage.
DD sinOfReduced(const Reduced& red, unsigned quadrant, bool quick) {
    const bool negative = signBit(red.r.hi);
    const DD rho = negative ? neg(red.r) : red.r;
    const bool odd = (quadrant & 1u) != 0;
    DD v = quick ? sinCosQuick(rho, odd) : sinCosKernel(rho, odd);
    if (!odd && negative) v = neg(v);
    return (quadrant & 2u) ? neg(v) : v;
}

// ---------------------------------------------------------------------------------------------
// 256-bit fixed point: Q2.254 in four limbs, least significant first.

struct U256 {
    u64 w[4];
};

constexpr U256 kZero = {{0, 0, 0, 0}};
constexpr U256 kOne = {{0, 0, 0, 1ull << 62}};
// pi/2, truncated.
constexpr U256 kHalfPiFixed = {{0x0105DF531D89CD91u, 0x948127044533E63Au, 0x62633145C06E0E68u, 0x6487ED5110B4611Au}};

U256 add(const U256& a, const U256& b) {
    U256 r;
    u64 carry = 0;
    for (int k = 0; k < 4; ++k) {
        const u128 t = static_cast<u128>(a.w[k]) + b.w[k] + carry;
        r.w[k] = static_cast<u64>(t);
        carry = static_cast<u64>(t >> 64);
    }
    return r;
}

U256 sub(const U256& a, const U256& b) {
    U256 r;
    u64 borrow = 0;
    for (int k = 0; k < 4; ++k) {
        const u64 t = a.w[k] - b.w[k];
        r.w[k] = t - borrow;
        borrow = (a.w[k] < b.w[k] || t < borrow) ? 1 : 0;
    }
    return r;
}

bool less(const U256& a, const U256& b) {
    for (int k = 3; k >= 0; --k)
        if (a.w[k] != b.w[k]) return a.w[k] < b.w[k];
    return false;
}

bool isNegative(const U256& a) { return (a.w[3] >> 63) != 0; }  // read as two's complement
U256 negate(const U256& a) { return sub(kZero, a); }

U256 shiftRight(const U256& a, int n) {
    U256 r = kZero;
    if (n >= 256) return r;
    const int k = n >> 6, s = n & 63;
    for (int i = 0; i + k < 4; ++i) {
        r.w[i] = a.w[i + k] >> s;
        if (s != 0 && i + k + 1 < 4) r.w[i] |= a.w[i + k + 1] << (64 - s);
    }
    return r;
}

U256 shiftLeft(const U256& a, int n) {
    U256 r = kZero;
    if (n >= 256) return r;
    const int k = n >> 6, s = n & 63;
    for (int i = 3; i - k >= 0; --i) {
        r.w[i] = a.w[i - k] << s;
        if (s != 0 && i - k - 1 >= 0) r.w[i] |= a.w[i - k - 1] >> (64 - s);
    }
    return r;
}

int bitLength(const U256& a) {
    for (int k = 3; k >= 0; --k)
        if (a.w[k] != 0) return 64 * k + 64 - std::countl_zero(a.w[k]);
    return 0;
}

// (a * b) >> shift, truncated; the caller keeps the result below 2^256.
U256 mulShift(const U256& a, const U256& b, int shift) {
    u64 r[8] = {};
    for (int i = 0; i < 4; ++i) {
        u128 carry = 0;
        for (int j = 0; j < 4; ++j) {
            const u128 t = static_cast<u128>(a.w[i]) * b.w[j] + r[i + j] + carry;
            r[i + j] = static_cast<u64>(t);
            carry = t >> 64;
        }
        r[i + 4] = static_cast<u64>(carry);
    }
    U256 out = kZero;
    const int k = shift >> 6, s = shift & 63;
    for (int i = 0; i < 4 && i + k < 8; ++i) {
        out.w[i] = r[i + k] >> s;
        if (s != 0 && i + k + 1 < 8) out.w[i] |= r[i + k + 1] << (64 - s);
    }
    return out;
}

// Q2.254 product.
U256 mulQ(const U256& a, const U256& b) { return mulShift(a, b, 254); }

U256 divSmall(const U256& a, u64 d) {
    U256 q;
    u128 rem = 0;
    for (int k = 3; k >= 0; --k) {
        const u128 cur = (rem << 64) | a.w[k];
        q.w[k] = static_cast<u64>(cur / d);
        rem = cur % d;
    }
    return q;
}

// |d| 2^254 truncated, for |d| < 4 (d normal or zero).
U256 toFixed(double d) {
    const u64 b = std::bit_cast<u64>(d) & ~(1ull << 63);
    if (b == 0) return kZero;
    const int e = static_cast<int>(b >> 52) - 1075;
    const U256 m = {{(b & 0xFFFFFFFFFFFFFu) | (1ull << 52), 0, 0, 0}};
    return e + 254 >= 0 ? shiftLeft(m, e + 254) : shiftRight(m, -(e + 254));
}

// A DD as a two's complement Q2.254 number (bits below 2^-254 dropped).
U256 toFixed(DD v) {
    const U256 h = toFixed(v.hi), l = toFixed(v.lo);
    const U256 hs = signBit(v.hi) ? negate(h) : h;
    return signBit(v.lo) ? sub(hs, l) : add(hs, l);
}

// A two's complement Q2.254 number as a DD (its leading 106 bits).
DD toDD(const U256& v) {
    const bool negative = isNegative(v);
    const U256 a = negative ? negate(v) : v;
    const int len = bitLength(a);
    if (len == 0) return {0.0, 0.0};
    const U256 top = len >= 106 ? shiftRight(a, len - 106) : shiftLeft(a, 106 - len);
    const u64 high = static_cast<u64>((static_cast<u128>(top.w[1]) << 64 | top.w[0]) >> 53);
    const u64 low = top.w[0] & ((1ull << 53) - 1);
    const DD r = fastTwoSum(static_cast<double>(high) * pow2(len - 53 - 254),
                            static_cast<double>(low) * pow2(len - 106 - 254));
    return negative ? neg(r) : r;
}

// sin(r) and cos(r) for 0 <= r <= pi/4 (1 + 2^-40): Taylor series to the 55th power, by
// Horner's rule; every partial value 1 - r^2/(k(k+1)) (...) stays in (0, 1]. Within 2^-251.
U256 sinFixed(const U256& r) {
    const U256 r2 = mulQ(r, r);
    U256 v = kOne;
    for (u64 k = 27; k >= 1; --k) v = sub(kOne, divSmall(mulQ(r2, v), (2 * k) * (2 * k + 1)));
    return mulQ(r, v);
}

U256 cosFixed(const U256& r) {
    const U256 r2 = mulQ(r, r);
    U256 v = kOne;
    for (u64 k = 27; k >= 1; --k) v = sub(kOne, divSmall(mulQ(r2, v), (2 * k - 1) * (2 * k)));
    return v;
}

// sin(|x| + shift pi/2) as a two's complement Q2.254 number, within 2^-249, for 2^-26 <= |x|
// finite.
U256 sinFixedOf(double ax, unsigned shift) {
    U256 r;
    unsigned quadrant = 0;
    bool negative = false;
    if (ax < 0.78) {
        r = toFixed(ax);
    } else {
        const QuadrantFraction<5> f = reduceQuadrants<5>(ax);
        const U256 frac = {{f.bits[3], f.bits[2], f.bits[1], f.bits[0]}};  // Q0.256
        r = mulShift(frac, kHalfPiFixed, 256);
        quadrant = f.quadrant;
        negative = f.negative;
    }
    quadrant = (quadrant + shift) & 3u;
    U256 v;
    if (quadrant & 1u) {
        v = cosFixed(r);
    } else {
        v = sinFixed(r);
        if (negative) v = negate(v);
    }
    return (quadrant & 2u) ? negate(v) : v;
}

// Rounds a Q2.254 number (two's complement when `signed_`, else in [0, 4)) to `precision` bits
// (53: double, 24: float), ties to even; normal results only.
double roundFixed(const U256& v, bool signed_, int precision) {
    const bool negative = signed_ && isNegative(v);
    const U256 a = negative ? negate(v) : v;
    const int drop = bitLength(a) - precision;
    double m;
    if (drop <= 0) {
        m = static_cast<double>(a.w[0]);
    } else {
        const U256 kept = shiftRight(a, drop);
        const U256 rem = sub(a, shiftLeft(kept, drop));
        const U256 half = shiftLeft(U256{{1, 0, 0, 0}}, drop - 1);
        const bool up = less(half, rem) || (!less(rem, half) && (kept.w[0] & 1u) != 0);
        m = static_cast<double>(kept.w[0] + (up ? 1u : 0u));
    }
    const double r = m * pow2((drop > 0 ? drop : 0) - 254);
    return negative ? -r : r;
}

// ---------------------------------------------------------------------------------------------
// atan2.

// atan(num/den) for 0 < num <= den: the table point j/128 nearest to num/den, and
// u = (t - c)/(1 + t c) = (n - c d)/(d + c n) as a DD (numerator and denominator are exact).
DD atanArgument(double num, double den, int& j) {
    j = static_cast<int>((num / den) * 128.0 + 0.5);
    const double c = j * 0x1p-7;
    const double n = num - c * den, d = den + c * num;
    const double uh = n / d;
    const DD p = twoProd(uh, d);
    return fastTwoSum(uh, ((n - p.hi) - p.lo) / d);
}

// First stage, within 2^-68 relative: atan(u) - u (<= 2^-17.6 u) in double.
DD atanQuick(double num, double den) {
    int j;
    const DD u = atanArgument(num, den, j);
    const double w = u.hi * u.hi;
    const double tail = (u.hi * w) * (kAtan3d + w * (kAtan5d + w * (kAtan7d + w * kAtan9)));
    return j == 0 ? addD(u, tail) : addD(add(kAtanTable[j], u), tail);
}

// Second stage: atan(u) = u + u w (-1/3 + w (1/5 + w (-1/7 + w (1/9 + w (-1/11 + w/13))))).
DD atanKernel(double num, double den) {
    int j;
    const DD u = atanArgument(num, den, j);
    const DD w = mul(u, u);
    const double a = kAtan9 + w.hi * (kAtan11 + w.hi * kAtan13);
    const DD b = addD(kAtan7, w.hi * a);
    const DD cc = add(kAtan5, mul(w, b));
    const DD dd = add(kAtan3, mul(w, cc));
    const DD atanU = add(u, mul(u, mul(w, dd)));
    return j == 0 ? atanU : add(kAtanTable[j], atanU);
}

DD atan2Stage(float y, float x, bool quick) {
    const double ay = std::fabs(static_cast<double>(y)), ax = std::fabs(static_cast<double>(x));
    const bool swap = ay > ax;
    const double num = swap ? ax : ay, den = swap ? ay : ax;
    DD v = quick ? atanQuick(num, den) : atanKernel(num, den);
    if (swap) v = sub(kHalfPi, v);
    if (signBit(x)) v = sub(kPi, v);
    return signBit(y) ? neg(v) : v;
}

}  // namespace

// ---------------------------------------------------------------------------------------------
// Stages and rounding.

namespace detail {

DD sinQuick(double x) {
    const Reduced red = reduce<3>(std::fabs(x));
    const DD v = sinOfReduced(red, red.quadrant, true);
    return signBit(x) ? neg(v) : v;
}

DD cosQuick(double x) {
    const Reduced red = reduce<3>(std::fabs(x));
    return sinOfReduced(red, (red.quadrant + 1u) & 3u, true);
}

DD atan2Quick(float y, float x) { return atan2Stage(y, x, true); }

DD sinDD(double x) {
    const Reduced red = reduce<4>(std::fabs(x));
    const DD v = sinOfReduced(red, red.quadrant, false);
    return signBit(x) ? neg(v) : v;
}

DD cosDD(double x) {
    const Reduced red = reduce<4>(std::fabs(x));
    return sinOfReduced(red, (red.quadrant + 1u) & 3u, false);
}

DD atan2DD(float y, float x) { return atan2Stage(y, x, false); }

float nearestFloat(DD v) {
    float f = static_cast<float>(v.hi);
    const double d = f;
    if (d != v.hi && v.lo != 0.0 && std::fabs(f) <= std::numeric_limits<float>::max()) {
        // The neighbour of f on the side of hi; when hi lies exactly halfway, lo decides.
        const bool up = v.hi > d;
        const uint32_t b = std::bit_cast<uint32_t>(f);
        const float g = f == 0.0f ? (up ? 0x1p-149f : -0x1p-149f)
                                  : std::bit_cast<float>((f > 0.0f) == up ? b + 1 : b - 1);
        if (v.hi - d == static_cast<double>(g) - v.hi && (v.lo > 0.0) == up) f = g;
    }
    return f;
}

bool roundsSafelyToDouble(DD v, double relError) {
    const double h = std::fabs(v.hi);
    const double l = signBit(v.hi) ? -v.lo : v.lo;
    const u64 b = std::bit_cast<u64>(h);
    const int biased = static_cast<int>(b >> 52);
    if (biased < 60 || biased == 2047) return false;  // tiny, subnormal, infinite: not produced
    const double halfUlp = pow2(biased - 1023 - 53);
    const double halfBelow = (b & 0xFFFFFFFFFFFFFu) == 0 ? 0.5 * halfUlp : halfUlp;
    const double err = h * relError * 1.125;
    return l + err < halfUlp && l - err > -halfBelow;
}

bool roundsSafelyToFloat(DD v, double relError) {
    const float f = nearestFloat(v);
    const double h = std::fabs(v.hi);
    const double l = signBit(v.hi) ? -v.lo : v.lo;
    const double af = std::fabs(static_cast<double>(f));
    if (!(af <= std::numeric_limits<float>::max())) return false;
    const uint32_t fb = std::bit_cast<uint32_t>(static_cast<float>(af));
    const int biased = static_cast<int>(fb >> 23);
    const double ulp = pow2((biased == 0 ? 1 : biased) - 127 - 23);
    const double ulpBelow = (biased > 1 && (fb & 0x7FFFFFu) == 0) ? 0.5 * ulp : ulp;
    const double up = af + 0.5 * ulp, down = af - 0.5 * ulpBelow;  // exact
    const double err = h * relError * 1.125;
    return (up - h) - l > err && (h - down) + l > err;
}

double sinAccurate(double x) {
    const double ax = std::fabs(x);
    if (!(ax <= std::numeric_limits<double>::max())) return x - x;
    if (ax < 0x1p-26) return x;
    const double r = roundFixed(sinFixedOf(ax, 0), true, 53);
    return signBit(x) ? -r : r;
}

float sinfAccurate(float x) {
    const float ax = std::fabs(x);
    if (!(ax <= std::numeric_limits<float>::max())) return x - x;
    if (ax < 0x1p-12f) return x;
    const float r = static_cast<float>(roundFixed(sinFixedOf(ax, 0), true, 24));
    return signBit(x) ? -r : r;
}

float cosfAccurate(float x) {
    const float ax = std::fabs(x);
    if (!(ax <= std::numeric_limits<float>::max())) return x - x;
    if (ax < 0x1p-13f) return 1.0f;
    return static_cast<float>(roundFixed(sinFixedOf(ax, 1), true, 24));
}

namespace {

// atan2(|y|, x) in [0, pi] (Q2.254 read unsigned), within kFixedErrUnits 2^-254, or 2^-193 for
// quotients below 2^-64; false when such a quotient with x > 0 leaves the angle to the DD stage.
bool atan2Theta(float y, float x, U256& theta) {
    const double ay = std::fabs(static_cast<double>(y)), xd = x, ax = std::fabs(xd);
    const double big = ay > ax ? ay : ax, small = ay > ax ? ax : ay;
    if (small < big * 0x1p-64) {
        // t = small/big < 2^-64: atan(t) = t - t^3/3 + ..., t^3/3 < 2^-193.
        if (ay <= ax && !signBit(x)) return false;  // about t, which is never near a midpoint
        // t = (A 2^a) / (B 2^b) for the floats' integer mantissas A, B, truncated in integers.
        int a, b;
        const double ma = std::frexp(small, &a), mb = std::frexp(big, &b);
        const u64 am = static_cast<u64>(ma * 0x1p24), bm = static_cast<u64>(mb * 0x1p24);  // exact
        const int shift = a - b + 254;  // t < 2^-64 keeps A 2^shift below 2^214
        const U256 t = shift < 0 ? kZero : divSmall(shiftLeft(U256{{am, 0, 0, 0}}, shift), bm);
        const U256 pi = shiftLeft(kHalfPiFixed, 1);
        theta = ay <= ax ? sub(pi, t) : (signBit(x) ? add(kHalfPiFixed, t) : sub(kHalfPiFixed, t));
        return true;
    }
    // Newton's method on f(theta) = y cos(theta) - x sin(theta) (y > 0 here), from the DD angle:
    // theta + f/(-f') = theta + tan(phi - theta), the error cubed at each step.
    int e;
    std::frexp(big, &e);
    const double ys = ay * pow2(1 - e), xs = xd * pow2(1 - e);  // the larger in [1, 2)
    const U256 yf = toFixed(ys), xAbs = toFixed(xs);
    const U256 quarterPi = shiftRight(kHalfPiFixed, 1);
    const U256 threeQuarterPi = add(kHalfPiFixed, quarterPi);
    const auto times = [](const U256& a, const U256& b) {  // a >= 0, b two's complement
        const U256 m = mulQ(a, isNegative(b) ? negate(b) : b);
        return isNegative(b) ? negate(m) : m;
    };
    theta = toFixed(atan2DD(static_cast<float>(ay), x));
    for (int step = 0; step < 2; ++step) {
        const unsigned quadrant = less(theta, quarterPi) ? 0 : less(theta, threeQuarterPi) ? 1 : 2;
        const U256 base = quadrant == 0 ? kZero : quadrant == 1 ? kHalfPiFixed : shiftLeft(kHalfPiFixed, 1);
        const bool below = less(theta, base);
        const U256 r = below ? sub(base, theta) : sub(theta, base);
        const U256 s = sinFixed(r), c = cosFixed(r);
        const U256 sr = below ? negate(s) : s;  // sin(theta - base)
        // sin and cos of theta, two's complement.
        const U256 sinT = quadrant == 0 ? sr : quadrant == 1 ? c : negate(sr);
        const U256 cosT = quadrant == 0 ? c : quadrant == 1 ? negate(sr) : negate(c);
        const U256 xSin = signBit(xs) ? negate(times(xAbs, sinT)) : times(xAbs, sinT);
        const U256 f = sub(times(yf, cosT), xSin);
        const DD slope = add(mulD(toDD(cosT), xs), mulD(toDD(sinT), ys));  // about |(x, y)| >= 1
        theta = add(theta, toFixed(div(toDD(f), slope)));
    }
    return true;
}

}  // namespace

float atan2Accurate(float y, float x) {
    U256 theta;
    if (!atan2Theta(y, x, theta)) return nearestFloat(atan2DD(y, x));
    const float r = static_cast<float>(roundFixed(theta, false, 24));
    return signBit(y) ? -r : r;
}

Fixed sinCosFixed(double x, bool cos) {
    U256 v = sinFixedOf(std::fabs(x), cos ? 1 : 0);
    if (!cos && signBit(x)) v = negate(v);
    return {{v.w[0], v.w[1], v.w[2], v.w[3]}};
}

Fixed atan2Fixed(float y, float x) {
    U256 theta = kZero;
    atan2Theta(y, x, theta);
    return {{theta.w[0], theta.w[1], theta.w[2], theta.w[3]}};
}

}  // namespace detail

// ---------------------------------------------------------------------------------------------
// The functions.

double sin(double x) {
    const double ax = std::fabs(x);
    // |x| < 2^-26: sin x lies within |x|^3/6 < 2^-54 |x| below |x|, closer than the midpoint to
    // the next double toward zero, so rounds to x (also +-0 and subnormals).
    if (ax < 0x1p-26) return x;
    if (!(ax <= std::numeric_limits<double>::max())) return x - x;  // NaN, +-inf: NaN
    const double sign = signBit(x) ? -1.0 : 1.0;
    const Reduced red = reduce<3>(ax);
    DD v = sinOfReduced(red, red.quadrant, true);
    if (detail::roundsSafelyToDouble(v, detail::kQuickRelError)) return sign * v.hi;
    const Reduced red4 = reduce<4>(ax);  // about one argument in 2^10
    v = sinOfReduced(red4, red4.quadrant, false);
    if (detail::roundsSafelyToDouble(v, detail::kDDRelError)) return sign * v.hi;
    return detail::sinAccurate(x);
}

namespace {

float sinCosFloat(float x, unsigned shift) {
    const double ax = std::fabs(static_cast<double>(x));
    const bool negate = shift == 0 && signBit(x);
    const Reduced red = reduce<3>(ax);
    DD v = sinOfReduced(red, (red.quadrant + shift) & 3u, true);
    if (clearOfFloatMidpoint(v.hi)) {  // lo and the error (2^-64 relative) stay within a unit
        const float f = static_cast<float>(v.hi);
        return negate ? -f : f;
    }
    if (!detail::roundsSafelyToFloat(v, detail::kQuickRelError)) {
        const Reduced red4 = reduce<4>(ax);
        v = sinOfReduced(red4, (red4.quadrant + shift) & 3u, false);
        if (!detail::roundsSafelyToFloat(v, detail::kDDRelError))
            return shift == 0 ? detail::sinfAccurate(x) : detail::cosfAccurate(x);
    }
    const float f = detail::nearestFloat(v);
    return negate ? -f : f;
}

}  // namespace

float sinf(float x) {
    const float ax = std::fabs(x);
    // As for sin: |x|^3/6 < 2^-25 |x| / 2 below 2^-12.
    if (ax < 0x1p-12f) return x;
    if (!(ax <= std::numeric_limits<float>::max())) return x - x;
    return sinCosFloat(x, 0);
}

float cosf(float x) {
    const float ax = std::fabs(x);
    // 1 - x^2/2 > 1 - 2^-27 is above the midpoint 1 - 2^-25 below 1.
    if (ax < 0x1p-13f) return 1.0f;
    if (!(ax <= std::numeric_limits<float>::max())) return x - x;
    return sinCosFloat(x, 1);
}

float atan2f(float y, float x) {
    if (x != x || y != y) return x + y;
    const float ay = std::fabs(y), ax = std::fabs(x);
    constexpr float inf = std::numeric_limits<float>::infinity();
    // pi, pi/2, pi/4 and 3pi/4 rounded to float.
    constexpr float pi = 0x1.921fb6p+1f, halfPi = 0x1.921fb6p+0f;
    constexpr float quarterPi = 0x1.921fb6p-1f, threeQuarterPi = 0x1.2d97c8p+1f;
    float r;
    if (ay == 0.0f) {
        r = signBit(x) ? pi : 0.0f;  // atan2(+-0, -0) = +-pi, atan2(+-0, +0) = +-0
    } else if (ay == inf) {
        r = ax == inf ? (signBit(x) ? threeQuarterPi : quarterPi) : halfPi;
    } else if (ax == 0.0f) {
        r = halfPi;
    } else if (ax == inf) {
        r = signBit(x) ? pi : 0.0f;
    } else {
        DD v = atan2Stage(y, x, true);
        if (clearOfFloatMidpoint(v.hi)) return static_cast<float>(v.hi);
        if (detail::roundsSafelyToFloat(v, detail::kQuickRelError)) return detail::nearestFloat(v);
        v = atan2Stage(y, x, false);
        if (detail::roundsSafelyToFloat(v, detail::kDDRelError)) return detail::nearestFloat(v);
        return detail::atan2Accurate(y, x);
    }
    return signBit(y) ? -r : r;
}

namespace {

int bitLength(u128 v) {
    const u64 hi = static_cast<u64>(v >> 64);
    return hi != 0 ? 128 - std::countl_zero(hi) : 64 - std::countl_zero(static_cast<u64>(v));
}

// Sign of a 2^ea - b 2^eb for nonzero a, b below 2^120.
int compareScaled(u128 a, int ea, u128 b, int eb) {
    const int ta = bitLength(a) + ea, tb = bitLength(b) + eb;
    if (ta != tb) return ta > tb ? 1 : -1;
    if (ea > eb) a <<= (ea - eb);  // fits: both now have the same bit length
    else b <<= (eb - ea);
    return a > b ? 1 : a < b ? -1 : 0;
}

// A positive finite float as m 2^e, m an integer below 2^24.
void decompose(float v, uint32_t& m, int& e) {
    const uint32_t b = std::bit_cast<uint32_t>(v);
    const int biased = static_cast<int>(b >> 23);
    m = biased == 0 ? b : (b & 0x7FFFFFu) | 0x800000u;
    e = (biased == 0 ? 1 : biased) - 150;
}

// Sign of m^4 - x, m = M 2^g.
int comparePower4(u128 mm, int g, float x) {
    uint32_t xm;
    int xe;
    decompose(x, xm, xe);
    return compareScaled(mm * mm * mm * mm, 4 * g, xm, xe);
}

}  // namespace

float fourthRoot(float x) {
    if (x != x) return x + x;
    if (x == 0.0f) return 0.0f;  // +-0: +0
    // pow(+-inf, y) is +inf for y > 0 (that is not an odd integer); other negatives have no root.
    if (std::fabs(x) == std::numeric_limits<float>::infinity()) return std::fabs(x);
    if (x < 0.0f) return std::numeric_limits<float>::quiet_NaN();
    // Two correctly rounded square roots in double are within 2^-52 relative of the root, so
    // the float below is the answer or a neighbour; the midpoints on either side decide.
    float f = static_cast<float>(std::sqrt(std::sqrt(static_cast<double>(x))));
    for (int step = 0; step < 4; ++step) {
        uint32_t m;
        int e;
        decompose(f, m, e);  // f is normal: x >= 2^-149 gives f >= 2^-38
        // Midpoints (2m + 1) 2^(e-1) above, and below (2m - 1) 2^(e-1), or (4m - 1) 2^(e-2)
        // when f is a power of two.
        if (comparePower4(2 * static_cast<u128>(m) + 1, e - 1, x) < 0) {
            f = std::bit_cast<float>(std::bit_cast<uint32_t>(f) + 1);
        } else if (m == 0x800000u ? comparePower4(4 * static_cast<u128>(m) - 1, e - 2, x) > 0
                                  : comparePower4(2 * static_cast<u128>(m) - 1, e - 1, x) > 0) {
            f = std::bit_cast<float>(std::bit_cast<uint32_t>(f) - 1);
        } else {
            break;
        }
    }
    return f;
}

float fourthPower(float x) {
    if (x != x) return x + x;
    const float ax = std::fabs(x);
    if (ax == std::numeric_limits<float>::infinity()) return ax;
    if (ax == 0.0f) return 0.0f;
    uint32_t m;
    int e;
    decompose(ax, m, e);
    const u64 m2 = static_cast<u64>(m) * m;
    const u128 p = static_cast<u128>(m2) * m2;  // x^4 = p 2^(4e), p < 2^96
    const int top = bitLength(p) - 1 + 4 * e;   // x^4 in [2^top, 2^(top+1))
    if (top > 127) return std::numeric_limits<float>::infinity();
    const int quantum = top - 23 > -149 ? top - 23 : -149;  // the float spacing there
    const int drop = quantum - 4 * e;                        // > 0 for every float
    if (drop > 96) return 0.0f;                              // below half the least subnormal
    u128 kept = p >> drop;
    const u128 rem = p - (kept << drop), half = static_cast<u128>(1) << (drop - 1);
    if (rem > half || (rem == half && (kept & 1u) != 0)) ++kept;
    return std::ldexp(static_cast<float>(static_cast<u64>(kept)), quantum);  // exact, or +inf
}

}  // namespace grainsmith::exact
