// Correctly rounded (round to nearest, ties to even) elementary functions for the few cases the
// kinds need, so that no value depends on the platform's libm. C libraries round sin, sinf,
// cosf, atan2f and powf differently by an ulp here and there; these give the one right answer
// on every platform and compiler.
//
// Special values follow C's functions: sin(+-0) = +-0, sin/cos(+-inf) = NaN, NaN in gives NaN
// out (payload and sign of a NaN are not part of the contract), atan2f's signed-zero and
// infinity table, powf's rules for the fourth root and fourth power.
//
// Method (see exact_math.cpp for the error bounds): the transcendental functions are evaluated
// in double-double arithmetic (no FMA; error-free sums and Dekker products), first with the
// leading terms only (relative error below 2^-64), then if needed with every term (below
// 2^-100), and rounded once. Rounding is correct unless the exact value lies within the bound
// of a rounding boundary; the result is tested for that at run time and, when it is too close,
// recomputed in 256-bit fixed point (error below 2^-246 absolute). The exhaustive check
// (tests/long/exact_math_exhaustive.cpp) shows that the first stage decides every float
// argument of sinf and cosf. The fourth root and power are exact: integers decide the rounding.
#pragma once

#include <cstdint>

namespace grainsmith::exact {

// sin(x) for every double x.
double sin(double x);
// sin(x), cos(x) for every float x (computed from the exact double value of x).
float sinf(float x);
float cosf(float x);
// atan2(y, x) in (-pi, pi], from the exact quotient of the two floats.
float atan2f(float y, float x);
// powf(x, 0.25f): finite x < 0 gives NaN, -0 gives +0, +-inf gives +inf (as powf does).
float fourthRoot(float x);
// powf(x, 4.0f): overflows to +inf, rounds into the subnormals, +-0 gives +0.
float fourthPower(float x);

// The two stages, open for the tests and the exhaustive check; not for the kinds.
namespace detail {

// A double-double: the value hi + lo with hi = RN(hi + lo).
struct DD {
    double hi;
    double lo;
};

// Relative error bounds of the first (quick) and second double-double stages of sin, cos and
// atan2. The first sums in DD only the leading terms; the second evaluates everything in DD.
inline constexpr double kQuickRelError = 0x1p-64;
inline constexpr double kDDRelError = 0x1p-100;

// The stages for finite x (and nonzero x, y for atan2), as double-doubles.
DD sinQuick(double x);
DD cosQuick(double x);
DD atan2Quick(float y, float x);
DD sinDD(double x);
DD cosDD(double x);
DD atan2DD(float y, float x);

// The 256-bit fixed-point stage: correctly rounded unless the exact value lies within 2^-184
// (relative) of a rounding boundary, which no double or float argument is known to come near.
double sinAccurate(double x);
float sinfAccurate(float x);
float cosfAccurate(float x);
float atan2Accurate(float y, float x);

// The 256-bit values behind them, for the tests: words (least significant first) / 2^254,
// within kFixedErrUnits / 2^254 of the exact value.
struct Fixed {
    uint64_t words[4];
};
inline constexpr uint64_t kFixedErrUnits = 64;
// sin(x), or cos(x) when `cos`, two's complement, for 2^-26 <= |x| finite.
Fixed sinCosFixed(double x, bool cos);
// atan2(|y|, x) in [0, pi], for finite nonzero x, y unless |y|/|x| < 2^-64 with x > 0 (left to
// the DD stage, whose rounding is then certain).
Fixed atan2Fixed(float y, float x);

// The float nearest to hi + lo (exactly: a double exactly halfway between two floats is
// decided by the sign of lo).
float nearestFloat(DD v);
// True when every real within relError * |v| of v rounds to the same double (resp. float) as
// v itself, so that rounding v gives the correctly rounded value of anything that close.
bool roundsSafelyToDouble(DD v, double relError);
bool roundsSafelyToFloat(DD v, double relError);

}  // namespace detail

}  // namespace grainsmith::exact
