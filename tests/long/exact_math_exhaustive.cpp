// Every float argument (all 2^32 bit patterns) of sinf, cosf, fourthRoot and fourthPower,
// checked for correct rounding. Takes minutes; built with the tests, not run by ctest.
//
//   exact_math_exhaustive [sinf|cosf|fourthRoot|fourthPower|atan2y|atan2x ...] [--threads N]
//                         [--sample K] [--range FIRST LAST]   (bit patterns, hexadecimal)
//
// By default the four one-argument functions; atan2y and atan2x (atan2f(y, 1) for every y,
// atan2f(1, x) for every x: both octants of each quadrant's computation) on request.
//
// sinf, cosf, atan2f: the first stage's value, if it is farther from every float midpoint than its
// error bound, proves the rounding; else the second stage's; else MPFR decides (and the
// argument is listed). The function's result must equal the proven one. Every K-th argument
// is also compared with MPFR directly, and the two stages' actual errors are measured there
// against 320-bit MPFR (they must stay below the bounds the proof uses).
//
// fourthRoot, fourthPower: an independent floating-point route. x^4 is exact as a
// double-double (x^2 has 48 bits, its square 96, split exactly by Dekker's product); the root
// y must have its neighbouring midpoints m (25 bits) on either side of x, with m^4 exact the
// same way. Every K-th argument is also compared with MPFR's pow.
#include <mpfr.h>

#include <algorithm>
#include <atomic>
#include <bit>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "core/exact_math.h"

