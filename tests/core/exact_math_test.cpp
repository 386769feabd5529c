// The correctly rounded functions against MPFR, which rounds correctly by construction: random
// bit patterns over the whole range, the arguments nearest to multiples of pi/2, the known
// hard cases and the special values; then the stages on their own (error bounds, the 256-bit
// stage) and the rounding decisions on values built to sit on or next to a boundary.
#include <gtest/gtest.h>
#include <mpfr.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <limits>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "core/exact_math.h"

namespace {

namespace ex = grainsmith::exact;
using ex::detail::DD;

constexpr float kInfF = std::numeric_limits<float>::infinity();
constexpr double kInf = std::numeric_limits<double>::infinity();
constexpr float kNanF = std::numeric_limits<float>::quiet_NaN();

// MPFR numbers with the precision and exponent range of float (24 bits, subnormals from
// 2^-149) or double (53 bits, from 2^-1074): with mpfr_subnormalize, MPFR's rounding is the
// IEEE one.
template <int Precision, int Emin, int Emax>
class Format {
public:
    Format() : emin_(mpfr_get_emin()), emax_(mpfr_get_emax()) {
        mpfr_set_emin(Emin);
        mpfr_set_emax(Emax);
        mpfr_inits2(Precision, a_, b_, static_cast<mpfr_ptr>(nullptr));
    }
    ~Format() {
        mpfr_clears(a_, b_, static_cast<mpfr_ptr>(nullptr));
        mpfr_set_emin(emin_);
        mpfr_set_emax(emax_);
    }
    Format(const Format&) = delete;
    Format& operator=(const Format&) = delete;

