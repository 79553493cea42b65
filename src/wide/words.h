// SPDX-License-Identifier: MIT
// 64-bit words: the arithmetic the processor does, named once. Everything wider is built from these few functions.
//
// Unsigned arithmetic that is meant to wrap is written with the wrapping_ functions and with nothing else, so that a
// sanitizer which reports unsigned wrap-around finds every wrap that was not meant.
#ifndef QV8NUMERIC_WIDE_WORDS_H
#define QV8NUMERIC_WIDE_WORDS_H

#include <compare>
#include <cstdint>
#include <type_traits>

#if defined(__clang__)
#  define QV8NUMERIC_MAY_WRAP __attribute__((no_sanitize("unsigned-integer-overflow")))
#else
#  define QV8NUMERIC_MAY_WRAP
#endif

// Building with QV8NUMERIC_PORTABLE defined takes the road of machines without a 128-bit integer on every machine.
#if defined(__SIZEOF_INT128__) && !defined(QV8NUMERIC_PORTABLE)
#  define QV8NUMERIC_NATIVE_128 1
#else
#  define QV8NUMERIC_NATIVE_128 0
#endif

namespace qv8numeric {

using std::int32_t;
using std::int64_t;
using std::uint32_t;
using std::uint64_t;

// Some signatures say unsigned where 32 bits are meant, one of them in an exported C++ name: both are one type.
static_assert(std::is_same_v<uint32_t, unsigned>);

// An unsigned 128-bit number.
struct WordPair {
    uint64_t high;
    uint64_t low;

    friend constexpr bool operator==(const WordPair&, const WordPair&) = default;
    friend constexpr auto operator<=>(const WordPair&, const WordPair&) = default;  // high first: numeric order
};

QV8NUMERIC_MAY_WRAP constexpr uint64_t wrapping_add(uint64_t a, uint64_t b) { return a + b; }
QV8NUMERIC_MAY_WRAP constexpr uint64_t wrapping_subtract(uint64_t a, uint64_t b) { return a - b; }
QV8NUMERIC_MAY_WRAP constexpr uint64_t wrapping_multiply(uint64_t a, uint64_t b) { return a * b; }
constexpr uint64_t wrapping_negate(uint64_t a) { return wrapping_subtract(0, a); }

// a + b + carry; carry (0 or 1) becomes the carry out. At most one of the two additions wraps, since a + b <= 2^65 - 2.
constexpr uint64_t add_with_carry(uint64_t a, uint64_t b, uint64_t& carry) {
    const uint64_t partial = wrapping_add(a, b);
    const uint64_t sum = wrapping_add(partial, carry);
    carry = static_cast<uint64_t>(partial < a) | static_cast<uint64_t>(sum < partial);
    return sum;
}

// a - b - borrow; borrow (0 or 1) becomes the borrow out.
constexpr uint64_t subtract_with_borrow(uint64_t a, uint64_t b, uint64_t& borrow) {
    const uint64_t partial = wrapping_subtract(a, b);
    const uint64_t difference = wrapping_subtract(partial, borrow);
    borrow = static_cast<uint64_t>(a < b) | static_cast<uint64_t>(partial < borrow);
    return difference;
}

constexpr WordPair wrapping_add(WordPair a, WordPair b) {
    uint64_t carry = 0;
    const uint64_t low = add_with_carry(a.low, b.low, carry);
    return {add_with_carry(a.high, b.high, carry), low};
}

constexpr WordPair wrapping_subtract(WordPair a, WordPair b) {
    uint64_t borrow = 0;
    const uint64_t low = subtract_with_borrow(a.low, b.low, borrow);
    return {subtract_with_borrow(a.high, b.high, borrow), low};
}

constexpr WordPair wrapping_negate(WordPair a) { return wrapping_subtract(WordPair{0, 0}, a); }

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
    __extension__ using uint128 = unsigned __int128;
    const uint128 product = static_cast<uint128>(a) * b;
    return {static_cast<uint64_t>(product >> 64), static_cast<uint64_t>(product)};
#else
    return multiply_words_portable(a, b);
#endif
}

// a * b + c, exactly: (2^64-1)^2 + 2^64-1 < 2^128.
constexpr WordPair multiply_add(uint64_t a, uint64_t b, uint64_t c) {
    return wrapping_add(multiply_words(a, b), WordPair{0, c});
}

}  // namespace qv8numeric

#endif
