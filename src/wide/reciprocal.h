// SPDX-License-Identifier: MIT
// Division of words by a prepared divisor: two words by one, and three by two, each with one multiplication by a
// reciprocal and at most two corrections. The method and its proofs: N. Moeller and T. Granlund, "Improved division by
// invariant integers", IEEE Transactions on Computers 60 (2011); algorithms 2 to 6 there, numbered below.
//
// A divisor is normalized when its top bit is set. Its reciprocal is floor((B^2 - 1) / d) - B for one word and
// floor((B^3 - 1) / d) - B for two, with B = 2^64.
#ifndef QV8NUMERIC_WIDE_RECIPROCAL_H
#define QV8NUMERIC_WIDE_RECIPROCAL_H

#include <array>
#include <bit>
#include <cstddef>

#include "wide/words.h"

namespace qv8numeric {

// Eleven bits of the reciprocal from the top nine of the divisor, which lie in 256 .. 511.
inline constexpr auto reciprocal_seed = []() {
    std::array<std::uint16_t, 256> table{};
    for (std::size_t i = 0; i < table.size(); ++i) {
        table[i] = static_cast<std::uint16_t>(((1u << 19) - 3 * (1u << 8)) / (256 + i));
    }
    return table;
}();
static_assert(reciprocal_seed[0] == 0x7fd && reciprocal_seed[255] == 0x400);

// The reciprocal of one normalized word: Newton's iteration from 11 to 21, 34 and 65 bits, then made exact
// (algorithm 2).
constexpr uint64_t reciprocal_by_newton(uint64_t d) {
    const uint64_t d40 = (d >> 24) + 1;
    const uint64_t d63 = (d >> 1) + (d & 1);
    const uint64_t v0 = reciprocal_seed[static_cast<std::size_t>((d >> 55) - 256)];
    const uint64_t v1 = (v0 << 11) - (v0 * v0 * d40 >> 40) - 1;
    const uint64_t v2 = (v1 << 13) + (v1 * ((uint64_t{1} << 60) - v1 * d40) >> 47);
    const uint64_t error = wrapping_subtract((d & 1) != 0 ? v2 >> 1 : 0, wrapping_multiply(v2, d63));
    const uint64_t v3 = wrapping_add(v2 << 31, multiply_words(v2, error).high >> 1);
    const WordPair product = wrapping_add(multiply_words(v3, d), WordPair{d, d});
    return wrapping_subtract(v3, product.high);
}
static_assert(reciprocal_by_newton(uint64_t{1} << 63) == UINT64_MAX);
static_assert(reciprocal_by_newton(UINT64_MAX) == 1);

// The same, from the processor where it has it: B^2 - 1 - d * B is (B - 1 - d) * B + B - 1.
constexpr uint64_t reciprocal_of(uint64_t d) {
#if QV8NUMERIC_NATIVE_DIVISION
    return std::is_constant_evaluated() ? reciprocal_by_newton(d) : divide_natively({~d, UINT64_MAX}, d).quotient;
#else
    return reciprocal_by_newton(d);
#endif
}

// All ones where the condition holds: for corrections that are made as often as not, and would be mispredicted.
constexpr uint64_t mask_if(bool condition) { return wrapping_negate(one_if(condition)); }

// u / d for u < d * B: two words by one (algorithm 4).
constexpr WordQuotient divide_2by1(WordPair u, uint64_t d, uint64_t reciprocal) {
    const WordPair estimate = wrapping_add(multiply_words(reciprocal, u.high), u);
    uint64_t quotient = wrapping_add(estimate.high, 1);
    uint64_t remainder = wrapping_subtract(u.low, wrapping_multiply(quotient, d));
    const uint64_t one_less = mask_if(remainder > estimate.low);
    quotient = wrapping_add(quotient, one_less);
    remainder = wrapping_add(remainder, d & one_less);
    if (remainder >= d) {  // rare
        ++quotient;
        remainder -= d;
    }
    return {quotient, remainder};
}

// The reciprocal of two normalized words (algorithm 6).
constexpr uint64_t reciprocal_of(WordPair d) {
    uint64_t reciprocal = reciprocal_of(d.high);
    uint64_t product = wrapping_add(wrapping_multiply(d.high, reciprocal), d.low);
    const uint64_t carried = mask_if(product < d.low);
    const uint64_t twice = carried & mask_if(product >= d.high);
    reciprocal = wrapping_add(reciprocal, wrapping_add(carried, twice));
    product = wrapping_subtract(product, wrapping_add(d.high & carried, d.high & twice));

    const WordPair cross = multiply_words(reciprocal, d.low);
    product = wrapping_add(product, cross.high);
    const uint64_t above = mask_if(product < cross.high);
    const uint64_t far_above = above & mask_if(WordPair{product, cross.low} >= d);
    return wrapping_add(reciprocal, wrapping_add(above, far_above));
}

struct PairQuotient {
    uint64_t quotient;
    WordPair remainder;
};

// (u, low) / d for u < d: three words by two (algorithm 5).
constexpr PairQuotient divide_3by2(WordPair u, uint64_t low, WordPair d, uint64_t reciprocal) {
    const WordPair estimate = wrapping_add(multiply_words(reciprocal, u.high), u);
    uint64_t quotient = wrapping_add(estimate.high, 1);
    const uint64_t high = wrapping_subtract(u.low, wrapping_multiply(estimate.high, d.high));
    const WordPair partial = wrapping_subtract(WordPair{high, low}, multiply_words(d.low, estimate.high));
    WordPair remainder = wrapping_subtract(partial, d);
    const uint64_t one_less = mask_if(remainder.high >= estimate.low);
    quotient = wrapping_add(quotient, one_less);
    remainder = wrapping_add(remainder, WordPair{d.high & one_less, d.low & one_less});
    if (remainder >= d) {  // rare
        ++quotient;
        remainder = wrapping_subtract(remainder, d);
    }
    return {quotient, remainder};
}

}  // namespace qv8numeric

#endif
