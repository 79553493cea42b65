// SPDX-License-Identifier: MIT
// 64-bit words: the arithmetic the processor does, named once. Everything wider is built from these few functions.
//
// Unsigned arithmetic that is meant to wrap is written with the wrapping_ functions and with nothing else, so that a
// sanitizer which reports unsigned wrap-around finds every wrap that was not meant.
#ifndef QV8NUMERIC_WIDE_WORDS_H
#define QV8NUMERIC_WIDE_WORDS_H

#include <cstdint>
#include <type_traits>

#if defined(__clang__)
#  define QV8NUMERIC_MAY_WRAP __attribute__((no_sanitize("unsigned-integer-overflow")))
#else
#  define QV8NUMERIC_MAY_WRAP
#endif

// Inlined, the roads of wider values would have the short one save their registers; not inlined, the words of the short
// one would go through memory. So the few functions where it matters say which they are.
#if defined(_MSC_VER)
#  define QV8NUMERIC_ASIDE __declspec(noinline)
#  define QV8NUMERIC_INLINE __forceinline
#else
#  define QV8NUMERIC_ASIDE __attribute__((noinline))
#  define QV8NUMERIC_INLINE inline __attribute__((always_inline))
#endif

// Building with QV8NUMERIC_PORTABLE defined takes, on every machine, the road of those that have neither a 128-bit
// integer nor a division of two words by one.
#if defined(__SIZEOF_INT128__) && !defined(QV8NUMERIC_PORTABLE)
#  define QV8NUMERIC_NATIVE_128 1
#else
#  define QV8NUMERIC_NATIVE_128 0
#endif
#if defined(__x86_64__) && defined(__GNUC__) && !defined(QV8NUMERIC_PORTABLE)
#  define QV8NUMERIC_NATIVE_DIVISION 1
#else
#  define QV8NUMERIC_NATIVE_DIVISION 0
#endif

// A fact that the compiler may build on, and cannot see.
#if defined(_MSC_VER)
#  define QV8NUMERIC_ASSUME(fact) __assume(fact)
#else
#  define QV8NUMERIC_ASSUME(fact) ((fact) ? static_cast<void>(0) : __builtin_unreachable())
#endif

namespace qv8numeric {

using std::int32_t;
using std::int64_t;
using std::uint32_t;
using std::uint64_t;

// Some signatures say unsigned where 32 bits are meant, one of them in an exported C++ name: both are one type.
static_assert(std::is_same_v<uint32_t, unsigned>);

// Conditions as numbers, and joined without a branch: those on signs and carries are as good as random.
constexpr unsigned one_if(bool condition) { return static_cast<unsigned>(condition); }
constexpr bool both(bool a, bool b) { return (one_if(a) & one_if(b)) != 0; }
constexpr bool either(bool a, bool b) { return (one_if(a) | one_if(b)) != 0; }

// An unsigned 128-bit number.
struct WordPair {
    uint64_t high;
    uint64_t low;

