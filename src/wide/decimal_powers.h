// SPDX-License-Identifier: MIT
// One record for each power of ten that a coefficient can hold: what it takes to multiply and to divide by it in words.
#ifndef QV8NUMERIC_WIDE_DECIMAL_POWERS_H
#define QV8NUMERIC_WIDE_DECIMAL_POWERS_H

#include <array>
#include <bit>
#include <cstddef>

#include "wide/reciprocal.h"
#include "wide/words.h"

namespace qv8numeric {

// The largest powers of ten in one word, and in the 127 bits of a magnitude.
inline constexpr unsigned word_digits = 19;
inline constexpr unsigned pair_digits = 38;

// The largest one whose bits, but for zeros at the end, fit one word: 5^27 < 2^63.
inline constexpr unsigned significand_digits = 27;

// d = 10^k with b bits: 2^(b-1) < d < 2^b. (10^0 is there to multiply by; nothing divides by it.)
//
// A quotient by d is a multiplication by m = floor(2^(n+b) / d) + 1, which has n + 1 bits, and a shift by n + b
// (Granlund and Montgomery, "Division by Invariant Integers using Multiplication", 1994). It is exact for x <= 2^n:
// with m * d = 2^(n+b) + e and 0 < e < d, x * m / 2^(n+b) exceeds x / d by x * e / 2^(n+b) / d, and x * e < 2^n * 2^b
// keeps that below 1 / d, the distance to the next quotient.
struct alignas(64) DecimalPower {
    WordPair power;            // d
    WordPair reciprocal;       // m for n = 127: of every magnitude of a coefficient
    uint64_t word_reciprocal;  // m for n = 63, where d fits one word
    uint64_t long_reciprocal;  // of the normalized d, for long division: of one word up to 10^19, of two beyond
    uint64_t significand;      // the leading 64 bits of d, the first of them set; all of d up to 10^27
    unsigned shift;            // b - 1: what is left to shift after taking the upper half of x * m
};
static_assert(sizeof(DecimalPower) == 64);  // one cache line

namespace decimal_powers_detail {

constexpr unsigned bit_length(WordPair x) {
    return static_cast<unsigned>(x.high != 0 ? 64 + std::bit_width(x.high) : std::bit_width(x.low));
}

constexpr WordPair twice(WordPair x) { return {x.high << 1 | x.low >> 63, x.low << 1}; }

// floor(2^exponent / d) modulo 2^128, bit by bit, for 1 < d < 2^127.
constexpr WordPair power_of_two_by(WordPair d, unsigned exponent) {
    WordPair quotient{0, 0};
    WordPair remainder{0, 1};
    for (; exponent > 0; --exponent) {
        quotient = twice(quotient);
        remainder = twice(remainder);
        if (remainder >= d) {
            remainder = wrapping_subtract(remainder, d);
            quotient.low |= 1;
        }
    }
    return quotient;
}

constexpr DecimalPower record_of(WordPair d) {
    const unsigned bits = bit_length(d);
    DecimalPower record{d, wrapping_add(power_of_two_by(d, 127 + bits), WordPair{0, 1}), 0, 0, 0, bits - 1};
    if (d.high == 0) {
        record.significand = d.low << (64 - bits);
        record.word_reciprocal = power_of_two_by(d, 63 + bits).low + 1;
        record.long_reciprocal = reciprocal_of(record.significand);
    } else {
        const WordPair normalized = shift_left(d, 128 - bits);
        record.significand = normalized.high;
        record.long_reciprocal = reciprocal_of(normalized);
    }
    return record;
}

}  // namespace decimal_powers_detail

// 10^0 .. 10^38.
inline constexpr auto decimal_power = []() {
    std::array<DecimalPower, pair_digits + 1> table{};
    WordPair power{0, 1};
    for (std::size_t k = 0; k < table.size(); ++k, power = wrapping_multiply(power, 10)) {
        table[k] = decimal_powers_detail::record_of(power);
    }
    return table;
}();

// The published constants for a division by 10, and for the long division by 10^19.
static_assert(decimal_power[1].word_reciprocal == 0xcccccccccccccccd && decimal_power[1].shift == 3);
static_assert(decimal_power[1].reciprocal == WordPair{0xcccccccccccccccc, 0xcccccccccccccccd});
static_assert(decimal_power[19].power == WordPair{0, 0x8ac7230489e80000});
static_assert(decimal_power[19].long_reciprocal == 0xd83c94fb6d2ac34a);
static_assert(decimal_power[significand_digits].significand == 0xcecb8f27f4200f3a);
static_assert(decimal_power[38].power == WordPair{0x4b3b4ca85a86c47a, 0x098a224000000000});

}  // namespace qv8numeric

#endif