namespace {

namespace ex = grainsmith::exact;
using ex::detail::DD;

bool sameBits(float a, float b) {
    return (std::isnan(a) && std::isnan(b)) || std::bit_cast<uint32_t>(a) == std::bit_cast<uint32_t>(b);
}

// MPFR in the float format (24 bits, subnormals down to 2^-149), per thread.
struct Mpfr {
    mpfr_t a, b, wide, wide2;
    Mpfr() {
        mpfr_set_emin(-148);  // thread-local in MPFR
        mpfr_set_emax(128);
        mpfr_inits2(24, a, b, static_cast<mpfr_ptr>(nullptr));
        mpfr_inits2(320, wide, wide2, static_cast<mpfr_ptr>(nullptr));
    }
    ~Mpfr() {
        mpfr_clears(a, b, static_cast<mpfr_ptr>(nullptr));
        mpfr_clears(wide, wide2, static_cast<mpfr_ptr>(nullptr));
    }
    float round(int ternary) {
        mpfr_subnormalize(a, ternary, MPFR_RNDN);
        return mpfr_get_flt(a, MPFR_RNDN);
    }
    float sinCos(bool cos, float x) {
        mpfr_set_flt(a, x, MPFR_RNDN);
        return round(cos ? mpfr_cos(a, a, MPFR_RNDN) : mpfr_sin(a, a, MPFR_RNDN));
    }
    float pow(float x, double y) {
        mpfr_set_flt(a, x, MPFR_RNDN);
        mpfr_set_d(b, y, MPFR_RNDN);
        return round(mpfr_pow(a, a, b, MPFR_RNDN));
    }
    float atan2(float y, float x) {
        mpfr_set_flt(a, y, MPFR_RNDN);
        mpfr_set_flt(b, x, MPFR_RNDN);
        return round(mpfr_atan2(a, a, b, MPFR_RNDN));
    }
    // |v - f| / |f| to 320 bits, f = sin(x), cos(x) or atan2(x, y) (which: 0, 1, 2).
    double relativeError(DD v, int which, float x, float y = 0.0f) {
        mpfr_set_emin(mpfr_get_emin_min());  // the differences go far below the float range
        mpfr_set_emax(mpfr_get_emax_max());
        mpfr_set_flt(wide, x, MPFR_RNDN);
        if (which == 0) mpfr_sin(wide, wide, MPFR_RNDN);
        if (which == 1) mpfr_cos(wide, wide, MPFR_RNDN);
        if (which == 2) {
            mpfr_set_flt(wide2, y, MPFR_RNDN);
            mpfr_atan2(wide, wide, wide2, MPFR_RNDN);
        }
        mpfr_set_d(wide2, v.hi, MPFR_RNDN);
        mpfr_add_d(wide2, wide2, v.lo, MPFR_RNDN);
        mpfr_sub(wide2, wide2, wide, MPFR_RNDN);
        mpfr_div(wide2, wide2, wide, MPFR_RNDN);
        const double r = std::fabs(mpfr_get_d(wide2, MPFR_RNDN));
        mpfr_set_emin(-148);
        mpfr_set_emax(128);
        return r;
    }
};

// Exact products for the independent route.
DD twoProd(double a, double b) {
    const auto split = [](double v, double& hi, double& lo) {
        const double c = 134217729.0 * v;
        hi = c - (c - v);
        lo = v - hi;
    };
    const double p = a * b;
    double ah, al, bh, bl;
    split(a, ah, al);
    split(b, bh, bl);
    return {p, (((ah * bh - p) + ah * bl) + al * bh) + al * bl};
}

// v^4 exactly, for |v| a float or a 25-bit float midpoint in [2^-150, 2^128].
DD power4(double v) { return twoProd(v * v, v * v); }

// Sign of (hi + lo) - x.
int compare(DD v, double x) {
    if (v.hi != x) return v.hi > x ? 1 : -1;
    return v.lo > 0 ? 1 : v.lo < 0 ? -1 : 0;
}

// The float nearest to an exact hi + lo (ties to even), through the hardware's conversion of hi:
// only a hi exactly halfway between two floats needs lo to decide.
float roundExact(DD v) {
    const float f = static_cast<float>(v.hi);
    if (!std::isfinite(f) || static_cast<double>(f) == v.hi || v.lo == 0.0) return f;
    constexpr float inf = std::numeric_limits<float>::infinity();
    const float g = std::nextafter(f, v.hi > f ? inf : -inf);
    const bool halfway = v.hi - f == static_cast<double>(g) - v.hi;
    return halfway && ((v.lo > 0) == (g > f)) ? g : f;
}

struct Stats {
    uint64_t checked = 0, byQuick = 0, byDD = 0, byMpfr = 0, wrong = 0, sampled = 0, sampleWrong = 0;
    double worstQuick = 0, worstDD = 0;
    double smallest = 1;  // the smallest |result| for |x| >= 1 (sin/cos: the float nearest a zero)
    float smallestAt = 0;
    std::vector<std::string> notes;
    void merge(const Stats& o) {
        checked += o.checked, byQuick += o.byQuick, byDD += o.byDD, byMpfr += o.byMpfr, wrong += o.wrong;
        sampled += o.sampled, sampleWrong += o.sampleWrong;
        worstQuick = std::max(worstQuick, o.worstQuick), worstDD = std::max(worstDD, o.worstDD);
        if (o.smallest < smallest) smallest = o.smallest, smallestAt = o.smallestAt;
        for (const std::string& n : o.notes)
            if (notes.size() < 40) notes.push_back(n);
    }
    void note(const char* fmt, float x, float a, float b) {
        char line[160];
        std::snprintf(line, sizeof line, fmt, static_cast<double>(x), static_cast<double>(a), static_cast<double>(b));
        if (notes.size() < 40) notes.emplace_back(line);
    }
};

void checkSinCos(bool cos, uint32_t bits, bool sample, Mpfr& mp, Stats& st) {
    const float x = std::bit_cast<float>(bits);
    const float got = cos ? ex::cosf(x) : ex::sinf(x);
    ++st.checked;
    if (!std::isfinite(x)) {
        if (!std::isnan(got)) ++st.wrong, st.note("non-finite %a gave %a (%a)", x, got, got);
        return;
    }
    float want;
    const DD quick = cos ? ex::detail::cosQuick(x) : ex::detail::sinQuick(x);
    if (ex::detail::roundsSafelyToFloat(quick, ex::detail::kQuickRelError)) {
        want = ex::detail::nearestFloat(quick);
        ++st.byQuick;
    } else {
        const DD dd = cos ? ex::detail::cosDD(x) : ex::detail::sinDD(x);
        if (ex::detail::roundsSafelyToFloat(dd, ex::detail::kDDRelError)) {
            want = ex::detail::nearestFloat(dd);
            ++st.byDD;
        } else {
            want = mp.sinCos(cos, x);
            ++st.byMpfr;
            st.note("ambiguous at %a: MPFR %a, got %a", x, want, got);
        }
    }
    if (!sameBits(got, want)) ++st.wrong, st.note("wrong at %a: got %a, want %a", x, got, want);
    if (std::fabs(x) >= 1.0f && std::fabs(quick.hi) < st.smallest) st.smallest = std::fabs(quick.hi), st.smallestAt = x;
    if (sample) {
        ++st.sampled;
        const float ref = mp.sinCos(cos, x);
        if (!sameBits(got, ref)) ++st.sampleWrong, st.note("MPFR differs at %a: got %a, MPFR %a", x, got, ref);
        st.worstQuick = std::max(st.worstQuick, mp.relativeError(quick, cos ? 1 : 0, x));
        const DD dd = cos ? ex::detail::cosDD(x) : ex::detail::sinDD(x);
        st.worstDD = std::max(st.worstDD, mp.relativeError(dd, cos ? 1 : 0, x));
    }
}

// atan2f(v, 1) or atan2f(1, v).
void checkAtan2(bool overOne, uint32_t bits, bool sample, Mpfr& mp, Stats& st) {
    const float v = std::bit_cast<float>(bits);
    const float y = overOne ? v : 1.0f, x = overOne ? 1.0f : v;
    const float got = ex::atan2f(y, x);
    ++st.checked;
    if (!std::isfinite(v) || v == 0.0f) {  // the special value table
        const float ref = mp.atan2(y, x);
        if (!sameBits(got, ref)) ++st.wrong, st.note("special %a gave %a, MPFR %a", v, got, ref);
        return;
    }
    float want;
    const DD quick = ex::detail::atan2Quick(y, x);
    if (ex::detail::roundsSafelyToFloat(quick, ex::detail::kQuickRelError)) {
        want = ex::detail::nearestFloat(quick);
        ++st.byQuick;
    } else {
        const DD dd = ex::detail::atan2DD(y, x);
        if (ex::detail::roundsSafelyToFloat(dd, ex::detail::kDDRelError)) {
            want = ex::detail::nearestFloat(dd);
            ++st.byDD;
        } else {
            want = mp.atan2(y, x);
            ++st.byMpfr;
            st.note("ambiguous at %a: MPFR %a, got %a", v, want, got);
        }
    }
    if (!sameBits(got, want)) ++st.wrong, st.note("wrong at %a: got %a, want %a", v, got, want);
    if (sample) {
        ++st.sampled;
        const float ref = mp.atan2(y, x);
        if (!sameBits(got, ref)) ++st.sampleWrong, st.note("MPFR differs at %a: got %a, MPFR %a", v, got, ref);
        st.worstQuick = std::max(st.worstQuick, mp.relativeError(quick, 2, y, x));
        st.worstDD = std::max(st.worstDD, mp.relativeError(ex::detail::atan2DD(y, x), 2, y, x));
    }
}

void checkFourthRoot(uint32_t bits, bool sample, Mpfr& mp, Stats& st) {
    const float x = std::bit_cast<float>(bits);
    const float got = ex::fourthRoot(x);
    ++st.checked;
    bool ok;
    if (std::isnan(x) || (x < 0.0f && std::isfinite(x))) {
        ok = std::isnan(got);
    } else if (x == 0.0f) {
        ok = sameBits(got, 0.0f);
    } else if (std::isinf(x)) {
        ok = got == std::numeric_limits<float>::infinity();
    } else {
        // got must be a positive normal float whose neighbouring midpoints bracket x's root.
        const double y = got;
        const double up = y + 0.5 * (static_cast<double>(std::nextafter(got, 1e38f)) - y);
        const double down = y - 0.5 * (y - static_cast<double>(std::nextafter(got, 0.0f)));
        ok = got > 0.0f && std::isfinite(got) && compare(power4(down), x) < 0 && compare(power4(up), x) > 0;
        ++st.byQuick;
    }
    if (!ok) ++st.wrong, st.note("wrong at %a: got %a (%a)", x, got, got);
    if (sample) {
        ++st.sampled;
        const float ref = mp.pow(x, 0.25);
        if (!sameBits(got, ref)) ++st.sampleWrong, st.note("MPFR differs at %a: got %a, MPFR %a", x, got, ref);
    }
}

void checkFourthPower(uint32_t bits, bool sample, Mpfr& mp, Stats& st) {
    const float x = std::bit_cast<float>(bits);
    const float got = ex::fourthPower(x);
    ++st.checked;
    const float want = std::isnan(x) ? x : std::isinf(x) ? std::numeric_limits<float>::infinity()
                                                          : roundExact(power4(std::fabs(static_cast<double>(x))));
    if (std::isfinite(x)) ++st.byQuick;
    if (!sameBits(got, want)) ++st.wrong, st.note("wrong at %a: got %a, want %a", x, got, want);
    if (sample) {
        ++st.sampled;
        const float ref = mp.pow(x, 4.0);
        if (!sameBits(got, ref)) ++st.sampleWrong, st.note("MPFR differs at %a: got %a, MPFR %a", x, got, ref);
    }
}

double seconds(std::chrono::steady_clock::time_point since) {
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - since).count();
}

}  // namespace