    friend constexpr bool operator==(WordPair a, WordPair b) { return ((a.high ^ b.high) | (a.low ^ b.low)) == 0; }
};

#if QV8NUMERIC_NATIVE_128
__extension__ using uint128 = unsigned __int128;
// NOLINTNEXTLINE(clang-analyzer-core.UndefinedBinaryOperatorResult): it takes the shift for one of 64 bits
constexpr uint128 native(WordPair a) { return uint128{a.high} << 64 | a.low; }
constexpr WordPair words_of(uint128 a) { return {static_cast<uint64_t>(a >> 64), static_cast<uint64_t>(a)}; }
#endif

// a < b is the borrow out of a - b.
constexpr bool operator<(WordPair a, WordPair b) {
#if QV8NUMERIC_NATIVE_128
    return native(a) < native(b);
#else
    return either(a.high < b.high, both(a.high == b.high, a.low < b.low));
#endif
}
constexpr bool operator>(WordPair a, WordPair b) { return b < a; }
constexpr bool operator<=(WordPair a, WordPair b) { return !(b < a); }
constexpr bool operator>=(WordPair a, WordPair b) { return !(a < b); }

QV8NUMERIC_MAY_WRAP constexpr uint64_t wrapping_add(uint64_t a, uint64_t b) { return a + b; }
QV8NUMERIC_MAY_WRAP constexpr uint64_t wrapping_subtract(uint64_t a, uint64_t b) { return a - b; }
QV8NUMERIC_MAY_WRAP constexpr uint64_t wrapping_multiply(uint64_t a, uint64_t b) { return a * b; }
constexpr uint64_t wrapping_negate(uint64_t a) { return wrapping_subtract(0, a); }

// In the form that compilers know as an addition with carry and a subtraction with borrow.
constexpr WordPair wrapping_add(WordPair a, WordPair b) {
    const uint64_t low = wrapping_add(a.low, b.low);
    return {wrapping_add(wrapping_add(a.high, b.high), one_if(low < a.low)), low};
}

constexpr WordPair wrapping_subtract(WordPair a, WordPair b) {
    return {wrapping_subtract(wrapping_subtract(a.high, b.high), one_if(a.low < b.low)),
            wrapping_subtract(a.low, b.low)};
}

constexpr bool is_zero(uint64_t a) { return a == 0; }
constexpr bool is_zero(WordPair a) { return (a.high | a.low) == 0; }
constexpr bool is_negative(WordPair a) { return a.high >> 63 != 0; }  // in two's complement
constexpr bool is_odd(uint64_t a) { return (a & 1) != 0; }
constexpr bool is_odd(WordPair a) { return is_odd(a.low); }
constexpr uint64_t increased_by(uint64_t a, bool one) { return a + one_if(one); }
constexpr WordPair increased_by(WordPair a, bool one) { return wrapping_add(a, WordPair{0, one_if(one)}); }
constexpr WordPair wrapping_negate(WordPair a) { return wrapping_subtract(WordPair{0, 0}, a); }

// -a or a, without a branch: signs of values are as good as random.
constexpr uint64_t negated_if(bool negative, uint64_t a) {
    const uint64_t mask = wrapping_negate(one_if(negative));
    return wrapping_subtract(a ^ mask, mask);
}

constexpr WordPair negated_if(bool negative, WordPair a) {
    const uint64_t mask = wrapping_negate(one_if(negative));
    return wrapping_subtract(WordPair{a.high ^ mask, a.low ^ mask}, WordPair{mask, mask});
}

// a / 2^bits towards zero, and a * 2^bits modulo 2^128, for 0 <= bits < 64. (What crosses over moves by 64 - bits,
// which may be 64: one shift by 1 and one by 63 - bits.)
constexpr WordPair shift_right(WordPair a, unsigned bits) {
    return {a.high >> bits, a.high << 1 << (63 - bits) | a.low >> bits};
}

constexpr WordPair shift_left(WordPair a, unsigned bits) {
    return {a.high << bits | a.low >> 1 >> (63 - bits), a.low << bits};
}

// a * b in halves of 32 bits. Each column is at most (2^32-1)^2 + 2*(2^32-1) = 2^64 - 1: no carry is lost.
constexpr WordPair multiply_words_portable(uint64_t a, uint64_t b) {
    constexpr uint64_t low_half = 0xffffffff;
    const uint64_t a0 = a & low_half, a1 = a >> 32;
    const uint64_t b0 = b & low_half, b1 = b >> 32;
    const uint64_t column0 = a0 * b0;
    const uint64_t column1 = a1 * b0 + (column0 >> 32);
    const uint64_t column2 = a0 * b1 + (column1 & low_half);
    return {a1 * b1 + (column1 >> 32) + (column2 >> 32), (column2 << 32) | (column0 & low_half)};
}

// a * b, exactly.
constexpr WordPair multiply_words(uint64_t a, uint64_t b) {
#if QV8NUMERIC_NATIVE_128
    return words_of(uint128{a} * b);
#else
    return multiply_words_portable(a, b);
#endif
}

// a * b + c, exactly: (2^64-1)^2 + 2^64-1 < 2^128.
constexpr WordPair multiply_add(uint64_t a, uint64_t b, uint64_t c) {
    const WordPair product = multiply_words(a, b);
    const uint64_t low = wrapping_add(product.low, c);
    return {product.high + one_if(low < c), low};
}

// a * b + c + d, exactly: (2^64-1)^2 + 2*(2^64-1) = 2^128 - 1.
constexpr WordPair multiply_add(uint64_t a, uint64_t b, uint64_t c, uint64_t d) {
    const WordPair sum = multiply_add(a, b, c);
    const uint64_t low = wrapping_add(sum.low, d);
    return {sum.high + one_if(low < d), low};
}

// The product of two magnitudes, in twice their width.
constexpr WordPair multiply(uint64_t a, uint64_t b) { return multiply_words(a, b); }

// floor(a * b / 2^64).
constexpr uint64_t multiply_high(uint64_t a, uint64_t b) { return multiply_words(a, b).high; }

// floor(a * b / 2^128). Of this sum compilers chain the carries in their own type only.
constexpr WordPair multiply_high(WordPair a, WordPair b) {
#if QV8NUMERIC_NATIVE_128
    const uint128 cross = uint128{a.low} * b.high + multiply_high(a.low, b.low);
    const uint128 middle = uint128{a.high} * b.low + static_cast<uint64_t>(cross);
    return words_of(uint128{a.high} * b.high + (cross >> 64) + (middle >> 64));
#else
    const WordPair cross = multiply_add(a.low, b.high, multiply_high(a.low, b.low));
    const WordPair middle = multiply_add(a.high, b.low, cross.low);
    return multiply_add(a.high, b.high, cross.high, middle.high);
#endif
}

constexpr WordPair wrapping_multiply(WordPair a, uint64_t b) {
    const WordPair low = multiply_words(a.low, b);
    return {wrapping_add(wrapping_multiply(a.high, b), low.high), low.low};
}

constexpr WordPair wrapping_multiply(WordPair a, WordPair b) {
    const WordPair low = wrapping_multiply(a, b.low);
    return {wrapping_add(wrapping_multiply(a.low, b.high), low.high), low.low};
}

struct WordQuotient {
    uint64_t quotient;
    uint64_t remainder;
};

// u / d for u < d * 2^64, which x86-64 does in one instruction; anything else traps. For a divisor that divides once or
// twice this beats a reciprocal by far on the processors of the last years; reciprocal.h is the road of all others.
#if QV8NUMERIC_NATIVE_DIVISION
inline WordQuotient divide_natively(WordPair u, uint64_t d) {
    WordQuotient result;
    // NOLINTNEXTLINE(hicpp-no-assembler): the language has no name for it
    __asm__("divq %4" : "=a"(result.quotient), "=d"(result.remainder) : "a"(u.low), "d"(u.high), "r"(d) : "cc");
    return result;
}
#endif

}  // namespace qv8numeric

#endif
