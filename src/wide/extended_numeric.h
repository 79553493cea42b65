// SPDX-License-Identifier: MIT
// The 256-bit intermediate of every operation that changes a scale. Most routines see an unsigned magnitude; addition
// and subtraction of two operands see two's complement.
#ifndef QV8NUMERIC_WIDE_EXTENDED_NUMERIC_H
#define QV8NUMERIC_WIDE_EXTENDED_NUMERIC_H

#include <bit>

#include "wide/coefficient.h"
#include "wide/words.h"

// Four words, least significant first, which are eight 32-bit limbs in the same order.
struct ExtendedNumeric {
    std::uint64_t word[4];
};

namespace qv8numeric {

// Limb i of eight, least significant first; taken by a shift, so that the byte order of the machine plays no part.
constexpr uint32_t limb(const ExtendedNumeric& x, unsigned i) {
    return static_cast<uint32_t>(x.word[i / 2] >> (i % 2 * 32));
}

constexpr ExtendedNumeric extend(WordPair magnitude) { return {{magnitude.low, magnitude.high, 0, 0}}; }

// The same signed value in 256 bits.
constexpr ExtendedNumeric sign_extend(const Numeric& value) {
    const uint64_t sign = is_negative(value) ? UINT64_MAX : 0;
    return {{value.low, static_cast<uint64_t>(value.high), sign, sign}};
}

constexpr WordPair low_half(const ExtendedNumeric& x) { return {x.word[1], x.word[0]}; }
constexpr WordPair high_half(const ExtendedNumeric& x) { return {x.word[3], x.word[2]}; }

constexpr bool is_zero(const ExtendedNumeric& x) { return (x.word[0] | x.word[1] | x.word[2] | x.word[3]) == 0; }
constexpr bool is_odd(const ExtendedNumeric& x) { return (x.word[0] & 1) != 0; }
constexpr bool is_negative(const ExtendedNumeric& x) { return (x.word[3] >> 63) != 0; }

// a + b modulo 2^256; carry is set to the carry out.
constexpr ExtendedNumeric add(const ExtendedNumeric& a, const ExtendedNumeric& b, uint64_t& carry) {
    ExtendedNumeric sum{};
    carry = 0;
    for (unsigned i = 0; i < 4; ++i) sum.word[i] = add_with_carry(a.word[i], b.word[i], carry);
    return sum;
}

constexpr ExtendedNumeric add(const ExtendedNumeric& a, const ExtendedNumeric& b) {
    uint64_t carry = 0;
    return add(a, b, carry);
}

// a - b modulo 2^256.
constexpr ExtendedNumeric subtract(const ExtendedNumeric& a, const ExtendedNumeric& b) {
    ExtendedNumeric difference{};
    uint64_t borrow = 0;
    for (unsigned i = 0; i < 4; ++i) difference.word[i] = subtract_with_borrow(a.word[i], b.word[i], borrow);
    return difference;
}

constexpr ExtendedNumeric negate(const ExtendedNumeric& x) { return subtract(ExtendedNumeric{}, x); }
constexpr ExtendedNumeric increment(const ExtendedNumeric& x) { return add(x, ExtendedNumeric{{1, 0, 0, 0}}); }
constexpr ExtendedNumeric decrement(const ExtendedNumeric& x) { return subtract(x, ExtendedNumeric{{1, 0, 0, 0}}); }

// a * b, exactly: schoolbook over words. Every inner sum is a product, a word and a carry word, below 2^128.
constexpr ExtendedNumeric multiply(WordPair a, WordPair b) {
    const uint64_t left[2] = {a.low, a.high}, right[2] = {b.low, b.high};
    ExtendedNumeric product{};
    for (unsigned i = 0; i < 2; ++i) {
        uint64_t carry = 0;
        for (unsigned j = 0; j < 2; ++j) {
            const WordPair column =
                wrapping_add(multiply_add(left[i], right[j], carry), WordPair{0, product.word[i + j]});
            product.word[i + j] = column.low;
            carry = column.high;
        }
        product.word[i + 2] = carry;
    }
    return product;
}

// The number of bits up to the highest one that is set; 0 for zero.
constexpr unsigned bit_length(const ExtendedNumeric& x) {
    unsigned top = 3;
    while (top > 0 && x.word[top] == 0) --top;
    return top * 64 + static_cast<unsigned>(std::bit_width(x.word[top]));
}

}  // namespace qv8numeric

#endif
