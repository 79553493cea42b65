// SPDX-License-Identifier: MIT
// The hand-made peer's inlined helpers, on the compiler's 128-bit integer, and all in which its two variants differ.
//
// Written to win. The whole job is done, but nothing beyond it: operands are small more often than not, so each helper
// has a road for 64 bits where that pays.
#ifndef QV8NUMERIC_BENCH_PEERS_INT128_H
#define QV8NUMERIC_BENCH_PEERS_INT128_H

#include <array>
#include <bit>
#include <cstdint>

#include "qv8numeric.h"
#include "variant.h"

namespace qv8numeric_bench::QV8NUMERIC_BENCH_INT128 {

__extension__ using U128 = unsigned __int128;
__extension__ using I128 = __int128;
using U64 = std::uint64_t;

constexpr auto kPower = [] {
    std::array<U128, 39> power{1};
    for (std::size_t i = 1; i < power.size(); ++i) power[i] = power[i - 1] * 10;
    return power;
}();
inline constexpr int kMostDigits = 38;
inline constexpr int kWordDigits = 19;  // 10^19 < 2^64 < 10^20

constexpr U64 high(U128 x) { return static_cast<U64>(x >> 64); }
constexpr U64 low(U128 x) { return static_cast<U64>(x); }
constexpr bool is_word(U128 x) { return high(x) == 0; }

constexpr int bit_length(U128 x) {
    return static_cast<int>(high(x) != 0 ? 64 + std::bit_width(high(x)) : std::bit_width(low(x)));
}

inline I128 load(const Numeric* x) {
    return static_cast<I128>(static_cast<U128>(static_cast<U64>(x->high)) << 64 | x->low);
}

inline void store(Numeric* x, I128 value) {
    x->low = low(static_cast<U128>(value));
    x->high = static_cast<std::int64_t>(high(static_cast<U128>(value)));
}

constexpr I128 kNan = static_cast<I128>(U128{1} << 127);
constexpr U128 kLimit = U128{1} << 127;  // the first magnitude that does not fit

// Signs come as they like, and by hand nothing branches on them but where hardly any number is negative.
constexpr U128 magnitude_of_mostly_positive(I128 x) {
    if (__builtin_expect(x < 0, 0)) return -static_cast<U128>(x);
    return static_cast<U128>(x);
}
constexpr U128 negated_if(bool negative, U128 x) {
    if constexpr (kPlain) return negative ? -x : x;
    const U128 mask = -U128{negative};
    return (x ^ mask) - mask;
}
constexpr U128 magnitude(I128 x) { return negated_if(x < 0, static_cast<U128>(x)); }
constexpr I128 with_sign(U128 x, bool negative) { return static_cast<I128>(negated_if(negative, x)); }

// Which magnitudes are increased, as a set of 16 cases: the sign, the dropped part (nothing, below, exactly, above one
// half) and whether the kept digit is odd.
constexpr auto kIncreased = [] {
    std::array<std::uint16_t, 7> sets{};
    for (unsigned mode = 0; mode < 7; ++mode) {
        for (unsigned c = 2; c < 16; ++c) {
            const unsigned dropped = c >> 1 & 3;
            const bool negative = (c & 8) != 0, odd = (c & 1) != 0;
            if (dropped == 0) continue;
            const bool up = mode == NUMERIC_ROUND_UP || (mode == NUMERIC_ROUND_CEILING && !negative) ||
                            (mode == NUMERIC_ROUND_FLOOR && negative) ||
                            (mode == NUMERIC_ROUND_HALF_UP && dropped >= 2) ||
                            (mode == NUMERIC_ROUND_HALF_DOWN && dropped == 3) ||
                            (mode == NUMERIC_ROUND_HALF_EVEN && (dropped == 3 || (dropped == 2 && odd)));
            if (up) sets[mode] = static_cast<std::uint16_t>(sets[mode] | 1U << c);
        }
    }
    return sets;
}();

// The set bit for a kept digit and a dropped part: 0 for nothing, 1, 2 and 3 for below, exactly and above one half.
constexpr bool is_increased(std::uint32_t mode, bool negative, bool odd, unsigned dropped) {
    return (kIncreased[mode] >> ((negative ? 8U : 0U) | dropped << 1 | (odd ? 1U : 0U)) & 1) != 0;
}

constexpr bool is_mode(std::uint32_t mode) { return mode < kIncreased.size(); }

// The decision spelled out, from the remainder and what is left of the divisor.
template <typename Word>
inline bool is_increased_by_switch(std::uint32_t mode, bool negative, bool odd, Word remainder, Word rest) {
    if (remainder == 0) return false;
    switch (mode) {
        case NUMERIC_ROUND_UP: return true;
        case NUMERIC_ROUND_DOWN: return false;
        case NUMERIC_ROUND_CEILING: return !negative;
        case NUMERIC_ROUND_FLOOR: return negative;
        case NUMERIC_ROUND_HALF_UP: return remainder >= rest;
        case NUMERIC_ROUND_HALF_DOWN: return remainder > rest;
        default: return remainder > rest || (remainder == rest && odd);
    }
}

// 1 if a magnitude ending in this digit grows, else 0. The remainder is below the divisor, which is below 2^127.
template <typename Word>
inline unsigned increase(std::uint32_t mode, bool negative, Word kept, Word remainder, Word divisor) {
    const Word rest = static_cast<Word>(divisor - remainder);
    if constexpr (kPlain) return is_increased_by_switch(mode, negative, (kept & 1) != 0, remainder, rest) ? 1 : 0;
    const unsigned dropped = unsigned{remainder != 0} + unsigned{remainder >= rest} + unsigned{remainder > rest};
    const unsigned index = (negative ? 8U : 0U) | dropped << 1 | static_cast<unsigned>(kept & 1);
    return unsigned{kIncreased[mode]} >> index & 1U;
}

// n / d. Multiplied back, since / and % are a call each where the compiler does not join them.
inline U128 divide(U128 n, U128 d, U128* remainder) {
    const U128 quotient = n / d;
    *remainder = n - quotient * d;
    return quotient;
}

// n / d for a quotient below 2^64: by hand it is the processor's division.
inline U64 divide_2by1(U128 n, U64 d, U64* remainder) {
#if defined(__x86_64__)
    if constexpr (!kPlain) {
        U64 quotient, rest;
        __asm__("divq %4" : "=a"(quotient), "=d"(rest) : "a"(low(n)), "d"(high(n)), "rm"(d) : "cc");
        *remainder = rest;
        return quotient;
    }
#endif
    const U64 quotient = static_cast<U64>(n / d);
    *remainder = low(n) - quotient * d;
    return quotient;
}

// What a dividend is like. kShort: mostly below 2^64, which a branch predictor then expects. kAny: as often as not, and
// two divisions cost less than a wrong guess.
enum class Dividend { kShort, kAny };

template <Dividend kDividend>
inline U128 divide_by_word(U128 n, U64 d, U64* remainder) {
    if (kDividend == Dividend::kShort && is_word(n)) {
        *remainder = low(n) % d;
        return low(n) / d;
    }
    if constexpr (kPlain) {
        const U128 quotient = n / d;
        *remainder = low(n) - low(quotient) * d;
        return quotient;
    }
    const U64 top = high(n) / d;
    return static_cast<U128>(top) << 64 | divide_2by1(static_cast<U128>(high(n) % d) << 64 | low(n), d, remainder);
}

// A magnitude divided by 0 < d < 2^127 and rounded, and whether anything was dropped.
template <Dividend kDividend>
inline U128 divide_rounded(U128 n, U128 d, std::uint32_t mode, bool negative, bool* inexact) {
    if (kDividend == Dividend::kShort && is_word(n) && is_word(d)) {
        const U64 quotient = low(n) / low(d), remainder = low(n) % low(d);
        *inexact = remainder != 0;
        return U128{quotient} + increase(mode, negative, quotient, remainder, low(d));
    }
    if (is_word(d)) {
        U64 remainder;
        const U128 quotient = divide_by_word<kDividend>(n, low(d), &remainder);
        *inexact = remainder != 0;
        return quotient + increase(mode, negative, low(quotient), remainder, low(d));
    }
    U128 remainder;
    const U128 quotient = divide(n, d, &remainder);
    *inexact = remainder != 0;
    return quotient + increase(mode, negative, quotient, remainder, d);
}

// The door out: a magnitude and its sign, or NaN.
inline NumericStatus finish(Numeric* out, U128 magnitude, bool negative, bool inexact) {
    if (magnitude >= kLimit) {
        store(out, kNan);
        return negative ? NUMERIC_UNDERFLOW : NUMERIC_OVERFLOW;
    }
    store(out, with_sign(magnitude, negative));
    return inexact ? NUMERIC_INEXACT : NUMERIC_OK;
}

inline NumericStatus nan(Numeric* out, NumericStatus status = NUMERIC_NAN) {
    store(out, kNan);
    return status;
}

}  // namespace qv8numeric_bench::QV8NUMERIC_BENCH_INT128

#endif