int main(int argc, char** argv) {
    std::vector<std::string> functions;
    unsigned threads = 2, sampleEvery = 4096;
    uint64_t first = 0, last = 0xFFFFFFFFu;
    for (int i = 1; i < argc; ++i) {
        const std::string a = argv[i];
        if (a == "--threads" && i + 1 < argc) {
            threads = static_cast<unsigned>(std::max(1, std::atoi(argv[++i])));
        } else if (a == "--sample" && i + 1 < argc) {
            sampleEvery = static_cast<unsigned>(std::max(1, std::atoi(argv[++i])));
        } else if (a == "--range" && i + 2 < argc) {
            first = std::strtoull(argv[i + 1], nullptr, 16);
            last = std::min<uint64_t>(std::strtoull(argv[i + 2], nullptr, 16), 0xFFFFFFFFu);
            i += 2;
        } else if (a == "sinf" || a == "cosf" || a == "fourthRoot" || a == "fourthPower" || a == "atan2y" ||
                   a == "atan2x") {
            functions.push_back(a);
        } else {
            std::fprintf(stderr,
                         "usage: %s [sinf|cosf|fourthRoot|fourthPower|atan2y|atan2x ...] [--threads N]\n"
                         "          [--sample K] [--range FIRST LAST]\n"
                         "  checks every float argument of the named functions (default: the first four;\n"
                         "  atan2y is atan2f(y, 1), atan2x atan2f(1, x)), or the bit patterns FIRST to LAST\n"
                         "  (hexadecimal)\n",
                         argv[0]);
            return 2;
        }
    }
    if (functions.empty()) functions = {"sinf", "cosf", "fourthRoot", "fourthPower"};
    if (threads > 1 && !mpfr_buildopt_tls_p()) {
        std::fprintf(stderr, "MPFR without thread-local state: using one thread\n");
        threads = 1;
    }

    bool allGood = true;
    for (const std::string& name : functions) {
        const auto start = std::chrono::steady_clock::now();
        constexpr uint64_t kBlock = 1u << 22;  // 1024 blocks in all
        const uint64_t blocks = (last - first) / kBlock + 1;
        std::atomic<uint64_t> next{0}, done{0};
        Stats total;
        std::mutex lock;
        const auto work = [&] {
            Mpfr mp;
            Stats st;
            for (uint64_t block; (block = next.fetch_add(1)) < blocks;) {
                const uint64_t begin = first + block * kBlock, end = std::min(begin + kBlock - 1, last);
                for (uint64_t i = begin; i <= end; ++i) {
                    const uint32_t bits = static_cast<uint32_t>(i);
                    const bool sample = bits % sampleEvery == 0;
                    if (name == "sinf") checkSinCos(false, bits, sample, mp, st);
                    else if (name == "cosf") checkSinCos(true, bits, sample, mp, st);
                    else if (name == "fourthRoot") checkFourthRoot(bits, sample, mp, st);
                    else if (name == "atan2y" || name == "atan2x") checkAtan2(name == "atan2y", bits, sample, mp, st);
                    else checkFourthPower(bits, sample, mp, st);
                }
                const uint64_t d = done.fetch_add(1) + 1;
                if (d % 64 == 0) {
                    std::lock_guard<std::mutex> g(lock);
                    std::printf("%s: %3.0f%% after %.0f s\n", name.c_str(), 100.0 * d / blocks, seconds(start));
                    std::fflush(stdout);
                }
            }
            std::lock_guard<std::mutex> g(lock);
            total.merge(st);
        };
        std::vector<std::thread> pool;
        for (unsigned t = 0; t < threads; ++t) pool.emplace_back(work);
        for (std::thread& t : pool) t.join();

        const bool bounded = total.worstQuick < ex::detail::kQuickRelError && total.worstDD < ex::detail::kDDRelError;
        const bool good = total.wrong == 0 && total.sampleWrong == 0 && bounded;
        allGood = allGood && good;
        std::printf("%s: %llu arguments in %.0f s: %s\n", name.c_str(), static_cast<unsigned long long>(total.checked),
                    seconds(start), good ? "all correctly rounded" : "FAILED");
        if (name == "sinf" || name == "cosf" || name == "atan2y" || name == "atan2x")
            std::printf("  decided by the first stage %llu, by the second %llu, by MPFR %llu; wrong %llu\n",
                        static_cast<unsigned long long>(total.byQuick), static_cast<unsigned long long>(total.byDD),
                        static_cast<unsigned long long>(total.byMpfr), static_cast<unsigned long long>(total.wrong));
        else
            std::printf("  finite results proved by exact double-double powers %llu; wrong %llu\n",
                        static_cast<unsigned long long>(total.byQuick), static_cast<unsigned long long>(total.wrong));
        std::printf("  compared with MPFR: %llu, differing %llu\n", static_cast<unsigned long long>(total.sampled),
                    static_cast<unsigned long long>(total.sampleWrong));
        if (total.worstQuick > 0)
            std::printf("  largest error measured: first stage 2^%.2f (bound 2^%.0f), second 2^%.2f (bound 2^%.0f)\n",
                        std::log2(total.worstQuick), std::log2(ex::detail::kQuickRelError), std::log2(total.worstDD),
                        std::log2(ex::detail::kDDRelError));
        if (total.smallest < 1)
            std::printf("  smallest |value| for |x| >= 1: %a at x = %a\n", total.smallest,
                        static_cast<double>(total.smallestAt));
        for (const std::string& n : total.notes) std::printf("  %s\n", n.c_str());
        std::fflush(stdout);
    }
    return allGood ? 0 : 1;
}