    mpfr_ptr a() { return a_; }
    mpfr_ptr b() { return b_; }
    void finish(int ternary) { mpfr_subnormalize(a_, ternary, MPFR_RNDN); }

private:
    mpfr_exp_t emin_, emax_;
    mpfr_t a_, b_;
};
using FloatFormat = Format<24, -148, 128>;
using DoubleFormat = Format<53, -1073, 1024>;

using Unary = int (*)(mpfr_ptr, mpfr_srcptr, mpfr_rnd_t);

float mpfrFloat(Unary fn, float x) {
    FloatFormat f;
    mpfr_set_flt(f.a(), x, MPFR_RNDN);
    f.finish(fn(f.a(), f.a(), MPFR_RNDN));
    return mpfr_get_flt(f.a(), MPFR_RNDN);
}

float mpfrAtan2(float y, float x) {
    FloatFormat f;
    mpfr_set_flt(f.a(), y, MPFR_RNDN);
    mpfr_set_flt(f.b(), x, MPFR_RNDN);
    f.finish(mpfr_atan2(f.a(), f.a(), f.b(), MPFR_RNDN));
    return mpfr_get_flt(f.a(), MPFR_RNDN);
}

// powf(x, y) for y = 0.25 or 4, with C's special cases (MPFR follows them).
float mpfrPow(float x, double y) {
    FloatFormat f;
    mpfr_set_flt(f.a(), x, MPFR_RNDN);
    mpfr_set_d(f.b(), y, MPFR_RNDN);
    f.finish(mpfr_pow(f.a(), f.a(), f.b(), MPFR_RNDN));
    return mpfr_get_flt(f.a(), MPFR_RNDN);
}

double mpfrSin(double x) {
    DoubleFormat f;
    mpfr_set_d(f.a(), x, MPFR_RNDN);
    f.finish(mpfr_sin(f.a(), f.a(), MPFR_RNDN));
    return mpfr_get_d(f.a(), MPFR_RNDN);
}

// The double (float) nearest to k pi/2.
double nearestToHalfPiMultiple(double k, int precision) {
    mpfr_t v;
    mpfr_init2(v, 2200);
    mpfr_const_pi(v, MPFR_RNDN);
    mpfr_mul_d(v, v, k * 0.5, MPFR_RNDN);
    mpfr_prec_round(v, precision, MPFR_RNDN);
    const double r = mpfr_get_d(v, MPFR_RNDN);
    mpfr_clear(v);
    return r;
}

// |v - f(x)| / |f(x)| with f(x) to 320 bits; which: 0 sin, 1 cos, 2 atan2(y, x).
double relativeError(DD v, int which, double x, float y = 0.0f) {
    mpfr_t exact, got;
    mpfr_inits2(320, exact, got, static_cast<mpfr_ptr>(nullptr));
    mpfr_set_d(exact, which == 2 ? static_cast<double>(y) : x, MPFR_RNDN);
    if (which == 0) mpfr_sin(exact, exact, MPFR_RNDN);
    if (which == 1) mpfr_cos(exact, exact, MPFR_RNDN);
    if (which == 2) {
        mpfr_set_d(got, x, MPFR_RNDN);
        mpfr_atan2(exact, exact, got, MPFR_RNDN);
    }
    mpfr_set_d(got, v.hi, MPFR_RNDN);
    mpfr_add_d(got, got, v.lo, MPFR_RNDN);
    mpfr_sub(got, got, exact, MPFR_RNDN);
    mpfr_div(got, got, exact, MPFR_RNDN);
    const double r = std::fabs(mpfr_get_d(got, MPFR_RNDN));
    mpfr_clears(exact, got, static_cast<mpfr_ptr>(nullptr));
    return r;
}

bool sameBits(float a, float b) {
    return (std::isnan(a) && std::isnan(b)) || std::bit_cast<uint32_t>(a) == std::bit_cast<uint32_t>(b);
}
bool sameBits(double a, double b) {
    return (std::isnan(a) && std::isnan(b)) || std::bit_cast<uint64_t>(a) == std::bit_cast<uint64_t>(b);
}

// Collects disagreements; the test reports the count and the first few.
class Mismatches {
public:
    template <class T>
    void check(const char* what, T got, T want, const std::string& args) {
        ++checked_;
        if (sameBits(got, want)) return;
        if (list_.size() < 8) {
            char line[200];
            std::snprintf(line, sizeof line, "%s(%s): got %a, MPFR %a", what, args.c_str(), static_cast<double>(got),
                          static_cast<double>(want));
            list_.emplace_back(line);
        }
        ++count_;
    }
    long checked() const { return checked_; }
    std::string report() const {
        std::string s = std::to_string(count_) + " of " + std::to_string(checked_) + " differ";
        for (const std::string& l : list_) s += "\n  " + l;
        return s;
    }
    bool none() const { return count_ == 0; }

private:
    long checked_ = 0, count_ = 0;
    std::vector<std::string> list_;
};

std::string hex(double v) {
    char b[40];
    std::snprintf(b, sizeof b, "%a", v);
    return b;
}

// Random floats: every bit pattern, or a magnitude with a uniformly chosen exponent.
float randomBitsFloat(std::mt19937_64& rng) { return std::bit_cast<float>(static_cast<uint32_t>(rng())); }
double randomBitsDouble(std::mt19937_64& rng) { return std::bit_cast<double>(rng()); }
double randomMagnitude(std::mt19937_64& rng, int minExp, int maxExp) {
    const double m = 1.0 + static_cast<double>(rng() >> 11) * 0x1p-53;
    const int e = minExp + static_cast<int>(rng() % static_cast<uint64_t>(maxExp - minExp + 1));
    return (rng() & 1 ? -1.0 : 1.0) * std::ldexp(m, e);
}

TEST(ExactSin, MatchesMpfrOnRandomDoublesAndNearMultiplesOfHalfPi) {
    std::mt19937_64 rng(20240611);
    Mismatches m;
    for (int i = 0; i < 150000; ++i) {
        const double x = randomBitsDouble(rng);
        m.check("sin", ex::sin(x), mpfrSin(x), hex(x));
    }
    // The range the kinds use most: 2 pi t for float t up to 2^20, and small arguments.
    for (int i = 0; i < 100000; ++i) {
        const double x = randomMagnitude(rng, -30, 22);
        m.check("sin", ex::sin(x), mpfrSin(x), hex(x));
    }
    // The doubles nearest to k pi/2 and their neighbours, where the reduction cancels most.
    for (int i = 0; i < 4000; ++i) {
        const double k = std::ldexp(static_cast<double>(rng() >> 11), -static_cast<int>(rng() % 53));
        const double x = nearestToHalfPiMultiple(std::floor(k) + 1.0, 53);
        for (int d = -2; d <= 2; ++d) {
            const double y = std::bit_cast<double>(std::bit_cast<uint64_t>(x) + d);
            m.check("sin", ex::sin(y), mpfrSin(y), hex(y));
        }
    }
    EXPECT_TRUE(m.none()) << m.report();
}

TEST(ExactSin, HardCasesAndSpecialValues) {
    Mismatches m;
    const double hard[] = {
        6381956970095103.0 * 0x1p797,  // the double nearest to a multiple of pi/2 (within 2^-60.9)
        -6381956970095103.0 * 0x1p797,
        1e22,
        0x1p1023,
        -0x1p1023,
        std::numeric_limits<double>::max(),
        0x1p-26,  // the edge of the tiny-argument rule, and the doubles beside it
        std::nextafter(0x1p-26, 0.0),
        std::nextafter(0x1p-26, 1.0),
        0x1p-1074,
        -0x1p-1022,
        3.141592653589793,
        6.283185307179586,
        1.5707963267948966,
        0.78,  // where the argument starts being reduced
        std::nextafter(0.78, 0.0),
        0x1.921fb54442d18p-1,  // pi/4
        2.0 * 3.141592653589793 * 1048576.0,
        2.0 * static_cast<double>(16777215.0f) * 3.141592653589793,
    };
    for (double x : hard) m.check("sin", ex::sin(x), mpfrSin(x), hex(x));
    EXPECT_TRUE(m.none()) << m.report();
    // sin(1e22), known from the literature.
    EXPECT_EQ(ex::sin(1e22), -0.8522008497671888);

    EXPECT_TRUE(sameBits(ex::sin(0.0), 0.0));
    EXPECT_TRUE(sameBits(ex::sin(-0.0), -0.0));
    EXPECT_TRUE(std::isnan(ex::sin(kInf)));
    EXPECT_TRUE(std::isnan(ex::sin(-kInf)));
    EXPECT_TRUE(std::isnan(ex::sin(std::numeric_limits<double>::quiet_NaN())));
}

TEST(ExactSinfCosf, MatchMpfrOnRandomFloatsAndNearMultiplesOfHalfPi) {
    std::mt19937_64 rng(7);
    Mismatches m;
    const auto both = [&](float x) {
        m.check("sinf", ex::sinf(x), mpfrFloat(mpfr_sin, x), hex(x));
        m.check("cosf", ex::cosf(x), mpfrFloat(mpfr_cos, x), hex(x));
    };
    for (int i = 0; i < 200000; ++i) both(randomBitsFloat(rng));
    for (int i = 0; i < 100000; ++i) both(static_cast<float>(randomMagnitude(rng, -14, 24)));
    for (int i = 0; i < 4000; ++i) {
        const double k = std::ldexp(static_cast<double>(rng() >> 40), static_cast<int>(rng() % 124) - 23);
        const float x = static_cast<float>(nearestToHalfPiMultiple(std::floor(k) + 1.0, 24));
        for (int d = -2; d <= 2; ++d) both(std::bit_cast<float>(std::bit_cast<uint32_t>(x) + d));
    }
    // The edges of the shortcuts (|x| < 2^-12 for sinf, 2^-13 for cosf), the floats nearest to a
    // multiple of pi (sin within 2^-28.2) and of pi/2 (cos within 2^-29.2), found by the
    // exhaustive check, and other landmarks.
    for (float x : {0x1p-12f, 0x1.fffffep-13f, 0x1p-13f, 0x1.fffffep-14f, 0x1.6a09e6p-12f, 0x1p-149f, 0x1p-126f,
                    0.78f, 0x1.921fb6p+0f, 0x1.921fb6p+1f, 0x1.fffffep+127f, 0x1p+127f, 12582912.0f,
                    0x1.f37c8ap+96f, 0x1.f37c8ap+95f})
        for (float s : {1.0f, -1.0f}) both(s * x);
    EXPECT_TRUE(m.none()) << m.report();

    EXPECT_TRUE(sameBits(ex::sinf(-0.0f), -0.0f));
    EXPECT_TRUE(sameBits(ex::cosf(-0.0f), 1.0f));
    for (float x : {kInfF, -kInfF, kNanF}) {
        EXPECT_TRUE(std::isnan(ex::sinf(x)));
        EXPECT_TRUE(std::isnan(ex::cosf(x)));
    }
}

TEST(ExactAtan2f, MatchesMpfrOnRandomPairsAndTheSpecialValueTable) {
    std::mt19937_64 rng(11);
    Mismatches m;
    const auto one = [&](float y, float x) {
        m.check("atan2f", ex::atan2f(y, x), mpfrAtan2(y, x), hex(y) + ", " + hex(x));
    };
    for (int i = 0; i < 150000; ++i) one(randomBitsFloat(rng), randomBitsFloat(rng));
    // Comparable magnitudes (every table interval and the swap at |y| = |x|) and extreme ratios.
    for (int i = 0; i < 100000; ++i) {
        const float x = static_cast<float>(randomMagnitude(rng, -140, 120));
        const float t = static_cast<float>(rng() % 2 ? randomMagnitude(rng, -10, 1) : randomMagnitude(rng, -150, 150));
        one(x * t, x);
        one(x, x * t);
    }
    // The special value table: signed zeros, infinities, NaN against finite values.
    const float specials[] = {0.0f, -0.0f, kInfF, -kInfF, kNanF, 1.0f, -1.0f, 0x1p-149f, -0x1p-149f, 3e38f, -3e38f};
    for (float y : specials)
        for (float x : specials) one(y, x);
    EXPECT_TRUE(m.none()) << m.report();
    EXPECT_EQ(ex::atan2f(0.0f, -0.0f), 0x1.921fb6p+1f);
    EXPECT_EQ(ex::atan2f(-0.0f, -0.0f), -0x1.921fb6p+1f);
    EXPECT_TRUE(sameBits(ex::atan2f(-0.0f, 0.0f), -0.0f));
    EXPECT_EQ(ex::atan2f(-kInfF, -kInfF), -0x1.2d97c8p+1f);
}

TEST(ExactFourthRootAndPower, MatchMpfrPowOnRandomFloatsAndEdges) {
    std::mt19937_64 rng(13);
    Mismatches m;
    const auto both = [&](float x) {
        m.check("fourthRoot", ex::fourthRoot(x), mpfrPow(x, 0.25), hex(x));
        m.check("fourthPower", ex::fourthPower(x), mpfrPow(x, 4.0), hex(x));
    };
    for (int i = 0; i < 300000; ++i) both(randomBitsFloat(rng));
    // Around the overflow of x^4 (2^32) and the underflow into subnormals and to zero
    // (x^4 = 2^-126, 2^-149, 2^-150: x = 2^-31.5, 2^-37.25, 2^-37.5), exact powers, and the
    // specials: powf(-inf, 0.25) is +inf, powf(-0, y) is +0.
    for (float c : {0x1p32f, 0x1.6a09e6p-32f, 0x1.ae89fap-38f, 0x1.6a09e6p-38f, 0x1p-38f, 1.0f, 16.0f, 0x1p-149f}) {
        float x = c;
        for (int d = 0; d < 40; ++d) x = std::nextafter(x, 0.0f);
        for (int d = 0; d < 80; ++d, x = std::nextafter(x, kInfF)) {
            both(x);
            both(-x);
        }
    }
    for (float x : {0.0f, -0.0f, kInfF, -kInfF, kNanF, -1.0f, -0x1p-149f, std::numeric_limits<float>::max()}) both(x);
    EXPECT_TRUE(m.none()) << m.report();
    EXPECT_TRUE(sameBits(ex::fourthRoot(-0.0f), 0.0f));
    EXPECT_EQ(ex::fourthRoot(-kInfF), kInfF);
    EXPECT_TRUE(std::isnan(ex::fourthRoot(-1.0f)));
    EXPECT_EQ(ex::fourthRoot(16.0f), 2.0f);
    EXPECT_EQ(ex::fourthPower(-2.0f), 16.0f);
    EXPECT_EQ(ex::fourthPower(0x1p32f), kInfF);
    EXPECT_EQ(ex::fourthPower(0x1p-37f), 0x1p-148f);
}

// The first two stages must stay within their stated relative error bounds, which the
// rounding decisions rely on; measured with 320-bit MPFR, they keep a margin of at least 2.
TEST(ExactMathStages, ErrorBoundsHoldWithMargin) {
    std::mt19937_64 rng(17);
    double worst[2][3] = {};
    const auto note = [&](int stage, int which, double e) { worst[stage][which] = std::max(worst[stage][which], e); };
    for (int i = 0; i < 12000; ++i) {
        double x = i % 3 == 0 ? randomBitsDouble(rng) : randomMagnitude(rng, -26, i % 3 == 1 ? 4 : 60);
        if (!std::isfinite(x) || std::fabs(x) < 0x1p-26) x = 1.0 + i;
        note(0, 0, relativeError(ex::detail::sinQuick(x), 0, x));
        note(0, 1, relativeError(ex::detail::cosQuick(x), 1, x));
        note(1, 0, relativeError(ex::detail::sinDD(x), 0, x));
        note(1, 1, relativeError(ex::detail::cosDD(x), 1, x));
        const float a = static_cast<float>(randomMagnitude(rng, -60, 60));
        const float b = static_cast<float>(i % 2 ? randomMagnitude(rng, -60, 60) : a * randomMagnitude(rng, -3, 0));
        note(0, 2, relativeError(ex::detail::atan2Quick(a, b), 2, b, a));
        note(1, 2, relativeError(ex::detail::atan2DD(a, b), 2, b, a));
    }
    for (int which = 0; which < 3; ++which) {
        EXPECT_LT(worst[0][which], 0.5 * ex::detail::kQuickRelError) << "quick stage, function " << which;
        EXPECT_LT(worst[1][which], 0.5 * ex::detail::kDDRelError) << "DD stage, function " << which;
    }
}

// The 256-bit stage decides when the others cannot; it must be right on its own.
TEST(ExactMathStages, FixedPointStageMatchesMpfr) {
    std::mt19937_64 rng(19);
    Mismatches m;
    for (int i = 0; i < 1500; ++i) {
        const double x = i % 2 ? randomBitsDouble(rng) : randomMagnitude(rng, -26, 40);
        m.check("sinAccurate", ex::detail::sinAccurate(x), mpfrSin(x), hex(x));
        const float f = i % 2 ? randomBitsFloat(rng) : static_cast<float>(randomMagnitude(rng, -12, 30));
        m.check("sinfAccurate", ex::detail::sinfAccurate(f), mpfrFloat(mpfr_sin, f), hex(f));
        m.check("cosfAccurate", ex::detail::cosfAccurate(f), mpfrFloat(mpfr_cos, f), hex(f));
    }
    m.check("sinAccurate", ex::detail::sinAccurate(6381956970095103.0 * 0x1p797),
            mpfrSin(6381956970095103.0 * 0x1p797), "hard case");
    for (int i = 0; i < 600; ++i) {
        // Every branch: each octant, negative x, and quotients below 2^-64 (tiny angles near 0,
        // pi/2 and pi).
        const float y = static_cast<float>(randomMagnitude(rng, -100, 100));
        const float x = static_cast<float>(y * (i % 3 ? randomMagnitude(rng, -4, 4) : randomMagnitude(rng, -100, 100)));
        if (x == 0.0f || !std::isfinite(x)) continue;
        m.check("atan2Accurate", ex::detail::atan2Accurate(y, x), mpfrAtan2(y, x), hex(y) + ", " + hex(x));
        m.check("atan2Accurate", ex::detail::atan2Accurate(x, y), mpfrAtan2(x, y), hex(x) + ", " + hex(y));
    }
    EXPECT_TRUE(m.none()) << m.report();
}

// |value - exact| in units of 2^-254 for a fixed-point value (two's complement when signed_).
double fixedErrorUnits(const ex::detail::Fixed& v, bool signed_, mpfr_srcptr exact) {
    mpfr_t got, t;
    mpfr_inits2(400, got, t, static_cast<mpfr_ptr>(nullptr));
    mpfr_set_ui(got, 0, MPFR_RNDN);
    for (int k = 3; k >= 0; --k) {
        mpfr_mul_2ui(got, got, 64, MPFR_RNDN);
        mpfr_set_uj(t, v.words[k], MPFR_RNDN);
        mpfr_add(got, got, t, MPFR_RNDN);
    }
    if (signed_ && (v.words[3] >> 63) != 0) {
        mpfr_set_ui(t, 1, MPFR_RNDN);
        mpfr_mul_2ui(t, t, 256, MPFR_RNDN);
        mpfr_sub(got, got, t, MPFR_RNDN);
    }
    mpfr_div_2ui(got, got, 254, MPFR_RNDN);
    mpfr_sub(got, got, exact, MPFR_RNDN);
    mpfr_mul_2ui(got, got, 254, MPFR_RNDN);
    const double r = std::fabs(mpfr_get_d(got, MPFR_RNDN));
    mpfr_clears(got, t, static_cast<mpfr_ptr>(nullptr));
    return r;
}

// The 256-bit values themselves stay within their bound (the rounding tests above could not see
// an error of, say, 2^-90).
TEST(ExactMathStages, FixedPointValuesStayWithinTheirBound) {
    std::mt19937_64 rng(23);
    mpfr_t exact, t;
    mpfr_inits2(600, exact, t, static_cast<mpfr_ptr>(nullptr));
    double worst = 0, worstTiny = 0;
    for (int i = 0; i < 400; ++i) {
        double x = i % 2 ? randomBitsDouble(rng) : randomMagnitude(rng, -26, 30);
        if (!std::isfinite(x) || std::fabs(x) < 0x1p-26) x = 0x1p-26;
        for (bool cos : {false, true}) {
            mpfr_set_d(exact, x, MPFR_RNDN);
            if (cos) mpfr_cos(exact, exact, MPFR_RNDN);
            else mpfr_sin(exact, exact, MPFR_RNDN);
            worst = std::max(worst, fixedErrorUnits(ex::detail::sinCosFixed(x, cos), true, exact));
        }
        const float y = static_cast<float>(randomMagnitude(rng, -60, 40));
        const bool tiny = i % 4 == 0;  // quotients below 2^-64, x of either sign
        const float xf = static_cast<float>(y * (tiny ? (i % 8 ? -1.0 : 1.0) * randomMagnitude(rng, 66, 80)
                                                       : randomMagnitude(rng, -6, 6)));
        for (const auto& [a, b] : {std::pair{y, xf}, std::pair{xf, y}}) {
            if (tiny && std::fabs(a) < std::fabs(b) && b > 0) continue;  // left to the DD stage
            mpfr_set_flt(exact, std::fabs(a), MPFR_RNDN);
            mpfr_set_flt(t, b, MPFR_RNDN);
            mpfr_atan2(exact, exact, t, MPFR_RNDN);
            const double e = fixedErrorUnits(ex::detail::atan2Fixed(a, b), false, exact);
            (tiny ? worstTiny : worst) = std::max(tiny ? worstTiny : worst, e);
        }
    }
    mpfr_clears(exact, t, static_cast<mpfr_ptr>(nullptr));
    EXPECT_LE(worst, static_cast<double>(ex::detail::kFixedErrUnits) / 2);
    EXPECT_LE(worstTiny, 0x1p61);  // t^3/3 below 2^-193
}

TEST(ExactMathRounding, NearestFloatDecidesHalfwayDoublesByTheLowPart) {
    using ex::detail::nearestFloat;
    const double mid = 1.0 + 0x1p-24;  // halfway between 1 and 1 + 2^-23
    EXPECT_EQ(nearestFloat({mid, 0x1p-80}), 1.0f + 0x1p-23f);
    EXPECT_EQ(nearestFloat({mid, -0x1p-80}), 1.0f);
    EXPECT_EQ(nearestFloat({mid, 0.0}), 1.0f);                             // a true tie: even
    EXPECT_EQ(nearestFloat({1.0 + 3 * 0x1p-24, 0.0}), 1.0f + 0x1p-22f);    // a true tie: even
    EXPECT_EQ(nearestFloat({-mid, -0x1p-80}), -(1.0f + 0x1p-23f));
    EXPECT_EQ(nearestFloat({1.0 - 0x1p-25, -0x1p-90}), 1.0f - 0x1p-24f);  // below a power of two
    EXPECT_EQ(nearestFloat({1.0 - 0x1p-25, 0x1p-90}), 1.0f);
    EXPECT_EQ(nearestFloat({0x1p-150, 0x1p-200}), 0x1p-149f);             // into the subnormals
    EXPECT_EQ(nearestFloat({0x1p-150, -0x1p-200}), 0.0f);
    EXPECT_EQ(nearestFloat({3 * 0x1p-150, 0.0}), 0x1p-148f);
}

TEST(ExactMathRounding, SafetyTestsRejectValuesWithinTheBoundOfAMidpoint) {
    using ex::detail::roundsSafelyToDouble;
    using ex::detail::roundsSafelyToFloat;
    const double e = 0x1p-64;
    EXPECT_TRUE(roundsSafelyToFloat({1.0 + 0x1p-30, 0.0}, e));
    EXPECT_FALSE(roundsSafelyToFloat({1.0 + 0x1p-24, 0.0}, e));       // on the midpoint
    EXPECT_FALSE(roundsSafelyToFloat({1.0 + 0x1p-24, 0x1p-70}, e));   // closer than the bound
    EXPECT_TRUE(roundsSafelyToFloat({1.0 + 0x1p-24, 0x1p-60}, e));    // farther than the bound
    EXPECT_FALSE(roundsSafelyToFloat({1.0 - 0x1p-25, 0x1p-70}, e));   // the midpoint below 1
    EXPECT_FALSE(roundsSafelyToFloat({-(1.0 - 0x1p-25), -0x1p-70}, e));
    EXPECT_TRUE(roundsSafelyToFloat({1.0 - 0x1p-24, 0x1p-70}, e));    // a float below 1
    EXPECT_FALSE(roundsSafelyToFloat({0x1p-150, 0x1p-220}, e));       // a subnormal midpoint
    EXPECT_TRUE(roundsSafelyToDouble({1.0, 0x1p-54}, e));
    EXPECT_FALSE(roundsSafelyToDouble({1.0, 0x1p-53}, e));            // a double midpoint
    EXPECT_FALSE(roundsSafelyToDouble({1.0, -0x1p-54}, e));           // the midpoint below 1
    EXPECT_TRUE(roundsSafelyToDouble({1.0, -0x1p-55}, e));
    EXPECT_FALSE(roundsSafelyToDouble({1.5, 0x1p-53 - 0x1p-118}, e));  // within 2^-64 of it
}

}  // namespace
