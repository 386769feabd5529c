// The checks of the Windows test programs (no GoogleTest for mingw-w64): CHECK and CHECK_EQ
// count and report, and finish() prints the closing line "N passed, N failed" and gives the
// exit status. Floats are compared and printed by their bits, so -0 and NaN payloads count.
#pragma once

#include <cstdint>
#include <cstdio>
#include <cstring>
#include <type_traits>

namespace grainsmith::wintest {

struct Tally {
    int passed = 0;
    int failed = 0;
};

inline Tally& tally() {
    static Tally t;
    return t;
}

inline void group(const char* name) { std::printf("== %s\n", name); }

inline bool record(bool ok, const char* file, int line, const char* what) {
    if (ok) {
        ++tally().passed;
    } else {
        ++tally().failed;
        std::printf("%s:%d: FAILED: %s\n", file, line, what);
    }
    return ok;
}

inline void show(float v) {
    std::uint32_t bits;
    std::memcpy(&bits, &v, sizeof bits);
    std::printf("%a (0x%08x)", static_cast<double>(v), static_cast<unsigned>(bits));
}
inline void show(long long v) { std::printf("%lld", v); }
inline void show(unsigned long long v) { std::printf("%llu (0x%llx)", v, v); }
inline void show(const void* v) { std::printf("%p", v); }

inline bool same(float a, float b) { return std::memcmp(&a, &b, sizeof a) == 0; }
template <class T>
bool same(const T& a, const T& b) {
    return a == b;
}

template <class A, class B>
bool recordEqual(const A& a, const B& b, const char* file, int line, const char* what) {
    using T = std::conditional_t<std::is_floating_point_v<A>, float,
                                 std::conditional_t<std::is_pointer_v<A>, const void*,
                                                    std::conditional_t<std::is_signed_v<A>, long long,
                                                                       unsigned long long>>>;
    const T x = static_cast<T>(a), y = static_cast<T>(b);
    const bool ok = same(x, y);
    record(ok, file, line, what);
    if (!ok) {
        std::printf("    got ");
        show(x);
        std::printf(", expected ");
        show(y);
        std::printf("\n");
    }
    return ok;
}

inline int finish() {
    std::printf("%d passed, %d failed\n", tally().passed, tally().failed);
    std::fflush(stdout);
    return tally().failed == 0 ? 0 : 1;
}

}  // namespace grainsmith::wintest

#define CHECK(cond) ::grainsmith::wintest::record(static_cast<bool>(cond), __FILE__, __LINE__, #cond)
// Bitwise for floats; pointers, integers and enums by value.
#define CHECK_EQ(actual, expected) \
    ::grainsmith::wintest::recordEqual((actual), (expected), __FILE__, __LINE__, #actual " == " #expected)
